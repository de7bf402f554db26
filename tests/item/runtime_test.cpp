// The desk runtime: registers, notifications, posted events, property objects, the base item.
#include "HMIBaseItem.h"
#include "UHmiEvent.h"
#include "qt_print.h"
#include "runtime.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

using testing::ElementsAre;

namespace {

const QString LW = QStringLiteral("LW");

/// Watches addresses, remembers what it is told and then does what the test says.
class Watcher : public HMIBaseItem
{
public:
    explicit Watcher(const QStringList& watchedAddresses = QStringList()) : watched(watchedAddresses) {}

    QString getRequirement() override { return requirement; }
    using HMIBaseItem::setInterfaceByRequirement;
    void setInterfaceByRequirement(QList<void*> list) override { interfaces = list; }
    int update_result(int mask) override
    {
        masks.push_back(mask);
        const auto action = onUpdate; // it may destroy this item
        if (action)
            action();
        return 1;
    }
    int getMonitorAddr(QStringList& addresses, QList<KEY_ADDRESS>&) override
    {
        addresses += watched;
        return 0;
    }
    void HMIpaint(object*, const QString&, QPainter*, bool) override {}

    int language() const { return m_languageNumber; }
    object* properties() const { return m_object; }

    QString requirement = QStringLiteral("comm");
    QStringList watched;
    QList<void*> interfaces;
    std::vector<int> masks;
    std::function<void()> onUpdate;
};

/// What the panel hears, as texts.
class Heard : public RuntimeListener
{
public:
    void messageBox(const QString& text, int value1, int value2) override
    {
        log << QStringLiteral("%1 %2 %3").arg(text).arg(value1).arg(value2);
    }
    void externalCall(const QString& function, quintptr argument) override
    {
        log << QStringLiteral("%1(%2)").arg(function).arg(argument);
    }
    void touchSound(QGraphicsItem*) override { log << QStringLiteral("sound"); }

    QStringList log;
};

class HeardRegisters : public RegisterListener
{
public:
    void wordRead(int address, int value) override { log << QStringLiteral("read %1 %2").arg(address).arg(value); }
    void wordWritten(const QString& type, int address, int oldValue, int newValue) override
    {
        log << QStringLiteral("write %1 %2 %3->%4").arg(type).arg(address).arg(oldValue).arg(newValue);
    }

    QStringList log;
};

/// An event that tells of its end.
template <typename Event> class Mortal : public Event
{
public:
    template <typename... Arguments> explicit Mortal(int& deathCount, const Arguments&... arguments)
        : Event(arguments...), m_deaths(deathCount)
    {}
    ~Mortal() override { ++m_deaths; }

private:
    int& m_deaths;
};

class DeskRuntime : public testing::Test
{
protected:
    DeskRuntime() { runtime.setListener(&heard); }
    ~DeskRuntime() override
    {
        settle();
        runtime.setListener(nullptr);
        registers.setListener(nullptr);
        registers.clear();
        runtime.setProject(nullptr);
        runtime.setLanguage(1);
    }

    void settle()
    {
        do
            QCoreApplication::processEvents();
        while (!runtime.isIdle());
    }
    void write(int address, int value) { registers.writeWords(QString(), LW, address, -1, 1, &value); }

    Runtime& runtime = Runtime::instance();
    RegisterBank& registers = Runtime::instance().registers();
    Heard heard;
};

} // namespace

// --- registers ---------------------------------------------------------------------------------------------------

