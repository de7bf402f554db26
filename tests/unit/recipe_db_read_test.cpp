// RecipeDB: each read, what it asks and where it puts the answer. The files are written from outside.
#include "storage_fixture.h"

#include <limits>

namespace {

using testing::ElementsAre;

typedef std::vector<std::string> Texts;

std::vector<Texts> plainRows(const QList<QList<QString> >& rows)
{
    std::vector<Texts> result;
    for (const QList<QString>& row : rows)
        result.push_back(plain(row));
    return result;
}

std::vector<Texts> plainTitles(const QVector<QVector<QString> >& all)
{
    std::vector<Texts> result;
    for (const QVector<QString>& title : all)
        result.push_back(plain(title));
    return result;
}

/// Title `what` in eight languages: "what0" to "what7".
Texts title(const std::string& what)
{
    Texts result;
    for (int language = 0; language < 8; ++language)
        result.push_back(what + std::to_string(language));
    return result;
}

const Texts NONE(8);

class RecipeDBRead : public StorageTest
{
protected:
    /// Group 3: items 0 to 3 (numbers with 0, 2 and 1 decimals, then a text), recipes 0 to 2, all titles.
    void SetUp() override
    {
        inter = &openRecorded();
        OutsideSqlite file(path);
        file.exec("INSERT INTO recipe_config VALUES(3, 4, 3, 5, 'dev,1,2,LW,four,5');");
        file.exec("CREATE TABLE addr_3 (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,datatype INTEGER NOT "
                  "NULL,totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,min REAL NOT NULL,max REAL NOT "
                  "NULL);");
        file.exec(
            "INSERT INTO addr_3 VALUES(0, 'a,10,20,LW,x,30', 2, 5, 0, -1.5, 99.5), (1, 'b,11,21,LB,y,31', 3, 6, 2, "
            "0, 1), (2, 'too,few,fields', 6, 7, 1, 2, 3), (3, 'd,13,23,RW,z,33', 7, 8, 0, 4, 5);");
        file.exec("CREATE TABLE data_3 (column INTEGER NOT NULL, 'D0' REAL, 'D1' REAL, 'D2' REAL, 'D3' TEXT);");
        file.exec(
            "INSERT INTO data_3 VALUES(0, 12.7, 3, 1.24, 'ab.cd'), (1, '1', '2.345', '', 'it''s'), (2, -0.5, 7, 9, "
            "'');");
        file.exec("CREATE TABLE lang_3 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' TEXT, 'L1' TEXT, 'L2' "
                  "TEXT, 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT );");
        addTitle(file, 0, 0, "G");
        for (int i = 0; i < 4; ++i)
            addTitle(file, 1, i, "I" + std::to_string(i) + ".");
        for (int c = 0; c < 3; ++c)
            addTitle(file, 2, c, "R" + std::to_string(c) + ".");
    }

    static void addTitle(OutsideSqlite& file, int type, int index, const std::string& what)
    {
        std::string sql = "INSERT INTO lang_3 VALUES(" + std::to_string(type) + ", " + std::to_string(index);
        for (const std::string& each : title(what))
            sql += ", '" + each + "'";
        file.exec(sql + ");");
    }

    void change(const std::string& sql) { OutsideSqlite(path).exec(sql); }

    RecordingInter* inter = nullptr; // belongs to db
};

// --- the configuration -------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, ReadsAConfigurationRow)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->findRecipeConfig(3, info), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM recipe_config WHERE group_index = 3;"));
    EXPECT_EQ(info.groupIndex, 3);
    EXPECT_EQ(info.items.size(), 4);
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(NONE, NONE, NONE));
    EXPECT_EQ(info.notify, 5);
    EXPECT_EQ(info.notifyAddressText(), text("dev,1,2,LW,four,5"));
}

