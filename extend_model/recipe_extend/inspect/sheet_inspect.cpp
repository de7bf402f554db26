// RecipeSheet.inspect.so: tells a desk what a sheet shows. It lies beside the plug-in, is built with it and reads the
// item's fields; the plug-in that ships neither knows it nor grows by it.
//
// One function: describeItem gives a JSON object. Rows are items of the group, columns recipes, both absolute, from 0.
// Rectangles are [x, y, width, height] in item coordinates.
//   group, rows, columns    what the sheet shows, and the size of the group
//   firstRow, firstColumn   scroll position
//   selection               null, or {row, column, rect, label} of a cell, or {column, rect, label} of a title
//   cells                   [{row, column, text, rect}]  every visible cell
//   titles                  [{column, text, rect}]       every visible recipe title
//   names                   [{row, text}]                the items' names on the page
//   areas                   {save, add, delete, left, right, up, down, horizontal-thumb, vertical-thumb: rect}
//   pending                 [{row, column, text, saved}] edits that are not in the file; "saved" is the file's text,
//                           where the sheet holds it
//   pendingTitles           [{column, text}]
//   busy                    whether the worker runs
// GUI thread only.
#include "RecipeSheetItems.h"
#include "RecipeSheetThread.h"
#include "sheet_constants.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutexLocker>

namespace {

constexpr double THUMB_INSET = 5.0; // as the sheet draws it

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QJsonArray rectOf(const QRectF& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

} // namespace

class RecipeSheetInspector
{
public:
    explicit RecipeSheetInspector(const RecipeSheetItems& sheet) : m(sheet) {}

    QJsonObject describe() const
    {
        QJsonObject result = describeData();
        result.insert(text("cells"), cells());
        result.insert(text("selection"), selection());
        result.insert(text("busy"), m.worker && m.worker->isRunning());
        return result;
    }

private:
    /// What a running job may change.
    QJsonObject describeData() const
    {
        QMutexLocker lock(&m.dataMutex);
        return {
            {text("group"), m.groupIndex},
            {text("rows"), m.itemCount},
            {text("columns"), m.recipeCount},
            {text("firstRow"), m.firstRow},
            {text("firstColumn"), m.firstColumn},
            {text("titles"), titles()},
            {text("names"), names()},
            {text("areas"), areas()},
            {text("pending"), pending()},
            {text("pendingTitles"), pendingTitles()},
        };
    }

    QString nameAt(const QVector<QVector<QString>>& list, int index, const char* placeholder) const
    {
        if (index >= 0 && index < list.size() && m.nameLanguage < list.at(index).size())
            return list.at(index).at(m.nameLanguage);
        return text(placeholder).arg(index);
    }
    QString columnName(int column) const { return nameAt(m.columnNames, column, "Col%1"); }
    QString rowName(int row) const { return nameAt(m.rowNames, row, "Row%1"); }

    QRectF titleRect(int visibleColumn) const
    {
        return QRectF(m.dataRect.x() + visibleColumn * m.cellWidth, m.itemRect.y(), m.cellWidth, m.titleHeight);
    }

    QJsonArray titles() const
    {
        QJsonArray result;
        for (int c = 0; c < m.visibleColumns; ++c)
            result.append(QJsonObject{{text("column"), m.firstColumn + c},
                                      {text("text"), columnName(m.firstColumn + c)},
                                      {text("rect"), rectOf(titleRect(c))}});
        return result;
    }

    QJsonArray names() const
    {
        QJsonArray result;
        for (int r = 0; r < m.visibleRows; ++r)
            result.append(QJsonObject{{text("row"), m.firstRow + r}, {text("text"), rowName(m.firstRow + r)}});
        return result;
    }

    QJsonArray cells() const
    {
        QMutexLocker lock(&m.displayMutex);
        QJsonArray result;
        for (auto cell = m.displayCells.constBegin(); cell != m.displayCells.constEnd(); ++cell)
            result.append(QJsonObject{{text("row"), m.firstRow + cell.key().second},
                                      {text("column"), m.firstColumn + cell.key().first},
                                      {text("text"), cell->text},
                                      {text("rect"), rectOf(cell->rect)}});
        return result;
    }

    QJsonObject areas() const
    {
        QJsonObject result = {
            {text("save"), rectOf(m.saveButtonRect)},
            {text("left"), rectOf(m.leftArrowRect)},
            {text("right"), rectOf(m.rightArrowRect)},
            {text("up"), rectOf(m.upArrowRect)},
            {text("down"), rectOf(m.downArrowRect)},
            {text("horizontal-thumb"),
             rectOf(QRectF(m.columnAxis.thumbStart, m.horizontalTrackRect.y() + THUMB_INSET, m.columnAxis.thumbLength,
                           m.horizontalTrackRect.height() - 2 * THUMB_INSET))},
            {text("vertical-thumb"),
             rectOf(QRectF(m.verticalTrackRect.x() + THUMB_INSET, m.rowAxis.thumbStart,
                           m.verticalTrackRect.width() - 2 * THUMB_INSET, m.rowAxis.thumbLength))},
        };
        if (m.useAddDel != 0) {
            result.insert(text("add"), rectOf(m.addButtonRect));
            result.insert(text("delete"), rectOf(m.deleteButtonRect));
        }
        return result;
    }

    QJsonValue selection() const
    {
        // Counted from the first visible line, so a scroll moves also what stands for "nothing".
        if (m.firstColumn + m.selectedColumn <= NOTHING_SELECTED / 2)
            return QJsonValue::Null;
        const int column = m.firstColumn + m.selectedColumn;
        const int row = m.firstRow + m.selectedRow;
        QMutexLocker lock(&m.dataMutex);
        QJsonObject result = {{text("column"), column}, {text("rect"), rectOf(m.selectedRect)}};
        if (m.selectedRow == TITLE_ROW) {
            result.insert(text("label"), columnName(column));
        } else if (row <= NOTHING_SELECTED / 2) { // a recipe that the register chose
            result.insert(text("label"), columnName(column));
        } else {
            result.insert(text("row"), row);
            result.insert(text("label"), QString::fromUtf8("%1 \xe2\x80\x93 %2").arg(rowName(row), columnName(column)));
        }
        return result;
    }

    QJsonArray pending() const
    {
        QJsonArray result;
        for (auto edit = m.editedCells.constBegin(); edit != m.editedCells.constEnd(); ++edit) {
            const int row = edit.key().second;
            const int column = edit.key().first;
            QJsonObject entry = {{text("row"), row}, {text("column"), column}, {text("text"), edit.value()}};
            const auto block = m.blocks.constFind(idx_t(column / m.blockColumns, row / m.blockRows));
            if (block != m.blocks.constEnd())
                entry.insert(text("saved"),
                             block->rawValues.value(column - block->colStart).value(row - block->rowStart));
            result.append(entry);
        }
        return result;
    }

    QJsonArray pendingTitles() const
    {
        QJsonArray result;
        for (const int column : m.editedList)
            result.append(QJsonObject{{text("column"), column}, {text("text"), columnName(column)}});
        return result;
    }

    const RecipeSheetItems& m;
};

/// The item must be one that the plug-in beside this library created.
extern "C" Q_DECL_EXPORT QByteArray describeItem(const HMIBaseItem* item)
{
    return QJsonDocument(RecipeSheetInspector(static_cast<const RecipeSheetItems&>(*item)).describe())
        .toJson(QJsonDocument::Compact);
}
