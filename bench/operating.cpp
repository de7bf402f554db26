// What the operator waits for: taps, scrolling, saving, adding and deleting.
#include "bare_page.h"
#include "bare_sqlite.h"
#include "bench.h"
#include "comparison.h"
#include "sheet.h"

#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "runtime.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

const int BLOCK_ITEMS = 100;
const int BLOCK_RECIPES = 50;
const double DRAG_PIXELS = 7; // more than one step or jump of any size here

/// A sheet with its first page drawn, the bare loop for the same page, the bare interface, and the screen.
struct Stage
{
    Stage(const PageShape& page, const GroupSize& size)
        : screen(makeScreen(page)), sheet(page, size.group), loop(page, size, sheet.item()), bare(recipePath())
    {
        sheet.paint(screen);
        settle();
    }

    QImage screen;
    Sheet sheet;
    BarePage loop;
    BareSqlite bare;
};

BlockRange firstBlock(const GroupSize& size)
{
    return {size.group, 0, qMin(BLOCK_RECIPES, size.recipes), 0, qMin(BLOCK_ITEMS, size.items)};
}

/// The press alone: what is published with it comes back from the event loop, after the repaint.
Comparison tapToHighlight(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto stage = std::make_shared<Stage>(PAGE_SMALL, size);
    const auto taps = std::make_shared<int>(0);
    Comparison comparison;
    comparison.ours = [=] {
        const QPointF cell = stage->sheet.cell(++*taps % PAGE_SMALL.rows, *taps % PAGE_SMALL.columns);
        const double seconds = measure(Clock::Processor, [&] {
            stage->sheet.press(cell);
            stage->sheet.paint(stage->screen);
        });
        stage->sheet.release(cell);
        settle();
        return seconds;
    };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { stage->loop.paint(stage->screen); }); };
    comparison.rounds = rounds(options, 100);
    return comparison;
}

/// The whole tap: the register that the tap writes notifies the sheet, which reads its blocks again.
Comparison tapAndReload(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto stage = std::make_shared<Stage>(PAGE_SMALL, size);
    const auto taps = std::make_shared<int>(0);
    Comparison comparison;
    comparison.ours = [=] {
        const QPointF cell = stage->sheet.cell(1, ++*taps % PAGE_SMALL.columns);
        return measure(Clock::Processor, [&] {
            stage->sheet.tap(cell);
            settle();
            stage->sheet.paint(stage->screen);
        });
    };
    comparison.limit = [=] {
        return measure(Clock::Processor, [&] {
            stepBlock(stage->bare, firstBlock(size));
            stage->loop.paint(stage->screen);
        });
    };
    comparison.rounds = rounds(options, 50);
    return comparison;
}

Comparison arrowStep(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto stage = std::make_shared<Stage>(PAGE_SMALL, size);
    const auto steps = std::make_shared<int>(0);
    Comparison comparison;
    comparison.ours = [=] {
        const QPointF arrow = ++*steps % 2 ? stage->sheet.rightArrow() : stage->sheet.leftArrow();
        return measure(Clock::Processor, [&] {
            stage->sheet.tap(arrow);
            stage->sheet.paint(stage->screen);
        });
    };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { stage->loop.paint(stage->screen); }); };
    comparison.rounds = rounds(options, 100);
    return comparison;
}

/// Drags a fresh sheet until a step makes it load the next block, and measures that step.
double dragIntoNextBlock(const GroupSize& size, QImage& screen)
{
    Sheet sheet(PAGE_SMALL, size.group);
    sheet.paint(screen);
    QPointF position = sheet.thumb();
    sheet.press(position);
    for (int step = 0; step < 100; ++step) {
        position += QPointF(DRAG_PIXELS, 0);
        const double seconds = measure(Clock::Processor, [&] {
            sheet.move(position);
            sheet.paint(screen);
        });
        if (sheet.item().isDataBlockLoaded(0, 1))
            return seconds;
    }
    std::fprintf(stderr, "recipe_bench: no drag came to the next block\n");
    std::exit(1);
}

