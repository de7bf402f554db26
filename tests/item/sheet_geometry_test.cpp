// Every rectangle of the sheet, as literal numbers.
#include "sheet_fixture.h"

#include <cmath>
#include <string>
#include <vector>

namespace {

struct Layout
{
    const char* name;
    // configuration
    QRectF frame;
    int titleHeight;
    int nameWidth;
    int rows;
    int columns;
    // expected
    QRectF data;
    QRectF title;
    QRectF numberColumn;
    QRectF nameColumn;
    QRectF horizontalBar;
    QRectF horizontalTrack;
    QRectF leftArrow;
    QRectF rightArrow;
    QRectF verticalBar;
    QRectF verticalTrack;
    QRectF upArrow;
    QRectF downArrow;
    QRectF corner;
    QRectF buttonBar;
    QRectF save;
    QRectF add;
    QRectF del;
    QRectF lastCell;
    QRectF lastTitle;
    QRectF numberHeader;
    QRectF nameHeader;
    QRectF lastNumber;
    QRectF lastName;
    QRectF firstStripe;
    QRectF lastStripe;
};

void PrintTo(const Layout& layout, std::ostream* out)
{
    *out << layout.name;
}

typedef QRectF R;

const std::vector<Layout> LAYOUTS = {
    {"SmallPanel",
     R(0, 0, 800, 480),
     40,
     120,
     10,
     5,
     R(170, 40, 600, 370),
     R(170, 0, 600, 40),
     R(0, 40, 50, 370),
     R(50, 40, 120, 370),
     R(0, 410, 770, 30),
     R(33, 410, 704, 30),
     R(0, 410, 30, 30),
     R(740, 410, 30, 30),
     R(770, 0, 30, 410),
     R(770, 33, 30, 344),
     R(770, 0, 30, 30),
     R(770, 380, 30, 30),
     R(770, 410, 30, 30),
     R(0, 440, 800, 40),
     R(5, 445, 80, 30),
     R(105, 445, 80, 30),
     R(205, 445, 80, 30),
     R(650, 373, 120, 37),
     R(650, 0, 120, 40),
     R(0, 0, 50, 40),
     R(50, 0, 120, 40),
     R(0, 373, 50, 37),
     R(50, 373, 120, 37),
     R(0, 40, 770, 37),
     R(0, 373, 770, 37)},
    {"LargePanelOffTheOrigin",
     R(10, 20, 1280, 800),
     50,
     200,
     20,
     10,
     R(260, 70, 1000, 680),
     R(260, 20, 1000, 50),
     R(10, 70, 50, 680),
     R(60, 70, 200, 680),
     R(10, 750, 1250, 30),
     R(43, 750, 1184, 30),
     R(10, 750, 30, 30),
     R(1230, 750, 30, 30),
     R(1260, 20, 30, 730),
     R(1260, 53, 30, 664),
     R(1260, 20, 30, 30),
     R(1260, 720, 30, 30),
     R(1260, 750, 30, 30),
     R(10, 780, 1280, 40),
     R(15, 785, 80, 30),
     R(115, 785, 80, 30),
     R(215, 785, 80, 30),
     R(1160, 716, 100, 34),
     R(1160, 20, 100, 50),
     R(10, 20, 50, 50),
     R(60, 20, 200, 50),
     R(10, 716, 50, 34),
     R(60, 716, 200, 34),
     R(10, 70, 1250, 34),
     R(10, 716, 1250, 34)},
    {"NoTitlesAndNoNamesLeftOfTheOrigin",
     R(-5, -7.5, 320, 240),
     0,
     0,
     4,
     2,
     R(45, -7.5, 240, 170),
     R(45, -7.5, 240, 0),
     R(-5, -7.5, 50, 170),
     R(45, -7.5, 0, 170),
     R(-5, 162.5, 290, 30),
     R(28, 162.5, 224, 30),
     R(-5, 162.5, 30, 30),
     R(255, 162.5, 30, 30),
     R(285, -7.5, 30, 170),
     R(285, 25.5, 30, 104),
     R(285, -7.5, 30, 30),
     R(285, 132.5, 30, 30),
     R(285, 162.5, 30, 30),
     R(-5, 192.5, 320, 40),
     R(0, 197.5, 80, 30),
     R(100, 197.5, 80, 30),
     R(200, 197.5, 80, 30),
     R(165, 120, 120, 42.5),
     R(165, -7.5, 120, 0),
     R(-5, -7.5, 50, 0),
     R(45, -7.5, 0, 0),
     R(-5, 120, 50, 42.5),
     R(45, 120, 0, 42.5),
     R(-5, -7.5, 290, 42.5),
     R(-5, 120, 290, 42.5)},
};

class SheetLayout : public SheetFixture, public testing::WithParamInterface<Layout>
{
protected:
    RecipeSheetItems& startLayout()
    {
        const Layout& l = GetParam();
        SheetProperties properties = SheetProperties::usual();
        properties.set("title_hight", l.titleHeight).set("name_width", l.nameWidth);
        properties.set("rows_num_page", l.rows).set("column_num_page", l.columns).set("use_diff_color", 1);
        return startFramedSheet(l.frame, properties);
    }
};

class SheetGeometry : public SheetFixture
{
};

} // namespace

