// Recipes that change their place. Readers go by the order of rows, so rows move along with numbers. Inside the
// caller's transaction.
#ifndef RECIPE_MOVES_H
#define RECIPE_MOVES_H

#include "group_access.h"

/// Puts a copy of the recipe behind it; all that follow move one place up.
void insertCopy(Database& database, const recipeTableInfo_t& group, int recipe, const QVector<QString>& titles);

/// All that follow move one place down.
void removeRecipe(Database& database, const recipeTableInfo_t& group, int recipe);

#endif
