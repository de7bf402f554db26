#include "database.h"

#include "console.h"
#include "new_file.h"
#include "outcome.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <vector>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

const int PAGES_PER_STEP = 1000;
const int LOCK_PAUSE_MS = 20;
const int BYTES_PER_PIECE = 1 << 16;

/// With less, a journal that was deleted may be back after a power cut and undo the change. EXTRA is known from 3.11.
const char* lastingCommits()
{
    return sqlite3_libversion_number() < 3011000 ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=EXTRA";
}

} // namespace

Statement::Statement(Database& database, const std::string& sql) : m_database(database), m_statement(nullptr)
{
    const int code =
        sqlite3_prepare_v2(database.handle(), sql.c_str(), static_cast<int>(sql.size()) + 1, &m_statement, nullptr);
    if (code != SQLITE_OK)
        database.fail(code);
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

Statement& Statement::bind(int parameter, std::int64_t value)
{
    sqlite3_bind_int64(m_statement, parameter, value);
    return *this;
}

Statement& Statement::bind(int parameter, std::string_view text)
{
    sqlite3_bind_text(m_statement, parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return *this;
}

Statement& Statement::bind(int parameter, const Statement& row, int column)
{
    sqlite3_bind_value(m_statement, parameter, sqlite3_column_value(row.m_statement, column));
    return *this;
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        m_database.fail(code);
    return false;
}

void Statement::reset()
{
    sqlite3_reset(m_statement);
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_statement);
}

std::string Statement::columnName(int column) const
{
    const char* name = sqlite3_column_name(m_statement, column);
    return name ? name : "";
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

double Statement::number(int column) const
{
    return sqlite3_column_double(m_statement, column);
}

std::string Statement::text(int column) const
{
    const unsigned char* text = sqlite3_column_text(m_statement, column);
    const int bytes = sqlite3_column_bytes(m_statement, column);
    return text ? std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(bytes)) : std::string();
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

bool Statement::isText(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_TEXT;
}

bool Statement::isNumber(int column) const
{
    const int type = sqlite3_column_type(m_statement, column);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

Database::Database(const std::string& path, Mode mode, int waitMs) : m_path(path), m_handle(nullptr)
{
    if (mode != AnyContents)
        refuseOtherThings();
    try {
        open(mode, waitMs);
    } catch (...) {
        sqlite3_close(m_handle);
        throw;
    }
}

Database::~Database()
{
    sqlite3_close(m_handle);
}

void Database::refuseOtherThings() const
{
    std::error_code error;
    const fs::file_status status = fs::status(m_path, error);
    if (!fs::exists(status))
        throw ToolError("There is no file " + m_path + '.');
    if (fs::is_directory(status))
        throw ToolError(m_path + " is a directory, not a recipe file.");
    if (access(m_path.c_str(), R_OK) != 0)
        throw ToolError("Cannot read " + m_path + ": " + systemMessage(errno) + '.');
    if (fs::is_regular_file(status) && fs::file_size(m_path, error) == 0)
        throw ToolError(m_path + " is empty, so it is no recipe file.");
}

void Database::connect(bool readOnly, int waitMs)
{
    const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int code = sqlite3_open_v2(m_path.c_str(), &m_handle, flags, nullptr);
    if (code != SQLITE_OK)
        fail(code);
    sqlite3_extended_result_codes(m_handle, 1);
    sqlite3_busy_timeout(m_handle, waitMs);
}

void Database::requireRecipeFile()
{
    if (!hasTable("recipe_config"))
        throw ToolError(m_path + " is an SQLite database without a table recipe_config, so it is no recipe file.");
}

void Database::open(Mode mode, int waitMs)
{
    connect(mode == ReadOnly || mode == Reading, waitMs);
    if (mode == AnyContents) {
        sqlite3_exec(m_handle, lastingCommits(), nullptr, nullptr, nullptr); // refused by what is no database
        return;
    }
    try {
        requireRecipeFile();
    } catch (const InterruptedWrite&) {
        if (mode != Reading || access(m_path.c_str(), W_OK) != 0)
            throw;
        sqlite3_close(m_handle);
        connect(false, waitMs);
        requireRecipeFile();
        say("a write to " + m_path + " was interrupted; it is in its last whole state again");
    }
    if (mode == ReadWrite)
        execute(lastingCommits());
}

void Database::execute(const std::string& sql)
{
    const int code = sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code);
}

bool Database::hasTable(const std::string& name)
{
    Statement statement(*this, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
    return statement.bind(1, name).step();
}

std::int64_t Database::value(const std::string& sql)
{
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

void Database::rollBack()
{
    if (sqlite3_get_autocommit(m_handle) == 0)
        sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

void Database::lockForReplacement()
{
    execute("PRAGMA locking_mode = EXCLUSIVE");
    execute("BEGIN EXCLUSIVE");
    execute("COMMIT"); // the lock stays
}

void Database::copyInto(Database& target, int waitMs)
{
    sqlite3_backup* backup = sqlite3_backup_init(target.handle(), "main", m_handle, "main");
    if (!backup)
        target.fail(sqlite3_errcode(target.handle()));
    int waited = 0;
    int code = SQLITE_OK;
    while (code == SQLITE_OK || code == SQLITE_BUSY || code == SQLITE_LOCKED) {
        code = sqlite3_backup_step(backup, PAGES_PER_STEP);
        if (code != SQLITE_BUSY && code != SQLITE_LOCKED)
            continue;
        if (waited >= waitMs)
            break;
        waited += sqlite3_sleep(LOCK_PAUSE_MS);
    }
    sqlite3_backup_finish(backup);
    if (code != SQLITE_DONE)
        target.fail(code);
}

void Database::copyBytes(const std::string& target)
{
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        throw ToolError("Cannot keep a copy of " + m_path + ": it cannot be read.");
    std::ofstream out(target, std::ios::binary);
    std::vector<char> piece(BYTES_PER_PIECE);
    for (sqlite3_int64 done = 0; done < size;) {
        const int count = static_cast<int>(std::min<sqlite3_int64>(size - done, BYTES_PER_PIECE));
        if (file->pMethods->xRead(file, piece.data(), count, done) != SQLITE_OK)
            throw ToolError("Cannot keep a copy of " + m_path + ": it cannot be read.");
        out.write(piece.data(), count);
        done += count;
    }
    out.close();
    if (out.fail())
        throw ToolError("Cannot write " + target + ": no room, or the medium is gone.");
}

void Database::fail(int code)
{
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
        throw NotADatabase(m_path + " is not an SQLite database, so it is no recipe file.");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw LockedFile(m_path
                         + " is locked by another program; try again later, or wait for it with --wait SECONDS.");
    case SQLITE_CORRUPT:
        throw DamagedFile(m_path + " is damaged (" + sqlite3_errmsg(m_handle) + "); restore a backup.");
    case SQLITE_READONLY:
        if (code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY)
            throw InterruptedWrite("A write to " + m_path + " was interrupted. " + INTERRUPTED_CURE);
        throw ToolError(m_path + " cannot be written: " + sqlite3_errmsg(m_handle) + '.');
    default:
        throw ToolError(m_path + ": " + sqlite3_errmsg(m_handle) + '.');
    }
}
