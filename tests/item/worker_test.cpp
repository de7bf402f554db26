// The worker on its own.
#include "RecipeDB.h"
#include "RecipeSheetThread.h"
#include "UHmiEvent.h"
#include "sheet_fixture.h"
#include "sqlite_errors.h"

namespace {

struct Result
{
    bool ok;
    int columns;
    int rows;
    QThread* thread;
};

QList<Result> results;

void noteResult(bool ok, int columns, int rows)
{
    results.append(Result{ok, columns, rows, QThread::currentThread()});
}

class Worker : public SheetFixture
{
protected:
    Worker()
    {
        results.clear();
        writeGroup(SheetGroup::ofSize(4, 3));
        EXPECT_EQ(RecipeDB::getInstance()->OpenRecipeFile(recipeFile()), 0);
        worker = RecipeSheetThread::getInstance();
    }

    void run(int op, int column)
    {
        worker->groupIndex = 0;
        worker->column = column;
        worker->op = op;
        worker->callback = noteResult;
        worker->available = true;
        worker->startJob();
        worker->wait();
        EXPECT_FALSE(RecipeSheetThread::usesFile());
        settle();
    }

    static QString text(const char* latin1) { return QString::fromLatin1(latin1); }
    static QStringList rows() { return querySql(text("SELECT column, D0, D1, D2, D3 FROM data_0 ORDER BY column;")); }
    static QStringList titles() { return querySql(text("SELECT strIndex, L0, L7 FROM lang_0 WHERE type = 2;")); }

    RecipeSheetThread* worker;
};

} // namespace

TEST_F(Worker, IsOneObjectWithItsOwnNameAndNoSignals)
{
    EXPECT_EQ(RecipeSheetThread::getInstance(), worker);
    EXPECT_STREQ(worker->metaObject()->className(), "RecipeSheetThread");
    EXPECT_EQ(worker->metaObject()->methodCount(), worker->metaObject()->superClass()->methodCount());
    EXPECT_EQ(worker->db, RecipeDB::getInstance());
    EXPECT_FALSE(worker->available);
}

TEST_F(Worker, IsFreshAfterARelease)
{
    worker->available = true;
    RecipeSheetThread::release();
    EXPECT_FALSE(RecipeSheetThread::getInstance()->available);
    EXPECT_EQ(RecipeSheetThread::getInstance()->db, RecipeDB::getInstance());
}

TEST_F(Worker, OnlySaysErrorWithoutAJob)
{
    worker->startJob();
    worker->wait();
    settle();
    EXPECT_EQ(requests.log, QStringList(text("message error, not available 30 2")));
    EXPECT_FALSE(RecipeSheetThread::usesFile());
}

