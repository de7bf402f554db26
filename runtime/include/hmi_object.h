// Property objects: the runtime keeps the configuration of a project as a tree of named objects with typed
// properties. The runtime owns every object; items only hold pointers, valid as long as the project is open.
// All functions belong to the GUI thread.
#ifndef HMI_OBJECT_H
#define HMI_OBJECT_H

#include <QColor>
#include <QString>

class object;

/// Creates an object of the given name (UTF-8). The caller hands it on to the runtime, which owns it.
object* object_create(const char* name);

/// Sets the kind of an object; 1 marks the property object of an item type.
void property_set_type(object* obj, int type);

/// The child of that name, or null where there is none. A null parent has no children.
object* object_get_child(object* parent, const char* name);

/// The value under `key`, or `defaultValue` where the object is null, the key is missing or holds another type.
int object_get_property_value_type_int32(object* obj, const char* key, int defaultValue);
QString object_get_property_value_type_string(object* obj, const char* key, const QString& defaultValue);
QColor object_get_property_value_type_color(object* obj, const char* key, const QColor& defaultValue);

/// The running application project.
struct hmi_application_t
{
    object* project; ///< root of the project's property objects; null while no project is open
};

/// Never null; `project` in it is null while no project is open.
const hmi_application_t* sys_base_get_app_pro();

#endif
