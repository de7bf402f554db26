// How values become register words, type by type.
#include "register_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

RegisterValue valueOf(int dataType, const char* text, int decimals = 0, int wordCount = -1)
{
    const bool isWide = dataType == REGISTER_UNSIGNED_32 || dataType == REGISTER_SIGNED_32
                        || dataType == REGISTER_BCD_32 || dataType == REGISTER_FLOAT;
    RegisterValue value;
    value.dataType = dataType;
    value.decimals = decimals;
    value.wordCount = wordCount < 0 ? (isWide ? 2 : 1) : wordCount;
    value.text = QString::fromUtf8(text);
    return value;
}

struct Row
{
    const char* text;
    int decimals;
    std::vector<int> words; ///< empty: refused for `result`
    RegisterImage::Result result = RegisterImage::PLACED;
};

void expectRows(int dataType, const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        RegisterImage image;
        const std::string shown = "\"" + std::string(row.text) + "\", " + std::to_string(row.decimals) + " decimals";
        EXPECT_EQ(image.place(valueOf(dataType, row.text, row.decimals)), row.result) << shown;
        EXPECT_EQ(std::vector<int>(image.words().begin(), image.words().end()), row.words) << shown;
    }
}

const RegisterImage::Result NUMBER = RegisterImage::NOT_A_NUMBER;
const RegisterImage::Result RANGE = RegisterImage::OUT_OF_RANGE;
const RegisterImage::Result DECIMALS = RegisterImage::TOO_MANY_DECIMALS;

TEST(RegisterImage, HoldsUnsignedWords)
{
    expectRows(REGISTER_UNSIGNED_16, {{"0", 0, {0}},
                                      {"-0", 0, {0}},
                                      {"007", 0, {7}},
                                      {"65535", 0, {65535}},
                                      {"65536", 0, {}, RANGE},
                                      {"-1", 0, {}, RANGE},
                                      {"99999999999999999999999", 0, {}, RANGE},
                                      {"3.75", 2, {375}},
                                      {"655.35", 2, {65535}},
                                      {"655.36", 2, {}, RANGE},
                                      {"655.3600", 2, {}, RANGE}});
}

TEST(RegisterImage, HoldsUnsignedDoubleWordsLowWordFirst)
{
    expectRows(REGISTER_UNSIGNED_32, {{"0", 0, {0, 0}},
                                      {"65536", 0, {0, 1}},
                                      {"305419896", 0, {0x5678, 0x1234}},
                                      {"4294967295", 0, {65535, 65535}},
                                      {"4294967296", 0, {}, RANGE},
                                      {"-1", 0, {}, RANGE},
                                      {"42949672.95", 2, {65535, 65535}}});
}

TEST(RegisterImage, HoldsSignedWords)
{
    expectRows(REGISTER_SIGNED_16, {{"-1", 0, {65535}},
                                    {"32767", 0, {32767}},
                                    {"-32768", 0, {32768}},
                                    {"32768", 0, {}, RANGE},
                                    {"-32769", 0, {}, RANGE},
                                    {"-12.5", 1, {65536 - 125}}});
}

TEST(RegisterImage, HoldsSignedDoubleWords)
{
    expectRows(REGISTER_SIGNED_32, {{"-1", 0, {65535, 65535}},
                                    {"2147483647", 0, {65535, 32767}},
                                    {"-2147483648", 0, {0, 32768}},
                                    {"2147483648", 0, {}, RANGE},
                                    {"-2147483649", 0, {}, RANGE},
                                    {"112.50", 2, {11250, 0}}});
}

TEST(RegisterImage, HoldsADigitInEachFourBitsOfABcdWord)
{
    expectRows(REGISTER_BCD_16, {{"0", 0, {0}},
                                 {"1234", 0, {0x1234}},
                                 {"9999", 0, {0x9999}},
                                 {"10000", 0, {}, RANGE},
                                 {"-1", 0, {}, RANGE},
                                 {"9.50", 2, {0x0950}}});
}

