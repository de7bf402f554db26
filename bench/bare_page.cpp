#include "bare_page.h"

#include <QObject>
#include <QPainter>

namespace {

const int CENTERED = Qt::AlignHCenter | Qt::AlignVCenter;
const int NUMBER_WIDTH = 50;
const int BAR = 30;
const int BUTTON_BAR = 40;
const int TRACK_GAP = 3;

const QColor BAR_COLOR(152, 140, 152);
const QColor THUMB_COLOR(240, 240, 240);
const QColor BUTTON_COLOR(173, 216, 230);
const QColor TITLE_COLOR(210, 220, 230);
const QColor ODD_COLOR(255, 255, 255);
const QColor EVEN_COLOR(235, 240, 245);
const QColor LINE_COLOR(150, 150, 150);

/// Length of a thumb at the start of its track.
double thumbLength(double track, int page, int total)
{
    return page >= total ? track : qMax(10.0, track * page / total);
}

QPolygonF triangle(const QPointF& apex, const QPointF& base1, const QPointF& base2)
{
    QPolygonF polygon;
    polygon << apex << base1 << base2;
    return polygon;
}

} // namespace

BarePage::BarePage(const PageShape& page, const GroupSize& size, RecipeSheetItems& item)
    : m_page(page),
      m_data(NUMBER_WIDTH + page.nameWidth, page.titleHeight, page.width - BAR - NUMBER_WIDTH - page.nameWidth,
             page.height - page.titleHeight - BAR - BUTTON_BAR),
      m_cellWidth(m_data.width() / page.columns), m_cellHeight(m_data.height() / page.rows),
      m_font(QString::fromLatin1("DejaVu Sans"))
{
    m_font.setPixelSize(page.fontPixels);
    addBackground();
    addTitles(item);
    addCells(item);
    addScrollBars();
    addThumbs(size);
    addLines();
    addButtons();
}

void BarePage::addBackground()
{
    m_background.push_back({QRectF(m_data.x(), 0, m_data.width(), m_page.titleHeight), TITLE_COLOR});
    m_background.push_back({QRectF(NUMBER_WIDTH, 0, m_page.nameWidth, m_page.titleHeight), TITLE_COLOR});
    m_background.push_back({QRectF(0, 0, NUMBER_WIDTH, m_page.titleHeight), TITLE_COLOR});
    for (int r = 0; r < m_page.rows; ++r)
        m_background.push_back({QRectF(0, m_data.y() + r * m_cellHeight, m_page.width - BAR, m_cellHeight),
                                r % 2 == 0 ? ODD_COLOR : EVEN_COLOR});
}

void BarePage::addTitles(RecipeSheetItems& item)
{
    for (int c = 0; c < m_page.columns; ++c)
        m_titles.push_back(
            {QRectF(m_data.x() + c * m_cellWidth, 0, m_cellWidth, m_page.titleHeight), item.getColumnName(c)});
    m_titles.push_back({QRectF(0, 0, NUMBER_WIDTH, m_page.titleHeight), QObject::tr("Number")});
    m_titles.push_back({QRectF(NUMBER_WIDTH, 0, m_page.nameWidth, m_page.titleHeight), QObject::tr("Name")});
}

void BarePage::addCells(RecipeSheetItems& item)
{
    for (int r = 0; r < m_page.rows; ++r) {
        const double y = m_data.y() + r * m_cellHeight;
        m_cells.push_back({QRectF(0, y, NUMBER_WIDTH, m_cellHeight), QString::number(r)});
        m_cells.push_back({QRectF(NUMBER_WIDTH, y, m_page.nameWidth, m_cellHeight), item.getRowName(r)});
    }
    for (int c = 0; c < m_page.columns; ++c) {
        for (int r = 0; r < m_page.rows; ++r)
            m_cells.push_back(
                {QRectF(m_data.x() + c * m_cellWidth, m_data.y() + r * m_cellHeight, m_cellWidth, m_cellHeight),
                 item.getDataFromBlocks(r, c)});
    }
}

