// A whole plug-in in one file: the item type "RegisterLamp" is a lamp that is lit while a word register of the panel is
// not 0. A tap switches the register. Copy the folder, and change what you need.
//
// All calls come from the runtime's GUI thread.
#include "HMIBaseItem.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

/// Where the runtime leaves an item's property object.
const int PROPERTY_OBJECT_KEY = 10;

/// The bit of update_result that says: a watched register changed.
const int REGISTER_CHANGED = 4;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

class RegisterLamp : public HMIBaseItem
{
public:
    RegisterLamp() : m_register(0), m_lit(false), m_lightColor(Qt::green), m_darkColor(Qt::darkGray) {}

    // --- what the runtime asks once, in this order -------------------------------------------------------------
    QString getRequirement() override { return text("comm"); }

    void setInterfaceByRequirement(QList<void*> interfaces) override
    {
        if (interfaces.size() == 1)
            m_comm = static_cast<InterfaceComm*>(interfaces.first());
    }

    int getMonitorAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys) override
    {
        Q_UNUSED(keys)
        m_object = static_cast<object*>(data(PROPERTY_OBJECT_KEY).value<void*>());
        m_register = object_get_property_value_type_int32(m_object, "register", 0);
        m_caption = object_get_property_value_type_string(m_object, "caption", text("LW %1").arg(m_register));
        m_lightColor = object_get_property_value_type_color(m_object, "light_color", m_lightColor);
        m_darkColor = object_get_property_value_type_color(m_object, "dark_color", m_darkColor);
        if (m_comm)
            m_comm->formatMonitorAddress(text("Internal storage area"), text("LW"), m_register, -1, 1, addresses);
        readRegister();
        return 0;
    }

    // --- and from then on, again and again ---------------------------------------------------------------------
    int update_result(int mask) override
    {
        if ((mask & REGISTER_CHANGED) == 0)
            return 0;
        readRegister();
        update(); // asks for a repaint
        return 1;
    }

    void HMIpaint(object*, const QString&, QPainter* painter, bool) override
    {
        const QRectF place = boundingRect();
        const double captionHeight = place.height() / 4;
        const double size = qMin(place.width(), place.height() - captionHeight) - 8;
        const QRectF glass(place.center().x() - size / 2, place.y() + 4, size, size);

        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(m_lightColor.darker(200), 3));
        painter->setBrush(m_lit ? m_lightColor : m_darkColor);
        painter->drawEllipse(glass);
        painter->setPen(Qt::white);
        painter->drawText(place.adjusted(0, place.height() - captionHeight, 0, 0), Qt::AlignCenter, m_caption);
        painter->restore();
    }

    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        event->accept(); // or the release goes to another item
        setTouchVoiceItem(this);
    }

    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override
    {
        if (!m_comm || !boundingRect().contains(event->pos()))
            return;
        const int value = m_lit ? 0 : 1;
        m_comm->writeWords(text("Internal storage area"), text("LW"), m_register, -1, 1, &value);
    }

private:
    void readRegister()
    {
        int value = 0;
        m_lit = m_comm && m_comm->readWords(0, m_register, 1, &value) && value != 0;
    }

    int m_register;
    bool m_lit;
    QString m_caption;
    QColor m_lightColor;
    QColor m_darkColor;
};

} // namespace

// --- the three functions that make a library a plug-in; all the rest may be hidden ------------------------------

extern "C" Q_DECL_EXPORT QString getItemName()
{
    return text("RegisterLamp"); // "type" in a project
}

extern "C" Q_DECL_EXPORT HMIBaseItem* createItem()
{
    return new RegisterLamp; // the runtime's from here on
}

/// The property object of a new item; the runtime owns it. The first argument is the type's name.
Q_DECL_EXPORT object* item_object_create(QString, QString objectName)
{
    object* created = object_create(objectName.toUtf8().constData());
    property_set_type(created, 1);
    return created;
}
