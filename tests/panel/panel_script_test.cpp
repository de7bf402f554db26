// Scripts in the real panel program with the shipped library: what an operator does, from the touch to the file.
#include "panel_process.h"
#include "recipe_fixtures.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRectF>

#include <random>

namespace {

const QString SCRIPTS = latin(SOURCE_DIR "/tests/panel/scripts/");

QByteArray contents(const QString& fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    return file.readAll();
}

/// The bakery's recipe file, as people make it.
void createBakery()
{
    QFile::remove(recipeFilePath());
    EXPECT_EQ(QProcess::execute(latin(RECIPE_FILE_PROGRAM),
                                {latin("create"), latin(SOURCE_DIR "/examples/bakery.json"), recipeFilePath()}),
              0);
}

/// What a script wants of its surroundings stands in its first lines: "#! group ITEMS RECIPES", "#! bakery",
/// "#! no file", "#! sql STATEMENT" on the file, "#! project NAME".
struct Surroundings
{
    QString project = exampleProject("bakery.project.json");

    explicit Surroundings(const QByteArray& script)
    {
        for (const QString& line : QString::fromUtf8(script).split(QLatin1Char('\n'))) {
            const QStringList words = line.split(QLatin1Char(' '));
            if (words.first() != latin("#!"))
                continue;
            if (words.at(1) == latin("group"))
                writeRecipeFile(recipeGroup(words.at(2).toInt(), words.at(3).toInt()));
            else if (words.at(1) == latin("bakery"))
                createBakery();
            else if (words.at(1) == latin("sql"))
                OutsideSqlite(recipeFilePath()).exec(words.mid(2).join(QLatin1Char(' ')).toStdString());
            else if (words.at(1) == latin("project"))
                project = exampleProject(words.at(2).toLatin1().constData());
        }
    }
};

} // namespace

class PanelScripts : public PanelProcess
{
protected:
    PanelResult play(const QByteArray& script, const QStringList& more = QStringList())
    {
        return run(QStringList{exampleProject("bakery.project.json"), latin("--script"), latin("-"), latin("--output"),
                               file(".")}
                       + more,
                   script);
    }
};

// --- sessions ----------------------------------------------------------------------------------------------------

class PanelSessions : public PanelScripts, public testing::WithParamInterface<std::string>
{
};

TEST_P(PanelSessions, GoAsTheirScriptExpects)
{
    const QString script = SCRIPTS + QString::fromStdString(GetParam()) + latin(".script");
    const Surroundings wanted(contents(script));
    const PanelResult result = run({wanted.project, latin("--script"), script, latin("--output"), file(".")});
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
}

namespace {

std::vector<std::string> sessions(const char* pattern)
{
    std::vector<std::string> names;
    for (const QString& name : QDir(SCRIPTS).entryList({latin(pattern)}, QDir::Files, QDir::Name))
        names.push_back(name.left(name.size() - 7).toStdString());
    return names;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Kept, PanelSessions, testing::ValuesIn(sessions("*.script")),
                         [](const auto& session) { return session.param; });

class PanelTransfers : public PanelScripts, public testing::WithParamInterface<std::string>
{
protected:
    /// The log, and behind it what the panel dumped at the end.
    QByteArray played()
    {
        const QString script = SCRIPTS + QString::fromStdString(GetParam()) + latin(".script");
        const Surroundings wanted(contents(script));
        const PanelResult result =
            run({wanted.project, latin("--script"), script, latin("--output"), file("."), latin("--log"), file("log")});
        EXPECT_EQ(result.errors, "");
        const QStringList dumps = QDir(file(".")).entryList({latin("*.json")}, QDir::Files, QDir::Name);
        EXPECT_FALSE(dumps.isEmpty());
        return read("log") + (dumps.isEmpty() ? QByteArray() : read(dumps.last().toLatin1().constData()));
    }
};

TEST_P(PanelTransfers, GiveTheSameLogAndStateEveryTime)
{
    const QByteArray first = played();
    EXPECT_TRUE(first.contains("\"event\":\"transfer\""));
    EXPECT_EQ(played().toStdString(), first.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Kept, PanelTransfers, testing::ValuesIn(sessions("send*.script")),
                         [](const auto& session) { return session.param; });

TEST_F(PanelScripts, SendNothingWithoutALibraryThatLoadsRecipes)
{
    const QString project = write("lamp.json", R"({"panel": {"width": 400, "height": 200}, "items": [
        {"type": "Lamp", "name": "lamp", "width": 400, "height": 200}]})");
    const PanelResult result =
        run({project, latin("--plugin"), latin(TEST_PLUGIN_FOLDER "/liblamp.so"), latin("--script"), latin("-")},
            "set LW 60802 0\nset LW 60803 0\nsend\n"
            "expect message \"No plug-in that is loaded can load recipes. Nothing was sent.\"");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
}

