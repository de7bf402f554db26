// export, import, diff: nothing is lost on the way out and back, nothing is written unseen.
#include "program.h"

#include <iostream>
#include <sstream>

namespace {

// Values that a careless way through CSV would change.
const char TRICKY[] = R"json({"groups": [{"index": 2, "names": "Tricky",
  "items": [{"names": ["Level, \"upper\"", "Füllstand", "Niveau", "Nivel", "Livello", "Уровень", "液位", "液面"],
             "address": "PLC,0,0,D,1,0", "dataType": 6, "totalDigits": 6, "decimalDigits": 2, "min": -100, "max": 100},
            {"names": "Code", "address": "PLC,0,0,D,2,0", "dataType": "text", "totalDigits": 20},
            {"names": "Count", "address": "PLC,0,0,D,3,0", "min": 0, "max": 500}],
  "recipes": [{"names": "A", "values": [-1.5, "007", 7]},
              {"names": ["=B", "ß", "é", "ñ", "ò", "ж", "中", "日"], "values": [0, "=SUM(A1)", 0]},
              {"names": "A", "values": [99.99, "say \"hi\", it's\r\n 2 lines ", 499]},
              {"names": "D", "values": [3, "", 12]},
              {"names": "E", "values": [3, "-1.5", 12]},
              {"names": "F", "values": [3, "1,5", 12]}]}]})json";

class Sheet : public ProgramTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"create", "-", "r.db3"}, TRICKY).code, 0); }

    /// The exported sheet with one text replaced.
    std::string edited(const std::string& from, const std::string& to, const Words& options = {})
    {
        Words words = {"export", "r.db3"};
        words.insert(words.end(), options.begin(), options.end());
        std::string text = run(words).out;
        const std::size_t place = text.find(from);
        EXPECT_NE(place, std::string::npos) << from << " in " << text;
        return place == std::string::npos ? text : text.replace(place, from.size(), to);
    }
};

} // namespace

TEST_F(Sheet, HasItemsInRowsAndRecipesInColumns)
{
    const Outcome result = run({"export", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "Item,Name,\"A\",\"=B\",\"A\",\"D\",\"E\",\"F\"\r\n"
              ",Recipe,0,1,2,3,4,5\r\n"
              "0,\"Level, \"\"upper\"\"\",-1.50,0.00,99.99,3.00,3.00,3.00\r\n"
              "1,\"Code\",\"007\",\"=SUM(A1)\",\"say \"\"hi\"\", it's\r\n 2 lines \",\"\",\"-1.5\",\"1,5\"\r\n"
              "2,\"Count\",7,0,499,12,12,12\r\n");
}

TEST_F(Sheet, CanBeTransposedWithAnotherDelimiterDecimalMarkAndLanguage)
{
    const Outcome result =
        run({"export", "r.db3", "--transposed", "--delimiter", ";", "--decimal", ",", "--language", "6"});
    EXPECT_EQ(result.out.substr(0, result.out.find("say")), "Item;;0;1;2\r\n"
                                                            "Name;Recipe;\"Уровень\";\"Code\";\"Count\"\r\n"
                                                            "\"A\";0;-1,50;\"007\";7\r\n"
                                                            "\"ж\";1;0,00;\"=SUM(A1)\";0\r\n"
                                                            "\"A\";2;99,99;\"");
}

TEST_F(Sheet, ComesBackUnchangedInEveryForm)
{
    const std::string before = dump("r.db3");
    const std::vector<Words> forms = {{},
                                      {"--delimiter", ";", "--decimal", ","},
                                      {"--decimal", ","},
                                      {"--delimiter", "tab"},
                                      {"--transposed-export"},
                                      {"--language", "8"}};
    for (Words form : forms) {
        const bool transposed = form == Words{"--transposed-export"};
        Words out = {"export", "r.db3"};
        Words in = {"import", "r.db3", "-"};
        if (transposed)
            out.push_back("--transposed"); // an import sees by itself which way a sheet lies
        else {
            out.insert(out.end(), form.begin(), form.end());
            in.insert(in.end(), form.begin(), form.end());
        }
        const Outcome result = run(in, run(out).out);
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.err,
                  "recipe-file: Nothing changes: all values are already as in the input.\n"
                  "recipe-file: group 2 \"Tricky\": 0 values changed, 18 unchanged, 0 titles changed, 0 new "
                  "recipes, 0 unknown items.\n");
    }
    EXPECT_EQ(dump("r.db3"), before);
    EXPECT_EQ(files(), Words{"r.db3"}) << "a backup without a change";
}

