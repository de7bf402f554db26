// The cache of cell texts: which blocks are loaded, kept and dropped, and the texts that are made from them.
#include "RecipeDB.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;

namespace {

class SheetCache : public SheetFixture
{
protected:
    /// A sheet on a group of the given size, with the cache emptied.
    RecipeSheetItems& startWith(int items, int recipes, const SheetProperties& properties = SheetProperties::usual())
    {
        writeGroup(SheetGroup::ofSize(items, recipes));
        RecipeSheetItems& sheet = startSheet(properties);
        RecipeSheetProbe(sheet).blocks().clear();
        return sheet;
    }

    static std::vector<idx_t> keys(RecipeSheetItems& sheet)
    {
        const QList<idx_t> held = RecipeSheetProbe(sheet).blocks().keys();
        return std::vector<idx_t>(held.begin(), held.end());
    }

    /// "colStart-colEnd rowStart-rowEnd"
    static QString bounds(RecipeSheetItems& sheet, int blockColumn, int blockRow)
    {
        const RecipeSheetProbe::DataBlock block = RecipeSheetProbe(sheet).blocks().value(idx_t(blockColumn, blockRow));
        return QStringLiteral("%1-%2 %3-%4")
            .arg(block.colStart)
            .arg(block.colEnd)
            .arg(block.rowStart)
            .arg(block.rowEnd);
    }
};

} // namespace

// --- blocks ------------------------------------------------------------------------------------------------------

TEST_F(SheetCache, FindsTheBlockOfACellByColumnAndRow)
{
    const RecipeSheetItems& sheet = keep(new RecipeSheetItems);
    EXPECT_EQ(sheet.getBlockIndex(0, 0), idx_t(0, 0));
    EXPECT_EQ(sheet.getBlockIndex(99, 49), idx_t(0, 0));
    EXPECT_EQ(sheet.getBlockIndex(100, 49), idx_t(0, 1));
    EXPECT_EQ(sheet.getBlockIndex(99, 50), idx_t(1, 0));
    EXPECT_EQ(sheet.getBlockIndex(249, 119), idx_t(2, 2));
    EXPECT_EQ(sheet.getBlockIndex(-1, -1), idx_t(0, 0)) << "division truncates toward zero";
    EXPECT_EQ(sheet.getBlockIndex(-100, -50), idx_t(-1, -1));
}

TEST_F(SheetCache, CutsTheBlocksAtTheEndOfTheGroup)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    const char* const expected[3][3] = {
        {"0-50 0-100", "50-100 0-100", "100-120 0-100"},
        {"0-50 100-200", "50-100 100-200", "100-120 100-200"},
        {"0-50 200-250", "50-100 200-250", "100-120 200-250"},
    };
    for (int blockRow = 0; blockRow < 3; ++blockRow) {
        for (int blockColumn = 0; blockColumn < 3; ++blockColumn) {
            sheet.loadDataBlock(blockRow, blockColumn, false);
            EXPECT_EQ(bounds(sheet, blockColumn, blockRow), QLatin1String(expected[blockRow][blockColumn]));
        }
    }
}

TEST_F(SheetCache, HoldsTheTextsOfABlockByItemAndByRecipe)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    sheet.loadDataBlock(2, 1, false);
    const RecipeSheetProbe::DataBlock block = RecipeSheetProbe(sheet).blocks().value(idx_t(1, 2));
    ASSERT_EQ(block.items.size(), 50);
    ASSERT_EQ(block.items.first().values.size(), 50);
    EXPECT_EQ(block.items.first().rowIndex, 200);
    EXPECT_EQ(block.items.first().values.first(), QStringLiteral("200050"));
    EXPECT_EQ(block.items.last().values.last(), QStringLiteral("249099"));
    ASSERT_EQ(block.rawValues.size(), 50);
    ASSERT_EQ(block.rawValues.first().size(), 50);
    EXPECT_EQ(block.rawValues.at(3).at(7), QStringLiteral("207053"));
    EXPECT_FALSE(block.loading);
    EXPECT_TRUE(RecipeSheetProbe(sheet).needsRepaint());
}