/// The plug-in with the loader need not be the first.
TEST_F(PanelScripts, SendWithWhicheverLibraryLoadsRecipes)
{
    createBakery();
    const QString plugin = latin(PLUGIN_FOLDER "/libRecipeSheet.so");
    const PanelResult result =
        play("set LW 60802 0\nset LW 60803 0\nsend\nexpect message \"Sent to the controller: White bread\"",
             {latin("--plugin"), latin(TEST_PLUGIN_FOLDER "/liblamp.so"), latin("--plugin"), plugin});
    EXPECT_EQ(result.errors, "");
}

TEST_F(PanelScripts, StartWithTheLinksOfTheProject)
{
    const QString project = write("links.json", R"({"panel": {"width": 400, "height": 200}, "items": [],
        "links": [{"device": "Mixer", "number": 4, "up": false}, {"device": "Oven"}]})");
    const PanelResult result =
        run({project, latin("--script"), latin("-"), latin("--output"), file(".")},
            "expect link \"Mixer\" down\nexpect link \"Oven\" up\nlink \"Mixer\" up\ndump \"s.json\"");
    EXPECT_EQ(result.errors, "");
    const QJsonObject links = QJsonDocument::fromJson(read("s.json")).object().value(latin("links")).toObject();
    EXPECT_EQ(links, (QJsonObject{{latin("Mixer"), QJsonObject{{latin("number"), 4}, {latin("up"), true}}},
                                  {latin("Oven"), QJsonObject{{latin("number"), 2}, {latin("up"), true}}}}));
}

/// The loader asks the runtime for the number of the link, also where the file has another.
TEST_F(PanelScripts, LogAndDumpWhatWasSentWithOldAndNewWords)
{
    createBakery();
    OutsideSqlite(recipeFilePath()).exec("DELETE FROM addr_0 WHERE row_index > 1");
    const QByteArray project = contents(exampleProject("bakery.project.json"));
    const QString numbered = write("p.json", QByteArray(project).replace("\"number\": 1", "\"number\": 12"));
    const PanelResult result =
        run({numbered, latin("--script"), latin("-"), latin("--log"), file("log"), latin("--output"), file(".")},
            "set LW 60802 0\nset LW 60803 0\nset \"Bakery controller:D\" 102 7\nsend\ndump \"s.json\"");
    EXPECT_EQ(result.errors, "");
    const auto value = [](const char* item, const char* shown, const char* type, int address, const QJsonArray& before,
                          const QJsonArray& after) {
        return QJsonObject{{latin("item"), latin(item)},
                           {latin("value"), latin(shown)},
                           {latin("device"), latin("Bakery controller")},
                           {latin("link"), 12},
                           {latin("register"), latin(type)},
                           {latin("address"), address},
                           {latin("old"), before},
                           {latin("new"), after}};
    };
    QJsonObject wanted = {{latin("result"), latin("sent")},
                          {latin("group"), 0},
                          {latin("recipe"), 0},
                          {latin("title"), latin("White bread")},
                          {latin("values"), QJsonArray{value("Dough temperature \xb0"
                                                             "C",
                                                             "26.0", "D", 100, {0, 0}, {0, 16848}),
                                                       value("Water kg", "93.00", "D", 102, {7, 0}, {9300, 0})}},
                          {latin("notification"), value("Notification", "1", "M", 10, {0}, {1})}};
    EXPECT_EQ(QJsonDocument::fromJson(read("s.json")).object().value(latin("transfer")).toObject(), wanted);
    wanted.insert(latin("event"), latin("transfer"));
    wanted.insert(latin("time"), 100);
    const QByteArray line = QJsonDocument(wanted).toJson(QJsonDocument::Compact);
    const QByteArray lastWord = R"({"address":103,"event":"write","new":0,"old":0,"register":"Bakery controller:D")";
    const QByteArray notified = R"({"address":10,"event":"write","new":1,"old":0,"register":"Bakery controller:M")";
    EXPECT_GE(read("log").indexOf(lastWord), 0);
    EXPECT_GT(read("log").indexOf(notified), read("log").indexOf(lastWord)) << "the controller must find all of it";
    EXPECT_TRUE(read("log").contains(line)) << line.toStdString() << "\nis not in\n" << read("log").toStdString();
}

