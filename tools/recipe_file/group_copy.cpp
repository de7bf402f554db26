#include "group_copy.h"

#include "console.h"
#include "group_access.h"
#include "outcome.h"
#include "recipe_writer.h"

#include <QTemporaryFile>

namespace {

void copyRows(Database& from, Database& to, const std::string& table, const std::string& condition)
{
    Statement row(from, "SELECT * FROM " + table + condition + " ORDER BY rowid");
    std::string sql = "INSERT INTO " + table + " VALUES (?";
    for (int i = 1; i < row.columnCount(); ++i)
        sql += ",?";
    Statement insert(to, sql + ')');
    while (row.step()) {
        for (int i = 0; i < row.columnCount(); ++i)
            insert.bind(i + 1, row, i);
        insert.step();
        insert.reset();
    }
}

void copyTable(Database& from, Database& to, const std::string& table)
{
    if (to.hasTable(table))
        throw ToolError(to.path() + " holds a table " + table + " that belongs to no group. See recipe-file check.");
    Statement made(from, "SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?");
    if (made.bind(1, table).step())
        to.execute(made.text(0));
    copyRows(from, to, table, "");
}

} // namespace

void addGroup(Database& database, const recipeTableInfo_t& group)
{
    // The storage layer has a connection and a transaction of its own, so it writes a file of its own first.
    QTemporaryFile file;
    if (!file.open())
        throw ToolError("Cannot write a temporary file: " + file.errorString().toStdString() + '.');
    const std::string path = file.fileName().toStdString();
    {
        const StdoutIsTalk talk;
        RecipeWriter(path, "a temporary file").writeGroup(group);
    }
    RecipeWriter::verify(path, "a temporary file");
    Database made(path, Database::ReadOnly, 0);
    copyRows(made, database, "recipe_config", " WHERE group_index = " + std::to_string(group.groupIndex));
    for (const char* kind : {"addr_", "lang_", "data_"})
        copyTable(made, database, tableName(kind, group.groupIndex));
}
