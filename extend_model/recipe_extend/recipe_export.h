#ifndef RECIPE_EXPORT_H
#define RECIPE_EXPORT_H

#include <QtGlobal>

/// Marks what the library shows to the runtime; everything else is hidden.
#define RECIPE_EXPORT Q_DECL_EXPORT

#endif
