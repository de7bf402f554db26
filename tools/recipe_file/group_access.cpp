#include "group_access.h"

#include "outcome.h"
#include "recipe_limits.h"
#include "suggest.h"
#include "survey.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

QVector<QString> titlesOf(const Statement& row, int firstColumn)
{
    QVector<QString> titles;
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        titles.append(QString::fromStdString(row.text(firstColumn + i)));
    return titles;
}

void loadTitles(Database& database, recipeTableInfo_t& info)
{
    Statement row(database, "SELECT type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7 FROM "
                                + tableName("lang_", info.groupIndex) + " ORDER BY rowid");
    while (row.step()) {
        const std::int64_t type = row.integer(0);
        const std::int64_t index = row.integer(1);
        if (type == DB_LANGUAGE_GROUP && index == 0)
            info.groupName = titlesOf(row, 2);
        else if (type == DB_LANGUAGE_ROW && index >= 0 && index < info.items.size())
            info.items[static_cast<int>(index)].rowName = titlesOf(row, 2);
        else if (type == DB_LANGUAGE_COLUMN && index >= 0 && index < info.columnName.size())
            info.columnName[static_cast<int>(index)] = titlesOf(row, 2);
    }
}

void loadItems(Database& database, recipeTableInfo_t& info)
{
    Statement row(database, std::string("SELECT ") + ITEM_FIELDS + " FROM " + tableName("addr_", info.groupIndex)
                                + " ORDER BY row_index");
    while (row.step())
        info.items.append(itemFrom(row));
}

[[noreturn]] void refuseDamaged(const Database& database, int group, const std::string& fault)
{
    throw ToolError("Group " + std::to_string(group) + " of " + database.path() + " is damaged: " + fault
                    + " See recipe-file check.");
}

/// Recipe numbers and item numbers must count from 0 in the order of the rows: everything here goes by place.
void refuseGaps(Database& database, int group)
{
    for (const auto& [kind, column] : {std::pair{"addr_", "row_index"}, std::pair{"data_", "column"}}) {
        Statement row(database,
                      std::string("SELECT ") + column + " FROM " + tableName(kind, group) + " ORDER BY rowid");
        for (std::int64_t expected = 0; row.step(); ++expected) {
            if (row.integer(0) != expected)
                refuseDamaged(database, group,
                              tableName(kind, group) + " has " + column + ' ' + row.text(0) + " in the place of "
                                  + std::to_string(expected) + '.');
        }
    }
}

bool isNumber(const std::string& text)
{
    return !text.empty() && text.size() < 10
           && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// By number, else by title in any language.
template <typename TitlesAt>
int choose(const std::string& wanted, const std::string& kind, const std::string& owner, int count, TitlesAt titlesAt)
{
    if (isNumber(wanted)) {
        if (std::stoi(wanted) < count)
            return std::stoi(wanted);
        throw ToolError("There is no " + kind + ' ' + wanted + " in " + owner + "; the last one is "
                        + std::to_string(count - 1) + '.');
    }
    const QString title = QString::fromStdString(wanted);
    std::vector<std::string> known;
    std::vector<int> found;
    for (int i = 0; i < count; ++i) {
        const QVector<QString>& titles = titlesAt(i);
        if (titles.contains(title))
            found.push_back(i);
        for (const QString& text : titles)
            known.push_back(text.toStdString());
    }
    if (found.size() == 1)
        return found.front();
    if (found.empty()) {
        const std::string hint = didYouMean(wanted, known);
        throw ToolError("There is no " + kind + ' ' + quoted(wanted) + " in " + owner + (hint.empty() ? "." : hint));
    }
    std::string numbers;
    for (const int i : found)
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(i);
    throw ToolError("Several of " + owner + "'s " + kind + "s are called " + quoted(wanted) + " (" + numbers
                    + "); give the number.");
}

std::string label(const std::string& what, int number, const QVector<QString>& titles)
{
    const std::string text = what + ' ' + std::to_string(number);
    return titles.value(0).isEmpty() ? text : text + ' ' + quoted(titles.at(0).toStdString());
}

std::string rowQuery(const recipeTableInfo_t& group, int first, int count)
{
    std::string sql = "SELECT ";
    for (int i = first; i < first + count; ++i)
        sql += (i > first ? ", D" : "D") + std::to_string(i);
    return sql + " FROM " + tableName("data_", group.groupIndex) + " ORDER BY rowid";
}

/// In all languages; none where the group's table is missing.
std::vector<std::string> groupTitles(Database& database, int group)
{
    std::vector<std::string> titles;
    if (!database.hasTable(tableName("lang_", group)))
        return titles;
    Statement row(database,
                  "SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM " + tableName("lang_", group) + " WHERE type = 0");
    while (row.step()) {
        for (int i = 0; i < LANGUAGE_COUNT; ++i) {
            if (!row.isNull(i))
                titles.push_back(row.text(i));
        }
    }
    return titles;
}

} // namespace

