// Taps on cells and titles, and selection by the recipe-index register.
#include "touch_events.h"

#include "RecipeDB.h"
#include "sqlite_errors.h"

#include <cmath>

namespace {

class Taps : public TouchFixture
{
protected:
    Taps() { writeGroup(SheetGroup::ofSize(250, 120)); }

    QStringList openKeyboards()
    {
        settle();
        return requests.functions();
    }
};

class SelectCol : public Taps
{
};

class SameRectangle : public Taps
{
};

} // namespace

// --- cells -------------------------------------------------------------------------------------------------------

TEST_F(Taps, OnACellSelectItAndPublishGroupThenRecipe)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.firstColumn() = 13;
    probe.groupIndex() = 2;
    listen();
    press(sheet, cell(4, 7));
    EXPECT_EQ(probe.selectedColumn(), 4);
    EXPECT_EQ(probe.selectedRow(), 7);
    EXPECT_EQ(probe.selectedRect(), probe.cellRect(4, 7));
    EXPECT_EQ(seen.log, QStringList({latin1("w LW60802 0>2"), latin1("w LW60803 0>17")}));
    probe.groupIndex() = 0;
    EXPECT_EQ(openKeyboards(), QStringList());
}

TEST_F(Taps, TwiceOnACellOpenTheKeyboardOnTheSecondPress)
{
    RecipeSheetItems& sheet = startSheet();
    tap(sheet, cell(2, 3));
    EXPECT_EQ(openKeyboards(), QStringList());
    listen();
    press(sheet, cell(2, 3) + QPointF(20, 5));
    EXPECT_EQ(seen.log, QStringList()) << "a second tap publishes nothing";
    registers().setListener(nullptr);
    EXPECT_EQ(openKeyboards(), QStringList(latin1("showKeyboardWindow")));
    tap(sheet, cell(2, 3));
    EXPECT_EQ(openKeyboards().size(), 2) << "a third tap again";
}

TEST_F(Taps, OnAnotherCellMoveTheSelectionAndEditNothing)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(0, 0));
    tap(sheet, cell(1, 0));
    tap(sheet, cell(0, 0));
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(openKeyboards(), QStringList());
}

TEST_F(Taps, OnACellThatWasScrolledToTheSamePlaceSelectTheNewCell)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(1, 1));
    click(sheet, downArrow());
    sheet.refresh_displayInfo();
    tap(sheet, cell(1, 1));
    EXPECT_EQ(probe.selectedRow(), 1);
    EXPECT_EQ(openKeyboards(), QStringList());
    tap(sheet, cell(1, 1));
    EXPECT_EQ(openKeyboards().size(), 1);
}

TEST_F(Taps, OnTheLineBetweenCellsSelectEachAndTheLastStays)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    listen();
    press(sheet, QPointF(170 + 120, 40 + 37)); // the corner of four cells, walked by column, then by row
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(probe.selectedRow(), 1);
    EXPECT_EQ(probe.selectedRect(), probe.cellRect(1, 1));
    EXPECT_EQ(seen.log, QStringList({latin1("w LW60802 0>0"), latin1("w LW60803 0>0"), latin1("w LW60802 0>0"),
                                     latin1("w LW60803 0>0"), latin1("w LW60802 0>0"), latin1("w LW60803 0>1"),
                                     latin1("w LW60802 0>0"), latin1("w LW60803 1>1")}));
}

TEST_F(Taps, OnTheLineBesideTheSelectedCellDependOnTheOrderOfTheWalk)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QPointF line(170 + 120, 40 + 18);
    // The later one is selected: the earlier one is selected first, so nothing is a second tap.
    tap(sheet, line);
    tap(sheet, line);
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(openKeyboards(), QStringList());
    // The earlier one is selected: a second tap, and its neighbour gets no part of it.
    tap(sheet, cell(0, 0));
    tap(sheet, line);
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(openKeyboards(), QStringList(latin1("showKeyboardWindow")));
}

TEST_F(Taps, OnTheOuterLinesOfTheDataAreaCount)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, QPointF(770, 300));
    EXPECT_EQ(probe.selectedColumn(), 4);
    EXPECT_EQ(probe.selectedRow(), 7);
    tap(sheet, QPointF(300, 410));
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(probe.selectedRow(), 9);
    tap(sheet, QPointF(170, 40));
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(probe.selectedRow(), -1) << "on the line to the titles the title is dealt with last";
}

