// Loading blocks and groups, rewriting groups.
#include "bare_sqlite.h"
#include "bench.h"
#include "comparison.h"
#include "sheet.h"

#include "RecipeDB.h"

#include <memory>

namespace {

const int BLOCK_ITEMS = 100;
const int BLOCK_RECIPES = 50;

bool isBig(const GroupSize& size)
{
    return size.items >= 1000;
}

/// The first block of a group, or the last one that holds something.
BlockRange blockOf(const GroupSize& size, bool last)
{
    const int row = last ? (size.items - 1) / BLOCK_ITEMS * BLOCK_ITEMS : 0;
    const int column = last ? (size.recipes - 1) / BLOCK_RECIPES * BLOCK_RECIPES : 0;
    return {size.group, column, qMin(BLOCK_RECIPES, size.recipes - column), row, qMin(BLOCK_ITEMS, size.items - row)};
}

Comparison loadBlock(const BenchOptions& options, const GroupSize& size, bool last)
{
    useFile(size);
    const BlockRange block = blockOf(size, last);
    const auto sheet = std::make_shared<Sheet>(PAGE_SMALL, size.group);
    const auto bare = std::make_shared<BareSqlite>(recipePath());
    Comparison comparison;
    comparison.ours = [=] {
        return measure(Clock::Processor, [&] {
            sheet->item().loadDataBlock(block.row / BLOCK_ITEMS, block.column / BLOCK_RECIPES, true);
        });
    };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { stepBlock(*bare, block); }); };
    comparison.limitAim = isBig(size) ? 2 : 3;
    comparison.rounds = rounds(options, isBig(size) ? 40 : 200);
    return comparison;
}

Comparison loadGroup(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    const auto bare = std::make_shared<BareSqlite>(recipePath());
    Comparison comparison;
    comparison.ours = [=] {
        recipeTableInfo_t info;
        return measure(Clock::Processor, [&] { RecipeDB::getInstance()->loadTable_Group(size.group, info); });
    };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { stepGroup(*bare, size.group); }); };
    comparison.limitAim = 2;
    comparison.rounds = rounds(options, isBig(size) ? 5 : 40);
    return comparison;
}

/// The limit runs the very texts that RecipeDB runs, on a copy of the file on the same disk.
Comparison rewriteGroup(const BenchOptions& options, const GroupSize& size)
{
    const auto group = std::make_shared<recipeTableInfo_t>();
    const auto rewrite = [=] { RecipeDB::getInstance()->createTable_Group(size.group, *group); };
    useFile(size);
    RecipeDB::getInstance()->loadTable_Group(size.group, *group);
    const QList<QByteArray> statements = recordStatements(recipePath(), rewrite);
    const auto bare = std::make_shared<BareSqlite>(makeCopy());
    Comparison comparison;
    comparison.ours = [=] { return measure(Clock::Processor, rewrite); };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { bare->exec(statements); }); };
    comparison.limitAim = 1.3;
    comparison.rounds = rounds(options, isBig(size) ? 5 : 40);
    return comparison;
}

} // namespace

void addStorageRows(const BenchOptions& options)
{
    for (const GroupSize& size : options.sizes) {
        addComparison("load the first block", size.name, [=] { return loadBlock(options, size, false); });
        addComparison("load the last block", size.name, [=] { return loadBlock(options, size, true); });
    }
    for (const GroupSize& size : options.sizes)
        addComparison("load a whole group", size.name, [=] { return loadGroup(options, size); });
    for (const GroupSize& size : options.sizes)
        addComparison("rewrite a group", size.name, [=] { return rewriteGroup(options, size); });
}
