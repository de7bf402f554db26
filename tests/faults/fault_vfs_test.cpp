// The failing disk itself: a fault kit that never strikes would prove nothing.
#include "fault_vfs.h"
#include "outside_sqlite.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

const char PATH[] = "/usr/tabrix/project/disk.db3";

class FaultyDisk : public testing::Test
{
protected:
    FaultyDisk() : vfs(FaultVfs::install())
    {
        QFile::remove(QString::fromLatin1(PATH));
        vfs.reset();
        OutsideSqlite setup(path());
        setup.exec("CREATE TABLE t (v TEXT); INSERT INTO t VALUES ('old');");
        vfs.reset();
    }
    ~FaultyDisk() override { vfs.reset(); }

    static QString path() { return QString::fromLatin1(PATH); }
    /// Opens, writes one row, closes; SQLite's code.
    static int insert(const char* sql = "INSERT INTO t VALUES ('new');", const char* synchronous = "EXTRA")
    {
        sqlite3* handle = nullptr;
        int code = sqlite3_open(PATH, &handle);
        if (code == SQLITE_OK)
            code = sqlite3_exec(handle, (std::string("PRAGMA synchronous=") + synchronous).c_str(), nullptr, nullptr,
                                nullptr);
        if (code == SQLITE_OK)
            code = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
        sqlite3_close(handle);
        return code;
    }
    static std::string rows() { return outsideQuery(path(), "SELECT group_concat(v) FROM t;"); }

    FaultVfs& vfs;
};

TEST_F(FaultyDisk, WorksLikeAnyDiskWithoutAFault)
{
    EXPECT_EQ(insert(), SQLITE_OK);
    EXPECT_EQ(rows(), "old,new");
    EXPECT_EQ(vfs.struck(), 0);
    EXPECT_EQ(vfs.openFiles(), 0);
}

TEST_F(FaultyDisk, CountsAndListsWhatWasDone)
{
    vfs.reset();
    insert();
    EXPECT_GT(vfs.count(FaultVfs::Write), 2);
    EXPECT_GE(vfs.count(FaultVfs::Sync), 2);
    EXPECT_EQ(vfs.count(FaultVfs::Delete), 1);
    const std::vector<std::string> log = vfs.log();
    ASSERT_GE(log.size(), 5u);
    EXPECT_EQ(log.front(), "open disk.db3");
    EXPECT_EQ(log.at(1), "create disk.db3-journal");
    EXPECT_EQ(log.back(), "delete disk.db3-journal");
}

TEST_F(FaultyDisk, FailsTheChosenOperationOnceWithTheChosenCode)
{
    struct Row
    {
        FaultVfs::Operation operation;
        int code;
    };
    for (const Row& row : {Row{FaultVfs::Open, SQLITE_CANTOPEN}, Row{FaultVfs::Read, SQLITE_IOERR_READ},
                           Row{FaultVfs::Write, SQLITE_IOERR_WRITE}, Row{FaultVfs::Write, SQLITE_FULL},
                           Row{FaultVfs::Sync, SQLITE_IOERR_FSYNC}, Row{FaultVfs::Lock, SQLITE_BUSY}}) {
        vfs.reset();
        vfs.failNth(row.operation, 1, row.code);
        EXPECT_EQ(insert() & 0xff, row.code & 0xff) << "operation " << row.operation;
        EXPECT_EQ(vfs.struck(), 1);
        EXPECT_EQ(insert(), SQLITE_OK) << "the fault is over";
    }
}

TEST_F(FaultyDisk, GoesOnFailingWhenToldForGood)
{
    vfs.reset();
    vfs.failNth(FaultVfs::Sync, 2, SQLITE_IOERR_FSYNC, true);
    EXPECT_NE(insert(), SQLITE_OK);
    EXPECT_NE(insert(), SQLITE_OK);
    EXPECT_GE(vfs.struck(), 2);
}

TEST_F(FaultyDisk, IsFullAfterSoManyBytes)
{
    vfs.reset();
    vfs.fillAfter(16 * 1024);
    const char* const big = "INSERT INTO t VALUES (hex(zeroblob(20000)));";
    EXPECT_EQ(insert(), SQLITE_OK) << "a small row fits";
    EXPECT_EQ(insert(big), SQLITE_FULL);
    EXPECT_GE(vfs.struck(), 1);
    vfs.reset();
    EXPECT_EQ(insert(big), SQLITE_OK);
}

TEST_F(FaultyDisk, EveryCutLeavesTheOldOrTheNewRows)
{
    int cuts = 0;
    for (const FaultVfs::Survival survival :
         {FaultVfs::NothingUnsynced, FaultVfs::EverythingSoFar, FaultVfs::RandomSectors, FaultVfs::LastWritesOnly}) {
        for (int n = 1;; ++n) {
            QFile::remove(path());
            QFile::remove(path() + QLatin1String("-journal"));
            vfs.reset();
            OutsideSqlite(path()).exec("CREATE TABLE t (v TEXT); INSERT INTO t VALUES ('old');");
            vfs.reset(); // forgets that journal
            vfs.cutPowerAt(n, survival, static_cast<unsigned>(n));
            const int code = insert();
            const bool cut = vfs.powerIsOff();
            EXPECT_EQ(vfs.struck(), cut ? 1 : 0);
            vfs.powerOff(survival, static_cast<unsigned>(n));
            vfs.reset();
            EXPECT_EQ(outsideQuery(path(), "PRAGMA integrity_check;"), "ok") << "cut " << n;
            if (!cut) {
                EXPECT_EQ(code, SQLITE_OK);
                EXPECT_EQ(rows(), "old,new");
                break;
            }
            ++cuts;
            EXPECT_TRUE(rows() == "old" || rows() == "old,new") << "cut " << n << ": " << rows();
        }
    }
    EXPECT_GT(cuts, 20);
}

TEST_F(FaultyDisk, LosesWhatAWriterDidNotSync)
{
    EXPECT_EQ(insert("INSERT INTO t VALUES ('new');", "OFF"), SQLITE_OK);
    vfs.powerOff(FaultVfs::NothingUnsynced);
    vfs.reset();
    EXPECT_EQ(rows(), "old") << "a careless writer is found out";
}

TEST_F(FaultyDisk, BringsADeletedJournalBackUnlessTheDirectoryWasSynced)
{
    EXPECT_EQ(insert("INSERT INTO t VALUES ('new');", "FULL"), SQLITE_OK);
    vfs.powerOff(FaultVfs::NothingUnsynced);
    vfs.reset();
    EXPECT_EQ(rows(), "old") << "what was committed is rolled back by the journal that came back";
}

} // namespace
