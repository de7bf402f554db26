// A group as JSON: the same format that `create` reads, so that an export can be made into a file again.
#ifndef JSON_SHEET_H
#define JSON_SHEET_H

#include "change_set.h"

#include <functional>
#include <string>

/// One recipe at a time.
void writeJsonSheet(Database& database, const recipeTableInfo_t& group,
                    const std::function<void(const std::string&)>& sink);

/// What a JSON export or description says about the group: recipes by place, those beyond the last are new.
Input readJsonSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group);

/// The numbers of the groups that a JSON export or description holds.
std::vector<int> jsonGroups(const std::string& text, const std::string& fileName);

#endif
