// The cache of cell texts in blocks, and the visible cells that are made from it.
#include "RecipeSheetItems.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "sheet_constants.h"

#include <QMutexLocker>

namespace {

// What is loaded ahead of the page, in items and recipes.
const int MARGIN_ROWS = 20;
const int MARGIN_COLUMNS = 10;

/// `first + page + margin`, but not behind the end of the data: there is nothing to load there.
int lastNeeded(int first, int page, int margin, int count)
{
    return static_cast<int>(qMin(qint64(first) + page + margin, qint64(count)));
}

/// The loaded values by recipe.
QVector<QVector<QString> > valuesByRecipe(const recipeTableInfo_t& loaded)
{
    QVector<QVector<QString> > result(loaded.columnName.size());
    for (int c = 0; c < result.size(); ++c) {
        result[c].reserve(loaded.items.size());
        for (int i = 0; i < loaded.items.size(); ++i)
            result[c].append(loaded.items.at(i).values.at(c));
    }
    return result;
}

} // namespace

idx_t RecipeSheetItems::getBlockIndex(int row, int column) const
{
    return idx_t(column / blockColumns, row / blockRows);
}

bool RecipeSheetItems::isDataBlockLoaded(int blockRow, int blockColumn) const
{
    QMutexLocker lock(&dataMutex);
    return hasData(blockRow, blockColumn);
}

bool RecipeSheetItems::hasData(int blockRow, int blockColumn) const
{
    const QMap<idx_t, DataBlock>::const_iterator block = blocks.constFind(idx_t(blockColumn, blockRow));
    return block != blocks.constEnd() && !block->loading;
}

void RecipeSheetItems::loadDataBlock(int blockRow, int blockColumn, bool force)
{
    QMutexLocker lock(&dataMutex);
    loadBlock(blockRow, blockColumn, force);
}

void RecipeSheetItems::loadBlock(int blockRow, int blockColumn, bool force)
{
    const idx_t key(blockColumn, blockRow);
    if (!force && blocks.contains(key)) {
        blocks[key].lastAccess = ++accessCounter;
        return;
    }

    DataBlock block;
    block.rowStart = blockRows * blockRow;
    block.rowEnd = qMin(blockRows * (blockRow + 1), itemCount);
    block.colStart = blockColumns * blockColumn;
    block.colEnd = qMin(blockColumns * (blockColumn + 1), recipeCount);
    // A block that starts exactly at the end is entered, with nothing in it; wanted.
    if (block.rowStart > block.rowEnd || block.colStart > block.colEnd)
        return;
    block.loading = true;
    if (RecipeSheetThread::usesFile()) {
        readsMissed = true;
        if (!blocks.contains(key)) {
            block.lastAccess = ++accessCounter;
            blocks[key] = block;
        }
        return;
    }
    block.lastAccess = ++accessCounter;
    blocks[key] = block;

    recipeTableInfo_t loaded;
    if (db->loadTable_Group_Partial(groupIndex, block.colStart, block.colEnd - block.colStart, block.rowStart,
                                    block.rowEnd - block.rowStart, loaded)
        != 0) {
        blocks.remove(key);
        return;
    }
    block.rawValues = valuesByRecipe(loaded);
    block.items = loaded.items;
    block.loading = false;
    showPendingEdits(block);
    blocks[key] = block;
    needsRepaint = true;
}

/// What the operator typed and has not saved stays visible when its block is read again.
void RecipeSheetItems::showPendingEdits(DataBlock& block)
{
    for (QMap<idx_t, QString>::const_iterator edit = editedCells.constBegin(); edit != editedCells.constEnd(); ++edit) {
        const int column = edit.key().first - block.colStart;
        const int row = edit.key().second - block.rowStart;
        if (row >= 0 && row < block.items.size() && column >= 0 && column < block.items.at(row).values.size())
            block.items[row].values[column] = edit.value();
    }
}

