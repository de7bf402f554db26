#include "recording_device.h"

#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace {

QString number(double value)
{
    if (!std::isfinite(value))
        return QString::number(value);
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'g', 12);
}

QString pointText(const QPointF& point)
{
    return QStringLiteral("%1,%2").arg(number(point.x()), number(point.y()));
}

QString colorText(const QColor& color)
{
    return color.isValid() ? color.name(QColor::HexArgb) : QStringLiteral("invalid");
}

QString penText(const QPen& pen)
{
    static const char* const styles[] = {"none", "solid", "dash", "dot", "dashdot", "dashdotdot", "custom"};
    if (pen.style() == Qt::NoPen)
        return QStringLiteral("pen none");
    QString text = QStringLiteral("pen %1 %2 %3")
                       .arg(colorText(pen.color()), number(pen.widthF()), QLatin1String(styles[pen.style()]));
    if (pen.capStyle() != Qt::SquareCap)
        text += QStringLiteral(" cap %1").arg(pen.capStyle());
    if (pen.joinStyle() != Qt::BevelJoin)
        text += QStringLiteral(" join %1").arg(pen.joinStyle());
    return text;
}

QString brushText(const QBrush& brush)
{
    if (brush.style() == Qt::NoBrush)
        return QStringLiteral("brush none");
    QString text = QStringLiteral("brush %1").arg(colorText(brush.color()));
    if (brush.style() != Qt::SolidPattern)
        text += QStringLiteral(" pattern %1").arg(brush.style());
    return text;
}

QString fontText(const QFont& font)
{
    QString text = QStringLiteral("font %1 %2px").arg(font.family(), QString::number(font.pixelSize()));
    if (font.bold() || font.italic() || font.underline() || font.strikeOut())
        text += QStringLiteral(" styled");
    return text;
}

} // namespace

QString rectText(const QRectF& rect)
{
    return QStringLiteral("%1 %2x%3").arg(pointText(rect.topLeft()), number(rect.width()), number(rect.height()));
}

PaintCall PaintCall::filled(const QRectF& rect, const QColor& color)
{
    return outlined(rect, QPen(Qt::NoPen), QBrush(color));
}

PaintCall PaintCall::outlined(const QRectF& rect, const QPen& pen, const QBrush& brush)
{
    PaintCall call;
    call.kind = Rect;
    call.rect = rect;
    call.pen = pen;
    call.brush = brush;
    return call;
}

PaintCall PaintCall::line(const QPointF& from, const QPointF& to, const QPen& pen)
{
    PaintCall call;
    call.kind = Line;
    call.points = {from, to};
    call.pen = pen;
    return call;
}

PaintCall PaintCall::polygon(const QVector<QPointF>& points, const QPen& pen, const QBrush& brush)
{
    PaintCall call;
    call.kind = Polygon;
    call.points = points;
    call.pen = pen;
    call.brush = brush;
    return call;
}

PaintCall PaintCall::centred(const QRectF& rect, const QString& text, const QColor& color, const QFont& font)
{
    PaintCall call;
    call.kind = Text;
    call.rect = rect;
    call.text = text;
    call.flags = Qt::AlignHCenter | Qt::AlignVCenter;
    call.pen = QPen(color);
    call.font = font;
    return call;
}

QString PaintCall::line() const
{
    switch (kind) {
    case Rect:
        return QStringLiteral("rect %1 %2 %3").arg(rectText(rect), penText(pen), brushText(brush));
    case Line:
        return QStringLiteral("line %1 to %2 %3").arg(pointText(points.at(0)), pointText(points.at(1)), penText(pen));
    case Polygon: {
        QStringList corners;
        for (const QPointF& point : points)
            corners << pointText(point);
        return QStringLiteral("polygon %1 %2 %3 %4")
            .arg(fillRule == Qt::OddEvenFill ? QStringLiteral("odd-even") : QStringLiteral("winding"),
                 corners.join(QLatin1Char(' ')), penText(pen), brushText(brush));
    }
    case Text:
        return QStringLiteral("text '%1' in %2 flags %3 %4 %5")
            .arg(text, rectText(rect), QString::number(flags), penText(pen), fontText(font));
    case Other:
        break;
    }
    return QStringLiteral("other: %1").arg(text);
}

QStringList lines(const QList<PaintCall>& calls)
{
    QStringList result;
    for (const PaintCall& call : calls)
        result << call.line();
    return result;
}

/// Has every feature, so that the painter splits and emulates nothing.
class RecordingEngine : public QPaintEngine
{
public:
    explicit RecordingEngine(RecordingDevice* device) : QPaintEngine(AllFeatures), m_device(device) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {} // the painter is asked instead
    Type type() const override { return User; }

