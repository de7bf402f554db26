// The communication interface: how items reach registers. The runtime owns the one instance and calls
// items about changes later, from its event loop. All calls belong to the GUI thread.
#ifndef INTERFACE_COMM_H
#define INTERFACE_COMM_H

#include <QString>
#include <QStringList>

/// What the runtime knows of the link to a device.
struct LinkValue
{
    int linkId;     ///< -1: no such link
    int status;     ///< 0: the link is up
    int linkNumber; ///< the number under which the device's registers are addressed

    LinkValue() : linkId(-1), status(-1), linkNumber(0) {}
};

/// The address of one register that an item watches.
struct KEY_ADDRESS
{
    QString deviceName;
    int station;
    int linkNumber;
    QString registerType; ///< register area, e.g. "LW" or "LWF"
    int address;
    QString indexName;
    int indexAddress;
    int count; ///< number of registers from `address` on

    KEY_ADDRESS() : station(0), linkNumber(0), address(0), indexAddress(0), count(0) {}
};

/// The order of the virtual operations is the runtime's and must not change: plug-ins are called and call by slot.
class InterfaceComm
{
public:
    /// Reads `count` internal words from `address` on into `values` (room for `count` ints). False: nothing read.
    virtual bool readWords(int station, int address, int count, int* values) = 0;

    /// Writes `count` words from `address` on. False: nothing written.
    virtual bool writeWords(const QString& deviceName, const QString& registerType, int address, int subAddress,
                            int count, const int* values) = 0;

    /// The link to the device of that name; `linkId` is -1 where there is none.
    virtual LinkValue linkValue(const QString& deviceName) = 0;

    /// Appends the runtime's address text for the register to `addresses`, in the form "station,-1,type,address".
    virtual void formatMonitorAddress(const QString& deviceName, const QString& registerType, int address,
                                      int subAddress, int count, QStringList& addresses) = 0;

protected:
    ~InterfaceComm() {} // never deleted through the interface
};

/// Posts a change notification of the "LWF" register `address`: every item that watches it is told later,
/// from the event loop.
void SendLWFRegMessage(int address);

#endif
