// Drawing. HMIpaint is the table of contents. Pen and font pass from one part to the next where a part sets none: the
// marked cells are written like all cells, the captions of the buttons in the cells' font.
#include "RecipeSheetItems.h"

#include "sheet_constants.h"

#include <QBrush>
#include <QLineF>
#include <QMutexLocker>
#include <QObject>
#include <QPainter>
#include <QPolygonF>

namespace {

const int CENTERED = Qt::AlignHCenter | Qt::AlignVCenter;
const double TRIANGLE_INSET = 5.0;

void fill(QPainter* painter, const QRectF& rect, const QColor& color)
{
    painter->setBrush(QBrush(color));
    painter->drawRect(rect);
}

/// Longer than any panel is wide. Texts are centred and the painter shows what fits into the rectangle: of more than
/// this only the middle could be seen, and a damaged file may hold a megabyte in one cell.
const int LONGEST_DRAWN_TEXT = 2048;

void drawCentered(QPainter* painter, const QRectF& rect, const QString& text)
{
    if (text.size() <= LONGEST_DRAWN_TEXT)
        painter->drawText(rect, CENTERED, text);
    else
        painter->drawText(rect, CENTERED, text.mid((text.size() - LONGEST_DRAWN_TEXT) / 2, LONGEST_DRAWN_TEXT));
}

/// A pen from the configuration. A shape that is no pen style draws as a solid line.
QPen linePen(const QColor& color, int width, int shape)
{
    const bool known = shape >= Qt::NoPen && shape <= Qt::DashDotDotLine;
    return QPen(QBrush(color), qMax(width, 0), known ? static_cast<Qt::PenStyle>(shape) : Qt::SolidLine);
}

QRectF triangleBox(const QRectF& button)
{
    return button.adjusted(TRIANGLE_INSET, TRIANGLE_INSET, -TRIANGLE_INSET, -TRIANGLE_INSET);
}

void drawTriangle(QPainter* painter, const QPointF& apex, const QPointF& base1, const QPointF& base2)
{
    QPolygonF triangle;
    triangle << apex << base1 << base2;
    painter->drawPolygon(triangle, Qt::OddEvenFill);
}

} // namespace

void RecipeSheetItems::HMIpaint(object* properties, const QString& text, QPainter* painter, bool flag)
{
    Q_UNUSED(properties)
    Q_UNUSED(text)
    Q_UNUSED(flag)
    if (needsRepaint.exchange(false))
        refresh_displayInfo();
    drawTitleBackground(painter);
    drawTableBackground(painter);
    drawColumnTitles(painter);
    drawRowLabels(painter);
    draw_text(painter);
    draw_click_rect(painter);
    painter->setPen(Qt::NoPen);
    draw_scrollBar(painter);
    draw_block(painter);
    drawLines(painter);
    drawFrame(painter);
    drawButtons(painter);
}

void RecipeSheetItems::drawTitleBackground(QPainter* painter)
{
    painter->setPen(Qt::NoPen);
    fill(painter, titleDataRect, titleBackgroundColor);
    fill(painter, nameHeaderRect(), titleBackgroundColor);
    fill(painter, numberHeaderRect(), titleBackgroundColor);
}

/// Stripes take the place of the background: the first row of the page is an "odd" one.
void RecipeSheetItems::drawTableBackground(QPainter* painter)
{
    if (useDiffColor != 0) {
        for (int i = 0; i < stripeRects.size(); ++i)
            fill(painter, stripeRects.at(i), i % 2 == 0 ? oddColor : evenColor);
        return;
    }
    fill(painter, dataRect, frameBackgroundColor);
    fill(painter, numberColumnRect, frameBackgroundColor);
    fill(painter, nameColumnRect, frameBackgroundColor);
}

void RecipeSheetItems::drawColumnTitles(QPainter* painter)
{
    painter->setFont(titleFont);
    painter->setPen(titleTextColor);
    for (int c = 0; c < visibleColumns; ++c)
        drawCentered(painter, titleCellRect(c), getColumnName(firstColumn + c));
    drawCentered(painter, numberHeaderRect(), QObject::tr("Number"));
    drawCentered(painter, nameHeaderRect(), QObject::tr("Name"));
}

/// Rows are numbered from 0, wanted: the numbers are those of the group's table.
void RecipeSheetItems::drawRowLabels(QPainter* painter)
{
    painter->setFont(tableFont);
    painter->setPen(tableTextColor);
    painter->setBrush(QBrush(titleBackgroundColor));
    for (int r = 0; r < visibleRows; ++r) {
        drawCentered(painter, numberCellRect(r), QString::number(firstRow + r));
        drawCentered(painter, nameCellRect(r), getRowName(firstRow + r));
    }
}

void RecipeSheetItems::draw_text(QPainter* painter)
{
    painter->setFont(tableFont);
    painter->setPen(tableTextColor);
    QMutexLocker lock(&displayMutex);
    for (QMap<idx_t, cell_info_t>::const_iterator cell = displayCells.constBegin(); cell != displayCells.constEnd();
         ++cell)
        drawCentered(painter, cell->rect, cell->text);
}

void RecipeSheetItems::draw_click_rect(QPainter* painter)
{
    drawSelectedColumn(painter);
    if (selectedColumn < visibleColumns)
        drawSelectedCell(painter);
}

