// check: a corpus of damaged files, each fault under a name and told with its place; good files are clean.
#include "program.h"

#include <algorithm>

namespace {

/// What is done to the bakery, and what check must say of it.
struct Damage
{
    const char* name;
    const char* statements;
    const char* kind;
    const char* place; ///< and the sentence's start
    bool fault;        ///< else a warning
};

const std::vector<Damage> CORPUS = {
    {"ConfigColumnsAreRenamed", "ALTER TABLE recipe_config RENAME COLUMN row TO rows", "config-columns",
     "The table recipe_config does not have the columns", true},
    {"NoGroups", "DELETE FROM recipe_config", "stray-table", "The table addr_0 belongs to a group", true},
    {"ItemCountIsAbsurd", "UPDATE recipe_config SET row = 2000000000", "item-count",
     "group 0 \"Bakery line\": recipe_config gives 2000000000 items.", true},
    {"RecipeCountIsNegative", "UPDATE recipe_config SET column = -1", "recipe-count",
     "group 0 \"Bakery line\": recipe_config gives -1 recipes.", true},
    {"CountIsText", "UPDATE recipe_config SET row = 'many'", "item-count",
     "group 0 \"Bakery line\": recipe_config gives 0 items.", true},
    {"NotifyAddressIsShort", "UPDATE recipe_config SET notify_addr = 'a,b'", "address",
     "group 0 \"Bakery line\": Its notification address \"a,b\"", true},
    {"NotifyIsOffWithAnAddress", "UPDATE recipe_config SET notify = 0", "notify-unused",
     "group 0 \"Bakery line\": There is a notification address", false},
    {"ItemTableIsMissing", "DROP TABLE addr_0", "missing-table",
     "group 0 \"Bakery line\": The table addr_0 is missing.", true},
    {"DataTableIsMissing", "DROP TABLE data_0", "missing-table",
     "group 0 \"Bakery line\": The table data_0 is missing.", true},
    // Was read all the same, and its rows never ended.
    {"DataTableIsAnEndlessView",
     "DROP TABLE data_0; CREATE VIEW data_0 AS WITH RECURSIVE r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) "
     "SELECT x AS column FROM r",
     "missing-table", "group 0 \"Bakery line\": The table data_0 is missing.", true},
    {"TitleTableIsMissing", "DROP TABLE lang_0", "missing-table", "group 0: The table lang_0 is missing.", true},
    {"TablesOfNoGroup", "CREATE TABLE data_7 (column INTEGER)", "stray-table",
     "The table data_7 belongs to a group that recipe_config does not list.", true},
    {"ItemTableHasOtherColumns", "ALTER TABLE addr_0 RENAME COLUMN address TO addr", "table-columns",
     "group 0 \"Bakery line\": The table addr_0 does not have the columns", true},
    {"ItemIsGone", "DELETE FROM addr_0 WHERE row_index = 3", "item-index",
     "group 0 \"Bakery line\", item 4 \"Yeast kg\": Its number is 4 in the place of 3.", true},
    {"AddressHasFiveFields", "UPDATE addr_0 SET address = 'a,1,2,D,5' WHERE row_index = 3", "address",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its address \"a,1,2,D,5\"", true},
    {"AddressHasAQuote", "UPDATE addr_0 SET address = 'a''b,1,2,D,5,0' WHERE row_index = 3", "address-quote",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its address holds a single quote", true},
    {"RegisterTypeIsLong",
     "UPDATE addr_0 SET address = 'a,1,2,ddddddddddddddddddddddddddddddddd,5,0' WHERE row_index = 3", "register-type",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": The register type", true},
    {"ItemsHaveOneAddress",
     "UPDATE addr_0 SET address = (SELECT address FROM addr_0 WHERE row_index = 3) WHERE row_index = 5",
     "shared-register",
     "group 0 \"Bakery line\", item 5 \"Kneading slow s\": It shares the register \"D 106\" of \"Bakery controller\" "
     "with "
     "item 3 \"Salt kg\"",
     false},
    {"ItemReachesIntoTheNext", "UPDATE addr_0 SET datatype = 3 WHERE row_index = 3", "shared-register",
     "group 0 \"Bakery line\", item 4 \"Yeast kg\": It shares the register \"D 107\" of \"Bakery controller\" with "
     "item 3 "
     "\"Salt kg\"",
     false},
    {"TextReachesIntoAnItemBefore",
     "UPDATE addr_0 SET address = replace(address, ',D,108,', ',D,121,') WHERE row_index = 5", "shared-register",
     "group 0 \"Bakery line\", item 12 \"Product code\": It shares the register \"D 121\" of \"Bakery controller\" "
     "with "
     "item 5 \"Kneading slow s\"",
     false},
    {"NotificationLiesInAnItem", "UPDATE recipe_config SET notify_addr = 'Bakery controller,1,0,D,117,0'",
     "shared-register",
     "group 0 \"Bakery line\": Its notification shares the register \"D 117\" of \"Bakery controller\" with item 12 "
     "\"Product code\"",
     false},
    {"ItemsHaveOneNameForTheirRegister",
     "UPDATE addr_0 SET address = 'Bakery controller,1,0,DB,W10,0' WHERE row_index IN (3, 5)", "shared-register",
     "group 0 \"Bakery line\", item 5 \"Kneading slow s\": It shares the register \"DB W10\" of \"Bakery controller\" "
     "with "
     "item 3 \"Salt kg\"",
     false},
    {"DataTypeIsText", "UPDATE addr_0 SET datatype = 'float' WHERE row_index = 3", "data-type",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its data type is \"float\".", true},
    {"DataTypeIsUnknown", "UPDATE addr_0 SET datatype = 99 WHERE row_index = 3", "unknown-type",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its data type is 99, not 0 to 7", false},
    {"LimitsAreCrossed", "UPDATE addr_0 SET min = 30 WHERE row_index = 3", "limits-crossed",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its min 30 is above its max 20", true},
    {"LimitIsText", "UPDATE addr_0 SET max = 'high' WHERE row_index = 3", "limit",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its limits are no numbers.", true},
    {"DigitsAreZero", "UPDATE addr_0 SET totalDigits = 0 WHERE row_index = 3", "digits",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": It has 0 digits.", true},
    {"DecimalsAreAbsurd", "UPDATE addr_0 SET decimalDigits = 1000000 WHERE row_index = 3", "decimals",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": It has 1000000 decimals of 4 digits.", false},
    {"TextHasDecimals", "UPDATE addr_0 SET decimalDigits = 2 WHERE row_index = 12", "text-decimals",
     "group 0 \"Bakery line\", item 12 \"Product code\": It is a text with decimals", true},
    {"ColumnHasTheOtherAffinity", "UPDATE addr_0 SET datatype = 7 WHERE row_index = 3", "affinity",
     "group 0 \"Bakery line\", item 3 \"Salt kg\": Its column is declared \"REAL\" instead of TEXT", true},
    {"ColumnIsGone", "ALTER TABLE data_0 DROP COLUMN D12", "columns-disagree",
     "group 0 \"Bakery line\": data_0 has 12 value columns for 13 items.", true},
    {"ColumnIsRenamed", "ALTER TABLE data_0 RENAME COLUMN D5 TO E5", "value-column",
     "group 0 \"Bakery line\": data_0 has a column \"E5\" in the place of D5.", true},
    {"RecipeIsDoubled", "UPDATE data_0 SET column = 2 WHERE column = 3", "doubled-recipe",
     "group 0 \"Bakery line\", recipe 2 \"Rye bread\": It stands in the file twice", true},
    {"RecipeIsMissing", "UPDATE data_0 SET column = 2 WHERE column = 3", "missing-recipe",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\": No row has its number", true},
    {"RecipeIsGone", "DELETE FROM data_0 WHERE column = 7", "recipes-disagree",
     "group 0 \"Bakery line\": data_0 holds 7 recipes, recipe_config says 8.", true},
    {"RecipesAreOutOfOrder",
     "UPDATE data_0 SET column = 99 WHERE column = 0; UPDATE data_0 SET column = 0 WHERE column = 1; "
     "UPDATE data_0 SET column = 1 WHERE column = 99",
     "recipe-order", "group 0 \"Bakery line\": The rows of data_0 do not stand in the order", true},
    {"ValueIsMissing", "UPDATE data_0 SET D3 = NULL WHERE column = 3", "missing-value",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 3 \"Salt kg\": There is no value.", true},
    {"ValueIsNoNumber", "UPDATE data_0 SET D3 = 'much' WHERE column = 3", "not-a-number",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 3 \"Salt kg\": The value \"much\" is no number.", true},
    {"ValueIsOutsideLimits", "UPDATE data_0 SET D3 = 20.01 WHERE column = 3", "outside-limits",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 3 \"Salt kg\": The value 20.01 is outside 0 to 20.", false},
    {"ValueHasHiddenDecimals", "UPDATE data_0 SET D3 = 2.505 WHERE column = 3", "hidden-decimals",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 3 \"Salt kg\": The value 2.505 has more decimals", false},
    {"TextIsTooLong", "UPDATE data_0 SET D12 = '0123456789abcd' WHERE column = 3", "text-length",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 12 \"Product code\": The text \"0123456789abcd\" is not a "
     "text "
     "of at most 6 words",
     false},
    {"TextHasAPoint", "UPDATE data_0 SET D12 = 'A.1' WHERE column = 3", "text-point",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\", item 12 \"Product code\": A sheet shows the text \"A.1\"", false},
    {"GroupTitleIsMissing", "DELETE FROM lang_0 WHERE type = 0", "missing-title", "group 0: It has no title.", true},
    {"ItemTitleIsMissing", "DELETE FROM lang_0 WHERE type = 1 AND strIndex = 3", "missing-title",
     "group 0 \"Bakery line\", item 3: It has no title.", true},
    {"RecipeTitleIsDoubled", "INSERT INTO lang_0 SELECT * FROM lang_0 WHERE type = 2 AND strIndex = 3", "doubled-title",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\": It has 2 rows of titles.", true},
    {"TitleOfNothing", "INSERT INTO lang_0(type, strIndex) VALUES (2, 8)", "stray-title",
     "group 0 \"Bakery line\": lang_0 holds a title of type 2 with number 8", true},
    {"TitleIsNull", "UPDATE lang_0 SET L5 = NULL WHERE type = 2 AND strIndex = 3", "null-title",
     "group 0 \"Bakery line\", recipe 3 \"Baguette\": Its title is missing in a language.", false},
    {"TitlesAreTooLong", "UPDATE lang_0 SET L5 = replace(hex(zeroblob(500)), '0', 'x') WHERE type = 2 AND strIndex = 3",
     "title-length", "group 0 \"Bakery line\", recipe 3 \"Baguette\": Its titles take", true},
    {"TitlesAreOutOfOrder",
     "UPDATE lang_0 SET strIndex = 99 WHERE type = 2 AND strIndex = 0; UPDATE lang_0 SET strIndex = 0 WHERE type = 2 "
     "AND "
     "strIndex = 1; UPDATE lang_0 SET strIndex = 1 WHERE strIndex = 99",
     "title-order", "group 0 \"Bakery line\": The rows of lang_0 do not stand in the order", true},
};

void PrintTo(const Damage& damage, std::ostream* out)
{
    *out << damage.name;
}

class Check : public ProgramTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"create", bakery(), "r.db3"}).code, 0); }
};

