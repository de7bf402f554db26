// What a repaint costs: no database work, and no memory that grows with the group.
#include "allocation_counter.h"
#include "paint_page.h"

#include <QImage>
#include <QPainter>

#include <sqlite3.h>

#include <memory>
#include <vector>

namespace {

int statements = 0;

int countStatement(unsigned, void*, void*, void*)
{
    ++statements;
    return 0;
}

int traceConnection(sqlite3* connection, const char**, const struct sqlite3_api_routines*)
{
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, countStatement, nullptr);
}

/// Every connection that is opened from here on is traced.
class StatementTrace
{
public:
    StatementTrace() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(traceConnection)); }
    ~StatementTrace() { sqlite3_reset_auto_extension(); }
};

} // namespace

class RepaintWork : public SheetFixture
{
protected:
    void paint(RecipeSheetItems& sheet)
    {
        QPainter painter(&image);
        sheet.HMIpaint(nullptr, QString(), &painter, false);
    }

    StatementTrace trace;
    QImage image = QImage(800, 480, QImage::Format_ARGB32_Premultiplied);
};

TEST_F(RepaintWork, AsksTheFileForNothing)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    statements = 0;
    RecipeSheetItems& sheet = startSheet();
    EXPECT_GT(statements, 0) << "starting the sheet reads the file";
    paint(sheet);
    statements = 0;
    paint(sheet);
    EXPECT_EQ(statements, 0);
}

TEST_F(RepaintWork, AsksTheFileForNothingAfterATapEither)
{
    writeGroup(SheetGroup::ofSize(250, 120));
    RecipeSheetItems& sheet = startSheet();
    RecipeSheetProbe probe(sheet);
    tap(sheet, probe.cellRect(2, 3).center());
    ASSERT_TRUE(probe.needsRepaint());
    statements = 0;
    paint(sheet);
    tap(sheet, probe.titleCellRect(4).center());
    paint(sheet);
    EXPECT_EQ(statements, 0);
}

TEST_F(RepaintWork, TriesNoFailedLoadOfTitlesAgain)
{
    writeGroup(SheetGroup::ofSize(12, 8));
    runSql(QStringLiteral("DELETE FROM lang_0;"));
    RecipeSheetItems& sheet = startSheet();
    statements = 0;
    paint(sheet);
    EXPECT_EQ(statements, 0);
}

TEST_F(RepaintWork, NeedsNoMoreMemoryForALargeGroup)
{
    struct Cost
    {
        std::size_t calls;
        std::size_t bytes;
    };
    std::vector<Cost> costs;
    for (const SheetGroup& group : {SheetGroup::ofSize(50, 20), SheetGroup::ofSize(1000, 200)}) {
        writeGroup(group);
        RecipeSheetItems& sheet = startSheet();
        tap(sheet, RecipeSheetProbe(sheet).cellRect(1, 2).center());
        for (int warm = 0; warm < 3; ++warm)
            paint(sheet);
        const AllocationCounter counter;
        paint(sheet);
        costs.push_back(Cost{counter.calls(), counter.bytes()});
    }
    EXPECT_GT(costs[0].calls, 0u) << "the counter counts";
    EXPECT_LE(costs[1].calls, costs[0].calls);
    EXPECT_LE(costs[1].bytes, costs[0].bytes);
}

TEST(AllocationCounter, SeesWhatTheHeapIsAskedFor)
{
    std::size_t calls = 0;
    std::size_t bytes = 0;
    {
        const AllocationCounter counter;
        const QString text(1000, QLatin1Char('x'));
        const std::unique_ptr<std::vector<int> > numbers(new std::vector<int>(100));
        calls = counter.calls();
        bytes = counter.bytes();
    }
    EXPECT_EQ(calls, 3u);
    EXPECT_GE(bytes, 2400u);
    EXPECT_LE(bytes, 2600u);
}
