// The SQLite access layer: one connection, one query, its status codes and what it prints.
#include "SqliteInter.h"

#include "outside_sqlite.h"
#include "recipe_db_probe.h"
#include "recipe_fixtures.h"
#include "sqlite_errors.h"
#include "wanted_leak.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace {

class Sqlite : public testing::Test
{
protected:
    Sqlite() { cleanProjectDirectory(); }

    void SetUp() override { ASSERT_EQ(inter.connect(name), 1); }

    void run(const char* sql) { ASSERT_EQ(inter.execSQL(sql), 0) << sql; }

    /// Opens the query and steps to its first row.
    void row(const char* sql)
    {
        ASSERT_EQ(inter.querySQL(sql), 0) << sql;
        ASSERT_EQ(inter.queryStep(), 1) << sql;
    }

    std::string outside(const std::string& sql) const { return outsideQuery(recipeFilePath(), sql); }

    const char* const name = "/usr/tabrix/project/recipeN.db3";
    const char* const utf16Name = "/usr/tabrix/project/utf16.db3";
    CSqliteInter inter;
};

/// As long as it lives, SQLite gets no more memory than this, in bytes.
class HeapLimit
{
public:
    explicit HeapLimit(long long bytes) { sqlite3_hard_heap_limit64(bytes); }
    ~HeapLimit() { sqlite3_hard_heap_limit64(0); }
    HeapLimit(const HeapLimit&) = delete;
    HeapLimit& operator=(const HeapLimit&) = delete;
};

// --- shape -------------------------------------------------------------------------------------------------------

/// Slot of a virtual operation in the table of its class: the two of the destructor are 0 and 1.
template <typename Operation> std::size_t slot(Operation operation)
{
    std::uintptr_t word = 0;
    std::memcpy(&word, &operation, sizeof(word));
    return (word & ~std::uintptr_t(1)) / sizeof(void*);
}

TEST(SqliteSlots, StandInTheWrittenOrderBehindTheDestructor)
{
    const std::vector<std::size_t> slots = {
        slot(&CSqliteInter::connect),       slot(&CSqliteInter::disconnect),     slot(&CSqliteInter::reset),
        slot(&CSqliteInter::ping),          slot(&CSqliteInter::vacuum),         slot(&CSqliteInter::deleteTable),
        slot(&CSqliteInter::truncateTable), slot(&CSqliteInter::existTable),     slot(&CSqliteInter::maxId),
        slot(&CSqliteInter::execSQL),       slot(&CSqliteInter::querySQL),       slot(&CSqliteInter::execBegin),
        slot(&CSqliteInter::execCommit),    slot(&CSqliteInter::execRollBack),   slot(&CSqliteInter::queryStep),
        slot(&CSqliteInter::getFieldUChar), slot(&CSqliteInter::getFieldShort),  slot(&CSqliteInter::getFieldUShort),
        slot(&CSqliteInter::getFieldInt),   slot(&CSqliteInter::getFieldUInt),   slot(&CSqliteInter::getFieldLong),
        slot(&CSqliteInter::getFieldULong), slot(&CSqliteInter::getFieldDouble), slot(&CSqliteInter::getFieldStr),
        slot(&CSqliteInter::getFieldQStr),  slot(&CSqliteInter::queryFilish),    slot(&CSqliteInter::queryColumnCount),
    };
    ASSERT_EQ(slots.size(), 27u);
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], i + 2) << "operation " << i + 2 << " of 28";
}

TEST_F(Sqlite, HoldsTheConnectionAndThenTheStatement)
{
    ASSERT_GE(sizeof(CSqliteInter), 3 * sizeof(void*));
    void* words[3] = {};
    std::memcpy(words, static_cast<const void*>(&inter), sizeof(words));
    EXPECT_EQ(words[1], SqliteInterProbe::handle(inter));
    EXPECT_EQ(words[2], nullptr);

    ASSERT_EQ(inter.querySQL("SELECT 1;"), 0);
    std::memcpy(words, static_cast<const void*>(&inter), sizeof(words));
    EXPECT_NE(words[2], nullptr);
    EXPECT_EQ(words[2], SqliteInterProbe::statement(inter));
}

