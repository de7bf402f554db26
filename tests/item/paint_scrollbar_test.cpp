// Thumbs, arrows and buttons: where they lie and what colour they have.
#include "paint_page.h"

namespace {

const QColor ARROW_PRESSED(122, 110, 122);
const QColor THUMB_PRESSED(180, 180, 180);
const QColor BUTTON_HELD(153, 196, 210);

} // namespace

class PaintedHandles : public SheetFixture
{
protected:
    RecipeSheetItems& startOnGroup(int items, int recipes)
    {
        group = SheetGroup::ofSize(items, recipes);
        writeGroup(group);
        return startSheet(properties);
    }

    /// Presses there, expects the page to have just that colour changed, releases and expects the usual page.
    void expectPressedColor(const QRectF& place, QColor ExpectedPage::*color, const QColor& pressed)
    {
        RecipeSheetItems& sheet = startOnGroup(250, 120);
        ExpectedPage page(properties, group);
        const QStringList usual = page.all();
        page.*color = pressed;
        press(sheet, place.center());
        EXPECT_TRUE(sameLines(painted(sheet), page.all()));
        EXPECT_FALSE(sameLines(page.all(), usual));
    }

    SheetProperties properties = SheetProperties::usual();
    SheetGroup group;
};

TEST_F(PaintedHandles, ShowThatTheLeftArrowIsHeld)
{
    expectPressedColor(QRectF(0, 410, 30, 30), &ExpectedPage::leftColor, ARROW_PRESSED);
}

TEST_F(PaintedHandles, ShowThatTheRightArrowIsHeld)
{
    expectPressedColor(QRectF(740, 410, 30, 30), &ExpectedPage::rightColor, ARROW_PRESSED);
}

TEST_F(PaintedHandles, ShowThatTheUpArrowIsHeld)
{
    expectPressedColor(QRectF(770, 0, 30, 30), &ExpectedPage::upColor, ARROW_PRESSED);
}

TEST_F(PaintedHandles, ShowThatTheDownArrowIsHeld)
{
    expectPressedColor(QRectF(770, 380, 30, 30), &ExpectedPage::downColor, ARROW_PRESSED);
}

TEST_F(PaintedHandles, ShowThatTheVerticalThumbIsHeld)
{
    expectPressedColor(QRectF(775, 33, 20, 13), &ExpectedPage::verticalThumbColor, THUMB_PRESSED);
}

TEST_F(PaintedHandles, ShowThatTheHorizontalThumbIsHeld)
{
    expectPressedColor(QRectF(33, 415, 20, 20), &ExpectedPage::horizontalThumbColor, THUMB_PRESSED);
}

TEST_F(PaintedHandles, ShowThatSaveIsHeld)
{
    expectPressedColor(QRectF(5, 445, 80, 30), &ExpectedPage::saveColor, BUTTON_HELD);
}

TEST_F(PaintedHandles, ShowThatAddIsHeld)
{
    expectPressedColor(QRectF(105, 445, 80, 30), &ExpectedPage::addColor, BUTTON_HELD);
}

TEST_F(PaintedHandles, ShowThatDeleteIsHeld)
{
    expectPressedColor(QRectF(205, 445, 80, 30), &ExpectedPage::deleteColor, BUTTON_HELD);
}

TEST_F(PaintedHandles, LookUsualAgainAfterTheRelease)
{
    RecipeSheetItems& sheet = startOnGroup(12, 8);
    const QStringList usual = painted(sheet);
    const QPointF places[] = {{15, 425}, {785, 15}, {785, 50}, {40, 425}, {45, 460}};
    for (const QPointF& place : places) {
        press(sheet, place);
        EXPECT_FALSE(sameLines(painted(sheet), usual));
        release(sheet, place);
        EXPECT_TRUE(sameLines(painted(sheet), usual)) << rectText(QRectF(place, QSizeF())).toStdString();
    }
}

// --- thumbs on the page ------------------------------------------------------------------------------------------

TEST_F(PaintedHandles, HaveThumbsAsLongAsThePageIsOfTheGroup)
{
    const QStringList seen = painted(startOnGroup(40, 20));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 775,33 20x86 pen none brush #fff0f0f0"))) << "10 of 40 on 344";
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 33,415 176x20 pen none brush #fff0f0f0"))) << "5 of 20 on 704";
}

TEST_F(PaintedHandles, HaveFullLengthThumbsWhereEverythingFitsExactly)
{
    const QStringList seen = painted(startOnGroup(10, 5));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 775,33 20x344 pen none brush #fff0f0f0")));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 33,415 704x20 pen none brush #fff0f0f0")));
}

TEST_F(PaintedHandles, HaveFullLengthThumbsWhereThePageIsLargerThanTheGroup)
{
    const QStringList seen = painted(startOnGroup(3, 1));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 775,33 20x344 pen none brush #fff0f0f0")));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 33,415 704x20 pen none brush #fff0f0f0")));
}

TEST_F(PaintedHandles, HaveAVerticalThumbOfTenPixelsAtLeast)
{
    const QStringList seen = painted(startOnGroup(700, 5));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 775,33 20x10 pen none brush #fff0f0f0"))) << "10 of 700 on 344";
}

TEST_F(PaintedHandles, HaveAHorizontalThumbOfTenPixelsAtLeast)
{
    const QStringList seen = painted(startOnGroup(5, 400));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 33,415 10x20 pen none brush #fff0f0f0"))) << "5 of 400 on 704";
}

