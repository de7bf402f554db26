// Saving: what is written, in which order, and what the runtime hears.
#include "edit_job.h"
#include "touch_events.h"

#include "RecipeDB.h"
#include "UHmiEvent.h"
#include "recipe_db_probe.h"
#include "recipe_tools.h"
#include "sqlite_errors.h"

#include <QFile>

#include <functional>

#include <sqlite3.h>

namespace {

/// Writes down what a sheet does with the file, in the order in which it happens: each SQL statement, the copy of
/// the file, the reload notification.
class Journal
{
public:
    static void attach(sqlite3* connection, QStringList* log)
    {
        sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, &Journal::note, log);
    }

private:
    static int note(unsigned, void* log, void* statement, void*)
    {
        char* const sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
        static_cast<QStringList*>(log)->append(QString::fromUtf8(sql));
        sqlite3_free(sql);
        return 0;
    }
};

/// A sheet whose reload request can be seen.
class WatchedSheet : public RecipeSheetItems
{
public:
    void updateTable() override
    {
        if (onUpdateTable)
            onUpdateTable();
        RecipeSheetItems::updateTable();
    }

    std::function<void()> onUpdateTable;
};

class Save : public TouchFixture
{
protected:
    Save() { writeGroup(SheetGroup::ofSize(250, 120)); }

    QStringList column(int recipe, int firstItem, int lastItem)
    {
        QStringList fields;
        for (int item = firstItem; item <= lastItem; ++item)
            fields.append(latin1("D%1").arg(item));
        return querySql(
            latin1("SELECT %1 FROM data_0 WHERE column = %2;").arg(fields.join(QLatin1Char(','))).arg(recipe));
    }

    /// SQLite counts the transactions that changed the file, in its header.
    static quint32 changeCounter()
    {
        const QByteArray file = contents(recipeFile());
        quint32 counter = 0;
        for (int i = 24; i < 28; ++i)
            counter = counter * 256 + static_cast<unsigned char>(file.at(i));
        return counter;
    }

    static QString backup() { return recipeFile() + latin1(".bak"); }

    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
};

} // namespace

TEST_F(Save, WritesCellsAndTitlesAndTellsTheRuntime)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 2, 1, latin1("4711"));
    rename(sheet, 3, latin1("Rye"));
    requests.clear();
    settle();
    requests.clear();
    tap(sheet, saveButton());
    EXPECT_EQ(column(2, 0, 2), QStringList(latin1("2.0|4711.0|2002.0")));
    EXPECT_EQ(querySql(latin1("SELECT L0, L1 FROM lang_0 WHERE type = 2 AND strIndex = 3;")),
              QStringList(latin1("Rye|Recipe3 L1")));
    settle();
    EXPECT_EQ(requests.log,
              QStringList({latin1("sound"), latin1("message save successful 2 0"), latin1("call reload_recipe")}));
    EXPECT_EQ(requests.calls.back().argument, 2u);
    EXPECT_TRUE(RecipeSheetProbe(sheet).editedCells().isEmpty());
    EXPECT_TRUE(RecipeSheetProbe(sheet).editedList().isEmpty());
}

TEST_F(Save, GoesOnWhereverTheButtonIsReleased)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 0, 0, latin1("9"));
    press(sheet, saveButton());
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("0.0"))) << "not on press";
    release(sheet, outside());
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("9.0")));
}

TEST_F(Save, WritesTitlesInOrderOfEditingWithRepeatsAndThenCellsInOrderOfTheirKeys)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 3, 0, latin1("30"));
    edit(sheet, 0, 5, latin1("5"));
    edit(sheet, 0, 2, latin1("2"));
    edit(sheet, 3, 0, latin1("31"));
    rename(sheet, 4, latin1("a"));
    rename(sheet, 1, latin1("b"));
    rename(sheet, 4, latin1("c"));
    QStringList log;
    Journal::attach(RecipeDBProbe::handle(*RecipeDB::getInstance()), &log);
    ASSERT_TRUE(sheet.saveRecipeFile());
    Journal::attach(RecipeDBProbe::handle(*RecipeDB::getInstance()), nullptr);
    sqlite3_trace_v2(RecipeDBProbe::handle(*RecipeDB::getInstance()), 0, nullptr, nullptr);
    ASSERT_EQ(log.size(), 8);
    EXPECT_EQ(log.takeFirst(), latin1("begin;")); // together, so that the disk is waited for once
    EXPECT_EQ(log.takeLast(), latin1("commit;"));
    EXPECT_TRUE(log.at(0).startsWith(latin1("UPDATE lang_0 SET 'L0' = 'c'")) && log.at(0).endsWith(latin1("'4';")));
    EXPECT_TRUE(log.at(1).startsWith(latin1("UPDATE lang_0 SET 'L0' = 'b'")) && log.at(1).endsWith(latin1("'1';")));
    EXPECT_TRUE(log.at(2).startsWith(latin1("UPDATE lang_0 SET 'L0' = 'c'")) && log.at(2).endsWith(latin1("'4';")));
    EXPECT_EQ(log.mid(3), QStringList({latin1("UPDATE data_0 SET 'D2' = '2' WHERE column = '0';"),
                                       latin1("UPDATE data_0 SET 'D5' = '5' WHERE column = '0';"),
                                       latin1("UPDATE data_0 SET 'D0' = '31' WHERE column = '3';")}));
}