/// Refuses every statement, noting it.
class Refusing : public CSqliteInter
{
public:
    std::vector<std::string> texts;
    int finished = 0;

    int execSQL(const char* sql) override
    {
        texts.push_back(sql);
        return 77;
    }
    int querySQL(const char* sql) override
    {
        texts.push_back(sql);
        return 78;
    }
    void queryFilish() override
    {
        ++finished;
        CSqliteInter::queryFilish();
    }
};

TEST(SqliteOverrides, TakeEffectInEveryOperationThatUsesThem)
{
    Refusing inter;
    EXPECT_EQ(inter.vacuum(), 77);
    EXPECT_EQ(inter.deleteTable("t"), 77);
    EXPECT_EQ(inter.truncateTable("t"), 77);
    EXPECT_EQ(inter.maxId("t", "f"), 78);
    EXPECT_THAT(inter.texts,
                testing::ElementsAre("VACUUM", "DROP TABLE IF EXISTS t;", "DELETE FROM t;", "select max(f) from t"));
    inter.reset();
    EXPECT_EQ(inter.finished, 1);
}

// --- connecting --------------------------------------------------------------------------------------------------

TEST(SqliteConnect, StartsDisconnected)
{
    CSqliteInter inter;
    EXPECT_EQ(inter.ping(), 0);
    EXPECT_EQ(SqliteInterProbe::handle(inter), nullptr);
    EXPECT_EQ(SqliteInterProbe::statement(inter), nullptr);
}

TEST_F(Sqlite, AnswersAPingWhileConnected)
{
    EXPECT_EQ(inter.ping(), 1);
    inter.disconnect();
    EXPECT_EQ(inter.ping(), 0);
}

TEST_F(Sqlite, KeepsTheFirstFileWhenAskedToConnectAgain)
{
    const QString other = QString::fromLatin1("/usr/tabrix/project/other.db3");
    EXPECT_EQ(inter.connect(other.toUtf8().constData()), 1);
    run("CREATE TABLE here (a);");
    EXPECT_EQ(outside("SELECT name FROM sqlite_master;"), "here");
    EXPECT_FALSE(QFile::exists(other));
}

TEST(SqliteConnect, FailsOnADirectoryAndStaysDisconnected)
{
    const WantedLeak handle;
    CSqliteInter inter;
    EXPECT_EQ(inter.connect("/usr/tabrix/project"), 0);
    EXPECT_EQ(inter.ping(), 0);
    EXPECT_EQ(SqliteInterProbe::handle(inter), nullptr);
}

TEST(SqliteConnect, ReadsTheNameAsUtf8)
{
    CSqliteInter inter;
    ASSERT_EQ(inter.connect("/usr/tabrix/project/R\u00fchrwerk.db3"), 1);
    ASSERT_EQ(inter.execSQL("CREATE TABLE t (a);"), 0);
    EXPECT_TRUE(QFile::exists(QString::fromUtf8("/usr/tabrix/project/R\u00fchrwerk.db3")));
}

TEST_F(Sqlite, StaysConnectedWhileAnOpenQueryKeepsItBusy)
{
    row("SELECT 1;");
    inter.disconnect();
    EXPECT_EQ(inter.ping(), 1);
    int value = 0;
    EXPECT_EQ(inter.getFieldInt(0, value), 1); // the query has not been touched
    EXPECT_EQ(value, 1);
    inter.queryFilish();
    inter.disconnect();
    EXPECT_EQ(inter.ping(), 0);
}

/// Where standard output is a file, SQLite's refusals came into it with the next 4 KiB or the end of the process.
TEST_F(Sqlite, ShowsARefusalAtOnceWhereStandardOutputIsAFile)
{
    std::FILE* const log = std::tmpfile();
    ASSERT_NE(log, nullptr);
    std::FILE* const usual = stdout;
    const auto logged = [log] {
        struct stat status = {};
        EXPECT_EQ(fstat(fileno(log), &status), 0);
        return status.st_size;
    };
    stdout = log;
    inter.execSQL("refused");
    const auto afterWrite = logged();
    inter.querySQL("refused");
    const auto afterQuery = logged();
    inter.execCommit();
    const auto afterCommit = logged();
    stdout = usual;
    std::fclose(log);
    EXPECT_GT(afterWrite, 0);
    EXPECT_GT(afterQuery, afterWrite);
    EXPECT_GT(afterCommit, afterQuery);
}

