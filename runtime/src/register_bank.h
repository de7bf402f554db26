// Word registers of the desk runtime, with change notification. GUI thread only.
#ifndef REGISTER_BANK_H
#define REGISTER_BANK_H

#include "InterfaceComm.h"

#include <QHash>

/// Is told of every access. A change is reported here at once; items hear of it later, from the event loop.
class RegisterListener
{
public:
    virtual ~RegisterListener() {}
    virtual void wordRead(int address, int value) = 0;
    virtual void wordWritten(const QString& registerType, int address, int oldValue, int newValue) = 0;
};

/// All registers hold 16-bit words (0 to 65535) and are 0 until written. Registers of type "LW" are the internal
/// words that readWords reads; other types (a controller's) live beside them.
class RegisterBank : public InterfaceComm
{
public:
    RegisterBank();
    virtual ~RegisterBank();

    bool readWords(int station, int address, int count, int* values) override;
    bool writeWords(const QString& deviceName, const QString& registerType, int address, int subAddress, int count,
                    const int* values) override;
    LinkValue linkValue(const QString& deviceName) override;
    void formatMonitorAddress(const QString& deviceName, const QString& registerType, int address, int subAddress,
                              int count, QStringList& addresses) override;

    int word(const QString& registerType, int address) const;
    void setWord(const QString& registerType, int address, int value);
    /// The link that linkValue reports for a device.
    void setLink(const QString& deviceName, const LinkValue& link);
    void setListener(RegisterListener* listener); ///< not owned; null: none
    void clear();

private:
    RegisterListener* m_listener;
    QHash<QString, QHash<int, int> > m_words; // by type, then address
    QHash<QString, LinkValue> m_links;
};

#endif
