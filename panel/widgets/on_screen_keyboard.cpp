#include "on_screen_keyboard.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

const QColor SHADE(0, 0, 0, 90);
const QColor CELL_FRAME(255, 176, 0);
const QColor BACKGROUND(38, 43, 49);
const QColor BORDER(110, 120, 130);
const QColor KEY(74, 83, 93);
const QColor FUNCTION_KEY(54, 61, 69);
const QColor ACCEPT_KEY(46, 125, 50);
const QColor CANCEL_KEY(150, 54, 48);
const QColor PRESSED_KEY(150, 180, 210);
const QColor KEY_TEXT(255, 255, 255);
const QColor TEXT(225, 229, 233);
const QColor ENTRY_BACKGROUND(255, 255, 255);
const QColor MARK(38, 110, 190);
const QColor REFUSED(255, 190, 120);

const double KEY_TEXT_SHARE = 0.45; // of the key's height
const double KEY_CORNER = 4;
const double SMALLEST_SUBJECT = 0.75; // share of its font's size before it is cut

/// What the key says that leads from each page to the next.
const QStringList NEXT_PAGES{QStringLiteral("?12"), QStringLiteral("äöü"), QStringLiteral("abc")};

KeyboardForm formOf(const EntryRules& rules)
{
    if (rules.text)
        return KeyboardForm::Text;
    return rules.decimals > 0 ? KeyboardForm::DecimalNumber : KeyboardForm::WholeNumber;
}

QFont sized(const QFont& font, int pixels, bool bold = false)
{
    QFont result(font);
    result.setPixelSize(std::max(1, pixels));
    result.setBold(bold);
    return result;
}

/// The largest font up to `font` in which `text` fits into `width`, but not below the share `smallest` of it.
QFont fitting(const QFont& font, const QString& text, int width, double smallest = 0)
{
    QFont result(font);
    const int needed = QFontMetrics(result).horizontalAdvance(text);
    const double share = needed > width ? std::max(smallest, width / double(needed)) : 1;
    result.setPixelSize(std::max(1, static_cast<int>(result.pixelSize() * share)));
    return result;
}

/// An arrow that points left with a cross in it; `box` is where it goes.
QPainterPath backspaceSign(const QRectF& box)
{
    QPainterPath path;
    const double tip = box.width() * 0.32;
    path.moveTo(box.left(), box.center().y());
    path.lineTo(box.left() + tip, box.top());
    path.lineTo(box.topRight());
    path.lineTo(box.bottomRight());
    path.lineTo(box.left() + tip, box.bottom());
    path.closeSubpath();
    const QRectF cross(box.left() + tip + box.width() * 0.14, box.top() + box.height() * 0.28, box.width() * 0.32,
                       box.height() * 0.44);
    path.moveTo(cross.topLeft());
    path.lineTo(cross.bottomRight());
    path.moveTo(cross.topRight());
    path.lineTo(cross.bottomLeft());
    return path;
}

QPainterPath shiftSign(const QRectF& box)
{
    const double stem = box.width() * 0.28;
    const double neck = box.top() + box.height() * 0.52;
    QPainterPath path;
    path.moveTo(box.center().x(), box.top());
    path.lineTo(box.right(), neck);
    path.lineTo(box.right() - stem, neck);
    path.lineTo(box.right() - stem, box.bottom());
    path.lineTo(box.left() + stem, box.bottom());
    path.lineTo(box.left() + stem, neck);
    path.lineTo(box.left(), neck);
    path.closeSubpath();
    return path;
}

/// The bracket that stands for a space.
QPainterPath spaceSign(const QRectF& box)
{
    QPainterPath path;
    path.moveTo(box.topLeft());
    path.lineTo(box.bottomLeft());
    path.lineTo(box.bottomRight());
    path.lineTo(box.topRight());
    return path;
}

QRectF signBox(const QRect& key, double width, double height)
{
    const double side = std::min(key.width(), key.height());
    QRectF box(0, 0, side * width, side * height);
    box.moveCenter(QRectF(key).center());
    return box;
}

QColor keyColor(KeyAction action)
{
    switch (action) {
    case KeyAction::Character:
    case KeyAction::Sign:
        return KEY;
    case KeyAction::Accept:
        return ACCEPT_KEY;
    case KeyAction::Cancel:
        return CANCEL_KEY;
    case KeyAction::Backspace:
    case KeyAction::Clear:
    case KeyAction::Shift:
    case KeyAction::Page:
        break;
    }
    return FUNCTION_KEY;
}

bool isPrintable(const QString& text)
{
    return !text.isEmpty()
           && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

} // namespace

