// Preloaded into a program, kills it at its KILLED_AT-th change to the file system: that call does not happen any more,
// but for the first half of every second write. A program that ends by itself before tells how many calls it made, in
// the file that KILLED_AT_COUNT names.
#include <dlfcn.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

long calls = 0;

/// Counts a call; whether the program dies of it.
bool struck()
{
    static const char* const at = std::getenv("KILLED_AT");
    ++calls;
    return at && calls == std::atol(at);
}

bool halfWritten()
{
    return calls % 2 == 0;
}

template <typename Function> Function real(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

__attribute__((destructor)) void tellCount()
{
    const char* const name = std::getenv("KILLED_AT_COUNT");
    std::FILE* const file = name ? std::fopen(name, "w") : nullptr;
    if (!file)
        return;
    std::fprintf(file, "%ld\n", calls);
    std::fclose(file);
}

} // namespace

// Calls through a pointer that was looked up: the name itself would call what stands here.
#define REAL(name) real(&::name, #name)

extern "C" {

ssize_t write(int file, const void* data, size_t size)
{
    const auto call = REAL(write);
    if (file > STDERR_FILENO && struck()) {
        if (halfWritten())
            call(file, data, size / 2);
        raise(SIGKILL);
    }
    return call(file, data, size);
}

ssize_t pwrite64(int file, const void* data, size_t size, off64_t offset)
{
    const auto call = REAL(pwrite64);
    if (struck()) {
        if (halfWritten())
            call(file, data, size / 2, offset);
        raise(SIGKILL);
    }
    return call(file, data, size, offset);
}

ssize_t writev(int file, const iovec* parts, int count)
{
    if (file > STDERR_FILENO && struck())
        raise(SIGKILL);
    return REAL(writev)(file, parts, count);
}

int fsync(int file)
{
    if (struck())
        raise(SIGKILL);
    return REAL(fsync)(file);
}

int fdatasync(int file)
{
    if (struck())
        raise(SIGKILL);
    return REAL(fdatasync)(file);
}

int ftruncate64(int file, off64_t size) noexcept
{
    if (struck())
        raise(SIGKILL);
    return REAL(ftruncate64)(file, size);
}

int unlink(const char* path) noexcept
{
    if (struck())
        raise(SIGKILL);
    return REAL(unlink)(path);
}

int rename(const char* from, const char* to) noexcept
{
    if (struck())
        raise(SIGKILL);
    return REAL(rename)(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    if (struck())
        raise(SIGKILL);
    return REAL(renameat2)(fromFolder, from, toFolder, to, flags);
}

} // extern "C"
