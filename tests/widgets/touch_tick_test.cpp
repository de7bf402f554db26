// The ring that stands for a touch sound.
#include "touch_tick.h"

#include <gtest/gtest.h>

TEST(TouchTick, IsSeenAtItsPlaceForAMoment)
{
    ManualClock clock;
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    TouchTick tick(clock, 133, &parent);
    EXPECT_TRUE(tick.isHidden());

    tick.tick(QPoint(120, 80));
    EXPECT_TRUE(tick.isVisible());
    EXPECT_LE((tick.geometry().center() - QPoint(120, 80)).manhattanLength(), 2);
    clock.advance(TouchTick::DURATION - 1);
    EXPECT_TRUE(tick.isVisible());
    clock.advance(1);
    EXPECT_TRUE(tick.isHidden());
    EXPECT_EQ(tick.count(), 1);
}

TEST(TouchTick, FollowsTheLaterOfTwoTouches)
{
    ManualClock clock;
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    TouchTick tick(clock, 133, &parent);
    tick.tick(QPoint(50, 50));
    clock.advance(TouchTick::DURATION / 2);
    tick.tick(QPoint(300, 200));
    clock.advance(TouchTick::DURATION - 1);
    EXPECT_TRUE(tick.isVisible());
    EXPECT_TRUE(tick.geometry().contains(300, 200));
    clock.advance(1);
    EXPECT_TRUE(tick.isHidden());
}

TEST(TouchTick, LetsTouchesThrough)
{
    ManualClock clock;
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    TouchTick tick(clock, 133, &parent);
    tick.tick(QPoint(200, 150));
    EXPECT_EQ(parent.childAt(200, 150), nullptr);
    EXPECT_NE(parent.grab().toImage().pixelColor(200, 150), parent.grab().toImage().pixelColor(10, 10));
}
