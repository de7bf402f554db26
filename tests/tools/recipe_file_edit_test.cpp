// Commands that change a file: all or nothing, behind a verified backup, the same bytes as from a panel.
#include "program.h"

#include "RecipeDB.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <sqlite3.h>

namespace {

class Edit : public ProgramTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"create", bakery(), "r.db3"}).code, 0); }

    /// The backups in the folder, oldest first.
    Words backups() const
    {
        Words names;
        for (const std::string& name : files()) {
            if (name.find(".bak") != std::string::npos)
                names.push_back(name);
        }
        return names;
    }

    void copyFile(const std::string& from, const std::string& to) { ASSERT_TRUE(QFile::copy(path(from), path(to))); }

    /// Runs the program until the file has a journal, then kills it. False where it was done before.
    bool killWhileItWrites(const Words& arguments, const std::string& file)
    {
        QStringList list;
        for (const std::string& word : arguments)
            list.append(QString::fromStdString(word));
        QProcess process;
        process.setWorkingDirectory(path("."));
        process.start(program(), list);
        EXPECT_TRUE(process.waitForStarted());
        const QString journal = path(file + "-journal");
        while (!QFile::exists(journal) && !process.waitForFinished(0) && process.state() != QProcess::NotRunning) {
        }
        process.kill();
        process.waitForFinished();
        return process.exitStatus() == QProcess::CrashExit;
    }

    /// Leaves the file half written, with the journal that takes it back.
    void interruptAWrite(const std::string& file)
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(path(file).toUtf8().constData(), &other), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(other,
                               "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN; UPDATE data_0 SET D0 = D0 + 1;"
                               "UPDATE lang_0 SET L0 = 'half'; UPDATE addr_0 SET min = 3",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK);
        copyFile(file, "half");
        copyFile(file + "-journal", "half-journal");
        sqlite3_close(other);
        QFile::remove(path(file));
        ASSERT_TRUE(QFile::rename(path("half"), path(file)));
        ASSERT_TRUE(QFile::rename(path("half-journal"), path(file + "-journal")));
    }

    /// What a panel's worker does with a group: load, change, write whole.
    template <typename Change> void rewriteAsAPanel(const std::string& file, Change change)
    {
        RecipeDB* db = RecipeDB::getInstance();
        recipeTableInfo_t group;
        ASSERT_EQ(db->OpenRecipeFile(path(file)), 0);
        ASSERT_EQ(db->loadTable_Group(0, group), 0);
        change(group);
        ASSERT_EQ(db->createTable_Group(0, group), 0);
        RecipeDB::release();
    }
};

} // namespace

