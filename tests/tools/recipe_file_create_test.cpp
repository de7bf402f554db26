// create: what it writes, and that it writes all or nothing.
#include "program.h"

#include "RecipeDB.h"
#include "sqlite_errors.h"

#include <QDir>

namespace {

const char SMALL[] = R"({"groups": [{"index": 3, "names": "Oven",
    "items": [{"names": ["Heat", "Hitze"], "address": {"device": "PLC", "part1": 1, "part2": 2, "regType": "D",
               "part4": "x", "part5": 5}, "dataType": 6, "totalDigits": 4, "decimalDigits": 1, "min": -5, "max": 300},
              {"address": "PLC,0,0,LW,7,0", "dataType": "text"}],
    "recipes": [{"names": "A", "values": [21.5, "it's 1"]}, {"values": ["300.0", ""]}]
}]
})";

class Create : public ProgramTest
{
};

} // namespace

TEST_F(Create, WritesTheFileThatTheDescriptionDescribes)
{
    write("d.json", SMALL);
    const Outcome result = run({"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "recipe-file: wrote group 3 \"Oven\" (2 items, 2 recipes) to r.db3\n");

    EXPECT_EQ(query("r.db3", "SELECT * FROM recipe_config"), std::vector<std::string>{"3|2|2|0|"});
    EXPECT_EQ(query("r.db3", "SELECT * FROM addr_3"),
              (std::vector<std::string>{"0|PLC,1,2,D,x,5|6|4|1|-5.0|300.0", "1|PLC,0,0,LW,7,0|7|10|0|0.0|20.0"}));
    EXPECT_EQ(query("r.db3", "SELECT *, typeof(D0), typeof(D1) FROM data_3"),
              (std::vector<std::string>{"0|21.5|it's 1|real|text", "1|300.0||real|text"}));
    EXPECT_EQ(query("r.db3", "SELECT type, strIndex, L0, L1, L7 FROM lang_3"),
              (std::vector<std::string>{"0|0|Oven|Oven|Oven", "1|0|Heat|Hitze|Heat", "1|1|Item 2|Item 2|Item 2",
                                        "2|0|A|A|A", "2|1|Recipe 2|Recipe 2|Recipe 2"}));
    EXPECT_EQ(files(), (Words{"d.json", "r.db3"}));
}

TEST_F(Create, WritesTheSchemaThatThePanelWrites)
{
    write("d.json", SMALL);
    ASSERT_EQ(run({"create", "d.json", "r.db3"}).code, 0);

    write("other.db3", "");
    RecipeDB* db = RecipeDB::getInstance();
    recipeTableInfo_t group;
    ASSERT_EQ(db->OpenRecipeFile(path("r.db3")), 0);
    ASSERT_EQ(db->loadTable_Group(3, group), 0);
    ASSERT_EQ(db->OpenRecipeFile(path("other.db3")), 0);
    ASSERT_EQ(db->createTable_RecipeConfig(), 0);
    ASSERT_EQ(db->createTable_Group(3, group), 0);
    RecipeDB::release();
    EXPECT_EQ(dump("r.db3"), dump("other.db3"));
}

TEST_F(Create, WritesTheBakeryThatShips)
{
    const Outcome result = run({"create", bakery(), "r.db3", "--json"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("\"ok\": true"), std::string::npos) << result.out;

    RecipeDB* db = RecipeDB::getInstance();
    recipeTableInfo_t group;
    ASSERT_EQ(db->OpenRecipeFile(path("r.db3")), 0);
    ASSERT_EQ(db->loadTable_Group_Partial(0, 0, 8, 0, 13, group), 0);
    RecipeDB::release();
    EXPECT_EQ(group.groupName.at(1), QString::fromUtf8("Backstraße"));
    EXPECT_EQ(group.items.at(0).values.at(2), QStringLiteral("29.5"));
    EXPECT_EQ(group.items.at(1).values.at(0), QStringLiteral("93.00"));
    EXPECT_EQ(group.items.at(12).values.at(3), QStringLiteral("007-BAG"));
    EXPECT_EQ(group.items.at(9).rowName.at(7), QString::fromUtf8("オーブン温度 °C"));
    EXPECT_EQ(group.columnName.at(7).at(5), QString::fromUtf8("Крендели"));
    EXPECT_EQ(group.notifyAddressText(), QStringLiteral("Bakery controller,1,0,M,10,0"));
}

TEST_F(Create, GivesEveryTitleOfTheBakeryInAllEightLanguages)
{
    ASSERT_EQ(run({"create", bakery(), "r.db3"}).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT count(*) FROM lang_0"), std::vector<std::string>{"22"});
    EXPECT_EQ(query("r.db3", "SELECT count(*) FROM lang_0 WHERE '' IN (L0, L1, L2, L3, L4, L5, L6, L7)"),
              std::vector<std::string>{"0"});
}

TEST_F(Create, ReadsTheDescriptionFromStandardInput)
{
    EXPECT_EQ(run({"create", "-", "r.db3"}, SMALL).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT count(*) FROM data_3"), std::vector<std::string>{"2"});
}

TEST_F(Create, RefusesAFileThatExistsAndLeavesItAsItIs)
{
    write("d.json", SMALL);
    write("r.db3", "precious");
    const Outcome result = run({"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: r.db3 exists already; give --force to replace it.\n");
    EXPECT_EQ(read("r.db3"), "precious");
}

TEST_F(Create, ReplacesAnExistingFileWhenForced)
{
    write("d.json", SMALL);
    write("r.db3", "old");
    EXPECT_EQ(run({"create", "--force", "d.json", "r.db3"}).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT count(*) FROM data_3"), std::vector<std::string>{"2"});
    EXPECT_EQ(files(), (Words{"d.json", "r.db3"}));
}

TEST_F(Create, LeavesTheOldFileWhenAForcedDescriptionIsWrong)
{
    write("d.json", "{}");
    write("r.db3", "precious");
    EXPECT_EQ(run({"create", "--force", "d.json", "r.db3"}).code, 2);
    EXPECT_EQ(read("r.db3"), "precious");
    EXPECT_EQ(files(), (Words{"d.json", "r.db3"}));
}

TEST_F(Create, RefusesToWriteBesideTheRemainsOfAnInterruptedWrite)
{
    write("d.json", SMALL);
    write("r.db3-journal", "x");
    const Outcome result = run({"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: r.db3-journal holds the remains of an interrupted write, which would end up in "
                          "the new file; move it away first.\n");
    EXPECT_FALSE(exists("r.db3"));
}

TEST_F(Create, SaysWhyAPlaceCannotBeWritten)
{
    write("d.json", SMALL);
    ASSERT_TRUE(QDir(path(".")).mkdir(QStringLiteral("folder")));
    EXPECT_EQ(run({"create", "d.json", "folder"}).err, "recipe-file: folder is a directory.\n");
    EXPECT_EQ(run({"create", "d.json", "none/r.db3"}).err, "recipe-file: There is no folder none.\n");
    EXPECT_EQ(run({"create", "d.json", "/dev/null", "--force"}).err,
              "recipe-file: /dev/null is not an ordinary file.\n");
    EXPECT_EQ(run({"create", "none.json", "r.db3"}).err,
              "recipe-file: Cannot read none.json: No such file or directory.\n");
    EXPECT_EQ(run({"create", "folder", "r.db3"}).err, "recipe-file: folder is a directory.\n");
}

TEST_F(Create, WarnsOfATextThatASheetCutsAtItsPoint)
{
    write("d.json", R"({"groups": [{"items": [{"address": "P,0,0,D,1,0", "dataType": "text"}],
                        "recipes": [{"names": "A", "values": ["1.2"]}]}]})");
    const Outcome result = run({"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "recipe-file: warning: groups[0].recipes[0].values[0]: group 0 \"Group 0\", recipe 0 \"A\": "
                          "a sheet shows the text \"1.2\" only up to its first \".\".\n"
                          "recipe-file: wrote group 0 \"Group 0\" (1 item, 1 recipe) to r.db3\n");
}

namespace {

/// A group whose recipe has titles of `bytes` bytes in all.
std::string withTitles(int bytes)
{
    return R"({"groups": [{"items": [{"address": "P,0,0,D,1,0"}], "recipes": [{"names": [")" + std::string(bytes, 'x')
           + R"(", "", "", "", "", "", "", ""], "values": [1]}]}]})";
}

} // namespace