TEST_F(Worker, OnlyAsksForTheReloadAfterAnUnknownJob)
{
    run(2, 0);
    EXPECT_EQ(requests.log, QStringList(text("call reload_recipe")));
    EXPECT_EQ(requests.calls.at(0).argument, 2u);
    EXPECT_TRUE(results.isEmpty());
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(Worker, CopiesARecipeToThePlaceBehindItWithAllItsTitles)
{
    run(RecipeSheetThread::OP_ADD, 0);
    EXPECT_EQ(rows(), QStringList({text("0|0.0|1000.0|2000.0|3000.0"), text("1|0.0|1000.0|2000.0|3000.0"),
                                   text("2|1.0|1001.0|2001.0|3001.0"), text("3|2.0|1002.0|2002.0|3002.0")}));
    EXPECT_EQ(titles(), QStringList({text("0|Recipe0|Recipe0 L7"), text("1|Recipe0|Recipe0 L7"),
                                     text("2|Recipe1|Recipe1 L7"), text("3|Recipe2|Recipe2 L7")}));
    EXPECT_EQ(querySql(text("SELECT row, column FROM recipe_config;")), QStringList(text("4|4")));
    EXPECT_EQ(requests.log, QStringList({text("message add success 30 2"), text("call reload_recipe")}));
    ASSERT_EQ(results.size(), 1);
    EXPECT_TRUE(results.at(0).ok);
    EXPECT_EQ(results.at(0).columns, 4);
    EXPECT_EQ(results.at(0).rows, 4);
    EXPECT_EQ(results.at(0).thread, worker) << "on the worker's own thread";
}

TEST_F(Worker, AppendsTheCopyOfTheLastRecipe)
{
    run(RecipeSheetThread::OP_ADD, 2);
    EXPECT_EQ(querySql(text("SELECT D0 FROM data_0 ORDER BY column;")),
              QStringList({text("0.0"), text("1.0"), text("2.0"), text("2.0")}));
    EXPECT_EQ(titles().last(), text("3|Recipe2|Recipe2 L7"));
}

TEST_F(Worker, RemovesARecipeWithItsTitles)
{
    run(RecipeSheetThread::OP_DELETE, 1);
    EXPECT_EQ(rows(), QStringList({text("0|0.0|1000.0|2000.0|3000.0"), text("1|2.0|1002.0|2002.0|3002.0")}));
    EXPECT_EQ(titles(), QStringList({text("0|Recipe0|Recipe0 L7"), text("1|Recipe2|Recipe2 L7")}));
    EXPECT_EQ(requests.log, QStringList({text("message del success 30 2"), text("call reload_recipe")}));
    ASSERT_EQ(results.size(), 1);
    EXPECT_EQ(results.at(0).columns, 2);
}

TEST_F(Worker, ChangesNothingForARecipeThatIsNotThereAndSaysSuccess)
{
    const QStringList cells = rows();
    const QStringList names = titles();
    for (int op : {RecipeSheetThread::OP_ADD, RecipeSheetThread::OP_DELETE}) {
        requests.clear();
        run(op, 3);
        EXPECT_EQ(rows(), cells);
        EXPECT_EQ(titles(), names);
        EXPECT_EQ(requests.messageTexts(), QStringList(text(op == 0 ? "add success" : "del success")));
        EXPECT_EQ(results.last().columns, 3);
    }
    EXPECT_EQ(results.size(), 2);
}

TEST_F(Worker, SaysErrorAndCallsNobodyWhenTheGroupCannotBeLoaded)
{
    runSql(text("DROP TABLE addr_0;"));
    SqliteErrors errors;
    run(RecipeSheetThread::OP_ADD, 0);
    run(RecipeSheetThread::OP_DELETE, 0);
    EXPECT_EQ(requests.log, QStringList({text("message add error 30 2"), text("call reload_recipe"),
                                         text("message del error 30 2"), text("call reload_recipe")}));
    EXPECT_TRUE(results.isEmpty());
}

TEST_F(Worker, LeavesTheLastRecipeInPlace)
{
    run(RecipeSheetThread::OP_DELETE, 0);
    run(RecipeSheetThread::OP_DELETE, 0);
    results.clear();
    requests.clear();
    const QStringList cells = rows();
    ASSERT_EQ(cells.size(), 1);
    run(RecipeSheetThread::OP_DELETE, 0);
    EXPECT_EQ(requests.log, QStringList({text("message del error 30 2"), text("call reload_recipe")}));
    EXPECT_TRUE(results.isEmpty());
    EXPECT_EQ(rows(), cells);
    run(RecipeSheetThread::OP_ADD, 0);
    EXPECT_EQ(rows().size(), 2) << "later jobs work";
}

TEST_F(Worker, LeavesOtherGroupsAlone)
{
    SheetGroup other = SheetGroup::ofSize(2, 2);
    other.group = 7;
    writeGroup(other);
    run(RecipeSheetThread::OP_ADD, 0);
    EXPECT_EQ(querySql(text("SELECT * FROM data_7;")), QStringList({text("0|0.0|1000.0"), text("1|1.0|1001.0")}));
    EXPECT_EQ(querySql(text("SELECT group_index, row, column FROM recipe_config;")),
              QStringList({text("0|4|4"), text("7|2|2")}));
}

TEST_F(Worker, DoesWithoutSomebodyToTell)
{
    worker->groupIndex = 0;
    worker->column = 0;
    worker->callback = nullptr;
    EXPECT_TRUE(worker->add());
    EXPECT_TRUE(worker->del());
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(Worker, PostsNoticesOfTypeThousandAndSevenAndRequestsOfTypeThousandAndTen)
{
    /// Sees the posted events themselves.
    class Watch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == static_cast<QEvent::Type>(1007))
                seen.append(QString::fromLatin1("1007 %1").arg(static_cast<UMessageBoxEvent*>(event)->text));
            if (event->type() == static_cast<QEvent::Type>(1010)) {
                const UExternalFuncCallEvent* call = static_cast<UExternalFuncCallEvent*>(event);
                seen.append(
                    QString::fromLatin1("1010 %1 %2 %3").arg(call->functionName).arg(call->flag).arg(call->argument));
            }
            return false;
        }
        QStringList seen;
    } watch;
    runtime().installEventFilter(&watch);
    run(RecipeSheetThread::OP_ADD, 0);
    runtime().removeEventFilter(&watch);
    EXPECT_EQ(watch.seen, QStringList({text("1007 add success"), text("1010 reload_recipe 1 2")}));
}

TEST_F(Worker, UsesTheFileFromItsStartUntilTheResultIsHandedOn)
{
    static QList<bool> used;
    used.clear();
    worker->groupIndex = 0;
    worker->column = 0;
    worker->op = RecipeSheetThread::OP_ADD;
    worker->available = true;
    worker->callback = [](bool, int, int) { used.append(RecipeSheetThread::usesFile()); };
    EXPECT_FALSE(RecipeSheetThread::usesFile());
    worker->startJob();
    worker->wait();
    EXPECT_EQ(used, QList<bool>({false})) << "whoever takes the result reads the file";
    settle();
}
