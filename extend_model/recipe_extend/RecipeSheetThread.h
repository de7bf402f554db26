// The worker that adds and deletes a recipe by rewriting its whole group. One per process.
#ifndef RECIPE_SHEET_THREAD_H
#define RECIPE_SHEET_THREAD_H

#include "recipe_records.h"

#include <QMutex>
#include <QThread>

#include <atomic>

class RecipeDB;

class RecipeSheetThread : public QThread
{
    Q_OBJECT

public:
    enum Operation
    {
        OP_ADD = 0,
        OP_DELETE = 1
    };

    /// Takes the result: success, number of recipes, number of items. Called on the worker thread, and only on
    /// success.
    typedef void (*Callback)(bool ok, int columns, int rows);

    /// The one worker, created on first use, owned by the class.
    static RecipeSheetThread* getInstance();
    /// Destroys it. Neither stops a job nor waits for one: only while none runs.
    static void release();

    /// Whether a job is reading or rewriting its group: from just before its start until the group stands in the file
    /// again or has been left as it was. What is read meanwhile may be half a group, and reading may wait for as long
    /// as the rewrite takes; so the GUI thread leaves the file alone. Cleared before the result is handed on.
    static bool usesFile() { return fileInUse; }
    /// Starts the job. Only while none runs.
    void startJob();

    /// Copies the recipe `column` to the place behind it. False: the group could not be loaded or rewritten.
    bool add();
    /// Removes the recipe `column`.
    bool del();

    // The job. Written by the item while no job runs, read by the job.
    int groupIndex;
    int column;   ///< recipe, from 0
    RecipeDB* db; ///< not owned
    Callback callback;
    int op;
    bool available; ///< a job has been prepared

protected:
    void run() override;

private:
    RecipeSheetThread();
    bool rewrite(const recipeTableInfo_t& group);
    static void endWithTheLibrary();

    static std::atomic<RecipeSheetThread*> instance;
    static QMutex mutex; // guards creation and release
    static std::atomic<bool> fileInUse;
};

#endif
