// The SQLite access layer.
#include "SqliteInter.h"

#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include <sys/stat.h>

// What assert() calls. Declared here because <cassert> hides it in builds with NDEBUG.
extern "C" void __assert_fail(const char* condition, const char* file, unsigned int line, const char* function) noexcept
    __attribute__((noreturn));

namespace {

/// The place that a failed precondition names. The numbers are fixed: support staff look reports up by them.
struct Place
{
    unsigned int line;
    const char* function;
};

const char CONNECTED_AND_SQL[] = "__null != m_pSqlite && __null != sql";
const char CONNECTED[] = "__null != m_pSqlite";
const char SOURCE_FILE[] = "../../../extend_model/recipe_extend/SqliteInter.cpp";

const Place IN_EXEC_SQL = {118, "virtual int CSqliteInter::execSQL(const char*)"};
const Place IN_QUERY_SQL = {138, "virtual int CSqliteInter::querySQL(const char*)"};
const Place IN_EXEC_BEGIN = {159, "virtual int CSqliteInter::execBegin()"};
const Place IN_EXEC_COMMIT = {179, "virtual int CSqliteInter::execCommit()"};

/// Like assert(), but in every build type and with fixed texts.
void require(bool holds, const char* condition, const Place& place)
{
    if (!holds)
        __assert_fail(condition, SOURCE_FILE, place.line, place.function);
}

/// A panel's standard output is a file or a pipe: what stays in its buffer is gone with the power, and seen by nobody
/// until then.
void showAtOnce()
{
    std::fflush(stdout);
}

/// Formats "...%s..." with a table name. False: it does not fit, and nothing may be run.
template <std::size_t N>
bool formatStatement(char (&buffer)[N], const char* pattern, const char* first, const char* second = "")
{
    const int length = std::snprintf(buffer, N, pattern, first, second);
    return length >= 0 && static_cast<std::size_t>(length) < N;
}

std::int64_t sizeOf(const std::string& fileName)
{
    struct stat status;
    return stat(fileName.c_str(), &status) == 0 ? static_cast<std::int64_t>(status.st_size) : 0;
}

// What SQLite calls with a statement's allowance while the statement runs. Not zero or SQLITE_DENY ends it.

int stopWhenSpent(void* allowance)
{
    return !static_cast<StatementAllowance*>(allowance)->takeSteps();
}

void countChange(void* allowance, int, const char*, const char*, sqlite3_int64)
{
    static_cast<StatementAllowance*>(allowance)->takeChange();
}

int denyWhenSpent(void* allowance, int, const char*, const char*, const char*, const char*)
{
    return static_cast<StatementAllowance*>(allowance)->takeLook() ? SQLITE_OK : SQLITE_DENY;
}

/// No statement of ours uses them, and with long texts one call may take for ever. Nothing can stop it once it runs.
const char* const ENDLESS_FUNCTIONS[] = {"instr", "replace", "trim", "ltrim", "rtrim"};
const int ANY_NUMBER_OF_ARGUMENTS[] = {-1, 1, 2, 3};

void refuse(sqlite3_context* context, int, sqlite3_value**)
{
    sqlite3_result_error(context, "this function is not available", -1);
}

void refuseEndlessFunctions(sqlite3* file)
{
    for (const char* const name : ENDLESS_FUNCTIONS)
        for (const int arguments : ANY_NUMBER_OF_ARGUMENTS)
            sqlite3_create_function(file, name, arguments, SQLITE_UTF8, nullptr, &refuse, nullptr, nullptr);
    sqlite3_limit(file, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1); // LIKE and GLOB are such, too
}

} // namespace

CSqliteInter::CSqliteInter()
    : m_pSqlite(nullptr), m_pStmt(nullptr), m_readFailed(false), m_textLost(false),
      m_allowance([this] { return fileBytes(); })
{}

CSqliteInter::~CSqliteInter()
{
    // disconnect() alone leaves a connection with an open query open, and nobody could close it any more.
    CSqliteInter::queryFilish();
    CSqliteInter::disconnect();
}

int CSqliteInter::connect(const char* filename)
{
    if (m_pSqlite)
        return 1;
    if (sqlite3_open(filename, &m_pSqlite) != SQLITE_OK) {
        m_pSqlite = nullptr; // a handle that comes with a failure is dropped, not closed; wanted
        return 0;
    }
    sqlite3_progress_handler(m_pSqlite, StatementAllowance::stepsBetweenChecks(), &stopWhenSpent, &m_allowance);
    sqlite3_update_hook(m_pSqlite, &countChange, &m_allowance);
    sqlite3_set_authorizer(m_pSqlite, &denyWhenSpent, &m_allowance);
    sqlite3_limit(m_pSqlite, SQLITE_LIMIT_LENGTH, static_cast<int>(StatementAllowance::longestValue(fileBytes())));
    refuseEndlessFunctions(m_pSqlite);
    return 1;
}

