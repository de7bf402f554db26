// Files whose views, triggers and functions never end or never stop growing. A statement gets an allowance by the size
// of the file and fails beyond it; what plain tables need stays far below.
#include "storage_fixture.h"

#include <string>

#include <sys/resource.h>
#include <time.h>

namespace {

/// Processor time of this thread, in seconds.
double threadSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The largest size of this process so far, in bytes.
qint64 peakMemory()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

const char ENDLESS[] = "WITH RECURSIVE r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) SELECT ";
const double LONG = 300;       // seconds; all that a test does takes much less, also under a sanitizer
const qint64 MUCH = 400 << 20; // an endless statement would need gigabytes

class Allowance : public StorageTest
{
protected:
    void SetUp() override
    {
        openEmpty();
        ASSERT_EQ(db->createTable_Group(0, recipeGroup(4, 3)), 0);
        db->CloseRecipeFile();
        memory = peakMemory();
    }
    void TearDown() override
    {
        EXPECT_LT(threadSeconds() - started, LONG);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        EXPECT_LT(peakMemory() - memory, MUCH);
#endif
    }

    /// Runs the statements from outside and opens the file.
    void damage(const std::string& sql)
    {
        OutsideSqlite(path).exec(sql);
        ASSERT_EQ(db->OpenRecipeFile(path), 0);
        started = threadSeconds();
    }
    void putInPlaceOf(const std::string& table, const std::string& select)
    {
        damage("DROP TABLE " + table + "; CREATE VIEW " + table + " AS " + select);
    }
    int load()
    {
        recipeTableInfo_t group;
        return db->loadTable_Group(0, group);
    }
    int loadPart()
    {
        recipeTableInfo_t group;
        return db->loadTable_Group_Partial(0, 0, 3, 0, 4, group);
    }

    double started = threadSeconds();
    qint64 memory = 0;
    SqliteErrors errors{SqliteErrors::Allowed};
};

/// Notes what each statement takes.
class MeasuringInter : public CSqliteInter
{
public:
    int statements = 0;
    double largest = 0;
    std::string what;

    int execSQL(const char* sql) override
    {
        const int result = CSqliteInter::execSQL(sql);
        note(sql);
        return result;
    }
    int querySQL(const char* sql) override
    {
        open = sql;
        return CSqliteInter::querySQL(sql);
    }
    void queryFilish() override
    {
        if (m_pStmt)
            note(open);
        CSqliteInter::queryFilish();
    }

private:
    void note(const std::string& sql)
    {
        ++statements;
        if (spentShare() > largest) {
            largest = spentShare();
            what = sql.substr(0, 80);
        }
    }
    std::string open;
};

} // namespace

TEST_F(Allowance, EndsAnEndlessConfiguration)
{
    putInPlaceOf("recipe_config", std::string(ENDLESS) + "-1 - x AS group_index, x, x, x, x FROM r");
    recipeTableInfo_t group;
    EXPECT_NE(db->findRecipeConfig(0, group), 0);
    EXPECT_NE(load(), 0);
}

TEST_F(Allowance, EndsAnEndlessTableOfItems)
{
    putInPlaceOf("addr_0", std::string(ENDLESS) + "-1 - x AS row_index, x, x, x, x, x, x FROM r");
    EXPECT_EQ(db->getTable_Addr_Row(0), -1);
    EXPECT_NE(loadPart(), 0);
    EXPECT_NE(load(), 0);
}

TEST_F(Allowance, EndsAnEndlessTableOfRecipes)
{
    putInPlaceOf("data_0", std::string(ENDLESS) + "-1 - x AS column, x, x, x, x FROM r");
    EXPECT_EQ(db->getTable_Data_Column(0), -1);
    EXPECT_NE(loadPart(), 0);
    EXPECT_NE(load(), 0);
    QList<QList<QString> > rows;
    EXPECT_NE(db->findTable_Data_Start_Length(0, -2147483647, 2147483647, rows), 0);
}

TEST_F(Allowance, EndsAnEndlessTableOfTitles)
{
    putInPlaceOf(
        "lang_0",
        std::string(ENDLESS)
            + "-1 - x AS type, x + 0 AS strIndex, x AS L0, x AS L1, x AS L2, x AS L3, x AS L4, x AS L5, x AS L6, "
              "x AS L7 FROM r");
    QVector<QVector<QString> > titles(3);
    EXPECT_NE(db->findTable_Language_All(0, DB_LANGUAGE_COLUMN, titles), 0);
    EXPECT_EQ(loadPart(), 0) << "cells do not need titles";
    EXPECT_NE(load(), 0);
}

TEST_F(Allowance, EndsAProductOfTables)
{
    std::string tables = "addr_0";
    std::string sum = "addr_0.row_index";
    for (char name = 'a'; name < 'z'; ++name) {
        tables += std::string(", lang_0 ") + name;
        sum += std::string(" + ") + name + ".strIndex";
    }
    putInPlaceOf("data_0", "SELECT CAST(" + sum + " - 1000 AS INTEGER) AS column, 1, 2, 3, 4 FROM " + tables);
    EXPECT_NE(loadPart(), 0);
    EXPECT_NE(load(), 0);
}

