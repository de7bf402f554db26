// Files that no tool of ours wrote, or that a dying card has changed: status codes as always, no crash, no hang, and
// memory bounded by what the file really holds.
#include "storage_fixture.h"
#include "wanted_leak.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <random>
#include <string>

#include <sys/resource.h>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
const bool SANITIZED = true; // these need the address space for themselves
#else
const bool SANITIZED = false;
#endif

/// While alive, the process gets no more than this much memory: one that trusts an absurd count ends.
class MemoryBound
{
public:
    explicit MemoryBound(rlim_t megabytes)
    {
        getrlimit(RLIMIT_DATA, &m_before);
        rlimit bound = m_before;
        bound.rlim_cur = megabytes << 20;
        if (!SANITIZED) {
            EXPECT_EQ(setrlimit(RLIMIT_DATA, &bound), 0);
        }
    }
    ~MemoryBound() { setrlimit(RLIMIT_DATA, &m_before); }
    MemoryBound(const MemoryBound&) = delete;
    MemoryBound& operator=(const MemoryBound&) = delete;

private:
    rlimit m_before;
};

class HostileFile : public StorageTest
{
protected:
    /// Group 0 with 4 items and 3 recipes, on disk and closed.
    void makeGood()
    {
        openEmpty();
        recipeTableInfo_t group = recipeGroup(4, 3);
        group.notify = 1;
        group.setNotifyAddress(text("dev,1,2,LW,four,5"));
        ASSERT_EQ(db->createTable_Group(0, group), 0);
        db->CloseRecipeFile();
    }

    void damage(const std::string& sql) { OutsideSqlite(path).exec(sql); }

    /// Every operation once; what they say is not asked, only that they come back.
    void doEverything()
    {
        recipeTableInfo_t info;
        QList<recipeGroupsInfo_t> summaries;
        QVector<recipeItemInfo_t> items;
        recipeItemInfo_t item;
        QList<QString> values;
        QList<QList<QString> > rows;
        QVector<QString> title;
        QVector<QVector<QString> > several(4);
        int number = 0;
        db->findMaxID_Config(number);
        db->findAllRecipeConfigs(summaries);
        db->getTable_Addr_Row(0);
        db->getTable_Data_Column(0);
        db->findTable_Addr_Partial(0, 0, 50, items);
        db->findTable_Addr_Index(0, 1, item);
        db->findTable_Data_Index(0, 1, values);
        db->findTable_Data_Start_Length(0, 0, 100, rows);
        db->findTable_Data_Partial(0, 0, 100, 0, 50, rows);
        db->findTable_Language(0, DB_LANGUAGE_ROW, 1, title);
        db->findTable_Language_All(0, DB_LANGUAGE_COLUMN, several);
        db->findTable_Language_AllRow(0, items);
        db->findTable_Language_Partial(0, DB_LANGUAGE_ROW, 0, 50, several);
        db->findRecipeConfig(0, info);
        db->loadTable_Group_Partial(0, 0, 100, 0, 50, info);
        db->updateTable_Data_Column_One(0, 0, 0, text("1"));
        db->updateTable_Language_Index(0, DB_LANGUAGE_ROW, 0, eight(text("x")));
        if (db->loadTable_Group(0, info) == 0)
            db->createTable_Group(0, info);
        db->createTable_Group(1, recipeGroup(2, 2));
        db->deleteTable_Group(0);
    }
};

// --- files that are none -----------------------------------------------------------------------------------------

TEST_F(HostileFile, ThatIsNoDatabaseOpensAndThenAnswersFailures)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(10000, 'x'));
    file.close();
    SqliteErrors errors;
    EXPECT_EQ(db->OpenRecipeFile(path), 0);
    recipeTableInfo_t info;
    EXPECT_EQ(db->findRecipeConfig(0, info), 1);
    EXPECT_EQ(db->loadTable_Group(0, info), 1);
    EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 1, 0, 1, info), 1);
    EXPECT_EQ(db->getTable_Addr_Row(0), -1);
    EXPECT_EQ(db->createTable_RecipeConfig(), 2);
    EXPECT_NE(db->createTable_Group(0, recipeGroup(1, 1)), 0);
    EXPECT_THAT(errors.take(), testing::HasSubstr("err=[file is not a database]"));
    db->CloseRecipeFile();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray(10000, 'x')); // not touched
}

TEST_F(HostileFile, ThatIsEmptyOpensAndHasNoTables)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(db->OpenRecipeFile(path), 0);
    {
        SqliteErrors errors;
        recipeTableInfo_t info;
        EXPECT_EQ(db->findRecipeConfig(0, info), 1);
        EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 1, 0, 1, info), 1);
        EXPECT_EQ(db->createTable_Group(0, recipeGroup(1, 1)), 1 | 2);
    }
    EXPECT_EQ(outside("SELECT count(*) FROM sqlite_master;"), "0");
    EXPECT_EQ(db->createTable_RecipeConfig(), 0); // it can be made a recipe file
    EXPECT_EQ(db->createTable_Group(0, recipeGroup(1, 1)), 0);
}

