#include "disk_faults.h"

#include "RecipeDB.h"
#include "other_process.h"
#include "outside_sqlite.h"
#include "recipe_db_probe.h"
#include "sqlite_errors.h"

#include <cstdio>

namespace {

struct DiskFault
{
    const char* name;
    const char* kind;
    FaultVfs::Operation operation;
    int code;
};

const char IO_ERROR[] = "I/O error";
const char FULL_DISK[] = "full disk";
const char FOREIGN_LOCK[] = "lock of another process";

const DiskFault FAULTS[] = {
    {"read error", IO_ERROR, FaultVfs::Read, SQLITE_IOERR_READ},
    {"write error", IO_ERROR, FaultVfs::Write, SQLITE_IOERR_WRITE},
    {"full disk", FULL_DISK, FaultVfs::Write, SQLITE_FULL},
    {"sync error", IO_ERROR, FaultVfs::Sync, SQLITE_IOERR_FSYNC},
    {"delete error", IO_ERROR, FaultVfs::Delete, SQLITE_IOERR_DELETE},
    {"open error", IO_ERROR, FaultVfs::Open, SQLITE_CANTOPEN},
    {"refused lock", FOREIGN_LOCK, FaultVfs::Lock, SQLITE_BUSY},
};

const OtherProcess::Lock LOCKS[] = {OtherProcess::Shared, OtherProcess::Reserved, OtherProcess::Exclusive};

} // namespace

DiskFaults::DiskFaults() : m_other(new OtherProcess(recipeFile())) {}

DiskFaults::~DiskFaults() {}

/// False: the fault did not come to strike.
bool DiskFaults::strike(const StorageJob& job, const Fault& fault, FaultTally& tally)
{
    restoreFile();
    RecipeSheetItems& sheet = openSheet();
    const std::string where = std::string(job.name) + ", " + fault.where;
    fault.begin();
    bool announced = false;
    {
        SqliteErrors allowed(SqliteErrors::Allowed);
        announced = job.run(sheet);
    }
    const bool struck = fault.end();
    if (!struck) {
        closeSheet(sheet);
        return false;
    }
    EXPECT_EQ(damage(), "") << where;
    expectOldOrNew(job, announced, where);
    const bool isWhole = !HasFailure();
    expectNoLockIsLeft(where);
    settle();
    if (!job.isTheSheets)
        sheet.update_result(4); // the runtime tells it that the file is another
    expectSheetShowsTheFile(job, sheet, where);
    expectNextJobWorks(job, sheet, where);
    sheet.update_result(4); // the last cell was written behind its back
    expectSheetShowsTheFile(job, sheet, where + ", after the same again");
    closeSheet(sheet);
    vfs.powerOff(FaultVfs::NothingUnsynced);
    vfs.reset();
    EXPECT_EQ(outsideQuery(recipeFile(), "SELECT D0 FROM data_0 WHERE column = 0;"), "4711.0")
        << where << ": the next job's result was gone after a power cut";
    tally.add(true, !HasFailure() ? FaultTally::Fine : isWhole ? FaultTally::Found : FaultTally::LostData);
    return true;
}

/// A fault in a save may fail single cells, and the save still says what it says; all others are atomic.
void DiskFaults::expectOldOrNew(const StorageJob& job, bool announced, const std::string& where)
{
    if (!job.atomic) {
        expectOldOrNewLineByLine(m_beforeLines, m_afterLines, lines(), where);
        return;
    }
    const std::string found = contents();
    EXPECT_TRUE(found == m_before || found == m_after) << where;
    EXPECT_TRUE(!job.announcesFailures || found == (announced ? m_after : m_before))
        << where << (announced ? ": success was announced" : ": a failure was announced");
}

/// An open transaction or query would keep others from writing.
void DiskFaults::expectNoLockIsLeft(const std::string& where)
{
    EXPECT_EQ(RecipeDBProbe::openStatement(*RecipeDB::getInstance()), "") << where;
    EXPECT_EQ(outsideQuery(recipeFile(), "BEGIN EXCLUSIVE;"), "") << where << ": the file is still locked";
}

/// The same connection writes for good: another one sees it.
void DiskFaults::expectNextJobWorks(const StorageJob& job, RecipeSheetItems& sheet, const std::string& where)
{
    const std::string cell = outsideQuery(recipeFile(), "SELECT D0 FROM data_0 WHERE column = 0;");
    EXPECT_EQ(RecipeDB::getInstance()->updateTable_Data_Column_One(0, 0, 0, QString::fromStdString(cell)), 0)
        << where << ": a cell";
    const bool wasOld = contents() == m_before;
    EXPECT_TRUE(job.run(sheet)) << where << ": the same again";
    EXPECT_TRUE(!wasOld || contents() == m_after) << where << ": the same again";
    expectNoLockIsLeft(where + ", after the same again");
    EXPECT_EQ(RecipeDB::getInstance()->updateTable_Data_Column_One(0, 0, 0, QString::fromLatin1("4711")), 0) << where;
    EXPECT_EQ(outsideQuery(recipeFile(), "SELECT D0 FROM data_0 WHERE column = 0;"), "4711.0")
        << where << ": an open transaction swallowed the next edit";
}

