// Everything that reads the recipe file. No statement has an ORDER BY: rows are placed by order of arrival, which is
// the order of row_index for items and the order of insertion for recipes and titles.
#include "RecipeDB.h"

#include "SqliteInter.h"
#include "number_text.h"
#include "sql_text.h"

#include <QMutexLocker>

#include <cmath>

namespace {

const char SELECT_CONFIG[] = "SELECT * FROM recipe_config WHERE group_index = %d;";
const char SELECT_ALL_CONFIGS[] = "SELECT group_index, row, column, notify, notify_addr FROM recipe_config;";
const char MAX_GROUP[] = "SELECT MAX(group_index) AS group_index FROM recipe_config;";
const char COUNT_ADDR[] = "SELECT count(*) FROM addr_%d;";
const char SELECT_ADDR[] = "SELECT * FROM addr_%d;";
const char SELECT_ADDR_RANGE[] = "SELECT * FROM addr_%d WHERE row_index >= '%d' AND row_index < '%d';";
const char SELECT_ADDR_ONE[] = "SELECT * FROM addr_%d WHERE row_index = '%d';";
// The quoted table name here and the plain one two lines on: both are kept.
const char COUNT_DATA_QUOTED[] = "SELECT COUNT(*) FROM 'data_%d';";
const char COUNT_DATA[] = "SELECT count(*) FROM data_%d;";
const char SELECT_DATA[] = "SELECT * FROM data_%d;";
const char SELECT_DATA_ONE[] = "SELECT * FROM data_%d WHERE column = '%d';";
const char SELECT_DATA_RANGE[] = "SELECT * FROM data_%d WHERE column >= '%d' AND column < '%d';";
const char SELECT_TITLE[] = "SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_%d WHERE type = '%d' AND strIndex = '%d';";
const char SELECT_TITLES[] = "SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_%d WHERE type = '%d';";
const char SELECT_TITLE_RANGE[] = "SELECT L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_%d "
                                  "WHERE type = '%d' AND strIndex >= '%d' AND strIndex < '%d';";

// The group's title and those of ranges of items and recipes in one pass. The index is compared as text, exactly as
// "strIndex = '%d'" does for each single title: the concatenation gives the canonical decimal text and, unlike the bare
// CAST, has no affinity of its own.
const char SELECT_TITLES_OF_RANGES[] =
    "SELECT type = '1', type = '2', CAST(strIndex AS INTEGER), L0, L1, L2, L3, L4, L5, L6, L7 FROM lang_%d "
    "WHERE (type = '1' AND CAST(strIndex AS INTEGER) >= %d AND CAST(strIndex AS INTEGER) < %d "
    "OR type = '2' AND CAST(strIndex AS INTEGER) >= %d AND CAST(strIndex AS INTEGER) < %d "
    "OR type = '0' AND strIndex = '0') AND strIndex = CAST(strIndex AS INTEGER) || '';";
// All but a plain table: indexes on it, triggers, a view, a virtual table.
const char COUNT_TITLE_INDEXES[] = "SELECT count(*) FROM sqlite_master WHERE tbl_name = 'lang_%d' COLLATE NOCASE "
                                   "AND (type <> 'table' OR rootpage = 0);";

/// Counts up to here are taken as the file states them: they cost less than a page of cells.
const int BELIEVED_COUNT = 4096;

/// Cells that a group may lack (rows of the address table without a column in the data table) before the two tables
/// are taken to have nothing to do with each other.
const qint64 MISSING_CELLS = 1000000;

int nonNegative(int count)
{
    return count > 0 ? count : 0;
}

/// The upper bound of the half-open range that starts at `first`.
int rangeEnd(int first, int count)
{
    const qint64 end = qint64(first) + count;
    return static_cast<int>(qBound(qint64(-2147483647), end, qint64(2147483647)));
}

void readItem(CSqliteInter& row, recipeItemInfo_t& item)
{
    QString address;
    row.getFieldInt(0, item.rowIndex);
    row.getFieldQStr(1, address);
    item.setAddress(address);
    row.getFieldInt(2, item.dataType);
    row.getFieldInt(3, item.totalDigits);
    row.getFieldInt(4, item.decimalDigits);
    row.getFieldDouble(5, item.min);
    row.getFieldDouble(6, item.max);
}

/// Eight texts from column `first` on.
void takeTitle(CSqliteInter& row, int first, QVector<QString>& texts)
{
    texts.resize(LANGUAGE_COUNT);
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        row.getFieldQStr(first + i, texts[i]);
}

/// Columns [from, to) as texts.
QList<QString> readTexts(CSqliteInter& row, int from, int to)
{
    QList<QString> texts;
    for (int i = from; i < to; ++i) {
        QString text;
        row.getFieldQStr(i, text);
        texts.append(text);
    }
    return texts;
}

/// A stored value as a cell shows it. Applied whatever the data type, wanted: below one decimal everything from the
/// first "." on goes, also in a text.
QString displayedValue(const QString& value, int decimals)
{
    if (decimals < 1)
        return value.left(value.indexOf(QLatin1Char('.')));
    return fixedNotation(value.toDouble(), decimals);
}

// A stored number may be shown without the way over its text, which has 15 digits, as long as it has clearly fewer: an
// error in the last of the 15 then cannot reach a digit that is shown.
const double SCALES[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
const int MOST_SCALED_DECIMALS = 6;
const double MOST_SCALED = 1e12;

/// The number as a whole number of its last shown digit. False where the text of 15 digits has to decide: near the
/// border between two results, for huge and tiny numbers, and where the sign of a zero would show.
bool scaledNumber(double value, int decimals, qint64& result)
{
    if (decimals > MOST_SCALED_DECIMALS)
        return false;
    const double scaled = std::fabs(value) * SCALES[nonNegative(decimals)];
    if (!(scaled < MOST_SCALED))
        return false;
    result = static_cast<qint64>(decimals < 1 ? scaled : scaled + 0.5);
    const double rest = scaled - static_cast<double>(result);
    if (decimals < 1 ? rest > 0.99 : std::fabs(rest) > 0.49)
        return false;
    return result != 0 || (!std::signbit(value) && (decimals > 0 || rest == 0.0));
}

/// Decimal digits with a point before the last `decimals`.
QString pointedNumber(qint64 digits, bool negative, int decimals)
{
    QChar text[24];
    QChar* const end = text + sizeof(text) / sizeof(text[0]);
    QChar* begin = end;
    for (int written = 0; written <= decimals || digits > 0; ++written) {
        if (written > 0 && written == decimals)
            *--begin = QLatin1Char('.');
        *--begin = QLatin1Char(static_cast<char>('0' + digits % 10));
        digits /= 10;
    }
    if (negative)
        *--begin = QLatin1Char('-');
    return QString(begin, static_cast<int>(end - begin));
}

/// `displayedValue` of a column.
QString displayedCell(CSqliteInter& row, int column, int decimals)
{
    double number = 0;
    qint64 digits = 0;
    if (row.getStoredDouble(column, number) && scaledNumber(number, decimals, digits))
        return pointedNumber(digits, number < 0, nonNegative(decimals));
    QString text;
    row.getFieldQStr(column, text);
    return displayedValue(text, decimals);
}

} // namespace

/// Runs the query under the mutex and hands each row to `reader`, which returns whether it wants more. `cutShort` tells
/// a read that the disk, a lock or damage ended from a statement that the file's tables do not allow.
template <typename Reader> int RecipeDB::query(const SqlText& sql, Reader reader, bool* cutShort)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    const bool prepared = m_sqlite->querySQL(sql.text()) == 0;
    while (prepared && m_sqlite->queryStep() && reader(*m_sqlite)) {
    }
    m_sqlite->queryFilish();
    if (cutShort)
        *cutShort = *cutShort || m_sqlite->readFailed();
    return prepared && !m_sqlite->readFailed() ? 0 : 1;
}

