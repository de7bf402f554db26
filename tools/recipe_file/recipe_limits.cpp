#include "recipe_limits.h"

#include "helpSQLite.h"
#include "number_text.h"

#include "outcome.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

// The fixed parts of the storage layer's statements, by length only. A test writes right up to these limits and one
// byte beyond.
const char INSERT_TITLES[] = "INSERT INTO lang_%d('type', 'strIndex', 'L0', 'L1', 'L2', 'L3', 'L4', 'L5', 'L6', 'L7') "
                             "VALUES ('%d', '%d', '', '', '', '', '', '', '', '')";
const char UPDATE_TITLES[] = "UPDATE lang_%d SET 'L0' = '', 'L1' = '', 'L2' = '', 'L3' = '', 'L4' = '', 'L5' = '', "
                             "'L6' = '', 'L7' = '' WHERE type = '%d' AND strIndex = '%d';";
const char INSERT_ITEM[] = "INSERT INTO addr_%d(row_index, address, datatype, totalDigits, decimalDigits, min, max) "
                           "VALUES('%d', '%s', '%d', '%d', '%d', '%s', '%s')";
const char INSERT_CONFIG[] = "INSERT INTO recipe_config(group_index, row, column, notify, notify_addr) "
                             "VALUES('%d', '%d', '%d', '%d', '%s')";

QByteArray escaped(const QString& text)
{
    return helpSQLite::toSQLiteString(text).toUtf8();
}

/// Digits that a number in fixed notation shows; a single zero before the point is not one of them.
int shownDigits(const QString& number)
{
    QString digits = number;
    digits.remove(QLatin1Char('-'));
    if (digits.startsWith(QLatin1String("0.")))
        digits.remove(0, 1);
    digits.remove(QLatin1Char('.'));
    return static_cast<int>(digits.size());
}

CheckedValue refused(const std::string& expected)
{
    return {QString(), expected, false};
}

CheckedValue checkText(const recipeItemInfo_t& item, const QString& given)
{
    if (given.contains(QChar(0)))
        return refused("a text without a zero character");
    if (given.toUtf8().size() > 2 * item.totalDigits)
        return refused("a text of at most " + std::to_string(item.totalDigits) + " words ("
                       + std::to_string(2 * item.totalDigits) + " bytes)");
    if (escaped(given).size() > 2 * MAX_TEXT_WORDS)
        return refused("a text of at most " + std::to_string(2 * MAX_TEXT_WORDS) + " bytes, quotes counted twice");
    const double length = static_cast<double>(given.toUcs4().size());
    if (length < item.min || length > item.max)
        return {given, "a text of " + limitText(item.min, 0) + " to " + limitText(item.max, 0) + " characters", true};
    return {given, std::string(), false};
}

CheckedValue checkNumber(const recipeItemInfo_t& item, const QString& given)
{
    bool isNumber = false;
    double value = given.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value)) {
        QString pointed = given;
        pointed.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
        return refused(isNumber && pointed != given ? "a number with \".\" as its decimal mark" : "a number");
    }
    if (value == 0.0)
        value = 0.0; // no "-0"
    const int decimals = std::max(item.decimalDigits, 0);
    const QString text = fixedNotation(value, decimals);
    if (text.toDouble() != value)
        return refused(decimals == 0 ? std::string("a whole number")
                                     : "at most " + counted(decimals, "decimal", "decimals"));
    if (shownDigits(text) > item.totalDigits)
        return refused("at most " + counted(item.totalDigits, "digit", "digits")
                       + (decimals > 0 && decimals <= item.totalDigits
                              ? ", " + std::to_string(decimals) + " of them behind the point"
                              : ""));
    if (value < item.min || value > item.max)
        return {text, limitText(item.min, decimals) + " to " + limitText(item.max, decimals), true};
    return {text, std::string(), false};
}

} // namespace

int titleBytes(const QVector<QString>& titles)
{
    int bytes = 0;
    for (const QString& title : titles)
        bytes += static_cast<int>(escaped(title).size());
    return bytes;
}

int titleRoom(int group, int strIndex)
{
    const int highest = std::max(strIndex, 9999);
    const int inserted = std::snprintf(nullptr, 0, INSERT_TITLES, group, 0, highest);
    const int updated = std::snprintf(nullptr, 0, UPDATE_TITLES, group, 0, highest);
    return MAX_STATEMENT_BYTES - std::max(inserted, updated);
}

int itemStatementBytes(int group, int row, const recipeItemInfo_t& item)
{
    return std::snprintf(nullptr, 0, INSERT_ITEM, group, row, item.addressText().toUtf8().constData(), item.dataType,
                         item.totalDigits, item.decimalDigits, limitText(item.min, item.decimalDigits).c_str(),
                         limitText(item.max, item.decimalDigits).c_str());
}

int configStatementBytes(int group, int items, int recipes, const recipeTableInfo_t& info)
{
    return std::snprintf(nullptr, 0, INSERT_CONFIG, group, items, recipes, info.notify,
                         info.notifyAddressText().toUtf8().constData());
}

bool isText(const recipeItemInfo_t& item)
{
    return item.dataType == DATA_TYPE_TEXT;
}

int wordCount(const recipeItemInfo_t& item)
{
    switch (item.dataType) {
    case 1:
    case 3:
    case 5:
    case 6:
        return 2;
    case DATA_TYPE_TEXT:
        return item.totalDigits;
    default:
        return 1;
    }
}

CheckedValue checkValue(const recipeItemInfo_t& item, const QString& given)
{
    return isText(item) ? checkText(item, given) : checkNumber(item, given);
}

std::string plainNumber(double value)
{
    QString text = QString::number(value, 'f', QLocale::FloatingPointShortest);
    return text.toStdString();
}

std::string limitText(double limit, int decimals)
{
    return fixedNotation(limit, std::max(decimals, 0)).toStdString();
}
