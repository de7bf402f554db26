// Standard output is for data, standard error for talk. What a program behind a pipe reads is never mixed with talk.
#ifndef CONSOLE_H
#define CONSOLE_H

#include <string>

/// Writes data to standard output. A failure is kept for finishData.
void printData(const std::string& text);

/// Writes out what is still held back. The errno of the first failure to write data, 0 where all went out.
int finishData();

/// Descriptors 0 to 2 that the caller closed lead nowhere from here on. Otherwise the next file that is opened would
/// get one of these numbers, and the data or the talk.
void occupyStandardDescriptors();

/// Writes one line of talk to standard error, behind the program's name.
void say(const std::string& sentence);

/// "recipe-file: 42 of 2000 recipes", rewritten in place. Shown only where standard error is a terminal and the work
/// has lasted a while; the line is removed at the end.
class Progress
{
public:
    Progress(std::string unit, long long total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    void reach(long long done);

private:
    std::string m_unit;
    long long m_total;
    long long m_start; ///< milliseconds
    long long m_shownAt;
    bool m_terminal;
    bool m_visible;
};

/// For its lifetime, whatever is printed to standard output goes to standard error: the storage layer reports SQLite's
/// failures with printf.
class StdoutIsTalk
{
public:
    StdoutIsTalk();
    ~StdoutIsTalk();
    StdoutIsTalk(const StdoutIsTalk&) = delete;
    StdoutIsTalk& operator=(const StdoutIsTalk&) = delete;

private:
    int m_saved; ///< the real standard output
};

#endif
