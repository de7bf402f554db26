// info: a plain table, JSON, and one clear sentence for what is no recipe file.
#include "program.h"

#include <QDir>

#include <fstream>
#include <iterator>
#include <sstream>

#include <sqlite3.h>

namespace {

const char SMALL[] = R"({"groups": [{"index": 3, "names": ["Oven", "Ofen", "", "", "", "", "炉"],
    "notifyAddress": "PLC,0,0,M,9,0",
    "items": [{"names": ["Heat", "Hitze", "", "", "", "", "热"], "address": "PLC,1,2,D,x,5", "dataType": 6,
               "totalDigits": 4, "decimalDigits": 1, "min": -5, "max": 300},
              {"names": "Code", "address": "PLC,0,0,LW,7,0", "dataType": "text"}],
    "recipes": [{"names": "A", "values": [21.5, "x"]}, {"values": [300, ""]}]
}]
})";

class Info : public ProgramTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"create", "-", "r.db3"}, SMALL).code, 0); }
};

} // namespace

TEST_F(Info, ShowsGroupsAndItemsAsPlainTables)
{
    const Outcome result = run({"info", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "r.db3: 1 group\n"
                          "\n"
                          "Group  Name  Items  Recipes  Notify address  Health\n"
                          "-----  ----  -----  -------  --------------  ------\n"
                          "    3  Oven      2        2  PLC,0,0,M,9,0   sound\n"
                          "\n"
                          "Group 3 \"Oven\"\n"
                          "Item  Name  Address         Type  Digits  Decimals  Min  Max\n"
                          "----  ----  --------------  ----  ------  --------  ---  ---\n"
                          "   0  Heat  PLC,1,2,D,x,5   6          4         1   -5  300\n"
                          "   1  Code  PLC,0,0,LW,7,0  text      10         0    0   20\n");
}

TEST_F(Info, AlignsTitlesOfWideCharacters)
{
    const Outcome result = run({"info", "r.db3", "--language", "7"});
    EXPECT_NE(result.out.find("    3  炉        2"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("   0  热    PLC"), std::string::npos) << result.out;
}

TEST_F(Info, TellsTheSameAsJson)
{
    const Outcome result = run({"info", "r.db3", "--json", "--language", "2"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, R"({
  "ok": true,
  "file": "r.db3",
  "groups": [
    {
      "index": 3,
      "name": "Ofen",
      "items": 2,
      "recipes": 2,
      "notify": 1,
      "notifyAddress": "PLC,0,0,M,9,0",
      "sound": true,
      "faults": [],
      "itemList": [
        {
          "index": 0,
          "name": "Hitze",
          "address": "PLC,1,2,D,x,5",
          "dataType": 6,
          "totalDigits": 4,
          "decimalDigits": 1,
          "min": -5.0,
          "max": 300.0
        },
        {
          "index": 1,
          "name": "Code",
          "address": "PLC,0,0,LW,7,0",
          "dataType": 7,
          "totalDigits": 10,
          "decimalDigits": 0,
          "min": 0.0,
          "max": 20.0
        }
      ]
    }
  ]
}
)");
}

TEST_F(Info, NamesTablesThatDisagreeWithTheConfiguration)
{
    sql("r.db3", "UPDATE recipe_config SET row = 5, column = 1; DELETE FROM lang_3 WHERE type = 0;");
    const Outcome result = run({"info", "r.db3"});
    EXPECT_EQ(result.code, 0);
    EXPECT_NE(result.out.find("6 faults"), std::string::npos);
    for (const char* fault :
         {"addr_3 holds 2 items, recipe_config says 5.", "data_3 holds 2 recipes, recipe_config says 1.",
          "data_3 holds 2 value columns, recipe_config says 5.", "lang_3 holds 0 group titles, recipe_config says 1.",
          "lang_3 holds 2 item titles, recipe_config says 5.", "lang_3 holds 2 recipe titles, recipe_config says 1."})
        EXPECT_NE(result.out.find(std::string("fault: ") + fault + '\n'), std::string::npos) << fault << result.out;
}

TEST_F(Info, NamesATableThatIsMissing)
{
    sql("r.db3", "DROP TABLE data_3;");
    EXPECT_NE(run({"info", "r.db3"}).out.find("fault: The table data_3 is missing.\n"), std::string::npos);
}

TEST_F(Info, ChangesNothing)
{
    const std::string before = read("r.db3");
    ASSERT_EQ(run({"info", "r.db3"}).code, 0);
    EXPECT_EQ(read("r.db3"), before);
    EXPECT_EQ(files(), Words{"r.db3"});
}

TEST_F(Info, SaysWhatIsNoRecipeFile)
{
    write("empty.db3", "");
    write("text.db3", std::string(2000, 'x'));
    sql("other.db3", "CREATE TABLE cats (name);");
    ASSERT_TRUE(QDir(path(".")).mkdir(QStringLiteral("folder")));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"none.db3", "There is no file none.db3."},
        {"folder", "folder is a directory, not a recipe file."},
        {"empty.db3", "empty.db3 is empty, so it is no recipe file."},
        {"text.db3", "text.db3 is not an SQLite database, so it is no recipe file."},
        {"other.db3", "other.db3 is an SQLite database without a table recipe_config, so it is no recipe file."}};
    for (const auto& [file, sentence] : cases) {
        const Outcome result = run({"info", file});
        EXPECT_EQ(result.code, 2) << sentence;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "recipe-file: " + sentence + '\n');
    }
}

