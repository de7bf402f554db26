// Starting the panel again in the middle of a script: the process replaces itself, so that all the new one knows comes
// from the files, as after a power cut.
#ifndef RESTART_H
#define RESTART_H

#include "panel_program.h"
#include "script_player.h"

/// Replaces this process. Comes back only when that failed. Nothing is destroyed: threads end where they are.
void startAgain(const PanelOptions& options, const QByteArray& script, const ScriptPosition& from);

/// In the new process: takes over the script and the position in it. False: `resume` was not written by startAgain.
bool resumeScript(const QString& resume, const QString& scriptName, Script& script, QByteArray& scriptText,
                  ScriptPosition& from);

#endif
