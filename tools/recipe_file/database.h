// The tool's own connection to an SQLite file: read-only looks, waiting for locks, backups. The only source of the
// tool that includes the SQLite header. Every failure is a ToolError with one sentence for the user.
#ifndef DATABASE_H
#define DATABASE_H

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

class Database;

/// What to do about an interrupted write.
const char INTERRUPTED_CURE[] = "A panel, or any other command of recipe-file with write access, brings it back to its "
                                "last whole state.";

/// A prepared statement. Lives no longer than its database.
class Statement
{
public:
    Statement(Database& database, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int parameter, std::int64_t value); ///< parameters count from 1
    Statement& bind(int parameter, std::string_view text);
    Statement& bind(int parameter, const Statement& row, int column); ///< a value of its current row, as it is
    bool step();                                                      ///< whether a row is there
    void reset();

    int columnCount() const;
    std::string columnName(int column) const;
    std::int64_t integer(int column) const; ///< columns count from 0; converted by SQLite's rules
    double number(int column) const;
    std::string text(int column) const; ///< NULL is an empty text
    bool isNull(int column) const;
    bool isText(int column) const;
    bool isNumber(int column) const;

private:
    Database& m_database;
    sqlite3_stmt* m_statement;
};

class Database
{
public:
    enum Mode
    {
        ReadOnly, ///< writes nothing, whatever happens
        Reading,  ///< rolls an unfinished write of a killed program back first, as every program with write access does
        ReadWrite,
        AnyContents ///< to be filled or replaced: whatever stands there now
    };

    /// Opens an existing file and makes sure that it is a recipe file. `waitMs` bounds the wait for other programs'
    /// locks, here and in every later call.
    Database(const std::string& path, Mode mode, int waitMs);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::string& path() const { return m_path; }
    sqlite3* handle() const { return m_handle; }

    void execute(const std::string& sql);
    bool hasTable(const std::string& name);
    /// The one number of a query.
    std::int64_t value(const std::string& sql);
    /// Ends a transaction without its changes, if one is open.
    void rollBack();
    /// Takes the file for itself alone until the connection ends: others neither read nor write.
    void lockForReplacement();
    /// Replaces all that `target` holds by what this file holds, in one transaction, with SQLite's backup interface.
    void copyInto(Database& target, int waitMs);
    /// The file's bytes as they are, through this connection: opening the file beside it would end its locks.
    void copyBytes(const std::string& target);
    [[noreturn]] void fail(int code);

private:
    void refuseOtherThings() const;
    void open(Mode mode, int waitMs);
    void connect(bool readOnly, int waitMs);
    void requireRecipeFile();

    std::string m_path;
    sqlite3* m_handle;
};

#endif
