// The desk runtime's property objects: what stands behind the opaque `object` of hmi_object.h. GUI thread only.
#ifndef OBJECT_TREE_H
#define OBJECT_TREE_H

#include "hmi_object.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

/// A named node with typed properties; owns its children.
class object
{
public:
    explicit object(const QString& objectName);
    ~object();

    QString name;
    int type;
    QHash<QString, QVariant> properties; ///< values are int, QString or QColor

    /// Appends a child, which this object owns from here on.
    object* addChild(object* child);
    /// Null where there is none of that name.
    object* child(const QString& childName) const;
    const QList<object*>& children() const { return m_children; }

private:
    object(const object&);
    object& operator=(const object&);

    QList<object*> m_children;
};

#endif
