// Entry points, construction, configuration, geometry and titles.
#include "RecipeSheetItems.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "recipe_tools.h"
#include "sheet_constants.h"

#include <QMutexLocker>

// --- entry points ------------------------------------------------------------------------------------------------

QString getItemName()
{
    return QString::fromLatin1("RecipeSheet");
}

RecipeSheetItems* createItem()
{
    return new RecipeSheetItems;
}

object* item_object_create(QString typeName, QString objectName)
{
    Q_UNUSED(typeName)
    object* created = object_create(objectName.toUtf8().constData());
    property_set_type(created, 1);
    return created;
}

// --- construction ------------------------------------------------------------------------------------------------

std::atomic<RecipeSheetItems*> RecipeSheetItems::s_instance(nullptr);

RecipeSheetItems::RecipeSheetItems()
    : itemName(QString::fromLatin1("RecipeSheet")), db(RecipeDB::getInstance()),
      groupIndexRegister(QString::fromLatin1("Internal storage area"), QString::fromLatin1("LW"), 60802),
      recipeIndexRegister(QString::fromLatin1("Internal storage area"), QString::fromLatin1("LW"), 60803),
      currentRecipe(0), groupIndex(0), nameLanguage(0), titleHeight(30), usePage(0), columnLineDisplay(0),
      rowLineDisplay(0), recipeCount(0), itemCount(0), rowsPerPage(0), columnsPerPage(0), visibleRows(0),
      visibleColumns(0), frameLineWidth(0), insideLineWidth(0), frameLineShape(0), insideLineShape(0),
      titleTextPixelSize(0), tableTextPixelSize(0), columnStep(1), rowStep(1), selectedRow(NOTHING_SELECTED),
      selectedColumn(NOTHING_SELECTED), vScrollWidth(30), arrowLength(30), hScrollHeight(30), arrowLength2(30),
      cellWidth(0), cellHeight(0), buttonBarHeight(40.0), firstColumn(0), firstRow(0), cellPressed(false), nameWidth(0),
      needsRepaint(false), blockColumns(50), blockRows(100), maxBlocks(6), accessCounter(0), readsMissed(false),
      titlesMissed(false), columnNamesLoaded(false), rowNamesLoaded(false), useDiffColor(0), useAddDel(0),
      worker(nullptr)
{
    object* project = sys_base_get_app_pro()->project;
    if (project)
        db->OpenRecipeFile(getRcpFilePath(project));
    s_instance = this;
}

RecipeSheetItems::~RecipeSheetItems() {}

// --- configuration -----------------------------------------------------------------------------------------------

void RecipeSheetItems::init()
{
    readProperties();
    if (m_comm)
        m_comm->readWords(0, recipeIndexRegister.address, 1, &currentRecipe);
    setFixedColors();

    const bool configured = loadConfiguration();
    loadColumnNames();
    loadRowNames();
    loadDataBlock(0, 0, false);

    computeGeometry();
    computeStripes();
    if (configured)
        refresh_displayInfo();
    else
        display_error();
    if (!worker)
        worker = RecipeSheetThread::getInstance();
}

/// The property child of the current language, or that of the first.
object* RecipeSheetItems::languageObject() const
{
    const QString name = QString::fromLatin1("Language%1").arg(m_languageNumber);
    object* language = object_get_child(m_object, name.toUtf8().constData());
    return language ? language : object_get_child(m_object, "Language1");
}

