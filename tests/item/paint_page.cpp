#include "paint_page.h"

#include <QPainter>

namespace {

const double NUMBER_WIDTH = 50;
const double BAR = 30;     // thickness of both scroll bars, length of their arrow buttons
const double GAP = 3;      // between an arrow button and its track
const double BUTTONS = 40; // height of the button bar

QPen solid(const QColor& color)
{
    return QPen(color);
}

} // namespace

ExpectedPage::ExpectedPage(const SheetProperties& properties, const SheetGroup& group)
    : saveColor(173, 216, 230), addColor(saveColor), deleteColor(saveColor), leftColor(152, 140, 152),
      rightColor(leftColor), upColor(leftColor), downColor(leftColor), verticalThumbColor(240, 240, 240),
      horizontalThumbColor(verticalThumbColor), m_properties(properties), m_group(group)
{
    frame = QRectF(0, 0, number("width", 0), number("height", 0));
    cellText = [group](int item, int recipe) {
        return item < group.items && recipe < group.recipes ? group.storedValue(item, recipe) : QString();
    };
}

int ExpectedPage::number(const char* key, int fallback) const
{
    return m_properties.item.value(QLatin1String(key), fallback).toInt();
}

QColor ExpectedPage::color(const char* key) const
{
    return m_properties.item.value(QLatin1String(key), QColor(Qt::black)).value<QColor>();
}

QFont ExpectedPage::font(const char* which) const
{
    const QMap<QString, QVariant> language = m_properties.languages.value(1);
    QFont result(language.value(QLatin1String(which) + QLatin1String("_font_family")).toString());
    result.setPixelSize(language.value(QLatin1String(which) + QLatin1String("_text_pixelSize")).toInt());
    return result;
}

QColor ExpectedPage::textColor(const char* which) const
{
    return m_properties.languages.value(1).value(QLatin1String(which) + QLatin1String("_text_color")).value<QColor>();
}

QPen ExpectedPage::linePen(const char* kind, const QColor& penColor) const
{
    const QByteArray name(kind);
    QPen pen(penColor);
    pen.setWidth(number((name + "LineWidth").constData(), 0));
    pen.setStyle(static_cast<Qt::PenStyle>(number((name + "LineShape").constData(), 1)));
    return pen;
}

QString ExpectedPage::columnTitle(int visibleColumn) const
{
    const int recipe = firstColumn + visibleColumn;
    const bool exists = recipe >= 0 && recipe < m_group.recipes;
    return exists ? m_group.recipeTitle(recipe) : QStringLiteral("Col%1").arg(recipe);
}

QString ExpectedPage::rowTitle(int visibleRow) const
{
    const int item = firstRow + visibleRow;
    return item < m_group.items ? m_group.itemTitle(item) : QStringLiteral("Row%1").arg(item);
}

QString ExpectedPage::shownText(int visibleColumn, int visibleRow) const
{
    return cellText(firstRow + visibleRow, firstColumn + visibleColumn);
}

// --- geometry ----------------------------------------------------------------------------------------------------

QRectF ExpectedPage::dataArea() const
{
    return QRectF(frame.x() + NUMBER_WIDTH + nameWidth(), frame.y() + titleHeight(),
                  frame.width() - BAR - NUMBER_WIDTH - nameWidth(), frame.height() - titleHeight() - BAR - BUTTONS);
}

QRectF ExpectedPage::cell(int column, int row) const
{
    const QRectF area = dataArea();
    const double width = area.width() / columns();
    const double height = area.height() / rows();
    return QRectF(area.x() + column * width, area.y() + row * height, width, height);
}

QRectF ExpectedPage::titleCell(int column) const
{
    return QRectF(cell(column, 0).x(), frame.y(), cell(column, 0).width(), titleHeight());
}

QRectF ExpectedPage::verticalTrack() const
{
    return QRectF(dataArea().right(), frame.y() + BAR + GAP, BAR, frame.height() - BAR - BUTTONS - 2 * (BAR + GAP));
}

QRectF ExpectedPage::horizontalTrack() const
{
    return QRectF(frame.x() + BAR + GAP, dataArea().bottom(), frame.width() - BAR - 2 * (BAR + GAP), BAR);
}

QRectF ExpectedPage::verticalThumb() const
{
    const QRectF track = verticalTrack();
    const double ratio = double(rows()) / m_group.items;
    if (m_group.items == 0 || ratio >= 1)
        return QRectF(track.x() + 5, track.y(), track.width() - 10, track.height());
    return QRectF(track.x() + 5, track.y() + double(firstRow) / m_group.items * track.height(), track.width() - 10,
                  qMax(10.0, ratio * track.height()));
}

QRectF ExpectedPage::horizontalThumb() const
{
    const QRectF track = horizontalTrack();
    const double ratio = double(columns()) / m_group.recipes;
    if (m_group.recipes == 0 || ratio >= 1)
        return QRectF(track.x(), track.y() + 5, track.width(), track.height() - 10);
    return QRectF(track.x() + double(firstColumn) / m_group.recipes * track.width(), track.y() + 5,
                  qMax(10.0, ratio * track.width()), track.height() - 10);
}

