// What is seen where a panel would be heard: a ring at the place of a touch, for a moment. GUI thread only.
#ifndef TOUCH_TICK_H
#define TOUCH_TICK_H

#include "panel_clock.h"

#include <QWidget>

class TouchTick : public QWidget
{
    Q_OBJECT
public:
    /// How long the ring is seen, in milliseconds of the clock.
    static const qint64 DURATION = 250;

    /// The clock is not owned and must outlive this. The ring lets touches through.
    TouchTick(PanelClock& clock, double dpi, QWidget* parent);

    /// Shows the ring with its middle at `point`, in the parent's frame. A later one takes the place of an earlier.
    void tick(const QPoint& point);

    /// How many there were.
    int count() const { return m_count; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PanelClock& m_clock;
    int m_count = 0;
};

#endif
