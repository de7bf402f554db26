// Draws one first page and prints what that took, as "name value" lines.
//
//   recipe_bench_memory sheet|bare|view GROUP
//
// "bare" is an item on the empty group, and beside it all titles and one block (its items and its values), read with
// the bare SQLite interface into plain lists of texts. The recipe file must be there.
#include "bare_sqlite.h"
#include "groups.h"
#include "heap.h"
#include "recipe_tools.h"
#include "sheet.h"
#include "table_view.h"

#include <QApplication>
#include <QFile>
#include <QPainter>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

const int REPAINTS = 100;

/// Fonts and the like are there before anything is measured.
void warmUp(QImage& screen)
{
    Sheet sheet(PAGE_SMALL, EMPTY_GROUP);
    sheet.paint(screen);
}

/// The highest resident memory since the last reset, in KiB.
long residentPeak()
{
    QFile status(QString::fromLatin1("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    return std::atol(text.constData() + text.indexOf("VmHWM:") + 6);
}

void resetResidentPeak()
{
    QFile file(QString::fromLatin1("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

struct PlainTexts
{
    QVector<QVector<QString> > titles;
    QVector<QVector<QString> > items; ///< of the block
    QVector<QVector<QString> > block;
};

PlainTexts readPlainTexts(int group)
{
    PlainTexts texts;
    BareSqlite bare(getRcpFilePath(nullptr));
    const QByteArray g = QByteArray::number(group);
    texts.titles = bare.read("SELECT * FROM lang_" + g + " WHERE type > 0;", 2);
    texts.items = bare.read("SELECT * FROM addr_" + g + " WHERE row_index < '100';");
    texts.block = bare.read("SELECT * FROM data_" + g + " WHERE column >= '0' AND column < '50';", 1, 100);
    return texts;
}

/// Statements and heap blocks of repaints of a page that is there.
void measureRepaints(Sheet& sheet, QImage& screen)
{
    sheet.paint(screen);
    const std::size_t blocks = heapAllocations();
    const std::size_t bytes = heapAllocatedBytes();
    for (int i = 0; i < REPAINTS; ++i)
        sheet.paint(screen);
    std::printf("repaint_allocations %zu\n", (heapAllocations() - blocks) / REPAINTS);
    std::printf("repaint_bytes %zu\n", (heapAllocatedBytes() - bytes) / REPAINTS);
}

void printPeaks(std::size_t before)
{
    std::printf("heap_peak %zu\n", heapPeak() - before);
    std::printf("resident_peak %ld\n", residentPeak());
}

void run(const char* what, int group, QImage& screen)
{
    const std::size_t before = heapInUse();
    resetHeapPeak();
    resetResidentPeak();
    if (std::strcmp(what, "view") == 0) {
        TableView view(getRcpFilePath(nullptr), PAGE_SMALL, group);
        view.paint(screen);
        printPeaks(before);
        return;
    }
    const bool bare = std::strcmp(what, "bare") == 0;
    Sheet sheet(PAGE_SMALL, bare ? EMPTY_GROUP : group);
    sheet.paint(screen);
    const PlainTexts texts = bare ? readPlainTexts(group) : PlainTexts();
    printPeaks(before);
    if (!bare)
        measureRepaints(sheet, screen);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: recipe_bench_memory sheet|bare|view GROUP\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    openProject();
    QImage screen = makeScreen(PAGE_SMALL);
    warmUp(screen);
    run(argv[1], std::atoi(argv[2]), screen);
    return 0;
}