const char ITEM_FIELDS[] = "row_index, address, datatype, totalDigits, decimalDigits, min, max";

recipeItemInfo_t itemFrom(const Statement& row)
{
    recipeItemInfo_t item;
    item.rowIndex = static_cast<int>(row.integer(0));
    item.setAddress(QString::fromStdString(row.text(1)));
    item.dataType = static_cast<int>(row.integer(2));
    item.totalDigits = static_cast<int>(row.integer(3));
    item.decimalDigits = static_cast<int>(row.integer(4));
    item.min = row.number(5);
    item.max = row.number(6);
    return item;
}

std::string tableName(const char* kind, int group)
{
    return kind + std::to_string(group);
}

std::string titleText(const QVector<QString>& titles, int language)
{
    return titles.value(language - 1).toStdString();
}

recipeTableInfo_t loadGroup(Database& database, int group)
{
    for (const GroupSurvey& survey : surveyFile(database, 1)) {
        if (survey.index == group && !survey.faults.empty())
            refuseDamaged(database, group, survey.faults.front());
    }
    refuseGaps(database, group);
    recipeTableInfo_t info;
    info.groupIndex = group;
    Statement config(database, "SELECT column, notify, notify_addr FROM recipe_config WHERE group_index = ?");
    config.bind(1, group);
    if (!config.step())
        throw ToolError("There is no group " + std::to_string(group) + " in " + database.path() + '.');
    info.columnName.fill(emptyTitles(), static_cast<int>(config.integer(0)));
    info.notify = static_cast<int>(config.integer(1));
    if (info.notify != 0)
        info.setNotifyAddress(QString::fromStdString(config.text(2)));
    loadItems(database, info);
    loadTitles(database, info);
    return info;
}

std::vector<int> groupNumbers(Database& database)
{
    std::vector<int> numbers;
    Statement row(database, "SELECT group_index FROM recipe_config ORDER BY group_index");
    while (row.step())
        numbers.push_back(static_cast<int>(row.integer(0)));
    return numbers;
}

int chooseGroup(Database& database, const std::string& wanted)
{
    const std::vector<int> numbers = groupNumbers(database);
    std::string list;
    for (const int number : numbers)
        list += (list.empty() ? "" : ", ") + std::to_string(number);
    if (wanted.empty()) {
        if (numbers.size() == 1)
            return numbers.front();
        throw ToolError(
            database.path()
            + (numbers.empty() ? " has no group." : " has several groups (" + list + "); give one with --group."));
    }
    for (const int number : numbers) {
        if (wanted == std::to_string(number))
            return number;
    }
    std::vector<int> found;
    std::vector<std::string> known;
    for (const int number : numbers) {
        const std::vector<std::string> titles = groupTitles(database, number);
        if (std::find(titles.begin(), titles.end(), wanted) != titles.end())
            found.push_back(number);
        known.insert(known.end(), titles.begin(), titles.end());
    }
    if (found.size() == 1)
        return found.front();
    if (!found.empty())
        throw ToolError("Several groups of " + database.path() + " are called " + quoted(wanted) + "; give the number ("
                        + list + ").");
    const std::string hint = didYouMean(wanted, known);
    throw ToolError("There is no group " + quoted(wanted) + " in " + database.path()
                    + (hint.empty() ? " (groups: " + list + ")." : hint));
}

int chooseRecipe(const recipeTableInfo_t& group, const std::string& wanted)
{
    return choose(wanted, "recipe", groupLabel(group), static_cast<int>(group.columnName.size()),
                  [&](int i) -> const QVector<QString>& { return group.columnName.at(i); });
}

int chooseItem(const recipeTableInfo_t& group, const std::string& wanted)
{
    return choose(wanted, "item", groupLabel(group), static_cast<int>(group.items.size()),
                  [&](int i) -> const QVector<QString>& { return group.items.at(i).rowName; });
}

std::string groupLabel(const recipeTableInfo_t& group)
{
    return label("group", group.groupIndex, group.groupName);
}

std::string itemLabel(const recipeTableInfo_t& group, int item)
{
    return label("item", item, group.items.at(item).rowName);
}

std::string recipeLabel(const recipeTableInfo_t& group, int recipe)
{
    return label("recipe", recipe, group.columnName.at(recipe));
}

RecipeRows::RecipeRows(Database& database, const recipeTableInfo_t& group, int first, int count)
    : m_group(group), m_first(first), m_statement(database, rowQuery(group, first, count))
{}

bool RecipeRows::next()
{
    return m_statement.step();
}

Cell RecipeRows::cell(int item) const
{
    const int column = item - m_first;
    if (m_statement.isNull(column))
        return std::nullopt;
    const recipeItemInfo_t& info = m_group.items.at(item);
    if (isText(info) || !m_statement.isNumber(column))
        return m_statement.text(column);
    const double value = m_statement.number(column);
    if (info.decimalDigits > 0)
        return limitText(value, info.decimalDigits);
    return limitText(std::trunc(value), 0);
}
