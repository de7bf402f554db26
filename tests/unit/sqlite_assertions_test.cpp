// The four assertions of the SQLite access layer: their whole text, whatever the build type. Built twice, with and
// without NDEBUG.
#include "SqliteInter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace {

/// What the C library prints for a failed assertion of this process.
std::string assertion(const std::string& place, const std::string& condition)
{
    return std::string(program_invocation_short_name) + ": ../../../extend_model/recipe_extend/SqliteInter.cpp:" + place
           + ": Assertion `" + condition + "' failed.\n";
}

const char EXEC_SQL[] = "118: virtual int CSqliteInter::execSQL(const char*)";
const char QUERY_SQL[] = "138: virtual int CSqliteInter::querySQL(const char*)";
const char BOTH[] = "__null != m_pSqlite && __null != sql";

/// The text and nothing else, but for the line that an emulator of another processor adds.
testing::Matcher<const std::string&> says(const std::string& text)
{
    return testing::AnyOf(text, text + "qemu: uncaught target signal 6 (Aborted) - core dumped\n");
}

#define EXPECT_ASSERTION(statement, text) EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT), says(text))

TEST(SqliteAssertionDeathTest, StopsAStatementWithoutAConnection)
{
    CSqliteInter inter;
    EXPECT_ASSERTION(inter.execSQL("SELECT 1;"), assertion(EXEC_SQL, BOTH));
}

TEST(SqliteAssertionDeathTest, StopsAStatementWithoutAText)
{
    CSqliteInter inter;
    ASSERT_EQ(inter.connect(":memory:"), 1);
    EXPECT_ASSERTION(inter.execSQL(nullptr), assertion(EXEC_SQL, BOTH));
}

TEST(SqliteAssertionDeathTest, StopsAQueryWithoutAConnection)
{
    CSqliteInter inter;
    EXPECT_ASSERTION(inter.querySQL("SELECT 1;"), assertion(QUERY_SQL, BOTH));
}

TEST(SqliteAssertionDeathTest, StopsAQueryWithoutAText)
{
    CSqliteInter inter;
    ASSERT_EQ(inter.connect(":memory:"), 1);
    EXPECT_ASSERTION(inter.querySQL(nullptr), assertion(QUERY_SQL, BOTH));
}

TEST(SqliteAssertionDeathTest, StopsABeginWithoutAConnection)
{
    CSqliteInter inter;
    EXPECT_ASSERTION(inter.execBegin(), assertion("159: virtual int CSqliteInter::execBegin()", "__null != m_pSqlite"));
}

TEST(SqliteAssertionDeathTest, StopsACommitWithoutAConnection)
{
    CSqliteInter inter;
    EXPECT_ASSERTION(inter.execCommit(),
                     assertion("179: virtual int CSqliteInter::execCommit()", "__null != m_pSqlite"));
}

TEST(SqliteAssertion, IsBuiltAsTheNameOfThisProgramSays)
{
    const std::string name = program_invocation_short_name;
#ifdef NDEBUG
    EXPECT_EQ(name, "sqlite_assertions_ndebug_tests");
#else
    EXPECT_EQ(name, "sqlite_assertions_debug_tests");
#endif
}

} // namespace