TEST_F(Create, TakesTitlesUpToTheLastByteThatAPanelCanRewrite)
{
    const int room = 879; // what UPDATE lang_0 SET ... WHERE type = '2' AND strIndex = '9999'; leaves of 1023 bytes
    write("d.json", withTitles(room));
    ASSERT_EQ(run({"create", "d.json", "r.db3"}).code, 0);

    RecipeDB* db = RecipeDB::getInstance();
    ASSERT_EQ(db->OpenRecipeFile(path("r.db3")), 0);
    QVector<QString> titles = emptyTitles();
    titles[7] = QString(room, QLatin1Char('y'));
    EXPECT_EQ(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 9999, titles), 0);
    titles[6] = QStringLiteral("y");
    const SqliteErrors expected;
    EXPECT_NE(db->updateTable_Language_Index(0, DB_LANGUAGE_COLUMN, 9999, titles), 0) << "there is more room";
    RecipeDB::release();
}

TEST_F(Create, RefusesTitlesThatAPanelCouldNotRewrite)
{
    write("d.json", withTitles(880));
    EXPECT_EQ(run({"create", "d.json", "s.db3"}).err,
              "recipe-file: groups[0].recipes[0].names: group 0 \"Group 0\", recipe 0: names is 880 bytes in all, "
              "expected at most 879 for the eight titles together (UTF-8, single quotes counted twice).\n"
              "recipe-file: d.json has 1 error; nothing was written.\n");
}

TEST_F(Create, SaysThatTheDiskIsFullAndLeavesNothing)
{
    write("d.json", SMALL);
    // A file-size limit stands in for the full disk.
    const Outcome result = runLimited(4, {"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("recipe-file: Cannot write r.db3: "), std::string::npos) << result.err;
    EXPECT_EQ(files(), Words{"d.json"});
}

TEST_F(Create, NeverReplacesItsOwnDescription)
{
    write("d.json", "{}");
    EXPECT_EQ(run({"create", "--force", "d.json", "./d.json"}).err,
              "recipe-file: d.json and ./d.json are the same file.\n");
    EXPECT_EQ(read("d.json"), "{}");
}
