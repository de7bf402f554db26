// One group of an existing recipe file: its definition, a stream of its values, and how people name its parts.
#ifndef GROUP_ACCESS_H
#define GROUP_ACCESS_H

#include "database.h"
#include "recipe_records.h"

#include <optional>
#include <string>
#include <vector>

/// A cell as a sheet shows it: a number in the item's decimals, a text whole. Nothing where the file holds NULL.
using Cell = std::optional<std::string>;

/// The definition of a group: items and titles; `values` of its items are empty. Titles come in the order of their
/// index; a missing one is eight empty texts.
/// A ToolError where the tables do not agree with each other: such a group is for `check`, not for work.
recipeTableInfo_t loadGroup(Database& database, int group);

/// What itemFrom() reads, as a SELECT names it. Further columns may follow.
extern const char ITEM_FIELDS[];
/// The item of a row of ITEM_FIELDS; without titles and values.
recipeItemInfo_t itemFrom(const Statement& row);

/// All group numbers, ascending.
std::vector<int> groupNumbers(Database& database);

/// The group that `wanted` names by number or by title; without it the only group there is.
int chooseGroup(Database& database, const std::string& wanted);

/// The recipe or item that `wanted` names by number or by its title in any language. A ToolError names what is near,
/// or, for a title that several have, their numbers.
int chooseRecipe(const recipeTableInfo_t& group, const std::string& wanted);
int chooseItem(const recipeTableInfo_t& group, const std::string& wanted);

/// "group 0 "Bakery line"", "item 3 "Salt"", "recipe 2 "Rye"".
std::string groupLabel(const recipeTableInfo_t& group);
std::string itemLabel(const recipeTableInfo_t& group, int item);
std::string recipeLabel(const recipeTableInfo_t& group, int recipe);

/// The values of the recipes in order, those of the items [first, first + count) of each.
class RecipeRows
{
public:
    RecipeRows(Database& database, const recipeTableInfo_t& group, int first, int count);
    bool next();
    Cell cell(int item) const; ///< item counts from the group's first

private:
    const recipeTableInfo_t& m_group;
    int m_first;
    Statement m_statement;
};

/// The name of a group's table: tableName("data_", 3).
std::string tableName(const char* kind, int group);

std::string titleText(const QVector<QString>& titles, int language);

#endif
