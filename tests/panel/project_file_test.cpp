// Reading project files: what comes out of good ones, and what is said about broken ones.
#include "project_file.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <memory>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

const QString BROKEN = latin(SOURCE_DIR "/tests/panel/broken_projects/");

ItemTypeRules sheetRules()
{
    ItemTypeRules rules;
    QStringList problems;
    EXPECT_TRUE(rules.load(latin(PLUGIN_FOLDER "/RecipeSheet.properties.json"), problems))
        << problems.join(QLatin1Char('\n')).toStdString();
    return rules;
}

QByteArray contents(const QString& fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    return file.readAll();
}

/// A file of the test's own, in the working folder of its private view.
QString written(const char* json)
{
    const QString name = latin("/usr/tabrix/project/project.json");
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(json);
    return name;
}

QString joined(const QStringList& lines)
{
    return lines.join(QLatin1Char('\n'));
}

} // namespace

// --- broken files ------------------------------------------------------------------------------------------------

class BrokenProject : public testing::TestWithParam<std::string>
{
};

/// "<name>.expected" holds the sentences, without the file's name in front.
TEST_P(BrokenProject, IsToldInOneSentenceForEachFault)
{
    const QString name = BROKEN + QString::fromStdString(GetParam());
    ProjectFile project;
    project.addRules(sheetRules());
    EXPECT_FALSE(project.load(name + latin(".json")));

    QStringList sentences = project.problems();
    for (QString& sentence : sentences) {
        EXPECT_TRUE(sentence.startsWith(name + latin(".json: "))) << sentence.toStdString();
        sentence.remove(0, name.size() + 7);
    }
    const QString expected = QString::fromUtf8(contents(name + latin(".expected"))).trimmed();
    EXPECT_EQ(joined(sentences).toStdString(), expected.toStdString());
}