TEST_F(DeskRuntime, HoldsZeroInEveryRegisterUntilItIsWritten)
{
    int values[2] = {7, 7};
    EXPECT_TRUE(registers.readWords(0, 60802, 2, values));
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(DeskRuntime, ReadsBackTheInternalWordsThatWereWritten)
{
    const int written[3] = {1, 65535, 3};
    EXPECT_TRUE(registers.writeWords(QStringLiteral("Internal storage area"), LW, 65533, -1, 3, written));
    int values[3] = {};
    EXPECT_TRUE(registers.readWords(0, 65533, 3, values));
    EXPECT_THAT(values, ElementsAre(1, 65535, 3));
    EXPECT_EQ(registers.word(LW, 65534), 65535);
}

TEST_F(DeskRuntime, KeepsSixteenBitsOfAWord)
{
    write(5, -1);
    EXPECT_EQ(registers.word(LW, 5), 65535);
    write(5, 65536 + 17);
    EXPECT_EQ(registers.word(LW, 5), 17);
}

TEST_F(DeskRuntime, KeepsRegistersOfOtherTypesApart)
{
    registers.setWord(QStringLiteral("D"), 5, 9);
    EXPECT_EQ(registers.word(LW, 5), 0);
    EXPECT_EQ(registers.word(QStringLiteral("D"), 5), 9);
}

TEST_F(DeskRuntime, RefusesAddressesThatDoNotExist)
{
    int values[2] = {7, 7};
    EXPECT_FALSE(registers.readWords(0, -1, 1, values));
    EXPECT_FALSE(registers.readWords(0, 65536, 1, values));
    EXPECT_FALSE(registers.readWords(0, 65535, 2, values));
    EXPECT_FALSE(registers.readWords(0, 0, 0, values));
    EXPECT_FALSE(registers.readWords(0, 0, 1, nullptr));
    EXPECT_FALSE(registers.writeWords(QString(), LW, 65535, -1, 2, values));
    EXPECT_FALSE(registers.writeWords(QString(), LW, 2147483647, -1, 2147483647, values));
    EXPECT_FALSE(registers.writeWords(QString(), LW, 0, -1, 1, nullptr));
    EXPECT_THAT(values, ElementsAre(7, 7));
    EXPECT_EQ(registers.word(LW, 65535), 0);
}

TEST_F(DeskRuntime, TellsItsRegisterListenerOfEveryAccessAtOnce)
{
    HeardRegisters accesses;
    registers.setListener(&accesses);
    write(60803, 4);
    write(60803, 4);
    int value = 0;
    registers.readWords(0, 60803, 1, &value);
    EXPECT_EQ(accesses.log, QStringList({QStringLiteral("write LW 60803 0->4"), QStringLiteral("write LW 60803 4->4"),
                                         QStringLiteral("read 60803 4")}));
}

TEST_F(DeskRuntime, KnowsTheLinksThatWereSetAndNoOthers)
{
    LinkValue link;
    link.linkId = 3;
    link.status = 0;
    link.linkNumber = 12;
    registers.setLink(QStringLiteral("PLC"), link);
    EXPECT_EQ(registers.linkValue(QStringLiteral("PLC")).linkNumber, 12);
    EXPECT_EQ(registers.linkValue(QStringLiteral("PLC 2")).linkId, -1);
}

// --- controllers -------------------------------------------------------------------------------------------------

namespace {

const QString PLC = QStringLiteral("PLC");
const QString D = QStringLiteral("D");

LinkValue link(int status)
{
    LinkValue value;
    value.linkId = 0;
    value.status = status;
    return value;
}

RegisterWrite toRegister(const QString& device, const QString& type, int address, const QVector<quint16>& words)
{
    RegisterWrite write;
    write.deviceName = device;
    write.registerType = type;
    write.address = address;
    write.words = words;
    return write;
}

} // namespace

TEST_F(DeskRuntime, ForgetsALinkThatIsTakenAway)
{
    registers.setLink(PLC, link(0));
    registers.setLink(PLC, LinkValue());
    EXPECT_EQ(registers.linkValue(PLC).linkId, -1);
    EXPECT_EQ(registers.reach(toRegister(PLC, D, 5, {1})), RegisterBank::NO_LINK);
}

TEST_F(DeskRuntime, KeepsTheRegistersOfControllersApart)
{
    registers.setLink(PLC, link(0));
    registers.setLink(QStringLiteral("PLC 2"), link(0));
    ASSERT_TRUE(registers.writeTogether({toRegister(PLC, D, 5, {1, 2}), toRegister(QStringLiteral("PLC 2"), D, 5, {3}),
                                         toRegister(QStringLiteral("Internal storage area"), LW, 5, {4})}));
    EXPECT_EQ(registers.word(QStringLiteral("PLC:D"), 5), 1);
    EXPECT_EQ(registers.word(QStringLiteral("PLC:D"), 6), 2);
    EXPECT_EQ(registers.word(QStringLiteral("PLC 2:D"), 5), 3);
    EXPECT_EQ(registers.word(D, 5), 0);
    EXPECT_EQ(registers.word(LW, 5), 4);
    const int value = 9;
    EXPECT_TRUE(registers.writeWords(PLC, D, 5, 0, 1, &value));
    EXPECT_EQ(registers.word(QStringLiteral("PLC:D"), 5), 9);
}

TEST_F(DeskRuntime, WritesNothingOverALinkThatIsDown)
{
    registers.setLink(PLC, link(1));
    const int value = 9;
    EXPECT_FALSE(registers.writeWords(PLC, D, 5, 0, 1, &value));
    EXPECT_EQ(registers.reach(toRegister(PLC, D, 5, {1})), RegisterBank::LINK_DOWN);
    EXPECT_EQ(registers.word(QStringLiteral("PLC:D"), 5), 0);
}

TEST_F(DeskRuntime, WritesTogetherAllOrNothing)
{
    registers.setLink(PLC, link(0));
    registers.setLink(QStringLiteral("off"), link(1));
    HeardRegisters accesses;
    registers.setListener(&accesses);
    for (const RegisterWrite& wrong :
         {toRegister(QStringLiteral("off"), D, 5, {1}), toRegister(QStringLiteral("nobody"), D, 5, {1}),
          toRegister(PLC, QString(), 5, {1}), toRegister(PLC, D, -1, {1}), toRegister(PLC, D, 65535, {1, 1}),
          toRegister(PLC, D, 5, {})}) {
        EXPECT_FALSE(registers.writeTogether({toRegister(PLC, D, 1, {1}), wrong, toRegister(PLC, D, 2, {2})}));
        EXPECT_EQ(accesses.log, QStringList());
    }
    EXPECT_TRUE(registers.writeTogether({toRegister(PLC, D, 65535, {1}), toRegister(PLC, D, 0, {2})}));
    EXPECT_EQ(accesses.log,
              QStringList({QStringLiteral("write PLC:D 65535 0->1"), QStringLiteral("write PLC:D 0 0->2")}));
}

TEST_F(DeskRuntime, KnowsWhetherAWordWasEverWritten)
{
    EXPECT_FALSE(registers.isWritten(LW, 60803));
    write(60803, 0);
    EXPECT_TRUE(registers.isWritten(LW, 60803));
    EXPECT_FALSE(registers.isWritten(LW, 60802));
}

TEST_F(DeskRuntime, WritesAddressesAsStationSubAddressTypeAndNumber)
{
    QStringList addresses(QStringLiteral("before"));
    registers.formatMonitorAddress(QStringLiteral("Internal storage area"), LW, 60803, -1, 1, addresses);
    EXPECT_EQ(addresses, QStringList({QStringLiteral("before"), QStringLiteral("0,-1,LW,60803")}));
}

// --- notifications -----------------------------------------------------------------------------------------------

TEST_F(DeskRuntime, TellsOfSeveralChangesOnceAndNeverInsideTheWrite)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    ASSERT_TRUE(runtime.start(&watcher));
    write(7, 1);
    write(7, 2);
    write(7, 3);
    EXPECT_TRUE(watcher.masks.empty());
    EXPECT_FALSE(runtime.isIdle());
    settle();
    EXPECT_THAT(watcher.masks, ElementsAre(4));
    write(7, 4);
    settle();
    EXPECT_THAT(watcher.masks, ElementsAre(4, 4));
}

