// Writing a whole group: it is there wholly or not at all, whatever fails, and the next write works.
#include "failing_disk.h"
#include "storage_fixture.h"

#include <QDir>
#include <QFile>

#include <functional>
#include <memory>

namespace {

const int GROUP = 4;

/// What a group is in the file, in its own words.
std::string described(const QString& path)
{
    OutsideSqlite file(path);
    std::string result = file.query("PRAGMA integrity_check;");
    for (const char* sql : {"SELECT * FROM recipe_config;", "SELECT * FROM addr_4;", "SELECT * FROM data_4;",
                            "SELECT * FROM lang_4;", "SELECT name, sql FROM sqlite_master ORDER BY name;"})
        result += "\n--\n" + file.query(sql);
    return result;
}

class GroupRewrite : public StorageTest
{
protected:
    /// A file with group 4 (3 items, 2 recipes) and a neighbour, open.
    void SetUp() override
    {
        openEmpty();
        ASSERT_EQ(db->createTable_Group(GROUP, recipeGroup(3, 2)), 0);
        ASSERT_EQ(db->createTable_Group(5, recipeGroup(1, 1)), 0);
        before = described(path);
    }

    RecordingInter& record()
    {
        RecordingInter* const inter = new RecordingInter;
        EXPECT_EQ(inter->connect(path.toUtf8().constData()), 1);
        RecipeDBProbe::setConnection(*db, inter);
        return *inter;
    }

    /// The failed rewrite left the group as it was, and the connection as good as new.
    void expectUntouched(const char* after)
    {
        EXPECT_EQ(described(path), before) << after;
        expectNextWriteIsDurable(after);
    }

    void expectNextWriteIsDurable(const char* after)
    {
        ASSERT_FALSE(RecipeDBProbe::connection(*db)->inTransaction()) << after;
        ASSERT_EQ(db->updateTable_Data_Column_One(5, 0, 0, text("77")), 0) << after;
        EXPECT_EQ(outside("SELECT D0 FROM data_5;"), "77.0") << after;
        ASSERT_EQ(db->updateTable_Data_Column_One(5, 0, 0, text("0")), 0) << after;
        ASSERT_EQ(db->createTable_Group(GROUP, recipeGroup(2, 5)), 0) << after;
        EXPECT_EQ(outside("SELECT row, column FROM recipe_config WHERE group_index = 4;"), "2|5") << after;
        EXPECT_EQ(outside("SELECT count(*) FROM data_4;"), "5") << after;
    }

