#include "console.h"

#include <cerrno>
#include <chrono>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

const long long QUIET_MS = 500; // shorter work needs no progress
const long long REDRAW_MS = 100;

int dataFailure = 0; ///< errno

long long now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

void printData(const std::string& text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() && dataFailure == 0)
        dataFailure = errno;
}

int finishData()
{
    if (std::fflush(stdout) != 0 && dataFailure == 0)
        dataFailure = errno;
    return dataFailure;
}

void occupyStandardDescriptors()
{
    int descriptor = 0;
    do
        descriptor = open("/dev/null", O_RDONLY); // the lowest free number; writing to it fails, as it should
    while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

void say(const std::string& sentence)
{
    finishData(); // on a terminal, data that was printed before comes before
    std::fprintf(stderr, "recipe-file: %s\n", sentence.c_str());
}

Progress::Progress(std::string unit, long long total)
    : m_unit(std::move(unit)), m_total(total), m_start(now()), m_shownAt(0), m_terminal(isatty(STDERR_FILENO) == 1),
      m_visible(false)
{}

Progress::~Progress()
{
    if (m_visible)
        std::fprintf(stderr, "\r%*s\r", 60, "");
}

void Progress::reach(long long done)
{
    if (!m_terminal)
        return;
    const long long time = now();
    if (time - m_start < QUIET_MS || time - m_shownAt < REDRAW_MS)
        return;
    m_shownAt = time;
    m_visible = true;
    std::fprintf(stderr, "\rrecipe-file: %lld of %lld %s", done, m_total, m_unit.c_str());
    std::fflush(stderr);
}

StdoutIsTalk::StdoutIsTalk() : m_saved(-1)
{
    finishData();
    m_saved = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

StdoutIsTalk::~StdoutIsTalk()
{
    std::fflush(stdout);
    if (m_saved < 0)
        return;
    dup2(m_saved, STDOUT_FILENO);
    close(m_saved);
}
