// The watch on printed SQLite errors, which all tests rely on.
#include "sqlite_errors.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <unistd.h>

namespace {

const char ERROR[] = "CSqliteInter::execSQL() ERROR\n sql=[x]\n err=[y]\n";

TEST(SqliteErrors, CollectsWhatIsPrintedByteForByte)
{
    SqliteErrors errors;
    std::printf("%s", ERROR);
    EXPECT_EQ(errors.take(), ERROR);
    EXPECT_EQ(errors.take(), "");
    EXPECT_EQ(errors.count(), 1);
}

TEST(SqliteErrors, FailsWhereAnExpectedErrorDoesNotCome)
{
    EXPECT_NONFATAL_FAILURE({ SqliteErrors errors; }, "no SQLite error was printed");
}

TEST(SqliteErrors, MayBeToldThatNoneNeedCome)
{
    SqliteErrors errors(SqliteErrors::Allowed);
    EXPECT_EQ(errors.count(), 0);
}

/// Run by the next test in a process of its own.
TEST(SqliteErrors, DISABLED_PrintsOneThatNobodyExpects)
{
    std::printf("%s", ERROR);
}

TEST(SqliteErrors, FailTheTestThatDidNotExpectThem)
{
    char self[4096] = {0};
    ASSERT_GT(readlink("/proc/self/exe", self, sizeof(self) - 1), 0);
    const std::string command = std::string(self)
                                + " --gtest_also_run_disabled_tests --gtest_filter="
                                  "SqliteErrors.DISABLED_PrintsOneThatNobodyExpects";
    std::FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string output;
    char buffer[256];
    while (std::fgets(buffer, sizeof(buffer), pipe))
        output += buffer;
    EXPECT_NE(pclose(pipe), 0);
    EXPECT_NE(output.find("unexpected SQLite error: "), std::string::npos) << output;
    EXPECT_NE(output.find(ERROR), std::string::npos) << output;
}

} // namespace
