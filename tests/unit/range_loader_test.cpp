// Loading a range of recipes into a record for transfer.
#include "InterfaceComm.h"
#include "number_text.h"
#include "recipe_fixtures.h"
#include "recipe_tools.h"
#include "sqlite_errors.h"

#include <gtest/gtest.h>

namespace {

/// Knows the links a test gives it and remembers what it was asked.
class LinkTable : public InterfaceComm
{
public:
    QMap<QString, LinkValue> links;
    QStringList asked;

    bool readWords(int, int, int, int*) override { return false; }
    bool writeWords(const QString&, const QString&, int, int, int, const int*) override { return false; }
    LinkValue linkValue(const QString& deviceName) override
    {
        asked.append(deviceName);
        return links.value(deviceName);
    }
    void formatMonitorAddress(const QString&, const QString&, int, int, int, QStringList&) override {}
};

LinkValue link(int linkId, int status, int linkNumber)
{
    LinkValue value;
    value.linkId = linkId;
    value.status = status;
    value.linkNumber = linkNumber;
    return value;
}

/// One item per call of add(), every recipe with the same text in it.
struct Group
{
    explicit Group(int recipeCount) : recipes(recipeCount), record(recipeGroup(0, recipeCount)) {}

    Group& add(int dataType, const char* value, int decimals = 0, int totalDigits = 5)
    {
        const int i = static_cast<int>(record.items.size());
        recipeItemInfo_t item = recipeItem(i, 0, dataType);
        item.decimalDigits = decimals;
        item.totalDigits = totalDigits;
        item.values.fill(QString::fromUtf8(value), recipes);
        record.items.append(item);
        return *this;
    }

    int recipes;
    recipeTableInfo_t record;
};

class RangeLoader : public testing::Test
{
protected:
    void open(const recipeTableInfo_t& group, int number = 0)
    {
        writeRecipeFile(group, number);
        ASSERT_EQ(RecipeDB::getInstance()->OpenRecipeFile(recipeFilePath()), 0);
    }
    ~RangeLoader() override { RecipeDB::release(); }

    /// The text of the only item of a group with one recipe, as it is transferred.
    QString transferred(int dataType, const char* value, int decimals)
    {
        open(Group(1).add(dataType, value, decimals).record);
        EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
        return info.items.at(0).values.value(0);
    }

    void expectCleared(const recipeTableInfo_t& record)
    {
        EXPECT_EQ(record.groupIndex, -1);
        EXPECT_EQ(record.groupName, emptyTitles());
        EXPECT_TRUE(record.columnName.isEmpty());
        EXPECT_TRUE(record.items.isEmpty());
        EXPECT_EQ(record.notify, 0);
        EXPECT_EQ(record.notifyDevName, QString());
    }

    recipeTableInfo_t info;
    LinkTable comm;
};

/// A record as an earlier load may have left it.
recipeTableInfo_t usedRecord()
{
    recipeTableInfo_t record = recipeGroup(3, 2);
    record.groupIndex = 4;
    record.notify = 1;
    record.notifyDevName = QString::fromLatin1("device");
    return record;
}

TEST_F(RangeLoader, RefusesACountOfZeroOrLessWithAClearedRecord)
{
    open(recipeGroup(2, 2));
    for (const int count : {0, -1, -2147483647}) {
        info = usedRecord();
        EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, count, info, &comm), 0);
        expectCleared(info);
    }
}

TEST_F(RangeLoader, RefusesANullInterfaceWithAClearedRecord)
{
    open(recipeGroup(2, 2));
    info = usedRecord();
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, nullptr), 0);
    expectCleared(info);
}

TEST_F(RangeLoader, FailsWithAClearedRecordWhenNoFileIsOpen)
{
    info = usedRecord();
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 0);
    expectCleared(info);
}

TEST_F(RangeLoader, FailsWithAClearedRecordWhenTheItemsCannotBeRead)
{
    open(recipeGroup(2, 2));
    OutsideSqlite(recipeFilePath()).exec("DROP TABLE addr_0;");
    SqliteErrors expected;
    info = usedRecord();
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 0);
    expectCleared(info);
}

