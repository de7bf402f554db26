// The recipe file's life, its schema and everything that writes to it.
#include "RecipeDB.h"

#include "SqliteInter.h"
#include "helpSQLite.h"
#include "number_text.h"
#include "sql_text.h"

#include <QFile>
#include <QMutexLocker>

namespace {

const char CREATE_CONFIG[] =
    "CREATE TABLE IF NOT EXISTS recipe_config (group_index INTEGER PRIMARY KEY, row INTEGER NOT NULL, "
    "column INTEGER NOT NULL, notify INTEGER NOT NULL, notify_addr VARCHAR);";
// No closing semicolon and integers in quotes: wanted, older readers compare this text.
const char INSERT_CONFIG[] = "INSERT INTO recipe_config(group_index, row, column, notify, notify_addr) "
                             "VALUES('%d', '%d', '%d', '%d', '%s')";

const char CREATE_ADDR[] = "CREATE TABLE IF NOT EXISTS addr_%d (row_index INTEGER PRIMARY KEY,address VARCHAR NOT NULL,"
                           "datatype INTEGER NOT NULL,totalDigits INTEGER NOT NULL,decimalDigits INTEGER NOT NULL,"
                           "min REAL NOT NULL,max REAL NOT NULL);";
const char INSERT_ADDR[] = "INSERT INTO addr_%d(row_index, address, datatype, totalDigits, decimalDigits, min, max) "
                           "VALUES('%d', '%s', '%d', '%d', '%d', '%s', '%s')";

const char CREATE_DATA[] = "CREATE TABLE IF NOT EXISTS data_%d (column INTEGER NOT NULL";
const char INSERT_DATA[] = "INSERT INTO data_%d VALUES";
const char UPDATE_CELL[] = "UPDATE data_%d SET 'D%d' = '%s' WHERE column = '%d';";

const char CREATE_LANGUAGE[] =
    "CREATE TABLE IF NOT EXISTS lang_%d (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' TEXT, 'L1' TEXT, "
    "'L2' TEXT, 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT );";
const char INSERT_LANGUAGE[] =
    "INSERT INTO lang_%d('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', 'L6', 'L7') "
    "VALUES ('%d', '%d', '%s', '%s', '%s', '%s', '%s', '%s', '%s', '%s')";
const char UPDATE_LANGUAGE[] =
    "UPDATE lang_%d SET 'L0' = '%s', 'L1' = '%s', 'L2' = '%s', 'L3' = '%s', 'L4' = '%s', 'L5' = '%s', "
    "'L6' = '%s', 'L7' = '%s' WHERE type = '%d' AND strIndex = '%d';";

const char DELETE_CONFIG[] = "DELETE FROM recipe_config WHERE group_index = %d;";
const char DROP_ADDR[] = "DROP TABLE if exists addr_%d;";
const char DROP_DATA[] = "DROP TABLE if exists data_%d;";
const char DROP_LANGUAGE[] = "DROP TABLE if exists lang_%d;";

/// Safe between single quotes, in UTF-8.
QByteArray escaped(const QString& text)
{
    return helpSQLite::toSQLiteString(text).toUtf8();
}

QVector<QByteArray> escapedTitles(const QVector<QString>& texts)
{
    QVector<QByteArray> result;
    for (int i = 0; i < texts.size(); ++i)
        result.append(escaped(texts.at(i)));
    return result;
}

QByteArray limitText(double limit, int decimals)
{
    return fixedNotation(limit, decimals).toUtf8();
}

/// Whether the text, put between single quotes as it stands, ends the literal before its time.
bool endsLiteral(const QString& text)
{
    QString rest = text;
    return rest.remove(QString(QLatin1String("''"))).contains(QLatin1Char('\''));
}

/// Whether the text is written with the characters of numbers alone: no escaping changes those. Nearly all values are,
/// and the general way costs as much as all that SQLite does with the value.
bool isPlain(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        const ushort c = text.at(i).unicode();
        if ((c < '0' || c > '9') && c != '.' && c != '-')
            return false;
    }
    return true;
}

