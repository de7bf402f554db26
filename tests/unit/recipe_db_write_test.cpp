// RecipeDB: its life, the schema and each single write, statement by statement and as read from outside.
#include "storage_fixture.h"
#include "wanted_leak.h"

#include <QFile>

#include <cstdio>
#include <limits>

namespace {

using testing::ElementsAre;

/// `length` letters.
QString letters(int length)
{
    return QString(length, QLatin1Char('a'));
}

class RecipeDBLife : public StorageTest
{
};

class RecipeDBWrite : public StorageTest
{
protected:
    /// The schema of group 0 for these items, with `recipes` rows of "0".
    void makeGroup(int items, int recipes)
    {
        openEmpty();
        ASSERT_EQ(db->createTable_Group(0, recipeGroup(items, recipes)), 0);
    }
};

// --- the instance ------------------------------------------------------------------------------------------------

TEST_F(RecipeDBLife, IsOneForTheProcessUntilItIsReleased)
{
    makeEmptyRecipeFile(path);
    RecipeDB* const first = RecipeDB::getInstance();
    EXPECT_EQ(RecipeDB::getInstance(), first);
    ASSERT_EQ(first->OpenRecipeFile(path), 0);
    ASSERT_EQ(RecipeDB::getInstance()->execBegin(), 0);
    RecipeDB::release();
    OutsideSqlite(path).exec("INSERT INTO recipe_config VALUES(1, 1, 1, 0, '');"); // its locks are gone

    RecipeDB* const second = RecipeDB::getInstance();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->createTable_RecipeConfig(), 1); // a fresh one has no file open
    RecipeDB::release();
    RecipeDB::release();
}

TEST_F(RecipeDBLife, OpensAFileThatIsThere)
{
    makeEmptyRecipeFile(path);
    EXPECT_FALSE(db->isOpen());
    EXPECT_EQ(db->OpenRecipeFile(path), 0);
    EXPECT_TRUE(db->isOpen());
    EXPECT_EQ(db->CloseRecipeFile(), 0);
    EXPECT_FALSE(db->isOpen());
    EXPECT_EQ(db->CloseRecipeFile(), 0);
}

TEST_F(RecipeDBLife, OpensAFileWhoseNameIsNotAscii)
{
    const QString name = text("/usr/tabrix/project/\u914d\u65b9.db3");
    makeEmptyRecipeFile(name);
    EXPECT_EQ(db->OpenRecipeFile(name), 0);
    EXPECT_EQ(db->insertTable_Config(4, recipeGroup(1, 2)), 0);
    EXPECT_EQ(outsideQuery(name, "SELECT group_index FROM recipe_config;"), "4");
}

/// 3: the directory of a deleted journal is handed to the disk too.
int syncLevel(RecipeDB& db)
{
    CSqliteInter& connection = *RecipeDBProbe::connection(db);
    int level = -1;
    EXPECT_EQ(connection.querySQL("PRAGMA synchronous;"), 0);
    EXPECT_EQ(connection.queryStep(), 1);
    connection.getFieldInt(0, level);
    connection.queryFilish();
    return level;
}

/// Opens a file that another program has locked at that moment.
void openWhileLocked(RecipeDB& db, const QString& path)
{
    makeEmptyRecipeFile(path);
    OutsideSqlite other(path);
    other.exec("BEGIN EXCLUSIVE;");
    SqliteErrors expected;
    ASSERT_EQ(db.OpenRecipeFile(path), 0);
    other.exec("COMMIT;");
}

TEST_F(RecipeDBLife, SyncsTheDirectoryToo)
{
    openEmpty();
    EXPECT_EQ(syncLevel(*db), 3);
}

TEST_F(RecipeDBLife, SyncsTheDirectoryTooWhenItWritesToAFileThatWasLockedAtFirst)
{
    openWhileLocked(*db, path);
    EXPECT_EQ(db->insertTable_Config(4, recipeGroup(1, 2)), 0);
    EXPECT_EQ(syncLevel(*db), 3);

    openWhileLocked(*db, path);
    EXPECT_EQ(db->createTable_Group(0, recipeGroup(1, 2)), 0);
    EXPECT_EQ(syncLevel(*db), 3);

    openWhileLocked(*db, path);
    EXPECT_EQ(db->execBegin(), 0);
    EXPECT_EQ(syncLevel(*db), 3);

    openWhileLocked(*db, path);
    EXPECT_EQ(db->TruncateRecipeConfig(), 0);
    EXPECT_EQ(syncLevel(*db), 3);
}

class Unopenable : public StorageTest, public testing::WithParamInterface<const char*>
{
};

TEST_P(Unopenable, LeavesNoFileOpenAndCreatesNone)
{
    openEmpty();
    const WantedLeak handle; // of the directory
    EXPECT_EQ(db->OpenRecipeFile(text(GetParam())), 1);
    EXPECT_EQ(RecipeDBProbe::connection(*db), nullptr);
    EXPECT_EQ(db->createTable_RecipeConfig(), 1);
    EXPECT_EQ(QDir(text("/usr/tabrix/project")).entryList(QDir::Files), QStringList(text("recipeN.db3")));
}

INSTANTIATE_TEST_SUITE_P(Paths, Unopenable,
                         testing::Values("", "/usr/tabrix/project/missing.db3", "/usr/tabrix/project/no/such.db3",
                                         "/usr/tabrix/project"));

