#include "touch_tick.h"

#include "panel_size.h"

#include <QPainter>

namespace {

const double DIAMETER_MILLIMETRES = 14.0; // seen around a fingertip
const int RING_WIDTH = 4;                 // pixels
const QColor RING(255, 120, 0, 230);
const QColor OUTLINE(255, 255, 255, 120); // keeps the ring visible on every ground

} // namespace

TouchTick::TouchTick(PanelClock& clock, double dpi, QWidget* parent) : QWidget(parent), m_clock(clock)
{
    const int side = pixelsFor(DIAMETER_MILLIMETRES, dpi);
    resize(side, side);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void TouchTick::tick(const QPoint& point)
{
    const int number = ++m_count;
    move(point.x() - width() / 2, point.y() - height() / 2);
    show();
    raise();
    m_clock.callLater(DURATION, this, [this, number]() {
        if (number == m_count)
            hide();
    });
}

void TouchTick::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double margin = RING_WIDTH / 2.0 + 2;
    const QRectF ring = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    painter.setPen(QPen(OUTLINE, RING_WIDTH + 3));
    painter.drawEllipse(ring);
    painter.setPen(QPen(RING, RING_WIDTH));
    painter.drawEllipse(ring);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RING);
    painter.drawEllipse(ring.center(), RING_WIDTH, RING_WIDTH);
}