int RecipeDB::count(const SqlText& sql)
{
    int result = -1;
    std::int64_t most = 0;
    query(sql, [&](CSqliteInter& row) {
        row.getFieldInt(0, result);
        most = row.mostRows();
        return false;
    });
    return result <= most ? result : -1; // rows that the file has no room for: nothing is made ready for them
}

int RecipeDB::getTable_Addr_Row(int group)
{
    return count(sqlText(COUNT_ADDR, group));
}

int RecipeDB::getTable_Data_Column(int group)
{
    return count(sqlText(COUNT_DATA_QUOTED, group));
}

// --- the configuration table -------------------------------------------------------------------------------------

int RecipeDB::findMaxID_Config(int& maxId)
{
    return query(sqlText(MAX_GROUP), [&maxId](CSqliteInter& row) {
        row.getFieldInt(0, maxId);
        return true;
    });
}

/// A count from the configuration. One that no sheet has is replaced by the rows that are really there, so that no
/// memory is taken on the word of a damaged file.
int RecipeDB::believedCount(int claimed, const SqlText& countSql)
{
    if (claimed <= BELIEVED_COUNT)
        return nonNegative(claimed);
    return qMin(claimed, nonNegative(count(countSql)));
}

/// The configuration row, without room for what it counts.
int RecipeDB::readConfig(int group, recipeTableInfo_t& info, int& itemCount, int& recipeCount, bool& found)
{
    return query(sqlText(SELECT_CONFIG, group), [&](CSqliteInter& row) {
        QString address;
        row.getFieldInt(0, info.groupIndex);
        row.getFieldInt(1, itemCount);
        row.getFieldInt(2, recipeCount);
        row.getFieldInt(3, info.notify);
        row.getFieldQStr(4, address);
        if (info.notify != 0) {
            info.setNotifyAddress(address);
        } else {
            info.notifyDevName = QString(QLatin1String(""));
            info.notifyRegAddr.addrPart1 = -1;
            info.notifyRegAddr.addrPart2 = -1;
            info.notifyRegAddr.regType[0] = '\0';
        }
        found = true;
        return false;
    });
}

