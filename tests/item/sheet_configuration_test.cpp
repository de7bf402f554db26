// Which property is read from where, and what it is when it is missing.
#include "sheet_fixture.h"

#include <QImage>
#include <QPainter>

#include <functional>
#include <vector>

namespace {

enum Source
{
    ITEM,
    LANGUAGE
};

struct Row
{
    const char* key;
    Source source;
    QVariant defaultValue;
    QVariant otherValue;
    std::function<QVariant(RecipeSheetProbe&)> field;
};

template <typename Field> std::function<QVariant(RecipeSheetProbe&)> read(Field& (RecipeSheetProbe::*field)())
{
    return [field](RecipeSheetProbe& probe) { return QVariant::fromValue((probe.*field)()); };
}

Row number(const char* key, int& (RecipeSheetProbe::*field)(), int defaultValue = 0, Source source = ITEM)
{
    return Row{key, source, defaultValue, 3, read(field)};
}

Row color(const char* key, QColor& (RecipeSheetProbe::*field)(), Source source = ITEM)
{
    return Row{key, source, QColor(0, 0, 0, 255), QColor(1, 2, 3, 4), read(field)};
}

Row family(const char* key, QString& (RecipeSheetProbe::*field)())
{
    return Row{key, LANGUAGE, QStringLiteral("Simsun"), QStringLiteral("DejaVu Sans"), read(field)};
}

typedef RecipeSheetProbe P;

std::vector<Row> table()
{
    return {
        number("use_page", &P::usePage),
        number("column_line_display", &P::columnLineDisplay),
        number("row_line_display", &P::rowLineDisplay),
        color("frame_background_color", &P::frameBackgroundColor),
        color("title_background_color", &P::titleBackgroundColor),
        color("frame_line_color", &P::frameLineColor),
        color("inside_line_color", &P::insideLineColor),
        color("title_text_color", &P::titleTextColor, LANGUAGE),
        color("table_text_color", &P::tableTextColor, LANGUAGE),
        color("selected_row_color", &P::selectedRowColor),
        color("selected_cell_color", &P::selectedCellColor),
        number("frameLineWidth", &P::frameLineWidth),
        number("insideLineWidth", &P::insideLineWidth),
        number("frameLineShape", &P::frameLineShape, 1),
        number("insideLineShape", &P::insideLineShape, 1),
        number("rows_num_page", &P::rowsPerPage),
        number("column_num_page", &P::columnsPerPage),
        number("Recipe_Group_idx", &P::groupIndex),
        number("title_hight", &P::titleHeight),
        number("name_width", &P::nameWidth),
        number("title_text_pixelSize", &P::titleTextPixelSize, 16, LANGUAGE),
        number("table_text_pixelSize", &P::tableTextPixelSize, 16, LANGUAGE),
        family("title_font_family", &P::titleFontFamily),
        family("table_font_family", &P::tableFontFamily),
        number("use_diff_color", &P::useDiffColor),
        color("odd_color", &P::oddColor),
        color("even_color", &P::evenColor),
        number("use_add_del", &P::useAddDel),
    };
}

/// Nothing but a size and a language child.
SheetProperties bare()
{
    SheetProperties properties;
    properties.set("width", 800).set("height", 480);
    properties.languages[1];
    return properties;
}

class SheetProperty : public SheetFixture
{
protected:
    /// The row's field in an item with `value` under the row's key in one of the two objects.
    QVariant fieldWith(const Row& row, Source source, const QVariant& value)
    {
        SheetProperties properties = bare();
        if (source == ITEM)
            properties.set(row.key, value);
        else
            properties.setLanguage(1, row.key, value);
        return fieldOf(row, properties);
    }
    QVariant fieldOf(const Row& row, const SheetProperties& properties)
    {
        RecipeSheetProbe probe(startSheet(properties));
        return row.field(probe);
    }
};

class SheetConfiguration : public SheetFixture
{
};

} // namespace

TEST_F(SheetProperty, HasItsDefaultWhereItIsMissing)
{
    for (const Row& row : table())
        EXPECT_EQ(fieldOf(row, bare()), row.defaultValue) << row.key;
}

TEST_F(SheetProperty, IsReadFromItsObject)
{
    for (const Row& row : table())
        EXPECT_EQ(fieldWith(row, row.source, row.otherValue), row.otherValue) << row.key;
}

TEST_F(SheetProperty, IsNotReadFromTheOtherObject)
{
    for (const Row& row : table())
        EXPECT_EQ(fieldWith(row, row.source == ITEM ? LANGUAGE : ITEM, row.otherValue), row.defaultValue) << row.key;
}

TEST_F(SheetProperty, HasItsDefaultWhereItIsOfAnotherType)
{
    for (const Row& row : table())
        EXPECT_EQ(fieldWith(row, row.source, 1.5), row.defaultValue) << row.key;
}

TEST_F(SheetProperty, IsOneOfTwentyEight)
{
    EXPECT_EQ(table().size(), 28u);
}