/// A list of values behind the recipe's number: "(<column>,'..','..');"
class DataRow
{
public:
    DataRow(int group, int column) { m_sql.add(INSERT_DATA, group).add("(%d", column); }
    void addValue(const QString& value)
    {
        if (isPlain(value))
            m_sql.addPlainValue(value);
        else
            m_sql.addText(",'").addText(escaped(value).constData()).addText("'");
    }
    const SqlText& finish() { return m_sql.addText(");"); }

private:
    SqlText m_sql;
};

/// A runtime may unload the library, and load it again: the file must not stay open without anybody who could close
/// it. Made on first use, and so gone before anything that exists from the beginning.
struct CloseWithTheLibrary
{
    ~CloseWithTheLibrary() { RecipeDB::release(); }
};

} // namespace

std::atomic<RecipeDB*> RecipeDB::instance(nullptr);
QMutex RecipeDB::mutex;

RecipeDB* RecipeDB::getInstance()
{
    RecipeDB* existing = instance.load(std::memory_order_acquire);
    if (existing)
        return existing;
    QMutexLocker lock(&mutex);
    existing = instance.load(std::memory_order_relaxed);
    if (!existing) {
        existing = new RecipeDB;
        instance.store(existing, std::memory_order_release);
        static const CloseWithTheLibrary close;
    }
    return existing;
}

void RecipeDB::release()
{
    QMutexLocker lock(&mutex);
    delete instance.load(std::memory_order_relaxed);
    instance.store(nullptr, std::memory_order_release);
}

RecipeDB::RecipeDB() : m_sqlite(nullptr), m_rewriting(false), m_syncsLess(false) {}

RecipeDB::~RecipeDB()
{
    CloseRecipeFile();
}

int RecipeDB::OpenRecipeFile(const QString& path)
{
    CloseRecipeFile();
    if (path.isEmpty() || !QFile::exists(path))
        return 1;
    QMutexLocker lock(&m_lock);
    if (m_sqlite) // another thread was quicker
        return 1;
    m_sqlite = new CSqliteInter;
    if (m_sqlite->connect(path.toUtf8().constData())) {
        m_syncsLess = true;
        syncFully();
        return 0;
    }
    delete m_sqlite;
    m_sqlite = nullptr;
    return 1;
}

/// With less, a journal that was deleted may be back after a power cut and undo what was announced as saved. SQLite
/// refuses while another program has the file locked; so this is tried again before something is written.
void RecipeDB::syncFully()
{
    if (m_syncsLess && !m_sqlite->inTransaction())
        m_syncsLess = m_sqlite->execSQL(CSqliteInter::lastingCommits()) != 0;
}

int RecipeDB::CloseRecipeFile()
{
    QMutexLocker lock(&m_lock);
    delete m_sqlite;
    m_sqlite = nullptr;
    return 0;
}

bool RecipeDB::isOpen()
{
    QMutexLocker lock(&m_lock);
    return m_sqlite != nullptr;
}

int RecipeDB::execBegin()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    syncFully();
    m_sqlite->execBegin();
    return 0;
}

int RecipeDB::execCommit()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    m_sqlite->execCommit();
    return 0;
}

int RecipeDB::execRollBack()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    m_sqlite->execRollBack();
    return 0;
}

int RecipeDB::beginEdits()
{
    {
        QMutexLocker lock(&m_lock);
        if (!m_sqlite || m_sqlite->inTransaction())
            return 1;
    }
    return beginGroup();
}

int RecipeDB::commitEdits()
{
    const int result = commitGroup();
    if (result != 0)
        rollBackGroup();
    return result;
}

int RecipeDB::exec(const SqlText& sql)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    return execLocked(sql);
}

