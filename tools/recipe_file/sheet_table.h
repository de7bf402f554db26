// A group, or some of its recipes, in memory: for eyes and for JSON.
#ifndef SHEET_TABLE_H
#define SHEET_TABLE_H

#include "group_access.h"
#include "json_document.h"

#include <functional>

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

/// The same text for all recipes of a group, in pieces: memory grows with titles, not with values.
void writeTableSheet(Database& database, const recipeTableInfo_t& group, int language,
                     const std::function<void(const std::string&)>& sink);

#endif
