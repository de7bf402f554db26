// set, add, copy, rename, delete: single changes of a recipe file.
#include "commands.h"

#include "console.h"
#include "edit_report.h"
#include "edit_session.h"
#include "recipe_limits.h"
#include "recipe_moves.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace {

struct Options : FileOptions
{
    std::string recipe;
    std::string item;
    std::string value;
    std::string name;
    std::vector<std::string> values; ///< "ITEM=VALUE"
    bool allLanguages = false;
    bool dryRun = false;
    bool strict = false;
};

InputRecipe emptyRecipe(const recipeTableInfo_t& group)
{
    InputRecipe recipe;
    recipe.titles.resize(LANGUAGE_COUNT);
    recipe.cells.resize(static_cast<std::size_t>(group.items.size()));
    return recipe;
}

int finish(EditSession& session, const recipeTableInfo_t& group, const InputRecipe& recipe, const Options& options,
           bool json)
{
    Input input;
    input.name = "the command line";
    input.recipes.push_back(recipe);
    ChangeSet changes = compare(session.database(), group, input, options.strict);
    changes.onlyInFile.clear(); // nobody expects the other recipes to be mentioned here
    return finishEdit(session, group, changes, {input.name, options.dryRun, json});
}

int set(const Options& options, bool json)
{
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    InputRecipe recipe = emptyRecipe(group);
    recipe.number = chooseRecipe(group, options.recipe);
    recipe.cells[static_cast<std::size_t>(chooseItem(group, options.item))] = InputCell::given(options.value);
    return finish(session, group, recipe, options, json);
}

/// 0, or the limit that is nearest to it; an empty text.
std::string defaultValue(const recipeItemInfo_t& item)
{
    return isText(item) ? std::string() : limitText(std::max(item.min, std::min(item.max, 0.0)), item.decimalDigits);
}

int add(const Options& options, bool json)
{
    if (options.name.empty())
        throw ToolError("A new recipe needs a name.");
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    InputRecipe recipe = emptyRecipe(group);
    recipe.titles.assign(LANGUAGE_COUNT, options.name);
    for (int i = 0; i < group.items.size(); ++i)
        recipe.cells[static_cast<std::size_t>(i)] = InputCell::given(defaultValue(group.items.at(i)));
    for (const std::string& assignment : options.values) {
        const std::size_t sign = assignment.find('=');
        if (sign == std::string::npos)
            throw ToolError("--value " + quoted(assignment) + " is not of the form ITEM=VALUE.");
        recipe.cells[static_cast<std::size_t>(chooseItem(group, assignment.substr(0, sign)))] =
            InputCell::given(assignment.substr(sign + 1));
    }
    return finish(session, group, recipe, options, json);
}

int rename(const Options& options, bool json)
{
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    InputRecipe recipe = emptyRecipe(group);
    recipe.number = chooseRecipe(group, options.recipe);
    if (options.allLanguages)
        recipe.titles.assign(LANGUAGE_COUNT, options.name);
    else
        recipe.titles[static_cast<std::size_t>(options.language - 1)] = options.name;
    return finish(session, group, recipe, options, json);
}

/// Tells, and commits unless it was a dry run, what moves recipes.
template <typename Change>
int move(const Options& options, bool json, const std::string& sentence, EditSession& session, Change change)
{
    std::string backup;
    if (!options.dryRun) {
        backup = session.backUp();
        change();
        session.commit();
    }
    if (json) {
        const Json object = {{"ok", true},
                             {"file", options.file},
                             {"dryRun", options.dryRun},
                             {"backup", backup.empty() ? Json(nullptr) : Json(backup)},
                             {"done", sentence}};
        printData(dumpJson(object));
        return EXIT_DONE;
    }
    say((options.dryRun ? "would have " : "") + sentence + (options.dryRun ? " Nothing was written." : ""));
    if (!backup.empty())
        say("The file as it was: " + backup);
    return EXIT_DONE;
}