TEST_F(Edit, SetWritesWhatAPanelWrites)
{
    copyFile("r.db3", "panel.db3");
    const Outcome result = run({"set", "r.db3", "Baguette", "Water kg", "82.5"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.find("recipe-file: group 0 \"Bakery line\": 1 value changed"), 0U) << result.err;
    EXPECT_EQ(run({"get", "r.db3", "Baguette", "Water kg"}).out, "82.50\n");

    RecipeDB* db = RecipeDB::getInstance();
    ASSERT_EQ(db->OpenRecipeFile(path("panel.db3")), 0);
    ASSERT_EQ(db->updateTable_Data_Column_One(0, 3, 1, QStringLiteral("82.50")), 0);
    RecipeDB::release();
    EXPECT_EQ(dump("r.db3"), dump("panel.db3"));
}

TEST_F(Edit, CopyWritesWhatAPanelWrites)
{
    copyFile("r.db3", "panel.db3");
    EXPECT_EQ(run({"copy", "r.db3", "2"}).code, 0);
    rewriteAsAPanel("panel.db3", [](recipeTableInfo_t& group) {
        for (recipeItemInfo_t& item : group.items)
            item.values.insert(3, QString(item.values.at(2)));
        group.columnName.insert(3, QVector<QString>(group.columnName.at(2)));
    });
    EXPECT_EQ(dump("r.db3"), dump("panel.db3"));
    EXPECT_EQ(run({"check", "r.db3"}).code, 0);
}

TEST_F(Edit, DeleteLeavesTheRecipesThatAPanelLeaves)
{
    copyFile("r.db3", "panel.db3");
    EXPECT_EQ(run({"delete", "r.db3", "Wholemeal bread"}).code, 0);
    rewriteAsAPanel("panel.db3", [](recipeTableInfo_t& group) {
        for (recipeItemInfo_t& item : group.items)
            item.values.remove(1);
        group.columnName.remove(1);
    });
    EXPECT_EQ(dump("r.db3"), dump("panel.db3"));
    EXPECT_EQ(run({"check", "r.db3"}).code, 0);
}

TEST_F(Edit, DeleteRefusesTheLastRecipe)
{
    for (int i = 0; i < 7; ++i)
        ASSERT_EQ(run({"delete", "r.db3", "0"}).code, 0);
    const Outcome result = run({"delete", "r.db3", "0"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err,
              "recipe-file: recipe 0 \"Pretzels\" is the last one of group 0 \"Bakery line\"; a group without "
              "recipes cannot be.\n");
}

TEST_F(Edit, AddAppendsARecipeWithDefaultsWithinTheLimits)
{
    EXPECT_EQ(run({"add", "r.db3", "Spelt", "--value", "Water kg=88", "--value", "12=SP-1"}).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT * FROM data_0 WHERE column = 8"),
              Words{"8|15.0|88.0|0.0|0.0|0.0|0.0|0.0|0.0|30.0|100.0|0.0|0.0|SP-1"});
    EXPECT_EQ(run({"check", "r.db3"}).code, 0);
}

TEST_F(Edit, LeavesNoBackupOfAFileThatCannotBeWritten)
{
    const std::size_t count = files().size();
    const std::string program = ProgramTest::program().toStdString();
    // root may write everything, unless this is taken away
    const Outcome result =
        runShell("chmod 444 r.db3; p=; [ \"$(id -u)\" != 0 ] || p='setpriv --bounding-set=-dac_override'; $p '"
                 + program + "' set r.db3 0 1 90");
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: r.db3 cannot be written: Permission denied.\n");
    EXPECT_EQ(files().size(), count);
}

TEST_F(Edit, AddRefusesARecipeWithoutAName)
{
    const std::string before = dump("r.db3");
    const Outcome result = run({"add", "r.db3", ""});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "recipe-file: A new recipe needs a name.\n");
    EXPECT_EQ(dump("r.db3"), before);
}

TEST_F(Edit, SaysWhereANameStandsThatStartsLikeAnOption)
{
    const Outcome result = run({"add", "r.db3", "-low salt"});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("A name that starts with - stands behind --, as in: -- \"-low salt\""), std::string::npos)
        << result.err;
    EXPECT_EQ(run({"add", "r.db3", "--", "-low salt"}).code, 0);
}

