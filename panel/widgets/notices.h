// Messages to the operator that appear by themselves and go away by themselves, or at a touch.
//
// The newest is always on top and always visible; up to three are visible at once. One that newer ones push out waits,
// with the rest of its time, until there is room again. GUI thread only.
#ifndef NOTICES_H
#define NOTICES_H

#include "panel_clock.h"

#include <QList>
#include <QRect>
#include <QStringList>
#include <QWidget>

class Notices : public QWidget
{
    Q_OBJECT
public:
    /// Lies over `area` (in the parent's frame), at its top, only as large as what it shows. The clock is not owned
    /// and must outlive this.
    Notices(PanelClock& clock, const QRect& area, double dpi, QWidget* parent);

    /// How long a notice is shown when nobody says: the time it takes to look up and read it, in milliseconds.
    static qint64 readingTime(const QString& text);

    /// `duration` in milliseconds, counted while the notice is visible; negative: its reading time.
    void post(const QString& text, qint64 duration = -1);

    /// The texts that are on the screen, the newest first.
    QStringList visible() const;
    /// How many wait for room.
    int waiting() const;
    /// Where visible notice `index` is, in this widget's frame.
    QRect noticeRect(int index) const { return m_notices.at(index).rect; }
    void clear();

Q_SIGNALS:
    /// A notice went away, by its time or by a touch.
    void dismissed(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct Notice
    {
        QString text;
        qint64 left;  // milliseconds to be shown, as of `since`
        qint64 since; // by the clock; -1 while it waits
        QRect rect;
    };

    int visibleCount() const;
    void remove(int index);
    void arrange();
    void expire();
    void passTime();
    void makeAppointment();
    QFont noticeFont() const;
    int noticeAt(const QPoint& point) const;

    PanelClock& m_clock;
    const QRect m_area;
    const double m_dpi;
    QList<Notice> m_notices; // the newest first
    int m_pressed = -1;
    quint64 m_round = 0; // of appointments with the clock; older ones are void
};

#endif
