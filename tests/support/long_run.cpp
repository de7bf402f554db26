#include "long_run.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

int wishedFor(const char* variable, int otherwise, int least)
{
    const char* const wish = std::getenv(variable);
    if (!wish)
        return otherwise;
    int count = 0;
    const char* const end = wish + std::strlen(wish);
    const std::from_chars_result read = std::from_chars(wish, end, count); // refuses what an int cannot hold
    if (read.ec != std::errc() || read.ptr != end || count < least)
        throw std::invalid_argument(std::string(variable) + " is \"" + wish + "\", expected a whole number of "
                                    + std::to_string(least) + " or more");
    return count;
}

LongRun::LongRun(const std::string& what, int total, Clock::duration interval)
    : m_what(what), m_total(total), m_interval(interval), m_begun(Clock::now()), m_said(m_begun)
{}

void LongRun::done(int count)
{
    const Clock::time_point now = Clock::now();
    if (now - m_said < m_interval)
        return;
    m_said = now;
    const long long seconds = std::chrono::duration_cast<std::chrono::seconds>(now - m_begun).count();
    std::fprintf(stderr, "%s: %d of %d after %lld s\n", m_what.c_str(), count, m_total, seconds);
}