TEST_F(SheetCache, EntersABlockThatStartsExactlyAtTheEnd)
{
    RecipeSheetItems& sheet = startWith(100, 50);
    sheet.loadDataBlock(1, 0, false);
    sheet.loadDataBlock(0, 1, false);
    EXPECT_EQ(bounds(sheet, 0, 1), QStringLiteral("0-50 100-100"));
    EXPECT_EQ(bounds(sheet, 1, 0), QStringLiteral("50-50 0-100"));
    EXPECT_TRUE(RecipeSheetProbe(sheet).blocks().value(idx_t(0, 1)).items.isEmpty());
    EXPECT_EQ(RecipeSheetProbe(sheet).blocks().value(idx_t(1, 0)).items.size(), 100);
    EXPECT_EQ(sheet.getDataFromBlocks(100, 0), QString());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 50), QString());
}

TEST_F(SheetCache, DoesNotEnterABlockBehindTheEnd)
{
    RecipeSheetItems& sheet = startWith(100, 50);
    const int counter = RecipeSheetProbe(sheet).accessCounter();
    sheet.loadDataBlock(2, 0, false);
    sheet.loadDataBlock(0, 2, true);
    EXPECT_TRUE(keys(sheet).empty());
    EXPECT_EQ(RecipeSheetProbe(sheet).accessCounter(), counter);
}

TEST_F(SheetCache, EntersTheFirstBlockOfAnEmptyGroup)
{
    writeGroup(SheetGroup::ofSize(0, 3));
    runSql(QStringLiteral("DELETE FROM data_0; UPDATE recipe_config SET column = 0;"));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_THAT(keys(sheet), ElementsAre(idx_t(0, 0)));
    EXPECT_EQ(bounds(sheet, 0, 0), QStringLiteral("0-0 0-0"));
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 0));
}

TEST_F(SheetCache, KnowsWhichBlocksAreLoaded)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    sheet.loadDataBlock(1, 2, false);
    EXPECT_TRUE(sheet.isDataBlockLoaded(1, 2));
    EXPECT_FALSE(sheet.isDataBlockLoaded(2, 1)) << "block row first";
    RecipeSheetProbe(sheet).blocks()[idx_t(2, 1)].loading = true;
    EXPECT_FALSE(sheet.isDataBlockLoaded(1, 2));
}

// --- hits, force and failures ------------------------------------------------------------------------------------

TEST_F(SheetCache, ReadsNothingForABlockThatIsThere)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    sheet.loadDataBlock(0, 0, false);
    sheet.loadDataBlock(0, 1, false);
    const int stamp = probe.accessCounter();
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp - 1);
    EXPECT_EQ(probe.blocks().value(idx_t(1, 0)).lastAccess, stamp);

    runSql(QStringLiteral("UPDATE data_0 SET D0 = 7;"));
    probe.needsRepaint() = false;
    sheet.loadDataBlock(0, 0, false);
    EXPECT_EQ(probe.accessCounter(), stamp + 1);
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp + 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 3), QStringLiteral("3"));
    EXPECT_FALSE(probe.needsRepaint());
}

TEST_F(SheetCache, ReadsABlockAgainWhenForced)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    sheet.loadDataBlock(0, 0, false);
    runSql(QStringLiteral("UPDATE data_0 SET D0 = 7;"));
    const int stamp = probe.accessCounter();
    probe.needsRepaint() = false;
    sheet.loadDataBlock(0, 0, true);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 3), QStringLiteral("7"));
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp + 1);
    EXPECT_TRUE(probe.needsRepaint());
    EXPECT_THAT(keys(sheet), ElementsAre(idx_t(0, 0)));
}

TEST_F(SheetCache, LoadsABlockThatIsMissingAlsoWhenForced)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    sheet.loadDataBlock(1, 1, true);
    EXPECT_THAT(keys(sheet), ElementsAre(idx_t(1, 1)));
}

TEST_F(SheetCache, KeepsNoBlockThatCannotBeReadAndTriesItAgain)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    runSql(QStringLiteral("ALTER TABLE data_0 RENAME TO hidden;"));
    const int stamp = probe.accessCounter();
    {
        SqliteErrors errors;
        sheet.loadDataBlock(0, 0, false);
    }
    EXPECT_TRUE(keys(sheet).empty());
    EXPECT_EQ(probe.accessCounter(), stamp + 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), QString());

    runSql(QStringLiteral("ALTER TABLE hidden RENAME TO data_0;"));
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_THAT(keys(sheet), ElementsAre(idx_t(0, 0)));
    EXPECT_EQ(sheet.getDataFromBlocks(1, 2), QStringLiteral("1002"));
}

