// The library as it ships is loaded, used and unloaded, over and over: it goes whole, and what it held goes with it.
#include "edit_confirmation.h"
#include "fault_tally.h"
#include "long_run.h"
#include "recipe_records.h"
#include "runtime.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <dlfcn.h>
#include <link.h>

#include <atomic>
#include <cstring>
#include <memory>

#ifdef __SANITIZE_ADDRESS__
// The compiler brings no header for it.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                                         void (*freed)(const volatile void*));
#endif

namespace {

typedef QString GetItemName();
typedef HMIBaseItem* CreateItem();
typedef object* ItemObjectCreate(QString, QString);
typedef QString GetPath(object*);
typedef bool FileExists(object*);
typedef void BackUp(object*);
typedef QString GetExportPath();
typedef int LoadRange(int, int, int, recipeTableInfo_t&, InterfaceComm*);

const char RECIPE_FILE[] = "/usr/tabrix/project/recipeN.db3";
const char LIBRARY_NAME[] = "libRecipeSheet";

/// Blocks of memory that are not the library's: GLib keeps some for the event loops of threads, and the address
/// sanitizer notes each exit function of a library for good, which makes a block in three rounds.
int noise(int rounds)
{
    return 20 + rounds / 2;
}

const int LOADS = 200;
const int LOADS_TO_COMPARE = 20; // fewer show nothing

/// Whether a part of the library is in the process's memory.
bool isResident()
{
    bool found = false;
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* result) {
            *static_cast<bool*>(result) |= std::strstr(info->dlpi_name, LIBRARY_NAME) != nullptr;
            return 0;
        },
        &found);
    return found;
}