TEST(RegisterImage, HoldsEightDigitsInABcdDoubleWord)
{
    expectRows(REGISTER_BCD_32, {{"12345678", 0, {0x5678, 0x1234}},
                                 {"99999999", 0, {0x9999, 0x9999}},
                                 {"100000000", 0, {}, RANGE},
                                 {"-1", 0, {}, RANGE}});
}

TEST(RegisterImage, HoldsFloatsWithTheirPoint)
{
    expectRows(REGISTER_FLOAT, {{"0", 0, {0, 0}},
                                {"1", 0, {0, 0x3f80}},
                                {"27.0", 1, {0, 0x41d8}},
                                {"-2.5", 0, {0, 0xc020}}, // decimals are for show only
                                {"0.1", 1, {0xcccd, 0x3dcc}},
                                {"340282346638528859811704183484516925440", 0, {0xffff, 0x7f7f}},
                                {"-340282346638528859811704183484516925440", 0, {0xffff, 0xff7f}},
                                {"340282346638528859811704183484516925441000", 0, {}, RANGE},
                                {"-340282346638528859811704183484516925441000", 0, {}, RANGE},
                                {"0.0000000000000000000000000000000000000000000000000001", 9, {0, 0}}});
    EXPECT_EQ(RegisterImage().place(valueOf(REGISTER_FLOAT, std::string(400, '9').c_str())), RANGE);
}

TEST(RegisterImage, HoldsTextsTwoBytesToAWordAndZerosBehind)
{
    RegisterImage image;
    EXPECT_EQ(image.place(valueOf(REGISTER_TEXT, "WB-07", 0, 4)), RegisterImage::PLACED);
    EXPECT_THAT(image.words(), ElementsAre(0x4257, 0x302d, 0x0037, 0));
}

TEST(RegisterImage, CountsTheBytesOfATextNotItsCharacters)
{
    RegisterImage image;
    EXPECT_EQ(image.place(valueOf(REGISTER_TEXT, "\xc3\xa4z", 0, 2)), RegisterImage::PLACED);
    EXPECT_THAT(image.words(), ElementsAre(0xa4c3, 'z'));
    EXPECT_EQ(image.place(valueOf(REGISTER_TEXT, "abcd", 0, 2)), RegisterImage::PLACED) << "no zero need follow";
    EXPECT_EQ(image.place(valueOf(REGISTER_TEXT, "\xc3\xa4\xc3\xa4z", 0, 2)), RegisterImage::TEXT_TOO_LONG);
    EXPECT_THAT(image.words(), ElementsAre(0x6261, 0x6463)) << "what is refused leaves the image";
    EXPECT_EQ(image.place(valueOf(REGISTER_TEXT, "", 0, 2)), RegisterImage::PLACED);
    EXPECT_THAT(image.words(), ElementsAre(0, 0)) << "what was there before is gone";
}

TEST(RegisterImage, RefusesTextsThatAreNoNumbers)
{
    for (int dataType = REGISTER_UNSIGNED_16; dataType <= REGISTER_FLOAT; ++dataType) {
        for (const char* text : {"", "-", ".", "1.", ".5", "-.5", "+1", " 1", "1 ", "1e5", "inf", "nan", "1,5", "1.2.3",
                                 "--1", "0x10", "\xd9\xa1", "abc"}) {
            RegisterImage image;
            EXPECT_EQ(image.place(valueOf(dataType, text, 3)), NUMBER) << dataType << " \"" << text << "\"";
            EXPECT_TRUE(image.words().isEmpty());
        }
    }
}

