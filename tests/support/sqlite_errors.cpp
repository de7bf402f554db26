// Standard output becomes a stream that notes what passes and hands it on at once, so that nothing is lost when a
// test crashes.
#include "sqlite_errors.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <mutex>

#include <unistd.h>

namespace {

/// What has been printed. Lives as long as the process: the last texts come when the process ends.
struct Record
{
    std::mutex guard; // texts come from any thread
    bool expecting = false;
    std::string text;       // since the last change of `expecting` or the beginning of the test
    std::size_t taken = 0;  // how much of it a test has seen
    std::string unexpected; // stretches with an error in them, since the beginning of the test

    static Record& get()
    {
        static Record* const record = new Record;
        return *record;
    }

    int errors() const
    {
        static const char MARK[] = "CSqliteInter::";
        int result = 0;
        for (std::size_t at = text.find(MARK); at != std::string::npos; at = text.find(MARK, at + 1))
            ++result;
        return result;
    }

    /// Begins a new stretch.
    void turn(bool nowExpecting)
    {
        if (!expecting && errors() > 0)
            unexpected += text;
        std::string().swap(text); // and its memory: some tests count that
        taken = 0;
        expecting = nowExpecting;
    }
};

using Lock = std::lock_guard<std::mutex>;

ssize_t passOn(void*, const char* data, std::size_t size)
{
    {
        const Lock lock(Record::get().guard);
        Record::get().text.append(data, size);
    }
    for (std::size_t done = 0; done < size;) {
        const ssize_t written = ::write(STDOUT_FILENO, data + done, size - done);
        if (written <= 0)
            break;
        done += static_cast<std::size_t>(written);
    }
    return static_cast<ssize_t>(size);
}

class Watch : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { takeUnexpected(); }

    void OnTestEnd(const testing::TestInfo&) override
    {
        const std::string text = takeUnexpected();
        if (!text.empty())
            ADD_FAILURE() << "unexpected SQLite error: " << text;
    }

    static std::string takeUnexpected()
    {
        std::fflush(stdout);
        const Lock lock(Record::get().guard);
        Record::get().turn(false);
        std::string text;
        text.swap(Record::get().unexpected);
        return text;
    }
};

} // namespace

void installSqliteErrorWatch()
{
    cookie_io_functions_t functions = {};
    functions.write = passOn;
    std::FILE* const stream = fopencookie(nullptr, "w", functions);
    if (!stream) {
        ADD_FAILURE() << "standard output cannot be watched";
        return;
    }
    std::setvbuf(stream, nullptr, _IOLBF, BUFSIZ);
    std::fflush(stdout);
    stdout = stream;
    testing::UnitTest::GetInstance()->listeners().Append(new Watch);
}

SqliteErrors::SqliteErrors(Kind kind) : m_kind(kind)
{
    std::fflush(stdout);
    const Lock lock(Record::get().guard);
    Record::get().turn(true);
}

SqliteErrors::~SqliteErrors()
{
    const int errors = count();
    {
        const Lock lock(Record::get().guard);
        Record::get().turn(false);
    }
    if (m_kind == Required) {
        EXPECT_GT(errors, 0) << "no SQLite error was printed";
    }
}

std::string SqliteErrors::take()
{
    std::fflush(stdout);
    const Lock lock(Record::get().guard);
    Record& record = Record::get();
    const std::string fresh = record.text.substr(record.taken);
    record.taken = record.text.size();
    return fresh;
}

int SqliteErrors::count() const
{
    std::fflush(stdout);
    const Lock lock(Record::get().guard);
    return Record::get().errors();
}
