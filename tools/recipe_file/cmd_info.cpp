// info: what a recipe file holds.
#include "commands.h"

#include "console.h"
#include "outcome.h"
#include "recipe_limits.h"
#include "survey.h"
#include "text_table.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace {

std::string groupTable(const std::vector<GroupSurvey>& groups)
{
    TextTable table({"Group", "Name", "Items", "Recipes", "Notify address", "Health"},
                    {true, false, true, true, false, false});
    for (const GroupSurvey& group : groups)
        table.addRow(
            {std::to_string(group.index), group.name, std::to_string(group.itemCount),
             std::to_string(group.recipeCount), group.notify != 0 ? group.notifyAddress : "none",
             group.faults.empty() ? "sound" : counted(static_cast<long long>(group.faults.size()), "fault", "faults")});
    return table.text();
}

std::string itemTable(const GroupSurvey& group)
{
    TextTable table({"Item", "Name", "Address", "Type", "Digits", "Decimals", "Min", "Max"},
                    {true, false, false, false, true, true, true, true});
    for (const ItemSurvey& item : group.items)
        table.addRow({std::to_string(item.index), item.name, item.address, dataTypeName(item.dataType),
                      std::to_string(item.totalDigits), std::to_string(item.decimalDigits), plainNumber(item.min),
                      plainNumber(item.max)});
    return table.text();
}

void print(const std::vector<GroupSurvey>& groups, const FileOptions& options)
{
    printData(options.file + ": " + counted(static_cast<long long>(groups.size()), "group", "groups") + '\n');
    if (!groups.empty())
        printData('\n' + groupTable(groups));
    for (const GroupSurvey& group : groups) {
        printData("\nGroup " + std::to_string(group.index) + (group.name.empty() ? "" : " " + quoted(group.name))
                  + '\n');
        for (const std::string& fault : group.faults)
            printData("fault: " + fault + '\n');
        if (!group.items.empty())
            printData(itemTable(group));
    }
}

int info(const FileOptions& options, bool json)
{
    Database database(options.file, Database::Reading, static_cast<int>(options.wait * 1000));
    const std::vector<GroupSurvey> groups = surveyFile(database, options.language);
    if (!json) {
        print(groups, options);
        return EXIT_DONE;
    }
    Json object = {{"ok", true}, {"file", options.file}, {"groups", Json::array()}};
    for (const GroupSurvey& group : groups)
        object["groups"].push_back(surveyToJson(group));
    printData(dumpJson(object));
    return EXIT_DONE;
}

} // namespace

void addInfo(CLI::App& app, Session& session)
{
    CLI::App* command =
        addCommand(app, session, "info", "Show what a recipe file holds", "recipe-file info recipeN.db3");
    const auto options = std::make_shared<FileOptions>();
    addFileOptions(command, *options, false);
    command->callback(
        [options, &session] { session.action = [options, &session] { return info(*options, session.json); }; });
}