TEST_F(HostileFile, ThatIsADirectoryDoesNotOpen)
{
    ASSERT_TRUE(QDir().mkpath(path));
    const WantedLeak handle;
    EXPECT_EQ(db->OpenRecipeFile(path), 1);
    EXPECT_FALSE(db->isOpen());
    doEverything();
}

TEST_F(HostileFile, ThatIsCutShortAnswersFailuresOrRows)
{
    makeGood();
    QFile file(path);
    const qint64 whole = file.size();
    const QString kept = path + text(".kept");
    ASSERT_TRUE(file.copy(kept));
    SqliteErrors errors(SqliteErrors::Allowed);
    for (qint64 size = 0; size < whole; size += 1000) {
        QFile::remove(path);
        ASSERT_TRUE(QFile::copy(kept, path));
        ASSERT_TRUE(QFile::resize(path, size));
        ASSERT_EQ(db->OpenRecipeFile(path), 0) << size;
        doEverything();
        db->CloseRecipeFile();
    }
}

// --- counts ------------------------------------------------------------------------------------------------------

struct Counts
{
    const char* row;
    const char* column;
    int items;   // that come out of the configuration
    int recipes; // likewise
};

void PrintTo(const Counts& counts, std::ostream* out)
{
    *out << counts.row << " rows, " << counts.column << " columns";
}

class HostileCounts : public HostileFile, public testing::WithParamInterface<Counts>
{
};

TEST_P(HostileCounts, AreNotTrusted)
{
    makeGood();
    damage(std::string("UPDATE recipe_config SET row = ") + GetParam().row + ", column = " + GetParam().column + ";");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    const MemoryBound bound(200);
    recipeTableInfo_t info;
    EXPECT_EQ(db->findRecipeConfig(0, info), 0);
    EXPECT_EQ(info.items.size(), GetParam().items);
    EXPECT_EQ(info.columnName.size(), GetParam().recipes);
    for (const QVector<QString>& title : info.columnName)
        EXPECT_EQ(title.size(), 8);

    EXPECT_EQ(db->loadTable_Group(0, info), 0);
    EXPECT_EQ(info.items.size(), 4); // counted in the address table
    EXPECT_EQ(info.columnName.size(), GetParam().recipes);
    EXPECT_EQ(info.items.at(3).values.size(), 3); // counted in the data table

    EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 100, 0, 50, info), 0);
    EXPECT_EQ(info.items.size(), 50);
    EXPECT_EQ(info.columnName.size(), 100);

    QList<recipeGroupsInfo_t> summaries; // tells what the file says
    EXPECT_EQ(db->findAllRecipeConfigs(summaries), 0);
    EXPECT_EQ(summaries.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Values, HostileCounts,
                         testing::Values(Counts{"4", "3", 4, 3}, Counts{"-1", "-1", 0, 0}, Counts{"0", "0", 0, 0},
                                         Counts{"-2147483648", "-2147483648", 0, 0}, Counts{"4096", "4096", 4096, 4096},
                                         Counts{"4097", "4097", 4, 3}, Counts{"2147483647", "2147483647", 4, 3},
                                         Counts{"4294967296", "4294967297", 0, 1},
                                         Counts{"9223372036854775807", "-9223372036854775808", 0, 0},
                                         Counts{"'many'", "'few'", 0, 0}, Counts{"1e300", "-1e300", 0, 0},
                                         Counts{"x'ff'", "''", 0, 0}));

TEST_F(HostileFile, WithAnAbsurdCountAndNoTableHasNoItems)
{
    makeGood();
    damage("UPDATE recipe_config SET row = 2000000000, column = 2000000000; DROP TABLE addr_0; DROP TABLE data_0;");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    const MemoryBound bound(200);
    SqliteErrors errors;
    recipeTableInfo_t info;
    EXPECT_EQ(db->findRecipeConfig(0, info), 0);
    EXPECT_EQ(info.items.size(), 0);
    EXPECT_EQ(info.columnName.size(), 0);
}

TEST_F(HostileFile, WithManyItemsAndManyRecipesButNoCellsIsNotLoaded)
{
    makeGood();
    // A million million cells, in a file of a few megabytes.
    damage(
        "BEGIN; DROP TABLE data_0; CREATE TABLE data_0 (column INTEGER NOT NULL);"
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 99999) INSERT INTO data_0 SELECT i "
        "FROM n; WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 99999) INSERT INTO addr_0 "
        "SELECT i, '', 0, 0, 0, 0, 0 FROM n; COMMIT;");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    const MemoryBound bound(400);
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group(0, info), 1);
    EXPECT_TRUE(info.items.isEmpty());
    EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 100, 0, 50, info), 0);
}