TEST_F(DeskRuntime, TellsNobodyOfAWriteThatChangesNothing)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    ASSERT_TRUE(runtime.start(&watcher));
    write(7, 0);
    EXPECT_TRUE(runtime.isIdle());
    settle();
    EXPECT_TRUE(watcher.masks.empty());
}

TEST_F(DeskRuntime, TellsOnlyThoseWhoWatchTheAddress)
{
    Watcher seven(QStringList(QStringLiteral("0,-1,LW,7")));
    Watcher reload(QStringList({QStringLiteral("0,-1,LW,8"), QStringLiteral("0,-1,LWF,4")}));
    ASSERT_TRUE(runtime.start(&seven));
    ASSERT_TRUE(runtime.start(&reload));
    SendLWFRegMessage(4);
    SendLWFRegMessage(5);
    settle();
    EXPECT_TRUE(seven.masks.empty());
    EXPECT_THAT(reload.masks, ElementsAre(4));
}

TEST_F(DeskRuntime, TellsAgainWhatChangesDuringADelivery)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    ASSERT_TRUE(runtime.start(&watcher));
    bool updating = false;
    watcher.onUpdate = [&] {
        EXPECT_FALSE(updating) << "inside the write";
        updating = true;
        if (watcher.masks.size() == 1)
            write(7, 2);
        updating = false;
    };
    write(7, 1);
    QCoreApplication::sendPostedEvents();
    settle();
    EXPECT_THAT(watcher.masks, ElementsAre(4, 4));
}

