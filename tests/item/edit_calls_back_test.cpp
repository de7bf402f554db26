// A runtime that does everything at once: a register write notifies inside the write, the keyboard answers inside the
// request, messages repaint. The item must not hold a lock then, nor walk anything that changes.
#include "edit_confirmation.h"
#include "touch_events.h"

#include "UHmiEvent.h"

#include <QImage>
#include <QPainter>
#include <QThread>

namespace {

/// Takes the place of the desk runtime's event queue in this program.
struct AtOnce
{
    RecipeSheetItems* sheet = nullptr;
    QString answer;         ///< of the keyboard; null: it does not answer
    QStringList log;        ///< what was asked on the GUI thread
    int depth = 0;          ///< calls from within calls
    QThread* gui = nullptr; ///< the thread that may call the item

    static AtOnce& get()
    {
        static AtOnce runtime;
        return runtime;
    }

    /// Whether the item could be called from here. The failure names the call.
    bool isFree(const char* call)
    {
        RecipeSheetProbe probe(*sheet);
        const bool data = probe.dataMutex().tryLock();
        if (data)
            probe.dataMutex().unlock();
        const bool display = probe.displayMutex().tryLock();
        if (display)
            probe.displayMutex().unlock();
        EXPECT_TRUE(data) << "dataMutex is held while the runtime is called: " << call;
        EXPECT_TRUE(display) << "displayMutex is held while the runtime is called: " << call;
        return data && display;
    }

    void paint()
    {
        QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        sheet->HMIpaint(nullptr, QString(), &painter, false);
    }

    /// What a runtime may do from within any call.
    void callBack(const char* call)
    {
        if (!sheet || depth > 2 || QThread::currentThread() != gui || !isFree(call))
            return;
        ++depth;
        sheet->update_result(4);
        paint();
        --depth;
    }
};

} // namespace

void UHmiEvent::hmiEventPost(QEvent* event, QObject*)
{
    const std::unique_ptr<QEvent> owned(event);
    AtOnce& runtime = AtOnce::get();
    if (QThread::currentThread() != runtime.gui)
        return;
    if (event->type() == static_cast<QEvent::Type>(UHmiEvent::MessageBox)) {
        runtime.log.append(static_cast<UMessageBoxEvent*>(event)->text);
        runtime.callBack("a message");
        return;
    }
    const UExternalFuncCallEvent* call = static_cast<UExternalFuncCallEvent*>(event);
    runtime.log.append(call->functionName);
    runtime.callBack("a request");
    if (call->functionName != latin1("showKeyboardWindow") || runtime.answer.isNull())
        return;
    const InterfaceAll* arguments = reinterpret_cast<const InterfaceAll*>(call->argument);
    InterfaceAll* receiver = static_cast<KeyboardParameters*>(arguments->callArguments.last())->receiver;
    (receiver ? receiver : runtime.sheet)->keyboardReflash(runtime.answer);
}

void SendLWFRegMessage(int address)
{
    AtOnce::get().log.append(latin1("LWF %1").arg(address));
    AtOnce::get().callBack("a notification");
}

namespace {

class ARuntimeThatCallsBackAtOnce : public TouchFixture, public RuntimeListener, public RegisterListener
{
protected:
    ARuntimeThatCallsBackAtOnce()
    {
        writeGroup(SheetGroup::ofSize(250, 120));
        AtOnce::get() = AtOnce();
        AtOnce::get().gui = QThread::currentThread();
        sheet = &startSheet();
        AtOnce::get().sheet = sheet;
        runtime().setListener(this);
        registers().setListener(this);
    }
    ~ARuntimeThatCallsBackAtOnce() override
    {
        registers().setListener(nullptr);
        RecipeSheetProbe(*sheet).worker()->wait();
        AtOnce::get().sheet = nullptr;
    }

    void messageBox(const QString&, int, int) override {}
    void externalCall(const QString&, quintptr) override {}
    void touchSound(QGraphicsItem*) override { AtOnce::get().callBack("the touch sound"); }
    void wordRead(int, int) override { AtOnce::get().isFree("a register read"); }
    void wordWritten(const QString&, int address, int, int) override
    {
        AtOnce::get().callBack("a register write");
        if (address == 60802 && onGroupWritten)
            onGroupWritten();
    }

    RecipeSheetItems* sheet;
    std::function<void()> onGroupWritten;
};

} // namespace

