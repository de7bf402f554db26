// Answers the question that is asked before a recipe is added or deleted.
#ifndef EDIT_CONFIRMATION_H
#define EDIT_CONFIRMATION_H

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <QString>
#include <QTimer>

#include <functional>

/// While it lives, every message box is answered as soon as its event loop runs. GUI thread.
class Confirmation : public QObject
{
public:
    enum Answer
    {
        Yes,
        No,
        Close, ///< the window's close button, or the Escape key
        End    ///< ended from outside, with no button
    };

    explicit Confirmation(Answer answer, const std::function<void()>& beforeAnswer = std::function<void()>())
        : m_answer(answer), m_before(beforeAnswer)
    {
        qApp->installEventFilter(this);
    }
    ~Confirmation() override { qApp->removeEventFilter(this); }

    int asked = 0; ///< how many boxes came
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    bool hadParent = false;
    bool wasModal = false;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        QMessageBox* const box = qobject_cast<QMessageBox*>(watched);
        if (box && event->type() == QEvent::Show) {
            note(*box);
            QTimer::singleShot(0, box, [this, box] { answer(*box); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void note(const QMessageBox& box)
    {
        ++asked;
        title = box.windowTitle();
        text = box.text();
        buttons = box.standardButtons();
        defaultButton = box.standardButton(box.defaultButton());
        hadParent = box.parent() != nullptr;
        wasModal = box.isModal();
    }

    void answer(QMessageBox& box)
    {
        if (m_before)
            m_before();
        if (m_answer == Yes || m_answer == No)
            box.button(m_answer == Yes ? QMessageBox::Yes : QMessageBox::No)->click();
        else if (m_answer == Close)
            box.close();
        else
            box.done(0);
    }

    Answer m_answer;
    std::function<void()> m_before;
};

#endif
