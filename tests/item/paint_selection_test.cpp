// How the selection is drawn.
#include "paint_page.h"

class PaintedSelection : public SheetFixture
{
protected:
    PaintedSelection() : page(properties, group) {}

    RecipeSheetItems& startOnGroup()
    {
        writeGroup(group);
        return startSheet(properties);
    }

    static void scroll(RecipeSheetItems& sheet, const QRectF& arrow, int times)
    {
        for (int i = 0; i < times; ++i)
            tap(sheet, arrow.center());
    }

    /// What is drawn between the cells and the scroll bars.
    QStringList selectionLines(RecipeSheetItems& sheet) const
    {
        const QStringList seen = painted(sheet);
        const int before = page.titleBackground().size() + page.tableBackground().size() + page.columnTitles().size()
                           + page.rowLabels().size() + page.cellTexts().size();
        const int after = page.scrollBars().size() + page.thumbs().size() + page.innerLines().size()
                          + page.outline().size() + page.buttons().size();
        return seen.mid(before, seen.size() - before - after);
    }

    SheetProperties properties = SheetProperties::usual();
    SheetGroup group = SheetGroup::ofSize(250, 120);
    ExpectedPage page;
};

TEST_F(PaintedSelection, IsNotThereAtTheStart)
{
    RecipeSheetItems& sheet = startOnGroup();
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), -32768);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedRow(), -32768);
    EXPECT_EQ(selectionLines(sheet), QStringList());
}

TEST_F(PaintedSelection, OfACellIsItsWholeRecipeInTheRowColourThenTheCell)
{
    properties.set("rows_num_page", 2);
    page = ExpectedPage(properties, group);
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.cell(1, 1).center());
    const QString font = QStringLiteral(" flags 132 pen #ff141516 1 solid font DejaVu Sans 16px");
    EXPECT_TRUE(sameLines(selectionLines(sheet), {QStringLiteral("rect 290,40 120x185 pen none brush #fffff0be"),
                                                  QStringLiteral("text '1' in 290,40 120x185") + font,
                                                  QStringLiteral("rect 290,225 120x185 pen none brush #fffff0be"),
                                                  QStringLiteral("text '1001' in 290,225 120x185") + font,
                                                  QStringLiteral("rect 290,225 120x185 pen none brush #ffffc850"),
                                                  QStringLiteral("text '1001' in 290,225 120x185") + font}));
}

TEST_F(PaintedSelection, MovesWithTheTap)
{
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.cell(2, 3).center());
    tap(sheet, page.cell(4, 9).center());
    page.selectedColumn = 4;
    page.selectedRow = 9;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
}

// The title keeps the font and colour of the cells, which were drawn before it.
TEST_F(PaintedSelection, OfATitleIsItsWholeRecipeInTheRowColourThenTheTitle)
{
    properties.set("rows_num_page", 2);
    properties.setLanguage(1, "title_font_family", QStringLiteral("DejaVu Serif"));
    page = ExpectedPage(properties, group);
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.titleCell(1).center());
    const QString font = QStringLiteral(" flags 132 pen #ff141516 1 solid font DejaVu Sans 16px");
    EXPECT_TRUE(sameLines(selectionLines(sheet), {QStringLiteral("rect 290,40 120x185 pen none brush #fffff0be"),
                                                  QStringLiteral("text '1' in 290,40 120x185") + font,
                                                  QStringLiteral("rect 290,225 120x185 pen none brush #fffff0be"),
                                                  QStringLiteral("text '1001' in 290,225 120x185") + font,
                                                  QStringLiteral("rect 290,0 120x40 pen none brush #ffffc850"),
                                                  QStringLiteral("text 'Recipe1' in 290,0 120x40") + font}));
}

// Wanted: the mark of a title that was scrolled off to the left stays at its computed place, over the header cells.
TEST_F(PaintedSelection, OfATitleScrolledOffToTheLeftIsDrawnOverTheHeaderCells)
{
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.titleCell(0).center());
    scroll(sheet, RecipeSheetProbe(sheet).rightArrowRect(), 1);
    page.firstColumn = 1;
    page.selectedColumn = -1;
    page.selectedRow = -1;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    EXPECT_TRUE(sameLines(selectionLines(sheet),
                          {QStringLiteral("rect 50,0 120x40 pen none brush #ffffc850"),
                           QStringLiteral("text 'Recipe0' in 50,0 120x40 flags 132 pen #ff141516 1 solid font "
                                          "DejaVu Sans 16px")}));

    scroll(sheet, RecipeSheetProbe(sheet).rightArrowRect(), 2);
    EXPECT_EQ(selectionLines(sheet).first(), QStringLiteral("rect -190,0 120x40 pen none brush #ffffc850"));
}

