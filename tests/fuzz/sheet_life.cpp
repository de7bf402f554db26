#include "sheet_life.h"

#include "RecipeDB.h"
#include "RecipeSheetItems.h"
#include "fuzz_frame.h"
#include "recipe_tools.h"
#include "runtime.h"
#include "sheet_probe.h"

#include <QCoreApplication>
#include <QDir>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>

#include <fuzzer/FuzzedDataProvider.h>

#include <memory>

namespace {

Reached lives("lives");
Reached configured("configured");
Reached filled("filled");
Reached painted("painted");
Reached keyboards("keyboards");
Reached edited("edited");
Reached saved("saved");
Reached rewritten("rewritten");
Reached transferred("transferred");

const int WIDTH = 480;
const int HEIGHT = 320;
const int MOST_ACTIONS = 12;

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// The panel around the sheet: counts what is asked of it.
class Panel : public RuntimeListener
{
public:
    void messageBox(const QString& text, int, int) override
    {
        if (text == latin("save successful"))
            ++saved;
    }
    void externalCall(const QString& function, quintptr) override
    {
        if (function == latin("showKeyboardWindow"))
            ++keyboards;
    }
    void touchSound(QGraphicsItem*) override {}
};

class Life
{
public:
    Life(const std::uint8_t* data, std::size_t size) : m_choices(data, size)
    {
        Runtime::instance().setListener(&m_panel);
        openProject();
    }
    ~Life();
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

    void start();
    void act();
    bool isOver() { return m_choices.remaining_bytes() == 0; }

private:
    void openProject();
    void settle();
    void touch(QEvent::Type type, const QPointF& at);
    void tap(const QPointF& at);
    void tapCell();
    void tapTitle();
    void type();
    void pressArrow();
    void drag();
    void setRegister();
    void save();
    void rewrite();
    void transfer();
    void paint();

    int pick(int from, int to) { return m_choices.ConsumeIntegralInRange<int>(from, to); }
    RecipeSheetProbe probe() { return RecipeSheetProbe(*m_sheet); }

