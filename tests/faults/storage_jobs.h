// The jobs that change a recipe file, so that a fault can be put into each of their operations.
#ifndef STORAGE_JOBS_H
#define STORAGE_JOBS_H

#include "fault_vfs.h"
#include "sheet_fixture.h"

#include <functional>
#include <string>
#include <vector>

/// One job on the file. Run it on a freshly opened sheet; true: success was announced to the operator.
struct StorageJob
{
    const char* name;
    const char* kind; ///< in the table of faults: "a save", ...
    std::function<bool(RecipeSheetItems& sheet)> run;
    bool atomic;            ///< the file is wholly old or wholly new; else each edited cell by itself
    bool announcesFailures; ///< a save says that it succeeded whatever happened
    bool isTheSheets;       ///< done by the sheet, which then shows titles and counts anew too
};

StorageJob saveJob(int cells, int titles);
StorageJob addJob(int recipe);
StorageJob deleteJob(int recipe);

class StorageJobs : public SheetFixture
{
protected:
    StorageJobs();
    ~StorageJobs() override;

    /// Makes the file that every run starts from.
    void prepare(int items, int recipes);
    /// Of the file, only a few pages stay in the memory of the library from now on: a job then reads and writes the
    /// disk in its middle too, as it does in a group that is larger than that memory.
    void keepLittleInMemory() { m_littleMemory = true; }
    /// Puts the prepared file back, without journals, backups and half-made files, and makes the disk whole.
    void restoreFile();
    /// Constructs and configures a sheet on the file, with the disk whole.
    RecipeSheetItems& openSheet();
    void closeSheet(RecipeSheetItems& sheet);
    /// Everything that the file holds, as one text; through the real disk.
    static std::string contents();
    /// The same, line by line.
    static std::vector<std::string> lines();
    /// Empty when the file opens and is whole.
    static std::string damage();
    /// What the job leaves when nothing fails.
    std::string contentsAfter(const StorageJob& job);
    /// Sets what the file holds before the job and after it, which has to differ. The file is left as after it.
    void learn(const StorageJob& job);
    /// Fails the test unless every line of `found` stands at its place in `before` or `after`.
    static void expectOldOrNewLineByLine(const std::vector<std::string>& before, const std::vector<std::string>& after,
                                         const std::vector<std::string>& found, const std::string& where);

    FaultVfs& vfs;
    QString m_pristine; // path of the prepared file
    bool m_littleMemory = false;
    std::string m_before; // what the file holds, once learnt
    std::string m_after;
    std::vector<std::string> m_beforeLines;
    std::vector<std::string> m_afterLines;
};

#endif