    std::string before;
};

// --- when all goes well ------------------------------------------------------------------------------------------

TEST_F(GroupRewrite, RunsItsStatementsInOrderWithinOneTransaction)
{
    RecordingInter& inter = record();
    recipeTableInfo_t group = recipeGroup(2, 1);
    group.items[1].dataType = 7;
    ASSERT_EQ(db->createTable_Group(GROUP, group), 0);

    const auto title = [](int type, int index, const char* what) {
        std::string sql = "INSERT INTO lang_4('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', 'L6', 'L7') "
                          "VALUES ('"
                          + std::to_string(type) + "', '" + std::to_string(index) + "'";
        for (int language = 0; language < 8; ++language)
            sql += std::string(", '") + what + " L" + std::to_string(language) + "'";
        return sql + ")";
    };
    const auto item = [](int row) {
        return "INSERT INTO addr_4(row_index, address, datatype, totalDigits, decimalDigits, min, max) VALUES('"
               + std::to_string(row) + "', 'Internal storage area," + std::to_string(100 + row) + ",-1,LW,,0', '"
               + (row == 1 ? "7" : "0") + "', '5', '0', '0', '65535')";
    };
    EXPECT_THAT(
        inter.calls,
        testing::ElementsAre(
            "<begin>", "DELETE FROM recipe_config WHERE group_index = 4;", "DROP TABLE if exists addr_4;",
            "DROP TABLE if exists data_4;", "DROP TABLE if exists lang_4;",
            "INSERT INTO recipe_config(group_index, row, column, notify, notify_addr) VALUES('4', '2', '1', '0', '')",
            "CREATE TABLE IF NOT EXISTS addr_4 (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,datatype "
            "INTEGER "
            "NOT NULL,totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,min REAL NOT NULL,max REAL NOT "
            "NULL);",
            "CREATE TABLE IF NOT EXISTS lang_4 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' TEXT, 'L1' "
            "TEXT, "
            "'L2' TEXT, 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT );",
            "CREATE TABLE IF NOT EXISTS data_4 (column INTEGER NOT NULL, 'D0' REAL, 'D1' TEXT);", item(0), item(1),
            title(0, 0, "Group"), title(1, 0, "Item 0"), title(1, 1, "Item 1"), title(2, 0, "Recipe 0"),
            "INSERT INTO data_4 VALUES(0,'0','1');", "<commit>"));
}

TEST_F(GroupRewrite, ReplacesTheGroupAndLeavesTheOthers)
{
    ASSERT_EQ(db->createTable_Group(GROUP, recipeGroup(1, 3)), 0);
    EXPECT_EQ(outside("SELECT * FROM recipe_config;"), "4|1|3|0|\n5|1|1|0|");
    EXPECT_EQ(outside("SELECT * FROM data_4;"), "0|0.0\n1|10000.0\n2|20000.0");
    EXPECT_EQ(outside("SELECT type, strIndex, L7 FROM lang_4;"),
              "0|0|Group L7\n1|0|Item 0 L7\n2|0|Recipe 0 L7\n2|1|Recipe 1 L7\n2|2|Recipe 2 L7");
    EXPECT_EQ(outside("SELECT * FROM data_5;"), "0|0.0");
}

TEST_F(GroupRewrite, DoesNotMindAGroupTitleThatIsTooShortOrTooLong)
{
    recipeTableInfo_t group = recipeGroup(1, 1);
    group.groupName.resize(7);
    EXPECT_EQ(db->createTable_Group(GROUP, group), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM lang_4 WHERE type = 0;"), "0");
    group.groupName = eight(QString(2000, QLatin1Char('a')));
    SqliteErrors errors;
    EXPECT_EQ(db->createTable_Group(GROUP, group), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM lang_4;"), "2");
}

TEST_F(GroupRewrite, WritesAGroupWithoutItems)
{
    EXPECT_EQ(db->createTable_Group(GROUP, recipeGroup(0, 2)), 0);
    EXPECT_EQ(outside("SELECT * FROM data_4;"), "0\n1");
}

// --- a failure in each of the steps ------------------------------------------------------------------------------

TEST_F(GroupRewrite, IsUndoneForAGroupWithoutRecipes)
{
    RecordingInter& inter = record();
    EXPECT_EQ(db->createTable_Group(GROUP, recipeGroup(3, 0)), 1);
    EXPECT_THAT(inter.calls, testing::Contains("CREATE TABLE IF NOT EXISTS data_4 (column INTEGER NOT NULL, 'D0' REAL, "
                                               "'D1' REAL, 'D2' REAL);")); // each step is tried
    EXPECT_EQ(inter.calls.back(), "<rollback>");
    expectUntouched("no recipes");
}

TEST_F(GroupRewrite, IsUndoneWithoutAConfigurationTable)
{
    OutsideSqlite(path).exec("ALTER TABLE recipe_config RENAME TO away;");
    before = described(path);
    {
        SqliteErrors errors;
        EXPECT_NE(db->createTable_Group(GROUP, recipeGroup(1, 1)), 0);
    }
    EXPECT_EQ(described(path), before);
    OutsideSqlite(path).exec("ALTER TABLE away RENAME TO recipe_config;");
    expectNextWriteIsDurable("no configuration table");
}

TEST_F(GroupRewrite, IsUndoneForMoreItemsThanATableHasColumns)
{
    {
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, recipeGroup(2001, 1)), 2);
    }
    expectUntouched("too many items");
}

TEST_F(GroupRewrite, TriesAllItemsAndIsUndoneForOneThatFails)
{
    RecordingInter& inter = record();
    recipeTableInfo_t group = recipeGroup(3, 1);
    group.items[0].devName = text("Bob's");
    {
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, group), 2);
        EXPECT_EQ(errors.count(), 1);
    }
    EXPECT_THAT(inter.calls, testing::Contains(testing::HasSubstr("VALUES('2', 'Internal")));
    expectUntouched("an item with a quote");
}

TEST_F(GroupRewrite, IsUndoneForAnItemWithTooFewTitles)
{
    recipeTableInfo_t group = recipeGroup(3, 1);
    group.items[1].rowName.resize(7);
    EXPECT_EQ(db->createTable_Group(GROUP, group), 1);
    expectUntouched("too few item titles");
}

TEST_F(GroupRewrite, IsUndoneForARecipeWithTooFewTitles)
{
    recipeTableInfo_t group = recipeGroup(3, 2);
    group.columnName[0].clear();
    EXPECT_EQ(db->createTable_Group(GROUP, group), 1);
    expectUntouched("too few recipe titles");
}

