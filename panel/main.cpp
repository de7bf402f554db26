// recipe-panel: a touch panel on the desk.
#include "panel.h"
#include "panel_view.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QStyle>
#include <QStyleFactory>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int EXIT_FAULTY = 2; // the command line or the project
constexpr int EXIT_FAILED = 1;

struct Options
{
    std::string project;
    std::vector<std::string> plugins;
    std::string screenshot;
    int language = 0;
};

QString path(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

void tell(const QString& sentence)
{
    std::fprintf(stderr, "%s\n", sentence.toLocal8Bit().constData());
}

void declare(CLI::App& app, Options& options)
{
    app.add_option("project", options.project, "The project file (JSON)")->required()->type_name("PROJECT.json");
    app.add_option("--plugin", options.plugins, "A plug-in library; the default is libRecipeSheet.so of this build")
        ->type_name("FILE");
    app.add_option("--screenshot", options.screenshot, "Write a picture of the panel without a display, and exit")
        ->type_name("FILE.png");
    app.add_option("--language", options.language, "Language of the items instead of the project's")
        ->check(CLI::Range(1, ProjectFile::LANGUAGES));
}

/// The library of the build that this program belongs to.
QString defaultPlugin()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString beside = here.filePath(QString::fromLatin1("libRecipeSheet.so"));
    return QFileInfo::exists(beside) ? beside
                                     : QDir::cleanPath(here.filePath(QString::fromLatin1("../lib/libRecipeSheet.so")));
}

/// The same looks on every desk: no scaling, one style, one font.
void pinLooks()
{
    QApplication::setStyle(QStyleFactory::create(QString::fromLatin1("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QFont font(QString::fromLatin1("DejaVu Sans"));
    font.setPixelSize(15);
    QApplication::setFont(font);
}

int tellProblems(const Panel& panel)
{
    for (const QString& problem : panel.problems())
        tell(problem);
    return EXIT_FAULTY;
}

int takeScreenshot(Panel& panel, const QString& fileName)
{
    Panel::settle();
    PanelView view(&panel.scene());
    if (view.picture().save(fileName, "PNG"))
        return 0;
    tell(
        QString::fromLatin1("%1: the picture cannot be written; name a file in a folder that is yours.").arg(fileName));
    return EXIT_FAILED;
}

int showWindow(Panel& panel, const QString& project)
{
    PanelView view(&panel.scene());
    view.setWindowTitle(QFileInfo(project).fileName());
    view.show();
    return QApplication::exec();
}

int run(const Options& options)
{
    Panel panel;
    if (options.plugins.empty())
        panel.loadPlugin(defaultPlugin());
    for (const std::string& plugin : options.plugins)
        panel.loadPlugin(path(plugin));
    const bool opened = panel.open(path(options.project), options.language);
    tellProblems(panel);
    if (!opened)
        return EXIT_FAULTY;
    return options.screenshot.empty() ? showWindow(panel, path(options.project))
                                      : takeScreenshot(panel, path(options.screenshot));
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("A touch panel on the desk: loads plug-ins, opens a project and shows its items.", "recipe-panel");
    Options options;
    declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : EXIT_FAULTY;
    }
    if (!options.screenshot.empty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    int own = 1; // the rest is ours; Qt has an option "plugin" too
    QApplication application(own, argv);
    pinLooks();
    return run(options);
}
