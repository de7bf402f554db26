// Word registers of the desk runtime and of the controllers that it plays, with change notification. GUI thread only.
#ifndef REGISTER_BANK_H
#define REGISTER_BANK_H

#include "InterfaceComm.h"

#include <QHash>
#include <QList>
#include <QVector>

/// Is told of every access. A change is reported here at once; items hear of it later, from the event loop.
class RegisterListener
{
public:
    virtual ~RegisterListener() {}
    virtual void wordRead(int address, int value) = 0;
    virtual void wordWritten(const QString& registerType, int address, int oldValue, int newValue) = 0;
};

/// Words for one place of one device.
struct RegisterWrite
{
    QString deviceName;
    QString registerType;
    int address;
    QVector<quint16> words;

    RegisterWrite() : address(0) {}
};

/// All registers hold 16-bit words (0 to 65535) and are 0 until written. Registers of type "LW" are the internal
/// words that readWords reads. A device with a link is a controller and has registers of its own: they go by the type
/// "DEVICE:TYPE" wherever no device is named. The registers of any other device are the panel's own.
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
    /// Whether a word was ever written.
    bool isWritten(const QString& registerType, int address) const;
    /// The link that linkValue reports for a device; one with `linkId` -1 takes the link away.
    void setLink(const QString& deviceName, const LinkValue& link);

    enum Reach
    {
        REACHABLE,
        NO_LINK,
        LINK_DOWN,
        NO_REGISTER ///< no type, or an address beyond 0 to 65535
    };
    /// Whether the place can be written now.
    Reach reach(const RegisterWrite& write) const;
    /// Writes all in this order, or nothing where any cannot be reached: false then.
    bool writeTogether(const QList<RegisterWrite>& writes);
    /// The type under which a device's registers go.
    QString typeOf(const QString& deviceName, const QString& registerType) const;
    void setListener(RegisterListener* listener); ///< not owned; null: none
    void clear();

private:
    RegisterListener* m_listener;
    QHash<QString, QHash<int, int> > m_words; // by type, then address
    QHash<QString, LinkValue> m_links;
};

#endif
