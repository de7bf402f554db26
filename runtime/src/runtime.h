// The desk runtime: what a panel's runtime does for its items, for programs that play a panel (the desktop panel,
// tests, benches). Items never see it; they see runtime/include/.
//
// GUI thread only, except UHmiEvent::hmiEventPost and SendLWFRegMessage, which any thread may call. Needs a
// QApplication and its event loop: posted events and notifications are dealt with there, never inside the call that
// caused them.
#ifndef RUNTIME_H
#define RUNTIME_H

#include "HMIBaseItem.h"
#include "object_tree.h"
#include "register_bank.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

/// What items ask of the panel.
class RuntimeListener
{
public:
    virtual ~RuntimeListener() {}
    virtual void messageBox(const QString& text, int value1, int value2) = 0;
    virtual void externalCall(const QString& function, quintptr argument) = 0;
    virtual void touchSound(QGraphicsItem* item) = 0;
};

class Runtime : public QObject
{
public:
    static Runtime& instance();
    ~Runtime() override;

    /// "0,-1,type,address": how watched registers are written.
    static QString addressText(const QString& registerType, int address);

    // --- the project -----------------------------------------------------------------------------------------
    /// Takes ownership of the tree; the one before is destroyed. Null: no project is open. Items that use the old
    /// tree must be gone.
    void setProject(object* project);
    const hmi_application_t* application() const { return &m_application; }
    /// Owns an object that is not part of a project.
    object* adopt(object* created);
    /// Hands an adopted object over to the caller, who owns it from here on, e.g. to put it into a project.
    object* release(object* adopted);

    /// The language of items, from 1. An item takes it at its construction; those that exist keep theirs.
    int language() const { return m_language; }
    void setLanguage(int language);

    // --- items -----------------------------------------------------------------------------------------------
    /// The item that the runtime is about to configure: its property object and its place, "x", "y", "width",
    /// "height" in it.
    static void place(HMIBaseItem* item, object* properties);
    /// Plays the runtime's part of the calling order for an item that has been placed: hands over what the item
    /// requires, then has it list what it watches. False: the item requires something the runtime does not have.
    bool start(HMIBaseItem* item);
    /// Forgets an item; its destructor does so too.
    void forget(HMIBaseItem* item);
    /// The registers an item watches, as address texts.
    QStringList watched(HMIBaseItem* item) const { return m_watched.value(item); }

    RegisterBank& registers() { return m_registers; }
    void setListener(RuntimeListener* listener) { m_listener = listener; } ///< not owned; null: none
    RuntimeListener* listener() const { return m_listener; }

    /// Tells every item that watches the address, later, from the event loop; several changes before that are told
    /// once. Any thread.
    void notify(const QString& address);
    /// Whether events or notifications are waiting.
    bool isIdle() const;

    bool event(QEvent* event) override;

private:
    Runtime();
    void deliver(const QString& address);

    hmi_application_t m_application;
    QList<object*> m_adopted;
    int m_language;
    QList<HMIBaseItem*> m_items; // in the order of their start
    QHash<HMIBaseItem*, QStringList> m_watched;
    RegisterBank m_registers;
    RuntimeListener* m_listener;
    struct Pending;
    Pending* m_pending;
    friend class UHmiEvent;
};

#endif
