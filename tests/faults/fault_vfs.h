// A disk that fails on command: an SQLite VFS over the real one.
//
// Registered as the default VFS of the test process, so that the code that ships runs unchanged. It can
//   - fail the n-th operation of a kind with a chosen SQLite code,
//   - run out of space after n bytes,
//   - cut the power at the n-th operation that changes the disk: what was not synced is lost, kept, or half kept,
//   sector
//     by sector; every later operation fails, as on a machine that is off,
//   - count and list what was done.
//
// How it models the disk. The real file holds what the running system sees. Beside it the VFS remembers, per file, the
// content that is on the disk for good (as of the last sync) and the writes since then. A cut makes the file on the
// disk: the safe content plus those of the later writes, in sectors, that the chosen policy lets through. A new file is
// on the disk once it has been synced; a deleted one is gone at once when SQLite asked for the directory to be synced,
// else only with the policy that loses nothing.
//
// All calls, also from SQLite, take one mutex: connections in several threads are fine. Temporary files without a name
// go straight to the real VFS.
#ifndef FAULT_VFS_H
#define FAULT_VFS_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class FaultVfs
{
public:
    enum Operation
    {
        Open,
        Read,
        Write,
        Truncate,
        Sync,
        Delete,
        Lock,
        OperationCount
    };

    /// What survives of the writes that were not synced.
    enum Survival
    {
        NothingUnsynced, ///< all of them are lost
        EverythingSoFar, ///< none is lost: the power failed after the caches were written
        RandomSectors,   ///< each sector of each write is lost or kept by chance, in any order
        LastWritesOnly   ///< the newer half is kept and the older half lost: written in another order
    };

    static const int SECTOR = 512;

    /// Makes the VFS the default one of the process; the one object there is.
    static FaultVfs& install();

    /// Forgets faults, counts and what was cut; the disk works again. Files keep their content. Connections must be
    /// closed.
    void reset();

    /// The n-th (from 1) operation of that kind from now on fails with `code`; with `forGood` all later ones do too.
    void failNth(Operation operation, int n, int code, bool forGood = false);
    /// Writes that grow files by more than `bytes` in all from now on fail with SQLITE_FULL.
    void fillAfter(std::int64_t bytes);
    /// Calls the function once, before the n-th (from 1) operation of any kind from now on. It may use the file from
    /// another process. 0: never.
    void beforeNth(int n, const std::function<void()>& happening);
    /// The n-th (from 1) disk-changing operation (open of a new file, write, truncate, sync, delete) and all that
    /// follow do not happen any more. `seed` decides the random choices.
    void cutPowerAt(int n, Survival survival, unsigned seed = 1);
    /// Cuts the power now, if it is not cut yet, and leaves on the real disk what the policy lets survive.
    void powerOff(Survival survival, unsigned seed = 1);

    /// How often a fault really struck.
    int struck() const;
    bool powerIsOff() const;
    /// Operations of one kind since the last reset.
    int count(Operation operation) const;
    /// Disk-changing operations since the last reset: the places where the power can be cut.
    int changes() const;
    /// What was done, one line each: "write recipeN.db3 4096 @ 0".
    std::vector<std::string> log() const;
    /// Files open now, named ones.
    int openFiles() const;

private:
    FaultVfs();
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;
};

#endif
