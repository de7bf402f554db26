// A whole plug-in of the tests' own: the item "Lamp" fills its place with its "glass" colour.
#include "HMIBaseItem.h"

#include <QPainter>

namespace {

class Lamp : public HMIBaseItem
{
public:
    QString getRequirement() override { return QString(); }
    void setInterfaceByRequirement(QList<void*>) override {}
    int update_result(int) override { return 0; }
    int getMonitorAddr(QStringList&, QList<KEY_ADDRESS>&) override
    {
        m_object = static_cast<object*>(data(10).value<void*>());
        return 0;
    }
    void HMIpaint(object*, const QString&, QPainter* painter, bool) override
    {
        painter->fillRect(boundingRect(), object_get_property_value_type_color(m_object, "glass", QColor(Qt::black)));
    }
};

} // namespace

extern "C" {
Q_DECL_EXPORT QString getItemName()
{
    return QString::fromLatin1(ITEM_NAME);
}
Q_DECL_EXPORT HMIBaseItem* createItem()
{
    return new Lamp;
}
}

Q_DECL_EXPORT object* item_object_create(QString, QString objectName)
{
    object* created = object_create(objectName.toUtf8().constData());
    property_set_type(created, 1);
    return created;
}
