// The shipped library in the real panel program: pictures, sentences and exit codes.
#include "panel_process.h"
#include "recipe_fixtures.h"

#include <QColor>
#include <QDir>
#include <QPoint>
#include <QRect>

namespace {

// Of examples/bakery.project.json.
const QColor FRAME(0x1f, 0x3a, 0x3d);
const QColor TITLES(0x2f, 0x5d, 0x62);
const QColor ODD(0xff, 0xff, 0xff);
const QColor EVEN(0xee, 0xf4, 0xf3);
const QColor BACKGROUND(0x20, 0x30, 0x2f);
// Of the sheet itself.
const QColor BUTTON(173, 216, 230);
const QColor BAR(152, 140, 152);
const QColor THUMB(240, 240, 240);

/// Whether anything else than `ground` stands in the rectangle.
bool hasInk(const QImage& image, const QRect& rect, const QColor& ground)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (image.pixelColor(x, y) != ground)
                return true;
        }
    }
    return false;
}

/// The inside of cell (column, row) of the bakery page.
QRect cell(int column, int row)
{
    return QRect(212 + 112 * column, 38 + static_cast<int>(37.4 * row), 108, 32);
}

} // namespace

class PanelPicture : public PanelProcess
{
};

TEST_F(PanelPicture, HasThePanelsResolutionWhateverTheDesk)
{
    qputenv("QT_SCALE_FACTOR", "2");
    EXPECT_EQ(picture(exampleProject("bakery.project.json")).size(), QSize(800, 480));
    EXPECT_EQ(picture(exampleProject("two-sheets.project.json")).size(), QSize(1280, 800));
    qunsetenv("QT_SCALE_FACTOR");
}

TEST_F(PanelPicture, ShowsTheSheetOfTheRecipeFile)
{
    writeRecipeFile(recipeGroup(12, 8));
    const QImage image = picture(exampleProject("bakery.project.json"));
    EXPECT_EQ(image.pixelColor(0, 100), FRAME);
    EXPECT_EQ(image.pixelColor(215, 4), TITLES);
    EXPECT_TRUE(hasInk(image, QRect(215, 4, 100, 28), TITLES));
    EXPECT_EQ(image.pixelColor(214, 40), ODD);
    EXPECT_EQ(image.pixelColor(214, 80), EVEN);
    for (int row = 0; row < 10; ++row) {
        for (int column = 0; column < 5; ++column)
            EXPECT_TRUE(hasInk(image, cell(column, row), row % 2 == 0 ? ODD : EVEN)) << column << ' ' << row;
    }
    EXPECT_EQ(image.pixelColor(8, 448), BUTTON);
    EXPECT_EQ(image.pixelColor(108, 448), BUTTON);
    EXPECT_EQ(image.pixelColor(208, 448), BUTTON);
    EXPECT_EQ(image.pixelColor(790, 430), BAR);
    EXPECT_EQ(image.pixelColor(700, 470), BACKGROUND);
}

/// 5 of 8 recipes fit on the page, 10 of 12 items: the thumbs are that much shorter than their tracks.
TEST_F(PanelPicture, ShowsThumbsAsLongAsTheirShareOfTheGroup)
{
    writeRecipeFile(recipeGroup(12, 8));
    const QImage image = picture(exampleProject("bakery.project.json"));
    const int track = 800 - 30 - 66;
    EXPECT_EQ(image.pixelColor(33 + track * 5 / 8 - 3, 425), THUMB);
    EXPECT_EQ(image.pixelColor(33 + track * 5 / 8 + 3, 425), BAR);
    const int height = 480 - 30 - 40 - 66;
    EXPECT_EQ(image.pixelColor(785, 33 + height * 10 / 12 - 3), THUMB);
    EXPECT_EQ(image.pixelColor(785, 33 + height * 10 / 12 + 3), BAR);
}

TEST_F(PanelPicture, ShowsErrorInTheFirstCellOnlyWithoutARecipeFile)
{
    const QImage image = picture(exampleProject("bakery.project.json"));
    EXPECT_TRUE(hasInk(image, cell(0, 0), ODD));
    EXPECT_FALSE(hasInk(image, cell(1, 0), ODD));
    EXPECT_FALSE(hasInk(image, cell(0, 1), EVEN));
}

