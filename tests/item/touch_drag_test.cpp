// Dragging the thumbs of a sheet: both directions of the sheet go by the same rules.
#include "touch_events.h"

#include <string>

namespace {

/// One direction of the usual sheet.
struct Side
{
    const char* name;
    bool horizontal;
};

class Thumbs : public TouchFixture, public testing::WithParamInterface<Side>
{
protected:
    bool horizontal() const { return GetParam().horizontal; }

    /// So many lines along the direction, few across.
    RecipeSheetItems& startWith(int lines)
    {
        writeGroup(horizontal() ? SheetGroup::ofSize(12, lines) : SheetGroup::ofSize(lines, 8));
        SheetProperties properties = SheetProperties::usual();
        properties.set("rows_num_page", 10).set("column_num_page", horizontal() ? 10 : 5);
        // A track of 344 pixels in both directions.
        properties.set("width", 440).set("name_width", 120);
        return startSheet(properties);
    }

    ScrollAxis& axis(RecipeSheetProbe& probe) const { return horizontal() ? probe.columnAxis() : probe.rowAxis(); }
    int& first(RecipeSheetProbe& probe) const { return horizontal() ? probe.firstColumn() : probe.firstRow(); }
    int& selected(RecipeSheetProbe& probe) const { return horizontal() ? probe.selectedColumn() : probe.selectedRow(); }
    int& across(RecipeSheetProbe& probe) const { return horizontal() ? probe.selectedRow() : probe.selectedColumn(); }
    QPointF thumbCenter(RecipeSheetProbe& probe) const
    {
        return (horizontal() ? probe.horizontalThumbRect() : probe.verticalThumbRect()).center();
    }
    QPointF along(double distance) const { return horizontal() ? QPointF(distance, 0) : QPointF(0, distance); }
};

void PrintTo(const Side& side, std::ostream* out)
{
    *out << side.name;
}

std::string sideName(const testing::TestParamInfo<Side>& info)
{
    return info.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Both, Thumbs, testing::Values(Side{"Horizontal", true}, Side{"Vertical", false}), sideName);

TEST_P(Thumbs, HaveTheTrackThatTheseTestsCountWith)
{
    RecipeSheetProbe probe(startWith(100));
    EXPECT_DOUBLE_EQ(axis(probe).trackStart, 33.0);
    EXPECT_DOUBLE_EQ(axis(probe).trackLength, 344.0);
    EXPECT_DOUBLE_EQ(axis(probe).thumbLength, 34.4);
    EXPECT_DOUBLE_EQ(axis(probe).stepDistance, 3.44);
    EXPECT_DOUBLE_EQ(axis(probe).jumpDistance, 0.0);
    EXPECT_EQ(axis(probe).largestFirst, 90);
}

TEST_P(Thumbs, ScrollOneLinePerEventAndCarryTheSelectionAgainstTheScroll)
{
    RecipeSheetItems& sheet = startWith(100);
    RecipeSheetProbe probe(sheet);
    selected(probe) = 2;
    across(probe) = 1;
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    move(sheet, start + along(3.4));
    EXPECT_EQ(first(probe), 0) << "not more than one step";
    EXPECT_EQ(probe.lastDragPosition(), start);
    move(sheet, start + along(100));
    EXPECT_EQ(first(probe), 1);
    EXPECT_EQ(selected(probe), 1);
    EXPECT_EQ(across(probe), 1);
    EXPECT_DOUBLE_EQ(axis(probe).thumbStart, 33.0 + 3.44);
    EXPECT_EQ(probe.lastDragPosition(), start + along(100));
    move(sheet, start + along(96));
    EXPECT_EQ(first(probe), 0);
    EXPECT_EQ(selected(probe), 2);
    EXPECT_DOUBLE_EQ(axis(probe).thumbStart, 33.0);
    release(sheet, start);
    move(sheet, start + along(200));
    EXPECT_EQ(first(probe), 0) << "a thumb that is not held does not move";
}

TEST_P(Thumbs, AddUpSmallMovesUntilOneStepIsExceeded)
{
    RecipeSheetItems& sheet = startWith(100);
    RecipeSheetProbe probe(sheet);
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    QList<int> firstLines;
    for (int pixel = 1; pixel <= 12; ++pixel) {
        move(sheet, start + along(pixel));
        firstLines.append(first(probe));
    }
    // More than 3.44 pixels: at the 4th pixel, and each time counted from where the step was taken.
    EXPECT_EQ(firstLines, QList<int>({0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3}));
}

TEST_P(Thumbs, StopAtBothEnds)
{
    RecipeSheetItems& sheet = startWith(14);
    RecipeSheetProbe probe(sheet);
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    move(sheet, start + along(-300));
    EXPECT_EQ(first(probe), 0);
    EXPECT_EQ(probe.lastDragPosition(), start) << "no step, so the starting point stays";
    for (int i = 1; i <= 10; ++i)
        move(sheet, start + along(i * 40));
    EXPECT_EQ(first(probe), 4);
    EXPECT_DOUBLE_EQ(axis(probe).thumbEnd(), axis(probe).trackEnd());
    EXPECT_EQ(probe.lastDragPosition(), start + along(160)) << "the fourth step was the last";
}

TEST_P(Thumbs, DoNothingWhenAllFitsOnThePage)
{
    RecipeSheetItems& sheet = startWith(10);
    RecipeSheetProbe probe(sheet);
    EXPECT_DOUBLE_EQ(axis(probe).stepDistance, 0.0);
    EXPECT_DOUBLE_EQ(axis(probe).thumbLength, 344.0);
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    for (int distance : {200, -200, 400})
        move(sheet, start + along(distance));
    EXPECT_EQ(first(probe), 0);
    EXPECT_EQ(probe.lastDragPosition(), start);
}

TEST_P(Thumbs, JumpWhenTheyAreAtTheirSmallestSize)
{
    // 10 / (10 / 1000 * 344) = 2.9: 2 lines and 334 * 2 / 990 pixels per jump.
    RecipeSheetItems& sheet = startWith(1000);
    RecipeSheetProbe probe(sheet);
    const double jump = 0.67474747474747477;
    ASSERT_DOUBLE_EQ(axis(probe).jumpDistance, jump);
    ASSERT_DOUBLE_EQ(axis(probe).thumbLength, 10.0);
    selected(probe) = 3;
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    move(sheet, start + along(0.67));
    EXPECT_EQ(first(probe), 0);
    move(sheet, start + along(0.68));
    EXPECT_EQ(first(probe), 2);
    EXPECT_EQ(selected(probe), 1);
    EXPECT_DOUBLE_EQ(axis(probe).thumbStart, 33.0 + jump);
    move(sheet, start + along(100));
    EXPECT_EQ(first(probe), 4) << "one jump per event";
    EXPECT_EQ(selected(probe), -1) << "off the page";
    move(sheet, start);
    EXPECT_EQ(first(probe), 2);
    EXPECT_EQ(selected(probe), 1);
}

TEST_P(Thumbs, AreClampedByTheLastJumpAtBothEnds)
{
    RecipeSheetItems& sheet = startWith(1000);
    RecipeSheetProbe probe(sheet);
    first(probe) = 989;
    selected(probe) = 4;
    axis(probe).thumbStart = 300.0;
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    move(sheet, start + along(10));
    EXPECT_EQ(first(probe), 990);
    EXPECT_EQ(selected(probe), 3);
    EXPECT_DOUBLE_EQ(axis(probe).thumbStart, 367.0);
    EXPECT_EQ(probe.lastDragPosition(), start + along(10));
    move(sheet, start + along(30));
    EXPECT_EQ(first(probe), 990);
    EXPECT_EQ(probe.lastDragPosition(), start + along(10)) << "nothing changed";

    first(probe) = 1;
    axis(probe).thumbStart = 50.0;
    move(sheet, start + along(-20));
    EXPECT_EQ(first(probe), 0);
    EXPECT_EQ(selected(probe), 4);
    EXPECT_DOUBLE_EQ(axis(probe).thumbStart, 33.0);
    EXPECT_EQ(probe.lastDragPosition(), start + along(-20));
}

TEST_P(Thumbs, LoadWhatComesIntoView)
{
    RecipeSheetItems& sheet = startWith(1000);
    RecipeSheetProbe probe(sheet);
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    for (int i = 1; i <= 60; ++i)
        move(sheet, start + along(i));
    ASSERT_EQ(first(probe), 120);
    EXPECT_EQ(probe.cellText(0, 0), horizontal() ? latin1("120") : latin1("120000"));
    EXPECT_TRUE(sheet.isDataBlockLoaded(horizontal() ? 0 : 1, horizontal() ? 2 : 0));
    EXPECT_EQ(probe.selectedRect(), QRectF()) << "nothing is selected, so no rectangle follows";
}

TEST_P(Thumbs, MoveTheSelectedRectangleWithItsCellUntilItLeavesThePage)
{
    RecipeSheetItems& sheet = startWith(100);
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.cellRect(1, 1).center());
    ASSERT_EQ(probe.selectedRect(), probe.cellRect(1, 1));
    const QPointF start = thumbCenter(probe);
    press(sheet, start);
    move(sheet, start + along(4));
    EXPECT_EQ(probe.selectedRect(), horizontal() ? probe.cellRect(0, 1) : probe.cellRect(1, 0));
    move(sheet, start + along(8));
    EXPECT_EQ(probe.selectedRect(), QRectF());
    EXPECT_EQ(selected(probe), -1);
    move(sheet, start);
    EXPECT_EQ(selected(probe), 0);
    EXPECT_EQ(probe.selectedRect(), horizontal() ? probe.cellRect(0, 1) : probe.cellRect(1, 0));
}

using BothThumbs = TouchFixture;

TEST_F(BothThumbs, ServeTheHorizontalOneWhenBothAreHeld)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    press(sheet, probe.verticalThumbRect().center());
    press(sheet, probe.horizontalThumbRect().center());
    ASSERT_TRUE(probe.verticalThumb().held);
    ASSERT_TRUE(probe.horizontalThumb().held);
    move(sheet, probe.lastDragPosition() + QPointF(50, 50));
    EXPECT_EQ(probe.firstColumn(), 1);
    EXPECT_EQ(probe.firstRow(), 0);
    release(sheet, nowhere());
    EXPECT_FALSE(probe.verticalThumb().held);
    EXPECT_FALSE(probe.horizontalThumb().held);
}

TEST_F(BothThumbs, StartFromThePressedPointAndNotFromTheirMiddle)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QPointF corner = probe.horizontalThumbRect().topLeft();
    press(sheet, corner);
    EXPECT_EQ(probe.lastDragPosition(), corner);
    move(sheet, corner + QPointF(5, 0));
    EXPECT_EQ(probe.firstColumn(), 0);
    move(sheet, corner + QPointF(6, 0));
    EXPECT_EQ(probe.firstColumn(), 1);
}
