// Where the recipe file lives and how it is backed up.
#include "recipe_tools.h"

#include <QFile>

namespace {

const char PROJECT_DIRECTORY[] = "/usr/tabrix/project/";
const char RECIPE_FILE[] = "recipeN.db3"; // the N is part of the name
const char BACKUP_SUFFIX[] = ".bak";
const char EXPORT_DIRECTORY[] = "/tmp/udisk";

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
    if (QFile::exists(path))
        QFile::copy(path, path + QString::fromLatin1(BACKUP_SUFFIX));
}

bool rcpFileIsExists(object* item)
{
    return QFile::exists(getRcpFilePath(item));
}
