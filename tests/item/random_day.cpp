// What an operator does in any order, and what must hold afterwards.
#include "random_day.h"

#include <QPainter>

#include <cmath>

void RandomDay::begin()
{
    SheetGroup group = SheetGroup::ofSize(day.items, day.recipes);
    group.dataTypes = QVector<int>(day.items, 0);
    for (int i = 3; i < day.items; i += 7)
        group.dataTypes[i] = DATA_TYPE_TEXT;
    writeGroup(group);
    sheet = &startSheet();
    readFile();
}

void RandomDay::tell(const QString& what)
{
    story.append(what);
    if (story.size() > 12)
        story.removeFirst();
}

void RandomDay::readFile()
{
    truth.recipes.clear();
    for (const QString& line : querySql(latin1("SELECT * FROM data_0 ORDER BY column;"))) {
        QStringList texts = line.split(QLatin1Char('|')).mid(1);
        for (QString& text : texts)
            text = text.left(text.indexOf(QLatin1Char('.')));
        truth.recipes.append(texts);
    }
    truth.titles = querySql(latin1("SELECT L0 FROM lang_0 WHERE type = 2 ORDER BY strIndex;"));
}

const char* RandomDay::event()
{
    struct Kind
    {
        int share; // of 100
        const char* name;
        void (RandomDay::*happen)();
    };
    static const Kind KINDS[] = {
        {28, "tap a cell", &RandomDay::tapCell},          {8, "tap a title", &RandomDay::tapTitle},
        {16, "tap again", &RandomDay::tapAgain},          {15, "press an arrow", &RandomDay::pressArrow},
        {12, "drag a thumb", &RandomDay::dragThumb},      {4, "save", &RandomDay::save},
        {5, "set a register", &RandomDay::forceRegister}, {8, "touch anywhere", &RandomDay::touchAnywhere},
        {2, "add or delete", &RandomDay::addOrDelete},    {2, "answer unasked", &RandomDay::answerUnasked}};
    int dice = pick(0, 99);
    const Kind* kind = KINDS;
    for (; dice >= kind->share; ++kind)
        dice -= kind->share;
    (this->*kind->happen)();
    settle();
    answerKeyboard();
    if (probe().needsRepaint() || pick(0, 9) == 0)
        paint();
    return kind->name;
}

void RandomDay::tapCell()
{
    const int c = pick(0, 4);
    const int r = pick(0, 9);
    tell(latin1("tap cell %1 %2").arg(c).arg(r));
    const bool second = probe().selectedRect() == probe().cellRect(c, r);
    tap(*sheet, cell(c, r));
    select(second, c, r);
}

/// A second tap selects nothing. It counts from the selected rectangle, which the register leaves where it was: after
/// a forced register the old place still is "the selected cell".
void RandomDay::select(bool second, int c, int r)
{
    if (second)
        return;
    column = probe().firstColumn() + c;
    row = probe().firstRow() + r;
}

void RandomDay::tapTitle()
{
    const int c = pick(0, 4);
    tell(latin1("tap title %1").arg(c));
    const bool second = probe().selectedRect() == probe().titleCellRect(c);
    tap(*sheet, title(c));
    select(second, c, -1);
}

void RandomDay::tapAgain()
{
    const int c = column - probe().firstColumn();
    const int r = row - probe().firstRow();
    if (c < 0 || c > 4 || r < -1 || r > 9)
        return;
    tell(latin1("tap again %1 %2").arg(c).arg(r));
    tap(*sheet, r == -1 ? title(c) : cell(c, r));
    select(false, c, r); // the same, whatever the tap counted as
}

void RandomDay::pressArrow()
{
    const QPointF arrows[] = {leftArrow(), rightArrow(), upArrow(), downArrow()};
    const int which = pick(0, 3);
    const int times = pick(1, 12);
    tell(latin1("arrow %1 x%2").arg(which).arg(times));
    jumped = true;
    for (int i = 0; i < times; ++i) {
        press(*sheet, arrows[which]);
        release(*sheet, pick(0, 1) ? arrows[which] : outside());
    }
}

void RandomDay::dragThumb()
{
    const bool horizontal = pick(0, 1) != 0;
    const QPointF start = (horizontal ? probe().horizontalThumbRect() : probe().verticalThumbRect()).center();
    tell(latin1("drag %1").arg(horizontal ? latin1("horizontally") : latin1("vertically")));
    jumped = true;
    press(*sheet, start);
    double at = 0;
    for (int i = pick(1, 40); i > 0; --i) {
        at += pick(-8, 8) * 0.7;
        move(*sheet, start + (horizontal ? QPointF(at, pick(-50, 50)) : QPointF(pick(-50, 50), at)));
    }
    release(*sheet, nowhere());
}

void RandomDay::save()
{
    tell(latin1("save"));
    tap(*sheet, saveButton());
    truth.cells.clear();
    truth.names.clear();
    readFile();
}

void RandomDay::forceRegister()
{
    const int recipe = pick(0, static_cast<int>(truth.recipes.size()) + 3);
    tell(latin1("register %1").arg(recipe));
    const bool follows = recipe != probe().currentRecipe() && recipe < truth.recipes.size();
    registers().setWord(latin1("LW"), 60803, recipe);
    if (pick(0, 4) == 0)
        registers().setWord(latin1("LW"), 60802, pick(0, 5));
    if (follows) {
        column = recipe;
        row = probe().firstRow() + probe().selectedRow();
    }
}