/// The choice beside the glass, too, follows the language that a script uses.
TEST_F(PanelScripts, ShowTheSameWindowInALanguageHoweverItWasChosen)
{
    writeRecipeFile(recipeGroup(12, 8));
    play("screenshot window \"project.png\"", {latin("--window"), latin("--language"), latin("2")});
    play("language 2\nscreenshot window \"script.png\"", {latin("--window")});
    play("language 2\nlanguage 1\nscreenshot window \"back.png\"", {latin("--window")});
    const QImage german(file("project.png"));
    ASSERT_FALSE(german.isNull());
    EXPECT_EQ(QImage(file("script.png")), german);
    EXPECT_NE(QImage(file("back.png")), german);
}

// --- what the player says ----------------------------------------------------------------------------------------

TEST_F(PanelScripts, TellLineExpectedAndFoundOfAFailedExpectation)
{
    writeRecipeFile(recipeGroup(12, 8));
    const std::pair<const char*, const char*> rows[] = {
        {"\nexpect cell 1 0 \"7\"", "2: expected cell 1 0 to show \"7\", found \"1\"."},
        {"expect cell 99 0 \"7\"", "1: expected cell 99 0 on the page, found rows 0 to 9, columns 0 to 4."},
        {"tap title 7", "1: expected title 7 on the page, found rows 0 to 9, columns 0 to 4."},
        {"tap button start", "1: expected a button \"start\", found rows 0 to 9, columns 0 to 4."},
        {"expect selection cell 1 1", "1: expected selection cell 1 1, found none."},
        {"expect register LW 60803 5", "1: expected register LW 60803 5, found register LW 60803 0."},
        {"expect message \"save successful\"", "1: expected the message \"save successful\", found no message."},
        {"wait message \"add success\"",
         "1: expected the message \"add success\", found no message, and nothing is under way."},
        {"keyboard accept \"5\"", "1: expected an open keyboard, found none."},
        {"answer yes", "1: expected a confirmation, found none."},
        {"release", "1: expected a finger that is down, found none."},
        {"tap title 1\ntap button add\ntap cell 0 0", "3: expected a panel that can be touched, found the confirmation "
                                                      "\"About to autosave, whether to continue?\"."},
        {"expect file \"other.db3\"", "1: expected the file \"other.db3\", found none."},
        {"expect query \"recipeN.db3\" \"SELECT 1\" \"2\"", "1: expected \"2\" from \"SELECT 1\", found \"1\"."},
        {"expect link \"Bakery controller\" down",
         "1: expected link \"Bakery controller\" down, found link \"Bakery controller\" up."},
        {"expect register \"Bakery controller:D\" 100 \"0  7\"",
         "1: expected registers Bakery controller:D 100 on \"0 7\", found \"0 0\"."},
        {"screenshot window \"w.png\"", "1: expected a window, found none; --window opens one."},
        {"tap title 1\ntap button add\nsend", "3: expected a panel that can be touched, found the confirmation "
                                              "\"About to autosave, whether to continue?\"."},
        {"expect first 1 0", "1: expected first 1 0, found 0 0."},
        {"tap cell 0 0\ntap cell 0 0\nkeyboard accept \"1.5\"",
         "3: expected the keyboard to accept \"1.5\", found \"Only whole numbers are possible.\"."},
    };
    for (const auto& [script, sentence] : rows) {
        const PanelResult result = play(script);
        EXPECT_EQ(result.exitCode, 1) << script;
        EXPECT_EQ(result.errors, std::string("standard input:") + sentence + "\n");
    }
}

