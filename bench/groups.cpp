#include "groups.h"

#include "RecipeDB.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

const char* const ITEM_WORDS[LANGUAGE_COUNT] = {"Zone temperature", "Zonentemperatur", "Température de zone",
                                                "Temperatura",      "Температура",     "区域温度",
                                                "ゾーン温度",       "Temperatura zona"};
const char* const RECIPE_WORDS[LANGUAGE_COUNT] = {"Recipe", "Rezept", "Recette", "Ricetta",
                                                  "Рецепт", "配方",   "レシピ",  "Receta"};

QVector<QString> titles(const char* const (&words)[LANGUAGE_COUNT], int number)
{
    QVector<QString> result;
    for (const char* word : words)
        result.append(QString::fromUtf8(word) + QLatin1Char(' ') + QString::number(number + 1));
    return result;
}

/// One item in ten is a text, the others have 0 to 3 decimals.
recipeItemInfo_t makeItem(int index)
{
    recipeItemInfo_t item;
    item.rowIndex = index;
    item.rowName = titles(ITEM_WORDS, index);
    item.setAddress(QString::fromLatin1("PLC 1,0,1,D,,%1").arg(100 + 2 * index));
    item.dataType = index % 10 == 9 ? int(DATA_TYPE_TEXT) : index % 7;
    item.totalDigits = 6;
    item.decimalDigits = item.dataType == DATA_TYPE_TEXT ? 0 : index % 4;
    item.min = 0;
    item.max = 9999;
    return item;
}

QString cellText(const recipeItemInfo_t& item, int recipe)
{
    if (item.dataType == DATA_TYPE_TEXT)
        return QString::fromLatin1("Mix %1-%2").arg(item.rowIndex).arg(recipe);
    const double value = (item.rowIndex * 7919 + recipe * 104729) % 999983 / 1000.0;
    return QString::number(value, 'f', item.decimalDigits);
}

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "bench: cannot %s\n", what);
    std::exit(1);
}

void createEmptyGroup(RecipeDB& db)
{
    require(db.createTable_Addr(EMPTY_GROUP) == 0 && db.createTable_Language(EMPTY_GROUP) == 0
                && db.createTable_Data(EMPTY_GROUP, QVector<recipeItemInfo_t>()) == 0,
            "write the empty group");
}

} // namespace

recipeTableInfo_t makeGroup(const GroupSize& size)
{
    recipeTableInfo_t group;
    group.groupIndex = size.group;
    group.groupName = titles(RECIPE_WORDS, size.group);
    group.notify = 1;
    group.setNotifyAddress(QString::fromLatin1("PLC 1,0,1,M,,7"));
    for (int c = 0; c < size.recipes; ++c)
        group.columnName.append(titles(RECIPE_WORDS, c));
    for (int i = 0; i < size.items; ++i) {
        recipeItemInfo_t item = makeItem(i);
        for (int c = 0; c < size.recipes; ++c)
            item.values.append(cellText(item, c));
        group.items.append(item);
    }
    return group;
}

void createRecipeFile(const QString& path, const GroupSize& size)
{
    QFile::remove(path);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly), "create the recipe file");
    file.close();
    RecipeDB& db = *RecipeDB::getInstance();
    require(db.OpenRecipeFile(path) == 0 && db.createTable_RecipeConfig() == 0, "open the recipe file");
    require(db.createTable_Group(size.group, makeGroup(size)) == 0, "write a group");
    createEmptyGroup(db);
    db.CloseRecipeFile();
}