TEST_F(RecipeDBLife, ClosesTheFileThatWasOpenWhenItOpensAnother)
{
    openEmpty();
    db->execBegin();
    ASSERT_EQ(db->insertTable_Config(0, recipeGroup(1, 1)), 0);
    const QString other = text("/usr/tabrix/project/other.db3");
    makeEmptyRecipeFile(other);
    EXPECT_EQ(db->OpenRecipeFile(other), 0);
    EXPECT_EQ(outside("SELECT * FROM recipe_config;"), ""); // never committed
    EXPECT_EQ(db->insertTable_Config(5, recipeGroup(1, 1)), 0);
    EXPECT_EQ(outsideQuery(other, "SELECT group_index FROM recipe_config;"), "5");
}

TEST_F(RecipeDBLife, AnswersOneWithoutAFileAndMinusOneWhereItCounts)
{
    recipeTableInfo_t group = recipeGroup(1, 1);
    int number = 17;
    QList<recipeGroupsInfo_t> summaries;
    QVector<recipeItemInfo_t> items;
    recipeItemInfo_t item;
    QList<QString> texts;
    QList<QList<QString> > rows;
    QVector<QString> title;
    QVector<QVector<QString> > several(1);

    EXPECT_EQ(db->execBegin(), 1);
    EXPECT_EQ(db->execCommit(), 1);
    EXPECT_EQ(db->execRollBack(), 1);
    EXPECT_EQ(db->createTable_RecipeConfig(), 1);
    EXPECT_EQ(db->insertTable_Config(0, group), 1);
    EXPECT_EQ(db->TruncateRecipeConfig(), 1);
    EXPECT_EQ(db->findMaxID_Config(number), 1);
    EXPECT_EQ(db->findAllRecipeConfigs(summaries), 1);
    EXPECT_EQ(db->createTable_Addr(0), 1);
    EXPECT_EQ(db->insertTable_Addr(0, 0, item), 1);
    EXPECT_EQ(db->getTable_Addr_Row(0), -1);
    EXPECT_EQ(db->findTable_Addr_Partial(0, 0, 1, items), 1);
    EXPECT_EQ(db->findTable_Addr_Index(0, 0, item), 1);
    EXPECT_EQ(db->createTable_Data(0, items), 1);
    EXPECT_EQ(db->insertTable_Data(0, group), 1);
    EXPECT_EQ(db->insertTable_Data_One(0, 0, QStringList()), 1);
    EXPECT_EQ(db->getTable_Data_Column(0), -1);
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 0, 0, text("1")), 1);
    EXPECT_EQ(db->updateTable_Data_Column(0, 0, eight(text("1"))), 1);
    EXPECT_EQ(db->findTable_Data_Index(0, 0, texts), 1);
    EXPECT_EQ(db->findTable_Data_Start_Length(0, 0, 1, rows), 1);
    EXPECT_EQ(db->findTable_Data_Partial(0, 0, 1, 0, 1, rows), 1);
    EXPECT_EQ(db->createTable_Language(0), 1);
    EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 0, eight(text("a"))), 1);
    EXPECT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_ROW, 0, eight(text("a"))), 1);
    EXPECT_EQ(db->findTable_Language(0, DB_LANGUAGE_ROW, 0, title), 1);
    EXPECT_EQ(db->findTable_Language_All(0, DB_LANGUAGE_ROW, several), 1);
    EXPECT_EQ(db->findTable_Language_AllRow(0, items), 1);
    EXPECT_EQ(db->findTable_Language_Partial(0, DB_LANGUAGE_ROW, 0, 1, several), 1);
    EXPECT_EQ(db->deleteTable_Group(0), 1);
    EXPECT_EQ(db->createTable_Group(0, group), 1);
    EXPECT_EQ(db->findRecipeConfig(0, group), 1);
    EXPECT_EQ(db->findTable_Addr_All(0, group), 1);
    EXPECT_EQ(db->findTable_Data_All(0, group), 1);
    EXPECT_EQ(db->loadTable_Group(0, group), 1);
    EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 1, 0, 1, group), 1);
    EXPECT_EQ(number, 17);
}

// --- transactions ------------------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, ForwardsTransactionsAndDropsTheirResults)
{
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->execBegin(), 0);
    EXPECT_EQ(db->execCommit(), 0);
    EXPECT_EQ(db->execRollBack(), 0); // which did nothing
    {
        SqliteErrors errors;
        EXPECT_EQ(db->execCommit(), 0); // which failed
    }
    EXPECT_THAT(inter.calls, ElementsAre("<begin>", "<commit>", "<rollback>", "<commit>"));
}

