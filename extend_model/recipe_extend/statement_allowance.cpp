// What one statement may take.
#include "statement_allowance.h"

#include <algorithm>

#include <time.h>

namespace {

const std::int64_t SECOND = 1000000000; // in nanoseconds
const std::int64_t MEGABYTE = 1 << 20;

/// Steps of SQLite's virtual machine: the same number for the same statement on every machine and under every load.
/// Reading, writing or counting a plain table takes at most two steps for each byte of the file, and some hundred at
/// least; the largest group (1900 items, 2000 recipes) takes eight million.
const std::int64_t STEPS = 2000000;
const std::int64_t STEPS_PER_BYTE = 128;
const std::int64_t MOST_STEPS = 1000000000;
const int STEPS_BETWEEN_CHECKS = 1000;

/// Processor time of the thread, for few steps that take long (a function on a text of megabytes). Never meant to end
/// what a slow processor does: reading a plain megabyte takes some 30 ms of a desk's, a second of a slow panel's.
const std::int64_t TIME = 5 * SECOND;
const std::int64_t TIME_PER_MEGABYTE = 20 * SECOND;
const std::int64_t MOST_TIME = 600 * SECOND;

/// A sheet tries again at every touch, so a file whose statement took too much gets less: a quarter of the steps, and
/// a quarter of the time each time again, down to a 64th.
const std::int64_t LESS_STEPS = 4;
const int LESS_TIME_BITS = 2;
const int LEAST_TIME_BITS = 6;

/// A statement on the widest table (2000 columns) looks some 2000 times. Views that stand on views may look billions of
/// times before the first row is asked for.
const int MOST_LOOKS = 8000;
const int LOOKS_BETWEEN_CHECKS = 64;

/// Bytes of text, and some for the field that holds it. A byte of the file is at most three of text (a zero in a REAL
/// column is "0.0").
const std::int64_t BYTES = 4 * MEGABYTE;
const std::int64_t BYTES_PER_BYTE = 16;
const std::int64_t FIELD = 8;

/// Of one value. No function of a view makes a longer one; what stands in the file is shorter than the file.
const std::int64_t VALUE = 4 * MEGABYTE;
const std::int64_t VALUE_PER_BYTE = 2;
const std::int64_t MOST_VALUE = 64 * MEGABYTE;

/// The least that a row takes: its place in the page, its length, its number, a header.
const std::int64_t LEAST_ROW = 4;
const std::int64_t FEW_ROWS = 1000;

/// The processor time that the calling thread has taken, in nanoseconds.
std::int64_t threadTime()
{
    struct timespec now = {0, 0};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * SECOND + now.tv_nsec;
}

} // namespace

int StatementAllowance::stepsBetweenChecks()
{
    return STEPS_BETWEEN_CHECKS;
}

std::int64_t StatementAllowance::mostRows(std::int64_t fileBytes)
{
    return FEW_ROWS + fileBytes / LEAST_ROW;
}

std::int64_t StatementAllowance::longestValue(std::int64_t fileBytes)
{
    return std::min(VALUE + VALUE_PER_BYTE * fileBytes, MOST_VALUE);
}

StatementAllowance::StatementAllowance(const std::function<std::int64_t()>& fileBytes)
    : m_fileBytes(fileBytes), m_overruns(0), m_size(-1), m_started(0), m_steps(0), m_changes(0), m_looks(0), m_bytes(0)
{}

void StatementAllowance::startReading()
{
    m_size = -1;
    m_started = threadTime();
    m_steps = 0;
    m_changes = 0;
    m_looks = 0;
    m_bytes = 0;
}

void StatementAllowance::startWriting()
{
    startReading();
    m_size = m_fileBytes();
}

bool StatementAllowance::takeSteps()
{
    m_steps += STEPS_BETWEEN_CHECKS;
    return !spent();
}

bool StatementAllowance::takeLook()
{
    ++m_looks;
    return m_looks <= MOST_LOOKS && (m_looks % LOOKS_BETWEEN_CHECKS != 0 || !spent());
}

bool StatementAllowance::takeBytes(std::int64_t bytes)
{
    m_bytes += FIELD + bytes;
    return m_bytes <= BYTES || m_bytes <= BYTES + BYTES_PER_BYTE * size();
}

double StatementAllowance::spentShare() const
{
    return std::max(double(m_steps) / double(steps()), double(m_changes) / double(changes()));
}

std::int64_t StatementAllowance::size() const
{
    if (m_size < 0)
        m_size = m_fileBytes();
    return m_size;
}

std::int64_t StatementAllowance::steps() const
{
    return std::min(STEPS + size() * STEPS_PER_BYTE, MOST_STEPS) / (m_overruns > 0 ? LESS_STEPS : 1);
}

/// No statement of ours writes more rows than there are.
std::int64_t StatementAllowance::changes() const
{
    return mostRows(size());
}

bool StatementAllowance::timeIsSpent() const
{
    const int bits = std::min(m_overruns, LEAST_TIME_BITS / LESS_TIME_BITS) * LESS_TIME_BITS;
    const std::int64_t taken = (threadTime() - m_started) << bits;
    return taken > TIME && taken > std::min(TIME + size() / 1024 * (TIME_PER_MEGABYTE / 1024), MOST_TIME);
}

bool StatementAllowance::spent()
{
    // The first comparison of each spares the look at the file.
    const bool tooManySteps = m_steps > STEPS / LESS_STEPS && m_steps > steps();
    const bool tooManyChanges = m_changes > FEW_ROWS && m_changes > changes();
    if (!tooManySteps && !tooManyChanges && !timeIsSpent())
        return false;
    ++m_overruns;
    return true;
}
