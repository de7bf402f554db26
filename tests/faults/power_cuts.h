// Cuts the power at every single operation of a job. Afterwards the file opens, is whole, and holds the old or the new
// state; the new one once success was announced.
#ifndef POWER_CUTS_H
#define POWER_CUTS_H

#include "fault_tally.h"
#include "storage_jobs.h"

#include <memory>

class PowerCuts : public StorageJobs
{
protected:
    /// Every cut, with every kind of survival and the same job again afterwards, or with one kind in turn.
    void cutEverywhere(const StorageJob& job, bool thoroughly);
    /// A seeded sample of the cuts; RECIPE_CUTS tells how many.
    void cutSome(const StorageJob& job);

private:
    bool cutAt(const StorageJob& job, int n, FaultVfs::Survival survival, unsigned seed);
    void expectWhole(const StorageJob& job, bool done, const std::string& where);
    void expectTheNextJobWorks(const StorageJob& job, const std::string& where);
    void report(const StorageJob& job);

    std::unique_ptr<FaultTally> m_tally;
    bool m_thoroughly = false;
    int m_old = 0;
    int m_new = 0;
};

#endif
