// The base of every graphical item. The runtime calls items through their virtual tables, so the order of the
// virtual operations in these classes is a contract: new ones go to the end, none is moved.
#ifndef HMI_BASE_ITEM_H
#define HMI_BASE_ITEM_H

#include "InterfaceAll.h"
#include "InterfaceComm.h"
#include "hmi_object.h"

#include <QGraphicsItem>
#include <QList>
#include <QString>
#include <QStringList>

/// User level that an item asks for before it may be touched.
struct OBJ_UserLevel
{
    int level;

    OBJ_UserLevel() : level(0) {}
};

/// What the runtime asks of an item. Adds to the virtual table of `QGraphicsItem`, in this order.
class InterfaceItem : public QGraphicsItem
{
public:
    virtual QString getRequirement() = 0;
    virtual void setInterfaceByRequirement(QList<void*> interfaces) = 0;
    virtual int update_result(int mask) = 0;
    virtual void update_close() {}
    virtual int getCyclicCallInterval() = 0;
    virtual int getMonitorAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys) = 0;
    virtual void getTouchDisplayAndMonitorAddr(QStringList& addresses, OBJ_UserLevel& level,
                                               QList<KEY_ADDRESS>& keys) = 0;
    virtual void dealMouseReleaseEvent() {}
    virtual void dealMousePressEvent() {}
};

/// The base item. GUI thread only.
class HMIBaseItem : public InterfaceItem, public InterfaceAll
{
public:
    HMIBaseItem();
    ~HMIBaseItem() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    int getCyclicCallInterval() override { return m_cyclicCallInterval; }
    void getTouchDisplayAndMonitorAddr(QStringList& addresses, OBJ_UserLevel& level, QList<KEY_ADDRESS>& keys) override;
    virtual void uTimerDoForItem() {}
    virtual void touchControlReslutCallback() {}
    using InterfaceItem::setInterfaceByRequirement;
    virtual void setInterfaceByRequirement() {}
    virtual void HMIpaint(object* properties, const QString& text, QPainter* painter, bool flag) = 0;
    virtual void dealMouseRelease();

    /// The touch sound for `item`.
    static void setTouchVoiceItem(QGraphicsItem* item);

protected:
    object* m_object;         ///< the item's property object; null until `getMonitorAddr` fetched it
    InterfaceComm* m_comm;    ///< null until `setInterfaceByRequirement`
    int m_languageNumber;     ///< the runtime's current language, from 1
    int m_cyclicCallInterval; ///< in milliseconds; 0: no cyclic calls
};

#endif
