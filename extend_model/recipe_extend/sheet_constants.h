// What the item's sources share and nobody else needs.
#ifndef SHEET_CONSTANTS_H
#define SHEET_CONSTANTS_H

#include <QColor>

const int NOTHING_SELECTED = -32768;
const int TITLE_ROW = -1; // selected row when a recipe's title is selected

const int NUMBER_COLUMN_WIDTH = 50;
const int MOST_VISIBLE_ROWS = 100;
const int MOST_VISIBLE_COLUMNS = 50;

/// Lines and stripes drawn per page, whatever the configuration asks for: more than any panel has pixels.
const int MOST_PAGE_LINES = 10000;

/// Reload notification: register "LWF" 4, and its bit in the mask of update_result.
const int RELOAD_REGISTER = 4;
const int UPDATE_BIT = 4;

const QColor PRESSED_COLOR(122, 110, 122, 255);
const QColor NORMAL_COLOR(152, 140, 152, 255);
const QColor BLOCK_PRESSED_COLOR(180, 180, 180, 255);
const QColor BUTTON_COLOR(173, 216, 230, 255);
const QColor BUTTON_PRESSED_COLOR(153, 196, 210, 255);
const QColor THUMB_COLOR(240, 240, 240, 255);

#endif
