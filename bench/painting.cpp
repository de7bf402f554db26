// The first page and the repaint of a page that is there.
#include "bare_page.h"
#include "bench.h"
#include "comparison.h"
#include "sheet.h"
#include "table_view.h"

#include "RecipeDB.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

Comparison firstPage(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto screen = std::make_shared<QImage>(makeScreen(PAGE_SMALL));
    const std::shared_ptr<object> properties = makeProperties(PAGE_SMALL, size.group);
    Comparison comparison;
    comparison.ours = [=] {
        RecipeDB::getInstance()->CloseRecipeFile();
        std::unique_ptr<Sheet> sheet;
        return measure(Clock::Processor, [&] {
            sheet = std::make_unique<Sheet>(PAGE_SMALL, properties.get());
            sheet->paint(*screen);
        });
    };
    comparison.instead = [=] {
        std::unique_ptr<TableView> view;
        return measure(Clock::Processor, [&] {
            view = std::make_unique<TableView>(recipePath(), PAGE_SMALL, size.group);
            view->paint(*screen);
        });
    };
    comparison.insteadAim = 0.5;
    comparison.rounds = rounds(options, 20);
    return comparison;
}

/// The bare loop is a limit only when it draws the same picture.
void requireSamePicture(const QImage& sheet, const QImage& bare)
{
    if (sheet == bare)
        return;
    sheet.save(QString::fromLatin1("bench-sheet.png"));
    bare.save(QString::fromLatin1("bench-bare.png"));
    std::fprintf(stderr, "recipe_bench: the bare loop draws another picture than the sheet; see bench-sheet.png and "
                         "bench-bare.png\n");
    std::exit(1);
}

Comparison repaint(const BenchOptions& options, const PageShape& page, const GroupSize& size)
{
    useFile(size);
    const auto screen = std::make_shared<QImage>(makeScreen(page));
    const auto sheet = std::make_shared<Sheet>(page, size.group);
    const auto bare = std::make_shared<BarePage>(page, size, sheet->item());
    const auto view = std::make_shared<TableView>(recipePath(), page, size.group);
    QImage other = makeScreen(page);
    sheet->paint(*screen);
    bare->paint(other);
    requireSamePicture(*screen, other);

    Comparison comparison;
    comparison.ours = [=] { return measure(Clock::Processor, [&] { sheet->paint(*screen); }); };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { bare->paint(*screen); }); };
    comparison.limitAim = 1.3;
    comparison.instead = [=] { return measure(Clock::Processor, [&] { view->paint(*screen); }); };
    comparison.insteadAim = 0.5;
    comparison.rounds = rounds(options, page.rows > 50 ? 40 : 200);
    return comparison;
}

} // namespace

void addPaintingRows(const BenchOptions& options)
{
    for (const GroupSize& size : options.sizes)
        addComparison("first page, 10x5 at 800x480", size.name, [=] { return firstPage(options, size); });
    for (const GroupSize& size : options.sizes)
        addComparison("repaint, 10x5 at 800x480", size.name, [=] { return repaint(options, PAGE_SMALL, size); });
    for (const GroupSize& size : options.sizes) {
        if (size.items >= PAGE_DENSE.rows && size.recipes >= PAGE_DENSE.columns)
            addComparison("repaint, 100x50 at 1280x800", size.name, [=] { return repaint(options, PAGE_DENSE, size); });
    }
}
