// The worker's completion against the GUI thread: what one changes and the other reads. The thread sanitizer is the
// judge; without it the test shows that nothing crashes and that the sheet is right afterwards.
#include "RecipeDB.h"
#include "sheet_fixture.h"

#include <QImage>
#include <QPainter>

#include <atomic>
#include <thread>

namespace {

class SheetThreads : public SheetFixture
{
protected:
    /// One round of what the runtime and an operator do.
    static void use(RecipeSheetItems& sheet, int round)
    {
        RecipeSheetProbe probe(sheet);
        QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
        tap(sheet, probe.cellRect(round % 5, round % 10).center());
        for (int i = 0; i < 100; ++i)
            sheet.keyboardReflash(QString::number(i)); // into a cell
        tap(sheet, probe.titleCellRect(round % 5).center());
        sheet.keyboardReflash(QString::number(round)); // into a title
        tap(sheet, round % 3 == 0 ? probe.leftArrowRect().center() : probe.rightArrowRect().center());
        tap(sheet, round % 3 == 1 ? probe.upArrowRect().center() : probe.downArrowRect().center());
        press(sheet, probe.verticalTrackRect().center());
        move(sheet, probe.verticalTrackRect().bottomLeft());
        release(sheet, probe.verticalTrackRect().bottomLeft());
        registers().setWord(QStringLiteral("LW"), 60803, round % 130);
        sheet.update_result(4);
        sheet.getRowName(round);
        sheet.loadColumnNames();
        if (round % 8 == 0)
            sheet.init();
        if (round % 8 == 4)
            sheet.saveRecipeFile();
    }
};

} // namespace

TEST_F(SheetThreads, TakeTheWorkersResultsWhileTheSheetIsUsed)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    std::atomic<bool> done(false);
    std::thread results([&done] {
        for (int i = 0; i < 60; ++i)
            RecipeSheetItems::replace(true, i % 2 ? 119 : 121, i % 3 ? 250 : 7);
        RecipeSheetItems::replace(true, 120, 250);
        done = true;
    });
    int round = 0;
    while (!done)
        use(sheet, round++);
    results.join();
    EXPECT_GT(round, 0);

    RecipeSheetProbe probe(sheet);
    EXPECT_EQ(probe.recipeCount(), 120);
    EXPECT_EQ(probe.itemCount(), 250);
    EXPECT_EQ(probe.columnNames().size(), 120);
}
