// Plug-ins that break the contract in one place each, which FAULT names.
#include "HMIBaseItem.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#define SAME_ITEM 1
#define OTHER_NAME 2
#define WANTS_INTERFACE 3
#define WANTS_PROPERTIES 4
#define DIES_OF_A_TAP 5
#define HANGS_WHEN_TOLD 6
#define NAME_CHANGES 7
#define LEAVES_THE_PROCESS 8
#define LEAVES_IN_ORDER 9
#define LEAVES_LIKE_A_FAILED_CHECK 10

namespace {

/// Has the last word on standard output.
struct Farewell
{
    ~Farewell()
    {
        if (FAULT == OTHER_NAME)
            std::puts("farewell");
    }
};

const Farewell farewell;

void die()
{
    std::raise(SIGSEGV);
}

class Naughty : public HMIBaseItem
{
public:
    QString getRequirement() override { return QString::fromLatin1("comm"); }
    void setInterfaceByRequirement(QList<void*> interfaces) override
    {
        if (FAULT == WANTS_INTERFACE && (interfaces.isEmpty() || !interfaces.first()))
            die();
    }
    int update_result(int) override
    {
        while (FAULT == HANGS_WHEN_TOLD)
            std::raise(SIGCONT);
        return 0;
    }
    int getMonitorAddr(QStringList&, QList<KEY_ADDRESS>&) override
    {
        m_object = static_cast<object*>(data(10).value<void*>());
        if (FAULT == WANTS_PROPERTIES && !m_object)
            die();
        return 0;
    }
    void HMIpaint(object*, const QString&, QPainter*, bool) override
    {
        if (FAULT == LEAVES_THE_PROCESS)
            std::_Exit(3);
        if (FAULT == LEAVES_IN_ORDER)
            std::_Exit(0);
        if (FAULT == LEAVES_LIKE_A_FAILED_CHECK)
            std::_Exit(10);
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent*) override
    {
        if (FAULT == DIES_OF_A_TAP)
            die();
    }
};

} // namespace

extern "C" {
Q_DECL_EXPORT QString getItemName()
{
    static int calls = 0;
    return QString::fromLatin1(FAULT == NAME_CHANGES && ++calls % 2 == 0 ? "Other" : "Naughty");
}
Q_DECL_EXPORT HMIBaseItem* createItem()
{
    static HMIBaseItem* same = nullptr;
    if (FAULT != SAME_ITEM)
        return new Naughty;
    if (!same)
        same = new Naughty;
    return same;
}
}

Q_DECL_EXPORT object* item_object_create(QString, QString objectName)
{
    object* created = object_create(FAULT == OTHER_NAME ? "another" : objectName.toUtf8().constData());
    property_set_type(created, 1);
    return created;
}
