// What the keyboard is told, and what becomes of its answer.
#include "touch_events.h"

#include "UHmiEvent.h"
#include "sqlite_errors.h"

#include <string>

namespace {

class Keyboard : public TouchFixture
{
protected:
    /// Six items: an integer, a text, three decimals, a text with decimals, decimals below 0, a large one.
    SheetGroup mixedGroup()
    {
        SheetGroup group = SheetGroup::ofSize(6, 8);
        group.dataTypes = {0, DATA_TYPE_TEXT, 3, DATA_TYPE_TEXT, 1, 0};
        group.decimals = {0, 0, 3, 2, -1, 1};
        group.min = -1.25;
        group.max = 1234.5;
        return group;
    }

    /// The parameters of the latest request; the keyboard finds them through the request's argument.
    const KeyboardParameters& parameters()
    {
        settle();
        static const KeyboardParameters none;
        if (requests.calls.empty()) {
            ADD_FAILURE() << "no keyboard";
            return none;
        }
        const InterfaceAll* interface = reinterpret_cast<const InterfaceAll*>(requests.calls.back().argument);
        return *static_cast<const KeyboardParameters*>(interface->callArguments.last());
    }
};

class Answer : public Keyboard
{
protected:
    Answer() { writeGroup(SheetGroup::ofSize(250, 120)); }
};

struct CellCase
{
    const char* name;
    int item;
    bool textEntry;
    int decimals;
    int format;
    const char* maximum;
    const char* minimum;
    const char* current;
};

void PrintTo(const CellCase& row, std::ostream* out)
{
    *out << row.name;
}

std::string caseName(const testing::TestParamInfo<CellCase>& info)
{
    return info.param.name;
}

class KeyboardOfACell : public Keyboard, public testing::WithParamInterface<CellCase>
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Each, KeyboardOfACell,
                         testing::Values(CellCase{"Integer", 0, false, 0, 0, "1235", "-1", "2"},
                                         CellCase{"Text", 1, true, 0, 4, "1235", "-1", "t1_2"},
                                         CellCase{"ThreeDecimals", 2, false, 3, 0, "1234.500", "-1.250", "2002.000"},
                                         CellCase{"TextWithDecimals", 3, true, 0, 4, "1234.50", "-1.25", "0.00"},
                                         CellCase{"NegativeDecimals", 4, false, -1, 0, "1234.5", "-1.25", "4002"},
                                         CellCase{"OneDecimal", 5, false, 1, 0, "1234.5", "-1.3", "5002.0"}),
                         caseName);

TEST_P(KeyboardOfACell, IsToldTypeDecimalsLimitsAndText)
{
    writeGroup(mixedGroup());
    RecipeSheetItems& sheet = startSheet();
    doubleTap(sheet, cell(2, GetParam().item));
    const KeyboardParameters& told = parameters();
    EXPECT_EQ(told.textEntry, GetParam().textEntry);
    EXPECT_EQ(told.decimalPlaces, GetParam().decimals);
    EXPECT_EQ(told.formatCode, GetParam().format);
    // The limits come through the file, which keeps them with the item's decimals.
    EXPECT_DOUBLE_EQ(told.maximum.toDouble(), latin1(GetParam().maximum).toDouble());
    EXPECT_DOUBLE_EQ(told.minimum.toDouble(), latin1(GetParam().minimum).toDouble());
    EXPECT_EQ(told.currentText, latin1(GetParam().current));
    EXPECT_EQ(told.receiver, static_cast<InterfaceAll*>(&sheet));
    EXPECT_FALSE(told.spareFlag);
    EXPECT_FALSE(told.spareFlag2);
    EXPECT_EQ(told.spareNumber, 0);
}

