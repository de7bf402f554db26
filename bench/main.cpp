// Speed and memory of the sheet beside what is possible and what else one could take. See docs/benchmarks.md.
#include "bench.h"
#include "comparison.h"
#include "sheet.h"

#include "RecipeDB.h"
#include "recipe_tools.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>

QString recipePath()
{
    return getRcpFilePath(nullptr);
}

namespace {

QString besideRecipeFile(const QString& name)
{
    return QFileInfo(recipePath()).path() + QLatin1Char('/') + name;
}

QString fileOf(const GroupSize& size)
{
    return besideRecipeFile(QString::fromLatin1("size_%1.db3").arg(QString::fromLatin1(size.name)));
}

} // namespace

void useFile(const GroupSize& size)
{
    RecipeDB::getInstance()->CloseRecipeFile();
    QFile::remove(recipePath());
    if (!QFile::exists(fileOf(size)))
        createRecipeFile(fileOf(size), size);
    QFile::link(fileOf(size), recipePath());
    RecipeDB::getInstance()->OpenRecipeFile(recipePath());
}

QString makeCopy()
{
    const QString copy = besideRecipeFile(QString::fromLatin1("limit.db3"));
    QFile::remove(copy);
    QFile::copy(recipePath(), copy);
    return copy;
}

int rounds(const BenchOptions& options, int wanted)
{
    return options.quick ? qMax(3, wanted / 4) : wanted;
}

namespace {

/// Takes the option out of the command line; Google Benchmark gets the rest.
bool takeOption(int& argc, char** argv, const char* name)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], name) != 0)
            continue;
        for (int k = i; k + 1 < argc; ++k)
            argv[k] = argv[k + 1];
        --argc;
        return true;
    }
    return false;
}

bool canWrite()
{
    const QFileInfo directory(QFileInfo(recipePath()).path());
    if (directory.isDir() && directory.isWritable() && !QFile::exists(recipePath()))
        return true;
    std::fprintf(stderr,
                 "recipe_bench: %s must be a writable directory without a recipe file; start bench/run, which "
                 "sees to that\n",
                 directory.filePath().toLocal8Bit().constData());
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    BenchOptions options;
    options.quick = takeOption(argc, argv, "--quick");
    options.sizes = {SIZE_S, SIZE_M};
    if (!options.quick)
        options.sizes.insert(options.sizes.end(), {SIZE_L, SIZE_XL});
    options.memoryProgram =
        (QApplication::applicationDirPath() + QString::fromLatin1("/recipe_bench_memory")).toStdString();
    options.toolProgram = (QApplication::applicationDirPath() + QString::fromLatin1("/recipe-file")).toStdString();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !canWrite())
        return 2;
    openProject();
    addStorageRows(options);
    addPaintingRows(options);
    addOperatingRows(options);
    addMemoryRows(options);
    addToolRows(options);
    benchmark::RunSpecifiedBenchmarks();
    printTable();
    return 0;
}
