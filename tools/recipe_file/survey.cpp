#include "survey.h"

#include "outcome.h"
#include "recipe_limits.h"

namespace {

std::string table(const char* kind, std::int64_t group)
{
    return kind + std::to_string(group);
}

std::string titleOf(Database& database, std::int64_t group, int type, std::int64_t strIndex, int language)
{
    if (!database.hasTable(table("lang_", group)))
        return std::string();
    Statement statement(database, "SELECT L" + std::to_string(language - 1) + " FROM " + table("lang_", group)
                                      + " WHERE type = ? AND strIndex = ?");
    statement.bind(1, type).bind(2, strIndex);
    return statement.step() ? statement.text(0) : std::string();
}

/// All item titles in one pass: the table has no index.
std::vector<std::string> itemTitles(Database& database, std::int64_t group, int language)
{
    std::vector<std::string> titles;
    if (!database.hasTable(table("lang_", group)))
        return titles;
    Statement statement(database, "SELECT strIndex, L" + std::to_string(language - 1) + " FROM " + table("lang_", group)
                                      + " WHERE type = 1");
    while (statement.step()) {
        const std::int64_t index = statement.integer(0);
        if (index < 0 || index >= MAX_ITEMS)
            continue;
        if (titles.size() <= static_cast<std::size_t>(index))
            titles.resize(static_cast<std::size_t>(index) + 1);
        titles[static_cast<std::size_t>(index)] = statement.text(1);
    }
    return titles;
}

void readItems(Database& database, GroupSurvey& group, int language)
{
    const std::vector<std::string> titles = itemTitles(database, group.index, language);
    Statement statement(database, "SELECT row_index, address, datatype, totalDigits, decimalDigits, min, max FROM "
                                      + table("addr_", group.index));
    while (statement.step()) {
        const std::int64_t index = statement.integer(0);
        const bool named = index >= 0 && static_cast<std::size_t>(index) < titles.size();
        group.items.push_back({index, named ? titles[static_cast<std::size_t>(index)] : std::string(),
                               statement.text(1), statement.integer(2), statement.integer(3), statement.integer(4),
                               statement.number(5), statement.number(6)});
    }
}

void compare(GroupSurvey& group, std::int64_t found, std::int64_t wanted, const std::string& holder,
             const std::string& what)
{
    if (found != wanted)
        group.faults.push_back(holder + " holds " + std::to_string(found) + ' ' + what + ", recipe_config says "
                               + std::to_string(wanted) + '.');
}

void compareData(Database& database, GroupSurvey& group)
{
    const std::string name = table("data_", group.index);
    compare(group, database.value("SELECT count(*) FROM " + name), group.recipeCount, name, "recipes");
    Statement columns(database, "SELECT * FROM " + name + " LIMIT 0");
    compare(group, columns.columnCount() - 1, group.itemCount, name, "value columns");
}

void compareTitles(Database& database, GroupSurvey& group)
{
    const std::string name = table("lang_", group.index);
    const std::string query = "SELECT count(DISTINCT strIndex) FROM " + name + " WHERE type = ";
    compare(group, database.value(query + '0'), 1, name, "group titles");
    compare(group, database.value(query + '1'), group.itemCount, name, "item titles");
    compare(group, database.value(query + '2'), group.recipeCount, name, "recipe titles");
}

void surveyTables(Database& database, GroupSurvey& group, int language)
{
    bool whole = true;
    for (const char* kind : {"addr_", "data_", "lang_"}) {
        if (database.hasTable(table(kind, group.index)))
            continue;
        group.faults.push_back("The table " + table(kind, group.index) + " is missing.");
        whole = false;
    }
    if (database.hasTable(table("addr_", group.index))) {
        readItems(database, group, language);
        compare(group, static_cast<std::int64_t>(group.items.size()), group.itemCount, table("addr_", group.index),
                "items");
    }
    if (!whole)
        return;
    compareData(database, group);
    compareTitles(database, group);
}

} // namespace

std::vector<GroupSurvey> surveyFile(Database& database, int language)
{
    std::vector<GroupSurvey> groups;
    Statement statement(database, "SELECT group_index, row, column, notify, notify_addr FROM recipe_config "
                                  "ORDER BY group_index");
    while (statement.step()) {
        GroupSurvey group;
        group.index = statement.integer(0);
        group.itemCount = statement.integer(1);
        group.recipeCount = statement.integer(2);
        group.notify = statement.integer(3);
        group.notifyAddress = statement.text(4);
        group.name = titleOf(database, group.index, 0, 0, language);
        surveyTables(database, group, language);
        groups.push_back(group);
    }
    return groups;
}

std::string dataTypeName(std::int64_t dataType)
{
    return dataType == DATA_TYPE_TEXT ? "text" : std::to_string(dataType);
}

Json surveyToJson(const GroupSurvey& group)
{
    Json object;
    object["index"] = group.index;
    object["name"] = group.name;
    object["items"] = group.itemCount;
    object["recipes"] = group.recipeCount;
    object["notify"] = group.notify;
    object["notifyAddress"] = group.notifyAddress;
    object["sound"] = group.faults.empty();
    object["faults"] = group.faults;
    object["itemList"] = Json::array();
    for (const ItemSurvey& item : group.items)
        object["itemList"].push_back({{"index", item.index},
                                      {"name", item.name},
                                      {"address", item.address},
                                      {"dataType", item.dataType},
                                      {"totalDigits", item.totalDigits},
                                      {"decimalDigits", item.decimalDigits},
                                      {"min", item.min},
                                      {"max", item.max}});
    return object;
}
