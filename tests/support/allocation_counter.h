// Counts what a stretch of code asks of the heap, on the thread that constructed the counter.
//
// A program that uses it gets a malloc of its own that counts and hands on to the C library's; under a sanitizer the
// sanitizer's hook counts instead.
#ifndef ALLOCATION_COUNTER_H
#define ALLOCATION_COUNTER_H

#include <cstddef>

/// One at a time per thread.
class AllocationCounter
{
public:
    AllocationCounter();
    ~AllocationCounter();
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

    /// Since the construction.
    std::size_t calls() const;
    std::size_t bytes() const;
};

#endif