int RecipeDB::execLocked(const SqlText& sql)
{
    // A full disk or an I/O error makes SQLite end the transaction on its own. What follows would then be written
    // for good, one statement at a time, into the group as it was before.
    if (m_rewriting && !m_sqlite->inTransaction())
        return 2;
    syncFully();
    return m_sqlite->execSQL(sql.text());
}

/// For statements into which a text goes without escaping. A quote in it makes the statement fail, as a rule. A text
/// made so that the rest of it is good SQL (a comment that hides the WHERE) must not get through to other cells.
int RecipeDB::execUnescaped(const SqlText& sql, const QString& text)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    if (endsLiteral(text) && m_sqlite->accepts(sql.text()))
        return 2;
    return execLocked(sql);
}

// --- the configuration table -------------------------------------------------------------------------------------

int RecipeDB::createTable_RecipeConfig()
{
    return exec(sqlText(CREATE_CONFIG));
}

int RecipeDB::insertTable_Config(int group, const recipeTableInfo_t& info)
{
    if (info.columnName.isEmpty())
        return 1;
    const QString address = info.notifyAddressText();
    return execUnescaped(sqlText(INSERT_CONFIG, group, static_cast<int>(info.items.size()),
                                 static_cast<int>(info.columnName.size()), info.notify, address.toUtf8().constData()),
                         address);
}

int RecipeDB::TruncateRecipeConfig()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    syncFully();
    return m_sqlite->truncateTable("recipe_config");
}

// --- items -------------------------------------------------------------------------------------------------------

int RecipeDB::createTable_Addr(int group)
{
    return exec(sqlText(CREATE_ADDR, group));
}

int RecipeDB::insertTable_Addr(int group, int rowIndex, const recipeItemInfo_t& item)
{
    const QString address = item.addressText();
    return execUnescaped(sqlText(INSERT_ADDR, group, rowIndex, address.toUtf8().constData(), item.dataType,
                                 item.totalDigits, item.decimalDigits,
                                 limitText(item.min, item.decimalDigits).constData(),
                                 limitText(item.max, item.decimalDigits).constData()),
                         address);
}

// --- recipes -----------------------------------------------------------------------------------------------------

int RecipeDB::createTable_Data(int group, const QVector<recipeItemInfo_t>& items)
{
    SqlText sql = sqlText(CREATE_DATA, group);
    for (int i = 0; i < items.size(); ++i)
        sql.add(items.at(i).dataType == DATA_TYPE_TEXT ? ", 'D%d' TEXT" : ", 'D%d' REAL", i);
    return exec(sql.addText(");"));
}

int RecipeDB::insertTable_Data(int group, const recipeTableInfo_t& info)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    int result = 0;
    for (int column = 0; column < info.columnName.size(); ++column) {
        DataRow row(group, column);
        for (int i = 0; i < info.items.size() && column < info.items.at(i).values.size(); ++i)
            row.addValue(info.items.at(i).values.at(column));
        result |= execLocked(row.finish());
    }
    return result;
}

int RecipeDB::insertTable_Data_One(int group, int column, const QStringList& values)
{
    DataRow row(group, column);
    for (int i = 0; i < values.size(); ++i)
        row.addValue(values.at(i));
    return exec(row.finish());
}

int RecipeDB::updateTable_Data_Column_One(int group, int column, int itemIndex, const QString& value)
{
    return execUnescaped(sqlText(UPDATE_CELL, group, itemIndex, value.toUtf8().constData(), column), value);
}

int RecipeDB::updateTable_Data_Column(int group, int column, const QVector<QString>& values)
{
    if (values.isEmpty())
        return 1;
    SqlText sql = sqlText("UPDATE data_%d SET ", group);
    const int last = static_cast<int>(values.size()) - 1;
    for (int i = 0; i < last; ++i)
        sql.add("'D%d' = '%s'", i, escaped(values.at(i)).constData()).addText(", ");
    sql.add("'D%d' = '%s' ", last, escaped(values.at(last)).constData());
    return exec(sql.add("WHERE column = '%d';", column));
}

// --- titles ------------------------------------------------------------------------------------------------------