TEST_F(DeskRuntime, SkipsAnItemThatAnotherOneDestroysDuringTheDelivery)
{
    const QStringList address(QStringLiteral("0,-1,LW,7"));
    Watcher first(address);
    std::unique_ptr<Watcher> second(new Watcher(address));
    Watcher third(address);
    for (Watcher* item : {&first, second.get(), &third})
        ASSERT_TRUE(runtime.start(item));
    first.onUpdate = [&second] { second.reset(); };
    write(7, 1);
    settle();
    EXPECT_EQ(second, nullptr);
    EXPECT_THAT(first.masks, ElementsAre(4));
    EXPECT_THAT(third.masks, ElementsAre(4));
}

TEST_F(DeskRuntime, SurvivesAnItemThatDestroysItselfDuringTheDelivery)
{
    const QStringList address(QStringLiteral("0,-1,LW,7"));
    Watcher* const first = new Watcher(address);
    Watcher second(address);
    ASSERT_TRUE(runtime.start(first));
    ASSERT_TRUE(runtime.start(&second));
    first->onUpdate = [first] { delete first; };
    write(7, 1);
    settle();
    EXPECT_THAT(second.masks, ElementsAre(4));
    EXPECT_TRUE(runtime.watched(first).isEmpty());
}

TEST_F(DeskRuntime, TellsAnItemThatIsStartedDuringADeliveryOnlyOfLaterChanges)
{
    const QStringList address(QStringLiteral("0,-1,LW,7"));
    Watcher first(address);
    Watcher late(address);
    ASSERT_TRUE(runtime.start(&first));
    first.onUpdate = [&] { runtime.start(&late); };
    write(7, 1);
    settle();
    EXPECT_TRUE(late.masks.empty());
    write(7, 2);
    settle();
    EXPECT_THAT(late.masks, ElementsAre(4));
}

TEST_F(DeskRuntime, DeliversNotificationsFromAnotherThreadOnTheGuiThread)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LWF,4")));
    ASSERT_TRUE(runtime.start(&watcher));
    QThread* deliveredOn = nullptr;
    watcher.onUpdate = [&deliveredOn] { deliveredOn = QThread::currentThread(); };
    std::thread([] { SendLWFRegMessage(4); }).join();
    EXPECT_TRUE(watcher.masks.empty());
    settle();
    EXPECT_EQ(deliveredOn, QCoreApplication::instance()->thread());
}

// --- starting items ----------------------------------------------------------------------------------------------

TEST_F(DeskRuntime, HandsTheCommunicationInterfaceOverAsTheOnlyElement)
{
    Watcher watcher;
    EXPECT_TRUE(runtime.start(&watcher));
    ASSERT_EQ(watcher.interfaces.size(), 1);
    EXPECT_EQ(static_cast<InterfaceComm*>(watcher.interfaces.first()), &registers);
}

TEST_F(DeskRuntime, DoesNotStartAnItemThatRequiresWhatItDoesNotHave)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    watcher.requirement = QStringLiteral("camera");
    EXPECT_FALSE(runtime.start(&watcher));
    EXPECT_TRUE(runtime.watched(&watcher).isEmpty());
}

TEST_F(DeskRuntime, StartsAnItemThatRequiresNothing)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    watcher.requirement = QString();
    EXPECT_TRUE(runtime.start(&watcher));
    EXPECT_TRUE(watcher.interfaces.isEmpty());
    EXPECT_EQ(runtime.watched(&watcher), watcher.watched);
}

