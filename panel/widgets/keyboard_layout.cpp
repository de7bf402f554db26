#include "keyboard_layout.h"

#include "panel_size.h"

#include <QList>
#include <QSize>
#include <QStringList>

#include <algorithm>

namespace {

// Millimetres.
const double LARGEST_KEY = 13.0;
const double GAP = 1.0;
const double PADDING = 2.0;
const double DISTANCE_TO_CELL = 2.0;
const double LINE = 5.0;
const double ENTRY_HEIGHT = 9.0;
const double TEXT_HEIGHT = 3.5;
const double ENTRY_TEXT_HEIGHT = 5.5;
const double BESIDE_WIDTH = 48.0;

/// Where subject, entry, info and message stand.
enum class Header
{
    Stacked, // one below the other, above the keys
    Beside,  // the same, left of the keys
    Wide,    // subject and info on one line, above the keys
    Strip    // entry on the left, the others right of it, all in one row above the keys
};

/// Keys as rows of names; "NAME:2" is two keys wide, "NAME:2x2" two rows high as well, "." is left free.
struct Arrangement
{
    Header header;
    int columns;
    QVector<QStringList> pages;

    int rows() const { return pages.first().size(); }
};

const QStringList WHOLE_NUMBER_ROWS{QStringLiteral("7 8 9 BACK CLEAR"), QStringLiteral("4 5 6 CANCEL:2"),
                                    QStringLiteral("1 2 3 OK:2x2"), QStringLiteral("SIGN 0 .")};
const QStringList DECIMAL_NUMBER_ROWS{QStringLiteral("7 8 9 BACK CLEAR"), QStringLiteral("4 5 6 CANCEL:2"),
                                      QStringLiteral("1 2 3 OK:2x2"), QStringLiteral("SIGN 0 POINT")};

const QStringList LETTER_ROWS{QStringLiteral("1 2 3 4 5 6 7 8 9 0"), QStringLiteral("q w e r t y u i o p"),
                              QStringLiteral("a s d f g h j k l -"), QStringLiteral("SHIFT z x c v b n m POINT BACK"),
                              QStringLiteral("CLEAR PAGE SPACE:4 CANCEL:2 OK:2")};
const QStringList SIGN_ROWS{QStringLiteral("1 2 3 4 5 6 7 8 9 0"), QStringLiteral("+ - * / = % & # @ _"),
                            QStringLiteral("( ) [ ] < > ! ? ° ~"), QStringLiteral(", ; : $ € ^ | \\ POINT BACK"),
                            QStringLiteral("CLEAR PAGE SPACE:4 CANCEL:2 OK:2")};

const QStringList ACCENT_ROWS{QStringLiteral("1 2 3 4 5 6 7 8 9 0"), QStringLiteral("ä ö ü ß à á â ç è é"),
                              QStringLiteral("ê ë ì í î ï ñ ò ó ô"), QStringLiteral("SHIFT ù ú û œ æ å ø POINT BACK"),
                              QStringLiteral("CLEAR PAGE SPACE:4 CANCEL:2 OK:2")};

const QStringList FLAT_LETTER_ROWS{QStringLiteral("q w e r t y u i o p - BACK"),
                                   QStringLiteral("a s d f g h j k l CLEAR CANCEL:2"),
                                   QStringLiteral("SHIFT z x c v b n m PAGE SPACE OK:2")};
const QStringList FLAT_SIGN_ROWS{QStringLiteral("1 2 3 4 5 6 7 8 9 0 - BACK"),
                                 QStringLiteral("+ * / = % & # @ _ CLEAR CANCEL:2"),
                                 QStringLiteral("( ) , ; : ! ? POINT PAGE SPACE OK:2")};
const QStringList FLAT_ACCENT_ROWS{QStringLiteral("ä ö ü ß à á â ç è é ê BACK"),
                                   QStringLiteral("ë ì í î ï ñ ò ó ô CLEAR CANCEL:2"),
                                   QStringLiteral("SHIFT ù ú û œ æ å ø PAGE SPACE OK:2")};

/// In the order in which they are tried.
QVector<Arrangement> arrangements(KeyboardForm form)
{
    if (form == KeyboardForm::Text)
        return {{Header::Wide, 10, {LETTER_ROWS, SIGN_ROWS, ACCENT_ROWS}},
                {Header::Strip, 12, {FLAT_LETTER_ROWS, FLAT_SIGN_ROWS, FLAT_ACCENT_ROWS}}};
    const QStringList& rows = form == KeyboardForm::DecimalNumber ? DECIMAL_NUMBER_ROWS : WHOLE_NUMBER_ROWS;
    return {{Header::Stacked, 5, {rows}}, {Header::Beside, 5, {rows}}};
}

KeyAction actionOf(const QString& name)
{
    static const QVector<QPair<QString, KeyAction>> actions{
        {QStringLiteral("SIGN"), KeyAction::Sign},     {QStringLiteral("BACK"), KeyAction::Backspace},
        {QStringLiteral("CLEAR"), KeyAction::Clear},   {QStringLiteral("SHIFT"), KeyAction::Shift},
        {QStringLiteral("PAGE"), KeyAction::Page},     {QStringLiteral("OK"), KeyAction::Accept},
        {QStringLiteral("CANCEL"), KeyAction::Cancel},
    };
    for (const QPair<QString, KeyAction>& action : actions) {
        if (action.first == name)
            return action.second;
    }
    return KeyAction::Character;
}

QChar characterOf(const QString& name)
{
    if (name == QLatin1String("POINT"))
        return QLatin1Char('.');
    if (name == QLatin1String("SPACE"))
        return QLatin1Char(' ');
    return actionOf(name) == KeyAction::Character ? name.at(0) : QChar();
}

/// Millimetres to pixels, and the lengths of an arrangement that its keys do not change.
struct Measure
{
    double unit; // pixels per millimetre

