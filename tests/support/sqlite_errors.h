// What the storage modules print about SQLite failures ("CSqliteInter::... ERROR" on standard output).
//
// A test during which such a text is printed fails, unless a SqliteErrors was alive at that moment.
#ifndef SQLITE_ERRORS_H
#define SQLITE_ERRORS_H

#include <string>

/// Watches standard output from now on and fails the tests that print an unexpected error. Called by main().
void installSqliteErrorWatch();

/// For its lifetime, printed SQLite errors are expected and collected. One at a time; any thread may print.
class SqliteErrors
{
public:
    enum Kind
    {
        Required, ///< it is a failure when none comes
        Allowed   ///< they may come or not
    };

    explicit SqliteErrors(Kind kind = Required);
    ~SqliteErrors();
    SqliteErrors(const SqliteErrors&) = delete;
    SqliteErrors& operator=(const SqliteErrors&) = delete;

    /// All that was printed since the construction or the last call, whole and byte for byte.
    std::string take();
    /// How many errors came since the construction.
    int count() const;

private:
    Kind m_kind;
};

#endif
