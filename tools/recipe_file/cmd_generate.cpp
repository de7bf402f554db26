// generate: a recipe file of any size with plausible contents.
#include "commands.h"

#include "console.h"
#include "description.h"
#include "generator.h"
#include "new_file.h"
#include "recipe_limits.h"
#include "recipe_writer.h"
#include "sheet_input.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <memory>

namespace {

struct Options
{
    std::string file;
    int items = 0;
    int recipes = 0;
    std::uint64_t seed = 1;
    int group = 0;
    bool force = false;
    bool description = false;
};

void writeRecipes(const Generator& generator, const Options& options)
{
    NewFile file(options.file, options.force);
    {
        const StdoutIsTalk talk;
        RecipeWriter writer(file.path(), options.file);
        writer.writeGenerated(generator, options.group);
    }
    RecipeWriter::verify(file.path(), options.file);
    file.commit();
}

void writeDescription(const Generator& generator, const Options& options)
{
    recipeTableInfo_t info = generator.group(options.group);
    for (int i = 0; i < options.items; ++i) {
        for (int c = 0; c < options.recipes; ++c)
            info.items[i].values.append(generator.value(i, c));
    }
    const Json root = {{"groups", Json::array({describeGroup(info)})}};
    const std::string text = root.dump(2) + '\n';
    if (options.file == "-") {
        printData(text);
        return;
    }
    refuseOverRecipeFile(options.file);
    NewFile file(options.file, options.force);
    std::ofstream out(file.path(), std::ios::binary);
    if (!(out << text) || (out.close(), out.fail()))
        throw ToolError("Cannot write " + options.file + '.');
    file.commit();
}

int generate(const Options& options, bool json)
{
    const Generator generator(options.items, options.recipes, options.seed);
    if (options.description)
        writeDescription(generator, options);
    else
        writeRecipes(generator, options);
    if (options.file == "-")
        return EXIT_DONE;
    if (json) {
        const Json object = {{"ok", true},
                             {"file", options.file},
                             {"group", options.group},
                             {"items", options.items},
                             {"recipes", options.recipes},
                             {"seed", options.seed}};
        printData(dumpJson(object));
    } else {
        say("wrote group " + std::to_string(options.group) + " (" + counted(options.items, "item", "items") + ", "
            + counted(options.recipes, "recipe", "recipes") + ", seed " + std::to_string(options.seed) + ") to "
            + options.file);
    }
    return EXIT_DONE;
}

} // namespace

void addGenerate(CLI::App& app, Session& session)
{
    CLI::App* command = addCommand(app, session, "generate", "Write a recipe file of any size, for trials",
                                   "recipe-file generate --items 250 --recipes 120 trial.db3");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->file, "The file to write")->required();
    command->add_option("--items", options->items, "Number of items")
        ->required()
        ->check(CLI::Range(1, static_cast<int>(MAX_ITEMS)));
    command->add_option("--recipes", options->recipes, "Number of recipes")
        ->required()
        ->check(CLI::Range(1, static_cast<int>(MAX_RECIPES)));
    command->add_option("--seed", options->seed, "The same seed gives the same values (default 1)");
    command->add_option("--group", options->group, "Group index (default 0)")->check(CLI::NonNegativeNumber);
    command->add_flag("--description", options->description, "Write a JSON description instead (FILE may be -)");
    command->add_flag("--force", options->force, "Replace an existing file");
    command->callback(
        [options, &session] { session.action = [options, &session] { return generate(*options, session.json); }; });
}
