#include "storage_jobs.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "outside_sqlite.h"
#include "recipe_db_probe.h"
#include "sqlite_errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

bool runWorker(int recipe, bool (RecipeSheetThread::*operation)())
{
    RecipeSheetThread* const worker = RecipeSheetThread::getInstance();
    worker->groupIndex = 0;
    worker->column = recipe;
    worker->callback = &RecipeSheetItems::replace;
    worker->available = true;
    return (worker->*operation)();
}

StorageJob workerJob(const char* name, int recipe, bool (RecipeSheetThread::*operation)())
{
    const auto run = [=](RecipeSheetItems&) { return runWorker(recipe, operation); };
    return {name, "an add or delete", run, true, true, true};
}

} // namespace

StorageJob saveJob(int cells, int titles)
{
    const auto run = [cells, titles](RecipeSheetItems& sheet) {
        RecipeSheetProbe probe(sheet);
        for (int i = 0; i < cells; ++i)
            probe.editedCells()[idx_t(i % probe.recipeCount(), (i * 7) % probe.itemCount())] =
                QString::number(770000 + i);
        for (int i = 0; i < titles; ++i) {
            probe.columnNames()[i][0] = QString::fromLatin1("New title %1").arg(i);
            probe.editedList().append(i);
        }
        return sheet.saveRecipeFile();
    };
    return {titles > 0 ? "save of cells and titles" : "save of cells", "a save", run, cells + titles == 1, false, true};
}

StorageJob addJob(int recipe)
{
    return workerJob("add", recipe, &RecipeSheetThread::add);
}

StorageJob deleteJob(int recipe)
{
    return workerJob("delete", recipe, &RecipeSheetThread::del);
}

StorageJobs::StorageJobs()
    : vfs(FaultVfs::install()), m_pristine(QString::fromLatin1("/usr/tabrix/project/pristine.db3"))
{}

StorageJobs::~StorageJobs()
{
    RecipeDB::getInstance()->CloseRecipeFile();
    vfs.reset();
}

void StorageJobs::prepare(int items, int recipes)
{
    vfs.reset();
    writeGroup(SheetGroup::ofSize(items, recipes));
    QFile::remove(m_pristine);
    ASSERT_TRUE(QFile::copy(recipeFile(), m_pristine));
}

void StorageJobs::restoreFile()
{
    RecipeDB::getInstance()->CloseRecipeFile();
    vfs.reset();
    const QDir folder = QFileInfo(recipeFile()).dir();
    const QStringList patterns = {QString::fromLatin1("recipeN.db3*"), QString::fromLatin1(".recipeN.db3*")};
    for (const QString& name : folder.entryList(patterns, QDir::Files | QDir::Hidden))
        QFile::remove(folder.filePath(name));
    ASSERT_TRUE(QFile::copy(m_pristine, recipeFile()));
}

RecipeSheetItems& StorageJobs::openSheet()
{
    RecipeSheetItems& sheet = startSheet();
    if (m_littleMemory) {
        sqlite3* const file = RecipeDBProbe::handle(*RecipeDB::getInstance());
        EXPECT_EQ(sqlite3_exec(file, "PRAGMA cache_size=4;", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    return sheet;
}

void StorageJobs::closeSheet(RecipeSheetItems& sheet)
{
    destroySheet(sheet);
    RecipeDB::getInstance()->CloseRecipeFile();
    EXPECT_EQ(vfs.openFiles(), 0) << "the file was not closed";
}

std::vector<std::string> StorageJobs::lines()
{
    OutsideSqlite file(recipeFile());
    std::vector<std::string> result;
    for (const char* table : {"recipe_config", "addr_0", "data_0", "lang_0"}) {
        const std::string rows = file.query(std::string("SELECT * FROM ") + table + ";");
        for (std::size_t at = 0; at <= rows.size();) {
            const std::size_t end = std::min(rows.find('\n', at), rows.size());
            result.push_back(std::string(table) + ": " + rows.substr(at, end - at));
            at = end + 1;
        }
    }
    return result;
}

std::string StorageJobs::contents()
{
    std::string result;
    for (const std::string& line : lines())
        result += line + "\n";
    return result;
}

std::string StorageJobs::damage()
{
    const std::string answer = outsideQuery(recipeFile(), "PRAGMA integrity_check;");
    return answer == "ok" ? std::string() : answer;
}

std::string StorageJobs::contentsAfter(const StorageJob& job)
{
    restoreFile();
    RecipeSheetItems& sheet = openSheet();
    EXPECT_TRUE(job.run(sheet)) << job.name;
    closeSheet(sheet);
    return contents();
}

void StorageJobs::learn(const StorageJob& job)
{
    restoreFile();
    m_before = contents();
    m_beforeLines = lines();
    m_after = contentsAfter(job);
    m_afterLines = lines();
    ASSERT_NE(m_before, m_after);
}

namespace {

std::vector<std::string> fields(const std::string& line)
{
    std::vector<std::string> result(1);
    for (const char c : line) {
        if (c == '|')
            result.emplace_back();
        else
            result.back() += c;
    }
    return result;
}

} // namespace

void StorageJobs::expectOldOrNewLineByLine(const std::vector<std::string>& before,
                                           const std::vector<std::string>& after, const std::vector<std::string>& found,
                                           const std::string& where)
{
    ASSERT_EQ(before.size(), after.size());
    ASSERT_EQ(found.size(), before.size()) << where;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i] == before[i] || found[i] == after[i])
            continue;
        const std::vector<std::string> was = fields(before[i]);
        const std::vector<std::string> is = fields(found[i]);
        const std::vector<std::string> willBe = fields(after[i]);
        ASSERT_EQ(is.size(), was.size()) << where;
        for (std::size_t k = 0; k < is.size(); ++k)
            EXPECT_TRUE(is[k] == was[k] || is[k] == willBe[k]) << where << ": " << is[k] << " is neither old nor new";
    }
}
