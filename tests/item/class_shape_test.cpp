// The virtual tables of the item in the library as it ships, slot by slot: the runtime calls through them.
#include "InterfaceAll.h"
#include "runtime.h"
#include "shipped_library.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

using testing::Contains;

namespace {

/// After the two slots of the destructor.
const std::vector<std::string> PRIMARY_TABLE = {
    "QGraphicsItem::advance(int)",
    "HMIBaseItem::boundingRect() const",
    "QGraphicsItem::shape() const",
    "QGraphicsItem::contains(QPointF const&) const",
    "QGraphicsItem::collidesWithItem(QGraphicsItem const*, Qt::ItemSelectionMode) const",
    "QGraphicsItem::collidesWithPath(QPainterPath const&, Qt::ItemSelectionMode) const",
    "QGraphicsItem::isObscuredBy(QGraphicsItem const*) const",
    "QGraphicsItem::opaqueArea() const",
    "HMIBaseItem::paint(QPainter*, QStyleOptionGraphicsItem const*, QWidget*)",
    "QGraphicsItem::type() const",
    "QGraphicsItem::sceneEventFilter(QGraphicsItem*, QEvent*)",
    "QGraphicsItem::sceneEvent(QEvent*)",
    "QGraphicsItem::contextMenuEvent(QGraphicsSceneContextMenuEvent*)",
    "QGraphicsItem::dragEnterEvent(QGraphicsSceneDragDropEvent*)",
    "QGraphicsItem::dragLeaveEvent(QGraphicsSceneDragDropEvent*)",
    "QGraphicsItem::dragMoveEvent(QGraphicsSceneDragDropEvent*)",
    "QGraphicsItem::dropEvent(QGraphicsSceneDragDropEvent*)",
    "QGraphicsItem::focusInEvent(QFocusEvent*)",
    "QGraphicsItem::focusOutEvent(QFocusEvent*)",
    "QGraphicsItem::hoverEnterEvent(QGraphicsSceneHoverEvent*)",
    "QGraphicsItem::hoverMoveEvent(QGraphicsSceneHoverEvent*)",
    "QGraphicsItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)",
    "QGraphicsItem::keyPressEvent(QKeyEvent*)",
    "QGraphicsItem::keyReleaseEvent(QKeyEvent*)",
    "RecipeSheetItems::mousePressEvent(QGraphicsSceneMouseEvent*)",
    "RecipeSheetItems::mouseMoveEvent(QGraphicsSceneMouseEvent*)",
    "RecipeSheetItems::mouseReleaseEvent(QGraphicsSceneMouseEvent*)",
    "QGraphicsItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent*)",
    "QGraphicsItem::wheelEvent(QGraphicsSceneWheelEvent*)",
    "QGraphicsItem::inputMethodEvent(QInputMethodEvent*)",
    "QGraphicsItem::inputMethodQuery(Qt::InputMethodQuery) const",
    "QGraphicsItem::itemChange(QGraphicsItem::GraphicsItemChange, QVariant const&)",
    "QGraphicsItem::supportsExtension(QGraphicsItem::Extension) const",
    "QGraphicsItem::setExtension(QGraphicsItem::Extension, QVariant const&)",
    "QGraphicsItem::extension(QVariant const&) const",
    "RecipeSheetItems::getRequirement()",
    "RecipeSheetItems::setInterfaceByRequirement(QList<void*>)",
    "RecipeSheetItems::update_result(int)",
    "InterfaceItem::update_close()",
    "HMIBaseItem::getCyclicCallInterval()",
    "RecipeSheetItems::getMonitorAddr(QStringList&, QList<KEY_ADDRESS>&)",
    "HMIBaseItem::getTouchDisplayAndMonitorAddr(QStringList&, OBJ_UserLevel&, QList<KEY_ADDRESS>&)",
    "InterfaceItem::dealMouseReleaseEvent()",
    "InterfaceItem::dealMousePressEvent()",
    "HMIBaseItem::uTimerDoForItem()",
    "HMIBaseItem::touchControlReslutCallback()",
    "HMIBaseItem::setInterfaceByRequirement()",
    "RecipeSheetItems::HMIpaint(object*, QString const&, QPainter*, bool)",
    "HMIBaseItem::dealMouseRelease()",
    "RecipeSheetItems::keyboardReflash(QString const&)",
    "RecipeSheetItems::setUpdateAddr(QStringList&, QList<KEY_ADDRESS>&)",
    "RecipeSheetItems::updateTable()",
};

/// Likewise.
const std::vector<std::string> INTERFACE_TABLE = {
    "non-virtual thunk to RecipeSheetItems::keyboardReflash(QString const&)",
    "InterfaceAll::execComplete(int const&, QString const&)",
    "InterfaceAll::getOptLogType()",
    "InterfaceAll::setOptLogType(unsigned short)",
    "InterfaceAll::exportData()",
    "InterfaceAll::insertOperatorLog(QString)",
    "InterfaceAll::insertOperatorLog(QStringList const&)",
};

const int DESTRUCTOR_SLOTS = 2;

void** tableOf(void* subobject)
{
    return *static_cast<void***>(subobject);
}

class ClassShape : public testing::Test
{
protected:
    ClassShape() : item(library.entry<HMIBaseItem*()>("createItem")()) {}

