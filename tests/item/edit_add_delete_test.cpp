// Adding and deleting: the question, the hand-over to the worker, its result, and the sheet while it works.
#include "edit_confirmation.h"
#include "edit_job.h"
#include "touch_events.h"

#include "RecipeDB.h"
#include "sqlite_errors.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSemaphore>

namespace {

class AddDelete : public TouchFixture
{
protected:
    AddDelete() { writeGroup(SheetGroup::ofSize(12, 8)); }

    static QStringList firstItem() { return querySql(latin1("SELECT D0 FROM data_0 ORDER BY column;")); }

    static QStringList values(const QList<int>& recipes)
    {
        QStringList result;
        for (int recipe : recipes)
            result.append(latin1("%1.0").arg(recipe));
        return result;
    }

    static void paint(RecipeSheetItems& sheet)
    {
        static QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
    }
};

class WhileAJobRuns : public AddDelete
{
protected:
    WhileAJobRuns() { writeGroup(SheetGroup::ofSize(250, 120)); }
};

} // namespace

// --- the question ------------------------------------------------------------------------------------------------

TEST_F(AddDelete, AskTheOperatorFirst)
{
    RecipeSheetItems& sheet = startSheet();
    for (const QPointF& button : {addButton(), deleteButton()}) {
        Confirmation confirmation(Confirmation::No);
        press(sheet, button);
        EXPECT_EQ(confirmation.asked, 0) << "not on press";
        release(sheet, outside());
        EXPECT_EQ(confirmation.asked, 1);
        EXPECT_EQ(confirmation.title, latin1("tip"));
        EXPECT_EQ(confirmation.text, latin1("About to autosave, whether to continue?"));
        EXPECT_EQ(confirmation.buttons, QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(confirmation.defaultButton, QMessageBox::No);
        EXPECT_FALSE(confirmation.hadParent);
        EXPECT_TRUE(confirmation.wasModal);
    }
}

TEST_F(AddDelete, LeavePendingEditsAndFileAloneAfterNo)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 1, 1, latin1("9"));
    settle();
    requests.clear();
    Confirmation confirmation(Confirmation::No);
    EXPECT_FALSE(sheet.addRecipe());
    EXPECT_FALSE(sheet.deleteRecipe());
    EXPECT_EQ(confirmation.asked, 2);
    settle();
    EXPECT_EQ(probe.editedCells().size(), 1);
    EXPECT_EQ(firstItem(), values({0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_FALSE(QFile::exists(recipeFile() + latin1(".bak")));
    EXPECT_EQ(requests.log, QStringList());
}

TEST_F(AddDelete, TakeTheClosedBoxForItsNoButton)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::Close);
    EXPECT_FALSE(sheet.addRecipe()) << "closing a box with a No button presses it";
    EXPECT_EQ(confirmation.asked, 1);
}

TEST_F(AddDelete, GoOnAfterABoxThatEndedWithoutNo)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::End);
    EXPECT_TRUE(sheet.addRecipe());
    settle();
    EXPECT_EQ(firstItem().size(), 9);
}

TEST_F(AddDelete, SaveBeforeTheWorkerStarts)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 2, 0, latin1("77"));
    settle();
    requests.clear();
    Confirmation confirmation(Confirmation::Yes);
    tap(sheet, addButton()); // the selected recipe, 2, with the new value
    settle();
    EXPECT_EQ(querySql(latin1("SELECT D0 FROM data_0 ORDER BY column;")),
              QStringList({latin1("0.0"), latin1("1.0"), latin1("77.0"), latin1("77.0"), latin1("3.0"), latin1("4.0"),
                           latin1("5.0"), latin1("6.0"), latin1("7.0")}));
    EXPECT_EQ(requests.log, QStringList({latin1("message save successful 2 0"), latin1("call reload_recipe"),
                                         latin1("message add success 30 2"), latin1("call reload_recipe")}));
    EXPECT_TRUE(probe.editedCells().isEmpty());
}

