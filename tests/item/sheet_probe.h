// Looks inside an item. Everything is a reference to the item's own field, for reading and for setting up a state that
// is tedious to reach from outside. No locks are taken: with a worker running, hold dataMutex() or displayMutex().
#ifndef SHEET_PROBE_H
#define SHEET_PROBE_H

#include "RecipeSheetItems.h"
#include "RecipeSheetThread.h"
#include "sheet_constants.h"

class RecipeSheetProbe
{
public:
    explicit RecipeSheetProbe(RecipeSheetItems& item) : m(item) {}

    typedef RecipeSheetItems::DataBlock DataBlock;
    typedef RecipeSheetItems::RegisterDescriptor RegisterDescriptor;
    typedef RecipeSheetItems::Handle Handle; ///< colour and "held" of a button, arrow or thumb

    RecipeSheetItems& item() { return m; }

    // what the base holds
    object*& properties() { return m.m_object; }
    InterfaceComm*& comm() { return m.m_comm; }
    int& languageNumber() { return m.m_languageNumber; }

    // identity, file, registers
    QString& itemName() { return m.itemName; }
    RecipeDB*& db() { return m.db; }
    recipeTableInfo_t& table() { return m.table; }
    RegisterDescriptor& spareRegister() { return m.spareRegister; }
    RegisterDescriptor& groupIndexRegister() { return m.groupIndexRegister; }
    RegisterDescriptor& recipeIndexRegister() { return m.recipeIndexRegister; }
    int& currentRecipe() { return m.currentRecipe; }
    int& groupIndex() { return m.groupIndex; }
    int& nameLanguage() { return m.nameLanguage; }

    // configuration
    int& titleHeight() { return m.titleHeight; }
    int& nameWidth() { return m.nameWidth; }
    int& usePage() { return m.usePage; }
    int& columnLineDisplay() { return m.columnLineDisplay; }
    int& rowLineDisplay() { return m.rowLineDisplay; }
    int& rowsPerPage() { return m.rowsPerPage; }
    int& columnsPerPage() { return m.columnsPerPage; }
    int& visibleRows() { return m.visibleRows; }
    int& visibleColumns() { return m.visibleColumns; }
    QColor& frameBackgroundColor() { return m.frameBackgroundColor; }
    QColor& titleBackgroundColor() { return m.titleBackgroundColor; }
    QColor& frameLineColor() { return m.frameLineColor; }
    QColor& insideLineColor() { return m.insideLineColor; }
    QColor& titleTextColor() { return m.titleTextColor; }
    QColor& tableTextColor() { return m.tableTextColor; }
    QColor& selectedRowColor() { return m.selectedRowColor; }
    QColor& selectedCellColor() { return m.selectedCellColor; }
    QColor& oddColor() { return m.oddColor; }
    QColor& evenColor() { return m.evenColor; }
    QColor& triangleColor() { return m.triangleColor; }
    int& frameLineWidth() { return m.frameLineWidth; }
    int& insideLineWidth() { return m.insideLineWidth; }
    int& frameLineShape() { return m.frameLineShape; }
    int& insideLineShape() { return m.insideLineShape; }
    int& titleTextPixelSize() { return m.titleTextPixelSize; }
    int& tableTextPixelSize() { return m.tableTextPixelSize; }
    QString& titleFontFamily() { return m.titleFontFamily; }
    QString& tableFontFamily() { return m.tableFontFamily; }
    QFont& titleFont() { return m.titleFont; }
    QFont& tableFont() { return m.tableFont; }
    int& useDiffColor() { return m.useDiffColor; }
    int& useAddDel() { return m.useAddDel; }

    // the group
    int& recipeCount() { return m.recipeCount; }
    int& itemCount() { return m.itemCount; }
    QVector<QVector<QString> >& columnNames() { return m.columnNames; }
    QVector<QVector<QString> >& rowNames() { return m.rowNames; }
    bool& columnNamesLoaded() { return m.columnNamesLoaded; }
    bool& rowNamesLoaded() { return m.rowNamesLoaded; }

