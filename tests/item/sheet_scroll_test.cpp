// The arithmetic of one scroll bar, as rows of literal numbers.
#include "sheet_scroll.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

/// A track that starts at 33.
ScrollAxis axisOf(double trackLength)
{
    ScrollAxis axis;
    axis.trackStart = 33;
    axis.trackLength = trackLength;
    return axis;
}

} // namespace

TEST(ScrollAxis, StartsWithoutAnyDistance)
{
    const ScrollAxis axis;
    EXPECT_EQ(axis.stepDistance, 0.0);
    EXPECT_EQ(axis.jumpDistance, 0.0);
    EXPECT_EQ(axis.largestFirst, 0);
}

TEST(ScrollAxis, SizesAndPlacesTheThumb)
{
    struct Row
    {
        int total;
        int page;
        int first;
        double track;
        // expected
        double start;
        double length;
        int largestFirst;
        double step;
        int jumpWidth;
        double jump;
    };
    const std::vector<Row> rows = {
        // a thumb of more than the smallest size: jump width and distance are not touched
        {40, 10, 0, 344, 33, 86, 30, 8.6, 1, 0},
        {40, 10, 30, 344, 291, 86, 30, 8.6, 1, 0},
        {20, 5, 4, 704, 173.8, 176, 15, 35.2, 1, 0},
        {200, 10, 0, 200, 33, 10, 190, 1, 1, 0}, // 10 is not below 10
        // the smallest size
        {1000, 10, 0, 200, 33, 10, 990, 0.2, 5, 190.0 * 5 / 990},
        {1000, 10, 500, 200, 133, 10, 990, 0.2, 5, 190.0 * 5 / 990},
        {201, 10, 0, 200, 33, 10, 191, 200.0 / 201, 1, 190.0 / 191}, // length 9.95
        {4000, 10, 3990, 160, 192.6, 10, 3990, 0.04, 25, 150.0 * 25 / 3990},
        {2000, 5, 0, 704, 33, 10, 1995, 0.352, 5, 694.0 * 5 / 1995},
        // everything fits: the whole track, also from another place
        {10, 10, 0, 344, 33, 344, 0, 0, 1, 0},
        {3, 10, 2, 344, 33, 344, 0, 0, 1, 0},
        {0, 10, 0, 344, 33, 344, 0, 0, 1, 0},
        {0, 0, 0, 344, 33, 344, 0, 0, 1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.total << " lines, " << row.page << " a page, from " << row.first);
        ScrollAxis axis = axisOf(row.track);
        int jumpWidth = 1;
        axis.compute(row.total, row.page, row.first, jumpWidth);
        EXPECT_NEAR(axis.thumbStart, row.start, 1e-9);
        EXPECT_NEAR(axis.thumbLength, row.length, 1e-9);
        EXPECT_EQ(axis.largestFirst, row.largestFirst);
        EXPECT_NEAR(axis.stepDistance, row.step, 1e-9);
        EXPECT_EQ(jumpWidth, row.jumpWidth);
        EXPECT_NEAR(axis.jumpDistance, row.jump, 1e-9);
    }
}

/// Wanted: jumping stays in force once the thumb was at its smallest size.
TEST(ScrollAxis, KeepsTheJumpOfAnEarlierComputation)
{
    ScrollAxis axis = axisOf(200);
    int jumpWidth = 1;
    axis.compute(1000, 10, 0, jumpWidth);
    axis.compute(40, 10, 0, jumpWidth);
    EXPECT_EQ(jumpWidth, 5);
    EXPECT_NEAR(axis.jumpDistance, 190.0 * 5 / 990, 1e-9);
    EXPECT_NEAR(axis.thumbLength, 50, 1e-9);
    axis.compute(5, 10, 0, jumpWidth);
    EXPECT_EQ(jumpWidth, 5);
    EXPECT_NEAR(axis.jumpDistance, 190.0 * 5 / 990, 1e-9);
    EXPECT_EQ(axis.stepDistance, 0.0);
}

/// A track shorter than the smallest thumb has a jump like any other.
TEST(ScrollAxis, ComputesTheJumpOfAVeryShortTrack)
{
    ScrollAxis axis = axisOf(5);
    int jumpWidth = 1;
    axis.compute(1000, 1, 0, jumpWidth);
    EXPECT_EQ(jumpWidth, 2000);
    EXPECT_EQ(axis.thumbLength, 10.0);
}