TEST_F(AddDelete, WithNothingPendingOnlyBackUpBeforeTheWorkerStarts)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::Yes);
    tap(sheet, cell(1, 1));
    settle();
    requests.clear();
    tap(sheet, deleteButton());
    settle();
    EXPECT_EQ(requests.log, QStringList({latin1("message del success 30 2"), latin1("call reload_recipe")}));
    EXPECT_TRUE(QFile::exists(recipeFile() + latin1(".bak")));
    EXPECT_EQ(firstItem(), values({0, 2, 3, 4, 5, 6, 7}));
}

// --- the hand-over -----------------------------------------------------------------------------------------------

TEST_F(AddDelete, HandTheSelectedRecipeToTheWorker)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    RecipeSheetThread* const worker = probe.worker();
    ASSERT_EQ(worker, RecipeSheetThread::getInstance());
    EXPECT_FALSE(worker->available);
    click(sheet, rightArrow(), 2);
    tap(sheet, title(3));
    Confirmation confirmation(Confirmation::Yes);
    EXPECT_TRUE(sheet.addRecipe());
    settle();
    EXPECT_EQ(worker->groupIndex, 0);
    EXPECT_EQ(worker->column, 5);
    EXPECT_EQ(worker->op, 0);
    EXPECT_TRUE(worker->available);
    EXPECT_EQ(worker->callback, &RecipeSheetItems::replace);
    EXPECT_EQ(firstItem(), values({0, 1, 2, 3, 4, 5, 5, 6, 7}));
    EXPECT_TRUE(sheet.deleteRecipe());
    settle();
    EXPECT_EQ(worker->op, 1);
    EXPECT_EQ(firstItem(), values({0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(AddDelete, ActOnTheFirstRecipeWithNothingSelected)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::Yes);
    EXPECT_TRUE(sheet.deleteRecipe());
    settle();
    EXPECT_EQ(firstItem(), values({1, 2, 3, 4, 5, 6, 7}));
    EXPECT_TRUE(sheet.addRecipe());
    settle();
    EXPECT_EQ(firstItem(), values({1, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(AddDelete, ActOnTheSelectedRecipeAlsoWhenItIsScrolledOffThePage)
{
    RecipeSheetItems& sheet = startSheet();
    tap(sheet, cell(1, 0));
    click(sheet, rightArrow(), 3);
    ASSERT_EQ(RecipeSheetProbe(sheet).selectedColumn(), -2);
    Confirmation confirmation(Confirmation::Yes);
    EXPECT_TRUE(sheet.deleteRecipe());
    settle();
    EXPECT_EQ(firstItem(), values({0, 2, 3, 4, 5, 6, 7}));
}

TEST_F(AddDelete, OnlyDeleteGetsAWorkerWhereThereIsNone)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.worker() = nullptr;
    Confirmation confirmation(Confirmation::Yes);
    EXPECT_TRUE(sheet.addRecipe()) << "confirmed, but nothing is started";
    EXPECT_EQ(probe.worker(), nullptr);
    EXPECT_EQ(firstItem().size(), 8);
    EXPECT_TRUE(sheet.deleteRecipe());
    EXPECT_EQ(probe.worker(), RecipeSheetThread::getInstance());
    settle();
    EXPECT_EQ(firstItem().size(), 7);
}

TEST_F(AddDelete, StartNothingWhereAnotherJobBeganDuringTheQuestion)
{
    RecipeSheetItems& sheet = startSheet();
    static QSemaphore goOn;
    RecipeSheetThread* const worker = RecipeSheetThread::getInstance();
    Confirmation confirmation(Confirmation::Yes, [worker] {
        worker->groupIndex = 0;
        worker->column = 7;
        worker->op = RecipeSheetThread::OP_ADD;
        worker->available = true;
        worker->callback = [](bool, int, int) { goOn.acquire(); };
        worker->startJob();
    });
    EXPECT_TRUE(sheet.deleteRecipe()) << "confirmed, but nothing is started";
    EXPECT_EQ(worker->op, 0) << "the running job is not touched";
    EXPECT_EQ(worker->column, 7);
    goOn.release();
    settle();
    EXPECT_EQ(firstItem(), values({0, 1, 2, 3, 4, 5, 6, 7, 7}));
}

// --- the result --------------------------------------------------------------------------------------------------

TEST_F(AddDelete, BringNewCountsTitlesAndBlocksToTheSheet)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(1, 0));
    const double thumb = probe.columnAxis().thumbLength;
    Confirmation confirmation(Confirmation::Yes);
    tap(sheet, addButton());
    settle();
    EXPECT_EQ(probe.recipeCount(), 9);
    EXPECT_EQ(probe.itemCount(), 12);
    EXPECT_LT(probe.columnAxis().thumbLength, thumb);
    EXPECT_DOUBLE_EQ(probe.columnAxis().thumbLength, 5.0 / 9 * 704);
    EXPECT_EQ(probe.columnNames().size(), 9);
    EXPECT_EQ(sheet.getColumnName(1), latin1("Recipe1"));
    EXPECT_EQ(sheet.getColumnName(2), latin1("Recipe1")) << "the titles are the copied recipe's";
    EXPECT_EQ(sheet.getColumnName(8), latin1("Recipe7"));
    EXPECT_EQ(sheet.getDataFromBlocks(3, 2), latin1("3001"));
    EXPECT_EQ(sheet.getDataFromBlocks(3, 8), latin1("3007"));
}

TEST_F(AddDelete, LeaveTheSheetAsItWasWhenTheWorkerFails)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(1, 0));
    settle();
    runSql(latin1("DROP TABLE data_0;"));
    const QList<idx_t> cached = probe.blocks().keys();
    Confirmation confirmation(Confirmation::Yes);
    SqliteErrors errors;
    requests.clear();
    EXPECT_TRUE(sheet.addRecipe());
    probe.worker()->wait();
    EXPECT_EQ(probe.recipeCount(), 8);
    EXPECT_EQ(probe.blocks().keys(), cached);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 3), latin1("3"));
    settle();
    EXPECT_TRUE(requests.log.contains(latin1("message add error 30 2")));
    EXPECT_EQ(requests.log.last(), latin1("call reload_recipe"));
}

