// The failing disk itself: a fault kit that never strikes would prove nothing.
#include "fault_vfs.h"
#include "outside_sqlite.h"

#include <QFile>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <vector>

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

const char RAW[] = "/usr/tabrix/project/raw";

/// A file of the failing disk without a database in it, in sectors of one letter each.
class RawFile
{
public:
    RawFile() : m_memory(static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->szOsFile))
    {
        sqlite3_vfs* const disk = sqlite3_vfs_find(nullptr);
        EXPECT_EQ(std::string(disk->zName), "fault");
        EXPECT_EQ(
            disk->xOpen(disk, RAW, file(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MAIN_DB, nullptr),
            SQLITE_OK);
    }
    ~RawFile() { file()->pMethods->xClose(file()); }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    /// One write: each letter fills a sector, from sector `first` on.
    void write(int first, const std::string& letters)
    {
        std::string bytes;
        for (const char letter : letters)
            bytes.append(FaultVfs::SECTOR, letter);
        EXPECT_EQ(
            file()->pMethods->xWrite(file(), bytes.data(), static_cast<int>(bytes.size()), first * FaultVfs::SECTOR),
            SQLITE_OK);
    }
    void sync() { EXPECT_EQ(file()->pMethods->xSync(file(), SQLITE_SYNC_FULL), SQLITE_OK); }
    void truncate(int sectors)
    {
        EXPECT_EQ(file()->pMethods->xTruncate(file(), sectors * FaultVfs::SECTOR), SQLITE_OK);
    }

private:
    sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(m_memory.data()); }

    std::vector<char> m_memory;
};

/// What a cut leaves of the raw file, as letters; "." for a sector of zeros, "-" for no file.
class ACutDisk : public FaultyDisk
{
protected:
    template <typename Job> std::string leaves(FaultVfs::Survival survival, unsigned seed, Job job)
    {
        QFile::remove(QString::fromLatin1(RAW));
        vfs.reset();
        {
            RawFile file;
            job(file);
            vfs.powerOff(survival, seed);
        }
        vfs.reset();
        std::ifstream in(RAW, std::ios::binary);
        if (!in)
            return "-";
        const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        std::string letters;
        for (std::size_t at = 0; at < bytes.size(); at += FaultVfs::SECTOR)
            letters += bytes[at] == '\0' ? '.' : bytes[at];
        return letters;
    }
    /// All that chance may leave.
    template <typename Job> std::set<std::string> mayLeave(Job job)
    {
        std::set<std::string> result;
        for (unsigned seed = 1; seed <= 500; ++seed)
            result.insert(leaves(FaultVfs::RandomSectors, seed, job));
        return result;
    }
};

TEST_F(ACutDisk, LosesAnySectorsOfAWrite)
{
    const auto job = [](RawFile& file) {
        file.write(0, "aa");
        file.sync();
        file.write(0, "bb");
    };
    EXPECT_EQ(mayLeave(job), (std::set<std::string>{"aa", "ab", "ba", "bb"}));
    EXPECT_EQ(leaves(FaultVfs::NothingUnsynced, 1, job), "aa");
    EXPECT_EQ(leaves(FaultVfs::EverythingSoFar, 1, job), "bb");
}

TEST_F(ACutDisk, LosesWhatAFileHasGrownOrShrunk)
{
    const auto grow = [](RawFile& file) {
        file.write(0, "a");
        file.sync();
        file.write(1, "bc");
    };
    EXPECT_EQ(mayLeave(grow), (std::set<std::string>{"a", "ab", "a.c", "abc"}));
    const auto shrink = [](RawFile& file) {
        file.write(0, "abc");
        file.sync();
        file.truncate(1);
    };
    EXPECT_EQ(mayLeave(shrink), (std::set<std::string>{"a", "abc"}));
    EXPECT_EQ(leaves(FaultVfs::NothingUnsynced, 1, shrink), "abc");
}

TEST_F(ACutDisk, WritesInAnotherOrder)
{
    const auto job = [](RawFile& file) {
        file.write(0, "aa");
        file.sync();
        file.write(0, "b");
        file.write(1, "b");
    };
    EXPECT_EQ(leaves(FaultVfs::LastWritesOnly, 1, job), "ab") << "the newer one without the older one";
}

TEST_F(ACutDisk, LosesANewFileThatWasNotSynced)
{
    const auto job = [](RawFile& file) { file.write(0, "a"); };
    EXPECT_EQ(leaves(FaultVfs::NothingUnsynced, 1, job), "-");
    EXPECT_EQ(leaves(FaultVfs::LastWritesOnly, 1, job), "-");
    EXPECT_EQ(mayLeave(job), (std::set<std::string>{"-", "", "a"}));
}

TEST_F(ACutDisk, KeepsWhatWasSynced)
{
    const auto job = [](RawFile& file) {
        file.write(0, "ab");
        file.sync();
    };
    EXPECT_EQ(mayLeave(job), std::set<std::string>{"ab"});
    EXPECT_EQ(leaves(FaultVfs::NothingUnsynced, 1, job), "ab");
    EXPECT_EQ(leaves(FaultVfs::LastWritesOnly, 1, job), "ab");
}

} // namespace