void RecipeSheetItems::readProperties()
{
    object* const item = m_object;
    object* const language = languageObject();
    const QColor black(0, 0, 0, 255);
    const QString simsun = QString::fromLatin1("Simsun");
    const auto number = [](object* from, const char* key, int fallback) {
        return object_get_property_value_type_int32(from, key, fallback);
    };
    const auto color = [&black](object* from, const char* key) {
        return object_get_property_value_type_color(from, key, black);
    };
    const auto text = [](object* from, const char* key, const QString& fallback) {
        return object_get_property_value_type_string(from, key, fallback);
    };

    usePage = number(item, "use_page", 0);
    columnLineDisplay = number(item, "column_line_display", 0);
    rowLineDisplay = number(item, "row_line_display", 0);
    frameBackgroundColor = color(item, "frame_background_color");
    titleBackgroundColor = color(item, "title_background_color");
    frameLineColor = color(item, "frame_line_color");
    insideLineColor = color(item, "inside_line_color");
    titleTextColor = color(language, "title_text_color");
    tableTextColor = color(language, "table_text_color");
    selectedRowColor = color(item, "selected_row_color");
    selectedCellColor = color(item, "selected_cell_color");
    frameLineWidth = number(item, "frameLineWidth", 0);
    insideLineWidth = number(item, "insideLineWidth", 0);
    frameLineShape = number(item, "frameLineShape", 1);
    insideLineShape = number(item, "insideLineShape", 1);
    titleHeight = number(item, "title_hight", 0);
    nameWidth = number(item, "name_width", 0);
    titleTextPixelSize = number(language, "title_text_pixelSize", 16);
    tableTextPixelSize = number(language, "table_text_pixelSize", 16);
    titleFontFamily = text(language, "title_font_family", simsun);
    tableFontFamily = text(language, "table_font_family", simsun);
    useDiffColor = number(item, "use_diff_color", 0);
    oddColor = color(item, "odd_color");
    evenColor = color(item, "even_color");
    useAddDel = number(item, "use_add_del", 0);
    const int rows = number(item, "rows_num_page", 0);
    const int columns = number(item, "column_num_page", 0);
    const int group = number(item, "Recipe_Group_idx", 0);

    titleFont = QFont(titleFontFamily);
    if (titleTextPixelSize > 0)
        titleFont.setPixelSize(titleTextPixelSize);
    tableFont = QFont(tableFontFamily);
    if (tableTextPixelSize > 0)
        tableFont.setPixelSize(tableTextPixelSize);

    QMutexLocker lock(&dataMutex); // a running job's completion reads these
    rowsPerPage = rows;
    columnsPerPage = columns;
    groupIndex = group;
}

void RecipeSheetItems::setFixedColors()
{
    saveButton.color = addButton.color = deleteButton.color = BUTTON_COLOR;
    leftArrow.color = rightArrow.color = upArrow.color = downArrow.color = NORMAL_COLOR;
    horizontalThumb.color = verticalThumb.color = THUMB_COLOR;
    triangleColor = QColor(0, 0, 0, 255);
}

/// Sizes of the group and of the page. False: the configuration cannot be read.
bool RecipeSheetItems::loadConfiguration()
{
    recipeTableInfo_t loaded;
    const bool readable = db->findRecipeConfig(groupIndex, loaded) == 0;

    QMutexLocker lock(&dataMutex);
    table.groupIndex = loaded.groupIndex;
    table.groupName = loaded.groupName;
    recipeCount = static_cast<int>(loaded.columnName.size());
    itemCount = static_cast<int>(loaded.items.size());
    if (!rowNamesLoaded || !rowNames.isEmpty())
        rowNames.resize(itemCount);
    if (!columnNamesLoaded || !columnNames.isEmpty())
        columnNames.resize(recipeCount);
    visibleRows = qMin(rowsPerPage, MOST_VISIBLE_ROWS);
    visibleColumns = qMin(columnsPerPage, MOST_VISIBLE_COLUMNS);
    return readable;
}

void RecipeSheetItems::initRecipeFile()
{
    if (db->loadTable_Group(groupIndex, table) == 0)
        refresh_displayInfo();
    else
        display_error();
}

// --- geometry ----------------------------------------------------------------------------------------------------

namespace {

const double ARROW_GAP = 3.0; // between an arrow button and its track
const double THUMB_INSET = 5.0;
const double BUTTON_WIDTH = 80.0;
const double BUTTON_HEIGHT = 30.0;
const double BUTTON_INSET = 5.0;
const double BUTTON_PITCH = 100.0;

} // namespace

