#include "fault_vfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <unistd.h>

namespace {

/// One change of a file since its last sync.
struct Change
{
    bool truncation;
    sqlite3_int64 offset; // or the new size
    std::string bytes;
};

/// What the model knows of one named file.
struct DiskFile
{
    bool onDisk = false; // it would be there after a power cut
    std::string safe;    // with this content
    std::vector<Change> changes;
    bool deleted = false; // the running system does not see it any more
};

struct Fault
{
    int countdown = 0; // 0: none
    int code = SQLITE_OK;
    bool forGood = false;
};

struct State
{
    std::mutex mutex;
    sqlite3_vfs* real = nullptr;
    std::map<std::string, DiskFile> files;
    Fault faults[FaultVfs::OperationCount];
    int counts[FaultVfs::OperationCount] = {0};
    int changes = 0;
    int cutAt = 0; // 0: never
    FaultVfs::Survival survival = FaultVfs::NothingUnsynced;
    unsigned seed = 1;
    bool off = false;
    sqlite3_int64 space = -1; // -1: endless
    int struck = 0;
    int openFiles = 0;
    int happensIn = 0; // operations; 0: never
    std::function<void()> happening;
    std::vector<std::string> log;
};

State& state()
{
    static State it;
    return it;
}

/// Our file behind SQLite's pointer; the real VFS's file follows it in memory.
struct File
{
    sqlite3_file base;
    std::string* path; // null: a temporary file, not modelled
    bool counted;
    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File* asFile(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file);
}

std::string readWhole(const std::string& path)
{
    std::string content;
    if (FILE* f = std::fopen(path.c_str(), "rb")) {
        char buffer[65536];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof(buffer), f)) > 0)
            content.append(buffer, n);
        std::fclose(f);
    }
    return content;
}

void writeWhole(const std::string& path, const std::string& content)
{
    if (FILE* f = std::fopen(path.c_str(), "wb")) {
        std::fwrite(content.data(), 1, content.size(), f);
        std::fclose(f);
    }
}

std::string baseName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

// --- what happens to the disk when the power fails ---------------------------------------------------------------

void applyBytes(std::string& content, sqlite3_int64 offset, const std::string& bytes)
{
    const std::size_t end = static_cast<std::size_t>(offset) + bytes.size();
    if (content.size() < end)
        content.resize(end, '\0');
    content.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
}

void applyChange(std::string& content, const Change& change)
{
    if (change.truncation)
        content.resize(static_cast<std::size_t>(change.offset), '\0');
    else
        applyBytes(content, change.offset, change.bytes);
}

/// Cuts a write into its sectors.
std::vector<Change> sectors(const Change& change)
{
    if (change.truncation)
        return std::vector<Change>(1, change);
    std::vector<Change> parts;
    for (std::size_t done = 0; done < change.bytes.size();) {
        const sqlite3_int64 at = change.offset + static_cast<sqlite3_int64>(done);
        const std::size_t room = static_cast<std::size_t>(FaultVfs::SECTOR - at % FaultVfs::SECTOR);
        const std::size_t length = std::min(room, change.bytes.size() - done);
        parts.push_back(Change{false, at, change.bytes.substr(done, length)});
        done += length;
    }
    return parts;
}

std::string survivingContent(const DiskFile& file, FaultVfs::Survival survival, std::mt19937& random)
{
    std::string content = file.safe;
    std::vector<Change> parts;
    for (const Change& change : file.changes) {
        const std::vector<Change> cut = sectors(change);
        parts.insert(parts.end(), cut.begin(), cut.end());
    }
    switch (survival) {
    case FaultVfs::NothingUnsynced:
        break;
    case FaultVfs::EverythingSoFar:
        for (const Change& part : parts)
            applyChange(content, part);
        break;
    case FaultVfs::RandomSectors:
        std::shuffle(parts.begin(), parts.end(), random);
        for (const Change& part : parts) {
            if (random() % 2 == 0)
                applyChange(content, part);
        }
        break;
    case FaultVfs::LastWritesOnly:
        for (std::size_t i = parts.size() / 2; i < parts.size(); ++i)
            applyChange(content, parts[i]);
        break;
    }
    return content;
}

bool survives(const DiskFile& file, FaultVfs::Survival survival, std::mt19937& random)
{
    switch (survival) {
    case FaultVfs::EverythingSoFar:
        return !file.deleted;
    case FaultVfs::RandomSectors:
        if (file.deleted || !file.onDisk)
            return file.onDisk ? random() % 2 == 0 : !file.deleted && random() % 2 == 0;
        return true;
    default:
        return file.onDisk;
    }
}

