// The bare SQLite C interface: the limit that storage is measured against.
#ifndef BENCH_BARE_SQLITE_H
#define BENCH_BARE_SQLITE_H

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>

#include <functional>

struct sqlite3;

/// One connection of its own. Every failure ends the process.
class BareSqlite
{
public:
    explicit BareSqlite(const QString& path);
    BareSqlite(const BareSqlite&) = delete;
    BareSqlite& operator=(const BareSqlite&) = delete;
    ~BareSqlite();

    void exec(const QByteArray& sql);
    void exec(const QList<QByteArray>& statements);
    /// Steps through all rows and reads the columns [first, last] as texts; last -1: to the end. Returns their
    /// length in bytes, so that nothing is left out.
    qint64 step(const QByteArray& sql, int first = 0, int last = -1);
    /// The same, with the texts kept, one list per row.
    QVector<QVector<QString> > read(const QByteArray& sql, int first = 0, int last = -1);

private:
    sqlite3* m_connection;
};

/// A block of a group: recipes [column, column + columns), items [row, row + rows).
struct BlockRange
{
    int group;
    int column;
    int columns;
    int row;
    int rows;
};

/// Steps through what a block consists of, titles excepted: configuration, addresses, values.
void stepBlock(BareSqlite& database, const BlockRange& block);
/// Steps through all rows of a group, titles included.
void stepGroup(BareSqlite& database, int group);

/// The statements that RecipeDB runs during `action`, in order. Opens the recipe file afresh before.
QList<QByteArray> recordStatements(const QString& path, const std::function<void()>& action);

#endif
