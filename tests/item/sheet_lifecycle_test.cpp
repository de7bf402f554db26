// Construction, start, a second start and destruction of an item.
#include "RecipeDB.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace {

class SheetConstruction : public SheetFixture
{
protected:
    RecipeSheetItems& construct() { return keep(new RecipeSheetItems); }
};

class SheetStart : public SheetFixture
{
};

class SheetInstance : public SheetFixture
{
};

void expectRegister(const RecipeSheetProbe::RegisterDescriptor& actual, const QString& area, const QString& type,
                    int address, int wordCount)
{
    EXPECT_EQ(actual.areaName, area);
    EXPECT_EQ(actual.registerType, type);
    EXPECT_EQ(actual.address, address);
    EXPECT_EQ(actual.subAddress, -1);
    EXPECT_EQ(actual.wordCount, wordCount);
    EXPECT_EQ(actual.spare, 0);
}

void expectPresetKeyboard(const KeyboardParameters& keyboard)
{
    EXPECT_EQ(keyboard.maximum, QStringLiteral("65535"));
    EXPECT_EQ(keyboard.minimum, QStringLiteral("0"));
    EXPECT_FALSE(keyboard.textEntry || keyboard.spareFlag || keyboard.spareFlag2);
    EXPECT_EQ(keyboard.decimalPlaces, 0);
    EXPECT_EQ(keyboard.formatCode, 0);
    EXPECT_EQ(keyboard.spareNumber, 0);
    EXPECT_EQ(keyboard.currentText, QString());
    EXPECT_EQ(keyboard.receiver, nullptr);
}

} // namespace

// --- construction ------------------------------------------------------------------------------------------------

TEST_F(SheetConstruction, SetsTheNumbersOfTheConfigurationToTheirDefaults)
{
    RecipeSheetProbe probe(construct());
    EXPECT_EQ(probe.itemName(), QStringLiteral("RecipeSheet"));
    EXPECT_EQ(probe.titleHeight(), 30);
    EXPECT_EQ(probe.buttonBarHeight(), 40.0);
    for (const int metric : {probe.vScrollWidth(), probe.arrowLength(), probe.hScrollHeight(), probe.arrowLength2()})
        EXPECT_EQ(metric, 30);
    for (const int number :
         {probe.currentRecipe(),      probe.groupIndex(),         probe.nameLanguage(),   probe.usePage(),
          probe.columnLineDisplay(),  probe.rowLineDisplay(),     probe.recipeCount(),    probe.itemCount(),
          probe.rowsPerPage(),        probe.columnsPerPage(),     probe.visibleRows(),    probe.visibleColumns(),
          probe.frameLineWidth(),     probe.insideLineWidth(),    probe.frameLineShape(), probe.insideLineShape(),
          probe.titleTextPixelSize(), probe.tableTextPixelSize(), probe.firstColumn(),    probe.firstRow(),
          probe.nameWidth(),          probe.useDiffColor(),       probe.useAddDel()})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(probe.columnStep(), 1);
    EXPECT_EQ(probe.rowStep(), 1);
    EXPECT_EQ(probe.cellWidth(), 0.0);
    EXPECT_EQ(probe.cellHeight(), 0.0);
    EXPECT_TRUE(probe.titleFontFamily().isEmpty() && probe.tableFontFamily().isEmpty());
}

TEST_F(SheetConstruction, LeavesEveryColourInvalidUntilTheStart)
{
    RecipeSheetProbe probe(construct());
    for (const QColor& color :
         {probe.frameBackgroundColor(), probe.titleBackgroundColor(), probe.frameLineColor(), probe.insideLineColor(),
          probe.titleTextColor(), probe.tableTextColor(), probe.selectedRowColor(), probe.selectedCellColor(),
          probe.oddColor(), probe.evenColor(), probe.triangleColor(), probe.saveButton().color})
        EXPECT_FALSE(color.isValid());
}

TEST_F(SheetConstruction, SelectsNothingAndHoldsNothing)
{
    RecipeSheetProbe probe(construct());
    EXPECT_EQ(probe.selectedRow(), -32768);
    EXPECT_EQ(probe.selectedColumn(), -32768);
    EXPECT_EQ(probe.selectedRect(), QRectF(0, 0, 0, 0));
    for (const RecipeSheetProbe::Handle& handle :
         {probe.saveButton(), probe.addButton(), probe.deleteButton(), probe.leftArrow(), probe.rightArrow(),
          probe.upArrow(), probe.downArrow(), probe.horizontalThumb(), probe.verticalThumb()})
        EXPECT_FALSE(handle.held);
    EXPECT_FALSE(probe.cellPressed());
    EXPECT_FALSE(probe.needsRepaint());
}