TEST_F(Sheet, KeepsAMissingValueApartFromAnEmptyText)
{
    sql("r.db3", "UPDATE data_2 SET D1 = NULL, D0 = NULL WHERE column = 0;");
    const Outcome out = run({"export", "r.db3"});
    EXPECT_NE(out.out.find("0,\"Level, \"\"upper\"\"\",,0.00"), std::string::npos) << out.out;
    EXPECT_NE(out.out.find("1,\"Code\",,\"=SUM(A1)\""), std::string::npos) << out.out;
    EXPECT_EQ(run({"import", "r.db3", "-"}, out.out).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT typeof(D0), typeof(D1) FROM data_2 WHERE column IN (0, 3)"),
              (Words{"null|null", "real|text"}));
}

TEST_F(Sheet, AsJsonMakesTheSameFileAgain)
{
    ASSERT_EQ(run({"export", "r.db3", "s.json"}).code, 0);
    ASSERT_EQ(run({"create", "s.json", "again.db3"}).code, 0);
    EXPECT_EQ(dump("again.db3"), dump("r.db3"));
    EXPECT_EQ(run({"import", "r.db3", "s.json"}).code, 0);
    EXPECT_EQ(run({"diff", "r.db3", "again.db3"}).code, 0);
}

TEST_F(Sheet, IsTheSameInEveryLocale)
{
    const std::string plain = run({"export", "r.db3"}).out;
    const std::string shown = run({"show", "r.db3"}).out;
    const std::string json = run({"export", "--json", "r.db3"}).out;
    const std::string changed = edited("-1.50,0.00", "-2.5,0.00");
    for (const std::string locale : {"de_DE", "fr_FR", "tr_TR", "C"}) {
        SCOPED_TRACE(locale);
        Words environment = {"LC_ALL=" + locale, "LANG=" + locale};
        if (locale != "C") {
            const std::string name = locale + ".UTF-8";
            ASSERT_EQ(runShell("mkdir -p locales && localedef -i " + locale + " -f UTF-8 ./locales/" + name).code, 0)
                << "locales cannot be made here (Debian package locales)";
            environment = {"LOCPATH=" + path("locales").toStdString(), "LC_ALL=" + name, "LANG=" + name};
            ASSERT_EQ(runShell("LOCPATH=locales LC_ALL=" + name + " bash -c 'printf %.1f 1,5'").out, "1,5");
        }
        EXPECT_EQ(runWith(environment, {"export", "r.db3"}).out, plain);
        EXPECT_EQ(runWith(environment, {"show", "r.db3"}).out, shown);
        EXPECT_EQ(runWith(environment, {"export", "--json", "r.db3"}).out, json);
        EXPECT_EQ(runWith(environment, {"diff", "r.db3", "-"}, plain).code, 0);
        EXPECT_EQ(runWith(environment, {"import", "r.db3", "-"}, changed).code, 0);
        EXPECT_EQ(query("r.db3", "SELECT D0 FROM data_2 WHERE column = 0"), Words{"-2.5"});
        EXPECT_EQ(runWith(environment, {"set", "r.db3", "0", "0", "--", "-1.5"}).code, 0);
        EXPECT_EQ(run({"export", "r.db3"}).out, plain);
    }
}

