// A look at a recipe file: what each group is, and whether its tables agree with its configuration. Reads with a
// connection of its own and believes no count.
#ifndef SURVEY_H
#define SURVEY_H

#include "database.h"
#include "json_document.h"

#include <string>
#include <vector>

struct ItemSurvey
{
    std::int64_t index;
    std::string name;
    std::string address;
    std::int64_t dataType;
    std::int64_t totalDigits;
    std::int64_t decimalDigits;
    double min;
    double max;
};

struct GroupSurvey
{
    std::int64_t index;
    std::string name;
    std::int64_t itemCount;   ///< by the configuration
    std::int64_t recipeCount; ///< by the configuration
    std::int64_t notify;
    std::string notifyAddress;
    std::vector<ItemSurvey> items;   ///< what the address table holds
    std::vector<std::string> faults; ///< a sentence each; empty: the group is sound as far as counts tell
};

/// Every group, by index. `language` is 1 to 8.
std::vector<GroupSurvey> surveyFile(Database& database, int language);

Json surveyToJson(const GroupSurvey& group);

/// "text" for 7, else the number.
std::string dataTypeName(std::int64_t dataType);

#endif
