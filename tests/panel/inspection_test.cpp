// `recipe-panel probe` and `recipe-panel validate`: what is told of good and bad libraries, and with which exit code.
#include "elf_file.h"
#include "panel_process.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <elf.h>
#include <sys/stat.h>

#include <map>
#include <random>

namespace {

QString testPlugin(const char* name)
{
    return latin(TEST_PLUGIN_FOLDER "/lib") + latin(name) + latin(".so");
}

} // namespace

class Inspection : public PanelProcess
{
protected:
    void SetUp() override
    {
        PanelProcess::SetUp();
        // A sanitizer would take the signals of crashes for itself; and it cannot tell what leaks in a library that is
        // gone by the end of its process, which is looked at where one process loads and unloads it.
        qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":handle_segv=0:detect_leaks=0");
    }

    /// A copy of the lamp plug-in with bytes replaced, which have the same length.
    QString changedLamp(const QByteArray& from, const QByteArray& to) const
    {
        EXPECT_EQ(from.size(), to.size());
        QByteArray bytes = lamp();
        EXPECT_TRUE(bytes.contains(from));
        return write("changed.so", bytes.replace(from, to));
    }

    static QByteArray lamp()
    {
        QFile file(testPlugin("lamp"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    /// The paragraph of a library that is no plug-in.
    std::string refused(const QString& library)
    {
        const PanelResult result = run({latin("probe"), library});
        EXPECT_EQ(result.exitCode, 1) << result.output;
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output.find('\n'), result.output.size() - 1); // one paragraph
        EXPECT_NE(result.output.find(": found "), std::string::npos);
        EXPECT_NE(result.output.find(" Needed: "), std::string::npos);
        EXPECT_NE(result.output.find(" Cure: "), std::string::npos);
        return result.output;
    }

    QJsonObject probed(const QString& library)
    {
        return QJsonDocument::fromJson(
                   QByteArray::fromStdString(run({latin("probe"), latin("--json"), library}).output))
            .object();
    }

    /// The checks that fail, with why; all others passed.
    std::map<std::string, QJsonObject> failures(const QStringList& arguments, int exitCode = 1)
    {
        const PanelResult result = run(QStringList{latin("validate"), latin("--json")} + arguments);
        EXPECT_EQ(result.exitCode, exitCode) << result.output << result.errors;
        const QJsonObject report = QJsonDocument::fromJson(QByteArray::fromStdString(result.output)).object();
        std::map<std::string, QJsonObject> failed;
        for (const QJsonValue& check : report[latin("checks")].toArray()) {
            if (!check[latin("passed")].toBool())
                failed[check[latin("name")].toString().toStdString()] = check.toObject();
        }
        EXPECT_EQ(report[latin("failed")].toInt(), static_cast<int>(failed.size()));
        EXPECT_EQ(report[latin("passed")].toInt() + report[latin("failed")].toInt(),
                  report[latin("checks")].toArray().size());
        m_ran = report[latin("checks")].toArray().size();
        return failed;
    }

    int m_ran = 0;
};

// --- probe -------------------------------------------------------------------------------------------------------

TEST_F(Inspection, FindsThatTheShippedLibraryIsAPlugin)
{
    const PanelResult result = run({latin("probe"), latin(SHIPPED_LIBRARY)});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.output.find("getItemName(), createItem() and item_object_create(QString, QString)"),
              std::string::npos);
    EXPECT_NE(result.output.find("The panel can load it"), std::string::npos);

    const QJsonObject json = probed(latin(SHIPPED_LIBRARY));
    EXPECT_TRUE(json[latin("plugin")].toBool());
    EXPECT_EQ(json[latin("qt")].toInt(), QT_VERSION_MAJOR);
    EXPECT_EQ(json[latin("entryPoints")].toArray().size(), 3);
    EXPECT_TRUE(json[latin("namesChecked")].toBool());
    EXPECT_TRUE(json[latin("unresolvedNames")].toArray().isEmpty());
    EXPECT_TRUE(json[latin("faults")].toArray().isEmpty());
}

TEST_F(Inspection, TellsWhatAFileIsThatIsNoLibrary)
{
    EXPECT_NE(refused(write("a.so", "hello\n")).find("found a text."), std::string::npos);
    EXPECT_NE(refused(write("b.so", "")).find("found an empty file."), std::string::npos);
    EXPECT_NE(refused(write("c.so", QByteArray("\1\2\3\0", 4))).find("found data of some other kind."),
              std::string::npos);
    EXPECT_NE(refused(file("missing.so")).find("found nothing that can be read"), std::string::npos);
    EXPECT_NE(refused(latin("/")).find("found nothing that can be read"), std::string::npos);
    EXPECT_NE(refused(latin(PANEL_PROGRAM)).find("found a program."), std::string::npos);
}

