// The end of a command that changes values: refuse, show, back up, write, tell.
#ifndef EDIT_REPORT_H
#define EDIT_REPORT_H

#include "change_set.h"
#include "edit_session.h"

struct EditEnd
{
    std::string inputName; ///< what the changes came from
    bool dryRun;
    bool json;
};

int finishEdit(EditSession& session, const recipeTableInfo_t& group, const ChangeSet& changes, const EditEnd& end);

/// Of an empty set of changes.
std::string whyNothing(const ChangeSet& changes);

/// Warnings and unknown items, to standard error.
void reportRemarks(const ChangeSet& changes);

#endif
