// Whether what was typed on the keyboard may be handed on. Pure: no widgets, no texts for people, no state.
#ifndef ENTRY_CHECK_H
#define ENTRY_CHECK_H

#include "InterfaceAll.h"

#include <QString>

#include <optional>

/// What an entry must keep to.
struct EntryRules
{
    bool text;                     ///< anything up to `longest`; otherwise a number
    int decimals;                  ///< digits allowed after the point; 0: whole numbers
    std::optional<double> minimum; ///< missing where the limit cannot be read
    std::optional<double> maximum;
    std::optional<int> longest; ///< characters (code points) of a text; missing: any length

    /// Limits that are no finite number do not limit, nor does a largest length below 1: refusing every entry would
    /// help nobody.
    explicit EntryRules(const KeyboardParameters& parameters);
};

enum class Refusal
{
    None,
    Empty, ///< a number was wanted
    NoNumber,
    TooManyDecimals,
    TooManyDigits, ///< a number longer than any that the limits allow
    TooSmall,
    TooLarge,
    TooLong,
    NothingPossible ///< the smallest value is above the largest
};

struct EntryResult
{
    Refusal refusal;
    QString text; ///< to be handed on; empty when refused
};

/// Whether `text` may be accepted. A number is handed on as it was typed, but complete: no plus sign, a digit before
/// the point, none of the leading zeros, no point at the end, no minus sign before a zero. Values and limits compare
/// as numbers, so that "7" is not above "10.0".
EntryResult checkEntry(const EntryRules& rules, const QString& text);

/// Whether `text` can still become acceptable when more is typed. Says why not, so that a key that leads nowhere is
/// refused at once. The range is not looked at: "1" may become "15".
Refusal checkTyping(const EntryRules& rules, const QString& text);

#endif