TEST_P(SheetLayout, PlacesTheTable)
{
    const Layout& l = GetParam();
    RecipeSheetProbe probe(startLayout());
    EXPECT_EQ(probe.itemRect(), l.frame);
    EXPECT_EQ(probe.dataRect(), l.data);
    EXPECT_EQ(probe.titleDataRect(), l.title);
    EXPECT_EQ(probe.numberColumnRect(), l.numberColumn);
    EXPECT_EQ(probe.nameColumnRect(), l.nameColumn);
}

TEST_P(SheetLayout, PlacesTheScrollBars)
{
    const Layout& l = GetParam();
    RecipeSheetProbe probe(startLayout());
    EXPECT_EQ(probe.horizontalBarRect(), l.horizontalBar);
    EXPECT_EQ(probe.horizontalTrackRect(), l.horizontalTrack);
    EXPECT_EQ(probe.leftArrowRect(), l.leftArrow);
    EXPECT_EQ(probe.rightArrowRect(), l.rightArrow);
    EXPECT_EQ(probe.verticalBarRect(), l.verticalBar);
    EXPECT_EQ(probe.verticalTrackRect(), l.verticalTrack);
    EXPECT_EQ(probe.upArrowRect(), l.upArrow);
    EXPECT_EQ(probe.downArrowRect(), l.downArrow);
    EXPECT_EQ(probe.cornerRect(), l.corner);
}

TEST_P(SheetLayout, PlacesTheButtons)
{
    const Layout& l = GetParam();
    RecipeSheetProbe probe(startLayout());
    EXPECT_EQ(probe.buttonBarRect(), l.buttonBar);
    EXPECT_EQ(probe.saveButtonRect(), l.save);
    EXPECT_EQ(probe.addButtonRect(), l.add);
    EXPECT_EQ(probe.deleteButtonRect(), l.del);
}

TEST_P(SheetLayout, PlacesTheCells)
{
    const Layout& l = GetParam();
    RecipeSheetProbe probe(startLayout());
    EXPECT_EQ(probe.cellRect(0, 0).topLeft(), l.data.topLeft());
    EXPECT_EQ(probe.cellRect(l.columns - 1, l.rows - 1), l.lastCell);
    EXPECT_EQ(probe.titleCellRect(l.columns - 1), l.lastTitle);
    EXPECT_EQ(probe.numberHeaderRect(), l.numberHeader);
    EXPECT_EQ(probe.nameHeaderRect(), l.nameHeader);
    EXPECT_EQ(probe.numberCellRect(l.rows - 1), l.lastNumber);
    EXPECT_EQ(probe.nameCellRect(l.rows - 1), l.lastName);
    EXPECT_EQ(probe.displayCells().value(idx_t(l.columns - 1, l.rows - 1)).rect, l.lastCell);
}

TEST_P(SheetLayout, PlacesAStripePerRow)
{
    const Layout& l = GetParam();
    RecipeSheetProbe probe(startLayout());
    ASSERT_EQ(probe.stripeRects().size(), l.rows);
    EXPECT_EQ(probe.stripeRects().first(), l.firstStripe);
    EXPECT_EQ(probe.stripeRects().last(), l.lastStripe);
}

INSTANTIATE_TEST_SUITE_P(Each, SheetLayout, testing::ValuesIn(LAYOUTS),
                         [](const testing::TestParamInfo<Layout>& layout) { return std::string(layout.param.name); });

// --- thumbs ------------------------------------------------------------------------------------------------------

