// Draws every widget of the panel as it looks on small and large panels, in every language:
//     widget_pictures DIRECTORY
#include "confirm_box_look.h"
#include "notices.h"
#include "on_screen_keyboard.h"
#include "register_view.h"
#include "touch_tick.h"
#include "translations.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPainter>
#include <QStyleFactory>
#include <QTest>

#include <cstdio>

namespace {

struct PanelKind
{
    const char* name;
    QSize size;
    double dpi;
};

const PanelKind PANELS[] = {{"800x480", QSize(800, 480), 133}, {"1280x800", QSize(1280, 800), 149}};

/// Something like a sheet: cells to be edited.
class Ground : public QWidget
{
public:
    explicit Ground(const QSize& size)
    {
        resize(size);
        show();
    }

    QRect cell(int column, int row) const { return QRect(150 + column * 110, row * 36, 110, 36); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        for (int column = 0; column * 110 < width(); ++column) {
            for (int row = 0; row * 36 < height(); ++row) {
                painter.setPen(Qt::gray);
                painter.drawRect(cell(column, row));
                painter.setPen(Qt::black);
                painter.drawText(cell(column, row), Qt::AlignCenter, QString::number(column * 100 + row));
            }
        }
    }
};

class Registers : public RegisterAccess
{
public:
    int word(const QString&, int address) const override { return address == 60803 ? m_recipe : 0; }
    bool force(const QString& type, int address, int value) override
    {
        m_recipe = value;
        Q_EMIT changed(type, address, value);
        return true;
    }

private:
    int m_recipe = 0;
};

class Pictures
{
public:
    Pictures(const QDir& directory, const PanelKind& panel, const QString& language)
        : m_directory(directory), m_panel(panel), m_language(language)
    {}

    void draw()
    {
        drawKeyboards();
        drawNotices();
        drawTick();
        drawBox();
        drawRegisters();
    }

private:
    void save(QWidget& widget, const char* name)
    {
        const QString file = QStringLiteral("%1_%2_%3.png")
                                 .arg(QString::fromLatin1(name), QString::fromLatin1(m_panel.name), m_language);
        widget.grab().save(m_directory.filePath(file));
    }

    OnScreenKeyboard::Request request(const Ground& ground, int column, int row) const
    {
        OnScreenKeyboard::Request result;
        result.area = QRect(QPoint(0, 0), m_panel.size);
        result.dpi = m_panel.dpi;
        result.cell = ground.cell(column, row);
        result.subject = QStringLiteral("Oven temperature \u2013 Rye bread");
        return result;
    }

    void drawKeyboards()
    {
        Ground ground(m_panel.size);
        OnScreenKeyboard::Request number = request(ground, 2, 4);
        number.parameters.currentText = QStringLiteral("212.50");
        number.parameters.minimum = QStringLiteral("80.00");
        number.parameters.maximum = QStringLiteral("280.00");
        number.parameters.decimalPlaces = 2;
        keyboard(ground, number, QStringLiteral("999"), "keyboard_number");
        number.cell = ground.cell(2, 1);
        number.area = QRect(0, 0, m_panel.size.width(), 350);
        keyboard(ground, number, QString(), "keyboard_number_low");

        OnScreenKeyboard::Request text = request(ground, 1, 0);
        text.parameters.textEntry = true;
        text.parameters.maximum = QStringLiteral("32");
        text.parameters.currentText = QStringLiteral("Rye bread");
        keyboard(ground, text, QString(), "keyboard_text");
        keyboard(ground, text, QString(40, QLatin1Char('x')), "keyboard_text_refused");
        keyboard(ground, text, QString(), "keyboard_signs", 1);
        keyboard(ground, text, QString(), "keyboard_accents", 2);
        text.cell = ground.cell(1, 4);
        keyboard(ground, text, QString(), "keyboard_text_middle");
        text.area = QRect(0, 0, 480, 272);
        text.cell = QRect();
        keyboard(ground, text, QString(), "keyboard_text_tiny");
    }

    void keyboard(Ground& ground, const OnScreenKeyboard::Request& request, const QString& refused, const char* name,
                  int page = 0)
    {
        OnScreenKeyboard keyboard(request, &ground);
        keyboard.show();
        while (keyboard.page() != page)
            turnPage(keyboard);
        if (!refused.isEmpty())
            keyboard.acceptText(refused);
        save(ground, name);
    }

    static void turnPage(OnScreenKeyboard& keyboard)
    {
        for (const KeyboardKey& key : keyboard.arrangement().pages.at(keyboard.page())) {
            if (key.action == KeyAction::Page) {
                QTest::mouseClick(&keyboard, Qt::LeftButton, Qt::NoModifier, key.rect.center());
                return;
            }
        }
    }

    void drawNotices()
    {
        Ground ground(m_panel.size);
        Notices notices(m_clock, ground.rect(), m_panel.dpi, &ground);
        for (const char* text : {"busy, please wait", "add success", "save successful"})
            notices.post(QObject::tr(text));
        notices.post(QObject::tr("About to autosave, whether to continue?") + QStringLiteral(" ")
                     + QObject::tr("error, not available"));
        save(ground, "notices");
    }

    void drawTick()
    {
        Ground ground(m_panel.size);
        TouchTick tick(m_clock, m_panel.dpi, &ground);
        tick.tick(ground.cell(2, 3).center());
        save(ground, "tick");
    }

    void drawBox()
    {
        adaptConfirmBoxes(*qApp, m_panel.dpi);
        QMessageBox box;
        box.setWindowTitle(QObject::tr("tip"));
        box.setText(QObject::tr("About to autosave, whether to continue?"));
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::No);
        box.show();
        save(box, "confirm");
        qApp->setStyleSheet(QString());
    }

    void drawRegisters()
    {
        Registers registers;
        RegisterView view(registers, m_clock);
        view.model().watch(QStringLiteral("LW"), 100, QStringLiteral("Line speed"));
        view.resize(360, 320);
        view.show();
        registers.force(QStringLiteral("LW"), 60803, 17);
        save(view, "registers");
    }

    const QDir m_directory;
    const PanelKind m_panel;
    const QString m_language;
    ManualClock m_clock;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: widget_pictures DIRECTORY\n");
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(15);
    QApplication::setFont(font);

    const QDir directory(QFile::decodeName(argv[1]));
    directory.mkpath(QStringLiteral("."));
    Translations translations;
    for (int language = 1; language <= 8; ++language) {
        translations.use(language);
        for (const QString& problem : translations.problems())
            std::fprintf(stderr, "missing: %s\n", problem.toLocal8Bit().constData());
        for (const PanelKind& panel : PANELS)
            Pictures(directory, panel, Translations::code(language)).draw();
    }
    return 0;
}
