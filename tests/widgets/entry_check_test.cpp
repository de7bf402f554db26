// What the on-screen keyboard accepts and hands on, as rows of literals.
#include "entry_check.h"

#include <gtest/gtest.h>

namespace {

const char* name(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        return "accepted";
    case Refusal::Empty:
        return "empty";
    case Refusal::NoNumber:
        return "no number";
    case Refusal::TooManyDecimals:
        return "too many decimals";
    case Refusal::TooManyDigits:
        return "too many digits";
    case Refusal::TooSmall:
        return "too small";
    case Refusal::TooLarge:
        return "too large";
    case Refusal::TooLong:
        return "too long";
    case Refusal::NothingPossible:
        return "nothing possible";
    }
    return "?";
}

KeyboardParameters number(const char* minimum, const char* maximum, int decimals)
{
    KeyboardParameters parameters;
    parameters.minimum = QString::fromUtf8(minimum);
    parameters.maximum = QString::fromUtf8(maximum);
    parameters.decimalPlaces = decimals;
    return parameters;
}

KeyboardParameters text(const char* longest)
{
    KeyboardParameters parameters = number("0", longest, 0);
    parameters.textEntry = true;
    parameters.formatCode = 4;
    return parameters;
}

struct NumberRow
{
    const char* minimum;
    const char* maximum;
    int decimals;
    const char* typed;
    const char* outcome; // the text that is handed on, or why it is not
};

const NumberRow NUMBERS[] = {
    // plain
    {"0", "100", 0, "42", "42"},
    {"0", "100", 0, "0", "0"},
    {"0", "100", 0, "100", "100"},
    {"0", "100", 0, "101", "too large"},
    {"0", "100", 0, "-1", "too small"},
    {"0", "100", 0, "", "empty"},
    {"10", "20", 0, "9", "too small"},
    {"-20", "-10", 0, "-15", "-15"},
    {"-20", "-10", 0, "-9", "too large"},
    {"-20", "-10", 0, "-21", "too small"},
    // limits compare as numbers, whatever their digits
    {"0", "10.0", 1, "7", "7"},
    {"0", "10.0", 1, "10", "10"},
    {"0", "9", 0, "10", "too large"},
    {"2.50", "10.00", 2, "2.5", "2.5"},
    {"2.50", "10.00", 2, "2.49", "too small"},
    {"-0.50", "0.50", 2, "-.5", "-0.5"},
    {"0.000000", "100.000000", 0, "100", "100"},
    {"0", "1e3", 0, "1000", "1000"},
    // decimals
    {"0", "100", 2, "1.25", "1.25"},
    {"0", "100", 2, "1.250", "too many decimals"},
    {"0", "100", 0, "1.0", "too many decimals"},
    {"0", "100", 0, "1.", "too many decimals"},
    {"0", "100", -3, "1.5", "too many decimals"},
    {"0", "100", -3, "1", "1"},
    // completed and tidied, not rounded or padded
    {"0", "100", 1, ".5", "0.5"},
    {"0", "100", 1, "5.", "5"},
    {"0", "100", 1, "+5", "5"},
    {"0", "100", 1, "007", "7"},
    {"0", "100", 1, "00", "0"},
    {"-5", "5", 1, "-0", "0"},
    {"-5", "5", 1, "-0.0", "0.0"},
    {"-5", "5", 1, "-0.5", "-0.5"},
    // no numbers
    {"0", "100", 1, "-", "no number"},
    {"0", "100", 1, ".", "no number"},
    {"0", "100", 1, "-.", "no number"},
    {"0", "100", 1, "1.2.3", "no number"},
    {"0", "100", 1, "1e1", "no number"},
    {"0", "100", 1, "0x10", "no number"},
    {"0", "100", 1, "nan", "no number"},
    {"0", "100", 1, "inf", "no number"},
    {"0", "100", 1, "1,5", "no number"},
    {"0", "100", 1, " 1", "no number"},
    {"0", "100", 1, "1 ", "no number"},
    {"0", "100", 1, "1\n", "no number"},
    {"0", "100", 1, "--1", "no number"},
    {"0", "100", 1, "ERROR", "no number"},
    {"0", "100", 1, "\xd9\xa3", "no number"}, // an Arabic three: not what a machine reads
    // limits that cannot be read do not limit
    {"", "", 0, "123456", "123456"},
    {"", "10", 0, "-7", "-7"},
    {"nan", "inf", 0, "-70000", "-70000"},
    {"abc", "10", 0, "11", "too large"},
    // limits that leave nothing
    {"10", "5", 0, "7", "nothing possible"},
    {"0", "0", 0, "0", "0"},
    {"0", "0", 0, "1", "too large"},
    // very long
    {"", "", 0, "12345678901234567890123456789012", "12345678901234567890123456789012"},
    {"", "", 0, "123456789012345678901234567890123", "too many digits"},
};