void RecipeSheetItems::computeGeometry()
{
    const QRectF frame = boundingRect(); // may be the runtime's: asked before the lock
    QMutexLocker lock(&dataMutex);
    itemRect = frame;
    const double x = frame.x();
    const double y = frame.y();
    const double w = frame.width();
    const double h = frame.height();
    const double dataWidth = w - vScrollWidth - NUMBER_COLUMN_WIDTH - nameWidth;
    const double dataHeight = h - titleHeight - hScrollHeight - buttonBarHeight;
    const double dataX = x + NUMBER_COLUMN_WIDTH + nameWidth;
    const double dataY = y + titleHeight;
    const double barY = dataY + dataHeight;
    const double barX = x + w - vScrollWidth;

    numberColumnRect = QRectF(x, dataY, NUMBER_COLUMN_WIDTH, dataHeight);
    nameColumnRect = QRectF(x + NUMBER_COLUMN_WIDTH, dataY, nameWidth, dataHeight);
    titleDataRect = QRectF(dataX, y, dataWidth, titleHeight);
    dataRect = QRectF(dataX, dataY, dataWidth, dataHeight);

    const double hEnd = arrowLength2 + ARROW_GAP;
    horizontalBarRect = QRectF(x, barY, w - vScrollWidth, hScrollHeight);
    horizontalTrackRect = QRectF(x + hEnd, barY, w - vScrollWidth - 2 * hEnd, hScrollHeight);
    leftArrowRect = QRectF(x, barY, arrowLength2, hScrollHeight);
    rightArrowRect =
        QRectF(horizontalTrackRect.x() + horizontalTrackRect.width() + ARROW_GAP, barY, arrowLength2, hScrollHeight);

    const double vEnd = arrowLength + ARROW_GAP;
    const double barLength = h - hScrollHeight - buttonBarHeight;
    verticalBarRect = QRectF(barX, y, vScrollWidth, barLength);
    verticalTrackRect = QRectF(barX, y + vEnd, vScrollWidth, barLength - 2 * vEnd);
    upArrowRect = QRectF(barX, y, vScrollWidth, arrowLength);
    downArrowRect =
        QRectF(barX, verticalTrackRect.y() + verticalTrackRect.height() + ARROW_GAP, vScrollWidth, arrowLength);

    const double buttonsY = barY + hScrollHeight;
    buttonBarRect = QRectF(x, buttonsY, w, buttonBarHeight);
    saveButtonRect = QRectF(x + BUTTON_INSET, buttonsY + BUTTON_INSET, BUTTON_WIDTH, BUTTON_HEIGHT);
    addButtonRect = saveButtonRect.translated(BUTTON_PITCH, 0);
    deleteButtonRect = addButtonRect.translated(BUTTON_PITCH, 0);

    columnAxis.trackStart = horizontalTrackRect.x();
    columnAxis.trackLength = horizontalTrackRect.width();
    rowAxis.trackStart = verticalTrackRect.y();
    rowAxis.trackLength = verticalTrackRect.height();
    computeThumb();

    // By the configured page sizes, not by the visible counts, wanted: a page of 120 rows draws 100 rows of a 120th
    // of the height each. A page size of 0 gives no finite size; nothing is drawn with it then.
    cellWidth = dataWidth / columnsPerPage;
    cellHeight = dataHeight / rowsPerPage;
}

void RecipeSheetItems::computeStripes()
{
    stripeRects.clear();
    if (useDiffColor == 0)
        return;
    for (int i = 0; i < qMin(rowsPerPage, MOST_PAGE_LINES); ++i)
        stripeRects.append(
            QRectF(itemRect.x(), dataRect.y() + i * cellHeight, itemRect.width() - vScrollWidth, cellHeight));
}

QRectF RecipeSheetItems::cellRect(int visibleColumn, int visibleRow) const
{
    return QRectF(dataRect.x() + visibleColumn * cellWidth, dataRect.y() + visibleRow * cellHeight, cellWidth,
                  cellHeight);
}

