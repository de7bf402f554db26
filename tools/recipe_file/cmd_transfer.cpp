// export, import, diff: sheets out of and into recipe files.
#include "commands.h"

#include "console.h"
#include "csv_sheet.h"
#include "edit_report.h"
#include "edit_session.h"
#include "file_difference.h"
#include "json_sheet.h"
#include "new_file.h"
#include "sheet_input.h"
#include "sheet_table.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <memory>

namespace {

struct Options : FileOptions
{
    std::string other; ///< the file beside the recipe file
    std::string format;
    std::string delimiter = ",";
    std::string decimal = ".";
    bool transposed = false;
    bool force = false;
    bool dryRun = false;
    bool strict = false;

    SheetFormat sheetFormat() const
    {
        return {delimiter == "tab" ? '\t' : delimiter.front(), decimal.front(), language, transposed};
    }
};

// --- export --------------------------------------------------------------------------------------------------

std::string formatOf(const Options& options)
{
    if (!options.format.empty())
        return options.format;
    const std::string& name = options.other;
    return name.size() > 5 && name.compare(name.size() - 5, 5, ".json") == 0 ? "json" : "csv";
}

void writeSheet(Database& database, const recipeTableInfo_t& group, const Options& options,
                const std::function<void(const std::string&)>& sink)
{
    const std::string format = formatOf(options);
    if (format == "json") {
        writeJsonSheet(database, group, sink);
    } else if (format == "table") {
        std::vector<int> all;
        for (int i = 0; i < group.columnName.size(); ++i)
            all.push_back(i);
        sink(SheetTable(database, group, all).text(options.language));
    } else {
        writeCsvSheet(database, group, options.sheetFormat(), sink);
    }
}

void exportToFile(Database& database, const recipeTableInfo_t& group, const Options& options)
{
    NewFile file(options.other, options.force);
    std::ofstream out(file.path(), std::ios::binary);
    Progress progress("pieces", group.items.size());
    long long pieces = 0;
    writeSheet(database, group, options, [&](const std::string& piece) {
        out << piece;
        progress.reach(++pieces);
    });
    out.close();
    if (out.fail())
        throw ToolError("Cannot write " + options.other + ": no room, or the medium is gone.");
    file.commit();
}

int exportSheet(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    database.execute("BEGIN"); // one state of the file from the first row to the last
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    if (options.other.empty() || options.other == "-") {
        writeSheet(database, group, options, printData);
        return EXIT_DONE;
    }
    exportToFile(database, group, options);
    if (json)
        printData(dumpJson({{"ok", true},
                            {"file", options.other},
                            {"group", group.groupIndex},
                            {"items", group.items.size()},
                            {"recipes", group.columnName.size()}}));
    else
        say("wrote " + groupLabel(group) + " (" + counted(group.items.size(), "item", "items") + ", "
            + counted(group.columnName.size(), "recipe", "recipes") + ") to " + options.other);
    return EXIT_DONE;
}

// --- import --------------------------------------------------------------------------------------------------

int importSheet(const Options& options, bool json)
{
    const std::string text = readWholeFile(options.other);
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    const Input input = readSheet(text, options.other, group, options.sheetFormat());
    const ChangeSet changes = compare(session.database(), group, input, options.strict);
    return finishEdit(session, group, changes, {options.other, options.dryRun, json});
}

// --- diff ----------------------------------------------------------------------------------------------------

int diffFiles(const Options& options, bool json)
{
    Database ours(options.file, Database::Reading, milliseconds(options.wait));
    Database theirs(options.other, Database::Reading, milliseconds(options.wait));
    ours.execute("BEGIN"); // one state of each file from the first look to the last
    theirs.execute("BEGIN");
    const FileDifference difference = compareFiles(ours, theirs, options.group);
    if (json) {
        printData(dumpJson({{"ok", true}, {"different", difference.different}, {"groups", difference.groups}}));
    } else {
        printData(difference.text);
        for (const std::string& line : difference.summaries)
            say(line);
    }
    return difference.different ? EXIT_DIFFERENT : EXIT_DONE;
}

int diffSheet(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    database.execute("BEGIN");
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    const Input input = readSheet(readWholeFile(options.other), options.other, group, options.sheetFormat());
    const ChangeSet changes = compare(database, group, input, options.strict);
    refuseProblems(changes, options.other);
    const bool different = !changes.empty() || !changes.unknown.empty();
    if (json) {
        const Json groups = Json::array({changesToJson(group, changes)});
        printData(dumpJson({{"ok", true}, {"different", different}, {"groups", groups}}));
    } else {
        printData(describe(group, changes));
        reportRemarks(changes);
        say(groupLabel(group) + ": " + summary(changes));
    }
    return different ? EXIT_DIFFERENT : EXIT_DONE;
}

int diff(const Options& options, bool json)
{
    return isRecipeFile(options.other) ? diffFiles(options, json) : diffSheet(options, json);
}

void addSheetOptions(CLI::App* command, Options& options)
{
    command->add_option("--delimiter", options.delimiter, "Between CSV fields: , ; or tab (default ,)")
        ->check(CLI::IsMember({",", ";", "tab"}));
    command->add_option("--decimal", options.decimal, "Decimal mark of CSV numbers: . or , (default .)")
        ->check(CLI::IsMember({".", ","}));
}

} // namespace

void addTransferCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<Options>();
    CLI::App* out = addCommand(app, session, "export", "Write a group as CSV, JSON or a plain table",
                               "recipe-file export bakery.db3 bakery.csv");
    addFileOptions(out, *options);
    out->add_option("SHEET", options->other, "The file to write; standard output without it");
    out->add_option("--format", options->format, "csv, json or table (default: by the name, else csv)")
        ->check(CLI::IsMember({"csv", "json", "table"}));
    addSheetOptions(out, *options);
    out->add_flag("--transposed", options->transposed, "CSV rows are recipes, columns are items");
    out->add_flag("--force", options->force, "Replace an existing sheet");
    out->callback(
        [options, &session] { session.action = [options, &session] { return exportSheet(*options, session.json); }; });

    CLI::App* in = addCommand(app, session, "import", "Take changed values and new recipes from CSV or JSON",
                              "recipe-file import --dry-run bakery.db3 bakery.csv");
    addFileOptions(in, *options);
    in->add_option("SHEET", options->other, "The sheet; - reads standard input")->required();
    addSheetOptions(in, *options);
    in->add_flag("--dry-run", options->dryRun, "Show what would change, change nothing");
    in->add_flag("--strict", options->strict, "A value outside its limits is an error, not a warning");
    in->callback(
        [options, &session] { session.action = [options, &session] { return importSheet(*options, session.json); }; });

    CLI::App* comparing =
        addCommand(app, session, "diff", "Show what differs between a recipe file and a sheet or file",
                   "recipe-file diff bakery.db3 bakery.csv");
    addFileOptions(comparing, *options);
    comparing->add_option("OTHER", options->other, "CSV, JSON or another recipe file")->required();
    addSheetOptions(comparing, *options);
    comparing->add_flag("--strict", options->strict, "A value outside its limits is an error, not a warning");
    comparing->callback(
        [options, &session] { session.action = [options, &session] { return diff(*options, session.json); }; });
}
