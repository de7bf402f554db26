// Everything of the runtime's headers and of the records that two separately built libraries have to agree on, in one
// library for abidw to read: the virtual tables and the fields of each type, and the signature of each function.
#include "HMIBaseItem.h"
#include "UHmiEvent.h"
#include "helpSQLite.h"
#include "recipe_records.h"

#define SHOWN __attribute__((visibility("default")))

// A type is described in full where it is taken by pointer.
SHOWN void runtimeTypes(HMIBaseItem*, InterfaceItem*, InterfaceAll*, InterfaceComm*, KeyboardParameters*, LinkValue*,
                        KEY_ADDRESS*, OBJ_UserLevel*, UMessageBoxEvent*, UExternalFuncCallEvent*, hmi_application_t*)
{}
SHOWN void recordTypes(RECIPE_ADDRESS*, recipeRegAddr_t*, recipeItemInfo_t*, recipeTableInfo_t*, recipeGroupsInfo_t*,
                       idx_t*, cell_info_t*)
{}
SHOWN void enumerations(UHmiEvent::Kind, DB_LANGUAGE_INDEX) {}

// A function of the runtime is described as the type of a pointer to it.
SHOWN decltype(&object_create) pointer_to_object_create = &object_create;
SHOWN decltype(&property_set_type) pointer_to_property_set_type = &property_set_type;
SHOWN decltype(&object_get_child) pointer_to_object_get_child = &object_get_child;
SHOWN decltype(&object_get_property_value_type_int32) pointer_to_int32 = &object_get_property_value_type_int32;
SHOWN decltype(&object_get_property_value_type_string) pointer_to_string = &object_get_property_value_type_string;
SHOWN decltype(&object_get_property_value_type_color) pointer_to_color = &object_get_property_value_type_color;
SHOWN decltype(&sys_base_get_app_pro) pointer_to_sys_base_get_app_pro = &sys_base_get_app_pro;
SHOWN decltype(&SendLWFRegMessage) pointer_to_SendLWFRegMessage = &SendLWFRegMessage;
SHOWN decltype(&UHmiEvent::hmiEventPost) pointer_to_hmiEventPost = &UHmiEvent::hmiEventPost;
SHOWN decltype(&helpSQLite::toSQLiteString) pointer_to_toSQLiteString = &helpSQLite::toSQLiteString;
SHOWN decltype(&HMIBaseItem::setTouchVoiceItem) pointer_to_setTouchVoiceItem = &HMIBaseItem::setTouchVoiceItem;
