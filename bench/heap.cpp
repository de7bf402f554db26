#include "heap.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstring>

// glibc's own, behind the names that this program takes over.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void __libc_free(void* block);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);
extern "C" void* __libc_memalign(std::size_t alignment, std::size_t size);

namespace {

std::atomic<std::size_t> inUse(0);
std::atomic<std::size_t> peak(0);
std::atomic<std::size_t> allocations(0);
std::atomic<std::size_t> allocated(0);

void* taken(void* block)
{
    if (!block)
        return block;
    const std::size_t size = malloc_usable_size(block);
    const std::size_t now = inUse += size;
    ++allocations;
    allocated += size;
    std::size_t highest = peak;
    while (now > highest && !peak.compare_exchange_weak(highest, now)) {
    }
    return block;
}

void givenBack(void* block)
{
    if (block)
        inUse -= malloc_usable_size(block);
}

} // namespace

void resetHeapPeak()
{
    peak = inUse.load();
}

std::size_t heapInUse()
{
    return inUse;
}

std::size_t heapPeak()
{
    return peak;
}

std::size_t heapAllocations()
{
    return allocations;
}

std::size_t heapAllocatedBytes()
{
    return allocated;
}

extern "C" {

void* malloc(std::size_t size)
{
    return taken(__libc_malloc(size));
}

void free(void* block)
{
    givenBack(block);
    __libc_free(block);
}

void* calloc(std::size_t count, std::size_t size)
{
    return taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size)
{
    givenBack(block);
    return taken(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return taken(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = taken(__libc_memalign(alignment, size));
    return *block ? 0 : ENOMEM;
}
}