TEST_F(RangeLoader, StartsFromAClearedRecordButLeavesTheNotifyAddressThatNoConfigurationOverwrites)
{
    open(recipeGroup(2, 2));
    info = usedRecord();
    info.notifyAddrPart4 = QString::fromLatin1("kept");
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    EXPECT_EQ(info.groupIndex, 0);
    EXPECT_EQ(info.items.size(), 2);
    EXPECT_EQ(info.notify, 0);
    EXPECT_EQ(info.notifyAddrPart4, QString::fromLatin1("kept"));
}

TEST_F(RangeLoader, LaysItemsOutByTheirTypes)
{
    struct Row
    {
        int dataType;
        int totalDigits;
        int words;
    };
    const Row rows[] = {{0, 5, 1}, {1, 5, 2},   {2, 5, 1}, {3, 5, 2}, {4, 5, 1},  {5, 5, 2},
                        {6, 5, 2}, {7, 10, 10}, {8, 5, 1}, {1, 5, 2}, {99, 5, 1}, {-1, 5, 1}};
    Group group(1);
    for (const Row& row : rows)
        group.add(row.dataType, "0", 0, row.totalDigits);
    open(group.record);
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    int offset = 0;
    for (int i = 0; i < info.items.size(); ++i) {
        EXPECT_EQ(info.items.at(i).wordOffset, offset) << "item " << i;
        EXPECT_EQ(info.items.at(i).wordCount, rows[i].words) << "item " << i;
        offset += rows[i].words;
    }
}

TEST_F(RangeLoader, PutsA32BitItemBehindATextOfTenWordsAtOffsetTen)
{
    open(Group(1).add(7, "abc", 0, 10).add(1, "5").record);
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    EXPECT_EQ(info.items.at(0).wordOffset, 0);
    EXPECT_EQ(info.items.at(0).wordCount, 10);
    EXPECT_EQ(info.items.at(1).wordOffset, 10);
    EXPECT_EQ(info.items.at(1).wordCount, 2);
}

TEST_F(RangeLoader, TakesTheLinkNumberOnlyFromALinkThatExistsAndIsUp)
{
    Group group(1);
    const char* const devices[] = {"up", "down", "missing", "unknown"};
    for (int i = 0; i < 4; ++i) {
        group.add(0, "1");
        group.record.items[i].setAddress(QString::fromLatin1("%1,%2,7,LW,x,3").arg(QLatin1String(devices[i])).arg(i));
    }
    open(group.record);
    comm.links.insert(QString::fromLatin1("up"), link(0, 0, 42));
    comm.links.insert(QString::fromLatin1("down"), link(2, 1, 43));
    comm.links.insert(QString::fromLatin1("missing"), link(-1, 0, 44));
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);

    EXPECT_EQ(comm.asked.join(QLatin1String(" ")), QString::fromLatin1("up down missing unknown"));
    EXPECT_EQ(info.items.at(0).addressText(), QString::fromLatin1("up,0,42,LW,x,3"));
    EXPECT_EQ(info.items.at(1).addressText(), QString::fromLatin1("down,1,7,LW,x,3"));
    EXPECT_EQ(info.items.at(2).addressText(), QString::fromLatin1("missing,2,7,LW,x,3"));
    EXPECT_EQ(info.items.at(3).addressText(), QString::fromLatin1("unknown,3,7,LW,x,3"));
}

TEST_F(RangeLoader, KeepsARegisterNameOf32BytesWhole)
{
    Group group(1);
    group.add(0, "1");
    const QString name(32, QLatin1Char('r'));
    group.record.items[0].setAddress(QString::fromLatin1("d,1,2,%1,x,3").arg(name));
    open(group.record);
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    EXPECT_EQ(info.items.at(0).regAddr.regTypeText(), name);
}

TEST_F(RangeLoader, LoadsTitlesOfGroupItemsAndTheRangesRecipes)
{
    open(recipeGroup(3, 6), 2);
    ASSERT_EQ(loadRecipe2Struct_start_end(2, 2, 3, info, &comm), 1);
    EXPECT_EQ(info.groupIndex, 2);
    EXPECT_EQ(info.groupName.at(7), groupTitle(7));
    EXPECT_EQ(info.items.at(2).rowName.at(1), itemTitle(2, 1));
    ASSERT_EQ(info.columnName.size(), 3);
    for (int c = 0; c < 3; ++c)
        EXPECT_EQ(info.columnName.at(c).at(3), recipeTitle(c + 2, 3));
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(info.items.at(i).values.size(), 3);
        EXPECT_EQ(info.items.at(i).values.at(0), cellValue(2, i));
        EXPECT_EQ(info.items.at(i).values.at(2), cellValue(4, i));
    }
}