TEST_F(PaintedSelection, OfATitleScrolledOffToTheRightIsNotDrawn)
{
    RecipeSheetItems& sheet = startOnGroup();
    const QRectF right = RecipeSheetProbe(sheet).rightArrowRect();
    const QRectF left = RecipeSheetProbe(sheet).leftArrowRect();
    scroll(sheet, right, 3);
    tap(sheet, page.titleCell(4).center());
    scroll(sheet, left, 1);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 5);
    page.firstColumn = 2;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
}

TEST_F(PaintedSelection, OfACellScrolledOffSidewaysIsNotDrawn)
{
    RecipeSheetItems& sheet = startOnGroup();
    const QRectF right = RecipeSheetProbe(sheet).rightArrowRect();
    const QRectF left = RecipeSheetProbe(sheet).leftArrowRect();
    tap(sheet, page.cell(0, 4).center());
    scroll(sheet, right, 1);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), -1);
    EXPECT_EQ(selectionLines(sheet), QStringList());
    tap(sheet, page.cell(4, 4).center());
    scroll(sheet, left, 1);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 5);
    EXPECT_EQ(selectionLines(sheet), QStringList());
}

TEST_F(PaintedSelection, OfACellScrolledOffDownwardsLeavesItsRecipeMarked)
{
    RecipeSheetItems& sheet = startOnGroup();
    scroll(sheet, RecipeSheetProbe(sheet).downArrowRect(), 1);
    tap(sheet, page.cell(2, 9).center());
    scroll(sheet, RecipeSheetProbe(sheet).upArrowRect(), 1);
    page.selectedColumn = 2;
    page.selectedRow = 10;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    EXPECT_EQ(selectionLines(sheet).size(), 2 * 10) << "no cell";
}

// Wanted: -1 means the title, so a cell just above the page is marked there; one row further nothing is.
TEST_F(PaintedSelection, OfACellJustAboveThePageIsDrawnOnItsTitle)
{
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.cell(2, 0).center());
    scroll(sheet, RecipeSheetProbe(sheet).downArrowRect(), 1);
    page.firstRow = 1;
    page.selectedColumn = 2;
    page.selectedRow = -1;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));

    scroll(sheet, RecipeSheetProbe(sheet).downArrowRect(), 1);
    page.firstRow = 2;
    page.selectedRow = -2;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
}

TEST_F(PaintedSelection, MadeByTheRegisterMarksTheRecipeAlone)
{
    RecipeSheetItems& sheet = startOnGroup();
    sheet.selectCol(3);
    page.selectedColumn = 3;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    EXPECT_EQ(selectionLines(sheet).size(), 2 * 10);
}

TEST_F(PaintedSelection, BeyondTheGroupFillsEmptyCells)
{
    group = SheetGroup::ofSize(3, 2);
    page = ExpectedPage(properties, group);
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, page.cell(4, 8).center());
    page.selectedColumn = 4;
    page.selectedRow = 8;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    EXPECT_EQ(selectionLines(sheet).size(), 10 + 1);
}

// A cell that is missing from the display has no place: nothing is visible, nothing is added to the display.
TEST_F(PaintedSelection, OfAMissingCellFillsNothing)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    tap(sheet, page.cell(2, 3).center());
    painted(sheet); // uses up the refresh
    probe.displayCells().remove(idx_t(2, 3));
    const QStringList seen = painted(sheet);
    EXPECT_EQ(seen.filter(QStringLiteral("rect 0,0 0x0 pen none brush #fffff0be")).size(), 1);
    EXPECT_EQ(seen.filter(QStringLiteral("brush #ffffc850")).size(), 0);
    EXPECT_EQ(probe.displayCells().size(), 49);
}

// An edit may leave a cell in the display that is not on the page: its text is drawn where it lies, its mark is not.
TEST_F(PaintedSelection, OfACellBelowThePageIsNotDrawnEvenWhereTheDisplayHasOne)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    painted(sheet);
    probe.displayCells()[idx_t(2, 10)].rect = QRectF(1, 2, 3, 4);
    probe.selectedColumn() = 2;
    probe.selectedRow() = 10;
    EXPECT_EQ(painted(sheet).filter(QStringLiteral("brush #ffffc850")).size(), 0);
}
