// The command lines of looking at plug-ins.
#include "inspection_program.h"

#include "headless.h"
#include "panel_program.h"
#include "probe.h"
#include "project_folder.h"
#include "validation.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int TIME_LIMIT = 120; ///< seconds; a machine that is busy needs some

QString path(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

void print(const QString& line)
{
    std::printf("%s\n", line.toLocal8Bit().constData());
    std::fflush(stdout);
}

void print(const QJsonObject& object)
{
    std::printf("%s", QJsonDocument(object).toJson().constData());
}

/// Nothing: go on; else the exit code.
std::optional<int> parse(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(argc - 1, argv + 1);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : EXIT_FAULTY;
    }
    return std::nullopt;
}

int runProbe(int argc, char** argv)
{
    CLI::App app("Says what a file is and whether this panel could load it as a plug-in, before a line of its code "
                 "runs.\nExample: recipe-panel probe libLamp.so",
                 "recipe-panel probe");
    std::string file;
    bool json = false;
    app.add_option("file", file, "The library")->required()->type_name("FILE");
    app.add_flag("--json", json, "As JSON");
    if (const auto code = parse(app, argc, argv))
        return *code;
    const Probe probe(path(file));
    if (json)
        print(probe.json());
    else
        print(probe.paragraph());
    return probe.isPlugin() ? 0 : EXIT_FAILED;
}

// --- validate ----------------------------------------------------------------------------------------------------

struct Arguments
{
    std::string file;
    std::string project;
    std::vector<std::string> only;
    std::string alone;
    int seconds = 10;
    int timeLimit = TIME_LIMIT;
    unsigned seed = 1;
    bool changeFiles = false;
    bool list = false;
    bool json = false;
};

void declare(CLI::App& app, Arguments& arguments)
{
    CLI::Option* file = app.add_option("file", arguments.file, "The library")->type_name("FILE");
    app.add_flag("--list", arguments.list, "Tell the checks, and do nothing");
    app.add_option("--only", arguments.only, "This check only; may be given several times")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->needs(file);
    app.add_option("--project", arguments.project,
                   "A project whose items are checked; without it one item without properties, over the whole panel")
        ->type_name("PROJECT.json");
    app.add_option("--seconds", arguments.seconds, "How long random taps go on (10)")->check(CLI::Range(1, 86400));
    app.add_option("--seed", arguments.seed, "Of the random taps (1)");
    app.add_option("--time-limit", arguments.timeLimit, "Seconds after which a check hangs (120)")
        ->check(CLI::Range(1, 86400));
    app.add_flag("--change-files", arguments.changeFiles,
                 "Random taps may change and delete what /usr/tabrix/project holds");
    app.add_flag("--json", arguments.json, "As JSON");
    app.add_option("--alone", arguments.alone)->group(""); // the program's own: one check, in this process
}

void listChecks(bool json)
{
    QJsonArray checks;
    for (const ValidationCheck& check : validationChecks()) {
        const QString name = QString::fromLatin1(check.name);
        const QString purpose = QString::fromLatin1(check.purpose);
        checks.append(QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("purpose"), purpose}});
        if (!json)
            print(QStringLiteral("%1 %2").arg(name, -16).arg(purpose));
    }
    if (json)
        print(QJsonObject{{QStringLiteral("checks"), checks}});
}

/// Nothing, and a sentence on standard error: there is no check of a name.
std::optional<QStringList> chosenChecks(const std::vector<std::string>& only)
{
    QStringList names;
    for (const std::string& name : only)
        names.append(QString::fromLocal8Bit(name.c_str()));
    names.removeDuplicates();
    for (const QString& name : names) {
        if (validationCheck(name))
            continue;
        std::fprintf(stderr, "There is no check \"%s\"; --list tells their names.\n", name.toLocal8Bit().constData());
        return std::nullopt;
    }
    for (const ValidationCheck& check : validationChecks()) {
        if (only.empty())
            names.append(QString::fromLatin1(check.name));
    }
    return names;
}

