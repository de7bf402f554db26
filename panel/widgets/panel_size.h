// From millimetres to pixels. What a finger must hit and what must be read at a distance is stated in millimetres.
#ifndef PANEL_SIZE_H
#define PANEL_SIZE_H

#include <cmath>

const double MILLIMETRES_PER_INCH = 25.4;
const double DESK_DPI = 96.0;

/// The smallest side of anything that a finger in a glove must hit.
const double FINGER_MILLIMETRES = 9.0;

/// Pixels per millimetre; a density that makes no sense counts as a desk's.
inline double pixelsPerMillimetre(double dpi)
{
    return (std::isfinite(dpi) && dpi > 0 ? dpi : DESK_DPI) / MILLIMETRES_PER_INCH;
}

/// At least `millimetres`, in whole pixels.
inline int pixelsFor(double millimetres, double dpi)
{
    return static_cast<int>(std::ceil(millimetres * pixelsPerMillimetre(dpi)));
}

#endif
