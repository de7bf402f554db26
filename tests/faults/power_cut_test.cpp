// What a power cut leaves of a save, an add and a delete.
#include "power_cuts.h"

namespace {

typedef PowerCuts PowerCut;

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

TEST_F(PowerCut, AtAnyMomentOfAnAddInAGroupLargerThanTheMemoryLeavesItWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    keepLittleInMemory();
    cutEverywhere(addJob(3), true);
}

TEST_F(PowerCut, AtAnyMomentOfADeleteInAGroupLargerThanTheMemoryLeavesItWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    keepLittleInMemory();
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

// Here RECIPE_CUTS=300 tries more of them (some seconds each).

TEST_F(PowerCut, AtASampleOfMomentsOfASaveInALargeGroupLeavesEachCellOldOrNew)
{
    prepare(1000, 1000);
    cutSome(saveJob(20, 2));
}

TEST_F(PowerCut, AtASampleOfMomentsOfAnAddInALargeGroupLeavesItWhollyOldOrWhollyNew)
{
    prepare(1000, 1000);
    cutSome(addJob(500));
}

TEST_F(PowerCut, AtASampleOfMomentsOfADeleteInALargeGroupLeavesItWhollyOldOrWhollyNew)
{
    prepare(1000, 1000);
    cutSome(deleteJob(500));
}

} // namespace
