#include "change_set.h"

#include "console.h"
#include "recipe_limits.h"
#include "text_table.h"

#include <algorithm>
#include <map>

namespace {

/// Compares one recipe of the input with the file, and notes what is wrong with it.
class Comparison
{
public:
    Comparison(const recipeTableInfo_t& group, const Input& input, bool strict, ChangeSet& result)
        : m_group(group), m_input(input), m_strict(strict), m_result(result)
    {}

    void compareTitles(const InputRecipe& recipe)
    {
        QVector<QString> after = m_group.columnName.at(*recipe.number);
        for (int i = 0; i < LANGUAGE_COUNT; ++i) {
            const auto& title = recipe.titles[static_cast<std::size_t>(i)];
            if (!title || *title == after.at(i).toStdString())
                continue;
            m_result.titles.push_back({*recipe.number, i + 1, after.at(i).toStdString(), *title});
            after[i] = QString::fromStdString(*title);
        }
        checkTitles(recipe, after, *recipe.number);
    }

    void compareCell(const InputRecipe& recipe, int item, const Cell& before)
    {
        const InputCell& cell = recipe.cells[static_cast<std::size_t>(item)];
        const bool nothingSaid = cell.kind == InputCell::Absent;
        m_result.said += nothingSaid ? 0 : 1;
        const bool stillEmpty = cell.kind == InputCell::Missing && (!before || before->empty());
        if (nothingSaid || stillEmpty || (cell.kind == InputCell::Given && before && *before == cell.text)) {
            ++m_result.unchanged;
            return;
        }
        const Cell after = checked(recipe, item, cell);
        if (!after)
            return;
        if (before && *before == *after)
            ++m_result.unchanged;
        else
            m_result.cells.push_back({*recipe.number, item, before, after});
    }

    void addRecipe(const InputRecipe& recipe)
    {
        NewRecipe added;
        for (const auto& title : recipe.titles)
            added.titles.append(title ? QString::fromStdString(*title) : QString());
        checkTitles(recipe, added.titles, static_cast<int>(m_group.columnName.size()));
        for (int i = 0; i < m_group.items.size(); ++i)
            added.values.push_back(checked(recipe, i, recipe.cells[static_cast<std::size_t>(i)]));
        m_result.recipes.push_back(added);
    }

private:
    SheetPlace itemPlace(int item) const
    {
        return m_input.itemPlaces.empty() ? SheetPlace() : m_input.itemPlaces[static_cast<std::size_t>(item)];
    }

    std::string pathOf(const InputRecipe& recipe, const SheetPlace& place) const
    {
        const std::string where = recipe.path.empty() ? place.text() : recipe.path;
        return m_input.name + (where.empty() ? "" : ", " + where);
    }

    Problem problemOf(const InputRecipe& recipe, int item, const std::string& value, const std::string& expected) const
    {
        const SheetPlace place = itemPlace(item).with(recipe.place);
        return {pathOf(recipe, place), placeOf(recipe, item), "the value", value, expected, m_input.name, place.row,
                place.column};
    }

    std::string placeOf(const InputRecipe& recipe, int item) const
    {
        const std::string where = recipe.number ? recipeLabel(m_group, *recipe.number) : std::string("new recipe");
        return where + ", " + itemLabel(m_group, item);
    }

    /// The value as it will stand in the file; nothing where it is refused.
    Cell checked(const InputRecipe& recipe, int item, const InputCell& cell)
    {
        const recipeItemInfo_t& info = m_group.items.at(item);
        if (cell.kind != InputCell::Given) {
            if (isText(info))
                return std::string();
            m_result.problems.push_back(problemOf(recipe, item, "missing", "a number"));
            return std::nullopt;
        }
        const CheckedValue value = checkValue(info, QString::fromStdString(cell.text));
        if (value.ok())
            return value.text.toStdString();
        const Problem problem = problemOf(recipe, item, quoted(cell.text), value.expected);
        if (!value.outsideLimits || m_strict) {
            m_result.problems.push_back(problem);
            return std::nullopt;
        }
        m_result.warnings.push_back(problem.text());
        return isText(info) ? cell.text : value.text.toStdString();
    }

