// A second connection to a recipe file, with nothing of the product in between: storage is judged from outside.
#ifndef OUTSIDE_SQLITE_H
#define OUTSIDE_SQLITE_H

#include <QString>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

class OutsideSqlite
{
public:
    /// Opens the file and creates it when missing. A failure is a test failure.
    explicit OutsideSqlite(const QString& path)
    {
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &m_handle), SQLITE_OK) << path.toStdString();
    }
    ~OutsideSqlite() { sqlite3_close_v2(m_handle); }
    OutsideSqlite(const OutsideSqlite&) = delete;
    OutsideSqlite& operator=(const OutsideSqlite&) = delete;

    sqlite3* handle() const { return m_handle; }

    /// Runs statements without results, which must succeed.
    void exec(const std::string& sql)
    {
        EXPECT_EQ(sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql << "\n"
            << sqlite3_errmsg(m_handle);
    }

    /// All rows as one text: columns joined with "|", rows with a line feed, NULL as "<null>". A failing query gives
    /// "error: " and SQLite's text.
    std::string query(const std::string& sql)
    {
        sqlite3_stmt* statement = nullptr;
        int code = sqlite3_prepare_v2(m_handle, sql.c_str(), -1, &statement, nullptr);
        std::string result;
        while (code == SQLITE_OK || code == SQLITE_ROW) {
            code = sqlite3_step(statement);
            if (code == SQLITE_ROW)
                result += (result.empty() ? "" : "\n") + row(statement);
        }
        sqlite3_finalize(statement);
        return code == SQLITE_DONE ? result : std::string("error: ") + sqlite3_errmsg(m_handle);
    }

private:
    static std::string row(sqlite3_stmt* statement)
    {
        std::string result;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const char* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            result += (i ? "|" : "") + std::string(text ? text : "<null>");
        }
        return result;
    }

    sqlite3* m_handle = nullptr;
};

/// One query by a connection of its own.
inline std::string outsideQuery(const QString& path, const std::string& sql)
{
    return OutsideSqlite(path).query(sql);
}

#endif
