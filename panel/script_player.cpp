// Playing scripts: the order of steps, and the steps that change something.
#include "script_player.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTimer>

namespace {

constexpr qint64 TOUCH_TIME = 100; // milliseconds of the panel's time that a touch takes
constexpr int POLL_MILLISECONDS = 2;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QString quoted(const QString& shown)
{
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

} // namespace

ScriptPlayer::ScriptPlayer(const Script& script, const Surroundings& surroundings)
    : m_script(script), m_around(surroundings)
{}

// --- the order of steps ------------------------------------------------------------------------------------------

QStringList ScriptPlayer::unknownNames() const
{
    QStringList problems;
    for (const ScriptStep& step : m_script.steps()) {
        const QString name = step.action == ScriptAction::Use ? step.arguments.first().toString() : step.item;
        bool known = name.isEmpty();
        for (const Panel::Item& shown : m_around.panel.items())
            known = known || shown.name == name;
        if (!known)
            problems.append(
                text("%1:%2: the project shows no item \"%3\".").arg(m_script.name()).arg(step.line).arg(name));
        const bool isOfLink = step.action == ScriptAction::Link || step.action == ScriptAction::ExpectLink;
        if (isOfLink && linkState(step.arguments.first().toString()).isEmpty())
            problems.append(text("%1:%2: the project has no link to \"%3\".")
                                .arg(m_script.name())
                                .arg(step.line)
                                .arg(step.arguments.first().toString()));
    }
    return problems;
}

/// "up" or "down"; empty: there is no such link.
QString ScriptPlayer::linkState(const QString& device) const
{
    for (const ProjectLink& link : m_around.session.links()) {
        if (link.device == device)
            return text(link.isUp ? "up" : "down");
    }
    return QString();
}

void ScriptPlayer::play(const ScriptPosition& from)
{
    m_position = from;
    m_around.clock.advance(from.time);
    schedule();
}

void ScriptPlayer::schedule()
{
    if (m_scheduled || m_finished)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, &ScriptPlayer::next);
}

/// Comes from the event loop, also from that of an open confirmation.
void ScriptPlayer::next()
{
    m_scheduled = false;
    if (m_finished || (m_inside > 0 && !PanelScreen::confirmation()))
        return; // the step that is under way schedules when it is back
    ++m_inside; // settling must not run steps
    Panel::settle();
    --m_inside;
    if (m_position.step >= m_script.steps().size()) {
        finish(std::nullopt, ScriptStep());
        return;
    }
    const ScriptStep& step = m_script.steps().at(m_position.step++);
    ++m_inside;
    const Outcome outcome = run(step);
    --m_inside;
    if (outcome)
        finish(outcome, step);
    schedule();
}

void ScriptPlayer::finish(const Outcome& outcome, const ScriptStep& step)
{
    if (m_finished)
        return;
    m_finished = true;
    if (outcome)
        m_failure = text("%1:%2: expected %3, found %4.")
                        .arg(m_script.name())
                        .arg(step.line)
                        .arg(outcome->expected, outcome->found);
    m_around.session.answer(false); // an open confirmation must not be taken as agreed
    QCoreApplication::exit(outcome ? 1 : 0);
}

ScriptPlayer::Outcome ScriptPlayer::run(const ScriptStep& step)
{
    if (step.action <= ScriptAction::ReleaseAt)
        return touch(step);
    if (step.action <= ScriptAction::KeyboardCancel)
        return keyboard(step);
    if (step.action <= ScriptAction::Pass)
        return change(step);
    if (step.action <= ScriptAction::WaitMessage)
        return wait(step);
    if (step.action <= ScriptAction::ExpectPending)
        return expectOfItem(step);
    if (step.action <= ScriptAction::ExpectRegister)
        return expectOfPanel(step);
    if (step.action <= ScriptAction::ExpectQuery)
        return expectOfFile(step);
    return write(step);
}

const Panel::Item* ScriptPlayer::item(const ScriptStep& step) const
{
    const QString& name = step.item.isEmpty() ? m_position.item : step.item;
    for (const Panel::Item& shown : m_around.panel.items()) {
        if (name.isEmpty() || shown.name == name)
            return &shown;
    }
    return nullptr;
}

ItemState ScriptPlayer::state(const ScriptStep& step)
{
    const Panel::Item* shown = item(step);
    return shown ? m_around.session.state(*shown) : ItemState();
}

// --- touches -----------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::touch(const ScriptStep& step)
{
    QPoint point;
    switch (step.action) {
    case ScriptAction::MoveTo:
        return moveTo(QPoint(step.arguments.at(0).toInt(), step.arguments.at(1).toInt()));
    case ScriptAction::MoveBy:
        return moveTo(m_finger + QPoint(step.arguments.at(0).toInt(), step.arguments.at(1).toInt()));
    case ScriptAction::ReleaseAt:
        if (const Outcome moved = moveTo(QPoint(step.arguments.at(0).toInt(), step.arguments.at(1).toInt())))
            return moved;
        return release();
    case ScriptAction::Release:
        return release();
    default:
        break;
    }
    if (const Outcome missing = find(step, point))
        return missing;
    if (const Outcome refused = press(point))
        return refused;
    if (step.action >= ScriptAction::PressPoint)
        return std::nullopt;
    Panel::settle(); // what the press asked for comes while the finger is down
    return release();
}

