// A layer over SQLite's own disk: it counts and refuses changes, and hands on the rest.
#include "failing_disk.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <limits>

namespace {

struct State
{
    int changes = 0;
    int failFirst = std::numeric_limits<int>::max();
    int failCount = 0;
    int code = SQLITE_OK;
    std::function<void(int)> observer;

    /// SQLITE_OK or the code with which this change fails.
    int change()
    {
        const int number = changes++;
        if (observer)
            observer(number);
        return number >= failFirst && number - failFirst < failCount ? code : SQLITE_OK;
    }
};

State state;
sqlite3_vfs* real = nullptr;
sqlite3_vfs layer;

struct File
{
    sqlite3_file base;
    sqlite3_file* inner; // lies behind this record
};

sqlite3_file* innerOf(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file)->inner;
}

int doClose(sqlite3_file* file)
{
    return innerOf(file)->pMethods->xClose(innerOf(file));
}
int doRead(sqlite3_file* file, void* data, int size, sqlite3_int64 at)
{
    return innerOf(file)->pMethods->xRead(innerOf(file), data, size, at);
}
int doWrite(sqlite3_file* file, const void* data, int size, sqlite3_int64 at)
{
    const int code = state.change();
    return code ? code : innerOf(file)->pMethods->xWrite(innerOf(file), data, size, at);
}
int doTruncate(sqlite3_file* file, sqlite3_int64 size)
{
    const int code = state.change();
    return code ? code : innerOf(file)->pMethods->xTruncate(innerOf(file), size);
}
int doSync(sqlite3_file* file, int flags)
{
    const int code = state.change();
    return code ? code : innerOf(file)->pMethods->xSync(innerOf(file), flags);
}
int doFileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return innerOf(file)->pMethods->xFileSize(innerOf(file), size);
}
int doLock(sqlite3_file* file, int kind)
{
    return innerOf(file)->pMethods->xLock(innerOf(file), kind);
}
int doUnlock(sqlite3_file* file, int kind)
{
    return innerOf(file)->pMethods->xUnlock(innerOf(file), kind);
}
int doCheckReservedLock(sqlite3_file* file, int* result)
{
    return innerOf(file)->pMethods->xCheckReservedLock(innerOf(file), result);
}
int doFileControl(sqlite3_file* file, int operation, void* argument)
{
    return innerOf(file)->pMethods->xFileControl(innerOf(file), operation, argument);
}
int doSectorSize(sqlite3_file* file)
{
    return innerOf(file)->pMethods->xSectorSize(innerOf(file));
}
int doDeviceCharacteristics(sqlite3_file* file)
{
    return innerOf(file)->pMethods->xDeviceCharacteristics(innerOf(file));
}

const sqlite3_io_methods METHODS = {1,
                                    doClose,
                                    doRead,
                                    doWrite,
                                    doTruncate,
                                    doSync,
                                    doFileSize,
                                    doLock,
                                    doUnlock,
                                    doCheckReservedLock,
                                    doFileControl,
                                    doSectorSize,
                                    doDeviceCharacteristics,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr,
                                    nullptr};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    File* const own = reinterpret_cast<File*>(file);
    own->inner = reinterpret_cast<sqlite3_file*>(own + 1);
    own->base.pMethods = nullptr;
    const int code = real->xOpen(real, name, own->inner, flags, outFlags);
    if (own->inner->pMethods)
        own->base.pMethods = &METHODS;
    return code;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncDirectory)
{
    const int code = state.change();
    return code ? code : real->xDelete(real, name, syncDirectory);
}

} // namespace

FailingDisk::FailingDisk()
{
    state = State();
    real = sqlite3_vfs_find(nullptr);
    std::memcpy(&layer, real, sizeof(layer));
    layer.zName = "failing_disk";
    layer.szOsFile = real->szOsFile + static_cast<int>(sizeof(File));
    layer.xOpen = openFile;
    layer.xDelete = deleteFile;
    EXPECT_EQ(sqlite3_vfs_register(&layer, 1), SQLITE_OK);
}

FailingDisk::~FailingDisk()
{
    sqlite3_vfs_unregister(&layer);
    sqlite3_vfs_register(real, 1);
}

int FailingDisk::changes() const
{
    return state.changes;
}

void FailingDisk::failFrom(int first, int count, int code)
{
    state.changes = 0;
    state.failFirst = first;
    state.failCount = count;
    state.code = code;
}

void FailingDisk::work()
{
    failFrom(std::numeric_limits<int>::max(), 0, SQLITE_OK);
}

void FailingDisk::beforeEach(std::function<void(int)> observer)
{
    state.observer = std::move(observer);
}
