// The life of one sheet on whatever recipe file lies in the project folder: open, paint, tap, scroll, type, save, add
// and delete, as the choices say. A fresh item each time; afterwards nothing of it is left, the file included.
#ifndef SHEET_LIFE_H
#define SHEET_LIFE_H

#include <cstddef>
#include <cstdint>

/// Once, before the first life.
void prepareSheetLife();

/// The same choices on the same file make the same life.
void liveThrough(const std::uint8_t* choices, std::size_t size);

#endif
