// The panel's own time.
#include "panel_clock.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

TEST(ManualClock, StandsStillUntilItIsMoved)
{
    ManualClock clock;
    EXPECT_EQ(clock.now(), 0);
    clock.advance(40);
    EXPECT_EQ(clock.now(), 40);
    clock.advance(-10);
    EXPECT_EQ(clock.now(), 40);
}

TEST(ManualClock, MakesCallsInOrderOfTimeAndOfAsking)
{
    ManualClock clock;
    QObject context;
    std::string calls;
    clock.callLater(20, &context, [&]() { calls += "c" + std::to_string(clock.now()); });
    clock.callLater(10, &context, [&]() { calls += "a" + std::to_string(clock.now()); });
    clock.callLater(10, &context, [&]() { calls += "b" + std::to_string(clock.now()); });
    EXPECT_EQ(clock.untilNext(), 10);
    clock.advance(9);
    EXPECT_EQ(calls, "");
    clock.advance(11);
    EXPECT_EQ(calls, "a10b10c20");
    EXPECT_EQ(clock.untilNext(), -1);
}

TEST(ManualClock, MakesCallsThatCallsAskFor)
{
    ManualClock clock;
    QObject context;
    std::string calls;
    clock.callLater(10, &context, [&]() {
        calls += "a";
        clock.callLater(5, &context, [&]() { calls += "b" + std::to_string(clock.now()); });
        clock.callLater(50, &context, [&]() { calls += "never"; });
    });
    clock.advance(30);
    EXPECT_EQ(calls, "ab15");
    EXPECT_EQ(clock.now(), 30);
    EXPECT_EQ(clock.untilNext(), 30);
}

TEST(ManualClock, NeverCallsFromInsideTheRequest)
{
    ManualClock clock;
    QObject context;
    bool called = false;
    clock.callLater(-5, &context, [&]() { called = true; });
    EXPECT_FALSE(called);
    clock.advance(0);
    EXPECT_TRUE(called);
}

TEST(ManualClock, ForgetsTheCallsOfAnObjectThatIsGone)
{
    ManualClock clock;
    std::unique_ptr<QObject> context(new QObject);
    bool called = false;
    clock.callLater(5, context.get(), [&]() { called = true; });
    context.reset();
    EXPECT_EQ(clock.untilNext(), -1);
    clock.advance(10);
    EXPECT_FALSE(called);
}

TEST(WallClock, CallsFromTheEventLoop)
{
    WallClock clock;
    QObject context;
    bool called = false;
    clock.callLater(0, &context, [&]() { called = true; });
    EXPECT_FALSE(called);
    while (!called)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_GE(clock.now(), 0);
}