int RecipeDB::createTable_Language(int group)
{
    return exec(sqlText(CREATE_LANGUAGE, group));
}

int RecipeDB::insertTable_Language(int group, DB_LANGUAGE_INDEX type, int strIndex, const QVector<QString>& texts)
{
    if (texts.size() < LANGUAGE_COUNT)
        return 1;
    const QVector<QByteArray> t = escapedTitles(texts);
    return exec(sqlText(INSERT_LANGUAGE, group, static_cast<int>(type), strIndex, t[0].constData(), t[1].constData(),
                        t[2].constData(), t[3].constData(), t[4].constData(), t[5].constData(), t[6].constData(),
                        t[7].constData()));
}

int RecipeDB::updateTable_Language_Index(int group, DB_LANGUAGE_INDEX type, int strIndex, const QVector<QString>& texts)
{
    if (texts.size() < LANGUAGE_COUNT)
        return 1;
    const QVector<QByteArray> t = escapedTitles(texts);
    return exec(sqlText(UPDATE_LANGUAGE, group, t[0].constData(), t[1].constData(), t[2].constData(), t[3].constData(),
                        t[4].constData(), t[5].constData(), t[6].constData(), t[7].constData(), static_cast<int>(type),
                        strIndex));
}

// --- whole groups ------------------------------------------------------------------------------------------------

int RecipeDB::deleteTable_Group(int group)
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    const char* const statements[] = {DELETE_CONFIG, DROP_ADDR, DROP_DATA, DROP_LANGUAGE};
    for (const char* pattern : statements) {
        if (execLocked(sqlText(pattern, group)) != 0)
            return 1;
    }
    return 0;
}

int RecipeDB::createTable_Group(int group, const recipeTableInfo_t& info)
{
    int result = beginGroup();
    if (result != 0)
        return result;
    result = writeGroup(group, info);
    if (result == 0)
        result = commitGroup();
    if (result != 0)
        rollBackGroup();
    return result;
}

int RecipeDB::beginGroup()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite)
        return 1;
    syncFully();
    const int result = m_sqlite->execBegin();
    if (result == 0) // without a transaction of its own a rewrite is not begun
        m_rewriting = true;
    return result;
}

int RecipeDB::writeGroup(int group, const recipeTableInfo_t& info)
{
    int result = deleteTable_Group(group);
    result |= insertTable_Config(group, info);
    result |= createTable_Addr(group);
    result |= createTable_Language(group);
    result |= createTable_Data(group, info.items);
    if (result != 0)
        return result;

    for (int i = 0; i < info.items.size(); ++i)
        result |= insertTable_Addr(group, i, info.items.at(i));
    if (result != 0)
        return result;

    insertTable_Language(group, DB_LANGUAGE_GROUP, 0, info.groupName); // a group without a title is no reason to fail
    for (int i = 0; i < info.items.size(); ++i)
        result |= insertTable_Language(group, DB_LANGUAGE_ROW, i, info.items.at(i).rowName);
    for (int c = 0; c < info.columnName.size(); ++c)
        result |= insertTable_Language(group, DB_LANGUAGE_COLUMN, c, info.columnName.at(c));
    if (result != 0)
        return result;

    return insertTable_Data(group, info);
}

int RecipeDB::commitGroup()
{
    QMutexLocker lock(&m_lock);
    if (!m_sqlite || !m_sqlite->inTransaction())
        return 1;
    const int result = m_sqlite->execCommit();
    m_rewriting = result != 0;
    return result;
}

void RecipeDB::rollBackGroup()
{
    QMutexLocker lock(&m_lock);
    m_rewriting = false;
    if (!m_sqlite || !m_sqlite->inTransaction())
        return;
    // execRollBack acts only while a query is open, and a failed statement leaves none. Left open, the transaction
    // would swallow every later edit until the next commit.
    if (m_sqlite->querySQL("SELECT 1;") == 0)
        m_sqlite->execRollBack();
}