TEST_F(Sheet, NeverTakesThePlaceOfARecipeFile)
{
    const std::string before = dump("r.db3");
    const std::string refused =
        "recipe-file: r.db3 is a recipe file; a sheet does not take its place. Give another name.\n";
    EXPECT_EQ(run({"export", "--force", "r.db3", "r.db3"}).err, refused);
    EXPECT_EQ(run({"export", "--force", "r.db3", "./r.db3", "--format", "json"}).code, 2);
    EXPECT_EQ(run({"titles", "export", "--force", "r.db3", "r.db3"}).err, refused);
    EXPECT_EQ(run({"generate", "--description", "--force", "--items", "2", "--recipes", "2", "r.db3"}).err, refused);
    EXPECT_EQ(dump("r.db3"), before);
}

TEST_F(Sheet, MayHaveEmptiedRowsAndColumnsAtItsEnds)
{
    for (const Words& options : {Words{}, Words{"--transposed"}}) {
        Words words = {"export", "r.db3"};
        words.insert(words.end(), options.begin(), options.end());
        std::string text;
        std::istringstream lines(run(words).out);
        for (std::string line; std::getline(lines, line);) {
            const bool ends = line.back() == '\r'; // but inside of a text
            text += ends && line.find("say") == std::string::npos ? line.substr(0, line.size() - 1) + ",,\"\"\r\n"
                                                                  : line + '\n';
        }
        text += ",,,,\r\n\"\",\"\"\r\n";
        const Outcome outcome = run({"diff", "r.db3", "-"}, text);
        EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err << text;
        EXPECT_NE(outcome.err.find("18 unchanged, 0 titles changed, 0 new recipes, 0 unknown items.\n"),
                  std::string::npos)
            << outcome.err;
    }
}

TEST_F(Sheet, WithoutValuesIsToldSo)
{
    const Outcome outcome = run({"import", "r.db3", "-"}, "Item,Name,A\r\n,Recipe,0\r\n");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')),
              "recipe-file: Nothing changes: the input says nothing about this group.");
}

