// The binding to the runtime's registers, against a scripted communication interface and in the desk runtime.
#include "sheet_fixture.h"

#include <QGraphicsItem>
#include <QImage>
#include <QPainter>

#include <functional>

namespace {

const QString LW = QStringLiteral("LW");

/// Writes down every call, answers reads from `values`, and does what the test says inside each call.
class ScriptedComm : public InterfaceComm
{
public:
    bool readWords(int station, int address, int count, int* destination) override
    {
        record(QStringLiteral("read %1 %2 %3").arg(station).arg(address).arg(count));
        if (!answers)
            return false;
        for (int i = 0; i < count; ++i)
            destination[i] = values.value(address + i);
        return true;
    }
    bool writeWords(const QString& device, const QString& type, int address, int subAddress, int count,
                    const int* source) override
    {
        QStringList words;
        for (int i = 0; i < count; ++i) {
            words << QString::number(source[i]);
            values[address + i] = source[i];
        }
        record(QStringLiteral("write %1|%2|%3|%4|%5|%6")
                   .arg(device, type)
                   .arg(address)
                   .arg(subAddress)
                   .arg(count)
                   .arg(words.join(QLatin1Char(' '))));
        return true;
    }
    LinkValue linkValue(const QString& device) override
    {
        record(QStringLiteral("link %1").arg(device));
        return LinkValue();
    }
    void formatMonitorAddress(const QString& device, const QString& type, int address, int subAddress, int count,
                              QStringList& addresses) override
    {
        record(QStringLiteral("format %1|%2|%3|%4|%5").arg(device, type).arg(address).arg(subAddress).arg(count));
        addresses << QStringLiteral("address of %1").arg(address);
    }

    QStringList calls;
    QMap<int, int> values;
    bool answers = true;
    std::function<void()> inside; ///< called from inside every call, but not again from inside itself

private:
    void record(const QString& call)
    {
        calls << call;
        if (!inside || m_inside)
            return;
        m_inside = true;
        inside();
        m_inside = false;
    }

    bool m_inside = false;
};

const QString READ_RECIPE = QStringLiteral("read 0 60803 1");
const QString FORMAT_RECIPE = QStringLiteral("format Internal storage area|LW|60803|-1|1");

QString writeGroupIndex(int value)
{
    return QStringLiteral("write Internal storage area|LW|60802|-1|1|%1").arg(value);
}

QString writeRecipeIndex(int value)
{
    return QStringLiteral("write Internal storage area|LW|60803|-1|1|%1").arg(value);
}

QList<void*> listOf(InterfaceComm* comm)
{
    QList<void*> list;
    list << static_cast<void*>(comm);
    return list;
}

class SheetRegisters : public SheetFixture
{
protected:
    /// An item with the scripted interface, placed and not yet started.
    RecipeSheetItems& construct(const SheetProperties& properties = SheetProperties::usual())
    {
        object* const configuration = addSheet(properties);
        RecipeSheetItems& sheet = keep(new RecipeSheetItems);
        Runtime::place(&sheet, configuration);
        sheet.setInterfaceByRequirement(listOf(&comm));
        return sheet;
    }
    /// A started one, with an empty record of calls.
    RecipeSheetItems& startScripted(const SheetProperties& properties = SheetProperties::usual())
    {
        RecipeSheetItems& sheet = construct(properties);
        getAddresses(sheet);
        comm.calls.clear();
        return sheet;
    }
    void getAddresses(RecipeSheetItems& sheet)
    {
        addresses.clear();
        keys.clear();
        EXPECT_EQ(sheet.getMonitorAddr(addresses, keys), 0);
    }

    ScriptedComm comm;
    QStringList addresses;
    QList<KEY_ADDRESS> keys;
};

} // namespace

// --- requirement and interface -----------------------------------------------------------------------------------

TEST_F(SheetRegisters, RequireTheCommunicationInterface)
{
    EXPECT_EQ(keep(new RecipeSheetItems).getRequirement(), QStringLiteral("comm"));
}