int openHandles()
{
    return QDir(QString::fromLatin1("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

std::atomic<int> blocks(0); // of memory, not given back since counting began

/// False: only the address sanitizer can.
bool countBlocks()
{
#ifdef __SANITIZE_ADDRESS__
    static const int once =
        __sanitizer_install_malloc_and_free_hooks([](const volatile void*, std::size_t) { ++blocks; },
                                                  [](const volatile void* block) { blocks -= block != nullptr; });
    EXPECT_GT(once, 0);
    return true;
#else
    return false;
#endif
}

/// The library, from dlopen to dlclose.
class Loaded
{
public:
    Loaded() : m_handle(dlopen(SHEET_LIBRARY, RTLD_NOW | RTLD_LOCAL)) { EXPECT_NE(m_handle, nullptr) << dlerror(); }
    ~Loaded() { EXPECT_EQ(dlclose(m_handle), 0) << dlerror(); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    template <typename Function> Function* entry(const char* name) const
    {
        void* const address = dlsym(m_handle, name);
        if (!address)
            ADD_FAILURE() << name << " is not there";
        return reinterpret_cast<Function*>(address);
    }
    HMIBaseItem* createItem() const { return entry<CreateItem>("createItem")(); }

private:
    void* m_handle;
};

/// What the item told the operator, and what it asked the runtime for.
class Notices : public RuntimeListener
{
public:
    void messageBox(const QString& text, int, int) override { said.append(text); }
    void externalCall(const QString& function, quintptr) override { said.append(function); }
    void touchSound(QGraphicsItem*) override {}

    QStringList said;
};

class LoadAndUnload : public testing::Test
{
protected:
    LoadAndUnload() : m_tally("load and unload")
    {
        QFile::remove(QString::fromLatin1(RECIPE_FILE));
        writeFile();
        Runtime::instance().setListener(&notices);
    }
    ~LoadAndUnload() override
    {
        Runtime::instance().setListener(nullptr);
        Runtime::instance().setProject(nullptr);
        QFile::remove(QString::fromLatin1(RECIPE_FILE));
        QFile::remove(QString::fromLatin1(RECIPE_FILE) + QString::fromLatin1(".bak"));
    }

    static void writeFile()
    {
        sqlite3* file = nullptr;
        ASSERT_EQ(sqlite3_open(RECIPE_FILE, &file), SQLITE_OK);
        const char* const sql =
            "CREATE TABLE recipe_config (group_index INTEGER PRIMARY KEY, row INTEGER NOT NULL, column INTEGER NOT "
            "NULL,"
            " notify INTEGER NOT NULL, notify_addr VARCHAR);"
            "CREATE TABLE addr_0 (row_index INTEGER PRIMARY KEY, address VARCHAR NOT NULL, datatype INTEGER NOT NULL,"
            " totalDigits INTEGER NOT NULL, decimalDigits INTEGER NOT NULL, min REAL NOT NULL, max REAL NOT NULL);"
            "CREATE TABLE data_0 (column INTEGER NOT NULL, 'D0' REAL, 'D1' REAL);"
            "CREATE TABLE lang_0 (type INTEGER NOT NULL, strIndex INTEGER NOT NULL, 'L0' TEXT, 'L1' TEXT, 'L2' TEXT,"
            " 'L3' TEXT, 'L4' TEXT, 'L5' TEXT, 'L6' TEXT, 'L7' TEXT);"
            "INSERT INTO recipe_config VALUES (0, 2, 2, 0, '');"
            "INSERT INTO addr_0 VALUES (0, 'a,0,-1,LW,,1', 0, 8, 0, 0, 999), (1, 'a,0,-1,LW,,2', 0, 8, 0, 0, 999);"
            "INSERT INTO data_0 VALUES (0, 1, 2), (1, 3, 4);"
            "INSERT INTO lang_0 VALUES (0, 0, 'G','','','','','','',''), (1, 0, 'A','','','','','','',''),"
            " (1, 1, 'B','','','','','','',''), (2, 0, 'R','','','','','','',''), (2, 1, 'S','','','','','','','');";
        EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
        sqlite3_close(file);
    }

    /// A project with one sheet of 800 x 480; the sheet's properties.
    static object* openProject()
    {
        object* const project = new object(QString::fromLatin1("Project"));
        object* const sheet = project->addChild(new object(QString::fromLatin1("Sheet")));
        const struct
        {
            const char* key;
            int value;
        } numbers[] = {{"width", 800},      {"height", 480},     {"rows_num_page", 10}, {"column_num_page", 5},
                       {"title_hight", 40}, {"name_width", 120}, {"use_add_del", 1},    {"frameLineWidth", 1}};
        for (const auto& number : numbers)
            sheet->properties.insert(QString::fromLatin1(number.key), number.value);
        Runtime::instance().setProject(project);
        return sheet;
    }

    static void settle()
    {
        do
            QCoreApplication::processEvents();
        while (!Runtime::instance().isIdle());
    }

    static void touch(QGraphicsScene& scene, HMIBaseItem* item, const QPointF& at)
    {
        for (const QEvent::Type type :
             {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseMove, QEvent::GraphicsSceneMouseRelease}) {
            QGraphicsSceneMouseEvent event(type);
            event.setPos(at);
            event.setButton(Qt::LeftButton);
            scene.sendEvent(item, &event);
        }
    }

    static void paint(HMIBaseItem* item)
    {
        QImage image(800, 480, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        item->HMIpaint(nullptr, QString(), &painter, false);
    }

    static void touchEverywhere(QGraphicsScene& scene, HMIBaseItem* item)
    {
        for (const QPointF at : {QPointF(230, 60), QPointF(230, 60), QPointF(230, 20), QPointF(755, 425),
                                 QPointF(785, 395), QPointF(400, 425), QPointF(45, 460)})
            touch(scene, item, at);
    }

    /// An item's whole life, with a job of the worker.
    void live(const Loaded& library)
    {
        object* const properties = openProject();
        QGraphicsScene scene;
        HMIBaseItem* const item = library.createItem();
        Runtime::place(item, properties);
        scene.addItem(item);
        EXPECT_TRUE(Runtime::instance().start(item));
        paint(item);
        touchEverywhere(scene, item);
        item->keyboardReflash(QString::fromLatin1("7"));
        paint(item);
        runJob(scene, item, QPointF(145, 460), "add");
        runJob(scene, item, QPointF(245, 460), "del");
        paint(item);
    }

    void runJob(QGraphicsScene& scene, HMIBaseItem* item, const QPointF& button, const char* job)
    {
        settle();
        notices.said.clear();
        Confirmation yes(Confirmation::Yes);
        touch(scene, item, button);
        ASSERT_EQ(yes.asked, 1);
        // A job asks for another look at the file last; an event that is delivered after the library has gone would
        // call what is not there.
        const QString last = QString::fromLatin1("reload_recipe");
        while (notices.said.filter(QString::fromLatin1(job)).isEmpty() || notices.said.last() != last)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
        EXPECT_TRUE(notices.said.contains(QString::fromLatin1(job) + QString::fromLatin1(" success"))) << job;
        settle();
    }

    /// The entry points in an order that changes from round to round, also before there is a project or an item.
    void callInAnyOrder(const Loaded& library, int round)
    {
        Runtime::instance().setProject(nullptr);
        for (int step = 0; step < 7; ++step)
            call(library, (round + step * (round % 6 + 1)) % 7);
        settle();
    }

    static void call(const Loaded& library, int which)
    {
        switch (which) {
        case 0:
            EXPECT_EQ(library.entry<GetItemName>("getItemName")(), QString::fromLatin1("RecipeSheet"));
            break;
        case 1:
            delete Runtime::instance().release(library.entry<ItemObjectCreate>("_Z18item_object_create7QStringS_")(
                QString(), QString::fromLatin1("B")));
            break;
        case 2:
            EXPECT_TRUE(library.entry<FileExists>("_Z15rcpFileIsExistsP6object")(nullptr));
            library.entry<BackUp>("_Z13backupRcpFileP6object")(nullptr);
            break;
        case 3:
            EXPECT_EQ(library.entry<GetPath>("_Z14getRcpFilePathP6object")(nullptr), QString::fromLatin1(RECIPE_FILE));
            EXPECT_FALSE(library.entry<GetExportPath>("_Z23getRecipeAutoExportPathv")().isEmpty());
            break;
        case 4: {
            recipeTableInfo_t group;
            library.entry<LoadRange>("_Z27loadRecipe2Struct_start_endiiiR17recipeTableInfo_tP13InterfaceComm")(
                0, 0, 2, group, &Runtime::instance().registers());
            break;
        }
        case 5:
            delete library.createItem();
            break;
        default:
            useWithoutStart(library);
        }
    }

    /// What a runtime does to an item that it has not started yet.
    static void useWithoutStart(const Loaded& library)
    {
        QGraphicsScene scene;
        HMIBaseItem* const item = library.createItem();
        scene.addItem(item);
        item->keyboardReflash(QString::fromLatin1("7"));
        item->update_result(4);
        touchEverywhere(scene, item);
        paint(item);
        QStringList addresses;
        QList<KEY_ADDRESS> keys;
        EXPECT_EQ(item->getMonitorAddr(addresses, keys), 0);
        item->setInterfaceByRequirement(QList<void*>());
        paint(item);
    }

    void note()
    {
        EXPECT_FALSE(isResident()) << "something keeps the library in memory";
        m_tally.add(true, HasFailure() ? FaultTally::Found : FaultTally::Fine);
    }

    Notices notices;

private:
    FaultTally m_tally;
};

} // namespace

TEST_F(LoadAndUnload, TakesTheWholeLibraryAwayAndAllThatItHeld)
{
    const int count = wishedFor("RECIPE_LOADS", LOADS, LOADS_TO_COMPARE);
    LongRun progress("loads and unloads", count);
    const bool counted = countBlocks();
    int handles = 0;
    int first = 0;
    for (int round = 0; round < count && !HasFailure(); ++round) {
        {
            const Loaded library;
            EXPECT_TRUE(isResident());
            live(library);
        }
        Runtime::instance().setProject(nullptr);
        notices.said = QStringList();
        note();
        EXPECT_EQ(sqlite3_memory_used(), 0) << "a connection is still open";
        if (round == count / 4) { // Qt's own caches have filled
            handles = openHandles();
            first = blocks;
        }
        progress.done(round + 1);
    }
    const int more = blocks - first;
    std::printf("%d rounds; early and at the end %d and %d handles, blocks of memory more: %s\n", count, handles,
                openHandles(), counted ? std::to_string(more).c_str() : "not counted without the address sanitizer");
    EXPECT_EQ(openHandles(), handles);
    EXPECT_LE(more, noise(count));
}

TEST_F(LoadAndUnload, IsPossibleAfterTheEntryPointsInAnyOrder)
{
    for (int round = 0; round < 42 && !HasFailure(); ++round) {
        {
            const Loaded library;
            callInAnyOrder(library, round);
        }
        note();
        EXPECT_EQ(sqlite3_memory_used(), 0) << "a connection is still open";
    }
}