TEST_F(DeskRuntime, TellsAnItemThatWasStartedTwiceOnce)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    ASSERT_TRUE(runtime.start(&watcher));
    ASSERT_TRUE(runtime.start(&watcher));
    write(7, 1);
    settle();
    EXPECT_THAT(watcher.masks, ElementsAre(4));
}

TEST_F(DeskRuntime, AsksForTheAddressesWhenTheTouchDisplayIsAsked)
{
    Watcher watcher(QStringList(QStringLiteral("0,-1,LW,7")));
    QStringList addresses;
    OBJ_UserLevel level;
    QList<KEY_ADDRESS> keys;
    watcher.getTouchDisplayAndMonitorAddr(addresses, level, keys);
    EXPECT_EQ(addresses, watcher.watched);
}

TEST_F(DeskRuntime, PlacesAnItemByItsProperties)
{
    object properties(QStringLiteral("RecipeSheet1"));
    properties.properties[QStringLiteral("x")] = 10;
    properties.properties[QStringLiteral("y")] = 20;
    properties.properties[QStringLiteral("width")] = 300;
    properties.properties[QStringLiteral("height")] = 200;
    Watcher watcher;
    EXPECT_EQ(watcher.boundingRect(), QRectF(0, 0, 0, 0));
    Runtime::place(&watcher, &properties);
    EXPECT_EQ(watcher.pos(), QPointF(10, 20));
    EXPECT_EQ(watcher.boundingRect(), QRectF(0, 0, 300, 200));
    EXPECT_EQ(watcher.data(10).value<void*>(), &properties);
    EXPECT_EQ(watcher.properties(), nullptr) << "the item fetches it itself";
}

TEST_F(DeskRuntime, GivesItsLanguageToItemsAtTheirConstruction)
{
    runtime.setLanguage(3);
    const Watcher watcher;
    runtime.setLanguage(2);
    EXPECT_EQ(watcher.language(), 3);
}

// --- posted events -----------------------------------------------------------------------------------------------

TEST_F(DeskRuntime, DealsWithRequestsInTheOrderOfPostingAndThenDestroysThem)
{
    int deaths = 0;
    UHmiEvent::hmiEventPost(new Mortal<UMessageBoxEvent>(deaths, QStringLiteral("saved"), 2, 0), nullptr);
    UHmiEvent::hmiEventPost(new Mortal<UExternalFuncCallEvent>(deaths, true, QStringLiteral("reload_recipe"), 2),
                            nullptr);
    EXPECT_TRUE(heard.log.isEmpty());
    EXPECT_EQ(deaths, 0);
    EXPECT_FALSE(runtime.isIdle());
    settle();
    EXPECT_EQ(heard.log, QStringList({QStringLiteral("saved 2 0"), QStringLiteral("reload_recipe(2)")}));
    EXPECT_EQ(deaths, 2);
}

TEST_F(DeskRuntime, DestroysRequestsThatNobodyHears)
{
    runtime.setListener(nullptr);
    int deaths = 0;
    UHmiEvent::hmiEventPost(new Mortal<UMessageBoxEvent>(deaths, QStringLiteral("saved"), 2, 0), nullptr);
    settle();
    EXPECT_EQ(deaths, 1);
}

TEST_F(DeskRuntime, DealsWithRequestsFromAnotherThreadOnTheGuiThread)
{
    int deaths = 0;
    std::thread([&deaths] {
        UHmiEvent::hmiEventPost(new Mortal<UMessageBoxEvent>(deaths, QStringLiteral("add success"), 30, 2), nullptr);
    }).join();
    EXPECT_TRUE(heard.log.isEmpty());
    settle();
    EXPECT_EQ(heard.log, QStringList(QStringLiteral("add success 30 2")));
    EXPECT_EQ(deaths, 1);
}

