// Exported free functions: where the recipe file lives, its backup, where exports go. The runtime and other plug-ins
// call them too. GUI thread, except where a function says otherwise; nothing is reported, nothing throws.
#ifndef RECIPE_TOOLS_H
#define RECIPE_TOOLS_H

#include "recipe_export.h"

#include <QString>

class object;

/// The full path of the recipe file: one per project, every group lives in it. The argument is ignored; null is fine.
RECIPE_EXPORT QString getRcpFilePath(object* item);

/// The directory of automatic exports, without a separator at its end.
RECIPE_EXPORT QString getRecipeAutoExportPath();

/// Copies the recipe file to its path + ".bak". An older backup is never replaced; without a recipe file nothing
/// happens.
RECIPE_EXPORT void backupRcpFile(object* item);

RECIPE_EXPORT bool rcpFileIsExists(object* item);

#endif
