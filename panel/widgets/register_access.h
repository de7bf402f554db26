// How the register view reaches word registers. Whoever plays the runtime implements it. GUI thread only.
#ifndef REGISTER_ACCESS_H
#define REGISTER_ACCESS_H

#include <QObject>
#include <QString>

class RegisterAccess : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// The value of a register, 0 to 65535. Reading here is nobody's business but the view's: it is not logged.
    virtual int word(const QString& type, int address) const = 0;

    /// Sets a register. False: the register cannot be written; nothing changed.
    virtual bool force(const QString& type, int address, int value) = 0;

Q_SIGNALS:
    /// To be emitted after a register got another value, whoever changed it.
    void changed(const QString& type, int address, int value);
};

#endif