// --- the steps ---------------------------------------------------------------------------------------------------

QList<PaintCall> ExpectedPage::titleBackground() const
{
    const QColor background = color("title_background_color");
    return {PaintCall::filled(QRectF(dataArea().x(), frame.y(), dataArea().width(), titleHeight()), background),
            PaintCall::filled(QRectF(frame.x() + NUMBER_WIDTH, frame.y(), nameWidth(), titleHeight()), background),
            PaintCall::filled(QRectF(frame.x(), frame.y(), NUMBER_WIDTH, titleHeight()), background)};
}

QList<PaintCall> ExpectedPage::tableBackground() const
{
    const QRectF area = dataArea();
    QList<PaintCall> calls;
    if (number("use_diff_color", 0) != 0) {
        for (int i = 0; i < rows(); ++i)
            calls << PaintCall::filled(QRectF(frame.x(), cell(0, i).y(), frame.width() - BAR, cell(0, i).height()),
                                       color(i % 2 == 0 ? "odd_color" : "even_color"));
        return calls;
    }
    const QColor background = color("frame_background_color");
    calls << PaintCall::filled(area, background);
    calls << PaintCall::filled(QRectF(frame.x(), area.y(), NUMBER_WIDTH, area.height()), background);
    calls << PaintCall::filled(QRectF(frame.x() + NUMBER_WIDTH, area.y(), nameWidth(), area.height()), background);
    return calls;
}

QList<PaintCall> ExpectedPage::columnTitles() const
{
    QList<PaintCall> calls;
    const auto add = [&](const QRectF& rect, const QString& text) {
        calls << PaintCall::centred(rect, text, textColor("title"), font("title"));
    };
    for (int c = 0; c < visibleColumns(); ++c)
        add(titleCell(c), columnTitle(c));
    add(QRectF(frame.x(), frame.y(), NUMBER_WIDTH, titleHeight()), QStringLiteral("Number"));
    add(QRectF(frame.x() + NUMBER_WIDTH, frame.y(), nameWidth(), titleHeight()), QStringLiteral("Name"));
    return calls;
}

QList<PaintCall> ExpectedPage::rowLabels() const
{
    QList<PaintCall> calls;
    const auto add = [&](const QRectF& rect, const QString& text) {
        calls << PaintCall::centred(rect, text, textColor("table"), font("table"));
    };
    for (int r = 0; r < visibleRows(); ++r) {
        const QRectF first = cell(0, r);
        add(QRectF(frame.x(), first.y(), NUMBER_WIDTH, first.height()), QString::number(firstRow + r));
        add(QRectF(frame.x() + NUMBER_WIDTH, first.y(), nameWidth(), first.height()), rowTitle(r));
    }
    return calls;
}

QList<PaintCall> ExpectedPage::cellTexts() const
{
    QList<PaintCall> calls;
    for (int c = 0; c < visibleColumns(); ++c) {
        for (int r = 0; r < visibleRows(); ++r) {
            if (!shownText(c, r).isEmpty())
                calls << PaintCall::centred(cell(c, r), shownText(c, r), textColor("table"), font("table"));
        }
    }
    return calls;
}

QList<PaintCall> ExpectedPage::selection() const
{
    QList<PaintCall> calls;
    const int c = selectedColumn;
    if (c >= visibleColumns())
        return calls;
    for (int r = 0; c >= 0 && r < visibleRows(); ++r) {
        calls << PaintCall::filled(cell(c, r), color("selected_row_color"));
        if (!shownText(c, r).isEmpty())
            calls << PaintCall::centred(cell(c, r), shownText(c, r), textColor("table"), font("table"));
    }
    return calls + selectedCell();
}

QList<PaintCall> ExpectedPage::selectedCell() const
{
    const int c = selectedColumn;
    const int r = selectedRow;
    const bool isTitle = r == -1;
    if (!isTitle && (c < 0 || r < 0 || r >= visibleRows()))
        return QList<PaintCall>();
    const QRectF rect = isTitle ? titleCell(c) : cell(c, r);
    const QString text = isTitle ? columnTitle(c) : shownText(c, r);
    QList<PaintCall> calls;
    calls << PaintCall::filled(rect, color("selected_cell_color"));
    if (!text.isEmpty())
        calls << PaintCall::centred(rect, text, textColor("table"), font("table"));
    return calls;
}

