// The keyboard and its answer, saving, adding and deleting recipes.
#include "RecipeSheetItems.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "UHmiEvent.h"
#include "number_text.h"
#include "recipe_tools.h"
#include "sheet_constants.h"

#include <QMessageBox>
#include <QMutexLocker>

namespace {

const int FORMAT_TEXT = 4;
const int FORMAT_NUMBER = 0;
const int LONGEST_TITLE = 32; // characters

// The two numbers of an operator notice are the runtime's.
void postNotice(const QString& text, int first, int second)
{
    UHmiEvent::hmiEventPost(new UMessageBoxEvent(text, first, second), nullptr);
}

void postCall(const char* function, quintptr argument)
{
    UHmiEvent::hmiEventPost(new UExternalFuncCallEvent(true, QString::fromLatin1(function), argument), nullptr);
}

} // namespace

// --- the keyboard ------------------------------------------------------------------------------------------------

/// The item record of a cell. Its block may have been evicted since it was shown; it is loaded again then.
bool RecipeSheetItems::findItem(int row, int column, recipeItemInfo_t& item)
{
    const idx_t key = getBlockIndex(row, column);
    QMutexLocker lock(&dataMutex);
    if (!blocks.contains(key))
        loadBlock(key.second, key.first, false);
    const QMap<idx_t, DataBlock>::const_iterator block = blocks.constFind(key);
    if (block == blocks.constEnd())
        return false;
    const int i = row - block->rowStart;
    if (i < 0 || i >= block->items.size())
        return false;
    item = block->items.at(i);
    return true;
}

void RecipeSheetItems::openCellKeyboard()
{
    recipeItemInfo_t item;
    if (!findItem(firstRow + selectedRow, firstColumn + selectedColumn, item))
        return;
    const bool isText = item.dataType == DATA_TYPE_TEXT;
    keyboard.textEntry = isText;
    keyboard.decimalPlaces = isText ? 0 : item.decimalDigits;
    keyboard.formatCode = isText ? FORMAT_TEXT : FORMAT_NUMBER;
    keyboard.receiver = this;
    keyboard.maximum = fixedNotation(item.max, item.decimalDigits);
    keyboard.minimum = fixedNotation(item.min, item.decimalDigits);
    displayMutex.lock();
    keyboard.currentText = displayCells.value(idx_t(selectedColumn, selectedRow)).text;
    displayMutex.unlock();
    postKeyboardRequest();
}

/// The receiver stays what the last cell made of it, null before the first; wanted.
void RecipeSheetItems::openTitleKeyboard()
{
    keyboard.textEntry = true;
    keyboard.maximum = QString::number(LONGEST_TITLE);
    keyboard.minimum = QString::fromLatin1("0");
    keyboard.decimalPlaces = 0;
    keyboard.formatCode = FORMAT_TEXT;
    keyboard.currentText = getColumnName(firstColumn + selectedColumn);
    postKeyboardRequest();
}

void RecipeSheetItems::postKeyboardRequest()
{
    keyboardInterface.callArguments.append(&keyboard);
    postCall("showKeyboardWindow", reinterpret_cast<quintptr>(&keyboardInterface));
}

void RecipeSheetItems::keyboardReflash(const QString& text)
{
    if (selectedRow == TITLE_ROW)
        takeTitle(text);
    else
        takeCell(text);
    update(); // the operator sees at once what was typed
}

void RecipeSheetItems::takeTitle(const QString& text)
{
    const int column = firstColumn + selectedColumn;
    QMutexLocker lock(&dataMutex);
    if (column >= 0 && column < columnNames.size()) {
        QVector<QString>& names = columnNames[column];
        if (names.size() < LANGUAGE_COUNT)
            names.resize(LANGUAGE_COUNT);
        names[nameLanguage] = text;
    }
    editedList.append(column);
}

void RecipeSheetItems::takeCell(const QString& text)
{
    const int column = firstColumn + selectedColumn;
    const int row = firstRow + selectedRow;
    displayMutex.lock();
    displayCells[idx_t(selectedColumn, selectedRow)].text = text;
    displayMutex.unlock();

    QMutexLocker lock(&dataMutex);
    editedCells[idx_t(column, row)] = text;
    const QMap<idx_t, DataBlock>::iterator block = blocks.find(getBlockIndex(row, column));
    if (block != blocks.end())
        showPendingEdits(*block);
}

// --- saving ------------------------------------------------------------------------------------------------------

