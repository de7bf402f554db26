// Messages to the operator: which are seen, in which order, and how long.
#include "notices.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Notice : public testing::Test
{
protected:
    void SetUp() override
    {
        parent.resize(800, 480);
        parent.show();
    }

    void post(const char* text, qint64 duration) { notices.post(QString::fromUtf8(text), duration); }
    std::string visible() const { return notices.visible().join(QLatin1Char('|')).toStdString(); }
    void touch(int index)
    {
        QTest::mouseClick(&notices, Qt::LeftButton, Qt::NoModifier, notices.noticeRect(index).center());
    }

    ManualClock clock;
    QWidget parent;
    Notices notices{clock, QRect(0, 0, 800, 480), 133, &parent};
};

} // namespace

TEST_F(Notice, AppearsAndGoesAwayByTheClock)
{
    EXPECT_TRUE(notices.isHidden());
    post("save successful", 2000);
    EXPECT_TRUE(notices.isVisible());
    clock.advance(1999);
    EXPECT_EQ(visible(), "save successful");
    clock.advance(1);
    EXPECT_EQ(visible(), "");
    EXPECT_TRUE(notices.isHidden());
}

TEST_F(Notice, ShowsTheNewestOnTop)
{
    post("first", 5000);
    post("second", 5000);
    EXPECT_EQ(visible(), "second|first");
    EXPECT_LT(notices.noticeRect(0).bottom(), notices.noticeRect(1).top());
}

TEST_F(Notice, WaitsForRoomWithTheRestOfItsTime)
{
    post("a", 1000);
    clock.advance(400);
    post("b", 5000);
    post("c", 5000);
    post("d", 5000);
    EXPECT_EQ(visible(), "d|c|b");
    EXPECT_EQ(notices.waiting(), 1);
    clock.advance(5000);
    EXPECT_EQ(visible(), "a");
    clock.advance(599);
    EXPECT_EQ(visible(), "a");
    clock.advance(1);
    EXPECT_EQ(visible(), "");
}

TEST_F(Notice, LeavesEachAtItsOwnTime)
{
    post("long", 3000);
    clock.advance(500);
    post("short", 1000);
    clock.advance(1000);
    EXPECT_EQ(visible(), "long");
    clock.advance(1499);
    EXPECT_EQ(visible(), "long");
    clock.advance(1);
    EXPECT_EQ(visible(), "");
}

TEST_F(Notice, GoesAwayAtATouch)
{
    QSignalSpy dismissed(&notices, &Notices::dismissed);
    post("a", 5000);
    post("b", 5000);
    touch(1);
    EXPECT_EQ(visible(), "b");
    ASSERT_EQ(dismissed.size(), 1);
    EXPECT_EQ(dismissed.first().first().toString().toStdString(), "a");
    touch(0);
    EXPECT_TRUE(notices.isHidden());
    clock.advance(10000);
    EXPECT_EQ(dismissed.size(), 2);
}

TEST_F(Notice, StaysWhenAFingerSlidesToAnotherOne)
{
    post("a", 5000);
    post("b", 5000);
    QTest::mousePress(&notices, Qt::LeftButton, Qt::NoModifier, notices.noticeRect(0).center());
    QTest::mouseRelease(&notices, Qt::LeftButton, Qt::NoModifier, notices.noticeRect(1).center());
    EXPECT_EQ(visible(), "b|a");
}

TEST_F(Notice, IsLargeEnoughForAFingerAndInsideItsArea)
{
    post("ok", 5000);
    EXPECT_GE(notices.noticeRect(0).height() * 25.4 / 133, 9.0);
    post("a message that is so long that it needs more than one line on a panel of this size, and even more words",
         5000);
    EXPECT_GT(notices.noticeRect(0).height(), notices.noticeRect(1).height());
    EXPECT_TRUE(parent.rect().contains(notices.geometry()));
}

TEST_F(Notice, IsShownLongerTheLongerItsText)
{
    EXPECT_EQ(Notices::readingTime(QString()), 2500);
    EXPECT_EQ(Notices::readingTime(QStringLiteral("save successful")), 3400);
    EXPECT_EQ(Notices::readingTime(QString(1000, QLatin1Char('x'))), 10000);
    post("save successful", -1);
    clock.advance(3399);
    EXPECT_EQ(visible(), "save successful");
    clock.advance(1);
    EXPECT_EQ(visible(), "");
}

TEST_F(Notice, FloodKeepsTheNewest)
{
    for (int i = 0; i < 1000; ++i)
        notices.post(QString::number(i), 1000);
    EXPECT_EQ(visible(), "999|998|997");
    EXPECT_EQ(notices.waiting(), 47);
    notices.clear();
    EXPECT_EQ(visible(), "");
}

namespace {

class CountingClock : public ManualClock
{
public:
    void callLater(qint64 delay, QObject* context, std::function<void()> call) override
    {
        ++appointments;
        ManualClock::callLater(delay, context, std::move(call));
    }

    int appointments = 0;
};

} // namespace

TEST_F(Notice, AsksTheClockOnceForEachThatComesOrGoes)
{
    CountingClock counting;
    Notices others(counting, QRect(0, 0, 800, 480), 133, &parent);
    for (int i = 0; i < 10; ++i)
        others.post(QString::number(i), 1000 + i);
    while (counting.untilNext() >= 0)
        counting.advance(counting.untilNext());
    EXPECT_TRUE(others.isHidden());
    EXPECT_LE(counting.appointments, 20);
}

TEST_F(Notice, OfTheSameScriptLooksTheSame)
{
    post("add success", 2000);
    clock.advance(700);
    const QImage once = parent.grab().toImage();
    clock.advance(700);
    EXPECT_EQ(parent.grab().toImage(), once);
}

TEST_F(Notice, LetsTouchesBesideItThrough)
{
    post("ok", 5000);
    EXPECT_EQ(parent.childAt(5, 5), nullptr);
    EXPECT_EQ(parent.childAt(400, 400), nullptr);
    EXPECT_EQ(parent.childAt(notices.geometry().center()), &notices);
}
