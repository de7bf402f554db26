// The recipe groups that the benches work on, written through RecipeDB like every recipe file.
#ifndef BENCH_GROUPS_H
#define BENCH_GROUPS_H

#include "recipe_records.h"

#include <QString>

struct GroupSize
{
    const char* name;
    int group; ///< its number in the file
    int items;
    int recipes;
};

const GroupSize SIZE_S = {"S", 0, 50, 20};
const GroupSize SIZE_M = {"M", 1, 250, 120};
const GroupSize SIZE_L = {"L", 2, 1000, 1000};
const GroupSize SIZE_XL = {"XL", 3, 1900, 2000};

/// A group with its tables and nothing in them.
const int EMPTY_GROUP = 9;

/// Items of several data types with up to three decimals, titles in eight languages; the same on every call.
recipeTableInfo_t makeGroup(const GroupSize& size);

/// A new file with that group and the empty one. Leaves RecipeDB with no open file; ends the process on failure.
void createRecipeFile(const QString& path, const GroupSize& size);

#endif