Comparison dragAcrossBorder(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto stage = std::make_shared<Stage>(PAGE_SMALL, size);
    BlockRange next = firstBlock(size);
    next.column = BLOCK_RECIPES;
    Comparison comparison;
    comparison.ours = [=] { return dragIntoNextBlock(size, stage->screen); };
    comparison.limit = [=] {
        return measure(Clock::Processor, [&] {
            stepBlock(stage->bare, next);
            stage->loop.paint(stage->screen);
        });
    };
    comparison.rounds = rounds(options, 20);
    return comparison;
}

// --- saving ------------------------------------------------------------------------------------------------------

/// Types `text` into the first `cells` cells of the page, column by column.
void edit(Sheet& sheet, int cells, const QString& text)
{
    for (int i = 0; i < cells; ++i) {
        const QPointF cell = sheet.cell(i % PAGE_DENSE.rows, i / PAGE_DENSE.rows);
        sheet.tap(cell);
        sheet.item().keyboardReflash(text);
    }
    settle();
}

QList<QByteArray> recordSave(Sheet& sheet, int cells, const QString& text)
{
    edit(sheet, cells, text);
    const auto statements = recordStatements(recipePath(), [&] { sheet.item().saveRecipeFile(); });
    settle();
    return statements;
}

QList<QByteArray> withoutTransaction(const QList<QByteArray>& statements)
{
    QList<QByteArray> updates;
    for (const QByteArray& sql : statements) {
        if (sql.startsWith("UPDATE"))
            updates.append(sql);
    }
    return updates;
}

/// The limit runs the same statements on a copy; instead of that, each could be a transaction of its own. Values change
/// from round to round: SQLite writes nothing where a cell keeps its value.
Comparison save(const BenchOptions& options, const GroupSize& size, int cells)
{
    useFile(size);
    const auto sheet = std::make_shared<Sheet>(PAGE_DENSE, size.group);
    const auto round = std::make_shared<int>(0);
    const QList<QByteArray> even = recordSave(*sheet, cells, QString::fromLatin1("1"));
    const QList<QByteArray> odd = recordSave(*sheet, cells, QString::fromLatin1("2"));
    const auto bare = std::make_shared<BareSqlite>(makeCopy());
    Comparison comparison;
    comparison.ours = [=] {
        edit(*sheet, cells, QString::number(++*round % 2 + 3));
        const double seconds = measure(Clock::Wall, [&] { sheet->item().saveRecipeFile(); });
        settle();
        return seconds;
    };
    comparison.limit = [=] { return measure(Clock::Wall, [&] { bare->exec(*round % 2 ? odd : even); }); };
    if (cells < 1000) {
        comparison.instead = [=] {
            return measure(Clock::Wall, [&] { bare->exec(withoutTransaction(*round % 2 ? even : odd)); });
        };
    }
    comparison.rounds = rounds(options, cells == 1 ? 12 : 4);
    return comparison;
}

// --- adding and deleting -----------------------------------------------------------------------------------------

RecipeSheetThread& prepareJob(const GroupSize& size)
{
    RecipeSheetThread& worker = *RecipeSheetThread::getInstance();
    worker.groupIndex = size.group;
    worker.column = size.recipes / 2;
    worker.callback = &RecipeSheetItems::replace;
    worker.available = true;
    return worker;
}

QList<QByteArray> onlyWrites(const QList<QByteArray>& statements)
{
    QList<QByteArray> writes;
    for (const QByteArray& sql : statements) {
        if (!sql.startsWith("SELECT"))
            writes.append(sql);
    }
    return writes;
}

