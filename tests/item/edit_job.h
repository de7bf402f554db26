// Jobs of the worker that a test holds in mid-air.
#ifndef EDIT_JOB_H
#define EDIT_JOB_H

#include "RecipeDB.h"
#include "RecipeSheetItems.h"
#include "RecipeSheetThread.h"
#include "recipe_db_probe.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>

/// Halts every statement that begins with a text on the connection of the one RecipeDB, until the gate is opened. The
/// thread that halts holds the locks of RecipeDB: whoever wants to read the file then waits too.
class StatementGate
{
public:
    explicit StatementGate(const std::string& prefix) : m_prefix(prefix)
    {
        sqlite3_trace_v2(connection(), SQLITE_TRACE_STMT, &StatementGate::begin, this);
    }
    /// Only when nothing is halted any more.
    ~StatementGate()
    {
        sqlite3_trace_v2(connection(), 0, nullptr, nullptr);
        EXPECT_FALSE(m_forgotten) << "somebody waited for a job that was held";
    }
    StatementGate(const StatementGate&) = delete;
    StatementGate& operator=(const StatementGate&) = delete;

    void waitUntilReached()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] { return m_reached; });
    }

    void open()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_open = true;
        m_changed.notify_all();
    }

private:
    static sqlite3* connection() { return RecipeDBProbe::handle(*RecipeDB::getInstance()); }

    static int begin(unsigned, void* self, void* statement, void*)
    {
        static_cast<StatementGate*>(self)->pass(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
        return 0;
    }

    void pass(const char* sql)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_open || std::string(sql ? sql : "").compare(0, m_prefix.size(), m_prefix) != 0)
            return;
        m_reached = true;
        m_changed.notify_all();
        // A test that waits for the halted job itself would never end.
        if (!m_changed.wait_for(lock, std::chrono::seconds(60), [this] { return m_open; }))
            m_forgotten = m_open = true;
    }

    const std::string m_prefix;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_reached = false;
    bool m_open = false;
    bool m_forgotten = false;
};

/// A job of the worker, halted in the middle of its rewrite until finish() or the end.
class HeldJob
{
public:
    explicit HeldJob(int op = RecipeSheetThread::OP_ADD, int column = 0,
                     const std::string& statement = "INSERT INTO data_0")
        : m_gate(statement), m_worker(RecipeSheetThread::getInstance())
    {
        m_worker->groupIndex = 0;
        m_worker->column = column;
        m_worker->op = op;
        m_worker->callback = &RecipeSheetItems::replace;
        m_worker->available = true;
        m_worker->startJob();
        m_gate.waitUntilReached();
    }
    ~HeldJob() { finish(); }
    HeldJob(const HeldJob&) = delete;
    HeldJob& operator=(const HeldJob&) = delete;

    /// Lets the job go on and waits for its end.
    void finish()
    {
        m_gate.open();
        m_worker->wait();
    }

private:
    StatementGate m_gate;
    RecipeSheetThread* m_worker;
};

#endif