TEST_F(RecipeDBRead, KeepsWhatTheRecordHadWithoutAConfigurationRow)
{
    recipeTableInfo_t info = recipeGroup(2, 5);
    info.groupIndex = 42;
    info.notify = 1;
    info.setNotifyAddress(text("kept,1,2,LW,four,5"));
    EXPECT_EQ(db->findRecipeConfig(4, info), 0);
    EXPECT_EQ(info.groupIndex, 42);
    EXPECT_EQ(info.items.size(), 2);
    EXPECT_EQ(info.columnName.size(), 5);
    EXPECT_EQ(info.notifyAddressText(), text("kept,1,2,LW,four,5"));
}

TEST_F(RecipeDBRead, ClearsTheAddressOfAGroupThatNotifiesNobodyAsFarAsIsWanted)
{
    change("UPDATE recipe_config SET notify = 0;");
    recipeTableInfo_t info;
    info.setNotifyAddress(text("old,1,2,LW,four,5"));
    EXPECT_EQ(db->findRecipeConfig(3, info), 0);
    EXPECT_EQ(info.notify, 0);
    EXPECT_EQ(info.notifyDevName, text(""));
    EXPECT_EQ(info.notifyRegAddr.addrPart1, -1);
    EXPECT_EQ(info.notifyRegAddr.addrPart2, -1);
    EXPECT_EQ(info.notifyRegAddr.regType[0], '\0');
    EXPECT_EQ(info.notifyRegAddr.addrPart5, 5); // stays
    EXPECT_EQ(info.notifyAddrPart4, text("four"));
}

TEST_F(RecipeDBRead, LeavesTheNotificationAddressWhereItsTextDoesNotHaveSixFields)
{
    for (const char* address : {"'a,1,2,LW,x'", "'a,1,2,LW,x,3,9'", "''", "NULL"}) {
        change(std::string("UPDATE recipe_config SET notify_addr = ") + address + ";");
        recipeTableInfo_t info;
        info.setNotifyAddress(text("old,1,2,LW,four,5"));
        EXPECT_EQ(db->findRecipeConfig(3, info), 0);
        EXPECT_EQ(info.notifyAddressText(), text("old,1,2,LW,four,5")) << address;
    }
}

TEST_F(RecipeDBRead, BringsTheTitlesOfRecipesToEightAndKeepsThoseThatAreThere)
{
    recipeTableInfo_t info;
    info.columnName.resize(1);
    info.columnName[0] = QVector<QString>(3, text("kept"));
    EXPECT_EQ(db->findRecipeConfig(3, info), 0);
    EXPECT_THAT(plainTitles(info.columnName),
                ElementsAre(Texts({"kept", "kept", "kept", "", "", "", "", ""}), NONE, NONE));
}

TEST_F(RecipeDBRead, AppendsASummaryOfEachGroup)
{
    change("INSERT INTO recipe_config VALUES(1, 6, 7, 0, 'dev,1,2,LW,four,5'), (9, 8, 9, -1, 'a,b');");
    inter->calls.clear();
    QList<recipeGroupsInfo_t> list;
    list.append(recipeGroupsInfo_t());
    EXPECT_EQ(db->findAllRecipeConfigs(list), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT group_index, row, column, notify, notify_addr FROM recipe_config;"));
    ASSERT_EQ(list.size(), 4); // one was there before

    EXPECT_EQ(list.at(1).groupIndex, 1);
    EXPECT_EQ(list.at(1).row, 6);
    EXPECT_EQ(list.at(1).column, 7);
    EXPECT_EQ(list.at(1).notify, 0);
    EXPECT_EQ(list.at(1).notifyDevName, QString()); // not read while notify is 0
    EXPECT_EQ(list.at(1).notifyRegAddr.addrPart1, -1);

    EXPECT_EQ(list.at(2).groupIndex, 3);
    EXPECT_EQ(list.at(2).notify, 5);
    EXPECT_EQ(list.at(2).notifyDevName, text("dev"));
    EXPECT_EQ(list.at(2).notifyRegAddr.addrPart1, 1);
    EXPECT_EQ(list.at(2).notifyRegAddr.addrPart2, 2);
    EXPECT_EQ(list.at(2).notifyRegAddr.regTypeText(), text("LW"));
    EXPECT_EQ(list.at(2).notifyRegAddr.addrPart5, 5);

    EXPECT_EQ(list.at(3).groupIndex, 9);
    EXPECT_EQ(list.at(3).notifyDevName, QString()); // no six fields
    EXPECT_EQ(list.at(3).notifyRegAddr.addrPart5, -1);
}

// --- items -------------------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, ReadsAllItems)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->findTable_Addr_All(3, info), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT count(*) FROM addr_3;", "SELECT * FROM addr_3;"));
    ASSERT_EQ(info.items.size(), 4);
    const recipeItemInfo_t& item = info.items.at(1);
    EXPECT_EQ(item.rowIndex, 1);
    EXPECT_EQ(item.addressText(), text("b,11,21,LB,y,31"));
    EXPECT_EQ(item.dataType, 3);
    EXPECT_EQ(item.totalDigits, 6);
    EXPECT_EQ(item.decimalDigits, 2);
    EXPECT_EQ(info.items.at(0).min, -1.5);
    EXPECT_EQ(info.items.at(0).max, 99.5);
    EXPECT_EQ(info.items.at(2).addressText(), recipeItemInfo_t().addressText()); // three fields: as it was
    EXPECT_EQ(info.items.at(2).dataType, 6);
}

