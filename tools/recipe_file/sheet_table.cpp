#include "sheet_table.h"

#include "recipe_limits.h"
#include "text_table.h"

#include <algorithm>

namespace {

const int BLOCK_CELLS = 262144; ///< cells held at a time

const char MISSING[] = "(missing)";

std::string recipeHeader(const recipeTableInfo_t& group, int recipe, int language)
{
    return oneLine(std::to_string(recipe) + ' ' + titleText(group.columnName.at(recipe), language));
}

/// Writes a group as TextTable does, without holding it.
class TableWriter
{
public:
    TableWriter(Database& database, const recipeTableInfo_t& group, int language,
                const std::function<void(const std::string&)>& sink)
        : m_database(database), m_group(group), m_language(language), m_sink(sink), m_numberWidth(displayWidth("Item")),
          m_nameWidth(displayWidth("Name"))
    {
        measure();
    }

    void write()
    {
        const int items = static_cast<int>(m_group.items.size());
        std::string head = start("Item", "Name");
        std::string rule = start(std::string(m_numberWidth, '-'), std::string(m_nameWidth, '-'));
        for (int i = 0; i < m_group.columnName.size(); ++i) {
            const std::size_t width = m_widths[static_cast<std::size_t>(i)];
            head += "  " + aligned(recipeHeader(m_group, i, m_language), width, true);
            rule += "  " + std::string(width, '-');
        }
        finish(head);
        finish(rule);
        const int rowsPerPass = std::max(1, BLOCK_CELLS / std::max(1, static_cast<int>(m_group.columnName.size())));
        for (int first = 0; first < items; first += rowsPerPass)
            writeItems(first, std::min(rowsPerPass, items - first));
    }

private:
    std::string itemName(int item) const { return oneLine(titleText(m_group.items.at(item).rowName, m_language)); }

    void measure()
    {
        for (int i = 0; i < m_group.items.size(); ++i) {
            m_numberWidth = std::max(m_numberWidth, std::to_string(i).size());
            m_nameWidth = std::max(m_nameWidth, displayWidth(itemName(i)));
        }
        RecipeRows rows(m_database, m_group, 0, static_cast<int>(m_group.items.size()));
        for (int recipe = 0; rows.next(); ++recipe) {
            std::size_t width = displayWidth(recipeHeader(m_group, recipe, m_language));
            for (int i = 0; i < m_group.items.size(); ++i)
                width = std::max(width, displayWidth(oneLine(rows.cell(i).value_or(MISSING))));
            m_widths.push_back(width);
        }
    }

    std::string start(const std::string& number, const std::string& name) const
    {
        return aligned(number, m_numberWidth, true) + "  " + aligned(name, m_nameWidth, false);
    }

    void finish(std::string& line)
    {
        line.erase(line.find_last_not_of(' ') + 1);
        m_sink(line + '\n');
    }

    void writeItems(int first, int count)
    {
        std::vector<std::string> lines;
        for (int i = first; i < first + count; ++i)
            lines.push_back(start(std::to_string(i), itemName(i)));
        RecipeRows rows(m_database, m_group, first, count);
        for (std::size_t recipe = 0; rows.next(); ++recipe) {
            for (int i = first; i < first + count; ++i)
                lines[static_cast<std::size_t>(i - first)] +=
                    "  " + aligned(oneLine(rows.cell(i).value_or(MISSING)), m_widths[recipe], true);
        }
        for (std::string& line : lines)
            finish(line);
    }

    Database& m_database;
    const recipeTableInfo_t& m_group;
    int m_language;
    const std::function<void(const std::string&)>& m_sink;
    std::size_t m_numberWidth;
    std::size_t m_nameWidth;
    std::vector<std::size_t> m_widths; ///< per recipe
};

} // namespace

void writeTableSheet(Database& database, const recipeTableInfo_t& group, int language,
                     const std::function<void(const std::string&)>& sink)
{
    TableWriter(database, group, language, sink).write();
}

SheetTable::SheetTable(Database& database, const recipeTableInfo_t& group, std::vector<int> recipes)
    : m_group(group), m_recipes(std::move(recipes)), m_cells(m_recipes.size())
{
    RecipeRows rows(database, group, 0, static_cast<int>(group.items.size()));
    for (int number = 0; rows.next(); ++number) {
        for (std::size_t k = 0; k < m_recipes.size(); ++k) {
            if (m_recipes[k] != number)
                continue;
            for (int i = 0; i < group.items.size(); ++i)
                m_cells[k].push_back(rows.cell(i));
        }
    }
}

std::string SheetTable::text(int language) const
{
    std::vector<std::string> header = {"Item", "Name"};
    std::vector<bool> right = {true, false};
    for (const int recipe : m_recipes) {
        header.push_back(std::to_string(recipe) + ' ' + titleText(m_group.columnName.at(recipe), language));
        right.push_back(true);
    }
    TextTable table(header, right);
    for (int i = 0; i < m_group.items.size(); ++i) {
        std::vector<std::string> row = {std::to_string(i), titleText(m_group.items.at(i).rowName, language)};
        for (const auto& cells : m_cells)
            row.push_back(cells[static_cast<std::size_t>(i)].value_or(MISSING));
        table.addRow(row);
    }
    return table.text();
}

Json SheetTable::json() const
{
    Json recipes = Json::array();
    for (std::size_t k = 0; k < m_recipes.size(); ++k) {
        Json values = Json::array();
        for (const Cell& cell : m_cells[k])
            values.push_back(cell ? Json(*cell) : Json(nullptr));
        recipes.push_back(
            {{"index", m_recipes[k]}, {"name", titleText(m_group.columnName.at(m_recipes[k]), 1)}, {"values", values}});
    }
    return {{"ok", true}, {"group", m_group.groupIndex}, {"recipes", recipes}};
}