TEST_F(Info, SaysThatAFileIsLocked)
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path("r.db3").toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const Outcome result = run({"info", "r.db3"});
    const Outcome json = run({"info", "r.db3", "--json"});
    sqlite3_close(other);
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(
        result.err,
        "recipe-file: r.db3 is locked by another program; try again later, or wait for it with --wait SECONDS.\n");
    EXPECT_EQ(json.code, 2);
    EXPECT_EQ(json.err, "");
    EXPECT_NE(json.out.find("\"error\": \"r.db3 is locked by another program"), std::string::npos);
}

class CommandLine : public ProgramTest
{
};

TEST_F(CommandLine, OffersTheNearestCommand)
{
    const Outcome result = run({"inof"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: There is no command \"inof\", did you mean \"info\"?\n");
}

TEST_F(CommandLine, WithoutACommandPointsAtTheHelp)
{
    const Outcome result = run({});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: A subcommand is required; see recipe-file --help.\n");
}

TEST_F(CommandLine, TellsItsVersion)
{
    const Outcome result = run({"--version"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out.rfind("recipe-file ", 0), 0U);
}

TEST_F(CommandLine, HasAnExampleInTheHelpOfEveryCommand)
{
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("Exit codes:"), std::string::npos);
    const std::string list = help.out.substr(help.out.find("Subcommands:"));
    int commands = 0;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line) && line != "Exit codes:";) {
        if (line.size() < 4 || line.compare(0, 2, "  ") != 0 || line[2] == ' ')
            continue;
        const std::string name = line.substr(2, line.find(' ', 2) - 2);
        const Outcome one = run({name, "--help"});
        EXPECT_EQ(one.code, 0);
        EXPECT_NE(one.out.find("Example:\n  recipe-file " + name), std::string::npos) << one.out;
        ++commands;
    }
    EXPECT_GE(commands, 3);
}

namespace {

/// Every command ("titles import") and every option ("--json") that the help shows.
Words wordsOfHelp(const std::string& help, bool options)
{
    Words words;
    std::istringstream lines(help.substr(help.find(options ? "Options:" : "Subcommands:")));
    for (std::string line; std::getline(lines, line) && line != "Exit codes:";) {
        if (line.size() < 4 || line.compare(0, 2, "  ") != 0 || line[2] == ' ' || (line[2] == '-') != options)
            continue;
        std::string word = line.substr(2, line.find(' ', 2) - 2);
        words.push_back(word.substr(word.find("--") == std::string::npos ? 0 : word.find("--")));
    }
    return words;
}

std::string manualPage()
{
    std::ifstream file(SOURCE_DIR "/tools/recipe_file/recipe-file.1");
    std::string text(std::istreambuf_iterator<char>(file), {});
    for (std::size_t at = text.find("\\-"); at != std::string::npos; at = text.find("\\-"))
        text.erase(at, 1);
    return text;
}

} // namespace