TEST_F(RangeLoader, GivesOnlyTheRecipesThatExistBehindTheStart)
{
    open(recipeGroup(2, 4));
    struct Row
    {
        int start;
        int count;
        int titles;
        int values;
    };
    for (const Row& row : {Row{0, 4, 4, 4}, Row{3, 5, 1, 1}, Row{2, 2147483647, 2, 2}, Row{4, 2, 0, 0}, Row{9, 2, 0, 0},
                           Row{1, 2, 2, 2}}) {
        ASSERT_EQ(loadRecipe2Struct_start_end(0, row.start, row.count, info, &comm), 1);
        EXPECT_EQ(info.columnName.size(), row.titles) << row.start << " " << row.count;
        EXPECT_EQ(info.items.at(0).values.size(), row.values) << row.start << " " << row.count;
    }
}

TEST_F(RangeLoader, GivesEveryValueOfTheRangeAlsoOfRecipesThatTheConfigurationDoesNotCount)
{
    open(recipeGroup(2, 4));
    OutsideSqlite(recipeFilePath()).exec("UPDATE recipe_config SET column = 2;");
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 1, 3, info, &comm), 1);
    ASSERT_EQ(info.columnName.size(), 1);
    EXPECT_EQ(info.columnName.at(0).at(0), recipeTitle(1, 0));
    ASSERT_EQ(info.items.at(0).values.size(), 3);
    EXPECT_EQ(info.items.at(0).values.at(2), cellValue(3, 0));
}

/// A recipe's number decides whether it is in the range, its place in the file where its values stand in the list.
TEST_F(RangeLoader, AppendsValuesInTheOrderOfTheFile)
{
    open(recipeGroup(1, 4));
    OutsideSqlite(recipeFilePath()).exec("UPDATE data_0 SET column = 3 - column;");
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 1, 2, info, &comm), 1);
    ASSERT_EQ(info.items.at(0).values.size(), 2);
    EXPECT_EQ(info.items.at(0).values.at(0), cellValue(1, 0)) << "number 2 now";
    EXPECT_EQ(info.items.at(0).values.at(1), cellValue(2, 0)) << "number 1 now";
    EXPECT_EQ(info.columnName.at(0).at(0), recipeTitle(1, 0)) << "titles go by number";
}

TEST_F(RangeLoader, CountsRecipesInFrontOfTheFirstAsRecipesWithoutTitle)
{
    open(recipeGroup(1, 4));
    ASSERT_EQ(loadRecipe2Struct_start_end(0, -1, 3, info, &comm), 1);
    ASSERT_EQ(info.columnName.size(), 3);
    EXPECT_EQ(info.columnName.at(0), emptyTitles());
    EXPECT_EQ(info.columnName.at(2).at(1), recipeTitle(1, 1));
    EXPECT_EQ(info.items.at(0).values.size(), 2);
}

TEST_F(RangeLoader, LoadsTheItemsOfAGroupWithoutConfiguration)
{
    open(recipeGroup(3, 2));
    OutsideSqlite(recipeFilePath()).exec("DELETE FROM recipe_config;");
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    EXPECT_EQ(info.groupIndex, -1);
    EXPECT_TRUE(info.columnName.isEmpty());
    EXPECT_EQ(info.items.size(), 3);
    EXPECT_EQ(info.items.at(2).values.value(0), cellValue(0, 2));
}

/// The link of the notification address is left to the runtime.
TEST_F(RangeLoader, GivesTheNotificationAddressAsItStandsInTheFile)
{
    recipeTableInfo_t group = recipeGroup(1, 1);
    group.notify = 1;
    group.setNotifyAddress(QString::fromLatin1("up,3,7,M,10,5"));
    open(group);
    comm.links.insert(QString::fromLatin1("up"), link(0, 0, 42));
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    EXPECT_EQ(info.notify, 1);
    EXPECT_EQ(info.notifyAddressText(), QString::fromLatin1("up,3,7,M,10,5"));
    EXPECT_EQ(comm.asked.join(QLatin1String(" ")), QString::fromLatin1("Internal storage area"));
}