int copy(const Options& options, bool json)
{
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    const int recipe = chooseRecipe(group, options.recipe);
    QVector<QString> titles = group.columnName.at(recipe);
    if (!options.name.empty())
        titles.fill(QString::fromStdString(options.name));
    const int room = titleRoom(group.groupIndex, recipe + 1);
    if (titleBytes(titles) > room)
        throw ToolError("The name is too long: " + std::to_string(titleBytes(titles)) + " bytes in all languages, "
                        + std::to_string(room) + " fit.");
    const std::string sentence = "copied " + recipeLabel(group, recipe) + " to recipe " + std::to_string(recipe + 1)
                                 + "; " + counted(group.columnName.size() - recipe - 1, "recipe", "recipes")
                                 + " moved one place up.";
    return move(options, json, sentence, session, [&] { insertCopy(session.database(), group, recipe, titles); });
}

int remove(const Options& options, bool json)
{
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    const int recipe = chooseRecipe(group, options.recipe);
    if (group.columnName.size() == 1)
        throw ToolError(recipeLabel(group, recipe) + " is the last one of " + groupLabel(group)
                        + "; a group without recipes cannot be.");
    const std::string sentence = "deleted " + recipeLabel(group, recipe) + "; "
                                 + counted(group.columnName.size() - recipe - 1, "recipe", "recipes")
                                 + " moved one place down.";
    return move(options, json, sentence, session, [&] { removeRecipe(session.database(), group, recipe); });
}

using Function = int (*)(const Options&, bool);

CLI::App* edit(CLI::App& app, Session& session, const std::shared_ptr<Options>& options, const std::string& name,
               const std::string& purpose, const std::string& example, Function function)
{
    CLI::App* command = addCommand(app, session, name, purpose, example);
    addFileOptions(command, *options);
    command->add_flag("--dry-run", options->dryRun, "Show what would change, change nothing");
    command->callback(
        [options, &session, function] { session.action = [=, &session] { return function(*options, session.json); }; });
    return command;
}

} // namespace

void addEditCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<Options>();
    CLI::App* setting = edit(app, session, options, "set", "Change one value",
                             "recipe-file set bakery.db3 Baguette \"Water kg\" 82.5", set);
    setting->add_option("RECIPE", options->recipe, "Number or title")->required();
    setting->add_option("ITEM", options->item, "Number or title")->required();
    setting->add_option("VALUE", options->value, "The new value (behind -- where it starts with -)")->required();
    setting->add_flag("--strict", options->strict, "A value outside its limits is an error, not a warning");

    CLI::App* adding = edit(app, session, options, "add", "Add a recipe behind the last one",
                            "recipe-file add bakery.db3 \"Spelt bread\" --value \"Water kg=88\"", add);
    adding->add_option("NAME", options->name, "Its title, in all languages")->required();
    adding->add_option("--value", options->values, "ITEM=VALUE; items without one get 0 or the limit next to it");
    adding->add_flag("--strict", options->strict, "A value outside its limits is an error, not a warning");

    CLI::App* copying = edit(app, session, options, "copy", "Copy a recipe to the place behind it, as a panel does",
                             "recipe-file copy bakery.db3 Baguette --name \"Baguette short\"", copy);
    copying->add_option("RECIPE", options->recipe, "Number or title")->required();
    copying->add_option("--name", options->name, "Title of the copy in all languages; the same without it");

    CLI::App* renaming = edit(app, session, options, "rename", "Change a recipe's title",
                              "recipe-file rename bakery.db3 Rolls \"Morning rolls\"", rename);
    renaming->add_option("RECIPE", options->recipe, "Number or title")->required();
    renaming->add_option("NAME", options->name, "The new title, in the language of --language")->required();
    renaming->add_flag("--all-languages", options->allLanguages, "Change it in all languages");

    CLI::App* deleting =
        edit(app, session, options, "delete", "Delete a recipe", "recipe-file delete bakery.db3 Pretzels", remove);
    deleting->add_option("RECIPE", options->recipe, "Number or title")->required();
}