TEST_F(RecipeDBWrite, GroupsSeveralWritesOfItsCaller)
{
    openEmpty();
    db->execBegin();
    ASSERT_EQ(db->insertTable_Config(1, recipeGroup(1, 1)), 0);
    ASSERT_EQ(db->insertTable_Config(2, recipeGroup(1, 1)), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM recipe_config;"), "0");
    db->execCommit();
    EXPECT_EQ(outside("SELECT count(*) FROM recipe_config;"), "2");
}

TEST_F(RecipeDBWrite, HoldsTheEditsOfASaveTogether)
{
    makeGroup(1, 2);
    ASSERT_EQ(db->beginEdits(), 0);
    EXPECT_EQ(db->beginEdits(), 1); // one is open
    ASSERT_EQ(db->updateTable_Data_Column_One(0, 0, 0, text("5")), 0);
    ASSERT_EQ(db->updateTable_Data_Column_One(0, 1, 0, text("6")), 0);
    EXPECT_EQ(outside("SELECT D0 FROM data_0;"), "0.0\n10000.0");
    EXPECT_EQ(db->commitEdits(), 0);
    EXPECT_EQ(outside("SELECT D0 FROM data_0;"), "5.0\n6.0");
    EXPECT_EQ(db->commitEdits(), 1); // none is open
}

TEST_F(RecipeDBWrite, KeepsNothingOfASaveThatCannotBeCommitted)
{
    makeGroup(1, 2);
    ASSERT_EQ(db->beginEdits(), 0);
    ASSERT_EQ(db->updateTable_Data_Column_One(0, 0, 0, text("5")), 0);
    {
        OutsideSqlite other(path);
        other.exec("BEGIN; SELECT * FROM data_0;"); // keeps a shared lock
        SqliteErrors errors;
        EXPECT_EQ(db->commitEdits(), 1);
    }
    EXPECT_FALSE(RecipeDBProbe::connection(*db)->inTransaction());
    EXPECT_EQ(outside("SELECT D0 FROM data_0;"), "0.0\n10000.0");
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 0, 0, text("7")), 0);
    EXPECT_EQ(outside("SELECT D0 FROM data_0;"), "7.0\n10000.0");
}

TEST_F(RecipeDBWrite, BeginsNoEditsWithoutAFile)
{
    EXPECT_EQ(db->beginEdits(), 1);
    EXPECT_EQ(db->commitEdits(), 1);
}

// --- the schema, byte for byte -----------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, CreatesTheConfigurationTable)
{
    OutsideSqlite(path).exec("VACUUM;");
    RecordingInter& inter = openRecorded();
    OutsideSqlite(path).exec("DROP TABLE recipe_config;");
    EXPECT_EQ(db->createTable_RecipeConfig(), 0);
    EXPECT_THAT(
        inter.calls,
        ElementsAre("CREATE TABLE IF NOT EXISTS recipe_config (group_index INTEGER PRIMARY KEY, row INTEGER NOT "
                    "NULL, column INTEGER NOT NULL, notify INTEGER NOT NULL, notify_addr VARCHAR);"));
    EXPECT_EQ(schema("recipe_config"),
              "CREATE TABLE recipe_config (group_index INTEGER PRIMARY KEY, row INTEGER NOT NULL, column INTEGER NOT "
              "NULL, notify INTEGER NOT NULL, notify_addr VARCHAR)");
    EXPECT_EQ(db->createTable_RecipeConfig(), 0); // an existing one stays
}

TEST_F(RecipeDBWrite, CreatesTheAddressTable)
{
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->createTable_Addr(12), 0);
    EXPECT_THAT(
        inter.calls,
        ElementsAre("CREATE TABLE IF NOT EXISTS addr_12 (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,"
                    "datatype INTEGER NOT NULL,totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,"
                    "min REAL NOT NULL,max REAL NOT NULL);"));
    EXPECT_EQ(schema("addr_12"),
              "CREATE TABLE addr_12 (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,datatype INTEGER NOT NULL,"
              "totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,min REAL NOT NULL,max REAL NOT NULL)");
}

TEST_F(RecipeDBWrite, CreatesTheLanguageTable)
{
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->createTable_Language(0), 0);
    EXPECT_THAT(inter.calls,
                ElementsAre("CREATE TABLE IF NOT EXISTS lang_0 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' "
                            "TEXT, 'L1' TEXT, 'L2' TEXT, 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT );"));
    EXPECT_EQ(schema("lang_0"),
              "CREATE TABLE lang_0 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' TEXT, 'L1' TEXT, 'L2' TEXT, "
              "'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT )");
}

TEST_F(RecipeDBWrite, GivesTextItemsTextColumnsAndAllOthersReal)
{
    RecordingInter& inter = openRecorded();
    QVector<recipeItemInfo_t> items;
    for (int dataType : {7, 6, 2})
        items.append(recipeItem(0, 0, dataType));
    EXPECT_EQ(db->createTable_Data(3, items), 0);
    EXPECT_THAT(inter.calls, ElementsAre("CREATE TABLE IF NOT EXISTS data_3 (column INTEGER NOT NULL, 'D0' TEXT, 'D1' "
                                         "REAL, 'D2' REAL);"));
    EXPECT_EQ(schema("data_3"), "CREATE TABLE data_3 (column INTEGER NOT NULL, 'D0' TEXT, 'D1' REAL, 'D2' REAL)");
}