TEST_F(SheetConstruction, StartsWithEmptyContainersAndAnEmptyCacheOfItsShape)
{
    RecipeSheetProbe probe(construct());
    EXPECT_TRUE(probe.displayCells().isEmpty());
    EXPECT_TRUE(probe.blocks().isEmpty());
    EXPECT_TRUE(probe.columnNames().isEmpty() && probe.rowNames().isEmpty());
    EXPECT_FALSE(probe.columnNamesLoaded() || probe.rowNamesLoaded());
    EXPECT_TRUE(probe.editedCells().isEmpty() && probe.editedList().isEmpty());
    EXPECT_TRUE(probe.stripeRects().isEmpty());
    EXPECT_EQ(probe.blockColumns(), 50);
    EXPECT_EQ(probe.blockRows(), 100);
    EXPECT_EQ(probe.maxBlocks(), 6);
    EXPECT_EQ(probe.accessCounter(), 0);
    EXPECT_EQ(probe.worker(), nullptr);
}

TEST_F(SheetConstruction, DescribesItsRegisters)
{
    RecipeSheetProbe probe(construct());
    const QString area = QStringLiteral("Internal storage area");
    expectRegister(probe.spareRegister(), QString(), QString(), -1, 0);
    expectRegister(probe.groupIndexRegister(), area, QStringLiteral("LW"), 60802, 1);
    expectRegister(probe.recipeIndexRegister(), area, QStringLiteral("LW"), 60803, 1);
}

TEST_F(SheetConstruction, PresetsTheKeyboard)
{
    RecipeSheetProbe probe(construct());
    expectPresetKeyboard(probe.keyboard());
    expectPresetKeyboard(probe.keyboardInterface().keyboardParameters);
    EXPECT_TRUE(probe.keyboardInterface().callArguments.isEmpty());
}

TEST_F(SheetConstruction, SharesTheOneDatabase)
{
    EXPECT_EQ(RecipeSheetProbe(construct()).db(), RecipeDB::getInstance());
    EXPECT_EQ(RecipeSheetProbe(construct()).db(), RecipeDB::getInstance());
}

TEST_F(SheetConstruction, OpensTheRecipeFileOfTheRunningProject)
{
    writeGroup(SheetGroup());
    openProject();
    construct();
    EXPECT_TRUE(RecipeDB::getInstance()->isOpen());
}

TEST_F(SheetConstruction, OpensNothingWithoutAProject)
{
    writeGroup(SheetGroup());
    construct();
    EXPECT_FALSE(RecipeDB::getInstance()->isOpen());
}

TEST_F(SheetConstruction, OpensAndCreatesNothingWhereThereIsNoFile)
{
    openProject();
    construct();
    EXPECT_FALSE(RecipeDB::getInstance()->isOpen());
    EXPECT_FALSE(QFile::exists(recipeFile()));
}

/// A runtime may draw, touch and tell an item that it could not configure.
TEST_F(SheetConstruction, MakesAnItemThatMayBeUsedBeforeItsStart)
{
    writeGroup(SheetGroup());
    openProject();
    RecipeSheetItems& sheet = construct();
    RecipeSheetProbe probe(sheet);
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    tap(sheet, QPointF(0, 0));
    move(sheet, QPointF(50, 50));
    EXPECT_EQ(sheet.update_result(4), 1);
    sheet.selectCol(0);
    sheet.keyboardReflash(QString());
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    EXPECT_EQ(probe.firstRow(), 0);
    EXPECT_EQ(probe.firstColumn(), 0);
    EXPECT_EQ(probe.worker(), nullptr);
}

// --- start -------------------------------------------------------------------------------------------------------

TEST_F(SheetStart, ReadsTheRecipeIndexRegister)
{
    writeGroup(SheetGroup());
    registers().setWord(QStringLiteral("LW"), 60803, 5);
    RecipeSheetProbe probe(startSheet());
    EXPECT_EQ(probe.currentRecipe(), 5);
    EXPECT_EQ(probe.selectedColumn(), -32768) << "followed only when it changes";
}

