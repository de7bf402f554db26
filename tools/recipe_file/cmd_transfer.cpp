// export, import, diff: sheets out of and into recipe files.
#include "commands.h"

#include "console.h"
#include "csv_sheet.h"
#include "description.h"
#include "edit_report.h"
#include "edit_session.h"
#include "file_difference.h"
#include "group_copy.h"
#include "json_sheet.h"
#include "new_file.h"
#include "sheet_input.h"
#include "sheet_table.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
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

bool toStandardOutput(const Options& options)
{
    return options.other.empty() || options.other == "-";
}

std::string formatOf(const Options& options, bool json)
{
    if (!options.format.empty())
        return options.format;
    const std::string& name = options.other;
    const bool named = name.size() > 5 && name.compare(name.size() - 5, 5, ".json") == 0;
    return named || (json && toStandardOutput(options)) ? "json" : "csv";
}

void writeSheet(Database& database, const recipeTableInfo_t& group, const Options& options, bool json,
                const std::function<void(const std::string&)>& sink)
{
    const std::string format = formatOf(options, json);
    if (format == "json") {
        writeJsonSheet(database, group, sink);
    } else if (format == "table") {
        writeTableSheet(database, group, options.language, sink);
    } else {
        writeCsvSheet(database, group, options.sheetFormat(), sink);
    }
}

void exportToFile(Database& database, const recipeTableInfo_t& group, const Options& options, bool json)
{
    refuseOverRecipeFile(options.other);
    NewFile file(options.other, options.force);
    std::ofstream out(file.path(), std::ios::binary);
    Progress progress("pieces", group.items.size());
    long long pieces = 0;
    writeSheet(database, group, options, json, [&](const std::string& piece) {
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
    if (toStandardOutput(options)) {
        writeSheet(database, group, options, json, printData);
        return EXIT_DONE;
    }
    exportToFile(database, group, options, json);
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

bool holds(const std::vector<int>& list, int number)
{
    return std::find(list.begin(), list.end(), number) != list.end();
}

std::string listed(const std::vector<int>& numbers)
{
    std::string list;
    for (const int number : numbers)
        list += (list.empty() ? "" : ", ") + std::to_string(number);
    return list;
}

// --- import --------------------------------------------------------------------------------------------------

/// The group that a sheet is about: as the options say, or the only one that is possible.
int sheetGroup(Database& database, const std::string& text, const Options& options)
{
    if (kindOf(text) != FileKind::JsonSheet)
        return chooseGroup(database, options.group);
    const std::vector<int> numbers = jsonGroups(text, options.other);
    for (const int number : numbers) {
        if (options.group == std::to_string(number))
            return number;
    }
    if (!options.group.empty() || numbers.empty())
        return chooseGroup(database, options.group);
    if (numbers.size() == 1)
        return numbers.front();
    const std::vector<int> here = groupNumbers(database);
    if (here.size() == 1 && holds(numbers, here.front()))
        return here.front();
    throw ToolError(options.other + " has several groups (" + listed(numbers) + "); give one with --group.");
}

/// A group that the file does not have, from a description or a JSON export of it.
recipeTableInfo_t describedGroup(const std::string& text, const Options& options, int number,
                                 std::vector<std::string>& warnings)
{
    const Description description = readDescription(text, options.other);
    warnings = description.warnings;
    for (const recipeTableInfo_t& group : description.groups) {
        if (group.groupIndex == number)
            return group;
    }
    throw ToolError(options.other + " has no group " + std::to_string(number) + '.');
}

int importNewGroup(EditSession& session, const std::string& text, const Options& options, int number, bool json)
{
    std::vector<std::string> warnings;
    const recipeTableInfo_t group = describedGroup(text, options, number, warnings);
    std::string backup;
    if (!options.dryRun) {
        backup = session.backUp();
        addGroup(session.database(), group);
        session.commit();
    }
    if (json) {
        printData(dumpJson({{"ok", true},
                            {"file", options.file},
                            {"dryRun", options.dryRun},
                            {"backup", backup.empty() ? Json(nullptr) : Json(backup)},
                            {"newGroup", number},
                            {"items", group.items.size()},
                            {"recipes", group.columnName.size()},
                            {"warnings", warnings}}));
        return EXIT_DONE;
    }
    for (const std::string& warning : warnings)
        say("warning: " + warning);
    say("new " + groupLabel(group) + " (" + counted(group.items.size(), "item", "items") + ", "
        + counted(group.columnName.size(), "recipe", "recipes") + ")."
        + (options.dryRun ? " Nothing was written." : ""));
    if (!backup.empty())
        say("The file as it was: " + backup);
    return EXIT_DONE;
}

void requireFileFor(const std::string& text, const Options& options)
{
    std::error_code ignored;
    if (kindOf(text) == FileKind::JsonSheet && !std::filesystem::exists(options.file, ignored))
        throw ToolError("There is no file " + options.file + "; recipe-file create " + options.other + ' '
                        + options.file + " makes one.");
}

int importSheet(const Options& options, bool json)
{
    const std::string text = readWholeFile(options.other);
    requireFileFor(text, options);
    EditSession session(options.file, options.wait);
    const int number = sheetGroup(session.database(), text, options);
    if (!holds(groupNumbers(session.database()), number))
        return importNewGroup(session, text, options, number, json);
    const recipeTableInfo_t group = loadGroup(session.database(), number);
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
        if (!difference.different)
            say("No difference: both files hold the same.");
    }
    return difference.different ? EXIT_DIFFERENT : EXIT_DONE;
}

/// A description of a group that the file does not have: an import would add it.
int diffNewGroup(const std::string& text, const Options& options, int number, bool json)
{
    std::vector<std::string> warnings;
    const recipeTableInfo_t group = describedGroup(text, options, number, warnings);
    if (json) {
        const Json groups = Json::array({{{"group", number}, {"onlyIn", options.other}}});
        printData(dumpJson({{"ok", true}, {"different", true}, {"groups", groups}}));
    } else {
        printData(groupLabel(group) + ": only in " + options.other + '\n');
    }
    return EXIT_DIFFERENT;
}

int diffSheet(const Options& options, bool json)
{
    const std::string text = readWholeFile(options.other);
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    database.execute("BEGIN");
    const int number = sheetGroup(database, text, options);
    if (!holds(groupNumbers(database), number))
        return diffNewGroup(text, options, number, json);
    const recipeTableInfo_t group = loadGroup(database, number);
    const Input input = readSheet(text, options.other, group, options.sheetFormat());
    const ChangeSet changes = compare(database, group, input, options.strict);
    refuseProblems(changes, options.other);
    const bool different = !changes.empty() || !changes.unknown.empty();
    if (json) {
        const Json groups = Json::array({changesToJson(group, changes)});
        printData(dumpJson({{"ok", true}, {"different", different}, {"groups", groups}}));
    } else {
        printData(describe(group, changes));
        reportRemarks(changes);
        if (changes.empty())
            say(whyNothing(changes));
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
    addDelimiterOption(command, options.delimiter);
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
    out->add_option("--format", options->format,
                    "csv, json or table (default: by the name, json with --json, else csv)")
        ->check(CLI::IsMember({"csv", "json", "table"}));
    addSheetOptions(out, *options);
    out->add_flag("--transposed", options->transposed, "CSV rows are recipes, columns are items");
    out->add_flag("--force", options->force, "Replace an existing sheet");
    out->callback(
        [options, &session] { session.action = [options, &session] { return exportSheet(*options, session.json); }; });

    CLI::App* in =
        addCommand(app, session, "import", "Take changed values and new recipes from CSV or JSON, new groups from JSON",
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
