// The keyboard that a panel shows when an item asks for one.
//
// It lies over the whole area of the panel and takes every touch, so that nothing beside the keys can be touched while
// a value is edited: the answer goes to what is selected when it comes. The edited cell stays bright and visible.
// Touches outside the keys do nothing. GUI thread only; frames are pixels of the keyboard, whose origin is that of the
// area.
#ifndef ON_SCREEN_KEYBOARD_H
#define ON_SCREEN_KEYBOARD_H

#include "entry_check.h"
#include "keyboard_layout.h"
#include "panel_size.h"

#include "InterfaceAll.h"

#include <QWidget>

class OnScreenKeyboard : public QWidget
{
    Q_OBJECT
public:
    struct Request
    {
        KeyboardParameters parameters; ///< a copy; the item may change its own meanwhile
        QString subject;               ///< what is edited, for the operator; empty: a general word
        QRect cell;                    ///< the edited cell, in the parent's frame; may be empty
        QRect area;                    ///< the panel, in the parent's frame
        double dpi = DESK_DPI;         ///< of the panel
    };

    /// Starts with the old text, marked: the first key replaces it. Call `show` next.
    OnScreenKeyboard(const Request& request, QWidget* parent);

    const KeyboardLayout& arrangement() const { return m_layout; }
    /// The page of keys that is shown, an index of `arrangement().pages`.
    int page() const { return m_page; }
    QString text() const { return m_text; }
    /// Why the last key or the entry was refused, a sentence; empty when it was not.
    QString message() const;
    /// Says that the panel is too small for keys of 9 mm; empty when it is not. The operator sees it where there is
    /// room; the panel's log may take it too.
    QString sizeRemark() const;

    /// As if `text` had been typed over the old one, then Accept. False: refused, and `message` says why.
    bool acceptText(const QString& text);

public Q_SLOTS:
    /// Closes and answers when the entry is in order; otherwise says why not and stays. False: refused.
    bool accept();
    void cancel();

Q_SIGNALS:
    /// One of the two comes once, as the keyboard's last act; it is hidden by then. Who made it deletes it (later).
    void accepted(const QString& text);
    void cancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Shift
    {
        Off,
        Once,
        Locked
    };

    void press(const KeyboardKey& key);
    void type(const QString& characters);
    void toggleSign();
    void backspace();
    void clear();
    /// Takes `text` over when it may become acceptable, and says why not otherwise.
    void tryText(const QString& text);
    void editOldText();
    bool finish();

    QString sentence(Refusal refusal) const;
    QString subjectText() const;
    QString oldText() const;
    QString limitsText() const;
    QString label(const KeyboardKey& key) const;

    void paintShade(QPainter& painter) const;
    void paintHeader(QPainter& painter) const;
    void paintEntry(QPainter& painter) const;
    void paintMessage(QPainter& painter) const;
    void paintKey(QPainter& painter, const KeyboardKey& key) const;
    bool paintSign(QPainter& painter, const KeyboardKey& key) const;

    const Request m_request;
    const EntryRules m_rules;
    QRect m_cell; // in this widget's frame
    KeyboardLayout m_layout;
    QString m_text;
    bool m_fresh = true; // the old text is marked and goes with the first key
    Refusal m_refusal = Refusal::None;
    Shift m_shift = Shift::Off;
    int m_page = 0;
    QRect m_pressedKey; // where a finger went down; null: none
    bool m_fingerOnKey = false;
    bool m_done = false;
};

#endif