namespace {

std::vector<std::string> brokenProjects()
{
    std::vector<std::string> names;
    for (const QString& file : QDir(BROKEN).entryList({latin("*.json")}, QDir::Files, QDir::Name))
        names.push_back(file.left(file.size() - 5).toStdString());
    return names;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Kept, BrokenProject, testing::ValuesIn(brokenProjects()),
                         [](const auto& file) { return file.param; });

TEST(ProjectFile, ThatIsMissingIsTold)
{
    ProjectFile project;
    EXPECT_FALSE(project.load(latin("/nowhere/project.json")));
    EXPECT_EQ(joined(project.problems()).toStdString(),
              "/nowhere/project.json: the file cannot be read (No such file or directory), expected a JSON file.");
}

TEST(ProjectFile, ThatIsAFolderIsTold)
{
    ProjectFile project;
    EXPECT_FALSE(project.load(latin("/usr")));
    ASSERT_EQ(project.problems().size(), 1);
    EXPECT_TRUE(project.problems().first().startsWith(latin("/usr: the file cannot be read (")));
}

TEST(ProjectFile, CanBeLoadedAgainAfterAFailure)
{
    ProjectFile project;
    EXPECT_FALSE(project.load(BROKEN + latin("panel_values.json")));
    EXPECT_TRUE(project.load(written(R"({"panel": {"width": 8, "height": 4}, "items": []})")));
    EXPECT_EQ(project.problems().size(), 0);
    EXPECT_EQ(project.panel().width, 8);
    EXPECT_EQ(project.panel().dpi, 96);
    EXPECT_EQ(project.panel().language, 1);
}

// --- good files --------------------------------------------------------------------------------------------------

class ExampleProject : public testing::TestWithParam<const char*>
{
};

TEST_P(ExampleProject, IsFreeOfFaults)
{
    ProjectFile project;
    project.addRules(sheetRules());
    EXPECT_TRUE(project.load(latin(SOURCE_DIR "/examples/") + latin(GetParam())))
        << joined(project.problems()).toStdString();
    for (const ProjectItem& item : project.items())
        EXPECT_EQ(item.children.size(), 8);
}

INSTANTIATE_TEST_SUITE_P(Shipped, ExampleProject,
                         testing::Values("bakery.project.json", "large.project.json", "two-sheets.project.json"));

TEST(ProjectFile, NamesTheLinksToControllers)
{
    ProjectFile project;
    ASSERT_TRUE(project.load(written(R"({
        "panel": {"width": 8, "height": 4}, "items": [],
        "links": [{"device": "Mixer"}, {"device": "Oven", "number": 7, "up": false}]
})"))) << joined(project.problems()).toStdString();
    ASSERT_EQ(project.links().size(), 2);
    EXPECT_EQ(project.links().at(0).device, latin("Mixer"));
    EXPECT_EQ(project.links().at(0).number, 1) << "counted from 1 where nobody says";
    EXPECT_TRUE(project.links().at(0).isUp);
    EXPECT_EQ(project.links().at(1).number, 7);
    EXPECT_FALSE(project.links().at(1).isUp);
    ASSERT_TRUE(project.load(written(R"({"panel": {"width": 8, "height": 4}, "items": []})")));
    EXPECT_EQ(project.links().size(), 0);
}

TEST(ProjectTree, HoldsPlacePropertiesAndChildrenWithTheirTypes)
{
    ProjectFile project;
    ASSERT_TRUE(project.load(written(R"({
        "panel": {"width": 800, "height": 480, "background": "#102030"},
        "items": [{"type": "Lamp", "name": "lamp", "x": -3, "y": 4, "width": 50, "height": 60,
                   "properties": {"level": 7, "label": "On", "glass": "#ff8000", "shade": "#80010203", "hash": "#12"},
                   "children": {"Language1": {"text": "an"}}}]
})"))) << joined(project.problems()).toStdString();
    EXPECT_EQ(project.panel().background, QColor(0x10, 0x20, 0x30));

    const std::unique_ptr<object> tree(project.createTree(nullptr));
    object* lamp = object_get_child(tree.get(), "lamp");
    ASSERT_NE(lamp, nullptr);
    EXPECT_EQ(lamp->type, 1);
    EXPECT_EQ(object_get_property_value_type_int32(lamp, "x", 0), -3);
    EXPECT_EQ(object_get_property_value_type_int32(lamp, "y", 0), 4);
    EXPECT_EQ(object_get_property_value_type_int32(lamp, "width", 0), 50);
    EXPECT_EQ(object_get_property_value_type_int32(lamp, "height", 0), 60);
    EXPECT_EQ(object_get_property_value_type_int32(lamp, "level", 0), 7);
    EXPECT_EQ(object_get_property_value_type_string(lamp, "label", QString()), latin("On"));
    EXPECT_EQ(object_get_property_value_type_string(lamp, "hash", QString()), latin("#12"));
    EXPECT_EQ(object_get_property_value_type_color(lamp, "glass", QColor()), QColor(255, 128, 0));
    EXPECT_EQ(object_get_property_value_type_color(lamp, "shade", QColor()), QColor(1, 2, 3, 128));
    EXPECT_EQ(object_get_property_value_type_string(object_get_child(lamp, "Language1"), "text", QString()),
              latin("an"));
}

namespace {

class CountingFactory : public ItemObjectFactory
{
public:
    object* createItemObject(const QString& typeName, const QString& name) override
    {
        asked.append(typeName + QLatin1Char(' ') + name);
        return typeName == latin("Lamp") ? new object(latin("made")) : nullptr;
    }
    QStringList asked;
};

} // namespace

TEST(ProjectTree, HasItsItemObjectsMadeByTheFactoryWhereThatCan)
{
    ProjectFile project;
    ASSERT_TRUE(project.load(written(R"({"panel": {"width": 8, "height": 4}, "items": [
        {"type": "Lamp", "name": "a", "width": 1, "height": 1},
        {"type": "Knob", "name": "b", "width": 2, "height": 1}]
})")));
    CountingFactory factory;
    const std::unique_ptr<object> tree(project.createTree(&factory));
    EXPECT_EQ(joined(factory.asked).toStdString(), "Lamp a\nKnob b");
    ASSERT_EQ(tree->children().size(), 2);
    EXPECT_EQ(tree->children().at(0)->name, latin("made"));
    EXPECT_EQ(tree->children().at(1)->name, latin("b"));
    EXPECT_EQ(object_get_property_value_type_int32(tree->children().at(1), "width", 0), 2);
}

// --- what an item type knows -------------------------------------------------------------------------------------

namespace {

/// key, where it is read, type, default.
std::string described(const PropertyRule& rule)
{
    static const char* const PLACES[] = {"item", "language"};
    static const char* const TYPES[] = {"int", "text", "colour"};
    const QString fallback = rule.type == PropertyRule::COLOUR ? rule.fallback.value<QColor>().name(QColor::HexArgb)
                                                               : rule.fallback.toString();
    return rule.key.toStdString() + ' ' + PLACES[rule.place] + ' ' + TYPES[rule.type] + ' ' + fallback.toStdString();
}

} // namespace

TEST(SheetProperties, AreAllStatedWithPlaceTypeAndDefault)
{
    const std::vector<std::string> wanted = {
        "use_page item int 0",
        "column_line_display item int 0",
        "row_line_display item int 0",
        "frame_background_color item colour #ff000000",
        "title_background_color item colour #ff000000",
        "frame_line_color item colour #ff000000",
        "inside_line_color item colour #ff000000",
        "title_text_color language colour #ff000000",
        "table_text_color language colour #ff000000",
        "selected_row_color item colour #ff000000",
        "selected_cell_color item colour #ff000000",
        "frameLineWidth item int 0",
        "insideLineWidth item int 0",
        "frameLineShape item int 1",
        "insideLineShape item int 1",
        "rows_num_page item int 0",
        "column_num_page item int 0",
        "Recipe_Group_idx item int 0",
        "title_hight item int 0",
        "name_width item int 0",
        "title_text_pixelSize language int 16",
        "table_text_pixelSize language int 16",
        "title_font_family language text Simsun",
        "table_font_family language text Simsun",
        "use_diff_color item int 0",
        "odd_color item colour #ff000000",
        "even_color item colour #ff000000",
        "use_add_del item int 0",
    };
    const ItemTypeRules rules = sheetRules();
    EXPECT_EQ(rules.typeName, latin("RecipeSheet"));
    EXPECT_EQ(static_cast<std::size_t>(rules.rules.size()), wanted.size());
    for (const std::string& line : wanted) {
        const PropertyRule* rule = rules.find(QString::fromStdString(line.substr(0, line.find(' '))));
        ASSERT_NE(rule, nullptr) << line;
        EXPECT_EQ(described(*rule), line);
        EXPECT_FALSE(rule->meaning.isEmpty());
    }
}

TEST(SheetProperties, ThatAreWronglyStatedAreTold)
{
    ItemTypeRules rules;
    QStringList problems;
    EXPECT_FALSE(rules.load(written(R"({"item_type": "Lamp", "properties": [
        {"key": "a", "in": "room", "type": "int", "minimum": 5, "maximum": 1, "default": "x", "meaning": "m"},
        {"key": "b", "in": "item", "type": "float", "meaning": ""}, 3]
})"),
                            problems));
    const QString file = latin("/usr/tabrix/project/project.json: ");
    EXPECT_EQ(joined(problems).remove(file).toStdString(),
              "properties[0].in: found \"room\", expected one of \"item\", \"language\".\n"
              "properties[0].maximum: found 1, expected a whole number from 5 to 2147483647.\n"
              "properties[0].default: found \"x\", expected a value of the property's type.\n"
              "properties[1].meaning: found an empty text, expected a name.\n"
              "properties[1].type: found \"float\", expected one of \"int\", \"string\", \"color\".\n"
              "properties[1].minimum: the key is missing, expected a whole number from -2147483648 to 2147483647.\n"
              "properties[1].maximum: the key is missing, expected a whole number from -2147483648 to 2147483647.\n"
              "properties[1].default: the key is missing, expected a value of the property's type.\n"
              "properties[2]: found 3, expected an object that describes a property.");
}
