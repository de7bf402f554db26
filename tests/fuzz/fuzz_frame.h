// What the fuzzers share. A fuzzer is a program of libFuzzer's (clang) that feeds one function with inputs, and keeps
// and varies those that reached code which no input reached before. See CONTRIBUTING.md for how to run one.
//
// Each runs under tools/with-project-dir, so that /usr/tabrix/project/ is private and in memory.
#ifndef FUZZ_FRAME_H
#define FUZZ_FRAME_H

#include <QString>

#include <cstdint>
#include <string>

/// Counts how often a fuzzer got to a place that it is meant to reach; a fuzzer whose inputs are all refused at the
/// door finds nothing and looks as green as a good one. At the end of the process "NAME COUNT" goes, a line for each,
/// to the file that RECIPE_FUZZ_REACHED names; tests/fuzz/run-fuzzer holds the shares against what is wanted.
///
/// To be defined once each, at namespace scope.
class Reached
{
public:
    explicit Reached(const char* name);
    Reached(const Reached&) = delete;
    Reached& operator=(const Reached&) = delete;
    void operator++() { ++m_count; }

private:
    friend void writeReached();
    const char* m_name;
    unsigned long m_count;
    Reached* m_next;
};

/// To be called from LLVMFuzzerInitialize: a GUI application without a display, nothing on standard output (where
/// SQLite's refusals are printed), and an end of the process at a warning of Qt's: what warns is a finding.
void startFuzzing();

/// The name of a file in the private project folder.
QString projectFile(const char* name);
void writeProjectFile(const char* name, const void* bytes, std::size_t size);
std::string readProjectFile(const char* name);

/// Ends the process as a finding.
[[noreturn]] void report(const std::string& sentence);

#endif
