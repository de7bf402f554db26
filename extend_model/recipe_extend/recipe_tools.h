// Exported free functions: where the recipe file lives, its backup, where exports go, and the range loader. The runtime
// and other plug-ins call them too. Any thread, except the range loader, which calls the communication interface;
// nothing is reported beyond the results, nothing throws.
#ifndef RECIPE_TOOLS_H
#define RECIPE_TOOLS_H

#include "recipe_export.h"

#include <QString>

class InterfaceComm;
class object;
struct recipeTableInfo_t;

/// The full path of the recipe file: one per project, every group lives in it. The argument is ignored; null is fine.
RECIPE_EXPORT QString getRcpFilePath(object* item);

/// The directory of automatic exports, without a separator at its end.
RECIPE_EXPORT QString getRecipeAutoExportPath();

/// Copies the recipe file to its path + ".bak". An older backup is never replaced; without a recipe file,
/// or where something else has its name, nothing happens.
RECIPE_EXPORT void backupRcpFile(object* item);

RECIPE_EXPORT bool rcpFileIsExists(object* item);

/// Loads the recipes [start, start + count) of a group for transfer to the controller: configuration, all items, titles
/// and cell texts formatted for display. Every item gets its place in one recipe's register image (`wordOffset`,
/// `wordCount`, in 16-bit words) and the link number that `comm` knows for its device.
/// `columnName` has an entry for each recipe of the range that exists, `values` what the range holds in the file.
/// 1: loaded. 0: `comm` is null, `count` is below 1, or the configuration or the items cannot be read; `info` is
/// cleared then. Titles or values that cannot be read are not noticed. Each step locks the database by itself: a writer
/// on another thread may come between. GUI thread, to which `comm` belongs; no lock is held while it is asked.
RECIPE_EXPORT int loadRecipe2Struct_start_end(int group, int start, int count, recipeTableInfo_t& info,
                                              InterfaceComm* comm);

#endif