int RecipeDB::findRecipeConfig(int group, recipeTableInfo_t& info)
{
    bool found = false;
    int itemCount = 0;
    int recipeCount = 0;
    const int result = readConfig(group, info, itemCount, recipeCount, found);
    if (!found)
        return result;
    info.items.resize(believedCount(itemCount, sqlText(COUNT_ADDR, group)));
    info.columnName.resize(believedCount(recipeCount, sqlText(COUNT_DATA, group)));
    for (int c = 0; c < info.columnName.size(); ++c) {
        if (info.columnName.at(c).isEmpty())
            info.columnName[c] = emptyTitles();
        else
            info.columnName[c].resize(LANGUAGE_COUNT);
    }
    return result;
}

int RecipeDB::findAllRecipeConfigs(QList<recipeGroupsInfo_t>& list)
{
    return query(sqlText(SELECT_ALL_CONFIGS), [&list](CSqliteInter& row) {
        recipeGroupsInfo_t summary;
        row.getFieldInt(0, summary.groupIndex);
        row.getFieldInt(1, summary.row);
        row.getFieldInt(2, summary.column);
        row.getFieldInt(3, summary.notify);
        if (summary.notify != 0) {
            QString text;
            row.getFieldQStr(4, text);
            recipeTableInfo_t parts;
            parts.setNotifyAddress(text);
            summary.notifyDevName = parts.notifyDevName;
            summary.notifyRegAddr = parts.notifyRegAddr;
        }
        list.append(summary);
        return true;
    });
}

// --- items -------------------------------------------------------------------------------------------------------

int RecipeDB::findTable_Addr_All(int group, recipeTableInfo_t& info)
{
    const int rows = getTable_Addr_Row(group);
    if (rows < 0)
        return 1;
    info.items.resize(rows);
    int k = 0;
    return query(sqlText(SELECT_ADDR, group), [&](CSqliteInter& row) {
        if (k >= info.items.size())
            return false;
        readItem(row, info.items[k++]);
        return true;
    });
}

int RecipeDB::findTable_Addr_Partial(int group, int first, int count, QVector<recipeItemInfo_t>& items)
{
    items.resize(nonNegative(count));
    int k = 0;
    return query(sqlText(SELECT_ADDR_RANGE, group, first, rangeEnd(first, count)), [&](CSqliteInter& row) {
        if (k >= items.size())
            return false;
        readItem(row, items[k++]);
        return true;
    });
}

int RecipeDB::findTable_Addr_Index(int group, int rowIndex, recipeItemInfo_t& item)
{
    return query(sqlText(SELECT_ADDR_ONE, group, rowIndex), [&item](CSqliteInter& row) {
        readItem(row, item);
        return false;
    });
}

// --- recipes -----------------------------------------------------------------------------------------------------

int RecipeDB::findTable_Data_All(int group, recipeTableInfo_t& info)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite || m_sqlite->querySQL(sqlText(COUNT_DATA, group).text()) != 0)
        return 1;
    int recipes = 0;
    if (m_sqlite->queryStep())
        m_sqlite->getFieldInt(0, recipes);
    m_sqlite->queryFilish();
    if (m_sqlite->readFailed() || recipes > m_sqlite->mostRows()
        || m_sqlite->querySQL(sqlText(SELECT_DATA, group).text()) != 0)
        return 1;

    const int columns = m_sqlite->queryColumnCount();
    const int held = qMin(static_cast<int>(info.items.size()), columns - 1);
    const qint64 missing = qint64(info.items.size() - held) * recipes;
    int result = 1;
    if (missing <= MISSING_CELLS) {
        result = 0;
        for (int i = 0; i < info.items.size(); ++i)
            info.items[i].values.resize(nonNegative(recipes));
        for (int k = 0; k < recipes && m_sqlite->queryStep(); ++k) {
            for (int i = 0; i < held; ++i)
                m_sqlite->getFieldQStr(i + 1, info.items[i].values[k]);
        }
        result = m_sqlite->readFailed() ? 1 : 0;
    }
    m_sqlite->queryFilish();
    return result;
}