    void checkTitles(const InputRecipe& recipe, const QVector<QString>& titles, int number)
    {
        const std::string path = pathOf(recipe, recipe.place);
        const std::string place = recipe.number ? recipeLabel(m_group, number) : std::string("new recipe");
        for (const QString& title : titles) {
            if (title.contains(QChar(0)))
                m_result.problems.push_back({path, place, "the title", "a text with a zero character", "one without",
                                             m_input.name, recipe.place.row, recipe.place.column});
        }
        const int room = titleRoom(m_group.groupIndex, number);
        if (titleBytes(titles) > room)
            m_result.problems.push_back({path, place, "the title", std::to_string(titleBytes(titles)) + " bytes in all",
                                         "at most " + std::to_string(room) + " for all languages together",
                                         m_input.name, recipe.place.row, recipe.place.column});
    }

    const recipeTableInfo_t& m_group;
    const Input& m_input;
    bool m_strict;
    ChangeSet& m_result;
};

/// The row numbers of the recipes: a search by recipe number reads the whole table each time.
std::map<int, std::int64_t> rowsOfRecipes(Database& database, int group)
{
    std::map<int, std::int64_t> rows;
    Statement row(database, "SELECT column, rowid FROM " + tableName("data_", group));
    while (row.step())
        rows[static_cast<int>(row.integer(0))] = row.integer(1);
    return rows;
}

/// One UPDATE per changed recipe.
void updateRecipe(Database& database, int group, std::int64_t rowid, std::vector<CellChange>::const_iterator begin,
                  std::vector<CellChange>::const_iterator end)
{
    std::string sql = "UPDATE " + tableName("data_", group) + " SET ";
    for (auto change = begin; change != end; ++change)
        sql += (change == begin ? "D" : ", D") + std::to_string(change->item) + " = ?";
    Statement statement(database, sql + " WHERE rowid = ?");
    int parameter = 1;
    for (auto change = begin; change != end; ++change)
        statement.bind(parameter++, *change->after);
    statement.bind(parameter, rowid).step();
}

void updateTitle(Database& database, int group, const TitleChange& change)
{
    Statement statement(database, "UPDATE " + tableName("lang_", group) + " SET L" + std::to_string(change.language - 1)
                                      + " = ? WHERE type = 2 AND strIndex = ?");
    statement.bind(1, change.after).bind(2, change.recipe).step();
}

void insertRecipe(Database& database, const recipeTableInfo_t& group, int number, const NewRecipe& recipe)
{
    std::string sql = "INSERT INTO " + tableName("data_", group.groupIndex) + " VALUES (?";
    for (std::size_t i = 0; i < recipe.values.size(); ++i)
        sql += ",?";
    Statement data(database, sql + ')');
    data.bind(1, number);
    for (std::size_t i = 0; i < recipe.values.size(); ++i) {
        if (recipe.values[i])
            data.bind(static_cast<int>(i) + 2, *recipe.values[i]);
    }
    data.step();
    Statement titles(database,
                     "INSERT INTO " + tableName("lang_", group.groupIndex) + " VALUES (2, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    titles.bind(1, number);
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        titles.bind(i + 2, recipe.titles.at(i).toStdString());
    titles.step();
}

void compareRows(ChangeSet& result, int recipe, const RecipeRows& before, const RecipeRows& after, int items)
{
    for (int i = 0; i < items; ++i) {
        const Cell left = before.cell(i);
        const Cell right = after.cell(i);
        if (left == right)
            ++result.unchanged;
        else
            result.cells.push_back({recipe, i, left, right});
    }
}

void compareTitles(ChangeSet& result, int recipe, const QVector<QString>& before, const QVector<QString>& after)
{
    for (int i = 0; i < LANGUAGE_COUNT; ++i) {
        if (before.at(i) != after.at(i))
            result.titles.push_back({recipe, i + 1, before.at(i).toStdString(), after.at(i).toStdString()});
    }
}

std::string cellText(const Cell& cell)
{
    return cell ? *cell : "(missing)";
}

Json cellToJson(const Cell& cell)
{
    return cell ? Json(*cell) : Json(nullptr);
}

/// As a person goes through the sheet. What has no place comes first.
void sortByPlace(std::vector<Problem>& problems)
{
    std::stable_sort(problems.begin(), problems.end(), [](const Problem& a, const Problem& b) {
        return std::make_pair(a.row, a.column) < std::make_pair(b.row, b.column);
    });
}

/// 1 is "A", 27 is "AA".
std::string letters(int column)
{
    std::string text;
    for (; column > 0; column = (column - 1) / 26)
        text.insert(text.begin(), static_cast<char>('A' + (column - 1) % 26));
    return text;
}

} // namespace

std::string SheetPlace::text() const
{
    const std::string rowText = row > 0 ? "row " + std::to_string(row) : std::string();
    if (column < 1)
        return rowText;
    return rowText + (row > 0 ? ", " : "") + "column " + std::to_string(column) + " (" + letters(column) + ')';
}

ChangeSet compare(Database& database, const recipeTableInfo_t& group, const Input& input, bool strict)
{
    ChangeSet result;
    result.problems = input.problems;
    result.unknown = input.unknown;
    result.remarks = input.remarks;
    Comparison comparison(group, input, strict, result);
    std::map<int, const InputRecipe*> known;
    for (const InputRecipe& recipe : input.recipes) {
        if (recipe.number)
            known[*recipe.number] = &recipe;
    }
    RecipeRows rows(database, group, 0, static_cast<int>(group.items.size()));
    Progress progress("recipes compared", group.columnName.size());
    for (int number = 0; rows.next(); ++number) {
        progress.reach(number);
        const auto found = known.find(number);
        if (found == known.end()) {
            result.onlyInFile.push_back(number);
            continue;
        }
        comparison.compareTitles(*found->second);
        for (int item = 0; item < group.items.size(); ++item)
            comparison.compareCell(*found->second, item, rows.cell(item));
    }
    for (const InputRecipe& recipe : input.recipes) {
        if (!recipe.number)
            comparison.addRecipe(recipe);
    }
    sortByPlace(result.problems);
    return result;
}

ChangeSet compareGroups(Database& database, const recipeTableInfo_t& group, Database& otherFile,
                        const recipeTableInfo_t& other)
{
    ChangeSet result;
    const int common = static_cast<int>(std::min(group.items.size(), other.items.size()));
    for (int i = common; i < other.items.size(); ++i)
        result.unknown.push_back(itemLabel(other, i));
    RecipeRows before(database, group, 0, static_cast<int>(group.items.size()));
    RecipeRows after(otherFile, other, 0, static_cast<int>(other.items.size()));
    Progress progress("recipes compared", other.columnName.size());
    for (int recipe = 0; after.next(); ++recipe) {
        progress.reach(recipe);
        if (recipe < group.columnName.size() && before.next()) {
            compareRows(result, recipe, before, after, common);
            compareTitles(result, recipe, group.columnName.at(recipe), other.columnName.at(recipe));
            continue;
        }
        NewRecipe added;
        added.titles = other.columnName.at(recipe);
        for (int i = 0; i < common; ++i)
            added.values.push_back(after.cell(i));
        result.recipes.push_back(added);
    }
    for (int recipe = static_cast<int>(other.columnName.size()); recipe < group.columnName.size(); ++recipe)
        result.onlyInFile.push_back(recipe);
    return result;
}

void apply(Database& database, const recipeTableInfo_t& group, const ChangeSet& changes)
{
    std::map<int, std::int64_t> rows;
    if (!changes.cells.empty())
        rows = rowsOfRecipes(database, group.groupIndex);
    Progress progress("recipes written", group.columnName.size());
    for (auto begin = changes.cells.begin(); begin != changes.cells.end();) {
        const auto end = std::find_if(begin, changes.cells.end(),
                                      [begin](const CellChange& change) { return change.recipe != begin->recipe; });
        progress.reach(begin->recipe);
        updateRecipe(database, group.groupIndex, rows.at(begin->recipe), begin, end);
        begin = end;
    }
    for (const TitleChange& change : changes.titles)
        updateTitle(database, group.groupIndex, change);
    int number = static_cast<int>(group.columnName.size());
    for (const NewRecipe& recipe : changes.recipes)
        insertRecipe(database, group, number++, recipe);
    if (changes.recipes.empty())
        return;
    Statement config(database, "UPDATE recipe_config SET column = ? WHERE group_index = ?");
    config.bind(1, number).bind(2, group.groupIndex).step();
}

std::string describe(const recipeTableInfo_t& group, const ChangeSet& changes)
{
    TextTable table({"Recipe", "Item", "Old", "New"}, {false, false, true, true});
    for (const CellChange& change : changes.cells)
        table.addRow({recipeLabel(group, change.recipe), itemLabel(group, change.item), cellText(change.before),
                      cellText(change.after)});
    for (const TitleChange& change : changes.titles)
        table.addRow({recipeLabel(group, change.recipe), "title in language " + std::to_string(change.language),
                      change.before, change.after});
    int number = static_cast<int>(group.columnName.size());
    for (const NewRecipe& recipe : changes.recipes) {
        const std::string name =
            "new recipe " + std::to_string(number++) + ' ' + quoted(recipe.titles.at(0).toStdString());
        for (std::size_t i = 0; i < recipe.values.size(); ++i)
            table.addRow({name, itemLabel(group, static_cast<int>(i)), "", cellText(recipe.values[i])});
    }
    return changes.empty() ? std::string() : table.text();
}

std::string summary(const ChangeSet& changes, const std::string& others)
{
    std::string text = counted(static_cast<long long>(changes.cells.size()), "value", "values") + " changed, "
                       + std::to_string(changes.unchanged) + " unchanged, "
                       + counted(static_cast<long long>(changes.titles.size()), "title", "titles") + " changed, "
                       + counted(static_cast<long long>(changes.recipes.size()), "new recipe", "new recipes") + ", "
                       + counted(static_cast<long long>(changes.unknown.size()), "unknown item", "unknown items");
    if (!changes.onlyInFile.empty())
        text += ", " + counted(static_cast<long long>(changes.onlyInFile.size()), "recipe", "recipes") + ' ' + others;
    return text + '.';
}

Json changesToJson(const recipeTableInfo_t& group, const ChangeSet& changes)
{
    Json object = {{"group", group.groupIndex},          {"changed", changes.cells.size()},
                   {"unchanged", changes.unchanged},     {"titles", changes.titles.size()},
                   {"new", changes.recipes.size()},      {"unknown", changes.unknown},
                   {"notMentioned", changes.onlyInFile}, {"warnings", changes.warnings},
                   {"remarks", changes.remarks},         {"cells", Json::array()},
                   {"titleChanges", Json::array()},      {"newRecipes", Json::array()}};
    for (const CellChange& change : changes.cells)
        object["cells"].push_back({{"recipe", change.recipe},
                                   {"item", change.item},
                                   {"old", cellToJson(change.before)},
                                   {"new", cellToJson(change.after)}});
    for (const TitleChange& change : changes.titles)
        object["titleChanges"].push_back(
            {{"recipe", change.recipe}, {"language", change.language}, {"old", change.before}, {"new", change.after}});
    for (const NewRecipe& recipe : changes.recipes) {
        Json values = Json::array();
        for (const Cell& cell : recipe.values)
            values.push_back(cellToJson(cell));
        object["newRecipes"].push_back({{"name", recipe.titles.at(0).toStdString()}, {"values", values}});
    }
    return object;
}

void refuseProblems(const ChangeSet& changes, const std::string& inputName)
{
    if (!changes.problems.empty())
        throw ToolError(inputName + " has "
                            + counted(static_cast<long long>(changes.problems.size()), "error", "errors")
                            + "; nothing was changed. Correct " + (changes.problems.size() == 1 ? "it" : "them")
                            + ", then try again.",
                        changes.problems);
}