// The destructor once closed nothing while a query was open: the file stayed open for the life of the process.
TEST_F(Sqlite, ClosesTheFileWhenItGoesInTheMiddleOfAQuery)
{
    run("CREATE TABLE t (a);");
    const auto handles = [this] {
        int count = 0;
        for (const QFileInfo& handle : QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System))
            count += handle.symLinkTarget() == QString::fromUtf8(name);
        return count;
    };
    const int before = handles();
    EXPECT_GE(before, 1);
    {
        CSqliteInter other;
        ASSERT_EQ(other.connect(name), 1);
        ASSERT_EQ(other.querySQL("SELECT * FROM sqlite_master;"), 0);
        ASSERT_EQ(other.queryStep(), 1);
        EXPECT_GT(handles(), before);
    }
    EXPECT_EQ(handles(), before);
}

TEST_F(Sqlite, RollsAnOpenTransactionBackWhenItDisconnects)
{
    run("CREATE TABLE t (a);");
    ASSERT_EQ(inter.execBegin(), 0);
    run("INSERT INTO t VALUES(1);");
    inter.disconnect();
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "0");
}

// --- statements --------------------------------------------------------------------------------------------------

TEST_F(Sqlite, ReturnsZeroForAStatementThatRan)
{
    EXPECT_EQ(inter.execSQL("CREATE TABLE t (a);"), 0);
    EXPECT_EQ(inter.execSQL("INSERT INTO t VALUES(1); INSERT INTO t VALUES(2);"), 0);
    EXPECT_EQ(outside("SELECT a FROM t;"), "1\n2");
}

TEST_F(Sqlite, PrintsStatementAndMessageWhenAStatementFails)
{
    SqliteErrors errors;
    EXPECT_EQ(inter.execSQL("INSERT INTO missing VALUES(1);"), 2);
    EXPECT_EQ(errors.take(), "CSqliteInter::execSQL() ERROR\n sql=[INSERT INTO missing VALUES(1);]\n"
                             " err=[no such table: missing]\n");
}

TEST_F(Sqlite, PrintsLongStatementsWhole)
{
    SqliteErrors errors;
    const std::string sql = "nonsense '" + std::string(5000, 'x') + "'";
    EXPECT_EQ(inter.execSQL(sql.c_str()), 2);
    EXPECT_EQ(errors.take(),
              "CSqliteInter::execSQL() ERROR\n sql=[" + sql + "]\n err=[near \"nonsense\": syntax error]\n");
}

TEST_F(Sqlite, PrintsTheUnparsedRestAndNotTheMessageWhenAQueryFails)
{
    SqliteErrors errors;
    EXPECT_EQ(inter.querySQL("SELECT a b c FROM t;"), 2);
    const char* rest = nullptr;
    sqlite3_stmt* statement = nullptr;
    const char sql[] = "SELECT a b c FROM t;";
    sqlite3_prepare_v2(OutsideSqlite(recipeFilePath()).handle(), sql, -1, &statement, &rest);
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(errors.take(),
              std::string("CSqliteInter::querySQL() ERROR\n sql=[SELECT a b c FROM t;]\n err=[") + rest + "]\n");
    EXPECT_EQ(SqliteInterProbe::statement(inter), nullptr);
}

TEST_F(Sqlite, PrintsNothingOfAFailedPreparationBehindItsStatement)
{
    SqliteErrors errors;
    EXPECT_EQ(inter.querySQL("SELECT a FROM missing; SELECT 2"), 2);
    EXPECT_EQ(errors.take(),
              "CSqliteInter::querySQL() ERROR\n sql=[SELECT a FROM missing; SELECT 2]\n err=[ SELECT 2]\n");
}

