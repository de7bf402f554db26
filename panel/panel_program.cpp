// Putting the panel together.
#include "panel_program.h"

#include "confirm_box_look.h"
#include "panel_window.h"
#include "restart.h"
#include "script_player.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStyle>
#include <QStyleFactory>

#include <cstdio>
#include <memory>

namespace {

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

void tell(const QString& sentence)
{
    std::fprintf(stderr, "%s\n", sentence.toLocal8Bit().constData());
}

void tell(const QStringList& sentences)
{
    for (const QString& sentence : sentences)
        tell(sentence);
}

/// The library of the build or of the installation that this program belongs to.
QString defaultPlugin()
{
    const QDir here(QCoreApplication::applicationDirPath());
    for (const char* folder : {".", "../lib"}) {
        const QString fileName = QDir(here.filePath(text(folder))).filePath(text("libRecipeSheet.so"));
        if (QFileInfo::exists(fileName))
            return QDir::cleanPath(fileName);
    }
    return QDir::cleanPath(here.filePath(text(INSTALLED_PLUGIN_FOLDER "/libRecipeSheet.so")));
}

/// The same looks on every desk: one style, one font.
void pinLooks(double dpi)
{
    QApplication::setStyle(QStyleFactory::create(text("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QFont font(text("DejaVu Sans"));
    font.setPixelSize(15);
    QApplication::setFont(font);
    adaptConfirmBoxes(*qApp, dpi);
}

bool readScript(const QString& fileName, Script& script, QByteArray& contents)
{
    QFile file(fileName);
    const bool standardInput = fileName == text("-");
    if (standardInput ? !file.open(stdin, QIODevice::ReadOnly) : !file.open(QIODevice::ReadOnly)) {
        tell(text("%1: the script cannot be read (%2).").arg(fileName, file.errorString()));
        return false;
    }
    contents = file.readAll();
    if (script.parse(standardInput ? text("standard input") : fileName, QString::fromUtf8(contents)))
        return true;
    tell(script.problems());
    return false;
}

int savePicture(PanelScreen& screen, const QString& fileName)
{
    Panel::settle();
    if (screen.picture().save(fileName, "PNG"))
        return 0;
    tell(text("%1: the picture cannot be written; name a file in a folder that is yours.").arg(fileName));
    return EXIT_FAILED;
}

/// One run of the panel: what lives between its start and its end.
class PanelRun
{
public:
    explicit PanelRun(const PanelOptions& options) : m_options(options), m_log(clock()) {}

    int run()
    {
        if (!m_options.script.isEmpty() && !prepareScript())
            return EXIT_FAULTY;
        if (!openPanel() || !openLog())
            return EXIT_FAULTY;
        m_screen = std::make_unique<PanelScreen>(&m_panel.scene(), m_panel.settings(), clock());
        m_session = std::make_unique<PanelSession>(m_panel, *m_screen, m_log);
        m_log.write("start", {{text("items"), static_cast<int>(m_panel.items().size())}});
        const int code = show();
        end();
        return code;
    }

private:
    PanelClock& clock()
    {
        if (m_options.script.isEmpty())
            return m_wallClock;
        return m_manualClock;
    }

    bool prepareScript()
    {
        if (!m_options.resume.isEmpty())
            return resumeScript(m_options.resume, m_options.script, m_script, m_scriptText, m_from);
        return readScript(m_options.script, m_script, m_scriptText);
    }

    bool openPanel()
    {
        for (const QString& plugin : m_options.plugins.isEmpty() ? QStringList(defaultPlugin()) : m_options.plugins)
            m_panel.loadPlugin(plugin);
        const bool opened = m_panel.open(m_options.project, m_options.language);
        tell(m_panel.problems());
        if (!opened)
            return false;
        pinLooks(m_panel.settings().dpi);
        if (!m_translations.use(m_from.language > 0 ? m_from.language : Runtime::instance().language()))
            tell(m_translations.problems());
        return true;
    }

    bool openLog()
    {
        if (m_options.log.isEmpty() || m_log.open(m_options.log, !m_options.resume.isEmpty()))
            return true;
        tell(text("%1: the log cannot be written; name a file in a folder that is yours.").arg(m_options.log));
        return false;
    }

    int show()
    {
        if (!m_options.screenshot.isEmpty())
            return savePicture(*m_screen, m_options.screenshot);
        if (m_options.onDisplay()) {
            m_window = std::make_unique<PanelWindow>(*m_screen, *m_session, clock(), m_translations);
            m_window->setWindowTitle(QFileInfo(m_options.project).fileName());
            m_window->show();
        } else {
            m_screen->show();
        }
        return m_options.script.isEmpty() ? QApplication::exec() : play();
    }

    int play()
    {
        QDir().mkpath(m_options.output); // what cannot be made is told by the first file that is to go there
        ScriptPlayer player(m_script, {m_panel, *m_session, *m_screen, m_manualClock, m_translations, m_options.output,
                                       [this](const ScriptPosition& from, bool orderly) { restart(from, orderly); },
                                       m_window.get()});
        const QStringList unknown = player.unknownNames();
        if (!unknown.isEmpty()) {
            tell(unknown);
            return EXIT_FAULTY;
        }
        player.play(m_from);
        const int code = QApplication::exec();
        if (!player.failure().isEmpty())
            tell(player.failure());
        return code;
    }

    void restart(const ScriptPosition& from, bool orderly)
    {
        m_log.write(orderly ? "restart" : "power-cut");
        if (orderly) {
            m_session->waitForWorkers();
            m_session.reset();
            m_panel.close();
        }
        startAgain(m_options, m_scriptText, from);
    }

    /// A running job must not outlive its item.
    void end()
    {
        m_session->waitForWorkers();
        m_session.reset();
        m_panel.close();
        m_window.reset(); // gives the screen back
        m_screen.reset();
    }

    const PanelOptions& m_options;
    WallClock m_wallClock;
    ManualClock m_manualClock;
    EventLog m_log;
    Panel m_panel;
    Translations m_translations;
    Script m_script;
    QByteArray m_scriptText;
    ScriptPosition m_from;
    std::unique_ptr<PanelScreen> m_screen;
    std::unique_ptr<PanelSession> m_session;
    std::unique_ptr<PanelWindow> m_window;
};

} // namespace

int runPanel(const PanelOptions& options)
{
    return PanelRun(options).run();
}
