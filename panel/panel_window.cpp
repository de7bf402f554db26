// The window.
#include "panel_window.h"

#include "register_view.h"

#include <QCloseEvent>
#include <QDockWidget>

PanelWindow::PanelWindow(PanelScreen& screen, PanelSession& session, PanelClock& clock)
    : m_screen(screen), m_session(session)
{
    setCentralWidget(&m_screen);
    QDockWidget* dock = new QDockWidget(QString::fromLatin1("Registers"), this);
    RegisterView* registers = new RegisterView(session, clock, dock);
    const auto known = session.knownRegisters();
    for (auto it = known.constBegin(); it != known.constEnd(); ++it)
        registers->model().watch(it.key().first, it.key().second);
    dock->setWidget(registers);
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    addDockWidget(Qt::RightDockWidgetArea, dock);
}

PanelWindow::~PanelWindow()
{
    takeCentralWidget();
    m_screen.setParent(nullptr);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    m_session.answer(false);
    m_session.waitForWorkers();
    event->accept();
}
