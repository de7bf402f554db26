// Where the on-screen keyboard and its keys are. Numbers only; the keyboard paints and hit-tests what it finds here.
// All rectangles are pixels in one frame: that of the panel's area.
#ifndef KEYBOARD_LAYOUT_H
#define KEYBOARD_LAYOUT_H

#include <QChar>
#include <QPoint>
#include <QRect>
#include <QVector>

enum class KeyAction
{
    Character,
    Sign, ///< plus or minus
    Backspace,
    Clear,
    Shift,
    Page, ///< the next page
    Accept,
    Cancel
};

struct KeyboardKey
{
    KeyAction action;
    QChar character; ///< letters are small ones; null unless the action is Character
    QRect rect;
};

enum class KeyboardForm
{
    WholeNumber,
    DecimalNumber,
    Text
};

/// Where the keyboard may be.
struct KeyboardPlace
{
    QRect area; ///< the panel's
    QRect cell; ///< what is edited; may be empty or outside
    double dpi; ///< of the panel
};

struct KeyboardLayout
{
    QRect frame; ///< the whole keyboard
    QRect subject;
    QRect entry;
    QRect info;
    QRect message;      ///< the same as `info` where there is little room: the one takes the place of the other
    bool messageIsInfo; ///< that it is so
    QVector<QVector<KeyboardKey>> pages; ///< letters, signs, accents; or digits alone
    bool coversCell;
    double keyMillimetres; ///< the smaller side of a plain key
    int textPixels;        ///< height of the font of subject, info and message
    int entryPixels;       ///< and of the entry

    bool keysAreTooSmall() const;
    /// Null where there is no key.
    const KeyboardKey* keyAt(int page, const QPoint& point) const;
};

/// The first arrangement that fits below, above, right or left of the cell with keys of at least 9 mm; larger keys
/// where there is room. Where none fits, the cell is covered as little as can be; where the area is too small for
/// keys of 9 mm at all, they are as large as it allows.
KeyboardLayout layOutKeyboard(KeyboardForm form, const KeyboardPlace& place);

#endif