TEST_F(Edit, RenameChangesOneLanguageOrAll)
{
    EXPECT_EQ(run({"rename", "r.db3", "Rolls", "Semmeln", "--language", "2"}).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT L0, L1 FROM lang_0 WHERE type = 2 AND strIndex = 4"), Words{"Rolls|Semmeln"});
    EXPECT_EQ(run({"rename", "r.db3", "4", "X", "--all-languages"}).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT L0, L7 FROM lang_0 WHERE type = 2 AND strIndex = 4"), Words{"X|X"});
}

TEST_F(Edit, ChangesNothingInADryRun)
{
    const std::string before = read("r.db3");
    for (const Words& words :
         {Words{"set", "r.db3", "0", "1", "1"}, Words{"copy", "r.db3", "0"}, Words{"delete", "r.db3", "0"},
          Words{"add", "r.db3", "x"}, Words{"rename", "r.db3", "0", "y"}}) {
        Words dry = words;
        dry.push_back("--dry-run");
        const Outcome result = run(dry);
        EXPECT_EQ(result.code, 0) << words[0];
        EXPECT_NE(result.err.find("Nothing was written."), std::string::npos) << result.err;
    }
    EXPECT_EQ(read("r.db3"), before);
    EXPECT_EQ(files(), Words{"r.db3"});
}

TEST_F(Edit, KeepsTheFileAsItWasBesideIt)
{
    const std::string before = dump("r.db3");
    ASSERT_EQ(run({"set", "r.db3", "0", "1", "1"}).code, 0);
    ASSERT_EQ(run({"set", "r.db3", "0", "1", "2"}).code, 0);
    const Words kept = backups();
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(dump(kept[0]), before);
    EXPECT_EQ(run({"get", kept[1], "0", "1"}).out, "1.00\n");
    EXPECT_EQ(run({"get", "r.db3", "0", "1"}).out, "2.00\n");
}

TEST_F(Edit, OffersTheNearestName)
{
    EXPECT_EQ(run({"get", "r.db3", "Bagette", "0"}).err,
              "recipe-file: There is no recipe \"Bagette\" in group 0 \"Bakery line\", did you mean \"Baguette\"?\n");
    EXPECT_EQ(run({"get", "r.db3", "0", "Slat kg"}).err,
              "recipe-file: There is no item \"Slat kg\" in group 0 \"Bakery line\", did you mean \"Salt kg\"?\n");
    EXPECT_EQ(run({"get", "r.db3", "9", "0"}).err,
              "recipe-file: There is no recipe 9 in group 0 \"Bakery line\"; the last one is 7.\n");
    EXPECT_EQ(run({"list", "r.db3", "--group", "Bakery lien"}).err,
              "recipe-file: There is no group \"Bakery lien\" in r.db3, did you mean \"Bakery line\"?\n");
}

TEST_F(Edit, FindsRecipesByTheirTitleInAnyLanguage)
{
    EXPECT_EQ(run({"get", "r.db3", "Weißbrot", "塩 kg"}).out, "3.00\n");
}

TEST_F(Edit, AsksForTheNumberWhereATitleIsNotClear)
{
    ASSERT_EQ(run({"copy", "r.db3", "Rolls"}).code, 0);
    EXPECT_EQ(
        run({"get", "r.db3", "Rolls", "0"}).err,
        "recipe-file: Several of group 0 \"Bakery line\"'s recipes are called \"Rolls\" (4, 5); give the number.\n");
}

TEST_F(Edit, WaitsForALockOnlyAsLongAsAllowed)
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path("r.db3").toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const Outcome atOnce = run({"set", "r.db3", "0", "1", "1"});
    QElapsedTimer timer;
    timer.start();
    const Outcome later = run({"set", "r.db3", "0", "1", "1", "--wait", "0.3"});
    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_EQ(run({"get", "r.db3", "0", "1"}).out, "93.00\n") << "readers go on";
    sqlite3_close(other);
    EXPECT_EQ(atOnce.code, 2);
    EXPECT_EQ(
        atOnce.err,
        "recipe-file: r.db3 is locked by another program; try again later, or wait for it with --wait SECONDS.\n");
    EXPECT_EQ(later.code, 2);
    EXPECT_EQ(run({"set", "r.db3", "0", "1", "1"}).code, 0);
}

TEST_F(Edit, KilledAtAnyPointLeavesTheFileOldOrNew)
{
    ASSERT_EQ(run({"generate", "--items", "250", "--recipes", "120", "old.db3"}).code, 0);
    ASSERT_EQ(run({"generate", "--items", "250", "--recipes", "120", "--seed", "9", "new.db3"}).code, 0);
    ASSERT_EQ(run({"export", "new.db3", "new.csv"}).code, 0);
    for (const Words& change : {Words{"import", "k.db3", "new.csv"}, Words{"restore", "--yes", "k.db3", "new.db3"}}) {
        int killedWhileWriting = 0;
        for (int i = 0; i < 5; ++i) {
            QFile::remove(path("k.db3"));
            copyFile("old.db3", "k.db3");
            killedWhileWriting += killWhileItWrites(change, "k.db3") ? 1 : 0;
            EXPECT_EQ(run({"list", "k.db3"}).code, 0); // rolls an unfinished write back
            const std::string now = dump("k.db3");
            EXPECT_TRUE(now == dump("old.db3") || now == dump("new.db3")) << change.front();
            EXPECT_EQ(query("k.db3", "PRAGMA integrity_check"), Words{"ok"});
        }
        EXPECT_GT(killedWhileWriting, 0) << change.front();
    }
}

TEST_F(Edit, LeavesTheFileWhenTheDiskIsFull)
{
    ASSERT_EQ(run({"generate", "--items", "250", "--recipes", "120", "g.db3"}).code, 0);
    ASSERT_EQ(run({"generate", "--items", "250", "--recipes", "120", "--seed", "9", "--description", "n.json"}).code,
              0);
    const std::string before = dump("g.db3");
    const Outcome result = runLimited(64, {"import", "g.db3", "n.json"});
    EXPECT_EQ(result.code, 2) << result.err;
    EXPECT_EQ(dump("g.db3"), before);
    EXPECT_TRUE(backups().empty());
}

TEST_F(Edit, BackupCopiesAFileThatIsInUse)
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path("r.db3").toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE; UPDATE data_0 SET D0 = 1;", nullptr, nullptr, nullptr), SQLITE_OK);
    const Outcome result = run({"backup", "r.db3", "copy.db3"});
    sqlite3_close(other);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "recipe-file: copied r.db3 to copy.db3\n");
    EXPECT_EQ(dump("copy.db3"), dump("r.db3"));
    EXPECT_EQ(run({"backup", "r.db3", "copy.db3"}).err,
              "recipe-file: copy.db3 exists already; give --force to replace it.\n");
}