/// The size of the file, of what waits in its write-ahead log, and of the pages in memory, which a transaction may not
/// have written yet.
std::int64_t CSqliteInter::fileBytes() const
{
    const char* const name = m_pSqlite ? sqlite3_db_filename(m_pSqlite, "main") : nullptr;
    if (!name)
        return 0;
    int cached = 0;
    int highest = 0;
    sqlite3_db_status(m_pSqlite, SQLITE_DBSTATUS_CACHE_USED, &cached, &highest, 0);
    return sizeOf(name) + sizeOf(std::string(name) + "-wal") + cached;
}

std::int64_t CSqliteInter::mostRows() const
{
    return StatementAllowance::mostRows(fileBytes());
}

double CSqliteInter::spentShare() const
{
    return m_allowance.spentShare();
}

/// The text of a column of the current row. An empty one where the statement has delivered too much or the memory for
/// the text is not there; the read has failed then, and the next step ends it: who writes the group back must not take
/// it for an empty cell.
const char* CSqliteInter::takeText(int col)
{
    const bool isNull = sqlite3_column_type(m_pStmt, col) == SQLITE_NULL;
    const unsigned char* const text = sqlite3_column_text(m_pStmt, col);
    if (!m_allowance.takeBytes(text ? sqlite3_column_bytes(m_pStmt, col) : 0) || (!text && !isNull))
        m_readFailed = m_textLost = true;
    return text && !m_textLost ? reinterpret_cast<const char*>(text) : "";
}

void CSqliteInter::disconnect()
{
    if (m_pSqlite && sqlite3_close(m_pSqlite) == SQLITE_OK)
        m_pSqlite = nullptr;
}

void CSqliteInter::reset()
{
    queryFilish();
}

int CSqliteInter::ping()
{
    return m_pSqlite != nullptr;
}

int CSqliteInter::vacuum()
{
    return execSQL("VACUUM");
}

int CSqliteInter::deleteTable(const char* table)
{
    char sql[64] = {0};
    if (!formatStatement(sql, "DROP TABLE IF EXISTS %s;", table))
        return 2;
    return execSQL(sql);
}

int CSqliteInter::truncateTable(const char* table)
{
    char sql[64] = {0};
    if (!formatStatement(sql, "DELETE FROM %s;", table))
        return 2;
    return execSQL(sql);
}

int CSqliteInter::existTable(const char* table)
{
    Q_UNUSED(table)
    return 0;
}

int CSqliteInter::maxId(const char* table, const char* field)
{
    char sql[256] = {0};
    if (!formatStatement(sql, "select max(%s) from %s", field, table))
        return 2;
    const int code = querySQL(sql);
    if (code != 0)
        return code;
    long result = 0;
    if (queryStep())
        getFieldLong(0, result);
    queryFilish();
    return static_cast<int>(result);
}

