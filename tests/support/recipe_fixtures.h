// Recipe records and files for tests. Whoever includes this links recipe_storage.
//
// The records made here are regular, so that a test can say what must be where: see the four formulas.
#ifndef RECIPE_FIXTURES_H
#define RECIPE_FIXTURES_H

#include "RecipeDB.h"
#include "outside_sqlite.h"
#include "recipe_records.h"

#include <QDir>
#include <QMap>
#include <QString>

#include <gtest/gtest.h>

// --- the formulas ------------------------------------------------------------------------------------------------

inline QString groupTitle(int language)
{
    return QString::fromLatin1("Group L%1").arg(language);
}

inline QString itemTitle(int item, int language)
{
    return QString::fromLatin1("Item %1 L%2").arg(item).arg(language);
}

inline QString recipeTitle(int recipe, int language)
{
    return QString::fromLatin1("Recipe %1 L%2").arg(recipe).arg(language);
}

/// What the file holds for a numeric item; unique within groups of up to 10000 items. Without a "." it reads back
/// as "<value>.0", for the columns are REAL.
inline QString cellValue(int recipe, int item)
{
    return QString::number(recipe * 10000 + item);
}

// --- records -----------------------------------------------------------------------------------------------------

template <typename Title> QVector<QString> titles(Title title)
{
    QVector<QString> result;
    for (int language = 0; language < LANGUAGE_COUNT; ++language)
        result.append(title(language));
    return result;
}

/// Item `i` of a group of `recipes` recipes: register LW 100 + i, five digits, no decimals, limits 0 to 65535.
inline recipeItemInfo_t recipeItem(int i, int recipes, int dataType = 0)
{
    recipeItemInfo_t item;
    item.rowIndex = i;
    item.rowName = titles([i](int language) { return itemTitle(i, language); });
    item.setAddress(QString::fromLatin1("Internal storage area,%1,-1,LW,,0").arg(100 + i));
    item.dataType = dataType;
    item.totalDigits = 5;
    for (int c = 0; c < recipes; ++c)
        item.values.append(cellValue(c, i));
    return item;
}

/// A group of numeric items, without a notification address.
inline recipeTableInfo_t recipeGroup(int items, int recipes)
{
    recipeTableInfo_t group;
    group.groupName = titles(groupTitle);
    for (int i = 0; i < items; ++i)
        group.items.append(recipeItem(i, recipes));
    for (int c = 0; c < recipes; ++c)
        group.columnName.append(titles([c](int language) { return recipeTitle(c, language); }));
    return group;
}

// --- files -------------------------------------------------------------------------------------------------------

/// Where the plug-in looks. Each test process has a directory of its own there.
inline QString recipeFilePath()
{
    return QString::fromLatin1("/usr/tabrix/project/recipeN.db3");
}

/// Removes what an earlier test of the same process left there.
inline void cleanProjectDirectory()
{
    QDir directory(QString::fromLatin1("/usr/tabrix/project"));
    for (const QString& name : directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (!directory.remove(name))
            QDir(directory.filePath(name)).removeRecursively();
    }
}

/// A file with an empty configuration table, written without the product.
inline void makeEmptyRecipeFile(const QString& path = recipeFilePath())
{
    OutsideSqlite(path).exec("CREATE TABLE IF NOT EXISTS recipe_config (group_index INTEGER PRIMARY KEY, "
                             "row INTEGER NOT NULL, column INTEGER NOT NULL, notify INTEGER NOT NULL, "
                             "notify_addr VARCHAR);");
}

/// A file with these groups, written by the product's storage. The process's RecipeDB has no file open afterwards.
inline void writeRecipeFile(const QMap<int, recipeTableInfo_t>& groups, const QString& path = recipeFilePath())
{
    makeEmptyRecipeFile(path);
    RecipeDB* const db = RecipeDB::getInstance();
    ASSERT_EQ(db->OpenRecipeFile(path), 0);
    for (QMap<int, recipeTableInfo_t>::const_iterator it = groups.begin(); it != groups.end(); ++it)
        EXPECT_EQ(db->createTable_Group(it.key(), it.value()), 0) << "group " << it.key();
    db->CloseRecipeFile();
}

/// A file with one group, number 0 unless said otherwise.
inline void writeRecipeFile(const recipeTableInfo_t& group, int number = 0, const QString& path = recipeFilePath())
{
    QMap<int, recipeTableInfo_t> groups;
    groups.insert(number, group);
    writeRecipeFile(groups, path);
}

#endif