/// Above the buttons, and on no cell or title: those are tapped elsewhere.
void RandomDay::touchAnywhere()
{
    const QPointF places[] = {QPointF(20, 20),   QPointF(100, 200), QPointF(400, 425), QPointF(785, 250),
                              QPointF(785, 425), QPointF(-50, -50), QPointF(600, 475), QPointF(900, 700)};
    const QPointF place = places[pick(0, 7)];
    tell(latin1("touch %1 %2").arg(place.x()).arg(place.y()));
    const int what = pick(0, 3);
    if (what == 0)
        move(*sheet, place);
    else if (what == 1)
        release(*sheet, place);
    else
        tap(*sheet, place);
}

void RandomDay::addOrDelete()
{
    const bool add = truth.recipes.size() < 8 || (pick(0, 1) != 0 && truth.recipes.size() < day.recipes + 5);
    const bool yes = pick(0, 3) != 0;
    tell(latin1("%1 %2").arg(add ? latin1("add") : latin1("delete"), yes ? latin1("yes") : latin1("no")));
    Confirmation confirmation(yes ? Confirmation::Yes : Confirmation::No);
    tap(*sheet, add ? addButton() : deleteButton());
    settle();
    EXPECT_EQ(confirmation.asked, 1);
    if (!yes)
        return;
    truth.cells.clear();
    truth.names.clear();
    const int before = static_cast<int>(truth.recipes.size());
    readFile();
    const int target = qMax(column, 0);
    const int expected = target >= before ? before : before + (add ? 1 : -1);
    EXPECT_EQ(truth.recipes.size(), expected);
    paint(); // shows the result
}

void RandomDay::answerKeyboard()
{
    const bool asked = requests.functions().contains(latin1("showKeyboardWindow"));
    requests.clear();
    if (!asked || pick(0, 3) == 0)
        return;
    const bool isText = probe().keyboard().textEntry;
    if (!isText)
        answer(QString::number(pick(0, 99999)));
    else if (pick(0, 9) == 0)
        answer(latin1("quo'te"));
    else
        answer(latin1("text%1").arg(pick(0, 99)));
}

void RandomDay::answerUnasked()
{
    answer(latin1("5"));
}

void RandomDay::answer(const QString& text)
{
    tell(latin1("answer %1").arg(text));
    sheet->keyboardReflash(text);
    if (row - probe().firstRow() == -1) {
        truth.names[column] = text;
        return;
    }
    truth.cells[idx_t(column, row)] = text;
    // Typed beside the group, where no cell is: shown until the cells are made anew, and in no file.
    if (column < 0 || column >= truth.recipes.size() || row < 0 || row >= day.items)
        sheet->refresh_displayInfo();
}

void RandomDay::paint()
{
    QPainter painter(&image);
    sheet->HMIpaint(nullptr, QString(), &painter, false);
}

// --- what must hold ----------------------------------------------------------------------------------------------

void RandomDay::check()
{
    EXPECT_EQ(probe().recipeCount(), truth.recipes.size());
    EXPECT_EQ(probe().itemCount(), day.items);
    EXPECT_EQ(probe().editedCells(), truth.cells);
    checkSelection();
    checkAxis(probe().columnAxis(), probe().firstColumn(), probe().recipeCount(), 5, "columns");
    checkAxis(probe().rowAxis(), probe().firstRow(), probe().itemCount(), 10, "rows");
    checkCells();
    EXPECT_LE(probe().blocks().size(), 7 + 4) << "one is evicted per look, a page and its margin need up to four";
}

void RandomDay::checkSelection()
{
    EXPECT_EQ(probe().firstColumn() + probe().selectedColumn(), column);
    EXPECT_EQ(probe().firstRow() + probe().selectedRow(), row);
}

void RandomDay::checkAxis(const ScrollAxis& axis, int first, int total, int page, const char* name)
{
    EXPECT_GE(first, 0) << name;
    EXPECT_LT(first, total) << name;
    EXPECT_EQ(axis.largestFirst, qMax(total - page, 0)) << name;
    if (total <= page) {
        EXPECT_DOUBLE_EQ(axis.thumbLength, axis.trackLength) << name;
        return;
    }
    const double natural = axis.trackLength * page / total;
    EXPECT_NEAR(axis.thumbLength, qMax(natural, 10.0), 1e-9) << name;
    if (axis.jumpDistance == 0.0) {
        // Every step is a line's share of the track, so the thumb stands where the first line says.
        EXPECT_NEAR(axis.thumbStart, axis.trackStart + axis.trackLength * first / total, 1e-6) << name;
        if (first <= axis.largestFirst) {
            EXPECT_LE(axis.thumbEnd(), axis.trackEnd() + 1e-6) << name;
        }
        return;
    }
    // At its smallest size a thumb cannot be kept inside: arrows move it by shares of the whole track, jumps by
    // shares of the track without the thumb, so arrows and jumps in turn make it creep; and the last page is as far
    // beyond the track as the thumb is larger than it should be. It is placed anew by selectCol, add and delete.
    if (!jumped) {
        EXPECT_GE(axis.thumbStart, axis.trackStart - 1e-6) << name;
        if (first <= axis.largestFirst) {
            EXPECT_LE(axis.thumbEnd(), axis.trackEnd() + 10.0 - natural + 1e-6) << name;
        }
    }
}

void RandomDay::checkCells()
{
    for (int c = 0; c < 5; ++c) {
        const int absolute = probe().firstColumn() + c;
        EXPECT_EQ(sheet->getColumnName(absolute), truth.title(absolute)) << "title " << absolute;
        for (int r = 0; r < 10; ++r) {
            EXPECT_EQ(probe().cellText(c, r), truth.cell(absolute, probe().firstRow() + r))
                << "recipe " << absolute << ", item " << probe().firstRow() + r;
            EXPECT_EQ(probe().displayCells().value(idx_t(c, r)).rect, probe().cellRect(c, r));
        }
    }
}
