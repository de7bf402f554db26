// Beside the glass: sends the selected recipe, and plays controllers that do not answer. On a panel the project puts a
// button for the first on its screens; the second is for the desk. GUI thread only.
#ifndef TRANSFER_BOX_H
#define TRANSFER_BOX_H

#include "panel_session.h"

#include <QWidget>

class QCheckBox;
class QPushButton;

class TransferBox : public QWidget
{
    Q_OBJECT
public:
    /// The session is not owned and must outlive this.
    explicit TransferBox(PanelSession& session, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void addLink(const ProjectLink& link);
    void showLink(const QString& device, bool up);
    void retranslate();

    PanelSession& m_session;
    QPushButton* m_send;
    QList<QCheckBox*> m_links; // their names are the devices
};

#endif
