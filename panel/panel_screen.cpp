// The glass.
#include "panel_screen.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>

namespace {

const QColor SHADE(0, 0, 0, 110); // over the panel while it waits for an answer

const QColor TITLE_COLOR(0x3a, 0x44, 0x4e);
constexpr int TITLE_HEIGHT = 30;

} // namespace

PanelScreen::PanelScreen(QGraphicsScene* scene, const ProjectPanel& settings, PanelClock& clock, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_view(new PanelView(scene, this))
{
    setFixedSize(settings.width, settings.height);
    m_notices = new Notices(clock, rect(), settings.dpi, this);
    m_tick = new TouchTick(clock, settings.dpi, this);
}

OnScreenKeyboard& PanelScreen::openKeyboard(const KeyboardParameters& parameters, const QString& subject,
                                            const QRect& cell)
{
    if (m_keyboard)
        m_keyboard->cancel();
    const OnScreenKeyboard::Request request = {parameters, subject, cell, rect(), double(m_settings.dpi)};
    m_keyboard = new OnScreenKeyboard(request, this);
    const auto close = [this] { closeKeyboard(); };
    connect(m_keyboard, &OnScreenKeyboard::accepted, this, close);
    connect(m_keyboard, &OnScreenKeyboard::cancelled, this, close);
    m_keyboard->show();
    m_keyboard->setFocus();
    m_notices->raise();
    m_tick->raise();
    return *m_keyboard;
}

void PanelScreen::closeKeyboard()
{
    m_keyboard->deleteLater();
    m_keyboard = nullptr;
}

QMessageBox* PanelScreen::confirmation()
{
    QMessageBox* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box && box->isVisible() ? box : nullptr;
}

QImage PanelScreen::picture()
{
    QImage image(size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    render(&image);
    if (QMessageBox* box = confirmation()) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), SHADE);
        drawConfirmation(painter, *box);
    }
    return image;
}

/// Without a display no window frame shows the title; a bar takes its place.
void PanelScreen::drawConfirmation(QPainter& painter, QMessageBox& box) const
{
    QRect place(QPoint(), box.size());
    place.moveCenter(rect().center());
    const QRect bar(place.left(), place.top() - TITLE_HEIGHT, place.width(), TITLE_HEIGHT);
    painter.fillRect(bar, TITLE_COLOR);
    painter.setPen(Qt::white);
    painter.drawText(bar.adjusted(TITLE_HEIGHT / 2, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, box.windowTitle());
    painter.translate(place.topLeft());
    box.render(&painter);
}
