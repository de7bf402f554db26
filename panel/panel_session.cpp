// The runtime's part.
#include "panel_session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGraphicsItem>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTimer>

namespace {

constexpr int RELOAD_REGISTER = 4; // "LWF" 4 asks all sheets to reload
const QJsonObject NOTHING_PENDING = {{QString::fromLatin1("cells"), QJsonArray()},
                                     {QString::fromLatin1("titles"), QJsonArray()}};
constexpr int MOST_ANNOUNCED = 500;
constexpr int POLL_MILLISECONDS = 2; // a worker's end raises no event of its own

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

/// "0,-1,LW,60803" and the like.
QPair<QString, int> registerOf(const QString& address)
{
    return {address.section(QLatin1Char(','), 2, 2), address.section(QLatin1Char(','), 3, 3).toInt()};
}

} // namespace

PanelSession::PanelSession(Panel& panel, PanelScreen& screen, EventLog& log)
    : m_panel(panel), m_screen(screen), m_log(log)
{
    Runtime::instance().setListener(this);
    Runtime::instance().registers().setListener(this);
    qApp->installEventFilter(this);
    for (const Panel::Item& item : m_panel.items()) {
        for (const QString& address : Runtime::instance().watched(item.item))
            m_registers.insert(registerOf(address));
    }
}

PanelSession::~PanelSession()
{
    qApp->removeEventFilter(this);
    Runtime::instance().registers().setListener(nullptr);
    Runtime::instance().setListener(nullptr);
}

// --- items -------------------------------------------------------------------------------------------------------

ItemState PanelSession::state(const Panel::Item& item)
{
    // Items bring their visible texts up to date when they are painted.
    m_screen.view().viewport()->repaint();
    return ItemState(item.plugin->describe(item.item));
}

bool PanelSession::isBusy() const
{
    for (const Panel::Item& item : m_panel.items()) {
        if (ItemState(item.plugin->describe(item.item)).isBusy())
            return true;
    }
    return false;
}

void PanelSession::waitForWorkers()
{
    QTimer tick; // so that waiting for events never lasts
    tick.start(POLL_MILLISECONDS);
    while (isBusy())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Panel::settle(); // what the worker posted at last
}

const Panel::Item* PanelSession::touched() const
{
    for (const Panel::Item& item : m_panel.items()) {
        if (item.item == m_touched)
            return &item;
    }
    return nullptr;
}

// --- registers ---------------------------------------------------------------------------------------------------

QMap<QPair<QString, int>, int> PanelSession::knownRegisters() const
{
    QMap<QPair<QString, int>, int> result;
    for (const auto& known : m_registers) {
        if (known.first != text("LWF")) // notifications hold no value
            result.insert(known, word(known.first, known.second));
    }
    return result;
}

int PanelSession::word(const QString& type, int address) const
{
    return Runtime::instance().registers().word(type, address);
}

bool PanelSession::force(const QString& type, int address, int value)
{
    Runtime::instance().registers().setWord(type, address, value);
    return true;
}

void PanelSession::wordRead(int address, int value)
{
    m_registers.insert({text("LW"), address});
    m_log.write("read", {{text("register"), text("LW")}, {text("address"), address}, {text("value"), value}});
}

void PanelSession::wordWritten(const QString& registerType, int address, int oldValue, int newValue)
{
    m_registers.insert({registerType, address});
    m_log.write("write", {{text("register"), registerType},
                          {text("address"), address},
                          {text("old"), oldValue},
                          {text("new"), newValue}});
    if (newValue != oldValue)
        Q_EMIT changed(registerType, address, newValue);
}

// --- sending recipes ---------------------------------------------------------------------------------------------

bool PanelSession::sendRecipe()
{
    RecipeTransfer transfer(Runtime::instance().registers());
    bool isSent = false;
    if (isBusy()) {
        transfer.refuseWhileBusy();
    } else if (transfer.prepare(m_panel.recipeLoader())) {
        announce(transfer);
        isSent = transfer.send();
    }
    m_lastTransfer = transfer.description();
    m_log.write("transfer", m_lastTransfer);
    messageBox(transfer.message(), 0, 0);
    if (isSent && hasPending())
        messageBox(tr("Changes that are not saved were not sent."), 0, 0);
    return isSent;
}

/// Whoever watches registers can take them up before they change. A recipe may have thousands; nobody looks at those.
void PanelSession::announce(const RecipeTransfer& transfer)
{
    int left = MOST_ANNOUNCED;
    for (const RecipeTransfer::Value& value : transfer.values()) {
        const QString type = Runtime::instance().registers().typeOf(value.write.deviceName, value.write.registerType);
        for (int i = 0; i < value.write.words.size() && left > 0; ++i, --left) {
            const QString name = i == 0 ? value.name : text("%1 +%2").arg(value.name, QString::number(i));
            Q_EMIT recipeRegister(type, value.write.address + i, name);
        }
    }
}

bool PanelSession::setLink(const QString& device, bool up)
{
    if (!m_panel.setLink(device, up))
        return false;
    m_log.write("link", {{text("device"), device}, {text("up"), up}});
    Q_EMIT linkChanged(device, up);
    return true;
}

// --- requests ----------------------------------------------------------------------------------------------------

void PanelSession::messageBox(const QString& message, int value1, int value2)
{
    m_log.write("message", {{text("text"), message}, {text("values"), QJsonArray{value1, value2}}});
    m_messages.append(message);
    m_screen.notices().post(message);
}

