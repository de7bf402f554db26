// A look at everything that can be wrong with a recipe file, without changing it. Believes nothing: tables, columns,
// types and counts are all asked for before they are used.
#ifndef CHECK_H
#define CHECK_H

#include "database.h"

#include <string>
#include <vector>

struct Finding
{
    enum Severity
    {
        Fault,  ///< a panel shows or writes something wrong
        Warning ///< works, but hardly as meant
    };
    Severity severity;
    std::string kind;  ///< a fixed name, for programs: "doubled-recipe"
    std::string place; ///< "group 0, item 3 "Salt""; empty: the file
    std::string what;  ///< a sentence
    std::string cure;  ///< a sentence: what to do
};

class Checker
{
public:
    explicit Checker(Database& database) : m_database(database) {}
    std::vector<Finding> run();

private:
    friend class GroupChecker;

    void checkIntegrity();
    bool checkConfigTable();
    void checkStrayTables(const std::vector<std::int64_t>& groups);
    void add(Finding::Severity severity, const std::string& kind, const std::string& place, const std::string& what,
             const std::string& cure);

    Database& m_database;
    std::vector<Finding> m_findings;
};

/// The names of a table's columns, in order; empty where there is no such table.
std::vector<std::string> columnNames(Database& database, const std::string& table);

#endif
