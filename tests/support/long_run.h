// For tests that take longer when they are asked to: how much is asked for, and how far they are.
#ifndef LONG_RUN_H
#define LONG_RUN_H

#include <chrono>
#include <string>

/// What an environment variable asks for, as RECIPE_CUTS=300 does; `otherwise` where it is not set. Throws
/// std::invalid_argument, which fails the test, for anything else than a whole number from `least` on: nobody wants to
/// learn after hours that something else was tried.
int wishedFor(const char* variable, int otherwise, int least);

/// Says on standard error how far a run is, once in a while. One thread.
class LongRun
{
public:
    typedef std::chrono::steady_clock Clock;

    /// `what` is done `total` times.
    LongRun(const std::string& what, int total, Clock::duration interval = std::chrono::seconds(10));

    void done(int count);

private:
    const std::string m_what;
    const int m_total;
    const Clock::duration m_interval;
    const Clock::time_point m_begun;
    Clock::time_point m_said;
};

#endif