TEST_F(Sheet, IsShownBeforeItIsWritten)
{
    std::string text = edited("-1.50,0.00", "-2.5,0.00");
    text.replace(text.find("\"D\""), 3, "\"Delta\"");
    const std::string before = dump("r.db3");
    const std::string counts = "recipe-file: group 2 \"Tricky\": 1 value changed, 17 unchanged, 1 title changed, 0 new "
                               "recipes, 0 unknown items.";
    const Outcome dry = run({"import", "--dry-run", "r.db3", "-"}, text);
    EXPECT_EQ(dry.code, 0);
    EXPECT_EQ(dry.err, counts + " Nothing was written.\n");
    EXPECT_NE(dry.out.find("-2.50"), std::string::npos) << dry.out;
    EXPECT_NE(dry.out.find("Delta"), std::string::npos) << dry.out;
    const Outcome diff = run({"diff", "r.db3", "-"}, text);
    EXPECT_EQ(diff.code, 1);
    EXPECT_EQ(diff.out, dry.out);
    EXPECT_EQ(diff.err, counts + '\n');
    EXPECT_EQ(dump("r.db3"), before);
    EXPECT_EQ(files(), Words{"r.db3"});

    EXPECT_EQ(run({"import", "r.db3", "-"}, text).code, 0);
    EXPECT_EQ(run({"diff", "r.db3", "-"}, text).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT D0 FROM data_2 WHERE column = 0"), Words{"-2.5"});
}

TEST_F(Sheet, ComparesNumbersAsTheCellShowsThem)
{
    EXPECT_EQ(run({"diff", "r.db3", "-"}, edited("99.99,3.00", "9.999e1,3")).code, 0);
    sql("r.db3", "UPDATE data_2 SET D0 = 3.0000001 WHERE column = 3;");
    EXPECT_EQ(run({"diff", "r.db3", "-"}, edited("3.00", "3")).code, 0);
}

TEST_F(Sheet, AddsARecipeFromAColumnWithoutANumber)
{
    std::string text;
    std::istringstream lines("Item,Name,New\r\n,Recipe,\r\n0,,1.25\r\n1,,x\r\n2,,5\r\n");
    for (std::string line; std::getline(lines, line);)
        text += line + '\n';
    const Outcome result = run({"import", "r.db3", "-"}, text);
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_NE(result.err.find("1 new recipe, 0 unknown items, 6 recipes not mentioned and left alone."),
              std::string::npos)
        << result.err;
    EXPECT_EQ(query("r.db3", "SELECT * FROM data_2 WHERE column = 6"), Words{"6|1.25|x|5.0"});
    EXPECT_EQ(query("r.db3", "SELECT * FROM lang_2 WHERE type = 2 AND strIndex = 6"),
              Words{"2|6|New|New|New|New|New|New|New|New"});
    EXPECT_EQ(query("r.db3", "SELECT column FROM recipe_config"), Words{"7"});
    EXPECT_EQ(run({"check", "r.db3"}).code, 0);
}

TEST_F(Sheet, WithErrorsIsRefusedWholeWithEveryPlace)
{
    const std::string before = dump("r.db3");
    std::string text = edited("-1.50,0.00,99.99", "warm,0.001,\"1,5\"");
    text.replace(text.find("7,0,499"), 7, ",0.5,12345678");
    const Outcome result = run({"import", "r.db3", "-"}, text);
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        "recipe-file: -, row 3, column 3 (C): recipe 0 \"A\", item 0 \"Level, \"upper\"\": the value is \"warm\", "
        "expected a number.\n"
        "recipe-file: -, row 3, column 4 (D): recipe 1 \"=B\", item 0 \"Level, \"upper\"\": the value is "
        "\"0.001\", expected at most 2 decimals.\n"
        "recipe-file: -, row 3, column 5 (E): recipe 2 \"A\", item 0 \"Level, \"upper\"\": the value is \"1,5\", "
        "expected a number with \".\" as its decimal "
        "mark (see --decimal).\n"
        "recipe-file: -, row 5, column 3 (C): recipe 0 \"A\", item 2 \"Count\": the value is missing, expected a "
        "number.\n"
        "recipe-file: -, row 5, column 4 (D): recipe 1 \"=B\", item 2 \"Count\": the value is \"0.5\", expected a "
        "whole number.\n"
        "recipe-file: -, row 5, column 5 (E): recipe 2 \"A\", item 2 \"Count\": the value is \"12345678\", "
        "expected at most 5 digits.\n"
        "recipe-file: - has 6 errors; nothing was changed. Correct them, then try again.\n");
    const Outcome json = run({"--json", "import", "r.db3", "-"}, text);
    EXPECT_EQ(json.code, 2);
    EXPECT_EQ(json.err, "");
    EXPECT_NE(json.out.find("\"file\": \"-\",\n      \"row\": 3,\n      \"column\": 4\n"), std::string::npos)
        << json.out;
    EXPECT_EQ(dump("r.db3"), before);
    EXPECT_EQ(run({"diff", "r.db3", "-"}, text).code, 2);
    EXPECT_EQ(files(), Words{"r.db3"});
}

TEST_F(Sheet, OutsideItsLimitsIsAWarningUnlessStrict)
{
    const std::string text = edited("-1.50,0.00", "-1.50,100.01");
    const std::string sentence = "-, row 3, column 4 (D): recipe 1 \"=B\", item 0 \"Level, \"upper\"\": the value is "
                                 "\"100.01\", expected -100.00 to 100.00.\n";
    const Outcome strict = run({"import", "--strict", "r.db3", "-"}, text);
    EXPECT_EQ(strict.code, 2);
    EXPECT_EQ(strict.err.rfind("recipe-file: " + sentence, 0), 0U) << strict.err;
    const Outcome lenient = run({"import", "r.db3", "-"}, text);
    EXPECT_EQ(lenient.code, 0);
    EXPECT_EQ(lenient.err.rfind("recipe-file: warning: " + sentence, 0), 0U) << lenient.err;
    EXPECT_EQ(query("r.db3", "SELECT D0 FROM data_2 WHERE column = 1"), Words{"100.01"});
}

