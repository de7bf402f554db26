// An I/O error, a full disk or a lock of another process at every operation of a job. The process lives, the file stays
// whole, the next job works and is durable, and the sheet shows what is in the file.
#ifndef DISK_FAULTS_H
#define DISK_FAULTS_H

#include "fault_tally.h"
#include "storage_jobs.h"

#include <functional>
#include <memory>

class DiskFaults : public StorageJobs
{
protected:
    DiskFaults();
    ~DiskFaults() override;

    /// Every kind of fault at each operation that it can strike: there alone, and from there to the end of the job.
    void strikeEverywhere(const StorageJob& job);
    /// The disk gets full after every `step` bytes that files grow, and stays so to the end of the job.
    void fillEverywhere(const StorageJob& job, int step = 8192);
    /// A read error at each read of the job. Then recipe 1 is renamed in the first language, and saved.
    void renameAfterEveryReadError(const StorageJob& job);
    /// Another process takes each kind of lock before each operation and holds it until the job has ended.
    void lockEverywhere(const StorageJob& job);

private:
    /// Something that goes wrong during a job.
    struct Fault
    {
        const char* kind; ///< in the table of faults
        std::string where;
        std::function<void()> begin;
        std::function<bool()> end; ///< true: it struck
    };

    bool strike(const StorageJob& job, const Fault& fault, FaultTally& tally);
    void expectOldOrNew(const StorageJob& job, bool announced, const std::string& where);
    void expectNextJobWorks(const StorageJob& job, RecipeSheetItems& sheet, const std::string& where);
    static void expectNoLockIsLeft(const std::string& where);
    void expectSheetShowsTheFile(const StorageJob& job, RecipeSheetItems& sheet, const std::string& where);
    static void expectSheetShowsTitles(RecipeSheetItems& sheet, const std::string& where);

    std::unique_ptr<class OtherProcess> m_other; // holds locks
};

#endif