TEST_F(Keyboard, ShowsLimitsWithTheDecimalsOfTheItem)
{
    SheetGroup group = SheetGroup::ofSize(3, 2);
    group.decimals = {0, 2, 5};
    group.min = -7;
    group.max = 65535;
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet();
    const char* const maxima[] = {"65535", "65535.00", "65535.00000"};
    const char* const minima[] = {"-7", "-7.00", "-7.00000"};
    for (int item = 0; item < 3; ++item) {
        doubleTap(sheet, cell(0, item));
        EXPECT_EQ(parameters().maximum, latin1(maxima[item]));
        EXPECT_EQ(parameters().minimum, latin1(minima[item]));
    }
}

TEST_F(Keyboard, IsAskedForWithAFlagANameAndTheRecordOfArguments)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);

    /// Sees the posted event itself.
    class Watch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != static_cast<QEvent::Type>(1010))
                return false;
            const UExternalFuncCallEvent* call = static_cast<UExternalFuncCallEvent*>(event);
            flags.append(call->flag);
            names.append(call->functionName);
            arguments.append(call->argument);
            return false;
        }
        QList<bool> flags;
        QStringList names;
        QList<quintptr> arguments;
    } watch;
    runtime().installEventFilter(&watch);
    doubleTap(sheet, cell(0, 0));
    settle();
    runtime().removeEventFilter(&watch);
    EXPECT_EQ(watch.flags, QList<bool>({true}));
    EXPECT_EQ(watch.names, QStringList(latin1("showKeyboardWindow")));
    EXPECT_EQ(watch.arguments, QList<quintptr>({reinterpret_cast<quintptr>(&probe.keyboardInterface())}));
}

TEST_F(Keyboard, GetsAnArgumentListThatOnlyGrows)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    EXPECT_EQ(probe.keyboardInterface().callArguments.size(), 0);
    doubleTap(sheet, cell(0, 0));
    tap(sheet, cell(0, 0));
    doubleTap(sheet, title(1));
    settle();
    sheet.keyboardReflash(latin1("name"));
    EXPECT_EQ(probe.keyboardInterface().callArguments,
              QList<void*>({&probe.keyboard(), &probe.keyboard(), &probe.keyboard()}));
}

TEST_F(Keyboard, OfATitleTakesThirtyTwoCharacters)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    click(sheet, rightArrow(), 2);
    doubleTap(sheet, title(3));
    const KeyboardParameters& told = parameters();
    EXPECT_TRUE(told.textEntry);
    EXPECT_EQ(told.maximum, latin1("32"));
    EXPECT_EQ(told.minimum, latin1("0"));
    EXPECT_EQ(told.decimalPlaces, 0);
    EXPECT_EQ(told.formatCode, 4);
    EXPECT_EQ(told.currentText, latin1("Recipe5"));
}

TEST_F(Keyboard, OfATitleHasNoReceiverUntilACellHadOne)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    doubleTap(sheet, title(0));
    EXPECT_EQ(parameters().receiver, nullptr);
    doubleTap(sheet, cell(0, 0));
    EXPECT_EQ(parameters().receiver, static_cast<InterfaceAll*>(&sheet));
    doubleTap(sheet, title(0));
    EXPECT_EQ(parameters().receiver, static_cast<InterfaceAll*>(&sheet)) << "stays what the cell made of it";
}

TEST_F(Keyboard, OfATitleBehindTheLastRecipeShowsThePlaceholder)
{
    writeGroup(SheetGroup::ofSize(12, 2));
    RecipeSheetItems& sheet = startSheet();
    doubleTap(sheet, title(4));
    EXPECT_EQ(parameters().currentText, latin1("Col4"));
}

TEST_F(Keyboard, OfACellShowsThePendingEdit)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    edit(sheet, 1, 1, latin1("77"));
    tap(sheet, cell(1, 1));
    EXPECT_EQ(parameters().currentText, latin1("77"));
}

TEST_F(Keyboard, LoadsABlockThatWasEvictedInBetween)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(1, 1));
    probe.blocks().clear();
    sheet.deal_data_press(cell(1, 1));
    EXPECT_EQ(parameters().maximum, latin1("9999999"));
    EXPECT_TRUE(sheet.isDataBlockLoaded(0, 0));
}