/// A script that ends in front of an open confirmation has not agreed to anything.
TEST_F(PanelScripts, ThatEndBeforeAnAnswerChangeNothing)
{
    writeRecipeFile(recipeGroup(12, 8));
    EXPECT_EQ(play("tap title 1\ntap button delete").exitCode, 0);
    EXPECT_EQ(play("expect size 12 8").errors, "");
}

/// A job that runs when the panel ends is waited for: the file is whole, with the new recipe.
TEST_F(PanelScripts, ThatEndWhileAJobRunsWaitForIt)
{
    writeRecipeFile(recipeGroup(300, 100));
    const PanelResult result = play("tap title 1\ntap button add\nanswer yes\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(play("expect size 300 101\nexpect query \"recipeN.db3\" \"PRAGMA integrity_check\" \"ok\"").errors, "");
}

TEST_F(PanelScripts, ThatStopAJobAtOnceFindTheFileAsItWasOrWithTheNewRecipe)
{
    writeRecipeFile(recipeGroup(300, 100));
    const PanelResult result = play("tap title 1\ntap button add\nanswer yes\npower-cut\n"
                                    "expect query \"recipeN.db3\" \"PRAGMA integrity_check\" \"ok\"\ndump \"s.json\"");
    EXPECT_EQ(result.errors, "");
    const int recipes = QJsonDocument::fromJson(read("s.json"))
                            .object()
                            .value(latin("items"))
                            .toObject()
                            .value(latin("bakery"))
                            .toObject()
                            .value(latin("columns"))
                            .toInt();
    EXPECT_TRUE(recipes == 100 || recipes == 101) << recipes;
}

TEST_F(PanelScripts, SeeTheTextsOfTheLanguageInUse)
{
    writeRecipeFile(recipeGroup(12, 8));
    const char german[] =
        "expect confirmation \"\xc3\x84nderungen werden jetzt gespeichert. Fortfahren?\"\nanswer no\n";
    const QByteArray ask = "tap title 1\ntap button delete\n";
    EXPECT_EQ(play("language 2\n" + ask + german + "restart\n" + ask + german).errors, "");
    EXPECT_EQ(play(ask + german, {latin("--language"), latin("2")}).errors, "");
}

TEST_F(PanelScripts, WithFaultsAreToldBeforeAnythingRuns)
{
    writeRecipeFile(recipeGroup(12, 8));
    const PanelResult result = play("screenshot \"a.png\"\ntap cel 1 1\n", {latin("--log"), file("log")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.errors.find("standard input:2: found \"tap cel 1 1\", expected "), std::string::npos);
    EXPECT_FALSE(QFile::exists(file("a.png")));
    EXPECT_FALSE(QFile::exists(file("log")));
}

TEST_F(PanelScripts, ThatNameAnUnknownItemAreToldBeforeAnythingRuns)
{
    const PanelResult result = play("screenshot \"a.png\"\ntap cell 1 1 in other\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, "standard input:2: the project shows no item \"other\".\n");
    EXPECT_FALSE(QFile::exists(file("a.png")));
}

TEST_F(PanelScripts, ThatNameAnUnknownLinkAreToldBeforeAnythingRuns)
{
    const PanelResult result = play("screenshot \"a.png\"\nlink \"Oven\" down\nexpect link \"Mill\" up\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, "standard input:2: the project has no link to \"Oven\".\n"
                             "standard input:3: the project has no link to \"Mill\".\n");
    EXPECT_FALSE(QFile::exists(file("a.png")));
}

// --- log, pictures, dumps ----------------------------------------------------------------------------------------

namespace {

const char SESSION[] = R"(tap cell 2 1
tap cell 2 1
screenshot "keyboard.png"
keyboard accept "5"
tap button save
screenshot "saved.png"
tap button add
screenshot "asked.png"
answer yes
wait message "add success"
wait worker
screenshot "added.png"
restart
pass 5000
screenshot "restarted.png"
dump "state.json"
)";

} // namespace

