// The operator goes on while recipes are added and deleted: taps, scrolls, edits and paints on one thread, the job on
// the other. For the thread sanitizer as much as for the sheet that must be right at the end.
#include "edit_confirmation.h"
#include "touch_events.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <random>

namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
const int ITEMS = 230;
const int RECIPES = 130;
const int ROUNDS = 3;
#else
const int ITEMS = 1000;
const int RECIPES = 1000;
const int ROUNDS = 1;
#endif

/// The longest times of one job, in milliseconds.
struct Longest
{
    qint64 gap = 0; ///< between the ends of two repaints
    qint64 job = 0;
    int paints = 0;
};

class AWorkingOperator : public TouchFixture
{
protected:
    AWorkingOperator() : random(7), image(800, 480, QImage::Format_ARGB32_Premultiplied)
    {
        writeGroup(SheetGroup::ofSize(ITEMS, RECIPES));
        sheet = &startSheet();
        sinceRepaint.start();
    }

    RecipeSheetProbe probe() { return RecipeSheetProbe(*sheet); }
    int pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }

    void paint()
    {
        QPainter painter(&image);
        sheet->HMIpaint(nullptr, QString(), &painter, false);
        painter.end();
        longest.gap = qMax(longest.gap, sinceRepaint.restart());
        ++longest.paints;
    }

    /// One thing that an operator does between two repaints.
    void doSomething()
    {
        switch (pick(0, 5)) {
        case 0:
            tap(*sheet, cell(pick(0, 4), pick(0, 9)));
            break;
        case 1:
            doubleTap(*sheet, cell(pick(0, 4), pick(1, 9)));
            sheet->keyboardReflash(latin1("77"));
            break;
        case 2:
            drag(probe().horizontalThumbRect().center(), QPointF(pick(-9, 12), 0));
            break;
        case 3:
            drag(probe().verticalThumbRect().center(), QPointF(0, pick(-9, 12)));
            break;
        case 4:
            tap(*sheet, pick(0, 1) ? rightArrow() : downArrow());
            break;
        default:
            registers().setWord(latin1("LW"), 60803, pick(0, RECIPES - 1));
        }
    }

    void drag(const QPointF& from, const QPointF& step)
    {
        press(*sheet, from);
        for (int i = 1; i <= 10; ++i) {
            move(*sheet, from + step * i);
            paint();
        }
        release(*sheet, nowhere());
    }

    /// Works on until the job is done. `from` is the first recipe that moves, by `shift`.
    Longest workUntilDone(int from, int shift)
    {
        longest = Longest();
        QElapsedTimer job;
        job.start();
        sinceRepaint.start();
        while (probe().worker()->isRunning()) {
            doSomething();
            QCoreApplication::processEvents();
            paint();
            checkPage(from, shift);
            sinceRepaint.restart(); // the check is not the operator's
        }
        longest.job = job.elapsed();
        return longest;
    }

    /// Every text on the page is one of its recipe, before the job or after it; nothing is half of anything.
    void checkPage(int from, int shift)
    {
        for (int c = 0; c < 5; ++c) {
            const int column = probe().firstColumn() + c;
            const QString title = sheet->getColumnName(column);
            EXPECT_TRUE(title == latin1("Recipe%1").arg(column) || title == latin1("Col%1").arg(column)
                        || (column >= from && title == latin1("Recipe%1").arg(column - shift)))
                << title.toStdString() << " at " << column;
            for (int r = 0; r < 10; ++r)
                checkCell(c, r, column, probe().firstRow() + r, from, shift);
        }
    }

    void checkCell(int c, int r, int column, int row, int from, int shift)
    {
        const QString text = probe().cellText(c, r);
        EXPECT_TRUE(text == QString::number(row * 1000 + column) || text == latin1("77") || text.isEmpty()
                    || text == latin1("Loading...")
                    || (column >= from && text == QString::number(row * 1000 + column - shift)))
            << text.toStdString() << " at " << column << ", " << row;
    }

    /// The oldest block leaves, and it may be one of the page's own, of which there are four at the most. Each further
    /// look at the page reads one again.
    void showWholePage()
    {
        for (int look = 0; look < 4; ++look)
            sheet->checkAndLoadRequiredBlocks();
    }

    /// Goes through the group and compares with the file.
    void compareWithFile()
    {
        for (int at = 0; at < probe().recipeCount(); at += 37) {
            sheet->selectCol(at);
            showWholePage();
            paint();
            const int column = probe().firstColumn();
            const int row = probe().firstRow();
            QStringList fields;
            for (int r = 0; r < 10; ++r)
                fields.append(latin1("D%1").arg(row + r));
            const QStringList texts =
                querySql(
                    latin1("SELECT %1 FROM data_0 WHERE column = %2;").arg(fields.join(QLatin1Char(','))).arg(column))
                    .at(0)
                    .split(QLatin1Char('|'));
            for (int r = 0; r < 10; ++r)
                EXPECT_EQ(probe().cellText(0, r) + latin1(".0"), texts.at(r)) << "recipe " << column << ", row " << r;
            EXPECT_EQ(QStringList(sheet->getColumnName(column)),
                      querySql(latin1("SELECT L0 FROM lang_0 WHERE type = 2 AND strIndex = %1;").arg(column)));
        }
    }

    void tell(const char* what, const Longest& of)
    {
        QElapsedTimer reload;
        reload.start();
        sheet->update_result(4);
        std::printf("%s in %d x %d: %lld ms, %d repaints, longest gap %lld ms; reload of %d cached blocks %lld ms\n",
                    what, ITEMS, RECIPES, static_cast<long long>(of.job), of.paints, static_cast<long long>(of.gap),
                    static_cast<int>(probe().blocks().size()), static_cast<long long>(reload.elapsed()));
    }

    std::mt19937 random;
    QImage image;
    RecipeSheetItems* sheet;
    Longest longest;
    QElapsedTimer sinceRepaint;
};

} // namespace

TEST_F(AWorkingOperator, SeesWholePagesWhileRecipesAreAddedAndDeletedAndTheRightOnesAfterwards)
{
    const int from = RECIPES / 3;
    for (int round = 0; round < ROUNDS; ++round) {
        sheet->selectCol(from);
        Confirmation confirmation(Confirmation::Yes);
        tap(*sheet, addButton());
        const Longest adding = workUntilDone(from, 1);
        probe().editedCells().clear(); // typed while columns moved; kept where they were
        settle();
        EXPECT_EQ(probe().recipeCount(), RECIPES + 1);
        tell("add", adding);
        compareWithFile();

        sheet->selectCol(from);
        tap(*sheet, deleteButton());
        const Longest deleting = workUntilDone(from, 1);
        probe().editedCells().clear();
        settle();
        EXPECT_EQ(probe().recipeCount(), RECIPES);
        tell("delete", deleting);
        compareWithFile();
    }
    const QStringList messages = requests.messageTexts();
    EXPECT_EQ(messages.count(latin1("add success")), ROUNDS);
    EXPECT_EQ(messages.count(latin1("del success")), ROUNDS);
}