TEST(RegisterImage, RefusesDecimalsThatWouldBeLost)
{
    for (int dataType = REGISTER_UNSIGNED_16; dataType <= REGISTER_BCD_32; ++dataType) {
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1.25", 1)), DECIMALS) << dataType;
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1.5", 0)), DECIMALS) << dataType;
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1.5", -1)), DECIMALS) << dataType;
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1.50000", 1)), RegisterImage::PLACED) << dataType;
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1.000", -1)), RegisterImage::PLACED) << dataType;
    }
}

/// A damaged file may ask for any number of decimals; the answer comes at once.
TEST(RegisterImage, TakesAnyNumberOfDecimals)
{
    expectRows(REGISTER_UNSIGNED_16, {{"0.0", 2147483647, {0}}, {"1", 2147483647, {}, RANGE}, {"1", 4, {10000}}});
}

TEST(RegisterImage, RefusesNumbersWithAnotherWordCountThanTheirTypes)
{
    for (int dataType = REGISTER_UNSIGNED_16; dataType <= REGISTER_FLOAT; ++dataType) {
        const int words = valueOf(dataType, "1").wordCount;
        for (const int wordCount : {-1, 0, words - 1, words + 1, 2147483647}) {
            RegisterValue value = valueOf(dataType, "1");
            value.wordCount = wordCount;
            EXPECT_EQ(RegisterImage().place(value), RegisterImage::WRONG_WORD_COUNT) << dataType << ' ' << wordCount;
        }
    }
}

TEST(RegisterImage, RefusesTextsWithoutWords)
{
    for (const int wordCount : {0, -1, -2147483647 - 1}) {
        RegisterValue value = valueOf(REGISTER_TEXT, "");
        value.wordCount = wordCount;
        EXPECT_EQ(RegisterImage().place(value), RegisterImage::WRONG_WORD_COUNT) << wordCount;
    }
}

TEST(RegisterImage, RefusesPlacesOutsideIt)
{
    const int last = RegisterImage::MOST_WORDS - 1;
    struct Place
    {
        int offset;
        RegisterImage::Result word;
        RegisterImage::Result doubleWord;
    };
    const RegisterImage::Result placed = RegisterImage::PLACED;
    const RegisterImage::Result outside = RegisterImage::OUTSIDE;
    for (const Place& place :
         {Place{-1, outside, outside}, Place{-2147483647 - 1, outside, outside}, Place{last - 1, placed, placed},
          Place{last, placed, outside}, Place{last + 1, outside, outside}, Place{2147483647, outside, outside}}) {
        RegisterValue value = valueOf(REGISTER_SIGNED_16, "1");
        value.wordOffset = place.offset;
        EXPECT_EQ(RegisterImage().place(value), place.word) << place.offset;
        value = valueOf(REGISTER_SIGNED_32, "1");
        value.wordOffset = place.offset;
        EXPECT_EQ(RegisterImage().place(value), place.doubleWord) << place.offset;
    }
    EXPECT_EQ(RegisterImage().place(valueOf(REGISTER_TEXT, "x", 0, 2147483647)), outside);
    EXPECT_EQ(RegisterImage().place(valueOf(REGISTER_TEXT, "x", 0, RegisterImage::MOST_WORDS)), placed);
}

TEST(RegisterImage, RefusesTypesItDoesNotKnow)
{
    for (const int dataType : {-1, 8, 99, 2147483647})
        EXPECT_EQ(RegisterImage().place(valueOf(dataType, "1")), RegisterImage::UNKNOWN_TYPE) << dataType;
}

TEST(RegisterImage, GrowsWithZerosAndKeepsWhatItHolds)
{
    RegisterImage image;
    RegisterValue value = valueOf(REGISTER_UNSIGNED_16, "7");
    value.wordOffset = 3;
    ASSERT_EQ(image.place(value), RegisterImage::PLACED);
    ASSERT_EQ(image.place(valueOf(REGISTER_UNSIGNED_32, "65537")), RegisterImage::PLACED);
    EXPECT_THAT(image.words(), ElementsAre(1, 1, 0, 7));
}

} // namespace