TEST_F(AddDelete, TakeNoResultThatSaysFailure)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    RecipeSheetItems::replace(false, 3, 3);
    EXPECT_EQ(probe.recipeCount(), 8);
    EXPECT_EQ(probe.itemCount(), 12);
    RecipeSheetItems::replace(true, 3, 2);
    EXPECT_EQ(probe.recipeCount(), 3);
    EXPECT_EQ(probe.itemCount(), 2);
}

TEST_F(AddDelete, HandTheResultToTheItemBuiltLast)
{
    RecipeSheetItems& first = startSheet();
    RecipeSheetItems& last = startSheet();
    EXPECT_EQ(RecipeSheetItems::s_instance, &last);
    RecipeSheetItems::replace(true, 3, 2);
    EXPECT_EQ(RecipeSheetProbe(first).recipeCount(), 8);
    EXPECT_EQ(RecipeSheetProbe(last).recipeCount(), 3);
}

TEST_F(AddDelete, NeverClearTheInstancePointer)
{
    RecipeSheetItems& sheet = startSheet();
    const RecipeSheetItems* const gone = &sheet;
    destroySheet(sheet);
    EXPECT_EQ(RecipeSheetItems::s_instance, gone);
    RecipeSheetItems::s_instance = nullptr;
    RecipeSheetItems::replace(true, 3, 2); // nobody is there
}

TEST_F(AddDelete, RequestNoRepaintOnTheirOwnButShowTheResultWithTheNextPaint)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(0, 0));
    Confirmation confirmation(Confirmation::Yes);
    EXPECT_TRUE(sheet.addRecipe());
    settle();
    EXPECT_EQ(probe.cellText(1, 0), latin1("1"));
    paint(sheet);
    EXPECT_EQ(probe.cellText(1, 0), latin1("0"));
}