    int px(double millimetres) const { return static_cast<int>(std::ceil(millimetres * unit)); }

    QSize headerSize(Header header) const
    {
        switch (header) {
        case Header::Stacked:
            return QSize(0, px(LINE) + px(ENTRY_HEIGHT) + 4 * px(LINE) + 4 * px(GAP));
        case Header::Beside:
            return QSize(px(BESIDE_WIDTH) + 2 * px(GAP), 0);
        case Header::Wide:
            return QSize(0, 2 * px(LINE) + px(ENTRY_HEIGHT) + 3 * px(GAP));
        case Header::Strip:
            break;
        }
        return QSize(0, 2 * px(LINE) + px(GAP));
    }

    /// What is left of `space` for one key.
    QSize keySize(const Arrangement& arrangement, const QSize& space) const
    {
        const QSize header = headerSize(arrangement.header);
        const int width = space.width() - header.width() - 2 * px(PADDING) - (arrangement.columns - 1) * px(GAP);
        const int height = space.height() - header.height() - 2 * px(PADDING) - (arrangement.rows() - 1) * px(GAP);
        const int largest = px(LARGEST_KEY);
        return QSize(std::min(largest, width / arrangement.columns), std::min(largest, height / arrangement.rows()));
    }

    QSize frameSize(const Arrangement& arrangement, const QSize& key) const
    {
        const QSize header = headerSize(arrangement.header);
        return QSize(header.width() + 2 * px(PADDING) + arrangement.columns * (key.width() + px(GAP)) - px(GAP),
                     header.height() + 2 * px(PADDING) + arrangement.rows() * (key.height() + px(GAP)) - px(GAP));
    }
};

/// A choice that fits: what, how large and where.
struct Choice
{
    const Arrangement* arrangement = nullptr;
    QSize key;
    QRect frame;
};

/// The nearest place for `size` inside `region` with its middle at `middle`.
QRect placed(const QSize& size, const QRect& region, const QPoint& middle)
{
    const int x = std::clamp(middle.x() - size.width() / 2, region.x(), region.x() + region.width() - size.width());
    const int y = std::clamp(middle.y() - size.height() / 2, region.y(), region.y() + region.height() - size.height());
    return QRect(QPoint(x, y), size);
}

/// Below, above, right and left of the cell; only the whole area when there is no cell to be seen.
QList<QRect> freeRegions(const KeyboardPlace& place, const Measure& measure)
{
    const QRect cell = place.cell & place.area;
    if (cell.isEmpty())
        return {place.area};
    const int distance = measure.px(DISTANCE_TO_CELL);
    const QRect kept = cell.adjusted(-distance, -distance, distance, distance);
    const QRect& area = place.area;
    return {QRect(QPoint(area.left(), kept.bottom() + 1), area.bottomRight()),
            QRect(area.topLeft(), QPoint(area.right(), kept.top() - 1)),
            QRect(QPoint(kept.right() + 1, area.top()), area.bottomRight()),
            QRect(area.topLeft(), QPoint(kept.left() - 1, area.bottom()))};
}

bool isLargeEnough(const QSize& key, int smallest)
{
    return key.width() >= smallest && key.height() >= smallest;
}

/// As near to the cell as may be without touching it. No arrangement: there is no room.
Choice chooseBesideCell(const QVector<Arrangement>& all, const KeyboardPlace& place, const Measure& measure)
{
    Choice choice;
    const QRect cell = place.cell & place.area;
    const QPoint middle = cell.isEmpty() ? place.area.center() : cell.center();
    for (const Arrangement& arrangement : all) {
        for (const QRect& region : freeRegions(place, measure)) {
            const QSize key = measure.keySize(arrangement, region.size());
            if (!isLargeEnough(key, measure.px(FINGER_MILLIMETRES)))
                continue;
            choice.arrangement = &arrangement;
            choice.key = key;
            choice.frame = placed(measure.frameSize(arrangement, key), region, middle);
            return choice;
        }
    }
    return choice;
}

/// In the corner where least of the cell is covered. No arrangement: the area is too small.
Choice chooseOverCell(const QVector<Arrangement>& all, const KeyboardPlace& place, const Measure& measure)
{
    Choice choice;
    int leastCovered = 0;
    const QRect& area = place.area;
    for (const Arrangement& arrangement : all) {
        const QSize key(measure.px(FINGER_MILLIMETRES), measure.px(FINGER_MILLIMETRES));
        const QSize size = measure.frameSize(arrangement, key);
        if (size.width() > area.width() || size.height() > area.height())
            continue;
        for (const QPoint& corner : {area.bottomLeft(), area.bottomRight(), area.topLeft(), area.topRight()}) {
            const QRect frame = placed(size, area, corner);
            const QRect shared = frame & place.cell;
            const int covered = shared.width() * shared.height();
            if (!choice.arrangement || covered < leastCovered) {
                choice = Choice{&arrangement, key, frame};
                leastCovered = covered;
            }
        }
    }
    return choice;
}

/// Everything made smaller until it fits. `measure` becomes the smaller one.
Choice chooseSmaller(const QVector<Arrangement>& all, const KeyboardPlace& place, Measure& measure)
{
    Choice choice;
    double largest = 0;
    const double unit = measure.unit;
    for (const Arrangement& arrangement : all) {
        const QSize finger(measure.px(FINGER_MILLIMETRES), measure.px(FINGER_MILLIMETRES));
        const QSize wanted = Measure{unit}.frameSize(arrangement, finger);
        const double factor =
            std::min(place.area.width() / double(wanted.width()), place.area.height() / double(wanted.height()));
        if (!choice.arrangement || factor > largest) {
            choice.arrangement = &arrangement;
            largest = factor;
        }
    }
    measure.unit = unit * largest;
    choice.key = measure.keySize(*choice.arrangement, place.area.size()).expandedTo(QSize(1, 1));
    const QSize size = measure.frameSize(*choice.arrangement, choice.key).boundedTo(place.area.size());
    choice.frame = placed(size, place.area, place.area.center());
    return choice;
}

// --- from the choice to the rectangles ---------------------------------------------------------------------------

void placeStack(KeyboardLayout& layout, const QRect& header, const Measure& measure)
{
    const int line = measure.px(LINE);
    const int gap = measure.px(GAP);
    layout.subject = QRect(header.x(), header.y(), header.width(), line);
    layout.entry = QRect(header.x(), layout.subject.bottom() + 1 + gap, header.width(), measure.px(ENTRY_HEIGHT));
    layout.info = QRect(header.x(), layout.entry.bottom() + 1 + gap, header.width(), 2 * line);
    layout.message = QRect(QPoint(header.x(), layout.info.bottom() + 1 + gap), header.bottomRight());
}

void placeWide(KeyboardLayout& layout, const QRect& header, const Measure& measure)
{
    const int line = measure.px(LINE);
    const int gap = measure.px(GAP);
    const int half = header.width() / 2;
    layout.subject = QRect(header.x(), header.y(), half - gap, line);
    layout.info = QRect(header.x() + half, header.y(), header.width() - half, line);
    layout.entry = QRect(header.x(), header.y() + line + gap, header.width(), measure.px(ENTRY_HEIGHT));
    layout.message = QRect(header.x(), layout.entry.bottom() + 1 + gap, header.width(), line);
}

void placeStrip(KeyboardLayout& layout, const QRect& header, const Measure& measure)
{
    const int line = measure.px(LINE);
    const int half = header.width() / 2;
    layout.entry = QRect(header.x(), header.y(), half - measure.px(GAP), header.height());
    layout.subject = QRect(header.x() + half, header.y(), header.width() - half, line);
    layout.info = QRect(header.x() + half, header.y() + line, header.width() - half, line);
    layout.message = layout.info;
}

/// Places subject, entry, info and message; returns where the keys begin.
QPoint placeHeader(KeyboardLayout& layout, const Choice& choice, const Measure& measure)
{
    const int padding = measure.px(PADDING);
    const int gap = measure.px(GAP);
    const QRect inside = layout.frame.adjusted(padding, padding, -padding, -padding);
    const QSize taken = measure.headerSize(choice.arrangement->header);
    if (choice.arrangement->header == Header::Beside) {
        placeStack(layout, QRect(inside.x(), inside.y(), taken.width() - 2 * gap, inside.height()), measure);
        return QPoint(inside.x() + taken.width(), inside.y());
    }
    const QRect header(inside.x(), inside.y(), inside.width(), taken.height() - gap);
    if (choice.arrangement->header == Header::Stacked)
        placeStack(layout, header, measure);
    else if (choice.arrangement->header == Header::Wide)
        placeWide(layout, header, measure);
    else
        placeStrip(layout, header, measure);
    return QPoint(inside.x(), inside.y() + taken.height());
}

/// "NAME:2x3" as its name and its size in keys.
QString nameAndSize(const QString& token, QSize& size)
{
    size = QSize(1, 1);
    const int colon = token.indexOf(QLatin1Char(':'), 1);
    if (colon < 0)
        return token;
    const QStringList numbers = token.mid(colon + 1).split(QLatin1Char('x'));
    size = QSize(numbers.first().toInt(), numbers.size() > 1 ? numbers.last().toInt() : 1);
    return token.left(colon);
}

QVector<KeyboardKey> placeKeys(const QStringList& rows, const QPoint& origin, const QSize& key, int gap)
{
    QVector<KeyboardKey> keys;
    for (int row = 0; row < rows.size(); ++row) {
        int column = 0;
        for (const QString& token : rows.at(row).split(QLatin1Char(' '))) {
            QSize size;
            const QString name = nameAndSize(token, size);
            const QRect rect(origin.x() + column * (key.width() + gap), origin.y() + row * (key.height() + gap),
                             size.width() * (key.width() + gap) - gap, size.height() * (key.height() + gap) - gap);
            if (name != QLatin1String("."))
                keys.append({actionOf(name), characterOf(name), rect});
            column += size.width();
        }
    }
    return keys;
}

} // namespace

