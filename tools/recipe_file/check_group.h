// One group under the checker's eyes.
#ifndef CHECK_GROUP_H
#define CHECK_GROUP_H

#include "check.h"
#include "recipe_records.h"

#include <map>
#include <string>
#include <vector>

struct GroupConfig
{
    std::int64_t group;
    std::int64_t items;
    std::int64_t recipes;
    std::int64_t notify;
    std::string notifyAddress;
    bool countsAreIntegers;
};

class GroupChecker
{
public:
    GroupChecker(Checker& checker, const GroupConfig& config);
    void run();

private:
    // check_group.cpp
    void checkConfig();
    bool checkTable(const char* kind, const std::vector<std::string>& columns);
    void checkItems();
    void checkItem(const Statement& row, std::int64_t expectedIndex);
    void checkAddress(const std::string& place, const std::string& address, const std::string& what);
    void checkLimits(const std::string& place, const recipeItemInfo_t& item);

    // check_registers.cpp
    void checkRegisters();

    // check_values.cpp
    void checkRecipes();
    void checkValueColumns();
    void checkNumbering();
    void checkValues();
    void checkValue(const Statement& row, int column, int item, const std::string& recipe);

    // check_titles.cpp
    void readTitles();
    void checkTitles();
    void checkTitleRow(std::int64_t type, std::int64_t index, const QVector<QString>& titles, bool hasNull);
    void checkTitleSet(int type, std::int64_t count, const std::string& what);
    std::string itemPlace(std::int64_t item) const;
    std::string recipePlace(std::int64_t recipe) const;

    std::int64_t readItems() const { return static_cast<std::int64_t>(m_items.size()); }
    std::string table(const char* kind) const { return kind + std::to_string(m_config.group); }
    void fault(const std::string& kind, const std::string& place, const std::string& what, const std::string& cure);
    void warn(const std::string& kind, const std::string& place, const std::string& what, const std::string& cure);

    Checker& m_checker;
    Database& m_database;
    GroupConfig m_config;
    std::string m_place; ///< "group 0 "Bakery""
    std::vector<recipeItemInfo_t> m_items;
    std::map<std::pair<int, std::int64_t>, int> m_titleRows; ///< rows per type and index
    std::map<std::pair<int, std::int64_t>, std::string> m_names;
    std::int64_t m_recipeRows = 0; ///< that the table of values holds
    bool m_hasItems = false;
    bool m_hasTitles = false;
};

#endif
