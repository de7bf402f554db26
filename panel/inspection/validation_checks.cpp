// What a panel's runtime does with a plug-in, as checks.
#include "validation_checks.h"

#include "event_log.h"
#include "panel.h"
#include "panel_screen.h"
#include "panel_session.h"
#include "probe.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <dlfcn.h>

#include <memory>
#include <random>

namespace {

constexpr int ROUNDS = 20; ///< of creation and destruction
constexpr int CHANGED = 4; ///< the mask of update_result for a changed register

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

// --- what the checks share ---------------------------------------------------------------------------------------

/// The library's own functions, without a panel around them.
struct Functions
{
    explicit Functions(const QString& fileName)
        : handle(dlopen(QFile::encodeName(fileName).constData(), RTLD_NOW | RTLD_LOCAL))
    {
        const auto& points = pluginEntryPoints();
        if (!handle)
            return;
        getItemName = reinterpret_cast<QString (*)()>(dlsym(handle, points[0].name));
        createItem = reinterpret_cast<HMIBaseItem* (*)()>(dlsym(handle, points[1].name));
        createObject = reinterpret_cast<object* (*)(QString, QString)>(dlsym(handle, points[2].name));
    }

    /// Empty where all are there.
    QString problem() const
    {
        if (!handle)
            return text("the library cannot be loaded (%1)").arg(QString::fromLocal8Bit(dlerror()));
        return getItemName && createItem && createObject ? QString() : text("an entry point is missing; see \"probe\"");
    }