TEST_F(SheetCache, DropsABlockThatCannotBeReadAgain)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    sheet.loadDataBlock(0, 0, false);
    runSql(QStringLiteral("DROP TABLE data_0;"));
    SqliteErrors errors;
    sheet.loadDataBlock(0, 0, true);
    EXPECT_TRUE(keys(sheet).empty());
}

TEST_F(SheetCache, ShowsPendingEditsInABlockThatIsReadAgain)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    probe.editedCells().insert(idx_t(51, 101), QStringLiteral("typed"));
    probe.editedCells().insert(idx_t(500, 500), QStringLiteral("nowhere"));
    probe.editedCells().insert(idx_t(-1, -1), QStringLiteral("nowhere"));
    sheet.loadDataBlock(1, 1, false);
    EXPECT_EQ(sheet.getDataFromBlocks(101, 51), QStringLiteral("typed"));
    sheet.loadDataBlock(1, 1, true);
    EXPECT_EQ(sheet.getDataFromBlocks(101, 51), QStringLiteral("typed"));
    EXPECT_EQ(sheet.getDataFromBlocks(101, 52), QStringLiteral("101052"));
    EXPECT_EQ(probe.blocks().value(idx_t(1, 1)).rawValues.at(1).at(1), QStringLiteral("101051")) << "as loaded";
}

// --- what a page needs -------------------------------------------------------------------------------------------

TEST_F(SheetCache, LoadsThePageAndAMarginOfTwentyItemsAndTenRecipes)
{
    struct Case
    {
        int firstRow;
        int firstColumn;
        std::vector<idx_t> loaded;
    };
    const std::vector<Case> cases = {
        {0, 0, {{0, 0}}},                           // rows 0-30, columns 0-15
        {69, 34, {{0, 0}}},                         // rows to 99, columns to 49
        {70, 34, {{0, 0}, {0, 1}}},                 // rows to 100
        {69, 35, {{0, 0}, {1, 0}}},                 // columns to 50
        {70, 35, {{0, 0}, {0, 1}, {1, 0}, {1, 1}}}, // both
        {100, 50, {{1, 1}}},
        {240, 115, {{2, 2}}}, // the margin ends with the group
    };
    RecipeSheetItems& sheet = startWith(250, 120); // 10 rows and 5 columns a page
    RecipeSheetProbe probe(sheet);
    for (const Case& c : cases) {
        probe.blocks().clear();
        probe.firstRow() = c.firstRow;
        probe.firstColumn() = c.firstColumn;
        sheet.checkAndLoadRequiredBlocks();
        EXPECT_EQ(keys(sheet), c.loaded) << c.firstRow << ", " << c.firstColumn;
    }
}

TEST_F(SheetCache, MeasuresThePageByTheConfiguredSizesNotByTheVisibleOnes)
{
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", 180).set("column_num_page", 90);
    RecipeSheetItems& sheet = startWith(250, 120, properties);
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(RecipeSheetProbe(sheet).visibleRows(), 100);
    EXPECT_THAT(keys(sheet).size(), 8u) << "nine are loaded, one is dropped at once";
    EXPECT_FALSE(sheet.isDataBlockLoaded(0, 0)) << "the oldest";
}

TEST_F(SheetCache, LoadsBlocksRowByRow)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    probe.firstRow() = 70;
    probe.firstColumn() = 35;
    const int stamp = probe.accessCounter();
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp + 1);
    EXPECT_EQ(probe.blocks().value(idx_t(1, 0)).lastAccess, stamp + 2);
    EXPECT_EQ(probe.blocks().value(idx_t(0, 1)).lastAccess, stamp + 3);
    EXPECT_EQ(probe.blocks().value(idx_t(1, 1)).lastAccess, stamp + 4);
}

TEST_F(SheetCache, DoesNotTouchBlocksOfThePageThatAreThere)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    sheet.checkAndLoadRequiredBlocks();
    const int stamp = probe.accessCounter();
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(probe.accessCounter(), stamp);
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp);
}

