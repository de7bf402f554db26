// Press and release: what lights up, what is heard, what acts.
#include "edit_confirmation.h"
#include "touch_events.h"

#include <QCoreApplication>
#include <QGraphicsScene>

#include <string>

namespace {

const QColor ARROW(152, 140, 152, 255);
const QColor ARROW_HELD(122, 110, 122, 255);
const QColor BUTTON(173, 216, 230, 255);
const QColor BUTTON_HELD(153, 196, 210, 255);
const QColor THUMB(240, 240, 240, 255);
const QColor THUMB_HELD(180, 180, 180, 255);

typedef RecipeSheetProbe::Handle& (RecipeSheetProbe::*HandleOf)();

struct Part
{
    const char* name;
    QPointF point;
    HandleOf handle;
    QColor color;
    QColor held;
    bool feedback; ///< sound and an immediate repaint
};

class PartOfTheSheet : public TouchFixture, public testing::WithParamInterface<Part>
{
protected:
    PartOfTheSheet() { writeGroup(SheetGroup::ofSize(250, 120)); }

    RecipeSheetProbe::Handle& handle(RecipeSheetProbe& probe) { return (probe.*GetParam().handle)(); }

    /// A scene announces changes over several rounds of the event loop.
    void settleScene()
    {
        for (int round = 0; round < 5; ++round)
            settle();
    }
};

void PrintTo(const Part& part, std::ostream* out)
{
    *out << part.name;
}

std::string partName(const testing::TestParamInfo<Part>& info)
{
    return info.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Each, PartOfTheSheet,
    testing::Values(
        Part{"LeftArrow", QPointF(15, 425), &RecipeSheetProbe::leftArrow, ARROW, ARROW_HELD, true},
        Part{"RightArrow", QPointF(755, 425), &RecipeSheetProbe::rightArrow, ARROW, ARROW_HELD, true},
        Part{"UpArrow", QPointF(785, 15), &RecipeSheetProbe::upArrow, ARROW, ARROW_HELD, true},
        Part{"DownArrow", QPointF(785, 395), &RecipeSheetProbe::downArrow, ARROW, ARROW_HELD, true},
        Part{"VerticalThumb", QPointF(785, 40), &RecipeSheetProbe::verticalThumb, THUMB, THUMB_HELD, true},
        Part{"HorizontalThumb", QPointF(45, 425), &RecipeSheetProbe::horizontalThumb, THUMB, THUMB_HELD, true},
        Part{"SaveButton", QPointF(45, 460), &RecipeSheetProbe::saveButton, BUTTON, BUTTON_HELD, true},
        Part{"AddButton", QPointF(145, 460), &RecipeSheetProbe::addButton, BUTTON, BUTTON_HELD, false},
        Part{"DeleteButton", QPointF(245, 460), &RecipeSheetProbe::deleteButton, BUTTON, BUTTON_HELD, false}),
    partName);

TEST_P(PartOfTheSheet, IsColouredWhileItIsHeld)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    EXPECT_EQ(handle(probe).color, GetParam().color);
    EXPECT_FALSE(handle(probe).held);
    press(sheet, GetParam().point);
    EXPECT_EQ(handle(probe).color, GetParam().held);
    EXPECT_TRUE(handle(probe).held);
}

TEST_P(PartOfTheSheet, IsHeardAndRepaintedAtOnceWhereThatIsWanted)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe(sheet).needsRepaint() = false;
    press(sheet, GetParam().point);
    EXPECT_EQ(requests.sounds.size(), GetParam().feedback ? 1u : 0u);
    EXPECT_TRUE(RecipeSheetProbe(sheet).needsRepaint()) << "set on every press";
    if (GetParam().feedback) {
        EXPECT_EQ(requests.sounds.at(0), &sheet);
    }
}