TEST_F(SheetRegisters, TakeTheInterfaceFromAListOfExactlyOne)
{
    ScriptedComm other;
    RecipeSheetItems& sheet = keep(new RecipeSheetItems);
    RecipeSheetProbe probe(sheet);
    EXPECT_EQ(probe.comm(), nullptr);
    sheet.setInterfaceByRequirement(QList<void*>());
    EXPECT_EQ(probe.comm(), nullptr);
    sheet.setInterfaceByRequirement(listOf(&comm));
    EXPECT_EQ(probe.comm(), &comm);
    sheet.setInterfaceByRequirement(QList<void*>());
    EXPECT_EQ(probe.comm(), &comm);
    sheet.setInterfaceByRequirement(listOf(&other) + listOf(&other));
    EXPECT_EQ(probe.comm(), &comm);
    sheet.setInterfaceByRequirement(listOf(&other));
    EXPECT_EQ(probe.comm(), &other);
    sheet.setInterfaceByRequirement(listOf(nullptr));
    EXPECT_EQ(probe.comm(), nullptr);
}

/// The runtime's other call of that name, without arguments, is the base's.
TEST_F(SheetRegisters, KeepTheInterfaceWhenAskedWithoutAList)
{
    RecipeSheetItems& sheet = construct();
    sheet.setInterfaceByRequirement();
    EXPECT_EQ(RecipeSheetProbe(sheet).comm(), &comm);
}

// --- what is watched ---------------------------------------------------------------------------------------------

TEST_F(SheetRegisters, AreReadOnceAndThenListedAtTheStart)
{
    writeGroup(SheetGroup());
    comm.values[60803] = 6;
    RecipeSheetItems& sheet = construct();
    getAddresses(sheet);
    EXPECT_EQ(comm.calls, QStringList({READ_RECIPE, FORMAT_RECIPE}));
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 6);
    EXPECT_TRUE(sheet.flags() & QGraphicsItem::ItemIsSelectable);
}

TEST_F(SheetRegisters, AreWatchedByTheRuntimesTextAndByTheReloadNotification)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = construct();
    addresses << QStringLiteral("another item's");
    keys << KEY_ADDRESS();
    EXPECT_EQ(sheet.getMonitorAddr(addresses, keys), 0);
    EXPECT_EQ(addresses, QStringList({QStringLiteral("another item's"), QStringLiteral("address of 60803"),
                                      QStringLiteral("0,-1,LWF,4")}));
    ASSERT_EQ(keys.size(), 2);
    const KEY_ADDRESS& key = keys.last();
    EXPECT_EQ(key.registerType, QStringLiteral("LWF"));
    EXPECT_EQ(key.address, 4);
    EXPECT_EQ(key.count, 1);
    EXPECT_TRUE(key.deviceName.isEmpty() && key.indexName.isEmpty());
    EXPECT_EQ(key.station, 0);
    EXPECT_EQ(key.linkNumber, 0);
    EXPECT_EQ(key.indexAddress, 0);
}

TEST_F(SheetRegisters, AreListedByAnOverrideOfTheUpdateAddress)
{
    class OtherUpdate : public RecipeSheetItems
    {
    public:
        void setUpdateAddr(QStringList& list, QList<KEY_ADDRESS>&) override { list << QStringLiteral("other"); }
    };
    object* const configuration = addSheet();
    OtherUpdate* const sheet = new OtherUpdate;
    keep(sheet);
    Runtime::place(sheet, configuration);
    sheet->setInterfaceByRequirement(listOf(&comm));
    getAddresses(*sheet);
    EXPECT_EQ(addresses, QStringList({QStringLiteral("address of 60803"), QStringLiteral("other")}));
    EXPECT_TRUE(keys.isEmpty());
}