/// The point that a press means.
ScriptPlayer::Outcome ScriptPlayer::find(const ScriptStep& step, QPoint& point)
{
    if (step.action == ScriptAction::TapPoint || step.action == ScriptAction::PressPoint) {
        point = QPoint(step.arguments.at(0).toInt(), step.arguments.at(1).toInt());
        return std::nullopt;
    }
    const Panel::Item* shown = item(step);
    const ItemState now = state(step);
    if (!shown || now.isEmpty())
        return Mismatch{text("an item that tells what it shows"), text("none")};
    std::optional<QRectF> rect;
    QString wanted;
    if (step.action == ScriptAction::TapCell || step.action == ScriptAction::PressCell) {
        const auto cell = now.cell(step.arguments.at(0).toInt(), step.arguments.at(1).toInt());
        rect = cell ? std::optional<QRectF>(cell->rect) : std::nullopt;
        wanted = text("cell %1 %2 on the page").arg(step.arguments.at(0).toInt()).arg(step.arguments.at(1).toInt());
    } else if (step.action == ScriptAction::TapTitle || step.action == ScriptAction::PressTitle) {
        const auto title = now.title(step.arguments.at(0).toInt());
        rect = title ? std::optional<QRectF>(title->rect) : std::nullopt;
        wanted = text("title %1 on the page").arg(step.arguments.at(0).toInt());
    } else {
        rect = now.area(step.arguments.at(0).toString());
        wanted = text("a button \"%1\"").arg(step.arguments.at(0).toString());
    }
    if (!rect)
        return Mismatch{wanted, now.page()};
    point = m_around.screen.view().mapFromScene(shown->item->mapToScene(rect->center()));
    return std::nullopt;
}

ScriptPlayer::Outcome ScriptPlayer::press(const QPoint& point)
{
    if (const QMessageBox* box = PanelScreen::confirmation())
        return Mismatch{text("a panel that can be touched"), text("the confirmation ") + quoted(box->text())};
    if (m_pressed)
        return Mismatch{text("a lifted finger"), text("one that is still down")};
    m_around.clock.advance(TOUCH_TIME);
    QWidget* touched = m_around.screen.childAt(point);
    m_pressed = touched ? touched : &m_around.screen;
    m_finger = point;
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    return std::nullopt;
}

ScriptPlayer::Outcome ScriptPlayer::moveTo(const QPoint& point)
{
    if (!m_pressed)
        return Mismatch{text("a finger that is down"), text("none")};
    m_around.clock.advance(TOUCH_TIME);
    m_finger = point;
    send(QEvent::MouseMove, Qt::LeftButton);
    return std::nullopt;
}

ScriptPlayer::Outcome ScriptPlayer::release()
{
    if (!m_pressed)
        return Mismatch{text("a finger that is down"), text("none")};
    m_around.clock.advance(TOUCH_TIME);
    const QPointer<QWidget> touched = m_pressed;
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    return std::nullopt;
}

