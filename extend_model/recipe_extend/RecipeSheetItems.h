// The item "RecipeSheet": one recipe group as a paged grid. Rows are the group's items, columns are recipes.
//
// Threads. Everything runs on the runtime's GUI thread, except replace and onThreadFinished, which the worker calls.
//   dataMutex     guards what the worker's completion changes: recipeCount, itemCount, columnNames, rowNames and their
//                 flags, blocks, accessCounter, readsMissed, titlesMissed, both scroll axes with columnStep and
//                 rowStep, editedCells. firstColumn, firstRow and the configuration that the completion reads are
//                 written under it too; the GUI thread, their only writer, reads them without.
//   displayMutex  guards displayCells.
// The two are never held together, and neither is held while the runtime is called: it may call back at once. Below
// dataMutex only RecipeDB's own mutex is taken.
//
// Coordinates: item coordinates in pixels. "Row" and "column" are absolute indices in the group; "visible" ones count
// from firstRow and firstColumn.
#ifndef RECIPE_SHEET_ITEMS_H
#define RECIPE_SHEET_ITEMS_H

#include "HMIBaseItem.h"
#include "recipe_export.h"
#include "recipe_records.h"
#include "sheet_scroll.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QMap>
#include <QMutex>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

#include <atomic>

class QPainter;
class RecipeDB;
class RecipeSheetThread;

class RecipeSheetItems : public HMIBaseItem
{
public:
    /// A rectangle of cell texts as loaded from the file: recipes [colStart, colEnd), items [rowStart, rowEnd).
    struct DataBlock
    {
        int colStart;
        int colEnd;
        int rowStart;
        int rowEnd;
        QVector<recipeItemInfo_t> items;      ///< one per held item, `values` in column order
        QVector<QVector<QString> > rawValues; ///< the same values, one list per held recipe
        bool loading;                         ///< created, data not there yet
        int lastAccess;                       ///< accessCounter at the last load or hit

        DataBlock() : colStart(0), colEnd(0), rowStart(0), rowEnd(0), loading(false), lastAccess(0) {}
    };

    /// A register in the runtime's terms.
    struct RegisterDescriptor
    {
        QString areaName;
        QString registerType;
        int address;
        int subAddress;
        int wordCount;
        int spare;

        RegisterDescriptor() : address(-1), subAddress(-1), wordCount(0), spare(0) {}
        RegisterDescriptor(const QString& area, const QString& type, int registerAddress)
            : areaName(area), registerType(type), address(registerAddress), subAddress(-1), wordCount(1), spare(0)
        {}
    };

    /// Opens the recipe file of the running project, if there is one.
    RecipeSheetItems();
    /// Leaves the recipe file open, the worker alone and s_instance as it is.
    ~RecipeSheetItems() override;

    /// The item built last; never cleared, also not by its destruction. Wanted: there is one sheet that takes the
    /// worker's results.
    static std::atomic<RecipeSheetItems*> s_instance;

