// check: everything that is wrong with a recipe file, at once, without changing it.
#include "commands.h"

#include "check.h"
#include "console.h"
#include "edit_session.h"
#include "json_document.h"
#include "outcome.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace {

std::vector<Finding> findings(const FileOptions& options)
{
    try {
        Database database(options.file, Database::ReadOnly, milliseconds(options.wait));
        database.execute("BEGIN"); // one state of the file
        return Checker(database).run();
    } catch (const DamagedFile& error) {
        return {{Finding::Fault, "integrity", "", error.what(), "Restore a backup (recipe-file restore)."}};
    } catch (const InterruptedWrite&) {
        return {{Finding::Fault, "journal", "", "A write was interrupted, and the file is half written.",
                 INTERRUPTED_CURE}};
    }
}

long long countOf(const std::vector<Finding>& list, Finding::Severity severity)
{
    return std::count_if(list.begin(), list.end(),
                         [severity](const Finding& finding) { return finding.severity == severity; });
}

int check(const FileOptions& options, bool json)
{
    const std::vector<Finding> list = findings(options);
    const long long faults = countOf(list, Finding::Fault);
    const long long warnings = countOf(list, Finding::Warning);
    const int code = faults > 0 ? EXIT_DIFFERENT : EXIT_DONE;
    if (json) {
        Json object = {{"ok", true},       {"file", options.file}, {"sound", faults == 0},
                       {"faults", faults}, {"warnings", warnings}, {"findings", Json::array()}};
        for (const Finding& finding : list)
            object["findings"].push_back({{"severity", finding.severity == Finding::Fault ? "fault" : "warning"},
                                          {"kind", finding.kind},
                                          {"place", finding.place},
                                          {"what", finding.what},
                                          {"cure", finding.cure}});
        printData(dumpJson(object));
        return code;
    }
    for (const Finding& finding : list)
        printData((finding.severity == Finding::Fault ? "fault: " : "warning: ")
                  + (finding.place.empty() ? "" : finding.place + ": ") + finding.what + " [" + finding.kind + "]\n    "
                  + finding.cure + '\n');
    say(options.file + ": " + counted(faults, "fault", "faults") + ", " + counted(warnings, "warning", "warnings")
        + '.');
    return code;
}

} // namespace

void addCheck(CLI::App& app, Session& session)
{
    CLI::App* command = addCommand(app, session, "check", "Report everything that is wrong with a recipe file",
                                   "recipe-file check recipeN.db3");
    const auto options = std::make_shared<FileOptions>();
    addFileOptions(command, *options, false);
    command->callback(
        [options, &session] { session.action = [options, &session] { return check(*options, session.json); }; });
}