TEST_F(PanelPicture, IsTheSameEveryTime)
{
    writeRecipeFile(recipeGroup(12, 8));
    const QImage first = picture(exampleProject("bakery.project.json"));
    EXPECT_EQ(first, picture(exampleProject("bakery.project.json")));
}

TEST_F(PanelPicture, ShowsTwoSheetsBesideEachOther)
{
    writeRecipeFile(recipeGroup(12, 8));
    const QImage image = picture(exampleProject("two-sheets.project.json"));
    EXPECT_EQ(image.pixelColor(2, 2), BACKGROUND);
    EXPECT_TRUE(hasInk(image, QRect(240, 52, 100, 40), ODD));
    EXPECT_TRUE(hasInk(image, QRect(876, 52, 100, 40), ODD));
}

TEST_F(PanelPicture, TakesTheTextsOfTheLanguageThatIsAskedFor)
{
    const QString project = write("project.json", R"({"panel": {"width": 300, "height": 200}, "items": [
        {"type": "RecipeSheet", "name": "s", "width": 300, "height": 200,
         "properties": {"rows_num_page": 2, "column_num_page": 1, "title_hight": 40, "title_background_color": "#ffffff"},
         "children": {"Language1": {"title_text_color": "#ff0000", "title_font_family": "DejaVu Sans"},
                      "Language2": {"title_text_color": "#0000ff", "title_font_family": "DejaVu Sans"}}}]})");
    const auto colourOfTitle = [&](const QStringList& more) {
        run(QStringList{project, latin("--screenshot"), file("panel.png")} + more);
        const QImage image(file("panel.png"));
        int reddest = 0;
        for (int x = 50; x < 270; ++x)
            reddest = qMax(reddest, image.pixelColor(x, 20).red() - image.pixelColor(x, 20).blue());
        return reddest > 100;
    };
    EXPECT_TRUE(colourOfTitle({}));
    EXPECT_FALSE(colourOfTitle({latin("--language"), latin("2")}));
}

// --- faults ------------------------------------------------------------------------------------------------------

class PanelProgram : public PanelProcess
{
protected:
    QString lampProject()
    {
        return write("lamp.json", R"({"panel": {"width": 20, "height": 10}, "items": [
            {"type": "Lamp", "name": "left", "width": 10, "height": 10, "properties": {"glass": "#ff0000"}},
            {"type": "Lamp", "name": "right", "x": 10, "width": 10, "height": 10, "properties": {"glass": "#00ff00"}}]})");
    }
    PanelResult shoot(const QString& project, const QStringList& plugins)
    {
        QStringList arguments{project, latin("--screenshot"), file("panel.png")};
        for (const QString& plugin : plugins)
            arguments += {latin("--plugin"), plugin};
        return run(arguments);
    }
    static QString testPlugin(const char* name)
    {
        return latin(TEST_PLUGIN_FOLDER "/lib") + latin(name) + latin(".so");
    }
    bool lampsAreLit() const
    {
        const QImage image(file("panel.png"));
        return image.pixelColor(5, 5) == QColor(255, 0, 0) && image.pixelColor(15, 5) == QColor(0, 255, 0);
    }
};

