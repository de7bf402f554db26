// Where the recipe file lives, how it is backed up, and the loading of a range of recipes.
#include "recipe_tools.h"

#include "InterfaceComm.h"
#include "RecipeDB.h"
#include "number_text.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace {

const char PROJECT_DIRECTORY[] = "/usr/tabrix/project/";
const char RECIPE_FILE[] = "recipeN.db3"; // the N is part of the name
const char BACKUP_SUFFIX[] = ".bak";
const char EXPORT_DIRECTORY[] = "/tmp/udisk";

const int DATA_TYPE_FLOAT = 6;
const int NO_LINK = -1;
const int LINK_UP = 0;

/// The number of 16-bit words that an item takes in the register image.
int wordsOf(const recipeItemInfo_t& item)
{
    switch (item.dataType) {
    case 1:
    case 3:
    case 5:
    case DATA_TYPE_FLOAT:
        return 2;
    case DATA_TYPE_TEXT:
        return item.totalDigits;
    default:
        return 1;
    }
}

/// Gives every item its place in the register image and the link number that the runtime knows.
void layOutItems(QVector<recipeItemInfo_t>& items, InterfaceComm* comm)
{
    qint64 offset = 0;
    for (int i = 0; i < items.size(); ++i) {
        recipeItemInfo_t& item = items[i];
        item.wordOffset = static_cast<qint32>(offset);
        item.wordCount = wordsOf(item);
        offset += item.wordCount;
        const LinkValue link = comm->linkValue(item.devName);
        if (link.linkId != NO_LINK && link.status == LINK_UP)
            item.regAddr.addrPart2 = link.linkNumber;
    }
}

/// One digit more is printed and dropped again: the last digit kept is truncated, not rounded.
QString truncatedNotation(double value, int decimals)
{
    const QString text = fixedNotation(value, qMin<int>(decimals, MAX_DECIMALS) + 1); // a file may ask for INT_MAX
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() < 2)
        return text;
    return parts.at(0) + QLatin1Char('.') + parts.at(1).left(decimals);
}

/// A stored value as it is shown and transferred. Floats are rounded, all other numbers with decimals truncated;
/// wanted.
QString transferText(const QString& value, const recipeItemInfo_t& item)
{
    if (item.dataType == DATA_TYPE_TEXT)
        return value;
    const int decimals = qMax(item.decimalDigits, 0);
    if (item.dataType == DATA_TYPE_FLOAT)
        return fixedNotation(static_cast<double>(value.toFloat()), decimals);
    return decimals < 1 ? fixedNotation(value.toDouble(), 0) : truncatedNotation(value.toDouble(), decimals);
}

void appendValues(const QList<QList<QString> >& recipes, QVector<recipeItemInfo_t>& items)
{
    for (int r = 0; r < recipes.size(); ++r) {
        const QList<QString>& values = recipes.at(r);
        for (int j = 0; j < values.size() && j < items.size(); ++j)
            items[j].values.append(transferText(values.at(j), items.at(j)));
    }
}

/// How many of `count` recipes from `start` on the group has.
int existingRecipes(int start, int count, int recipes)
{
    return qint64(start) + count > recipes ? qMax(recipes - start, 0) : count;
}

} // namespace

QString getRcpFilePath(object* item)
{
    Q_UNUSED(item)
    return QString::fromLatin1(PROJECT_DIRECTORY) + QString::fromLatin1(RECIPE_FILE);
}

QString getRecipeAutoExportPath()
{
    return QString::fromLatin1(EXPORT_DIRECTORY);
}

void backupRcpFile(object* item)
{
    const QString path = getRcpFilePath(item);
    if (QFileInfo(path).isFile()) // a pipe or a device would hold the panel, or fill the disk
        QFile::copy(path, path + QString::fromLatin1(BACKUP_SUFFIX));
}

bool rcpFileIsExists(object* item)
{
    return QFile::exists(getRcpFilePath(item));
}

int loadRecipe2Struct_start_end(int group, int start, int count, recipeTableInfo_t& info, InterfaceComm* comm)
{
    info.clear();
    RecipeDB* const db = RecipeDB::getInstance();
    if (!comm || count <= 0 || !db)
        return 0;
    if (db->findRecipeConfig(group, info) != 0 || db->findTable_Addr_All(group, info) != 0) {
        info.clear();
        return 0;
    }
    layOutItems(info.items, comm);
    db->findTable_Language_AllRow(group, info.items);
    db->findTable_Language(group, DB_LANGUAGE_GROUP, 0, info.groupName);

    const int existing = existingRecipes(start, count, static_cast<int>(info.columnName.size()));
    info.columnName.resize(existing);
    QList<QList<QString> > recipes;
    db->findTable_Data_Start_Length(group, start, count, recipes);
    appendValues(recipes, info.items);
    for (int c = 0; c < existing; ++c)
        db->findTable_Language(group, DB_LANGUAGE_COLUMN, start + c, info.columnName[c]);
    return 1;
}