TEST_F(Taps, OutsideTheVisibleCellsOfAClampedPageSelectNothing)
{
    // 150 rows a page show 100; the rest of the area holds no cells.
    RecipeSheetItems& sheet = startSheet(SheetProperties::usual().set("rows_num_page", 150));
    RecipeSheetProbe probe(sheet);
    tap(sheet, QPointF(200, 400));
    EXPECT_EQ(probe.selectedRow(), -32768);
    EXPECT_EQ(requests.sounds.size(), 1u);
}

TEST_F(Taps, StopAtCellsThatAreNoLongerPartOfThePage)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.visibleColumns() = 3;
    tap(sheet, cell(4, 0));
    EXPECT_EQ(probe.selectedColumn(), -32768);
    probe.visibleColumns() = 5;
    probe.visibleRows() = 3;
    tap(sheet, cell(0, 5));
    EXPECT_EQ(probe.selectedColumn(), -32768);
}

TEST_F(Taps, TwiceBelowTheLastItemOpenNoKeyboard)
{
    writeGroup(SheetGroup::ofSize(3, 120));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    doubleTap(sheet, cell(0, 3));
    EXPECT_EQ(probe.selectedRow(), 3) << "selected it is";
    EXPECT_EQ(openKeyboards(), QStringList());
    doubleTap(sheet, cell(0, 2));
    EXPECT_EQ(openKeyboards().size(), 1);
}

TEST_F(Taps, TwiceBehindTheLastRecipeOpenTheKeyboardOfTheItem)
{
    writeGroup(SheetGroup::ofSize(12, 2));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    doubleTap(sheet, cell(3, 1));
    EXPECT_EQ(openKeyboards().size(), 1);
    EXPECT_EQ(probe.keyboard().currentText, QString());
    EXPECT_EQ(registers().word(latin1("LW"), 60803), 3);
}

TEST_F(Taps, OnTheErrorViewDoNoHarm)
{
    runSql(latin1("DROP TABLE recipe_config; DROP TABLE data_0; DROP TABLE addr_0;"));
    RecipeDB::release();
    SqliteErrors errors;
    RecipeSheetItems& sheet = startSheet();
    ASSERT_EQ(RecipeSheetProbe(sheet).cellText(0, 0), latin1("ERROR"));
    doubleTap(sheet, cell(0, 0));
    doubleTap(sheet, cell(3, 3));
    doubleTap(sheet, title(0));
    sheet.keyboardReflash(latin1("7"));
    click(sheet, rightArrow());
    click(sheet, downArrow());
    EXPECT_EQ(openKeyboards(), QStringList(latin1("showKeyboardWindow"))) << "the title's";
}

TEST_F(Taps, WithoutACommunicationInterfacePublishNothing)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe(sheet).comm() = nullptr;
    listen();
    tap(sheet, cell(3, 1));
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 3);
    EXPECT_EQ(seen.log, QStringList());
}

// --- titles ------------------------------------------------------------------------------------------------------

TEST_F(Taps, OnATitleSelectItAndPublishItsRecipe)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    click(sheet, rightArrow(), 2);
    listen();
    press(sheet, title(3));
    EXPECT_EQ(probe.selectedColumn(), 3);
    EXPECT_EQ(probe.selectedRow(), -1);
    EXPECT_EQ(probe.selectedRect(), QRectF(170 + 360, 0, 120, 40));
    EXPECT_EQ(seen.log, QStringList({latin1("w LW60802 0>0"), latin1("w LW60803 0>5")}));
    press(sheet, title(3));
    registers().setListener(nullptr);
    EXPECT_EQ(openKeyboards(), QStringList(latin1("showKeyboardWindow")));
}

TEST_F(Taps, OnTheLineBetweenTitlesSelectBothInTurn)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QPointF line(170 + 240, 10);
    tap(sheet, line);
    EXPECT_EQ(probe.selectedColumn(), 2);
    tap(sheet, line);
    EXPECT_EQ(probe.selectedColumn(), 2);
    EXPECT_EQ(openKeyboards(), QStringList());
    tap(sheet, title(1));
    tap(sheet, line);
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(openKeyboards().size(), 1);
}