void RecipeSheetItems::checkAndLoadRequiredBlocks()
{
    QMutexLocker lock(&dataMutex);
    if (readsMissed && !RecipeSheetThread::usesFile()) // the job that was in the way has failed
        reloadCachedBlocks();
    if (titlesMissed && !RecipeSheetThread::usesFile())
        reloadMissedTitles();
    const idx_t topLeft = getBlockIndex(firstRow, firstColumn);
    const idx_t bottomRight = getBlockIndex(lastNeeded(firstRow, rowsPerPage, MARGIN_ROWS, itemCount),
                                            lastNeeded(firstColumn, columnsPerPage, MARGIN_COLUMNS, recipeCount));
    for (int blockRow = topLeft.second; blockRow <= bottomRight.second; ++blockRow) {
        for (int blockColumn = topLeft.first; blockColumn <= bottomRight.first; ++blockColumn) {
            if (!hasData(blockRow, blockColumn))
                loadBlock(blockRow, blockColumn, false);
        }
    }
    evictOldestBlock();
}

void RecipeSheetItems::cleanupOldBlocks()
{
    QMutexLocker lock(&dataMutex);
    evictOldestBlock();
}

/// One block at the most, so that the cache may stay above its limit until later calls.
void RecipeSheetItems::evictOldestBlock()
{
    if (blocks.size() <= maxBlocks)
        return;
    QMap<idx_t, DataBlock>::iterator oldest = blocks.begin();
    for (QMap<idx_t, DataBlock>::iterator block = blocks.begin(); block != blocks.end(); ++block) {
        if (block->lastAccess < oldest->lastAccess)
            oldest = block;
    }
    blocks.erase(oldest);
}

void RecipeSheetItems::reloadCachedBlocks()
{
    readsMissed = false;
    const QList<idx_t> keys = blocks.keys();
    for (int i = 0; i < keys.size(); ++i)
        loadBlock(keys.at(i).second, keys.at(i).first, true);
}

/// A fault kept the recipes' titles from the file, or the file's from here. What is shown is made the file's again,
/// except what is still to be saved. Where that fails too, the next look tries again.
void RecipeSheetItems::reloadMissedTitles()
{
    QVector<QVector<QString> > names(recipeCount);
    if (db->findTable_Language_All(groupIndex, DB_LANGUAGE_COLUMN, names) != 0)
        return;
    for (int i = 0; i < editedList.size(); ++i) {
        const int column = editedList.at(i);
        if (column >= 0 && column < qMin(names.size(), columnNames.size()))
            names[column] = columnNames.at(column);
    }
    columnNames = names;
    columnNamesLoaded = true;
    titlesMissed = false;
    needsRepaint = true;
}

QString RecipeSheetItems::getDataFromBlocks(int row, int column) const
{
    QMutexLocker lock(&dataMutex);
    return cachedText(row, column);
}

QString RecipeSheetItems::cachedText(int row, int column) const
{
    const QMap<idx_t, DataBlock>::const_iterator block = blocks.constFind(getBlockIndex(row, column));
    if (block == blocks.constEnd())
        return QString();
    if (block->loading)
        return QString::fromLatin1("Loading...");
    const int i = row - block->rowStart;
    const int j = column - block->colStart;
    if (i < 0 || i >= block->items.size() || j < 0 || j >= block->items.at(i).values.size())
        return QString();
    return block->items.at(i).values.at(j);
}

void RecipeSheetItems::refresh_displayInfo()
{
    QMap<idx_t, cell_info_t> cells;
    {
        QMutexLocker lock(&dataMutex);
        for (int r = 0; r < visibleRows; ++r) {
            for (int c = 0; c < visibleColumns; ++c) {
                cell_info_t cell;
                cell.rect = cellRect(c, r);
                cell.text = cachedText(firstRow + r, firstColumn + c);
                cells.insert(idx_t(c, r), cell);
            }
        }
    }
    QMutexLocker lock(&displayMutex);
    displayCells.swap(cells);
}