TEST_F(Save, AsksForTheReloadWhenAllIsWrittenAndNothingIsPending)
{
    object* configuration = addSheet();
    WatchedSheet& sheet = start(new WatchedSheet, configuration);
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("9"));
    rename(sheet, 0, latin1("Rye"));
    settle();
    requests.clear();
    int calls = 0;
    sheet.onUpdateTable = [&] {
        ++calls;
        EXPECT_TRUE(probe.editedCells().isEmpty());
        EXPECT_TRUE(probe.editedList().isEmpty());
        EXPECT_EQ(column(0, 0, 0), QStringList(latin1("9.0")));
        EXPECT_TRUE(QFile::exists(backup()));
        // The messages are posted after it: what is posted here comes first.
        UHmiEvent::hmiEventPost(new UMessageBoxEvent(latin1("between"), 0, 0), nullptr);
    };
    EXPECT_TRUE(sheet.saveRecipeFile());
    settle();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(requests.log, QStringList({latin1("message between 0 0"), latin1("message save successful 2 0"),
                                         latin1("call reload_recipe")}));
}

TEST_F(Save, ReachesEverySheetThroughTheReloadNotification)
{
    RecipeSheetItems& one = startSheet();
    RecipeSheetItems& other = startSheet();
    edit(one, 1, 1, latin1("4711"));
    EXPECT_EQ(RecipeSheetProbe(other).cellText(1, 1), latin1("1001"));
    tap(one, saveButton());
    settle();
    EXPECT_EQ(other.getDataFromBlocks(1, 1), latin1("4711"));
    EXPECT_TRUE(RecipeSheetProbe(other).needsRepaint());
}

TEST_F(Save, WithNothingPendingOnlyBacksUp)
{
    RecipeSheetItems& sheet = startSheet();
    EXPECT_FALSE(sheet.saveRecipeFile());
    EXPECT_TRUE(QFile::exists(backup()));
    settle();
    EXPECT_EQ(requests.log, QStringList());
}

TEST_F(Save, BacksUpTheFileAsItWasBefore)
{
    RecipeSheetItems& sheet = startSheet();
    const QByteArray before = contents(recipeFile());
    edit(sheet, 0, 0, latin1("9"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(contents(backup()), before);
    EXPECT_NE(contents(recipeFile()), before);
}

TEST_F(Save, NeverReplacesAnOlderBackup)
{
    RecipeSheetItems& sheet = startSheet();
    QFile older(backup());
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write("older");
    older.close();
    edit(sheet, 0, 0, latin1("9"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(contents(backup()), QByteArray("older"));
}

TEST_F(Save, WithoutAnOpenFileBacksUpReturnsFalseAndKeepsWhatIsPending)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("9"));
    rename(sheet, 1, latin1("Rye"));
    settle();
    requests.clear();
    RecipeDB::getInstance()->CloseRecipeFile();
    EXPECT_FALSE(sheet.saveRecipeFile());
    EXPECT_TRUE(QFile::exists(backup()));
    EXPECT_EQ(probe.editedCells().size(), 1);
    EXPECT_EQ(probe.editedList(), QList<int>({1}));
    settle();
    EXPECT_EQ(requests.log, QStringList());

    ASSERT_EQ(RecipeDB::getInstance()->OpenRecipeFile(recipeFile()), 0);
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("9.0")));
}

