// An I/O error, a full disk and a foreign lock at every operation of every job. The process lives, the file stays
// whole, the next job works and is durable, and the sheet shows what is in the file.
#include "RecipeDB.h"
#include "outside_sqlite.h"
#include "sqlite_errors.h"
#include "storage_jobs.h"

#include <cstdio>

namespace {

struct DiskFault
{
    const char* name;
    FaultVfs::Operation operation;
    int code;
};

const DiskFault FAULTS[] = {
    {"read error", FaultVfs::Read, SQLITE_IOERR_READ},
    {"write error", FaultVfs::Write, SQLITE_IOERR_WRITE},
    {"full disk", FaultVfs::Write, SQLITE_FULL},
    {"sync error", FaultVfs::Sync, SQLITE_IOERR_FSYNC},
    {"truncate error", FaultVfs::Truncate, SQLITE_IOERR_TRUNCATE},
    {"delete error", FaultVfs::Delete, SQLITE_IOERR_DELETE},
    {"open error", FaultVfs::Open, SQLITE_CANTOPEN},
    {"foreign lock", FaultVfs::Lock, SQLITE_BUSY},
};

class DiskFaultTest : public StorageJobs
{
protected:
    /// Puts the fault at the n-th operation. False: it did not come so far.
    bool strike(const StorageJob& job, const DiskFault& fault, int n)
    {
        restoreFile();
        RecipeSheetItems& sheet = openSheet();
        const std::string where = std::string(job.name) + ", " + fault.name + " " + std::to_string(n);
        vfs.failNth(fault.operation, n, fault.code);
        bool announced = false;
        int struck = 0;
        {
            SqliteErrors allowed(SqliteErrors::Allowed);
            announced = job.run(sheet);
            struck = vfs.struck();
        }
        vfs.failNth(fault.operation, 0, SQLITE_OK);
        if (struck > 0) {
            EXPECT_EQ(damage(), "") << where;
            expectOldOrNew(job, announced, where);
            expectNextJobWorks(where);
            expectSheetShowsTheFile(sheet, where);
        }
        closeSheet(sheet);
        return struck > 0;
    }

    /// A fault in a save may fail single cells, and the save still says what it says; all others are atomic.
    void expectOldOrNew(const StorageJob& job, bool announced, const std::string& where)
    {
        if (!job.atomic) {
            expectOldOrNewLineByLine(m_beforeLines, m_afterLines, lines(), where);
            return;
        }
        const std::string found = contents();
        EXPECT_TRUE(found == m_before || found == m_after) << where;
        const bool told = !announced || !m_isSave; // a save says that it succeeded whatever happened
        EXPECT_TRUE(!told || found == (announced ? m_after : m_before))
            << where << (announced ? ": success was announced" : ": a failure was announced");
    }

    /// The same connection writes durably: another one sees it, and it survives a power cut.
    void expectNextJobWorks(const std::string& where)
    {
        EXPECT_EQ(RecipeDB::getInstance()->updateTable_Data_Column_One(0, 0, 0, QString::fromLatin1("4711")), 0)
            << where;
        EXPECT_EQ(outsideQuery(recipeFile(), "SELECT D0 FROM data_0 WHERE column = 0;"), "4711.0")
            << where << ": an open transaction swallowed the next edit";
    }

    void expectSheetShowsTheFile(RecipeSheetItems& sheet, const std::string& where)
    {
        RecipeSheetProbe probe(sheet);
        probe.editedCells().clear();
        probe.editedList().clear();
        EXPECT_EQ(sheet.update_result(4), 1);
        sheet.refresh_displayInfo();
        EXPECT_EQ(probe.cellText(0, 0).toStdString(), "4711") << where;
    }

    void strikeEverywhere(const StorageJob& job, bool isSave)
    {
        m_isSave = isSave;
        restoreFile();
        m_before = contents();
        m_beforeLines = lines();
        m_after = contentsAfter(job);
        m_afterLines = lines();
        for (const DiskFault& fault : FAULTS) {
            int n = 1;
            while (!HasFailure() && strike(job, fault, n))
                ++n;
            std::printf("%s, %s: struck at %d places\n", job.name, fault.name, n - 1);
            m_strikes += n - 1;
        }
        EXPECT_GT(m_strikes, 20);
    }

    std::string m_before;
    std::string m_after;
    std::vector<std::string> m_beforeLines;
    std::vector<std::string> m_afterLines;
    bool m_isSave = false;
    int m_strikes = 0;
};

TEST_F(DiskFaultTest, AtAnyOperationOfASaveHarmsNoOtherCell)
{
    prepare(50, 20);
    strikeEverywhere(saveJob(3, 2), true);
}

TEST_F(DiskFaultTest, AtAnyOperationOfAnAddLeavesTheGroupWhole)
{
    prepare(50, 20);
    strikeEverywhere(addJob(3), false);
}

TEST_F(DiskFaultTest, AtAnyOperationOfADeleteLeavesTheGroupWhole)
{
    prepare(50, 20);
    strikeEverywhere(deleteJob(19), false);
}

TEST_F(DiskFaultTest, AFullDiskAtAnySizeLeavesTheGroupWhole)
{
    prepare(120, 60);
    const StorageJob job = addJob(3);
    m_before = (restoreFile(), contents());
    m_after = contentsAfter(job);
    int full = 0;
    for (std::int64_t room = 0; room < 4000000 && !HasFailure(); room += 8192) {
        restoreFile();
        RecipeSheetItems& sheet = openSheet();
        vfs.fillAfter(room);
        bool announced = false;
        {
            SqliteErrors allowed(SqliteErrors::Allowed);
            announced = job.run(sheet);
        }
        const bool struck = vfs.struck() > 0;
        vfs.fillAfter(-1);
        const std::string where = "room for " + std::to_string(room) + " bytes";
        EXPECT_EQ(damage(), "") << where;
        EXPECT_TRUE(contents() == (announced ? m_after : m_before)) << where;
        expectNextJobWorks(where);
        closeSheet(sheet);
        if (!struck)
            break;
        ++full;
    }
    std::printf("add: the disk was full in %d runs\n", full);
    EXPECT_GT(full, 5);
}

} // namespace
