// A runtime that misbehaves: the item lives and paints, and is right again as soon as the runtime is.
#include "misbehaving_runtime.h"

#include "edit_confirmation.h"
#include "fault_tally.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <limits>
#include <memory>

#include <sys/resource.h>

namespace {

const double NAN_ = std::numeric_limits<double>::quiet_NaN();
const double INF = std::numeric_limits<double>::infinity();

const char* const NUMBERS[] = {"use_page",
                               "column_line_display",
                               "row_line_display",
                               "frameLineWidth",
                               "insideLineWidth",
                               "frameLineShape",
                               "insideLineShape",
                               "title_hight",
                               "name_width",
                               "title_text_pixelSize",
                               "table_text_pixelSize",
                               "use_diff_color",
                               "use_add_del",
                               "rows_num_page",
                               "column_num_page",
                               "Recipe_Group_idx",
                               "width",
                               "height"};

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

/// Its frame is what a test says.
class AnyFrame : public RecipeSheetItems
{
public:
    QRectF boundingRect() const override
    {
        ++asked;
        return frame;
    }

    QRectF frame = QRectF(0, 0, 800, 480);
    mutable int asked = 0;
};

class AMisbehavingRuntime : public SheetFixture
{
protected:
    AMisbehavingRuntime() : m_tally("misbehaving runtime")
    {
        writeGroup(SheetGroup::ofSize(30, 20));
        bad.reset();
        boundMemory();
    }
    ~AMisbehavingRuntime() override
    {
        bad.reset();
        setrlimit(RLIMIT_DATA, &m_before);
    }

    /// All that a runtime does with an item, and an operator.
    void live(RecipeSheetItems& sheet)
    {
        Confirmation yes(Confirmation::Yes);
        paint(sheet);
        for (const QPointF at :
             {QPointF(230, 60), QPointF(230, 60), QPointF(230, 20), QPointF(230, 20), QPointF(15, 425),
              QPointF(755, 425), QPointF(785, 15), QPointF(785, 395), QPointF(400, 425), QPointF(785, 200),
              QPointF(-1, -1), QPointF(NAN_, NAN_), QPointF(INF, -INF)}) {
            press(sheet, at);
            move(sheet, at + QPointF(37, 21));
            release(sheet, at);
            bad.answerNow();
            paint(sheet);
        }
        sheet.selectCol(19);
        sheet.update_result(4);
        sheet.update_result(-1);
        sheet.keyboardReflash(latin1("7"));
        sheet.saveRecipeFile();
        sheet.addRecipe();
        settle();
        sheet.deleteRecipe();
        settle();
        bad.answerNow();
        settle();
        bad.answerNow();
        paint(sheet);
    }

    static void paint(RecipeSheetItems& sheet)
    {
        QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
    }

    /// The item after the runtime came to its senses: configured anew it shows its page, cell for cell.
    void expectRightAgain(RecipeSheetItems& sheet)
    {
        bad.reset();
        sheet.init();
        RecipeSheetProbe probe(sheet);
        EXPECT_EQ(probe.visibleRows(), 10);
        EXPECT_EQ(probe.visibleColumns(), 5);
        EXPECT_EQ(probe.cellRect(0, 0), QRectF(170, 40, 120, 37));
        sheet.update_result(4);
        sheet.refresh_displayInfo();
        for (int r = 0; r < 10; ++r) {
            const QStringList stored = querySql(latin1("SELECT CAST(D%1 AS INTEGER) FROM data_0 WHERE column = %2;")
                                                    .arg(probe.firstRow() + r)
                                                    .arg(probe.firstColumn()));
            EXPECT_EQ(QStringList(probe.cellText(0, r)), stored)
                << "item " << probe.firstRow() + r << ", recipe " << probe.firstColumn();
        }
        paint(sheet);
    }

    void expectStruck(int atLeast, const std::string& what)
    {
        EXPECT_GE(bad.struck(), atLeast) << what;
        m_tally.add(bad.struck() >= atLeast, HasFailure() ? FaultTally::Found : FaultTally::Fine);
    }

    /// For what strikes elsewhere than in `bad`.
    void note(bool struck, const std::string& what)
    {
        EXPECT_TRUE(struck) << what;
        m_tally.add(struck, HasFailure() ? FaultTally::Found : FaultTally::Fine);
    }

    /// Starts an item under what has been switched on, uses it, and lets the runtime come to its senses.
    void liveThrough(const std::string& what, int atLeast = 1)
    {
        SCOPED_TRACE(what);
        RecipeSheetItems& sheet = startSheet();
        live(sheet);
        expectStruck(atLeast, what);
        expectRightAgain(sheet);
        destroySheet(sheet);
    }

