// The window on a desk: the panel's glass and, beside it, its registers. GUI thread only.
#ifndef PANEL_WINDOW_H
#define PANEL_WINDOW_H

#include "panel_session.h"

#include "translations.h"

#include <QMainWindow>

class QComboBox;

class PanelWindow : public QMainWindow
{
public:
    /// Borrows the screen; its destructor gives it back. All must outlive this.
    PanelWindow(PanelScreen& screen, PanelSession& session, PanelClock& clock, Translations& translations);
    ~PanelWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override; // not while a job runs
    void changeEvent(QEvent* event) override;

private:
    QComboBox* languageChoice();
    void useLanguage(int language);
    void showLanguage();

    PanelScreen& m_screen;
    PanelSession& m_session;
    Translations& m_translations;
    QComboBox* m_language = nullptr;
};

#endif
