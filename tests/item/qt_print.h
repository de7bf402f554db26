// How GoogleTest shows Qt's values in a failure.
#ifndef QT_PRINT_H
#define QT_PRINT_H

#include <QColor>
#include <QPair>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <ostream>

QT_BEGIN_NAMESPACE

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << (text.isNull() ? "null string" : '"' + text.toStdString() + '"');
}

inline void PrintTo(const QStringList& list, std::ostream* out)
{
    *out << '[' << list.join(QLatin1String(" | ")).toStdString() << ']';
}

inline void PrintTo(const QPointF& point, std::ostream* out)
{
    *out << '(' << point.x() << ", " << point.y() << ')';
}

inline void PrintTo(const QRectF& rect, std::ostream* out)
{
    *out << '(' << rect.x() << ", " << rect.y() << ", " << rect.width() << ", " << rect.height() << ')';
}

inline void PrintTo(const QColor& color, std::ostream* out)
{
    *out << (color.isValid() ? color.name(QColor::HexArgb).toStdString() : "invalid colour");
}

inline void PrintTo(const QPair<int, int>& pair, std::ostream* out)
{
    *out << '(' << pair.first << ", " << pair.second << ')';
}

QT_END_NAMESPACE

#endif