/// A block that is on the way counts as asked for once more.
TEST_F(SheetCache, TouchesABlockOfThePageThatIsOnTheWay)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    sheet.loadDataBlock(0, 0, false);
    probe.blocks()[idx_t(0, 0)].loading = true;
    const int stamp = probe.accessCounter();
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(probe.blocks().value(idx_t(0, 0)).lastAccess, stamp + 1);
    EXPECT_TRUE(probe.blocks().value(idx_t(0, 0)).loading);
}

TEST_F(SheetCache, NeedsNothingMoreAtTheEndOfAnyGroup)
{
    for (const int items : {1, 99, 100, 101, 200}) {
        RecipeSheetItems& sheet = startWith(items, 50);
        RecipeSheetProbe probe(sheet);
        probe.firstRow() = qMax(items - 10, 0);
        probe.firstColumn() = 45;
        sheet.checkAndLoadRequiredBlocks();
        for (const idx_t& key : keys(sheet)) {
            EXPECT_LE(key.second * 100, items);
            EXPECT_LE(key.first * 50, 50);
        }
        destroySheet(sheet);
    }
}

/// Page sizes are what the project file says; nothing may overflow or take for ever.
TEST_F(SheetCache, SurvivesAnAbsurdPageSize)
{
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", 2147483647).set("column_num_page", 2147483647);
    RecipeSheetItems& sheet = startWith(250, 120, properties);
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(keys(sheet).size(), 8u);
}

TEST_F(SheetCache, DropsOneBlockAlsoWhereThePageNeedsNone)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    for (int i = 0; i < 9; ++i)
        sheet.loadDataBlock(i / 3, i % 3, false);
    probe.firstRow() = 1000; // behind the end: from block row 10 to 2
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(keys(sheet).size(), 8u);
}

// --- eviction ----------------------------------------------------------------------------------------------------

TEST_F(SheetCache, KeepsSixBlocks)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    for (int i = 0; i < 6; ++i)
        sheet.loadDataBlock(i / 3, i % 3, false);
    sheet.cleanupOldBlocks();
    EXPECT_EQ(keys(sheet).size(), 6u);
}

TEST_F(SheetCache, DropsTheOldestOfSevenBlocks)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    for (int i = 0; i < 7; ++i)
        sheet.loadDataBlock(i / 3, i % 3, false);
    sheet.loadDataBlock(0, 0, false); // the oldest is used once more
    sheet.cleanupOldBlocks();
    EXPECT_EQ(keys(sheet).size(), 6u);
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 0));
    EXPECT_FALSE(sheet.isDataBlockLoaded(0, 1));
}

TEST_F(SheetCache, DropsTheFirstInKeyOrderOfEquallyOldBlocks)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    for (int i = 0; i < 7; ++i)
        sheet.loadDataBlock(i / 3, i % 3, false);
    for (RecipeSheetProbe::DataBlock& block : probe.blocks())
        block.lastAccess = 5;
    probe.blocks()[idx_t(0, 0)].lastAccess = 6;
    sheet.cleanupOldBlocks();
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 0));
    EXPECT_FALSE(sheet.isDataBlockLoaded(1, 0)) << "column first: (0, 1) comes before (1, 0)";
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 1));
}

/// Wanted: a block that the page shows counts by when it was read, too. Its cells are empty until the next look.
TEST_F(SheetCache, MayDropABlockOfThePageItselfWhichTheNextLookReadsAgain)
{
    RecipeSheetItems& sheet = startWith(30, 400);
    RecipeSheetProbe probe(sheet);
    for (const int blockColumn : {2, 0, 1, 5, 6, 7}) // the third was read first
        sheet.loadDataBlock(0, blockColumn, false);
    probe.firstColumn() = 148;
    sheet.checkAndLoadRequiredBlocks();
    EXPECT_EQ(keys(sheet).size(), 6u);
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 3));
    EXPECT_EQ(sheet.getDataFromBlocks(1, 148), QString());

    sheet.checkAndLoadRequiredBlocks();
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 3));
    EXPECT_EQ(sheet.getDataFromBlocks(1, 148), QStringLiteral("1148"));
}

