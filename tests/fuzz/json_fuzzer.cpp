// The tool's JSON: as a sheet for a group of a file, and as the description of a new file. What has been taken in comes
// out again and must then say the same.
#include "description.h"
#include "fuzz_frame.h"
#include "import_base.h"
#include "json_mutator.h"
#include "json_sheet.h"
#include "recipe_writer.h"

#include <QFile>

namespace {

Reached cameBack("came_back");
Reached described("described");
Reached written("written");

const int FEW = 50; // groups, items or recipes that are written into a file

bool isSmall(const Description& description)
{
    bool small = description.groups.size() <= FEW;
    for (const recipeTableInfo_t& group : description.groups)
        small = small && group.items.size() <= FEW && group.columnName.size() <= FEW;
    return small;
}

void writeNewFile(const Description& description)
{
    const std::string path = projectFile("new.db3").toStdString();
    writeProjectFile("new.db3", "", 0);
    {
        RecipeWriter writer(path, "new.db3");
        for (const recipeTableInfo_t& group : description.groups)
            writer.writeGroup(group);
    }
    RecipeWriter::verify(path, "new.db3");
    Database database(path, Database::ReadOnly, 0);
    for (const recipeTableInfo_t& group : description.groups) {
        if (loadGroup(database, group.groupIndex).items.size() != group.items.size())
            report("a new file has other items than its description");
    }
    ++written;
}

void describeAgain(const Description& description)
{
    Json all = Json::array();
    for (const recipeTableInfo_t& group : description.groups)
        all.push_back(describeGroup(group));
    const std::string text = dumpJson({{"groups", all}});
    Json again = Json::array();
    for (const recipeTableInfo_t& group : readDescription(text, "again.json").groups)
        again.push_back(describeGroup(group));
    if (again != all)
        report("a description changes on its way: " + text + "\n" + dumpJson(again));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startFuzzing();
    importBase();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    tryImport([&text](Database& database, const recipeTableInfo_t& group) {
        const Input input = readJsonSheet(text, "sheet.json", group);
        const std::optional<recipeTableInfo_t> now = takeIn(database, group, input, false);
        if (!now)
            return;
        std::string out;
        writeJsonSheet(database, *now, [&out](const std::string& piece) { out += piece; });
        requireNoChange(database, *now, readJsonSheet(out, "out.json", *now), out);
        ++cameBack;
    });

    try {
        const Description description = readDescription(text, "new.json");
        ++described;
        describeAgain(description);
        if (isSmall(description))
            writeNewFile(description);
    } catch (const ToolError&) { // told to the user
    } catch (const std::exception& error) {
        report(std::string("an exception that no user should see: ") + error.what());
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    return mutateJson(data, size, maxSize, seed);
}
