// A JSON file as a tree, and typed access to its members that collects every fault instead of stopping at the first.
#ifndef JSON_DOCUMENT_H
#define JSON_DOCUMENT_H

#include "outcome.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

using Json = nlohmann::ordered_json;

/// Parses a text. A syntax error is a ToolError with line and column; a key that stands twice in one object is a
/// problem (JSON readers disagree about which one counts).
Json parseJson(const std::string& text, const std::string& fileName, std::vector<Problem>& problems);

/// A document for standard output. Bytes that are no UTF-8 (a damaged file) become replacement characters.
std::string dumpJson(const Json& value);

/// A value as it is written, shortened where it is long.
std::string shown(const Json& value);

/// One object of the tree. Each accessor returns the member, or the default where the member is missing; a member of
/// a wrong type or value is added to the problems, and the default is returned.
class JsonObject
{
public:
    /// `value` may be anything; what is not an object is a problem, and all its members count as missing.
    /// `place` names the object for a person.
    JsonObject(const Json& value, std::string path, std::string place, std::vector<Problem>& problems);

    bool isObject() const { return m_value != nullptr; }
    const std::string& path() const { return m_path; }
    std::string pathOf(const std::string& key) const { return m_path.empty() ? key : m_path + '.' + key; }
    const std::string& place() const { return m_place; }
    void setPlace(const std::string& place) { m_place = place; }

    /// Every key that is not in the list is a problem.
    void allowOnly(const std::vector<std::string>& keys);

    const Json* find(const std::string& key) const; ///< null where it is missing
    bool has(const std::string& key) const { return find(key) != nullptr; }

    int integer(const std::string& key, int low, int high, std::optional<int> fallback);
    double number(const std::string& key, double fallback);
    std::string text(const std::string& key, std::optional<std::string> fallback);
    /// The members of an array, or null. A missing array is a problem.
    const Json* array(const std::string& key, const std::string& expected);

    void problem(const std::string& key, const std::string& value, const std::string& expected);

private:
    void wrong(const std::string& key, const std::string& expected);

    const Json* m_value;
    std::string m_path;
    std::string m_place;
    std::vector<Problem>& m_problems;
};

#endif
