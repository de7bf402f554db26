// What power cuts, failing disks and foreign locks leave of the tool's import: the old file or the new one. The tool's
// own code, command line included, in this process.
#include "application.h"
#include "disk_faults.h"
#include "power_cuts.h"

#include <fstream>

#include <fcntl.h>
#include <unistd.h>

namespace {

const char SHEET[] = "/usr/tabrix/project/sheet.csv";

/// Keeps what the tool says off the terminal: it says it some thousand times.
class Silence
{
public:
    Silence() : m_saved(dup(STDERR_FILENO))
    {
        const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nothing, STDERR_FILENO);
        close(nothing);
    }
    ~Silence()
    {
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int m_saved;
};

/// New values of two recipes, a new name, and a new recipe behind the last one.
void writeSheet(int items)
{
    std::ofstream sheet(SHEET);
    sheet << "Item,Name,\"Renamed\",\"Recipe1\",\"Added\"\r\n,Recipe,0,1,\r\n";
    for (int i = 0; i < items; ++i)
        sheet << i << ",," << 880000 + i << ',' << 890000 + i << ',' << 900000 + i << "\r\n";
    ASSERT_TRUE(sheet.flush());
}

bool import(RecipeSheetItems&)
{
    const Silence silence;
    std::string words[] = {"recipe-file", "import", "/usr/tabrix/project/recipeN.db3", SHEET};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
    return runApplication(4, arguments) == 0;
}

StorageJob importJob()
{
    return {"import", "an import", import, true, true, false};
}

class PowerCutInAnImport : public PowerCuts
{
};

class DiskFaultInAnImport : public DiskFaults
{
};

TEST_F(PowerCutInAnImport, AtAnyMomentLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    writeSheet(50);
    cutEverywhere(importJob(), true);
}

TEST_F(PowerCutInAnImport, AtAnyMomentInALargerGroupLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(250, 120);
    writeSheet(250);
    cutEverywhere(importJob(), false);
}

/// RECIPE_CUTS=300 tries more of them (some seconds each).
TEST_F(PowerCutInAnImport, AtASampleOfMomentsInALargeGroupLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(1000, 1000);
    writeSheet(1000);
    cutSome(importJob());
}

TEST_F(DiskFaultInAnImport, AtAnyOperationLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    writeSheet(50);
    strikeEverywhere(importJob());
}

TEST_F(DiskFaultInAnImport, AFullDiskAtAnySizeLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    writeSheet(50);
    fillEverywhere(importJob());
}

TEST_F(DiskFaultInAnImport, AForeignLockAtAnyOperationLeavesTheFileWhollyOldOrWhollyNew)
{
    prepare(50, 20);
    writeSheet(50);
    lockEverywhere(importJob());
}

} // namespace
