// The records: defaults, resets, the text form of an address.
#include "recipe_records.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

RECIPE_ADDRESS address(const char* fields)
{
    RECIPE_ADDRESS result;
    result.fromString(text(fields));
    return result;
}

recipeRegAddr_t block(const char* regType)
{
    RECIPE_ADDRESS parts;
    parts.addrPart1 = 1;
    parts.addrPart2 = 2;
    parts.addrPart5 = 5;
    parts.regType = text(regType);
    return recipeRegAddr_t(parts);
}

void expectDefault(const recipeRegAddr_t& regAddr)
{
    EXPECT_EQ(regAddr.addrPart1, -1);
    EXPECT_EQ(regAddr.addrPart2, -1);
    EXPECT_EQ(regAddr.addrPart5, -1);
    EXPECT_EQ(regAddr.reserved, 0);
    for (char each : regAddr.regType)
        EXPECT_EQ(each, '\0');
    EXPECT_EQ(regAddr.flag, 0);
}

const char THIRTY_ONE[] = "abcdefghijklmnopqrstuvwxyz01234";

// --- titles ------------------------------------------------------------------------------------------------------

TEST(DbLanguageIndex, IsTheTypeColumnOfALanguageTable)
{
    EXPECT_EQ(DB_LANGUAGE_GROUP, 0);
    EXPECT_EQ(DB_LANGUAGE_ROW, 1);
    EXPECT_EQ(DB_LANGUAGE_COLUMN, 2);
}

// --- addresses as text -------------------------------------------------------------------------------------------

TEST(RecipeAddress, ReadsItsSixFields)
{
    const RECIPE_ADDRESS read = address("Internal storage area,1,2,LW,x,3");
    EXPECT_EQ(read.devName, text("Internal storage area"));
    EXPECT_EQ(read.addrPart1, 1);
    EXPECT_EQ(read.addrPart2, 2);
    EXPECT_EQ(read.regType, text("LW"));
    EXPECT_EQ(read.addrPart4, text("x"));
    EXPECT_EQ(read.addrPart5, 3);
}

class UnreadableAddress : public testing::TestWithParam<const char*>
{
};

TEST_P(UnreadableAddress, LeavesTheRecordUnchanged)
{
    RECIPE_ADDRESS kept = address("dev,7,8,LW,y,9");
    kept.fromString(text(GetParam()));
    EXPECT_EQ(kept.toString(), text("dev,7,8,LW,y,9"));
}

INSTANTIATE_TEST_SUITE_P(OtherNumbersOfFields, UnreadableAddress,
                         testing::Values("a,1,2,LW,x", "a,1,2,LW,x,3,9", "", "a", ",,,,", ",,,,,,"));

TEST(RecipeAddress, KeepsEmptyFieldsAndReadsThemAsZero)
{
    const RECIPE_ADDRESS read = address("a,,,LW,,");
    EXPECT_EQ(read.devName, text("a"));
    EXPECT_EQ(read.addrPart1, 0);
    EXPECT_EQ(read.addrPart2, 0);
    EXPECT_EQ(read.addrPart5, 0);
    EXPECT_EQ(read.addrPart4, QString());
}

TEST(RecipeAddress, ReadsWhatIsNoDecimalIntegerAsZero)
{
    const RECIPE_ADDRESS read = address("a,0x10,3.5,LW,x,99999999999");
    EXPECT_EQ(read.addrPart1, 0);
    EXPECT_EQ(read.addrPart2, 0);
    EXPECT_EQ(read.addrPart5, 0);
}

TEST(RecipeAddress, KeepsTheFourthFieldVerbatim)
{
    EXPECT_EQ(address("a,1,2,LW, 007 ,3").addrPart4, text(" 007 "));
}

TEST(RecipeAddress, WritesItsFieldsInOrderWithDecimalIntegers)
{
    EXPECT_EQ(address("Ger\u00e4t,-1,2,LW,,2147483647").toString(), text("Ger\u00e4t,-1,2,LW,,2147483647"));
}

TEST(RecipeAddress, DoesNotTakeAPercentInAFieldForAPlaceToFill)
{
    EXPECT_EQ(address("%4,1,2,%1,%2,3").toString(), text("%4,1,2,%1,%2,3"));
}

// --- the fixed block ---------------------------------------------------------------------------------------------

TEST(RegisterBlock, IsPlainMemoryInTheDeclaredOrder)
{
    EXPECT_TRUE(std::is_standard_layout<recipeRegAddr_t>::value);
    EXPECT_EQ(offsetof(recipeRegAddr_t, addrPart1), 0u);
    EXPECT_EQ(offsetof(recipeRegAddr_t, addrPart2), 4u);
    EXPECT_EQ(offsetof(recipeRegAddr_t, addrPart5), 8u);
    EXPECT_EQ(offsetof(recipeRegAddr_t, reserved), 12u);
    EXPECT_EQ(offsetof(recipeRegAddr_t, regType), 16u);
    EXPECT_EQ(offsetof(recipeRegAddr_t, flag), 48u);
    EXPECT_EQ(sizeof(recipeRegAddr_t), 52u);
}

