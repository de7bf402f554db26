// A group's titles.
#include "check_group.h"

#include "outcome.h"
#include "recipe_limits.h"

#include <algorithm>

namespace {

const char RESTORE[] = "Restore a backup (recipe-file restore).";
const char TITLES[] = "Write it with recipe-file titles import.";

} // namespace

/// Names of items and recipes, for the places of other findings; and how many rows each has.
void GroupChecker::readTitles()
{
    Statement row(m_database, "SELECT type, strIndex, L0 FROM " + table("lang_") + " ORDER BY rowid");
    while (row.step()) {
        const auto key = std::pair{static_cast<int>(row.integer(0)), row.integer(1)};
        ++m_titleRows[key];
        m_names[key] = row.text(2);
    }
    const auto name = m_names.find({DB_LANGUAGE_GROUP, 0});
    if (name != m_names.end() && !name->second.empty())
        m_place += ' ' + quoted(name->second);
}

std::string GroupChecker::itemPlace(std::int64_t item) const
{
    const auto name = m_names.find({DB_LANGUAGE_ROW, item});
    const bool named = name != m_names.end() && !name->second.empty();
    return m_place + ", item " + std::to_string(item) + (named ? ' ' + quoted(name->second) : "");
}

std::string GroupChecker::recipePlace(std::int64_t recipe) const
{
    const auto name = m_names.find({DB_LANGUAGE_COLUMN, recipe});
    const bool named = name != m_names.end() && !name->second.empty();
    return m_place + ", recipe " + std::to_string(recipe) + (named ? ' ' + quoted(name->second) : "");
}

/// A title is missed, or belongs to nothing, where the configuration and the tables agree on that: where they do not,
/// this has been told, and an absurd count would be told once more for every number below it.
void GroupChecker::checkTitles()
{
    checkTitleSet(DB_LANGUAGE_GROUP, 1, "");
    checkTitleSet(DB_LANGUAGE_ROW, std::min(m_config.items, readItems()), "item");
    checkTitleSet(DB_LANGUAGE_COLUMN, std::min(m_config.recipes, m_recipeRows), "recipe");
    Statement row(m_database,
                  "SELECT type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7 FROM " + table("lang_") + " ORDER BY rowid");
    std::int64_t last[3] = {-1, -1, -1};
    bool inOrder = true;
    while (row.step()) {
        QVector<QString> titles;
        bool hasNull = false;
        for (int i = 0; i < LANGUAGE_COUNT; ++i) {
            titles.append(QString::fromStdString(row.text(i + 2)));
            hasNull = hasNull || row.isNull(i + 2);
        }
        const std::int64_t type = row.integer(0);
        if (type >= 0 && type <= 2) {
            inOrder = inOrder && row.integer(1) > last[type];
            last[type] = row.integer(1);
        }
        checkTitleRow(type, row.integer(1), titles, hasNull);
    }
    bool doubled = false;
    for (const auto& [key, rows] : m_titleRows)
        doubled = doubled || rows > 1;
    if (!inOrder && !doubled)
        fault("title-order", m_place,
              "The rows of " + table("lang_")
                  + " do not stand in the order of their numbers: a sheet shows titles at the "
                    "wrong place.",
              "Restore a backup, or export the group as JSON and create the file again.");
}

void GroupChecker::checkTitleRow(std::int64_t type, std::int64_t index, const QVector<QString>& titles, bool hasNull)
{
    const std::int64_t counts[] = {1, std::max(m_config.items, readItems()), std::max(m_config.recipes, m_recipeRows)};
    if (type < 0 || type > 2 || index < 0 || index >= counts[type]) {
        fault("stray-title", m_place,
              table("lang_") + " holds a title of type " + std::to_string(type) + " with number "
                  + std::to_string(index) + ", which belongs to nothing.",
              "Restore a backup, or delete the row.");
        return;
    }
    const std::string place = type == DB_LANGUAGE_GROUP ? m_place
                              : type == DB_LANGUAGE_ROW ? itemPlace(index)
                                                        : recipePlace(index);
    if (hasNull)
        warn("null-title", place, "Its title is missing in a language.", TITLES);
    const int room = titleRoom(static_cast<int>(m_config.group), static_cast<int>(index));
    if (titleBytes(titles) > room)
        fault("title-length", place,
              "Its titles take " + std::to_string(titleBytes(titles)) + " bytes in all, a panel can write "
                  + std::to_string(room) + ": adding or deleting a recipe would fail.",
              "Shorten them with recipe-file titles import.");
}

void GroupChecker::checkTitleSet(int type, std::int64_t count, const std::string& what)
{
    for (std::int64_t i = 0; i < count; ++i) {
        const auto rows = m_titleRows.find({type, i});
        const std::string place = what.empty() ? m_place : what == "item" ? itemPlace(i) : recipePlace(i);
        if (rows == m_titleRows.end())
            fault("missing-title", place, "It has no title.", RESTORE);
        else if (rows->second > 1)
            fault("doubled-title", place, "It has " + std::to_string(rows->second) + " rows of titles.", RESTORE);
    }
}
