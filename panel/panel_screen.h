// The panel's glass: the items and, over them, what the runtime shows by itself. In the panel's resolution, pixel for
// pixel. GUI thread only.
#ifndef PANEL_SCREEN_H
#define PANEL_SCREEN_H

#include "notices.h"
#include "on_screen_keyboard.h"
#include "panel_view.h"
#include "project_file.h"
#include "touch_tick.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

class QMessageBox;
class QPainter;

class PanelScreen : public QWidget
{
public:
    /// The scene has the panel's size. Neither scene nor clock are owned; both must outlive this.
    PanelScreen(QGraphicsScene* scene, const ProjectPanel& settings, PanelClock& clock, QWidget* parent = nullptr);

    PanelView& view() { return *m_view; }
    Notices& notices() { return *m_notices; }
    TouchTick& tick() { return *m_tick; }
    /// Null while none is open.
    OnScreenKeyboard* keyboard() const { return m_keyboard; }

    /// Shows a keyboard over everything; one that is open is cancelled first. `cell` in pixels of the screen.
    OnScreenKeyboard& openKeyboard(const KeyboardParameters& parameters, const QString& subject, const QRect& cell);

    /// The box that asks the operator something; null where there is none.
    static QMessageBox* confirmation();

    /// What the operator sees, a confirmation in the middle.
    QImage picture();

private:
    void closeKeyboard();
    void drawConfirmation(QPainter& painter, QMessageBox& box) const;

    const ProjectPanel m_settings;
    PanelView* m_view;
    Notices* m_notices;
    TouchTick* m_tick;
    QPointer<OnScreenKeyboard> m_keyboard;
};

#endif