TEST_F(RecipeDBRead, PlacesItemsByOrderOfArrivalAndNotByTheirIndex)
{
    change("UPDATE addr_3 SET row_index = 50 WHERE row_index = 1;");
    recipeTableInfo_t info;
    EXPECT_EQ(db->findTable_Addr_All(3, info), 0);
    EXPECT_EQ(info.items.at(1).rowIndex, 2);
    EXPECT_EQ(info.items.at(3).rowIndex, 50);
}

TEST_F(RecipeDBRead, ReadsNoItemsWithoutATable)
{
    recipeTableInfo_t info = recipeGroup(2, 2);
    SqliteErrors errors;
    EXPECT_EQ(db->findTable_Addr_All(9, info), 1);
    EXPECT_EQ(info.items.size(), 2);
}

TEST_F(RecipeDBRead, ReadsARangeOfItems)
{
    QVector<recipeItemInfo_t> items;
    EXPECT_EQ(db->findTable_Addr_Partial(3, 1, 2, items), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM addr_3 WHERE row_index >= '1' AND row_index < '3';"));
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items.at(0).rowIndex, 1);
    EXPECT_EQ(items.at(1).rowIndex, 2);
}

TEST_F(RecipeDBRead, LeavesEntriesBeyondTheLastItemAsTheyWere)
{
    QVector<recipeItemInfo_t> items;
    EXPECT_EQ(db->findTable_Addr_Partial(3, 3, 3, items), 0);
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items.at(0).rowIndex, 3);
    EXPECT_EQ(items.at(1).rowIndex, -1);
    EXPECT_EQ(items.at(2).rowIndex, -1);
}

TEST_F(RecipeDBRead, TakesNegativeAndHugeRangesOfItemsForEmptyOnes)
{
    QVector<recipeItemInfo_t> items(5);
    EXPECT_EQ(db->findTable_Addr_Partial(3, 0, -4, items), 0);
    EXPECT_EQ(items.size(), 0);
    EXPECT_EQ(db->findTable_Addr_Partial(3, std::numeric_limits<int>::max(), 2, items), 0);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items.at(0).rowIndex, -1);
}

