#include "power_cuts.h"

#include "long_run.h"
#include "sqlite_errors.h"

#include <cstdio>
#include <random>

namespace {

const FaultVfs::Survival SURVIVALS[] = {FaultVfs::NothingUnsynced, FaultVfs::EverythingSoFar, FaultVfs::RandomSectors,
                                        FaultVfs::LastWritesOnly};

} // namespace

/// Cuts at the n-th change of the disk. False: the job ended before; the power goes then.
bool PowerCuts::cutAt(const StorageJob& job, int n, FaultVfs::Survival survival, unsigned seed)
{
    restoreFile();
    RecipeSheetItems& sheet = openSheet();
    vfs.cutPowerAt(n, survival, seed);
    bool announced = false;
    bool cut = false;
    {
        SqliteErrors allowed(SqliteErrors::Allowed);
        announced = job.run(sheet);
        cut = vfs.powerIsOff();
        EXPECT_EQ(vfs.struck(), cut ? 1 : 0);
        vfs.powerOff(survival, seed);
        closeSheet(sheet);
    }
    vfs.reset();
    const std::string where = std::string(job.name) + ", cut " + std::to_string(n) + ", survival "
                              + std::to_string(survival) + ", seed " + std::to_string(seed);
    const bool wasFine = !HasFailure();
    expectWhole(job, announced && (!cut || job.announcesFailures), where);
    const bool isWhole = !wasFine || !HasFailure();
    if (m_thoroughly)
        expectTheNextJobWorks(job, where);
    m_tally->add(cut, !wasFine || !HasFailure() ? FaultTally::Fine
                      : isWhole                 ? FaultTally::Found
                                                : FaultTally::LostData);
    return cut;
}

void PowerCuts::expectWhole(const StorageJob& job, bool done, const std::string& where)
{
    EXPECT_EQ(damage(), "") << where;
    const std::string found = contents();
    if (done)
        EXPECT_TRUE(found == m_after) << where << ": success was announced, but the file is not new";
    else if (job.atomic)
        EXPECT_TRUE(found == m_before || found == m_after) << where << ": neither old nor new";
    else
        expectOldOrNewLineByLine(m_beforeLines, m_afterLines, lines(), where);
    m_old += found == m_before;
    m_new += found == m_after;
}

void PowerCuts::expectTheNextJobWorks(const StorageJob& job, const std::string& where)
{
    const bool wasOld = contents() == m_before;
    RecipeSheetItems& sheet = openSheet();
    EXPECT_TRUE(job.run(sheet)) << where << ": the same again";
    closeSheet(sheet);
    EXPECT_TRUE(!wasOld || contents() == m_after) << where << ": the same again";
}

void PowerCuts::cutEverywhere(const StorageJob& job, bool thoroughly)
{
    m_thoroughly = thoroughly;
    m_tally.reset(new FaultTally(std::string("power cut in ") + job.kind));
    learn(job);
    for (const FaultVfs::Survival survival : SURVIVALS) {
        const int kind = static_cast<int>(survival);
        const int step = thoroughly ? 1 : 4;
        int n = thoroughly ? 1 : 1 + kind;
        while (!HasFailure() && cutAt(job, n, survival, static_cast<unsigned>(n)))
            n += step;
    }
    report(job);
    EXPECT_GT(m_new, 0) << "no run came to its end";
}

void PowerCuts::cutSome(const StorageJob& job)
{
    const int sample = wishedFor("RECIPE_CUTS", CUTS_IN_A_LARGE_GROUP, 1);
    m_tally.reset(new FaultTally(std::string("power cut in ") + job.kind));
    learn(job);
    restoreFile();
    RecipeSheetItems& sheet = openSheet();
    vfs.reset();
    job.run(sheet);
    const int changes = vfs.changes();
    closeSheet(sheet);
    std::mt19937 random(20);
    LongRun progress(std::string("power cuts in ") + job.kind, sample);
    for (int i = 0; i < sample && !HasFailure(); ++i) {
        const int n = 1 + static_cast<int>(random() % static_cast<unsigned long>(changes));
        cutAt(job, n, SURVIVALS[i % 4], static_cast<unsigned>(random()));
        progress.done(i + 1);
    }
    EXPECT_EQ(m_tally->struck(), sample);
    report(job);
}

void PowerCuts::report(const StorageJob& job)
{
    std::printf("%s: %d cuts tried, %d left the old state, %d the new one\n", job.name, m_tally->struck(), m_old,
                m_new);
    EXPECT_GT(m_tally->struck(), 0);
    EXPECT_GT(m_old, 0) << "no cut came early enough to leave the old state";
    m_tally.reset();
}
