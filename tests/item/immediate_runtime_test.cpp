// A runtime that deals with everything at once: it calls back into the item from inside each call that the item makes.
// The item must hold no lock then, and must not be in the middle of walking what such a call changes.
//
// This program defines the runtime's functions itself; they take the place of those in the runtime's library.
#include "UHmiEvent.h"
#include "sheet_fixture.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QThread>

#include <dlfcn.h>

#include <functional>
#include <memory>

namespace {

/// What the runtime does inside a call of that name. Not again from inside itself.
std::function<void(const QString& call)> inside;
bool isInside = false;
QStringList callsMade;

void callBack(const QString& call)
{
    if (!inside || isInside || QThread::currentThread() != QCoreApplication::instance()->thread())
        return;
    isInside = true;
    callsMade << call;
    inside(call);
    isInside = false;
}

/// The function of that name in the library behind this program.
template <typename Function> Function* behind(const char* name, Function*)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

void UHmiEvent::hmiEventPost(QEvent* event, QObject*)
{
    const std::unique_ptr<QEvent> owned(event);
    if (static_cast<int>(event->type()) == UHmiEvent::MessageBox)
        callBack(static_cast<UMessageBoxEvent*>(event)->text);
    else
        callBack(static_cast<UExternalFuncCallEvent*>(event)->functionName);
}

void SendLWFRegMessage(int address)
{
    callBack(QStringLiteral("LWF %1").arg(address));
}

int object_get_property_value_type_int32(object* obj, const char* key, int defaultValue)
{
    callBack(QString::fromLatin1(key));
    return behind("_Z36object_get_property_value_type_int32P6objectPKci",
                  &object_get_property_value_type_int32)(obj, key, defaultValue);
}

object* object_get_child(object* parent, const char* name)
{
    callBack(QString::fromLatin1(name));
    return behind("_Z16object_get_childP6objectPKc", &object_get_child)(parent, name);
}

namespace {

class TouchSounds : public RuntimeListener
{
public:
    void messageBox(const QString&, int, int) override {}
    void externalCall(const QString&, quintptr) override {}
    void touchSound(QGraphicsItem*) override { callBack(QStringLiteral("sound")); }
};

/// Its frame is asked of the runtime.
class AskingSheet : public RecipeSheetItems
{
public:
    QRectF boundingRect() const override
    {
        callBack(QStringLiteral("frame"));
        return QRectF(0, 0, 800, 480);
    }
};

class ImmediateRuntime : public SheetFixture
{
protected:
    ImmediateRuntime()
    {
        runtime().setListener(&m_sounds);
        callsMade.clear();
    }
    ~ImmediateRuntime() override { inside = nullptr; }

    /// All that a runtime may do to an item.
    static void useEverything(RecipeSheetItems& sheet)
    {
        RecipeSheetProbe probe(sheet);
        QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        sheet.update_result(4);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
        sheet.selectCol(5);
        sheet.recipeIndexChanged();
        sheet.updateTable();
        tap(sheet, probe.cellRect(1, 1).center());
        tap(sheet, probe.titleCellRect(0).center());
        tap(sheet, probe.leftArrowRect().center());
        press(sheet, probe.verticalThumbRect().center());
        move(sheet, probe.downArrowRect().center());
        release(sheet, probe.downArrowRect().center());
        RecipeSheetItems::replace(true, 20, 30);
    }