TEST_F(Sheet, WithRowsThatSlippedIsRefused)
{
    const Outcome result = run({"import", "r.db3", "-"}, edited("2,\"Count\"", "1,\"Count\""));
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("-, row 5: the name of item 1 is \"Count\", expected \"Code\""), std::string::npos)
        << result.err;
}

TEST_F(Sheet, NamesItemsThatTheFileDoesNotHave)
{
    const Outcome result = run({"import", "--dry-run", "r.db3", "-"}, edited("2,\"Count\"", ",\"Cuont\""));
    EXPECT_EQ(result.code, 0);
    EXPECT_NE(result.err.find("unknown item: row 5: \"Cuont\", did you mean \"Count\"?"), std::string::npos)
        << result.err;
    EXPECT_NE(result.err.find("1 unknown item."), std::string::npos) << result.err;
    EXPECT_EQ(run({"diff", "r.db3", "-"}, edited("2,\"Count\"", ",\"Cuont\"")).code, 1);
}

TEST_F(Sheet, ThatIsNoneIsToldSo)
{
    EXPECT_EQ(run({"import", "r.db3", "-"}, "a,b\r\n").err,
              "recipe-file: - does not start with the fields Item and Name, as an export does.\n");
    EXPECT_EQ(
        run({"import", "r.db3", "-"}, "Item;Name;A\r\n").err,
        "recipe-file: - has \";\" between its fields; give --delimiter \";\", and --decimal , where numbers have a "
        "comma.\n");
    EXPECT_EQ(run({"import", "r.db3", "-"}, "\xEF\xBB\xBF\"Item\"\tName\tA\r\n").err,
              "recipe-file: - has tabs between its fields; give --delimiter tab, and --decimal , where numbers have a "
              "comma.\n");
    EXPECT_EQ(run({"titles", "import", "--delimiter", "tab", "r.db3", "-"}, "Kind,Number,A\r\n").err,
              "recipe-file: - has \",\" between its fields; give --delimiter , or none.\n");
    EXPECT_EQ(run({"import", "r.db3", "-"}, "Item,Name,\xFC\r\n").err,
              "recipe-file: - is not in UTF-8; save it as UTF-8 first.\n");
    EXPECT_EQ(run({"import", "r.db3", "-"}, "Item,Name,\"A\r\n").code, 2);
    EXPECT_EQ(run({"import", "r.db3", "r.db3"}).err,
              "recipe-file: r.db3 is a recipe file; export it first, or compare it with diff.\n");
    EXPECT_EQ(run({"diff", "r.db3", "none.csv"}).code, 2);
}

TEST_F(Sheet, MayStartWithAByteOrderMarkAndEndItsLinesWithLineFeeds)
{
    std::string text = "\xEF\xBB\xBFItem,Name,A\n,Recipe,0\n2,Count,8\n";
    EXPECT_EQ(run({"import", "r.db3", "-"}, text).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT D2 FROM data_2 WHERE column = 0"), Words{"8.0"});
}

TEST_F(Sheet, WithoutNumbersGoesByNamesThatMustBeClear)
{
    EXPECT_EQ(run({"import", "r.db3", "-"}, "Item,Name,D\n2,,9\n").code, 0);
    EXPECT_EQ(query("r.db3", "SELECT D2 FROM data_2 WHERE column = 3"), Words{"9.0"});
    const Outcome result = run({"import", "r.db3", "-"}, "Item,Name,A\n2,,9\n");
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("-, column 3 (C): the recipe is \"A\", expected a name that one recipe has"),
              std::string::npos)
        << result.err;
}

