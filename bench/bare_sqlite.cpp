#include "bare_sqlite.h"

#include "RecipeDB.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace {

void require(int code, int wanted, sqlite3* connection)
{
    if (code == wanted)
        return;
    std::fprintf(stderr, "bench: SQLite says %d: %s\n", code, connection ? sqlite3_errmsg(connection) : "");
    std::exit(1);
}

/// A statement stepped to its end.
class Query
{
public:
    Query(sqlite3* connection, const QByteArray& sql) : m_connection(connection), m_statement(nullptr)
    {
        require(sqlite3_prepare_v2(connection, sql.constData(), -1, &m_statement, nullptr), SQLITE_OK, connection);
    }
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;
    ~Query() { sqlite3_finalize(m_statement); }

    bool step()
    {
        const int code = sqlite3_step(m_statement);
        if (code == SQLITE_ROW)
            return true;
        require(code, SQLITE_DONE, m_connection);
        return false;
    }
    int lastColumn(int wanted) const
    {
        const int last = sqlite3_column_count(m_statement) - 1;
        return wanted < 0 || wanted > last ? last : wanted;
    }
    const char* text(int column) { return reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column)); }
    int bytes(int column) { return sqlite3_column_bytes(m_statement, column); }

private:
    sqlite3* m_connection;
    sqlite3_stmt* m_statement;
};

QByteArray statement(const char* pattern, int group)
{
    return QByteArray(pattern).replace("<g>", QByteArray::number(group));
}

QByteArray range(const char* pattern, int group, int first, int count)
{
    return statement(pattern, group)
        .replace("<first>", QByteArray::number(first))
        .replace("<end>", QByteArray::number(first + count));
}

// --- recording ---------------------------------------------------------------------------------------------------

std::mutex recorderMutex;
sqlite3* newestConnection = nullptr;
QList<QByteArray>* recording = nullptr;

int noteConnection(sqlite3* connection, char**, const struct sqlite3_api_routines*)
{
    const std::lock_guard<std::mutex> lock(recorderMutex);
    newestConnection = connection;
    return SQLITE_OK;
}

int noteStatement(unsigned, void*, void*, void* text)
{
    const std::lock_guard<std::mutex> lock(recorderMutex);
    if (recording)
        recording->append(QByteArray(static_cast<const char*>(text)));
    return 0;
}

void setRecording(QList<QByteArray>* target)
{
    const std::lock_guard<std::mutex> lock(recorderMutex);
    recording = target;
    sqlite3_trace_v2(newestConnection, target ? SQLITE_TRACE_STMT : 0, target ? noteStatement : nullptr, nullptr);
}

} // namespace

BareSqlite::BareSqlite(const QString& path) : m_connection(nullptr)
{
    require(sqlite3_open(path.toUtf8().constData(), &m_connection), SQLITE_OK, m_connection);
}

BareSqlite::~BareSqlite()
{
    sqlite3_close(m_connection);
}

void BareSqlite::exec(const QByteArray& sql)
{
    require(sqlite3_exec(m_connection, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK, m_connection);
}

void BareSqlite::exec(const QList<QByteArray>& statements)
{
    for (const QByteArray& sql : statements)
        exec(sql);
}

qint64 BareSqlite::step(const QByteArray& sql, int first, int last)
{
    qint64 bytes = 0;
    Query query(m_connection, sql);
    while (query.step()) {
        const int end = query.lastColumn(last);
        for (int column = first; column <= end; ++column) {
            query.text(column);
            bytes += query.bytes(column);
        }
    }
    return bytes;
}

QVector<QVector<QString> > BareSqlite::read(const QByteArray& sql, int first, int last)
{
    QVector<QVector<QString> > rows;
    Query query(m_connection, sql);
    while (query.step()) {
        QVector<QString> texts;
        const int end = query.lastColumn(last);
        texts.reserve(end - first + 1);
        for (int column = first; column <= end; ++column)
            texts.append(QString::fromUtf8(query.text(column)));
        rows.append(texts);
    }
    return rows;
}

void stepBlock(BareSqlite& database, const BlockRange& block)
{
    database.step(statement("SELECT * FROM recipe_config WHERE group_index = <g>;", block.group));
    database.step(range("SELECT * FROM addr_<g> WHERE row_index >= '<first>' AND row_index < '<end>';", block.group,
                        block.row, block.rows));
    database.step(range("SELECT * FROM data_<g> WHERE column >= '<first>' AND column < '<end>';", block.group,
                        block.column, block.columns),
                  block.row + 1, block.row + block.rows);
}

void stepGroup(BareSqlite& database, int group)
{
    database.step(statement("SELECT * FROM recipe_config WHERE group_index = <g>;", group));
    database.step(statement("SELECT * FROM addr_<g>;", group));
    database.step(statement("SELECT * FROM data_<g>;", group), 1);
    database.step(statement("SELECT * FROM lang_<g>;", group), 2);
}

QList<QByteArray> recordStatements(const QString& path, const std::function<void()>& action)
{
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(noteConnection));
    require(RecipeDB::getInstance()->OpenRecipeFile(path), 0, nullptr);
    QList<QByteArray> statements;
    setRecording(&statements);
    action();
    setRecording(nullptr);
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(noteConnection));
    return statements;
}