TEST_F(AddDelete, OfTheLastRecipeEndInAnErrorAndAWholeFile)
{
    writeGroup(SheetGroup::ofSize(12, 1));
    RecipeSheetItems& sheet = startSheet();
    tap(sheet, cell(0, 0));
    settle();
    requests.clear();
    Confirmation confirmation(Confirmation::Yes);
    tap(sheet, deleteButton());
    settle();
    EXPECT_EQ(requests.log,
              QStringList({latin1("sound"), latin1("message del error 30 2"), latin1("call reload_recipe")}).mid(1));
    EXPECT_EQ(firstItem(), values({0}));
    EXPECT_EQ(querySql(latin1("SELECT row, column FROM recipe_config;")), QStringList(latin1("12|1")));
    EXPECT_EQ(querySql(latin1("PRAGMA integrity_check;")), QStringList(latin1("ok")));
    EXPECT_EQ(RecipeSheetProbe(sheet).recipeCount(), 1);

    // Later saves and jobs work, and are there for a second connection at once.
    edit(sheet, 0, 3, latin1("88"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT D3 FROM data_0;")), QStringList(latin1("88.0")));
    tap(sheet, addButton());
    settle();
    EXPECT_EQ(querySql(latin1("SELECT D3 FROM data_0;")), QStringList({latin1("88.0"), latin1("88.0")}));
    tap(sheet, deleteButton());
    settle();
    EXPECT_EQ(firstItem().size(), 1);

    // The same after a restart.
    tap(sheet, deleteButton());
    settle();
    EXPECT_EQ(requests.messageTexts().last(), latin1("del error"));
    destroySheet(sheet);
    RecipeSheetThread::release();
    RecipeDB::release();
    RecipeSheetItems& again = startSheet();
    EXPECT_EQ(RecipeSheetProbe(again).recipeCount(), 1);
    edit(again, 0, 3, latin1("99"));
    EXPECT_TRUE(again.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT D3 FROM data_0;")), QStringList(latin1("99.0")));
}

TEST_F(AddDelete, AtTheFarRightLeaveASheetThatCanBeUsed)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(7);
    ASSERT_EQ(probe.firstColumn(), 3);
    tap(sheet, cell(4, 0));
    Confirmation confirmation(Confirmation::Yes);
    // Down to three recipes: the page still begins with recipe 3, where there is none any more.
    for (int i = 0; i < 5; ++i) {
        tap(sheet, cell(4 - i, 0));
        tap(sheet, deleteButton());
        settle();
        paint(sheet);
    }
    EXPECT_EQ(probe.recipeCount(), 3);
    EXPECT_EQ(probe.firstColumn(), 3);
    EXPECT_EQ(firstItem(), values({0, 1, 2}));
    EXPECT_EQ(probe.cellText(0, 0), QString()) << "no cell of a recipe that is gone";
    EXPECT_EQ(sheet.getColumnName(3), latin1("Col3"));

    doubleTap(sheet, cell(2, 2));
    doubleTap(sheet, title(1));
    press(sheet, probe.horizontalThumbRect().center());
    move(sheet, QPointF(0, 425));
    move(sheet, QPointF(790, 425));
    release(sheet, nowhere());
    paint(sheet);
    click(sheet, rightArrow(), 3);
    EXPECT_EQ(probe.firstColumn(), 3);
    click(sheet, leftArrow(), 5);
    EXPECT_EQ(probe.firstColumn(), 0);
    paint(sheet);
    EXPECT_EQ(probe.cellText(2, 0), latin1("2"));
    edit(sheet, 1, 0, latin1("11"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(firstItem(), QStringList({latin1("0.0"), latin1("11.0"), latin1("2.0")}));
}

// --- busy --------------------------------------------------------------------------------------------------------

TEST_F(WhileAJobRuns, AddAndDeleteAnswerBusyAndDoNotAsk)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::Yes);
    HeldJob job(RecipeSheetThread::OP_DELETE);
    tap(sheet, addButton());
    tap(sheet, deleteButton());
    EXPECT_FALSE(sheet.addRecipe());
    EXPECT_FALSE(sheet.deleteRecipe());
    EXPECT_EQ(confirmation.asked, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(requests.log,
              QStringList({latin1("message busy, please wait 30 2"), latin1("message busy, please wait 30 2"),
                           latin1("message busy, please wait 30 2"), latin1("message busy, please wait 30 2")}));
    job.finish();
}

TEST_F(WhileAJobRuns, TheSheetIsTappedScrolledEditedAndPaintedWithoutWaiting)
{
    // The job halts inside the database's lock: whatever wanted to read the file would wait for it.
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    HeldJob job(RecipeSheetThread::OP_ADD, 0);
    edit(sheet, 2, 2, latin1("4711"));
    rename(sheet, 4, latin1("Rye"));
    paint(sheet);
    EXPECT_EQ(probe.cellText(2, 2), latin1("4711"));
    EXPECT_EQ(probe.cellText(0, 0), latin1("0")) << "what is cached stays visible";
    EXPECT_EQ(sheet.update_result(4), 1);
    paint(sheet);
    EXPECT_EQ(probe.cellText(0, 0), latin1("0"));

    sheet.selectCol(110);
    paint(sheet);
    EXPECT_EQ(probe.cellText(0, 0), latin1("Loading..."));
    EXPECT_FALSE(sheet.isDataBlockLoaded(0, 2));
    doubleTap(sheet, cell(0, 0));
    press(sheet, probe.verticalThumbRect().center());
    for (int y = 50; y < 350; y += 10)
        move(sheet, QPointF(785, y));
    release(sheet, nowhere());
    click(sheet, leftArrow(), 3);
    paint(sheet);

    job.finish();
    paint(sheet);
    const int row = probe.firstRow();
    const int column = probe.firstColumn();
    EXPECT_EQ(column, 107);
    EXPECT_EQ(probe.recipeCount(), 121);
    EXPECT_EQ(probe.cellText(0, 0), QString::number(row * 1000 + column - 1)) << "one copy stands in front of it";
}

TEST_F(WhileAJobRuns, WhatCouldNotBeReadIsReadAfterAFailureToo)
{
    writeGroup(SheetGroup::ofSize(250, 1)); // deleting the last recipe fails
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    {
        HeldJob job(RecipeSheetThread::OP_DELETE, 0, "DROP TABLE if exists lang_0");
        probe.firstRow() = 200;
        sheet.checkAndLoadRequiredBlocks();
        EXPECT_EQ(sheet.getDataFromBlocks(200, 0), latin1("Loading..."));
        EXPECT_EQ(sheet.getDataFromBlocks(3, 0), latin1("3000"));
    }
    EXPECT_EQ(probe.recipeCount(), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(200, 0), latin1("Loading..."));
    tap(sheet, nowhere());
    EXPECT_EQ(sheet.getDataFromBlocks(200, 0), latin1("200000"));
    settle();
    EXPECT_EQ(requests.messageTexts(), QStringList(latin1("del error")));
}

TEST_F(WhileAJobRuns, NotificationsThatCameMeanwhileAreMadeUpForAfterAFailure)
{
    writeGroup(SheetGroup::ofSize(250, 1));
    RecipeSheetItems& sheet = startSheet();
    {
        HeldJob job(RecipeSheetThread::OP_DELETE, 0, "DROP TABLE if exists lang_0");
        EXPECT_EQ(sheet.update_result(4), 1);
        EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("0")) << "what is cached stays";
    }
    runSql(latin1("UPDATE data_0 SET D0 = 5 WHERE column = 0;"));
    tap(sheet, nowhere());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
    runSql(latin1("UPDATE data_0 SET D0 = 6 WHERE column = 0;"));
    tap(sheet, nowhere());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5")) << "once; after that the cache is used as always";
}

TEST_F(WhileAJobRuns, EditsKeepTheColumnTheyWereMadeIn)
{
    // Columns behind the copy move one place to the right; a pending edit does not move with its recipe.
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    {
        HeldJob job(RecipeSheetThread::OP_ADD, 0);
        edit(sheet, 2, 2, latin1("4711"));
        rename(sheet, 3, latin1("Rye"));
    }
    EXPECT_EQ(probe.editedCells().keys(), QList<idx_t>({idx_t(2, 2)}));
    EXPECT_EQ(sheet.getDataFromBlocks(2, 2), latin1("4711"));
    EXPECT_EQ(sheet.getDataFromBlocks(2, 3), latin1("2002")) << "the recipe in which it was typed";
    EXPECT_EQ(sheet.getColumnName(3), latin1("Recipe2")) << "titles are read from the file again";
    EXPECT_EQ(probe.editedList(), QList<int>({3}));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT column, D2 FROM data_0 WHERE column IN (2, 3);")),
              QStringList({latin1("2|4711.0"), latin1("3|2002.0")}));
}
