// Defaults, resets and the text form of addresses.
#include "recipe_records.h"

#include <QStringList>

#include <cstring>

namespace {

const int ADDRESS_FIELDS = 6;

QString emptyText()
{
    return QString(QLatin1String(""));
}

/// strncpy's rule: up to the first zero byte, the rest filled with zeros, no terminator when the name fills it all.
void copyName(char (&target)[recipeRegAddr_t::REG_TYPE_SIZE], const char* source, std::size_t available)
{
    std::size_t length = 0;
    while (length < available && length < sizeof(target) && source[length] != '\0')
        ++length;
    std::memset(target, 0, sizeof(target));
    std::memcpy(target, source, length);
}

/// False, with `address` as it was, unless the text has exactly six fields.
bool parseAddress(const QString& text, RECIPE_ADDRESS& address)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != ADDRESS_FIELDS)
        return false;
    address.devName = parts.at(0);
    address.addrPart1 = parts.at(1).toInt();
    address.addrPart2 = parts.at(2).toInt();
    address.regType = parts.at(3);
    address.addrPart4 = parts.at(4);
    address.addrPart5 = parts.at(5).toInt();
    return true;
}

/// Replaces the parts that a record keeps, all or none.
void takeAddress(const QString& text, QString& devName, recipeRegAddr_t& regAddr, QString& addrPart4)
{
    RECIPE_ADDRESS address;
    if (!parseAddress(text, address))
        return;
    devName = address.devName;
    regAddr = recipeRegAddr_t(address);
    addrPart4 = address.addrPart4;
}

} // namespace

QVector<QString> emptyTitles()
{
    static const QVector<QString> titles(LANGUAGE_COUNT, emptyText());
    return titles;
}

RECIPE_ADDRESS::RECIPE_ADDRESS() : addrPart1(0), addrPart2(0), addrPart5(0) {}

void RECIPE_ADDRESS::fromString(const QString& text)
{
    parseAddress(text, *this);
}

QString RECIPE_ADDRESS::toString() const
{
    // One call for all six: a "%1" inside a field must not be taken for a place to fill.
    return QString::fromLatin1("%1,%2,%3,%4,%5,%6")
        .arg(devName, QString::number(addrPart1), QString::number(addrPart2), regType, addrPart4,
             QString::number(addrPart5));
}

recipeRegAddr_t::recipeRegAddr_t() : addrPart1(-1), addrPart2(-1), addrPart5(-1), reserved(0), flag(0)
{
    std::memset(regType, 0, sizeof(regType));
}

recipeRegAddr_t::recipeRegAddr_t(const RECIPE_ADDRESS& address)
    : addrPart1(address.addrPart1), addrPart2(address.addrPart2), addrPart5(address.addrPart5), reserved(0), flag(0)
{
    const QByteArray name = address.regType.toUtf8();
    copyName(regType, name.constData(), static_cast<std::size_t>(name.size()));
}

recipeRegAddr_t::recipeRegAddr_t(const recipeRegAddr_t& other)
    : addrPart1(other.addrPart1), addrPart2(other.addrPart2), addrPart5(other.addrPart5), reserved(other.reserved),
      flag(other.flag)
{
    copyName(regType, other.regType, sizeof(other.regType));
}

QString recipeRegAddr_t::regTypeText() const
{
    std::size_t length = 0;
    while (length < sizeof(regType) && regType[length] != '\0')
        ++length;
    return QString::fromUtf8(regType, static_cast<int>(length));
}

RECIPE_ADDRESS makeAddress(const QString& devName, const recipeRegAddr_t& regAddr, const QString& addrPart4)
{
    RECIPE_ADDRESS address;
    address.devName = devName;
    address.addrPart1 = regAddr.addrPart1;
    address.addrPart2 = regAddr.addrPart2;
    address.regType = regAddr.regTypeText();
    address.addrPart4 = addrPart4;
    address.addrPart5 = regAddr.addrPart5;
    return address;
}

recipeItemInfo_t::recipeItemInfo_t()
    : rowIndex(-1), rowName(emptyTitles()), wordOffset(0), dataType(0), wordCount(0), totalDigits(0), decimalDigits(0),
      min(0.0), max(65535.0)
{}

void recipeItemInfo_t::clear()
{
    rowIndex = -1;
    rowName = emptyTitles();
    values.clear();
    min = 0.0;
    max = 65535.0;
    wordCount = 0;
}

void recipeItemInfo_t::setAddress(const QString& text)
{
    takeAddress(text, devName, regAddr, addrPart4);
}

QString recipeItemInfo_t::addressText() const
{
    return makeAddress(devName, regAddr, addrPart4).toString();
}

recipeTableInfo_t::recipeTableInfo_t() : groupIndex(-1), groupName(emptyTitles()), notify(0) {}

void recipeTableInfo_t::clear()
{
    groupIndex = -1;
    groupName = emptyTitles();
    columnName.clear();
    items.clear();
    notify = 0;
    notifyDevName = emptyText();
}

void recipeTableInfo_t::setNotifyAddress(const QString& text)
{
    takeAddress(text, notifyDevName, notifyRegAddr, notifyAddrPart4);
}

QString recipeTableInfo_t::notifyAddressText() const
{
    if (notify == 0)
        return emptyText();
    return makeAddress(notifyDevName, notifyRegAddr, notifyAddrPart4).toString();
}

recipeGroupsInfo_t::recipeGroupsInfo_t() : groupIndex(0), groupName(emptyTitles()), row(0), column(0), notify(0) {}
