// Numbers as the system writes them: fixed notation, whatever the locale.
#ifndef NUMBER_TEXT_H
#define NUMBER_TEXT_H

#include <QString>

/// More decimals than any double has room for on a sheet; a file that asks for more gets this many. Without the bound
/// a damaged count of decimals would make one cell text fill the memory.
enum
{
    MAX_DECIMALS = 100
};

/// `value` with `decimals` digits after the point (below 0: as many as Qt gives by default, 6).
inline QString fixedNotation(double value, int decimals)
{
    return QString::number(value, 'f', decimals > MAX_DECIMALS ? MAX_DECIMALS : decimals);
}

#endif