TEST_F(SheetGeometry, FillsBothTracksWithTheThumbsWhereEverythingFits)
{
    writeGroup(SheetGroup::ofSize(10, 5));
    RecipeSheetProbe probe(startSheet());
    EXPECT_EQ(probe.verticalThumbRect(), QRectF(775, 33, 20, 344));
    EXPECT_EQ(probe.horizontalThumbRect(), QRectF(33, 415, 704, 20));
}

TEST_F(SheetGeometry, SizesTheThumbsByTheShareOfThePage)
{
    writeGroup(SheetGroup::ofSize(40, 20));
    RecipeSheetProbe probe(startSheet());
    EXPECT_EQ(probe.verticalThumbRect(), QRectF(775, 33, 20, 86));
    EXPECT_EQ(probe.horizontalThumbRect(), QRectF(33, 415, 176, 20));
    EXPECT_EQ(probe.rowAxis().largestFirst, 30);
    EXPECT_EQ(probe.columnAxis().largestFirst, 15);
}

TEST_F(SheetGeometry, PlacesTheThumbsByTheFirstVisibleLines)
{
    writeGroup(SheetGroup::ofSize(40, 20));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.firstRow() = 10;
    probe.firstColumn() = 5;
    probe.dataMutex().lock();
    sheet.computeThumb();
    probe.dataMutex().unlock();
    EXPECT_EQ(probe.verticalThumbRect(), QRectF(775, 119, 20, 86));
    EXPECT_EQ(probe.horizontalThumbRect(), QRectF(209, 415, 176, 20));
}

// --- page sizes --------------------------------------------------------------------------------------------------

TEST_F(SheetGeometry, ShowsAtMostAHundredRowsOfTheConfiguredHeight)
{
    writeGroup(SheetGroup::ofSize(250, 8));
    RecipeSheetProbe probe(startSheet(SheetProperties::usual().set("rows_num_page", 150)));
    EXPECT_EQ(probe.visibleRows(), 100);
    EXPECT_DOUBLE_EQ(probe.cellHeight(), 370.0 / 150);
    EXPECT_EQ(probe.displayCells().size(), 5 * 100);
}

TEST_F(SheetGeometry, ShowsAtMostFiftyColumnsOfTheConfiguredWidth)
{
    writeGroup(SheetGroup::ofSize(12, 120));
    RecipeSheetProbe probe(startSheet(SheetProperties::usual().set("column_num_page", 60)));
    EXPECT_EQ(probe.visibleColumns(), 50);
    EXPECT_DOUBLE_EQ(probe.cellWidth(), 10.0);
    EXPECT_EQ(probe.displayCells().size(), 50 * 10);
}

TEST_F(SheetGeometry, HasStripesForTheConfiguredRowsNotForTheVisibleOnes)
{
    RecipeSheetProbe probe(startSheet(SheetProperties::usual().set("rows_num_page", 150).set("use_diff_color", 2)));
    EXPECT_EQ(probe.stripeRects().size(), 150);
}

TEST_F(SheetGeometry, HasNoStripesUnlessTheyAreAskedFor)
{
    EXPECT_TRUE(RecipeSheetProbe(startSheet()).stripeRects().isEmpty());
}

TEST_F(SheetGeometry, BoundsTheStripesOfAnAbsurdPage)
{
    RecipeSheetProbe probe(
        startSheet(SheetProperties::usual().set("rows_num_page", 2147483647).set("use_diff_color", 1)));
    EXPECT_EQ(probe.stripeRects().size(), 10000);
    EXPECT_EQ(probe.visibleRows(), 100);
}

TEST_F(SheetGeometry, ShowsNothingOnAPageOfNoSize)
{
    writeGroup(SheetGroup());
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", 0).set("column_num_page", 0).set("use_diff_color", 1);
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_EQ(probe.visibleRows(), 0);
    EXPECT_EQ(probe.visibleColumns(), 0);
    EXPECT_TRUE(std::isinf(probe.cellWidth()));
    EXPECT_TRUE(std::isinf(probe.cellHeight()));
    EXPECT_TRUE(probe.displayCells().isEmpty());
    EXPECT_TRUE(probe.stripeRects().isEmpty());
}

TEST_F(SheetGeometry, ShowsNothingOnAPageOfNegativeSize)
{
    writeGroup(SheetGroup());
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", -10).set("column_num_page", -5).set("use_diff_color", 1);
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_TRUE(probe.displayCells().isEmpty());
    EXPECT_TRUE(probe.stripeRects().isEmpty());
}