TEST_F(SheetRegisters, AreNotTouchedWithoutAPropertyObjectAndTheRuntimeMayAskAgain)
{
    RecipeSheetItems& sheet = keep(new RecipeSheetItems);
    sheet.setInterfaceByRequirement(listOf(&comm));
    getAddresses(sheet);
    EXPECT_TRUE(addresses.isEmpty() && keys.isEmpty());
    EXPECT_TRUE(comm.calls.isEmpty());
    EXPECT_TRUE(sheet.flags() & QGraphicsItem::ItemIsSelectable) << "set before anything else";
    EXPECT_EQ(RecipeSheetProbe(sheet).rowsPerPage(), 0);

    sheet.setData(10, QStringLiteral("no pointer"));
    getAddresses(sheet);
    EXPECT_TRUE(addresses.isEmpty());
    sheet.setData(10, QVariant::fromValue(static_cast<void*>(nullptr)));
    getAddresses(sheet);
    EXPECT_TRUE(addresses.isEmpty());

    sheet.setData(10, QVariant::fromValue(static_cast<void*>(addSheet())));
    getAddresses(sheet);
    EXPECT_EQ(addresses.size(), 2);
    EXPECT_EQ(RecipeSheetProbe(sheet).rowsPerPage(), 10);
}

TEST_F(SheetRegisters, KeepThePropertyObjectThatWasFetchedFirst)
{
    RecipeSheetItems& sheet = construct();
    getAddresses(sheet);
    object* const first = RecipeSheetProbe(sheet).properties();
    sheet.setData(10, QVariant::fromValue(static_cast<void*>(addSheet())));
    getAddresses(sheet);
    EXPECT_EQ(RecipeSheetProbe(sheet).properties(), first);
}

// --- following the recipe index ----------------------------------------------------------------------------------

TEST_F(SheetRegisters, ReportAChangeOfTheRecipeIndexOnce)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    EXPECT_FALSE(sheet.recipeIndexChanged());
    comm.values[60803] = 3;
    EXPECT_TRUE(sheet.recipeIndexChanged());
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 3);
    EXPECT_FALSE(sheet.recipeIndexChanged());
    EXPECT_EQ(comm.calls, QStringList({READ_RECIPE, READ_RECIPE, READ_RECIPE}));
}

TEST_F(SheetRegisters, CountAnUnreadableRecipeIndexAsZero)
{
    writeGroup(SheetGroup());
    comm.values[60803] = 3;
    RecipeSheetItems& sheet = startScripted();
    comm.answers = false;
    EXPECT_TRUE(sheet.recipeIndexChanged());
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 0);
}

TEST_F(SheetRegisters, LeaveTheRecipeIndexAsItIsWhereItCannotBeReadAtTheStart)
{
    RecipeSheetItems& sheet = construct();
    RecipeSheetProbe(sheet).currentRecipe() = 5;
    comm.answers = false;
    getAddresses(sheet);
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 5);
}

TEST_F(SheetRegisters, AreReadForTheGroupIndexAndNeverFollowed)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    comm.values[60802] = 9;
    sheet.recipeGroupIndexChanged();
    EXPECT_EQ(comm.calls, QStringList(QStringLiteral("read 0 60802 1")));
    EXPECT_EQ(RecipeSheetProbe(sheet).groupIndex(), 0);
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 0);
}

TEST_F(SheetRegisters, MoveTheSheetWhenTheRecipeIndexIsForced)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& sheet = startScripted();
    comm.values[60803] = 77;
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(RecipeSheetProbe(sheet).firstColumn(), 77);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 0);
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedRow(), -32768);
}

TEST_F(SheetRegisters, ReloadEveryCachedBlockWhetherTheRecipeIndexChangedOrNot)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& sheet = startScripted();
    sheet.loadDataBlock(0, 2, false);
    runSql(QStringLiteral("UPDATE data_0 SET D0 = 5;"));
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), QStringLiteral("5"));
    EXPECT_EQ(sheet.getDataFromBlocks(0, 119), QStringLiteral("5"));

    runSql(QStringLiteral("UPDATE data_0 SET D0 = 6;"));
    comm.values[60803] = 1;
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), QStringLiteral("6"));
    EXPECT_EQ(sheet.getDataFromBlocks(0, 119), QStringLiteral("6"));
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 1);
}