OnScreenKeyboard::OnScreenKeyboard(const Request& request, QWidget* parent)
    : QWidget(parent), m_request(request), m_rules(request.parameters),
      m_cell(request.cell.translated(-request.area.topLeft())),
      m_layout(layOutKeyboard(formOf(m_rules), {QRect(QPoint(0, 0), request.area.size()), m_cell, request.dpi})),
      m_text(request.parameters.currentText)
{
    setGeometry(request.area);
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
}

QString OnScreenKeyboard::message() const
{
    return sentence(m_refusal);
}

QString OnScreenKeyboard::sizeRemark() const
{
    if (!m_layout.keysAreTooSmall())
        return QString();
    return tr("The screen is small: keys are only %1 mm.").arg(m_layout.keyMillimetres, 0, 'f', 1);
}

// --- answers -----------------------------------------------------------------------------------------------------

bool OnScreenKeyboard::acceptText(const QString& text)
{
    if (m_done)
        return false;
    m_text = text;
    m_fresh = false;
    return accept();
}

bool OnScreenKeyboard::accept()
{
    const EntryResult result = checkEntry(m_rules, m_text);
    m_refusal = result.refusal;
    update();
    if (result.refusal != Refusal::None || !finish())
        return false;
    Q_EMIT accepted(result.text);
    return true;
}

void OnScreenKeyboard::cancel()
{
    if (finish())
        Q_EMIT cancelled();
}

bool OnScreenKeyboard::finish()
{
    if (m_done)
        return false;
    m_done = true;
    hide();
    return true;
}

// --- typing ------------------------------------------------------------------------------------------------------

void OnScreenKeyboard::press(const KeyboardKey& key)
{
    switch (key.action) {
    case KeyAction::Character: {
        const QChar character = m_shift == Shift::Off ? key.character : key.character.toUpper();
        if (m_shift == Shift::Once && key.character.isLetter())
            m_shift = Shift::Off;
        type(character);
        break;
    }
    case KeyAction::Sign:
        toggleSign();
        break;
    case KeyAction::Backspace:
        backspace();
        break;
    case KeyAction::Clear:
        clear();
        break;
    case KeyAction::Shift:
        m_shift = m_shift == Shift::Off ? Shift::Once : m_shift == Shift::Once ? Shift::Locked : Shift::Off;
        break;
    case KeyAction::Page:
        m_page = (m_page + 1) % m_layout.pages.size();
        break;
    case KeyAction::Accept:
        accept();
        break;
    case KeyAction::Cancel:
        cancel();
        break;
    }
    update();
}

void OnScreenKeyboard::tryText(const QString& text)
{
    m_refusal = checkTyping(m_rules, text);
    if (m_refusal == Refusal::None) {
        m_text = text;
        m_fresh = false;
    }
    update();
}

void OnScreenKeyboard::type(const QString& characters)
{
    tryText(m_fresh ? characters : m_text + characters);
}

void OnScreenKeyboard::toggleSign()
{
    if (m_fresh)
        tryText(QStringLiteral("-"));
    else if (m_text.startsWith(QLatin1Char('-')))
        tryText(m_text.mid(1));
    else
        tryText(QLatin1Char('-') + m_text);
}

/// Takes one character as people count them, so that no half of a pair is left behind.
void OnScreenKeyboard::backspace()
{
    QString text = m_fresh ? QString() : m_text;
    const bool pair = text.size() > 1 && text.at(text.size() - 2).isHighSurrogate();
    text.chop(pair ? 2 : 1);
    m_text = text;
    m_fresh = false;
    m_refusal = Refusal::None;
    update();
}

void OnScreenKeyboard::clear()
{
    m_text.clear();
    m_fresh = false;
    m_refusal = Refusal::None;
    update();
}

/// Takes the mark away: what is typed next goes behind the old text.
void OnScreenKeyboard::editOldText()
{
    m_fresh = false;
    update();
}

// --- events ------------------------------------------------------------------------------------------------------

void OnScreenKeyboard::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const KeyboardKey* key = m_layout.keyAt(m_page, event->pos());
    m_pressedKey = key ? key->rect : m_layout.entry.contains(event->pos()) ? m_layout.entry : QRect();
    m_fingerOnKey = !m_pressedKey.isNull();
    update();
}

void OnScreenKeyboard::mouseMoveEvent(QMouseEvent* event)
{
    m_fingerOnKey = m_pressedKey.contains(event->pos());
    update();
}

/// A finger that slid off its key does nothing.
void OnScreenKeyboard::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QRect pressed = m_pressedKey;
    m_pressedKey = QRect();
    m_fingerOnKey = false;
    update();
    if (!pressed.contains(event->pos()))
        return;
    if (pressed == m_layout.entry)
        editOldText();
    else if (const KeyboardKey* key = m_layout.keyAt(m_page, pressed.center()))
        press(*key);
}