TEST_F(Sqlite, FinalizesAnOpenQueryBeforeAnyOtherStatement)
{
    run("CREATE TABLE t (a);");
    const std::vector<std::function<void()> > operations = {
        [this] { inter.execSQL("INSERT INTO t VALUES(1);"); },
        [this] { inter.execBegin(); },
        [this] { inter.execCommit(); },
        [this] { inter.reset(); },
        [this] { inter.vacuum(); },
        [this] { inter.deleteTable("other"); },
        [this] { inter.truncateTable("t"); },
        [this] { inter.maxId("t", "a"); },
    };
    for (std::size_t i = 0; i < operations.size(); ++i) {
        row("SELECT 1;");
        operations[i]();
        EXPECT_EQ(SqliteInterProbe::statement(inter), nullptr) << i;
        EXPECT_EQ(inter.queryStep(), 0) << i;
    }
}

TEST_F(Sqlite, StartsAnotherQueryInPlaceOfTheOpenOne)
{
    row("SELECT 1;");
    row("SELECT 2;");
    int value = 0;
    inter.getFieldInt(0, value);
    EXPECT_EQ(value, 2);
    inter.queryFilish();
    inter.disconnect(); // nothing is left open
    EXPECT_EQ(inter.ping(), 0);
}

TEST_F(Sqlite, VacuumsAndReportsWhereItCannot)
{
    EXPECT_EQ(inter.vacuum(), 0);
    ASSERT_EQ(inter.execBegin(), 0);
    SqliteErrors errors;
    EXPECT_EQ(inter.vacuum(), 2);
    EXPECT_EQ(errors.take(), "CSqliteInter::execSQL() ERROR\n sql=[VACUUM]\n"
                             " err=[cannot VACUUM from within a transaction]\n");
}

TEST_F(Sqlite, DropsATableAndDoesNotMindAMissingOne)
{
    run("CREATE TABLE t (a);");
    EXPECT_EQ(inter.deleteTable("t"), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM sqlite_master;"), "0");
    EXPECT_EQ(inter.deleteTable("t"), 0);
}

TEST_F(Sqlite, EmptiesATableAndReportsAMissingOne)
{
    run("CREATE TABLE t (a); INSERT INTO t VALUES(1);");
    EXPECT_EQ(inter.truncateTable("t"), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "0");
    SqliteErrors errors;
    EXPECT_EQ(inter.truncateTable("missing"), 2);
    EXPECT_EQ(errors.take(),
              "CSqliteInter::execSQL() ERROR\n sql=[DELETE FROM missing;]\n err=[no such table: missing]\n");
}

TEST_F(Sqlite, RunsNothingForATableNameThatDoesNotFitIn63Bytes)
{
    const std::string fits(63 - std::strlen("DELETE FROM ;"), 'n');
    run(("CREATE TABLE " + fits + " (a); INSERT INTO " + fits + " VALUES(1);").c_str());
    EXPECT_EQ(inter.truncateTable((fits + "x").c_str()), 2);
    EXPECT_EQ(outside("SELECT count(*) FROM " + fits + ";"), "1");
    EXPECT_EQ(inter.truncateTable(fits.c_str()), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM " + fits + ";"), "0");
    EXPECT_EQ(inter.deleteTable(std::string(4000, 'n').c_str()), 2);
    EXPECT_EQ(inter.maxId(std::string(4000, 'n').c_str(), "a"), 2);
}

TEST_F(Sqlite, NeverSaysThatATableExists)
{
    run("CREATE TABLE t (a);");
    EXPECT_EQ(inter.existTable("t"), 0);
    EXPECT_EQ(inter.existTable("missing"), 0);
    EXPECT_EQ(inter.existTable(nullptr), 0);
}

// --- the largest value -------------------------------------------------------------------------------------------

TEST_F(Sqlite, FindsTheLargestValueOfAField)
{
    run("CREATE TABLE t (a, b); INSERT INTO t VALUES(5, 1); INSERT INTO t VALUES(41, 2);");
    EXPECT_EQ(inter.maxId("t", "a"), 41);
    EXPECT_EQ(inter.maxId("t", "b"), 2); // the code of a failure as well; wanted
    EXPECT_EQ(SqliteInterProbe::statement(inter), nullptr);
}

TEST_F(Sqlite, FindsZeroInAnEmptyTable)
{
    run("CREATE TABLE t (a);");
    EXPECT_EQ(inter.maxId("t", "a"), 0);
}

TEST_F(Sqlite, ReturnsTheCodeOfTheFailedQueryInPlaceOfALargestValue)
{
    SqliteErrors errors;
    EXPECT_EQ(inter.maxId("missing", "a"), 2);
    EXPECT_EQ(errors.take(), "CSqliteInter::querySQL() ERROR\n sql=[select max(a) from missing]\n err=[]\n");
}

TEST_F(Sqlite, DropsTheHighHalfOfALargestValue)
{
    run("CREATE TABLE t (a); INSERT INTO t VALUES(4294967301);");
    EXPECT_EQ(inter.maxId("t", "a"), 5);
}

// --- transactions ------------------------------------------------------------------------------------------------

TEST_F(Sqlite, CommitsWhatWasWrittenSinceItBegan)
{
    run("CREATE TABLE t (a);");
    EXPECT_EQ(inter.execBegin(), 0);
    EXPECT_TRUE(inter.inTransaction());
    run("INSERT INTO t VALUES(1);");
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "0");
    EXPECT_EQ(inter.execCommit(), 0);
    EXPECT_FALSE(inter.inTransaction());
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "1");
}