TEST_F(Sheet, ChangesAreTheSameWithJsonOutput)
{
    const Outcome result = run({"import", "--json", "r.db3", "-"}, edited("-1.50,0.00", "-2.5,0.00"));
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("\"changed\": 1"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\"old\": \"-1.50\""), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\"new\": \"-2.50\""), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\"backup\": \"r.db3."), std::string::npos) << result.out;
}

TEST_F(Sheet, TellsRowsAndColumnsAsTheyLieWhenTransposed)
{
    std::string text = run({"export", "--transposed", "r.db3"}).out;
    text.replace(text.find("0.00"), 4, "cold");
    const Outcome result = run({"import", "r.db3", "-"}, text);
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err.find("recipe-file: -, row 4, column 3 (C): recipe 1"), 0U) << result.err;
}

TEST_F(Sheet, RemarksANewRecipeWhoseNameIsNearToAnother)
{
    const Outcome result = run({"import", "--dry-run", "r.db3", "-"}, "Item,Name,Lonngest\n0,,1\n1,,x\n2,,5\n");
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err.find("note: "), std::string::npos) << result.err;
    ASSERT_EQ(run({"rename", "r.db3", "3", "Longest"}).code, 0);
    const Outcome near = run({"import", "--dry-run", "r.db3", "-"}, "Item,Name,Lonngest\n0,,1\n1,,x\n2,,5\n");
    EXPECT_EQ(near.err.find("recipe-file: note: -, column 3 (C): \"Lonngest\" is a new recipe, did you mean "
                            "\"Longest\"?\n"),
              0U)
        << near.err;
}

TEST_F(Sheet, SaysWhyNothingChanges)
{
    const std::string same = run({"export", "r.db3"}).out;
    for (const Words& command : {Words{"import", "r.db3", "-"}, Words{"diff", "r.db3", "-"}}) {
        EXPECT_EQ(
            run(command, same).err.find("recipe-file: Nothing changes: all values are already as in the input.\n"), 0U);
        EXPECT_NE(run(command, "Item,Name,D\n,Recipe,3\n9,x,1\n").err.find("Nothing changes: no item of the input"),
                  std::string::npos);
    }
    EXPECT_EQ(files(), Words{"r.db3"}) << "no backup of what did not change";
}

TEST_F(Sheet, IsJsonOnStandardOutputWithTheJsonOption)
{
    const Outcome result = run({"export", "--json", "r.db3"});
    EXPECT_EQ(result.out, run({"export", "--format", "json", "r.db3"}).out);
    EXPECT_EQ(result.out, run({"--json", "export", "r.db3"}).out);
    EXPECT_EQ(run({"export", "--json", "--format", "csv", "r.db3"}).out, run({"export", "r.db3"}).out);
}

namespace {

const char TWO_GROUPS[] = R"({"groups": [
  {"index": 2, "items": [], "recipes": []},
  {"index": 5, "names": ["Oven", "Ofen"], "notifyAddress": "PLC,1,0,M,10,0",
   "items": [{"names": "Heat", "address": "PLC,1,0,D,100,0", "dataType": 6, "totalDigits": 4, "decimalDigits": 1, "max": 300},
             {"names": "Code", "address": "PLC,1,0,D,102,0", "dataType": "text", "totalDigits": 6}],
   "recipes": [{"names": "A", "values": [21.5, "007"]}, {"names": "B", "values": [3, "=1"]}]}]})";

/// The second of the two alone.
std::string oneGroup()
{
    std::string text = TWO_GROUPS;
    const std::size_t first = text.find("{\"index\": 2");
    return text.erase(first, text.find("{\"index\": 5") - first);
}

} // namespace

