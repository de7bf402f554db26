// A sheet on the desk runtime, for the benches.
#ifndef BENCH_SHEET_H
#define BENCH_SHEET_H

#include "RecipeSheetItems.h"
#include "object_tree.h"

#include <QImage>
#include <QPointF>

#include <memory>

/// What a page looks like, in pixels.
struct PageShape
{
    int width;
    int height;
    int rows;
    int columns;
    int titleHeight;
    int nameWidth;
    int fontPixels;
};

const PageShape PAGE_SMALL = {800, 480, 10, 5, 40, 150, 16};
const PageShape PAGE_DENSE = {1280, 800, 100, 50, 20, 100, 6};

/// The property object of a sheet, as a project has it.
std::unique_ptr<object> makeProperties(const PageShape& page, int group);

/// A picture of the page's size in the format of a panel's screen.
QImage makeScreen(const PageShape& page);

class Sheet
{
public:
    /// Creates the item and configures it; it has drawn nothing yet. The recipe file of the panel is opened.
    Sheet(const PageShape& page, int group);
    /// The same with a property object that is there already, not owned.
    Sheet(const PageShape& page, object* properties);
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet();

    RecipeSheetItems& item() { return *m_item; }
    void paint(QImage& screen);

    // The operator's finger, in item coordinates.
    void press(const QPointF& position);
    void move(const QPointF& position);
    void release(const QPointF& position);
    void tap(const QPointF& position);

    QPointF cell(int row, int column) const;
    QPointF leftArrow() const;
    QPointF rightArrow() const;
    QPointF thumb() const; ///< of the horizontal scroll bar, while nothing is scrolled

private:
    const PageShape m_page;
    std::unique_ptr<object> m_owned;
    object* m_properties;
    std::unique_ptr<RecipeSheetItems> m_item;
};

/// Opens a project in the desk runtime, without which items open no file.
void openProject();
/// Deals with everything that has been posted.
void settle();

#endif
