// recipe-file beside a bare loop over the same rows: taking a group out, and bringing a changed one in.
#include "bare_sqlite.h"
#include "bench.h"
#include "comparison.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

const int CHANGED_EVERY = 10; ///< of the items, in every recipe

[[noreturn]] void giveUp(const std::string& what)
{
    std::fprintf(stderr, "recipe_bench: %s\n", what.c_str());
    std::exit(1);
}

/// A program as a user runs it, its talk thrown away: seconds of processor time, user and kernel. Whatever it ends with
/// but 0 ends the bench.
double runProgram(std::vector<std::string> words)
{
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(&word[0]);
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int started = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage used;
    if (started != 0 || wait4(child, &status, 0, &used) != child || status != 0)
        giveUp("cannot run " + words[0] + ' ' + words[1]);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

double runTool(const BenchOptions& options, std::vector<std::string> words)
{
    words.insert(words.begin(), options.toolProgram);
    return runProgram(words);
}

std::string beside(const char* name)
{
    return (QFileInfo(recipePath()).path() + QLatin1Char('/') + QLatin1String(name)).toStdString();
}

std::string fresh(const char* name)
{
    QFile::remove(QString::fromStdString(beside(name)));
    return beside(name);
}

std::string table(const char* kind, const GroupSize& size)
{
    return kind + std::to_string(size.group);
}

/// A connection that is closed on every path; a failure ends the bench.
class Connection
{
public:
    explicit Connection(const std::string& path)
    {
        if (sqlite3_open(path.c_str(), &m_handle) != SQLITE_OK)
            giveUp("cannot open " + path);
    }
    ~Connection() { sqlite3_close(m_handle); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void exec(const std::string& sql)
    {
        if (sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            giveUp(sqlite3_errmsg(m_handle));
    }
    sqlite3_stmt* prepare(const std::string& sql)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
            giveUp(sqlite3_errmsg(m_handle));
        return statement;
    }

private:
    sqlite3* m_handle = nullptr;
};

/// Every value of the group as SQLite tells it, into a file. `visit` gets the text of each value.
template <typename Visit> void stepValues(Connection& file, const GroupSize& size, Visit visit)
{
    sqlite3_stmt* row = file.prepare("SELECT * FROM " + table("data_", size) + " ORDER BY rowid");
    while (sqlite3_step(row) == SQLITE_ROW) {
        for (int i = 1; i <= size.items; ++i)
            visit(reinterpret_cast<const char*>(sqlite3_column_text(row, i)), sqlite3_column_bytes(row, i),
                  i == size.items);
    }
    sqlite3_finalize(row);
}

void bareExport(const GroupSize& size)
{
    Connection file(recipePath().toStdString());
    std::ofstream out(fresh("bare.csv"), std::ios::binary);
    stepValues(file, size,
               [&](const char* text, int bytes, bool last) { out.write(text, bytes).put(last ? '\n' : ','); });
}

Comparison exportGroup(const BenchOptions& options, const GroupSize& size, const char* format)
{
    useFile(size);
    Comparison comparison;
    const std::string group = std::to_string(size.group);
    comparison.ours = [=] {
        return runTool(
            options, {"export", recipePath().toStdString(), fresh("out.sheet"), "--group", group, "--format", format});
    };
    comparison.limit = [=] { return measure(Clock::Processor, [&] { bareExport(size); }); };
    comparison.rounds = rounds(options, 5);
    return comparison;
}

/// Another value for every tenth item of each recipe.
std::string changeStatement(const GroupSize& size)
{
    std::string sql;
    for (int i = 0; i < size.items; i += CHANGED_EVERY) {
        const std::string d = 'D' + std::to_string(i);
        sql += (i > 0 ? ", " : "") + d + " = CASE WHEN typeof(" + d + ") = 'text' THEN " + d + " WHEN " + d
               + " > 1 THEN " + d + " - 1 ELSE " + d + " + 1 END";
    }
    return "UPDATE " + table("data_", size) + " SET " + sql;
}

void copyFile(const std::string& to)
{
    QFile::remove(QString::fromStdString(to));
    QFile::copy(recipePath(), QString::fromStdString(to));
}

/// The sheet of the changed group.
void makeChangedSheet(const BenchOptions& options, const GroupSize& size)
{
    copyFile(beside("changed.db3"));
    Connection(beside("changed.db3")).exec(changeStatement(size));
    runTool(options, {"export", beside("changed.db3"), fresh("changed.csv"), "--group", std::to_string(size.group)});
}

std::vector<sqlite3_int64> rowNumbers(Connection& file, const GroupSize& size)
{
    std::vector<sqlite3_int64> numbers;
    sqlite3_stmt* row = file.prepare("SELECT rowid FROM " + table("data_", size) + " ORDER BY rowid");
    while (sqlite3_step(row) == SQLITE_ROW)
        numbers.push_back(sqlite3_column_int64(row, 0));
    sqlite3_finalize(row);
    return numbers;
}

/// Reads all values, as whoever tells old from new must, and writes the new ones: one statement for each recipe.
void bareImport(const GroupSize& size, const std::string& path)
{
    Connection file(path);
    qint64 bytes = 0;
    stepValues(file, size, [&](const char*, int length, bool) { bytes += length; });
    benchmark::DoNotOptimize(bytes);
    std::string sql;
    for (int i = 0; i < size.items; i += CHANGED_EVERY)
        sql += (i > 0 ? ", D" : "D") + std::to_string(i) + " = ?";
    const std::vector<sqlite3_int64> rows = rowNumbers(file, size);
    file.exec("BEGIN IMMEDIATE");
    sqlite3_stmt* update = file.prepare("UPDATE " + table("data_", size) + " SET " + sql + " WHERE rowid = ?");
    for (const sqlite3_int64 row : rows) {
        int parameter = 1;
        for (int i = 0; i < size.items; i += CHANGED_EVERY)
            sqlite3_bind_text(update, parameter++, "12.5", -1, SQLITE_STATIC);
        sqlite3_bind_int64(update, parameter, row);
        sqlite3_step(update);
        sqlite3_reset(update);
    }
    sqlite3_finalize(update);
    file.exec("COMMIT");
}

Comparison importGroup(const BenchOptions& options, const GroupSize& size)
{
    useFile(size);
    makeChangedSheet(options, size);
    Comparison comparison;
    comparison.ours = [=] {
        copyFile(beside("target.db3"));
        const double seconds = runTool(
            options, {"import", beside("target.db3"), beside("changed.csv"), "--group", std::to_string(size.group)});
        for (const QString& backup : QDir(QFileInfo(recipePath()).path()).entryList({QStringLiteral("*.bak")}))
            QFile::remove(QFileInfo(recipePath()).path() + QLatin1Char('/') + backup);
        return seconds;
    };
    comparison.limit = [=] {
        copyFile(beside("target.db3"));
        return measure(Clock::Processor, [&] { bareImport(size, beside("target.db3")); });
    };
    comparison.rounds = rounds(options, 3);
    return comparison;
}

/// What the program holds at most while it exports. A child of this process would start with this one's peak, so a
/// small program (GNU time) stands between.
double residentKib(const BenchOptions& options, const GroupSize& size, const char* format)
{
    useFile(size);
    runProgram({"/usr/bin/time", "-f", "%M", "-o", fresh("peak"), options.toolProgram, "export",
                recipePath().toStdString(), fresh("out.sheet"), "--group", std::to_string(size.group), "--format",
                format});
    double kib = 0;
    std::ifstream(beside("peak")) >> kib;
    return kib;
}

/// Beside the same of a group with the same items and a quarter of the recipes: what grows with recipes shows.
void measureMemory(const BenchOptions& options, const GroupSize& size)
{
    const std::string fewer = std::string(size.name) + "_quarter";
    const GroupSize quarter = {fewer.c_str(), size.group, size.items, size.recipes / 4};
    for (const auto& [name, format] : {std::pair{"CSV", "csv"}, std::pair{"JSON", "json"}}) {
        Row row;
        row.what = std::string("recipe-file: peak memory, export as ") + name;
        row.size = size.name;
        row.unit = "KiB";
        row.ours = residentKib(options, size, format);
        row.limit = residentKib(options, quarter, format);
        row.limitRatio = row.ours / row.limit;
        addRow(row);
    }
}

} // namespace

void addToolRows(const BenchOptions& options)
{
    for (const GroupSize& size : options.sizes) {
        addComparison("recipe-file: export as CSV", size.name, [=] { return exportGroup(options, size, "csv"); });
        addComparison("recipe-file: export as JSON", size.name, [=] { return exportGroup(options, size, "json"); });
        addComparison("recipe-file: import, every tenth value new", size.name,
                      [=] { return importGroup(options, size); });
        const auto memory = [=](benchmark::State& state) {
            for (auto iteration : state) {
                (void)iteration;
                measureMemory(options, size);
            }
        };
        benchmark::RegisterBenchmark((std::string("recipe-file: peak memory/") + size.name).c_str(), memory)
            ->Iterations(1);
    }
}