bool RecipeSheetItems::saveRecipeFile()
{
    backupRcpFile(m_object);
    if (!db->isOpen())
        return false;
    if (editedList.isEmpty() && editedCells.isEmpty())
        return false;
    savePending();
    updateTable();
    postNotice(QObject::tr("save successful"), 2, 0);
    postCall("reload_recipe", 2);
    return true;
}

/// All edits in one transaction: each on its own would wait for the disk several times. Where the file does not take
/// them together, they are written one by one, as many as it takes.
void RecipeSheetItems::savePending()
{
    const bool together = editedList.size() + editedCells.size() > 1 && db->beginEdits() == 0;
    bool titlesWritten = writePendingTitles();
    writePendingCells();
    if (together && db->commitEdits() != 0) {
        titlesWritten = writePendingTitles();
        writePendingCells();
    }
    editedList.clear();
    QMutexLocker lock(&dataMutex);
    editedCells.clear();
    titlesMissed = titlesMissed || !titlesWritten;
}

/// In the order of editing, a title that was edited twice twice. False: one was not written. The operator is not told,
/// wanted; the sheet shows the file's titles again.
bool RecipeSheetItems::writePendingTitles()
{
    bool written = true;
    for (int i = 0; i < editedList.size(); ++i) {
        const int column = editedList.at(i);
        dataMutex.lock();
        const bool exists = column >= 0 && column < columnNames.size();
        const QVector<QString> names = exists ? columnNames.at(column) : QVector<QString>();
        dataMutex.unlock();
        if (exists && db->updateTable_Language_Index(groupIndex, DB_LANGUAGE_COLUMN, column, names) != 0)
            written = false;
    }
    return written;
}

void RecipeSheetItems::writePendingCells()
{
    for (QMap<idx_t, QString>::const_iterator edit = editedCells.constBegin(); edit != editedCells.constEnd(); ++edit)
        db->updateTable_Data_Column_One(groupIndex, edit.key().first, edit.key().second, edit.value());
}

// --- adding and deleting -----------------------------------------------------------------------------------------

bool RecipeSheetItems::workerIsBusy() const
{
    return worker && worker->isRunning();
}

void RecipeSheetItems::postBusy() const
{
    postNotice(QObject::tr("busy, please wait"), 30, 2);
}

/// Asks the operator and saves what is pending. False: busy or refused.
bool RecipeSheetItems::prepareJob()
{
    if (workerIsBusy()) {
        postBusy();
        return false;
    }
    QMessageBox box;
    box.setWindowTitle(QObject::tr("tip"));
    box.setText(QObject::tr("About to autosave, whether to continue?"));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    if (box.exec() == QMessageBox::No)
        return false;
    saveRecipeFile();
    return true;
}

bool RecipeSheetItems::addRecipe()
{
    if (!prepareJob())
        return false;
    startWorker(RecipeSheetThread::OP_ADD);
    return true;
}

/// Unlike Add, Delete obtains a worker where the item has none; wanted.
bool RecipeSheetItems::deleteRecipe()
{
    if (!prepareJob())
        return false;
    if (!worker)
        worker = RecipeSheetThread::getInstance();
    startWorker(RecipeSheetThread::OP_DELETE);
    return true;
}

void RecipeSheetItems::startWorker(int operation)
{
    if (!worker || worker->isRunning())
        return;
    worker->groupIndex = groupIndex;
    worker->column = qMax(firstColumn + selectedColumn, 0);
    worker->callback = &RecipeSheetItems::replace;
    worker->op = operation;
    worker->available = true;
    worker->startJob();
}

void RecipeSheetItems::replace(bool ok, int columns, int rows)
{
    if (RecipeSheetItems* const sheet = s_instance)
        sheet->onThreadFinished(ok, columns, rows);
}

void RecipeSheetItems::onThreadFinished(bool ok, int columns, int rows)
{
    if (!ok)
        return;
    QMutexLocker lock(&dataMutex);
    recipeCount = columns;
    itemCount = rows;
    computeThumb();
    columnNames.clear();
    columnNames.resize(columns);
    titlesMissed = db->findTable_Language_All(groupIndex, DB_LANGUAGE_COLUMN, columnNames) != 0;
    if (titlesMissed)
        columnNames.clear(); // a new title in one language would be saved with empty ones in all others
    else if (!columnNames.isEmpty())
        columnNamesLoaded = true;
    const QList<idx_t> keys = blocks.keys();
    blocks.clear();
    readsMissed = false;
    for (int i = 0; i < keys.size(); ++i)
        loadBlock(keys.at(i).second, keys.at(i).first, true);
}