int RecipeDB::findTable_Data_Index(int group, int column, QList<QString>& out)
{
    return query(sqlText(SELECT_DATA_ONE, group, column), [&out](CSqliteInter& row) {
        out += readTexts(row, 1, row.queryColumnCount());
        return false;
    });
}

int RecipeDB::findTable_Data_Start_Length(int group, int first, int count, QList<QList<QString> >& out)
{
    return query(sqlText(SELECT_DATA_RANGE, group, first, rangeEnd(first, count)), [&out](CSqliteInter& row) {
        out.append(readTexts(row, 1, row.queryColumnCount()));
        return true;
    });
}

int RecipeDB::findTable_Data_Partial(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                                     QList<QList<QString> >& out)
{
    const SqlText sql = sqlText(SELECT_DATA_RANGE, group, firstColumn, rangeEnd(firstColumn, columnCount));
    return query(sql, [&](CSqliteInter& row) {
        const int end = qMin(rangeEnd(firstRow, rowCount), row.queryColumnCount() - 1);
        const int begin = qMin(nonNegative(firstRow), end);
        out.append(readTexts(row, begin + 1, end + 1)); // item i stands in column i + 1
        return true;
    });
}

// --- titles ------------------------------------------------------------------------------------------------------

int RecipeDB::findTable_Language(int group, DB_LANGUAGE_INDEX type, int strIndex, QVector<QString>& texts)
{
    return readTitle(group, type, strIndex, texts, nullptr);
}

int RecipeDB::readTitle(int group, DB_LANGUAGE_INDEX type, int strIndex, QVector<QString>& texts, bool* cutShort)
{
    texts.resize(LANGUAGE_COUNT);
    const SqlText sql = sqlText(SELECT_TITLE, group, static_cast<int>(type), strIndex);
    const auto reader = [&texts](CSqliteInter& row) {
        if (row.queryColumnCount() == LANGUAGE_COUNT)
            takeTitle(row, 0, texts);
        return true;
    };
    return query(sql, reader, cutShort);
}

int RecipeDB::findTable_Language_All(int group, DB_LANGUAGE_INDEX type, QVector<QVector<QString> >& out)
{
    int k = 0;
    return query(sqlText(SELECT_TITLES, group, static_cast<int>(type)), [&](CSqliteInter& row) {
        if (k >= out.size())
            return false;
        takeTitle(row, 0, out[k++]);
        return true;
    });
}

int RecipeDB::findTable_Language_AllRow(int group, QVector<recipeItemInfo_t>& items)
{
    int k = 0;
    return query(sqlText(SELECT_TITLES, group, static_cast<int>(DB_LANGUAGE_ROW)), [&](CSqliteInter& row) {
        if (k >= items.size())
            return false;
        takeTitle(row, 0, items[k++].rowName);
        return true;
    });
}

int RecipeDB::findTable_Language_Partial(int group, DB_LANGUAGE_INDEX type, int first, int count,
                                         QVector<QVector<QString> >& out)
{
    out.resize(nonNegative(count));
    int k = 0;
    const SqlText sql = sqlText(SELECT_TITLE_RANGE, group, static_cast<int>(type), first, rangeEnd(first, count));
    return query(sql, [&](CSqliteInter& row) {
        if (k >= out.size())
            return false;
        out[k].resize(LANGUAGE_COUNT);
        if (row.queryColumnCount() == LANGUAGE_COUNT)
            takeTitle(row, 0, out[k]);
        ++k;
        return true;
    });
}

/// With an index on the table, or a view or a virtual table in its place, the order of the rows, and so which of
/// several rows is the last, may depend on the statement.
bool RecipeDB::titlesHaveIndex(int group)
{
    return count(sqlText(COUNT_TITLE_INDEXES, group)) != 0;
}

