#include "sheet.h"

#include "runtime.h"

#include <QCoreApplication>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

const int NUMBER_WIDTH = 50;
const int BAR = 30; // thickness of both scroll bars, length of an arrow
const int BUTTON_BAR = 40;

void send(RecipeSheetItems& item, QEvent::Type type, const QPointF& position,
          void (RecipeSheetItems::*handler)(QGraphicsSceneMouseEvent*))
{
    QGraphicsSceneMouseEvent event(type);
    event.setPos(position);
    event.setButton(Qt::LeftButton);
    (item.*handler)(&event);
}

} // namespace

std::unique_ptr<object> makeProperties(const PageShape& page, int group)
{
    auto properties = std::make_unique<object>(QString::fromLatin1("RecipeSheet"));
    const auto set = [&properties](const char* key, const QVariant& value) {
        properties->properties.insert(QString::fromLatin1(key), value);
    };
    set("width", page.width);
    set("height", page.height);
    set("rows_num_page", page.rows);
    set("column_num_page", page.columns);
    set("title_hight", page.titleHeight);
    set("name_width", page.nameWidth);
    set("Recipe_Group_idx", group);
    set("column_line_display", 1);
    set("row_line_display", 1);
    set("frameLineWidth", 1);
    set("insideLineWidth", 1);
    set("use_add_del", 1);
    set("use_diff_color", 1);
    set("odd_color", QColor(255, 255, 255));
    set("even_color", QColor(235, 240, 245));
    set("title_background_color", QColor(210, 220, 230));
    set("inside_line_color", QColor(150, 150, 150));
    set("selected_row_color", QColor(255, 240, 200));
    set("selected_cell_color", QColor(255, 210, 120));
    object* language = properties->addChild(new object(QString::fromLatin1("Language1")));
    for (const char* key : {"title_font_family", "table_font_family"})
        language->properties.insert(QString::fromLatin1(key), QString::fromLatin1("DejaVu Sans"));
    for (const char* key : {"title_text_pixelSize", "table_text_pixelSize"})
        language->properties.insert(QString::fromLatin1(key), page.fontPixels);
    return properties;
}

QImage makeScreen(const PageShape& page)
{
    QImage screen(page.width, page.height, QImage::Format_RGB32);
    screen.fill(Qt::white);
    return screen;
}

Sheet::Sheet(const PageShape& page, int group) : Sheet(page, makeProperties(page, group).release())
{
    m_owned.reset(m_properties);
}

Sheet::Sheet(const PageShape& page, object* properties) : m_page(page), m_properties(properties), m_item(createItem())
{
    Runtime::place(m_item.get(), m_properties);
    Runtime::instance().start(m_item.get());
}

Sheet::~Sheet() = default;

void Sheet::paint(QImage& screen)
{
    QPainter painter(&screen);
    m_item->HMIpaint(m_properties, QString(), &painter, false);
}

void Sheet::press(const QPointF& position)
{
    send(*m_item, QEvent::GraphicsSceneMousePress, position, &RecipeSheetItems::mousePressEvent);
}

void Sheet::move(const QPointF& position)
{
    send(*m_item, QEvent::GraphicsSceneMouseMove, position, &RecipeSheetItems::mouseMoveEvent);
}

void Sheet::release(const QPointF& position)
{
    send(*m_item, QEvent::GraphicsSceneMouseRelease, position, &RecipeSheetItems::mouseReleaseEvent);
}

void Sheet::tap(const QPointF& position)
{
    press(position);
    release(position);
}

QPointF Sheet::cell(int row, int column) const
{
    const double left = NUMBER_WIDTH + m_page.nameWidth;
    const double width = (m_page.width - BAR - left) / m_page.columns;
    const double height = double(m_page.height - m_page.titleHeight - BAR - BUTTON_BAR) / m_page.rows;
    return QPointF(left + (column + 0.5) * width, m_page.titleHeight + (row + 0.5) * height);
}

QPointF Sheet::leftArrow() const
{
    return QPointF(BAR / 2.0, m_page.height - BUTTON_BAR - BAR / 2.0);
}

QPointF Sheet::rightArrow() const
{
    return QPointF(m_page.width - 1.5 * BAR, m_page.height - BUTTON_BAR - BAR / 2.0);
}

QPointF Sheet::thumb() const
{
    return QPointF(BAR + 4, m_page.height - BUTTON_BAR - BAR / 2.0);
}

void openProject()
{
    Runtime::instance().setProject(new object(QString::fromLatin1("bench")));
}

void settle()
{
    while (!Runtime::instance().isIdle())
        QCoreApplication::processEvents();
}