TEST_F(CommandLine, HasEveryCommandAndOptionInTheManualPage)
{
    const std::string page = manualPage();
    const Words commands = wordsOfHelp(run({"--help"}).out, false);
    EXPECT_GE(commands.size(), 15U);
    for (const std::string& command : commands) {
        EXPECT_NE(page.find(command), std::string::npos) << command;
        for (const std::string& option : wordsOfHelp(run({command, "--help"}).out, true))
            EXPECT_NE(page.find(option), std::string::npos) << command << ' ' << option;
    }
}

TEST_F(CommandLine, CompletesCommandsAndOptions)
{
    const Outcome script = run({"completion"});
    ASSERT_EQ(script.code, 0);
    write("completion.bash", script.out);
    const auto complete = [this](const std::string& words, int place) {
        const std::string text = ". ./completion.bash; COMP_WORDS=(" + words + "); COMP_CWORD=" + std::to_string(place)
                                 + "; _recipe_file; printf '%s ' \"${COMPREPLY[@]}\"";
        return runShell(text);
    };
    EXPECT_EQ(complete("recipe-file exp", 1).out, "export ");
    EXPECT_EQ(complete("recipe-file import --dr", 2).out, "--dry-run ");
    EXPECT_EQ(complete("recipe-file titles im", 2).out, "import ");
    EXPECT_EQ(complete("recipe-file titles import --del", 3).out, "--delimiter ");
    EXPECT_EQ(complete("recipe-file", 1).err, "");
}

TEST_F(CommandLine, CompletesInZsh)
{
    if (runShell("command -v zsh").code != 0)
        GTEST_SKIP() << "there is no zsh here";
    write("_recipe-file", run({"completion", "zsh"}).out);
    const auto complete = [this](const std::string& words, int place) {
        write("try.zsh", "compdef() {}; _describe() { print -l -- $commands; }; _arguments() { print -l -- \"$@\"; }\n"
                         ". ./_recipe-file\nwords=("
                             + words + "); CURRENT=" + std::to_string(place) + "; _recipe-file\n");
        const Outcome result = runShell("zsh -f try.zsh");
        EXPECT_EQ(result.err, "");
        return result.out;
    };
    EXPECT_NE(complete("recipe-file ''", 2).find("export:Write a group as CSV, JSON or a plain table\n"),
              std::string::npos);
    EXPECT_NE(complete("recipe-file import ''", 3).find("--dry-run[Show what would change, change nothing]\n"),
              std::string::npos);
    EXPECT_NE(complete("recipe-file export ''", 3).find("value:(csv json table)\n"), std::string::npos);
    EXPECT_NE(complete("recipe-file titles ''", 3).find("import:Take changed titles\n"), std::string::npos);
    const std::string titles = complete("recipe-file titles import ''", 4);
    EXPECT_NE(titles.find("--dry-run["), std::string::npos) << titles;
    EXPECT_EQ(titles.find("--strict["), std::string::npos) << titles;
}

TEST_F(CommandLine, CompletesInFish)
{
    if (runShell("command -v fish").code != 0)
        GTEST_SKIP() << "there is no fish here";
    write("recipe-file.fish", run({"completion", "fish"}).out);
    const auto complete = [this](const std::string& line) {
        return runShell("HOME=$PWD fish --no-config -c \"source recipe-file.fish; complete -C '" + line + "'\"").out;
    };
    EXPECT_NE(complete("recipe-file exp").find("export\tWrite a group"), std::string::npos);
    EXPECT_NE(complete("recipe-file import --dr").find("--dry-run\tShow what"), std::string::npos);
    EXPECT_NE(complete("recipe-file export --format ").find("table"), std::string::npos);
    EXPECT_NE(complete("recipe-file titles imp").find("import\tTake changed titles"), std::string::npos);
    EXPECT_NE(complete("recipe-file titles export --for").find("--force"), std::string::npos);
    EXPECT_EQ(complete("recipe-file titles export --for").find("--format"), std::string::npos);
}

