// Plays a script on an open session. Steps run from the event loop, one after the other, each only when nothing is
// under way from the one before; a touch that opens a confirmation goes on when it has been answered. The panel's time
// moves with the touches and by "pass", so that the same script gives the same log and the same pictures every time.
// GUI thread only.
#ifndef SCRIPT_PLAYER_H
#define SCRIPT_PLAYER_H

#include "panel_session.h"
#include "script.h"
#include "translations.h"

#include <QEvent>
#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

/// Where a script goes on after the panel was started again.
struct ScriptPosition
{
    int step = 0;
    qint64 time = 0; ///< of the panel's clock
    QString item;    ///< the item in use; empty: the first
    int language = 0;
};

class ScriptPlayer : public QObject
{
public:
    struct Surroundings
    {
        Panel& panel;
        PanelSession& session;
        PanelScreen& screen;
        ManualClock& clock;
        Translations& translations;
        QString output; ///< folder for pictures and dumps
        /// Starts the panel again: in good order or at once. Returns only when that failed.
        std::function<void(const ScriptPosition&, bool orderly)> restart;
        QWidget* window; ///< around the screen; null: none
    };

    /// Nothing is owned; all must outlive this.
    ScriptPlayer(const Script& script, const Surroundings& surroundings);

    /// Names the items and links that the script speaks of and the project does not have, one sentence each.
    QStringList unknownNames() const;

    /// Plays from there on and ends the event loop, with 0, or with 1 after a step that failed.
    void play(const ScriptPosition& from);
    /// What went wrong, one sentence with script, line, what was expected and what was there; empty: nothing.
    const QString& failure() const { return m_failure; }

private:
    struct Mismatch
    {
        QString expected;
        QString found;
    };
    using Outcome = std::optional<Mismatch>; ///< nothing: as wanted

    void schedule();
    void next();
    void finish(const Outcome& outcome, const ScriptStep& step);
    Outcome run(const ScriptStep& step);

    // groups of steps; each knows its own actions
    Outcome touch(const ScriptStep& step);
    Outcome keyboard(const ScriptStep& step);
    Outcome wait(const ScriptStep& step);
    Outcome expectOfItem(const ScriptStep& step);
    Outcome expectOfPanel(const ScriptStep& step);
    Outcome expectOfFile(const ScriptStep& step);
    Outcome change(const ScriptStep& step);
    Outcome write(const ScriptStep& step);

    // touches, in pixels of the screen
    Outcome find(const ScriptStep& step, QPoint& point);
    Outcome press(const QPoint& point);
    Outcome moveTo(const QPoint& point);
    Outcome release();
    void send(QEvent::Type type, Qt::MouseButtons held);

    const Panel::Item* item(const ScriptStep& step) const;
    ItemState state(const ScriptStep& step);
    Outcome send();
    QString linkState(const QString& device) const;
    Outcome waitForMessage(const QString& wanted);
    Outcome expectRegisters(const ScriptStep& step) const;
    Outcome expectPending(const ScriptStep& step);
    Outcome expectQuery(const QString& file, const QString& sql, const QString& wanted) const;
    QByteArray describeAll();

    const Script& m_script;
    Surroundings m_around;
    ScriptPosition m_position;
    bool m_scheduled = false;
    int m_inside = 0; // steps that have not come back, waiting for a confirmation
    bool m_finished = false;
    QString m_failure;
    QPointer<QWidget> m_pressed; // takes the moves and the release, as on a real screen
    QPoint m_finger;
};

#endif