    // --- what the runtime calls ----------------------------------------------------------------------------------
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    using HMIBaseItem::setInterfaceByRequirement;
    /// "comm": the item needs the communication interface.
    QString getRequirement() override;
    /// Takes the interface from a list of exactly one element; any other list changes nothing.
    void setInterfaceByRequirement(QList<void*> interfaces) override;
    /// A register or the reload notification changed (bit value 4 of the mask). 1: dealt with, 0: not for the sheet.
    int update_result(int mask) override;
    /// Fetches the property object, configures the item and appends the two registers it watches. Always 0; without a
    /// property object nothing is done and the runtime may call again.
    int getMonitorAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys) override;
    /// Draws the sheet; all arguments but the painter are ignored.
    void HMIpaint(object* properties, const QString& text, QPainter* painter, bool flag) override;
    // The next three open slots of their own behind the base's, in this order.
    /// Takes the text that the operator accepted on the keyboard. Nothing is checked: the keyboard did.
    void keyboardReflash(const QString& text) override;
    /// Appends the reload notification.
    virtual void setUpdateAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys);
    /// Asks all sheets to reload.
    virtual void updateTable();

    // --- configuration and titles --------------------------------------------------------------------------------
    /// Reads the configuration, the first block and the titles, computes the geometry. May be called again.
    void init();
    /// Loads the whole group into `table`. Nothing in the normal flow calls it.
    void initRecipeFile();
    /// Read the titles once; a load that failed is not tried again.
    void loadRowNames();
    void loadColumnNames();
    /// The item's title, or "Row<i>" where there is none.
    QString getRowName(int row);
    /// The recipe's title, or "Col<i>" where there is none.
    QString getColumnName(int column);

    // --- block cache ---------------------------------------------------------------------------------------------
    /// Block (column, row) that holds the cell; mind the order.
    idx_t getBlockIndex(int row, int column) const;
    bool isDataBlockLoaded(int blockRow, int blockColumn) const;
    /// Loads a block; one that is there is read again only with `force`. A failed read leaves no entry. While a job of
    /// the worker uses the file nothing is read: a block that is there stays as it is, a missing one is entered as
    /// "loading", and the end of the job, or the next look at the required blocks, reads them.
    void loadDataBlock(int blockRow, int blockColumn, bool force);
    /// Loads what the page and its margin need, then evicts at most one block.
    void checkAndLoadRequiredBlocks();
    void cleanupOldBlocks();
    /// The cell's text; empty where no block holds it, "Loading..." while its block is on the way.
    QString getDataFromBlocks(int row, int column) const;
    /// Fills displayCells from the cache.
    void refresh_displayInfo();

    // --- registers -----------------------------------------------------------------------------------------------
    /// Reads the recipe-index register; true when it differs from the last time.
    bool recipeIndexChanged();
    /// Reads the group-index register and drops the value: the sheet never follows it. Wanted.
    void recipeGroupIndexChanged();
    /// Publishes the selection.
    void updateRecipeGroupIndexAddr(int group, int recipe);

    // --- drawing -------------------------------------------------------------------------------------------------
    void draw_text(QPainter* painter);
    void draw_click_rect(QPainter* painter);
    void draw_scrollBar(QPainter* painter);
    void draw_block(QPainter* painter);
    /// Places both thumbs. Call it with dataMutex held.
    void computeThumb();
    /// The selected cell's rectangle becomes that of the visible cell, or all zeros where there is none.
    void text_info_update(int column, int row);
    /// Empties all visible cells and writes "ERROR" into the first.
    void display_error();

    // --- touch ---------------------------------------------------------------------------------------------------
    void deal_move_press(const QPointF& position);
    void deal_data_press(const QPointF& position);
    void deal_title_press(const QPointF& position);
    void deal_save_press(const QPointF& position);
    void deal_add_press(const QPointF& position);
    void deal_delete_press(const QPointF& position);
    void deal_move_Release(const QPointF& position);
    void deal_data_Release(const QPointF& position);
    void deal_save_Release(const QPointF& position);
    void deal_add_Release(const QPointF& position);
    void deal_delete_Release(const QPointF& position);
    /// Brings a recipe into view and selects it; out of range nothing happens.
    void selectCol(int column);

    // --- editing -------------------------------------------------------------------------------------------------
    /// Writes the pending edits. False: no open file or nothing pending.
    bool saveRecipeFile();
    /// Ask the operator, save, start the worker. False: busy or refused.
    bool addRecipe();
    bool deleteRecipe();
    /// Worker thread. The worker's result; forwards to the item built last.
    static void replace(bool ok, int columns, int rows);
    /// Worker thread. Takes the new size of the group and reloads titles and cached blocks.
    void onThreadFinished(bool ok, int columns, int rows);