TEST_F(SheetRegisters, IgnoreNotificationsWithoutTheBitOfAChange)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    comm.values[60803] = 3;
    for (const int mask : {0, 1, 2, 3, 8, ~4})
        EXPECT_EQ(sheet.update_result(mask), 0) << mask;
    EXPECT_TRUE(comm.calls.isEmpty());
    for (const int mask : {4, 5, 6, 12, -1})
        EXPECT_EQ(sheet.update_result(mask), 1) << mask;
}

TEST_F(SheetRegisters, IgnoreARecipeIndexOutsideTheGroup)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    for (const int index : {8, 65535, -1}) {
        comm.values[60803] = index;
        EXPECT_EQ(sheet.update_result(4), 1);
        EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), -32768);
        EXPECT_EQ(RecipeSheetProbe(sheet).firstColumn(), 0);
    }
}

// --- publishing the selection ------------------------------------------------------------------------------------

TEST_F(SheetRegisters, AreWrittenGroupFirstAndRecipeSecond)
{
    RecipeSheetItems& sheet = startScripted();
    sheet.updateRecipeGroupIndexAddr(2, 17);
    EXPECT_EQ(comm.calls, QStringList({writeGroupIndex(2), writeRecipeIndex(17)}));
}

TEST_F(SheetRegisters, AreWrittenWithTheAbsoluteRecipeOfATappedCellOrTitle)
{
    SheetGroup group = SheetGroup::ofSize(30, 120);
    group.group = 3;
    writeGroup(group);
    RecipeSheetItems& sheet = startScripted(SheetProperties::usual().set("Recipe_Group_idx", 3));
    RecipeSheetProbe probe(sheet);
    sheet.selectCol(40);
    tap(sheet, probe.cellRect(2, 5).center());
    EXPECT_EQ(comm.calls, QStringList({writeGroupIndex(3), writeRecipeIndex(42)}));
    comm.calls.clear();
    tap(sheet, probe.titleCellRect(4).center());
    EXPECT_EQ(comm.calls, QStringList({writeGroupIndex(3), writeRecipeIndex(44)}));
}

TEST_F(SheetRegisters, AreNotReadBackIntoTheItemByItsOwnWrites)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    tap(sheet, RecipeSheetProbe(sheet).cellRect(2, 5).center());
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 0) << "until the runtime tells of the change";
    EXPECT_TRUE(sheet.recipeIndexChanged());
    EXPECT_EQ(RecipeSheetProbe(sheet).currentRecipe(), 2);
}

// --- without an interface ----------------------------------------------------------------------------------------

TEST_F(SheetRegisters, AreLeftAloneWithoutAnInterface)
{
    writeGroup(SheetGroup());
    object* const configuration = addSheet();
    RecipeSheetItems& sheet = keep(new RecipeSheetItems);
    Runtime::place(&sheet, configuration);
    getAddresses(sheet);
    EXPECT_EQ(addresses, QStringList(QStringLiteral("0,-1,LWF,4")));
    EXPECT_EQ(keys.size(), 1);
    EXPECT_EQ(RecipeSheetProbe(sheet).cellText(1, 1), QStringLiteral("1001"));

    EXPECT_FALSE(sheet.recipeIndexChanged());
    sheet.recipeGroupIndexChanged();
    sheet.updateRecipeGroupIndexAddr(1, 2);
    tap(sheet, RecipeSheetProbe(sheet).cellRect(2, 5).center());
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), 2);
    runSql(QStringLiteral("UPDATE data_0 SET D0 = 5;"));
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(sheet.getDataFromBlocks(0, 0), QStringLiteral("5"));
}

// --- a runtime that calls back at once ---------------------------------------------------------------------------

namespace {

/// What a runtime may do to an item from inside any call.
void useEverything(RecipeSheetItems& sheet)
{
    QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    sheet.update_result(4);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    sheet.recipeIndexChanged();
    sheet.recipeGroupIndexChanged();
    sheet.selectCol(5);
    sheet.getColumnName(0);
    sheet.getRowName(0);
    sheet.keyboardReflash(QStringLiteral("12"));
    sheet.updateTable();
    RecipeSheetItems::replace(true, 8, 12);
}

} // namespace