TEST_F(Save, SkipsTitlesBehindTheNamesAndWritesTheRest)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QStringList before = querySql(latin1("SELECT * FROM lang_0;"));
    probe.editedList() << 120 << 5000 << -1;
    rename(sheet, 2, latin1("Rye"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    const QStringList after = querySql(latin1("SELECT * FROM lang_0;"));
    ASSERT_EQ(after.size(), before.size());
    int changed = 0;
    for (int i = 0; i < after.size(); ++i)
        changed += after.at(i) != before.at(i);
    EXPECT_EQ(changed, 1);
}

TEST_F(Save, OfTheSameCellTwiceWritesItOnceWithTheLastText)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 0, 0, latin1("1"));
    sheet.keyboardReflash(latin1("2"));
    QStringList log;
    Journal::attach(RecipeDBProbe::handle(*RecipeDB::getInstance()), &log);
    EXPECT_TRUE(sheet.saveRecipeFile());
    sqlite3_trace_v2(RecipeDBProbe::handle(*RecipeDB::getInstance()), 0, nullptr, nullptr);
    EXPECT_EQ(log, QStringList(latin1("UPDATE data_0 SET 'D0' = '2' WHERE column = '0';")));
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("2.0")));
}

TEST_F(Save, FailsAloneForATextWithAQuoteAndSaysSuccessAllTheSame)
{
    SheetGroup group = SheetGroup::ofSize(12, 8);
    group.dataTypes = {DATA_TYPE_TEXT};
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("before"));
    edit(sheet, 1, 1, latin1("5' nail"));
    edit(sheet, 2, 2, latin1("x' WHERE 1=1; --"));
    edit(sheet, 3, 3, latin1("behind"));
    settle();
    requests.clear();
    {
        SqliteErrors errors;
        EXPECT_TRUE(sheet.saveRecipeFile());
        EXPECT_EQ(errors.count(), 1) << "the second one is a statement of its own making";
    }
    settle();
    EXPECT_EQ(requests.messageTexts(), QStringList(latin1("save successful")));
    EXPECT_TRUE(probe.editedCells().isEmpty());
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("before")));
    EXPECT_EQ(column(1, 1, 1), QStringList(latin1("t1_1"))) << "the cell with the quote keeps its old text";
    EXPECT_EQ(column(3, 3, 3), QStringList(latin1("behind")));
}

TEST_F(Save, OfSeveralEditsChangesTheFileOnce)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 0, 0, latin1("7"));
    edit(sheet, 4, 9, latin1("8"));
    rename(sheet, 2, latin1("Rye"));
    const quint32 before = changeCounter();
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(changeCounter(), before + 1);
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("7.0")));
    EXPECT_EQ(column(4, 9, 9), QStringList(latin1("8.0")));
}

// A reader in another process lets the statements through and refuses the commit: the transaction must not stay open,
// it would swallow what is saved later.
TEST_F(Save, ThatCannotBeCommittedLeavesNoTransactionOpen)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 0, 0, latin1("7"));
    edit(sheet, 1, 1, latin1("8"));
    sqlite3* reader = nullptr;
    ASSERT_EQ(sqlite3_open(recipeFile().toUtf8().constData(), &reader), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT count(*) FROM data_0;", nullptr, nullptr, nullptr), SQLITE_OK);
    {
        SqliteErrors errors;
        EXPECT_TRUE(sheet.saveRecipeFile()); // failures are not told, wanted
        EXPECT_EQ(errors.count(), 3) << "the commit, then each cell on its own";
    }
    sqlite3_close(reader);
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("0.0")));
    EXPECT_NE(sqlite3_get_autocommit(RecipeDBProbe::handle(*RecipeDB::getInstance())), 0);
    edit(sheet, 2, 2, latin1("9"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(column(2, 2, 2), QStringList(latin1("9.0")));
}

TEST_F(Save, InsideATransactionOfSomebodyElseLeavesItsEndToThem)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 0, 0, latin1("7"));
    edit(sheet, 1, 1, latin1("8"));
    RecipeDB& db = *RecipeDB::getInstance();
    ASSERT_EQ(db.execBegin(), 0);
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("0.0")));
    ASSERT_EQ(db.execCommit(), 0);
    EXPECT_EQ(column(0, 0, 0), QStringList(latin1("7.0")));
    EXPECT_EQ(column(1, 1, 1), QStringList(latin1("8.0")));
}