TEST_F(Sqlite, NamesExecSqlWhenItCannotBegin)
{
    ASSERT_EQ(inter.execBegin(), 0);
    SqliteErrors errors;
    EXPECT_EQ(inter.execBegin(), 1);
    EXPECT_EQ(errors.take(), "CSqliteInter::execSQL() ERROR\n err=[cannot start a transaction within a transaction]\n");
}

TEST_F(Sqlite, PrintsWhyItCannotCommit)
{
    SqliteErrors errors;
    EXPECT_EQ(inter.execCommit(), 1);
    EXPECT_EQ(errors.take(), "CSqliteInter::execCommit() ERROR\n err=[cannot commit - no transaction is active]\n");
}

TEST_F(Sqlite, DoesNotRollBackWithoutAnOpenQuery)
{
    run("CREATE TABLE t (a);");
    ASSERT_EQ(inter.execBegin(), 0);
    run("INSERT INTO t VALUES(1);");
    EXPECT_EQ(inter.execRollBack(), 1);
    EXPECT_TRUE(inter.inTransaction());
    EXPECT_EQ(inter.execCommit(), 0);
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "1");
}

TEST_F(Sqlite, DoesNotRollBackAfterAFailedStatementEither)
{
    run("CREATE TABLE t (a);");
    ASSERT_EQ(inter.execBegin(), 0);
    run("INSERT INTO t VALUES(1);");
    {
        SqliteErrors errors;
        EXPECT_EQ(inter.execSQL("nonsense"), 2);
    }
    EXPECT_EQ(inter.execRollBack(), 1);
    EXPECT_TRUE(inter.inTransaction());
}

TEST_F(Sqlite, RollsBackWhileAQueryIsOpen)
{
    run("CREATE TABLE t (a);");
    ASSERT_EQ(inter.execBegin(), 0);
    run("INSERT INTO t VALUES(1);");
    ASSERT_EQ(inter.querySQL("SELECT a FROM t;"), 0);
    EXPECT_EQ(inter.execRollBack(), 0);
    EXPECT_FALSE(inter.inTransaction());
    EXPECT_EQ(SqliteInterProbe::statement(inter), nullptr);
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "0");
}

TEST_F(Sqlite, SaysNothingWhenARollbackFails)
{
    row("SELECT 1;");
    EXPECT_EQ(inter.execRollBack(), 1); // no transaction; an unexpected text would fail this test
}