TEST_F(GroupRewrite, IsUndoneForATitleThatIsTooLong)
{
    recipeTableInfo_t group = recipeGroup(3, 2);
    group.columnName[1] = eight(QString(2000, QChar(0x914d)));
    {
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, group), 2);
    }
    expectUntouched("an over-long title");
}

TEST_F(GroupRewrite, IsUndoneForARecipeWithTooFewValues)
{
    recipeTableInfo_t group = recipeGroup(3, 2);
    group.items[2].values.resize(1);
    {
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, group), 2);
    }
    expectUntouched("too few values");
}

// --- locks -------------------------------------------------------------------------------------------------------

TEST_F(GroupRewrite, IsUndoneWhileAnotherConnectionWrites)
{
    {
        OutsideSqlite other(path);
        other.exec("BEGIN IMMEDIATE;");
        SqliteErrors errors;
        EXPECT_NE(db->createTable_Group(GROUP, recipeGroup(1, 1)), 0);
        EXPECT_THAT(errors.take(), testing::HasSubstr("err=[database is locked]"));
    }
    expectUntouched("a writer");
}

TEST_F(GroupRewrite, ReportsACommitThatAReaderPreventsAndIsUndone)
{
    RecordingInter& inter = record();
    {
        OutsideSqlite other(path);
        other.exec("BEGIN; SELECT * FROM recipe_config;"); // keeps a shared lock
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, recipeGroup(1, 1)), 1);
        EXPECT_EQ(errors.take(), "CSqliteInter::execCommit() ERROR\n err=[database is locked]\n");
    }
    EXPECT_EQ(inter.calls.back(), "<rollback>");
    expectUntouched("a reader");
}