TEST_F(Inspection, TellsTheEntryPointsThatAreMissing)
{
    const std::string told = refused(testPlugin("half"));
    EXPECT_NE(told.find("the entry points getItemName()"), std::string::npos);
    EXPECT_NE(told.find("no entry point createItem() and item_object_create(QString, QString)"), std::string::npos);
}

TEST_F(Inspection, TellsTheNamesThatNobodyHas)
{
    const std::string told = refused(testPlugin("unresolved"));
    EXPECT_NE(told.find("use of functionOfAnotherRuntime, which nobody has"), std::string::npos);
    EXPECT_EQ(probed(testPlugin("unresolved"))[latin("unresolvedNames")].toArray(),
              QJsonArray{latin("functionOfAnotherRuntime")});
}

TEST_F(Inspection, TellsALibraryThatIsMissing)
{
    const std::string told = refused(changedLamp("libstdc++.so.6", "libnothin.so.6"));
    EXPECT_NE(told.find("need of libnothin.so.6"), std::string::npos);
}

#ifdef HAS_LOADER_CACHE
/// Folders of /etc/ld.so.conf, as /usr/local/lib, are known to the loader by its cache alone.
TEST_F(Inspection, FindsALibraryThatOnlyTheLoadersCacheKnows)
{
    const QString plugin = changedLamp("libstdc++.so.6", "libnothin.so.6");
    ASSERT_TRUE(QDir().mkpath(file("vendor")));
    write("vendor/libnothin.so.6", lamp());
    write("ld.so.conf", file("vendor").toLocal8Bit() + "\ninclude /etc/ld.so.conf.d/*.conf\n");
    const char* const script = "ldconfig=/sbin/ldconfig; cd \"$1\" && $ldconfig -i -X -f ld.so.conf -C cache 2>log; "
                               "mount --bind cache /etc/ld.so.cache || exit 77; shift; exec \"$@\"";
    QProcess process;
    process.start(latin("unshare"),
                  {latin("--user"), latin("--map-root-user"), latin("--mount"), latin("sh"), latin("-c"), latin(script),
                   latin("sh"), file("."), latin(PANEL_PROGRAM), latin("probe"), plugin});
    ASSERT_TRUE(process.waitForFinished(-1));
    if (process.exitCode() == 77)
        GTEST_SKIP() << "no mounts: " << process.readAllStandardError().toStdString();
    const std::string told = process.readAllStandardOutput().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << told << process.readAllStandardError().toStdString();
    EXPECT_NE(told.find("The panel can load it"), std::string::npos) << told;
}
#endif

/// A panel's item may leave Qt to the program that loads it.
TEST_F(Inspection, TakesALibraryThatUsesThePanelsQt)
{
    const PanelResult result = run({latin("probe"), testPlugin("unlinked")});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_NE(result.output.find("with no Qt of its own"), std::string::npos) << result.output;
    EXPECT_TRUE(failures({testPlugin("unlinked"), latin("--only"), latin("calling-order")}, 0).empty());
}

TEST_F(Inspection, WaitsForNoPipe)
{
    ASSERT_EQ(mkfifo(file("pipe").toLocal8Bit().constData(), 0600), 0);
    EXPECT_NE(refused(file("pipe")).find("found nothing that can be read (it is no file)"), std::string::npos);
}

TEST_F(Inspection, TellsCodeForAnotherProcessor)
{
    QByteArray bytes = lamp();
    bytes[EI_NIDENT + 2] = static_cast<char>(EM_PPC64); // e_machine, little-endian like this machine
    bytes[EI_NIDENT + 3] = 0;
    const QString library = write("foreign.so", bytes);
    const std::string told = refused(library);
    EXPECT_NE(told.find("found a shared library for PowerPC ("), std::string::npos);
    EXPECT_NE(told.find("build it with this machine's compiler"), std::string::npos);
    EXPECT_FALSE(probed(library)[latin("namesChecked")].toBool()); // who knows what is there
}

TEST_F(Inspection, TellsThatAnotherQtIsNeeded)
{
    const int other = QT_VERSION_MAJOR == 5 ? 6 : 5;
    QByteArray bytes = lamp();
    for (const char* module : {"Core", "Gui", "Widgets"}) {
        const auto name = [&](int major) {
            return QByteArray("libQt") + QByteArray::number(major) + module + ".so." + QByteArray::number(major);
        };
        bytes.replace(name(QT_VERSION_MAJOR), name(other));
    }
    const std::string told = refused(write("otherqt.so", bytes));
    EXPECT_NE(told.find("with Qt " + std::to_string(other)), std::string::npos) << told;
    EXPECT_NE(told.find("build it with Qt " + std::to_string(QT_VERSION_MAJOR)), std::string::npos) << told;
}

