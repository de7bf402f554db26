// A group as a CSV sheet. As on a panel, rows are items and columns are recipes:
//
//   Item,Name,"White bread","Rye bread"
//   ,Recipe,0,1
//   0,"Salt kg",3.00,3.20
//
// The second row holds the recipes' numbers: a column without one is a new recipe. `transposed` is the same table with
// rows and columns exchanged.
#ifndef CSV_SHEET_H
#define CSV_SHEET_H

#include "change_set.h"

#include <functional>
#include <string>

struct SheetFormat
{
    char delimiter = ',';
    char decimalMark = '.';
    int language = 1; ///< of the titles
    bool transposed = false;
};

/// Hands the text over in pieces. Memory does not grow with the number of recipes beyond titles and one row.
void writeCsvSheet(Database& database, const recipeTableInfo_t& group, const SheetFormat& format,
                   const std::function<void(const std::string&)>& sink);

/// What a sheet says about the group. Faults of single fields are among the input's problems.
Input readCsvSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group,
                   const SheetFormat& format);

/// A number with the given decimal mark instead of the point, and back. Nothing where the text has the wrong mark.
std::string withDecimalMark(const std::string& number, char mark);
std::optional<std::string> withPoint(const std::string& number, char mark);

#endif
