// The arithmetic of one scroll bar, as rows of numbers.
#include "sheet_scroll.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Bar
{
    int total;
    int page;
    double trackStart;
    double trackLength;
};

// 2 pixels per line, thumb 20 long, largest first line 40.
const Bar BY_LINE = {50, 10, 33, 100};
// The thumb at its smallest size: 2 lines and 8 pixels per jump, largest first line 25, track from 33 to 143.
const Bar BY_JUMP = {26, 1, 33, 110};
// Everything on one page.
const Bar FIXED = {10, 10, 33, 100};

struct Row
{
    const char* name;
    Bar bar;
    int first;
    double thumb;
    double delta;
    bool taken;
    int lines;
    double thumbAfter;
};

ScrollAxis axisOf(const Bar& bar, int first, int& jumpWidth)
{
    ScrollAxis axis;
    axis.trackStart = bar.trackStart;
    axis.trackLength = bar.trackLength;
    axis.compute(bar.total, bar.page, first, jumpWidth);
    return axis;
}

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

std::string rowName(const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

class DragOfAThumb : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(DragOfAThumb, MovesThumbAndPage)
{
    const Row& row = GetParam();
    int jumpWidth = 1;
    ScrollAxis axis = axisOf(row.bar, row.first, jumpWidth);
    axis.thumbStart = row.thumb;
    const ScrollAxis::Move move = axis.drag(row.delta, row.first, jumpWidth);
    EXPECT_EQ(move.taken, row.taken);
    EXPECT_EQ(move.lines, row.lines);
    EXPECT_DOUBLE_EQ(axis.thumbStart, row.thumbAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DragOfAThumb,
    testing::Values(Row{"OneLineNeedsMoreThanOneStep", BY_LINE, 0, 33, 2.0, false, 0, 33},
                    Row{"OneLineForward", BY_LINE, 0, 33, 2.5, true, 1, 35},
                    Row{"OneLineForwardHoweverFarThePointer", BY_LINE, 5, 43, 500, true, 1, 45},
                    Row{"OneLineBackNeedsMoreThanOneStep", BY_LINE, 5, 43, -2.0, false, 0, 43},
                    Row{"OneLineBack", BY_LINE, 5, 43, -2.5, true, -1, 41},
                    Row{"OneLineBackToTheFirst", BY_LINE, 1, 35, -2.5, true, -1, 33},
                    Row{"NoLineBeforeTheFirst", BY_LINE, 0, 33, -50, false, 0, 33},
                    Row{"OneLineForwardToTheLast", BY_LINE, 39, 111, 2.5, true, 1, 113},
                    Row{"NoLineBehindTheLast", BY_LINE, 40, 113, 50, false, 0, 113},
                    Row{"NoLineForwardFromBehindTheLast", BY_LINE, 43, 119, 50, false, 0, 119},
                    Row{"NoLineBackFromFarBehindTheLast", BY_LINE, 43, 119, -50, false, 0, 119},
                    Row{"OneLineBackFromJustBehindTheLast", BY_LINE, 41, 115, -50, true, -1, 113},
                    Row{"NothingWithoutAMove", BY_LINE, 5, 43, 0, false, 0, 43},
                    Row{"JumpNeedsMoreThanOneJump", BY_JUMP, 0, 33, 8.0, false, 0, 33},
                    Row{"JumpForward", BY_JUMP, 0, 33, 8.5, true, 2, 41},
                    Row{"JumpForwardHoweverFarThePointer", BY_JUMP, 4, 49, 500, true, 2, 57},
                    Row{"JumpForwardToTheLast", BY_JUMP, 23, 120, 9, true, 2, 128},
                    Row{"ClampAtTheFarEnd", BY_JUMP, 24, 129, 9, true, 1, 133},
                    Row{"ClampAtTheFarEndLeavesAThumbThatIsThere", BY_JUMP, 24, 134.5, 9, true, 1, 134.5},
                    Row{"ThumbAloneGoesToTheFarEnd", BY_JUMP, 25, 120, 9, false, 0, 133},
                    Row{"NothingAtTheFarEnd", BY_JUMP, 25, 133, 9, false, 0, 133},
                    Row{"NothingFarBehindTheEnd", BY_JUMP, 30, 150, 9, false, 0, 150},
                    Row{"JumpBackNeedsMoreThanOneJump", BY_JUMP, 4, 49, -8.0, false, 0, 49},
                    Row{"JumpBack", BY_JUMP, 4, 49, -8.5, true, -2, 41},
                    Row{"JumpBackToTheFirst", BY_JUMP, 2, 50, -8.5, true, -2, 42},
                    Row{"ClampAtTheNearEnd", BY_JUMP, 1, 40, -9, true, -1, 33},
                    Row{"ClampAtTheNearEndLeavesAThumbThatIsThere", BY_JUMP, 1, 33, -9, true, -1, 33},
                    Row{"ThumbAloneGoesToTheNearEnd", BY_JUMP, 0, 40, -9, false, 0, 33},
                    Row{"NothingAtTheNearEnd", BY_JUMP, 0, 33, -9, false, 0, 33},
                    Row{"JumpBackFromFarBehindTheEnd", BY_JUMP, 30, 150, -9, true, -2, 142},
                    Row{"NoJumpWithoutAMove", BY_JUMP, 4, 49, 0, false, 0, 49},
                    Row{"NothingForwardWhenAllFits", FIXED, 0, 33, 50, false, 0, 33},
                    Row{"NothingBackWhenAllFits", FIXED, 0, 33, -50, false, 0, 33}),
    rowName);

TEST(ScrollAxis, KeepsAJumpDistanceOnceItHasOneAlsoWhenTheThumbGrowsAgain)
{
    int jumpWidth = 1;
    ScrollAxis axis = axisOf(BY_JUMP, 0, jumpWidth);
    ASSERT_EQ(jumpWidth, 2);
    ASSERT_DOUBLE_EQ(axis.jumpDistance, 8.0);
    axis.compute(5, 1, 0, jumpWidth);
    EXPECT_EQ(jumpWidth, 2);
    EXPECT_DOUBLE_EQ(axis.jumpDistance, 8.0);
    EXPECT_DOUBLE_EQ(axis.thumbLength, 22.0);
    const ScrollAxis::Move move = axis.drag(9, 0, jumpWidth);
    EXPECT_TRUE(move.taken);
    EXPECT_EQ(move.lines, 2);
    EXPECT_DOUBLE_EQ(axis.thumbStart, 41.0);
}

TEST(ScrollAxis, HasAJumpOfFiveLinesForAThousandLinesOnTwoHundredPixels)
{
    int jumpWidth = 1;
    const ScrollAxis axis = axisOf(Bar{1000, 10, 0, 200}, 0, jumpWidth);
    EXPECT_EQ(jumpWidth, 5);
    EXPECT_DOUBLE_EQ(axis.thumbLength, 10.0);
    EXPECT_DOUBLE_EQ(axis.jumpDistance, 190.0 * 5 / 990);
    EXPECT_EQ(axis.largestFirst, 990);
}
