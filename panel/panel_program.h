// The program recipe-panel without its command line: puts the parts together for a window, a picture or a script.
#ifndef PANEL_PROGRAM_H
#define PANEL_PROGRAM_H

#include <QString>
#include <QStringList>

struct PanelOptions
{
    QString project;
    QStringList plugins;
    QString screenshot;
    QString script;
    QString log;
    QString output; ///< folder for what scripts write
    QString resume; ///< where a script goes on after a restart; written by the program itself
    int language = 0;
    bool window = false; ///< show the window while a script plays

    /// Whether a display is needed.
    bool onDisplay() const { return window || (screenshot.isEmpty() && script.isEmpty()); }
};

constexpr int EXIT_FAULTY = 2; ///< the command line, the project or the script has faults; nothing was run
constexpr int EXIT_FAILED = 1; ///< an expectation of the script, or a file that cannot be written

/// Needs the QApplication. The exit code of the program.
int runPanel(const PanelOptions& options);

#endif
