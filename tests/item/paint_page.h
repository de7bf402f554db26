// What a sheet must draw, worked out from its properties and its group alone: the eleven steps in their order, with
// every rectangle written out against the frame. Stands on nothing of the item.
#ifndef PAINT_PAGE_H
#define PAINT_PAGE_H

#include "recording_device.h"
#include "sheet_fixture.h"

class ExpectedPage
{
public:
    ExpectedPage(const SheetProperties& properties, const SheetGroup& group);

    // What the operator has done; the start state by default.
    QRectF frame; ///< 0, 0 and the size of the properties
    int firstColumn = 0;
    int firstRow = 0;
    int selectedColumn = -32768; ///< visible; -32768: nothing
    int selectedRow = -32768;    ///< visible; -1: the title
    QColor saveColor, addColor, deleteColor;
    QColor leftColor, rightColor, upColor, downColor;
    QColor verticalThumbColor, horizontalThumbColor;
    /// The text of a cell by item and recipe; the group's values by default, empty beyond the group.
    std::function<QString(int item, int recipe)> cellText;

    // the steps
    QList<PaintCall> titleBackground() const;
    QList<PaintCall> tableBackground() const;
    QList<PaintCall> columnTitles() const;
    QList<PaintCall> rowLabels() const;
    QList<PaintCall> cellTexts() const;
    QList<PaintCall> selection() const;
    QList<PaintCall> scrollBars() const;
    QList<PaintCall> thumbs() const;
    QList<PaintCall> innerLines() const;
    QList<PaintCall> outline() const;
    QList<PaintCall> buttons() const;
    /// All of them.
    QStringList all() const;

    QRectF dataArea() const;
    QRectF cell(int column, int row) const;
    QRectF titleCell(int column) const;
    QRectF verticalTrack() const;
    QRectF horizontalTrack() const;
    QRectF verticalThumb() const;
    QRectF horizontalThumb() const;

private:
    int number(const char* key, int fallback) const;
    QColor color(const char* key) const;
    QFont font(const char* which) const;
    QColor textColor(const char* which) const;
    QPen linePen(const char* kind, const QColor& penColor) const;
    int rows() const { return number("rows_num_page", 0); }
    int columns() const { return number("column_num_page", 0); }
    int visibleRows() const { return qMin(rows(), 100); }
    int visibleColumns() const { return qMin(columns(), 50); }
    double titleHeight() const { return number("title_hight", 0); }
    double nameWidth() const { return number("name_width", 0); }
    QString columnTitle(int visibleColumn) const;
    QString rowTitle(int visibleRow) const;
    QString shownText(int visibleColumn, int visibleRow) const;
    QList<PaintCall> selectedCell() const;

    SheetProperties m_properties;
    SheetGroup m_group;
};

/// What an item draws when it is painted once.
QList<PaintCall> paintedCalls(RecipeSheetItems& sheet);
QStringList painted(RecipeSheetItems& sheet);

/// Compares line by line; a difference is shown with the lines around it.
testing::AssertionResult sameLines(const QStringList& seen, const QStringList& wanted);

#endif
