// Restart by replacing the process.
#include "restart.h"

#include <QFile>

#include <sys/mman.h>
#include <unistd.h>

#include <vector>

namespace {

const QChar SEPARATOR = QLatin1Char(' ');

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

/// The script in a file without a name, which the new process inherits.
int keepScript(const QByteArray& script)
{
    const int file = memfd_create("script", 0);
    if (file < 0 || write(file, script.constData(), static_cast<std::size_t>(script.size())) != script.size()
        || lseek(file, 0, SEEK_SET) != 0)
        return -1;
    return file;
}

QStringList argumentsOf(const PanelOptions& options, const QString& resume)
{
    QStringList arguments = {text("recipe-panel"), options.project, text("--resume"), resume};
    for (const QString& plugin : options.plugins)
        arguments += {text("--plugin"), plugin};
    const auto add = [&arguments](const char* name, const QString& value) {
        if (!value.isEmpty())
            arguments += {text(name), value};
    };
    add("--script", options.script);
    add("--log", options.log);
    add("--output", options.output);
    if (options.language > 0)
        add("--language", QString::number(options.language));
    if (options.window)
        arguments += text("--window");
    return arguments;
}

} // namespace

void startAgain(const PanelOptions& options, const QByteArray& script, const ScriptPosition& from)
{
    const int file = keepScript(script);
    if (file < 0)
        return;
    const QStringList state = {QString::number(file), QString::number(from.step), QString::number(from.time),
                               QString::number(from.language), from.item};
    std::vector<QByteArray> arguments;
    for (const QString& argument : argumentsOf(options, state.join(SEPARATOR)))
        arguments.push_back(QFile::encodeName(argument));
    std::vector<char*> pointers;
    for (QByteArray& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv("/proc/self/exe", pointers.data());
}

bool resumeScript(const QString& resume, const QString& scriptName, Script& script, QByteArray& scriptText,
                  ScriptPosition& from)
{
    QFile file;
    if (!file.open(resume.section(SEPARATOR, 0, 0).toInt(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return false;
    scriptText = file.readAll();
    from.step = resume.section(SEPARATOR, 1, 1).toInt();
    from.time = resume.section(SEPARATOR, 2, 2).toLongLong();
    from.language = resume.section(SEPARATOR, 3, 3).toInt();
    from.item = resume.section(SEPARATOR, 4);
    return script.parse(scriptName == text("-") ? text("standard input") : scriptName, QString::fromUtf8(scriptText));
}
