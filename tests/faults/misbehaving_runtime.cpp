#include "misbehaving_runtime.h"

#include "HMIBaseItem.h"
#include "UHmiEvent.h"

#include <QCoreApplication>
#include <QThread>

#include <dlfcn.h>

#include <memory>

namespace {

const int CHANGED = 4; // the mask of update_result for a changed register

/// The function of that name in the library behind this program.
template <typename Function> Function* behind(const char* name, Function*)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isGuiThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace

MisbehavingRuntime& MisbehavingRuntime::instance()
{
    static MisbehavingRuntime it;
    return it;
}

void MisbehavingRuntime::reset()
{
    *this = MisbehavingRuntime();
}

void MisbehavingRuntime::setAnswers(Answers answers, HMIBaseItem* item, const QString& typed)
{
    m_answers = answers;
    m_item = item;
    m_typed = typed;
}

void MisbehavingRuntime::answerNow()
{
    QList<std::function<void()> > due;
    due.swap(m_waiting);
    for (const std::function<void()>& what : due) {
        what();
        ++m_struck;
    }
}

/// True, and the answer is on its way as the mode wants it. Not again from inside an answer.
bool MisbehavingRuntime::answer(const std::function<void()>& what)
{
    if (m_answers == Usual || m_inside || !m_item)
        return false;
    switch (m_answers) {
    case AtOnce:
        m_inside = true;
        what();
        m_inside = false;
        ++m_struck;
        break;
    case Twice:
        m_waiting << what << what;
        break;
    case Late:
        m_waiting << what;
        break;
    default:
        ++m_struck;
    }
    return true;
}

bool MisbehavingRuntime::takesEvent(QEvent* event)
{
    if (!isGuiThread() || static_cast<int>(event->type()) != UHmiEvent::ExternalFuncCall)
        return false;
    const bool isKeyboard =
        static_cast<UExternalFuncCallEvent*>(event)->functionName == QString::fromLatin1("showKeyboardWindow");
    return answer([this, isKeyboard] {
        if (isKeyboard)
            m_item->keyboardReflash(m_typed);
        else
            m_item->update_result(CHANGED);
    });
}

bool MisbehavingRuntime::takesNotification()
{
    return isGuiThread() && answer([this] { m_item->update_result(CHANGED); });
}

void MisbehavingRuntime::setNumber(const QString& key, int value)
{
    m_numbers.insert(key, value);
}

void MisbehavingRuntime::setText(const QString& key, const QString& value)
{
    m_texts.insert(key, value);
}

void MisbehavingRuntime::setColor(const QString& key, const QColor& value)
{
    m_colors.insert(key, value);
}

void MisbehavingRuntime::loseChildren()
{
    m_children = None;
}

void MisbehavingRuntime::makeChildrenTheirParents()
{
    m_children = Itself;
}

template <typename Value>
bool MisbehavingRuntime::takes(const QMap<QString, Value>& values, const char* key, Value& value)
{
    const QString name = values.contains(QString()) ? QString() : QString::fromLatin1(key);
    if (!values.contains(name))
        return false;
    value = values.value(name);
    ++m_struck;
    return true;
}

bool MisbehavingRuntime::takesNumber(const char* key, int& value)
{
    return takes(m_numbers, key, value);
}

bool MisbehavingRuntime::takesText(const char* key, QString& value)
{
    return takes(m_texts, key, value);
}

bool MisbehavingRuntime::takesColor(const char* key, QColor& value)
{
    return takes(m_colors, key, value);
}

bool MisbehavingRuntime::takesChild(object* parent, object*& child)
{
    if (m_children == ThoseThereAre)
        return false;
    child = m_children == Itself ? parent : nullptr;
    ++m_struck;
    return true;
}

// --- in the place of the runtime's ---------------------------------------------------------------------------------

void UHmiEvent::hmiEventPost(QEvent* event, QObject* receiver)
{
    if (MisbehavingRuntime::instance().takesEvent(event))
        delete event;
    else
        behind("_ZN9UHmiEvent12hmiEventPostEP6QEventP7QObject", &UHmiEvent::hmiEventPost)(event, receiver);
}

void SendLWFRegMessage(int address)
{
    if (!MisbehavingRuntime::instance().takesNotification())
        behind("_Z17SendLWFRegMessagei", &SendLWFRegMessage)(address);
}

object* object_get_child(object* parent, const char* name)
{
    object* child = nullptr;
    if (MisbehavingRuntime::instance().takesChild(parent, child))
        return child;
    return behind("_Z16object_get_childP6objectPKc", &object_get_child)(parent, name);
}

int object_get_property_value_type_int32(object* obj, const char* key, int defaultValue)
{
    int value = 0;
    if (MisbehavingRuntime::instance().takesNumber(key, value))
        return value;
    return behind("_Z36object_get_property_value_type_int32P6objectPKci",
                  &object_get_property_value_type_int32)(obj, key, defaultValue);
}

QString object_get_property_value_type_string(object* obj, const char* key, const QString& defaultValue)
{
    QString value;
    if (MisbehavingRuntime::instance().takesText(key, value))
        return value;
    return behind("_Z37object_get_property_value_type_stringP6objectPKcRK7QString",
                  &object_get_property_value_type_string)(obj, key, defaultValue);
}

QColor object_get_property_value_type_color(object* obj, const char* key, const QColor& defaultValue)
{
    QColor value;
    if (MisbehavingRuntime::instance().takesColor(key, value))
        return value;
    return behind("_Z36object_get_property_value_type_colorP6objectPKcRK6QColor",
                  &object_get_property_value_type_color)(obj, key, defaultValue);
}

// --- the interface -------------------------------------------------------------------------------------------------

bool RefusingComm::readWords(int, int, int count, int* values)
{
    ++calls;
    for (int i = 0; i < count; ++i)
        values[i] = rubbish;
    return fills;
}

bool RefusingComm::writeWords(const QString&, const QString&, int, int, int, const int*)
{
    ++calls;
    return false;
}

LinkValue RefusingComm::linkValue(const QString&)
{
    ++calls;
    LinkValue value;
    value.linkId = value.linkNumber = rubbish;
    return value;
}

void RefusingComm::formatMonitorAddress(const QString&, const QString&, int, int, int, QStringList&)
{
    ++calls;
}