void DiskFaults::expectSheetShowsTheFile(const StorageJob& job, RecipeSheetItems& sheet, const std::string& where)
{
    RecipeSheetProbe probe(sheet);
    EXPECT_TRUE(probe.editedCells().isEmpty() && probe.editedList().isEmpty()) << where;
    sheet.checkAndLoadRequiredBlocks(); // as a repaint does
    sheet.refresh_displayInfo();
    for (int row = 0; row < 10; ++row) {
        const std::string stored = outsideQuery(recipeFile(), "SELECT CAST(D" + std::to_string(row)
                                                                  + " AS INTEGER) FROM data_0 WHERE column = 0;");
        EXPECT_EQ(probe.cellText(0, row).toStdString(), stored) << where;
    }
    if (job.isTheSheets)
        expectSheetShowsTitles(sheet, where);
}

void DiskFaults::expectSheetShowsTitles(RecipeSheetItems& sheet, const std::string& where)
{
    EXPECT_EQ(std::to_string(RecipeSheetProbe(sheet).recipeCount()),
              outsideQuery(recipeFile(), "SELECT count(*) FROM data_0;"))
        << where;
    for (int c = 0; c < 6; ++c) {
        const std::string stored = outsideQuery(
            recipeFile(), "SELECT L0 FROM lang_0 WHERE type = 2 AND strIndex = " + std::to_string(c) + ";");
        EXPECT_EQ(sheet.getColumnName(c).toStdString(), stored) << where << ", title " << c;
    }
}

void DiskFaults::strikeEverywhere(const StorageJob& job)
{
    learn(job);
    int strikes = 0;
    for (const DiskFault& fault : FAULTS) {
        for (const bool toTheEnd : {false, true}) {
            FaultTally tally(fault.kind);
            const std::string name = std::string(fault.name) + (toTheEnd ? " from operation " : " at operation ");
            for (int n = 1; !HasFailure(); ++n) {
                const Fault here = {fault.kind, name + std::to_string(n),
                                    [&] { vfs.failNth(fault.operation, n, fault.code, toTheEnd); },
                                    [&] {
                                        const bool struck = vfs.struck() > 0;
                                        vfs.failNth(fault.operation, 0, SQLITE_OK);
                                        return struck;
                                    }};
                if (!strike(job, here, tally))
                    break;
            }
            std::printf("%s, %s: struck %d times\n", job.name, (name + "n").c_str(), tally.struck());
            EXPECT_GT(tally.struck(), 0) << name;
            strikes += tally.struck();
        }
    }
    EXPECT_GT(strikes, 20);
}

void DiskFaults::renameAfterEveryReadError(const StorageJob& job)
{
    const char* const others = "SELECT L1, L2, L3, L4, L5, L6, L7 FROM lang_0 WHERE type = 2 AND strIndex = 1;";
    learn(job);
    const std::string titles = outsideQuery(recipeFile(), others);
    FaultTally tally("I/O error");
    for (int n = 1; !HasFailure(); ++n) {
        restoreFile();
        RecipeSheetItems& sheet = openSheet();
        vfs.failNth(FaultVfs::Read, n, SQLITE_IOERR_READ);
        SqliteErrors allowed(SqliteErrors::Allowed);
        job.run(sheet);
        const bool struck = vfs.struck() > 0;
        vfs.failNth(FaultVfs::Read, 0, SQLITE_OK);
        RecipeSheetProbe(sheet).selectedRow() = -1;
        RecipeSheetProbe(sheet).selectedColumn() = 1;
        sheet.keyboardReflash(QString::fromLatin1("Renamed"));
        sheet.saveRecipeFile();
        settle();
        EXPECT_EQ(outsideQuery(recipeFile(), others), titles) << "read error " << n;
        expectSheetShowsTitles(sheet, "read error " + std::to_string(n));
        closeSheet(sheet);
        if (!struck)
            break;
        tally.add(true, HasFailure() ? FaultTally::LostData : FaultTally::Fine);
    }
    EXPECT_GT(tally.struck(), 5);
}

void DiskFaults::fillEverywhere(const StorageJob& job, int step)
{
    learn(job);
    FaultTally tally(FULL_DISK);
    for (std::int64_t room = 0; !HasFailure(); room += step) {
        const Fault here = {FULL_DISK, "room for " + std::to_string(room) + " bytes", [&] { vfs.fillAfter(room); },
                            [&] {
                                vfs.fillAfter(-1);
                                return vfs.struck() > 0;
                            }};
        if (!strike(job, here, tally))
            break;
    }
    std::printf("%s: the disk was full in %d runs\n", job.name, tally.struck());
    EXPECT_GT(tally.struck(), 5);
}

void DiskFaults::lockEverywhere(const StorageJob& job)
{
    learn(job);
    FaultTally tally(FOREIGN_LOCK);
    for (const OtherProcess::Lock lock : LOCKS) {
        bool reached = true;
        bool taken = false;
        for (int n = 1; reached && !HasFailure(); ++n) {
            reached = taken = false;
            const Fault here = {FOREIGN_LOCK, std::string(OtherProcess::name(lock)) + " " + std::to_string(n),
                                [&] {
                                    vfs.beforeNth(n, [&] {
                                        reached = true;
                                        taken = m_other->take(lock);
                                    });
                                },
                                [&] {
                                    vfs.beforeNth(0, nullptr);
                                    m_other->release();
                                    return taken;
                                }};
            strike(job, here, tally);
        }
    }
    std::printf("%s: another process took a lock in %d runs\n", job.name, tally.struck());
    EXPECT_GT(tally.struck(), 10);
}
