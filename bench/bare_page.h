// A bare loop that draws what a page of the sheet shows: the limit that drawing is measured against.
#ifndef BENCH_BARE_PAGE_H
#define BENCH_BARE_PAGE_H

#include "groups.h"
#include "sheet.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <vector>

class QPainter;

/// Rectangles, lines and texts of the first page of a group as plain lists. The picture is the sheet's, pixel by pixel;
/// the benches make sure of that before they measure.
class BarePage
{
public:
    /// Texts come from the item.
    BarePage(const PageShape& page, const GroupSize& size, RecipeSheetItems& item);

    void paint(QImage& screen) const;

private:
    struct Fill
    {
        QRectF rect;
        QColor color;
    };
    struct Text
    {
        QRectF rect;
        QString text;
    };

    void addBackground();
    void addTitles(RecipeSheetItems& item);
    void addCells(RecipeSheetItems& item);
    void addScrollBars();
    void addThumbs(const GroupSize& size);
    void addLines();
    void addButtons();
    static void drawFills(QPainter& painter, const std::vector<Fill>& fills);
    static void drawTexts(QPainter& painter, const std::vector<Text>& texts);

    PageShape m_page;
    QRectF m_data;
    double m_cellWidth;
    double m_cellHeight;
    QFont m_font;
    std::vector<Fill> m_background;
    std::vector<Text> m_titles;
    std::vector<Text> m_cells;
    std::vector<Fill> m_bars;
    std::vector<QPolygonF> m_triangles;
    std::vector<Fill> m_thumbs;
    std::vector<QLineF> m_lines;
    std::vector<Fill> m_buttons;
    std::vector<Text> m_buttonTexts;
};

#endif