TEST_F(SheetCache, DropsOneBlockPerCall)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    for (int i = 0; i < 9; ++i)
        sheet.loadDataBlock(i / 3, i % 3, false);
    for (const size_t left : {8u, 7u, 6u, 6u}) {
        sheet.cleanupOldBlocks();
        EXPECT_EQ(keys(sheet).size(), left);
    }
}

// --- texts -------------------------------------------------------------------------------------------------------

TEST_F(SheetCache, HasNoTextForACellWhoseBlockIsAbsent)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    sheet.loadDataBlock(0, 0, false);
    EXPECT_EQ(sheet.getDataFromBlocks(99, 49), QStringLiteral("99049"));
    EXPECT_EQ(sheet.getDataFromBlocks(100, 0), QString());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 50), QString());
    EXPECT_EQ(sheet.getDataFromBlocks(-1, -1), QString()) << "block (0, 0), but before its first cell";
    EXPECT_EQ(sheet.getDataFromBlocks(2147483647, 2147483647), QString());
}

TEST_F(SheetCache, SaysThatABlockIsOnTheWay)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe(sheet).blocks()[idx_t(1, 0)].loading = true;
    EXPECT_EQ(sheet.getDataFromBlocks(5, 60), QStringLiteral("Loading..."));
    EXPECT_EQ(sheet.getDataFromBlocks(99, 149), QString());
}

TEST_F(SheetCache, FillsTheVisibleCellsFromTheFirstVisibleLinesOn)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    probe.firstRow() = 95;
    probe.firstColumn() = 47;
    sheet.checkAndLoadRequiredBlocks();
    sheet.refresh_displayInfo();
    ASSERT_EQ(probe.displayCells().size(), 50);
    EXPECT_EQ(probe.cellText(0, 0), QStringLiteral("95047"));
    EXPECT_EQ(probe.cellText(4, 9), QStringLiteral("104051")) << "over the borders of four blocks";
    EXPECT_EQ(probe.displayCells().value(idx_t(4, 9)).rect, QRectF(650, 373, 120, 37));
    EXPECT_EQ(probe.displayCells().firstKey(), idx_t(0, 0));
    EXPECT_EQ(probe.displayCells().lastKey(), idx_t(4, 9));
}

TEST_F(SheetCache, HasEmptyCellsBehindTheEndOfTheGroup)
{
    RecipeSheetItems& sheet = startWith(3, 2);
    RecipeSheetProbe probe(sheet);
    sheet.checkAndLoadRequiredBlocks();
    sheet.refresh_displayInfo();
    EXPECT_EQ(probe.cellText(1, 2), QStringLiteral("2001"));
    EXPECT_TRUE(probe.displayCells().contains(idx_t(2, 0)));
    EXPECT_EQ(probe.cellText(2, 0), QString());
    EXPECT_EQ(probe.cellText(0, 3), QString());
}

TEST_F(SheetCache, HasNoCellsWithoutVisibleRows)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    ASSERT_FALSE(probe.displayCells().isEmpty());
    probe.visibleRows() = 0;
    sheet.refresh_displayInfo();
    EXPECT_TRUE(probe.displayCells().isEmpty());
}

TEST_F(SheetCache, ReplacesTheVisibleCellsAsAWhole)
{
    RecipeSheetItems& sheet = startWith(250, 120);
    RecipeSheetProbe probe(sheet);
    probe.displayCells().insert(idx_t(40, 40), cell_info_t());
    sheet.refresh_displayInfo();
    EXPECT_EQ(probe.displayCells().size(), 50);
}

/// The rectangles are computed in double precision: no error adds up over a page of narrow columns.
TEST_F(SheetCache, ComputesTheRectanglesInDoublePrecision)
{
    SheetProperties properties = SheetProperties::usual();
    properties.set("rows_num_page", 77).set("column_num_page", 49);
    RecipeSheetItems& sheet = startWith(250, 120, properties);
    const QRectF rect = RecipeSheetProbe(sheet).displayCells().value(idx_t(48, 76)).rect;
    EXPECT_DOUBLE_EQ(rect.x(), 170.0 + 48 * (600.0 / 49));
    EXPECT_DOUBLE_EQ(rect.y(), 40.0 + 76 * (370.0 / 77));
    EXPECT_DOUBLE_EQ(rect.width(), 600.0 / 49);
    EXPECT_DOUBLE_EQ(rect.height(), 370.0 / 77);
}
