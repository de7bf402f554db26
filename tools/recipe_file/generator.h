// Groups of any size with plausible contents, for trials and measurements. The same size and seed give the same
// group, on every machine.
#ifndef GENERATOR_H
#define GENERATOR_H

#include "recipe_records.h"

#include <cstdint>

class Generator
{
public:
    Generator(int items, int recipes, std::uint64_t seed);

    /// Items and titles; `values` are left empty.
    recipeTableInfo_t group(int groupIndex) const;

    /// The cell text of one item in one recipe. Does not depend on how large the group is.
    QString value(int item, int recipe) const;

private:
    std::uint64_t random(std::uint64_t a, std::uint64_t b) const;

    int m_items;
    int m_recipes;
    std::uint64_t m_seed;
};

#endif