/// Under the mutex. The real files become what the disk holds after the cut.
void leaveOnDisk(State& s)
{
    std::mt19937 random(s.seed);
    for (std::pair<const std::string, DiskFile>& entry : s.files) {
        if (survives(entry.second, s.survival, random))
            writeWhole(entry.first, survivingContent(entry.second, s.survival, random));
        else
            unlink(entry.first.c_str());
    }
    s.files.clear();
}

/// Not under the mutex. What is to happen before an operation.
void happen()
{
    State& s = state();
    std::function<void()> happening;
    {
        std::lock_guard<std::mutex> lock(s.mutex);
        if (s.off || s.happensIn == 0 || --s.happensIn > 0)
            return;
        happening.swap(s.happening);
    }
    happening();
}

// --- faults ------------------------------------------------------------------------------------------------------

const int POWER_OFF = SQLITE_IOERR;

/// Under the mutex. What the operation must return instead of happening, or SQLITE_OK.
int faultOf(State& s, FaultVfs::Operation operation)
{
    if (s.off)
        return POWER_OFF;
    ++s.counts[operation];
    Fault& fault = s.faults[operation];
    if (fault.countdown == 0 || --fault.countdown > 0)
        return SQLITE_OK;
    if (fault.forGood)
        fault.countdown = 1;
    ++s.struck;
    return fault.code;
}

/// Under the mutex. Counts a change of the disk; false: the power fails at this one.
bool mayChange(State& s)
{
    ++s.changes;
    if (s.cutAt == 0 || s.changes < s.cutAt)
        return true;
    s.off = true;
    ++s.struck;
    leaveOnDisk(s);
    return false;
}

int changing(State& s, FaultVfs::Operation operation)
{
    const int fault = faultOf(s, operation);
    if (fault != SQLITE_OK)
        return fault;
    return mayChange(s) ? SQLITE_OK : POWER_OFF;
}

void note(State& s, const char* what, const std::string& path, const std::string& more = std::string())
{
    s.log.push_back(std::string(what) + " " + baseName(path) + (more.empty() ? "" : " " + more));
}

/// The model of a file that is there already: all of it is on the disk.
DiskFile& modelled(State& s, const std::string& path)
{
    const std::map<std::string, DiskFile>::iterator known = s.files.find(path);
    if (known != s.files.end())
        return known->second;
    DiskFile& file = s.files[path];
    file.onDisk = access(path.c_str(), F_OK) == 0;
    if (file.onDisk)
        file.safe = readWhole(path);
    return file;
}

// --- SQLite's file methods ---------------------------------------------------------------------------------------

int fileClose(sqlite3_file* f)
{
    File* const file = asFile(f);
    std::lock_guard<std::mutex> lock(state().mutex);
    if (file->counted)
        --state().openFiles;
    delete file->path;
    file->path = nullptr;
    return file->real()->pMethods ? file->real()->pMethods->xClose(file->real()) : SQLITE_OK;
}

int fileRead(sqlite3_file* f, void* buffer, int amount, sqlite3_int64 offset)
{
    happen();
    File* const file = asFile(f);
    if (file->path) {
        std::lock_guard<std::mutex> lock(state().mutex);
        const int fault = faultOf(state(), FaultVfs::Read);
        if (fault != SQLITE_OK)
            return fault;
    }
    return file->real()->pMethods->xRead(file->real(), buffer, amount, offset);
}

/// Under the mutex. False: the disk is full.
bool takeSpace(State& s, File* file, int amount, sqlite3_int64 offset)
{
    if (s.space < 0)
        return true;
    sqlite3_int64 size = 0;
    file->real()->pMethods->xFileSize(file->real(), &size);
    const sqlite3_int64 growth = std::max<sqlite3_int64>(0, offset + amount - size);
    if (growth > s.space) {
        ++s.struck;
        return false;
    }
    s.space -= growth;
    return true;
}

int fileWrite(sqlite3_file* f, const void* buffer, int amount, sqlite3_int64 offset)
{
    happen();
    File* const file = asFile(f);
    if (!file->path)
        return file->real()->pMethods->xWrite(file->real(), buffer, amount, offset);
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    const int fault = changing(s, FaultVfs::Write);
    if (fault != SQLITE_OK)
        return fault;
    if (!takeSpace(s, file, amount, offset))
        return SQLITE_FULL;
    note(s, "write", *file->path, std::to_string(amount) + " @ " + std::to_string(offset));
    modelled(s, *file->path)
        .changes.push_back({false, offset, std::string(static_cast<const char*>(buffer), std::size_t(amount))});
    return file->real()->pMethods->xWrite(file->real(), buffer, amount, offset);
}

