#include "edit_report.h"

#include "console.h"

namespace {

void reportJson(const EditSession& session, const recipeTableInfo_t& group, const ChangeSet& changes,
                const EditEnd& end, const std::string& backup)
{
    Json object = {{"ok", true}, {"file", session.path()}, {"dryRun", end.dryRun}};
    object["backup"] = backup.empty() ? Json(nullptr) : Json(backup);
    object.update(changesToJson(group, changes));
    printData(dumpJson(object));
}

} // namespace

std::string whyNothing(const ChangeSet& changes)
{
    if (!changes.unknown.empty() && changes.said == 0)
        return "Nothing changes: no item of the input is known here.";
    if (changes.said == 0)
        return "Nothing changes: the input says nothing about this group.";
    return "Nothing changes: all values are already as in the input.";
}

void reportRemarks(const ChangeSet& changes)
{
    for (const std::string& warning : changes.warnings)
        say("warning: " + warning);
    for (const std::string& remark : changes.remarks)
        say("note: " + remark);
    for (const std::string& item : changes.unknown)
        say("unknown item: " + item);
}

int finishEdit(EditSession& session, const recipeTableInfo_t& group, const ChangeSet& changes, const EditEnd& end)
{
    refuseProblems(changes, end.inputName);
    std::string backup;
    if (!end.dryRun && !changes.empty()) {
        backup = session.backUp();
        apply(session.database(), group, changes);
        session.commit();
    }
    if (end.json) {
        reportJson(session, group, changes, end, backup);
        return EXIT_DONE;
    }
    reportRemarks(changes);
    if (end.dryRun)
        printData(describe(group, changes));
    if (changes.empty())
        say(whyNothing(changes));
    say(groupLabel(group) + ": " + summary(changes) + (end.dryRun ? " Nothing was written." : ""));
    if (!backup.empty())
        say("The file as it was: " + backup);
    return EXIT_DONE;
}