TEST_F(RecipeDBWrite, GivesEveryOtherDataTypeARealColumn)
{
    openEmpty();
    QVector<recipeItemInfo_t> items;
    for (int dataType : {-1, 0, 1, 2, 3, 4, 5, 6, 8, 9, 70, 2147483647})
        items.append(recipeItem(0, 0, dataType));
    ASSERT_EQ(db->createTable_Data(0, items), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM pragma_table_info('data_0') WHERE type = 'REAL';"), "12");
    EXPECT_EQ(outside("SELECT count(*) FROM pragma_table_info('data_0') WHERE type = 'TEXT';"), "0");
}

TEST_F(RecipeDBWrite, CreatesADataTableOfJustItsColumnForNoItems)
{
    openEmpty();
    EXPECT_EQ(db->createTable_Data(0, QVector<recipeItemInfo_t>()), 0);
    EXPECT_EQ(schema("data_0"), "CREATE TABLE data_0 (column INTEGER NOT NULL)");
}

TEST_F(RecipeDBWrite, CreatesADataTableFor1900Items)
{
    openEmpty();
    EXPECT_EQ(db->createTable_Data(0, QVector<recipeItemInfo_t>(1900)), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM pragma_table_info('data_0');"), "1901");
}

// --- the configuration table -------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, InsertsAConfigurationRowWithIntegersInQuotes)
{
    RecordingInter& inter = openRecorded();
    recipeTableInfo_t group = recipeGroup(3, 2);
    group.setNotifyAddress(text("dev,1,2,LW,four,5")); // not written: notify is 0
    EXPECT_EQ(db->insertTable_Config(9, group), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO recipe_config(group_index, row, column, notify, notify_addr) "
                                         "VALUES('9', '3', '2', '0', '')"));
    EXPECT_EQ(outside("SELECT *, typeof(group_index), typeof(row), typeof(notify_addr) FROM recipe_config;"),
              "9|3|2|0||integer|integer|text");
}

TEST_F(RecipeDBWrite, InsertsTheNotificationAddressInItsSixFieldForm)
{
    RecordingInter& inter = openRecorded();
    recipeTableInfo_t group = recipeGroup(1, 1);
    group.notify = -7;
    group.setNotifyAddress(text("Ger\u00e4t %1,1,-2,LW,vier,5"));
    EXPECT_EQ(db->insertTable_Config(0, group), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO recipe_config(group_index, row, column, notify, notify_addr) "
                                         "VALUES('0', '1', '1', '-7', 'Ger\u00e4t %1,1,-2,LW,vier,5')"));
}

TEST_F(RecipeDBWrite, ReadsARegisterNameOf32BytesUpToItsEndOnly)
{
    openEmpty();
    recipeTableInfo_t group = recipeGroup(1, 1);
    group.notify = 1;
    group.setNotifyAddress(text("dev,1,2,") + letters(40) + text(",four,5"));
    EXPECT_EQ(db->insertTable_Config(0, group), 0);
    EXPECT_EQ(outside("SELECT notify_addr FROM recipe_config;"), "dev,1,2," + std::string(32, 'a') + ",four,5");
}

TEST_F(RecipeDBWrite, InsertsNoConfigurationForAGroupWithoutRecipes)
{
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->insertTable_Config(0, recipeGroup(3, 0)), 1);
    EXPECT_THAT(inter.calls, ElementsAre());
}

TEST_F(RecipeDBWrite, ReportsAGroupThatIsAlreadyConfigured)
{
    openEmpty();
    ASSERT_EQ(db->insertTable_Config(0, recipeGroup(1, 1)), 0);
    SqliteErrors errors;
    EXPECT_EQ(db->insertTable_Config(0, recipeGroup(1, 2)), 2);
    EXPECT_EQ(errors.take(), "CSqliteInter::execSQL() ERROR\n sql=[INSERT INTO recipe_config(group_index, row, column, "
                             "notify, notify_addr) VALUES('0', '1', '2', '0', '')]\n"
                             " err=[UNIQUE constraint failed: recipe_config.group_index]\n");
    EXPECT_EQ(outside("SELECT column FROM recipe_config;"), "1");
}

TEST_F(RecipeDBWrite, EmptiesTheConfigurationTable)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->insertTable_Config(1, recipeGroup(1, 1)), 0);
    inter.calls.clear();
    EXPECT_EQ(db->TruncateRecipeConfig(), 0);
    EXPECT_THAT(inter.calls, ElementsAre("<truncate recipe_config>", "DELETE FROM recipe_config;"));
    EXPECT_EQ(outside("SELECT count(*) FROM recipe_config;"), "0");
}

TEST_F(RecipeDBWrite, ReportsThatThereIsNoConfigurationTableToEmpty)
{
    openEmpty();
    OutsideSqlite(path).exec("DROP TABLE recipe_config;");
    SqliteErrors errors;
    EXPECT_EQ(db->TruncateRecipeConfig(), 2);
}

TEST_F(RecipeDBWrite, FindsTheLargestGroup)
{
    RecordingInter& inter = openRecorded();
    int largest = 17;
    EXPECT_EQ(db->findMaxID_Config(largest), 0);
    EXPECT_EQ(largest, 0); // what NULL reads as
    ASSERT_EQ(db->insertTable_Config(3, recipeGroup(1, 1)), 0);
    ASSERT_EQ(db->insertTable_Config(41, recipeGroup(1, 1)), 0);
    inter.calls.clear();
    EXPECT_EQ(db->findMaxID_Config(largest), 0);
    EXPECT_EQ(largest, 41);
    EXPECT_THAT(inter.calls, ElementsAre("SELECT MAX(group_index) AS group_index FROM recipe_config;"));
}

TEST_F(RecipeDBWrite, LeavesTheLargestGroupAsItWasWhenTheQueryFails)
{
    OutsideSqlite(path).exec("CREATE TABLE other (a);");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    SqliteErrors errors;
    int largest = 17;
    EXPECT_EQ(db->findMaxID_Config(largest), 1);
    EXPECT_EQ(largest, 17);
    EXPECT_EQ(errors.take(), "CSqliteInter::querySQL() ERROR\n sql=[SELECT MAX(group_index) AS group_index FROM "
                             "recipe_config;]\n err=[]\n");
}

