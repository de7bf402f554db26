#include "json_sheet.h"

#include "description.h"
#include "recipe_limits.h"

namespace {

std::string indented(const Json& value, int depth)
{
    return std::string(static_cast<std::size_t>(depth), ' ')
           + value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// A number as the cell shows it, so that no decimal is lost or won on the way through another program.
Json cellToJson(const recipeItemInfo_t& item, const Cell& cell)
{
    if (!cell)
        return nullptr;
    bool number = false;
    const double value = QString::fromStdString(*cell).toDouble(&number);
    if (isText(item) || !number)
        return *cell;
    if (item.decimalDigits < 1 && value >= -1e15 && value <= 1e15)
        return static_cast<long long>(value);
    return value;
}

InputCell inputCell(const recipeItemInfo_t& item, const Json& value)
{
    if (value.is_null())
        return InputCell::missing();
    if (value.is_string())
        return InputCell::given(value.get<std::string>());
    if (!value.is_number() || isText(item))
        return InputCell::given(value.dump());
    const CheckedValue checked = checkValue(item, QString::fromStdString(value.dump()));
    return InputCell::given(checked.text.isEmpty() ? value.dump() : checked.text.toStdString());
}

/// "names" as in a description: one text, or a list.
std::vector<std::optional<std::string>> inputTitles(JsonObject& recipe)
{
    std::vector<std::optional<std::string>> titles(LANGUAGE_COUNT);
    const Json* names = recipe.find("names");
    if (names && names->is_string())
        titles.assign(LANGUAGE_COUNT, names->get<std::string>());
    else if (names && names->is_array() && !names->empty() && names->size() <= LANGUAGE_COUNT) {
        for (std::size_t i = 0; i < names->size(); ++i) {
            if ((*names)[i].is_string())
                titles[i] = (*names)[i].get<std::string>();
            else
                recipe.problem("names", shown((*names)[i]), "texts");
        }
    } else if (names) {
        recipe.problem("names", shown(*names), "a text, or a list of 1 to 8 texts");
    }
    return titles;
}

class Reader
{
public:
    Reader(const std::string& fileName, const recipeTableInfo_t& group) : m_group(group) { m_input.name = fileName; }

    Input read(const std::string& text)
    {
        const Json root = parseJson(text, m_input.name, m_input.problems);
        JsonObject object(root, "", "", m_input.problems);
        const Json* groups = object.isObject() ? object.array("groups", "a list of groups") : nullptr;
        const Json* found = nullptr;
        std::size_t place = 0;
        for (std::size_t i = 0; groups && i < groups->size(); ++i) {
            const Json& one = (*groups)[i];
            const bool matches = one.is_object() && one.value("index", Json(i)) == m_group.groupIndex;
            if (matches)
                place = i;
            found = matches ? &one : found;
        }
        if (groups && !found)
            throw ToolError(m_input.name + " has no group " + std::to_string(m_group.groupIndex) + '.');
        if (found)
            readGroup(*found, "groups[" + std::to_string(place) + ']');
        return m_input;
    }

private:
    void readGroup(const Json& value, const std::string& path)
    {
        JsonObject object(value, path, groupLabel(m_group), m_input.problems);
        if (const Json* items = object.find("items"); items && items->is_array()) {
            for (std::size_t i = static_cast<std::size_t>(m_group.items.size()); i < items->size(); ++i)
                m_input.unknown.push_back(object.pathOf("items[" + std::to_string(i) + ']'));
        }
        const Json* recipes = object.array("recipes", "a list of recipes");
        for (std::size_t i = 0; recipes && i < recipes->size(); ++i)
            readRecipe((*recipes)[i], object.pathOf("recipes[" + std::to_string(i) + ']'), static_cast<int>(i));
    }

    void readRecipe(const Json& value, const std::string& path, int number)
    {
        JsonObject object(value, path, "recipe " + std::to_string(number), m_input.problems);
        object.allowOnly({"names", "values"});
        if (!object.isObject())
            return;
        InputRecipe recipe;
        recipe.path = path;
        recipe.titles = inputTitles(object);
        if (number < m_group.columnName.size())
            recipe.number = number;
        else
            fillTitles(recipe, number);
        recipe.cells.resize(static_cast<std::size_t>(m_group.items.size()));
        const Json* values = object.array("values", "a list of values, one per item");
        for (std::size_t i = 0; values && i < recipe.cells.size() && i < values->size(); ++i)
            recipe.cells[i] = inputCell(m_group.items.at(static_cast<int>(i)), (*values)[i]);
        m_input.recipes.push_back(std::move(recipe));
    }

    /// A new recipe's missing titles are its first one.
    void fillTitles(InputRecipe& recipe, int number)
    {
        const std::string first = recipe.titles[0].value_or("Recipe " + std::to_string(number + 1));
        for (auto& title : recipe.titles)
            title = title.value_or(first);
    }

    const recipeTableInfo_t& m_group;
    Input m_input;
};

} // namespace

void writeJsonSheet(Database& database, const recipeTableInfo_t& group,
                    const std::function<void(const std::string&)>& sink)
{
    recipeTableInfo_t definition = group;
    definition.columnName.clear();
    const Json head = describeGroup(definition);
    sink("{\n  \"groups\": [\n    {\n");
    for (const auto& member : head.items()) {
        if (member.key() == "items" || member.key() == "recipes")
            continue;
        sink("      \"" + member.key() + "\": " + indented(member.value(), 0) + ",\n");
    }
    sink("      \"items\": [\n");
    const Json& items = head["items"];
    for (std::size_t i = 0; i < items.size(); ++i)
        sink(indented(items[i], 8) + (i + 1 < items.size() ? ",\n" : "\n"));
    sink("      ],\n      \"recipes\": [\n");
    RecipeRows rows(database, group, 0, static_cast<int>(group.items.size()));
    for (int number = 0; rows.next(); ++number) {
        Json recipe;
        recipe["names"] = titlesToJson(group.columnName.at(number));
        recipe["values"] = Json::array();
        for (int i = 0; i < group.items.size(); ++i)
            recipe["values"].push_back(cellToJson(group.items.at(i), rows.cell(i)));
        sink(indented(recipe, 8) + (number + 1 < group.columnName.size() ? ",\n" : "\n"));
    }
    sink("      ]\n    }\n  ]\n}\n");
}

std::vector<int> jsonGroups(const std::string& text, const std::string& fileName)
{
    std::vector<Problem> ignored; // reading the group tells them
    const Json root = parseJson(text, fileName, ignored);
    std::vector<int> numbers;
    if (!root.is_object() || !root.contains("groups") || !root["groups"].is_array())
        return numbers;
    for (std::size_t i = 0; i < root["groups"].size(); ++i) {
        const Json& group = root["groups"][i];
        const Json index = group.is_object() ? group.value("index", Json(i)) : Json();
        if (index.is_number_integer())
            numbers.push_back(index.get<int>());
    }
    return numbers;
}

Input readJsonSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group)
{
    return Reader(fileName, group).read(text);
}