TEST(RegisterBlock, StartsWithItsDefaults)
{
    expectDefault(recipeRegAddr_t());
}

TEST(RegisterBlock, TakesFieldsOneTwoThreeAndFiveOfAnAddress)
{
    const recipeRegAddr_t taken(address("dev,1,2,LW,four,5"));
    EXPECT_EQ(taken.addrPart1, 1);
    EXPECT_EQ(taken.addrPart2, 2);
    EXPECT_EQ(taken.addrPart5, 5);
    EXPECT_EQ(taken.reserved, 0);
    EXPECT_STREQ(taken.regType, "LW");
    EXPECT_EQ(taken.flag, 0);
}

TEST(RegisterBlock, KeepsTheTerminatorOfANameOf31Bytes)
{
    const recipeRegAddr_t taken = block(THIRTY_ONE);
    EXPECT_EQ(std::memcmp(taken.regType, THIRTY_ONE, 32), 0);
    EXPECT_EQ(taken.regTypeText(), text(THIRTY_ONE));
}

TEST(RegisterBlock, HoldsANameOf32BytesWithoutATerminator)
{
    const std::string name = std::string(THIRTY_ONE) + "5";
    const recipeRegAddr_t taken = block(name.c_str());
    EXPECT_EQ(std::memcmp(taken.regType, name.data(), 32), 0);
    EXPECT_EQ(taken.flag, 0);
    EXPECT_EQ(taken.regTypeText(), text(name.c_str()));
}

TEST(RegisterBlock, CutsALongerNameToItsFirst32Bytes)
{
    const std::string name = std::string(THIRTY_ONE) + "56789";
    EXPECT_EQ(block(name.c_str()).regTypeText().toStdString(), name.substr(0, 32));
}

TEST(RegisterBlock, CountsBytesOfUtf8AndNotCharacters)
{
    const std::string name = std::string(31, 'a') + "\u00e9"; // 33 bytes: the last character is cut in half
    const recipeRegAddr_t taken = block(name.c_str());
    EXPECT_EQ(std::memcmp(taken.regType, name.data(), 32), 0);
    EXPECT_EQ(taken.regTypeText(), QString(31, QLatin1Char('a')) + QChar(QChar::ReplacementCharacter));
}

TEST(RegisterBlock, FillsTheRestOfTheNameWithZerosWhenConstructedAsACopy)
{
    recipeRegAddr_t original = block("AB");
    original.regType[5] = 'Z'; // behind the terminator
    original.flag = 3;
    original.reserved = 4;
    const recipeRegAddr_t copy(original);
    EXPECT_STREQ(copy.regType, "AB");
    for (int i = 2; i < 32; ++i)
        EXPECT_EQ(copy.regType[i], '\0');
    EXPECT_EQ(copy.addrPart1, 1);
    EXPECT_EQ(copy.addrPart2, 2);
    EXPECT_EQ(copy.addrPart5, 5);
    EXPECT_EQ(copy.reserved, 4);
    EXPECT_EQ(copy.flag, 3);
}

TEST(RegisterBlock, CopiesAllOfItsBytesOnAssignment)
{
    recipeRegAddr_t original = block("AB");
    original.regType[5] = 'Z';
    recipeRegAddr_t copy;
    copy = original;
    EXPECT_EQ(std::memcmp(copy.regType, original.regType, 32), 0);
}

TEST(MakeAddress, PutsTogetherWhatRecordsKeep)
{
    EXPECT_EQ(makeAddress(text("dev"), block("LW"), text("four")).toString(), text("dev,1,2,LW,four,5"));
}

// --- items -------------------------------------------------------------------------------------------------------

TEST(RecipeItem, StartsWithItsDefaults)
{
    const recipeItemInfo_t item;
    EXPECT_EQ(item.rowIndex, -1);
    EXPECT_EQ(item.rowName, QVector<QString>(8, text("")));
    EXPECT_TRUE(item.devName.isNull());
    expectDefault(item.regAddr);
    EXPECT_TRUE(item.addrPart4.isNull());
    EXPECT_EQ(item.dataType, 0);
    EXPECT_EQ(item.wordCount, 0);
    EXPECT_EQ(item.totalDigits, 0);
    EXPECT_EQ(item.decimalDigits, 0);
    EXPECT_TRUE(item.values.isEmpty());
    EXPECT_EQ(item.min, 0.0);
    EXPECT_EQ(item.max, 65535.0);
}