TEST_F(GroupRewrite, IsUndoneInAFileThatCannotBeWritten)
{
    SqliteErrors errors;
    ASSERT_EQ(sqlite3_exec(RecipeDBProbe::handle(*db), "PRAGMA query_only = 1;", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_NE(db->createTable_Group(GROUP, recipeGroup(1, 1)), 0);
    sqlite3_exec(RecipeDBProbe::handle(*db), "PRAGMA query_only = 0;", nullptr, nullptr, nullptr);
    expectUntouched("a file that cannot be written");
}

TEST_F(GroupRewrite, IsNotBegunInsideATransactionOfSomebodyElse)
{
    ASSERT_EQ(db->execBegin(), 0);
    ASSERT_EQ(db->updateTable_Data_Column_One(5, 0, 0, text("31")), 0);
    {
        SqliteErrors errors;
        EXPECT_EQ(db->createTable_Group(GROUP, recipeGroup(1, 1)), 1);
        EXPECT_EQ(errors.take(),
                  "CSqliteInter::execSQL() ERROR\n err=[cannot start a transaction within a transaction]\n");
    }
    EXPECT_TRUE(RecipeDBProbe::connection(*db)->inTransaction()); // theirs is still open
    ASSERT_EQ(db->execCommit(), 0);
    EXPECT_EQ(outside("SELECT D0 FROM data_5;"), "31.0");
    EXPECT_EQ(outside("SELECT count(*) FROM data_4;"), "2");
    expectNextWriteIsDurable("a transaction of somebody else");
}

// --- a full disk -------------------------------------------------------------------------------------------------

TEST_F(GroupRewrite, IsUndoneWhenTheFileMayNotGrow)
{
    // Every size from the present one up to where the group fits.
    for (int extra = 0;; ++extra) {
        ASSERT_LT(extra, 100);
        sqlite3* const handle = RecipeDBProbe::handle(*db);
        const std::string limit =
            "PRAGMA max_page_count = " + std::to_string(std::stoi(outside("PRAGMA page_count;")) + extra) + ";";
        ASSERT_EQ(sqlite3_exec(handle, limit.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        SqliteErrors errors(SqliteErrors::Allowed);
        const int result = db->createTable_Group(GROUP, recipeGroup(20, 20));
        ASSERT_EQ(sqlite3_exec(handle, "PRAGMA max_page_count = 1000000;", nullptr, nullptr, nullptr), SQLITE_OK);
        if (result == 0)
            break;
        EXPECT_THAT(errors.take(), testing::HasSubstr("err=[database or disk is full]"));
        ASSERT_EQ(described(path), before) << extra;
        ASSERT_EQ(db->updateTable_Data_Column_One(5, 0, 0, text("77")), 0) << extra;
        ASSERT_EQ(outside("SELECT D0 FROM data_5;"), "77.0") << extra;
        ASSERT_EQ(db->updateTable_Data_Column_One(5, 0, 0, text("0")), 0) << extra;
        before = described(path);
    }
    EXPECT_EQ(outside("SELECT count(*) FROM data_4;"), "20");
}

/// The disk refuses a change, one or all that follow, with one of SQLite's codes.
struct Refusal
{
    int count;
    int code;
};

void PrintTo(const Refusal& refusal, std::ostream* out)
{
    *out << "code " << refusal.code << ", " << refusal.count << " times";
}

class GroupOnAFailingDisk : public GroupRewrite, public testing::WithParamInterface<Refusal>
{
};

TEST_P(GroupOnAFailingDisk, IsWrittenWhollyOrNotAtAll)
{
    FailingDisk disk;
    db->CloseRecipeFile();
    const QString kept = path + text(".kept");
    ASSERT_TRUE(QFile::copy(path, kept));
    int failures = 0;
    for (int first = 0;; ++first) {
        ASSERT_LT(first, 2000);
        // A fresh file and a connection with next to no cache, so that pages are written before the commit too.
        QFile::remove(path);
        ASSERT_TRUE(QFile::copy(kept, path));
        ASSERT_EQ(db->OpenRecipeFile(path), 0);
        ASSERT_EQ(sqlite3_exec(RecipeDBProbe::handle(*db), "PRAGMA cache_size = 2;", nullptr, nullptr, nullptr),
                  SQLITE_OK);
        SqliteErrors errors(SqliteErrors::Allowed);
        disk.failFrom(first, GetParam().count, GetParam().code);
        const int result = db->createTable_Group(GROUP, recipeGroup(20, 20));
        const int changes = disk.changes();
        disk.work();

        const bool written = outside("SELECT count(*) FROM data_4;") == "20";
        if (!written) {
            EXPECT_NE(result, 0) << first;
            EXPECT_EQ(described(path), before) << first;
            ++failures;
        } else {
            EXPECT_EQ(outside("PRAGMA integrity_check;"), "ok");
            EXPECT_EQ(outside("SELECT count(*) FROM lang_4;"), "41");
        }
        expectNextWriteIsDurable(std::to_string(first).c_str());
        db->CloseRecipeFile();
        if (changes <= first)
            break; // the rewrite did not come as far as the failure
    }
    EXPECT_GT(failures, 40);
}

INSTANTIATE_TEST_SUITE_P(Codes, GroupOnAFailingDisk,
                         testing::Values(Refusal{1, SQLITE_FULL}, Refusal{1, SQLITE_IOERR},
                                         Refusal{1000000, SQLITE_FULL}, Refusal{1000000, SQLITE_IOERR}));

// --- a power cut -------------------------------------------------------------------------------------------------

TEST_F(GroupRewrite, IsThereWhollyOrNotAtAllAfterAPowerCut)
{
    const QString cut = path + text(".cut");
    const QString journal = text("-journal");
    int cuts = 0;
    int oldOnes = 0;
    const auto look = [&](int number) {
        QFile::remove(cut);
        QFile::remove(cut + journal);
        ASSERT_TRUE(QFile::copy(path, cut));
        if (QFile::exists(path + journal)) {
            ASSERT_TRUE(QFile::copy(path + journal, cut + journal));
        }
        ++cuts;
        if (described(cut) == before)
            ++oldOnes;
        else
            EXPECT_EQ(outsideQuery(cut, "SELECT row, column, (SELECT count(*) FROM data_4), (SELECT count(*) FROM "
                                        "lang_4), (SELECT count(*) FROM addr_4) FROM recipe_config WHERE group_index "
                                        "= 4;"),
                      "20|20|20|41|20")
                << number;
    };

    FailingDisk disk;
    db->CloseRecipeFile();
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    ASSERT_EQ(sqlite3_exec(RecipeDBProbe::handle(*db), "PRAGMA cache_size = 2;", nullptr, nullptr, nullptr), SQLITE_OK);
    bool looking = false; // looking opens files on the same disk
    disk.beforeEach([&](int number) {
        if (looking)
            return;
        looking = true;
        look(number);
        looking = false;
    });
    ASSERT_EQ(db->createTable_Group(GROUP, recipeGroup(20, 20)), 0);
    disk.beforeEach(nullptr);
    look(-1);
    EXPECT_GT(oldOnes, 40);
    EXPECT_LT(oldOnes, cuts);
    db->CloseRecipeFile();
}

} // namespace