TEST_F(Save, OfATitleWithQuotesAndSignsWritesItByteForByte)
{
    RecipeSheetItems& sheet = startSheet();
    const QString title = QString::fromUtf8("L'Été \"100 %\" Brötchen; --");
    rename(sheet, 0, title);
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT L0 FROM lang_0 WHERE type = 2 AND strIndex = 0;")), QStringList(title));
}

TEST_F(Save, IsRefusedWhileAJobRuns)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("9"));
    settle();
    requests.clear();
    const HeldJob job;
    tap(sheet, saveButton());
    EXPECT_EQ(probe.saveButton().held, false);
    EXPECT_EQ(probe.editedCells().size(), 1);
    EXPECT_FALSE(QFile::exists(backup()));
    QCoreApplication::processEvents();
    EXPECT_EQ(requests.log, QStringList({latin1("sound"), latin1("message busy, please wait 30 2")}));
}

// --- update_result -----------------------------------------------------------------------------------------------

namespace {

class UpdateResult : public Save
{
};

} // namespace

TEST_F(UpdateResult, AnswersOnlyTheBitOfValueFour)
{
    RecipeSheetItems& sheet = startSheet();
    listen();
    for (int mask : {0, 1, 2, 3, 8, 0x7ffffff8 & ~4, -5})
        EXPECT_EQ(sheet.update_result(mask), 0) << mask;
    EXPECT_EQ(seen.log, QStringList());
    for (int mask : {4, 5, 6, 7, 12, -1})
        EXPECT_EQ(sheet.update_result(mask), 1) << mask;
}

TEST_F(UpdateResult, FollowsTheRecipeIndexRegister)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    registers().setWord(latin1("LW"), 60803, 60);
    EXPECT_EQ(probe.firstColumn(), 0) << "later, from the event loop";
    settle();
    EXPECT_EQ(probe.firstColumn(), 60);
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(probe.currentRecipe(), 60);
    registers().setWord(latin1("LW"), 60803, 500);
    settle();
    EXPECT_EQ(probe.firstColumn(), 60) << "there is no such recipe";
    EXPECT_EQ(probe.currentRecipe(), 500);
}

TEST_F(UpdateResult, NeverFollowsTheGroupRegister)
{
    RecipeSheetItems& sheet = startSheet();
    registers().setWord(latin1("LW"), 60802, 3);
    settle();
    EXPECT_EQ(RecipeSheetProbe(sheet).groupIndex(), 0);
}

TEST_F(UpdateResult, SelectsWhatTheSheetItselfPublishedWithoutMovingIt)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(3, 2));
    const QRectF rect = probe.selectedRect();
    settle();
    EXPECT_EQ(probe.selectedColumn(), 3);
    EXPECT_EQ(probe.selectedRow(), 2);
    EXPECT_EQ(probe.selectedRect(), rect);
    EXPECT_EQ(probe.firstColumn(), 0);
    EXPECT_EQ(probe.currentRecipe(), 3);
}

TEST_F(UpdateResult, LoadsWhatIsMissingAndReadsEveryCachedBlockAgain)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(70);
    const QList<idx_t> cached = probe.blocks().keys();
    ASSERT_GT(cached.size(), 1);
    runSql(latin1("UPDATE data_0 SET D0 = 5 WHERE column = 0; UPDATE data_0 SET D0 = 6 WHERE column = 70;"));
    probe.blocks().remove(idx_t(1, 0));
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
    EXPECT_EQ(sheet.getDataFromBlocks(0, 70), latin1("6"));
    EXPECT_EQ(probe.blocks().keys(), cached);
}

TEST_F(UpdateResult, ReloadsAlsoWhenTheRecipeHasChanged)
{
    RecipeSheetItems& sheet = startSheet();
    runSql(latin1("UPDATE data_0 SET D0 = 5 WHERE column = 0;"));
    registers().setWord(latin1("LW"), 60803, 3);
    settle();
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
}

TEST_F(UpdateResult, KeepsPendingEditsVisible)
{
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 1, 1, latin1("4711"));
    sheet.update_result(4);
    sheet.refresh_displayInfo();
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(1, 1), latin1("4711"));
    EXPECT_EQ(sheet.getColumnName(1), latin1("Recipe1"));
}

TEST_F(UpdateResult, WithoutACommunicationInterfaceOnlyReloads)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe(sheet).comm() = nullptr;
    runSql(latin1("UPDATE data_0 SET D0 = 5 WHERE column = 0;"));
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
}
