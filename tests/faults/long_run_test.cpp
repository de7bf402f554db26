// What tests that can be asked for more make of the question.
#include "long_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QByteArray>

#include <stdexcept>

namespace {

const char VARIABLE[] = "RECIPE_LONG_RUN_TEST";

int askedFor(const char* wish)
{
    qputenv(VARIABLE, wish);
    return wishedFor(VARIABLE, 8, 1);
}

TEST(ALongRun, TakesTheUsualAmountWhereNothingIsAskedFor)
{
    qunsetenv(VARIABLE); // another test may have run before
    EXPECT_EQ(wishedFor(VARIABLE, 8, 1), 8);
}

TEST(ALongRun, TakesWhatIsAskedFor)
{
    EXPECT_EQ(askedFor("1"), 1);
    EXPECT_EQ(askedFor("1000000"), 1000000);
}

/// With "1e6" one cut was tried, with "abc" none.
TEST(ALongRun, RefusesWhatIsNoAmount)
{
    for (const char* const wish : {"", "abc", "1e6", "10 000", "0", "-3", "99999999999"}) {
        try {
            askedFor(wish);
            ADD_FAILURE() << wish;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(error.what(),
                      std::string("RECIPE_LONG_RUN_TEST is \"") + wish + "\", expected a whole number of 1 or more");
        }
    }
}

TEST(ALongRun, TellsHowFarItIsNowAndThen)
{
    testing::internal::CaptureStderr();
    LongRun seldom("cuts", 300, std::chrono::hours(1));
    LongRun often("cuts", 300, std::chrono::seconds(0));
    seldom.done(20);
    often.done(40);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::MatchesRegex("cuts: 40 of 300 after [0-9]+ s\n"));
}

/// Each question to the operator makes the offscreen platform say so: ten thousand lines in a run of thousands.
TEST(ALongRun, IsNotDrownedInWhatTheOffscreenPlatformSays)
{
    testing::internal::CaptureStderr();
    qWarning("This plugin does not support propagateSizeHints()");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
