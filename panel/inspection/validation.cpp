// One process per check.
#include "validation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <sys/resource.h>

#include <cstdio>
#include <cstring>

namespace {

constexpr int LINES_OF_ERRORS = 12;

// How a check ends its output.
constexpr char VERDICT[] = "recipe-panel validate: ";
constexpr char PASSED_VERDICT[] = "passed";

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QString lastLines(const QByteArray& output)
{
    const QStringList lines = QString::fromLocal8Bit(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.mid(qMax(0, static_cast<int>(lines.size()) - LINES_OF_ERRORS)).join(QLatin1Char('\n'));
}

/// "SIGSEGV (Segmentation fault)".
QString signalName(int number)
{
    const char* const shortName = sigabbrev_np(number);
    return shortName ? text("SIG%1 (%2)").arg(text(shortName), QString::fromLocal8Bit(strsignal(number)))
                     : text("signal %1").arg(number);
}

/// What the check said at its end. Empty: it did not come to that. A library may print what it likes, also behind it.
QString verdictOf(const QByteArray& output)
{
    QString verdict;
    for (const QString& line : QString::fromLocal8Bit(output).split(QLatin1Char('\n'))) {
        if (line.startsWith(text(VERDICT)))
            verdict = line.mid(text(VERDICT).size());
    }
    return verdict;
}

/// Sees to the way a process ended. The code alone says nothing: a library may leave the process with any.
void judge(QProcess& process, ValidationResult& result)
{
    const QString verdict = verdictOf(process.readAllStandardOutput());
    if (process.exitStatus() == QProcess::CrashExit) {
        result.signal = process.exitCode();
        result.failure = text("crashed with %1").arg(signalName(result.signal));
    } else if (process.exitCode() == Validation::FAILED && !verdict.isEmpty() && verdict != text(PASSED_VERDICT)) {
        result.failure = verdict;
    } else if (process.exitCode() != Validation::PASSED || verdict != text(PASSED_VERDICT)) {
        result.failure = text("ended the process with code %1").arg(process.exitCode());
    }
}

} // namespace

QJsonObject ValidationResult::json() const
{
    QJsonObject object{{text("name"), name}, {text("passed"), passed()}, {text("seconds"), seconds}};
    if (passed())
        return object;
    object.insert(text("failure"), failure);
    if (signal != 0)
        object.insert(text("signal"), signal);
    object.insert(text("errors"), errors);
    return object;
}

void Validation::run(const QStringList& names, const std::function<void(const ValidationResult&)>& tell) const
{
    for (const QString& name : names)
        tell(runOne(name));
}

QStringList Validation::arguments(const QString& name) const
{
    QStringList arguments{text("validate"),  m_settings.library,
                          text("--alone"),   name,
                          text("--seconds"), QString::number(m_settings.seconds),
                          text("--seed"),    QString::number(m_settings.seed)};
    if (!m_settings.project.isEmpty())
        arguments << text("--project") << m_settings.project;
    return arguments;
}

ValidationResult Validation::runOne(const QString& name) const
{
    ValidationResult result;
    result.name = name;
    QProcess process;
    QElapsedTimer time;
    time.start();
    process.start(QCoreApplication::applicationFilePath(), arguments(name), QIODevice::ReadOnly);
    if (process.waitForFinished(1000 * (m_timeLimit + m_settings.seconds))) {
        judge(process, result);
    } else if (process.state() == QProcess::NotRunning) {
        result.failure = text("could not be run (%1)").arg(process.errorString());
    } else {
        process.kill();
        process.waitForFinished(-1);
        result.failure = text("did not come to an end within %1 s").arg(m_timeLimit + m_settings.seconds);
    }
    result.seconds = static_cast<double>(time.elapsed()) / 1000;
    result.errors = lastLines(process.readAllStandardError());
    return result;
}

int Validation::runAlone(const ValidationCheck& check, const ValidationSettings& settings)
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);                            // a crash is told; nobody asked for a core file
    const QString failure = check.run(settings).simplified(); // a verdict is one line
    const QString verdict = failure.isEmpty() ? text(PASSED_VERDICT) : failure;
    std::printf("\n%s%s\n", VERDICT, verdict.toLocal8Bit().constData());
    std::fflush(stdout);
    return failure.isEmpty() ? PASSED : FAILED;
}