/// Random taps save, add and delete: nobody may lose recipes by looking at a library. Tells what is in the way.
bool wouldChangeFiles(const QStringList& names, const Arguments& arguments)
{
    const QString folder = QString::fromLatin1(PROJECT_FOLDER);
    const QStringList files = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    if (arguments.changeFiles || files.isEmpty() || !names.contains(QLatin1String(RANDOM_TAPS)))
        return false;
    const QString told = QStringLiteral("%1 holds %2%3, and random taps would change it. Run this in a copy of the "
                                        "folder (with-project-dir COPY recipe-panel ...) with --change-files, or "
                                        "choose other checks with --only. Nothing was run.")
                             .arg(folder, files.first(), files.size() > 1 ? QStringLiteral(" and more") : QString());
    std::fprintf(stderr, "%s\n", told.toLocal8Bit().constData());
    return true;
}

void tell(const ValidationResult& result)
{
    print(QStringLiteral("%1 %2 %3 s")
              .arg(result.passed() ? QStringLiteral("ok  ") : QStringLiteral("FAIL"))
              .arg(result.name, -16)
              .arg(result.seconds, 6, 'f', 1));
    if (result.passed())
        return;
    print(QStringLiteral("     ") + result.failure);
    for (const QString& line : result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        print(QStringLiteral("     | ") + line);
}

int runChecks(const QStringList& names, const ValidationSettings& settings, const Arguments& arguments)
{
    int failed = 0;
    QJsonArray results;
    Validation(settings, arguments.timeLimit).run(names, [&](const ValidationResult& result) {
        failed += result.passed() ? 0 : 1;
        results.append(result.json());
        if (!arguments.json)
            tell(result);
    });
    const int passed = static_cast<int>(names.size()) - failed;
    if (arguments.json)
        print(QJsonObject{{QStringLiteral("file"), settings.library},
                          {QStringLiteral("checks"), results},
                          {QStringLiteral("passed"), passed},
                          {QStringLiteral("failed"), failed}});
    else
        print(QStringLiteral("%1 passed, %2 failed").arg(passed).arg(failed));
    return failed == 0 ? 0 : EXIT_FAILED;
}

int runAlone(const Arguments& arguments, const ValidationSettings& settings, int& argc, char** argv)
{
    const ValidationCheck* const check = validationCheck(QString::fromLocal8Bit(arguments.alone.c_str()));
    if (!check)
        return EXIT_FAULTY;
    goHeadless();
    QApplication application(argc, argv);
    return Validation::runAlone(*check, settings);
}

int runValidate(int argc, char** argv)
{
    CLI::App app("Plays the runtime's contract with a plug-in: each check in a process of its own, so that a crash is "
                 "a failed check.\nExample: recipe-panel validate libLamp.so --only random-taps",
                 "recipe-panel validate");
    Arguments arguments;
    declare(app, arguments);
    if (const auto code = parse(app, argc, argv))
        return *code;
    if (arguments.list) {
        listChecks(arguments.json);
        return 0;
    }
    if (arguments.file.empty()) {
        std::fprintf(stderr, "Name the library to be checked, or give --list.\n");
        return EXIT_FAULTY;
    }
    ValidationSettings settings;
    settings.library = QFileInfo(path(arguments.file)).absoluteFilePath();
    settings.project = path(arguments.project);
    settings.seconds = arguments.seconds;
    settings.seed = arguments.seed;
    int own = 1;
    if (!arguments.alone.empty())
        return runAlone(arguments, settings, own, argv);
    const auto names = chosenChecks(arguments.only);
    if (!names || wouldChangeFiles(*names, arguments))
        return EXIT_FAULTY;
    QCoreApplication application(own, argv);
    return runChecks(*names, settings, arguments);
}

} // namespace

std::optional<int> runInspection(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "probe") == 0)
        return runProbe(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "validate") == 0)
        return runValidate(argc, argv);
    return std::nullopt;
}