// --- items -------------------------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, InsertsAnItemWithItsLimitsInItsOwnDecimals)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Addr(5), 0);
    inter.calls.clear();
    recipeItemInfo_t item;
    item.setAddress(text("Internal storage area,100,-1,LW,x,3"));
    item.dataType = 3;
    item.totalDigits = 6;
    item.decimalDigits = 2;
    item.min = -1.005;
    item.max = 1e6;
    EXPECT_EQ(db->insertTable_Addr(5, 4, item), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO addr_5(row_index, address, datatype, totalDigits, decimalDigits, "
                                         "min, max) VALUES('4', 'Internal storage area,100,-1,LW,x,3', '3', '6', '2', "
                                         "'-1.00', '1000000.00')"));
    EXPECT_EQ(outside("SELECT *, typeof(row_index), typeof(address), typeof(datatype), typeof(min), typeof(max) "
                      "FROM addr_5;"),
              "4|Internal storage area,100,-1,LW,x,3|3|6|2|-1.0|1000000.0|integer|text|integer|real|real");
}

TEST_F(RecipeDBWrite, WritesLimitsWithoutAPointForNoDecimals)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Addr(0), 0);
    inter.calls.clear();
    EXPECT_EQ(db->insertTable_Addr(0, 0, recipeItem(0, 0)), 0);
    EXPECT_THAT(inter.calls, ElementsAre(testing::HasSubstr("'0', '65535')")));
}

TEST_F(RecipeDBWrite, DoesNotLetADamagedCountOfDecimalsFillTheMemory)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Addr(0), 0);
    recipeItemInfo_t item = recipeItem(0, 0);
    item.decimalDigits = 2147483647;
    EXPECT_EQ(db->insertTable_Addr(0, 0, item), 0);
    EXPECT_EQ(outside("SELECT decimalDigits, max FROM addr_0;"), "2147483647|65535.0");
}

TEST_F(RecipeDBWrite, CountsItems)
{
    RecordingInter& inter = openRecorded();
    {
        SqliteErrors errors;
        EXPECT_EQ(db->getTable_Addr_Row(5), -1);
    }
    EXPECT_THAT(inter.calls, ElementsAre("SELECT count(*) FROM addr_5;"));
    ASSERT_EQ(db->createTable_Addr(5), 0);
    EXPECT_EQ(db->getTable_Addr_Row(5), 0);
    ASSERT_EQ(db->insertTable_Addr(5, 7, recipeItem(7, 0)), 0);
    EXPECT_EQ(db->getTable_Addr_Row(5), 1);
}

// --- recipes -----------------------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, InsertsOneRowPerRecipeWithQuotedValues)
{
    RecordingInter& inter = openRecorded();
    recipeTableInfo_t group = recipeGroup(2, 2);
    group.items[1].dataType = 7;
    group.items[1].values[1] = text("it's \u00b5m");
    ASSERT_EQ(db->createTable_Data(0, group.items), 0);
    inter.calls.clear();
    EXPECT_EQ(db->insertTable_Data(0, group), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO data_0 VALUES(0,'0','1');",
                                         "INSERT INTO data_0 VALUES(1,'10000','it''s \u00b5m');"));
    EXPECT_EQ(outside("SELECT *, typeof(column), typeof(D0), typeof(D1) FROM data_0;"),
              "0|0.0|1|integer|real|text\n1|10000.0|it's \u00b5m|integer|real|text");
}

TEST_F(RecipeDBWrite, KeepsATextInARealColumnThatIsNoNumber)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Data(0, recipeGroup(2, 0).items), 0);
    ASSERT_EQ(db->insertTable_Data_One(0, 0, {text("abc"), text("")}), 0);
    EXPECT_EQ(outside("SELECT D0, typeof(D0), typeof(D1) FROM data_0;"), "abc|text|text");
}

TEST_F(RecipeDBWrite, EndsTheValuesOfARecipeAtTheFirstItemWithoutOne)
{
    RecordingInter& inter = openRecorded();
    recipeTableInfo_t group = recipeGroup(3, 2);
    ASSERT_EQ(db->createTable_Data(0, group.items), 0);
    group.items[1].values.resize(1);
    inter.calls.clear();
    SqliteErrors errors; // a row with too few values is refused by SQLite
    EXPECT_EQ(db->insertTable_Data(0, group), 2);
    EXPECT_THAT(inter.calls,
                ElementsAre("INSERT INTO data_0 VALUES(0,'0','1','2');", "INSERT INTO data_0 VALUES(1,'10000');"));
}

TEST_F(RecipeDBWrite, TriesEveryRecipeAfterAFailureToo)
{
    RecordingInter& inter = openRecorded();
    recipeTableInfo_t group = recipeGroup(2, 3);
    ASSERT_EQ(db->createTable_Data(0, group.items), 0);
    group.items[1].values[1] = QString(); // an empty value is a value
    OutsideSqlite(path).exec("CREATE UNIQUE INDEX i ON data_0(D0);");
    group.items[0].values[1] = group.items[0].values[0];
    inter.calls.clear();
    SqliteErrors errors;
    EXPECT_EQ(db->insertTable_Data(0, group), 2);
    EXPECT_EQ(inter.calls.size(), 3u);
    EXPECT_EQ(errors.count(), 1);
    EXPECT_EQ(outside("SELECT column FROM data_0;"), "0\n2");
}

TEST_F(RecipeDBWrite, InsertsNothingForNoRecipes)
{
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->insertTable_Data(0, recipeGroup(2, 0)), 0);
    EXPECT_THAT(inter.calls, ElementsAre());
}

TEST_F(RecipeDBWrite, InsertsOneRecipe)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Data(0, recipeGroup(2, 0).items), 0);
    inter.calls.clear();
    EXPECT_EQ(db->insertTable_Data_One(0, 9, {text("1.5"), text("O'Brien")}), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO data_0 VALUES(9,'1.5','O''Brien');"));
    EXPECT_EQ(outside("SELECT * FROM data_0;"), "9|1.5|O'Brien");
}