/// What each look at such a view costs doubles with each level, before the first row is asked for.
TEST_F(Allowance, EndsViewsThatStandOnViews)
{
    std::string drop = "DROP TABLE data_0";
    for (const char* pair : {"SELECT x.* FROM %1 x, %1 y", "SELECT * FROM %1 UNION ALL SELECT * FROM %1"}) {
        for (const int levels : {13, 30}) {
            SCOPED_TRACE(std::string(pair) + " " + std::to_string(levels));
            const std::string name = "v" + std::to_string(pair[7]) + std::to_string(levels) + "_";
            std::string sql = drop + "; CREATE TABLE " + name + "0 (column, D0, D1, D2, D3)";
            for (int level = 1; level <= levels; ++level)
                sql += "; CREATE VIEW " + (level < levels ? name + std::to_string(level) : "data_0") + " AS "
                       + text(pair).arg(text((name + std::to_string(level - 1)).c_str())).toStdString();
            damage(sql);
            EXPECT_NE(loadPart(), 0);
            db->CloseRecipeFile();
            drop = "DROP VIEW data_0";
        }
    }
}

TEST_F(Allowance, TakesNoMemoryForRowsThatTheFileHasNoRoomFor)
{
    damage("DROP TABLE addr_0; CREATE VIEW addr_0 AS SELECT row_index, 'a', 0, 5, 0, 0, 9 FROM (" + std::string(ENDLESS)
           + "x AS row_index FROM r LIMIT 200000); UPDATE recipe_config SET row = 2147483647");
    recipeTableInfo_t group;
    EXPECT_EQ(db->getTable_Addr_Row(0), -1);
    EXPECT_EQ(db->findRecipeConfig(0, group), 0);
    EXPECT_EQ(group.items.size(), 0);
}

TEST_F(Allowance, TakesNoMemoryForTextsThatTheFileHasNoRoomFor)
{
    const std::string longText = "hex(zeroblob(1500000))";
    putInPlaceOf("data_0", std::string(ENDLESS) + "CAST(x AS INTEGER) AS column, " + longText + ", " + longText + ", "
                               + longText + ", " + longText + " FROM r LIMIT 50");
    QList<QList<QString> > rows;
    EXPECT_NE(db->findTable_Data_Start_Length(0, 0, 50, rows), 0);
    EXPECT_NE(loadPart(), 0);
}

TEST_F(Allowance, TakesNoValueThatTheFileHasNoRoomFor)
{
    putInPlaceOf("data_0", "SELECT CAST(0 AS INTEGER) AS column, hex(zeroblob(400000000)), 1, 2, 3");
    EXPECT_NE(loadPart(), 0);
}

/// One step of SQLite's each, so that nothing can stop it once it runs.
TEST_F(Allowance, RunsNoFunctionThatMayTakeForEverInOneCall)
{
    const std::string zeros = "hex(zeroblob(1000000))";
    const std::string rare = "hex(zeroblob(500000)) || '1'";
    std::string drop = "DROP TABLE data_0";
    for (const std::string& call :
         {std::string("hex(zeroblob(50000)) LIKE '%0%0%0%0%0%0%0%0%0%1'"), "instr(" + zeros + ", " + rare + ")",
          "replace(" + zeros + ", " + rare + ", 'x')", "trim(" + zeros + ", " + rare + ")",
          "ltrim(" + zeros + ", " + rare + ")", "rtrim(" + zeros + ", " + rare + ")"}) {
        SCOPED_TRACE(call);
        damage(drop + "; CREATE VIEW data_0 AS SELECT " + call + " AS column, 1, 2, 3, 4");
        EXPECT_NE(loadPart(), 0);
        db->CloseRecipeFile();
        drop = "DROP VIEW data_0";
    }
}

/// Few steps, each of which takes milliseconds: what ends them is processor time.
TEST_F(Allowance, EndsAStatementOfSlowSteps)
{
    putInPlaceOf("data_0", std::string(ENDLESS)
                               + "-1 - length(hex(zeroblob(2000000 + x % 7))) AS column, 1, 2, 3, 4 "
                                 "FROM r");
    EXPECT_NE(loadPart(), 0);
    EXPECT_NE(loadPart(), 0);
    EXPECT_NE(loadPart(), 0);
}

