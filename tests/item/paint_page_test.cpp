// A page from its background to its buttons: order, rectangles, pens, brushes, fonts and texts.
#include "paint_page.h"

#include "sqlite_errors.h"

#include <QFile>
#include <QPainter>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

QStringList ofKind(const QList<PaintCall>& calls, PaintCall::Kind kind)
{
    QStringList result;
    for (const PaintCall& call : calls) {
        if (call.kind == kind)
            result << call.line();
    }
    return result;
}

bool drawsText(const QList<PaintCall>& calls, const QString& text)
{
    for (const PaintCall& call : calls) {
        if (call.kind == PaintCall::Text && call.text == text)
            return true;
    }
    return false;
}

} // namespace

class PaintedPage : public SheetFixture
{
protected:
    /// Starts a sheet on the group and expects just the page that its properties ask for.
    void expectPage()
    {
        writeGroup(group);
        RecipeSheetItems& sheet = startSheet(properties);
        const ExpectedPage page(properties, group);
        EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    }

    SheetProperties properties = SheetProperties::usual();
    SheetGroup group = SheetGroup::ofSize(250, 120);
};

// Everything of a small page in literal numbers, the anchor of all other tests. The frame starts beside the origin, so
// that nothing is right by chance.
TEST_F(PaintedPage, IsDrawnInElevenSteps)
{
    properties.set("rows_num_page", 2).set("column_num_page", 2).set("title_hight", 40).set("name_width", 100);
    properties.setLanguage(1, "title_text_pixelSize", 18).setLanguage(1, "table_text_pixelSize", 14);
    properties.setLanguage(1, "title_font_family", latin("DejaVu Serif"));
    writeGroup(SheetGroup::ofSize(5, 4));
    RecipeSheetItems& sheet = startFramedSheet(QRectF(10, 20, 380, 300), properties);
    const QString title = latin(" flags 132 pen #fff0f1f2 1 solid font DejaVu Serif 18px");
    const QString table = latin(" flags 132 pen #ff141516 1 solid font DejaVu Sans 14px");
    const QString button = latin(" flags 132 pen #ff000000 1 solid font DejaVu Sans 14px");
    const QString black = latin(" pen #ff000000 2 solid brush #ff000000");
    const QStringList wanted = {
        // title background
        latin("rect 160,20 200x40 pen none brush #ff283c5a"),
        latin("rect 60,20 100x40 pen none brush #ff283c5a"),
        latin("rect 10,20 50x40 pen none brush #ff283c5a"),
        // table background
        latin("rect 160,60 200x190 pen none brush #fffafaf5"),
        latin("rect 10,60 50x190 pen none brush #fffafaf5"),
        latin("rect 60,60 100x190 pen none brush #fffafaf5"),
        // column titles
        latin("text 'Recipe0' in 160,20 100x40") + title,
        latin("text 'Recipe1' in 260,20 100x40") + title,
        latin("text 'Number' in 10,20 50x40") + title,
        latin("text 'Name' in 60,20 100x40") + title,
        // row labels
        latin("text '0' in 10,60 50x95") + table,
        latin("text 'Item0' in 60,60 100x95") + table,
        latin("text '1' in 10,155 50x95") + table,
        latin("text 'Item1' in 60,155 100x95") + table,
        // cells, by column
        latin("text '0' in 160,60 100x95") + table,
        latin("text '1000' in 160,155 100x95") + table,
        latin("text '1' in 260,60 100x95") + table,
        latin("text '1001' in 260,155 100x95") + table,
        // (no selection) scroll bars: horizontal, vertical, corner; left, right, up, down
        latin("rect 10,250 350x30 pen none brush #ff988c98"),
        latin("rect 360,20 30x230 pen none brush #ff988c98"),
        latin("rect 360,250 30x30 pen none brush #ff988c98"),
        latin("rect 10,250 30x30 pen none brush #ff988c98"),
        latin("rect 330,250 30x30 pen none brush #ff988c98"),
        latin("rect 360,20 30x30 pen none brush #ff988c98"),
        latin("rect 360,220 30x30 pen none brush #ff988c98"),
        // triangles: up, down, left, right
        latin("polygon odd-even 375,25 365,45 385,45") + black,
        latin("polygon odd-even 375,245 365,225 385,225") + black,
        latin("polygon odd-even 15,265 35,255 35,275") + black,
        latin("polygon odd-even 355,265 335,255 335,275") + black,
        // thumbs: 2 of 5 rows on a track of 164, 2 of 4 columns on a track of 284
        latin("rect 365,53 20x65.6 pen none brush #fff0f0f0"),
        latin("rect 43,255 142x20 pen none brush #fff0f0f0"),
        // inner lines
        latin("line 260,20 to 260,250 pen #ffb4b9be 1 solid"),
        latin("line 60,20 to 60,250 pen #ffb4b9be 1 solid"),
        latin("line 160,20 to 160,250 pen #ffb4b9be 1 solid"),
        latin("line 10,155 to 360,155 pen #ffb4b9be 1 solid"),
        latin("line 10,60 to 360,60 pen #ffb4b9be 1 solid"),
        // frame
        latin("rect 10,20 380x300 pen #ff0a141e 2 solid brush none"),
        // buttons
        latin("rect 15,285 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
        latin("text 'Save' in 15,285 80x30") + button,
        latin("rect 115,285 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
        latin("rect 215,285 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
        latin("text 'Add' in 115,285 80x30") + button,
        latin("text 'Delete' in 215,285 80x30") + button,
    };
    EXPECT_TRUE(sameLines(painted(sheet), wanted));
}

TEST_F(PaintedPage, FollowsThePropertiesAt800x480)
{
    expectPage();
}

TEST_F(PaintedPage, FollowsThePropertiesAt1280x800)
{
    properties.set("width", 1280).set("height", 800).set("rows_num_page", 18).set("column_num_page", 9);
    properties.set("title_hight", 55).set("name_width", 231);
    expectPage();
}

TEST_F(PaintedPage, IsTheSameWhenItIsDrawnAgain)
{
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    const QStringList first = painted(sheet);
    EXPECT_TRUE(sameLines(painted(sheet), first));
}

TEST_F(PaintedPage, DoesNotDependOnWhatThePainterWasUsedForBefore)
{
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    RecordingDevice device(QSize(800, 480));
    QPainter painter(&device);
    painter.setPen(QPen(Qt::red, 7, Qt::DotLine));
    painter.setBrush(Qt::green);
    painter.setFont(QFont(latin("DejaVu Serif"), 40));
    sheet.HMIpaint(nullptr, latin("ignored"), &painter, true);
    painter.end();
    EXPECT_TRUE(sameLines(lines(device.calls()), ExpectedPage(properties, group).all()));
}

TEST_F(PaintedPage, IsDrawnThroughTheSceneInTheSameWay)
{
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    RecordingDevice device(QSize(800, 480));
    QPainter painter(&device);
    sheet.paint(&painter, nullptr, nullptr);
    painter.end();
    EXPECT_TRUE(sameLines(lines(device.calls()), ExpectedPage(properties, group).all()));
}

TEST_F(PaintedPage, CentresEveryTextInItsRectangle)
{
    writeGroup(group);
    int texts = 0;
    for (const PaintCall& call : paintedCalls(startSheet(properties))) {
        if (call.kind != PaintCall::Text)
            continue;
        ++texts;
        EXPECT_EQ(call.flags, 132) << call.line().toStdString();
        EXPECT_NEAR(call.ink.center().x(), call.rect.center().x(), 0.5) << call.line().toStdString();
        EXPECT_NEAR(call.ink.center().y(), call.rect.center().y(), 0.5) << call.line().toStdString();
    }
    EXPECT_EQ(texts, 5 + 2 + 2 * 10 + 50 + 3);
}

// The alignment alone decides: without Qt::TextDontClip the painter keeps a text inside its rectangle. It is not
// shortened with dots.
TEST_F(PaintedPage, GivesLongTextsWholeToThePainter)
{
    const QString longText(200, QLatin1Char('x'));
    group.dataTypes = {DATA_TYPE_TEXT};
    group.value = [longText](int, int) { return longText; };
    writeGroup(group);
    bool seen = false;
    for (const PaintCall& call : paintedCalls(startSheet(properties))) {
        if (call.kind == PaintCall::Text && call.text == longText) {
            seen = true;
            EXPECT_TRUE(call.isCut);
            EXPECT_GT(call.ink.width(), call.rect.width());
        }
    }
    EXPECT_TRUE(seen);
}

// A damaged file may hold a megabyte in one cell.
TEST_F(PaintedPage, GivesOnlyTheMiddleOfAnEndlessTextToThePainter)
{
    const QString endless =
        QString(1000000, QLatin1Char('l')) + QLatin1String("middle") + QString(1000000, QLatin1Char('r'));
    group = SheetGroup::ofSize(1, 1);
    group.dataTypes = {DATA_TYPE_TEXT};
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    RecipeSheetProbe probe(sheet);
    painted(sheet);
    probe.displayCells()[idx_t(0, 0)].text = endless;
    probe.selectedColumn() = probe.selectedRow() = 0;
    int drawn = 0;
    for (const PaintCall& call : paintedCalls(sheet)) {
        ASSERT_LT(call.text.size(), 5000);
        if (call.text.contains(latin("middle"))) {
            ++drawn;
            EXPECT_LE(qAbs(call.text.indexOf(latin("middle")) + 3 - call.text.size() / 2), 1);
            EXPECT_NEAR(call.ink.center().y(), call.rect.center().y(), 0.5);
            EXPECT_TRUE(call.isCut);
        }
    }
    EXPECT_EQ(drawn, 3) << "cell, marked recipe, marked cell";
}

// --- fonts and colours -------------------------------------------------------------------------------------------

TEST_F(PaintedPage, UsesTwoFontsAndTwoTextColours)
{
    properties.setLanguage(1, "title_font_family", latin("DejaVu Serif")).setLanguage(1, "title_text_pixelSize", 21);
    properties.setLanguage(1, "table_font_family", latin("DejaVu Sans Mono"));
    properties.setLanguage(1, "table_text_pixelSize", 11);
    properties.setLanguage(1, "title_text_color", QColor(1, 2, 3, 128));
    properties.setLanguage(1, "table_text_color", QColor(4, 5, 6));
    expectPage();
}

TEST_F(PaintedPage, ShowsTranslucentColoursAsTheyAreConfigured)
{
    properties.set("title_background_color", QColor(1, 2, 3, 40)).set("frame_background_color", QColor(4, 5, 6, 0));
    properties.set("inside_line_color", QColor(7, 8, 9, 100)).set("frame_line_color", QColor(10, 11, 12, 200));
    expectPage();
}

// --- background --------------------------------------------------------------------------------------------------

TEST_F(PaintedPage, HasStripesInPlaceOfItsBackgroundStartingWithAnOddOne)
{
    properties.set("use_diff_color", 1).set("rows_num_page", 7);
    expectPage();
}

TEST_F(PaintedPage, HasStripesForAnyNumberButZero)
{
    properties.set("use_diff_color", -3);
    expectPage();
}

TEST_F(PaintedPage, StartsWithAnOddStripeWhereverItWasScrolledTo)
{
    properties.set("use_diff_color", 1);
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    tap(sheet, RecipeSheetProbe(sheet).downArrowRect().center());
    EXPECT_EQ(painted(sheet).at(3), latin("rect 0,40 770x37 pen none brush #ffebf0f5"));
}

TEST_F(PaintedPage, HasNoBackgroundAtAllWithStripesAndNoRows)
{
    properties.set("use_diff_color", 1).set("rows_num_page", 0);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    const ExpectedPage page(properties, group);
    EXPECT_TRUE(sameLines(lines(calls.mid(0, 3 + 7)), lines(page.titleBackground() + page.columnTitles())));
    EXPECT_FALSE(drawsText(calls, latin("0")));
}

TEST_F(PaintedPage, WithoutRowsOrColumnsStillHasItsHeaderAndItsButtons)
{
    properties.set("rows_num_page", 0).set("column_num_page", -4);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_EQ(ofKind(calls, PaintCall::Text).size(), 2 + 3);
    EXPECT_TRUE(drawsText(calls, latin("Number")));
    EXPECT_TRUE(drawsText(calls, latin("Save")));
    EXPECT_EQ(ofKind(calls, PaintCall::Line).size(), 3) << "beside the two label columns and under the titles";
}

// --- lines -------------------------------------------------------------------------------------------------------

TEST_F(PaintedPage, HasColumnLinesOnlyWhenAsked)
{
    properties.set("column_line_display", 1).set("row_line_display", 0);
    expectPage();
}

TEST_F(PaintedPage, HasRowLinesOnlyWhenAsked)
{
    properties.set("column_line_display", 0).set("row_line_display", 1);
    expectPage();
}

TEST_F(PaintedPage, HasNoLinesWhenNoneAreAsked)
{
    properties.set("column_line_display", 0).set("row_line_display", 0);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_EQ(ofKind(calls, PaintCall::Line), QStringList());
    EXPECT_TRUE(sameLines(lines(calls), ExpectedPage(properties, group).all()));
}

TEST_F(PaintedPage, DrawsALineForEveryRowAndColumnOfAPageThatIsLargerThanWhatItShows)
{
    properties.set("rows_num_page", 120).set("column_num_page", 60);
    properties.set("width", 1280).set("height", 800).set("use_diff_color", 1);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_EQ(ofKind(calls, PaintCall::Line).size(), 59 + 2 + 119 + 1);
    EXPECT_TRUE(drawsText(calls, latin("Recipe49")));
    EXPECT_FALSE(drawsText(calls, latin("Recipe50")));
    EXPECT_TRUE(drawsText(calls, latin("Item99")));
    EXPECT_FALSE(drawsText(calls, latin("Item100")));
    EXPECT_TRUE(sameLines(lines(calls), ExpectedPage(properties, group).all()));
}

// A nonsense page size must not keep the panel busy for hours: no panel has that many pixels.
TEST_F(PaintedPage, DrawsABoundedNumberOfLinesAndStripesForANonsensePageSize)
{
    properties.set("rows_num_page", 2000000000).set("column_num_page", 2000000000).set("use_diff_color", 1);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_LT(ofKind(calls, PaintCall::Line).size(), 30000);
    EXPECT_LT(ofKind(calls, PaintCall::Rect).size(), 30000);
}

struct Shape
{
    int number;
    const char* style;
};

void PrintTo(const Shape& shape, std::ostream* out)
{
    *out << "shape " << shape.number << " as " << shape.style;
}

class PaintedPageWithPens : public PaintedPage, public testing::WithParamInterface<Shape>
{
};

TEST_P(PaintedPageWithPens, DrawsItsLinesInTheConfiguredShape)
{
    properties.set("insideLineShape", GetParam().number).set("insideLineWidth", 3);
    properties.set("frameLineShape", GetParam().number).set("frameLineWidth", 4);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    const bool none = QByteArray(GetParam().style) == "none";
    const QString style = latin(GetParam().style);
    EXPECT_EQ(ofKind(calls, PaintCall::Line).last(),
              none ? latin("line 0,40 to 770,40 pen none") : latin("line 0,40 to 770,40 pen #ffb4b9be 3 ") + style);
    const QString frame = none ? latin("rect 0,0 800x480 pen none brush none")
                               : latin("rect 0,0 800x480 pen #ff0a141e 4 ") + style + latin(" brush none");
    EXPECT_TRUE(lines(calls).contains(frame));
}

// A shape that is no pen style is a solid line.
INSTANTIATE_TEST_SUITE_P(Shapes, PaintedPageWithPens,
                         testing::Values(Shape{0, "none"}, Shape{1, "solid"}, Shape{2, "dash"}, Shape{3, "dot"},
                                         Shape{4, "dashdot"}, Shape{5, "dashdotdot"}, Shape{6, "solid"},
                                         Shape{-1, "solid"}, Shape{4711, "solid"}));

TEST_F(PaintedPage, DrawsItsLinesSolidWhereNoShapeIsConfigured)
{
    properties.remove("insideLineShape").remove("frameLineShape");
    expectPage();
}

TEST_F(PaintedPage, DrawsTheThinnestLineForAWidthOfZeroOrLess)
{
    properties.set("insideLineWidth", -5).set("frameLineWidth", 0);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_EQ(ofKind(calls, PaintCall::Line).last(), latin("line 0,40 to 770,40 pen #ffb4b9be 0 solid"));
    EXPECT_TRUE(lines(calls).contains(latin("rect 0,0 800x480 pen #ff0a141e 0 solid brush none")));
}

// --- texts -------------------------------------------------------------------------------------------------------

TEST_F(PaintedPage, NumbersItsRowsFromZero)
{
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_EQ(calls.at(6 + 5 + 2).line(),
              latin("text '0' in 0,40 50x37 flags 132 pen #ff141516 1 solid font DejaVu Sans 16px"));
}

TEST_F(PaintedPage, ShowsTheRowsAndRecipesItWasScrolledTo)
{
    writeGroup(group);
    RecipeSheetItems& sheet = startSheet(properties);
    RecipeSheetProbe probe(sheet);
    for (int i = 0; i < 7; ++i)
        tap(sheet, probe.downArrowRect().center());
    for (int i = 0; i < 3; ++i)
        tap(sheet, probe.rightArrowRect().center());
    ExpectedPage page(properties, group);
    page.firstRow = 7;
    page.firstColumn = 3;
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
}

TEST_F(PaintedPage, FillsAPageThatIsLargerThanTheGroupWithPlaceholders)
{
    group = SheetGroup::ofSize(3, 2);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_TRUE(drawsText(calls, latin("Item2")));
    EXPECT_TRUE(drawsText(calls, latin("Row3")));
    EXPECT_TRUE(drawsText(calls, latin("9"))) << "the number of the last row";
    EXPECT_TRUE(drawsText(calls, latin("Recipe1")));
    EXPECT_TRUE(drawsText(calls, latin("Col4")));
    EXPECT_TRUE(sameLines(lines(calls), ExpectedPage(properties, group).all()));
}

TEST_F(PaintedPage, ShowsItemsOfEveryKindAsTheyAreLoaded)
{
    group = SheetGroup::ofSize(4, 3);
    group.dataTypes = {0, DATA_TYPE_TEXT, 3, 0};
    group.decimals = {0, 0, 2, 1};
    writeGroup(group);
    ExpectedPage page(properties, group);
    page.cellText = [](int item, int recipe) -> QString {
        if (item > 3 || recipe > 2)
            return QString();
        if (item == 1)
            return QStringLiteral("t1_%1").arg(recipe);
        const int decimals = item == 2 ? 2 : item == 3 ? 1 : 0;
        return QString::number(item * 1000.0 + recipe, 'f', decimals);
    };
    EXPECT_TRUE(sameLines(painted(startSheet(properties)), page.all()));
}

// --- buttons -----------------------------------------------------------------------------------------------------

TEST_F(PaintedPage, HasOnlyTheSaveButtonWithoutAddAndDelete)
{
    properties.set("use_add_del", 0);
    writeGroup(group);
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_TRUE(sameLines(lines(calls), ExpectedPage(properties, group).all()));
    EXPECT_EQ(calls.last().text, latin("Save"));
    for (const PaintCall& call : calls)
        EXPECT_FALSE(call.kind == PaintCall::Rect && call.rect.x() == 105 && call.rect.width() == 80);
}

TEST_F(PaintedPage, HasAllButtonsWithAddAndDelete)
{
    properties.set("use_add_del", 1);
    writeGroup(group);
    const QStringList seen = painted(startSheet(properties));
    const QString caption = latin(" flags 132 pen #ff000000 1 solid font DejaVu Sans 16px");
    EXPECT_TRUE(sameLines(seen.mid(seen.size() - 6), {latin("rect 5,445 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
                                                      latin("text 'Save' in 5,445 80x30") + caption,
                                                      latin("rect 105,445 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
                                                      latin("rect 205,445 80x30 pen #ff000000 1 solid brush #ffadd8e6"),
                                                      latin("text 'Add' in 105,445 80x30") + caption,
                                                      latin("text 'Delete' in 205,445 80x30") + caption}));
}

// --- the error view ----------------------------------------------------------------------------------------------

TEST_F(PaintedPage, ShowsOnlyErrorAndPlaceholdersWithoutARecipeFile)
{
    QFile::remove(recipeFile());
    RecipeSheetItems& sheet = startSheet(properties);
    ExpectedPage page(properties, SheetGroup::ofSize(0, 0));
    page.cellText = [](int item, int recipe) { return item == 0 && recipe == 0 ? QStringLiteral("ERROR") : QString(); };
    EXPECT_TRUE(sameLines(painted(sheet), page.all()));
    EXPECT_TRUE(sameLines(painted(sheet), page.all())) << "and goes on showing it";
}

TEST_F(PaintedPage, ShowsErrorWhereTheConfigurationIsGone)
{
    writeGroup(group);
    runSql(latin("DROP TABLE recipe_config;"));
    const SqliteErrors errors;
    const QList<PaintCall> calls = paintedCalls(startSheet(properties));
    EXPECT_TRUE(drawsText(calls, latin("ERROR")));
    EXPECT_TRUE(drawsText(calls, latin("Col0")) || drawsText(calls, latin("Recipe0")));
}