TEST_F(SheetStart, TakesTheSizesOfTheGroupFromItsConfiguration)
{
    SheetGroup other = SheetGroup::ofSize(7, 3);
    other.group = 4;
    writeGroup(SheetGroup());
    writeGroup(other);
    RecipeSheetProbe probe(startSheet(SheetProperties::usual().set("Recipe_Group_idx", 4)));
    EXPECT_EQ(probe.itemCount(), 7);
    EXPECT_EQ(probe.recipeCount(), 3);
    EXPECT_EQ(probe.table().groupIndex, 4);
    EXPECT_EQ(probe.rowNames().size(), 7);
    EXPECT_EQ(probe.columnNames().size(), 3);
}

TEST_F(SheetStart, ShowsAnEmptyPageForAGroupWithoutAConfigurationRow)
{
    writeGroup(SheetGroup());
    SqliteErrors errors; // its tables are missing
    RecipeSheetProbe probe(startSheet(SheetProperties::usual().set("Recipe_Group_idx", 9)));
    EXPECT_EQ(probe.itemCount(), 0);
    EXPECT_EQ(probe.displayCells().size(), 50);
    EXPECT_EQ(probe.cellText(0, 0), QString()) << "no row is no error";
}

TEST_F(SheetStart, ShowsAnErrorWhereTheConfigurationCannotBeRead)
{
    RecipeSheetProbe probe(startSheet());
    ASSERT_EQ(probe.displayCells().size(), 50);
    EXPECT_EQ(probe.cellText(0, 0), QStringLiteral("ERROR"));
    EXPECT_EQ(std::count_if(probe.displayCells().constBegin(), probe.displayCells().constEnd(),
                            [](const cell_info_t& cell) { return cell.text.isEmpty(); }),
              49);
    EXPECT_EQ(probe.displayCells().value(idx_t(4, 9)).rect, QRectF(650, 373, 120, 37)) << "the geometry is there";
    EXPECT_EQ(probe.itemCount(), 0);
    EXPECT_EQ(probe.recipeCount(), 0);
}

TEST_F(SheetStart, ObtainsTheWorkerOnce)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(RecipeSheetProbe(sheet).worker(), RecipeSheetThread::getInstance());
    RecipeSheetProbe(sheet).worker() = nullptr;
    sheet.init();
    EXPECT_EQ(RecipeSheetProbe(sheet).worker(), RecipeSheetThread::getInstance());
}

TEST_F(SheetStart, LoadsTheWholeGroupOnlyWhenAsked)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    EXPECT_TRUE(probe.table().items.isEmpty());
    probe.displayCells().clear();
    sheet.initRecipeFile();
    EXPECT_EQ(probe.table().items.size(), 250);
    EXPECT_EQ(probe.table().columnName.size(), 120);
    EXPECT_EQ(probe.cellText(0, 0), QStringLiteral("0"));
}

TEST_F(SheetStart, ShowsAnErrorWhereTheWholeGroupCannotBeLoaded)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    runSql(QStringLiteral("DROP TABLE addr_0;"));
    SqliteErrors errors;
    sheet.initRecipeFile();
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(0, 0), QStringLiteral("ERROR"));
}

// --- a second start ----------------------------------------------------------------------------------------------

namespace {

/// All that a page and a touch depend on, as one text.
QString stateOf(RecipeSheetItems& sheet)
{
    RecipeSheetProbe probe(sheet);
    QStringList state;
    const auto rect = [](const QRectF& r) {
        return QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    };
    for (const int number :
         {probe.itemCount(), probe.recipeCount(), probe.rowsPerPage(), probe.columnsPerPage(), probe.visibleRows(),
          probe.visibleColumns(), probe.firstRow(), probe.firstColumn(), probe.selectedRow(), probe.selectedColumn(),
          probe.rowStep(), probe.columnStep(), probe.currentRecipe(), static_cast<int>(probe.rowNames().size()),
          static_cast<int>(probe.columnNames().size())})
        state << QString::number(number);
    for (const QRectF& r : {probe.itemRect(), probe.dataRect(), probe.verticalThumbRect(), probe.horizontalThumbRect(),
                            probe.saveButtonRect(), probe.selectedRect()})
        state << rect(r);
    for (const QRectF& stripe : probe.stripeRects())
        state << QStringLiteral("stripe ") + rect(stripe);
    for (auto cell = probe.displayCells().constBegin(); cell != probe.displayCells().constEnd(); ++cell)
        state << cell->text + rect(cell->rect);
    for (const idx_t& key : probe.blocks().keys())
        state << QStringLiteral("block %1 %2").arg(key.first).arg(key.second);
    for (int i = 0; i < 12; ++i)
        state << sheet.getRowName(i) << sheet.getColumnName(i);
    return state.join(QLatin1Char('\n'));
}

void startAgain(RecipeSheetItems& sheet)
{
    QStringList addresses;
    QList<KEY_ADDRESS> keys;
    EXPECT_EQ(sheet.getMonitorAddr(addresses, keys), 0);
    EXPECT_EQ(addresses.size(), 2);
    EXPECT_EQ(keys.size(), 1);
}

} // namespace

