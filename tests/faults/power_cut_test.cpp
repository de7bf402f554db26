// The power is cut at every single operation of every job. Afterwards the file opens, is whole, and holds the old or
// the new state; the new one once success was announced.
#include "sqlite_errors.h"
#include "storage_jobs.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

const FaultVfs::Survival SURVIVALS[] = {FaultVfs::NothingUnsynced, FaultVfs::EverythingSoFar, FaultVfs::RandomSectors,
                                        FaultVfs::LastWritesOnly};

class PowerCut : public StorageJobs
{
protected:
    /// Cuts at the n-th change of the disk. False: the job ended before.
    bool cutAt(const StorageJob& job, int n, FaultVfs::Survival survival, unsigned seed)
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
        expectWhole(job, announced && !cut, where);
        return cut;
    }

    void expectWhole(const StorageJob& job, bool done, const std::string& where)
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

    void learn(const StorageJob& job)
    {
        restoreFile();
        m_before = contents();
        m_beforeLines = lines();
        m_after = contentsAfter(job);
        m_afterLines = lines();
        ASSERT_NE(m_before, m_after);
    }

    /// Every cut, with every kind of survival, or with one kind in turn.
    void cutEverywhere(const StorageJob& job, bool allSurvivals)
    {
        learn(job);
        int cuts = 0;
        for (const FaultVfs::Survival survival : SURVIVALS) {
            const int kind = static_cast<int>(survival);
            const int step = allSurvivals ? 1 : 4;
            int n = allSurvivals ? 1 : 1 + kind;
            while (!HasFailure() && cutAt(job, n, survival, static_cast<unsigned>(n))) {
                ++cuts;
                n += step;
            }
        }
        report(job, cuts);
        EXPECT_GT(m_new, 0) << "no run came to its end";
    }

    /// A seeded sample of the cuts.
    void cutSome(const StorageJob& job, int sample)
    {
        learn(job);
        restoreFile();
        RecipeSheetItems& sheet = openSheet();
        vfs.reset();
        job.run(sheet);
        const int changes = vfs.changes();
        closeSheet(sheet);
        std::mt19937 random(20);
        int cuts = 0;
        for (int i = 0; i < sample && !HasFailure(); ++i) {
            const int n = 1 + static_cast<int>(random() % static_cast<unsigned long>(changes));
            cuts += cutAt(job, n, SURVIVALS[i % 4], static_cast<unsigned>(random()));
        }
        EXPECT_EQ(cuts, sample);
        report(job, cuts);
    }

    void report(const StorageJob& job, int cuts)
    {
        std::printf("%s: %d cuts tried, %d left the old state, %d the new one\n", job.name, cuts, m_old, m_new);
        EXPECT_GT(cuts, 0);
        EXPECT_GT(m_old, 0) << "no cut came early enough to leave the old state";
    }

    std::string m_before;
    std::string m_after;
    std::vector<std::string> m_beforeLines;
    std::vector<std::string> m_afterLines;
    int m_old = 0;
    int m_new = 0;
};

TEST_F(PowerCut, AtAnyMomentOfASaveOfOneCellLeavesItOldOrNew)
{
    prepare(50, 20);
    cutEverywhere(saveJob(1, 0), true);
}

TEST_F(PowerCut, AtAnyMomentOfASaveOfTwentyCellsAndTwoTitlesLeavesEachOldOrNew)
{
    prepare(50, 20);
    cutEverywhere(saveJob(20, 2), false);
}

TEST_F(PowerCut, AtAnyMomentOfASaveInALargerGroupLeavesEachCellOldOrNew)
{
    prepare(250, 120);
    cutEverywhere(saveJob(20, 2), false);
}

TEST_F(PowerCut, AtAnyMomentOfAnAddLeavesTheGroupWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    cutEverywhere(addJob(3), true);
}

TEST_F(PowerCut, AtAnyMomentOfADeleteLeavesTheGroupWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    cutEverywhere(deleteJob(3), true);
}

TEST_F(PowerCut, AtAnyMomentOfAnAddInALargerGroupLeavesItWhollyOldOrWhollyNew)
{
    prepare(250, 120);
    cutEverywhere(addJob(119), false);
}

TEST_F(PowerCut, AtAnyMomentOfADeleteInALargerGroupLeavesItWhollyOldOrWhollyNew)
{
    prepare(250, 120);
    cutEverywhere(deleteJob(0), false);
}

/// RECIPE_CUTS=400 tries more of them (some seconds each).
TEST_F(PowerCut, AtASampleOfMomentsInALargeGroupLeavesItWhollyOldOrWhollyNew)
{
    const char* const wish = std::getenv("RECIPE_CUTS");
    prepare(1000, 1000);
    cutSome(addJob(500), wish ? std::atoi(wish) : 8);
}

} // namespace
