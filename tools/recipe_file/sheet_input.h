// Finding out what a file is and reading it as an input for a group.
#ifndef SHEET_INPUT_H
#define SHEET_INPUT_H

#include "csv_sheet.h"

#include <string>

enum class FileKind
{
    RecipeFile,
    JsonSheet,
    CsvSheet
};

/// By what it starts with; a ToolError where it cannot be read. Standard input ("-") is never a recipe file.
FileKind kindOf(const std::string& text);

/// A CSV or JSON text as an input.
Input readSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group,
                const SheetFormat& format);

/// Whether a file starts as an SQLite database does.
bool isRecipeFile(const std::string& path);

/// A ToolError where such a file would be replaced by a sheet, --force or not: a slip of the names would lose it.
void refuseOverRecipeFile(const std::string& target);

/// Items, addresses, types, limits and titles that differ: a sentence each.
std::vector<std::string> definitionDifferences(const recipeTableInfo_t& before, const recipeTableInfo_t& after);

#endif
