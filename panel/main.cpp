// recipe-panel: a touch panel on the desk.
#include "headless.h"
#include "inspection_program.h"
#include "panel_program.h"
#include "project_file.h"
#include "script.h"

#include <QApplication>
#include <QFile>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <string>
#include <vector>

namespace {

/// The options as they come from the command line.
struct Arguments
{
    std::string project;
    std::vector<std::string> plugins;
    std::string screenshot;
    std::string script;
    std::string log;
    std::string output = ".";
    std::string resume;
    int language = 0;
    bool window = false;
};

void declare(CLI::App& app, Arguments& arguments)
{
    app.add_option("project", arguments.project, "The project file (JSON)")->required()->type_name("PROJECT.json");
    app.add_option("--plugin", arguments.plugins,
                   "A plug-in library, may be given several times; the default is libRecipeSheet.so of this build")
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--language", arguments.language, "Language instead of the project's")
        ->check(CLI::Range(1, ProjectFile::LANGUAGES));
    CLI::Option* screenshot =
        app.add_option("--screenshot", arguments.screenshot, "Write a picture of the panel without a display, and exit")
            ->type_name("FILE.png");
    CLI::Option* script = app.add_option("--script", arguments.script,
                                         "Play a script without a display, and exit; - reads standard input")
                              ->type_name("FILE")
                              ->excludes(screenshot);
    app.add_flag("--window", arguments.window, "Show the window while the script plays")->needs(script);
    app.add_option("--output", arguments.output, "Folder for the files that the script writes")
        ->type_name("DIR")
        ->needs(script);
    app.add_option("--log", arguments.log, "Write what happens as JSON lines; - is standard output")->type_name("FILE");
    app.add_option("--resume", arguments.resume)->group(""); // the program's own, after a restart
    app.add_flag_callback(
        "--script-help",
        [] {
            std::printf("%s", Script::help().toLocal8Bit().constData());
            throw CLI::Success();
        },
        "Tell the commands of scripts");
}

QString path(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

PanelOptions optionsOf(const Arguments& arguments)
{
    PanelOptions options;
    options.project = path(arguments.project);
    for (const std::string& plugin : arguments.plugins)
        options.plugins.append(path(plugin));
    options.screenshot = path(arguments.screenshot);
    options.script = path(arguments.script);
    options.log = path(arguments.log);
    options.output = path(arguments.output);
    options.resume = path(arguments.resume);
    options.language = arguments.language;
    options.window = arguments.window;
    return options;
}

bool hasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (const std::optional<int> code = runInspection(argc, argv))
        return *code;
    CLI::App app("A touch panel on the desk: loads plug-ins, opens a project and shows its items.", "recipe-panel");
    app.footer(
        "\"recipe-panel probe FILE\" says what a library is, \"recipe-panel validate FILE\" tries out whether it "
        "keeps\nthe contract of plug-ins; each has a --help of its own.");
    Arguments arguments;
    declare(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : EXIT_FAULTY;
    }
    const PanelOptions options = optionsOf(arguments);
    if (options.onDisplay() && !hasDisplay()) {
        std::fprintf(stderr, "There is no display for a window; --screenshot and --script do without.\n");
        return EXIT_FAULTY;
    }
    if (!options.onDisplay())
        goHeadless();
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0"); // a pixel of the panel is one of the screen; Qt 6 has no attribute
    int own = 1;                               // the rest is ours; Qt has an option "plugin" too
    QApplication application(own, argv);
    return runPanel(options);
}
