// Plays the runtime's part towards the items of an open project: answers their requests, shows their messages, hands
// typed text back, keeps the log. Scripts and windows sit on top of it. GUI thread only.
#ifndef PANEL_SESSION_H
#define PANEL_SESSION_H

#include "event_log.h"
#include "item_state.h"
#include "panel.h"
#include "panel_screen.h"
#include "recipe_transfer.h"
#include "register_access.h"

#include <QMap>
#include <QPair>
#include <QSet>
#include <QStringList>

class QMessageBox;

class PanelSession : public RegisterAccess, private RuntimeListener, private RegisterListener
{
    Q_OBJECT
public:
    /// The panel has its project open. Nothing is owned; all must outlive this.
    PanelSession(Panel& panel, PanelScreen& screen, EventLog& log);
    ~PanelSession() override;

    /// What the item shows now; empty where its plug-in does not tell.
    ItemState state(const Panel::Item& item);
    /// Whether any item's worker runs.
    bool isBusy() const;
    /// Serves events until no worker runs. Items must not be destroyed before.
    void waitForWorkers();

    /// Registers that were read, written or watched, with their values now.
    QMap<QPair<QString, int>, int> knownRegisters() const;
    int word(const QString& type, int address) const override;
    bool force(const QString& type, int address, int value) override;

    /// Sends the selected recipe to its controllers and tells the operator how that went. False: nothing was sent.
    bool sendRecipe();
    /// How the last one went, as the log has it; empty before the first.
    const QJsonObject& lastTransfer() const { return m_lastTransfer; }
    const QList<ProjectLink>& links() const { return m_panel.links(); }
    /// False: the project has no link to that device.
    bool setLink(const QString& device, bool up);

    /// Messages to the operator that no one has taken yet, the oldest first.
    QStringList& messages() { return m_messages; }
    /// What the keyboard was told when it was opened last.
    const KeyboardParameters& askedLast() const { return m_askedLast; }
    /// Answers an open confirmation. False: there is none.
    bool answer(bool yes);
    /// The item that was touched last; null before.
    const Panel::Item* touched() const;

Q_SIGNALS:
    /// A register that part of a recipe is about to be written to, and what it is for.
    void recipeRegister(const QString& type, int address, const QString& name);
    void linkChanged(const QString& device, bool up);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // what items ask of the runtime
    void messageBox(const QString& text, int value1, int value2) override;
    void externalCall(const QString& function, quintptr argument) override;
    void touchSound(QGraphicsItem* item) override;
    void wordRead(int address, int value) override;
    void wordWritten(const QString& registerType, int address, int oldValue, int newValue) override;

    void openKeyboard(quintptr argument);
    void takeText(InterfaceAll* receiver, const KeyboardParameters& asked, const QString& text);
    void logTouch(const QMouseEvent& event);
    void confirmationOpened(QMessageBox* box);

    void announce(const RecipeTransfer& transfer);

    // saves are seen as pending edits that are gone
    QJsonObject pendingNow() const;
    bool hasPending() const;
    void logSaves();

    Panel& m_panel;
    PanelScreen& m_screen;
    EventLog& m_log;
    QStringList m_messages;
    QJsonObject m_lastTransfer;
    QSet<QPair<QString, int>> m_registers;
    KeyboardParameters m_askedLast;
    QPoint m_lastTouch;
    HMIBaseItem* m_touched = nullptr;
    QJsonObject m_pending; // per item name, as of the last entry or save
};

#endif
