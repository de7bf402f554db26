#include "sheet_input.h"

#include "group_access.h"
#include "json_sheet.h"
#include "recipe_limits.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <utility>

namespace {

const char SQLITE_MAGIC[] = "SQLite format 3";

void addDifference(std::vector<std::string>& list, const std::string& label, const char* what,
                   const std::string& before, const std::string& after)
{
    if (before != after)
        list.push_back(label + ": " + what + ' ' + before + " -> " + after);
}

void compareTitles(std::vector<std::string>& list, const std::string& label, const QVector<QString>& before,
                   const QVector<QString>& after)
{
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        addDifference(list, label, ("title in language " + std::to_string(i + 1)).c_str(),
                      quoted(before.value(i).toStdString()), quoted(after.value(i).toStdString()));
}

void compareItems(std::vector<std::string>& list, const std::string& label, const recipeItemInfo_t& before,
                  const recipeItemInfo_t& after)
{
    compareTitles(list, label, before.rowName, after.rowName);
    addDifference(list, label, "address", before.addressText().toStdString(), after.addressText().toStdString());
    addDifference(list, label, "data type", std::to_string(before.dataType), std::to_string(after.dataType));
    addDifference(list, label, "total digits", std::to_string(before.totalDigits), std::to_string(after.totalDigits));
    addDifference(list, label, "decimal digits", std::to_string(before.decimalDigits),
                  std::to_string(after.decimalDigits));
    addDifference(list, label, "min", plainNumber(before.min), plainNumber(after.min));
    addDifference(list, label, "max", plainNumber(before.max), plainNumber(after.max));
}

/// Where recipes were added or deleted since the export, its numbers mean others by now.
void remarkMovedNames(Input& input, const recipeTableInfo_t& group)
{
    std::map<std::pair<int, std::string>, int> owners; // of a language and a title the recipe
    for (int i = 0; i < group.columnName.size(); ++i) {
        for (int language = 1; language <= LANGUAGE_COUNT; ++language)
            owners.insert({{language, titleText(group.columnName.at(i), language)}, i});
    }
    for (const InputRecipe& recipe : input.recipes) {
        for (int language = 1; recipe.number && language <= LANGUAGE_COUNT; ++language) {
            const std::string name = recipe.titles[static_cast<std::size_t>(language - 1)].value_or("");
            const auto owner = owners.find({language, name});
            if (name.empty() || owner == owners.end()
                || titleText(group.columnName.value(*recipe.number), language) == name)
                continue;
            const std::string place = recipe.path.empty() ? recipe.place.text() : recipe.path;
            input.remarks.push_back(input.name + ", " + place + ": " + recipeLabel(group, *recipe.number)
                                    + " gets the name of " + recipeLabel(group, owner->second)
                                    + "; if recipes were added or deleted since the export, export again.");
            break;
        }
    }
}

} // namespace

FileKind kindOf(const std::string& text)
{
    if (text.compare(0, sizeof(SQLITE_MAGIC) - 1, SQLITE_MAGIC) == 0)
        return FileKind::RecipeFile;
    const auto first =
        std::find_if(text.begin(), text.end(), [](char c) { return std::isspace(static_cast<unsigned char>(c)) == 0; });
    return first != text.end() && *first == '{' ? FileKind::JsonSheet : FileKind::CsvSheet;
}

Input readSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group,
                const SheetFormat& format)
{
    if (kindOf(text) == FileKind::RecipeFile)
        throw ToolError(fileName + " is a recipe file; export it first, or compare it with diff.");
    Input input = kindOf(text) == FileKind::JsonSheet ? readJsonSheet(text, fileName, group)
                                                      : readCsvSheet(text, fileName, group, format);
    remarkMovedNames(input, group);
    return input;
}

bool isRecipeFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string start(sizeof(SQLITE_MAGIC) - 1, '\0');
    file.read(&start[0], static_cast<std::streamsize>(start.size()));
    return file && start == SQLITE_MAGIC;
}

void refuseOverRecipeFile(const std::string& target)
{
    std::error_code ignored;
    if (std::filesystem::is_regular_file(target, ignored) && isRecipeFile(target))
        throw ToolError(target + " is a recipe file; a sheet does not take its place. Give another name.");
}

std::vector<std::string> definitionDifferences(const recipeTableInfo_t& before, const recipeTableInfo_t& after)
{
    std::vector<std::string> list;
    const std::string label = groupLabel(before);
    compareTitles(list, label, before.groupName, after.groupName);
    addDifference(list, label, "notification address", quoted(before.notifyAddressText().toStdString()),
                  quoted(after.notifyAddressText().toStdString()));
    addDifference(list, label, "number of items", std::to_string(before.items.size()),
                  std::to_string(after.items.size()));
    const int common = static_cast<int>(std::min(before.items.size(), after.items.size()));
    for (int i = 0; i < common; ++i)
        compareItems(list, itemLabel(before, i), before.items.at(i), after.items.at(i));
    return list;
}
