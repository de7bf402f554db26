// Press, drag and release; selection; scrolling.
#include "RecipeSheetItems.h"

#include "RecipeSheetThread.h"
#include "sheet_constants.h"

#include <QGraphicsSceneMouseEvent>
#include <QMutexLocker>

#include <cmath>

namespace {

/// The single-precision fuzzy rule, on every platform: |a - b| <= 0.00001 * min(|a|, |b|). A zero equals only zero.
bool sameCoordinate(double left, double right)
{
    const float a = static_cast<float>(left);
    const float b = static_cast<float>(right);
    return std::fabs(a - b) <= 0.00001f * qMin(std::fabs(a), std::fabs(b));
}

bool sameRect(const QRectF& a, const QRectF& b)
{
    return sameCoordinate(a.x(), b.x()) && sameCoordinate(a.y(), b.y()) && sameCoordinate(a.width(), b.width())
           && sameCoordinate(a.height(), b.height());
}

/// A position that is no number lies, to QRectF, in every rectangle: on Delete too.
bool isSomewhere(const QPointF& position)
{
    return position.x() == position.x() && position.y() == position.y();
}

} // namespace

// --- what the runtime calls --------------------------------------------------------------------------------------

void RecipeSheetItems::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointF position = event->pos();
    if (!isSomewhere(position))
        return;
    deal_move_press(position);
    deal_data_press(position);
    deal_title_press(position);
    deal_save_press(position);
    if (useAddDel != 0) {
        deal_add_press(position);
        deal_delete_press(position);
    }
    QGraphicsItem::mousePressEvent(event);
    needsRepaint = true;
    if (needsTouchFeedback(position)) {
        setTouchVoiceItem(this);
        update();
    }
}

/// Add and Delete are not asked, wanted: pressing them alone gives neither sound nor an immediate repaint.
bool RecipeSheetItems::needsTouchFeedback(const QPointF& position) const
{
    return dataRect.contains(position) || titleDataRect.contains(position) || horizontalThumb.held || verticalThumb.held
           || upArrow.held || downArrow.held || leftArrow.held || rightArrow.held || cellPressed || saveButton.held;
}

void RecipeSheetItems::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointF position = event->pos();
    if (horizontalThumb.held)
        drag(columnDirection(), position.x() - lastDragPosition.x(), position);
    else if (verticalThumb.held)
        drag(rowDirection(), position.y() - lastDragPosition.y(), position);
    update();
    QGraphicsItem::mouseMoveEvent(event);
}

void RecipeSheetItems::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointF position = event->pos();
    deal_move_Release(position);
    deal_data_Release(position);
    deal_save_Release(position);
    if (useAddDel != 0) {
        deal_add_Release(position);
        deal_delete_Release(position);
    }
    QGraphicsItem::mouseReleaseEvent(event);
    needsRepaint = true;
    update();
}

// --- arrows and thumbs -------------------------------------------------------------------------------------------

void RecipeSheetItems::deal_move_press(const QPointF& position)
{
    dataMutex.lock();
    const QRectF vertical = verticalThumbRect();
    const QRectF horizontal = horizontalThumbRect();
    dataMutex.unlock();

    if (leftArrowRect.contains(position)) {
        leftArrow.press(PRESSED_COLOR);
    } else if (rightArrowRect.contains(position)) {
        rightArrow.press(PRESSED_COLOR);
    } else if (upArrowRect.contains(position)) {
        upArrow.press(PRESSED_COLOR);
    } else if (downArrowRect.contains(position)) {
        downArrow.press(PRESSED_COLOR);
    } else if (vertical.contains(position)) {
        verticalThumb.press(BLOCK_PRESSED_COLOR);
        lastDragPosition = position;
    } else if (horizontal.contains(position)) {
        horizontalThumb.press(BLOCK_PRESSED_COLOR);
        lastDragPosition = position;
    }
}

/// An arrow acts once, on release, wherever the pointer is then; wanted.
void RecipeSheetItems::deal_move_Release(const QPointF& position)
{
    Q_UNUSED(position)
    checkAndLoadRequiredBlocks();
    if (leftArrow.held) {
        leftArrow.release(NORMAL_COLOR);
        stepByArrow(columnDirection(), -1);
    } else if (rightArrow.held) {
        rightArrow.release(NORMAL_COLOR);
        stepByArrow(columnDirection(), 1);
    } else if (upArrow.held) {
        upArrow.release(NORMAL_COLOR);
        stepByArrow(rowDirection(), -1);
    } else if (downArrow.held) {
        downArrow.release(NORMAL_COLOR);
        stepByArrow(rowDirection(), 1);
    }
    horizontalThumb.release(THUMB_COLOR);
    verticalThumb.release(THUMB_COLOR);
}

RecipeSheetItems::Direction RecipeSheetItems::columnDirection()
{
    const Direction direction = {columnAxis, firstColumn, selectedColumn, columnStep};
    return direction;
}

RecipeSheetItems::Direction RecipeSheetItems::rowDirection()
{
    const Direction direction = {rowAxis, firstRow, selectedRow, rowStep};
    return direction;
}

void RecipeSheetItems::stepByArrow(const Direction& direction, int lines)
{
    {
        QMutexLocker lock(&dataMutex);
        const bool possible = lines < 0 ? direction.first > 0 : direction.first < direction.axis.largestFirst;
        if (!possible)
            return;
        direction.axis.thumbStart += lines * direction.axis.stepDistance;
        scrollBy(direction, lines);
    }
    text_info_update(selectedColumn, selectedRow);
}

