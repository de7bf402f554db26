// Groups that a recipe file does not have yet.
#ifndef GROUP_COPY_H
#define GROUP_COPY_H

#include "database.h"
#include "recipe_records.h"

/// Adds a whole group, definition and values, as the panel's own storage layer writes it; inside the caller's
/// transaction. The group's number must be free.
void addGroup(Database& database, const recipeTableInfo_t& group);

#endif
