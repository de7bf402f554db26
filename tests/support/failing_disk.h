// A disk for SQLite that fails on demand and that remembers what a power cut would leave behind. While one is alive,
// all connections that are opened use it; close them before it goes.
#ifndef FAILING_DISK_H
#define FAILING_DISK_H

#include <functional>

class FailingDisk
{
public:
    FailingDisk();
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    /// What can fail: changes of a file (write, truncate, sync) and removals of one. They are counted from 0.
    int changes() const;
    /// From now on: change number `first` counted from here, and the `count` - 1 that follow, fail with this SQLite
    /// code. Counting starts again.
    void failFrom(int first, int count, int code);
    void work();
    /// Called before each change, with its number.
    void beforeEach(std::function<void(int)> observer);
};

#endif