/// At most one step per event. Without one the last position stays, so that small moves add up.
void RecipeSheetItems::drag(const Direction& direction, double delta, const QPointF& position)
{
    ScrollAxis::Move move;
    {
        QMutexLocker lock(&dataMutex);
        move = direction.axis.drag(delta, direction.first, direction.jumpWidth);
        scrollBy(direction, move.lines);
    }
    if (!move.taken)
        return;
    lastDragPosition = position;
    text_info_update(selectedColumn, selectedRow);
    if (move.lines != 0) {
        checkAndLoadRequiredBlocks();
        refresh_displayInfo();
    }
}

/// Under dataMutex. The selection counts from the first visible line: it moves against the scroll and so stays on its
/// recipe and item, also when that leaves the page.
void RecipeSheetItems::scrollBy(const Direction& direction, int lines)
{
    direction.first += lines;
    direction.selected -= lines;
}

// --- cells and titles --------------------------------------------------------------------------------------------

bool RecipeSheetItems::isSelectedRect(const QRectF& rect) const
{
    return sameRect(rect, selectedRect);
}

void RecipeSheetItems::select(int visibleColumn, int visibleRow, const QRectF& rect)
{
    selectedRect = rect;
    selectedRow = visibleRow;
    selectedColumn = visibleColumn;
    updateRecipeGroupIndexAddr(groupIndex, firstColumn + visibleColumn);
}

/// A touch on the line between two titles selects both in turn; the last one stays.
void RecipeSheetItems::deal_title_press(const QPointF& position)
{
    if (!titleDataRect.contains(position))
        return;
    for (int c = 0; c < visibleColumns; ++c) {
        const QRectF rect = titleCellRect(c);
        if (!rect.contains(position))
            continue;
        if (isSelectedRect(rect)) {
            openTitleKeyboard();
            return;
        }
        select(c, TITLE_ROW, rect);
    }
}

void RecipeSheetItems::deal_data_press(const QPointF& position)
{
    if (dataRect.contains(position)) {
        // The touched cells are collected first: selecting one calls the runtime, and that without a lock.
        const QList<touched_cell_t> cells = visibleCellsAt(position);
        for (int i = 0; i < cells.size(); ++i) {
            if (!tapCell(cells.at(i)))
                break;
        }
    }
    cellPressed = false;
}

QList<RecipeSheetItems::touched_cell_t> RecipeSheetItems::visibleCellsAt(const QPointF& position) const
{
    QList<touched_cell_t> touched;
    QMutexLocker lock(&displayMutex);
    for (QMap<idx_t, cell_info_t>::const_iterator cell = displayCells.constBegin(); cell != displayCells.constEnd();
         ++cell) {
        if (!cell->rect.contains(position))
            continue;
        if (cell.key().first >= visibleColumns || cell.key().second >= visibleRows)
            break;
        touched.append(touched_cell_t(cell.key(), cell->rect));
    }
    return touched;
}

/// A second tap edits, a first one selects. False: the tap is dealt with, neighbours on the same line get no part.
bool RecipeSheetItems::tapCell(const touched_cell_t& cell)
{
    if (!isSelectedRect(cell.second)) {
        select(cell.first.first, cell.first.second, cell.second);
        return true;
    }
    dataMutex.lock();
    const bool exists = firstRow + selectedRow < itemCount;
    dataMutex.unlock();
    if (exists)
        openCellKeyboard();
    return false;
}

void RecipeSheetItems::deal_data_Release(const QPointF& position)
{
    Q_UNUSED(position)
}

void RecipeSheetItems::selectCol(int column)
{
    bool scrolled = false;
    {
        QMutexLocker lock(&dataMutex);
        if (column < 0 || column >= recipeCount)
            return;
        const int visible = column - firstColumn;
        if (visible >= 0 && visible < visibleColumns) {
            selectedColumn = visible;
        } else {
            // Near the end the last page stays full.
            firstColumn = column + visibleColumns > recipeCount ? recipeCount - visibleColumns : column;
            selectedColumn = column - firstColumn;
            scrolled = true;
        }
    }
    if (scrolled)
        checkAndLoadRequiredBlocks();
    QMutexLocker lock(&dataMutex);
    computeThumb();
    needsRepaint = true;
}

// --- buttons -----------------------------------------------------------------------------------------------------

void RecipeSheetItems::deal_save_press(const QPointF& position)
{
    if (saveButtonRect.contains(position))
        saveButton.press(BUTTON_PRESSED_COLOR);
}

void RecipeSheetItems::deal_add_press(const QPointF& position)
{
    if (addButtonRect.contains(position))
        addButton.press(BUTTON_PRESSED_COLOR);
}

void RecipeSheetItems::deal_delete_press(const QPointF& position)
{
    if (deleteButtonRect.contains(position))
        deleteButton.press(BUTTON_PRESSED_COLOR);
}

void RecipeSheetItems::deal_save_Release(const QPointF& position)
{
    Q_UNUSED(position)
    if (!saveButton.held)
        return;
    saveButton.release(BUTTON_COLOR);
    if (workerIsBusy())
        postBusy();
    else
        saveRecipeFile();
}

void RecipeSheetItems::deal_add_Release(const QPointF& position)
{
    Q_UNUSED(position)
    if (!addButton.held)
        return;
    addButton.release(BUTTON_COLOR);
    addRecipe();
}

void RecipeSheetItems::deal_delete_Release(const QPointF& position)
{
    Q_UNUSED(position)
    if (!deleteButton.held)
        return;
    deleteButton.release(BUTTON_COLOR);
    deleteRecipe();
}
