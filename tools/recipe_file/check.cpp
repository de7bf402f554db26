// The file as a whole: SQLite's own check, the configuration table, tables that belong to no group.
#include "check.h"

#include "check_group.h"
#include "outcome.h"

#include <algorithm>
#include <filesystem>

namespace {

const int MAX_INTEGRITY_LINES = 100;
const char RESTORE[] = "Restore a backup (recipe-file restore).";

const std::vector<std::string> CONFIG_COLUMNS = {"group_index", "row", "column", "notify", "notify_addr"};

/// The number behind "addr_", "data_" or "lang_"; -1 for other tables.
std::int64_t groupOfTable(const std::string& name)
{
    const std::string kind = name.substr(0, 5);
    const std::string digits = name.size() > 5 ? name.substr(5) : std::string();
    const bool isNumber = !digits.empty() && digits.size() < 11
                          && std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return (kind == "addr_" || kind == "data_" || kind == "lang_") && isNumber ? std::stoll(digits) : -1;
}

} // namespace

std::vector<std::string> columnNames(Database& database, const std::string& table)
{
    std::vector<std::string> names;
    Statement row(database, "SELECT name FROM pragma_table_info(?) ORDER BY cid");
    row.bind(1, table);
    while (row.step())
        names.push_back(row.text(0));
    return names;
}

void Checker::add(Finding::Severity severity, const std::string& kind, const std::string& place,
                  const std::string& what, const std::string& cure)
{
    m_findings.push_back({severity, kind, place, what, cure});
}

std::vector<Finding> Checker::run()
{
    checkIntegrity();
    if (!checkConfigTable())
        return m_findings;
    std::vector<std::int64_t> groups;
    Statement row(m_database, "SELECT group_index, row, column, notify, notify_addr, typeof(row), typeof(column) "
                              "FROM recipe_config ORDER BY group_index");
    while (row.step()) {
        GroupConfig config = {row.integer(0), row.integer(1), row.integer(2),
                              row.integer(3), row.text(4),    row.text(5) == "integer" && row.text(6) == "integer"};
        groups.push_back(config.group);
        GroupChecker(*this, config).run();
    }
    if (groups.empty())
        add(Finding::Warning, "no-groups", "", "The file holds no group.", "Write one with recipe-file create.");
    checkStrayTables(groups);
    return m_findings;
}

void Checker::checkIntegrity()
{
    Statement row(m_database, "PRAGMA integrity_check(" + std::to_string(MAX_INTEGRITY_LINES) + ')');
    while (row.step()) {
        if (row.text(0) != "ok")
            add(Finding::Fault, "integrity", "", "SQLite's integrity check: " + row.text(0) + '.', RESTORE);
    }
    std::error_code ignored;
    if (std::filesystem::exists(m_database.path() + "-journal", ignored))
        add(Finding::Warning, "journal", "", "A journal lies beside the file: a write is going on or was interrupted.",
            "Keep both files together; whatever opens the file for writing next brings it to its last whole state.");
}

bool Checker::checkConfigTable()
{
    const std::vector<std::string> names = columnNames(m_database, "recipe_config");
    if (names.size() >= CONFIG_COLUMNS.size()
        && std::equal(CONFIG_COLUMNS.begin(), CONFIG_COLUMNS.end(), names.begin()))
        return true;
    add(Finding::Fault, "config-columns", "",
        "The table recipe_config does not have the columns group_index, row, "
        "column, notify, notify_addr in this order.",
        RESTORE);
    return false;
}

void Checker::checkStrayTables(const std::vector<std::int64_t>& groups)
{
    Statement row(m_database, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
    while (row.step()) {
        const std::string name = row.text(0);
        const std::int64_t group = groupOfTable(name);
        if (group >= 0 && std::find(groups.begin(), groups.end(), group) == groups.end())
            add(Finding::Fault, "stray-table", "",
                "The table " + name
                    + " belongs to a group that recipe_config does "
                      "not list.",
                "Restore a backup, or drop the table when the group is not wanted any more.");
    }
}