int CSqliteInter::execSQL(const char* sql)
{
    require(m_pSqlite && sql, CONNECTED_AND_SQL, IN_EXEC_SQL);
    queryFilish();
    m_allowance.startWriting();
    if (sqlite3_exec(m_pSqlite, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return 0;
    std::printf("CSqliteInter::execSQL() ERROR\n sql=[%s]\n err=[%s]\n", sql, sqlite3_errmsg(m_pSqlite));
    showAtOnce();
    return 2;
}

int CSqliteInter::querySQL(const char* sql)
{
    require(m_pSqlite && sql, CONNECTED_AND_SQL, IN_QUERY_SQL);
    queryFilish();
    m_allowance.startReading();
    const char* rest = "";
    const int code = sqlite3_prepare_v2(m_pSqlite, sql, -1, &m_pStmt, &rest);
    m_readFailed = code != SQLITE_OK && code != SQLITE_ERROR;
    m_textLost = false;
    if (code == SQLITE_OK)
        return 0;
    // The unparsed rest and not SQLite's message: wanted, it shows where a composed statement went wrong.
    std::printf("CSqliteInter::querySQL() ERROR\n sql=[%s]\n err=[%s]\n", sql, rest ? rest : "");
    showAtOnce();
    return 2;
}

int CSqliteInter::execBegin()
{
    require(m_pSqlite, CONNECTED, IN_EXEC_BEGIN);
    queryFilish();
    m_allowance.startReading();
    if (sqlite3_exec(m_pSqlite, "begin;", nullptr, nullptr, nullptr) == SQLITE_OK)
        return 0;
    // Names execSQL: the wording is kept.
    std::printf("CSqliteInter::execSQL() ERROR\n err=[%s]\n", sqlite3_errmsg(m_pSqlite));
    showAtOnce();
    return 1;
}

int CSqliteInter::execCommit()
{
    require(m_pSqlite, CONNECTED, IN_EXEC_COMMIT);
    queryFilish();
    m_allowance.startReading();
    if (sqlite3_exec(m_pSqlite, "commit;", nullptr, nullptr, nullptr) == SQLITE_OK)
        return 0;
    std::printf("CSqliteInter::execCommit() ERROR\n err=[%s]\n", sqlite3_errmsg(m_pSqlite));
    showAtOnce();
    return 1;
}

int CSqliteInter::execRollBack()
{
    if (!m_pStmt)
        return 1;
    queryFilish();
    m_allowance.startReading();
    return sqlite3_exec(m_pSqlite, "ROLLBACK;", nullptr, nullptr, nullptr) == SQLITE_OK ? 0 : 1;
}

bool CSqliteInter::inTransaction() const
{
    return m_pSqlite && sqlite3_get_autocommit(m_pSqlite) == 0;
}

int CSqliteInter::getStoredDouble(int col, double& out) const
{
    if (!m_pStmt || sqlite3_column_type(m_pStmt, col) != SQLITE_FLOAT)
        return 0;
    out = sqlite3_column_double(m_pStmt, col);
    return 1;
}

const char* CSqliteInter::lastingCommits(int version)
{
    return version < 3011000 ? "PRAGMA synchronous=FULL;" : "PRAGMA synchronous=EXTRA;";
}

const char* CSqliteInter::lastingCommits()
{
    return lastingCommits(sqlite3_libversion_number());
}

bool CSqliteInter::accepts(const char* sql)
{
    m_allowance.startReading();
    sqlite3_stmt* statement = nullptr;
    const int code = m_pSqlite ? sqlite3_prepare_v2(m_pSqlite, sql, -1, &statement, nullptr) : SQLITE_MISUSE;
    sqlite3_finalize(statement);
    return code == SQLITE_OK;
}

int CSqliteInter::queryStep()
{
    if (!m_pStmt)
        return 0;
    if (m_textLost)
        return 0;
    const int code = sqlite3_step(m_pStmt);
    m_readFailed = code != SQLITE_ROW && code != SQLITE_DONE;
    return code == SQLITE_ROW;
}

int CSqliteInter::getFieldUChar(int col, unsigned char& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<unsigned char>(sqlite3_column_int(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldShort(int col, short& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<short>(sqlite3_column_int(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldUShort(int col, unsigned short& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<unsigned short>(sqlite3_column_int(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldInt(int col, int& out)
{
    if (!m_pStmt)
        return 0;
    out = sqlite3_column_int(m_pStmt, col);
    return 1;
}

int CSqliteInter::getFieldUInt(int col, unsigned int& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<unsigned int>(sqlite3_column_int(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldLong(int col, long& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<std::int32_t>(sqlite3_column_int64(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldULong(int col, unsigned long& out)
{
    if (!m_pStmt)
        return 0;
    out = static_cast<std::uint32_t>(sqlite3_column_int64(m_pStmt, col));
    return 1;
}

int CSqliteInter::getFieldDouble(int col, double& out)
{
    if (!m_pStmt)
        return 0;
    out = sqlite3_column_double(m_pStmt, col);
    return 1;
}

int CSqliteInter::getFieldStr(int col, std::string& out)
{
    if (!m_pStmt)
        return 0;
    out = takeText(col);
    return 1;
}

int CSqliteInter::getFieldQStr(int col, QString& out)
{
    if (!m_pStmt)
        return 0;
    out = QString::fromUtf8(takeText(col));
    return 1;
}

void CSqliteInter::queryFilish()
{
    if (!m_pStmt)
        return;
    sqlite3_finalize(m_pStmt);
    m_pStmt = nullptr;
}

int CSqliteInter::queryColumnCount()
{
    return m_pStmt ? sqlite3_column_count(m_pStmt) : 0;
}