TEST_F(PanelScripts, GiveTheSameLogAndTheSamePicturesEveryTime)
{
    const char* const files[] = {"log",       "keyboard.png",  "saved.png", "asked.png",
                                 "added.png", "restarted.png", "state.json"};
    QList<QByteArray> first;
    for (int round = 0; round < 2; ++round) {
        for (const QString& left : QDir(latin("/usr/tabrix/project")).entryList(QDir::Files))
            QFile::remove(latin("/usr/tabrix/project/") + left);
        writeRecipeFile(recipeGroup(12, 8));
        const PanelResult result = play(SESSION, {latin("--log"), file("log")});
        ASSERT_EQ(result.errors, "");
        for (std::size_t i = 0; i < std::size(files); ++i) {
            if (round == 0)
                first.append(read(files[i]));
            else
                EXPECT_EQ(read(files[i]), first.at(static_cast<int>(i))) << files[i];
        }
    }
}

TEST_F(PanelScripts, LogTouchesRequestsRegistersMessagesEditsAndSaves)
{
    writeRecipeFile(recipeGroup(12, 8));
    play("tap cell 2 1\ntap cell 2 1\nkeyboard accept \"5\"\ntap button save\n", {latin("--log"), file("log")});
    const QByteArray log = read("log");
    for (const char* line : {
             R"({"event":"press","item":"bakery","time":100,"x":378,"y":130})",
             R"({"address":60803,"event":"write","new":1,"old":0,"register":"LW","time":100})",
             R"({"address":60803,"event":"read","register":"LW","time":100,"value":1})",
             R"({"event":"sound","time":100})",
             R"({"event":"release","item":"bakery","time":200,"x":378,"y":130})",
             R"({"current":"10002","decimals":0,"event":"request","function":"showKeyboardWindow","maximum":"65535",)"
             R"("minimum":"0","text":false,"time":300})",
             R"({"event":"edit","new":"5","old":"10002","time":500})",
             R"({"event":"message","text":"save successful","time":700,"values":[2,0]})",
             R"({"cells":[{"column":1,"row":2,"saved":"10002","text":"5"}],"event":"save","item":"bakery","time":700,)"
             R"("titles":[]})",
             R"({"argument":2,"event":"request","function":"reload_recipe","time":700})",
         })
        EXPECT_TRUE(log.contains(QByteArray(line) + '\n')) << line << "\nin\n" << log.constData();
}

TEST_F(PanelScripts, DumpWhatThePanelShows)
{
    writeRecipeFile(recipeGroup(12, 8));
    play("tap cell 2 1\ntap cell 2 1\nkeyboard accept \"5\"\ndump \"state.json\"");
    const QJsonObject all = QJsonDocument::fromJson(read("state.json")).object();
    const QJsonObject sheet = all.value(latin("items")).toObject().value(latin("bakery")).toObject();
    EXPECT_EQ(all.value(latin("registers")).toObject().value(latin("LW 60803")).toInt(), 1);
    EXPECT_EQ(sheet.value(latin("cells")).toArray().size(), 50);
    EXPECT_EQ(sheet.value(latin("pending")).toArray().first().toObject().value(latin("text")).toString(), latin("5"));
    EXPECT_EQ(sheet.value(latin("selection")).toObject().value(latin("label")).toString(),
              QString::fromUtf8("Item 2 L0 \xe2\x80\x93 Recipe 1 L0"));
}

// --- a day of taps -----------------------------------------------------------------------------------------------