// --- tables and fields -------------------------------------------------------------------------------------------

struct Fault
{
    const char* sql;
    int config;  // status of findRecipeConfig
    int load;    // of loadTable_Group
    int partial; // of loadTable_Group_Partial
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.sql;
}

class HostileTables : public HostileFile, public testing::WithParamInterface<Fault>
{
};

TEST_P(HostileTables, GiveTheirStatusAndAClearedRecordWhereTheyFail)
{
    makeGood();
    damage(GetParam().sql);
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    const MemoryBound bound(400);
    SqliteErrors errors(SqliteErrors::Allowed);
    recipeTableInfo_t info;
    EXPECT_EQ(db->findRecipeConfig(0, info), GetParam().config);
    EXPECT_EQ(db->loadTable_Group(0, info), GetParam().load);
    EXPECT_EQ(info.groupIndex == -1, GetParam().load != 0);
    if (GetParam().load != 0) {
        EXPECT_TRUE(info.items.isEmpty());
        EXPECT_TRUE(info.columnName.isEmpty());
    }
    EXPECT_EQ(db->loadTable_Group_Partial(0, 0, 100, 0, 50, info), GetParam().partial);
    EXPECT_EQ(info.items.size(), GetParam().partial == 0 ? 50 : 0);
    doEverything();
}

INSTANTIATE_TEST_SUITE_P(
    Faults, HostileTables,
    testing::Values(
        Fault{"DROP TABLE recipe_config;", 1, 1, 1}, Fault{"DROP TABLE addr_0;", 0, 1, 1},
        Fault{"DROP TABLE data_0;", 0, 1, 1}, Fault{"DROP TABLE lang_0;", 0, 0, 0},
        Fault{"DELETE FROM recipe_config;", 0, 0, 0}, Fault{"DELETE FROM addr_0;", 0, 0, 0},
        Fault{"DELETE FROM data_0;", 0, 0, 0}, Fault{"DELETE FROM lang_0;", 0, 0, 0},
        Fault{"DROP TABLE recipe_config; CREATE TABLE recipe_config (group_index, row, column, notify, notify_addr); "
              "INSERT INTO recipe_config VALUES(0, NULL, NULL, NULL, NULL);",
              0, 0, 0},
        Fault{
            "DROP TABLE recipe_config; CREATE TABLE recipe_config (group_index); INSERT INTO recipe_config VALUES(0);",
            0, 0, 0},
        Fault{"DROP TABLE recipe_config; CREATE TABLE recipe_config (row);", 1, 1, 1},
        Fault{"DROP TABLE addr_0; CREATE TABLE addr_0 (row_index); INSERT INTO addr_0 VALUES(0), (NULL), ('x');", 0, 0,
              0},
        Fault{"DROP TABLE addr_0; CREATE TABLE addr_0 (row_index, a, b, c, d, e, f); INSERT INTO addr_0 VALUES(NULL, "
              "NULL, NULL, NULL, NULL, NULL, NULL);",
              0, 0, 0},
        Fault{"UPDATE addr_0 SET address = x'ff00fe', datatype = 'text', totalDigits = 1e300, decimalDigits = "
              "-9223372036854775808, min = 'low', max = x'00';",
              0, 0, 0},
        Fault{"UPDATE addr_0 SET decimalDigits = 2147483647; UPDATE data_0 SET D0 = 1e308;", 0, 0, 0},
        Fault{"DROP TABLE data_0; CREATE TABLE data_0 (column); INSERT INTO data_0 VALUES(0), (1), (2);", 0, 0, 0},
        Fault{"DROP TABLE data_0; CREATE TABLE data_0 (column, D0); INSERT INTO data_0 VALUES(0, NULL), (1, x'ff'), "
              "(2, 'text');",
              0, 0, 0},
        Fault{"DROP TABLE data_0; CREATE TABLE data_0 (D0);", 0, 0, 1},
        Fault{"UPDATE data_0 SET D0 = NULL, D1 = x'c3', D2 = 'nan', D3 = 1e999;", 0, 0, 0},
        Fault{"DROP TABLE lang_0; CREATE TABLE lang_0 (type, strIndex);", 0, 0, 0},
        Fault{"UPDATE lang_0 SET L0 = NULL, L1 = x'ff', L2 = char(0), L7 = 7;", 0, 0, 0},
        Fault{"ALTER TABLE addr_0 RENAME TO a; CREATE VIEW addr_0 AS SELECT * FROM a;", 0, 0, 0},
        Fault{"DROP TABLE data_0; CREATE VIEW data_0 AS SELECT * FROM missing;", 0, 1, 1},
        Fault{"CREATE TRIGGER t BEFORE UPDATE ON data_0 BEGIN SELECT raise(ABORT, 'no'); END;", 0, 0, 0}));