// --- the answer --------------------------------------------------------------------------------------------------

TEST_F(Answer, ForACellGoesIntoDisplayBlockAndPendingEdits)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(60);
    click(sheet, downArrow(), 3);
    sheet.refresh_displayInfo();
    const QRectF rect = probe.cellRect(2, 4);
    edit(sheet, 2, 4, latin1("4711"));
    EXPECT_EQ(probe.cellText(2, 4), latin1("4711"));
    EXPECT_EQ(probe.displayCells().value(idx_t(2, 4)).rect, rect);
    EXPECT_EQ(sheet.getDataFromBlocks(7, 62), latin1("4711"));
    EXPECT_EQ(probe.editedCells().size(), 1);
    EXPECT_EQ(probe.editedCells().value(idx_t(62, 7)), latin1("4711"));
    EXPECT_TRUE(probe.editedList().isEmpty());
    EXPECT_EQ(querySql(latin1("SELECT D7 FROM data_0 WHERE column = 62;")), QStringList(latin1("7062.0")));
}

TEST_F(Answer, IsTakenUnchecked)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    for (const QString& text : {latin1("no number"), QString(), latin1("1e400"), QString(5000, QLatin1Char('x'))}) {
        edit(sheet, 0, 0, text);
        EXPECT_EQ(probe.editedCells().value(idx_t(0, 0)), text);
        tap(sheet, cell(1, 1));
    }
}

TEST_F(Answer, ReplacesAnEarlierOneForTheSameCell)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("1"));
    sheet.keyboardReflash(latin1("2"));
    EXPECT_EQ(probe.editedCells().size(), 1);
    EXPECT_EQ(probe.editedCells().value(idx_t(0, 0)), latin1("2"));
}

TEST_F(Answer, ReachesTheItemThroughTheReceiverOfTheRequest)
{
    RecipeSheetItems& sheet = startSheet();
    doubleTap(sheet, cell(3, 3));
    parameters().receiver->keyboardReflash(latin1("55"));
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(3, 3), latin1("55"));
}

TEST_F(Answer, StaysVisibleWhenItsBlockIsLoadedAgain)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    edit(sheet, 0, 0, latin1("5"));
    sheet.loadDataBlock(0, 0, true);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
    probe.blocks().clear();
    sheet.loadDataBlock(0, 0, false);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("5"));
}

TEST_F(Answer, ForACellOfAnEvictedBlockIsKeptAndShownWhenTheBlockReturns)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    doubleTap(sheet, cell(2, 2));
    probe.blocks().clear();
    sheet.keyboardReflash(latin1("8"));
    EXPECT_EQ(probe.cellText(2, 2), latin1("8"));
    EXPECT_TRUE(probe.blocks().isEmpty()) << "an answer loads nothing";
    EXPECT_EQ(probe.editedCells().value(idx_t(2, 2)), latin1("8"));
    sheet.loadDataBlock(0, 0, false);
    EXPECT_EQ(sheet.getDataFromBlocks(2, 2), latin1("8"));
}

TEST_F(Answer, ForATitleChangesTheNameAndNothingElse)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    click(sheet, rightArrow());
    sheet.refresh_displayInfo();
    const QMap<idx_t, cell_info_t> before = probe.displayCells();
    rename(sheet, 2, latin1("Rye"));
    EXPECT_EQ(sheet.getColumnName(3), latin1("Rye"));
    EXPECT_EQ(probe.columnNames().at(3).at(1), latin1("Recipe3 L1")) << "the other languages stay";
    EXPECT_EQ(probe.editedList(), QList<int>({3}));
    EXPECT_TRUE(probe.editedCells().isEmpty());
    ASSERT_EQ(probe.displayCells().size(), before.size());
    for (auto cell = before.constBegin(); cell != before.constEnd(); ++cell)
        EXPECT_EQ(probe.displayCells().value(cell.key()).text, cell->text);
}

