#include "notices.h"

#include "panel_size.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

const int MOST_VISIBLE = 3;
const int MOST_KEPT = 50; // a flood of messages is no reason to fill the memory

// Milliseconds.
const qint64 LOOK_UP_TIME = 2500;
const qint64 TIME_PER_CHARACTER = 60;
const qint64 LONGEST_READING_TIME = 10000;

// Millimetres.
const double TEXT_HEIGHT = 6.0;
const double PADDING = 3.0;
const double GAP = 1.5;

const double WIDEST = 0.9;  // share of the area's width
const double TALLEST = 0.3; // share of the area's height, of one notice

const QColor BACKGROUND(255, 222, 89);
const QColor BORDER(90, 70, 0);
const QColor TEXT(20, 20, 20);
const int TEXT_FLAGS = Qt::AlignCenter | Qt::TextWordWrap;

} // namespace

Notices::Notices(PanelClock& clock, const QRect& area, double dpi, QWidget* parent)
    : QWidget(parent), m_clock(clock), m_area(area), m_dpi(dpi)
{
    hide();
}

qint64 Notices::readingTime(const QString& text)
{
    return std::min(LONGEST_READING_TIME, LOOK_UP_TIME + TIME_PER_CHARACTER * text.size());
}

void Notices::post(const QString& text, qint64 duration)
{
    passTime();
    m_notices.prepend({text, duration < 0 ? readingTime(text) : duration, -1, QRect()});
    while (m_notices.size() > MOST_KEPT)
        m_notices.removeLast();
    m_pressed = -1;
    arrange();
}

QStringList Notices::visible() const
{
    QStringList texts;
    for (int i = 0; i < visibleCount(); ++i)
        texts.append(m_notices.at(i).text);
    return texts;
}

int Notices::waiting() const
{
    return m_notices.size() - visibleCount();
}

void Notices::clear()
{
    m_notices.clear();
    arrange();
}

int Notices::visibleCount() const
{
    return std::min(MOST_VISIBLE, static_cast<int>(m_notices.size()));
}

void Notices::remove(int index)
{
    const QString text = m_notices.takeAt(index).text;
    m_pressed = -1;
    Q_EMIT dismissed(text);
}

// --- time --------------------------------------------------------------------------------------------------------

/// Takes the time since the last look from what is visible.
void Notices::passTime()
{
    const qint64 now = m_clock.now();
    for (Notice& notice : m_notices) {
        if (notice.since >= 0)
            notice.left -= now - notice.since;
        notice.since = -1;
    }
}

void Notices::expire()
{
    passTime();
    for (int i = visibleCount() - 1; i >= 0; --i) {
        if (m_notices.at(i).left <= 0)
            remove(i);
    }
    arrange();
}

void Notices::makeAppointment()
{
    const quint64 round = ++m_round;
    if (m_notices.isEmpty())
        return;
    qint64 next = m_notices.first().left;
    for (int i = 0; i < visibleCount(); ++i) {
        m_notices[i].since = m_clock.now();
        next = std::min(next, m_notices.at(i).left);
    }
    m_clock.callLater(next, this, [this, round]() {
        if (round == m_round)
            expire();
    });
}

// --- place -------------------------------------------------------------------------------------------------------

QFont Notices::noticeFont() const
{
    QFont result(font());
    result.setPixelSize(pixelsFor(TEXT_HEIGHT, m_dpi));
    result.setBold(true);
    return result;
}

/// Places what is visible from top to bottom and makes the widget as large as that.
void Notices::arrange()
{
    const int padding = pixelsFor(PADDING, m_dpi);
    const int finger = pixelsFor(FINGER_MILLIMETRES, m_dpi);
    const int widest = static_cast<int>(m_area.width() * WIDEST) - 2 * padding;
    const int tallest = static_cast<int>(m_area.height() * TALLEST) - 2 * padding;
    const QFontMetrics metrics(noticeFont());

    int width = 0;
    int y = 0;
    for (int i = 0; i < visibleCount(); ++i) {
        Notice& notice = m_notices[i];
        const QRect text = metrics.boundingRect(QRect(0, 0, widest, 10000), TEXT_FLAGS, notice.text);
        const int height = std::max(std::min(text.height(), tallest) + 2 * padding, finger);
        notice.rect = QRect(0, y, 0, height);
        y += height + pixelsFor(GAP, m_dpi);
        width = std::max(width, std::min(text.width(), widest) + 2 * padding);
    }
    for (int i = 0; i < visibleCount(); ++i)
        m_notices[i].rect.setWidth(width);
    setGeometry(m_area.x() + (m_area.width() - width) / 2, m_area.y() + padding, width, y);
    setVisible(!m_notices.isEmpty());
    raise();
    update();
    makeAppointment();
}

int Notices::noticeAt(const QPoint& point) const
{
    for (int i = 0; i < visibleCount(); ++i) {
        if (m_notices.at(i).rect.contains(point))
            return i;
    }
    return -1;
}

// --- events ------------------------------------------------------------------------------------------------------

void Notices::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(noticeFont());
    const int padding = pixelsFor(PADDING, m_dpi);
    for (int i = 0; i < visibleCount(); ++i) {
        const Notice& notice = m_notices.at(i);
        painter.setPen(QPen(BORDER, 2));
        painter.setBrush(i == m_pressed ? BACKGROUND.lighter(115) : BACKGROUND);
        painter.drawRoundedRect(QRectF(notice.rect).adjusted(1, 1, -1, -1), 6, 6);
        painter.setPen(TEXT);
        painter.drawText(notice.rect.adjusted(padding, padding, -padding, -padding), TEXT_FLAGS, notice.text);
    }
}

void Notices::mousePressEvent(QMouseEvent* event)
{
    m_pressed = noticeAt(event->pos());
    update();
}

void Notices::mouseReleaseEvent(QMouseEvent* event)
{
    const int touched = noticeAt(event->pos());
    const bool meant = touched >= 0 && touched == m_pressed;
    m_pressed = -1;
    update();
    if (!meant)
        return;
    passTime();
    remove(touched);
    arrange();
}

void Notices::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}
