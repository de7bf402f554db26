// What fits into a recipe file and what an item takes as a value. Everything that comes from a person passes here
// before it is written.
//
// The storage layer composes its statements in a buffer of 1024 bytes: one that is longer than 1023 bytes is cut and
// fails. What is too long for the statement that first writes it, or for the one with which a panel later changes it,
// is refused here by its name.
#ifndef RECIPE_LIMITS_H
#define RECIPE_LIMITS_H

#include "recipe_records.h"

#include <string>

enum
{
    MAX_ITEMS = 1999,       ///< SQLite's tables have at most 2000 columns, one of them is the recipe's number
    MAX_RECIPES = 1000000,  ///< more than any panel shows; a slip of the keyboard otherwise fills the disk
    MAX_TEXT_WORDS = 480,   ///< words of a text item; the statement that sets one cell has no room for more
    MAX_NUMBER_DIGITS = 15, ///< what a double keeps exactly
    MAX_STATEMENT_BYTES = 1023
};

/// Bytes that eight titles take in a statement: UTF-8, single quotes doubled.
int titleBytes(const QVector<QString>& titles);
/// Bytes that a statement leaves for the eight titles of a row. The row may move to any index below 10000: adding a
/// recipe on a panel moves all that follow.
int titleRoom(int group, int strIndex);

/// Bytes of the statement that writes an item (its address is the only part of variable length).
int itemStatementBytes(int group, int row, const recipeItemInfo_t& item);
int configStatementBytes(int group, int items, int recipes, const recipeTableInfo_t& info);

bool isText(const recipeItemInfo_t& item);

/// 16-bit words that one value takes in a controller.
int wordCount(const recipeItemInfo_t& item);

/// A value as it is written into the file, or what was expected in its place.
struct CheckedValue
{
    QString text;         ///< a number: fixed notation with the item's decimals; a text: as given
    std::string expected; ///< not empty: refused, and why
    bool outsideLimits;   ///< refused for the item's limits only
    bool ok() const { return expected.empty(); }
};
CheckedValue checkValue(const recipeItemInfo_t& item, const QString& given);

/// A number as people write it: no exponent, no zeros at its end, the point as decimal mark.
std::string plainNumber(double value);

/// A limit in the item's decimals.
std::string limitText(double limit, int decimals);

#endif