TEST_F(Answer, ForATitleIsNotedEachTime)
{
    RecipeSheetItems& sheet = startSheet();
    rename(sheet, 2, latin1("Rye"));
    sheet.keyboardReflash(latin1("Spelt"));
    rename(sheet, 0, latin1("Oat"));
    EXPECT_EQ(RecipeSheetProbe(sheet).editedList(), QList<int>({2, 2, 0}));
}

// --- stray answers -----------------------------------------------------------------------------------------------

TEST_F(Answer, WithNothingSelectedIsKeptUnderACellThatIsNotThere)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.keyboardReflash(latin1("99"));
    EXPECT_EQ(probe.editedCells().keys(), QList<idx_t>({idx_t(-32768, -32768)}));
    EXPECT_EQ(probe.displayCells().value(idx_t(-32768, -32768)).rect, QRectF());
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), latin1("0"));
    sheet.refresh_displayInfo();
    EXPECT_FALSE(probe.displayCells().contains(idx_t(-32768, -32768)));
}

TEST_F(Answer, ForATitleBehindTheLastRecipeIsNotedAndChangesNoName)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QVector<QVector<QString> > before = probe.columnNames();
    probe.selectedRow() = -1;
    for (int column : {120, 500, -3}) {
        probe.selectedColumn() = column;
        sheet.keyboardReflash(latin1("stray"));
    }
    EXPECT_EQ(probe.columnNames(), before);
    EXPECT_EQ(probe.editedList(), QList<int>({120, 500, -3}));
}

TEST_F(Answer, ForACellBehindTheLastItemOrRecipeIsKeptAndChangesNoBlock)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(119);
    const QString before = sheet.getDataFromBlocks(0, 119);
    for (const idx_t& stray : {idx_t(4, 250), idx_t(4, 299), idx_t(5, 0), idx_t(100, 0), idx_t(-200, 3)}) {
        probe.selectedColumn() = stray.first;
        probe.selectedRow() = stray.second;
        sheet.keyboardReflash(latin1("stray"));
        EXPECT_EQ(probe.editedCells().value(idx_t(115 + stray.first, stray.second)), latin1("stray"));
    }
    EXPECT_EQ(probe.editedCells().size(), 5);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 119), before);
    for (const RecipeSheetProbe::DataBlock& block : probe.blocks()) {
        for (const recipeItemInfo_t& item : block.items)
            EXPECT_FALSE(item.values.contains(latin1("stray")));
    }
}

TEST_F(Answer, ThatWasStrayIsSavedToNoCellAndNoTitle)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const QStringList cells = querySql(latin1("SELECT * FROM data_0;"));
    const QStringList names = querySql(latin1("SELECT * FROM lang_0;"));
    sheet.keyboardReflash(latin1("1")); // nothing selected
    probe.selectedRow() = 3;
    probe.selectedColumn() = 120; // behind the last recipe
    sheet.keyboardReflash(latin1("2"));
    probe.selectedRow() = 250; // behind the last item
    probe.selectedColumn() = 1;
    sheet.keyboardReflash(latin1("3"));
    probe.selectedRow() = -1;
    probe.selectedColumn() = 120; // a title behind the last recipe
    sheet.keyboardReflash(latin1("4"));
    SqliteErrors errors; // no column D250
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT * FROM data_0;")), cells);
    EXPECT_EQ(querySql(latin1("SELECT * FROM lang_0;")), names);
    EXPECT_TRUE(probe.editedCells().isEmpty());
    EXPECT_TRUE(probe.editedList().isEmpty());
}

TEST_F(Answer, ForATitleThatHasNoNamesYetMakesRoomForThem)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.columnNames()[1].clear();
    rename(sheet, 1, latin1("Rye"));
    EXPECT_EQ(sheet.getColumnName(1), latin1("Rye"));
}
