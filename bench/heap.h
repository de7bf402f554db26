// Counts what the process takes from the heap. In a program of its own: the counting costs time.
#ifndef BENCH_HEAP_H
#define BENCH_HEAP_H

#include <cstddef>

/// Forgets the peak so far.
void resetHeapPeak();
std::size_t heapInUse();          ///< in bytes
std::size_t heapPeak();           ///< in bytes, since the last reset
std::size_t heapAllocations();    ///< since the start of the process
std::size_t heapAllocatedBytes(); ///< since the start of the process, freed ones included

#endif
