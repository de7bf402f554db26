#include "entry_check.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {

/// More than any limit of a double that means something to a machine has; keeps the entry on its line.
const int LONGEST_NUMBER = 32;

std::optional<double> limitFrom(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<int> lengthFrom(const QString& text)
{
    const std::optional<double> value = limitFrom(text);
    if (!value || *value < 1 || *value > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(*value);
}

int characters(const QString& text)
{
    return text.toUcs4().size();
}

/// A number in pieces; digits only, the point and the sign are gone.
struct Pieces
{
    bool isNumber; // or the beginning of one
    bool negative;
    bool hasPoint;
    QString whole;
    QString fraction;
};

Pieces takeApart(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A([+-]?)([0-9]*)(\\.?)([0-9]*)\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    return {match.hasMatch(), match.captured(1) == QLatin1String("-"), !match.captured(3).isEmpty(), match.captured(2),
            match.captured(4)};
}

QString complete(const Pieces& pieces)
{
    QString whole = pieces.whole;
    while (whole.size() > 1 && whole.startsWith(QLatin1Char('0')))
        whole.remove(0, 1);
    if (whole.isEmpty())
        whole = QStringLiteral("0");
    const QString digits = pieces.fraction.isEmpty() ? whole : whole + QLatin1Char('.') + pieces.fraction;
    const bool isZero = digits.count(QLatin1Char('0')) + digits.count(QLatin1Char('.')) == digits.size();
    return pieces.negative && !isZero ? QLatin1Char('-') + digits : digits;
}

Refusal checkRange(const EntryRules& rules, double value)
{
    if (rules.minimum && rules.maximum && *rules.minimum > *rules.maximum)
        return Refusal::NothingPossible;
    if (rules.minimum && value < *rules.minimum)
        return Refusal::TooSmall;
    if (rules.maximum && value > *rules.maximum)
        return Refusal::TooLarge;
    return Refusal::None;
}

} // namespace

EntryRules::EntryRules(const KeyboardParameters& parameters)
    : text(parameters.textEntry), decimals(parameters.decimalPlaces > 0 ? parameters.decimalPlaces : 0),
      minimum(limitFrom(parameters.minimum)), maximum(limitFrom(parameters.maximum)),
      longest(parameters.textEntry ? lengthFrom(parameters.maximum) : std::nullopt)
{}

Refusal checkTyping(const EntryRules& rules, const QString& text)
{
    if (rules.text)
        return rules.longest && characters(text) > *rules.longest ? Refusal::TooLong : Refusal::None;
    const Pieces pieces = takeApart(text);
    if (!pieces.isNumber)
        return Refusal::NoNumber;
    if (pieces.fraction.size() > rules.decimals || (pieces.hasPoint && rules.decimals == 0))
        return Refusal::TooManyDecimals;
    return pieces.whole.size() + pieces.fraction.size() > LONGEST_NUMBER ? Refusal::TooManyDigits : Refusal::None;
}

EntryResult checkEntry(const EntryRules& rules, const QString& text)
{
    if (!rules.text && text.isEmpty())
        return {Refusal::Empty, QString()};
    const Refusal typing = checkTyping(rules, text);
    if (typing != Refusal::None)
        return {typing, QString()};
    if (rules.text)
        return {Refusal::None, text};

    const Pieces pieces = takeApart(text);
    if (pieces.whole.isEmpty() && pieces.fraction.isEmpty())
        return {Refusal::NoNumber, QString()};
    const QString number = complete(pieces);
    const Refusal range = checkRange(rules, number.toDouble());
    return {range, range == Refusal::None ? number : QString()};
}