    // geometry
    QRectF& itemRect() { return m.itemRect; }
    QRectF& dataRect() { return m.dataRect; }
    QRectF& titleDataRect() { return m.titleDataRect; }
    QRectF& numberColumnRect() { return m.numberColumnRect; }
    QRectF& nameColumnRect() { return m.nameColumnRect; }
    QRectF& horizontalBarRect() { return m.horizontalBarRect; }
    QRectF& horizontalTrackRect() { return m.horizontalTrackRect; }
    QRectF& leftArrowRect() { return m.leftArrowRect; }
    QRectF& rightArrowRect() { return m.rightArrowRect; }
    QRectF& verticalBarRect() { return m.verticalBarRect; }
    QRectF& verticalTrackRect() { return m.verticalTrackRect; }
    QRectF& upArrowRect() { return m.upArrowRect; }
    QRectF& downArrowRect() { return m.downArrowRect; }
    QRectF& buttonBarRect() { return m.buttonBarRect; }
    QRectF& saveButtonRect() { return m.saveButtonRect; }
    QRectF& addButtonRect() { return m.addButtonRect; }
    QRectF& deleteButtonRect() { return m.deleteButtonRect; }
    QList<QRectF>& stripeRects() { return m.stripeRects; }
    double& cellWidth() { return m.cellWidth; }
    double& cellHeight() { return m.cellHeight; }
    double& buttonBarHeight() { return m.buttonBarHeight; }
    int& vScrollWidth() { return m.vScrollWidth; }
    int& hScrollHeight() { return m.hScrollHeight; }
    int& arrowLength() { return m.arrowLength; }
    int& arrowLength2() { return m.arrowLength2; }
    QRectF cellRect(int visibleColumn, int visibleRow) const { return m.cellRect(visibleColumn, visibleRow); }
    QRectF titleCellRect(int visibleColumn) const { return m.titleCellRect(visibleColumn); }
    QRectF numberHeaderRect() const { return m.numberHeaderRect(); }
    QRectF nameHeaderRect() const { return m.nameHeaderRect(); }
    QRectF numberCellRect(int visibleRow) const { return m.numberCellRect(visibleRow); }
    QRectF nameCellRect(int visibleRow) const { return m.nameCellRect(visibleRow); }
    QRectF cornerRect() const { return m.cornerRect(); }
    QRectF verticalThumbRect() const { return m.verticalThumbRect(); }
    QRectF horizontalThumbRect() const { return m.horizontalThumbRect(); }

    // scrolling and selection
    ScrollAxis& columnAxis() { return m.columnAxis; }
    ScrollAxis& rowAxis() { return m.rowAxis; }
    int& columnStep() { return m.columnStep; }
    int& rowStep() { return m.rowStep; }
    int& firstColumn() { return m.firstColumn; }
    int& firstRow() { return m.firstRow; }
    int& selectedRow() { return m.selectedRow; }
    int& selectedColumn() { return m.selectedColumn; }
    QRectF& selectedRect() { return m.selectedRect; }
    QPointF& lastDragPosition() { return m.lastDragPosition; }

    // touch state
    Handle& saveButton() { return m.saveButton; }
    Handle& addButton() { return m.addButton; }
    Handle& deleteButton() { return m.deleteButton; }
    Handle& leftArrow() { return m.leftArrow; }
    Handle& rightArrow() { return m.rightArrow; }
    Handle& upArrow() { return m.upArrow; }
    Handle& downArrow() { return m.downArrow; }
    Handle& horizontalThumb() { return m.horizontalThumb; }
    Handle& verticalThumb() { return m.verticalThumb; }
    bool& cellPressed() { return m.cellPressed; }

    // cells and blocks
    std::atomic<bool>& needsRepaint() { return m.needsRepaint; }
    QMap<idx_t, cell_info_t>& displayCells() { return m.displayCells; }
    /// The text of a visible cell; null where there is none.
    QString cellText(int visibleColumn, int visibleRow) const
    {
        return m.displayCells.value(idx_t(visibleColumn, visibleRow)).text;
    }
    QMap<idx_t, DataBlock>& blocks() { return m.blocks; }
    int& blockColumns() { return m.blockColumns; }
    int& blockRows() { return m.blockRows; }
    int& maxBlocks() { return m.maxBlocks; }
    int& accessCounter() { return m.accessCounter; }

    // editing
    KeyboardParameters& keyboard() { return m.keyboard; }
    InterfaceAll& keyboardInterface() { return m.keyboardInterface; }
    QMap<idx_t, QString>& editedCells() { return m.editedCells; }
    QList<int>& editedList() { return m.editedList; }

    // worker and locks
    RecipeSheetThread*& worker() { return m.worker; }
    QMutex& dataMutex() { return m.dataMutex; }
    QMutex& displayMutex() { return m.displayMutex; }

private:
    RecipeSheetItems& m;
};

#endif
