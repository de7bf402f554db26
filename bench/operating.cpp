#include "bench.h"
void addOperatingRows(const BenchOptions&) {}