TEST(SqliteRollBack, IsHarmlessWithoutAConnection)
{
    CSqliteInter inter;
    EXPECT_EQ(inter.execRollBack(), 1);
    EXPECT_FALSE(inter.inTransaction());
    EXPECT_FALSE(inter.accepts("SELECT 1;"));
}

TEST_F(Sqlite, TellsWhetherAStatementWouldBeTakenWithoutRunningIt)
{
    run("CREATE TABLE t (a);");
    row("SELECT 1;");
    EXPECT_TRUE(inter.accepts("INSERT INTO t VALUES(1);"));
    EXPECT_FALSE(inter.accepts("INSERT INTO t VALUES('1);"));
    EXPECT_FALSE(inter.accepts("INSERT INTO missing VALUES(1);"));
    EXPECT_NE(SqliteInterProbe::statement(inter), nullptr);
    EXPECT_EQ(outside("SELECT count(*) FROM t;"), "0");
}

// --- rows and columns --------------------------------------------------------------------------------------------

TEST_F(Sqlite, StepsThroughTheRowsAndThenSaysZero)
{
    ASSERT_EQ(inter.querySQL("SELECT 1 UNION SELECT 2;"), 0);
    EXPECT_EQ(inter.queryStep(), 1);
    EXPECT_EQ(inter.queryStep(), 1);
    EXPECT_EQ(inter.queryStep(), 0);
    inter.queryFilish();
    EXPECT_EQ(inter.queryStep(), 0);
}

TEST_F(Sqlite, SaysZeroWhenAStepFails)
{
    ASSERT_EQ(inter.querySQL("SELECT abs(-9223372036854775807 - 1);"), 0); // an overflow at run time
    EXPECT_EQ(inter.queryStep(), 0);
}

TEST_F(Sqlite, CountsTheColumnsOfTheOpenQuery)
{
    EXPECT_EQ(inter.queryColumnCount(), 0);
    ASSERT_EQ(inter.querySQL("SELECT 1, 2, 3;"), 0);
    EXPECT_EQ(inter.queryColumnCount(), 3);
    inter.queryFilish();
    EXPECT_EQ(inter.queryColumnCount(), 0);
}

TEST_F(Sqlite, ReadsEveryKindOfField)
{
    row("SELECT 7, '1.5', 'Stra\u00dfe';");
    unsigned char uchar = 0;
    short small = 0;
    unsigned short usmall = 0;
    int whole = 0;
    unsigned int uwhole = 0;
    long wide = 0;
    unsigned long uwide = 0;
    double real = 0;
    std::string bytes = "before";
    QString text = QString::fromLatin1("before");
    EXPECT_EQ(inter.getFieldUChar(0, uchar), 1);
    EXPECT_EQ(inter.getFieldShort(0, small), 1);
    EXPECT_EQ(inter.getFieldUShort(0, usmall), 1);
    EXPECT_EQ(inter.getFieldInt(0, whole), 1);
    EXPECT_EQ(inter.getFieldUInt(0, uwhole), 1);
    EXPECT_EQ(inter.getFieldLong(0, wide), 1);
    EXPECT_EQ(inter.getFieldULong(0, uwide), 1);
    EXPECT_EQ(inter.getFieldDouble(1, real), 1);
    EXPECT_EQ(inter.getFieldStr(2, bytes), 1);
    EXPECT_EQ(inter.getFieldQStr(2, text), 1);
    EXPECT_EQ(uchar, 7);
    EXPECT_EQ(small, 7);
    EXPECT_EQ(usmall, 7);
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(uwhole, 7u);
    EXPECT_EQ(wide, 7);
    EXPECT_EQ(uwide, 7u);
    EXPECT_EQ(real, 1.5);
    EXPECT_EQ(bytes, "Stra\u00dfe");
    EXPECT_EQ(text, QString::fromUtf8("Stra\u00dfe"));
}

