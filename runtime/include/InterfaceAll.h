// Callbacks from the on-screen keyboard and from the runtime's logging and export services.
#ifndef INTERFACE_ALL_H
#define INTERFACE_ALL_H

#include <QList>
#include <QString>
#include <QStringList>

class InterfaceAll;

/// What the on-screen keyboard is told when it is asked to open, and whom it answers.
struct KeyboardParameters
{
    QString maximum;        ///< largest value; for text the largest length in characters
    QString minimum;        ///< smallest value
    bool textEntry;         ///< true: text, false: a number
    bool spareFlag;         ///< left false
    int decimalPlaces;      ///< digits after the decimal point; 0 for text
    int formatCode;         ///< 4: text, 0: number
    QString currentText;    ///< the text that is edited
    bool spareFlag2;        ///< left false
    int spareNumber;        ///< left 0
    InterfaceAll* receiver; ///< gets `keyboardReflash`; null: the runtime answers the item that asked

    KeyboardParameters()
        : maximum(QLatin1String("65535")), minimum(QLatin1String("0")), textEntry(false), spareFlag(false),
          decimalPlaces(0), formatCode(0), currentText(), spareFlag2(false), spareNumber(0), receiver(nullptr)
    {}
};

/// The order of the virtual operations is the runtime's and must not change.
class InterfaceAll
{
public:
    InterfaceAll() : m_optLogType(0) {}
    InterfaceAll(const InterfaceAll&) = delete;
    InterfaceAll& operator=(const InterfaceAll&) = delete;
    virtual ~InterfaceAll() {}

    /// The operator accepted `text` on the keyboard.
    virtual void keyboardReflash(const QString& text) { Q_UNUSED(text) }
    virtual void execComplete(const int& code, const QString& text)
    {
        Q_UNUSED(code)
        Q_UNUSED(text)
    }
    virtual unsigned short getOptLogType() { return m_optLogType; }
    virtual void setOptLogType(unsigned short type) { m_optLogType = type; }
    virtual void exportData() {}
    virtual void insertOperatorLog(QString entry) { Q_UNUSED(entry) }
    virtual void insertOperatorLog(const QStringList& entries) { Q_UNUSED(entries) }

    /// Arguments of a request to the runtime. For "showKeyboardWindow": addresses of `KeyboardParameters`, the
    /// newest last; the blocks stay with the item. The list only grows.
    QList<void*> callArguments;
    KeyboardParameters keyboardParameters;

private:
    unsigned short m_optLogType;
};

#endif
