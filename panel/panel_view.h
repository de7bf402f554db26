// The panel's screen: the scene in its own resolution, pixel for pixel. GUI thread only.
#ifndef PANEL_VIEW_H
#define PANEL_VIEW_H

#include <QGraphicsView>
#include <QImage>

class PanelView : public QGraphicsView
{
public:
    /// As big as the scene is now; never scrolls and never scales.
    explicit PanelView(QGraphicsScene* scene, QWidget* parent = nullptr);

    /// What stands on the screen, in the panel's resolution.
    QImage picture();

protected:
    void wheelEvent(QWheelEvent* event) override; // a panel has no wheel
};

#endif