TEST_F(Taps, OnATitleAfterScrollingSelectItAgain)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, title(1));
    click(sheet, rightArrow());
    EXPECT_EQ(probe.selectedRect(), QRectF()) << "a title is no cell: scrolling leaves no rectangle";
    tap(sheet, title(0));
    EXPECT_EQ(openKeyboards(), QStringList());
    EXPECT_EQ(probe.selectedColumn(), 0);
}

TEST_F(Taps, OnTitlesWithoutAVisibleColumnDoNothing)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.visibleColumns() = 0;
    tap(sheet, title(0));
    EXPECT_EQ(probe.selectedRow(), -32768);
}

TEST_F(Taps, ScrollARowZeroSelectionIntoTheTitle)
{
    // Row -1 says "title". A cell of the first row that is scrolled up by one line says so too; wanted.
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(2, 0));
    click(sheet, downArrow());
    EXPECT_EQ(probe.selectedRow(), -1);
    sheet.keyboardReflash(latin1("renamed"));
    EXPECT_EQ(probe.editedList(), QList<int>({2}));
    EXPECT_TRUE(probe.editedCells().isEmpty());
}

// --- the comparison of rectangles --------------------------------------------------------------------------------

namespace {

/// Whether a tap on title 1 of a sheet counts as a second one when `selected` is the selected rectangle.
bool isSecondTap(RecipeSheetItems& sheet, RecordedRequests& requests, const QRectF& selected)
{
    RecipeSheetProbe probe(sheet);
    probe.selectedRect() = selected;
    probe.selectedColumn() = 1;
    probe.selectedRow() = -1;
    requests.clear();
    sheet.deal_title_press(QPointF(350, 20));
    QCoreApplication::processEvents();
    return !requests.calls.empty();
}

} // namespace

TEST_F(SameRectangle, IsOneWithinAHundredThousandthOfTheSmallerCoordinate)
{
    RecipeSheetItems& sheet = startSheet();
    const QRectF title(290, 0, 120, 40); // allowed: 0.0029, 0, 0.0012, 0.0004
    EXPECT_TRUE(isSecondTap(sheet, requests, title));
    EXPECT_TRUE(isSecondTap(sheet, requests, title.translated(0.0028, 0)));
    EXPECT_TRUE(isSecondTap(sheet, requests, title.translated(-0.0028, 0)));
    EXPECT_FALSE(isSecondTap(sheet, requests, title.translated(0.0031, 0)));
    EXPECT_FALSE(isSecondTap(sheet, requests, title.translated(-0.0031, 0)));
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290, 0, 120.0011, 40)));
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF(290, 0, 120.0014, 40)));
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290, 0, 120, 40.00038)));
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF(290, 0, 120, 40.00042)));
}

TEST_F(SameRectangle, HasAZeroOnlyWhereTheOtherHasOne)
{
    RecipeSheetItems& sheet = startSheet();
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290, 0.0, 120, 40)));
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290, -0.0, 120, 40)));
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF(290, 1e-6, 120, 40)));
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF(290, -1e-30, 120, 40)));
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF()));
}

TEST_F(SameRectangle, IsComparedInSinglePrecision)
{
    // Differences that only a double can hold do not count: both are the same float.
    RecipeSheetItems& sheet = startSheet();
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290, 1e-60, 120, 40))) << "no float is that small but zero";
    EXPECT_TRUE(isSecondTap(sheet, requests, QRectF(290 + 1e-9, 0, 120 - 1e-9, 40)));
    // 40.0004 as a float is 40.00040054...: further away than 0.00001 * 40, though the double is not.
    ASSERT_GT(std::fabs(40.0004f - 40.0f), 0.00001f * 40.0f);
    EXPECT_FALSE(isSecondTap(sheet, requests, QRectF(290, 0, 120, 40.0004)));
}

TEST_F(SameRectangle, HoldsForFramesThatDoNotStartAtZeroAndForCellsOfBrokenSize)
{
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", 7).set("column_num_page", 11).set("title_hight", 33).set("name_width", 77);
    FramedSheet& sheet = startFramedSheet(QRectF(-431.7, 13.3, 793, 451), properties);
    RecipeSheetProbe probe(sheet);
    for (int c = 0; c < 11; ++c) {
        for (int r = 0; r < 7; ++r) {
            requests.clear();
            doubleTap(sheet, probe.cellRect(c, r).center());
            ASSERT_EQ(openKeyboards().size(), 1) << "cell " << c << ", " << r;
        }
        requests.clear();
        doubleTap(sheet, probe.titleCellRect(c).center());
        ASSERT_EQ(openKeyboards().size(), 1) << "title " << c;
    }
}