TEST_F(CommandLine, OffersTheNearestOption)
{
    EXPECT_EQ(run({"import", "r.db3", "s.csv", "--drry-run"}).err,
              "recipe-file: The following argument was not expected: --drry-run, did you mean \"--dry-run\"?\n");
    EXPECT_NE(run({"titles", "import", "r.db3", "s.csv", "--delimitr=;"}).err.find(", did you mean \"--delimiter\"?\n"),
              std::string::npos);
    EXPECT_NE(run({"import", "r.db3"}).err.find("; see recipe-file import --help."), std::string::npos);
    EXPECT_NE(run({"titles", "export"}).err.find("; see recipe-file titles export --help."), std::string::npos);
}

TEST_F(CommandLine, FindsAGroupByItsTitleInAnyLanguage)
{
    ASSERT_EQ(run({"create", bakery(), "b.db3"}).code, 0);
    EXPECT_EQ(run({"get", "b.db3", "Baguette", "1", "--group", "Backstraße"}).out, "81.25\n");
    EXPECT_EQ(run({"get", "b.db3", "Baguette", "1", "--group", "Backstrase"}).err,
              "recipe-file: There is no group \"Backstrase\" in b.db3, did you mean \"Backstraße\"?\n");
}

TEST_F(CommandLine, ShowsProgressOfLongWorkOnATerminalOnly)
{
    const std::string work = program().toStdString() + " generate --force --items 1900 --recipes 2000 xl.db3";
    const Outcome terminal = runShell("script -qec '" + work + "' /dev/null");
    EXPECT_NE(terminal.out.find("\rrecipe-file: "), std::string::npos) << terminal.out;
    EXPECT_NE(terminal.out.find(" of 2000 recipes"), std::string::npos) << terminal.out;
    EXPECT_EQ(terminal.out.find('\x1b'), std::string::npos) << "no colours, no cursor tricks";
    EXPECT_EQ(runShell(work).err, "recipe-file: wrote group 0 (1900 items, 2000 recipes, seed 1) to xl.db3\n");
}

TEST_F(CommandLine, OffersTheNearestCommandBehindOptionsAndBehindTitles)
{
    EXPECT_EQ(run({"titles", "exprt", "r.db3"}).err,
              "recipe-file: There is no command \"titles exprt\", did you mean \"export\"?\n");
    EXPECT_NE(run({"--json", "improt"}).out.find("did you mean \\\"import\\\"?"), std::string::npos);
    EXPECT_EQ(run({"titles", "qqq"}).err,
              "recipe-file: There is no command \"titles qqq\"; see recipe-file titles --help.\n");
}

TEST_F(CommandLine, SaysWhenStandardOutputTakesNothing)
{
    ASSERT_EQ(run({"create", bakery(), "b.db3"}).code, 0);
    const std::string name = program().toStdString();
    for (const char* command : {"show b.db3", "export b.db3", "info --json b.db3", "--help"}) {
        const Outcome full = runShell(name + ' ' + command + " >/dev/full");
        EXPECT_EQ(full.code, 3) << command;
        EXPECT_EQ(full.err, "recipe-file: Cannot write to standard output: No space left on device.\n") << command;
    }
    EXPECT_EQ(runShell(name + " export b.db3 >&-").code, 3);
    EXPECT_EQ(runShell(name + " get b.db3 nothing 0 >/dev/full").code, 2) << "the first failure counts";
}

// The next file that was opened got the closed number, and the talk.
TEST_F(CommandLine, KeepsFilesFreeOfTalkWhereStandardErrorIsClosed)
{
    ASSERT_EQ(run({"create", bakery(), "b.db3"}).code, 0);
    const std::string before = dump("b.db3");
    const std::string name = program().toStdString();
    EXPECT_EQ(runShell(name + " export b.db3 b.csv 0<&- 1>&- 2>&-").code, 0);
    EXPECT_EQ(read("b.csv"), run({"export", "b.db3"}).out);
    EXPECT_EQ(runShell(name + " set b.db3 0 1 94 0<&- 1>&- 2>&-").code, 0);
    EXPECT_EQ(runShell(name + " set b.db3 0 1 93 0<&- 1>&- 2>&-").code, 0);
    EXPECT_EQ(dump("b.db3"), before);
}