TEST_F(PanelProgram, LoadsAnyPluginByItsEntryPoints)
{
    const PanelResult result = shoot(lampProject(), {testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, TellsWhichLibraryIsMissingAndGoesOnWithTheRest)
{
    const PanelResult result = shoot(lampProject(), {file("libNone.so"), testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, file("libNone.so").toStdString()
                                 + ": there is no such library; name the file of a plug-in with --plugin.\n");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, TellsThatAFileIsNoLibraryAndGoesOnWithTheRest)
{
    const QString text = write("notes.so", QByteArray(4096, 'x'));
    const PanelResult result = shoot(lampProject(), {text, testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, text.toStdString()
                                 + ": the library cannot be loaded (invalid ELF header); build the plug-in for this "
                                   "machine and this runtime.\n");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, TellsWhichEntryPointsALibraryLacksAndGoesOnWithTheRest)
{
    const PanelResult result = shoot(lampProject(), {testPlugin("half"), testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, testPlugin("half").toStdString()
                                 + ": the library has no entry point createItem(), item_object_create(QString, "
                                   "QString); it is not a plug-in, or not a whole one: export the function or name "
                                   "another file with --plugin.\n");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, TellsWhatALibraryWantsOfAnotherRuntime)
{
    const PanelResult result = shoot(lampProject(), {testPlugin("unresolved"), testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, testPlugin("unresolved").toStdString()
                                 + ": the library cannot be loaded (undefined symbol: functionOfAnotherRuntime); build "
                                   "the plug-in for this machine and this runtime.\n");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, RefusesAPluginWithoutATypeName)
{
    const PanelResult result = shoot(lampProject(), {testPlugin("nameless"), testPlugin("lamp")});
    EXPECT_EQ(result.errors, testPlugin("nameless").toStdString()
                                 + ": getItemName() names no item type; let it return the name that projects give as "
                                   "\"type\".\n");
    EXPECT_TRUE(lampsAreLit());
}

TEST_F(PanelProgram, RefusesASecondPluginOfOneType)
{
    const PanelResult result = shoot(lampProject(), {testPlugin("lamp"), testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, testPlugin("lamp").toStdString() + ": the item type \"Lamp\" is provided by "
                                 + testPlugin("lamp").toStdString()
                                 + " already; name only one of them with --plugin.\n");
}

TEST_F(PanelProgram, LeavesOutAnItemThatNoPluginProvides)
{
    const QString project = write("mixed.json", R"({"panel": {"width": 20, "height": 10, "background": "#102030"},
        "items": [{"type": "Lamp", "name": "left", "width": 10, "height": 10, "properties": {"glass": "#ff0000"}},
                  {"type": "Knob", "name": "right", "x": 10, "width": 10, "height": 10}]})");
    const PanelResult result = shoot(project, {testPlugin("lamp")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "The item \"right\" is left out: no loaded plug-in provides its type \"Knob\".\n");
    EXPECT_EQ(QImage(file("panel.png")).pixelColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(QImage(file("panel.png")).pixelColor(15, 5), QColor(0x10, 0x20, 0x30));
}

TEST_F(PanelProgram, ShowsNothingOfAFaultyProjectAndEndsWithTwo)
{
    const QString project = write("bad.json", R"({"panel": {"width": -1, "height": 480}, "items": [
        {"type": "RecipeSheet", "name": "s", "width": 9, "height": 9,
         "properties": {"title_height": 3, "rows_num_page": 10, "column_num_page": 5}}]})");
    const PanelResult result = run({project, latin("--screenshot"), file("panel.png")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, project.toStdString()
                                 + ": panel.width: found -1, expected a whole number from 1 to 10000.\n"
                                 + project.toStdString()
                                 + ": items[0].properties.title_height: the key is unknown, expected a property of "
                                   "RecipeSheet, perhaps \"title_hight\".\n");
    EXPECT_FALSE(QFile::exists(file("panel.png")));
}

TEST_F(PanelProgram, ToldAMissingProjectEndsWithTwo)
{
    const PanelResult result = run({file("none.json"), latin("--screenshot"), file("panel.png")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, file("none.json").toStdString()
                                 + ": the file cannot be read (No such file or directory), expected a JSON file.\n");
}

TEST_F(PanelProgram, TellsThatAPictureCannotBeWritten)
{
    const QString nowhere = file("no/such/folder/panel.png");
    const PanelResult result = run({exampleProject("bakery.project.json"), latin("--screenshot"), nowhere});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              nowhere.toStdString() + ": the picture cannot be written; name a file in a folder that is yours.\n");
}

TEST_F(PanelProgram, RefusesAWrongCommandLineWithTwo)
{
    EXPECT_EQ(run({}).exitCode, 2);
    EXPECT_EQ(run({exampleProject("bakery.project.json"), latin("--langauge"), latin("2")}).exitCode, 2);
    EXPECT_EQ(run({exampleProject("bakery.project.json"), latin("--language"), latin("9")}).exitCode, 2);
    EXPECT_EQ(run({latin("--help")}).exitCode, 0);
}