TEST_F(Sheet, AsJsonBringsAGroupThatTheFileDoesNotHave)
{
    write("one.json", oneGroup());
    const std::string before = dump("r.db3");
    const Outcome diff = run({"diff", "r.db3", "one.json"});
    EXPECT_EQ(diff.code, 1);
    EXPECT_EQ(diff.out, "group 5 \"Oven\": only in one.json\n");
    const Outcome dry = run({"import", "--dry-run", "r.db3", "one.json"});
    EXPECT_EQ(dry.code, 0);
    EXPECT_EQ(dry.err, "recipe-file: new group 5 \"Oven\" (2 items, 2 recipes). Nothing was written.\n");
    EXPECT_EQ(dump("r.db3"), before);

    const Outcome result = run({"import", "r.db3", "one.json"});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(
        result.err.find("recipe-file: new group 5 \"Oven\" (2 items, 2 recipes).\nrecipe-file: The file as it was"), 0U)
        << result.err;
    ASSERT_EQ(run({"create", "one.json", "alone.db3"}).code, 0);
    for (const char* table : {"addr_5", "lang_5", "data_5"})
        EXPECT_EQ(query("r.db3", std::string("SELECT rowid, * FROM ") + table),
                  query("alone.db3", std::string("SELECT rowid, * FROM ") + table));
    EXPECT_EQ(query("r.db3", "SELECT * FROM recipe_config WHERE group_index = 5"),
              query("alone.db3", "SELECT * FROM recipe_config"));
    EXPECT_EQ(query("r.db3", "SELECT sql FROM sqlite_master WHERE name LIKE '%\\_5' ESCAPE '\\' ORDER BY name"),
              query("alone.db3", "SELECT sql FROM sqlite_master WHERE name LIKE '%\\_5' ESCAPE '\\' ORDER BY name"));
    EXPECT_EQ(run({"check", "r.db3"}).code, 0);
    EXPECT_EQ(run({"diff", "r.db3", "one.json"}).code, 0);
    EXPECT_EQ(run({"import", "r.db3", "one.json", "--group", "Ofen"}).err.find("recipe-file: Nothing changes"), 0U);
}

TEST_F(Sheet, AsJsonOfSeveralGroupsAsksWhichIsMeant)
{
    write("two.json", TWO_GROUPS);
    write("others.json", std::string(TWO_GROUPS).replace(std::string(TWO_GROUPS).find("2"), 1, "4"));
    EXPECT_EQ(run({"import", "r.db3", "others.json"}).err,
              "recipe-file: others.json has several groups (4, 5); give one with --group.\n");
    EXPECT_EQ(run({"import", "r.db3", "two.json", "--group", "5"}).code, 2) << "the other group is wrong";
    write("one.json", oneGroup());
    EXPECT_EQ(run({"import", "none.db3", "one.json"}).err,
              "recipe-file: There is no file none.db3; recipe-file create one.json none.db3 makes one.\n");
    EXPECT_EQ(run({"import", "r.db3", "one.json", "--group", "9"}).err,
              "recipe-file: There is no group \"9\" in r.db3 (groups: 2).\n");
    EXPECT_EQ(files(), (Words{"one.json", "others.json", "r.db3", "two.json"}));
}

