// The desk runtime: project, items, notifications, events.
#include "runtime.h"

#include "UHmiEvent.h"

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>

namespace {

const int PROPERTY_OBJECT_KEY = 10;
const int CHANGED = 4; // the mask of update_result for a changed register

/// Tells the watchers of one address.
class NotifyEvent : public QEvent
{
public:
    static const QEvent::Type TYPE = static_cast<QEvent::Type>(2001);

    explicit NotifyEvent(const QString& changed) : QEvent(TYPE), address(changed) {}

    QString address;
};

/// What the runtime itself deals with; other events posted to it go nowhere.
bool isRequest(const QEvent* event)
{
    const int type = static_cast<int>(event->type());
    return type == UHmiEvent::MessageBox || type == UHmiEvent::ExternalFuncCall;
}

} // namespace

/// Shared with the threads that post.
struct Runtime::Pending
{
    Pending() : requests(0) {}

    QMutex mutex;
    QSet<QString> addresses; // notifications on their way
    int requests;            // posted to the runtime and not yet dealt with
};

Runtime& Runtime::instance()
{
    static Runtime runtime;
    return runtime;
}

Runtime::Runtime() : m_language(1), m_listener(nullptr), m_pending(new Pending)
{
    m_application.project = nullptr;
    if (QCoreApplication::instance()) // whichever thread comes first, the events are the GUI thread's
        moveToThread(QCoreApplication::instance()->thread());
}

Runtime::~Runtime()
{
    setProject(nullptr);
    qDeleteAll(m_adopted);
    delete m_pending;
}

QString Runtime::addressText(const QString& registerType, int address)
{
    return QString::fromLatin1("0,-1,%1,%2").arg(registerType, QString::number(address));
}

void Runtime::setProject(object* project)
{
    if (project == m_application.project)
        return;
    delete m_application.project;
    m_application.project = project;
}

object* Runtime::adopt(object* created)
{
    m_adopted.append(created);
    return created;
}

object* Runtime::release(object* adopted)
{
    m_adopted.removeAll(adopted);
    return adopted;
}

void Runtime::setLanguage(int language)
{
    m_language = language;
}

void Runtime::place(HMIBaseItem* item, object* properties)
{
    item->setData(PROPERTY_OBJECT_KEY, QVariant::fromValue(static_cast<void*>(properties)));
    item->setPos(object_get_property_value_type_int32(properties, "x", 0),
                 object_get_property_value_type_int32(properties, "y", 0));
}

bool Runtime::start(HMIBaseItem* item)
{
    const QString requirement = item->getRequirement();
    if (requirement == QString::fromLatin1("comm")) {
        QList<void*> interfaces;
        interfaces.append(static_cast<InterfaceComm*>(&m_registers));
        item->setInterfaceByRequirement(interfaces);
    } else if (!requirement.isEmpty()) {
        return false;
    }
    QStringList addresses;
    QList<KEY_ADDRESS> keys;
    item->getMonitorAddr(addresses, keys);
    if (!m_items.contains(item))
        m_items.append(item);
    m_watched[item] = addresses;
    return true;
}

void Runtime::forget(HMIBaseItem* item)
{
    m_items.removeAll(item);
    m_watched.remove(item);
}

void Runtime::notify(const QString& address)
{
    QMutexLocker lock(&m_pending->mutex);
    if (m_pending->addresses.contains(address) || !QCoreApplication::instance())
        return;
    m_pending->addresses.insert(address);
    QCoreApplication::postEvent(this, new NotifyEvent(address));
}

bool Runtime::isIdle() const
{
    QMutexLocker lock(&m_pending->mutex);
    return m_pending->addresses.isEmpty() && m_pending->requests == 0;
}

void Runtime::deliver(const QString& address)
{
    const QList<HMIBaseItem*> items = m_items; // an item may make others come and go
    for (int i = 0; i < items.size(); ++i) {
        if (m_items.contains(items.at(i)) && m_watched.value(items.at(i)).contains(address))
            items.at(i)->update_result(CHANGED);
    }
}

bool Runtime::event(QEvent* event)
{
    const int type = static_cast<int>(event->type());
    if (type == NotifyEvent::TYPE) {
        const QString address = static_cast<NotifyEvent*>(event)->address;
        {
            QMutexLocker lock(&m_pending->mutex);
            m_pending->addresses.remove(address);
        }
        deliver(address);
        return true;
    }
    if (!isRequest(event))
        return QObject::event(event);

    {
        QMutexLocker lock(&m_pending->mutex);
        --m_pending->requests;
    }
    if (m_listener && type == UHmiEvent::MessageBox) {
        const UMessageBoxEvent* message = static_cast<UMessageBoxEvent*>(event);
        m_listener->messageBox(message->text, message->value1, message->value2);
    } else if (m_listener) {
        const UExternalFuncCallEvent* call = static_cast<UExternalFuncCallEvent*>(event);
        m_listener->externalCall(call->functionName, call->argument);
    }
    return true;
}

void UHmiEvent::hmiEventPost(QEvent* event, QObject* receiver)
{
    if (!QCoreApplication::instance()) {
        delete event;
        return;
    }
    Runtime& runtime = Runtime::instance();
    if (!receiver && isRequest(event)) {
        QMutexLocker lock(&runtime.m_pending->mutex);
        ++runtime.m_pending->requests;
    }
    QCoreApplication::postEvent(receiver ? receiver : &runtime, event);
}

void SendLWFRegMessage(int address)
{
    Runtime::instance().notify(Runtime::addressText(QString::fromLatin1("LWF"), address));
}