/// The whole recipe, in the colour that the configuration calls the row's; wanted.
void RecipeSheetItems::drawSelectedColumn(QPainter* painter)
{
    if (selectedColumn < 0 || selectedColumn >= visibleColumns)
        return;
    for (int r = 0; r < visibleRows; ++r) {
        QMutexLocker lock(&displayMutex);
        const cell_info_t cell = displayCells.value(idx_t(selectedColumn, r));
        painter->fillRect(cell.rect, selectedRowColor);
        drawCentered(painter, cell.rect, cell.text);
    }
}

/// The selected cell or title. A title that has been scrolled off to the left is still drawn at its place, over the
/// header cells; wanted.
void RecipeSheetItems::drawSelectedCell(QPainter* painter)
{
    if (selectedRow >= visibleRows)
        return;
    if (selectedRow == TITLE_ROW) {
        const QRectF rect = titleCellRect(selectedColumn);
        painter->fillRect(rect, selectedCellColor);
        drawCentered(painter, rect, getColumnName(firstColumn + selectedColumn));
        return;
    }
    QMutexLocker lock(&displayMutex);
    const QMap<idx_t, cell_info_t>::const_iterator cell = displayCells.constFind(idx_t(selectedColumn, selectedRow));
    if (cell == displayCells.constEnd())
        return;
    painter->fillRect(cell->rect, selectedCellColor);
    drawCentered(painter, cell->rect, cell->text);
}

void RecipeSheetItems::draw_scrollBar(QPainter* painter)
{
    fill(painter, horizontalBarRect, NORMAL_COLOR);
    fill(painter, verticalBarRect, NORMAL_COLOR);
    fill(painter, cornerRect(), NORMAL_COLOR);
    fill(painter, leftArrowRect, leftArrow.color);
    fill(painter, rightArrowRect, rightArrow.color);
    fill(painter, upArrowRect, upArrow.color);
    fill(painter, downArrowRect, downArrow.color);
    drawArrowTriangles(painter);
}

void RecipeSheetItems::drawArrowTriangles(QPainter* painter)
{
    painter->setPen(QPen(QBrush(triangleColor), 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->setBrush(QBrush(triangleColor));
    QRectF box = triangleBox(upArrowRect);
    drawTriangle(painter, QPointF(box.center().x(), box.top()), box.bottomLeft(), box.bottomRight());
    box = triangleBox(downArrowRect);
    drawTriangle(painter, QPointF(box.center().x(), box.bottom()), box.topLeft(), box.topRight());
    box = triangleBox(leftArrowRect);
    drawTriangle(painter, QPointF(box.left(), box.center().y()), box.topRight(), box.bottomRight());
    box = triangleBox(rightArrowRect);
    drawTriangle(painter, QPointF(box.right(), box.center().y()), box.topLeft(), box.bottomLeft());
}

void RecipeSheetItems::draw_block(QPainter* painter)
{
    dataMutex.lock();
    const QRectF vertical = verticalThumbRect();
    const QRectF horizontal = horizontalThumbRect();
    dataMutex.unlock();
    painter->setPen(Qt::NoPen);
    fill(painter, vertical, verticalThumb.color);
    fill(painter, horizontal, horizontalThumb.color);
}

/// Lines follow the configured page sizes, not the visible counts; wanted.
void RecipeSheetItems::drawLines(QPainter* painter)
{
    painter->setPen(linePen(insideLineColor, insideLineWidth, insideLineShape));
    const double top = itemRect.y();
    const double left = itemRect.x();
    const double bottom = dataRect.y() + dataRect.height();
    const double right = dataRect.x() + dataRect.width();
    if (columnLineDisplay != 0) {
        for (int k = 1; k < qMin(columnsPerPage, MOST_PAGE_LINES); ++k)
            painter->drawLine(QLineF(dataRect.x() + k * cellWidth, top, dataRect.x() + k * cellWidth, bottom));
        painter->drawLine(QLineF(nameColumnRect.x(), top, nameColumnRect.x(), bottom));
        painter->drawLine(QLineF(dataRect.x(), top, dataRect.x(), bottom));
    }
    if (rowLineDisplay != 0) {
        for (int k = 1; k < qMin(rowsPerPage, MOST_PAGE_LINES); ++k)
            painter->drawLine(QLineF(left, dataRect.y() + k * cellHeight, right, dataRect.y() + k * cellHeight));
        painter->drawLine(QLineF(left, dataRect.y(), right, dataRect.y()));
    }
}

void RecipeSheetItems::drawFrame(QPainter* painter)
{
    painter->setPen(linePen(frameLineColor, frameLineWidth, frameLineShape));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(itemRect);
}

void RecipeSheetItems::drawButtons(QPainter* painter)
{
    painter->setPen(QPen(Qt::black));
    fill(painter, saveButtonRect, saveButton.color);
    drawCentered(painter, saveButtonRect, QObject::tr("Save"));
    if (useAddDel == 0)
        return;
    fill(painter, addButtonRect, addButton.color);
    fill(painter, deleteButtonRect, deleteButton.color);
    drawCentered(painter, addButtonRect, QObject::tr("Add"));
    drawCentered(painter, deleteButtonRect, QObject::tr("Delete"));
}

void RecipeSheetItems::text_info_update(int column, int row)
{
    QMutexLocker lock(&displayMutex);
    selectedRect = displayCells.value(idx_t(column, row)).rect;
}

void RecipeSheetItems::display_error()
{
    QMutexLocker lock(&displayMutex);
    for (int r = 0; r < visibleRows; ++r) {
        for (int c = 0; c < visibleColumns; ++c) {
            cell_info_t& cell = displayCells[idx_t(c, r)];
            cell.rect = cellRect(c, r);
            cell.text = r == 0 && c == 0 ? QString::fromLatin1("ERROR") : QString();
        }
    }
}