    RecipeSheetItems& startQuietly()
    {
        writeGroup(SheetGroup::ofSize(30, 20));
        return startSheet();
    }

private:
    TouchSounds m_sounds;
};

} // namespace

TEST_F(ImmediateRuntime, MayUseTheItemWhileItReadsItsConfiguration)
{
    writeGroup(SheetGroup::ofSize(30, 20));
    object* const configuration = addSheet();
    RecipeSheetItems* const sheet = new RecipeSheetItems;
    inside = [sheet](const QString&) { useEverything(*sheet); };
    start(sheet, configuration);
    EXPECT_TRUE(callsMade.contains(QStringLiteral("rows_num_page")));
    EXPECT_TRUE(callsMade.contains(QStringLiteral("Language1")));
    EXPECT_EQ(RecipeSheetProbe(*sheet).visibleRows(), 10);
}

TEST_F(ImmediateRuntime, MayUseTheItemWhileItAsksForItsFrame)
{
    writeGroup(SheetGroup::ofSize(30, 20));
    object* const configuration = addSheet();
    AskingSheet* const sheet = new AskingSheet;
    inside = [sheet](const QString&) { useEverything(*sheet); };
    start(sheet, configuration);
    EXPECT_TRUE(callsMade.contains(QStringLiteral("frame")));
    EXPECT_EQ(RecipeSheetProbe(*sheet).dataRect(), QRectF(170, 40, 600, 370));
}

TEST_F(ImmediateRuntime, MayUseTheItemInsideATouchSound)
{
    RecipeSheetItems& sheet = startQuietly();
    inside = [&sheet](const QString&) { useEverything(sheet); };
    press(sheet, RecipeSheetProbe(sheet).cellRect(2, 5).center());
    EXPECT_EQ(callsMade, QStringList(QStringLiteral("sound")));
}

TEST_F(ImmediateRuntime, MayAnswerTheKeyboardOfACellAtOnce)
{
    RecipeSheetItems& sheet = startQuietly();
    RecipeSheetProbe probe(sheet);
    const QPointF cell = probe.cellRect(2, 5).center();
    tap(sheet, cell);
    inside = [&probe](const QString& call) {
        if (call == QStringLiteral("showKeyboardWindow"))
            probe.keyboard().receiver->keyboardReflash(QStringLiteral("42"));
    };
    tap(sheet, cell);
    EXPECT_TRUE(callsMade.contains(QStringLiteral("showKeyboardWindow")));
    EXPECT_EQ(probe.cellText(2, 5), QStringLiteral("42"));
    EXPECT_EQ(sheet.getDataFromBlocks(5, 2), QStringLiteral("42"));
    EXPECT_EQ(probe.editedCells().value(idx_t(2, 5)), QStringLiteral("42"));
}

TEST_F(ImmediateRuntime, MayAnswerTheKeyboardOfATitleAtOnce)
{
    RecipeSheetItems& sheet = startQuietly();
    RecipeSheetProbe probe(sheet);
    const QPointF title = probe.titleCellRect(3).center();
    tap(sheet, title);
    inside = [&sheet](const QString& call) {
        if (call == QStringLiteral("showKeyboardWindow"))
            sheet.keyboardReflash(QStringLiteral("Rye"));
    };
    tap(sheet, title);
    EXPECT_EQ(sheet.getColumnName(3), QStringLiteral("Rye"));
    EXPECT_EQ(probe.editedList(), QList<int>({3}));
}

TEST_F(ImmediateRuntime, MayUseTheItemWhileTheKeyboardIsAskedFor)
{
    RecipeSheetItems& sheet = startQuietly();
    const QPointF cell = RecipeSheetProbe(sheet).cellRect(2, 5).center();
    tap(sheet, cell);
    inside = [&sheet](const QString& call) {
        if (call == QStringLiteral("showKeyboardWindow"))
            useEverything(sheet);
    };
    tap(sheet, cell);
    EXPECT_TRUE(callsMade.contains(QStringLiteral("showKeyboardWindow")));
}

TEST_F(ImmediateRuntime, MayReloadAndSaveAgainInsideASave)
{
    RecipeSheetItems& sheet = startQuietly();
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.cellRect(2, 5).center());
    sheet.keyboardReflash(QStringLiteral("42"));
    tap(sheet, probe.titleCellRect(2).center());
    sheet.keyboardReflash(QStringLiteral("Rye"));
    inside = [&](const QString&) {
        sheet.update_result(4);
        sheet.saveRecipeFile();
    };
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(callsMade, QStringList({QStringLiteral("LWF 4"), QStringLiteral("save successful"),
                                      QStringLiteral("reload_recipe")}));
    EXPECT_EQ(querySql(QStringLiteral("SELECT D5 FROM data_0 WHERE column = 2;")), QStringList(QStringLiteral("42.0")));
    EXPECT_EQ(querySql(QStringLiteral("SELECT L0 FROM lang_0 WHERE type = 2 AND strIndex = 2;")),
              QStringList(QStringLiteral("Rye")));
    EXPECT_EQ(sheet.getDataFromBlocks(5, 2), QStringLiteral("42"));
}

/// An edit that arrives from inside the notice of a save belongs to the next save.
TEST_F(ImmediateRuntime, MayEditInsideTheNoticeOfASave)
{
    RecipeSheetItems& sheet = startQuietly();
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.cellRect(2, 5).center());
    sheet.keyboardReflash(QStringLiteral("42"));
    inside = [&](const QString& call) {
        if (call == QStringLiteral("save successful"))
            sheet.keyboardReflash(QStringLiteral("43"));
    };
    EXPECT_TRUE(sheet.saveRecipeFile());
    inside = nullptr;
    EXPECT_EQ(querySql(QStringLiteral("SELECT D5 FROM data_0 WHERE column = 2;")), QStringList(QStringLiteral("42.0")));
    EXPECT_EQ(probe.editedCells().value(idx_t(2, 5)), QStringLiteral("43"));
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(QStringLiteral("SELECT D5 FROM data_0 WHERE column = 2;")), QStringList(QStringLiteral("43.0")));
}
