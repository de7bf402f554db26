// kill -9 at every point: each command is run again and again, killed at its first, second, third ... change to the
// file system, until it ends by itself.
#include "program.h"

#include <QFile>

#include <algorithm>
#include <functional>
#include <iostream>

namespace {

const int KILLED = 128 + 9; // what bash makes of it

/// A command that changes k.db3, or makes the file `makes`.
struct Job
{
    const char* name;
    std::string command;
    std::string makes;
};

void PrintTo(const Job& job, std::ostream* out)
{
    *out << job.name;
}

class Killed : public ProgramTest, public testing::WithParamInterface<Job>
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(run({"create", bakery(), "old.db3"}).code, 0);
        copyFile("old.db3", "other.db3");
        ASSERT_EQ(run({"set", "other.db3", "0", "0", "30"}).code, 0);
        ASSERT_EQ(run({"add", "other.db3", "Spelt bread"}).code, 0);
        std::string sheet = run({"export", "other.db3"}).out;
        sheet.replace(sheet.find(",7,8\r"), 5, ",7,\r"); // a new recipe
        write("new.csv", sheet);
        std::string titles = run({"titles", "export", "old.db3"}).out;
        titles.replace(titles.find("Rolls"), 5, "Buns!");
        write("titles.csv", titles);
    }

    void copyFile(const std::string& from, const std::string& to)
    {
        QFile::remove(path(to));
        ASSERT_TRUE(QFile::copy(path(from), path(to)));
    }

    /// The exit code of the command when it is killed at that call, as bash gives it.
    int killAt(long call, const std::string& command)
    {
        return runShell("LD_PRELOAD=" KILLED_AT_LIBRARY " KILLED_AT=" + std::to_string(call) + ' '
                        + program().toStdString() + ' ' + command + " >/dev/null 2>&1")
            .code;
    }

    int plainly(const std::string& command)
    {
        return runShell(program().toStdString() + ' ' + command + " >/dev/null 2>&1").code;
    }

    Words backups() const
    {
        Words names = files();
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [](const std::string& name) {
                                       return name.size() < 4 || name.substr(name.size() - 4) != ".bak";
                                   }),
                    names.end());
        return names;
    }

    void removeBackups()
    {
        for (const std::string& name : backups())
            QFile::remove(path(name));
    }

    /// What is in the file, or nothing.
    std::string content(const std::string& name)
    {
        if (!exists(name))
            return std::string();
        const bool database = name.substr(name.size() - 4) == ".db3";
        return database ? dump(name) : read(name);
    }
};

class KilledChange : public Killed
{
};

class KilledMaking : public Killed
{
};

std::string nameOf(const testing::TestParamInfo<Job>& info)
{
    return info.param.name;
}

} // namespace

TEST_P(KilledChange, LeavesTheFileOldOrNewAndAWayBack)
{
    const std::string command = GetParam().command;
    copyFile("old.db3", "k.db3");
    ASSERT_EQ(plainly(command), 0);
    const std::string before = dump("old.db3");
    const std::string after = dump("k.db3");
    ASSERT_NE(before, after);
    int old = 0;
    int changed = 0;
    for (long call = 1;; ++call) {
        removeBackups();
        copyFile("old.db3", "k.db3");
        const int code = killAt(call, command);
        if (code != KILLED) {
            ASSERT_EQ(code, 0);
            break;
        }
        SCOPED_TRACE("killed at call " + std::to_string(call));
        ASSERT_EQ(run({"list", "k.db3"}).code, 0); // takes an unfinished write back
        const std::string now = dump("k.db3");
        ASSERT_TRUE(now == before || now == after);
        ASSERT_EQ(query("k.db3", "PRAGMA integrity_check"), Words{"ok"});
        for (const std::string& backup : backups())
            ASSERT_EQ(dump(backup), before) << backup << " is half a backup";
        ASSERT_TRUE(now == before || !backups().empty()) << "changed with no backup";
        (now == before ? old : changed)++;
        if (now == before) {
            ASSERT_EQ(plainly(command), 0) << "the second try";
            ASSERT_EQ(dump("k.db3"), after);
        }
    }
    std::cout << GetParam().name << ": killed at " << old + changed << " points, file old after " << old
              << ", new after " << changed << '\n';
    EXPECT_GT(old, 15) << "calls of the command are not seen";
    RecordProperty("killed", old + changed);
}

INSTANTIATE_TEST_SUITE_P(Command, KilledChange,
                         testing::Values(Job{"Import", "import k.db3 new.csv", ""}, Job{"Set", "set k.db3 0 1 90", ""},
                                         Job{"Add", "add k.db3 Neu", ""}, Job{"Copy", "copy k.db3 Rolls", ""},
                                         Job{"Rename", "rename k.db3 Rolls Buns", ""},
                                         Job{"Delete", "delete k.db3 Rolls", ""},
                                         Job{"TitlesImport", "titles import k.db3 titles.csv", ""},
                                         Job{"Restore", "restore --yes k.db3 other.db3", ""}),
                         nameOf);

TEST_P(KilledMaking, LeavesTheFileThatWasThereOrTheNewOne)
{
    const std::string name = GetParam().makes;
    const std::string command = GetParam().command;
    ASSERT_EQ(plainly(command), 0);
    const std::string made = content(name);
    ASSERT_FALSE(made.empty());
    const bool replaces = command.find("--force") != std::string::npos;
    const bool database = name.substr(name.size() - 4) == ".db3";
    int killed = 0;
    for (long call = 1;; ++call) {
        QFile::remove(path(name));
        if (replaces && database)
            copyFile("other.db3", name);
        else if (replaces)
            write(name, "what was there\n");
        const std::string before = content(name);
        const int code = killAt(call, command);
        if (code != KILLED) {
            ASSERT_EQ(code, 0);
            break;
        }
        SCOPED_TRACE("killed at call " + std::to_string(call));
        ++killed;
        const std::string now = content(name);
        ASSERT_TRUE(now == before || now == made) << now;
        if (now == before) {
            ASSERT_EQ(plainly(command), 0) << "the second try";
        }
        ASSERT_EQ(content(name), made);
    }
    std::cout << GetParam().name << ": killed at " << killed << " points\n";
    EXPECT_GT(killed, 0) << "calls of the command are not seen";
    RecordProperty("killed", killed);
}

INSTANTIATE_TEST_SUITE_P(
    Command, KilledMaking,
    testing::Values(Job{"Create", "create " + std::string(SOURCE_DIR "/examples/bakery.json") + " n.db3", "n.db3"},
                    Job{"CreateOver", "create --force " + std::string(SOURCE_DIR "/examples/bakery.json") + " n.db3",
                        "n.db3"},
                    Job{"Generate", "generate --items 20 --recipes 5 g.db3", "g.db3"},
                    Job{"Export", "export old.db3 e.csv", "e.csv"},
                    Job{"ExportOver", "export --force old.db3 e.csv", "e.csv"},
                    Job{"ExportOfTitles", "titles export --force old.db3 t.csv", "t.csv"},
                    Job{"Backup", "backup old.db3 b.db3", "b.db3"},
                    Job{"RestoreWhereNothingIs", "restore --yes r.db3 old.db3", "r.db3"}),
    nameOf);