QRectF RecipeSheetItems::titleCellRect(int visibleColumn) const
{
    return QRectF(dataRect.x() + visibleColumn * cellWidth, itemRect.y(), cellWidth, titleHeight);
}

QRectF RecipeSheetItems::numberHeaderRect() const
{
    return QRectF(itemRect.x(), itemRect.y(), NUMBER_COLUMN_WIDTH, titleHeight);
}

QRectF RecipeSheetItems::nameHeaderRect() const
{
    return QRectF(itemRect.x() + NUMBER_COLUMN_WIDTH, itemRect.y(), nameWidth, titleHeight);
}

QRectF RecipeSheetItems::numberCellRect(int visibleRow) const
{
    return QRectF(itemRect.x(), dataRect.y() + visibleRow * cellHeight, NUMBER_COLUMN_WIDTH, cellHeight);
}

QRectF RecipeSheetItems::nameCellRect(int visibleRow) const
{
    return QRectF(nameColumnRect.x(), dataRect.y() + visibleRow * cellHeight, nameWidth, cellHeight);
}

QRectF RecipeSheetItems::cornerRect() const
{
    return QRectF(rightArrowRect.x() + rightArrowRect.width(), downArrowRect.y() + downArrowRect.height(), vScrollWidth,
                  hScrollHeight);
}

/// Under dataMutex.
QRectF RecipeSheetItems::verticalThumbRect() const
{
    return QRectF(verticalTrackRect.x() + THUMB_INSET, rowAxis.thumbStart, verticalTrackRect.width() - 2 * THUMB_INSET,
                  rowAxis.thumbLength);
}

/// Under dataMutex.
QRectF RecipeSheetItems::horizontalThumbRect() const
{
    return QRectF(columnAxis.thumbStart, horizontalTrackRect.y() + THUMB_INSET, columnAxis.thumbLength,
                  horizontalTrackRect.height() - 2 * THUMB_INSET);
}

void RecipeSheetItems::computeThumb()
{
    columnAxis.compute(recipeCount, columnsPerPage, firstColumn, columnStep);
    rowAxis.compute(itemCount, rowsPerPage, firstRow, rowStep);
}

// --- titles ------------------------------------------------------------------------------------------------------

void RecipeSheetItems::loadRowNames()
{
    QMutexLocker lock(&dataMutex);
    loadNames(DB_LANGUAGE_ROW, rowNames, rowNamesLoaded);
}

void RecipeSheetItems::loadColumnNames()
{
    QMutexLocker lock(&dataMutex);
    loadNames(DB_LANGUAGE_COLUMN, columnNames, columnNamesLoaded);
}

void RecipeSheetItems::loadNames(int kind, QVector<QVector<QString> >& names, bool& loaded)
{
    if (loaded)
        return;
    if (db->findTable_Language_All(groupIndex, static_cast<DB_LANGUAGE_INDEX>(kind), names) != 0)
        names.clear();
    loaded = true;
}

/// The title, or the placeholder with the index where the list is missing or short.
QString RecipeSheetItems::nameAt(const QVector<QVector<QString> >& names, int index, const char* placeholder) const
{
    if (index >= 0 && index < names.size() && nameLanguage < names.at(index).size())
        return names.at(index).at(nameLanguage);
    return QString::fromLatin1(placeholder).arg(index);
}

QString RecipeSheetItems::getRowName(int row)
{
    QMutexLocker lock(&dataMutex);
    loadNames(DB_LANGUAGE_ROW, rowNames, rowNamesLoaded);
    return nameAt(rowNames, row, "Row%1");
}

QString RecipeSheetItems::getColumnName(int column)
{
    QMutexLocker lock(&dataMutex);
    loadNames(DB_LANGUAGE_COLUMN, columnNames, columnNamesLoaded);
    return nameAt(columnNames, column, "Col%1");
}
