// The recording paint device, that the tests of the drawing stand on.
#include "recording_device.h"

#include <QPainter>
#include <QPolygonF>

#include <gtest/gtest.h>

namespace {

const int CENTRED = Qt::AlignHCenter | Qt::AlignVCenter;

QFont font(int pixels)
{
    QFont result(QStringLiteral("DejaVu Sans"));
    result.setPixelSize(pixels);
    return result;
}

QStringList recorded(const std::function<void(QPainter&)>& draw)
{
    RecordingDevice device(QSize(800, 480));
    QPainter painter(&device);
    draw(painter);
    painter.end();
    return lines(device.calls());
}

} // namespace

TEST(RecordingDevice, WritesDownRectanglesWithPenAndBrush)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.setPen(QPen(QBrush(QColor(1, 2, 3)), 2.5, Qt::DashLine));
        painter.setBrush(QColor(4, 5, 6, 7));
        painter.drawRect(QRectF(0.5, 1, 20, 30));
        painter.setPen(Qt::NoPen);
        painter.drawRect(QRect(1, 2, 3, 4));
    });
    EXPECT_EQ(seen, QStringList({QStringLiteral("rect 0.5,1 20x30 pen #ff010203 2.5 dash brush #07040506"),
                                 QStringLiteral("rect 1,2 3x4 pen none brush #07040506")}));
}

TEST(RecordingDevice, WritesDownAFilledRectangleAsARectangleWithoutAPen)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.setPen(Qt::red);
        painter.fillRect(QRectF(1, 2, 3, 4), QColor(9, 8, 7));
    });
    EXPECT_EQ(seen, QStringList(PaintCall::filled(QRectF(1, 2, 3, 4), QColor(9, 8, 7)).line()));
    EXPECT_EQ(seen, QStringList(QStringLiteral("rect 1,2 3x4 pen none brush #ff090807")));
}

TEST(RecordingDevice, WritesDownRectanglesWithoutASize)
{
    const QStringList seen = recorded([](QPainter& painter) { painter.fillRect(QRectF(), Qt::red); });
    EXPECT_EQ(seen, QStringList(QStringLiteral("rect 0,0 0x0 pen none brush #ffff0000")));
}

TEST(RecordingDevice, WritesDownLinesAndPolygons)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
        painter.setBrush(Qt::white);
        painter.drawLine(QLineF(1, 2, 3.25, 4));
        const QPolygonF triangle({QPointF(0, 0), QPointF(4, 0), QPointF(2, 3)});
        painter.drawPolygon(triangle, Qt::OddEvenFill);
        painter.drawPolygon(triangle, Qt::WindingFill);
    });
    EXPECT_EQ(seen,
              QStringList({QStringLiteral("line 1,2 to 3.25,4 pen #ff000000 2 solid cap 32 join 0"),
                           QStringLiteral("polygon odd-even 0,0 4,0 2,3 pen #ff000000 2 solid cap 32 join 0 brush "
                                          "#ffffffff"),
                           QStringLiteral("polygon winding 0,0 4,0 2,3 pen #ff000000 2 solid cap 32 join 0 brush "
                                          "#ffffffff")}));
}

TEST(RecordingDevice, WritesDownTextsWithTheRectangleAndTheAlignmentOfTheCall)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.setPen(QColor(1, 2, 3));
        painter.setFont(font(16));
        painter.drawText(QRectF(10, 20, 300, 40), CENTRED, QStringLiteral("Flour"));
        painter.drawText(QRectF(10, 20, 300, 40), Qt::AlignLeft, QStringLiteral("Wasser \u6c34"));
    });
    EXPECT_EQ(seen,
              QStringList({QStringLiteral("text 'Flour' in 10,20 300x40 flags 132 pen #ff010203 1 solid font DejaVu "
                                          "Sans 16px"),
                           QStringLiteral("text 'Wasser \u6c34' in 10,20 300x40 flags 1 pen #ff010203 1 solid font "
                                          "DejaVu Sans 16px")}));
}

TEST(RecordingDevice, KeepsWhereATextCameToLie)
{
    RecordingDevice device(QSize(800, 480));
    QPainter painter(&device);
    painter.setFont(font(16));
    painter.drawText(QRectF(10, 20, 300, 40), CENTRED, QStringLiteral("Flour"));
    painter.drawText(QRectF(10, 20, 15, 40), CENTRED, QStringLiteral("Flour"));
    painter.end();
    ASSERT_EQ(device.calls().size(), 2);
    const PaintCall& roomy = device.calls().at(0);
    EXPECT_NEAR(roomy.ink.center().x(), 160, 0.5);
    EXPECT_NEAR(roomy.ink.center().y(), 40, 0.5);
    EXPECT_GT(roomy.ink.width(), 30);
    EXPECT_FALSE(roomy.isCut);
    EXPECT_TRUE(device.calls().at(1).isCut) << "wider than its rectangle";
}

TEST(RecordingDevice, SkipsTextsThatLeaveNoMark)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.drawText(QRectF(10, 20, 300, 40), CENTRED, QString());
        painter.setPen(Qt::NoPen);
        painter.drawText(QRectF(10, 20, 300, 40), CENTRED, QStringLiteral("unseen"));
    });
    EXPECT_EQ(seen, QStringList());
}

TEST(RecordingDevice, ReportsWhatItHasNoWordsFor)
{
    const QStringList seen = recorded([](QPainter& painter) {
        painter.drawEllipse(QRectF(0, 0, 5, 5));
        painter.setFont(font(16));
        painter.drawText(QPointF(5, 5), QStringLiteral("x"));
        painter.drawText(QRect(0, 0, 90, 90), CENTRED, QStringLiteral("x"));
    });
    EXPECT_EQ(seen,
              QStringList({QStringLiteral("other: ellipse"), QStringLiteral("other: glyphs outside a call of drawText"),
                           QStringLiteral("other: glyphs outside a call of drawText")}));
}

TEST(RecordingDevice, CallsBackForEveryMark)
{
    RecordingDevice device(QSize(800, 480));
    int marks = 0;
    device.whileDrawing = [&marks] { ++marks; };
    QPainter painter(&device);
    painter.setFont(font(16));
    painter.fillRect(QRectF(1, 2, 3, 4), Qt::red);
    painter.drawLine(QLineF(1, 2, 3, 4));
    painter.drawText(QRectF(10, 20, 300, 40), CENTRED, QStringLiteral("x"));
    painter.end();
    EXPECT_EQ(marks, 3);
}
