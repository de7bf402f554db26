// Memory that is lost and is wanted to be lost. The leak checker would know it by the function that lost it, but sees
// no callers through SQLite, which is built without frame pointers.
#ifndef WANTED_LEAK_H
#define WANTED_LEAK_H

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>

/// What this thread allocates during its life counts as no leak.
typedef __lsan::ScopedDisabler WantedLeak;
#else
class WantedLeak
{
public:
    WantedLeak() {}
    ~WantedLeak() {} // not trivial, so that no compiler calls it unused
    WantedLeak(const WantedLeak&) = delete;
    WantedLeak& operator=(const WantedLeak&) = delete;
};
#endif

#endif
