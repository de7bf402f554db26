#include "file_difference.h"

#include "change_set.h"
#include "sheet_input.h"

#include <algorithm>
#include <set>

namespace {

bool holds(const std::vector<int>& list, int number)
{
    return std::find(list.begin(), list.end(), number) != list.end();
}

void addLonely(FileDifference& result, int number, const std::string& holder)
{
    result.different = true;
    result.groups.push_back({{"group", number}, {"onlyIn", holder}});
    result.text += "group " + std::to_string(number) + ": only in " + holder + '\n';
}

void addGroup(FileDifference& result, Database& before, Database& after, int number)
{
    const recipeTableInfo_t group = loadGroup(before, number);
    const recipeTableInfo_t other = loadGroup(after, number);
    const std::vector<std::string> definition = definitionDifferences(group, other);
    const ChangeSet changes = compareGroups(before, group, after, other);
    result.different = result.different || !changes.empty() || !definition.empty() || !changes.onlyInFile.empty()
                       || !changes.unknown.empty();
    for (const std::string& line : definition)
        result.text += line + '\n';
    for (const int recipe : changes.onlyInFile)
        result.text += recipeLabel(group, recipe) + ": only in " + before.path() + '\n';
    result.text += describe(group, changes);
    result.summaries.push_back(groupLabel(group) + ": " + summary(changes, "only in " + before.path()));
    Json object = changesToJson(group, changes);
    object["definition"] = definition;
    result.groups.push_back(object);
}

} // namespace

FileDifference compareFiles(Database& ours, Database& theirs, const std::string& group)
{
    std::vector<int> mine = groupNumbers(ours);
    std::vector<int> others = groupNumbers(theirs);
    if (!group.empty()) {
        mine = {chooseGroup(ours, group)};
        others = holds(others, mine.front()) ? mine : std::vector<int>();
    }
    std::set<int> all(mine.begin(), mine.end());
    all.insert(others.begin(), others.end());
    FileDifference result;
    for (const int number : all) {
        if (!holds(mine, number))
            addLonely(result, number, theirs.path());
        else if (!holds(others, number))
            addLonely(result, number, ours.path());
        else
            addGroup(result, ours, theirs, number);
    }
    return result;
}
