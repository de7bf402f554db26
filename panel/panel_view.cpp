// The screen.
#include "panel_view.h"

#include <QPainter>
#include <QWheelEvent>

PanelView::PanelView(QGraphicsScene* viewed, QWidget* parent) : QGraphicsView(viewed, parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    setRenderHints(QPainter::TextAntialiasing);
    setFixedSize(viewed->sceneRect().size().toSize());
}

QImage PanelView::picture()
{
    QImage image(size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QWidget::render(&image);
    return image;
}

void PanelView::wheelEvent(QWheelEvent* event)
{
    event->accept();
}
