// What differs between two recipe files: groups, definitions, values, titles, recipes.
#ifndef FILE_DIFFERENCE_H
#define FILE_DIFFERENCE_H

#include "database.h"
#include "json_document.h"

#include <string>
#include <vector>

struct FileDifference
{
    bool different = false;
    std::string text;                   ///< for eyes
    std::vector<std::string> summaries; ///< one sentence per group
    Json groups = Json::array();
};

/// `group` by number or title; all groups where it is empty. A caller who wants one state of each file opens
/// transactions around it.
FileDifference compareFiles(Database& ours, Database& theirs, const std::string& group);

#endif
