// What the tests of touch and editing share: a sheet of a known geometry and short names for what an operator does.
#ifndef TOUCH_EVENTS_H
#define TOUCH_EVENTS_H

#include "sheet_fixture.h"

#include <QCoreApplication>
#include <QGraphicsScene>

#include <vector>

/// The register writes and reads, in order: "w 60803 0>17", "r 60803 17".
class RecordedRegisters : public RegisterListener
{
public:
    void wordRead(int address, int value) override
    {
        log.append(QString::fromLatin1("r %1 %2").arg(address).arg(value));
    }
    void wordWritten(const QString& registerType, int address, int oldValue, int newValue) override
    {
        log.append(QString::fromLatin1("w %1%2 %3>%4").arg(registerType).arg(address).arg(oldValue).arg(newValue));
    }

    QStringList log;
};

/// The usual sheet is 800 x 480 with 5 x 10 cells of 120 x 37 from (170, 40) on, titles 40 high, the horizontal track
/// from x 33 to 737 at y 410, the vertical track from y 33 to 377 at x 770, buttons at y 445.
class TouchFixture : public SheetFixture
{
protected:
    ~TouchFixture() override { registers().setListener(nullptr); }

    /// Records register accesses in `seen` from now on.
    void listen() { registers().setListener(&seen); }

    RecordedRegisters seen;

    static QPointF cell(int visibleColumn, int visibleRow)
    {
        return QPointF(170 + 120 * visibleColumn + 60, 40 + 37 * visibleRow + 18);
    }
    static QPointF title(int visibleColumn) { return QPointF(170 + 120 * visibleColumn + 60, 20); }
    static QPointF leftArrow() { return QPointF(15, 425); }
    static QPointF rightArrow() { return QPointF(755, 425); }
    static QPointF upArrow() { return QPointF(785, 15); }
    static QPointF downArrow() { return QPointF(785, 395); }
    static QPointF saveButton() { return QPointF(45, 460); }
    static QPointF addButton() { return QPointF(145, 460); }
    static QPointF deleteButton() { return QPointF(245, 460); }
    static QPointF nowhere() { return QPointF(400, 475); } ///< in the button bar, on no button
    static QPointF outside() { return QPointF(-500, 2000); }

    /// Two taps: selects, then opens the keyboard.
    static void doubleTap(RecipeSheetItems& sheet, const QPointF& position)
    {
        tap(sheet, position);
        tap(sheet, position);
    }

    /// Taps the cell twice and answers the keyboard.
    static void edit(RecipeSheetItems& sheet, int visibleColumn, int visibleRow, const QString& text)
    {
        doubleTap(sheet, cell(visibleColumn, visibleRow));
        sheet.keyboardReflash(text);
    }

    static void rename(RecipeSheetItems& sheet, int visibleColumn, const QString& text)
    {
        doubleTap(sheet, title(visibleColumn));
        sheet.keyboardReflash(text);
    }

    static void click(RecipeSheetItems& sheet, const QPointF& position, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            tap(sheet, position);
    }
};

inline QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

#endif
