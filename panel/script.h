// Scripts for the panel: one command per line, "#" begins a comment, texts stand in double quotes (\" and \\ and \n
// inside). Parsing needs no panel; everything wrong with a script is told before anything of it runs.
#ifndef SCRIPT_H
#define SCRIPT_H

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What a command does. One per form of a command; `Script::help` lists the forms. The player takes them in groups,
/// by their order here: touches, keyboard, changes, waiting, expectations of items, of the panel and of files, output.
enum class ScriptAction
{
    TapPoint,
    TapCell,
    TapTitle,
    TapButton,
    PressPoint,
    PressCell,
    PressTitle,
    PressButton,
    MoveTo,
    MoveBy,
    Release,
    ReleaseAt,
    KeyboardAccept,
    KeyboardRefuse,
    KeyboardCancel,
    Answer,
    SetRegister,
    Send,
    Link,
    Use,
    Language,
    Pass,
    WaitIdle,
    WaitWorker,
    WaitMessage,
    ExpectCell,
    ExpectTitle,
    ExpectName,
    ExpectSelectionNone,
    ExpectSelectionCell,
    ExpectSelectionTitle,
    ExpectFirst,
    ExpectSize,
    ExpectPendingCount,
    ExpectPending,
    ExpectMessage,
    ExpectNoMessage,
    ExpectKeyboard,
    ExpectNoKeyboard,
    ExpectLimits,
    ExpectConfirmation,
    ExpectNoConfirmation,
    ExpectLink,
    ExpectRegisters,
    ExpectRegister,
    ExpectFile,
    ExpectFileMissing,
    ExpectQuery,
    Screenshot,
    ScreenshotWindow,
    Dump,
    Restart,
    PowerCut
};

struct ScriptStep
{
    int line = 0; ///< from 1
    ScriptAction action = ScriptAction::WaitIdle;
    QList<QVariant> arguments; ///< int or QString, in the order of the command
    QString item;              ///< "... in NAME"; empty: the item in use
};

class Script
{
public:
    /// False: `problems` has a sentence for each faulty line, beginning with "NAME:LINE: ".
    bool parse(const QString& name, const QString& text);

    const QString& name() const { return m_name; }
    const QList<ScriptStep>& steps() const { return m_steps; }
    const QStringList& problems() const { return m_problems; }

    /// All forms of commands with what they do, for people.
    static QString help();

private:
    void parseLine(int line, const QString& text);
    void addProblem(int line, const QString& problem);

    QString m_name;
    QList<ScriptStep> m_steps;
    QStringList m_problems;
};

#endif
