// Word registers.
#include "register_bank.h"

#include "runtime.h"

namespace {

const int WORD_MASK = 0xffff;
const int HIGHEST_ADDRESS = 65535;
const char INTERNAL_WORD[] = "LW";

bool validRange(int address, int count)
{
    return address >= 0 && count > 0 && address <= HIGHEST_ADDRESS && count <= HIGHEST_ADDRESS + 1 - address;
}

} // namespace

RegisterBank::RegisterBank() : m_listener(nullptr) {}

RegisterBank::~RegisterBank() {}

bool RegisterBank::readWords(int station, int address, int count, int* values)
{
    Q_UNUSED(station)
    if (!validRange(address, count) || !values)
        return false;
    for (int i = 0; i < count; ++i) {
        values[i] = word(QString::fromLatin1(INTERNAL_WORD), address + i);
        if (m_listener)
            m_listener->wordRead(address + i, values[i]);
    }
    return true;
}

bool RegisterBank::writeWords(const QString& deviceName, const QString& registerType, int address, int subAddress,
                              int count, const int* values)
{
    Q_UNUSED(deviceName)
    Q_UNUSED(subAddress)
    if (!validRange(address, count) || !values)
        return false;
    for (int i = 0; i < count; ++i)
        setWord(registerType, address + i, values[i]);
    return true;
}

LinkValue RegisterBank::linkValue(const QString& deviceName)
{
    return m_links.value(deviceName);
}

void RegisterBank::formatMonitorAddress(const QString& deviceName, const QString& registerType, int address,
                                        int subAddress, int count, QStringList& addresses)
{
    Q_UNUSED(deviceName)
    Q_UNUSED(subAddress)
    Q_UNUSED(count)
    addresses.append(Runtime::addressText(registerType, address));
}

int RegisterBank::word(const QString& registerType, int address) const
{
    return m_words.value(registerType).value(address);
}

void RegisterBank::setWord(const QString& registerType, int address, int value)
{
    const int oldValue = word(registerType, address);
    const int newValue = value & WORD_MASK;
    m_words[registerType][address] = newValue;
    if (m_listener)
        m_listener->wordWritten(registerType, address, oldValue, newValue);
    if (newValue != oldValue)
        Runtime::instance().notify(Runtime::addressText(registerType, address));
}

void RegisterBank::setLink(const QString& deviceName, const LinkValue& link)
{
    m_links.insert(deviceName, link);
}

void RegisterBank::setListener(RegisterListener* listener)
{
    m_listener = listener;
}

void RegisterBank::clear()
{
    m_words.clear();
    m_links.clear();
}