TEST_F(PaintedHandles, HaveThumbsThatFollowTheScroll)
{
    RecipeSheetItems& sheet = startOnGroup(40, 20);
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.downArrowRect().center());
    tap(sheet, probe.rightArrowRect().center());
    tap(sheet, probe.rightArrowRect().center());
    const QStringList seen = painted(sheet);
    // One row: (1 - 10/40) * 344 / 30 = 8.6. Two recipes: 2 * (1 - 5/20) * 704 / 15 = 70.4.
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 775,41.6 20x86 pen none brush #fff0f0f0")));
    EXPECT_TRUE(seen.contains(QStringLiteral("rect 103.4,415 176x20 pen none brush #fff0f0f0")));
}

// --- the arithmetic ----------------------------------------------------------------------------------------------

struct ThumbCase
{
    int total;
    int page;
    int first;
    double track;
    // wanted
    double start; // from the beginning of the track
    double length;
    int largestFirst;
    double step;
    int jumpWidth;
    double jumpDistance;
};

void PrintTo(const ThumbCase& row, std::ostream* out)
{
    *out << row.page << " of " << row.total << " from " << row.first << " on " << row.track;
}

class ThumbArithmetic : public SheetFixture, public testing::WithParamInterface<ThumbCase>
{
};

TEST_P(ThumbArithmetic, IsTheSameForRowsAndColumns)
{
    const ThumbCase& row = GetParam();
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.itemCount() = probe.recipeCount() = row.total;
    probe.rowsPerPage() = probe.columnsPerPage() = row.page;
    probe.firstRow() = probe.firstColumn() = row.first;
    ScrollAxis* const axes[] = {&probe.rowAxis(), &probe.columnAxis()};
    int* const jumpWidths[] = {&probe.rowStep(), &probe.columnStep()};
    for (ScrollAxis* axis : axes) {
        axis->trackStart = 100;
        axis->trackLength = row.track;
        axis->stepDistance = 77;
    }
    sheet.computeThumb();
    for (int i = 0; i < 2; ++i) {
        EXPECT_NEAR(axes[i]->thumbStart, 100 + row.start, 1e-9);
        EXPECT_NEAR(axes[i]->thumbLength, row.length, 1e-9);
        EXPECT_EQ(axes[i]->largestFirst, row.largestFirst);
        EXPECT_NEAR(axes[i]->stepDistance, row.step, 1e-9);
        EXPECT_EQ(*jumpWidths[i], row.jumpWidth);
        EXPECT_NEAR(axes[i]->jumpDistance, row.jumpDistance, 1e-9);
    }
}

// total, page, first, track; start, length, largest first, step, jump width, jump distance
INSTANTIATE_TEST_SUITE_P(
    Rows, ThumbArithmetic,
    testing::Values(ThumbCase{1000, 10, 0, 200, 0, 10, 990, 0.2, 5, 190.0 * 5 / 990},
                    ThumbCase{1000, 10, 500, 200, 100, 10, 990, 0.2, 5, 190.0 * 5 / 990},
                    ThumbCase{1000, 15, 0, 200, 0, 10, 985, 0.2, 3, 190.0 * 3 / 985},
                    ThumbCase{1000, 45, 0, 200, 0, 10, 955, 0.2, 1, 190.0 / 955},
                    ThumbCase{200, 10, 0, 200, 0, 10, 190, 1, 1, 0}, ThumbCase{40, 10, 4, 344, 34.4, 86, 30, 8.6, 1, 0},
                    ThumbCase{11, 10, 1, 220, 20, 200, 1, 20, 1, 0}, ThumbCase{10, 10, 0, 200, 0, 200, 0, 0, 1, 0},
                    ThumbCase{3, 10, 0, 200, 0, 200, 0, 0, 1, 0}, ThumbCase{0, 10, 0, 200, 0, 200, 0, 0, 1, 0},
                    ThumbCase{1900, 120, 0, 344, 0, 120.0 / 1900 * 344, 1780, 344.0 / 1900, 1, 0}));

// Wanted: what a longer group left behind stays in force.
TEST_F(PaintedHandles, KeepTheJumpOfAThumbThatWasOnceAtItsSmallestSize)
{
    RecipeSheetItems& sheet = startOnGroup(12, 8);
    RecipeSheetProbe probe(sheet);
    probe.rowAxis().trackLength = 200;
    probe.itemCount() = 1000;
    sheet.computeThumb();
    const double distance = probe.rowAxis().jumpDistance;
    EXPECT_EQ(probe.rowStep(), 5);
    for (int items : {40, 3}) {
        probe.itemCount() = items;
        sheet.computeThumb();
        EXPECT_EQ(probe.rowStep(), 5);
        EXPECT_EQ(probe.rowAxis().jumpDistance, distance);
    }
    EXPECT_EQ(probe.rowAxis().thumbLength, 200);
}

// Page sizes and tracks of no size must not make numbers that nothing can be done with.
TEST_F(PaintedHandles, HaveAThumbAlsoForAPageOrATrackWithoutASize)
{
    RecipeSheetItems& sheet = startOnGroup(12, 8);
    RecipeSheetProbe probe(sheet);
    for (int page : {0, -7}) {
        for (double track : {200.0, 0.0, -40.0}) {
            probe.rowsPerPage() = page;
            probe.rowAxis().trackLength = track;
            sheet.computeThumb();
            EXPECT_EQ(probe.rowAxis().thumbLength, 10);
            EXPECT_EQ(probe.rowAxis().largestFirst, 12);
            EXPECT_GE(probe.rowStep(), 0);
            EXPECT_LE(probe.rowStep(), 12);
        }
    }
}