int fileTruncate(sqlite3_file* f, sqlite3_int64 size)
{
    happen();
    File* const file = asFile(f);
    if (!file->path)
        return file->real()->pMethods->xTruncate(file->real(), size);
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    const int fault = changing(s, FaultVfs::Truncate);
    if (fault != SQLITE_OK)
        return fault;
    note(s, "truncate", *file->path, std::to_string(size));
    modelled(s, *file->path).changes.push_back({true, size, std::string()});
    return file->real()->pMethods->xTruncate(file->real(), size);
}

int fileSync(sqlite3_file* f, int flags)
{
    happen();
    File* const file = asFile(f);
    if (!file->path)
        return file->real()->pMethods->xSync(file->real(), flags);
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    const int fault = changing(s, FaultVfs::Sync);
    if (fault != SQLITE_OK)
        return fault;
    note(s, "sync", *file->path);
    DiskFile& model = modelled(s, *file->path);
    for (const Change& change : model.changes)
        applyChange(model.safe, change);
    model.changes.clear();
    model.onDisk = true;
    return SQLITE_OK; // the model keeps what is safe; the real disk need not be waited for
}

int fileSize(sqlite3_file* f, sqlite3_int64* size)
{
    return asFile(f)->real()->pMethods->xFileSize(asFile(f)->real(), size);
}

int fileLock(sqlite3_file* f, int level)
{
    happen();
    File* const file = asFile(f);
    if (file->path) {
        std::lock_guard<std::mutex> lock(state().mutex);
        const int fault = faultOf(state(), FaultVfs::Lock);
        if (fault != SQLITE_OK)
            return fault;
    }
    return file->real()->pMethods->xLock(file->real(), level);
}

int fileUnlock(sqlite3_file* f, int level)
{
    happen();
    return asFile(f)->real()->pMethods->xUnlock(asFile(f)->real(), level);
}

int fileCheckReservedLock(sqlite3_file* f, int* result)
{
    return asFile(f)->real()->pMethods->xCheckReservedLock(asFile(f)->real(), result);
}

int fileControl(sqlite3_file* f, int op, void* argument)
{
    return asFile(f)->real()->pMethods->xFileControl(asFile(f)->real(), op, argument);
}

int fileSectorSize(sqlite3_file*)
{
    return FaultVfs::SECTOR;
}

int fileDeviceCharacteristics(sqlite3_file*)
{
    return 0; // no promise: neither atomic writes nor safe appends, nor powersafe overwrite
}

const sqlite3_io_methods METHODS = {1,
                                    fileClose,
                                    fileRead,
                                    fileWrite,
                                    fileTruncate,
                                    fileSync,
                                    fileSize,
                                    fileLock,
                                    fileUnlock,
                                    fileCheckReservedLock,
                                    fileControl,
                                    fileSectorSize,
                                    fileDeviceCharacteristics,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr};

// --- SQLite's VFS methods ----------------------------------------------------------------------------------------

/// Under the mutex. SQLITE_OK: the file may be opened.
int prepareOpen(State& s, const std::string& path, int flags)
{
    const int fault = faultOf(s, FaultVfs::Open);
    if (fault != SQLITE_OK)
        return fault == POWER_OFF ? SQLITE_CANTOPEN : fault;
    const bool exists = access(path.c_str(), F_OK) == 0;
    if (!exists && (flags & SQLITE_OPEN_CREATE) && !mayChange(s))
        return SQLITE_CANTOPEN;
    note(s, exists ? "open" : "create", path);
    DiskFile& file = modelled(s, path);
    if (!exists)
        file.changes.clear();
    file.deleted = false;
    return SQLITE_OK;
}

int vfsOpen(sqlite3_vfs*, const char* name, sqlite3_file* f, int flags, int* outFlags)
{
    File* const file = asFile(f);
    file->base.pMethods = nullptr;
    file->path = nullptr;
    file->counted = false;
    happen();
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (name) {
        const int fault = prepareOpen(s, name, flags);
        if (fault != SQLITE_OK)
            return fault;
    }
    std::memset(static_cast<void*>(file->real()), 0, static_cast<std::size_t>(s.real->szOsFile));
    const int code = s.real->xOpen(s.real, name, file->real(), flags, outFlags);
    if (code != SQLITE_OK)
        return code;
    file->base.pMethods = &METHODS;
    if (name) {
        file->path = new std::string(name);
        file->counted = true;
        ++s.openFiles;
    }
    return SQLITE_OK;
}