TEST_F(RecipeDBWrite, InsertsARecipeLongerThanAnyBuffer)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Data(0, {recipeItem(0, 0, 7), recipeItem(1, 0, 7)}), 0);
    EXPECT_EQ(db->insertTable_Data_One(0, 0, {letters(5000), letters(70000)}), 0);
    EXPECT_EQ(outside("SELECT length(D0), length(D1) FROM data_0;"), "5000|70000");
}

TEST_F(RecipeDBWrite, CountsRecipesWithAQuotedTableName)
{
    RecordingInter& inter = openRecorded();
    {
        SqliteErrors errors;
        EXPECT_EQ(db->getTable_Data_Column(3), -1);
    }
    EXPECT_THAT(inter.calls, ElementsAre("SELECT COUNT(*) FROM 'data_3';"));
    ASSERT_EQ(db->createTable_Data(3, QVector<recipeItemInfo_t>(1)), 0);
    EXPECT_EQ(db->getTable_Data_Column(3), 0);
    ASSERT_EQ(db->insertTable_Data_One(3, 0, {text("1")}), 0);
    EXPECT_EQ(db->getTable_Data_Column(3), 1);
}

TEST_F(RecipeDBWrite, SetsOneCell)
{
    makeGroup(2, 3);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 2, 1, text("4.25")), 0);
    EXPECT_THAT(inter.calls, ElementsAre("UPDATE data_0 SET 'D1' = '4.25' WHERE column = '2';"));
    EXPECT_EQ(outside("SELECT * FROM data_0;"), "0|0.0|1.0\n1|10000.0|10001.0\n2|20000.0|4.25");
}

TEST_F(RecipeDBWrite, SucceedsWhereThereIsNoSuchRecipe)
{
    makeGroup(1, 1);
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 5, 0, text("1")), 0);
    EXPECT_EQ(outside("SELECT * FROM data_0;"), "0|0.0");
}

TEST_F(RecipeDBWrite, FailsToSetACellOfAnItemThatIsNotThere)
{
    makeGroup(1, 1);
    SqliteErrors errors;
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 0, 1, text("1")), 2);
}

TEST_F(RecipeDBWrite, FailsToSetACellToAValueWithAQuoteAndLeavesTheFileAsItWas)
{
    makeGroup(2, 3);
    RecordingInter& inter = openRecorded();
    const std::string before = dump();
    SqliteErrors errors;
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 1, text("it's")), 2);
    EXPECT_THAT(inter.calls, ElementsAre("UPDATE data_0 SET 'D1' = 'it's' WHERE column = '1';"));
    EXPECT_EQ(errors.take(),
              "CSqliteInter::execSQL() ERROR\n sql=[UPDATE data_0 SET 'D1' = 'it's' WHERE column = '1';]\n"
              " err=[near \"s\": syntax error]\n");
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, StoresADoubledQuoteInACellAsOne)
{
    makeGroup(1, 2);
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 0, text("it''s")), 0); // not escaped, on purpose
    EXPECT_EQ(outside("SELECT D0 FROM data_0;"), "0.0\nit's");
}

/// Values that end their literal and go on with SQL that would be good.
class CraftedValue : public StorageTest, public testing::WithParamInterface<const char*>
{
};

TEST_P(CraftedValue, ReachesNoOtherCell)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(2, 3)), 0);
    const std::string before = dump();
    SqliteErrors errors(SqliteErrors::Allowed);
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 1, text(GetParam())), 2);
    EXPECT_EQ(dump(), before);
}

INSTANTIATE_TEST_SUITE_P(Values, CraftedValue,
                         testing::Values("'", "x'", "'x", "x' --", "x' /*", "x', 'D0' = 'y", "x' WHERE 1; --",
                                         "x'; DROP TABLE data_0; --", "x' OR '1", "'''", "''' --"));

TEST_F(RecipeDBWrite, RefusesACraftedValueThatIsCutAsWell)
{
    makeGroup(1, 3);
    const std::string before = dump();
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 0, text("x' --") + letters(2000)), 2);
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, RefusesAnAddressThatWouldRunAsSql)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Addr(0), 0);
    const std::string before = dump();
    recipeItemInfo_t item = recipeItem(0, 0);
    item.addrPart4 = text("x','1','1','1','1','1'); DROP TABLE recipe_config; --");
    EXPECT_EQ(db->insertTable_Addr(0, 0, item), 2);
    recipeTableInfo_t group = recipeGroup(1, 1);
    group.notify = 1;
    group.notifyDevName = text("x'); DROP TABLE addr_0; --");
    EXPECT_EQ(db->insertTable_Config(0, group), 2);
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, SetsAllCellsOfARecipeEscaped)
{
    makeGroup(3, 2);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->updateTable_Data_Column(0, 1, {text("7"), text("it's"), text("9.5")}), 0);
    EXPECT_THAT(inter.calls,
                ElementsAre("UPDATE data_0 SET 'D0' = '7', 'D1' = 'it''s', 'D2' = '9.5' WHERE column = '1';"));
    EXPECT_EQ(outside("SELECT * FROM data_0;"), "0|0.0|1.0|2.0\n1|7.0|it's|9.5");
}

TEST_F(RecipeDBWrite, SetsTheFirstCellsForFewerValues)
{
    makeGroup(3, 1);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->updateTable_Data_Column(0, 0, {text("7")}), 0);
    EXPECT_THAT(inter.calls, ElementsAre("UPDATE data_0 SET 'D0' = '7' WHERE column = '0';"));
    EXPECT_EQ(outside("SELECT * FROM data_0;"), "0|7.0|1.0|2.0");
}

