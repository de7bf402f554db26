// One SQLite connection with at most one open query. The only module that knows the SQLite library.
//
// Order of calls for a query: querySQL, queryStep while it returns 1 (reading columns from 0 with getField...),
// queryFilish. Starting another query or running any statement finalizes the open one.
//
// A statement that takes more than its allowance (statement_allowance.h) fails like one that the disk ended.
//
// No lock of its own: the owner serialises all calls. Return values differ by operation, see each.
#ifndef SQLITE_INTER_H
#define SQLITE_INTER_H

#include "statement_allowance.h"

#include <QString>

#include <cstdint>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

class CSqliteInter
{
public:
    CSqliteInter();
    CSqliteInter(const CSqliteInter&) = delete;
    CSqliteInter& operator=(const CSqliteInter&) = delete;
    /// Ends the open query, if any, and disconnects.
    virtual ~CSqliteInter();

    // The order of the virtual operations is fixed; calls between them go through the virtual table.

    /// Opens the file (UTF-8 path). 1: connected, also when it already was (the first file stays); 0: failed.
    virtual int connect(const char* filename);
    /// Closes the connection; one that SQLite calls busy stays open and connected. An open query is not finalized.
    virtual void disconnect();
    /// Ends the open query, if any.
    virtual void reset();
    /// 1 while connected, else 0; nothing is sent to the database.
    virtual int ping();

    /// 0: done, 2: failed.
    virtual int vacuum();
    /// 0: done, 2: failed. The statement with the table's name must fit in 63 bytes; one that does not fails.
    virtual int deleteTable(const char* table);
    virtual int truncateTable(const char* table);
    /// Always 0, wanted: the tables are created with IF NOT EXISTS and nobody asks.
    virtual int existTable(const char* table);
    /// The largest value of the field, 0 for an empty table, 2 when the query fails. A maximum of 2 cannot be told
    /// from the failure; wanted.
    virtual int maxId(const char* table, const char* field);

    /// 0: done, 2: failed (statement and SQLite's message are printed). Stops the process when not connected or
    /// without a text: a programming error.
    virtual int execSQL(const char* sql);
    /// 0: a query is open, 2: failed (statement and the unparsed rest of it are printed). Stops the process like
    /// execSQL.
    virtual int querySQL(const char* sql);

    /// 0: done, 1: failed (printed). Stop the process when not connected.
    virtual int execBegin();
    virtual int execCommit();
    /// Rolls back only while a query is open (0: done, 1: failed); without one it does nothing and returns 1.
    /// Wanted: whoever needs a rollback after a failed execSQL opens a query first.
    virtual int execRollBack();

    /// 1: a row is there; 0: no row, the end, an error or no open query.
    virtual int queryStep();

    // Columns of the current row: 1 with `out` set, 0 with `out` as it was when no query is open. What SQLite
    // delivers is converted by its rules; integers are cut to the width of the target, and the long variants to 32
    // bits whatever the platform's long is.
    virtual int getFieldUChar(int col, unsigned char& out);
    virtual int getFieldShort(int col, short& out);
    virtual int getFieldUShort(int col, unsigned short& out);
    virtual int getFieldInt(int col, int& out);
    virtual int getFieldUInt(int col, unsigned int& out);
    virtual int getFieldLong(int col, long& out);
    virtual int getFieldULong(int col, unsigned long& out);
    virtual int getFieldDouble(int col, double& out);
    /// Text up to its first zero byte; NULL reads as an empty text.
    virtual int getFieldStr(int col, std::string& out);
    virtual int getFieldQStr(int col, QString& out);

    /// Ends the open query, if any. (The name is spelled so.)
    virtual void queryFilish();
    /// Number of columns of the open query, 0 when there is none.
    virtual int queryColumnCount();

    /// Whether a transaction is open. SQLite ends one by itself after some failures (a full disk, an I/O error);
    /// what is written after that is no longer part of it.
    bool inTransaction() const;

    /// Whether the last querySQL or queryStep failed for another reason than the statement itself: the disk, a lock, a
    /// damaged file, or memory that was not there for a text. queryStep's 0 alone does not tell such a failure from the
    /// end of the rows.
    bool readFailed() const { return m_readFailed; }

    /// 1 with the number that the column of the current row holds; 0, with `out` as it was, where it is stored as
    /// anything but a floating-point number or no query is open. Spares the way over the text.
    int getStoredDouble(int col, double& out) const;

    /// The statement that makes commits last as well as an SQLite of that number (3011000 for 3.11.0) can. Before 3.11
    /// it does not know EXTRA and would take it for NORMAL, which is less than its default. Any thread.
    static const char* lastingCommits(int version);
    /// The same for the SQLite that runs.
    static const char* lastingCommits();

    /// The most rows that any table of the file can have: a larger count comes from a view and is nothing to take
    /// memory for.
    std::int64_t mostRows() const;

    /// Whether SQLite would take the (first) statement. Runs and prints nothing; an open query stays open.
    bool accepts(const char* sql);

protected:
    /// The largest part of its allowance of steps and changes that the current statement has taken so far: what
    /// takes more than 1 is ended. Tests see by it that plain tables stay far below.
    double spentShare() const;

    sqlite3* m_pSqlite;    ///< null when not connected
    sqlite3_stmt* m_pStmt; ///< null when no query is open

private:
    const char* takeText(int col);
    std::int64_t fileBytes() const;

    bool m_readFailed;
    bool m_textLost; ///< of the open query; it delivers no more rows
    StatementAllowance m_allowance;
};

#endif