TEST_F(Edit, RestoreShowsWhatItWouldChangeAndActsOnlyWhenTold)
{
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    ASSERT_EQ(run({"set", "r.db3", "Baguette", "Water kg", "82.5"}).code, 0);
    ASSERT_EQ(run({"delete", "r.db3", "Pretzels"}).code, 0);
    const Outcome look = run({"restore", "r.db3", "copy.db3"});
    EXPECT_EQ(look.code, 0);
    EXPECT_NE(look.out.find("recipe 3 \"Baguette\""), std::string::npos) << look.out;
    EXPECT_NE(look.out.find("new recipe 7 \"Pretzels\""), std::string::npos) << look.out;
    EXPECT_NE(look.err.find("Nothing was written; give --yes to restore."), std::string::npos) << look.err;
    EXPECT_EQ(run({"get", "r.db3", "Baguette", "Water kg"}).out, "82.50\n");

    const std::string replaced = dump("r.db3");
    const Outcome act = run({"restore", "r.db3", "copy.db3", "--yes"});
    EXPECT_EQ(act.code, 0) << act.err;
    EXPECT_EQ(dump("r.db3"), dump("copy.db3"));
    EXPECT_EQ(dump(backups().back()), replaced) << "what was replaced is kept";
    EXPECT_NE(run({"restore", "r.db3", "copy.db3", "--yes"}).err.find("Nothing changes"), std::string::npos);
}

TEST_F(Edit, RestoreBringsADamagedFileBack)
{
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    sql("r.db3", "DROP TABLE data_0;");
    const Outcome result = run({"restore", "r.db3", "copy.db3", "--yes"});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(dump("r.db3"), dump("copy.db3"));
    EXPECT_EQ(run({"restore", "r.db3", "none.db3", "--yes"}).code, 2);
}

