// What an input would change in a group: every old and new value, with counts. Made by comparing, shown by diff and
// --dry-run, and applied by import.
#ifndef CHANGE_SET_H
#define CHANGE_SET_H

#include "group_access.h"
#include "json_document.h"
#include "outcome.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

/// One cell of an input.
struct InputCell
{
    enum Kind
    {
        Absent,  ///< the input says nothing about it
        Missing, ///< an empty field: no value; as good as an empty text where that is what the file holds
        Given
    };
    Kind kind = Absent;
    std::string text; ///< a number with a point as its decimal mark

    static InputCell given(std::string value) { return {Given, std::move(value)}; }
    static InputCell missing() { return {Missing, std::string()}; }
};

/// Where something stands in a sheet; rows and columns count from 1, 0: not said.
struct SheetPlace
{
    int row = 0;
    int column = 0;

    /// "row 8, column 6 (F)": with the letters that spreadsheet programs show.
    std::string text() const;
    /// What both say.
    SheetPlace with(const SheetPlace& other) const
    {
        return {std::max(row, other.row), std::max(column, other.column)};
    }
};

/// One recipe of an input.
struct InputRecipe
{
    std::optional<int> number;                      ///< in the file; nothing: a new one
    SheetPlace place;                               ///< its column of the sheet
    std::string path;                               ///< where it is in JSON: "groups[0].recipes[3]"
    std::vector<std::optional<std::string>> titles; ///< 8; nothing: not said
    std::vector<InputCell> cells;                   ///< one per item of the group
};

struct Input
{
    std::string name; ///< the file it came from
    std::vector<InputRecipe> recipes;
    std::vector<SheetPlace> itemPlaces; ///< per item: its row of the sheet; empty where there is none
    std::vector<Problem> problems;      ///< what reading it found
    std::vector<std::string> unknown;   ///< items of the input that the group does not have, with their place
    std::vector<std::string> remarks;   ///< what may not be meant, a sentence each
};

struct CellChange
{
    int recipe;
    int item;
    Cell before;
    Cell after;
};

struct TitleChange
{
    int recipe;
    int language; ///< 1 to 8
    std::string before;
    std::string after;
};

struct NewRecipe
{
    QVector<QString> titles;
    std::vector<Cell> values;
};

struct ChangeSet
{
    std::vector<CellChange> cells;
    std::vector<TitleChange> titles;
    std::vector<NewRecipe> recipes;
    std::vector<int> onlyInFile; ///< recipes that the input does not mention
    std::vector<std::string> unknown;
    std::vector<std::string> remarks;  ///< of the input
    std::vector<std::string> warnings; ///< values outside limits, where that is allowed
    std::vector<Problem> problems;
    long long unchanged = 0; ///< cells
    long long said = 0;      ///< cells that the input speaks of

    bool empty() const { return cells.empty() && titles.empty() && recipes.empty(); }
};

/// `strict`: a value outside its item's limits is a problem, not a warning.
ChangeSet compare(Database& database, const recipeTableInfo_t& group, const Input& input, bool strict);

/// What would turn the group into the other file's. Nothing is judged: both are in files already. Items are matched by
/// number.
ChangeSet compareGroups(Database& database, const recipeTableInfo_t& group, Database& otherFile,
                        const recipeTableInfo_t& other);

/// Writes the changes; inside the caller's transaction.
void apply(Database& database, const recipeTableInfo_t& group, const ChangeSet& changes);

std::string describe(const recipeTableInfo_t& group, const ChangeSet& changes);
/// `others`: what is said of recipes that the other side does not have.
std::string summary(const ChangeSet& changes, const std::string& others = "not mentioned and left alone");
Json changesToJson(const recipeTableInfo_t& group, const ChangeSet& changes);

/// A ToolError with all problems, if there are any.
void refuseProblems(const ChangeSet& changes, const std::string& inputName);

#endif
