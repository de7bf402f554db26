// Recipe files that are damaged, foreign or missing, as the whole item meets them: it starts, paints, is touched, is
// told of changes and destroyed. What an operator sees is "ERROR", placeholders or empty cells.
#include "RecipeDB.h"
#include "outside_sqlite.h"
#include "recipe_tools.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"
#include "wanted_leak.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>

#include <sys/resource.h>

namespace {

const qint64 MEGABYTE = 1024 * 1024;

/// The largest size of this process so far, in bytes.
qint64 peakMemory()
{
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

class HostileFile : public SheetFixture
{
protected:
    HostileFile() : m_errors(SqliteErrors::Allowed) {}

    void writeFile(const QByteArray& content)
    {
        QFile file(recipeFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    /// A whole file, then the damage.
    void writeDamaged(const QString& statements, const SheetGroup& group = SheetGroup::ofSize(12, 8))
    {
        writeGroup(group);
        runSql(statements);
    }

    void paint(RecipeSheetItems& sheet)
    {
        QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
    }
    /// Everything that a panel and an operator do to a sheet, short of adding and deleting.
    void use(RecipeSheetItems& sheet)
    {
        RecipeSheetProbe probe(sheet);
        paint(sheet);
        for (const QPointF& point :
             {probe.cellRect(0, 0).center(), probe.cellRect(4, 9).center(), probe.titleCellRect(4).center(),
              probe.rightArrowRect().center(), probe.downArrowRect().center(), probe.saveButtonRect().center()}) {
            tap(sheet, point);
            tap(sheet, point);
            sheet.keyboardReflash(QStringLiteral("1"));
            paint(sheet);
        }
        press(sheet, probe.verticalThumbRect().center());
        move(sheet, probe.verticalTrackRect().bottomLeft());
        release(sheet, probe.verticalTrackRect().bottomLeft());
        for (const int recipe : {0, 1, 65535}) {
            registers().setWord(QStringLiteral("LW"), 60803, recipe);
            settle();
            paint(sheet);
        }
        sheet.updateTable();
        settle();
        sheet.initRecipeFile();
        paint(sheet);
    }
    RecipeSheetItems& startAndUse()
    {
        RecipeSheetItems& sheet = startSheet();
        firstPage = RecipeSheetProbe(sheet).displayCells();
        use(sheet);
        return sheet;
    }
    QString firstText(int column, int row) const { return firstPage.value(idx_t(column, row)).text; }

    QMap<idx_t, cell_info_t> firstPage; ///< as the start left it

private:
    SqliteErrors m_errors;
};

} // namespace

// --- no database -------------------------------------------------------------------------------------------------

TEST_F(HostileFile, ThatIsMissingShowsAnError)
{
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
    EXPECT_FALSE(QFile::exists(recipeFile()));
}

TEST_F(HostileFile, ThatIsEmptyShowsAnError)
{
    writeFile(QByteArray());
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
}

TEST_F(HostileFile, ThatIsNoDatabaseShowsAnErrorAndIsLeftAsItIs)
{
    const QByteArray text = QByteArray("This is a text, and a long one. ").repeated(200);
    writeFile(text);
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
    QFile file(recipeFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), text);
}

TEST_F(HostileFile, ThatIsADirectoryShowsAnError)
{
    ASSERT_TRUE(QDir().mkdir(recipeFile()));
    const WantedLeak handle; // SQLite hands it out together with the failure; it is dropped
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
    QDir().rmdir(recipeFile());
}

TEST_F(HostileFile, ThatLeadsNowhereShowsAnError)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere/at/all"), recipeFile()));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
    QFile::remove(recipeFile());
}

TEST_F(HostileFile, ThatIsADatabaseOfSomethingElseShowsAnError)
{
    runSql(QStringLiteral("CREATE TABLE songs (title TEXT); INSERT INTO songs VALUES ('x');"));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
}

/// The first page of a file whose rest is gone, as a card leaves it that dies during a copy.
TEST_F(HostileFile, ThatIsCutShowsWhatCanBeRead)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    QFile file(recipeFile());
    const qint64 size = file.size();
    for (const qint64 left : {size / 2, size / 4, qint64(4096), qint64(1000), qint64(17)}) {
        ASSERT_TRUE(file.resize(left));
        RecipeSheetItems& sheet = startAndUse();
        EXPECT_TRUE(firstText(0, 0).isEmpty() || firstText(0, 0) == QStringLiteral("ERROR")
                    || firstText(0, 0) == QStringLiteral("0"))
            << firstText(0, 0).toStdString();
        destroySheet(sheet);
    }
}

