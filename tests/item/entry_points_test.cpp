// What the library shows to the runtime.
#include "qt_print.h"
#include "runtime.h"
#include "shipped_library.h"

#include <set>

class RecipeSheetItems;

namespace {

typedef QString GetItemName();
typedef HMIBaseItem* CreateItem();
typedef object* ItemObjectCreate(QString, QString);

const char ITEM_OBJECT_CREATE[] = "_Z18item_object_create7QStringS_";

/// Bookkeeping of the linker, no names of ours.
bool isLinkersOwn(const std::string& name)
{
    return name == "__bss_start" || name == "_edata" || name == "_end";
}

} // namespace

TEST(EntryPoints, NameTheItemTypeOnEveryCallWithoutAnItem)
{
    const ShippedLibrary library;
    GetItemName* const getItemName = library.entry<GetItemName>("getItemName");
    ASSERT_NE(getItemName, nullptr);
    EXPECT_EQ(getItemName(), QStringLiteral("RecipeSheet"));
    EXPECT_EQ(getItemName(), QStringLiteral("RecipeSheet"));
}

TEST(EntryPoints, CreateItemGivesANewItemEachTimeThatTheCallerOwns)
{
    const ShippedLibrary library;
    CreateItem* const createItem = library.entry<CreateItem>("createItem");
    ASSERT_NE(createItem, nullptr);
    const std::unique_ptr<HMIBaseItem> first(createItem());
    const std::unique_ptr<HMIBaseItem> second(createItem());
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->getRequirement(), QStringLiteral("comm"));
}

TEST(EntryPoints, ItemObjectCreateNamesThePropertyObjectByItsSecondArgument)
{
    const ShippedLibrary library;
    ItemObjectCreate* const create = library.entry<ItemObjectCreate>(ITEM_OBJECT_CREATE);
    ASSERT_NE(create, nullptr);
    const object* const created = create(QStringLiteral("A"), QStringLiteral("B"));
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->name, QStringLiteral("B"));
    EXPECT_EQ(created->type, 1);
}

TEST(EntryPoints, ItemObjectCreatePassesTheNameAsUtf8)
{
    const ShippedLibrary library;
    const QString name = QString::fromUtf8("R\xc3\xbchrwerk \xe9\x85\x8d\xe6\x96\xb9");
    const object* const created = library.entry<ItemObjectCreate>(ITEM_OBJECT_CREATE)(QString(), name);
    EXPECT_EQ(created->name, name);
}

TEST(EntryPoints, AreAllThatTheLibraryShows)
{
    const std::set<std::string> wanted = {
        "getItemName",
        "createItem",
        "item_object_create(QString, QString)",
        "getRcpFilePath(object*)",
        "getRecipeAutoExportPath()",
        "backupRcpFile(object*)",
        "rcpFileIsExists(object*)",
        "loadRecipe2Struct_start_end(int, int, int, recipeTableInfo_t&, InterfaceComm*)",
    };
    std::set<std::string> shown;
    for (const std::string& line : linesOf("nm --dynamic --defined-only --format=posix '" SHEET_LIBRARY "'")) {
        const std::string name = line.substr(0, line.find(' '));
        if (!isLinkersOwn(name))
            shown.insert(demangled(name.c_str()));
    }
    EXPECT_EQ(shown, wanted);
}

/// A panel has its own runtime: the library must not bring one along, nor demand a desk's.
TEST(EntryPoints, LeaveTheRuntimeToTheProgramThatLoadsTheLibrary)
{
    for (const std::string& line : linesOf("readelf --dynamic '" SHEET_LIBRARY "'"))
        EXPECT_EQ(line.find("hmi_runtime"), std::string::npos) << line;
}
