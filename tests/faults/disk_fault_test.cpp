// What failing disks and foreign locks leave of a save, an add and a delete.
#include "disk_faults.h"

namespace {

typedef DiskFaults DiskFault;

TEST_F(DiskFault, AtAnyOperationOfASaveHarmsNoOtherCell)
{
    prepare(50, 20);
    strikeEverywhere(saveJob(3, 2));
}

TEST_F(DiskFault, AtAnyOperationOfAnAddLeavesTheGroupWhole)
{
    prepare(50, 20);
    strikeEverywhere(addJob(3));
}

TEST_F(DiskFault, AtAnyOperationOfADeleteLeavesTheGroupWhole)
{
    prepare(50, 20);
    strikeEverywhere(deleteJob(19));
}

TEST_F(DiskFault, AtAnyOperationOfAnAddInAGroupLargerThanTheMemoryLeavesTheGroupWhole)
{
    prepare(50, 20);
    keepLittleInMemory();
    strikeEverywhere(addJob(3));
}

TEST_F(DiskFault, AtAnyOperationOfADeleteInAGroupLargerThanTheMemoryLeavesTheGroupWhole)
{
    prepare(50, 20);
    keepLittleInMemory();
    strikeEverywhere(deleteJob(0));
}

TEST_F(DiskFault, AFullDiskInAGroupLargerThanTheMemoryLeavesTheGroupWhole)
{
    prepare(50, 20);
    keepLittleInMemory();
    fillEverywhere(addJob(3), 4096);
}

TEST_F(DiskFault, AForeignLockInAGroupLargerThanTheMemoryLeavesTheGroupWhole)
{
    prepare(50, 20);
    keepLittleInMemory();
    lockEverywhere(addJob(3));
}

/// When the titles could not be read after an add, a renamed recipe lost its titles in the other languages.
TEST_F(DiskFault, AtAnyReadOfAnAddCostsARenamedRecipeNoOtherLanguage)
{
    prepare(50, 20);
    renameAfterEveryReadError(addJob(3));
}

TEST_F(DiskFault, AFullDiskAtAnySizeLeavesTheGroupWhole)
{
    prepare(120, 60);
    fillEverywhere(addJob(3));
}

TEST_F(DiskFault, AFullDiskAtAnySizeOfADeleteLeavesTheGroupWhole)
{
    prepare(120, 60);
    fillEverywhere(deleteJob(3));
}

TEST_F(DiskFault, AFullDiskAtAnySizeOfASaveHarmsNoOtherCell)
{
    prepare(50, 20);
    fillEverywhere(saveJob(20, 2), 1024);
}

TEST_F(DiskFault, AForeignLockAtAnyOperationOfASaveHarmsNoOtherCell)
{
    prepare(50, 20);
    lockEverywhere(saveJob(3, 2));
}

TEST_F(DiskFault, AForeignLockAtAnyOperationOfASaveOfOneCellLeavesItOldOrNew)
{
    prepare(50, 20);
    lockEverywhere(saveJob(1, 0));
}

TEST_F(DiskFault, AForeignLockAtAnyOperationOfAnAddLeavesTheGroupWhole)
{
    prepare(50, 20);
    lockEverywhere(addJob(3));
}

TEST_F(DiskFault, AForeignLockAtAnyOperationOfADeleteLeavesTheGroupWhole)
{
    prepare(50, 20);
    lockEverywhere(deleteJob(0));
}

} // namespace