void ScriptPlayer::send(QEvent::Type type, Qt::MouseButtons held)
{
    schedule(); // the touch may open a confirmation and come back only when later steps have answered it
    QWidget* const receiver = m_pressed;
    if (type == QEvent::MouseButtonRelease)
        m_pressed = nullptr; // before: the release may open a confirmation
    const QPoint local = receiver->mapFrom(&m_around.screen, m_finger);
    QMouseEvent event(type, local, m_finger, m_around.screen.mapToGlobal(m_finger),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(receiver, &event);
}

// --- keyboard ----------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::keyboard(const ScriptStep& step)
{
    OnScreenKeyboard* open = m_around.screen.keyboard();
    if (!open)
        return Mismatch{text("an open keyboard"), text("none")};
    m_around.clock.advance(TOUCH_TIME);
    if (step.action == ScriptAction::KeyboardCancel) {
        open->cancel();
        return std::nullopt;
    }
    const QString typed = step.arguments.first().toString();
    const bool accepted = open->acceptText(typed);
    if (step.action == ScriptAction::KeyboardAccept)
        return accepted ? Outcome()
                        : Mismatch{text("the keyboard to accept ") + quoted(typed), quoted(open->message())};
    const QString wanted = text("the keyboard to refuse it with ") + quoted(step.arguments.last().toString());
    if (accepted)
        return Mismatch{wanted, text("that it accepted ") + quoted(typed)};
    if (open->message() != step.arguments.last().toString())
        return Mismatch{wanted, quoted(open->message())};
    return std::nullopt;
}

// --- changes -----------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::change(const ScriptStep& step)
{
    const QVariant first = step.arguments.value(0);
    switch (step.action) {
    case ScriptAction::Answer:
        m_around.clock.advance(TOUCH_TIME);
        if (!m_around.session.answer(first.toString() == text("yes")))
            return Mismatch{text("a confirmation"), text("none")};
        break;
    case ScriptAction::SetRegister:
        m_around.session.force(first.toString(), step.arguments.at(1).toInt(), step.arguments.at(2).toInt());
        break;
    case ScriptAction::Send:
        return send();
    case ScriptAction::Link:
        m_around.session.setLink(first.toString(), step.arguments.at(1).toString() == text("up"));
        break;
    case ScriptAction::Use:
        m_position.item = first.toString();
        break;
    case ScriptAction::Language:
        m_position.language = first.toInt();
        if (!m_around.translations.use(m_position.language))
            return Mismatch{text("texts of language %1").arg(m_position.language),
                            m_around.translations.problems().join(text(", "))};
        break;
    default:
        m_around.clock.advance(first.toInt());
        break;
    }
    return std::nullopt;
}

/// Like a touch of the button beside the glass. How it goes is for expectations of messages and registers.
ScriptPlayer::Outcome ScriptPlayer::send()
{
    if (const QMessageBox* box = PanelScreen::confirmation())
        return Mismatch{text("a panel that can be touched"), text("the confirmation ") + quoted(box->text())};
    m_around.clock.advance(TOUCH_TIME);
    m_around.session.sendRecipe();
    return std::nullopt;
}

// --- waiting -----------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::wait(const ScriptStep& step)
{
    if (step.action == ScriptAction::WaitMessage)
        return waitForMessage(step.arguments.first().toString());
    m_around.session.waitForWorkers();
    return std::nullopt;
}

/// Waits as long as something can still bring the message, and no longer.
ScriptPlayer::Outcome ScriptPlayer::waitForMessage(const QString& wanted)
{
    QTimer tick;
    tick.start(POLL_MILLISECONDS);
    QStringList passed;
    for (;;) {
        const bool last = !m_around.session.isBusy(); // before settling: the worker posts, then ends
        Panel::settle();
        QStringList& messages = m_around.session.messages();
        while (!messages.isEmpty()) {
            passed.append(quoted(messages.takeFirst()));
            if (passed.last() == quoted(wanted))
                return std::nullopt;
        }
        if (last)
            break;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return Mismatch{text("the message ") + quoted(wanted),
                    passed.isEmpty() ? text("no message, and nothing is under way") : passed.join(text(", "))};
}

// --- writing -----------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::write(const ScriptStep& step)
{
    if (step.action == ScriptAction::Restart || step.action == ScriptAction::PowerCut) {
        m_position.time = m_around.clock.now();
        m_around.restart(m_position, step.action == ScriptAction::Restart);
        return Mismatch{text("the panel to start again"), text("that it cannot")};
    }
    const QString fileName = QDir(m_around.output).filePath(step.arguments.first().toString());
    bool written = false;
    if (step.action == ScriptAction::ScreenshotWindow && !m_around.window)
        return Mismatch{text("a window"), text("none; --window opens one")};
    if (step.action == ScriptAction::ScreenshotWindow) {
        written = m_around.window->grab().save(fileName, "PNG");
    } else if (step.action == ScriptAction::Screenshot) {
        written = m_around.screen.picture().save(fileName, "PNG");
    } else {
        QFile file(fileName);
        const QByteArray contents = describeAll();
        written = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(contents) == contents.size();
    }
    return written ? Outcome() : Mismatch{text("a file that can be written"), fileName};
}

QByteArray ScriptPlayer::describeAll()
{
    QJsonObject items;
    for (const Panel::Item& shown : m_around.panel.items())
        items.insert(shown.name, m_around.session.state(shown).json());
    QJsonObject registers;
    const auto known = m_around.session.knownRegisters();
    for (auto it = known.constBegin(); it != known.constEnd(); ++it)
        registers.insert(text("%1 %2").arg(it.key().first).arg(it.key().second), it.value());
    QJsonObject links;
    for (const ProjectLink& link : m_around.session.links())
        links.insert(link.device, QJsonObject{{text("number"), link.number}, {text("up"), link.isUp}});
    QJsonValue keyboard = QJsonValue::Null;
    if (const OnScreenKeyboard* open = m_around.screen.keyboard())
        keyboard = QJsonObject{{text("text"), open->text()}, {text("message"), open->message()}};
    const QMessageBox* box = PanelScreen::confirmation();
    const QJsonObject all = {
        {text("time"), m_around.clock.now()},
        {text("items"), items},
        {text("registers"), registers},
        {text("links"), links},
        {text("transfer"), m_around.session.lastTransfer()},
        {text("keyboard"), keyboard},
        {text("confirmation"), box ? QJsonValue(box->text()) : QJsonValue::Null},
        {text("notices"), QJsonArray::fromStringList(m_around.screen.notices().visible())},
    };
    return QJsonDocument(all).toJson();
}