/// Nothing says that an editor of projects keeps to numbers that make sense.
TEST_F(SheetProperty, MayBeAnyNumber)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    for (const int absurd : {2147483647, -2147483647 - 1, -1, 100000}) {
        for (const Row& row : table()) {
            if (row.defaultValue.userType() != QMetaType::Int || qstrcmp(row.key, "Recipe_Group_idx") == 0)
                continue;
            SCOPED_TRACE(testing::Message() << row.key << " = " << absurd);
            SheetProperties properties = SheetProperties::usual();
            if (row.source == ITEM)
                properties.set(row.key, absurd);
            else
                properties.setLanguage(1, row.key, absurd);
            RecipeSheetItems& sheet = startSheet(properties);
            QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&image);
            sheet.HMIpaint(nullptr, QString(), &painter, false);
            tap(sheet, QPointF(400, 200));
            tap(sheet, QPointF(785, 395));
            painter.end();
            destroySheet(sheet);
        }
    }
}

// --- languages ---------------------------------------------------------------------------------------------------

TEST_F(SheetConfiguration, ReadsTheChildOfTheCurrentLanguage)
{
    SheetProperties properties = bare();
    properties.setLanguage(1, "title_text_pixelSize", 11).setLanguage(3, "title_text_pixelSize", 33);
    runtime().setLanguage(3);
    EXPECT_EQ(RecipeSheetProbe(startSheet(properties)).titleTextPixelSize(), 33);
}

TEST_F(SheetConfiguration, FallsBackToTheFirstLanguage)
{
    SheetProperties properties = bare();
    properties.setLanguage(1, "title_text_pixelSize", 11).setLanguage(3, "title_text_pixelSize", 33);
    runtime().setLanguage(2);
    EXPECT_EQ(RecipeSheetProbe(startSheet(properties)).titleTextPixelSize(), 11);
}

/// Only a missing child falls back, a missing key in it does not.
TEST_F(SheetConfiguration, DoesNotMixTwoLanguages)
{
    SheetProperties properties = bare();
    properties.setLanguage(1, "title_text_pixelSize", 11).setLanguage(2, "table_text_pixelSize", 22);
    runtime().setLanguage(2);
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_EQ(probe.titleTextPixelSize(), 16);
    EXPECT_EQ(probe.tableTextPixelSize(), 22);
}

TEST_F(SheetConfiguration, HasDefaultsWithoutAnyLanguageChild)
{
    SheetProperties properties = bare();
    properties.languages.clear();
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_EQ(probe.titleTextPixelSize(), 16);
    EXPECT_EQ(probe.tableFontFamily(), QStringLiteral("Simsun"));
    EXPECT_EQ(probe.tableTextColor(), QColor(0, 0, 0, 255));
}

/// The language of the texts is the panel's; titles are shown from the first slot, whatever it is.
TEST_F(SheetConfiguration, LeavesTheTitlesInTheirFirstLanguage)
{
    writeGroup(SheetGroup());
    runtime().setLanguage(2);
    RecipeSheetItems& sheet = startSheet();
    EXPECT_EQ(RecipeSheetProbe(sheet).nameLanguage(), 0);
    EXPECT_EQ(sheet.getColumnName(3), QStringLiteral("Recipe3"));
}

// --- fonts and colours -------------------------------------------------------------------------------------------

TEST_F(SheetConfiguration, BuildsBothFontsFromFamilyAndPixelSize)
{
    SheetProperties properties = bare();
    properties.setLanguage(1, "title_font_family", QStringLiteral("DejaVu Sans"));
    properties.setLanguage(1, "title_text_pixelSize", 21);
    properties.setLanguage(1, "table_font_family", QStringLiteral("DejaVu Serif"));
    properties.setLanguage(1, "table_text_pixelSize", 9);
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_EQ(probe.titleFont().family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(probe.titleFont().pixelSize(), 21);
    EXPECT_EQ(probe.tableFont().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(probe.tableFont().pixelSize(), 9);
}

/// Qt would warn of a pixel size that is none.
TEST_F(SheetConfiguration, LeavesAFontWithoutAPixelSizeThatIsNone)
{
    SheetProperties properties = bare();
    properties.setLanguage(1, "title_text_pixelSize", 0).setLanguage(1, "table_text_pixelSize", -5);
    RecipeSheetProbe probe(startSheet(properties));
    EXPECT_EQ(probe.titleFont().pixelSize(), -1);
    EXPECT_EQ(probe.tableFont().pixelSize(), -1);
    EXPECT_EQ(probe.tableTextPixelSize(), -5);
}

TEST_F(SheetConfiguration, SetsTheFixedColours)
{
    RecipeSheetProbe probe(startSheet());
    for (const RecipeSheetProbe::Handle& handle : {probe.saveButton(), probe.addButton(), probe.deleteButton()})
        EXPECT_EQ(handle.color, QColor(173, 216, 230, 255));
    for (const RecipeSheetProbe::Handle& handle :
         {probe.leftArrow(), probe.rightArrow(), probe.upArrow(), probe.downArrow()})
        EXPECT_EQ(handle.color, QColor(152, 140, 152, 255));
    for (const RecipeSheetProbe::Handle& handle : {probe.horizontalThumb(), probe.verticalThumb()})
        EXPECT_EQ(handle.color, QColor(240, 240, 240, 255));
    EXPECT_EQ(probe.triangleColor(), QColor(0, 0, 0, 255));
}

TEST_F(SheetConfiguration, HasTheColoursOfItsModule)
{
    EXPECT_EQ(PRESSED_COLOR, QColor(122, 110, 122, 255));
    EXPECT_EQ(NORMAL_COLOR, QColor(152, 140, 152, 255));
    EXPECT_EQ(BLOCK_PRESSED_COLOR, QColor(180, 180, 180, 255));
}
