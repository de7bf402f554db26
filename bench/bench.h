// What the sources of the bench program share.
#ifndef BENCH_BENCH_H
#define BENCH_BENCH_H

#include "groups.h"

#include <QString>

#include <string>
#include <vector>

struct BenchOptions
{
    std::vector<GroupSize> sizes;
    bool quick;
    std::string memoryProgram; ///< the program that measures memory, beside this one
    std::string toolProgram;   ///< recipe-file, beside this one
};

/// The recipe file of the panel: the one of the size that was used last.
QString recipePath();
/// Puts the file with the group of that size (and the empty one) in the panel's place. RecipeDB has it open then.
void useFile(const GroupSize& size);
/// A fresh copy of it on the same disk, for the bare interface; its path.
QString makeCopy();

/// Fewer rounds in a quick run, at least three.
int rounds(const BenchOptions& options, int wanted);

void addStorageRows(const BenchOptions& options);
void addPaintingRows(const BenchOptions& options);
void addOperatingRows(const BenchOptions& options);
void addMemoryRows(const BenchOptions& options);
void addToolRows(const BenchOptions& options);

#endif
