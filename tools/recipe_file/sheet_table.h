// A group, or some of its recipes, in memory: for eyes and for JSON.
#ifndef SHEET_TABLE_H
#define SHEET_TABLE_H

#include "group_access.h"
#include "json_document.h"

class SheetTable
{
public:
    SheetTable(Database& database, const recipeTableInfo_t& group, std::vector<int> recipes);

    /// Rows are items, columns are recipes.
    std::string text(int language) const;
    Json json() const;

private:
    const recipeTableInfo_t& m_group;
    std::vector<int> m_recipes;
    std::vector<std::vector<Cell>> m_cells; ///< per recipe of m_recipes
};

#endif
