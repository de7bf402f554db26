// Word registers.
#include "register_bank.h"

#include "runtime.h"

namespace {

const int WORD_MASK = 0xffff;
const int HIGHEST_ADDRESS = 65535;
const char INTERNAL_WORD[] = "LW";
const char INTERNAL_DEVICE[] = "Internal storage area";
const int NO_LINK_ID = -1;
const int LINK_UP = 0;

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
    Q_UNUSED(subAddress)
    const bool isDown = m_links.contains(deviceName) && m_links.value(deviceName).status != LINK_UP;
    if (isDown || !validRange(address, count) || !values)
        return false;
    const QString type = typeOf(deviceName, registerType);
    for (int i = 0; i < count; ++i)
        setWord(type, address + i, values[i]);
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

bool RegisterBank::isWritten(const QString& registerType, int address) const
{
    return m_words.value(registerType).contains(address);
}

void RegisterBank::setLink(const QString& deviceName, const LinkValue& link)
{
    if (link.linkId == NO_LINK_ID)
        m_links.remove(deviceName);
    else
        m_links.insert(deviceName, link);
}

QString RegisterBank::typeOf(const QString& deviceName, const QString& registerType) const
{
    return m_links.contains(deviceName) ? deviceName + QLatin1Char(':') + registerType : registerType;
}

RegisterBank::Reach RegisterBank::reach(const RegisterWrite& write) const
{
    const bool isInternal = write.deviceName == QString::fromLatin1(INTERNAL_DEVICE);
    if (!isInternal && !m_links.contains(write.deviceName))
        return NO_LINK;
    if (!isInternal && m_links.value(write.deviceName).status != LINK_UP)
        return LINK_DOWN;
    if (write.registerType.isEmpty() || !validRange(write.address, write.words.size()))
        return NO_REGISTER;
    return REACHABLE;
}

bool RegisterBank::writeTogether(const QList<RegisterWrite>& writes)
{
    for (int i = 0; i < writes.size(); ++i) {
        if (reach(writes.at(i)) != REACHABLE)
            return false;
    }
    for (int i = 0; i < writes.size(); ++i) {
        const QString type = typeOf(writes.at(i).deviceName, writes.at(i).registerType);
        for (int w = 0; w < writes.at(i).words.size(); ++w)
            setWord(type, writes.at(i).address + w, writes.at(i).words.at(w));
    }
    return true;
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