/// The job from its start to the sheet that has its blocks again. The limit reads the group and writes it.
Comparison changeRecipes(const BenchOptions& options, const GroupSize& size, bool adding)
{
    useFile(size);
    RecipeSheetThread& worker = prepareJob(size);
    const auto sheet = std::make_shared<Sheet>(PAGE_SMALL, size.group);
    if (!adding)
        worker.add();
    const auto statements = onlyWrites(recordStatements(recipePath(), [&] { adding ? worker.add() : worker.del(); }));
    if (adding)
        worker.del();
    const auto bare = std::make_shared<BareSqlite>(makeCopy());
    Comparison comparison;
    comparison.ours = [=, &worker] {
        (void)sheet; // takes the result
        double seconds = 0;
        const double first = measure(Clock::Processor, [&] { worker.add(); });
        const double second = measure(Clock::Processor, [&] { worker.del(); });
        seconds = adding ? first : second;
        return seconds;
    };
    comparison.limit = [=] {
        return measure(Clock::Processor, [&] {
            stepGroup(*bare, size.group);
            bare->exec(statements);
        });
    };
    comparison.rounds = rounds(options, size.items >= 1000 ? 3 : 12);
    return comparison;
}

/// The longest time between two repaints while the worker adds a recipe and the operator goes on tapping and
/// scrolling. Beside it what a reload of the cached blocks takes, which is what the GUI thread may have to wait for.
Comparison gapDuringAdd(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    RecipeSheetThread& worker = prepareJob(size);
    const auto stage = std::make_shared<Stage>(PAGE_SMALL, size);
    Comparison comparison;
    comparison.ours = [=, &worker] {
        worker.op = RecipeSheetThread::OP_ADD;
        double longest = 0;
        worker.startJob();
        for (int step = 0; worker.isRunning(); ++step) {
            longest = std::max(longest, measure(Clock::Wall, [&] {
                                   stage->sheet.tap(step % 2   ? stage->sheet.cell(step % 10, step % 5)
                                                    : step % 4 ? stage->sheet.rightArrow()
                                                               : stage->sheet.leftArrow());
                                   QCoreApplication::processEvents();
                                   stage->sheet.paint(stage->screen);
                               }));
        }
        settle();
        worker.del();
        return longest;
    };
    comparison.limit = [=] {
        return measure(Clock::Wall, [&] {
            stage->sheet.item().update_result(4);
            stage->sheet.paint(stage->screen);
        });
    };
    comparison.rounds = rounds(options, 4);
    return comparison;
}

} // namespace

void addOperatingRows(const BenchOptions& options)
{
    for (const GroupSize& size : options.sizes)
        addComparison("tap to repainted highlight", size.name, [=] { return tapToHighlight(options, size); });
    for (const GroupSize& size : options.sizes)
        addComparison("tap, reload by its register, repaint", size.name, [=] { return tapAndReload(options, size); });
    for (const GroupSize& size : options.sizes)
        addComparison("one arrow step", size.name, [=] { return arrowStep(options, size); });
    for (const GroupSize& size : options.sizes) {
        if (size.recipes > BLOCK_RECIPES)
            addComparison("one dragged step into the next block", size.name,
                          [=] { return dragAcrossBorder(options, size); });
    }
    for (const GroupSize& size : options.sizes) {
        for (const int cells : {1, 100, 1000}) {
            if (size.recipes >= PAGE_DENSE.columns)
                addComparison("save of " + std::to_string(cells) + (cells == 1 ? " cell" : " cells"), size.name,
                              [=] { return save(options, size, cells); });
        }
    }
    for (const GroupSize& size : options.sizes) {
        addComparison("add a recipe", size.name, [=] { return changeRecipes(options, size, true); });
        addComparison("delete a recipe", size.name, [=] { return changeRecipes(options, size, false); });
    }
    const GroupSize& gapSize = options.quick ? SIZE_M : SIZE_L;
    addComparison("longest gap between repaints during an add", gapSize.name,
                  [=] { return gapDuringAdd(options, gapSize); });
}