TEST_F(HostileFile, WithFewerColumnsThanItemsGivesTheOthersEmptyCells)
{
    makeGood();
    damage("DROP TABLE data_0; CREATE TABLE data_0 (column INTEGER, D0, D1); INSERT INTO data_0 VALUES(0, 5, 6), (1, "
           "7, 8);");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    recipeTableInfo_t info;
    ASSERT_EQ(db->loadTable_Group(0, info), 0);
    EXPECT_THAT(plain(info.items.at(1).values), testing::ElementsAre("6", "8"));
    EXPECT_THAT(plain(info.items.at(2).values), testing::ElementsAre("", ""));
    ASSERT_EQ(db->loadTable_Group_Partial(0, 0, 2, 0, 4, info), 0);
    EXPECT_THAT(plain(info.items.at(1).values), testing::ElementsAre("6", "8"));
    EXPECT_THAT(plain(info.items.at(3).values), testing::ElementsAre("", ""));
}

TEST_F(HostileFile, WithNullsReadsThemAsEmptyTextsAndZeros)
{
    makeGood();
    damage("UPDATE data_0 SET D0 = NULL; UPDATE lang_0 SET L0 = NULL; DROP TABLE addr_0; CREATE TABLE addr_0 "
           "(row_index, a, b, c, d, e, f); INSERT INTO addr_0(row_index) VALUES(0);");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    recipeTableInfo_t info;
    ASSERT_EQ(db->loadTable_Group(0, info), 0);
    ASSERT_EQ(info.items.size(), 1);
    EXPECT_EQ(info.items.at(0).addressText(), recipeItemInfo_t().addressText());
    EXPECT_EQ(info.items.at(0).dataType, 0);
    EXPECT_EQ(info.items.at(0).max, 0.0);
    EXPECT_THAT(plain(info.items.at(0).values), testing::ElementsAre("", "", ""));
    EXPECT_EQ(info.items.at(0).rowName.at(0), QString());
    EXPECT_EQ(info.items.at(0).rowName.at(1), itemTitle(0, 1));
}

TEST_F(HostileFile, WithTextsThatAreNoUtf8IsReadAllTheSame)
{
    makeGood();
    damage("UPDATE lang_0 SET L0 = CAST(x'41ff42' AS TEXT);");
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    QVector<QString> title;
    EXPECT_EQ(db->findTable_Language(0, DB_LANGUAGE_ROW, 0, title), 0);
    EXPECT_EQ(title.at(0), QString::fromUtf8("A\xff"
                                             "B"));
}

TEST_F(HostileFile, WhoseGroupsHaveExtremeNumbersIsReadAndWritten)
{
    openEmpty();
    for (int group : {2147483647, -1, -2147483647 - 1}) {
        SqliteErrors errors(SqliteErrors::Allowed); // a negative number makes no good table name
        const int result = db->createTable_Group(group, recipeGroup(1, 1));
        EXPECT_EQ(result == 0, group >= 0) << group;
        recipeTableInfo_t info;
        EXPECT_EQ(db->loadTable_Group(group, info) == 0, group >= 0) << group;
    }
    EXPECT_EQ(outside("SELECT group_index FROM recipe_config;"), "2147483647");
}

// --- a dying card ------------------------------------------------------------------------------------------------

class FlippedBits : public HostileFile, public testing::WithParamInterface<unsigned>
{
};

TEST_P(FlippedBits, EndNothingButTheFile)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(12, 30)), 0);
    db->CloseRecipeFile();
    QFile good(path);
    ASSERT_TRUE(good.open(QIODevice::ReadOnly));
    const QByteArray bytes = good.readAll();
    good.close();

    std::mt19937 random(GetParam());
    const MemoryBound bound(400);
    SqliteErrors errors(SqliteErrors::Allowed);
    for (int round = 0; round < 40; ++round) {
        QByteArray flipped = bytes;
        // Few or many; the schema and the page headers more often than the rest.
        for (unsigned long i = 1 + random() % (round % 2 ? 4 : 200); i > 0; --i) {
            const int page = static_cast<int>(random() % static_cast<unsigned>(bytes.size() / 4096)) * 4096;
            const int at =
                random() % 2 ? page + static_cast<int>(random() % 120) : page + static_cast<int>(random() % 4096);
            flipped[at] = static_cast<char>(flipped.at(at) ^ (1 << random() % 8));
        }
        QFile::remove(path);
        QFile::remove(path + text("-journal"));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(flipped), flipped.size());
        file.close();
        ASSERT_EQ(db->OpenRecipeFile(path), 0);
        doEverything();
        db->CloseRecipeFile();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FlippedBits, testing::Range(1u, 7u));

} // namespace
