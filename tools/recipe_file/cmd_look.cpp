// list, show, get: what is in a file, without changing it.
#include "commands.h"

#include "console.h"
#include "edit_session.h"
#include "group_access.h"
#include "json_document.h"
#include "sheet_table.h"
#include "text_table.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace {

struct Options : FileOptions
{
    bool items = false;
    std::vector<std::string> recipes;
    std::string recipe;
    std::string item;
};

Json titlesJson(const QVector<QString>& titles)
{
    Json list = Json::array();
    for (const QString& title : titles)
        list.push_back(title.toStdString());
    return list;
}

int list(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    const int count = static_cast<int>(options.items ? group.items.size() : group.columnName.size());
    TextTable table({options.items ? "Item" : "Recipe", "Name"}, {true, false});
    Json entries = Json::array();
    for (int i = 0; i < count; ++i) {
        const QVector<QString>& titles = options.items ? group.items.at(i).rowName : group.columnName.at(i);
        table.addRow({std::to_string(i), titleText(titles, options.language)});
        entries.push_back({{"index", i}, {"names", titlesJson(titles)}});
    }
    const Json object = {{"ok", true}, {"group", group.groupIndex}, {options.items ? "items" : "recipes", entries}};
    printData(json ? dumpJson(object) : table.text());
    return EXIT_DONE;
}

int show(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    std::vector<int> recipes;
    for (const std::string& wanted : options.recipes)
        recipes.push_back(chooseRecipe(group, wanted));
    if (recipes.empty()) {
        for (int i = 0; i < group.columnName.size(); ++i)
            recipes.push_back(i);
    }
    const SheetTable sheet(database, group, recipes);
    printData(json ? dumpJson(sheet.json()) : sheet.text(options.language));
    return EXIT_DONE;
}

int get(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    const int recipe = chooseRecipe(group, options.recipe);
    const int item = chooseItem(group, options.item);
    RecipeRows rows(database, group, item, 1);
    for (int i = 0; i <= recipe; ++i)
        rows.next();
    const Cell cell = rows.cell(item);
    if (json)
        printData(dumpJson(
            {{"ok", true}, {"recipe", recipe}, {"item", item}, {"value", cell ? Json(*cell) : Json(nullptr)}}));
    else
        printData((cell ? *cell : std::string()) + '\n');
    return EXIT_DONE;
}

} // namespace

void addLookCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<Options>();
    CLI::App* listing =
        addCommand(app, session, "list", "List the recipes (or items) of a group", "recipe-file list bakery.db3");
    addFileOptions(listing, *options);
    listing->add_flag("--items", options->items, "List the items instead");
    listing->callback(
        [options, &session] { session.action = [options, &session] { return list(*options, session.json); }; });

    CLI::App* showing = addCommand(app, session, "show", "Show a group as a sheet, or some of its recipes",
                                   "recipe-file show bakery.db3 Baguette \"Rye bread\"");
    addFileOptions(showing, *options);
    showing->add_option("RECIPE", options->recipes, "Numbers or titles; all without one");
    showing->callback(
        [options, &session] { session.action = [options, &session] { return show(*options, session.json); }; });

    CLI::App* getting =
        addCommand(app, session, "get", "Print one value", "recipe-file get bakery.db3 Baguette \"Water kg\"");
    addFileOptions(getting, *options);
    getting->add_option("RECIPE", options->recipe, "Number or title")->required();
    getting->add_option("ITEM", options->item, "Number or title")->required();
    getting->callback(
        [options, &session] { session.action = [options, &session] { return get(*options, session.json); }; });
}
