// What one statement may take, in numbers. statement_allowance_test holds the same against files.
#include "statement_allowance.h"

#include <gtest/gtest.h>

namespace {

const std::int64_t MEGABYTE = 1 << 20;

/// A file whose size the test sets, and how often it was asked for.
class AllowanceCounts : public ::testing::Test
{
protected:
    /// How many calls of takeSteps a statement gets; at most `most` are tried.
    int checks(int most = 2000000)
    {
        int count = 0;
        while (count < most && allowance.takeSteps())
            ++count;
        return count;
    }
    /// How often a statement may take `bytes` before it has delivered too much.
    int deliveries(std::int64_t bytes)
    {
        int count = 0;
        while (allowance.takeBytes(bytes))
            ++count;
        return count;
    }

    std::int64_t size = 0;
    int asked = 0;
    StatementAllowance allowance{[this] {
        ++asked;
        return size;
    }};
};

TEST_F(AllowanceCounts, DoNotAskForTheSizeOfTheFileWhereLittleIsTaken)
{
    allowance.startReading();
    for (int call = 0; call < 100; ++call) {
        EXPECT_TRUE(allowance.takeSteps());
        EXPECT_TRUE(allowance.takeLook());
        EXPECT_TRUE(allowance.takeBytes(1000));
    }
    EXPECT_EQ(asked, 0);
}

TEST_F(AllowanceCounts, AskForTheSizeOnceForAStatementAndAnewForTheNext)
{
    allowance.startReading();
    checks();
    allowance.takeBytes(100 * MEGABYTE);
    EXPECT_EQ(asked, 1);

    allowance.startReading();
    checks();
    EXPECT_EQ(asked, 2);
}

TEST_F(AllowanceCounts, OfAWriterAreThoseOfTheFileBeforeIt)
{
    allowance.startWriting();
    const int small = 2000; // an empty file's two million steps
    size = 100 * MEGABYTE;
    EXPECT_EQ(checks(), small);
    EXPECT_EQ(asked, 1);
}

TEST_F(AllowanceCounts, GrowWithTheFileUpToAMostOfSteps)
{
    size = MEGABYTE;
    allowance.startReading();
    EXPECT_EQ(checks(), (2000000 + 128 * MEGABYTE) / 1000);

    StatementAllowance ofAHugeFile([] { return 1000000 * MEGABYTE; });
    ofAHugeFile.startReading();
    int count = 0;
    while (ofAHugeFile.takeSteps())
        ++count;
    EXPECT_EQ(count, 1000000);
}

TEST_F(AllowanceCounts, AreAQuarterOfTheStepsAfterAStatementThatTookTooMuch)
{
    allowance.startReading();
    EXPECT_EQ(checks(), 2000);
    allowance.startReading();
    EXPECT_EQ(checks(), 500);
    allowance.startReading();
    EXPECT_EQ(checks(), 500); // and no less
}

TEST_F(AllowanceCounts, EndAStatementThatChangesMoreRowsThanTheFileCanHold)
{
    size = 4000;
    allowance.startWriting();
    for (int row = 0; row < 2000; ++row)
        allowance.takeChange();
    EXPECT_TRUE(allowance.takeSteps());
    EXPECT_DOUBLE_EQ(allowance.spentShare(), 1);
    allowance.takeChange();
    EXPECT_FALSE(allowance.takeSteps());
    EXPECT_GT(allowance.spentShare(), 1);
}

TEST_F(AllowanceCounts, EndAStatementThatLooksAtTheSchemaMoreOftenThanTheWidestTableNeeds)
{
    allowance.startReading();
    for (int look = 0; look < 8000; ++look)
        ASSERT_TRUE(allowance.takeLook()) << look;
    EXPECT_FALSE(allowance.takeLook());
}

TEST_F(AllowanceCounts, OfBytesCountTheFieldToo)
{
    allowance.startReading();
    EXPECT_EQ(deliveries(0), 4 * MEGABYTE / 8);
    EXPECT_FALSE(allowance.takeBytes(0));

    size = MEGABYTE;
    allowance.startReading();
    EXPECT_EQ(deliveries(MEGABYTE), 19); // of 20 megabytes, each with its field
}

TEST_F(AllowanceCounts, LetNoValueBeLongerThanAPanelCanHold)
{
    EXPECT_EQ(StatementAllowance::longestValue(0), 4 * MEGABYTE);
    EXPECT_EQ(StatementAllowance::longestValue(10 * MEGABYTE), 24 * MEGABYTE);
    EXPECT_EQ(StatementAllowance::longestValue(1000000 * MEGABYTE), 64 * MEGABYTE);
}

} // namespace