TEST_F(RecipeDBRead, ReadsOneItem)
{
    recipeItemInfo_t item;
    EXPECT_EQ(db->findTable_Addr_Index(3, 3, item), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM addr_3 WHERE row_index = '3';"));
    EXPECT_EQ(item.rowIndex, 3);
    EXPECT_EQ(item.addressText(), text("d,13,23,RW,z,33"));
    EXPECT_EQ(item.dataType, 7);
    EXPECT_EQ(item.max, 5.0);
}

TEST_F(RecipeDBRead, LeavesAnItemThatIsNotThereUnchanged)
{
    recipeItemInfo_t item = recipeItem(77, 1);
    EXPECT_EQ(db->findTable_Addr_Index(3, 4, item), 0);
    EXPECT_EQ(item.rowIndex, 77);
    EXPECT_EQ(item.max, 65535.0);
}

TEST_F(RecipeDBRead, LeavesAnAddressOfFiveOrSevenFieldsAsItWas)
{
    for (const char* address : {"a,1,2,LW,x", "a,1,2,LW,x,3,9"}) {
        change(std::string("UPDATE addr_3 SET address = '") + address + "' WHERE row_index = 1;");
        recipeItemInfo_t item = recipeItem(5, 0);
        EXPECT_EQ(db->findTable_Addr_Index(3, 1, item), 0);
        EXPECT_EQ(item.addressText(), recipeItem(5, 0).addressText());
        EXPECT_EQ(item.rowIndex, 1);
    }
}

// --- recipes -----------------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, ReadsAllValues)
{
    recipeTableInfo_t info;
    info.items.resize(4);
    EXPECT_EQ(db->findTable_Data_All(3, info), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT count(*) FROM data_3;", "SELECT * FROM data_3;"));
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12.7", "1.0", "-0.5"));
    EXPECT_THAT(plain(info.items.at(1).values), ElementsAre("3.0", "2.345", "7.0"));
    EXPECT_THAT(plain(info.items.at(2).values), ElementsAre("1.24", "", "9.0"));
    EXPECT_THAT(plain(info.items.at(3).values), ElementsAre("ab.cd", "it's", ""));
}

TEST_F(RecipeDBRead, PlacesRecipesByOrderOfArrivalAndNotByTheirColumn)
{
    change("UPDATE data_3 SET column = 8 WHERE column = 0;");
    recipeTableInfo_t info;
    info.items.resize(1);
    EXPECT_EQ(db->findTable_Data_All(3, info), 0);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12.7", "1.0", "-0.5"));
}

TEST_F(RecipeDBRead, GivesItemsWithoutAColumnEmptyValues)
{
    recipeTableInfo_t info;
    info.items.resize(6);
    EXPECT_EQ(db->findTable_Data_All(3, info), 0);
    EXPECT_THAT(plain(info.items.at(3).values), ElementsAre("ab.cd", "it's", ""));
    EXPECT_THAT(plain(info.items.at(4).values), ElementsAre("", "", ""));
    EXPECT_THAT(plain(info.items.at(5).values), ElementsAre("", "", ""));
}

TEST_F(RecipeDBRead, ReplacesTheValuesThatItemsHad)
{
    recipeTableInfo_t info = recipeGroup(1, 9);
    EXPECT_EQ(db->findTable_Data_All(3, info), 0);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12.7", "1.0", "-0.5"));
}

TEST_F(RecipeDBRead, AppendsTheValuesOfOneRecipe)
{
    QList<QString> values;
    values.append(text("kept"));
    EXPECT_EQ(db->findTable_Data_Index(3, 1, values), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM data_3 WHERE column = '1';"));
    EXPECT_THAT(plain(values), ElementsAre("kept", "1.0", "2.345", "", "it's"));
    EXPECT_EQ(db->findTable_Data_Index(3, 9, values), 0);
    EXPECT_EQ(values.size(), 5);
}

TEST_F(RecipeDBRead, ReadsTheFirstOfTwoRecipesOfOneColumn)
{
    change("INSERT INTO data_3 VALUES(1, 5, 5, 5, 'five');");
    QList<QString> values;
    EXPECT_EQ(db->findTable_Data_Index(3, 1, values), 0);
    EXPECT_THAT(plain(values), ElementsAre("1.0", "2.345", "", "it's"));
}

TEST_F(RecipeDBRead, AppendsTheValuesOfARangeOfRecipes)
{
    QList<QList<QString> > rows;
    rows.append(QList<QString>());
    EXPECT_EQ(db->findTable_Data_Start_Length(3, 1, 5, rows), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM data_3 WHERE column >= '1' AND column < '6';"));
    EXPECT_THAT(plainRows(rows),
                ElementsAre(Texts(), Texts({"1.0", "2.345", "", "it's"}), Texts({"-0.5", "7.0", "9.0", ""})));
}

TEST_F(RecipeDBRead, ReadsARangeOfItemsOfARangeOfRecipes)
{
    QList<QList<QString> > rows;
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 2, 1, 2, rows), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT * FROM data_3 WHERE column >= '0' AND column < '2';"));
    EXPECT_THAT(plainRows(rows), ElementsAre(Texts({"3.0", "1.24"}), Texts({"2.345", ""})));
}

TEST_F(RecipeDBRead, ReadsOnlyTheItemsThatExistOfARangeOfItems)
{
    QList<QList<QString> > rows;
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 1, 2, 100, rows), 0);
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 1, 4, 10, rows), 0);
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 1, std::numeric_limits<int>::max(), 10, rows), 0);
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 1, 2, 0, rows), 0);
    EXPECT_EQ(db->findTable_Data_Partial(3, 0, 1, -7, 3, rows), 0);
    EXPECT_THAT(plainRows(rows), ElementsAre(Texts({"1.24", "ab.cd"}), Texts(), Texts(), Texts(), Texts()));
}