    MisbehavingRuntime& bad = MisbehavingRuntime::instance();
    SqliteErrors errors{SqliteErrors::Allowed}; // an absurd group has no tables

private:
    /// A size that was believed would need gigabytes.
    void boundMemory()
    {
        getrlimit(RLIMIT_DATA, &m_before);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        rlimit bound = m_before;
        bound.rlim_cur = 512u << 20;
        setrlimit(RLIMIT_DATA, &bound);
#endif
    }

    FaultTally m_tally;
    rlimit m_before;
};

} // namespace

TEST_F(AMisbehavingRuntime, ThatDoesNothingOfItIsFine)
{
    RecipeSheetItems& sheet = startSheet();
    live(sheet);
    EXPECT_EQ(bad.struck(), 0);
    expectRightAgain(sheet);
}

TEST_F(AMisbehavingRuntime, MayAnswerAtAnyTimeOrNever)
{
    for (const MisbehavingRuntime::Answers answers :
         {MisbehavingRuntime::AtOnce, MisbehavingRuntime::Twice, MisbehavingRuntime::Late, MisbehavingRuntime::Never}) {
        RecipeSheetItems& sheet = startSheet();
        bad.setAnswers(answers, &sheet);
        live(sheet);
        expectStruck(4, "answers " + std::to_string(answers));
        expectRightAgain(sheet);
        destroySheet(sheet);
    }
}

TEST_F(AMisbehavingRuntime, MayAnswerTheKeyboardWhenThatCellIsGone)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    bad.setAnswers(MisbehavingRuntime::Late, &sheet);
    sheet.selectCol(19);
    tap(sheet, probe.cellRect(4, 3).center());
    tap(sheet, probe.cellRect(4, 3).center());
    runSql(latin1("DELETE FROM data_0 WHERE column > 2; UPDATE recipe_config SET column = 3;"));
    RecipeSheetItems::replace(true, 3, 30);
    bad.answerNow();
    expectStruck(1, "a late answer");
    paint(sheet);
    EXPECT_TRUE(sheet.saveRecipeFile());
    EXPECT_EQ(querySql(latin1("SELECT count(*), sum(D3) FROM data_0;")), QStringList(latin1("3|9003.0")));
}

/// QRectF takes a position that is no number for one inside; such a touch asked whether to delete the recipe.
TEST_F(AMisbehavingRuntime, MayTouchNowhere)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation question(Confirmation::Yes);
    int touches = 0;
    for (const QPointF& nowhere : {QPointF(NAN_, NAN_), QPointF(NAN_, 60), QPointF(230, NAN_), QPointF(INF, -INF)}) {
        tap(sheet, nowhere);
        ++touches;
    }
    settle();
    EXPECT_EQ(question.asked, 0);
    EXPECT_EQ(requests.log, QStringList());
    EXPECT_EQ(RecipeSheetProbe(sheet).selectedColumn(), -32768);
    note(touches == 4, "touches");
    expectRightAgain(sheet);
}

TEST_F(AMisbehavingRuntime, MayTypeAnything)
{
    QString endless(100000, QLatin1Char('x'));
    for (const QString& typed : {QString(), endless, latin1("'; DROP TABLE data_0; --"), QString(QChar(0)),
                                 QString(QChar(0xd800)), latin1("%s%n%d"), latin1("1e999")}) {
        RecipeSheetItems& sheet = startSheet();
        SCOPED_TRACE(typed.left(20).toStdString());
        bad.setAnswers(MisbehavingRuntime::AtOnce, &sheet, typed);
        live(sheet);
        expectStruck(2, typed.left(20).toStdString());
        EXPECT_EQ(querySql(latin1("SELECT count(*) FROM data_0;")), QStringList(latin1("20")));
        expectRightAgain(sheet);
        destroySheet(sheet);
    }
}

TEST_F(AMisbehavingRuntime, MayGiveAnyNumberForAnyProperty)
{
    for (const char* const key : NUMBERS) {
        for (const int value : {std::numeric_limits<int>::min(), -1, 0, 1000000000, std::numeric_limits<int>::max()}) {
            bad.setNumber(latin1(key), value);
            liveThrough(std::string(key) + " " + std::to_string(value));
        }
    }
}

TEST_F(AMisbehavingRuntime, MayGiveTheSameNumberForAllProperties)
{
    for (const int value :
         {std::numeric_limits<int>::min(), -1, 0, 1, 2, 1000000000, std::numeric_limits<int>::max()}) {
        bad.setNumber(QString(), value);
        liveThrough("all numbers " + std::to_string(value), 10);
    }
}

TEST_F(AMisbehavingRuntime, MayGiveHugePagesAndHugeFontsTogether)
{
    bad.setNumber(latin1("rows_num_page"), 1000000000);
    bad.setNumber(latin1("column_num_page"), 1000000000);
    bad.setNumber(latin1("use_diff_color"), 1);
    bad.setNumber(latin1("table_text_pixelSize"), 100000);
    bad.setNumber(latin1("title_text_pixelSize"), std::numeric_limits<int>::max());
    bad.setNumber(latin1("insideLineWidth"), std::numeric_limits<int>::max());
    liveThrough("huge pages and fonts", 6);
}