/// The titles of `info`, each as findTable_Language leaves it: the group's, those of its items from `firstRow` on and
/// of its recipes from `firstColumn` on. A language table has no index, so a query per title walks the whole table each
/// time; this walks it once. False: the file could not be read to the end; whoever writes the group back would write
/// the rest of the titles away.
bool RecipeDB::readTitles(int group, int firstRow, int firstColumn, recipeTableInfo_t& info)
{
    info.groupName.resize(LANGUAGE_COUNT);
    for (int k = 0; k < info.items.size(); ++k)
        info.items[k].rowName = emptyTitles();
    info.columnName.fill(emptyTitles());
    if (titlesHaveIndex(group))
        return readTitlesOneByOne(group, firstRow, firstColumn, info);

    bool cutShort = false;
    const SqlText sql =
        sqlText(SELECT_TITLES_OF_RANGES, group, firstRow, rangeEnd(firstRow, static_cast<int>(info.items.size())),
                firstColumn, rangeEnd(firstColumn, static_cast<int>(info.columnName.size())));
    const auto reader = [&](CSqliteInter& row) {
        int isItem = 0;
        int isRecipe = 0;
        int index = 0;
        row.getFieldInt(0, isItem);
        row.getFieldInt(1, isRecipe);
        row.getFieldInt(2, index);
        QVector<QString>& title = isItem     ? info.items[index - firstRow].rowName
                                  : isRecipe ? info.columnName[index - firstColumn]
                                             : info.groupName;
        takeTitle(row, 3, title);
        return true;
    };
    query(sql, reader, &cutShort);
    return !cutShort;
}

/// Stops at the first that cannot be read: where one takes too long, hundreds would take for ever.
bool RecipeDB::readTitlesOneByOne(int group, int firstRow, int firstColumn, recipeTableInfo_t& info)
{
    bool cutShort = false;
    readTitle(group, DB_LANGUAGE_GROUP, 0, info.groupName, &cutShort);
    const int rowEnd = rangeEnd(firstRow, static_cast<int>(info.items.size()));
    for (int i = firstRow; i < rowEnd && !cutShort; ++i)
        readTitle(group, DB_LANGUAGE_ROW, i, info.items[i - firstRow].rowName, &cutShort);
    const int columnEnd = rangeEnd(firstColumn, static_cast<int>(info.columnName.size()));
    for (int c = firstColumn; c < columnEnd && !cutShort; ++c)
        readTitle(group, DB_LANGUAGE_COLUMN, c, info.columnName[c - firstColumn], &cutShort);
    return !cutShort;
}

// --- whole groups ------------------------------------------------------------------------------------------------

int RecipeDB::loadTable_Group(int group, recipeTableInfo_t& info)
{
    info.clear();
    info.groupIndex = group;
    if (findRecipeConfig(group, info) != 0 || findTable_Addr_All(group, info) != 0
        || findTable_Data_All(group, info) != 0 || !readTitles(group, 0, 0, info)) {
        info.clear();
        return 1;
    }
    return 0;
}

/// The values of a range, brought to the decimal digits of their items.
int RecipeDB::readDisplayedValues(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                                  QVector<recipeItemInfo_t>& items)
{
    columnCount = nonNegative(columnCount);
    for (int k = 0; k < items.size(); ++k)
        items[k].values.fill(displayedValue(QString(), items.at(k).decimalDigits), columnCount);
    int r = 0;
    const SqlText sql = sqlText(SELECT_DATA_RANGE, group, firstColumn, rangeEnd(firstColumn, columnCount));
    return query(sql, [&](CSqliteInter& row) {
        if (r >= columnCount)
            return false;
        const int end = qMin(rangeEnd(firstRow, rowCount), row.queryColumnCount() - 1);
        const int begin = qMin(nonNegative(firstRow), end);
        for (int k = 0; k < items.size() && begin + k < end; ++k) // item i stands in column i + 1
            items[k].values[r] = displayedCell(row, begin + k + 1, items.at(k).decimalDigits);
        ++r;
        return true;
    });
}

int RecipeDB::loadTable_Group_Partial(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                                      recipeTableInfo_t& info)
{
    info.clear();
    info.groupIndex = group;
    int itemCount = 0;
    int recipeCount = 0;
    bool found = false;
    if (readConfig(group, info, itemCount, recipeCount, found) != 0
        || findTable_Addr_Partial(group, firstRow, rowCount, info.items) != 0
        || readDisplayedValues(group, firstColumn, columnCount, firstRow, rowCount, info.items) != 0) {
        info.clear();
        return 1;
    }
    info.columnName.resize(nonNegative(columnCount));
    readTitles(group, firstRow, firstColumn, info); // a title that is not there stays empty
    return 0;
}
