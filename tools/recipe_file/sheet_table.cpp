#include "sheet_table.h"

#include "recipe_limits.h"
#include "text_table.h"

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
            row.push_back(cells[static_cast<std::size_t>(i)].value_or("(missing)"));
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