TEST_F(Inspection, TellsAFileThatWasCutShort)
{
    const QByteArray whole = lamp();
    for (int part = 1; part < 20; ++part) {
        const QByteArray bytes = whole.left(static_cast<int>(whole.size() * qint64(part) / 20));
        EXPECT_NE(refused(write("cut.so", bytes)).find("cut short or damaged"), std::string::npos) << part;
    }
    EXPECT_NE(refused(write("cut.so", whole.left(10))).find("cut short or damaged"), std::string::npos);
}

/// The table of the sections is what stands last, and what is missing of it is as bad as what is missing before it.
TEST_F(Inspection, TellsAFileThatWasCutInItsTableOfSections)
{
    const QByteArray whole = lamp();
    ASSERT_EQ(ElfFile::read(write("cut.so", whole)).state, ElfFile::State::Whole);
    for (int missing = 1; missing < 3000; missing += missing < 100 ? 1 : 37)
        EXPECT_EQ(ElfFile::read(write("cut.so", whole.left(whole.size() - missing))).state, ElfFile::State::Damaged)
            << missing;
}

/// The loader does without sections. Nothing is claimed then of names that nobody has read.
TEST_F(Inspection, TellsALibraryWithoutSections)
{
    QByteArray bytes = lamp();
    if (bytes.at(EI_CLASS) == ELFCLASS64) {
        Elf64_Ehdr* const header = reinterpret_cast<Elf64_Ehdr*>(bytes.data());
        header->e_shoff = header->e_shnum = header->e_shstrndx = 0;
    } else {
        Elf32_Ehdr* const header = reinterpret_cast<Elf32_Ehdr*>(bytes.data());
        header->e_shoff = header->e_shnum = header->e_shstrndx = 0;
    }
    const std::string told = refused(write("stripped.so", bytes));
    EXPECT_NE(told.find("whose sections were stripped"), std::string::npos) << told;
    EXPECT_EQ(told.find("entry point"), std::string::npos) << told;
}

TEST_F(Inspection, RunsNoLineOfTheLibrary)
{
    const PanelResult result = run({latin("probe"), testPlugin("loud")});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.output.find("loaded"), std::string::npos);
    // It would have been heard:
    EXPECT_NE(run({latin("validate"), testPlugin("loud"), latin("--alone"), latin("names")}).output.find("loaded"),
              std::string::npos);
}

/// Whatever stands in the file: it is read without a crash, and quickly.
TEST_F(Inspection, SurvivesAnyBytes)
{
    const QByteArray whole = lamp();
    std::mt19937 random(7);
    int read = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = whole;
        const int end = round % 2 == 0 ? 64 : static_cast<int>(bytes.size()); // the header, or anywhere
        for (int i = 0; i < 1 + round % 40; ++i)
            bytes[std::uniform_int_distribution<int>(4, end - 1)(random)] = static_cast<char>(random());
        read += ElfFile::read(write("any.so", bytes)).state == ElfFile::State::Whole ? 1 : 0;
    }
    EXPECT_GT(read, 20);
    EXPECT_LT(read, 380);
}

// --- validate ----------------------------------------------------------------------------------------------------

TEST_F(Inspection, PassesTheShippedLibraryWithARealProject)
{
    QDir().mkpath(latin("/usr/tabrix/project"));
    EXPECT_TRUE(failures({latin(SHIPPED_LIBRARY), latin("--seconds"), latin("2"), latin("--project"),
                          exampleProject("bakery.project.json")},
                         0)
                    .empty());
    EXPECT_EQ(m_ran, 10);
}

/// Ten seconds of them once left a bakery with seven times the same recipe.
TEST_F(Inspection, TapsOnNobodysRecipesUnlessItIsTold)
{
    QDir().mkpath(latin("/usr/tabrix/project"));
    QFile recipes(latin("/usr/tabrix/project/recipeN.db3"));
    ASSERT_TRUE(recipes.open(QIODevice::WriteOnly));
    recipes.close();
    const PanelResult refused = run({latin("validate"), testPlugin("lamp"), latin("--seconds"), latin("1")});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(refused.errors.substr(0, 75),
              "/usr/tabrix/project holds recipeN.db3, and random taps would change it. Run");
    EXPECT_TRUE(failures({testPlugin("lamp"), latin("--only"), latin("names")}, 0).empty());
    EXPECT_TRUE(failures({testPlugin("lamp"), latin("--only"), latin("random-taps"), latin("--seconds"), latin("1"),
                          latin("--change-files")},
                         0)
                    .empty());
}