TEST_F(Edit, RestoreBringsBackWhatIsNoDatabaseAnyMore)
{
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    const std::string good = read("r.db3");
    const std::string zeros(4096, '\0');
    for (const std::string& wreck : {std::string(), std::string("never a database, but long enough to be looked at"),
                                     zeros, good.substr(0, 6000), good.substr(0, 16) + zeros}) {
        write("r.db3", wreck);
        const std::size_t kept = backups().size();
        EXPECT_EQ(run({"restore", "r.db3", "copy.db3"}).code, 0);
        EXPECT_EQ(read("r.db3"), wreck) << "only shown";
        const Outcome result = run({"restore", "r.db3", "copy.db3", "--yes"});
        EXPECT_EQ(result.code, 0) << result.err;
        EXPECT_EQ(result.out.find("cannot be compared: r.db3"), 0U) << result.out;
        EXPECT_EQ(dump("r.db3"), dump("copy.db3"));
        ASSERT_EQ(backups().size(), kept + 1);
        EXPECT_TRUE(wreck.empty() || read(backups().back()) == wreck) << "kept byte by byte";
    }
}

/// A panel went on with the damaged file, and lost what was saved, until it was started again.
TEST_F(Edit, RestoreSaysWhereARunningPanelDoesNotSeeTheFile)
{
    const char said[] = "recipe-file: This is a new file: a panel that is running must be started again to see it.\n";
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    write("r.db3", "never a database, but long enough to be looked at");
    EXPECT_EQ(run({"restore", "r.db3", "copy.db3"}).err.find(said), std::string::npos) << "only shown";
    EXPECT_NE(run({"restore", "r.db3", "copy.db3", "--yes"}).err.find(said), std::string::npos);
    EXPECT_NE(run({"restore", "new.db3", "copy.db3", "--yes"}).err.find(said), std::string::npos);
    sql("r.db3", "DROP TABLE data_0;");
    EXPECT_EQ(run({"restore", "r.db3", "copy.db3", "--yes"}).err.find(said), std::string::npos) << "in its place";
}

TEST_F(Edit, RestoreMakesAFileThatIsNotThere)
{
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    const Outcome look = run({"restore", "new.db3", "copy.db3"});
    EXPECT_EQ(look.code, 0);
    EXPECT_EQ(look.out, "There is no file new.db3 yet.\n");
    EXPECT_FALSE(exists("new.db3"));
    EXPECT_EQ(run({"restore", "new.db3", "copy.db3", "--yes"}).code, 0);
    EXPECT_EQ(dump("new.db3"), dump("r.db3"));
    EXPECT_TRUE(backups().empty()) << "there was nothing to keep";
    EXPECT_EQ(run({"restore", "none/new.db3", "copy.db3", "--yes"}).err, "recipe-file: There is no folder none.\n");
    EXPECT_EQ(run({"restore", "copy.db3", "./copy.db3", "--yes"}).err,
              "recipe-file: copy.db3 and ./copy.db3 are the same file.\n");
}

TEST_F(Edit, RestoreLeavesAFileThatOthersUse)
{
    ASSERT_EQ(run({"backup", "r.db3", "copy.db3"}).code, 0);
    ASSERT_EQ(run({"set", "copy.db3", "0", "1", "1"}).code, 0);
    const std::string before = dump("r.db3");
    for (const char* use : {"BEGIN IMMEDIATE", "BEGIN; SELECT count(*) FROM data_0"}) {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(path("r.db3").toUtf8().constData(), &other), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(other, use, nullptr, nullptr, nullptr), SQLITE_OK);
        EXPECT_EQ(run({"restore", "r.db3", "copy.db3"}).code, 0) << "a look disturbs nobody";
        const Outcome result = run({"restore", "r.db3", "copy.db3", "--yes"});
        sqlite3_close(other);
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.err.find("recipe-file: r.db3 is locked by another program"), 0U) << result.err;
        EXPECT_EQ(dump("r.db3"), before);
    }
    EXPECT_EQ(run({"restore", "r.db3", "copy.db3", "--yes"}).code, 0);
    EXPECT_EQ(dump("r.db3"), dump("copy.db3"));
}

