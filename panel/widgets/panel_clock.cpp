#include "panel_clock.h"

#include <QTimer>

#include <algorithm>
#include <limits>

WallClock::WallClock()
{
    m_timer.start();
}

qint64 WallClock::now() const
{
    return m_timer.elapsed();
}

void WallClock::callLater(qint64 delay, QObject* context, std::function<void()> call)
{
    const qint64 longest = std::numeric_limits<int>::max();
    QTimer::singleShot(static_cast<int>(std::clamp<qint64>(delay, 0, longest)), Qt::PreciseTimer, context,
                       std::move(call));
}

void ManualClock::callLater(qint64 delay, QObject* context, std::function<void()> call)
{
    m_appointments.append({m_now + std::max<qint64>(delay, 0), context, std::move(call)});
}

void ManualClock::advance(qint64 milliseconds)
{
    const qint64 end = m_now + std::max<qint64>(milliseconds, 0);
    for (int next = earliest(); next >= 0 && m_appointments.at(next).time <= end; next = earliest()) {
        const Appointment due = m_appointments.takeAt(next);
        m_now = std::max(m_now, due.time);
        if (due.context)
            due.call();
    }
    m_now = end;
}

qint64 ManualClock::untilNext() const
{
    const int next = earliest();
    return next < 0 ? -1 : std::max<qint64>(m_appointments.at(next).time - m_now, 0);
}

int ManualClock::earliest() const
{
    int found = -1;
    for (int i = 0; i < m_appointments.size(); ++i) {
        const Appointment& candidate = m_appointments.at(i);
        if (candidate.context && (found < 0 || candidate.time < m_appointments.at(found).time))
            found = i;
    }
    return found;
}