namespace {

/// Counts what a scene is told to paint again.
class WatchedScene
{
public:
    explicit WatchedScene(RecipeSheetItems& sheet) : m_sheet(sheet)
    {
        m_scene.addItem(&sheet);
        QObject::connect(&m_scene, &QGraphicsScene::changed, [this](const QList<QRectF>&) { ++m_changes; });
        sheet.setSelected(true); // beforehand: becoming selected repaints an item too
    }
    ~WatchedScene() { m_scene.removeItem(&m_sheet); }

    /// Forgets what there was; call it with nothing on its way.
    void forget() { m_changes = 0; }
    bool changed() const { return m_changes > 0; }

private:
    RecipeSheetItems& m_sheet;
    QGraphicsScene m_scene;
    int m_changes = 0;
};

} // namespace

TEST_P(PartOfTheSheet, RepaintsItsSceneOnlyWithFeedback)
{
    RecipeSheetItems& sheet = startSheet();
    WatchedScene scene(sheet);
    settleScene();
    scene.forget();
    press(sheet, GetParam().point);
    settleScene();
    EXPECT_EQ(scene.changed(), GetParam().feedback);
}

TEST_P(PartOfTheSheet, RepaintsItsSceneOnEveryMoveAndOnTheRelease)
{
    RecipeSheetItems& sheet = startSheet();
    Confirmation confirmation(Confirmation::No);
    WatchedScene scene(sheet);
    press(sheet, GetParam().point);
    settleScene();
    scene.forget();
    move(sheet, GetParam().point);
    settleScene();
    EXPECT_TRUE(scene.changed()) << "also of a move that scrolls nothing";
    scene.forget();
    release(sheet, outside());
    settleScene();
    EXPECT_TRUE(scene.changed());
}

TEST_P(PartOfTheSheet, StaysHeldUntilTheNextReleaseWhereverThatIs)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    Confirmation confirmation(Confirmation::No);
    press(sheet, GetParam().point);
    move(sheet, outside());
    EXPECT_TRUE(handle(probe).held);
    release(sheet, outside());
    EXPECT_FALSE(handle(probe).held);
    EXPECT_EQ(handle(probe).color, GetParam().color);
    const bool asks =
        GetParam().handle == &RecipeSheetProbe::addButton || GetParam().handle == &RecipeSheetProbe::deleteButton;
    EXPECT_EQ(confirmation.asked, asks ? 1 : 0);
}

namespace {

class Press : public TouchFixture
{
protected:
    Press() { writeGroup(SheetGroup::ofSize(250, 120)); }
};

class Arrows : public Press
{
};

} // namespace

// --- feedback ----------------------------------------------------------------------------------------------------

TEST_F(Press, IsHeardOnCellsAndTitlesAndNowhereElse)
{
    RecipeSheetItems& sheet = startSheet();
    press(sheet, cell(0, 0));
    release(sheet, cell(0, 0));
    EXPECT_EQ(requests.sounds.size(), 1u);
    press(sheet, title(4));
    release(sheet, title(4));
    EXPECT_EQ(requests.sounds.size(), 2u);
    for (const QPointF& point :
         {QPointF(20, 20), QPointF(100, 20), QPointF(20, 100), QPointF(100, 100), nowhere(), QPointF(400, 425)})
        tap(sheet, point);
    EXPECT_EQ(requests.sounds.size(), 2u) << "headers, row labels, tracks and the button bar are silent";
}

TEST_F(Press, OfAddIsHeardWhileSomethingElseIsHeld)
{
    RecipeSheetItems& sheet = startSheet();
    press(sheet, saveButton());
    ASSERT_EQ(requests.sounds.size(), 1u);
    press(sheet, addButton());
    EXPECT_EQ(requests.sounds.size(), 2u) << "Save is still held";
}

TEST_F(Press, DoesNotReachAddAndDeleteWhereTheyAreOff)
{
    RecipeSheetItems& sheet = startSheet(SheetProperties::usual().set("use_add_del", 0));
    RecipeSheetProbe probe(sheet);
    tap(sheet, addButton());
    tap(sheet, deleteButton());
    EXPECT_FALSE(probe.addButton().held);
    EXPECT_FALSE(probe.deleteButton().held);
    EXPECT_EQ(probe.addButton().color, BUTTON);
    settle();
    EXPECT_EQ(requests.log, QStringList());
}

