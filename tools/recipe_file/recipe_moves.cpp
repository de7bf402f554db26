#include "recipe_moves.h"

#include <algorithm>

namespace {

const int COLUMNS_AT_A_TIME = 500;

std::string number(std::int64_t value)
{
    return std::to_string(value);
}

/// Frees the row behind `rowid`. Through negative numbers: a row must not pass over another one's.
void openGap(Database& database, const std::string& table, std::int64_t rowid)
{
    database.execute("UPDATE " + table + " SET rowid = -(rowid + 1) WHERE rowid > " + number(rowid));
    database.execute("UPDATE " + table + " SET rowid = -rowid WHERE rowid < 0");
}

void setCount(Database& database, const recipeTableInfo_t& group, std::int64_t recipes)
{
    database.execute("UPDATE recipe_config SET column = " + number(recipes)
                     + " WHERE group_index = " + number(group.groupIndex));
}

/// "D3, D4" for [3, 5).
std::string columnList(int first, int end)
{
    std::string list;
    for (int i = first; i < end; ++i)
        list += (i > first ? ", D" : "D") + number(i);
    return list;
}

void copyValues(Database& database, const recipeTableInfo_t& group, int recipe)
{
    const std::string table = tableName("data_", group.groupIndex);
    const std::int64_t rowid = database.value("SELECT rowid FROM " + table + " WHERE column = " + number(recipe));
    openGap(database, table, rowid);
    database.execute("UPDATE " + table + " SET column = column + 1 WHERE column > " + number(recipe));
    database.execute("INSERT INTO " + table + "(rowid, column) VALUES (" + number(rowid + 1) + ", " + number(recipe + 1)
                     + ')');
    // In pieces: with row number and recipe number, the widest group has more columns than a statement may name.
    const int items = static_cast<int>(group.items.size());
    for (int first = 0; first < items; first += COLUMNS_AT_A_TIME) {
        const std::string columns = columnList(first, std::min(first + COLUMNS_AT_A_TIME, items));
        database.execute("UPDATE " + table + " SET (" + columns + ") = (SELECT " + columns + " FROM " + table
                         + " WHERE rowid = " + number(rowid) + ") WHERE rowid = " + number(rowid + 1));
    }
}

void copyTitles(Database& database, const recipeTableInfo_t& group, int recipe, const QVector<QString>& titles)
{
    const std::string table = tableName("lang_", group.groupIndex);
    const std::int64_t rowid =
        database.value("SELECT rowid FROM " + table + " WHERE type = 2 AND strIndex = " + number(recipe));
    openGap(database, table, rowid);
    database.execute("UPDATE " + table + " SET strIndex = strIndex + 1 WHERE type = 2 AND strIndex > "
                     + number(recipe));
    Statement insert(database, "INSERT INTO " + table
                                   + "(rowid, type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7) "
                                     "VALUES (?, 2, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    insert.bind(1, rowid + 1).bind(2, recipe + 1);
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        insert.bind(i + 3, titles.at(i).toStdString());
    insert.step();
}

} // namespace

void insertCopy(Database& database, const recipeTableInfo_t& group, int recipe, const QVector<QString>& titles)
{
    copyValues(database, group, recipe);
    copyTitles(database, group, recipe, titles);
    setCount(database, group, group.columnName.size() + 1);
}

void removeRecipe(Database& database, const recipeTableInfo_t& group, int recipe)
{
    const std::string data = tableName("data_", group.groupIndex);
    const std::string titles = tableName("lang_", group.groupIndex);
    database.execute("DELETE FROM " + data + " WHERE column = " + number(recipe));
    database.execute("UPDATE " + data + " SET column = column - 1 WHERE column > " + number(recipe));
    database.execute("DELETE FROM " + titles + " WHERE type = 2 AND strIndex = " + number(recipe));
    database.execute("UPDATE " + titles + " SET strIndex = strIndex - 1 WHERE type = 2 AND strIndex > "
                     + number(recipe));
    setCount(database, group, group.columnName.size() - 1);
}