bool KeyboardLayout::keysAreTooSmall() const
{
    return keyMillimetres < FINGER_MILLIMETRES;
}

const KeyboardKey* KeyboardLayout::keyAt(int page, const QPoint& point) const
{
    for (const KeyboardKey& key : pages.at(page)) {
        if (key.rect.contains(point))
            return &key;
    }
    return nullptr;
}

KeyboardLayout layOutKeyboard(KeyboardForm form, const KeyboardPlace& place)
{
    const QVector<Arrangement> all = arrangements(form);
    const double unit = pixelsPerMillimetre(place.dpi);
    Measure measure{unit};
    Choice choice = chooseBesideCell(all, place, measure);
    if (!choice.arrangement)
        choice = chooseOverCell(all, place, measure);
    if (!choice.arrangement)
        choice = chooseSmaller(all, place, measure);

    KeyboardLayout layout;
    layout.frame = choice.frame;
    const QPoint origin = placeHeader(layout, choice, measure);
    for (const QStringList& rows : choice.arrangement->pages)
        layout.pages.append(placeKeys(rows, origin, choice.key, measure.px(GAP)));
    layout.messageIsInfo = layout.message == layout.info;
    layout.coversCell = layout.frame.intersects(place.cell);
    layout.keyMillimetres = std::min(choice.key.width(), choice.key.height()) / unit;
    layout.textPixels = std::max(1, static_cast<int>(TEXT_HEIGHT * measure.unit));
    layout.entryPixels = std::max(1, static_cast<int>(ENTRY_TEXT_HEIGHT * measure.unit));
    return layout;
}