/// An add or a delete would have written the empty text back.
TEST_F(Sqlite, FailsAReadWhereTheMemoryForATextIsNotThere)
{
    OutsideSqlite file(QString::fromLatin1(utf16Name));
    file.exec("PRAGMA encoding='UTF-16'; CREATE TABLE t(a); INSERT INTO t VALUES('" + std::string(1 << 20, 'x')
              + "'), ('y');");
    CSqliteInter utf16;
    ASSERT_EQ(utf16.connect(utf16Name), 1);
    ASSERT_EQ(utf16.querySQL("SELECT a FROM t;"), 0);
    ASSERT_EQ(utf16.queryStep(), 1);
    std::string text = "before";
    {
        const HeapLimit limit(sqlite3_memory_used() + 1000);
        EXPECT_EQ(utf16.getFieldStr(0, text), 1);
    }
    EXPECT_EQ(text, "");
    EXPECT_TRUE(utf16.readFailed());
    EXPECT_EQ(utf16.queryStep(), 0);
    EXPECT_TRUE(utf16.readFailed()) << "it is not the end of the rows";

    ASSERT_EQ(utf16.querySQL("SELECT a FROM t WHERE a = 'y';"), 0);
    EXPECT_EQ(utf16.queryStep(), 1);
    EXPECT_FALSE(utf16.readFailed());
}

TEST_F(Sqlite, TakesNothingThatIsEmptyForAFailure)
{
    row("SELECT NULL, '', x'', zeroblob(0);");
    for (int column = 0; column < 4; ++column) {
        std::string text = "before";
        EXPECT_EQ(inter.getFieldStr(column, text), 1);
        EXPECT_EQ(text, "");
        EXPECT_FALSE(inter.readFailed()) << column;
    }
}

TEST_F(Sqlite, CutsIntegersToTheWidthOfTheirTarget)
{
    row("SELECT 305419896, -1;"); // 0x12345678
    unsigned char uchar = 0;
    short small = 0;
    unsigned short usmall = 0;
    unsigned int uwhole = 0;
    inter.getFieldUChar(0, uchar);
    inter.getFieldShort(0, small);
    inter.getFieldUShort(0, usmall);
    EXPECT_EQ(uchar, 0x78);
    EXPECT_EQ(small, 0x5678);
    EXPECT_EQ(usmall, 0x5678);
    inter.getFieldUChar(1, uchar);
    inter.getFieldShort(1, small);
    inter.getFieldUShort(1, usmall);
    inter.getFieldUInt(1, uwhole);
    EXPECT_EQ(uchar, 255);
    EXPECT_EQ(small, -1);
    EXPECT_EQ(usmall, 65535);
    EXPECT_EQ(uwhole, 4294967295u);
}

struct Wide
{
    const char* stored;
    long asLong;
    unsigned long asULong;
};

void PrintTo(const Wide& wide, std::ostream* out)
{
    *out << wide.stored;
}

class WideField : public testing::TestWithParam<Wide>
{
};

TEST_P(WideField, IsCutTo32BitsOnEveryPlatform)
{
    CSqliteInter inter;
    ASSERT_EQ(inter.connect(":memory:"), 1);
    ASSERT_EQ(inter.querySQL((std::string("SELECT ") + GetParam().stored).c_str()), 0);
    ASSERT_EQ(inter.queryStep(), 1);
    long wide = 99;
    unsigned long uwide = 99;
    EXPECT_EQ(inter.getFieldLong(0, wide), 1);
    EXPECT_EQ(inter.getFieldULong(0, uwide), 1);
    EXPECT_EQ(wide, GetParam().asLong);
    EXPECT_EQ(uwide, GetParam().asULong);
    inter.queryFilish();
}

INSTANTIATE_TEST_SUITE_P(Values, WideField,
                         testing::Values(Wide{"0", 0, 0}, Wide{"-1", -1, 4294967295ul},
                                         Wide{"2147483647", 2147483647, 2147483647},
                                         Wide{"2147483648", -2147483647 - 1, 2147483648ul}, Wide{"4294967296", 0, 0},
                                         Wide{"4294967297", 1, 1},
                                         Wide{"81985529216486895", -1985229329, 2309737967ul}, // 0x0123456789abcdef
                                         Wide{"9223372036854775807", -1, 4294967295ul},
                                         Wide{"-9223372036854775808", 0, 0}));

