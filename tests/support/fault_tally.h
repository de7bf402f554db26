// Counts the faults that tests put in the way, for the table at the end of ./test. What is counted is what really
// happened: a tally is written down when its test ends, and one that was begun and not ended is a crash.
//
// Written to the file that RECIPE_FAULT_COUNTS names, one line each; without it, nothing is written.
#ifndef FAULT_TALLY_H
#define FAULT_TALLY_H

#include <string>

class FaultTally
{
public:
    /// What can be wrong after a fault.
    enum Verdict
    {
        Fine,
        Found,   ///< something is not as promised, and all data are there
        LostData ///< the file is not what it must be
    };

    /// `kind` is one of those in tests/faults/print_fault_table.
    explicit FaultTally(const std::string& kind);
    ~FaultTally();
    FaultTally(const FaultTally&) = delete;
    FaultTally& operator=(const FaultTally&) = delete;

    /// One fault that was tried: whether it struck, and what it left.
    void add(bool struck, Verdict verdict);

    int tried() const { return m_tried; }
    int struck() const { return m_struck; }

private:
    std::string m_kind;
    std::string m_id;
    int m_tried = 0;
    int m_struck = 0;
    int m_found = 0;
    int m_lost = 0;
};

#endif