void PanelSession::externalCall(const QString& function, quintptr argument)
{
    if (function == text("showKeyboardWindow")) {
        openKeyboard(argument);
        return;
    }
    logSaves();
    m_log.write("request", {{text("function"), function}, {text("argument"), static_cast<qint64>(argument)}});
    if (function == text("reload_recipe"))
        SendLWFRegMessage(RELOAD_REGISTER);
}

void PanelSession::touchSound(QGraphicsItem* item)
{
    Q_UNUSED(item)
    m_log.write("sound");
    m_screen.tick().tick(m_lastTouch);
}

void PanelSession::openKeyboard(quintptr argument)
{
    const InterfaceAll* call = reinterpret_cast<const InterfaceAll*>(argument);
    if (!call || call->callArguments.isEmpty())
        return;
    const KeyboardParameters asked = *static_cast<const KeyboardParameters*>(call->callArguments.last());
    m_askedLast = asked;
    m_log.write("request", {{text("function"), text("showKeyboardWindow")},
                            {text("current"), asked.currentText},
                            {text("minimum"), asked.minimum},
                            {text("maximum"), asked.maximum},
                            {text("decimals"), asked.decimalPlaces},
                            {text("text"), asked.textEntry}});
    InterfaceAll* receiver = asked.receiver ? asked.receiver : static_cast<InterfaceAll*>(m_touched);
    if (!receiver)
        return; // nobody to answer
    const ItemState shown = touched() ? state(*touched()) : ItemState();
    const QRectF cell = touched() ? m_touched->mapRectToScene(shown.selectionRect()) : QRectF();
    OnScreenKeyboard& keyboard =
        m_screen.openKeyboard(asked, shown.selectionLabel(), m_screen.view().mapFromScene(cell).boundingRect());
    connect(&keyboard, &OnScreenKeyboard::accepted, this,
            [this, receiver, asked](const QString& typed) { takeText(receiver, asked, typed); });
    connect(&keyboard, &OnScreenKeyboard::cancelled, this, [this] { m_log.write("cancel"); });
}

void PanelSession::takeText(InterfaceAll* receiver, const KeyboardParameters& asked, const QString& typed)
{
    m_log.write("edit", {{text("old"), asked.currentText}, {text("new"), typed}});
    receiver->keyboardReflash(typed);
    m_pending = pendingNow();
    m_screen.view().viewport()->update();
}

bool PanelSession::answer(bool yes)
{
    QMessageBox* box = PanelScreen::confirmation();
    QAbstractButton* button = box ? box->button(yes ? QMessageBox::Yes : QMessageBox::No) : nullptr;
    if (!button)
        return false;
    button->click();
    return true;
}

// --- touches and confirmations -----------------------------------------------------------------------------------

bool PanelSession::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (QMessageBox* box = qobject_cast<QMessageBox*>(watched))
            confirmationOpened(box);
        return false;
    }
    if (watched != m_screen.view().viewport())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        logTouch(*static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return false;
}

void PanelSession::logTouch(const QMouseEvent& event)
{
    const bool isMove = event.type() == QEvent::MouseMove;
    if (isMove && !(event.buttons() & Qt::LeftButton))
        return;
    const bool isRelease = event.type() == QEvent::MouseButtonRelease;
    m_lastTouch = event.pos();
    if (!isMove && !isRelease) {
        m_touched = nullptr;
        for (const Panel::Item& item : m_panel.items()) {
            if (item.item->sceneBoundingRect().contains(m_screen.view().mapToScene(event.pos())))
                m_touched = item.item;
        }
    }
    const QString name = touched() ? touched()->name : QString();
    m_log.write(isMove      ? "move"
                : isRelease ? "release"
                            : "press",
                {{text("x"), event.pos().x()}, {text("y"), event.pos().y()}, {text("item"), name}});
}

QJsonObject PanelSession::pendingNow() const
{
    QJsonObject result;
    for (const Panel::Item& item : m_panel.items()) {
        const ItemState shown(item.plugin->describe(item.item));
        result.insert(item.name,
                      QJsonObject{{text("cells"), shown.pendingCells()}, {text("titles"), shown.pendingTitles()}});
    }
    return result;
}

bool PanelSession::hasPending() const
{
    for (const QJsonValue& item : pendingNow()) {
        if (item != NOTHING_PENDING)
            return true;
    }
    return false;
}

/// Edits that were pending after the last entry and are gone now have been saved.
void PanelSession::logSaves()
{
    const QJsonObject before = m_pending;
    m_pending = pendingNow();
    for (auto item = before.constBegin(); item != before.constEnd(); ++item) {
        if (item.value() == NOTHING_PENDING || m_pending.value(item.key()) != NOTHING_PENDING)
            continue;
        QJsonObject saved = item.value().toObject();
        saved.insert(text("item"), item.key());
        m_log.write("save", saved);
    }
}

void PanelSession::confirmationOpened(QMessageBox* box)
{
    m_log.write("confirmation", {{text("title"), box->windowTitle()}, {text("text"), box->text()}});
    const QRect screen(m_screen.mapToGlobal(QPoint()), m_screen.size());
    QRect place(QPoint(), box->sizeHint());
    place.moveCenter(screen.center());
    box->move(place.topLeft());
    connect(box, &QDialog::finished, this, [this](int result) {
        m_log.write("answer", {{text("yes"), result != QMessageBox::No}});
    });
}
