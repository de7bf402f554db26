// A paint device that draws nothing and writes down what it is asked to draw, in order: rectangles, lines, polygons
// and texts, each with the pen, brush and font in force.
//
// Texts. A paint engine gets glyph runs at a base line, not the rectangle and the alignment that QPainter::drawText was
// called with. So the linker hands every call of QPainter::drawText(QRectF, int, QString, QRectF*) in a test program
// to a wrapper (see the CMakeLists.txt beside this file), which writes the call down exactly as it was made and then
// makes it. What the engine gets meanwhile is kept as the call's ink, so that a test can also see where the text came
// to lie. A glyph run that belongs to no such call is recorded as Other: no text can pass unseen.
//
// Texts that leave no mark (empty, or drawn without a pen) are not recorded; filled rectangles always are, as Rect
// without a pen, whether they come from fillRect or from drawRect. GUI thread only.
#ifndef RECORDING_DEVICE_H
#define RECORDING_DEVICE_H

#include <QBrush>
#include <QFont>
#include <QList>
#include <QPaintDevice>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

class QPaintEngine;
class RecordingEngine;

struct PaintCall
{
    enum Kind
    {
        Rect,
        Line,
        Polygon,
        Text,
        Other ///< anything else; `text` names it
    };

    Kind kind = Other;
    QRectF rect;             ///< of a Rect or Text
    QVector<QPointF> points; ///< of a Line or Polygon
    Qt::FillRule fillRule = Qt::OddEvenFill;
    QString text;
    int flags = 0; ///< alignment of a Text
    QPen pen;
    QBrush brush;       ///< of a Rect or Polygon
    QFont font;         ///< of a Text
    QRectF ink;         ///< where a Text came to lie: advance by ascent and descent
    bool isCut = false; ///< a Text that the painter clipped to its rectangle

    static PaintCall filled(const QRectF& rect, const QColor& color);
    static PaintCall outlined(const QRectF& rect, const QPen& pen, const QBrush& brush);
    static PaintCall line(const QPointF& from, const QPointF& to, const QPen& pen);
    static PaintCall polygon(const QVector<QPointF>& points, const QPen& pen, const QBrush& brush);
    /// Centred both ways.
    static PaintCall centred(const QRectF& rect, const QString& text, const QColor& color, const QFont& font);

    /// One line that tells all of it but `ink` and `isCut`; numbers to a thousandth.
    QString line() const;
};

/// The lines of several calls.
QStringList lines(const QList<PaintCall>& calls);

/// "x,y wxh"
QString rectText(const QRectF& rect);

class RecordingDevice : public QPaintDevice
{
public:
    explicit RecordingDevice(const QSize& size);
    ~RecordingDevice() override;

    QPaintEngine* paintEngine() const override;

    const QList<PaintCall>& calls() const { return m_calls; }
    void clear() { m_calls.clear(); }

    /// Called for every mark, while it is drawn.
    std::function<void()> whileDrawing;

protected:
    int metric(PaintDeviceMetric which) const override;

private:
    friend class RecordingEngine;

    QSize m_size;
    QList<PaintCall> m_calls;
    std::unique_ptr<RecordingEngine> m_engine;
};

#endif