TEST_F(SheetRegisters, MayCallBackFromInsideEveryCallAtTheStart)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = construct();
    int times = 0;
    comm.inside = [&] {
        ++times;
        useEverything(sheet);
    };
    getAddresses(sheet);
    EXPECT_EQ(times, 2) << "the read and the format";
    EXPECT_EQ(addresses.size(), 2);
}

TEST_F(SheetRegisters, MayCallBackFromInsideEveryWriteOfATap)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    RecipeSheetProbe probe(sheet);
    int times = 0;
    comm.inside = [&] {
        ++times;
        useEverything(sheet);
    };
    for (int i = 0; i < 3; ++i) { // select, edit, and a title
        tap(sheet, probe.cellRect(2, 5).center());
        tap(sheet, probe.titleCellRect(1).center());
    }
    EXPECT_GE(times, 4);
}

TEST_F(SheetRegisters, MayCallBackFromInsideTheReadOfANotification)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startScripted();
    int times = 0;
    comm.inside = [&] {
        ++times;
        useEverything(sheet);
    };
    comm.values[60803] = 4;
    EXPECT_EQ(sheet.update_result(4), 1);
    EXPECT_EQ(times, 1);
}

/// A runtime that tells of a write at once: the item is told of its own selection while it selects.
TEST_F(SheetRegisters, MayNotifyFromInsideTheWrite)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& sheet = startScripted();
    RecipeSheetProbe probe(sheet);
    comm.inside = [&] { sheet.update_result(4); };
    tap(sheet, probe.cellRect(3, 5).center());
    EXPECT_EQ(probe.selectedColumn(), 3);
    EXPECT_EQ(probe.selectedRow(), 5);
    EXPECT_EQ(probe.currentRecipe(), 3);
    EXPECT_EQ(probe.firstColumn(), 0);
}

// --- in the desk runtime -----------------------------------------------------------------------------------------

TEST_F(SheetRegisters, AreFollowedFromTheEventLoopAndNeverInsideTheWrite)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(runtime().watched(&sheet), QStringList({QStringLiteral("0,-1,LW,60803"), QStringLiteral("0,-1,LWF,4")}));
    registers().setWord(LW, 60803, 77);
    EXPECT_EQ(RecipeSheetProbe(sheet).firstColumn(), 0);
    settle();
    EXPECT_EQ(RecipeSheetProbe(sheet).firstColumn(), 77);
}

TEST_F(SheetRegisters, CarryTheSelectionFromOneSheetToAnother)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& first = startSheet();
    RecipeSheetItems& second = startSheet();
    tap(first, RecipeSheetProbe(first).cellRect(3, 5).center());
    EXPECT_EQ(RecipeSheetProbe(second).selectedColumn(), -32768);
    settle();
    EXPECT_EQ(RecipeSheetProbe(second).selectedColumn(), 3);
    EXPECT_EQ(RecipeSheetProbe(second).selectedRow(), -32768);
    EXPECT_EQ(registers().word(LW, 60802), 0);
    EXPECT_EQ(registers().word(LW, 60803), 3);
}

TEST_F(SheetRegisters, DoNotMoveTheSheetByTheGroupIndex)
{
    writeGroup(SheetGroup::ofSize(30, 120));
    RecipeSheetItems& sheet = startSheet();
    registers().setWord(LW, 60802, 5);
    settle();
    EXPECT_EQ(RecipeSheetProbe(sheet).groupIndex(), 0);
    EXPECT_EQ(sheet.getDataFromBlocks(1, 1), QStringLiteral("1001"));
}

TEST_F(SheetRegisters, CarryTheReloadNotificationToEverySheet)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& first = startSheet();
    RecipeSheetItems& second = startSheet();
    runSql(QStringLiteral("UPDATE data_0 SET D0 = 5;"));
    first.updateTable();
    EXPECT_EQ(first.getDataFromBlocks(0, 3), QStringLiteral("3"));
    settle();
    EXPECT_EQ(first.getDataFromBlocks(0, 3), QStringLiteral("5"));
    EXPECT_EQ(second.getDataFromBlocks(0, 3), QStringLiteral("5"));
}
