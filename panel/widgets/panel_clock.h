// The panel's own time. Whatever appears and goes away asks a clock, so that a script that moves the clock by hand sees
// the same thing every time. GUI thread only.
#ifndef PANEL_CLOCK_H
#define PANEL_CLOCK_H

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class PanelClock
{
public:
    virtual ~PanelClock() = default;

    /// Milliseconds since the clock was made; never runs back.
    virtual qint64 now() const = 0;

    /// Calls `call` once, `delay` milliseconds from now and never from inside this function. Forgotten when `context`
    /// is destroyed before.
    virtual void callLater(qint64 delay, QObject* context, std::function<void()> call) = 0;
};

/// The time of the wall; calls come from the event loop.
class WallClock : public PanelClock
{
public:
    WallClock();
    qint64 now() const override;
    void callLater(qint64 delay, QObject* context, std::function<void()> call) override;

private:
    QElapsedTimer m_timer;
};

/// Stands still until it is moved; calls come from inside `advance`.
class ManualClock : public PanelClock
{
public:
    qint64 now() const override { return m_now; }
    void callLater(qint64 delay, QObject* context, std::function<void()> call) override;

    /// Moves on by `milliseconds` and makes the calls that fall due, each at its own time: the earliest first, those
    /// of one time in the order in which they were asked for. Calls may ask for further calls.
    void advance(qint64 milliseconds);

    /// Milliseconds until the next call falls due; -1: none is waiting.
    qint64 untilNext() const;

private:
    struct Appointment
    {
        qint64 time;
        QPointer<QObject> context;
        std::function<void()> call;
    };

    int earliest() const; // index, -1: none

    qint64 m_now = 0;
    QList<Appointment> m_appointments; // in the order in which they were asked for
};

#endif
