// Peak memory of the first page, each figure from a process of its own.
#include "bench.h"
#include "comparison.h"

#include <QByteArray>
#include <QHash>
#include <QProcess>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {

typedef QHash<QByteArray, double> Figures;

Figures measureChild(const BenchOptions& options, const char* what, int group)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QString::fromStdString(options.memoryProgram), {QString::fromLatin1(what), QString::number(group)});
    if (!child.waitForFinished(-1) || child.exitCode() != 0) {
        std::fprintf(stderr, "recipe_bench: cannot measure memory with %s\n", options.memoryProgram.c_str());
        std::exit(1);
    }
    Figures figures;
    for (const QByteArray& line : child.readAllStandardOutput().split('\n')) {
        const int space = line.indexOf(' ');
        if (space > 0)
            figures.insert(line.left(space), line.mid(space + 1).toDouble());
    }
    return figures;
}

Row makeRow(const char* what, const GroupSize& size, double aim, double ours, double limit, double instead)
{
    Row row;
    row.what = what;
    row.size = size.name;
    row.unit = "KiB";
    row.ours = ours;
    row.limit = limit;
    row.limitRatio = ours / limit;
    row.limitAim = aim;
    row.instead = instead;
    row.insteadRatio = ours / instead;
    return row;
}

void measure(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const Figures empty = measureChild(options, "sheet", EMPTY_GROUP);
    const Figures sheet = measureChild(options, "sheet", size.group);
    const Figures bare = measureChild(options, "bare", size.group);
    const Figures view = measureChild(options, "view", size.group);
    const auto above = [&empty](const Figures& figures, const char* key, double unit) {
        return (figures[key] - empty[key]) / unit;
    };
    addRow(makeRow("heap of the first page above the empty item", size, 1, above(sheet, "heap_peak", 1024),
                   above(bare, "heap_peak", 1024), above(view, "heap_peak", 1024)));
    addRow(makeRow("resident memory of the same", size, 0, above(sheet, "resident_peak", 1),
                   above(bare, "resident_peak", 1), above(view, "resident_peak", 1)));
    char text[160];
    std::snprintf(text, sizeof(text), "one warm repaint, %s: %.0f allocations, %.1f KiB in all", size.name,
                  sheet["repaint_allocations"], sheet["repaint_bytes"] / 1024);
    addRemark(text);
}

} // namespace

void addMemoryRows(const BenchOptions& options)
{
    for (const GroupSize& size : options.sizes) {
        const auto run = [=](benchmark::State& state) {
            for (auto iteration : state) {
                (void)iteration;
                measure(options, size);
            }
        };
        benchmark::RegisterBenchmark((std::string("memory of the first page/") + size.name).c_str(), run)
            ->Iterations(1);
    }
}