TEST_F(Press, LeavesTheCellFlagClear)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.cellPressed() = true;
    press(sheet, cell(0, 0));
    EXPECT_FALSE(probe.cellPressed());
}

TEST_F(Press, TakesTheFirstOfTheArrowsAndThumbsThatHoldThePoint)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    // All in one place: only the first in the order left, right, up, down, vertical thumb, horizontal thumb is held.
    const QRectF place(0, 0, 100, 100);
    probe.leftArrowRect() = probe.rightArrowRect() = probe.upArrowRect() = probe.downArrowRect() = place;
    probe.verticalTrackRect() = probe.horizontalTrackRect() = place;
    probe.rowAxis().thumbStart = probe.columnAxis().thumbStart = 0;
    probe.rowAxis().thumbLength = probe.columnAxis().thumbLength = 100;
    const QList<RecipeSheetProbe::Handle*> order = {&probe.leftArrow(),     &probe.rightArrow(),
                                                    &probe.upArrow(),       &probe.downArrow(),
                                                    &probe.verticalThumb(), &probe.horizontalThumb()};
    const QList<QRectF*> rects = {&probe.leftArrowRect(), &probe.rightArrowRect(), &probe.upArrowRect(),
                                  &probe.downArrowRect()};
    for (int i = 0; i < order.size(); ++i) {
        for (RecipeSheetProbe::Handle* handle : order)
            handle->held = false;
        sheet.deal_move_press(QPointF(50, 50));
        for (int k = 0; k < order.size(); ++k)
            EXPECT_EQ(order.at(k)->held, k == i) << "part " << k << " in round " << i;
        if (i < rects.size())
            *rects.at(i) = QRectF();
        else
            probe.rowAxis().thumbLength = -1;
    }
}

TEST_F(Press, OfAThumbRemembersWhereAndOfAnArrowDoesNot)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    press(sheet, QPointF(785, 40));
    EXPECT_EQ(probe.lastDragPosition(), QPointF(785, 40));
    press(sheet, leftArrow());
    EXPECT_EQ(probe.lastDragPosition(), QPointF(785, 40));
    press(sheet, QPointF(45, 425));
    EXPECT_EQ(probe.lastDragPosition(), QPointF(45, 425));
}

TEST_F(Press, OnAnArrowScrollsNothingHoweverLongItIsHeld)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    press(sheet, rightArrow());
    for (int i = 0; i < 10; ++i)
        move(sheet, rightArrow());
    EXPECT_EQ(probe.firstColumn(), 0);
}

// --- arrows ------------------------------------------------------------------------------------------------------

TEST_F(Arrows, StepOneLineOnRelease)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    const double step = probe.columnAxis().stepDistance;
    const double rowStep = probe.rowAxis().stepDistance;
    ASSERT_DOUBLE_EQ(step, 704.0 / 120);
    ASSERT_DOUBLE_EQ(rowStep, 344.0 / 250);
    click(sheet, rightArrow(), 3);
    EXPECT_EQ(probe.firstColumn(), 3);
    EXPECT_DOUBLE_EQ(probe.columnAxis().thumbStart, 33 + 3 * step);
    click(sheet, leftArrow());
    EXPECT_EQ(probe.firstColumn(), 2);
    EXPECT_NEAR(probe.columnAxis().thumbStart, 33 + 2 * step, 1e-9);
    click(sheet, downArrow(), 2);
    EXPECT_EQ(probe.firstRow(), 2);
    EXPECT_DOUBLE_EQ(probe.rowAxis().thumbStart, 33 + 2 * rowStep);
    click(sheet, upArrow());
    EXPECT_EQ(probe.firstRow(), 1);
}