class CheckCorpus : public Check, public testing::WithParamInterface<Damage>
{
};

} // namespace

TEST_P(CheckCorpus, IsReportedWithItsPlace)
{
    const Damage& damage = GetParam();
    sql("r.db3", damage.statements);
    const std::string before = read("r.db3");
    const Outcome result = run({"check", "r.db3"});
    EXPECT_EQ(result.code, damage.fault ? 1 : 0) << result.out;
    const std::string line = std::string(damage.fault ? "fault: " : "warning: ") + damage.place;
    const std::size_t place = result.out.find(line);
    ASSERT_NE(place, std::string::npos) << line << "\nis not in\n" << result.out;
    const std::size_t end = result.out.find('\n', place);
    EXPECT_NE(result.out.substr(place, end - place).find(std::string(" [") + damage.kind + ']'), std::string::npos)
        << result.out;
    EXPECT_EQ(result.out.compare(end, 5, "\n    "), 0) << "no cure in\n" << result.out;
    EXPECT_EQ(read("r.db3"), before);
}

INSTANTIATE_TEST_SUITE_P(Damages, CheckCorpus, testing::ValuesIn(CORPUS),
                         [](const testing::TestParamInfo<Damage>& damage) { return std::string(damage.param.name); });

TEST_F(Check, FindsNothingInGoodFiles)
{
    const Outcome result = run({"check", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "recipe-file: r.db3: 0 faults, 0 warnings.\n");
    ASSERT_EQ(run({"generate", "--items", "300", "--recipes", "70", "g.db3"}).code, 0);
    EXPECT_EQ(run({"check", "g.db3"}).err, "recipe-file: g.db3: 0 faults, 0 warnings.\n");
}

TEST_F(Check, TellsOfNoSharedRegisterWhereDeviceStationOrAreaDiffer)
{
    sql("r.db3", "UPDATE addr_0 SET address = 'Bakery controller,1,0,D,106,0';"
                 "UPDATE addr_0 SET address = 'Other controller,1,0,D,106,0' WHERE row_index = 4;"
                 "UPDATE addr_0 SET address = 'Bakery controller,2,0,D,106,0' WHERE row_index = 5;"
                 "UPDATE addr_0 SET address = 'Bakery controller,1,0,R,106,0' WHERE row_index = 6;");
    const Outcome result = run({"check", "r.db3"});
    for (const char* item : {"item 4 ", "item 5 ", "item 6 "})
        EXPECT_EQ(result.out.find(item), std::string::npos) << result.out;
    EXPECT_NE(result.err.find("0 faults, 9 warnings"), std::string::npos) << result.out;
}

TEST_F(Check, DoesNotMissTitlesOfRecipesThatAnAbsurdCountPromises)
{
    for (const char* count : {"2000000000", "-5"}) {
        sql("r.db3", std::string("UPDATE recipe_config SET row = ") + count + ", column = " + count);
        const Outcome result = run({"check", "r.db3"});
        EXPECT_EQ(result.code, 1);
        EXPECT_EQ(result.out.find("-title]"), std::string::npos) << result.out.substr(0, 2000);
        EXPECT_EQ(result.err, "recipe-file: r.db3: 4 faults, 0 warnings.\n");
    }
}

TEST_F(Check, SendsNothingToATerminalThatItWouldObey)
{
    sql("r.db3",
        "UPDATE data_0 SET D3 = 'a' || char(27) || '[2J' || char(155) || char(0) || char(10) || 'b' WHERE column = 3;"
        "UPDATE lang_0 SET L0 = char(7) || 'Salt' || char(10) WHERE type = 1 AND strIndex = 3");
    const std::string out = run({"check", "r.db3"}).out;
    EXPECT_NE(out.find("item 3 \"\\x07Salt\\n\": The value \"a\\x1b[2J\\x9b"), std::string::npos) << out;
    EXPECT_EQ(out.find_first_of(std::string("\x1b\x07\0", 3)), std::string::npos);
    EXPECT_EQ(run({"list", "r.db3", "--items"}).out.find('\x07'), std::string::npos);
}

TEST_F(Check, ReportsAllDamageAtOnce)
{
    sql("r.db3", "UPDATE data_0 SET D3 = NULL WHERE column = 3; UPDATE addr_0 SET min = 30 WHERE row_index = 4; "
                 "DELETE FROM lang_0 WHERE type = 2 AND strIndex = 5;");
    const Outcome result = run({"check", "r.db3", "--json"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err, "");
    for (const char* kind : {"missing-value", "limits-crossed", "missing-title"})
        EXPECT_NE(result.out.find(std::string("\"kind\": \"") + kind + '"'), std::string::npos) << result.out;
}

TEST_F(Check, ReportsAFileWithOverwrittenPages)
{
    std::string bytes = read("r.db3");
    ASSERT_GT(bytes.size(), 12288U);
    std::fill(bytes.begin() + 4096, bytes.begin() + 12288, '\x5A');
    write("r.db3", bytes);
    const Outcome result = run({"check", "r.db3"});
    EXPECT_EQ(result.code, 1) << result.err;
    EXPECT_NE(result.out.find("[integrity]"), std::string::npos) << result.out;
}

TEST_F(Check, ReportsAFileThatWasCutOff)
{
    write("r.db3", read("r.db3").substr(0, 8192));
    const Outcome result = run({"check", "r.db3"});
    EXPECT_EQ(result.code, 1) << result.err;
    EXPECT_NE(result.out.find("[integrity]"), std::string::npos) << result.out;
}

TEST_F(Check, SaysWhatIsNoRecipeFile)
{
    write("text.db3", std::string(2000, 'x'));
    EXPECT_EQ(run({"check", "text.db3"}).code, 2);
    EXPECT_EQ(run({"check", "none.db3"}).err, "recipe-file: There is no file none.db3.\n");
}