    FuzzedDataProvider m_choices;
    Panel m_panel;
    object* m_properties = nullptr; // the runtime's
    std::unique_ptr<RecipeSheetItems> m_sheet;
};

/// A usual page as a rule, and sometimes a tiny or a huge one.
void Life::openProject()
{
    object* const root = new object(latin("Project"));
    m_properties = root->addChild(new object(latin("Sheet")));
    QHash<QString, QVariant>& p = m_properties->properties;
    const int pages[][2] = {{10, 5}, {10, 5}, {10, 5}, {3, 2}, {1, 1}, {150, 60}};
    const int page = pick(0, 5);
    p[latin("width")] = WIDTH;
    p[latin("height")] = HEIGHT;
    p[latin("rows_num_page")] = pages[page][0];
    p[latin("column_num_page")] = pages[page][1];
    p[latin("Recipe_Group_idx")] = 0;
    p[latin("title_hight")] = 30;
    p[latin("name_width")] = 60;
    p[latin("use_add_del")] = 0; // asks with a window of its own; the worker is called directly
    p[latin("use_diff_color")] = pick(0, 1);
    Runtime::instance().setProject(root);
}

Life::~Life()
{
    settle();
    m_sheet.reset();
    RecipeSheetThread::release();
    RecipeDB::release();
    RecipeSheetItems::s_instance = nullptr; // the item that it points to is gone
    Runtime& runtime = Runtime::instance();
    runtime.setProject(nullptr);
    runtime.registers().clear();
    settle();
    runtime.setListener(nullptr);
    QDir folder(projectFile(""));
    const QStringList names = folder.entryList(QStringList(latin("recipeN.db3*")), QDir::Files);
    for (const QString& name : names)
        folder.remove(name);
}

void Life::settle()
{
    do
        QCoreApplication::processEvents();
    while (!Runtime::instance().isIdle());
}

void Life::start()
{
    m_sheet.reset(new RecipeSheetItems);
    Runtime::place(m_sheet.get(), m_properties);
    if (!Runtime::instance().start(m_sheet.get()))
        report("the sheet did not start");
    if (probe().cellText(0, 0) != latin("ERROR"))
        ++configured;
    if (!probe().cellText(0, 0).isEmpty() && probe().cellText(0, 0) != latin("ERROR"))
        ++filled;
    paint();
}

void Life::touch(QEvent::Type kind, const QPointF& at)
{
    QGraphicsSceneMouseEvent event(kind);
    event.setPos(at);
    event.setButton(Qt::LeftButton);
    if (kind == QEvent::GraphicsSceneMousePress)
        m_sheet->mousePressEvent(&event);
    else if (kind == QEvent::GraphicsSceneMouseMove)
        m_sheet->mouseMoveEvent(&event);
    else
        m_sheet->mouseReleaseEvent(&event);
}

void Life::tap(const QPointF& at)
{
    touch(QEvent::GraphicsSceneMousePress, at);
    touch(QEvent::GraphicsSceneMouseRelease, at);
}

/// Twice on the same cell opens the keyboard.
void Life::tapCell()
{
    const QPointF at = probe().cellRect(pick(0, 5), pick(0, 10)).center();
    tap(at);
    if (pick(0, 3) != 0) {
        tap(at);
        type();
    }
}

void Life::tapTitle()
{
    const QPointF at = probe().titleCellRect(pick(0, 5)).center();
    tap(at);
    tap(at);
    type();
}

void Life::type()
{
    settle();
    const char* const texts[] = {"1", "-12.5", "", "'", "' --", "x", "9e999", "0.000001"};
    const int text = pick(0, 8);
    m_sheet->keyboardReflash(text < 8 ? latin(texts[text]) : QString(2000, QChar(0x4e2d)));
    ++edited;
}

void Life::pressArrow()
{
    const QRectF arrows[] = {probe().leftArrowRect(), probe().rightArrowRect(), probe().upArrowRect(),
                             probe().downArrowRect()};
    const QPointF at = arrows[pick(0, 3)].center();
    for (int i = pick(1, 12); i > 0; --i)
        tap(at);
}

void Life::drag()
{
    const bool horizontal = m_choices.ConsumeBool();
    QPointF at = (horizontal ? probe().horizontalThumbRect() : probe().verticalThumbRect()).center();
    touch(QEvent::GraphicsSceneMousePress, at);
    for (int i = pick(1, 8); i > 0; --i) {
        at += QPointF(pick(-100, 100), pick(-100, 100));
        touch(QEvent::GraphicsSceneMouseMove, at);
    }
    touch(QEvent::GraphicsSceneMouseRelease, at);
}

void Life::setRegister()
{
    Runtime::instance().registers().setWord(latin("LW"), 60803,
                                            m_choices.ConsumeBool() ? pick(0, 70) : pick(-1, 65535));
}

void Life::save()
{
    tap(probe().saveButtonRect().center());
    settle();
}

/// What "Add" and "Delete" start, without the question and the thread.
void Life::rewrite()
{
    RecipeSheetThread* const worker = RecipeSheetThread::getInstance();
    worker->groupIndex = 0;
    worker->column = pick(0, 6);
    worker->db = RecipeDB::getInstance();
    worker->callback = &RecipeSheetItems::replace;
    worker->available = true;
    if (m_choices.ConsumeBool() ? worker->add() : worker->del())
        ++rewritten;
}

class NoLinks : public InterfaceComm
{
public:
    bool readWords(int, int, int, int*) override { return false; }
    bool writeWords(const QString&, const QString&, int, int, int, const int*) override { return false; }
    LinkValue linkValue(const QString&) override { return LinkValue(); }
    void formatMonitorAddress(const QString&, const QString&, int, int, int, QStringList&) override {}
};

/// The runtime's own reading of a range.
void Life::transfer()
{
    NoLinks links;
    recipeTableInfo_t group;
    if (loadRecipe2Struct_start_end(0, pick(-1, 6), pick(0, 70), group, &links) == 1)
        ++transferred;
}

void Life::paint()
{
    static QImage* const image = new QImage(WIDTH, HEIGHT, QImage::Format_RGB32);
    QPainter painter(image);
    m_sheet->HMIpaint(nullptr, QString(), &painter, false);
    ++painted;
}

void Life::act()
{
    switch (pick(0, 12)) {
    case 0:
    case 1:
    case 2:
        tapCell();
        break;
    case 3:
        tapTitle();
        break;
    case 4:
        pressArrow();
        break;
    case 5:
        drag();
        break;
    case 6:
        setRegister();
        break;
    case 7:
        m_sheet->selectCol(pick(-2, 70));
        break;
    case 8:
    case 9:
        save();
        break;
    case 10:
        rewrite();
        break;
    case 11:
        transfer();
        break;
    default:
        m_sheet->initRecipeFile();
        break;
    }
    settle();
    paint();
}

} // namespace

void prepareSheetLife()
{
    startFuzzing();
}

void liveThrough(const std::uint8_t* choices, std::size_t size)
{
    ++lives;
    Life life(choices, size);
    life.start();
    for (int i = 0; i < MOST_ACTIONS && !life.isOver(); ++i)
        life.act();
}