// --- titles ------------------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, ReadsATitle)
{
    QVector<QString> texts;
    EXPECT_EQ(db->findTable_Language(3, DB_LANGUAGE_ROW, 2, texts), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_3 WHERE type = '1' AND "
                                          "strIndex = '2';"));
    EXPECT_EQ(plain(texts), title("I2."));
}

TEST_F(RecipeDBRead, ReadsTheLastOfSeveralRowsOfATitle)
{
    OutsideSqlite file(path);
    addTitle(file, 1, 2, "second");
    addTitle(file, 1, 2, "third");
    QVector<QString> texts;
    EXPECT_EQ(db->findTable_Language(3, DB_LANGUAGE_ROW, 2, texts), 0);
    EXPECT_EQ(plain(texts), title("third"));
}

TEST_F(RecipeDBRead, BringsATitleThatIsNotThereToEightTextsAndKeepsThem)
{
    QVector<QString> texts(2, text("kept"));
    EXPECT_EQ(db->findTable_Language(3, DB_LANGUAGE_ROW, 9, texts), 0);
    EXPECT_EQ(plain(texts), Texts({"kept", "kept", "", "", "", "", "", ""}));
}

TEST_F(RecipeDBRead, BringsATitleToEightTextsBeforeItAsks)
{
    QVector<QString> texts;
    SqliteErrors errors;
    EXPECT_EQ(db->findTable_Language(9, DB_LANGUAGE_ROW, 0, texts), 1);
    EXPECT_EQ(texts.size(), 8);
}