/// Sizes that give no number: one jump spans everything, and nothing is undefined.
TEST(ScrollAxis, HasADefinedJumpWhereTheThumbHasNoLength)
{
    const struct
    {
        int page;
        double track;
    } cases[] = {{0, 200}, {-5, 200}, {10, 0}, {10, -66}, {10, std::nan("")}, {1, 1e-12}};
    for (const auto& c : cases) {
        ScrollAxis axis = axisOf(c.track);
        int jumpWidth = 1;
        axis.compute(1000, c.page, 0, jumpWidth);
        if (axis.thumbLength < 10.0 || axis.thumbLength == 10.0) {
            EXPECT_EQ(jumpWidth, 1000) << c.page << ", " << c.track;
        } else {
            EXPECT_EQ(jumpWidth, 1) << c.page << ", " << c.track;
        }
    }
}

// --- dragging ----------------------------------------------------------------------------------------------------

TEST(ScrollAxis, TakesOneStepPerDragBeyondTheStepDistance)
{
    struct Row
    {
        double delta;
        int first;
        // expected
        bool taken;
        int lines;
        double thumbMove;
    };
    const std::vector<Row> rows = {
        {8.6, 0, false, 0, 0}, // strictly more than a step
        {8.7, 0, true, 1, 8.6},    {100, 0, true, 1, 8.6}, {-8.7, 5, true, -1, -8.6}, {-100, 5, true, -1, -8.6},
        {-8.6, 5, false, 0, 0},    {0, 5, false, 0, 0},    {8.7, 29, true, 1, 8.6},   {8.7, 30, false, 0, 0},
        {-8.7, 1, true, -1, -8.6}, {-8.7, 0, false, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "by " << row.delta << " from " << row.first);
        ScrollAxis axis = axisOf(344);
        int jumpWidth = 1;
        axis.compute(40, 10, row.first, jumpWidth);
        const double start = axis.thumbStart;
        const ScrollAxis::Move move = axis.drag(row.delta, row.first, jumpWidth);
        EXPECT_EQ(move.taken, row.taken);
        EXPECT_EQ(move.lines, row.lines);
        EXPECT_NEAR(axis.thumbStart - start, row.thumbMove, 1e-9);
    }
}

TEST(ScrollAxis, TakesOneJumpPerDragOfAThumbAtItsSmallestSize)
{
    const double jump = 190.0 * 5 / 990;
    struct Row
    {
        double delta;
        int first;
        // expected
        bool taken;
        int lines;
        double thumbStart;
    };
    const auto at = [](int first) { return 33 + first / 1000.0 * 200; };
    const std::vector<Row> rows = {
        {jump, 0, false, 0, at(0)}, // strictly more than a jump
        {1, 0, true, 5, at(0) + jump},   {100, 0, true, 5, at(0) + jump}, {1, 985, true, 5, at(985) + jump},
        {1, 986, true, 4, at(986)}, // the rest; the thumb is beyond the end of the track already
        {1, 990, false, 0, at(990)},     {-jump, 100, false, 0, at(100)}, {-1, 100, true, -5, at(100) - jump},
        {-1, 5, true, -5, at(5) - jump}, {-1, 4, true, -4, 33},           {-1, 0, false, 0, 33},
        {0, 100, false, 0, at(100)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "by " << row.delta << " from " << row.first);
        ScrollAxis axis = axisOf(200);
        int jumpWidth = 1;
        axis.compute(1000, 10, row.first, jumpWidth);
        const ScrollAxis::Move move = axis.drag(row.delta, row.first, jumpWidth);
        EXPECT_EQ(move.taken, row.taken);
        EXPECT_EQ(move.lines, row.lines);
        EXPECT_NEAR(axis.thumbStart, row.thumbStart, 1e-9);
    }
}

TEST(ScrollAxis, EndsAtTheEndsOfTheTrackAfterAWholeDrag)
{
    ScrollAxis axis = axisOf(200);
    int jumpWidth = 1;
    axis.compute(1003, 10, 0, jumpWidth); // 198 jumps of 5, and 3 lines more
    int first = 0;
    int steps = 0;
    for (ScrollAxis::Move move = axis.drag(1, first, jumpWidth); move.taken; move = axis.drag(1, first, jumpWidth)) {
        first += move.lines;
        ++steps;
    }
    EXPECT_EQ(first, 993);
    EXPECT_EQ(steps, 199);
    EXPECT_NEAR(axis.thumbStart, 223, 1e-9);
    for (ScrollAxis::Move move = axis.drag(-1, first, jumpWidth); move.taken; move = axis.drag(-1, first, jumpWidth))
        first += move.lines;
    EXPECT_EQ(first, 0);
    EXPECT_NEAR(axis.thumbStart, 33, 1e-9);
}

TEST(ScrollAxis, NeverMovesWhereEverythingFits)
{
    ScrollAxis axis = axisOf(344);
    int jumpWidth = 1;
    axis.compute(10, 10, 0, jumpWidth);
    for (const double delta : {500.0, -500.0}) {
        const ScrollAxis::Move move = axis.drag(delta, 0, jumpWidth);
        EXPECT_FALSE(move.taken);
        EXPECT_EQ(axis.thumbStart, 33.0);
    }
}