TEST_F(ARuntimeThatCallsBackAtOnce, FindsNoLockHeldOnATap)
{
    RecipeSheetProbe probe(*sheet);
    tap(*sheet, cell(3, 4));
    EXPECT_EQ(probe.selectedColumn(), 3);
    EXPECT_EQ(probe.selectedRow(), 4);
    EXPECT_EQ(probe.currentRecipe(), 3);
    tap(*sheet, title(1));
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(probe.selectedRow(), -1);
    tap(*sheet, QPointF(170 + 120, 40 + 37)); // four cells at once
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(probe.selectedRow(), 1);
}

TEST_F(ARuntimeThatCallsBackAtOnce, MayScrollTheSheetAwayBelowATap)
{
    RecipeSheetProbe probe(*sheet);
    onGroupWritten = [this] { sheet->selectCol(80); };
    tap(*sheet, QPointF(170 + 120, 40 + 37));
    EXPECT_EQ(probe.firstColumn(), 80);
    onGroupWritten = nullptr;
    AtOnce::get().paint();
    EXPECT_EQ(probe.cellText(0, 0), latin1("80"));
}

TEST_F(ARuntimeThatCallsBackAtOnce, MayEmptyThePageBelowATap)
{
    RecipeSheetProbe probe(*sheet);
    onGroupWritten = [&probe] {
        probe.displayCells().clear();
        probe.blocks().clear();
    };
    tap(*sheet, QPointF(170 + 120, 40 + 37));
    onGroupWritten = nullptr;
    AtOnce::get().paint();
    tap(*sheet, cell(2, 2));
    EXPECT_EQ(probe.selectedColumn(), 2);
}

TEST_F(ARuntimeThatCallsBackAtOnce, MayAnswerTheKeyboardInsideTheRequest)
{
    RecipeSheetProbe probe(*sheet);
    AtOnce::get().answer = latin1("4711");
    doubleTap(*sheet, cell(2, 2));
    EXPECT_EQ(AtOnce::get().log, QStringList(latin1("showKeyboardWindow")));
    EXPECT_EQ(probe.editedCells().value(idx_t(2, 2)), latin1("4711"));
    EXPECT_EQ(probe.cellText(2, 2), latin1("4711"));
    doubleTap(*sheet, title(0));
    EXPECT_EQ(sheet->getColumnName(0), latin1("4711"));
}

TEST_F(ARuntimeThatCallsBackAtOnce, AnswersOnceForATapOnALineBetweenCells)
{
    AtOnce::get().answer = latin1("4711");
    tap(*sheet, cell(0, 0));
    tap(*sheet, QPointF(170 + 120, 40 + 37));
    EXPECT_EQ(AtOnce::get().log, QStringList(latin1("showKeyboardWindow")));
    EXPECT_EQ(RecipeSheetProbe(*sheet).editedCells().keys(), QList<idx_t>({idx_t(0, 0)}));
}

TEST_F(ARuntimeThatCallsBackAtOnce, FindsNoLockHeldAndNothingPendingOnASave)
{
    edit(*sheet, 1, 1, latin1("9"));
    AtOnce::get().log.clear();
    tap(*sheet, saveButton());
    EXPECT_EQ(AtOnce::get().log, QStringList({latin1("LWF 4"), latin1("save successful"), latin1("reload_recipe")}));
    EXPECT_EQ(querySql(latin1("SELECT D1 FROM data_0 WHERE column = 1;")), QStringList(latin1("9.0")));
}

TEST_F(ARuntimeThatCallsBackAtOnce, FindsNoLockHeldWhileItScrollsAndDrags)
{
    RecipeSheetProbe probe(*sheet);
    click(*sheet, rightArrow(), 3);
    press(*sheet, probe.verticalThumbRect().center());
    for (int y = 40; y < 300; ++y)
        move(*sheet, QPointF(785, y));
    release(*sheet, nowhere());
    EXPECT_GT(probe.firstRow(), 100);
    AtOnce::get().paint();
    EXPECT_EQ(probe.cellText(0, 0), QString::number(probe.firstRow() * 1000 + 3));
}

TEST_F(ARuntimeThatCallsBackAtOnce, FindsNoLockHeldOnAddAndDelete)
{
    Confirmation confirmation(Confirmation::Yes);
    tap(*sheet, cell(0, 0));
    tap(*sheet, addButton());
    tap(*sheet, deleteButton()); // busy, or a second job
    RecipeSheetProbe(*sheet).worker()->wait();
    AtOnce::get().callBack("the test");
    EXPECT_EQ(querySql(latin1("SELECT count(*) FROM data_0;")).size(), 1);
}