TEST_F(RecipeDBWrite, SetsNoCellsForNoValues)
{
    makeGroup(3, 1);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->updateTable_Data_Column(0, 0, QVector<QString>()), 1);
    EXPECT_THAT(inter.calls, ElementsAre());
}

TEST_F(RecipeDBWrite, SetsMoreCellsThanOneBufferHolds)
{
    makeGroup(100, 2);
    EXPECT_EQ(db->updateTable_Data_Column(0, 1, QVector<QString>(100, letters(500))), 0);
    EXPECT_EQ(outside("SELECT column, length(D0), length(D99) FROM data_0;"), "0|3|4\n1|500|500");
}

// --- titles ------------------------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, InsertsATitleInEightLanguages)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Language(2), 0);
    inter.calls.clear();
    QVector<QString> title = titles([](int language) { return itemTitle(4, language); });
    title[1] = text("d'eau");
    title.append(text("a ninth is not written"));
    EXPECT_EQ(db->insertTable_Language(2, DB_LANGUAGE_ROW, 4, title), 0);
    EXPECT_THAT(inter.calls, ElementsAre("INSERT INTO lang_2('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', "
                                         "'L6', 'L7') VALUES ('1', '4', 'Item 4 L0', 'd''eau', 'Item 4 L2', 'Item 4 "
                                         "L3', 'Item 4 L4', 'Item 4 L5', 'Item 4 L6', 'Item 4 L7')"));
    EXPECT_EQ(outside("SELECT type, strIndex, typeof(type), typeof(strIndex), L1, L7 FROM lang_2;"),
              "1|4|integer|integer|d'eau|Item 4 L7");
}

TEST_F(RecipeDBWrite, RewritesATitle)
{
    makeGroup(2, 2);
    RecordingInter& inter = openRecorded();
    QVector<QString> title(8);
    title[0] = text("d'eau");
    EXPECT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 1, title), 0);
    EXPECT_THAT(inter.calls, ElementsAre("UPDATE lang_0 SET 'L0' = 'd''eau', 'L1' = '', 'L2' = '', 'L3' = '', 'L4' = "
                                         "'', 'L5' = '', 'L6' = '', 'L7' = '' WHERE type = '2' AND strIndex = '1';"));
    EXPECT_EQ(outside("SELECT type, strIndex, L0 FROM lang_0;"),
              "0|0|Group L0\n1|0|Item 0 L0\n1|1|Item 1 L0\n2|0|Recipe 0 L0\n2|1|d'eau");
}

TEST_F(RecipeDBWrite, WritesNoTitleOfFewerThanEightTexts)
{
    makeGroup(1, 1);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 0, QVector<QString>(7)), 1);
    EXPECT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_ROW, 0, QVector<QString>(7)), 1);
    EXPECT_THAT(inter.calls, ElementsAre());
}

// --- statements that do not fit ----------------------------------------------------------------------------------

/// The text of one title with everything but `varied` letters at its end.
int fixedLength(const RecordingInter& inter, int varied)
{
    return static_cast<int>(inter.calls.back().size()) - varied;
}

TEST_F(RecipeDBWrite, TakesAStatementOf1023BytesAndRefusesOneOf1024)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Language(0), 0);
    ASSERT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 0, eight(letters(1))), 0);
    const int room = 1023 - fixedLength(inter, 1);

    ASSERT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 1, eight(letters(room))), 0);
    EXPECT_EQ(inter.calls.back().size(), 1023u);
    const std::string before = dump();
    SqliteErrors errors;
    EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 2, eight(letters(room + 1))), 2);
    const std::string whole = "INSERT INTO lang_0('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', 'L6', 'L7') "
                              "VALUES ('1', '2', '"
                              + letters(room + 1).toStdString() + "', '', '', '', '', '', '', '')";
    EXPECT_EQ(whole.size(), 1024u);
    EXPECT_EQ(inter.calls.back().substr(0, 1023), whole.substr(0, 1023));
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, FailsWhereverATitleUpdateIsCutAndLeavesNoTrace)
{
    makeGroup(2, 3);
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 9, eight(letters(1))), 0); // no such recipe
    const int fixed = fixedLength(inter, 1);
    const std::string before = dump();
    SqliteErrors errors;
    // The cut walks from behind the closing ";" through the WHERE into the texts.
    for (int cut = 1; cut < 120; ++cut) {
        EXPECT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 1, eight(letters(1023 - fixed + cut))), 2)
            << inter.calls.back();
        EXPECT_EQ(dump(), before) << inter.calls.back();
    }
}

TEST_F(RecipeDBWrite, FailsWhereAnUpdateIsCutExactlyBeforeItsWhere)
{
    makeGroup(1, 3);
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->updateTable_Data_Column_One(0, 9, 0, text("")), 0);
    const int head = static_cast<int>(std::string("UPDATE data_0 SET 'D0' = '").size());
    const std::string before = dump();
    SqliteErrors errors;
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 0, letters(1023 - head - 1)), 2); // the closing quote is the last
    EXPECT_EQ(inter.calls.back().substr(0, 1023),
              "UPDATE data_0 SET 'D0' = '" + std::string(1023 - static_cast<std::size_t>(head) - 1, 'a') + "'");
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, FailsWhereverAOneCellUpdateIsCut)
{
    makeGroup(1, 3);
    const std::string before = dump();
    SqliteErrors errors;
    const int whole = static_cast<int>(std::string("UPDATE data_0 SET 'D0' = '' WHERE column = '1';").size());
    for (int cut = 1; cut < 40; ++cut) {
        EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 0, letters(1023 - whole + cut)), 2) << cut;
        EXPECT_EQ(dump(), before) << cut;
    }
    EXPECT_EQ(db->updateTable_Data_Column_One(0, 1, 0, letters(1023 - whole)), 0);
}