/// Fast fingers: the second of two quick touches counts like any other.
void OnScreenKeyboard::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void OnScreenKeyboard::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        accept();
        return;
    case Qt::Key_Escape:
        cancel();
        return;
    case Qt::Key_Backspace:
        backspace();
        return;
    case Qt::Key_Delete:
        clear();
        return;
    case Qt::Key_End:
    case Qt::Key_Right:
        editOldText();
        return;
    default:
        break;
    }
    QString typed = event->text();
    if (!m_rules.text && typed == QLatin1String(",")) // the point of many number pads
        typed = QStringLiteral(".");
    if (isPrintable(typed))
        type(typed);
}

void OnScreenKeyboard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        update();
    QWidget::changeEvent(event);
}

// --- texts -------------------------------------------------------------------------------------------------------

QString OnScreenKeyboard::sentence(Refusal refusal) const
{
    const KeyboardParameters& parameters = m_request.parameters;
    switch (refusal) {
    case Refusal::None:
        break;
    case Refusal::Empty:
        return tr("Enter a number.");
    case Refusal::NoNumber:
        return tr("This is not a number.");
    case Refusal::TooManyDecimals:
        if (m_rules.decimals == 0)
            return tr("Only whole numbers are possible.");
        return tr("Digits after the point: %1 at most.").arg(m_rules.decimals);
    case Refusal::TooManyDigits:
        return tr("Too many digits.");
    case Refusal::TooSmall:
        return tr("Too small: the smallest value is %1.").arg(parameters.minimum);
    case Refusal::TooLarge:
        return tr("Too large: the largest value is %1.").arg(parameters.maximum);
    case Refusal::TooLong:
        return tr("Too long: the greatest length is %1.").arg(*m_rules.longest);
    case Refusal::NothingPossible:
        return tr("No value is possible: the limits are %1 to %2.").arg(parameters.minimum, parameters.maximum);
    }
    return QString();
}

QString OnScreenKeyboard::subjectText() const
{
    if (!m_request.subject.isEmpty())
        return m_request.subject;
    return m_rules.text ? tr("Text") : tr("Value");
}

QString OnScreenKeyboard::oldText() const
{
    return tr("Old: %1").arg(m_request.parameters.currentText);
}

QString OnScreenKeyboard::limitsText() const
{
    if (m_rules.text)
        return m_rules.longest ? tr("Length: up to %1").arg(*m_rules.longest) : QString();
    QStringList limits;
    if (m_rules.minimum)
        limits += tr("Min: %1").arg(m_request.parameters.minimum);
    if (m_rules.maximum)
        limits += tr("Max: %1").arg(m_request.parameters.maximum);
    return limits.join(QStringLiteral("   "));
}

QString OnScreenKeyboard::label(const KeyboardKey& key) const
{
    switch (key.action) {
    case KeyAction::Character:
        return m_shift == Shift::Off ? QString(key.character) : QString(key.character.toUpper());
    case KeyAction::Sign:
        return QStringLiteral("\u00b1");
    case KeyAction::Clear:
        return tr("CLR", "key that clears the whole entry, three letters");
    case KeyAction::Page:
        return NEXT_PAGES.value(m_page);
    case KeyAction::Accept:
        return tr("OK");
    case KeyAction::Cancel:
        return tr("Cancel");
    case KeyAction::Backspace:
    case KeyAction::Shift:
        break;
    }
    return QString();
}

// --- painting ----------------------------------------------------------------------------------------------------

void OnScreenKeyboard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintShade(painter);
    paintHeader(painter);
    paintEntry(painter);
    paintMessage(painter);
    for (const KeyboardKey& key : m_layout.pages.at(m_page))
        paintKey(painter, key);
}