int vfsDelete(sqlite3_vfs*, const char* name, int syncDirectory)
{
    happen();
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    const int fault = changing(s, FaultVfs::Delete);
    if (fault != SQLITE_OK)
        return fault == POWER_OFF ? SQLITE_IOERR_DELETE : fault;
    note(s, "delete", name);
    DiskFile& file = modelled(s, name);
    file.deleted = true;
    if (syncDirectory) {
        file.onDisk = false;
        file.safe.clear();
    }
    file.changes.clear();
    return s.real->xDelete(s.real, name, 0);
}

int vfsAccess(sqlite3_vfs*, const char* name, int flags, int* result)
{
    return state().real->xAccess(state().real, name, flags, result);
}

int vfsFullPathname(sqlite3_vfs*, const char* name, int size, char* out)
{
    return state().real->xFullPathname(state().real, name, size, out);
}

int vfsRandomness(sqlite3_vfs*, int size, char* out)
{
    std::memset(out, 42, static_cast<std::size_t>(size)); // every run the same
    return size;
}

int vfsSleep(sqlite3_vfs*, int microseconds)
{
    return state().real->xSleep(state().real, microseconds);
}

int vfsCurrentTime(sqlite3_vfs*, double* now)
{
    return state().real->xCurrentTime(state().real, now);
}

int vfsGetLastError(sqlite3_vfs*, int size, char* out)
{
    return state().real->xGetLastError(state().real, size, out);
}

sqlite3_vfs* makeVfs()
{
    State& s = state();
    s.real = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs vfs;
    vfs.iVersion = 1;
    vfs.szOsFile = static_cast<int>(sizeof(File)) + s.real->szOsFile;
    vfs.mxPathname = s.real->mxPathname;
    vfs.zName = "fault";
    vfs.xOpen = vfsOpen;
    vfs.xDelete = vfsDelete;
    vfs.xAccess = vfsAccess;
    vfs.xFullPathname = vfsFullPathname;
    vfs.xRandomness = vfsRandomness;
    vfs.xSleep = vfsSleep;
    vfs.xCurrentTime = vfsCurrentTime;
    vfs.xGetLastError = vfsGetLastError;
    return &vfs;
}

} // namespace

// --- the switchboard ---------------------------------------------------------------------------------------------

FaultVfs::FaultVfs()
{
    sqlite3_vfs_register(makeVfs(), 1);
}

FaultVfs& FaultVfs::install()
{
    static FaultVfs it;
    return it;
}

void FaultVfs::reset()
{
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.files.clear();
    for (Fault& fault : s.faults)
        fault = Fault();
    std::fill(std::begin(s.counts), std::end(s.counts), 0);
    s.changes = 0;
    s.cutAt = 0;
    s.off = false;
    s.space = -1;
    s.struck = 0;
    s.happensIn = 0;
    s.happening = nullptr;
    s.log.clear();
}

void FaultVfs::failNth(Operation operation, int n, int code, bool forGood)
{
    std::lock_guard<std::mutex> lock(state().mutex);
    state().faults[operation] = {n, code, forGood};
}

void FaultVfs::fillAfter(std::int64_t bytes)
{
    std::lock_guard<std::mutex> lock(state().mutex);
    state().space = bytes;
}

void FaultVfs::beforeNth(int n, const std::function<void()>& happening)
{
    std::lock_guard<std::mutex> lock(state().mutex);
    state().happensIn = n;
    state().happening = happening;
}

void FaultVfs::cutPowerAt(int n, Survival survival, unsigned seed)
{
    std::lock_guard<std::mutex> lock(state().mutex);
    state().cutAt = state().changes + n;
    state().survival = survival;
    state().seed = seed;
}

void FaultVfs::powerOff(Survival survival, unsigned seed)
{
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (s.off)
        return;
    s.off = true;
    s.survival = survival;
    s.seed = seed;
    leaveOnDisk(s);
}

int FaultVfs::struck() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().struck;
}

bool FaultVfs::powerIsOff() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().off;
}

int FaultVfs::count(Operation operation) const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().counts[operation];
}

int FaultVfs::changes() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().changes;
}

std::vector<std::string> FaultVfs::log() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().log;
}

int FaultVfs::openFiles() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().openFiles;
}