void BarePage::addScrollBars()
{
    const double right = m_data.right();
    const double bottom = m_data.bottom();
    const QRectF up(right, 0, BAR, BAR);
    const QRectF down(right, bottom - BAR, BAR, BAR);
    const QRectF left(0, bottom, BAR, BAR);
    const QRectF rightArrow(right - BAR, bottom, BAR, BAR);
    for (const QRectF& rect : {QRectF(0, bottom, right, BAR), QRectF(right, 0, BAR, bottom),
                               QRectF(right, bottom, BAR, BAR), left, rightArrow, up, down})
        m_bars.push_back({rect, BAR_COLOR});

    QRectF box = up.adjusted(5, 5, -5, -5);
    m_triangles.push_back(triangle(QPointF(box.center().x(), box.top()), box.bottomLeft(), box.bottomRight()));
    box = down.adjusted(5, 5, -5, -5);
    m_triangles.push_back(triangle(QPointF(box.center().x(), box.bottom()), box.topLeft(), box.topRight()));
    box = left.adjusted(5, 5, -5, -5);
    m_triangles.push_back(triangle(QPointF(box.left(), box.center().y()), box.topRight(), box.bottomRight()));
    box = rightArrow.adjusted(5, 5, -5, -5);
    m_triangles.push_back(triangle(QPointF(box.right(), box.center().y()), box.topLeft(), box.bottomLeft()));
}

void BarePage::addThumbs(const GroupSize& size)
{
    const double start = BAR + TRACK_GAP;
    const double right = m_data.right();
    const double bottom = m_data.bottom();
    const double height = thumbLength(bottom - 2 * start, m_page.rows, size.items);
    const double width = thumbLength(right - 2 * start, m_page.columns, size.recipes);
    m_thumbs.push_back({QRectF(right + 5, start, BAR - 10, height), THUMB_COLOR});
    m_thumbs.push_back({QRectF(start, bottom + 5, width, BAR - 10), THUMB_COLOR});
}

void BarePage::addLines()
{
    const double bottom = m_data.bottom();
    for (int c = 1; c < m_page.columns; ++c)
        m_lines.push_back(QLineF(m_data.x() + c * m_cellWidth, 0, m_data.x() + c * m_cellWidth, bottom));
    m_lines.push_back(QLineF(NUMBER_WIDTH, 0, NUMBER_WIDTH, bottom));
    m_lines.push_back(QLineF(m_data.x(), 0, m_data.x(), bottom));
    for (int r = 1; r < m_page.rows; ++r)
        m_lines.push_back(QLineF(0, m_data.y() + r * m_cellHeight, m_data.right(), m_data.y() + r * m_cellHeight));
    m_lines.push_back(QLineF(0, m_data.y(), m_data.right(), m_data.y()));
}

void BarePage::addButtons()
{
    const char* const names[] = {"Save", "Add", "Delete"};
    for (int i = 0; i < 3; ++i) {
        const QRectF rect(5 + 100 * i, m_data.bottom() + BAR + 5, 80, 30);
        m_buttons.push_back({rect, BUTTON_COLOR});
        m_buttonTexts.push_back({rect, QObject::tr(names[i])});
    }
}

void BarePage::drawFills(QPainter& painter, const std::vector<Fill>& fills)
{
    for (const Fill& fill : fills) {
        painter.setBrush(QBrush(fill.color));
        painter.drawRect(fill.rect);
    }
}

void BarePage::drawTexts(QPainter& painter, const std::vector<Text>& texts)
{
    for (const Text& text : texts)
        painter.drawText(text.rect, CENTERED, text.text);
}

void BarePage::paint(QImage& screen) const
{
    QPainter painter(&screen);
    painter.setPen(Qt::NoPen);
    drawFills(painter, m_background);
    painter.setFont(m_font);
    painter.setPen(Qt::black);
    drawTexts(painter, m_titles);
    drawTexts(painter, m_cells);
    painter.setPen(Qt::NoPen);
    drawFills(painter, m_bars);
    painter.setPen(QPen(QBrush(Qt::black), 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(QBrush(Qt::black));
    for (const QPolygonF& polygon : m_triangles)
        painter.drawPolygon(polygon);
    painter.setPen(Qt::NoPen);
    drawFills(painter, m_thumbs);
    painter.setPen(QPen(LINE_COLOR, 1));
    for (const QLineF& line : m_lines)
        painter.drawLine(line);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, 0, m_page.width, m_page.height));
    drawFills(painter, m_buttons);
    drawTexts(painter, m_buttonTexts);
}
