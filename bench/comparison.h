// One row of the table: ours, the limit and what a user would pick instead, measured in turn within one run.
//
// A shared machine is noisy: each round measures all of them right after each other, and what counts is the median of
// the rounds' ratios.
#ifndef BENCH_COMPARISON_H
#define BENCH_COMPARISON_H

#include <functional>
#include <string>

/// What a stopwatch reads.
enum class Clock
{
    Processor, ///< time that this process spent computing, in user and kernel mode: for what never waits
    Wall       ///< for what waits for the disk or for another thread
};

/// Runs `action` and returns the seconds it took.
double measure(Clock clock, const std::function<void()>& action);

/// One measured run, in seconds; what it prepares and cleans up is not in the result.
typedef std::function<double()> Run;

struct Comparison
{
    Run ours;
    Run limit;             ///< empty: none
    double limitAim = 0;   ///< wanted: ours at most this many times the limit; 0: no aim
    Run instead;           ///< empty: none
    double insteadAim = 0; ///< wanted: ours at most this share of it; 0: no aim
    int rounds = 10;
};

/// Registers a row with Google Benchmark. `make` is called when the row's turn comes; what it opens lives in the runs.
void addComparison(const std::string& what, const std::string& size, const std::function<Comparison()>& make);

/// A finished row. Numbers that are 0 are not there.
struct Row
{
    std::string what;
    std::string size;
    std::string unit;
    double ours = 0;
    double limit = 0;
    double limitRatio = 0;
    double limitAim = 0;
    double instead = 0;
    double insteadRatio = 0;
    double insteadAim = 0;
};

void addRow(const Row& row);
/// A line under the table.
void addRemark(const std::string& text);

/// Everything that was measured, as plain text.
void printTable();

#endif
