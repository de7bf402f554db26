// The same change once at the panel and once with recipe-file: the file and what the sheet shows of it are the same.
#include "program.h"

#include <QDir>
#include <QFile>

namespace {

const char RECIPE_FILE[] = "/usr/tabrix/project/recipeN.db3";

/// One change in both languages.
struct Change
{
    const char* name;
    const char* script;          ///< at the panel
    std::vector<Words> commands; ///< of recipe-file, without the file
};

const Change CHANGES[] = {
    {"AValue",
     "tap cell 2 1\ntap cell 2 1\nkeyboard accept \"155.5\"\ntap button save\n",
     {{"set", "1", "2", "155.5"}}},
    {"AWholeNumber",
     "tap cell 1 0\ntap cell 1 0\nkeyboard accept \"90\"\ntap button save\n",
     {{"set", "White bread", "Water kg", "90"}}},
    {"ATitle",
     "tap title 1\ntap title 1\nkeyboard accept \"Farmer's \\\"dark\\\"\"\ntap button save\n",
     {{"rename", "1", "Farmer's \"dark\""}}},
    {"ACopy", "tap cell 0 1\ntap button add\nanswer yes\nwait message \"add success\"\nwait worker\n", {{"copy", "1"}}},
    {"ADeletion",
     "tap cell 0 1\ntap button delete\nanswer yes\nwait message \"del success\"\nwait worker\n",
     {{"delete", "Wholemeal bread"}}},
    {"SeveralAtOnce",
     "tap cell 0 0\ntap cell 0 0\nkeyboard accept \"30.5\"\ntap cell 3 2\ntap cell 3 2\nkeyboard accept \"1\"\n"
     "tap cell 0 2\ntap button add\nanswer yes\nwait message \"add success\"\nwait worker\n",
     {{"set", "0", "0", "30.5"}, {"set", "2", "3", "1"}, {"copy", "2"}}},
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.name;
}

class AtThePanel : public ProgramTest
{
protected:
    void SetUp() override
    {
        for (const QString& left : QDir(QStringLiteral("/usr/tabrix/project")).entryList(QDir::Files))
            QFile::remove(QStringLiteral("/usr/tabrix/project/") + left);
        ASSERT_EQ(run({"create", bakery(), RECIPE_FILE}).code, 0);
    }

    void play(const std::string& script)
    {
        write("session.script", script);
        const Outcome result = runShell("QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=. " PANEL_PROGRAM " " SOURCE_DIR
                                        "/examples/bakery.project.json --script session.script --output .");
        ASSERT_EQ(result.code, 0) << result.out << result.err;
    }

    /// What a panel that starts on the file shows of it, in two languages.
    std::string seen(const std::string& name)
    {
        play("dump \"" + name + "-1.json\"\nlanguage 2\ndump \"" + name + "-2.json\"\n");
        return read(name + "-1.json") + read(name + "-2.json");
    }
};

class AtThePanelEach : public AtThePanel, public testing::WithParamInterface<Change>
{
};

std::string nameOf(const testing::TestParamInfo<Change>& info)
{
    return info.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Sheet, AtThePanelEach, testing::ValuesIn(CHANGES), nameOf);

TEST_P(AtThePanelEach, AChangeLooksAsIfMadeByTheTool)
{
    const std::string before = dump(RECIPE_FILE);
    play(GetParam().script);
    const std::string written = dump(RECIPE_FILE);
    const std::string shown = seen("panel");
    EXPECT_NE(written, before);

    ASSERT_EQ(run({"create", bakery(), "--force", RECIPE_FILE}).code, 0);
    for (Words command : GetParam().commands) {
        command.insert(command.begin() + 1, RECIPE_FILE);
        const Outcome result = run(command);
        ASSERT_EQ(result.code, 0) << result.err;
    }
    EXPECT_EQ(dump(RECIPE_FILE), written);
    EXPECT_EQ(seen("tool"), shown);
}

/// The panel writes, a sheet carries it to a file of the same origin.
TEST_F(AtThePanel, AnImportedSheetLooksAsIfTypedThere)
{
    play(CHANGES[0].script);
    ASSERT_EQ(run({"export", RECIPE_FILE, "typed.csv"}).code, 0);
    const std::string written = dump(RECIPE_FILE);
    const std::string shown = seen("panel");
    ASSERT_EQ(run({"create", bakery(), "--force", RECIPE_FILE}).code, 0);
    ASSERT_EQ(run({"import", RECIPE_FILE, "typed.csv"}).code, 0);
    EXPECT_EQ(dump(RECIPE_FILE), written);
    EXPECT_EQ(seen("tool"), shown);
}