TEST_F(DeskRuntime, IsIdleAgainAfterAnEventThatItDoesNotKnow)
{
    int deaths = 0;
    UHmiEvent::hmiEventPost(new Mortal<QEvent>(deaths, static_cast<QEvent::Type>(1500)), nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(runtime.isIdle());
}

TEST_F(DeskRuntime, PassesEventsWithAReceiverOn)
{
    class Receiver : public QObject
    {
    public:
        bool event(QEvent* event) override
        {
            types.push_back(event->type());
            return true;
        }
        std::vector<int> types;
    } receiver;
    int deaths = 0;
    UHmiEvent::hmiEventPost(new Mortal<UMessageBoxEvent>(deaths, QStringLiteral("for you"), 0, 0), &receiver);
    settle();
    QCoreApplication::sendPostedEvents(&receiver);
    EXPECT_THAT(receiver.types, ElementsAre(1007));
    EXPECT_TRUE(heard.log.isEmpty());
    EXPECT_EQ(deaths, 1);
}

TEST_F(DeskRuntime, GivesItsEventsTheTypesOfThePanel)
{
    EXPECT_EQ(UMessageBoxEvent(QString(), 0, 0).type(), 1007);
    EXPECT_EQ(UExternalFuncCallEvent(true, QString(), 0).type(), 1010);
}

TEST_F(DeskRuntime, PassesTheTouchSoundOnAtOnce)
{
    Watcher watcher;
    HMIBaseItem::setTouchVoiceItem(&watcher);
    EXPECT_EQ(heard.log, QStringList(QStringLiteral("sound")));
}

// --- property objects --------------------------------------------------------------------------------------------

TEST_F(DeskRuntime, GivesTheDefaultForAPropertyThatIsMissingOrOfAnotherType)
{
    object properties(QStringLiteral("P"));
    properties.properties[QStringLiteral("number")] = 5;
    properties.properties[QStringLiteral("text")] = QStringLiteral("7");
    properties.properties[QStringLiteral("color")] = QColor(1, 2, 3);
    properties.properties[QStringLiteral("real")] = 5.0;
    properties.properties[QStringLiteral("long")] = 5000000000LL;
    const QString fallback = QStringLiteral("fallback");
    const QColor red(255, 0, 0);

    EXPECT_EQ(object_get_property_value_type_int32(&properties, "number", 1), 5);
    EXPECT_EQ(object_get_property_value_type_string(&properties, "text", fallback), QStringLiteral("7"));
    EXPECT_EQ(object_get_property_value_type_color(&properties, "color", red), QColor(1, 2, 3));

    for (const char* key : {"text", "color", "real", "long", "missing"})
        EXPECT_EQ(object_get_property_value_type_int32(&properties, key, 1), 1) << key;
    for (const char* key : {"number", "color", "real", "missing"})
        EXPECT_EQ(object_get_property_value_type_string(&properties, key, fallback), fallback) << key;
    for (const char* key : {"number", "text", "real", "missing"})
        EXPECT_EQ(object_get_property_value_type_color(&properties, key, red), red) << key;
}

TEST_F(DeskRuntime, GivesTheDefaultForANullObject)
{
    EXPECT_EQ(object_get_property_value_type_int32(nullptr, "number", 1), 1);
    EXPECT_EQ(object_get_property_value_type_string(nullptr, "text", LW), LW);
    EXPECT_EQ(object_get_property_value_type_color(nullptr, "color", QColor(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(object_get_child(nullptr, "child"), nullptr);
    property_set_type(nullptr, 1);
}

TEST_F(DeskRuntime, FindsAChildByItsName)
{
    object parent(QStringLiteral("P"));
    object* const first = parent.addChild(new object(QStringLiteral("Language1")));
    object* const second = parent.addChild(new object(QStringLiteral("Language2")));
    EXPECT_EQ(object_get_child(&parent, "Language1"), first);
    EXPECT_EQ(object_get_child(&parent, "Language2"), second);
    EXPECT_EQ(object_get_child(&parent, "Language3"), nullptr);
}

TEST_F(DeskRuntime, AlwaysHasAnApplicationAndAProjectOnlyWhileOneIsOpen)
{
    ASSERT_NE(sys_base_get_app_pro(), nullptr);
    EXPECT_EQ(sys_base_get_app_pro()->project, nullptr);
    object* const project = new object(QStringLiteral("Project"));
    runtime.setProject(project);
    EXPECT_EQ(sys_base_get_app_pro()->project, project);
    runtime.setProject(nullptr);
    EXPECT_EQ(sys_base_get_app_pro()->project, nullptr);
}
