// Events that items post to the runtime.
#ifndef UHMI_EVENT_H
#define UHMI_EVENT_H

#include <QEvent>
#include <QObject>
#include <QString>

class UHmiEvent
{
public:
    enum Kind
    {
        MessageBox = 1007,      ///< a notice to the operator
        ExternalFuncCall = 1010 ///< a request to the runtime
    };

    /// Queues `event`; the runtime owns it from here on. A null receiver means the runtime itself.
    /// May be called from any thread; the event is dealt with later, on the GUI thread.
    static void hmiEventPost(QEvent* event, QObject* receiver);
};

/// A notice to the operator.
class UMessageBoxEvent : public QEvent
{
public:
    UMessageBoxEvent(const QString& message, int first, int second)
        : QEvent(static_cast<QEvent::Type>(UHmiEvent::MessageBox)), text(message), value1(first), value2(second)
    {}

    QString text;
    int value1;
    int value2;
};

/// A request to the runtime: "showKeyboardWindow", "reload_recipe".
class UExternalFuncCallEvent : public QEvent
{
public:
    UExternalFuncCallEvent(bool callFlag, const QString& function, quintptr word)
        : QEvent(static_cast<QEvent::Type>(UHmiEvent::ExternalFuncCall)), flag(callFlag), functionName(function),
          argument(word)
    {}

    bool flag;
    QString functionName;
    quintptr argument; ///< a number, or the address of an `InterfaceAll` whose `callArguments` hold the arguments
};

#endif
