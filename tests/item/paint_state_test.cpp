// What drawing leaves behind and what it holds meanwhile.
#include "paint_page.h"

#include <QMutex>
#include <QPainter>

class PaintState : public SheetFixture
{
protected:
    RecipeSheetItems& startOnGroup()
    {
        writeGroup(SheetGroup::ofSize(250, 120));
        return startSheet();
    }
};

// --- the refresh flag --------------------------------------------------------------------------------------------

TEST_F(PaintState, RefreshesTheCellsOnceForEachRequest)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    painted(sheet);
    EXPECT_FALSE(probe.needsRepaint());

    probe.displayCells()[idx_t(0, 0)].text = QStringLiteral("stale");
    probe.needsRepaint() = true;
    EXPECT_TRUE(painted(sheet).filter(QStringLiteral("stale")).isEmpty());
    EXPECT_FALSE(probe.needsRepaint());
    EXPECT_EQ(probe.cellText(0, 0), QStringLiteral("0"));

    probe.displayCells()[idx_t(0, 0)].text = QStringLiteral("stale");
    EXPECT_EQ(painted(sheet).filter(QStringLiteral("stale")).size(), 1) << "nobody asked for a refresh";
}

TEST_F(PaintState, RefreshesBeforeAnythingIsDrawn)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    probe.needsRepaint() = true;
    probe.displayCells().clear();
    RecordingDevice device(QSize(800, 480));
    int marks = 0;
    device.whileDrawing = [&] {
        if (marks++ == 0) {
            EXPECT_EQ(probe.displayCells().size(), 50);
        }
    };
    QPainter painter(&device);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    painter.end();
    EXPECT_GT(marks, 0);
}

TEST_F(PaintState, ShowsWhatTheOperatorJustTyped)
{
    RecipeSheetItems& sheet = startOnGroup();
    tap(sheet, RecipeSheetProbe(sheet).cellRect(1, 2).center());
    painted(sheet);
    sheet.keyboardReflash(QStringLiteral("4711"));
    EXPECT_EQ(painted(sheet).filter(QStringLiteral("text '4711'")).size(), 3) << "cell, marked recipe, marked cell";
}

// --- the selected rectangle --------------------------------------------------------------------------------------

TEST_F(PaintState, TextInfoUpdateTakesTheRectangleOfTheVisibleCell)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    sheet.text_info_update(3, 7);
    EXPECT_EQ(probe.selectedRect(), QRectF(530, 299, 120, 37));
    sheet.text_info_update(0, 0);
    EXPECT_EQ(probe.selectedRect(), QRectF(170, 40, 120, 37));
}

TEST_F(PaintState, TextInfoUpdateTakesAllZerosWhereThereIsNoCell)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    for (const idx_t& cell : {idx_t(5, 0), idx_t(0, 10), idx_t(-1, 0), idx_t(0, -1), idx_t(-32768, -32768)}) {
        probe.selectedRect() = QRectF(1, 2, 3, 4);
        sheet.text_info_update(cell.first, cell.second);
        EXPECT_EQ(probe.selectedRect().topLeft(), QPointF(0, 0));
        EXPECT_EQ(probe.selectedRect().size(), QSizeF(0, 0));
    }
    EXPECT_EQ(probe.displayCells().size(), 50) << "asking adds nothing";
}

// --- the error marker --------------------------------------------------------------------------------------------

TEST_F(PaintState, DisplayErrorOverwritesTheCellsThatAreThere)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    probe.displayCells()[idx_t(4, 9)].rect = QRectF(1, 2, 3, 4);
    sheet.display_error();
    EXPECT_EQ(probe.displayCells().size(), 50);
    EXPECT_EQ(probe.displayCells().value(idx_t(4, 9)).rect, QRectF(650, 373, 120, 37));
    for (int r = 0; r < 10; ++r) {
        for (int c = 0; c < 5; ++c)
            EXPECT_EQ(probe.cellText(c, r), r == 0 && c == 0 ? QStringLiteral("ERROR") : QString());
    }
}

TEST_F(PaintState, DisplayErrorInsertsTheCellsThatAreMissingAndLeavesOthers)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    cell_info_t beyond;
    beyond.text = QStringLiteral("beyond");
    probe.displayCells().clear();
    probe.displayCells()[idx_t(7, 20)] = beyond;
    sheet.display_error();
    EXPECT_EQ(probe.displayCells().size(), 51);
    EXPECT_EQ(probe.cellText(0, 0), QStringLiteral("ERROR"));
    EXPECT_EQ(probe.displayCells().value(idx_t(3, 7)).rect, QRectF(530, 299, 120, 37));
    EXPECT_EQ(probe.cellText(7, 20), QStringLiteral("beyond"));
}

TEST_F(PaintState, DisplayErrorFillsOnlyWhatIsVisible)
{
    writeGroup(SheetGroup::ofSize(5, 5));
    RecipeSheetItems& sheet = startSheet(SheetProperties::usual().set("rows_num_page", 120).set("column_num_page", 60));
    RecipeSheetProbe probe(sheet);
    probe.displayCells().clear();
    sheet.display_error();
    EXPECT_EQ(probe.displayCells().size(), 100 * 50);
    EXPECT_EQ(probe.displayCells().value(idx_t(49, 99)).rect, probe.cellRect(49, 99));
}

// --- locks -------------------------------------------------------------------------------------------------------

// A paint device may be anything, also something that asks the item while it draws.
TEST_F(PaintState, HoldsNoLockOnTheDataWhileItDraws)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.titleCellRect(1).center());
    RecordingDevice device(QSize(800, 480));
    int marks = 0;
    device.whileDrawing = [&] {
        ++marks;
        ASSERT_TRUE(probe.dataMutex().tryLock()) << "mark " << marks;
        probe.dataMutex().unlock();
        EXPECT_EQ(sheet.getColumnName(3), QStringLiteral("Recipe3"));
        EXPECT_EQ(sheet.getDataFromBlocks(2, 3), QStringLiteral("2003"));
    };
    QPainter painter(&device);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    painter.end();
    EXPECT_EQ(marks, device.calls().size());
    EXPECT_GT(marks, 100);
}

TEST_F(PaintState, LeavesNoLockHeld)
{
    RecipeSheetItems& sheet = startOnGroup();
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.cellRect(1, 1).center());
    painted(sheet);
    sheet.text_info_update(1, 1);
    sheet.display_error();
    EXPECT_TRUE(probe.dataMutex().tryLock());
    EXPECT_TRUE(probe.displayMutex().tryLock());
    probe.dataMutex().unlock();
    probe.displayMutex().unlock();
}
