// The titles of items and recipes.
#include "sheet_fixture.h"
#include "sqlite_errors.h"

namespace {

class SheetTitles : public SheetFixture
{
};

} // namespace

TEST_F(SheetTitles, AreReadFromTheFile)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getRowName(11), QStringLiteral("Item11"));
    EXPECT_EQ(sheet.getColumnName(7), QStringLiteral("Recipe7"));
}

TEST_F(SheetTitles, ArePlaceholdersOutsideTheGroup)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getColumnName(-1), QStringLiteral("Col-1"));
    EXPECT_EQ(sheet.getColumnName(8), QStringLiteral("Col8"));
    EXPECT_EQ(sheet.getRowName(-1), QStringLiteral("Row-1"));
    EXPECT_EQ(sheet.getRowName(12), QStringLiteral("Row12"));
    EXPECT_EQ(sheet.getRowName(2147483647), QStringLiteral("Row2147483647"));
    EXPECT_EQ(sheet.getColumnName(-2147483647 - 1), QStringLiteral("Col-2147483648"));
}

TEST_F(SheetTitles, ArePlaceholdersWithoutAFile)
{
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getColumnName(0), QStringLiteral("Col0"));
    EXPECT_EQ(sheet.getRowName(0), QStringLiteral("Row0"));
}

TEST_F(SheetTitles, ArePlaceholdersWhereTheFileHasNone)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("DELETE FROM lang_0 WHERE type <> 0;"));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getRowName(5), QStringLiteral("Row5"));
    EXPECT_EQ(sheet.getColumnName(5), QStringLiteral("Col5"));
}

/// The rest of a list that is too short.
TEST_F(SheetTitles, ArePlaceholdersBehindTheLastThatTheFileHas)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("DELETE FROM lang_0 WHERE strIndex > 3;"));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getRowName(3), QStringLiteral("Item3"));
    EXPECT_EQ(sheet.getRowName(4), QStringLiteral("Row4"));
    EXPECT_EQ(sheet.getColumnName(3), QStringLiteral("Recipe3"));
    EXPECT_EQ(sheet.getColumnName(4), QStringLiteral("Col4"));
}

TEST_F(SheetTitles, IgnoreWhatTheFileHasTooMany)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("INSERT INTO lang_0 VALUES (1,12,'x','x','x','x','x','x','x','x'),"
                          "(2,8,'x','x','x','x','x','x','x','x');"));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getRowName(12), QStringLiteral("Row12"));
    EXPECT_EQ(sheet.getColumnName(8), QStringLiteral("Col8"));
}

TEST_F(SheetTitles, ArePlaceholdersWhereAListHasNoEntryForTheLanguage)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    probe.rowNames()[2].resize(2);
    probe.columnNames()[2].resize(2);
    probe.nameLanguage() = 1;
    EXPECT_EQ(sheet.getRowName(2), QStringLiteral("Item2 L1"));
    EXPECT_EQ(sheet.getColumnName(2), QStringLiteral("Recipe2 L1"));
    probe.nameLanguage() = 2;
    EXPECT_EQ(sheet.getRowName(2), QStringLiteral("Row2"));
    EXPECT_EQ(sheet.getColumnName(2), QStringLiteral("Col2"));
}

TEST_F(SheetTitles, AreEmptyWhereTheFileHoldsAnEmptyTitleOrNone)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("UPDATE lang_0 SET L0 = '' WHERE strIndex = 1; UPDATE lang_0 SET L0 = NULL "
                          "WHERE strIndex = 2;"));
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(sheet.getRowName(1), QString());
    EXPECT_EQ(sheet.getColumnName(2), QString());
}

TEST_F(SheetTitles, AreNotAskedForAgainAfterAFailure)
{
    writeGroup(SheetGroup());
    runSql(QStringLiteral("ALTER TABLE lang_0 RENAME TO other;"));
    RecipeSheetItems* sheet = nullptr;
    {
        SqliteErrors errors;
        sheet = &startSheet();
    }
    EXPECT_TRUE(RecipeSheetProbe(*sheet).columnNamesLoaded());
    EXPECT_TRUE(RecipeSheetProbe(*sheet).rowNamesLoaded());
    EXPECT_TRUE(RecipeSheetProbe(*sheet).columnNames().isEmpty());

    runSql(QStringLiteral("ALTER TABLE other RENAME TO lang_0;"));
    sheet->loadColumnNames();
    sheet->loadRowNames();
    EXPECT_EQ(sheet->getColumnName(1), QStringLiteral("Col1"));
    EXPECT_EQ(sheet->getRowName(1), QStringLiteral("Row1"));
}

TEST_F(SheetTitles, AreNotReadAgainOnceTheyAreThere)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    runSql(QStringLiteral("UPDATE lang_0 SET L0 = 'changed';"));
    sheet.loadColumnNames();
    sheet.loadRowNames();
    sheet.init();
    EXPECT_EQ(sheet.getColumnName(1), QStringLiteral("Recipe1"));
    EXPECT_EQ(sheet.getRowName(1), QStringLiteral("Item1"));
}

/// An item that is asked before it knows its group has nothing to read into.
TEST_F(SheetTitles, CountAsLoadedWhereTheyAreAskedForBeforeTheStart)
{
    writeGroup(SheetGroup());
    openProject();
    RecipeSheetItems& sheet = keep(new RecipeSheetItems);
    EXPECT_EQ(sheet.getColumnName(0), QStringLiteral("Col0"));
    EXPECT_TRUE(RecipeSheetProbe(sheet).columnNamesLoaded());
    EXPECT_FALSE(RecipeSheetProbe(sheet).rowNamesLoaded());
}