    void drawRects(const QRectF* rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            add(PaintCall::outlined(rects[i], painter()->pen(), painter()->brush()));
    }

    void drawRects(const QRect* rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            add(PaintCall::outlined(QRectF(rects[i]), painter()->pen(), painter()->brush()));
    }

    void drawLines(const QLineF* drawn, int count) override
    {
        for (int i = 0; i < count; ++i)
            add(PaintCall::line(drawn[i].p1(), drawn[i].p2(), painter()->pen()));
    }

    void drawLines(const QLine* drawn, int count) override
    {
        for (int i = 0; i < count; ++i)
            add(PaintCall::line(QPointF(drawn[i].p1()), QPointF(drawn[i].p2()), painter()->pen()));
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QVector<QPointF> corners;
        for (int i = 0; i < count; ++i)
            corners << points[i];
        addPolygon(corners, mode);
    }

    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override
    {
        QVector<QPointF> corners;
        for (int i = 0; i < count; ++i)
            corners << QPointF(points[i]);
        addPolygon(corners, mode);
    }

    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        if (!m_text) {
            addOther("glyphs outside a call of drawText");
            return;
        }
        m_text->ink |= QRectF(position.x(), position.y() - item.ascent(), item.width(), item.ascent() + item.descent());
        m_text->isCut = m_text->isCut || painter()->hasClipping();
        drawing();
    }

    void drawPath(const QPainterPath&) override { addOther("path"); }
    void drawEllipse(const QRectF&) override { addOther("ellipse"); }
    void drawEllipse(const QRect&) override { addOther("ellipse"); }
    void drawPoints(const QPointF*, int) override { addOther("points"); }
    void drawPoints(const QPoint*, int) override { addOther("points"); }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { addOther("pixmap"); }
    void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override { addOther("tiled pixmap"); }
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {
        addOther("image");
    }

    /// Records the call and keeps what `draw` makes the engine draw as its ink.
    void recordText(PaintCall call, const std::function<void()>& draw)
    {
        m_text = &call;
        draw();
        m_text = nullptr;
        if (!call.text.isEmpty() && call.pen.style() != Qt::NoPen)
            m_device->m_calls << call;
    }

private:
    void add(const PaintCall& call)
    {
        m_device->m_calls << call;
        drawing();
    }

    void addPolygon(const QVector<QPointF>& points, PolygonDrawMode mode)
    {
        PaintCall call = PaintCall::polygon(points, painter()->pen(), painter()->brush());
        if (mode == PolylineMode || mode == ConvexMode) {
            addOther(mode == PolylineMode ? "polyline" : "convex polygon");
            return;
        }
        call.fillRule = mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill;
        add(call);
    }

    void addOther(const char* what)
    {
        PaintCall call;
        call.text = QLatin1String(what);
        add(call);
    }

    void drawing()
    {
        if (m_device->whileDrawing)
            m_device->whileDrawing();
    }

    RecordingDevice* m_device;
    PaintCall* m_text = nullptr; // the call of drawText that is being made
};

RecordingDevice::RecordingDevice(const QSize& size) : m_size(size), m_engine(new RecordingEngine(this)) {}

RecordingDevice::~RecordingDevice() = default;

QPaintEngine* RecordingDevice::paintEngine() const
{
    return m_engine.get();
}

int RecordingDevice::metric(PaintDeviceMetric which) const
{
    const int dotsPerInch = 96;
    switch (which) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dotsPerInch;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(which);
    }
}

// The wrapper. The linker sends calls of the first name to wrappedDrawText, and realDrawText is QPainter's own.
void realDrawText(QPainter* painter, const QRectF& rect, int flags, const QString& text,
                  QRectF* used) __asm__("__real__ZN8QPainter8drawTextERK6QRectFiRK7QStringPS0_");
void wrappedDrawText(QPainter* painter, const QRectF& rect, int flags, const QString& text,
                     QRectF* used) __asm__("__wrap__ZN8QPainter8drawTextERK6QRectFiRK7QStringPS0_");

void wrappedDrawText(QPainter* painter, const QRectF& rect, int flags, const QString& text, QRectF* used)
{
    const auto draw = [&] { realDrawText(painter, rect, flags, text, used); };
    RecordingEngine* const engine = dynamic_cast<RecordingEngine*>(painter->paintEngine());
    if (!engine) {
        draw();
        return;
    }
    PaintCall call;
    call.kind = PaintCall::Text;
    call.rect = rect;
    call.flags = flags;
    call.text = text;
    call.pen = painter->pen();
    call.font = painter->font();
    engine->recordText(call, draw);
}