TEST_F(Allowance, EndsAWriteWithAnEndlessTriggerAndLeavesTheFileAsItWas)
{
    damage(std::string("CREATE TRIGGER t AFTER UPDATE ON data_0 BEGIN SELECT max(x) FROM (") + ENDLESS
           + "x FROM r); END;");
    const std::string before = dump();
    EXPECT_NE(db->updateTable_Data_Column_One(0, 1, 1, text("5")), 0);
    EXPECT_EQ(dump(), before);
    ASSERT_EQ(db->beginEdits(), 0);
    EXPECT_NE(db->updateTable_Data_Column_One(0, 1, 1, text("5")), 0);
    db->commitEdits();
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(load(), 0) << "no transaction is left open, and plain tables are read as before";
}

/// Each save multiplied the rows. What the trigger wrote made the file larger, and with it what it might write.
TEST_F(Allowance, DoesNotGrowWithWhatATriggerWrites)
{
    damage("WITH RECURSIVE r(x) AS (SELECT 4 UNION ALL SELECT x + 1 FROM r LIMIT 100) INSERT INTO data_0(column) "
           "SELECT x FROM r; "
           "CREATE TRIGGER t BEFORE UPDATE ON lang_0 BEGIN INSERT INTO data_0(column) SELECT a.column FROM data_0 a, "
           "data_0 b, data_0 c; END;");
    const std::string before = dump();
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 0, eight(text("new"))), 0);
    EXPECT_EQ(dump(), before);
}

/// The connection that has been misused gives less from then on. A plain group fits into that, too.
TEST_F(Allowance, IsEnoughForALargeGroupAlsoAfterAnEndlessOne)
{
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    ASSERT_EQ(db->createTable_Group(1, recipeGroup(300, 300)), 0);
    db->CloseRecipeFile();
    putInPlaceOf("data_0", std::string(ENDLESS) + "-1 - x AS column, x, x, x, x FROM r");
    EXPECT_NE(loadPart(), 0);
    recipeTableInfo_t group;
    EXPECT_EQ(db->loadTable_Group(1, group), 0);
    EXPECT_EQ(group.items.size(), 300);
    EXPECT_EQ(group.columnName.size(), 300);
    EXPECT_EQ(group.items.at(299).values.size(), 300);
    EXPECT_EQ(db->createTable_Group(1, group), 0);
}

/// Rows of the smallest kind: the count is believed as long as the file has room for them.
TEST_F(Allowance, BelievesTheCountOfATableOfTinyRows)
{
    damage("DROP TABLE data_0; CREATE TABLE data_0 (column);" + std::string("INSERT INTO data_0 ") + ENDLESS
           + "NULL FROM r LIMIT 100000");
    EXPECT_EQ(db->getTable_Data_Column(0), 100000);
}

TEST_F(Allowance, BelievesTheCountOfRowsThatAreNotOnTheDiskYet)
{
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    ASSERT_EQ(db->execBegin(), 0);
    recipeItemInfo_t item = recipeGroup(1, 1).items.at(0);
    for (int i = 4; i < 5000; ++i)
        ASSERT_EQ(db->insertTable_Addr(0, i, item), 0);
    EXPECT_EQ(db->getTable_Addr_Row(0), 5000);
    EXPECT_EQ(db->execCommit(), 0);
}

/// Cells of one byte each: nothing needs more steps for its size.
TEST_F(Allowance, IsFiftyTimesWhatPlainTablesNeed)
{
    makeEmptyRecipeFile(path);
    const int ITEMS = 400;
    const int RECIPES = 300;
    MeasuringInter* const inter = new MeasuringInter; // belongs to db
    ASSERT_EQ(inter->connect(path.toUtf8().constData()), 1);
    RecipeDBProbe::setConnection(*db, inter);
    recipeTableInfo_t group = recipeGroup(ITEMS, RECIPES);
    for (recipeItemInfo_t& item : group.items)
        item.values.fill(text("0"), RECIPES);
    ASSERT_EQ(db->createTable_Group(1, group), 0);
    ASSERT_EQ(db->loadTable_Group(1, group), 0);
    ASSERT_EQ(db->loadTable_Group_Partial(1, ITEMS - 100, 100, RECIPES - 50, 50, group), 0);
    ASSERT_EQ(db->updateTable_Data_Column_One(1, RECIPES - 1, ITEMS - 1, text("5")), 0);
    ASSERT_EQ(db->updateTable_Language_Index(1, DB_LANGUAGE_COLUMN, RECIPES - 1, eight(text("new"))), 0);
    ASSERT_EQ(db->getTable_Data_Column(1), RECIPES);
    EXPECT_GT(inter->statements, 1000);
    EXPECT_GT(inter->largest, 0.0);
    EXPECT_LT(inter->largest, 0.02) << inter->what;
}

TEST_F(Allowance, ReadsEachOfTwoThousandColumns)
{
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    ASSERT_EQ(db->createTable_Group(1, recipeGroup(1900, 2)), 0);
    EXPECT_EQ(db->updateTable_Data_Column(1, 1, QVector<QString>(1900, text("7"))), 0);
    recipeTableInfo_t group;
    EXPECT_EQ(db->loadTable_Group(1, group), 0);
    EXPECT_EQ(group.items.size(), 1900);
}
