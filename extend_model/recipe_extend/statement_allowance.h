// What one statement may take, by the size that the file has when it starts. Arithmetic only: knows no SQLite.
//
// A file may hold views, triggers and computed columns that never end or never stop growing. So a statement gets an
// allowance: of steps of SQLite's machine, of changed rows, of delivered bytes, of looks at the schema. These are
// counts, the same on every machine; what a plain table needs is a hundredth of them. Processor time is the last
// resort, for statements whose single steps are slow.
//
// No lock: belongs to one connection, and is asked on the thread that runs its statement.
#ifndef STATEMENT_ALLOWANCE_H
#define STATEMENT_ALLOWANCE_H

#include <cstdint>
#include <functional>

class StatementAllowance
{
public:
    /// How many steps of SQLite's machine are taken between two calls of takeSteps().
    static int stepsBetweenChecks();
    /// The most rows that any table of a file of so many bytes can have.
    static std::int64_t mostRows(std::int64_t fileBytes);
    /// The longest value, in bytes, that a statement on a file of so many bytes may make. Fits an int.
    static std::int64_t longestValue(std::int64_t fileBytes);

    /// `fileBytes` says how large the file is now. It is asked once for a statement, and not for one that takes little.
    explicit StatementAllowance(const std::function<std::int64_t()>& fileBytes);

    /// A statement begins: all of its allowance is there. One that may write asks for the size right now, so that what
    /// fills the file earns nothing by it.
    void startReading();
    void startWriting();

    // What the statement takes. False: it has taken too much and is to be ended.
    bool takeSteps();
    bool takeLook();
    bool takeBytes(std::int64_t bytes);
    /// A changed row; the steps that belong to it tell when there are too many.
    void takeChange() { ++m_changes; }

    /// The largest part of its steps and changes that the statement has taken: more than 1 is too much.
    double spentShare() const;

private:
    std::int64_t size() const;
    std::int64_t steps() const;
    std::int64_t changes() const;
    bool timeIsSpent() const;
    bool spent();

    std::function<std::int64_t()> m_fileBytes;
    int m_overruns; ///< statements so far that took more than their allowance

    // Of the current statement.
    mutable std::int64_t m_size; ///< of the file when it started, in bytes; -1: not asked yet
    std::int64_t m_started;      ///< in nanoseconds of the thread's processor time
    std::int64_t m_steps;        ///< of SQLite's machine
    std::int64_t m_changes;      ///< rows written, by triggers too
    int m_looks;                 ///< at the schema
    std::int64_t m_bytes;        ///< delivered
};

#endif