TEST_F(Edit, ReadsAFileWhoseWriterWasKilled)
{
    const std::string before = dump("r.db3");
    interruptAWrite("r.db3");
    const std::string half = read("r.db3");
    const Outcome checked = run({"check", "r.db3"});
    EXPECT_EQ(checked.code, 1);
    EXPECT_NE(checked.out.find("A write was interrupted"), std::string::npos) << checked.out << checked.err;
    EXPECT_EQ(read("r.db3"), half) << "check reads only";
    const Outcome value = run({"get", "r.db3", "0", "0"});
    EXPECT_EQ(value.out, "26.0\n");
    EXPECT_EQ(value.err, "recipe-file: a write to r.db3 was interrupted; it is in its last whole state again\n");
    EXPECT_EQ(dump("r.db3"), before);
    EXPECT_FALSE(exists("r.db3-journal"));
}

TEST_F(Edit, TitlesComeBackUnchangedAndChangeWhereTheyAreEdited)
{
    const std::string before = dump("r.db3");
    std::string sheet = run({"titles", "export", "r.db3"}).out;
    EXPECT_EQ(run({"titles", "import", "r.db3", "-"}, sheet).err, "recipe-file: 0 titles changed.\n");
    EXPECT_EQ(dump("r.db3"), before);
    const std::string from = "\"Backstraße\"";
    sheet.replace(sheet.find(from), from.size(), "\"Bäckerei \"\"Süd\"\"\"");
    EXPECT_EQ(run({"titles", "import", "r.db3", "-"}, sheet).code, 0);
    EXPECT_EQ(query("r.db3", "SELECT L0, L1, L2 FROM lang_0 WHERE type = 0"),
              Words{"Bakery line|Bäckerei \"Süd\"|Ligne de boulangerie"});
    EXPECT_EQ(
        run({"titles", "import", "r.db3", "-"}, "Kind,Number,Language 1\nitem,99,x\n").err,
        "recipe-file: -, row 2: the row's owner is \"item 99\", expected group, item or recipe with a number that "
        "the file has.\nrecipe-file: - has 1 error; nothing was changed. Correct it, then try again.\n");
}

TEST_F(Edit, RefusesAGroupWhoseTablesDisagree)
{
    sql("r.db3", "UPDATE recipe_config SET row = 5;");
    EXPECT_EQ(run({"set", "r.db3", "0", "1", "1"}).err,
              "recipe-file: Group 0 of r.db3 is damaged: addr_0 holds 13 items, recipe_config says 5. See recipe-file "
              "check.\n");
    EXPECT_EQ(files(), Words{"r.db3"});
}

TEST_F(Edit, WorksOnTheWidestGroup)
{
    ASSERT_EQ(run({"generate", "--items", "1999", "--recipes", "3", "wide.db3"}).code, 0);
    EXPECT_EQ(run({"copy", "wide.db3", "0"}).err.find("recipe-file: copied recipe 0"), 0U);
    EXPECT_EQ(run({"add", "wide.db3", "New", "--value", "1998=7"}).code, 0);
    EXPECT_EQ(query("wide.db3", "SELECT count(DISTINCT D1998), count(DISTINCT D600) FROM data_0 WHERE column < 2"),
              Words{"1|1"});
    EXPECT_EQ(query("wide.db3", "SELECT D1998 FROM data_0 WHERE column = 4"), Words{"7.0"});
    const Outcome sheet = run({"export", "wide.db3"});
    EXPECT_EQ(run({"diff", "wide.db3", "-"}, sheet.out).code, 0);
    EXPECT_EQ(run({"check", "wide.db3"}).code, 0);
}

TEST_F(Edit, SpeaksOnlyOfWhatWasAskedFor)
{
    EXPECT_EQ(run({"set", "r.db3", "3", "1", "80.5", "--dry-run"}).err.find("not mentioned"), std::string::npos);
    EXPECT_NE(run({"set", "r.db3", "3", "1", "1,5"}).err.find("expected a number with \".\" as its decimal mark."),
              std::string::npos);
}
