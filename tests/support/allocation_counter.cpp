#include "allocation_counter.h"

namespace {

thread_local bool counting = false;
thread_local std::size_t callCount = 0;
thread_local std::size_t byteCount = 0;

void note(std::size_t size)
{
    if (!counting)
        return;
    ++callCount;
    byteCount += size;
}

} // namespace

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                                         void (*freed)(const volatile void*));

namespace {

void allocated(const volatile void*, std::size_t size)
{
    note(size);
}

void freed(const volatile void*) {}

const bool installed = __sanitizer_install_malloc_and_free_hooks(allocated, freed) != 0;

} // namespace

#else

// The C library's own, under its other names.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

extern "C" void* malloc(std::size_t size)
{
    note(size);
    return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    note(count * size);
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size)
{
    note(size);
    return __libc_realloc(block, size);
}

namespace {

const bool installed = true;

} // namespace

#endif

AllocationCounter::AllocationCounter()
{
    callCount = 0;
    byteCount = 0;
    counting = installed;
}

AllocationCounter::~AllocationCounter()
{
    counting = false;
}

std::size_t AllocationCounter::calls() const
{
    return callCount;
}

std::size_t AllocationCounter::bytes() const
{
    return byteCount;
}
