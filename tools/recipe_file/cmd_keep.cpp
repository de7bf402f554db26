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

/// What restoring would change; a file that cannot be compared is no hindrance, it may be why one restores.
FileDifference preview(const Options& options)
{
    try {
        return compareFiles(options.file, options.copy, std::string(), milliseconds(options.wait));
    } catch (const ToolError& error) {
        FileDifference difference;
        difference.different = true;
        difference.text = std::string("cannot be compared: ") + error.what() + '\n';
        return difference;
    }
}

int restore(const Options& options, bool json)
{
    requireWhole(options.copy, milliseconds(options.wait));
    const FileDifference difference = preview(options);
    const bool act = options.yes && difference.different;
    std::string kept;
    if (act) {
        kept = keepAside(options.file, milliseconds(options.wait));
        replaceContents(options.copy, options.file, milliseconds(options.wait));
    }
    if (json) {
        printData(dumpJson({{"ok", true},
                            {"file", options.file},
                            {"restored", act},
                            {"different", difference.different},
                            {"backup", kept.empty() ? Json(nullptr) : Json(kept)},
                            {"groups", difference.groups}}));
        return EXIT_DONE;
    }
    printData(difference.text);
    for (const std::string& line : difference.summaries)
        say(line);
    if (!difference.different)
        say("Nothing changes: " + options.file + " holds what " + options.copy + " holds.");
    else if (!act)
        say("Nothing was written; give --yes to restore.");
    else
        say("restored " + options.file + " from " + options.copy + ". The file as it was: " + kept);
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