    void* handle;
    QString (*getItemName)() = nullptr;
    HMIBaseItem* (*createItem)() = nullptr;
    object* (*createObject)(QString, QString) = nullptr;
};

/// A picture of an item as the panel would draw it.
void paint(HMIBaseItem& item)
{
    QImage image(800, 480, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    item.paint(&painter, nullptr, nullptr);
}

/// What an item needs where its plug-in states its properties: numbers that have no usable default, and every switch
/// on, so that there is something to tap.
QJsonObject plainProperties(const QString& rulesFile)
{
    QStringList problems;
    ItemTypeRules rules;
    QJsonObject properties;
    if (!QFile::exists(rulesFile) || !rules.load(rulesFile, problems))
        return properties;
    for (const PropertyRule& rule : rules.rules) {
        const int fallback = rule.fallback.toInt();
        if (rule.place != PropertyRule::ITEM || rule.type != PropertyRule::NUMBER)
            continue;
        if (rule.minimum == 0 && rule.maximum == 1)
            properties.insert(rule.key, 1);
        else if (fallback < rule.minimum || fallback > rule.maximum)
            properties.insert(rule.key, qBound(rule.minimum, 6, rule.maximum));
    }
    return properties;
}

/// One item over the whole panel.
QJsonObject plainProject(const QString& library)
{
    QString problem;
    const std::unique_ptr<PluginLibrary> plugin(PluginLibrary::load(library, problem));
    if (!plugin)
        return QJsonObject(); // opening the panel tells the problem
    const QJsonObject item{{text("type"), plugin->typeName()},
                           {text("name"), text("item")},
                           {text("x"), 0},
                           {text("y"), 0},
                           {text("width"), 800},
                           {text("height"), 480},
                           {text("properties"), plainProperties(plugin->propertiesFileName())}};
    return QJsonObject{{text("panel"), QJsonObject{{text("width"), 800}, {text("height"), 480}}},
                       {text("items"), QJsonArray{item}}};
}

/// A panel with the items to be checked.
class Bench
{
public:
    explicit Bench(const ValidationSettings& settings) : m_log(m_clock)
    {
        if (!m_panel.loadPlugin(settings.library) || !m_panel.open(projectFile(settings), 0)
            || !m_panel.problems().isEmpty() || m_panel.items().empty()) {
            m_problem = m_panel.problems().isEmpty() ? text("the project shows no item")
                                                     : m_panel.problems().join(QLatin1Char(' '));
            return;
        }
        m_screen = std::make_unique<PanelScreen>(&m_panel.scene(), m_panel.settings(), m_clock);
        m_session = std::make_unique<PanelSession>(m_panel, *m_screen, m_log);
        m_screen->show();
        Panel::settle();
    }

    ~Bench()
    {
        if (m_session)
            m_session->waitForWorkers();
        m_session.reset();
        m_panel.close();
        m_screen.reset();
    }

    const QString& problem() const { return m_problem; }
    Panel& panel() { return m_panel; }
    PanelScreen& screen() { return *m_screen; }
    PanelSession& session() { return *m_session; }

private:
    /// The given project, or one that shows one item over the whole panel.
    QString projectFile(const ValidationSettings& settings)
    {
        if (!settings.project.isEmpty())
            return settings.project;
        QFile file(m_folder.filePath(text("project.json")));
        if (file.open(QIODevice::WriteOnly))
            file.write(QJsonDocument(plainProject(settings.library)).toJson());
        return file.fileName();
    }

    QTemporaryDir m_folder;
    WallClock m_clock;
    EventLog m_log;
    Panel m_panel;
    QString m_problem;
    std::unique_ptr<PanelScreen> m_screen;
    std::unique_ptr<PanelSession> m_session;
};

// --- the checks --------------------------------------------------------------------------------------------------

QString probe(const ValidationSettings& settings)
{
    const Probe probe(settings.library);
    return probe.isPlugin() ? QString() : probe.paragraph();
}

QString names(const ValidationSettings& settings)
{
    const Functions functions(settings.library);
    if (!functions.problem().isEmpty())
        return functions.problem();
    const QString name = functions.getItemName();
    if (name.isEmpty())
        return text("getItemName() gives an empty text; projects name the type by it");
    for (int i = 0; i < ROUNDS; ++i) {
        if (functions.getItemName() != name)
            return text("getItemName() gives \"%1\" and then \"%2\"").arg(name, functions.getItemName());
    }
    return QString();
}

QString propertyObject(const ValidationSettings& settings)
{
    const Functions functions(settings.library);
    if (!functions.problem().isEmpty())
        return functions.problem();
    object* const created = functions.createObject(functions.getItemName(), text("first lamp"));
    if (!created)
        return text("item_object_create(type, \"first lamp\") gives null");
    std::unique_ptr<object> owned(Runtime::instance().release(created));
    if (owned->name != text("first lamp"))
        return text("item_object_create(type, \"first lamp\") makes an object named \"%1\"").arg(owned->name);
    return QString();
}

QString creation(const ValidationSettings& settings)
{
    const Functions functions(settings.library);
    if (!functions.problem().isEmpty())
        return functions.problem();
    for (int i = 0; i < ROUNDS; ++i) {
        const std::unique_ptr<HMIBaseItem> first(functions.createItem());
        std::unique_ptr<HMIBaseItem> second(functions.createItem());
        if (!first || !second)
            return text("createItem() gives null");
        if (first == second) {
            second.release();
            return text("createItem() gives the same item twice; the runtime owns each");
        }
    }
    return QString();
}

QString callingOrder(const ValidationSettings& settings)
{
    Bench bench(settings);
    if (!bench.problem().isEmpty())
        return bench.problem();
    for (const Panel::Item& shown : bench.panel().items()) {
        if (shown.item->boundingRect().isEmpty())
            return text("the item \"%1\" has an empty bounding rectangle after its start").arg(shown.name);
        paint(*shown.item);
        for (const QString& address : Runtime::instance().watched(shown.item))
            Runtime::instance().notify(address);
        Panel::settle();
        shown.item->update_result(CHANGED);
        shown.item->update_close();
        paint(*shown.item);
    }
    return QString();
}

QString emptyInterface(const ValidationSettings& settings)
{
    const Functions functions(settings.library);
    if (!functions.problem().isEmpty())
        return functions.problem();
    object* const properties = Runtime::instance().adopt(new object(text("item")));
    for (const QList<void*>& interfaces : {QList<void*>(), QList<void*>{nullptr}}) {
        const std::unique_ptr<HMIBaseItem> item(functions.createItem());
        Runtime::place(item.get(), properties);
        item->getRequirement();
        item->setInterfaceByRequirement(interfaces);
        QStringList addresses;
        QList<KEY_ADDRESS> keys;
        item->getMonitorAddr(addresses, keys);
        paint(*item);
        item->update_result(CHANGED);
    }
    return QString();
}

QString noProperties(const ValidationSettings& settings)
{
    const Functions functions(settings.library);
    if (!functions.problem().isEmpty())
        return functions.problem();
    const std::unique_ptr<HMIBaseItem> item(functions.createItem());
    Runtime::place(item.get(), nullptr);
    if (!Runtime::instance().start(item.get()))
        return text("the item requires \"%1\", which this runtime does not have").arg(item->getRequirement());
    paint(*item);
    item->update_result(CHANGED);
    paint(*item);
    Panel::settle();
    return QString();
}

/// Presses, drags and releases anywhere, answers keyboards and boxes at random.
class RandomTaps
{
public:
    RandomTaps(Bench& bench, unsigned seed) : m_bench(bench), m_random(seed)
    {
        // A box holds the tap that opened it: only a timer gets in.
        QObject::connect(&m_answers, &QTimer::timeout, [this] { m_bench.session().answer(number(2) == 0); });
        m_answers.start(10);
    }

    void tap()
    {
        if (OnScreenKeyboard* const keyboard = m_bench.screen().keyboard()) {
            type(*keyboard);
            return;
        }
        const QPoint pressed = point();
        send(QEvent::MouseButtonPress, pressed, Qt::LeftButton);
        const QPoint released = number(4) == 0 ? point() : pressed;
        if (released != pressed)
            send(QEvent::MouseMove, released, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, released, Qt::NoButton);
    }

private:
    int number(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }

    QPoint point()
    {
        const QSize size = m_bench.screen().view().size();
        return QPoint(number(size.width()), number(size.height()));
    }

    void send(QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
    {
        QWidget* const glass = m_bench.screen().view().viewport();
        QMouseEvent event(type, at, at, glass->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(glass, &event);
    }

    void type(OnScreenKeyboard& keyboard)
    {
        static const char* const texts[] = {"0", "1", "-2.5", "99999999", "", "a'b\"c", "0x10", "1e9"};
        const QString typed = QString::fromUtf8(texts[number(8)]);
        if (number(5) == 0 || !keyboard.acceptText(typed))
            keyboard.cancel();
    }

    Bench& m_bench;
    std::mt19937 m_random;
    QTimer m_answers;
};

QString randomTaps(const ValidationSettings& settings)
{
    Bench bench(settings);
    if (!bench.problem().isEmpty())
        return bench.problem();
    RandomTaps taps(bench, settings.seed);
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 1000LL * settings.seconds) {
        taps.tap();
        Panel::settle();
        bench.screen().picture();
    }
    return QString();
}

QString destruction(const ValidationSettings& settings)
{
    for (int i = 0; i < ROUNDS; ++i) {
        Bench bench(settings);
        if (!bench.problem().isEmpty())
            return bench.problem();
        for (const Panel::Item& shown : bench.panel().items()) { // on their way when the items go
            for (const QString& address : Runtime::instance().watched(shown.item))
                Runtime::instance().notify(address);
        }
    }
    Panel::settle();
    return QString();
}

/// The library's code goes; whatever of it is still in use is called or read here.
QString unload(const ValidationSettings& settings)
{
    for (int i = 0; i < ROUNDS; ++i) {
        const Functions functions(settings.library);
        if (!functions.problem().isEmpty())
            return functions.problem();
        QString name = functions.getItemName();
        name.clear();
        {
            const std::unique_ptr<HMIBaseItem> item(functions.createItem());
            Runtime::place(item.get(), nullptr);
            Runtime::instance().start(item.get());
            paint(*item);
            Panel::settle();
        }
        Panel::settle();
        if (dlclose(functions.handle) != 0)
            return text("dlclose fails (%1)").arg(QString::fromLocal8Bit(dlerror()));
        Panel::settle();
    }
    return QString();
}

} // namespace

const QVector<ValidationCheck>& validationChecks()
{
    static const QVector<ValidationCheck> checks{
        {"probe", "what the file is, read without running a line of it", probe},
        {"names", "getItemName() gives the same name every time, without an item", names},
        {"property-object", "item_object_create(type, name) makes a property object of that name", propertyObject},
        {"creation", "createItem() makes items that their owner can delete", creation},
        {"calling-order", "an item is started, painted, told of registers and closed, in a panel's order",
         callingOrder},
        {"empty-interface", "an item that gets no interface at all, or a null one", emptyInterface},
        {"no-properties", "an item that has no property object", noProperties},
        {RANDOM_TAPS, "seconds of taps and drags anywhere, with what they open answered at random", randomTaps},
        {"destruction", "panels opened and closed again while notifications are on their way", destruction},
        {"unload", "the library loaded, used and unloaded, many times", unload},
    };
    return checks;
}

const ValidationCheck* validationCheck(const QString& name)
{
    for (const ValidationCheck& check : validationChecks()) {
        if (name == text(check.name))
            return &check;
    }
    return nullptr;
}