struct TextRow
{
    const char* longest;
    const char* typed;
    const char* outcome;
};

const TextRow TEXTS[] = {
    {"32", "Roggenmischbrot", "Roggenmischbrot"},
    {"4", "Brot", "Brot"},
    {"4", "Brote", "too long"},
    {"4.00", "Brot", "Brot"},
    {"4.00", "Brote", "too long"},
    {"32", "", ""}, // a text may be emptied
    {"4", "\xe3\x83\x91\xe3\x83\xb3\xe3\x83\x91\xe3\x83\xb3", "\xe3\x83\x91\xe3\x83\xb3\xe3\x83\x91\xe3\x83\xb3"},
    {"1", "\xf0\x9f\x8d\x9e", "\xf0\x9f\x8d\x9e"}, // one character, though two UTF-16 units
    {"1", "\xf0\x9f\x8d\x9e\xf0\x9f\x8d\x9e", "too long"},
    {"2", "-5", "-5"}, // no number, no range
    {"0", "any length", "any length"},
    {"-1", "any length", "any length"},
    {"nan", "any length", "any length"},
    {"", "any length", "any length"},
    {"1e300", "any length", "any length"},
};

struct TypingRow
{
    const char* minimum;
    const char* maximum;
    int decimals;
    const char* typed;
    const char* outcome;
};

const TypingRow TYPING[] = {
    {"10", "20", 2, "", "accepted"},
    {"10", "20", 2, "1", "accepted"},
    {"10", "20", 2, "-", "accepted"},
    {"10", "20", 2, ".", "accepted"},
    {"10", "20", 2, "999", "accepted"}, // the range is looked at when the entry is complete
    {"10", "20", 2, "1.25", "accepted"},
    {"10", "20", 2, "1.255", "too many decimals"},
    {"10", "20", 0, "1.", "too many decimals"},
    {"10", "20", 2, "1..", "no number"},
    {"10", "20", 2, "1-", "no number"},
    {"10", "20", 2, "a", "no number"},
};

} // namespace

TEST(EntryCheck, AcceptsTidiesOrRefusesNumbersByTheirRules)
{
    for (const NumberRow& row : NUMBERS) {
        const EntryRules rules(number(row.minimum, row.maximum, row.decimals));
        const EntryResult result = checkEntry(rules, QString::fromUtf8(row.typed));
        const std::string outcome =
            result.refusal == Refusal::None ? result.text.toStdString() : std::string(name(result.refusal));
        EXPECT_EQ(outcome, row.outcome) << "\"" << row.typed << "\" for " << row.minimum << " to " << row.maximum
                                        << ", decimals " << row.decimals;
        EXPECT_TRUE(result.refusal == Refusal::None || result.text.isEmpty());
    }
}

TEST(EntryCheck, AcceptsTextsUpToTheirLengthInCharacters)
{
    for (const TextRow& row : TEXTS) {
        const EntryResult result = checkEntry(EntryRules(text(row.longest)), QString::fromUtf8(row.typed));
        const std::string outcome =
            result.refusal == Refusal::None ? result.text.toStdString() : std::string(name(result.refusal));
        EXPECT_EQ(outcome, row.outcome) << "\"" << row.typed << "\" up to " << row.longest;
    }
}

TEST(EntryCheck, RefusesWhileTypingWhatCanNotBecomeAcceptable)
{
    for (const TypingRow& row : TYPING) {
        const EntryRules rules(number(row.minimum, row.maximum, row.decimals));
        EXPECT_STREQ(name(checkTyping(rules, QString::fromUtf8(row.typed))), row.outcome) << row.typed;
    }
    EXPECT_STREQ(name(checkTyping(EntryRules(text("3")), QStringLiteral("abcd"))), "too long");
}