TEST_F(HostileFile, WithRandomBytesInItCrashesNothing)
{
    writeGroup(SheetGroup::ofSize(40, 20));
    QFile file(recipeFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    unsigned int seed = 20240517;
    for (int round = 0; round < 40; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 60; ++i) {
            seed = seed * 1664525u + 1013904223u;
            damaged[static_cast<int>(seed % static_cast<unsigned int>(damaged.size()))] = static_cast<char>(seed >> 24);
        }
        RecipeDB::getInstance()->CloseRecipeFile();
        writeFile(damaged);
        RecipeSheetItems& sheet = startAndUse();
        destroySheet(sheet);
    }
}

// --- counts that make no sense -----------------------------------------------------------------------------------

TEST_F(HostileFile, WithNegativeCountsShowsEmptyCells)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = -5, column = -2147483648;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(RecipeSheetProbe(sheet).itemCount(), 0);
    EXPECT_EQ(RecipeSheetProbe(sheet).recipeCount(), 0);
    EXPECT_EQ(firstText(0, 0), QString());
    EXPECT_EQ(sheet.getRowName(0), QStringLiteral("Row0"));
}

TEST_F(HostileFile, WithAbsurdCountsTakesNoMemoryOnItsWord)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = 2147483647, column = 2147483647;"));
    const qint64 before = peakMemory();
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_LT(peakMemory() - before, 100 * MEGABYTE);
    EXPECT_EQ(RecipeSheetProbe(sheet).itemCount(), 12);
    EXPECT_EQ(RecipeSheetProbe(sheet).recipeCount(), 8);
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
}

TEST_F(HostileFile, WithCountsBeyondThirtyTwoBitsTakesNoMemoryOnItsWord)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = 9223372036854775807, column = 4294967295;"));
    const qint64 before = peakMemory();
    startAndUse();
    EXPECT_LT(peakMemory() - before, 100 * MEGABYTE);
}

TEST_F(HostileFile, WithCountsThatAreTextsShowsEmptyCells)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = 'many', column = x'ff00';"));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QString());
}

TEST_F(HostileFile, WithMoreItemsPromisedThanThereAreShowsPlaceholdersForTheRest)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = 20, column = 11;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
    EXPECT_EQ(sheet.getRowName(12), QStringLiteral("Row12"));
    EXPECT_EQ(sheet.getColumnName(8), QStringLiteral("Col8"));
    EXPECT_EQ(sheet.getDataFromBlocks(15, 0), QString());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 9), QString());
}