    void expectTable(void** table, const std::vector<std::string>& wanted)
    {
        for (size_t i = 0; i < wanted.size(); ++i)
            EXPECT_THAT(library.namesAt(table[DESTRUCTOR_SLOTS + i]), Contains(wanted[i])) << "slot " << i + 1;
    }

    ShippedLibrary library;
    const std::unique_ptr<HMIBaseItem> item;
};

} // namespace

TEST_F(ClassShape, HasTheOperationsOfThePrimaryTableInTheRuntimesOrder)
{
    ASSERT_EQ(PRIMARY_TABLE.size(), 52u);
    QGraphicsItem* const primary = item.get();
    EXPECT_EQ(static_cast<void*>(primary), static_cast<void*>(item.get())) << "the graphics item comes first";
    void** const table = tableOf(primary);
    EXPECT_THAT(library.namesAt(table[0]), Contains("RecipeSheetItems::~RecipeSheetItems()"));
    EXPECT_THAT(library.namesAt(table[1]), Contains("RecipeSheetItems::~RecipeSheetItems()"));
    expectTable(table, PRIMARY_TABLE);
}

TEST_F(ClassShape, HasTheOperationsOfTheInterfaceTableInTheRuntimesOrder)
{
    void** const table = tableOf(static_cast<InterfaceAll*>(item.get()));
    EXPECT_THAT(library.namesAt(table[0]), Contains("non-virtual thunk to RecipeSheetItems::~RecipeSheetItems()"));
    EXPECT_THAT(library.namesAt(table[1]), Contains("non-virtual thunk to RecipeSheetItems::~RecipeSheetItems()"));
    expectTable(table, INTERFACE_TABLE);
}

/// Behind the last slot of the primary table stands the head of the other one: its distance to the whole object.
TEST_F(ClassShape, HasNoOperationBehindTheLastOne)
{
    void** const table = tableOf(static_cast<QGraphicsItem*>(item.get()));
    void** const head = table + DESTRUCTOR_SLOTS + PRIMARY_TABLE.size();
    const intptr_t distance = reinterpret_cast<intptr_t>(static_cast<void*>(item.get()))
                              - reinterpret_cast<intptr_t>(static_cast<void*>(static_cast<InterfaceAll*>(item.get())));
    EXPECT_EQ(reinterpret_cast<intptr_t>(head[0]), distance);
    EXPECT_EQ(tableOf(static_cast<InterfaceAll*>(item.get())), head + 2);
}

