// Property objects.
#include "object_tree.h"

#include "runtime.h"

object::object(const QString& objectName) : name(objectName), type(0) {}

object::~object()
{
    qDeleteAll(m_children);
}

object* object::addChild(object* child)
{
    m_children.append(child);
    return child;
}

object* object::child(const QString& childName) const
{
    for (int i = 0; i < m_children.size(); ++i) {
        if (m_children.at(i)->name == childName)
            return m_children.at(i);
    }
    return nullptr;
}

namespace {

/// Null where the object or the key is missing or the value has another type.
const QVariant* findProperty(const object* obj, const char* key, int type)
{
    if (!obj)
        return nullptr;
    const QHash<QString, QVariant>::const_iterator it = obj->properties.constFind(QString::fromUtf8(key));
    return it != obj->properties.constEnd() && it->userType() == type ? &it.value() : nullptr;
}

} // namespace

object* object_create(const char* name)
{
    return Runtime::instance().adopt(new object(QString::fromUtf8(name)));
}

void property_set_type(object* obj, int type)
{
    if (obj)
        obj->type = type;
}

object* object_get_child(object* parent, const char* name)
{
    return parent ? parent->child(QString::fromUtf8(name)) : nullptr;
}

int object_get_property_value_type_int32(object* obj, const char* key, int defaultValue)
{
    const QVariant* value = findProperty(obj, key, QMetaType::Int);
    return value ? value->toInt() : defaultValue;
}

QString object_get_property_value_type_string(object* obj, const char* key, const QString& defaultValue)
{
    const QVariant* value = findProperty(obj, key, QMetaType::QString);
    return value ? value->toString() : defaultValue;
}

QColor object_get_property_value_type_color(object* obj, const char* key, const QColor& defaultValue)
{
    const QVariant* value = findProperty(obj, key, QMetaType::QColor);
    return value ? value->value<QColor>() : defaultValue;
}

const hmi_application_t* sys_base_get_app_pro()
{
    return Runtime::instance().application();
}