QList<PaintCall> ExpectedPage::scrollBars() const
{
    const double x = frame.x();
    const double barY = dataArea().bottom();
    const double barX = dataArea().right();
    const QRectF right(horizontalTrack().right() + GAP, barY, BAR, BAR);
    const QRectF down(barX, verticalTrack().bottom() + GAP, BAR, BAR);
    const QColor bar(152, 140, 152);
    QList<PaintCall> calls;
    calls << PaintCall::filled(QRectF(x, barY, frame.width() - BAR, BAR), bar);
    calls << PaintCall::filled(QRectF(barX, frame.y(), BAR, frame.height() - BAR - BUTTONS), bar);
    calls << PaintCall::filled(QRectF(right.right(), down.bottom(), BAR, BAR), bar);
    calls << PaintCall::filled(QRectF(x, barY, BAR, BAR), leftColor);
    calls << PaintCall::filled(right, rightColor);
    calls << PaintCall::filled(QRectF(barX, frame.y(), BAR, BAR), upColor);
    calls << PaintCall::filled(down, downColor);

    const QPen pen(QBrush(Qt::black), 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    const auto triangle = [&](const QRectF& button, QPointF apex, QPointF base1, QPointF base2) {
        const QPointF at = button.topLeft();
        calls << PaintCall::polygon({at + apex, at + base1, at + base2}, pen, QBrush(Qt::black));
    };
    triangle(QRectF(barX, frame.y(), BAR, BAR), {15, 5}, {5, 25}, {25, 25});
    triangle(down, {15, 25}, {5, 5}, {25, 5});
    triangle(QRectF(x, barY, BAR, BAR), {5, 15}, {25, 5}, {25, 25});
    triangle(right, {25, 15}, {5, 5}, {5, 25});
    return calls;
}

QList<PaintCall> ExpectedPage::thumbs() const
{
    return {PaintCall::filled(verticalThumb(), verticalThumbColor),
            PaintCall::filled(horizontalThumb(), horizontalThumbColor)};
}

QList<PaintCall> ExpectedPage::innerLines() const
{
    const QPen pen = linePen("inside", color("inside_line_color"));
    const QRectF area = dataArea();
    QList<PaintCall> calls;
    const auto vertical = [&](double x) {
        calls << PaintCall::line(QPointF(x, frame.y()), QPointF(x, area.bottom()), pen);
    };
    const auto horizontal = [&](double y) {
        calls << PaintCall::line(QPointF(frame.x(), y), QPointF(area.right(), y), pen);
    };
    if (number("column_line_display", 0) != 0) {
        for (int k = 1; k < columns(); ++k)
            vertical(cell(k, 0).x());
        vertical(frame.x() + NUMBER_WIDTH);
        vertical(frame.x() + NUMBER_WIDTH + nameWidth());
    }
    if (number("row_line_display", 0) != 0) {
        for (int k = 1; k < rows(); ++k)
            horizontal(cell(0, k).y());
        horizontal(frame.y() + titleHeight());
    }
    return calls;
}

QList<PaintCall> ExpectedPage::outline() const
{
    return {PaintCall::outlined(frame, linePen("frame", color("frame_line_color")), QBrush(Qt::NoBrush))};
}

QList<PaintCall> ExpectedPage::buttons() const
{
    const double y = dataArea().bottom() + BAR + 5;
    const auto button = [&](double offset) { return QRectF(frame.x() + offset, y, 80, 30); };
    QList<PaintCall> calls;
    const auto face = [&](double offset, const QColor& faceColor) {
        calls << PaintCall::outlined(button(offset), solid(Qt::black), QBrush(faceColor));
    };
    const auto caption = [&](double offset, const QString& text) {
        calls << PaintCall::centred(button(offset), text, Qt::black, font("table"));
    };
    face(5, saveColor);
    caption(5, QStringLiteral("Save"));
    if (number("use_add_del", 0) != 0) {
        face(105, addColor);
        face(205, deleteColor);
        caption(105, QStringLiteral("Add"));
        caption(205, QStringLiteral("Delete"));
    }
    return calls;
}

QStringList ExpectedPage::all() const
{
    return lines(titleBackground() + tableBackground() + columnTitles() + rowLabels() + cellTexts() + selection()
                 + scrollBars() + thumbs() + innerLines() + outline() + buttons());
}

// --- what is drawn -----------------------------------------------------------------------------------------------

QList<PaintCall> paintedCalls(RecipeSheetItems& sheet)
{
    RecordingDevice device(sheet.boundingRect().size().toSize());
    QPainter painter(&device);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
    painter.end();
    return device.calls();
}

QStringList painted(RecipeSheetItems& sheet)
{
    return lines(paintedCalls(sheet));
}

testing::AssertionResult sameLines(const QStringList& seen, const QStringList& wanted)
{
    int at = 0;
    while (at < seen.size() && at < wanted.size() && seen.at(at) == wanted.at(at))
        ++at;
    if (at == seen.size() && at == wanted.size())
        return testing::AssertionSuccess();
    testing::AssertionResult result = testing::AssertionFailure();
    result << "drawing " << at << " differs (" << seen.size() << " drawn, " << wanted.size() << " wanted)\n";
    const int context = 3;
    for (int i = qMax(0, at - context); i < at; ++i)
        result << "         " << seen.at(i).toStdString() << '\n';
    for (int i = at; i < qMin(at + context, wanted.size()); ++i)
        result << "wanted:  " << wanted.at(i).toStdString() << '\n';
    for (int i = at; i < qMin(at + context, seen.size()); ++i)
        result << "drawn:   " << seen.at(i).toStdString() << '\n';
    return result;
}
