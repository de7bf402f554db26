// What a person sees: a few pages against reference pictures.
#include "paint_page.h"

#include "RecipeDB.h"
#include "picture_check.h"

#include <QFile>
#include <QImage>
#include <QPainter>

namespace {

const bool fontsArePinned = pinFonts();

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

struct Ingredient
{
    const char* name;
    int dataType;
    int decimals;
    double base;
    double perRecipe;
};

const Ingredient INGREDIENTS[] = {
    {"Flour [kg]", 3, 1, 62.5, 1.25}, {"Water [l]", 3, 1, 38.0, 0.75}, {"Yeast [g]", 0, 0, 900, 45},
    {"Salt [g]", 0, 0, 1150, 20},     {"Sugar [g]", 0, 0, 400, 60},    {"Butter [kg]", 3, 2, 1.5, 0.25},
    {"Kneading [s]", 0, 0, 480, 15},  {"Resting [min]", 0, 0, 30, 5},  {"Piece [g]", 0, 0, 60, 70},
    {"Oven top [C]", 0, 0, 235, -5},  {"Oven low [C]", 0, 0, 225, -5}, {"Programme", 7, 0, 0, 0},
};

const char* const BREADS[] = {"Rolls", "Baguette", "White", "Rye", "Spelt", "Brioche", "Pretzel", "Ciabatta"};

/// Twelve items of a bakery line and eight breads.
recipeTableInfo_t bakery()
{
    recipeTableInfo_t table = SheetGroup::ofSize(12, 8).record();
    for (int c = 0; c < 8; ++c)
        table.columnName[c].fill(latin(BREADS[c]));
    for (int i = 0; i < 12; ++i) {
        const Ingredient& ingredient = INGREDIENTS[i];
        recipeItemInfo_t& item = table.items[i];
        item.rowName.fill(latin(ingredient.name));
        item.dataType = ingredient.dataType;
        item.decimalDigits = ingredient.decimals;
        for (int c = 0; c < 8; ++c)
            item.values[c] = ingredient.dataType == DATA_TYPE_TEXT
                                 ? latin(BREADS[c]).left(2).toUpper() + QString::number(100 + c)
                                 : QString::number(ingredient.base + c * ingredient.perRecipe);
    }
    return table;
}

} // namespace

class PaintedPicture : public SheetFixture
{
protected:
    void writeBakery()
    {
        writeGroup(SheetGroup());
        RecipeDB* const db = RecipeDB::getInstance();
        ASSERT_EQ(db->OpenRecipeFile(recipeFile()), 0);
        ASSERT_EQ(db->createTable_Group(0, bakery()), 0);
    }

    static QImage picture(RecipeSheetItems& sheet)
    {
        QImage image(sheet.boundingRect().size().toSize(), QImage::Format_RGB32);
        image.fill(QColor(225, 228, 232)); // the screen that the item lies on
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
        return image;
    }

    // Titles of 13 pixels: "Number" just fits into its header cell.
    SheetProperties properties = SheetProperties::usual().setLanguage(1, "title_text_pixelSize", 13);
};

TEST_F(PaintedPicture, OfABakerySheetOnASmallPanel)
{
    writeBakery();
    EXPECT_TRUE(looksLike(picture(startSheet(properties)), latin("bakery_800x480")));
}

TEST_F(PaintedPicture, OfASelectedCellOnStripes)
{
    writeBakery();
    properties.set("use_diff_color", 1).set("column_line_display", 0).set("frameLineShape", 0);
    RecipeSheetItems& sheet = startSheet(properties);
    tap(sheet, RecipeSheetProbe(sheet).cellRect(2, 4).center());
    EXPECT_TRUE(looksLike(picture(sheet), latin("stripes_selected_cell_800x480")));
}

TEST_F(PaintedPicture, OfASelectedTitleInALargeGroupOnALargePanel)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    properties.set("width", 1280).set("height", 800).set("rows_num_page", 18).set("column_num_page", 9);
    properties.setLanguage(1, "table_text_pixelSize", 18);
    properties.set("insideLineShape", 3).set("use_add_del", 0);
    RecipeSheetItems& sheet = startSheet(properties);
    RecipeSheetProbe probe(sheet);
    for (int i = 0; i < 20; ++i) {
        tap(sheet, probe.downArrowRect().center());
        tap(sheet, probe.rightArrowRect().center());
    }
    tap(sheet, probe.titleCellRect(3).center());
    press(sheet, probe.downArrowRect().center());
    EXPECT_TRUE(looksLike(picture(sheet), latin("large_selected_title_1280x800")));
}

TEST_F(PaintedPicture, OfSmallCells)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    properties.set("rows_num_page", 30).set("column_num_page", 16).set("name_width", 70).set("title_hight", 24);
    properties.setLanguage(1, "title_text_pixelSize", 9).setLanguage(1, "table_text_pixelSize", 9);
    EXPECT_TRUE(looksLike(picture(startSheet(properties)), latin("small_cells_800x480")));
}

// Larger texts than cells: each stays in its own cell.
TEST_F(PaintedPicture, OfTextsThatAreLargerThanTheirCells)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    properties.set("rows_num_page", 20).set("column_num_page", 20).set("name_width", 40);
    properties.setLanguage(1, "title_text_pixelSize", 16);
    EXPECT_TRUE(looksLike(picture(startSheet(properties)), latin("tight_cells_800x480")));
}

TEST_F(PaintedPicture, OfAPageThatIsLargerThanTheGroup)
{
    writeGroup(SheetGroup::ofSize(4, 2));
    EXPECT_TRUE(looksLike(picture(startSheet(properties)), latin("short_group_800x480")));
}

TEST_F(PaintedPicture, OfATitleScrolledOffToTheLeft)
{
    writeBakery();
    RecipeSheetItems& sheet = startSheet(properties);
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.titleCellRect(0).center());
    tap(sheet, probe.rightArrowRect().center());
    EXPECT_TRUE(looksLike(picture(sheet), latin("title_off_left_800x480")));
}

TEST_F(PaintedPicture, OfTheErrorView)
{
    QFile::remove(recipeFile());
    EXPECT_TRUE(looksLike(picture(startSheet(properties)), latin("error_800x480")));
}