TEST_F(Sheet, AsATableIsWhatShowShows)
{
    sql("r.db3", "UPDATE data_2 SET D0 = NULL WHERE column = 2;");
    for (const char* language : {"1", "5"}) {
        const std::string table = run({"export", "--format", "table", "--language", language, "r.db3"}).out;
        EXPECT_EQ(table, run({"show", "--language", language, "r.db3"}).out);
        EXPECT_NE(table.find("(missing)"), std::string::npos);
    }
    ASSERT_EQ(run({"create", bakery(), "b.db3"}).code, 0);
    EXPECT_EQ(run({"export", "--format", "table", "--language", "8", "b.db3"}).out,
              run({"show", "--language", "8", "b.db3"}).out);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && !defined(__arm__) // nor with qemu
// Less than a byte for each value more: what grows is titles.
TEST_F(Sheet, IsExportedOneRowAtATime)
{
    const int items = 1900;
    const int few = 500;
    const int many = 2000;
    for (const int recipes : {few, many})
        ASSERT_EQ(run({"generate", "--items", std::to_string(items), "--recipes", std::to_string(recipes),
                       std::to_string(recipes) + ".db3"})
                      .code,
                  0);
    const auto peakKib = [&](int recipes, const std::string& options) {
        const Outcome outcome = runShell("/usr/bin/time -f %M -o peak " + program().toStdString() + " export --force "
                                         + options + ' ' + std::to_string(recipes) + ".db3 out 2>/dev/null");
        EXPECT_EQ(outcome.code, 0);
        return std::stol(read("peak"));
    };
    for (const char* options : {"--format csv", "--format csv --transposed", "--format json", "--format table"}) {
        const long least = peakKib(few, options);
        const long most = peakKib(many, options);
        std::cout << "export " << options << ": peak " << least << " KiB with " << few << " recipes, " << most
                  << " KiB with " << many << '\n';
        EXPECT_LT((most - least) * 1024, long{items} * (many - few)) << options;
    }
}
#endif

// Recipe 1 was deleted at the panel, and a sheet of the day before would have put its values into the next one.
TEST_F(Sheet, OlderThanADeletedRecipeIsRemarked)
{
    for (const char* name : {"old.csv", "old.json"}) {
        ASSERT_EQ(run({"export", "r.db3", name}).code, 0);
        ASSERT_EQ(run({"diff", "r.db3", name}).err.find("note:"), std::string::npos);
    }
    ASSERT_EQ(run({"delete", "r.db3", "1"}).code, 0);
    std::string text = read("old.csv");
    text.replace(text.find(",5\r\n"), 4, ",\r\n"); // the sheet's last recipe as a new one: its number is gone
    write("old.csv", text);
    const Outcome result = run({"import", "--dry-run", "r.db3", "old.csv"});
    EXPECT_NE(result.err.find("note: old.csv, column 6 (F): recipe 3 \"E\" gets the name of recipe 2 \"D\"; if recipes "
                              "were added or deleted since the export, export again."),
              std::string::npos)
        << result.err;
    EXPECT_NE(run({"diff", "r.db3", "old.json"}).err.find("recipe 3 \"E\" gets the name of recipe 2 \"D\""),
              std::string::npos);
}

TEST_F(Sheet, OfTitlesMayHaveEmptyRowsButNoRowTwice)
{
    const std::string titles = run({"titles", "export", "r.db3"}).out;
    EXPECT_EQ(run({"titles", "import", "r.db3", "-"}, titles + ",,,,\r\n").err, "recipe-file: 0 titles changed.\n");
    const Outcome twice = run({"titles", "import", "r.db3", "-"}, titles + "recipe,3,Other\r\n");
    EXPECT_EQ(twice.code, 2);
    EXPECT_NE(twice.err.find("the row's owner is \"recipe 3\" a second time, expected each one once."),
              std::string::npos)
        << twice.err;
}

TEST_F(Sheet, OfTitlesIsJsonWhereThatIsAskedFor)
{
    const std::string out = run({"titles", "export", "r.db3", "--json"}).out;
    EXPECT_EQ(out.compare(0, 2, "{\n"), 0) << out;
    EXPECT_NE(out.find("\"kind\": \"item\""), std::string::npos) << out;
    EXPECT_NE(out.find("\"Füllstand\""), std::string::npos) << out;
}

TEST_F(Sheet, BehindALinkIsReplacedAndTheLinkStays)
{
    write("old.csv", "old");
    ASSERT_EQ(runShell("ln -s old.csv link.csv; ln -s nowhere lost.csv").code, 0);
    ASSERT_EQ(run({"export", "r.db3", "link.csv", "--force"}).code, 0);
    EXPECT_EQ(runShell("readlink link.csv").out, "old.csv\n");
    EXPECT_EQ(read("old.csv"), run({"export", "r.db3"}).out);
    const Outcome lost = run({"export", "r.db3", "lost.csv"});
    EXPECT_EQ(lost.code, 2);
    EXPECT_EQ(lost.err, "recipe-file: lost.csv is a link to a file that does not exist.\n");
}