/// The communication interface is the runtime's: the library calls it by slot.
TEST(CommunicationInterface, HasReadWriteLinkAndFormatInThisOrder)
{
    RegisterBank& registers = Runtime::instance().registers();
    void** const table = tableOf(static_cast<InterfaceComm*>(&registers));
    const std::vector<std::string> wanted = {
        "RegisterBank::readWords(int, int, int, int*)",
        "RegisterBank::writeWords(QString const&, QString const&, int, int, int, int const*)",
        "RegisterBank::linkValue(QString const&)",
        "RegisterBank::formatMonitorAddress(QString const&, QString const&, int, int, int, QStringList&)",
    };
    for (size_t i = 0; i < wanted.size(); ++i) {
        Dl_info info;
        ASSERT_TRUE(dladdr(table[i], &info) && info.dli_sname) << i;
        EXPECT_EQ(demangled(info.dli_sname), wanted[i]) << "slot " << i;
    }
}

// --- defaults of the interface classes ---------------------------------------------------------------------------

namespace {

/// What an item of another type overrides at least.
class PlainItem : public HMIBaseItem
{
public:
    QString getRequirement() override { return QString(); }
    using HMIBaseItem::setInterfaceByRequirement;
    void setInterfaceByRequirement(QList<void*>) override {}
    int update_result(int) override { return 0; }
    int getMonitorAddr(QStringList&, QList<KEY_ADDRESS>&) override
    {
        ++asked;
        return 7;
    }
    void HMIpaint(object*, const QString&, QPainter*, bool) override {}

    void setInterval(int milliseconds) { m_cyclicCallInterval = milliseconds; }
    InterfaceComm* comm() const { return m_comm; }

    int asked = 0;
};

} // namespace

TEST(InterfaceDefaults, KeepTheTypeOfTheOperationLog)
{
    PlainItem item;
    InterfaceAll& view = item;
    EXPECT_EQ(view.getOptLogType(), 0);
    view.setOptLogType(65535);
    EXPECT_EQ(view.getOptLogType(), 65535);
    view.setOptLogType(3);
    EXPECT_EQ(view.getOptLogType(), 3);
}

TEST(InterfaceDefaults, GiveTheStoredCyclicCallInterval)
{
    PlainItem item;
    EXPECT_EQ(item.getCyclicCallInterval(), 0);
    item.setInterval(250);
    EXPECT_EQ(item.getCyclicCallInterval(), 250);
    item.setInterval(-1);
    EXPECT_EQ(item.getCyclicCallInterval(), -1);
}

TEST(InterfaceDefaults, DoNothingElsewhere)
{
    PlainItem item;
    InterfaceItem& itemView = item;
    InterfaceAll& view = item;
    view.setOptLogType(5);
    view.callArguments.append(&item);

    itemView.update_close();
    itemView.dealMousePressEvent();
    itemView.dealMouseReleaseEvent();
    item.uTimerDoForItem();
    item.touchControlReslutCallback();
    item.setInterfaceByRequirement();
    item.dealMouseRelease();
    view.keyboardReflash(QStringLiteral("text"));
    view.execComplete(1, QStringLiteral("text"));
    view.exportData();
    view.insertOperatorLog(QStringLiteral("entry"));
    view.insertOperatorLog(QStringList(QStringLiteral("entry")));

    EXPECT_EQ(view.getOptLogType(), 5);
    EXPECT_EQ(view.callArguments.size(), 1);
    EXPECT_EQ(view.keyboardParameters.currentText, QString());
    EXPECT_EQ(item.comm(), nullptr);
    EXPECT_EQ(item.asked, 0);
}

TEST(InterfaceDefaults, PresetTheKeyboardsLimits)
{
    const KeyboardParameters preset;
    EXPECT_EQ(preset.maximum, QStringLiteral("65535"));
    EXPECT_EQ(preset.minimum, QStringLiteral("0"));
    EXPECT_FALSE(preset.textEntry);
    EXPECT_FALSE(preset.spareFlag);
    EXPECT_EQ(preset.decimalPlaces, 0);
    EXPECT_EQ(preset.formatCode, 0);
    EXPECT_TRUE(preset.currentText.isEmpty());
    EXPECT_FALSE(preset.spareFlag2);
    EXPECT_EQ(preset.spareNumber, 0);
    EXPECT_EQ(preset.receiver, nullptr);
}