TEST_F(RangeLoader, ReadsMissingAndForeignValuesAsZeroAndTextsAsTheyStand)
{
    open(Group(1).add(0, "1").add(6, "1", 2).add(1, "1", 1).add(7, "x").add(7, "x").record);
    OutsideSqlite(recipeFilePath())
        .exec("UPDATE data_0 SET D0 = NULL, D1 = 'abc', D2 = '1,5', D3 = NULL, D4 = '\xc3\xa4 1.5';");
    ASSERT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &comm), 1);
    const char* const expected[] = {"0", "0.00", "0.0", "", "\xc3\xa4 1.5"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(info.items.at(i).values.value(0), QString::fromUtf8(expected[i])) << "item " << i;
}

/// Asks the recipe file in the middle of the loader's question, as a runtime may.
class CuriousLinkTable : public LinkTable
{
public:
    LinkValue linkValue(const QString& deviceName) override
    {
        rows = RecipeDB::getInstance()->getTable_Addr_Row(0);
        return LinkTable::linkValue(deviceName);
    }
    int rows = -1;
};

TEST_F(RangeLoader, HoldsNoLockWhileItAsksForALink)
{
    open(recipeGroup(2, 1));
    CuriousLinkTable curious;
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 1, info, &curious), 1); // would never return
    EXPECT_EQ(curious.rows, 2);
}

TEST_F(RangeLoader, FormatsByTypeAndDigits)
{
    struct Row
    {
        int dataType;
        const char* stored;
        int decimals;
        const char* transferred;
    };
    // Numbers are truncated behind the last digit, floats (type 6) rounded. Without decimals every number is rounded.
    // The digit that is printed more is rounded before it is dropped: 0.999 becomes 1.00 and then 1.0.
    const Row rows[] = {
        {1, "1.239", 2, "1.23"}, {6, "1.239", 2, "1.24"}, {0, "12.7", 0, "13"},      {6, "12.7", 0, "13"},
        {6, "12.7", -1, "13"},   {0, "12.7", -3, "13"},   {1, "-1.239", 2, "-1.23"}, {2, "3", 2, "3.00"},
        {5, "0.99", 1, "0.9"},   {5, "0.999", 1, "1.0"},  {6, "0.999", 1, "1.0"},    {7, "a.b", 0, "a.b"},
        {7, "a.b", 2, "a.b"},    {7, "", 3, ""},          {0, "65535", 0, "65535"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(transferred(row.dataType, row.stored, row.decimals).toStdString(), row.transferred)
            << "type " << row.dataType << ", stored " << row.stored << ", decimals " << row.decimals;
}

TEST_F(RangeLoader, DoesNotLetADamagedCountOfDecimalsFillTheMemoryOrOverflow)
{
    for (const int dataType : {1, 6}) {
        for (const int decimals : {MAX_DECIMALS - 1, int(MAX_DECIMALS), 2147483646, 2147483647}) {
            const QString text = transferred(dataType, "1.5", decimals);
            EXPECT_EQ(text.size(), 2 + qMin<int>(decimals, MAX_DECIMALS)) << decimals << " decimals, type " << dataType;
            EXPECT_TRUE(text.startsWith(QLatin1String("1.50"))) << text.toStdString();
        }
    }
}

TEST_F(RangeLoader, ReadsAFloatInSinglePrecision)
{
    EXPECT_EQ(transferred(6, "16777217", 1).toStdString(), "16777216.0");
    EXPECT_EQ(transferred(1, "16777217", 1).toStdString(), "16777217.0");
}

TEST_F(RangeLoader, DoesNotNoticeTitlesAndValuesThatCannotBeRead)
{
    open(recipeGroup(2, 2));
    OutsideSqlite(recipeFilePath()).exec("DROP TABLE lang_0; DROP TABLE data_0;");
    SqliteErrors expected;
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 2, info, &comm), 1);
    ASSERT_EQ(info.columnName.size(), 2);
    EXPECT_EQ(info.columnName.at(1), emptyTitles());
    EXPECT_TRUE(info.items.at(0).values.isEmpty());
}

TEST_F(RangeLoader, SurvivesMoreValuesThanItems)
{
    open(recipeGroup(3, 2));
    OutsideSqlite(recipeFilePath()).exec("DELETE FROM addr_0 WHERE row_index > 0;");
    EXPECT_EQ(loadRecipe2Struct_start_end(0, 0, 2, info, &comm), 1);
    ASSERT_EQ(info.items.size(), 1);
    EXPECT_EQ(info.items.at(0).values.size(), 2);
}

} // namespace
