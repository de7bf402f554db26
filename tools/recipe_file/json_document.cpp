#include "json_document.h"

#include "suggest.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

/// Follows the parser through the file and notes keys that stand twice.
class KeyWatch
{
public:
    explicit KeyWatch(std::vector<Problem>& problems) : m_problems(problems) {}

    bool operator()(int, Json::parse_event_t event, Json& parsed)
    {
        using Event = Json::parse_event_t;
        switch (event) {
        case Event::object_start:
        case Event::array_start:
            enterValue();
            m_frames.push_back({event == Event::array_start, -1, std::string(), {}});
            break;
        case Event::object_end:
        case Event::array_end:
            m_frames.pop_back();
            break;
        case Event::key:
            noteKey(parsed.get<std::string>());
            break;
        case Event::value:
            enterValue();
            break;
        }
        return true;
    }

private:
    struct Frame
    {
        bool isArray;
        int index;
        std::string key;
        std::set<std::string> seen;
    };

    void enterValue()
    {
        if (!m_frames.empty() && m_frames.back().isArray)
            ++m_frames.back().index;
    }

    void noteKey(const std::string& key)
    {
        Frame& frame = m_frames.back();
        frame.key = key;
        if (!frame.seen.insert(key).second)
            m_problems.push_back({path(), std::string(), "the key", quoted(key) + " a second time", "each key once"});
    }

    std::string path() const
    {
        std::string result;
        for (const Frame& frame : m_frames) {
            if (frame.isArray)
                result += '[' + std::to_string(frame.index) + ']';
            else
                result += (result.empty() ? "" : ".") + frame.key;
        }
        return result;
    }

    std::vector<Problem>& m_problems;
    std::vector<Frame> m_frames;
};

/// The parser's message without the library's prefix.
std::string parserMessage(const std::string& what)
{
    const std::size_t end = what.find("] ");
    return end == std::string::npos ? what : what.substr(end + 2);
}

std::string oneOf(const std::vector<std::string>& keys)
{
    std::string list;
    for (std::size_t i = 0; i < keys.size(); ++i)
        list += (i == 0 ? "" : i + 1 == keys.size() ? " or " : ", ") + ('"' + keys[i] + '"');
    return keys.size() == 1 ? list : "one of " + list;
}

bool isWhole(const Json& value)
{
    return value.is_number() && std::floor(value.get<double>()) == value.get<double>();
}

} // namespace

Json parseJson(const std::string& text, const std::string& fileName, std::vector<Problem>& problems)
{
    try {
        return Json::parse(text, KeyWatch(problems));
    } catch (const Json::exception& error) {
        throw ToolError(fileName + " is not JSON: " + parserMessage(error.what()) + '.');
    }
}

std::string dumpJson(const Json& value)
{
    return value.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string shown(const Json& value)
{
    if (value.is_string())
        return quoted(value.get<std::string>());
    if (value.is_object())
        return "an object";
    if (value.is_array())
        return "a list of " + std::to_string(value.size());
    return value.dump();
}

JsonObject::JsonObject(const Json& value, std::string path, std::string place, std::vector<Problem>& problems)
    : m_value(value.is_object() ? &value : nullptr), m_path(std::move(path)), m_place(std::move(place)),
      m_problems(problems)
{
    if (!m_value)
        m_problems.push_back({m_path, m_place, "this", shown(value), "an object in braces"});
}

void JsonObject::allowOnly(const std::vector<std::string>& keys)
{
    if (!m_value)
        return;
    for (const auto& member : m_value->items()) {
        if (std::find(keys.begin(), keys.end(), member.key()) == keys.end())
            m_problems.push_back({pathOf(member.key()), m_place, "the key", quoted(member.key()),
                                  oneOf(keys) + didYouMean(member.key(), keys)});
    }
}

const Json* JsonObject::find(const std::string& key) const
{
    if (!m_value)
        return nullptr;
    const auto member = m_value->find(key);
    return member == m_value->end() ? nullptr : &*member;
}

void JsonObject::problem(const std::string& key, const std::string& value, const std::string& expected)
{
    m_problems.push_back({pathOf(key), m_place, key, value, expected});
}

void JsonObject::wrong(const std::string& key, const std::string& expected)
{
    if (!m_value)
        return; // told once, for the whole object
    const Json* value = find(key);
    problem(key, value ? shown(*value) : "missing", expected);
}

int JsonObject::integer(const std::string& key, int low, int high, std::optional<int> fallback)
{
    const Json* value = find(key);
    if (!value && fallback)
        return *fallback;
    if (value && isWhole(*value) && value->get<double>() >= low && value->get<double>() <= high)
        return static_cast<int>(value->get<double>());
    wrong(key, "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    return fallback.value_or(low);
}

double JsonObject::number(const std::string& key, double fallback)
{
    const Json* value = find(key);
    if (!value)
        return fallback;
    if (value->is_number() && std::isfinite(value->get<double>()))
        return value->get<double>();
    wrong(key, "a number");
    return fallback;
}

std::string JsonObject::text(const std::string& key, std::optional<std::string> fallback)
{
    const Json* value = find(key);
    if (!value && fallback)
        return *fallback;
    if (value && value->is_string())
        return value->get<std::string>();
    wrong(key, "a text in double quotes");
    return fallback.value_or(std::string());
}

const Json* JsonObject::array(const std::string& key, const std::string& expected)
{
    const Json* value = find(key);
    if (value && value->is_array())
        return value;
    wrong(key, expected);
    return nullptr;
}
