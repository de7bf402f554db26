// create: a new recipe file from a JSON description.
#include "commands.h"

#include "console.h"
#include "description.h"
#include "new_file.h"
#include "recipe_writer.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace {

struct Options
{
    std::string description;
    std::string file;
    bool force = false;
};

void write(const Description& description, const Options& options)
{
    NewFile file(options.file, options.force);
    {
        const StdoutIsTalk talk;
        RecipeWriter writer(file.path(), options.file);
        for (const recipeTableInfo_t& group : description.groups)
            writer.writeGroup(group);
    }
    RecipeWriter::verify(file.path(), options.file);
    file.commit();
}

Json report(const Description& description, const Options& options)
{
    Json object = {{"ok", true}, {"file", options.file}, {"groups", Json::array()}};
    object["warnings"] = description.warnings;
    for (const recipeTableInfo_t& group : description.groups)
        object["groups"].push_back({{"index", group.groupIndex},
                                    {"name", group.groupName.at(0).toStdString()},
                                    {"items", group.items.size()},
                                    {"recipes", group.columnName.size()}});
    return object;
}

int create(const Options& options, bool json)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(options.description, options.file, ignored))
        throw ToolError(options.description + " and " + options.file + " are the same file.");
    const Description description = readDescription(readWholeFile(options.description), options.description);
    write(description, options);
    if (json) {
        printData(dumpJson(report(description, options)));
        return EXIT_DONE;
    }
    for (const std::string& warning : description.warnings)
        say("warning: " + warning);
    for (const recipeTableInfo_t& group : description.groups)
        say("wrote group " + std::to_string(group.groupIndex) + " " + quoted(group.groupName.at(0).toStdString()) + " ("
            + counted(group.items.size(), "item", "items") + ", "
            + counted(group.columnName.size(), "recipe", "recipes") + ") to " + options.file);
    return EXIT_DONE;
}

} // namespace

void addCreate(CLI::App& app, Session& session)
{
    CLI::App* command = addCommand(app, session, "create", "Write a new recipe file from a JSON description",
                                   "recipe-file create examples/bakery.json recipeN.db3");
    const auto options = std::make_shared<Options>();
    command->add_option("DESCRIPTION", options->description, "The description; - reads standard input")->required();
    command->add_option("FILE", options->file, "The recipe file to write")->required();
    command->add_flag("--force", options->force, "Replace an existing file");
    command->callback(
        [options, &session] { session.action = [options, &session] { return create(*options, session.json); }; });
}