TEST_F(RecipeDBWrite, AddsNothingBehindACutValueOfARecipe)
{
    makeGroup(3, 2);
    RecordingInter& inter = openRecorded();
    const std::string before = dump();
    SqliteErrors errors;
    EXPECT_EQ(db->updateTable_Data_Column(0, 1, {text("1"), letters(1100), text("3")}), 2);
    const std::string sent = inter.calls.back();
    EXPECT_EQ(sent.substr(0, 45), "UPDATE data_0 SET 'D0' = '1', 'D1' = 'aaaaaaa");
    EXPECT_EQ(sent.size(), std::string("UPDATE data_0 SET 'D0' = '1', ").size() + 1023);
    EXPECT_EQ(dump(), before);
}

TEST_F(RecipeDBWrite, FailsWhereverTheLastValueOfARecipeIsCut)
{
    makeGroup(1, 3);
    const std::string before = dump();
    SqliteErrors errors;
    const int frame = static_cast<int>(std::string("'D0' = '' ").size());
    for (int cut = 1; cut < 6; ++cut) {
        EXPECT_EQ(db->updateTable_Data_Column(0, 1, {letters(1023 - frame + cut)}), 2) << cut;
        EXPECT_EQ(dump(), before) << cut;
    }
    EXPECT_EQ(db->updateTable_Data_Column(0, 1, {letters(1023 - frame)}), 0);
}

TEST_F(RecipeDBWrite, CutsInsideAnEscapedQuoteWithoutLettingTheStatementThrough)
{
    makeGroup(1, 3);
    const std::string before = dump();
    SqliteErrors errors;
    const int head = static_cast<int>(std::string("'D0' = '").size());
    for (int shift = 0; shift < 4; ++shift) {
        const QString value = letters(1023 - head - 1 - shift) + text("''''");
        EXPECT_EQ(db->updateTable_Data_Column(0, 1, {value}), 2) << shift;
        EXPECT_EQ(dump(), before) << shift;
    }
}

TEST_F(RecipeDBWrite, CutsInsideACharacterOfUtf8)
{
    RecordingInter& inter = openRecorded();
    ASSERT_EQ(db->createTable_Language(0), 0);
    const std::string head = "INSERT INTO lang_0('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', 'L6', 'L7') "
                             "VALUES ('1', '2', '";
    const std::string before = dump();
    SqliteErrors errors;
    for (int lead = 1; lead <= 2; ++lead) { // bytes of the three-byte character that stay
        const int filler = 1023 - static_cast<int>(head.size()) - lead;
        EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 2, eight(letters(filler) + text("\u914d\u65b9"))), 2);
        const std::string whole = head + std::string(static_cast<std::size_t>(filler), 'a') + "\u914d\u65b9";
        EXPECT_EQ(inter.calls.back(), whole.substr(0, 1023));
        EXPECT_EQ(dump(), before);
    }
}

TEST_F(RecipeDBWrite, CountsBytesAndNotCharacters)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Language(0), 0);
    EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 0, eight(QString(280, QChar(0x914d)))), 0);
    SqliteErrors errors;
    EXPECT_EQ(db->insertTable_Language(0, DB_LANGUAGE_ROW, 0, eight(QString(320, QChar(0x914d)))), 2);
}

// --- deleting a group --------------------------------------------------------------------------------------------

TEST_F(RecipeDBWrite, DeletesAGroupAndNoOther)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(1, recipeGroup(1, 1)), 0);
    ASSERT_EQ(db->createTable_Group(10, recipeGroup(1, 1)), 0);
    RecordingInter& inter = openRecorded();
    EXPECT_EQ(db->deleteTable_Group(1), 0);
    EXPECT_THAT(inter.calls,
                ElementsAre("DELETE FROM recipe_config WHERE group_index = 1;", "DROP TABLE if exists addr_1;",
                            "DROP TABLE if exists data_1;", "DROP TABLE if exists lang_1;"));
    EXPECT_EQ(outside("SELECT group_index FROM recipe_config;"), "10");
    EXPECT_EQ(outside("SELECT name FROM sqlite_master ORDER BY name;"), "addr_10\ndata_10\nlang_10\nrecipe_config");
}

TEST_F(RecipeDBWrite, DeletesAGroupThatIsNotThere)
{
    openEmpty();
    EXPECT_EQ(db->deleteTable_Group(1), 0);
}

TEST_F(RecipeDBWrite, DropsNothingWithoutAConfigurationTable)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Addr(1), 0);
    OutsideSqlite(path).exec("DROP TABLE recipe_config;");
    RecordingInter& inter = *new RecordingInter;
    ASSERT_EQ(inter.connect(path.toUtf8().constData()), 1);
    RecipeDBProbe::setConnection(*db, &inter);
    SqliteErrors errors;
    EXPECT_EQ(db->deleteTable_Group(1), 1);
    EXPECT_EQ(inter.calls.size(), 1u);
    EXPECT_EQ(outside("SELECT name FROM sqlite_master;"), "addr_1");
}

} // namespace