TEST_F(AMisbehavingRuntime, MayGiveTextsAndColoursThatAreNone)
{
    for (const QString& family : {QString(), QString(100000, QLatin1Char('x')), QString(QChar(0)), latin1("\n,[]")}) {
        bad.setText(QString(), family);
        bad.setColor(QString(), QColor());
        liveThrough("family of " + std::to_string(family.size()) + " characters", 10);
    }
}

/// A property of another type is as good as none.
TEST_F(AMisbehavingRuntime, MayHoldValuesOfOtherTypes)
{
    SheetProperties properties = SheetProperties::usual();
    for (const char* const key : NUMBERS)
        properties.set(key, latin1("ten"));
    properties.set("frame_line_color", 5).setLanguage(1, "table_font_family", QColor(1, 2, 3));
    RecipeSheetItems& sheet = startSheet(properties);
    live(sheet);
    EXPECT_EQ(RecipeSheetProbe(sheet).rowsPerPage(), 0);
    EXPECT_EQ(RecipeSheetProbe(sheet).frameLineColor(), QColor(0, 0, 0));
    note(true, "other types");
}

TEST_F(AMisbehavingRuntime, MayHaveObjectsWithoutChildrenOrThatAreTheirOwn)
{
    bad.loseChildren();
    liveThrough("no children");
    bad.makeChildrenTheirParents();
    liveThrough("children that are their parents");
}

TEST_F(AMisbehavingRuntime, MayGiveNoPropertyObject)
{
    addSheet();
    RecipeSheetItems& sheet = start(new RecipeSheetItems, nullptr);
    EXPECT_EQ(RecipeSheetProbe(sheet).properties(), nullptr);
    note(RecipeSheetProbe(sheet).rowsPerPage() == 0, "no object: nothing is configured");
    live(sheet);
}

TEST_F(AMisbehavingRuntime, MayGiveNoInterfaceOrTooMany)
{
    InterfaceComm* const real = &registers();
    for (const QList<void*>& interfaces :
         {QList<void*>(), QList<void*>{nullptr}, QList<void*>{static_cast<void*>(real), nullptr}}) {
        object* const properties = addSheet();
        RecipeSheetItems& sheet = keep(new RecipeSheetItems);
        runtime().place(&sheet, properties);
        sheet.setInterfaceByRequirement(interfaces);
        QStringList addresses;
        QList<KEY_ADDRESS> keys;
        EXPECT_EQ(sheet.getMonitorAddr(addresses, keys), 0);
        note(RecipeSheetProbe(sheet).comm() == nullptr, "no interface");
        live(sheet);
        expectRightAgain(sheet);
        destroySheet(sheet);
    }
}

TEST_F(AMisbehavingRuntime, MayHaveAnInterfaceThatRefusesOrGivesRubbish)
{
    for (const int rubbish : {std::numeric_limits<int>::min(), -1, 1000000000, std::numeric_limits<int>::max()}) {
        for (const bool fills : {false, true}) {
            RefusingComm refusing;
            refusing.fills = fills;
            refusing.rubbish = rubbish;
            RecipeSheetItems& sheet = startSheet();
            sheet.setInterfaceByRequirement(QList<void*>{static_cast<void*>(static_cast<InterfaceComm*>(&refusing))});
            QStringList addresses;
            QList<KEY_ADDRESS> keys;
            sheet.getMonitorAddr(addresses, keys);
            live(sheet);
            note(refusing.calls > 3, "rubbish " + std::to_string(rubbish));
            RecipeSheetProbe(sheet).comm() = &registers();
            expectRightAgain(sheet);
            destroySheet(sheet);
        }
    }
}

TEST_F(AMisbehavingRuntime, MayGiveAnyFrame)
{
    const QRectF usual(0, 0, 800, 480);
    for (const QRectF& frame :
         {QRectF(NAN_, NAN_, NAN_, NAN_), QRectF(0, 0, NAN_, 480), QRectF(0, 0, 800, NAN_), QRectF(INF, 0, 800, 480),
          QRectF(0, 0, INF, INF), QRectF(0, 0, -INF, -INF), QRectF(-1e300, -1e300, 1e308, 1e308), QRectF(),
          QRectF(0, 0, -800, -480), QRectF(1e9, 1e9, 800, 480), QRectF(0, 0, 1e-300, 1e-300)}) {
        SCOPED_TRACE(std::to_string(frame.width()) + " x " + std::to_string(frame.height()));
        object* const properties = addSheet();
        AnyFrame* const sheet = new AnyFrame;
        sheet->frame = frame;
        start(sheet, properties);
        live(*sheet);
        note(sheet->asked > 0, "a frame");
        sheet->frame = usual;
        expectRightAgain(*sheet);
        destroySheet(*sheet);
    }
}