TEST_F(Inspection, PassesAPlainItemWithoutAProject)
{
    EXPECT_TRUE(failures({testPlugin("lamp"), latin("--seconds"), latin("1")}, 0).empty());
    EXPECT_EQ(m_ran, 10);
}

TEST_F(Inspection, ListsItsChecksAndRunsTheOnesAskedFor)
{
    const PanelResult list = run({latin("validate"), latin("--list")});
    EXPECT_EQ(list.exitCode, 0);
    for (const char* name : {"probe ", "names ", "calling-order ", "random-taps ", "unload "})
        EXPECT_NE(list.output.find(name), std::string::npos) << name;
    EXPECT_TRUE(
        failures({testPlugin("lamp"), latin("--only"), latin("names"), latin("--only"), latin("unload")}, 0).empty());
    EXPECT_EQ(m_ran, 2);
}

TEST_F(Inspection, TellsACrashWithItsSignalAndGoesOn)
{
    const auto failed = failures({testPlugin("dies_of_a_tap"), latin("--seconds"), latin("5")});
    ASSERT_EQ(failed.size(), 1u);
    ASSERT_EQ(failed.count("random-taps"), 1u);
    EXPECT_EQ(failed.at("random-taps")[latin("signal")].toInt(), SIGSEGV);
    EXPECT_EQ(m_ran, 10);

    const PanelResult told =
        run({latin("validate"), testPlugin("dies_of_a_tap"), latin("--only"), latin("random-taps")});
    EXPECT_NE(told.output.find("crashed with SIGSEGV"), std::string::npos) << told.output;
    EXPECT_NE(told.output.find("0 passed, 1 failed"), std::string::npos);
}

TEST_F(Inspection, FindsEachBreachOfTheContract)
{
    const auto only = [this](const char* library, const char* check) {
        const auto failed = failures({testPlugin(library), latin("--only"), latin(check), latin("--only"),
                                      latin("property-object"), latin("--only"), latin("creation")});
        EXPECT_EQ(failed.size(), 1u) << library;
        return failed.count(check) == 1 ? failed.at(check)[latin("failure")].toString().toStdString() : "";
    };
    EXPECT_EQ(only("same_item", "creation"), "createItem() gives the same item twice; the runtime owns each");
    EXPECT_EQ(only("other_name", "property-object"),
              "item_object_create(type, \"first lamp\") makes an object named \"another\"");
    EXPECT_EQ(only("wants_interface", "empty-interface").substr(0, 20), "crashed with SIGSEGV");
    EXPECT_EQ(only("wants_properties", "no-properties").substr(0, 20), "crashed with SIGSEGV");
    EXPECT_EQ(only("name_changes", "names").substr(0, 25), "getItemName() gives \"Naug");
    EXPECT_EQ(only("leaves_the_process", "calling-order"), "ended the process with code 3");
    EXPECT_EQ(only("leaves_in_order", "calling-order"), "ended the process with code 0");
    EXPECT_EQ(only("leaves_like_a_failed_check", "calling-order"), "ended the process with code 10");
    const auto half =
        failures({testPlugin("half"), latin("--seconds"), latin("1")}); // a check may do no harm to others
    EXPECT_EQ(half.size(), 10u);
    EXPECT_EQ(half.at("creation")[latin("failure")].toString(), latin("an entry point is missing; see \"probe\""));
    EXPECT_EQ(half.at("creation")[latin("signal")].toInt(), 0);
}

TEST_F(Inspection, TellsACheckThatHangs)
{
    const auto failed = failures({testPlugin("hangs_when_told"), latin("--time-limit"), latin("2"), latin("--seconds"),
                                  latin("1"), latin("--only"), latin("no-properties")});
    ASSERT_EQ(failed.size(), 1u);
    EXPECT_EQ(failed.at("no-properties")[latin("failure")].toString().toStdString(),
              "did not come to an end within 3 s");
}

TEST_F(Inspection, RefusesACommandLineThatMakesNoSense)
{
    EXPECT_EQ(run({latin("probe")}).exitCode, 2);
    EXPECT_EQ(run({latin("validate")}).exitCode, 2);
    const PanelResult unknown = run({latin("validate"), testPlugin("lamp"), latin("--only"), latin("nosuch")});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_EQ(unknown.errors, "There is no check \"nosuch\"; --list tells their names.\n");
    EXPECT_EQ(run({latin("probe"), latin("--help")}).exitCode, 0);
    EXPECT_EQ(run({latin("validate"), latin("--help")}).exitCode, 0);
}