namespace {

constexpr int ITEMS = 150;
constexpr int RECIPES = 120;

QRectF rectOf(const QJsonValue& value)
{
    const QJsonArray numbers = value.toArray();
    return QRectF(numbers.at(0).toDouble(), numbers.at(1).toDouble(), numbers.at(2).toDouble(),
                  numbers.at(3).toDouble());
}

/// By row and column.
QMap<QPair<int, int>, QString> textsOf(const QJsonValue& cells)
{
    QMap<QPair<int, int>, QString> result;
    for (const QJsonValue& value : cells.toArray()) {
        const QJsonObject cell = value.toObject();
        result.insert({cell.value(latin("row")).toInt(), cell.value(latin("column")).toInt()},
                      cell.value(latin("text")).toString());
    }
    return result;
}

/// What must hold whatever an operator did.
void checkSheet(const QJsonObject& sheet)
{
    EXPECT_EQ(sheet.value(latin("rows")).toInt(), ITEMS);
    EXPECT_EQ(sheet.value(latin("columns")).toInt(), RECIPES);
    const int firstRow = sheet.value(latin("firstRow")).toInt();
    const int firstColumn = sheet.value(latin("firstColumn")).toInt();
    EXPECT_TRUE(firstRow >= 0 && firstRow <= ITEMS - 10) << firstRow;
    EXPECT_TRUE(firstColumn >= 0 && firstColumn <= RECIPES - 5) << firstColumn;

    const QJsonObject areas = sheet.value(latin("areas")).toObject();
    const QRectF horizontal = rectOf(areas.value(latin("horizontal-thumb")));
    const QRectF vertical = rectOf(areas.value(latin("vertical-thumb")));
    EXPECT_GE(horizontal.left(), rectOf(areas.value(latin("left"))).right());
    EXPECT_LE(horizontal.right(), rectOf(areas.value(latin("right"))).left());
    EXPECT_GE(vertical.top(), rectOf(areas.value(latin("up"))).bottom());
    EXPECT_LE(vertical.bottom(), rectOf(areas.value(latin("down"))).top());

    const auto pending = textsOf(sheet.value(latin("pending")));
    const auto cells = textsOf(sheet.value(latin("cells")));
    EXPECT_EQ(cells.size(), 50);
    for (auto cell = cells.constBegin(); cell != cells.constEnd(); ++cell)
        EXPECT_EQ(cell.value(), pending.value(cell.key(), cellValue(cell.key().second, cell.key().first)))
            << cell.key().first << ' ' << cell.key().second;
}

} // namespace

/// Touches at random places, from a seed: cells, titles, arrows, thumbs, and the keyboard where one comes up. The
/// buttons at the bottom open confirmations; they have scripts of their own.
TEST_F(PanelScripts, KeepTheSheetInOrderForADayOfTaps)
{
    writeRecipeFile(recipeGroup(ITEMS, RECIPES));
    constexpr int LOOKS = 100;
    std::mt19937 random(20260);
    const auto below = [&random](int limit) {
        return QByteArray::number(static_cast<int>(random() % static_cast<unsigned>(limit)));
    };
    QByteArray script;
    for (int look = 0; look < LOOKS; ++look) {
        for (int i = 0; i < 15; ++i) {
            // Often on a scroll bar, so that the sheet gets around.
            const bool onBar = random() % 2 == 0;
            script += onBar ? "press " + below(770) + " 425\n" : "press " + below(800) + ' ' + below(440) + '\n';
            for (unsigned moves = random() % 4; moves > 0; --moves)
                script += "move " + below(800) + ' ' + below(440) + '\n';
            script += "release\n";
            if (random() % 4 == 0) // a second tap on a cell
                script += "press 270 100\nrelease\npress 270 100\nrelease\n";
        }
        script += "dump \"" + QByteArray::number(look) + ".json\"\n";
    }
    const PanelResult result = play(script);
    ASSERT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
    int edits = 0;
    for (int look = 0; look < LOOKS && !HasFailure(); ++look) {
        const QJsonObject all =
            QJsonDocument::fromJson(read((QByteArray::number(look) + ".json").constData())).object();
        const QJsonObject sheet = all.value(latin("items")).toObject().value(latin("bakery")).toObject();
        checkSheet(sheet);
        edits = sheet.value(latin("pending")).toArray().size();
    }
    EXPECT_GT(edits, 0) << "the day went by without an edit: choose another seed";
    EXPECT_EQ(play("expect size 150 120\nexpect cell 9 4 \"40009\"\n").errors, "");
}