private:
    friend class RecipeSheetProbe;     // tests
    friend class RecipeSheetInspector; // tells a desk what the sheet shows

    /// One button, arrow or thumb: what it looks like and whether it is held.
    struct Handle
    {
        QColor color;
        bool held;

        Handle() : held(false) {}
        void press(const QColor& pressedColor)
        {
            color = pressedColor;
            held = true;
        }
        void release(const QColor& normalColor)
        {
            color = normalColor;
            held = false;
        }
    };

    /// A visible cell with its rectangle.
    typedef QPair<idx_t, QRectF> touched_cell_t;

    /// What a drag or an arrow works on: one direction of the sheet.
    struct Direction
    {
        ScrollAxis& axis;
        int& first;
        int& selected;
        const int& jumpWidth;
    };

    // configuration
    void readProperties();
    object* languageObject() const;
    void setFixedColors();
    bool loadConfiguration();
    void computeGeometry();
    void computeStripes();

    // geometry: the only place where rectangles come from
    QRectF cellRect(int visibleColumn, int visibleRow) const;
    QRectF titleCellRect(int visibleColumn) const;
    QRectF numberHeaderRect() const;
    QRectF nameHeaderRect() const;
    QRectF numberCellRect(int visibleRow) const;
    QRectF nameCellRect(int visibleRow) const;
    QRectF cornerRect() const;
    QRectF verticalThumbRect() const;
    QRectF horizontalThumbRect() const;

    // drawing, in the order of HMIpaint
    void drawTitleBackground(QPainter* painter);
    void drawTableBackground(QPainter* painter);
    void drawColumnTitles(QPainter* painter);
    void drawRowLabels(QPainter* painter);
    void drawArrowTriangles(QPainter* painter);
    void drawLines(QPainter* painter);
    void drawFrame(QPainter* painter);
    void drawButtons(QPainter* painter);
    void drawSelectedColumn(QPainter* painter);
    void drawSelectedCell(QPainter* painter);

    // touch
    Direction columnDirection();
    Direction rowDirection();
    void scrollBy(const Direction& direction, int lines);
    void stepByArrow(const Direction& direction, int lines);
    void drag(const Direction& direction, double delta, const QPointF& position);
    bool needsTouchFeedback(const QPointF& position) const;
    bool isSelectedRect(const QRectF& rect) const;
    void select(int visibleColumn, int visibleRow, const QRectF& rect);
    QList<touched_cell_t> visibleCellsAt(const QPointF& position) const;
    bool tapCell(const touched_cell_t& cell);

    // editing
    void openCellKeyboard();
    bool findItem(int row, int column, recipeItemInfo_t& item);
    void openTitleKeyboard();
    void postKeyboardRequest();
    void takeTitle(const QString& text);
    void takeCell(const QString& text);
    void savePending();
    bool writePendingTitles();
    void writePendingCells();
    bool workerIsBusy() const;
    void postBusy() const;
    bool prepareJob();
    void startWorker(int operation);

    // under dataMutex
    void loadNames(int kind, QVector<QVector<QString> >& names, bool& loaded);
    QString nameAt(const QVector<QVector<QString> >& names, int index, const char* placeholder) const;
    bool hasData(int blockRow, int blockColumn) const;
    void loadBlock(int blockRow, int blockColumn, bool force);
    void showPendingEdits(DataBlock& block);
    void evictOldestBlock();
    QString cachedText(int row, int column) const;
    void reloadCachedBlocks();
    void reloadMissedTitles();

    QString itemName;
    RecipeDB* db; // not owned
    recipeTableInfo_t table;
    RegisterDescriptor spareRegister; // not used
    RegisterDescriptor groupIndexRegister;
    RegisterDescriptor recipeIndexRegister;
    int currentRecipe; // recipe index last read from recipeIndexRegister
    int groupIndex;
    int nameLanguage; // index into each title's languages; never changed
    int titleHeight;
    int usePage;
    int columnLineDisplay;
    int rowLineDisplay;
    int recipeCount;
    int itemCount;
    int rowsPerPage;
    int columnsPerPage;
    int visibleRows;
    int visibleColumns;
    QColor frameBackgroundColor;
    QColor titleBackgroundColor;
    QColor frameLineColor;
    QColor insideLineColor;
    int frameLineWidth;
    int insideLineWidth;
    int frameLineShape;
    int insideLineShape;
    int titleTextPixelSize;
    int tableTextPixelSize;
    QString titleFontFamily;
    QFont titleFont;
    QString tableFontFamily;
    QFont tableFont;
    QColor titleTextColor;
    QColor tableTextColor;
    QRectF horizontalBarRect;
    QRectF horizontalTrackRect;
    QRectF leftArrowRect;
    QRectF rightArrowRect;
    QRectF verticalBarRect;
    QRectF verticalTrackRect;
    QRectF upArrowRect;
    QRectF downArrowRect;
    ScrollAxis columnAxis; // the horizontal thumb
    ScrollAxis rowAxis;    // the vertical thumb
    QRectF numberColumnRect;
    QRectF nameColumnRect;
    QRectF titleDataRect;
    QRectF dataRect;
    QRectF itemRect; // the boundingRect() all others come from
    int columnStep;  // recipes per jump of a thumb at its smallest size
    int rowStep;     // items per jump
    QMap<idx_t, cell_info_t> displayCells;
    int selectedRow; // visible; NOTHING_SELECTED, or TITLE_ROW for a recipe's title
    int selectedColumn;
    QRectF selectedRect;
    QPointF lastDragPosition;
    int vScrollWidth;
    int arrowLength;
    int hScrollHeight;
    int arrowLength2;
    double cellWidth;
    double cellHeight;
    QRectF saveButtonRect;
    QRectF addButtonRect;
    QRectF deleteButtonRect;
    QRectF buttonBarRect;
    double buttonBarHeight;
    int firstColumn;
    int firstRow;
    KeyboardParameters keyboard;      // what the keyboard is told
    InterfaceAll keyboardInterface;   // its callArguments are the arguments of the keyboard request
    QMap<idx_t, QString> editedCells; // pending, by (column, row)
    QList<int> editedList;            // columns with a pending title, in order of editing, repeats allowed
    Handle saveButton;
    Handle addButton;
    Handle deleteButton;
    Handle leftArrow;
    Handle rightArrow;
    Handle upArrow;
    Handle downArrow;
    Handle horizontalThumb;
    Handle verticalThumb;
    QColor triangleColor;
    bool cellPressed;
    QColor selectedRowColor;
    QColor selectedCellColor;
    int nameWidth;
    mutable QMutex displayMutex;    // alone: never with dataMutex, never while the runtime is called
    std::atomic<bool> needsRepaint; // the next paint refreshes displayCells; the worker sets it too
    int blockColumns;
    int blockRows;
    int maxBlocks;
    QMap<idx_t, DataBlock> blocks; // by (block column, block row)
    int accessCounter;
    bool readsMissed;                       // blocks were wanted while a job used the file
    bool titlesMissed;                      // recipes' titles could not be written, or not be read after a job
    QVector<QVector<QString> > columnNames; // per recipe its title per language
    QVector<QVector<QString> > rowNames;    // per item
    bool columnNamesLoaded;
    bool rowNamesLoaded;
    int useDiffColor;
    QColor oddColor;
    QColor evenColor;
    QList<QRectF> stripeRects;
    int useAddDel;
    RecipeSheetThread* worker; // not owned; null until init
    mutable QMutex dataMutex;  // likewise; RecipeDB's mutex may be taken below it
};

// --- entry points of the library ---------------------------------------------------------------------------------

extern "C" {
/// The item type's name; needs no item.
RECIPE_EXPORT QString getItemName();
/// A new item; the caller owns it.
RECIPE_EXPORT RecipeSheetItems* createItem();
}

/// A property object named by the second argument; the first is ignored, wanted.
RECIPE_EXPORT object* item_object_create(QString typeName, QString objectName);

#endif
