// Titles of a whole group or range are read in one pass. Whatever a language table holds, the result is the same as
// that of one query per title.
#include "storage_fixture.h"

#include <random>

namespace {

class TitleRange : public StorageTest
{
protected:
    void SetUp() override
    {
        makeEmptyRecipeFile(path);
        OutsideSqlite file(path);
        file.exec("CREATE TABLE addr_0 (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,datatype INTEGER NOT "
                  "NULL,totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,min REAL NOT NULL,max REAL NOT "
                  "NULL); CREATE TABLE data_0 (column INTEGER NOT NULL);");
        file.exec("INSERT INTO recipe_config VALUES(0, " + std::to_string(ITEMS) + ", " + std::to_string(RECIPES)
                  + ", 0, '');");
        for (int i = 0; i < ITEMS; ++i)
            file.exec("INSERT INTO addr_0 VALUES(" + std::to_string(i) + ", 'a,1,2,LW,x,3', 0, 5, 0, 0, 1);");
        ASSERT_EQ(db->OpenRecipeFile(path), 0);
    }

    /// Titles [first, first + count) by one query each.
    QVector<QVector<QString> > oneByOne(DB_LANGUAGE_INDEX type, int first, int count)
    {
        QVector<QVector<QString> > result(count);
        for (int k = 0; k < count; ++k)
            db->findTable_Language(0, type, first + k, result[k]);
        return result;
    }

    static QVector<QVector<QString> > rowNames(const recipeTableInfo_t& info)
    {
        QVector<QVector<QString> > result;
        for (const recipeItemInfo_t& item : info.items)
            result.append(item.rowName);
        return result;
    }

    void expectSameTitles(const std::string& story)
    {
        recipeTableInfo_t whole;
        ASSERT_EQ(db->loadTable_Group(0, whole), 0) << story;
        ASSERT_EQ(whole.groupName, oneByOne(DB_LANGUAGE_GROUP, 0, 1).at(0)) << story;
        ASSERT_EQ(rowNames(whole), oneByOne(DB_LANGUAGE_ROW, 0, ITEMS)) << story;
        ASSERT_EQ(whole.columnName, oneByOne(DB_LANGUAGE_COLUMN, 0, RECIPES)) << story;

        recipeTableInfo_t part;
        ASSERT_EQ(db->loadTable_Group_Partial(0, 2, 9, 3, 6, part), 0) << story;
        ASSERT_EQ(part.groupName, whole.groupName) << story;
        ASSERT_EQ(rowNames(part), oneByOne(DB_LANGUAGE_ROW, 3, 6)) << story;
        ASSERT_EQ(part.columnName, oneByOne(DB_LANGUAGE_COLUMN, 2, 9)) << story;

        ASSERT_EQ(db->loadTable_Group_Partial(0, -3, 5, -2, 4, part), 0) << story;
        ASSERT_EQ(rowNames(part), oneByOne(DB_LANGUAGE_ROW, -2, 4)) << story;
        ASSERT_EQ(part.columnName, oneByOne(DB_LANGUAGE_COLUMN, -3, 5)) << story;
    }

    enum
    {
        ITEMS = 7,
        RECIPES = 5
    };
};

const char COLUMNS[] = ", 'L0' TEXT, 'L1' TEXT, 'L2' TEXT, 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT";

/// Makes language tables that no tool would write.
class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    template <std::size_t N> std::string one(const char* const (&choices)[N])
    {
        return choices[below(static_cast<int>(N))];
    }

    /// A statement that makes the table, and what else it needs.
    std::string table()
    {
        static const char* const TYPES[] = {
            "INTEGER NOT NULL",    "INTEGER",           "TEXT", "REAL", "NUMERIC", "BLOB", "", "VARCHAR", "INT",
            "TEXT COLLATE NOCASE", "TEXT COLLATE RTRIM"};
        const std::string head = "(type " + one(TYPES) + ", strIndex " + one(TYPES) + COLUMNS;
        switch (below(10)) {
        case 0:
            return "CREATE TABLE lang_0 " + head + "); CREATE INDEX i ON lang_0(strIndex DESC, L0 DESC);";
        case 1:
            return "CREATE TABLE lang_0 " + head + "); CREATE INDEX i ON lang_0(type, L1);";
        case 2:
            return "CREATE TABLE lang_0 " + head + ", PRIMARY KEY(L0, strIndex, L1));";
        case 3:
            return "CREATE TABLE lang_0 " + head
                   + ", extra INTEGER DEFAULT 1, PRIMARY KEY(strIndex DESC, L0 DESC)) "
                     "WITHOUT ROWID;";
        case 4:
            return "CREATE TABLE lang_0 " + head + ", PRIMARY KEY(L0, L1)) WITHOUT ROWID;";
        case 5:
            return "CREATE TABLE base " + head + "); CREATE VIEW lang_0 AS SELECT * FROM base ORDER BY L0 DESC;";
        case 6:
            return "CREATE TABLE LANG_0 " + head + ");";
        default:
            return "CREATE TABLE lang_0 " + head + ");";
        }
    }

