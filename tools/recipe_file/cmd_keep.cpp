// backup, restore: copies of a whole recipe file.
#include "commands.h"

#include "console.h"
#include "edit_session.h"
#include "file_difference.h"
#include "json_document.h"
#include "outcome.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace {

struct Options : FileOptions
{
    std::string copy;
    bool yes = false;
};

int backup(const Options& options, bool json)
{
    const std::string target = options.copy.empty() ? backupName(options.file) : options.copy;
    copyRecipeFile(options.file, target, milliseconds(options.wait));
    if (json)
        printData(dumpJson({{"ok", true}, {"file", options.file}, {"backup", target}}));
    else
        say("copied " + options.file + " to " + target);
    return EXIT_DONE;
}

struct Restoration
{
    FileDifference difference;
    bool done = false;
    bool newFile = false; ///< programs that have the file open go on with the one that was there
    std::string kept;     ///< where what was replaced is; empty: nothing was
};

/// A file that cannot be compared is no hindrance, it may be why one restores.
FileDifference incomparable(const std::string& why)
{
    FileDifference difference;
    difference.different = true;
    difference.text = why + '\n';
    return difference;
}

/// What restoring would change.
FileDifference preview(Database& file, Database& copy)
{
    try {
        return compareFiles(file, copy, std::string());
    } catch (const LockedFile&) {
        throw;
    } catch (const ToolError& error) {
        return incomparable(std::string("cannot be compared: ") + error.what());
    }
}

Restoration look(const Options& options, Database& copy)
{
    Restoration result;
    try {
        Database file(options.file, Database::Reading, milliseconds(options.wait));
        file.execute("BEGIN");
        result.difference = preview(file, copy);
    } catch (const LockedFile&) {
        throw;
    } catch (const ToolError& error) {
        result.difference = incomparable(std::string("cannot be compared: ") + error.what());
    }
    return result;
}

/// In place, so that a program that has the file open goes on with the restored one.
void replaceInPlace(const Options& options, Database& copy, Restoration& result)
{
    WholeFile file(options.file, milliseconds(options.wait));
    result.difference = preview(file.database(), copy);
    if (!result.difference.different)
        return;
    result.kept = file.keepAside();
    file.replaceBy(copy);
    result.done = true;
}

/// Where SQLite cannot work with what stands there.
void replaceByRename(const Options& options, Database& copy, Restoration& result, const std::string& why)
{
    result.difference = incomparable("cannot be compared: " + why);
    if (result.kept.empty())
        result.kept = keepBytesAside(options.file);
    placeCopy(copy, options.file, true);
    result.done = result.newFile = true;
}

Restoration replace(const Options& options, Database& copy)
{
    Restoration result;
    try {
        replaceInPlace(options, copy, result);
    } catch (const NotADatabase& error) {
        replaceByRename(options, copy, result, error.what());
    } catch (const DamagedFile& error) {
        replaceByRename(options, copy, result, error.what());
    }
    return result;
}

Restoration makeMissing(const Options& options, Database& copy)
{
    Restoration result;
    result.difference = incomparable("There is no file " + options.file + " yet.");
    if (!options.yes)
        return result;
    placeCopy(copy, options.file, false);
    result.done = result.newFile = true;
    return result;
}

Restoration carryOut(const Options& options)
{
    Database copy(options.copy, Database::Reading, milliseconds(options.wait));
    copy.execute("BEGIN"); // one state of the backup from the look to the last page
    requireWhole(copy);
    std::error_code ignored;
    if (!std::filesystem::exists(options.file, ignored))
        return makeMissing(options, copy);
    if (std::filesystem::equivalent(options.file, options.copy, ignored))
        throw ToolError(options.file + " and " + options.copy + " are the same file.");
    if (!std::filesystem::is_regular_file(options.file, ignored))
        throw ToolError(options.file + " is not an ordinary file.");
    return options.yes ? replace(options, copy) : look(options, copy);
}

std::string ending(const Options& options, const Restoration& result)
{
    if (!result.difference.different)
        return "Nothing changes: " + options.file + " holds what " + options.copy + " holds.";
    if (!result.done)
        return "Nothing was written; give --yes to restore.";
    return "restored " + options.file + " from " + options.copy + '.'
           + (result.kept.empty() ? std::string() : " The file as it was: " + result.kept);
}

int restore(const Options& options, bool json)
{
    const Restoration result = carryOut(options);
    if (json) {
        printData(dumpJson({{"ok", true},
                            {"file", options.file},
                            {"restored", result.done},
                            {"different", result.difference.different},
                            {"newFile", result.newFile},
                            {"backup", result.kept.empty() ? Json(nullptr) : Json(result.kept)},
                            {"groups", result.difference.groups}}));
        return EXIT_DONE;
    }
    printData(result.difference.text);
    for (const std::string& line : result.difference.summaries)
        say(line);
    say(ending(options, result));
    if (result.newFile)
        say("This is a new file: a panel that is running must be started again to see it.");
    return EXIT_DONE;
}

} // namespace

void addKeepCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<Options>();
    CLI::App* keeping =
        addCommand(app, session, "backup", "Copy a recipe file while others use it, and verify the copy",
                   "recipe-file backup recipeN.db3");
    addFileOptions(keeping, *options, false);
    keeping->add_option("COPY", options->copy, "Where to; FILE.<time>.bak without it");
    keeping->callback(
        [options, &session] { session.action = [options, &session] { return backup(*options, session.json); }; });

    CLI::App* restoring =
        addCommand(app, session, "restore", "Show what a backup would change; with --yes bring it back",
                   "recipe-file restore recipeN.db3 recipeN.db3.20260131T235959.123Z.bak --yes");
    addFileOptions(restoring, *options, false);
    restoring->add_option("COPY", options->copy, "The backup")->required();
    restoring->add_flag("--yes", options->yes, "Restore");
    restoring->callback(
        [options, &session] { session.action = [options, &session] { return restore(*options, session.json); }; });
}
