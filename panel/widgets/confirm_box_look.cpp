#include "confirm_box_look.h"

#include "panel_size.h"

#include <QApplication>

namespace {

// Millimetres.
const double TEXT_HEIGHT = 4.5;
const double BUTTON_WIDTH = 26.0;
const double BUTTON_HEIGHT = 14.0;
const double BUTTON_DISTANCE = 2.5; // on each side
const double PADDING = 3.0;

const char BEGIN[] = "/* message boxes: begin */";
const char END[] = "/* message boxes: end */";

/// `sheet` without what an earlier call added.
QString withoutOurs(QString sheet)
{
    const int begin = sheet.indexOf(QLatin1String(BEGIN));
    const int end = sheet.indexOf(QLatin1String(END), begin);
    if (begin >= 0 && end >= begin)
        sheet.remove(begin, end + static_cast<int>(sizeof(END)) - 1 - begin);
    return sheet;
}

} // namespace

QString confirmBoxStyleSheet(double dpi)
{
    return QStringLiteral("QMessageBox { background: #f2f4f6; }\n"
                          "QMessageBox QLabel { font-size: %1px; color: #101418; }\n"
                          "QMessageBox QLabel#qt_msgbox_label { padding: %2px; }\n"
                          "QMessageBox QPushButton { font-size: %1px; font-weight: bold; color: #101418;"
                          " background: #d3d9df; border: 2px solid #6b7783; border-radius: 6px;"
                          " min-width: %3px; min-height: %4px; margin: %5px; padding: 0px %2px; }\n"
                          "QMessageBox QPushButton:default { border: 4px solid #1f5fa8; }\n"
                          "QMessageBox QPushButton:pressed { background: #9fb4c9; }\n")
        .arg(pixelsFor(TEXT_HEIGHT, dpi))
        .arg(pixelsFor(PADDING, dpi))
        .arg(pixelsFor(BUTTON_WIDTH, dpi))
        .arg(pixelsFor(BUTTON_HEIGHT, dpi))
        .arg(pixelsFor(BUTTON_DISTANCE, dpi));
}

void adaptConfirmBoxes(QApplication& application, double dpi)
{
    application.setStyleSheet(withoutOurs(application.styleSheet()) + QLatin1String(BEGIN) + QLatin1Char('\n')
                              + confirmBoxStyleSheet(dpi) + QLatin1String(END));
}