TEST_F(RecipeDBRead, ReadsAllTitlesOfATypeByOrderOfArrival)
{
    change("UPDATE lang_3 SET strIndex = 70 WHERE type = 2 AND strIndex = 0;");
    QVector<QVector<QString> > all(2);
    EXPECT_EQ(db->findTable_Language_All(3, DB_LANGUAGE_COLUMN, all), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_3 WHERE type = '2';"));
    EXPECT_THAT(plainTitles(all), ElementsAre(title("R0."), title("R1."))); // the third has no place
}

TEST_F(RecipeDBRead, LeavesEntriesWithoutATitleAsTheyWere)
{
    QVector<QVector<QString> > all(5);
    EXPECT_EQ(db->findTable_Language_All(3, DB_LANGUAGE_COLUMN, all), 0);
    EXPECT_THAT(plainTitles(all), ElementsAre(title("R0."), title("R1."), title("R2."), Texts(), Texts()));
}

TEST_F(RecipeDBRead, ReadsNoTitlesIntoAnEmptyVector)
{
    QVector<QVector<QString> > all;
    EXPECT_EQ(db->findTable_Language_All(3, DB_LANGUAGE_COLUMN, all), 0);
    EXPECT_TRUE(all.isEmpty());
}

TEST_F(RecipeDBRead, ReadsTheTitlesOfTheItemsThatArePresent)
{
    QVector<recipeItemInfo_t> items(2);
    items[0].rowName.clear();
    EXPECT_EQ(db->findTable_Language_AllRow(3, items), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_3 WHERE type = '1';"));
    EXPECT_EQ(plain(items.at(0).rowName), title("I0."));
    EXPECT_EQ(plain(items.at(1).rowName), title("I1."));
}

TEST_F(RecipeDBRead, ReadsARangeOfTitlesByOrderOfArrival)
{
    QVector<QVector<QString> > range;
    EXPECT_EQ(db->findTable_Language_Partial(3, DB_LANGUAGE_ROW, 2, 4, range), 0);
    EXPECT_THAT(inter->calls, ElementsAre("SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_3 WHERE type = '1' AND "
                                          "strIndex >= '2' AND strIndex < '6';"));
    EXPECT_THAT(plainTitles(range), ElementsAre(title("I2."), title("I3."), Texts(), Texts()));
    EXPECT_EQ(db->findTable_Language_Partial(3, DB_LANGUAGE_ROW, 2, -1, range), 0);
    EXPECT_TRUE(range.isEmpty());
}

// --- failures of single reads ------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, AnswersOneToEachReadWhoseQueryFails)
{
    SqliteErrors errors;
    recipeTableInfo_t info;
    info.items.resize(2);
    QVector<recipeItemInfo_t> items;
    recipeItemInfo_t item;
    QList<QString> values;
    QList<QList<QString> > rows;
    QVector<QVector<QString> > several(1);
    QList<recipeGroupsInfo_t> list;
    EXPECT_EQ(db->findTable_Addr_Partial(9, 0, 1, items), 1);
    EXPECT_EQ(db->findTable_Addr_Index(9, 0, item), 1);
    EXPECT_EQ(db->findTable_Data_All(9, info), 1);
    EXPECT_EQ(db->findTable_Data_Index(9, 0, values), 1);
    EXPECT_EQ(db->findTable_Data_Start_Length(9, 0, 1, rows), 1);
    EXPECT_EQ(db->findTable_Data_Partial(9, 0, 1, 0, 1, rows), 1);
    EXPECT_EQ(db->findTable_Language_All(9, DB_LANGUAGE_ROW, several), 1);
    EXPECT_EQ(db->findTable_Language_AllRow(9, info.items), 1);
    EXPECT_EQ(db->findTable_Language_Partial(9, DB_LANGUAGE_ROW, 0, 1, several), 1);
    EXPECT_EQ(db->loadTable_Group(3, info), 0);
    change("DROP TABLE recipe_config;");
    EXPECT_EQ(db->findRecipeConfig(3, info), 1);
    EXPECT_EQ(db->findAllRecipeConfigs(list), 1);
}

TEST_F(RecipeDBRead, LeavesNoQueryOpen)
{
    recipeTableInfo_t info;
    recipeItemInfo_t item;
    QList<QString> values;
    QVector<QVector<QString> > none;
    ASSERT_EQ(db->loadTable_Group(3, info), 0);
    ASSERT_EQ(db->findTable_Addr_Index(3, 0, item), 0);
    ASSERT_EQ(db->findTable_Data_Index(3, 0, values), 0);
    ASSERT_EQ(db->findTable_Language_All(3, DB_LANGUAGE_ROW, none), 0);
    ASSERT_EQ(db->getTable_Addr_Row(3), 4);
    EXPECT_EQ(SqliteInterProbe::statement(*inter), nullptr);
    change("UPDATE data_3 SET D0 = 1;"); // no lock is left
}

// --- a whole group -----------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, LoadsAWholeGroupAsItIsStored)
{
    recipeTableInfo_t info = recipeGroup(7, 7);
    EXPECT_EQ(db->loadTable_Group(3, info), 0);
    EXPECT_EQ(info.groupIndex, 3);
    EXPECT_EQ(plain(info.groupName), title("G"));
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(title("R0."), title("R1."), title("R2.")));
    ASSERT_EQ(info.items.size(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(plain(info.items.at(i).rowName), title("I" + std::to_string(i) + "."));
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12.7", "1.0", "-0.5")); // not normalised
    EXPECT_THAT(plain(info.items.at(3).values), ElementsAre("ab.cd", "it's", ""));
    EXPECT_EQ(info.items.at(0).max, 99.5);
    EXPECT_EQ(info.notifyAddressText(), text("dev,1,2,LW,four,5"));
}

TEST_F(RecipeDBRead, WritesBackWhatItLoadedByteForByte)
{
    recipeTableInfo_t info;
    ASSERT_EQ(db->loadTable_Group(3, info), 0);
    ASSERT_EQ(db->createTable_Group(3, info), 0);
    recipeTableInfo_t again;
    ASSERT_EQ(db->loadTable_Group(3, again), 0);
    ASSERT_EQ(again.items.size(), info.items.size());
    for (int i = 0; i < info.items.size(); ++i) {
        EXPECT_EQ(again.items.at(i).values, info.items.at(i).values);
        EXPECT_EQ(again.items.at(i).rowName, info.items.at(i).rowName);
        EXPECT_EQ(again.items.at(i).addressText(), info.items.at(i).addressText());
    }
    EXPECT_EQ(again.columnName, info.columnName);
    EXPECT_EQ(again.groupName, info.groupName);
    EXPECT_EQ(again.notifyAddressText(), info.notifyAddressText());
}

TEST_F(RecipeDBRead, LoadsAGroupWithoutTitles)
{
    change("DROP TABLE lang_3;");
    SqliteErrors errors;
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group(3, info), 0);
    EXPECT_EQ(plain(info.groupName), NONE);
    EXPECT_EQ(plain(info.items.at(0).rowName), NONE);
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(NONE, NONE, NONE));
}

/// A group that lacks one of its tables.
class GroupWithout : public RecipeDBRead, public testing::WithParamInterface<const char*>
{
protected:
    static void expectCleared(const recipeTableInfo_t& info)
    {
        EXPECT_EQ(info.groupIndex, -1);
        EXPECT_EQ(plain(info.groupName), NONE);
        EXPECT_TRUE(info.columnName.isEmpty());
        EXPECT_TRUE(info.items.isEmpty());
        EXPECT_EQ(info.notify, 0);
        EXPECT_EQ(info.notifyDevName, QString());
    }
};

TEST_P(GroupWithout, IsNotLoadedByHalf)
{
    change(std::string("DROP TABLE ") + GetParam() + ";");
    SqliteErrors errors;
    recipeTableInfo_t info = recipeGroup(2, 2);
    EXPECT_EQ(db->loadTable_Group(3, info), 1);
    expectCleared(info);
    info = recipeGroup(2, 2);
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 2, 0, 2, info), 1);
    expectCleared(info);
}

