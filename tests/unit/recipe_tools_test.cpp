// Where the recipe file lives and how it is backed up.
#include "recipe_tools.h"

#include "hmi_object.h"
#include "recipe_fixtures.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

const QString DIRECTORY = QString::fromLatin1("/usr/tabrix/project/");
class RecipeFile : public testing::Test
{
protected:
    RecipeFile() { cleanProjectDirectory(); }
};

const QString FILE_PATH = DIRECTORY + QString::fromLatin1("recipeN.db3");
const QString BACKUP_PATH = FILE_PATH + QString::fromLatin1(".bak");

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray read(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList files()
{
    return QDir(DIRECTORY).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

object* anyObject()
{
    static char place = 0;
    return reinterpret_cast<object*>(&place); // never looked at
}

TEST(RecipeFilePath, IsTheSameForAnyObjectAndForNone)
{
    EXPECT_EQ(getRcpFilePath(nullptr), FILE_PATH);
    EXPECT_EQ(getRcpFilePath(anyObject()), FILE_PATH);
}

TEST(AutoExportPath, HasNoSeparatorAtItsEnd)
{
    EXPECT_EQ(getRecipeAutoExportPath(), QString::fromLatin1("/tmp/udisk"));
}

TEST_F(RecipeFile, IsKnownToExistOnlyOnceItIsThere)
{
    EXPECT_FALSE(rcpFileIsExists(nullptr));
    write(FILE_PATH, "x");
    EXPECT_TRUE(rcpFileIsExists(nullptr));
    EXPECT_TRUE(rcpFileIsExists(anyObject()));
}

TEST_F(RecipeFile, ThatIsMissingHasNoBackupMade)
{
    backupRcpFile(nullptr);
    EXPECT_EQ(files(), QStringList());
}

TEST_F(RecipeFile, IsBackedUpByteForByteAndStays)
{
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i)
        bytes.append(static_cast<char>(i * 7));
    write(FILE_PATH, bytes);
    backupRcpFile(anyObject());
    EXPECT_EQ(read(BACKUP_PATH), bytes);
    EXPECT_EQ(read(FILE_PATH), bytes);
    EXPECT_EQ(files().size(), 2);
}

/// Where the name was a pipe's, a save waited for ever for somebody at its other end.
TEST_F(RecipeFile, IsNotBackedUpWhereItIsNoOrdinaryFile)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), FILE_PATH)); // ends at once where it is copied all the same
    backupRcpFile(nullptr);
    EXPECT_TRUE(rcpFileIsExists(nullptr));
    EXPECT_EQ(files(), QStringList(QStringLiteral("recipeN.db3")));
}

/// On panels the file may stand on another partition.
TEST_F(RecipeFile, IsBackedUpThroughALink)
{
    const QString elsewhere = DIRECTORY + QStringLiteral("elsewhere");
    write(elsewhere, "recipes");
    ASSERT_TRUE(QFile::link(elsewhere, FILE_PATH));
    backupRcpFile(nullptr);
    EXPECT_EQ(read(BACKUP_PATH), QByteArray("recipes"));
}

TEST_F(RecipeFile, NeverReplacesAnOlderBackup)
{
    write(FILE_PATH, "new");
    write(BACKUP_PATH, "old");
    backupRcpFile(nullptr);
    EXPECT_EQ(read(BACKUP_PATH), QByteArray("old"));
    EXPECT_EQ(read(FILE_PATH), QByteArray("new"));
    EXPECT_EQ(files().size(), 2);
}

} // namespace
