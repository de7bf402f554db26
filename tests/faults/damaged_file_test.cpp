// Every file of the damaged corpus through a whole life of a sheet: open, paint, scroll, tap, type, save, add, delete.
// Nothing crashes or hangs, the memory stays within what the file holds, and the sheet goes on working.
#include "RecipeSheetThread.h"
#include "fault_tally.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"
#include "wanted_leak.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>

#include <nlohmann/json.hpp>

#include <fstream>
#include <optional>
#include <random>
#include <sys/resource.h>

namespace {

const char CORPUS[] = "/usr/tabrix/project/corpus";

class DamagedFiles : public SheetFixture
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(QProcess::execute(QString::fromLatin1(SOURCE_DIR "/tests/corpus/build_corpus"),
                                    QStringList(QString::fromLatin1(CORPUS))),
                  0);
        std::ifstream in(std::string(CORPUS) + "/index.json");
        index = nlohmann::json::parse(in);
        ASSERT_GE(index.size(), 40u);
    }

    void place(const std::string& name)
    {
        const QString source = QString::fromStdString(std::string(CORPUS) + "/" + name + ".db3");
        QFile::remove(recipeFile());
        QDir().rmdir(recipeFile());
        if (QFileInfo(source).isDir())
            ASSERT_TRUE(QDir().mkpath(recipeFile()));
        else
            ASSERT_TRUE(QFile::copy(source, recipeFile()));
    }

    static void paint(RecipeSheetItems& sheet)
    {
        QImage image(800, 480, QImage::Format_RGB32);
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
    }

    /// A few minutes of an operator's work.
    void live(RecipeSheetItems& sheet, unsigned seed)
    {
        std::mt19937 random(seed);
        for (int i = 0; i < 40; ++i) {
            const QPointF at(static_cast<int>(random() % 800), static_cast<int>(random() % 400)); // above the buttons
            press(sheet, at);
            if (random() % 3 == 0)
                move(sheet,
                     at + QPointF(static_cast<int>(random() % 200) - 100, static_cast<int>(random() % 200) - 100));
            release(sheet, at);
            if (random() % 5 == 0)
                sheet.keyboardReflash(QString::number(random() % 1000));
            if (random() % 10 == 0)
                sheet.selectCol(static_cast<int>(random() % 8));
            if (i % 4 == 0)
                paint(sheet);
        }
        sheet.saveRecipeFile();
        settle();
    }

    static void rewrite(bool (RecipeSheetThread::*operation)(), RecipeSheetItems& sheet)
    {
        RecipeSheetThread* const worker = RecipeSheetThread::getInstance();
        worker->groupIndex = 0;
        worker->column = 1;
        worker->callback = &RecipeSheetItems::replace;
        worker->available = true;
        (worker->*operation)();
        paint(sheet);
    }

    RecipeSheetItems& startOn(const std::string& file)
    {
        std::optional<WantedLeak> handle; // SQLite hands one out together with the failure; it is dropped
        if (file == "a_directory")
            handle.emplace();
        return startSheet();
    }

    nlohmann::json index;
};

TEST_F(DamagedFiles, DoNotEndTheProcessOrFillItsMemory)
{
    FaultTally tally("damaged file");
    rlimit before;
    getrlimit(RLIMIT_DATA, &before);
    for (const auto& entry : index.items()) {
        SCOPED_TRACE(entry.key() + ": " + entry.value().at("fault").get<std::string>());
        place(entry.key());
        SqliteErrors allowed(SqliteErrors::Allowed);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        rlimit bound = before;
        bound.rlim_cur = 512u << 20; // a count that was believed would need gigabytes
        setrlimit(RLIMIT_DATA, &bound);
#endif
        RecipeSheetItems& sheet = startOn(entry.key());
        paint(sheet);
        live(sheet, 7);
        rewrite(&RecipeSheetThread::add, sheet);
        rewrite(&RecipeSheetThread::del, sheet);
        live(sheet, 8);
        destroySheet(sheet);
        setrlimit(RLIMIT_DATA, &before);
        tally.add(entry.key() != "good", HasFailure() ? FaultTally::Found : FaultTally::Fine);
    }
}

TEST_F(DamagedFiles, ShowAnErrorPlaceholdersOrCells)
{
    struct Row
    {
        const char* name;
        const char* firstCell;
        const char* firstRecipe;
        const char* firstItem;
    };
    const Row rows[] = {
        {"good", "0", "Recipe 0 L0", "Item 0 L0"},
        {"config_table_missing", "ERROR", "Col0", "Row0"},
        {"empty_file", "ERROR", "Col0", "Row0"},
        {"no_database", "ERROR", "Col0", "Row0"},
        {"a_directory", "ERROR", "Col0", "Row0"},
        {"addr_table_missing", "", "Recipe 0 L0", "Item 0 L0"},
        {"data_table_missing", "", "Recipe 0 L0", "Item 0 L0"},
        {"lang_table_missing", "0", "Col0", "Row0"},
        {"lang_fewer_languages", "0", "Col0", "Row0"},
        {"lang_nulls", "0", "", ""},
        {"config_absurd_counts", "0", "Recipe 0 L0", "Item 0 L0"},
        {"config_negative_counts", "", "Col0", "Row0"},
        {"data_texts_in_numbers", "abc", "Recipe 0 L0", "Item 0 L0"},
    };
    FaultTally tally("damaged file");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        place(row.name);
        SqliteErrors allowed(SqliteErrors::Allowed);
        RecipeSheetItems& sheet = startOn(row.name);
        RecipeSheetProbe probe(sheet);
        EXPECT_EQ(probe.cellText(0, 0).toStdString(), row.firstCell);
        EXPECT_EQ(sheet.getColumnName(0).toStdString(), row.firstRecipe);
        EXPECT_EQ(sheet.getRowName(0).toStdString(), row.firstItem);
        destroySheet(sheet);
        tally.add(std::string(row.name) != "good", HasFailure() ? FaultTally::Found : FaultTally::Fine);
    }
}

} // namespace
