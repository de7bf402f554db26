// A group's recipes: columns, numbering, values.
#include "check_group.h"

#include "number_text.h"
#include "outcome.h"
#include "recipe_limits.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

const char RESTORE[] = "Restore a backup (recipe-file restore).";
const char SET[] = "Enter it again on a panel, or with recipe-file set.";

} // namespace

void GroupChecker::checkRecipes()
{
    checkValueColumns();
    checkNumbering();
    checkValues();
}

/// D0, D1, ... with the affinity of the item's type.
void GroupChecker::checkValueColumns()
{
    Statement row(m_database, "SELECT name, upper(type) FROM pragma_table_info(?) WHERE cid > 0 ORDER BY cid");
    row.bind(1, table("data_"));
    std::size_t count = 0;
    for (; row.step(); ++count) {
        const std::string expected = 'D' + std::to_string(count);
        if (row.text(0) != expected)
            fault("value-column", m_place,
                  table("data_") + " has a column " + quoted(row.text(0)) + " in the place of " + expected + '.',
                  RESTORE);
        if (count >= m_items.size())
            continue;
        const std::string affinity = isText(m_items[count]) ? "TEXT" : "REAL";
        if (row.text(1) != affinity)
            fault("affinity", itemPlace(m_items[count].rowIndex),
                  "Its column is declared " + quoted(row.text(1)) + " instead of " + affinity
                      + ", so values may be stored in another form.",
                  "Export the group, create the file again and import it.");
    }
    if (m_hasItems && count != m_items.size())
        fault("columns-disagree", m_place,
              table("data_") + " has " + std::to_string(count) + " value columns for " + std::to_string(m_items.size())
                  + " items.",
              RESTORE);
}

void GroupChecker::checkNumbering()
{
    Statement row(m_database, "SELECT column, typeof(column) FROM " + table("data_") + " ORDER BY rowid");
    std::set<std::int64_t> seen;
    std::int64_t expected = 0;
    bool inOrder = true;
    for (; row.step(); ++expected) {
        if (!seen.insert(row.integer(0)).second)
            fault("doubled-recipe", recipePlace(row.integer(0)), "It stands in the file twice; a save changes both.",
                  RESTORE);
        inOrder = inOrder && row.integer(0) == expected && row.text(1) == "integer";
    }
    m_recipeRows = expected;
    for (std::int64_t i = 0; i < std::min<std::int64_t>(expected, m_config.recipes); ++i) {
        if (seen.count(i) == 0)
            fault("missing-recipe", recipePlace(i), "No row has its number; edits of it would be lost.", RESTORE);
    }
    if (!inOrder && seen.size() == static_cast<std::size_t>(expected))
        fault("recipe-order", m_place,
              "The rows of " + table("data_")
                  + " do not stand in the order of their numbers: a "
                    "sheet shows one recipe and saves another.",
              RESTORE);
    if (expected != m_config.recipes)
        fault("recipes-disagree", m_place,
              table("data_") + " holds " + std::to_string(expected) + " recipes, recipe_config says "
                  + std::to_string(m_config.recipes) + '.',
              RESTORE);
}

void GroupChecker::checkValues()
{
    Statement row(m_database, "SELECT * FROM " + table("data_") + " ORDER BY rowid");
    const int items = std::min(row.columnCount() - 1, static_cast<int>(m_items.size()));
    while (row.step()) {
        std::string place; // put together only where it is needed: there are millions of cells
        for (int i = 0; i < items; ++i)
            checkValue(row, i + 1, i, row.text(0));
    }
}

void GroupChecker::checkValue(const Statement& row, int column, int item, const std::string& recipe)
{
    const recipeItemInfo_t& info = m_items[static_cast<std::size_t>(item)];
    const auto place = [&] {
        return recipePlace(std::strtoll(recipe.c_str(), nullptr, 10)) + ", "
               + itemPlace(item).substr(m_place.size() + 2);
    };
    if (row.isNull(column)) {
        fault("missing-value", place(), "There is no value.", SET);
        return;
    }
    if (isText(info)) {
        const QString text = QString::fromStdString(row.text(column));
        const CheckedValue checked = ::checkValue(info, text);
        if (!checked.ok())
            warn(checked.outsideLimits ? "outside-limits" : "text-length", place(),
                 "The text " + quoted(row.text(column)) + " is not " + checked.expected + '.', SET);
        else if (text.contains(QLatin1Char('.')))
            warn("text-point", place(),
                 "A sheet shows the text " + quoted(row.text(column)) + " only up to its first \".\".",
                 "Use another character.");
        return;
    }
    if (!row.isNumber(column)) {
        fault("not-a-number", place(), "The value " + quoted(row.text(column)) + " is no number.", SET);
        return;
    }
    const double value = row.number(column);
    if (!std::isfinite(value))
        fault("not-a-number", place(), "The value is not finite.", SET);
    else if (value < info.min || value > info.max)
        warn("outside-limits", place(),
             "The value " + plainNumber(value) + " is outside " + plainNumber(info.min) + " to " + plainNumber(info.max)
                 + '.',
             SET);
    else if (fixedNotation(value, std::max(info.decimalDigits, 0)).toDouble() != value)
        warn("hidden-decimals", place(),
             "The value " + plainNumber(value) + " has more decimals than a sheet shows ("
                 + std::to_string(std::max(info.decimalDigits, 0)) + ").",
             SET);
}
