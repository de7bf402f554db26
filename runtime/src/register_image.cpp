// Encoding values into register words.
#include "register_image.h"

#include <QByteArray>

#include <cfloat>
#include <cstring>

namespace {

const int WORD_BITS = 16;
const quint32 WORD_MASK = 0xffff;
const int BITS_PER_DIGIT = 4; // of BCD

struct WholeRange
{
    qint64 minimum;
    qint64 maximum;
};

const WholeRange RANGES[] = {
    {0, 65535}, {0, 4294967295LL}, {-32768, 32767}, {-2147483647LL - 1, 2147483647LL}, {0, 9999}, {0, 99999999},
};

/// Words that a number takes; 0: its type is not known.
int wordsOf(int dataType)
{
    switch (dataType) {
    case REGISTER_UNSIGNED_16:
    case REGISTER_SIGNED_16:
    case REGISTER_BCD_16:
        return 1;
    case REGISTER_UNSIGNED_32:
    case REGISTER_SIGNED_32:
    case REGISTER_BCD_32:
    case REGISTER_FLOAT:
        return 2;
    default:
        return 0;
    }
}

/// A number as it is written: sign, digits, digits after the point.
struct Decimal
{
    bool isNegative;
    QByteArray whole;
    QByteArray fraction; // without zeros at its end
};

bool areDigits(const QByteArray& text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) < '0' || text.at(i) > '9')
            return false;
    }
    return true;
}

bool parseDecimal(const QString& text, Decimal& number)
{
    QByteArray rest = text.toUtf8();
    number.isNegative = rest.startsWith('-');
    if (number.isNegative)
        rest.remove(0, 1);
    const int point = rest.indexOf('.');
    number.whole = point < 0 ? rest : rest.left(point);
    number.fraction = point < 0 ? QByteArray() : rest.mid(point + 1);
    if (number.whole.isEmpty() || (point >= 0 && number.fraction.isEmpty()) || !areDigits(number.whole)
        || !areDigits(number.fraction))
        return false;
    while (number.fraction.endsWith('0'))
        number.fraction.chop(1);
    return true;
}

/// The number without its point, times ten to the power of `decimals`. False: beyond `limit`.
bool scale(const Decimal& number, int decimals, qint64 limit, qint64& result)
{
    const QByteArray digits = number.whole + number.fraction;
    qint64 value = 0;
    for (int i = 0; i < digits.size(); ++i) {
        value = value * 10 + (digits.at(i) - '0');
        if (value > limit)
            return false;
    }
    for (int i = number.fraction.size(); i < decimals && value != 0; ++i) {
        value *= 10;
        if (value > limit)
            return false;
    }
    result = number.isNegative ? -value : value;
    return true;
}

RegisterImage::Result encodeWhole(const RegisterValue& value, const Decimal& number, quint32& bits)
{
    const WholeRange& range = RANGES[value.dataType];
    const int decimals = qMax(value.decimals, 0);
    if (number.fraction.size() > decimals)
        return RegisterImage::TOO_MANY_DECIMALS;
    qint64 scaled = 0;
    if (!scale(number, decimals, qMax(range.maximum, -range.minimum), scaled) || scaled < range.minimum
        || scaled > range.maximum)
        return RegisterImage::OUT_OF_RANGE;
    if (value.dataType != REGISTER_BCD_16 && value.dataType != REGISTER_BCD_32) {
        bits = static_cast<quint32>(scaled);
        return RegisterImage::PLACED;
    }
    bits = 0;
    for (int shift = 0; scaled > 0; shift += BITS_PER_DIGIT, scaled /= 10)
        bits |= static_cast<quint32>(scaled % 10) << shift;
    return RegisterImage::PLACED;
}

RegisterImage::Result encodeFloat(const QString& text, quint32& bits)
{
    bool isNumber = false;
    const double wide = text.toDouble(&isNumber);
    if (!isNumber || wide > static_cast<double>(FLT_MAX) || wide < -static_cast<double>(FLT_MAX))
        return RegisterImage::OUT_OF_RANGE; // its syntax has been checked
    const float single = static_cast<float>(wide);
    std::memcpy(&bits, &single, sizeof(bits));
    return RegisterImage::PLACED;
}

RegisterImage::Result encodeNumber(const RegisterValue& value, QVector<quint16>& words)
{
    if (wordsOf(value.dataType) == 0)
        return RegisterImage::UNKNOWN_TYPE;
    if (value.wordCount != wordsOf(value.dataType))
        return RegisterImage::WRONG_WORD_COUNT;
    Decimal number;
    if (!parseDecimal(value.text, number))
        return RegisterImage::NOT_A_NUMBER;
    quint32 bits = 0;
    const RegisterImage::Result result =
        value.dataType == REGISTER_FLOAT ? encodeFloat(value.text, bits) : encodeWhole(value, number, bits);
    for (int i = 0; i < value.wordCount; ++i)
        words.append(static_cast<quint16>(bits >> (i * WORD_BITS) & WORD_MASK));
    return result;
}

RegisterImage::Result encodeText(const RegisterValue& value, QVector<quint16>& words)
{
    if (value.wordCount < 1)
        return RegisterImage::WRONG_WORD_COUNT;
    if (value.wordCount > RegisterImage::MOST_WORDS)
        return RegisterImage::OUTSIDE; // before any memory is taken
    const QByteArray bytes = value.text.toUtf8();
    if (bytes.size() > 2 * value.wordCount)
        return RegisterImage::TEXT_TOO_LONG;
    words.fill(0, value.wordCount);
    for (int i = 0; i < bytes.size(); ++i) {
        const quint16 byte = static_cast<quint8>(bytes.at(i));
        words[i / 2] = static_cast<quint16>(words.at(i / 2) | (i % 2 == 0 ? byte : byte << 8));
    }
    return RegisterImage::PLACED;
}

} // namespace

RegisterImage::Result RegisterImage::place(const RegisterValue& value)
{
    QVector<quint16> encoded;
    const Result result = value.dataType == REGISTER_TEXT ? encodeText(value, encoded) : encodeNumber(value, encoded);
    if (result != PLACED)
        return result;
    if (value.wordOffset < 0 || value.wordOffset > MOST_WORDS - encoded.size())
        return OUTSIDE;
    if (m_words.size() < value.wordOffset + encoded.size())
        m_words.resize(value.wordOffset + encoded.size()); // new words are 0
    for (int i = 0; i < encoded.size(); ++i)
        m_words[value.wordOffset + i] = encoded.at(i);
    return PLACED;
}