// --- selectCol ---------------------------------------------------------------------------------------------------

TEST_F(SelectCol, OfAVisibleRecipeOnlyMovesTheSelection)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(0, 2));
    click(sheet, rightArrow(), 2);
    const QRectF before = probe.selectedRect();
    sheet.selectCol(6);
    EXPECT_EQ(probe.firstColumn(), 2);
    EXPECT_EQ(probe.selectedColumn(), 4);
    EXPECT_EQ(probe.selectedRow(), 2);
    EXPECT_EQ(probe.selectedRect(), before) << "the rectangle is left as it is";
    EXPECT_TRUE(probe.needsRepaint());
}

TEST_F(SelectCol, OfAHiddenRecipeMakesItTheFirstOfThePage)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(60);
    EXPECT_EQ(probe.firstColumn(), 60);
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(probe.selectedRow(), -32768);
    EXPECT_DOUBLE_EQ(probe.columnAxis().thumbStart, 33 + 60.0 / 120 * 704);
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 1));
    sheet.selectCol(59);
    EXPECT_EQ(probe.firstColumn(), 59);
}

TEST_F(SelectCol, NearTheEndKeepsTheLastPageFull)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(115);
    EXPECT_EQ(probe.firstColumn(), 115);
    EXPECT_EQ(probe.selectedColumn(), 0);
    sheet.selectCol(0);
    sheet.selectCol(116);
    EXPECT_EQ(probe.firstColumn(), 115);
    EXPECT_EQ(probe.selectedColumn(), 1);
    sheet.selectCol(0);
    sheet.selectCol(119);
    EXPECT_EQ(probe.firstColumn(), 115);
    EXPECT_EQ(probe.selectedColumn(), 4);
}

TEST_F(SelectCol, OfARecipeThatIsNotThereDoesNothing)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(60);
    probe.needsRepaint() = false;
    probe.columnAxis().thumbStart = 1;
    for (int column : {-1, 120, 65535, -32768}) {
        sheet.selectCol(column);
        EXPECT_EQ(probe.firstColumn(), 60);
        EXPECT_EQ(probe.selectedColumn(), 0);
        EXPECT_FALSE(probe.needsRepaint());
        EXPECT_DOUBLE_EQ(probe.columnAxis().thumbStart, 1.0);
    }
}

TEST_F(SelectCol, PutsAThumbRightThatDragsHadLeftElsewhere)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.columnAxis().thumbStart = 500;
    sheet.selectCol(3);
    EXPECT_DOUBLE_EQ(probe.columnAxis().thumbStart, 33.0);
}

TEST_F(SelectCol, AfterDeletesFarToTheRightMayLeaveEmptyColumnsOnTheLeftAndDoesNoHarm)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(100);
    probe.recipeCount() = 3;
    sheet.selectCol(2);
    EXPECT_EQ(probe.firstColumn(), -2) << "the last page is kept full";
    EXPECT_EQ(probe.selectedColumn(), 4);
    sheet.refresh_displayInfo();
    EXPECT_EQ(probe.cellText(0, 0), QString());
    tap(sheet, cell(0, 0));
    tap(sheet, title(0));
    click(sheet, leftArrow());
    click(sheet, rightArrow());
    EXPECT_EQ(probe.firstColumn(), -1);
}

TEST_F(SelectCol, LeavesTheOldPlaceTheSelectedOneForTheNextTap)
{
    // The rectangle is left as it is, wanted. A tap on it then edits the recipe that the register selected.
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(4, 8));
    settle();
    registers().setWord(latin1("LW"), 60803, 1);
    settle();
    ASSERT_EQ(probe.selectedColumn(), 1);
    tap(sheet, cell(4, 8));
    EXPECT_EQ(openKeyboards(), QStringList(latin1("showKeyboardWindow")));
    EXPECT_EQ(probe.keyboard().currentText, latin1("8001"));
    EXPECT_EQ(probe.selectedColumn(), 1);
}
