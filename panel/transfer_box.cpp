// The button and the links.
#include "transfer_box.h"

#include <QCheckBox>
#include <QEvent>
#include <QPushButton>
#include <QVBoxLayout>

TransferBox::TransferBox(PanelSession& session, QWidget* parent)
    : QWidget(parent), m_session(session), m_send(new QPushButton)
{
    QVBoxLayout* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_send);
    for (const ProjectLink& link : session.links())
        addLink(link);
    m_send->setObjectName(QStringLiteral("send"));
    m_send->setFocusPolicy(Qt::NoFocus); // an open keyboard keeps the keys
    connect(m_send, &QPushButton::clicked, &m_session, &PanelSession::sendRecipe);
    connect(&m_session, &PanelSession::linkChanged, this, &TransferBox::showLink);
    retranslate();
}

void TransferBox::addLink(const ProjectLink& link)
{
    QCheckBox* box = new QCheckBox;
    box->setObjectName(link.device);
    box->setFocusPolicy(Qt::NoFocus);
    box->setChecked(link.isUp);
    connect(box, &QCheckBox::toggled, this, [this, device = link.device](bool up) { m_session.setLink(device, up); });
    layout()->addWidget(box);
    m_links.append(box);
}

/// A script may have done it.
void TransferBox::showLink(const QString& device, bool up)
{
    for (QCheckBox* box : m_links) {
        if (box->objectName() != device)
            continue;
        const QSignalBlocker quiet(box);
        box->setChecked(up);
    }
}

void TransferBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void TransferBox::retranslate()
{
    m_send->setText(tr("Send to controller (F9)"));
    m_send->setShortcut(Qt::Key_F9); // a new text drops the old one
    for (QCheckBox* box : m_links)
        box->setText(tr("Link to %1").arg(box->objectName().replace(QLatin1Char('&'), QStringLiteral("&&"))));
}