INSTANTIATE_TEST_SUITE_P(Tables, GroupWithout, testing::Values("recipe_config", "addr_3", "data_3"));

TEST_F(RecipeDBRead, LoadsTheTablesOfAGroupWithoutAConfigurationRow)
{
    change("DELETE FROM recipe_config;");
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group(3, info), 0); // no row is no failure
    EXPECT_EQ(info.groupIndex, 3);
    EXPECT_EQ(info.items.size(), 4);
    EXPECT_TRUE(info.columnName.isEmpty());
}

// --- a range of a group ------------------------------------------------------------------------------------------

TEST_F(RecipeDBRead, LoadsARangeWithItsValuesInTheDecimalsOfTheirItems)
{
    recipeTableInfo_t info = recipeGroup(7, 7);
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 3, 0, 4, info), 0);
    EXPECT_EQ(info.groupIndex, 3);
    EXPECT_EQ(plain(info.groupName), title("G"));
    ASSERT_EQ(info.items.size(), 4);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12", "1", "-0"));
    EXPECT_THAT(plain(info.items.at(1).values), ElementsAre("3.00", "2.35", "7.00"));
    EXPECT_THAT(plain(info.items.at(2).values), ElementsAre("1.2", "0.0", "9.0"));
    EXPECT_THAT(plain(info.items.at(3).values), ElementsAre("ab", "it's", "")); // a text loses what follows its "."
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(title("R0."), title("R1."), title("R2.")));
    EXPECT_EQ(plain(info.items.at(3).rowName), title("I3."));
}