TEST_F(HostileFile, WithFewerItemsPromisedThanThereAreShowsThose)
{
    writeDamaged(QStringLiteral("UPDATE recipe_config SET row = 3, column = 2;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
    EXPECT_EQ(firstText(2, 2), QString());
    EXPECT_EQ(sheet.getRowName(3), QStringLiteral("Row3"));
}

TEST_F(HostileFile, WithSeveralRowsForAGroupShowsOnePage)
{
    writeDamaged(QStringLiteral("ALTER TABLE recipe_config RENAME TO old; CREATE TABLE recipe_config (group_index, "
                                "row, column, notify, notify_addr); INSERT INTO recipe_config SELECT * FROM old; "
                                "INSERT INTO recipe_config VALUES (0, 99, 99, 0, '');"));
    startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
}

// --- tables ------------------------------------------------------------------------------------------------------

TEST_F(HostileFile, WithoutItemsTableShowsEmptyCells)
{
    writeDamaged(QStringLiteral("DROP TABLE addr_0;"));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QString());
}

TEST_F(HostileFile, WithoutDataTableShowsEmptyCellsUnderItsTitles)
{
    writeDamaged(QStringLiteral("DROP TABLE data_0;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(0, 0), QString());
    EXPECT_EQ(sheet.getRowName(3), QStringLiteral("Item3"));
}

TEST_F(HostileFile, WithoutTitlesShowsPlaceholders)
{
    writeDamaged(QStringLiteral("DROP TABLE lang_0;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
    EXPECT_EQ(sheet.getRowName(3), QStringLiteral("Row3"));
    EXPECT_EQ(sheet.getColumnName(3), QStringLiteral("Col3"));
}

TEST_F(HostileFile, WithoutConfigurationShowsAnError)
{
    writeDamaged(QStringLiteral("DROP TABLE recipe_config;"));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("ERROR"));
}

TEST_F(HostileFile, WithFewerColumnsThanItemsShowsEmptyCellsForTheRest)
{
    writeDamaged(QStringLiteral("DROP TABLE data_0; CREATE TABLE data_0 (column INTEGER, D0 REAL, D1 REAL); "
                                "INSERT INTO data_0 VALUES (0, 5, 6), (1, 7, 8);"));
    startAndUse();
    EXPECT_EQ(firstText(1, 1), QStringLiteral("8"));
    EXPECT_EQ(firstText(1, 2), QString());
    EXPECT_EQ(firstText(2, 0), QString());
}

TEST_F(HostileFile, WithOtherColumnsInItsTablesCrashesNothing)
{
    for (const char* table : {"addr_0", "data_0", "lang_0", "recipe_config"}) {
        SCOPED_TRACE(table);
        writeDamaged(QStringLiteral("DROP TABLE %1; CREATE TABLE %1 (only TEXT); INSERT INTO %1 VALUES ('x');")
                         .arg(QLatin1String(table)));
        RecipeSheetItems& sheet = startAndUse();
        destroySheet(sheet);
        RecipeDB::getInstance()->CloseRecipeFile();
        QFile::remove(recipeFile());
    }
}

TEST_F(HostileFile, WithViewsInPlaceOfItsTablesIsReadAllTheSame)
{
    writeDamaged(QStringLiteral("ALTER TABLE lang_0 RENAME TO l; CREATE VIEW lang_0 AS SELECT * FROM l; "
                                "ALTER TABLE data_0 RENAME TO d; CREATE VIEW data_0 AS SELECT * FROM d;"));
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
    EXPECT_EQ(sheet.getRowName(3), QStringLiteral("Item3"));
}

/// A read of such a view never came back, and took all memory where rows were counted first.
TEST_F(HostileFile, WithTablesThatNeverEndGoesOnAllTheSame)
{
    const QString endless = QStringLiteral("WITH RECURSIVE r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) SELECT ");
    const QStringList columns = {
        QStringLiteral("recipe_config AS %1-1 - x AS group_index, x, x, x, x FROM r"),
        QStringLiteral("addr_0 AS %1-1 - x AS row_index, x, x, x, x, x, x FROM r"),
        QStringLiteral("data_0 AS %1-1 - x AS column, x, x, x FROM r"),
        QStringLiteral("lang_0 AS %1-1 - x AS type, x + 0 AS strIndex, x L0, x L1, x L2, x L3, x L4, x L5, x L6, x L7 "
                       "FROM r"),
    };
    for (const QString& view : columns) {
        const QString table = view.left(view.indexOf(QLatin1Char(' ')));
        SCOPED_TRACE(table.toStdString());
        writeDamaged(QStringLiteral("DROP TABLE %1; CREATE VIEW %2").arg(table, view.arg(endless)));
        const qint64 before = peakMemory();
        RecipeSheetItems& sheet = startAndUse();
        EXPECT_LT(peakMemory() - before, 200 * MEGABYTE);
        if (table == QStringLiteral("lang_0")) {
            EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
        } else {
            EXPECT_EQ(firstText(0, 0), table == QStringLiteral("recipe_config") ? QStringLiteral("ERROR") : QString());
        }
        destroySheet(sheet);
        RecipeDB::getInstance()->CloseRecipeFile();
        QFile::remove(recipeFile());
    }
}

// --- contents ----------------------------------------------------------------------------------------------------

TEST_F(HostileFile, WithNullWhereTextIsExpectedShowsEmptyTexts)
{
    SheetGroup group = SheetGroup::ofSize(12, 8);
    group.dataTypes = {0, DATA_TYPE_TEXT};
    writeDamaged(QStringLiteral("UPDATE data_0 SET D0 = NULL, D1 = NULL; UPDATE lang_0 SET L0 = NULL;"), group);
    RecipeSheetItems& sheet = startAndUse();
    EXPECT_EQ(firstText(0, 0), QString());
    EXPECT_EQ(firstText(0, 1), QString());
    EXPECT_EQ(sheet.getColumnName(2), QString());
}

TEST_F(HostileFile, WithAbsurdDigitsCrashesNothing)
{
    const QStringList digits = {QStringLiteral("2147483647"), QStringLiteral("-2147483648"), QStringLiteral("400"),
                                QStringLiteral("'x'")};
    for (const QString& digit : digits) {
        SCOPED_TRACE(digit.toStdString());
        writeDamaged(
            QStringLiteral("UPDATE addr_0 SET decimalDigits = %1, totalDigits = %1, datatype = %1;").arg(digit));
        const qint64 before = peakMemory();
        RecipeSheetItems& sheet = startAndUse();
        EXPECT_LT(peakMemory() - before, 100 * MEGABYTE);
        destroySheet(sheet);
    }
}

TEST_F(HostileFile, WithTextsInPlaceOfNumbersCrashesNothing)
{
    writeDamaged(QStringLiteral("UPDATE data_0 SET D0 = 'abc', D1 = x'00ff', D2 = 1e999, D3 = -1e999, D4 = 'nan';"));
    startAndUse();
    EXPECT_EQ(firstText(0, 0), QStringLiteral("abc"));
}

TEST_F(HostileFile, WithAVeryLongTextDrawsIt)
{
    SheetGroup group = SheetGroup::ofSize(12, 8);
    group.dataTypes = {DATA_TYPE_TEXT};
    writeDamaged(
        QStringLiteral("UPDATE data_0 SET D0 = hex(zeroblob(50000)); UPDATE lang_0 SET L0 = hex(zeroblob(5000));"),
        group);
    startAndUse();
    EXPECT_EQ(firstText(0, 0).size(), 100000);
}

TEST_F(HostileFile, WithAddressesOfAnotherFormIsShownAllTheSame)
{
    writeDamaged(QStringLiteral("UPDATE addr_0 SET address = 'a,b,c,d,e,f,g' WHERE row_index = 0; "
                                "UPDATE addr_0 SET address = '' WHERE row_index = 1; "
                                "UPDATE addr_0 SET address = hex(zeroblob(1000)) || ',1,2,' || hex(zeroblob(1000)) "
                                "|| ',4,5' WHERE row_index = 2;"));
    startAndUse();
    EXPECT_EQ(firstText(1, 2), QStringLiteral("2001"));
}

/// Another program holds the file while the sheet starts, and lets it go.
TEST_F(HostileFile, ThatIsLockedShowsAnErrorAndIsReadAtTheNextStart)
{
    writeGroup(SheetGroup::ofSize(12, 8));
    OutsideSqlite other(recipeFile());
    other.exec("BEGIN EXCLUSIVE;");
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(0, 0), QStringLiteral("ERROR"));
    other.exec("COMMIT;");
    sheet.init();
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(1, 2), QStringLiteral("2001"));
}

/// The file goes while the sheet is shown: it is read from what is still open, and nothing else happens.
TEST_F(HostileFile, ThatIsRemovedUnderAStartedSheetCrashesNothing)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    ASSERT_TRUE(QFile::remove(recipeFile()));
    use(sheet);
}

TEST_F(HostileFile, ThatLosesItsTablesUnderAStartedSheetCrashesNothing)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    runSql(QStringLiteral("DROP TABLE data_0; DROP TABLE addr_0; DROP TABLE lang_0; DELETE FROM recipe_config;"));
    use(sheet);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), QString());
}