TEST(RecipeItem, ClearsIndexTitlesValuesLimitsAndWordCountOnly)
{
    recipeItemInfo_t item;
    item.rowIndex = 1;
    item.rowName.fill(text("title"), 3);
    item.setAddress(text("dev,1,2,LW,four,5"));
    item.wordOffset = 6;
    item.dataType = 7;
    item.wordCount = 8;
    item.totalDigits = 9;
    item.decimalDigits = 10;
    item.values.append(text("value"));
    item.min = -1;
    item.max = 1;
    item.clear();

    EXPECT_EQ(item.rowIndex, -1);
    EXPECT_EQ(item.rowName, QVector<QString>(8, text("")));
    EXPECT_TRUE(item.values.isEmpty());
    EXPECT_EQ(item.min, 0.0);
    EXPECT_EQ(item.max, 65535.0);
    EXPECT_EQ(item.wordCount, 0);
    EXPECT_EQ(item.addressText(), text("dev,1,2,LW,four,5"));
    EXPECT_EQ(item.wordOffset, 6);
    EXPECT_EQ(item.dataType, 7);
    EXPECT_EQ(item.totalDigits, 9);
    EXPECT_EQ(item.decimalDigits, 10);
}

TEST(RecipeItem, KeepsItsAddressWhereATextDoesNotHaveSixFields)
{
    recipeItemInfo_t item;
    item.setAddress(text("dev,1,2,LW,four,5"));
    item.setAddress(text("a,1,2,LW,x"));
    item.setAddress(text("a,1,2,LW,x,3,9"));
    EXPECT_EQ(item.addressText(), text("dev,1,2,LW,four,5"));
}

TEST(RecipeItem, SharesNothingThatChangesWithItsCopy)
{
    recipeItemInfo_t item;
    item.values.append(text("old"));
    recipeItemInfo_t copy(item);
    copy.values[0] = text("new");
    copy.rowName[0] = text("new");
    EXPECT_EQ(item.values.at(0), text("old"));
    EXPECT_EQ(item.rowName.at(0), text(""));
}

// --- groups ------------------------------------------------------------------------------------------------------

TEST(RecipeGroup, StartsWithItsDefaults)
{
    const recipeTableInfo_t group;
    EXPECT_EQ(group.groupIndex, -1);
    EXPECT_EQ(group.groupName, QVector<QString>(8, text("")));
    EXPECT_TRUE(group.columnName.isEmpty());
    EXPECT_TRUE(group.items.isEmpty());
    EXPECT_EQ(group.notify, 0);
    expectDefault(group.notifyRegAddr);
    EXPECT_TRUE(group.notifyAddrPart4.isNull());
    EXPECT_TRUE(group.notifyDevName.isNull());
}

TEST(RecipeGroup, ClearsAllButTheNotificationBlockAndItsFourthField)
{
    recipeTableInfo_t group;
    group.groupIndex = 3;
    group.groupName.fill(text("title"), 2);
    group.columnName.resize(4);
    group.items.resize(5);
    group.notify = 6;
    group.setNotifyAddress(text("dev,1,2,LW,four,5"));
    group.clear();

    EXPECT_EQ(group.groupIndex, -1);
    EXPECT_EQ(group.groupName, QVector<QString>(8, text("")));
    EXPECT_TRUE(group.columnName.isEmpty());
    EXPECT_TRUE(group.items.isEmpty());
    EXPECT_EQ(group.notify, 0);
    EXPECT_EQ(group.notifyDevName, text(""));
    EXPECT_EQ(makeAddress(group.notifyDevName, group.notifyRegAddr, group.notifyAddrPart4).toString(),
              text(",1,2,LW,four,5"));
}

TEST(RecipeGroup, HasNoNotificationTextWhileNotifyIsZero)
{
    recipeTableInfo_t group;
    group.setNotifyAddress(text("dev,1,2,LW,four,5"));
    EXPECT_EQ(group.notifyAddressText(), text(""));
    group.notify = 2;
    EXPECT_EQ(group.notifyAddressText(), text("dev,1,2,LW,four,5"));
}

TEST(RecipeGroupSummary, StartsWithTheDefaultBlock)
{
    expectDefault(recipeGroupsInfo_t().notifyRegAddr);
}

// --- cells -------------------------------------------------------------------------------------------------------

TEST(CellIndex, IsOrderedByColumnThenByRow)
{
    EXPECT_LT(idx_t(0, 9), idx_t(1, 0));
    EXPECT_LT(idx_t(1, 0), idx_t(1, 1));
    EXPECT_LT(idx_t(-1, 5), idx_t(0, 0));
}

TEST(CellInfo, IsAZeroRectangleAndAnEmptyTextToBeginWith)
{
    const cell_info_t cell;
    EXPECT_EQ(cell.rect, QRectF(0, 0, 0, 0));
    EXPECT_TRUE(cell.text.isEmpty());
}

} // namespace
