// generate: the same group for the same size and seed, plausible, and quick at any size.
#include "program.h"

#include "description.h"
#include "generator.h"

namespace {

class Generate : public ProgramTest
{
};

} // namespace

TEST_F(Generate, WritesTheSameFileEveryTime)
{
    ASSERT_EQ(run({"generate", "--items", "40", "--recipes", "12", "a.db3"}).code, 0);
    ASSERT_EQ(run({"generate", "--items", "40", "--recipes", "12", "b.db3"}).code, 0);
    ASSERT_EQ(run({"generate", "--items", "40", "--recipes", "12", "--seed", "2", "c.db3"}).code, 0);
    EXPECT_EQ(read("a.db3"), read("b.db3"));
    EXPECT_NE(dump("a.db3"), dump("c.db3"));
}

TEST_F(Generate, WritesTheValuesThatAreKnown)
{
    ASSERT_EQ(run({"generate", "--items", "9", "--recipes", "3", "a.db3"}).code, 0);
    EXPECT_EQ(query("a.db3", "SELECT * FROM recipe_config"), std::vector<std::string>{"0|9|3|1|Controller,1,0,M,10,0"});
    EXPECT_EQ(query("a.db3", "SELECT * FROM data_0"),
              (std::vector<std::string>{"0|226.8|8.1|1826.0|2226.0|2167.623|1.0|44.3|453008.0|AL-44578",
                                        "1|202.7|8.26|1573.0|2217.0|2917.282|1.0|34.3|556402.0|XE-81397",
                                        "2|229.5|7.7|1449.0|2024.0|2311.038|0.0|40.8|529755.0|FE-08982"}));
    EXPECT_EQ(query("a.db3", "SELECT L0, L6 FROM lang_0 WHERE type = 2"),
              (std::vector<std::string>{"Recipe 1|配方 1", "Recipe 2|配方 2", "Recipe 3|配方 3"}));
}

TEST_F(Generate, WritesWhatCreateMakesOfItsDescription)
{
    ASSERT_EQ(run({"generate", "--items", "250", "--recipes", "120", "a.db3"}).code, 0);
    const Outcome description = run({"generate", "--items", "250", "--recipes", "120", "--description", "-"});
    ASSERT_EQ(description.code, 0);
    const Outcome created = run({"create", "-", "b.db3"}, description.out);
    EXPECT_EQ(created.code, 0) << created.err;
    EXPECT_EQ(dump("a.db3"), dump("b.db3"));
}

TEST_F(Generate, HasMixedTypesDigitsAndLimits)
{
    ASSERT_EQ(run({"generate", "--items", "50", "--recipes", "20", "a.db3"}).code, 0);
    EXPECT_EQ(query("a.db3", "SELECT count(DISTINCT datatype) >= 6, count(DISTINCT decimalDigits) >= 3, "
                             "count(DISTINCT max) >= 6 FROM addr_0"),
              std::vector<std::string>{"1|1|1"});
    EXPECT_EQ(run({"info", "a.db3"}).code, 0);
}

TEST(Generator, GivesAValueThatDoesNotDependOnTheSizeOfTheGroup)
{
    const Generator small(10, 10, 5);
    const Generator large(1900, 2000, 5);
    for (int item = 0; item < 10; ++item)
        EXPECT_EQ(small.value(item, 7), large.value(item, 7));
}

TEST_F(Generate, WritesTheLargestGroupInReasonableTime)
{
    const Outcome result = run({"generate", "--items", "1900", "--recipes", "2000", "xl.db3"});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err, "recipe-file: wrote group 0 (1900 items, 2000 recipes, seed 1) to xl.db3\n");
    EXPECT_EQ(query("xl.db3", "SELECT count(*), sum(column) FROM data_0"), std::vector<std::string>{"2000|1999000"});
    EXPECT_EQ(query("xl.db3", "SELECT D1899 FROM data_0 WHERE column = 1999"), std::vector<std::string>{"214.4"});
}

TEST_F(Generate, RefusesSizesThatNoFileHolds)
{
    EXPECT_EQ(run({"generate", "--items", "2000", "--recipes", "1", "a.db3"}).code, 2);
    EXPECT_EQ(run({"generate", "--items", "1", "--recipes", "0", "a.db3"}).code, 2);
    EXPECT_EQ(run({"generate", "--items", "1", "a.db3"}).code, 2);
    EXPECT_TRUE(files().empty());
}
