// Lets QProcess work in programs that qemu runs: tests, and the panel that they start. Linked into those only.
//
// Qt asks the kernel whether a process can be waited for by a file descriptor, and then starts processes that way.
// qemu (7.2) passes the question on and hears yes, but cannot start such a process. Here the answer is no, and Qt
// starts processes as it did before. The program comes before the libraries, so this takes the place of glibc's
// function.
#include <cerrno>
#include <cstdarg>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" long syscall(long number, ...) noexcept
{
    const long BY_DESCRIPTOR = 3; // P_PIDFD
    typedef long (*Syscall)(long, ...);
    static const Syscall real = reinterpret_cast<Syscall>(dlsym(RTLD_NEXT, "syscall"));

    va_list list;
    va_start(list, number);
    long a[6];
    for (long& argument : a)
        argument = va_arg(list, long);
    va_end(list);
    if (number == SYS_waitid && a[0] == BY_DESCRIPTOR) {
        errno = EINVAL;
        return -1;
    }
    return real(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}