TEST_F(RecipeDBRead, MakesANumberOfATextItemWithDecimals)
{
    change("UPDATE addr_3 SET decimalDigits = 3 WHERE row_index = 3;");
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 3, 3, 1, info), 0);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("0.000", "0.000", "0.000"));
}

TEST_F(RecipeDBRead, ShowsAnItemWithNegativeDecimalsAsAnInteger)
{
    change("UPDATE addr_3 SET decimalDigits = -5 WHERE row_index = 0;");
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 1, 0, 1, info), 0);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("12"));
}

TEST_F(RecipeDBRead, LoadsARangeInTheMiddle)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 1, 1, 1, 2, info), 0);
    ASSERT_EQ(info.items.size(), 2);
    EXPECT_EQ(info.items.at(0).rowIndex, 1);
    EXPECT_EQ(plain(info.items.at(0).rowName), title("I1."));
    EXPECT_EQ(plain(info.items.at(1).rowName), title("I2."));
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("2.35"));
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(title("R1.")));
}

TEST_F(RecipeDBRead, LoadsARangeBeyondTheLastItemAsDefaultEntries)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 2, 50, 3, info), 0);
    ASSERT_EQ(info.items.size(), 3);
    for (const recipeItemInfo_t& item : info.items) {
        EXPECT_EQ(item.rowIndex, -1);
        EXPECT_EQ(item.max, 65535.0);
        EXPECT_THAT(plain(item.values), ElementsAre("", ""));
        EXPECT_EQ(plain(item.rowName), NONE);
    }
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(title("R0."), title("R1.")));
}

TEST_F(RecipeDBRead, LoadsARangeThatReachesPastTheEnds)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 2, 3, 3, 2, info), 0);
    ASSERT_EQ(info.items.size(), 2);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("", "", ""));
    EXPECT_THAT(plain(info.items.at(1).values), ElementsAre("", "", ""));
    EXPECT_THAT(plainTitles(info.columnName), ElementsAre(title("R2."), NONE, NONE));
}

TEST_F(RecipeDBRead, BringsValuesThatAreNotThereToTheDecimalsToo)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 2, 2, 1, 1, info), 0);
    EXPECT_THAT(plain(info.items.at(0).values), ElementsAre("7.00", "0.00"));
}

TEST_F(RecipeDBRead, LoadsRangesOfAnySizeWithoutHarm)
{
    const int top = std::numeric_limits<int>::max();
    const int ranges[][4] = {{0, 0, 0, 0},     {0, -1, 0, -1},     {-5, 3, -5, 3},
                             {top, 2, top, 2}, {-top, 2, -top, 2}, {top - 1, 3, top - 1, 3}};
    for (const int(&range)[4] : ranges) {
        recipeTableInfo_t info;
        EXPECT_EQ(db->loadTable_Group_Partial(3, range[0], range[1], range[2], range[3], info), 0);
        EXPECT_EQ(info.items.size(), std::max(0, range[3]));
        EXPECT_EQ(info.columnName.size(), std::max(0, range[1]));
    }
}

TEST_F(RecipeDBRead, DoesNotLetADamagedCountOfDecimalsFillTheMemory)
{
    change("UPDATE addr_3 SET decimalDigits = 2147483647;");
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 3, 0, 4, info), 0);
    EXPECT_EQ(info.items.at(0).values.at(0).size(), 3 + 100);
}

TEST_F(RecipeDBRead, AsksOnceForTheTitlesOfARange)
{
    recipeTableInfo_t info;
    EXPECT_EQ(db->loadTable_Group_Partial(3, 0, 3, 0, 4, info), 0);
    EXPECT_LE(inter->calls.size(), 5u); // configuration, items, values, the look for an index, the titles
}

} // namespace
