// The checks of `validate`: what a panel's runtime does with a plug-in, one thing each. A check runs in a process of
// its own, for it may crash or hang.
#ifndef VALIDATION_CHECKS_H
#define VALIDATION_CHECKS_H

#include <QString>
#include <QVector>

/// The one check that changes what items keep in files, as an operator would.
constexpr char RANDOM_TAPS[] = "random-taps";

struct ValidationSettings
{
    QString library;
    QString project;   ///< a project file whose items of the library's type are checked; empty: one item, no properties
    int seconds = 10;  ///< how long random taps go on
    unsigned seed = 1; ///< of the random taps
};

struct ValidationCheck
{
    const char* name;
    const char* purpose; ///< one line
    /// Does it. Empty: passed; else what was expected and what happened.
    QString (*run)(const ValidationSettings& settings);
};

/// All checks, in the order in which they run.
const QVector<ValidationCheck>& validationChecks();
/// Null: there is none of that name.
const ValidationCheck* validationCheck(const QString& name);

#endif