TEST_F(Sqlite, LeavesTheOutputAsItWasWithoutAnOpenQuery)
{
    row("SELECT 7;");
    inter.queryFilish();
    unsigned char uchar = 1;
    short small = 2;
    unsigned short usmall = 3;
    int whole = 4;
    unsigned int uwhole = 5;
    long wide = 6;
    unsigned long uwide = 7;
    double real = 8;
    std::string bytes = "nine";
    QString text = QString::fromLatin1("ten");
    EXPECT_EQ(inter.getFieldUChar(0, uchar), 0);
    EXPECT_EQ(inter.getFieldShort(0, small), 0);
    EXPECT_EQ(inter.getFieldUShort(0, usmall), 0);
    EXPECT_EQ(inter.getFieldInt(0, whole), 0);
    EXPECT_EQ(inter.getFieldUInt(0, uwhole), 0);
    EXPECT_EQ(inter.getFieldLong(0, wide), 0);
    EXPECT_EQ(inter.getFieldULong(0, uwide), 0);
    EXPECT_EQ(inter.getFieldDouble(0, real), 0);
    EXPECT_EQ(inter.getFieldStr(0, bytes), 0);
    EXPECT_EQ(inter.getFieldQStr(0, text), 0);
    EXPECT_EQ(uchar, 1);
    EXPECT_EQ(small, 2);
    EXPECT_EQ(usmall, 3);
    EXPECT_EQ(whole, 4);
    EXPECT_EQ(uwhole, 5u);
    EXPECT_EQ(wide, 6);
    EXPECT_EQ(uwide, 7u);
    EXPECT_EQ(real, 8);
    EXPECT_EQ(bytes, "nine");
    EXPECT_EQ(text, QString::fromLatin1("ten"));
}

TEST_F(Sqlite, ReadsNullAndColumnsThatAreNotThereAsZeroAndEmpty)
{
    row("SELECT NULL;");
    for (int column : {0, 1, 1000, -1}) {
        int whole = 4;
        double real = 8;
        std::string bytes = "nine";
        QString text = QString::fromLatin1("ten");
        EXPECT_EQ(inter.getFieldInt(column, whole), 1);
        EXPECT_EQ(inter.getFieldDouble(column, real), 1);
        EXPECT_EQ(inter.getFieldStr(column, bytes), 1);
        EXPECT_EQ(inter.getFieldQStr(column, text), 1);
        EXPECT_EQ(whole, 0);
        EXPECT_EQ(real, 0);
        EXPECT_EQ(bytes, "");
        EXPECT_EQ(text, QString());
    }
}

TEST_F(Sqlite, ReadsTextsUpToTheirFirstZeroByte)
{
    row("SELECT 'ab' || char(0) || 'cd';");
    std::string bytes;
    QString text;
    inter.getFieldStr(0, bytes);
    inter.getFieldQStr(0, text);
    EXPECT_EQ(bytes, "ab");
    EXPECT_EQ(text, QString::fromLatin1("ab"));
}

TEST_F(Sqlite, OpensNoQueryForAnEmptyText)
{
    EXPECT_EQ(inter.querySQL(""), 0);
    EXPECT_EQ(inter.queryStep(), 0);
    EXPECT_EQ(inter.execSQL(""), 0);
}

// A panel with an SQLite of before 3.11 took EXTRA for NORMAL and synced less than by default.
TEST(SqliteVersions, AskForNoMoreThanTheyKnowToMakeCommitsLast)
{
    EXPECT_STREQ(CSqliteInter::lastingCommits(3007009), "PRAGMA synchronous=FULL;");
    EXPECT_STREQ(CSqliteInter::lastingCommits(3010002), "PRAGMA synchronous=FULL;");
    EXPECT_STREQ(CSqliteInter::lastingCommits(3011000), "PRAGMA synchronous=EXTRA;");
    EXPECT_STREQ(CSqliteInter::lastingCommits(), "PRAGMA synchronous=EXTRA;");
}

} // namespace
