// The fixture itself, as an example of its use.
#include "sheet_fixture.h"

class SheetFixtureItself : public SheetFixture
{
};

TEST_F(SheetFixtureItself, StartsASheetThatShowsTheGroupThatWasWritten)
{
    SheetGroup group = SheetGroup::ofSize(250, 120);
    group.dataTypes = {0, DATA_TYPE_TEXT, 3};
    group.decimals = {0, 0, 2};
    writeGroup(group);

    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    EXPECT_EQ(probe.itemCount(), 250);
    EXPECT_EQ(probe.recipeCount(), 120);
    EXPECT_EQ(probe.displayCells().size(), 50);
    EXPECT_EQ(probe.cellText(4, 0), QStringLiteral("4"));
    EXPECT_EQ(probe.cellText(4, 1), QStringLiteral("t1_4"));
    EXPECT_EQ(probe.cellText(4, 2), QStringLiteral("2004.00"));
    EXPECT_EQ(sheet.getRowName(249), QStringLiteral("Item249"));
    EXPECT_EQ(sheet.getColumnName(119), QStringLiteral("Recipe119"));
    EXPECT_EQ(querySql(QStringLiteral("SELECT row, column FROM recipe_config;")),
              QStringList(QStringLiteral("250|120")));
    EXPECT_EQ(runtime().watched(&sheet).size(), 2);
}

TEST_F(SheetFixtureItself, DeliversWhatAnItemAsksOfTheRuntime)
{
    writeGroup(SheetGroup());
    RecipeSheetItems& sheet = startSheet();
    const QPointF cell = RecipeSheetProbe(sheet).cellRect(1, 2).center();
    tap(sheet, cell);
    tap(sheet, cell);
    EXPECT_TRUE(requests.calls.empty()) << "only the event loop delivers";
    settle();
    EXPECT_EQ(requests.log, QStringList({QStringLiteral("sound"), QStringLiteral("sound"),
                                         QStringLiteral("call showKeyboardWindow")}));
    EXPECT_EQ(registers().word(QStringLiteral("LW"), 60803), 1);
}

TEST_F(SheetFixtureItself, StartsAnItemWithAFrameOfItsOwn)
{
    writeGroup(SheetGroup());
    FramedSheet& sheet = startFramedSheet(QRectF(10, 20, 600, 400));
    EXPECT_EQ(RecipeSheetProbe(sheet).itemRect(), QRectF(10, 20, 600, 400));
}
