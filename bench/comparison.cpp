#include "comparison.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

std::vector<Row> rows;
std::vector<std::string> remarks;

double now(Clock clock)
{
    timespec time;
    clock_gettime(clock == Clock::Processor ? CLOCK_PROCESS_CPUTIME_ID : CLOCK_MONOTONIC, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// What the rounds of one row gave.
struct Samples
{
    std::vector<double> ours;
    std::vector<double> limit;
    std::vector<double> limitRatio;
    std::vector<double> instead;
    std::vector<double> insteadRatio;

    /// Returns the seconds of ours. The order within a round changes from round to round.
    double takeRound(const Comparison& comparison)
    {
        const bool oursFirst = ours.size() % 2 == 0;
        double own = oursFirst ? comparison.ours() : 0;
        const double least = comparison.limit ? comparison.limit() : 0;
        const double other = comparison.instead ? comparison.instead() : 0;
        if (!oursFirst)
            own = comparison.ours();
        ours.push_back(own);
        if (comparison.limit) {
            limit.push_back(least);
            limitRatio.push_back(own / least);
        }
        if (comparison.instead) {
            instead.push_back(other);
            insteadRatio.push_back(own / other);
        }
        return own;
    }
};

Row makeRow(const std::string& what, const std::string& size, const Comparison& comparison, const Samples& samples)
{
    Row row;
    row.what = what;
    row.size = size;
    row.unit = "ms";
    row.ours = median(samples.ours) * 1e3;
    row.limit = median(samples.limit) * 1e3;
    row.limitRatio = median(samples.limitRatio);
    row.limitAim = comparison.limitAim;
    row.instead = median(samples.instead) * 1e3;
    row.insteadRatio = median(samples.insteadRatio);
    row.insteadAim = comparison.insteadAim;
    return row;
}

void runComparison(benchmark::State& state, const std::string& what, const std::string& size,
                   const std::function<Comparison()>& make)
{
    const Comparison comparison = make();
    Samples warmUp;
    warmUp.takeRound(comparison);
    Samples samples;
    for (auto iteration : state) {
        (void)iteration;
        double seconds = 0;
        for (int round = 0; round < comparison.rounds; ++round)
            seconds += samples.takeRound(comparison);
        state.SetIterationTime(seconds / comparison.rounds);
    }
    const Row row = makeRow(what, size, comparison, samples);
    state.counters["limit_ms"] = row.limit;
    state.counters["instead_ms"] = row.instead;
    state.counters["rounds"] = comparison.rounds;
    addRow(row);
}

bool isMet(const Row& row)
{
    return (row.limitAim <= 0 || row.limitRatio <= row.limitAim)
           && (row.insteadAim <= 0 || row.insteadRatio <= row.insteadAim);
}

std::string number(double value, const char* format)
{
    char text[32];
    std::snprintf(text, sizeof(text), format, value);
    return value > 0 ? text : "";
}

/// Three digits that count.
std::string amount(double value)
{
    return number(value, value < 1 ? "%.3f" : value < 100 ? "%.2f" : "%.0f");
}

typedef std::vector<std::string> Line;

Line makeLine(const Row& row)
{
    const bool aimed = row.limitAim > 0 || row.insteadAim > 0;
    return {row.what,
            row.size,
            row.unit,
            amount(row.ours),
            amount(row.limit),
            number(row.limitRatio, "%.2f"),
            number(row.limitAim, "<= %.4g"),
            amount(row.instead),
            number(row.insteadRatio, "%.3f"),
            number(row.insteadAim, "<= %.4g"),
            !aimed       ? ""
            : isMet(row) ? "yes"
                         : "NO"};
}

void printLine(const Line& line, const std::vector<std::size_t>& widths)
{
    std::string text = "|";
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::string fill(widths[i] - line[i].size(), ' ');
        const bool left = i < 3;
        text += left ? " " + line[i] + fill + " |" : " " + fill + line[i] + " |";
    }
    std::printf("%s\n", text.c_str());
}

} // namespace

double measure(Clock clock, const std::function<void()>& action)
{
    const double start = now(clock);
    action();
    return now(clock) - start;
}

void addComparison(const std::string& what, const std::string& size, const std::function<Comparison()>& make)
{
    const auto run = [=](benchmark::State& state) { runComparison(state, what, size, make); };
    benchmark::RegisterBenchmark((what + "/" + size).c_str(), run)
        ->Iterations(1)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void addRow(const Row& row)
{
    rows.push_back(row);
}

void addRemark(const std::string& text)
{
    remarks.push_back(text);
}

void printTable()
{
    std::vector<Line> lines = {
        {"what", "size", "unit", "ours", "limit", "ratio", "aim", "instead", "ratio", "aim", "met?"}};
    for (const Row& row : rows)
        lines.push_back(makeLine(row));
    std::vector<std::size_t> widths(lines.front().size(), 0);
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    }
    std::printf("\n");
    for (std::size_t i = 0; i < lines.size(); ++i) {
        printLine(lines[i], widths);
        if (i == 0) {
            Line rule;
            for (const std::size_t width : widths)
                rule.push_back(std::string(width, '-'));
            printLine(rule, widths);
        }
    }
    std::printf("\n");
    for (const std::string& remark : remarks)
        std::printf("%s\n", remark.c_str());
}
