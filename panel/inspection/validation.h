// Runs the checks of `validate`, each in a process of its own, so that a crash is a failed check and the rest still
// runs. GUI-less; needs a QCoreApplication.
#ifndef VALIDATION_H
#define VALIDATION_H

#include "validation_checks.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>

struct ValidationResult
{
    QString name;
    QString failure; ///< one or more sentences' worth; empty: passed
    int signal = 0;  ///< that ended the process; 0: none
    QString errors;  ///< the last lines of what the process said on standard error
    double seconds = 0;

    bool passed() const { return failure.isEmpty(); }
    QJsonObject json() const;
};

class Validation
{
public:
    /// `timeLimit` in seconds: a check that takes longer hangs, and fails. Random taps get their own time on top.
    Validation(const ValidationSettings& settings, int timeLimit) : m_settings(settings), m_timeLimit(timeLimit) {}

    /// Runs them in order and tells each result as soon as it is there.
    void run(const QStringList& names, const std::function<void(const ValidationResult&)>& tell) const;

    /// The exit code of a process that runs one check: what `runAlone` returns.
    static constexpr int PASSED = 0;
    static constexpr int FAILED = 10; ///< not a number that sanitizers or shells use
    /// In the process of the check: runs it and prints as its last line that it passed or why it failed.
    static int runAlone(const ValidationCheck& check, const ValidationSettings& settings);

private:
    ValidationResult runOne(const QString& name) const;
    QStringList arguments(const QString& name) const;

    ValidationSettings m_settings;
    int m_timeLimit;
};

#endif
