// The base item on a desk.
#include "HMIBaseItem.h"

#include "runtime.h"

#include <QVariant>

namespace {

const int PROPERTY_OBJECT_KEY = 10;

} // namespace

HMIBaseItem::HMIBaseItem()
    : m_object(nullptr), m_comm(nullptr), m_languageNumber(Runtime::instance().language()), m_cyclicCallInterval(0)
{}

HMIBaseItem::~HMIBaseItem()
{
    Runtime::instance().forget(this);
}

/// The size stands in the property object that the runtime left with the item.
QRectF HMIBaseItem::boundingRect() const
{
    object* properties = static_cast<object*>(data(PROPERTY_OBJECT_KEY).value<void*>());
    return QRectF(0, 0, object_get_property_value_type_int32(properties, "width", 0),
                  object_get_property_value_type_int32(properties, "height", 0));
}

void HMIBaseItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    Q_UNUSED(option)
    Q_UNUSED(widget)
    HMIpaint(m_object, QString(), painter, false);
}

void HMIBaseItem::getTouchDisplayAndMonitorAddr(QStringList& addresses, OBJ_UserLevel& level, QList<KEY_ADDRESS>& keys)
{
    Q_UNUSED(level)
    getMonitorAddr(addresses, keys);
}

void HMIBaseItem::dealMouseRelease() {}

void HMIBaseItem::setTouchVoiceItem(QGraphicsItem* item)
{
    if (RuntimeListener* listener = Runtime::instance().listener())
        listener->touchSound(item);
}