    std::string row(bool view)
    {
        static const char* const KINDS[] = {"1", "2", "2", "1", "0", "'1'", "2.0", "NULL", "'2 '", "x'31'", "'0'", "0"};
        std::string sql = "INSERT OR REPLACE INTO " + std::string(view ? "base" : "lang_0")
                          + "(type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7) VALUES(" + one(KINDS) + ", " + index();
        for (int language = 0; language < 8; ++language)
            sql += ", " + text();
        return sql + ");";
    }

private:
    std::string index()
    {
        static const char* const ODD[] = {"'007'",
                                          "' 7'",
                                          "'7.0'",
                                          "'7 '",
                                          "7.5",
                                          "5.0",
                                          "'-0'",
                                          "'+3'",
                                          "'0x2'",
                                          "'3e0'",
                                          "NULL",
                                          "''",
                                          "x'33'",
                                          "'two'",
                                          "'3abc'",
                                          "-1",
                                          "-2",
                                          "'-1'",
                                          "4294967298",
                                          "'4294967299'",
                                          "-4294967293",
                                          "9223372036854775807",
                                          "-9223372036854775808",
                                          "1e300",
                                          "-1e300",
                                          "9.3e18",
                                          "'99999999999999999999'",
                                          "2147483647",
                                          "2147483648",
                                          "0.9999999999999999",
                                          "'1' || char(0)",
                                          "'2' || char(10)"};
        if (below(2))
            return std::to_string(below(12) - 2);
        if (below(3) == 0)
            return "'" + std::to_string(below(12) - 2) + "'";
        return one(ODD);
    }

    std::string text()
    {
        if (below(12) == 0)
            return "NULL";
        if (below(12) == 0)
            return std::to_string(below(100)) + ".5";
        return "'t" + std::to_string(m_random() % 1000000) + "'";
    }

    std::mt19937 m_random;
};

class RandomTitles : public TitleRange, public testing::WithParamInterface<unsigned>
{
};

TEST_P(RandomTitles, AreTheSameInOnePassAndOneByOne)
{
    Generator generate(GetParam());
    OutsideSqlite file(path);
    file.exec("PRAGMA synchronous = OFF;");
    for (int round = 0; round < 60; ++round) {
        const std::string table = generate.table();
        std::string story = table;
        file.exec("BEGIN; DROP TABLE IF EXISTS base; " + table);
        const bool view = table.find("VIEW") != std::string::npos;
        for (int i = generate.below(40); i > 0; --i) {
            const std::string row = generate.row(view);
            // A row that the table's own rules refuse is left out.
            sqlite3_exec(file.handle(), row.c_str(), nullptr, nullptr, nullptr);
            story += "\n" + row;
        }
        for (int i = generate.below(4); i > 0; --i)
            sqlite3_exec(file.handle(), "DELETE FROM lang_0 WHERE rowid = abs(random() % 10);", nullptr, nullptr,
                         nullptr);
        file.exec("COMMIT;");
        expectSameTitles(story);
        if (HasFatalFailure())
            return;
        file.exec(view ? "DROP VIEW lang_0;" : "DROP TABLE lang_0;");
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTitles, testing::Range(1u, 13u));

TEST_F(TitleRange, IsTheSameAfterStatisticsInviteOtherPlans)
{
    Generator generate(99);
    OutsideSqlite file(path);
    file.exec(std::string("CREATE TABLE lang_0 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL") + COLUMNS
              + ", PRIMARY KEY(L0, type, strIndex, L1)) WITHOUT ROWID;");
    file.exec("BEGIN;");
    for (int i = 0; i < 3000; ++i)
        sqlite3_exec(file.handle(),
                     ("INSERT INTO lang_0 VALUES(" + std::to_string(1 + i % 2) + ", "
                      + std::to_string(generate.below(9)) + ", 'same', 't" + std::to_string(generate.below(1000))
                      + "', '', '', '', '', '', '');")
                         .c_str(),
                     nullptr, nullptr, nullptr);
    file.exec("COMMIT; ANALYZE;");
    ASSERT_EQ(db->OpenRecipeFile(path), 0); // reads the statistics
    expectSameTitles("statistics");
}

TEST_F(TitleRange, IsTheSameForAVirtualTable)
{
    OutsideSqlite file(path);
    if (file.query("SELECT sqlite_compileoption_used('ENABLE_RTREE');") != "1")
        GTEST_SKIP() << "no virtual tables here";
    file.exec("CREATE VIRTUAL TABLE lang_0 USING rtree(id, type, strIndex, +L0, +L1, +L2, +L3, +L4, +L5, +L6, +L7);");
    file.exec("BEGIN;");
    for (int i = 0; i < 300; ++i)
        file.exec("INSERT INTO lang_0 VALUES(" + std::to_string(i * 7919 % 1000) + ", 1, " + std::to_string(i % 9 + 1)
                  + ", 't" + std::to_string(i) + "', '', '', '', '', '', '', '');");
    file.exec("COMMIT;");
    expectSameTitles("a virtual table");
    db->CloseRecipeFile(); // with the statements that SQLite itself keeps for such a table
}

TEST_F(TitleRange, IsTheSameWhereTheTableHasLostAColumn)
{
    OutsideSqlite(path).exec("CREATE TABLE lang_0 (type INTEGER, strIndex INTEGER, L0, L1, L2); "
                             "INSERT INTO lang_0 VALUES(1, 0, 'a', 'b', 'c');");
    SqliteErrors errors;
    expectSameTitles("three languages");
}

TEST_F(TitleRange, IsTheSameWithoutATable)
{
    SqliteErrors errors;
    expectSameTitles("no table");
}

TEST_F(TitleRange, WalksAPlainTableOnceHoweverManyTitles)
{
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(50, 40)), 0);
    RecordingInter& inter = *new RecordingInter;
    ASSERT_EQ(inter.connect(path.toUtf8().constData()), 1);
    RecipeDBProbe::setConnection(*db, &inter);
    recipeTableInfo_t info;
    ASSERT_EQ(db->loadTable_Group(0, info), 0);
    int walks = 0;
    for (const std::string& call : inter.calls)
        walks += call.find("FROM lang_0 ") != std::string::npos;
    EXPECT_EQ(walks, 1); // the group's, the items' and the recipes' together
    EXPECT_EQ(info.items.at(49).rowName.at(7), itemTitle(49, 7));
    EXPECT_EQ(info.columnName.at(39).at(0), recipeTitle(39, 0));
}

} // namespace