TEST_F(Arrows, ActWhereverTheyAreReleased)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    press(sheet, rightArrow());
    release(sheet, outside());
    EXPECT_EQ(probe.firstColumn(), 1);
    press(sheet, downArrow());
    release(sheet, leftArrow());
    EXPECT_EQ(probe.firstRow(), 1);
    EXPECT_EQ(probe.firstColumn(), 1) << "the arrow below the release does nothing";
}

TEST_F(Arrows, ActOncePerReleaseInTheOrderLeftRightUpDown)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    click(sheet, rightArrow(), 5);
    click(sheet, downArrow(), 5);
    for (const QPointF& arrow : {downArrow(), upArrow(), rightArrow(), leftArrow()})
        press(sheet, arrow);
    release(sheet, nowhere());
    EXPECT_EQ(probe.firstColumn(), 4) << "left";
    release(sheet, nowhere());
    EXPECT_EQ(probe.firstColumn(), 5) << "right";
    release(sheet, nowhere());
    EXPECT_EQ(probe.firstRow(), 4) << "up";
    release(sheet, nowhere());
    EXPECT_EQ(probe.firstRow(), 5) << "down";
    release(sheet, nowhere());
    EXPECT_EQ(probe.firstColumn(), 5);
    EXPECT_EQ(probe.firstRow(), 5);
}

TEST_F(Arrows, StopAtTheEnds)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    click(sheet, leftArrow());
    click(sheet, upArrow());
    EXPECT_EQ(probe.firstColumn(), 0);
    EXPECT_EQ(probe.firstRow(), 0);
    EXPECT_DOUBLE_EQ(probe.columnAxis().thumbStart, 33.0);
    click(sheet, rightArrow(), 130);
    click(sheet, downArrow(), 260);
    EXPECT_EQ(probe.firstColumn(), 115);
    EXPECT_EQ(probe.firstRow(), 240);
    EXPECT_NEAR(probe.columnAxis().thumbEnd(), probe.columnAxis().trackEnd(), 1e-6);
    EXPECT_NEAR(probe.rowAxis().thumbEnd(), probe.rowAxis().trackEnd(), 1e-6);
}

TEST_F(Arrows, CarryTheSelectionAgainstTheScroll)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, cell(1, 1));
    click(sheet, rightArrow());
    EXPECT_EQ(probe.selectedColumn(), 0);
    EXPECT_EQ(probe.selectedRect(), probe.cellRect(0, 1));
    click(sheet, downArrow(), 2);
    EXPECT_EQ(probe.selectedRow(), -1);
    EXPECT_EQ(probe.selectedRect(), QRectF()) << "off the page";
    click(sheet, upArrow());
    click(sheet, leftArrow());
    EXPECT_EQ(probe.selectedColumn(), 1);
    EXPECT_EQ(probe.selectedRow(), 0);
    EXPECT_EQ(probe.selectedRect(), probe.cellRect(1, 0));
}

TEST_F(Arrows, ThatCannotStepLeaveTheSelectedRectangleAsItIs)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.selectedRect() = QRectF(1, 2, 3, 4);
    click(sheet, leftArrow());
    EXPECT_EQ(probe.selectedRect(), QRectF(1, 2, 3, 4));
}

TEST_F(Arrows, ShowOtherCellsWithTheNextPaint)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    click(sheet, rightArrow());
    EXPECT_EQ(probe.cellText(0, 0), latin1("0")) << "as painted before";
    EXPECT_TRUE(probe.needsRepaint());
    sheet.refresh_displayInfo();
    EXPECT_EQ(probe.cellText(0, 0), latin1("1"));
}

TEST_F(Arrows, FindWhatTheyScrollToAlreadyLoaded)
{
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    for (int i = 1; i <= 115; ++i) {
        click(sheet, rightArrow());
        sheet.refresh_displayInfo();
        ASSERT_EQ(probe.cellText(4, 9), QString::number(9000 + i + 4));
    }
}
