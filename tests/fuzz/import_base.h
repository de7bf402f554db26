// The recipe file that the tool's imports are fuzzed against: one group of six items of all kinds and four recipes.
#ifndef IMPORT_BASE_H
#define IMPORT_BASE_H

#include "change_set.h"

#include <functional>

/// Opens the file, which is made at the first call. Lives as long as the process.
Database& importBase();

/// Runs `import` inside a transaction that is taken back. What the tool tells the user (a ToolError) is no finding;
/// any other exception is.
void tryImport(const std::function<void(Database&, const recipeTableInfo_t&)>& import);

/// Takes the input in if it has no problems; the group as it is then.
std::optional<recipeTableInfo_t> takeIn(Database& database, const recipeTableInfo_t& group, const Input& input,
                                        bool strict);

/// Ends the process as a finding unless the input says exactly what the group holds.
void requireNoChange(Database& database, const recipeTableInfo_t& group, const Input& input, const std::string& text);

#endif
