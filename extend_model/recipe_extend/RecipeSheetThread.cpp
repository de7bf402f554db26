// The add/delete worker.
#include "RecipeSheetThread.h"

#include "RecipeDB.h"
#include "UHmiEvent.h"

#include <QMutexLocker>

namespace {

std::atomic<bool> leaving(false); // the library is being unloaded

void postNotice(const QString& text)
{
    UHmiEvent::hmiEventPost(new UMessageBoxEvent(text, 30, 2), nullptr);
}

} // namespace

std::atomic<RecipeSheetThread*> RecipeSheetThread::instance(nullptr);
QMutex RecipeSheetThread::mutex;
std::atomic<bool> RecipeSheetThread::fileInUse(false);

/// A runtime may unload the library: a job must have ended before its code is gone, and nobody takes its result any
/// more. (What it posted before must have been delivered: the events' code is the library's.) Called on first use,
/// behind RecipeDB's first use: what is made here is gone before the file is closed, and that before anything that
/// exists from the beginning.
void RecipeSheetThread::endWithTheLibrary()
{
    struct End
    {
        ~End()
        {
            leaving = true;
            if (RecipeSheetThread* const worker = instance.load(std::memory_order_acquire))
                worker->wait();
            release();
        }
    };
    static const End end;
    Q_UNUSED(end)
}

RecipeSheetThread* RecipeSheetThread::getInstance()
{
    RecipeSheetThread* existing = instance.load(std::memory_order_acquire);
    if (existing)
        return existing;
    QMutexLocker lock(&mutex);
    existing = instance.load(std::memory_order_relaxed);
    if (!existing) {
        existing = new RecipeSheetThread;
        instance.store(existing, std::memory_order_release);
        endWithTheLibrary();
    }
    return existing;
}

void RecipeSheetThread::release()
{
    QMutexLocker lock(&mutex);
    delete instance.load(std::memory_order_relaxed);
    instance.store(nullptr, std::memory_order_release);
}

RecipeSheetThread::RecipeSheetThread()
    : groupIndex(0), column(0), db(RecipeDB::getInstance()), callback(nullptr), op(OP_ADD), available(false)
{}

void RecipeSheetThread::startJob()
{
    fileInUse = true;
    start(QThread::InheritPriority);
    if (!isRunning()) // it could not be started, or is done already
        fileInUse = false;
}

void RecipeSheetThread::run()
{
    if (!available) {
        fileInUse = false;
        postNotice(QObject::tr("error, not available"));
        return;
    }
    const bool done = op == OP_ADD ? add() : op == OP_DELETE && del();
    fileInUse = false; // a job that failed early
    if (leaving)
        return; // nobody can take an event whose code is gone
    if (op == OP_ADD)
        postNotice(done ? QObject::tr("add success") : QObject::tr("add error"));
    else if (op == OP_DELETE)
        postNotice(done ? QObject::tr("del success") : QObject::tr("del error"));
    // After an error too: the display always reads the file again.
    UHmiEvent::hmiEventPost(new UExternalFuncCallEvent(true, QString::fromLatin1("reload_recipe"), 2), nullptr);
}

bool RecipeSheetThread::add()
{
    recipeTableInfo_t group;
    if (db->loadTable_Group(groupIndex, group) != 0)
        return false;
    for (int i = 0; i < group.items.size(); ++i) {
        QVector<QString>& values = group.items[i].values;
        if (column < values.size())
            values.insert(column + 1, QString(values.at(column)));
    }
    if (column < group.columnName.size())
        group.columnName.insert(column + 1, QVector<QString>(group.columnName.at(column)));
    return rewrite(group);
}

bool RecipeSheetThread::del()
{
    recipeTableInfo_t group;
    if (db->loadTable_Group(groupIndex, group) != 0)
        return false;
    for (int i = 0; i < group.items.size(); ++i) {
        if (column < group.items.at(i).values.size())
            group.items[i].values.remove(column);
    }
    if (column < group.columnName.size())
        group.columnName.remove(column);
    return rewrite(group);
}

bool RecipeSheetThread::rewrite(const recipeTableInfo_t& group)
{
    const int result = db->createTable_Group(groupIndex, group);
    fileInUse = false; // the result makes the sheet read the file
    if (result != 0)
        return false;
    if (callback && !leaving)
        callback(true, static_cast<int>(group.columnName.size()), static_cast<int>(group.items.size()));
    return true;
}
