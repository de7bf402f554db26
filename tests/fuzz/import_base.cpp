#include "import_base.h"

#include "RecipeDB.h"
#include "fuzz_frame.h"

#include <QFile>

#include <exception>

namespace {

Reached runs("runs");
Reached refused("refused");
Reached read("read");
Reached changed("changed");

const int ITEMS = 6;
const int RECIPES = 4;

QVector<QString> titles(const QString& title)
{
    return QVector<QString>(LANGUAGE_COUNT, title);
}

recipeItemInfo_t item(int number)
{
    const int types[] = {0, 3, 7, 6, 2, 7};
    recipeItemInfo_t result;
    result.rowIndex = number;
    result.rowName = titles(QStringLiteral("Item %1").arg(number));
    result.setAddress(QStringLiteral("Controller,1,-1,D,%1,0").arg(100 + number));
    result.dataType = types[number];
    result.totalDigits = 8;
    result.decimalDigits = result.dataType == 7 ? 0 : number % 4;
    result.min = -1000;
    result.max = 60000;
    for (int r = 0; r < RECIPES; ++r)
        result.values.append(result.dataType == 7 ? QStringLiteral("text, \"%1\"").arg(r)
                                                  : QString::number(r * 10 + number));
    return result;
}

void makeBase(const QString& path)
{
    recipeTableInfo_t group;
    group.groupName = titles(QStringLiteral("Group"));
    for (int i = 0; i < ITEMS; ++i)
        group.items.append(item(i));
    for (int r = 0; r < RECIPES; ++r)
        group.columnName.append(titles(QStringLiteral("Recipe %1").arg(r)));
    QFile(path).open(QIODevice::WriteOnly);
    RecipeDB* const db = RecipeDB::getInstance();
    if (db->OpenRecipeFile(path) != 0 || db->createTable_RecipeConfig() != 0 || db->createTable_Group(0, group) != 0)
        report("cannot make " + path.toStdString());
    db->CloseRecipeFile();
}

} // namespace

Database& importBase()
{
    static Database* const database = [] {
        const QString path = projectFile("base.db3");
        makeBase(path);
        return new Database(path.toStdString(), Database::ReadWrite, 0);
    }();
    return *database;
}

void tryImport(const std::function<void(Database&, const recipeTableInfo_t&)>& import)
{
    ++runs;
    Database& database = importBase();
    database.execute("BEGIN IMMEDIATE");
    try {
        import(database, loadGroup(database, 0));
    } catch (const ToolError& error) {
        if (std::string(error.what()).empty())
            report("a refusal without a sentence");
        ++refused;
    } catch (const std::exception& error) {
        report(std::string("an exception that no user should see: ") + error.what());
    }
    database.rollBack();
}

std::optional<recipeTableInfo_t> takeIn(Database& database, const recipeTableInfo_t& group, const Input& input,
                                        bool strict)
{
    ++read;
    const ChangeSet changes = compare(database, group, input, strict);
    describe(group, changes);
    summary(changes);
    dumpJson(changesToJson(group, changes));
    if (!changes.problems.empty())
        return std::nullopt;
    if (!changes.empty())
        ++changed;
    apply(database, group, changes);
    return loadGroup(database, 0);
}

void requireNoChange(Database& database, const recipeTableInfo_t& group, const Input& input, const std::string& text)
{
    const ChangeSet changes = compare(database, group, input, false);
    if (changes.empty() && changes.problems.empty())
        return;
    std::string story = "an export says something else than the file: " + describe(group, changes);
    for (const Problem& problem : changes.problems)
        story += '\n' + problem.text();
    report(story + "\n" + text);
}