/// Everything but the edited cell is darkened.
void OnScreenKeyboard::paintShade(QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setClipRegion(QRegion(rect()) - QRegion(m_cell));
    painter.fillRect(rect(), SHADE);
    painter.setClipping(false);
    if (!m_cell.isEmpty()) {
        painter.setPen(QPen(CELL_FRAME, 3));
        painter.drawRect(m_cell.adjusted(-2, -2, 1, 1));
    }
    painter.restore();
    painter.setPen(BORDER);
    painter.setBrush(BACKGROUND);
    painter.drawRoundedRect(QRectF(m_layout.frame).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
}

void OnScreenKeyboard::paintHeader(QPainter& painter) const
{
    painter.setPen(TEXT);
    const int width = m_layout.subject.width();
    painter.setFont(fitting(sized(font(), m_layout.textPixels, true), subjectText(), width, SMALLEST_SUBJECT));
    const QFontMetrics bold(painter.font());
    painter.drawText(m_layout.subject, Qt::AlignLeft | Qt::AlignVCenter,
                     bold.elidedText(subjectText(), Qt::ElideRight, width));
    if (m_layout.messageIsInfo && m_refusal != Refusal::None)
        return;

    painter.setFont(sized(font(), m_layout.textPixels));
    const QFontMetrics metrics(painter.font());
    const QRect& info = m_layout.info;
    const bool twoLines = info.height() >= 2 * metrics.height();
    const QString limits = limitsText();
    if (twoLines) {
        const QRect first(info.x(), info.y(), info.width(), info.height() / 2);
        painter.drawText(first, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(oldText(), Qt::ElideRight, info.width()));
        painter.setFont(fitting(painter.font(), limits, info.width()));
        painter.drawText(first.translated(0, first.height()), Qt::AlignLeft | Qt::AlignVCenter, limits);
        return;
    }
    const int gap = metrics.horizontalAdvance(QStringLiteral("   "));
    const int left = std::max(0, info.width() - metrics.horizontalAdvance(limits) - gap);
    painter.drawText(info, Qt::AlignRight | Qt::AlignVCenter, limits);
    painter.drawText(info, Qt::AlignLeft | Qt::AlignVCenter, metrics.elidedText(oldText(), Qt::ElideRight, left));
}

/// The end of a long entry is what is shown: that is where one types.
void OnScreenKeyboard::paintEntry(QPainter& painter) const
{
    painter.setPen(m_refusal == Refusal::None ? QPen(BORDER) : QPen(REFUSED, 3));
    painter.setBrush(ENTRY_BACKGROUND);
    painter.drawRect(QRectF(m_layout.entry).adjusted(0.5, 0.5, -0.5, -0.5));

    painter.setFont(sized(font(), m_layout.entryPixels));
    const QFontMetrics metrics(painter.font());
    const int margin = m_layout.entryPixels / 3;
    const QRect inside = m_layout.entry.adjusted(margin, 2, -margin, -2);
    const QString shown = metrics.elidedText(m_text, Qt::ElideLeft, inside.width() - 2);
    const int width = metrics.horizontalAdvance(shown);
    const QRect marked(inside.x(), inside.y(), width, inside.height());
    if (m_fresh && !m_text.isEmpty())
        painter.fillRect(marked, MARK);
    else
        painter.fillRect(QRect(inside.x() + width + 1, inside.y() + 2, 2, inside.height() - 4), Qt::black);
    painter.setPen(m_fresh ? Qt::white : Qt::black);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, shown);
}

void OnScreenKeyboard::paintMessage(QPainter& painter) const
{
    const QString text = m_refusal != Refusal::None ? message() : m_layout.messageIsInfo ? QString() : sizeRemark();
    const QRect& place = m_layout.message;
    QFont small = sized(font(), m_layout.textPixels, true);
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
    const QRect unbounded(0, 0, place.width(), 10000);
    while (small.pixelSize() > 8) {
        const QRect needed = QFontMetrics(small).boundingRect(unbounded, flags, text);
        if (needed.height() <= place.height() && needed.width() <= place.width())
            break;
        small.setPixelSize(small.pixelSize() - 1);
    }
    painter.setFont(small);
    painter.setPen(REFUSED);
    painter.drawText(place, flags, text);
}

void OnScreenKeyboard::paintKey(QPainter& painter, const KeyboardKey& key) const
{
    const bool pressed = m_fingerOnKey && m_pressedKey == key.rect;
    painter.setPen(Qt::NoPen);
    painter.setBrush(pressed ? PRESSED_KEY : keyColor(key.action));
    painter.drawRoundedRect(key.rect, KEY_CORNER, KEY_CORNER);

    painter.setPen(QPen(KEY_TEXT, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (paintSign(painter, key))
        return;
    const int pixels = static_cast<int>(m_layout.pages.first().first().rect.height() * KEY_TEXT_SHARE);
    const QString text = label(key);
    painter.setFont(fitting(sized(font(), pixels), text, key.rect.width() * 9 / 10));
    painter.drawText(key.rect, Qt::AlignCenter, text);
}

/// Keys that carry a sign instead of a text: no font has to have it. False: it is not one of them.
bool OnScreenKeyboard::paintSign(QPainter& painter, const KeyboardKey& key) const
{
    painter.setBrush(Qt::NoBrush);
    if (key.action == KeyAction::Backspace) {
        painter.drawPath(backspaceSign(signBox(key.rect, 0.56, 0.36)));
        return true;
    }
    if (key.character == QLatin1Char(' ')) {
        painter.drawPath(spaceSign(signBox(key.rect, 0.5, 0.14).translated(0, key.rect.height() * 0.15)));
        return true;
    }
    if (key.action != KeyAction::Shift)
        return false;
    if (m_shift != Shift::Off)
        painter.setBrush(KEY_TEXT);
    const QRectF box = signBox(key.rect, 0.42, 0.42);
    painter.drawPath(shiftSign(box));
    if (m_shift == Shift::Locked)
        painter.drawLine(QPointF(box.left(), box.bottom() + 5), QPointF(box.right(), box.bottom() + 5));
    return true;
}