TEST_F(SheetStart, LeavesTheItemTheSecondTimeAsTheFirstTimeDid)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet(SheetProperties::usual().set("use_diff_color", 1));
    const QString before = stateOf(sheet);
    startAgain(sheet);
    EXPECT_EQ(stateOf(sheet), before);
    EXPECT_EQ(RecipeSheetProbe(sheet).stripeRects().size(), 10) << "not doubled";
}

TEST_F(SheetStart, LeavesAScrolledItemWhereItWas)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    sheet.selectCol(77);
    RecipeSheetProbe(sheet).firstRow() = 3;
    sheet.init();
    const QString before = stateOf(sheet);
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(0, 0), QStringLiteral("3077"));
    startAgain(sheet);
    EXPECT_EQ(stateOf(sheet), before);
}

TEST_F(SheetStart, LeavesAnItemWithoutTitlesTheSecondTimeAsTheFirstTimeDid)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("DROP TABLE lang_0;"));
    SqliteErrors errors;
    RecipeSheetItems& sheet = startSheet();
    const QString before = stateOf(sheet);
    startAgain(sheet);
    EXPECT_EQ(stateOf(sheet), before);
}

TEST_F(SheetStart, LeavesTheErrorViewTheSecondTimeAsTheFirstTimeDid)
{
    RecipeSheetItems& sheet = startSheet();
    const QString before = stateOf(sheet);
    startAgain(sheet);
    EXPECT_EQ(stateOf(sheet), before);
}

// --- the item built last -----------------------------------------------------------------------------------------

TEST_F(SheetInstance, IsNullBeforeTheFirstItem)
{
    EXPECT_EQ(RecipeSheetItems::s_instance, nullptr);
    RecipeSheetItems::replace(true, 3, 4);
    RecipeSheetItems::replace(false, 3, 4);
    EXPECT_EQ(RecipeSheetItems::s_instance, nullptr);
}

TEST_F(SheetInstance, IsWrittenByEachConstruction)
{
    RecipeSheetItems& first = keep(new RecipeSheetItems);
    EXPECT_EQ(RecipeSheetItems::s_instance, &first);
    RecipeSheetItems& second = keep(new RecipeSheetItems);
    EXPECT_EQ(RecipeSheetItems::s_instance, &second);
}

TEST_F(SheetInstance, IsNotWrittenByAStart)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& first = startSheet();
    RecipeSheetItems& second = startSheet();
    first.init();
    EXPECT_EQ(RecipeSheetItems::s_instance, &second);
}

TEST_F(SheetInstance, IsNotClearedByTheDestructionOfAnyItem)
{
    RecipeSheetItems& first = keep(new RecipeSheetItems);
    RecipeSheetItems& second = keep(new RecipeSheetItems);
    const RecipeSheetItems* const address = &second;
    destroySheet(first);
    EXPECT_EQ(RecipeSheetItems::s_instance, address);
    destroySheet(second);
    EXPECT_EQ(RecipeSheetItems::s_instance, address) << "wanted, although nothing is there any more";
}

TEST_F(SheetInstance, AloneTakesTheWorkersResult)
{
    writeGroup(SheetGroup::ofSize(12, 8));
    RecipeSheetProbe first(startSheet());
    RecipeSheetProbe second(startSheet());
    RecipeSheetItems::replace(true, 9, 13);
    EXPECT_EQ(first.recipeCount(), 8);
    EXPECT_EQ(second.recipeCount(), 9);
    EXPECT_EQ(second.itemCount(), 13);
    RecipeSheetItems::replace(false, 1, 1);
    EXPECT_EQ(second.recipeCount(), 9);
}

TEST_F(SheetInstance, LeavesTheFileOpenAndTheWorkerAloneWhenItIsDestroyed)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetThread* const worker = RecipeSheetThread::getInstance();
    worker->available = true;
    destroySheet(sheet);
    EXPECT_TRUE(RecipeDB::getInstance()->isOpen());
    EXPECT_EQ(RecipeSheetThread::getInstance(), worker);
    EXPECT_TRUE(worker->available);
}
