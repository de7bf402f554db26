// What the tests of RecipeDB share: an instance of its own on a fresh file, and a record of all that it asks of its
// connection.
#ifndef STORAGE_FIXTURE_H
#define STORAGE_FIXTURE_H

#include "outside_sqlite.h"
#include "recipe_db_probe.h"
#include "recipe_fixtures.h"
#include "sqlite_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Notes the calls and passes them on.
class RecordingInter : public CSqliteInter
{
public:
    std::vector<std::string> calls;

    int execSQL(const char* sql) override
    {
        calls.push_back(sql);
        return CSqliteInter::execSQL(sql);
    }
    int querySQL(const char* sql) override
    {
        calls.push_back(sql);
        return CSqliteInter::querySQL(sql);
    }
    int truncateTable(const char* table) override
    {
        calls.push_back(std::string("<truncate ") + table + ">");
        return CSqliteInter::truncateTable(table);
    }
    int execBegin() override
    {
        calls.push_back("<begin>");
        return CSqliteInter::execBegin();
    }
    int execCommit() override
    {
        calls.push_back("<commit>");
        return CSqliteInter::execCommit();
    }
    int execRollBack() override
    {
        calls.push_back("<rollback>");
        return CSqliteInter::execRollBack();
    }
};

class StorageTest : public testing::Test
{
protected:
    StorageTest() : path(recipeFilePath()), db(RecipeDBProbe::make()) { cleanProjectDirectory(); }
    ~StorageTest() override { EXPECT_EQ(RecipeDBProbe::openStatement(*db), ""); }

    /// A file with an empty configuration table, opened.
    void openEmpty()
    {
        makeEmptyRecipeFile(path);
        ASSERT_EQ(db->OpenRecipeFile(path), 0);
    }

    /// The same through a connection that notes what it is asked. It belongs to `db`.
    RecordingInter& openRecorded()
    {
        makeEmptyRecipeFile(path);
        RecordingInter* const inter = new RecordingInter;
        EXPECT_EQ(inter->connect(path.toUtf8().constData()), 1);
        RecipeDBProbe::setConnection(*db, inter);
        return *inter;
    }

    std::string outside(const std::string& sql) const { return outsideQuery(path, sql); }
    std::string schema(const std::string& table) const
    {
        return outside("SELECT sql FROM sqlite_master WHERE name = '" + table + "';");
    }
    /// Everything that the file holds, as text.
    std::string dump() const
    {
        OutsideSqlite file(path);
        std::string result = file.query("SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY name;");
        for (const std::string& name : lines(file.query("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY "
                                                        "name;")))
            result += "\n" + name + ":\n" + file.query("SELECT rowid, * FROM " + name + ";");
        return result;
    }

    static std::vector<std::string> lines(const std::string& text)
    {
        std::vector<std::string> result;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size());
            result.push_back(text.substr(at, end - at));
            at = end + 1;
        }
        return result;
    }

    const QString path;
    const RecipeDBProbe::Owner db;
};

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

inline QVector<QString> eight(const QString& first)
{
    QVector<QString> result(8);
    result[0] = first;
    return result;
}

/// A QVector or QList of texts, which are one type in Qt 6.
template <typename Texts> std::vector<std::string> plain(const Texts& texts)
{
    std::vector<std::string> result;
    for (const QString& each : texts)
        result.push_back(each.toStdString());
    return result;
}

#endif
