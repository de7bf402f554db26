// Long days: an operator who touches everything in any order, and a panel that is switched off and on in between.
// At the end memory, open files and threads are what they were, and no action takes longer than it did.
//
// RECIPE_SOAK=1000000 tells how many actions, RECIPE_SOAK_SEED=7 which ones; the tests run a short version.
#include "random_day.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "fault_tally.h"
#include "long_run.h"

#include <QDir>
#include <QPixmapCache>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // the compiler brings no header for it
#else
#include <malloc.h>
#endif

namespace {

const int CHECK_EVERY = 20; // actions
const int RESTARTS = 50;    // in a run, at least
const int RESTART_EVERY = 1000;
#ifdef __SANITIZE_ADDRESS__
const std::size_t NOISE = 4096; // bytes
#else
const std::size_t NOISE = 65536; // what threads keep in their caches counts as allocated here
#endif
const int LEAST_ACTIONS = 2000; // for enough times of each
const int ENOUGH_TIMES = 30;    // to compare
const double SLOWER_AT_MOST = 2.0;

Day longDays()
{
    return {"LongDays", static_cast<unsigned>(wishedFor("RECIPE_SOAK_SEED", 31, 0)), 20, 8,
            wishedFor("RECIPE_SOAK", 5000, LEAST_ACTIONS)};
}

/// Bytes that the program has allocated and not given back.
std::size_t allocatedBytes()
{
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

int entriesOf(const char* directory)
{
    return QDir(QString::fromLatin1(directory))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot)
        .size();
}

/// What the process holds while no item exists and no recipe file is open.
struct Holdings
{
    std::size_t bytes = 0;
    long long sqliteBytes = 0;
    int handles = 0;
    int threads = 0;
    int files = 0; // in the project directory

    static Holdings now()
    {
        Holdings it;
        it.handles = entriesOf("/proc/self/fd");
        it.threads = entriesOf("/proc/self/task");
        it.files = entriesOf("/usr/tabrix/project");
        it.sqliteBytes = sqlite3_memory_used();
        it.bytes = allocatedBytes();
        return it;
    }
};

double cpuSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// How often an action took how long, in steps of 5 %. Of a fixed size: what the test notes down must not count as
/// memory that grew.
class Durations
{
public:
    void add(double seconds)
    {
        const double step = std::log(std::max(seconds, SHORTEST) / SHORTEST) / std::log(STEP);
        ++m_counts[std::min(static_cast<std::size_t>(step), m_counts.size() - 1)];
        ++m_total;
    }
    int total() const { return m_total; }
    double median() const
    {
        std::size_t i = 0;
        for (int below = m_counts[0]; below <= m_total / 2 && i + 1 < m_counts.size(); below += m_counts[i])
            ++i;
        return SHORTEST * std::pow(STEP, static_cast<double>(i));
    }

private:
    static constexpr double SHORTEST = 1e-6;
    static constexpr double STEP = 1.05;

    std::array<int, 400> m_counts{}; // up to five minutes
    int m_total = 0;
};

class Soak : public RandomDay
{
protected:
    Soak() : RandomDay(longDays()), actions(day.events), early(actions / 5), late(actions - actions / 5) {}

    void run()
    {
        const int restartEvery = std::min(RESTART_EVERY, std::max(1, actions / RESTARTS));
        held.reserve(static_cast<std::size_t>(actions / restartEvery + 1));
        LongRun progress("random actions", actions);
        begin();
        for (int i = 0; i < actions && !HasFailure(); ++i) {
            act(i);
            if (i % CHECK_EVERY == 0)
                check();
            if (i % restartEvery == restartEvery - 1)
                restart();
            progress.done(i + 1);
        }
        if (HasFailure()) {
            tally.add(true, FaultTally::LostData); // the sheet does not show what the file holds
            ADD_FAILURE() << "after: " << recently();
        }
    }

    /// Times are the processor's: the machine has other things to do as well.
    void act(int i)
    {
        const double begun = cpuSeconds();
        const char* const kind = event();
        tally.add(true, FaultTally::Fine);
        const double took = cpuSeconds() - begun;
        if (i < early)
            times[kind].early.add(took);
        else if (i >= late)
            times[kind].late.add(took);
        ++times[kind].count;
    }

    /// Every other time with what is pending saved.
    void restart()
    {
        if (pick(0, 1))
            save();
        switchOff();
        held.push_back(Holdings::now());
        switchOn();
        check();
    }

    /// Lets go of all that the item, the library and this test hold.
    void switchOff()
    {
        settle();
        destroySheet(*sheet);
        RecipeSheetThread::release();
        RecipeDB::release();
        RecipeSheetItems::s_instance = nullptr;
        closeProject();
        settle();
        truth = Truth();
        story = QStringList();
        requests = RecordedRequests();
        errors.reset();
        QPixmapCache::clear();
    }

    void switchOn()
    {
        errors.reset(new SqliteErrors(SqliteErrors::Allowed));
        column = row = -32768;
        jumped = false;
        registers().clear();
        sheet = &startSheet();
        readFile();
    }

    /// Of the first restarts, when Qt's own caches had filled, against the last ones.
    void expectNothingGrew()
    {
        ASSERT_GE(held.size(), 16u);
        const std::size_t part = held.size() / 8;
        const Holdings first = most(held.begin() + part, held.begin() + 2 * part);
        const Holdings last = most(held.end() - part, held.end());
        std::printf("%d actions, %zu restarts; at rest early and at the end: %zu and %zu bytes, %d and %d handles, "
                    "%d and %d threads, %d and %d files\n",
                    actions, held.size(), first.bytes, last.bytes, first.handles, last.handles, first.threads,
                    last.threads, first.files, last.files);
        EXPECT_LE(last.bytes, first.bytes + NOISE);
        EXPECT_EQ(last.sqliteBytes, 0);
        EXPECT_EQ(last.handles, first.handles);
        EXPECT_LE(last.threads, first.threads);
        EXPECT_EQ(last.files, first.files);
    }

    static Holdings most(std::vector<Holdings>::const_iterator from, std::vector<Holdings>::const_iterator to)
    {
        Holdings result = *from;
        for (; from != to; ++from) {
            result.bytes = std::max(result.bytes, from->bytes);
            result.sqliteBytes = std::max(result.sqliteBytes, from->sqliteBytes);
            result.handles = std::max(result.handles, from->handles);
            result.threads = std::min(result.threads, from->threads); // one that has ended may still be listed
            result.files = std::max(result.files, from->files);
        }
        return result;
    }

    void expectNothingSlowed()
    {
        int compared = 0;
        for (const std::pair<const std::string, Times>& of : times) {
            const double was = of.second.early.median();
            const double is = of.second.late.median();
            std::printf("%-15s %8d times, %7.3f ms early, %7.3f ms late\n", of.first.c_str(), of.second.count,
                        was * 1e3, is * 1e3);
            if (std::min(of.second.early.total(), of.second.late.total()) < ENOUGH_TIMES)
                continue;
            ++compared;
            EXPECT_LT(is, SLOWER_AT_MOST * was) << of.first;
        }
        EXPECT_GE(compared, 6) << "kinds of actions that happened often enough";
    }

    struct Times
    {
        Durations early;
        Durations late;
        int count = 0;
    };

    const int actions;
    const int early;
    const int late;
    std::map<std::string, Times> times;
    std::vector<Holdings> held; // at each restart
    FaultTally tally{"random action"};
};

} // namespace

TEST_F(Soak, LeavesMemoryFilesAndTimesAsTheyWere)
{
    run();
    expectNothingGrew();
    expectNothingSlowed();
}
