#include "program.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <sqlite3.h>

namespace {

const int PATIENCE_MS = 30 * 60 * 1000; // a hanging program fails the test

/// A connection that is closed on every path.
class Connection
{
public:
    explicit Connection(const QString& path) : m_handle(nullptr)
    {
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &m_handle), SQLITE_OK);
    }
    ~Connection() { sqlite3_close(m_handle); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::vector<std::string> rows(const std::string& sql)
    {
        std::vector<std::string> result;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(m_handle, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(m_handle);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            std::string row;
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                row += (i > 0 ? "|" : "") + std::string(text ? text : "NULL");
            }
            result.push_back(row);
        }
        sqlite3_finalize(statement);
        return result;
    }

    void execute(const std::string& sql)
    {
        EXPECT_EQ(sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(m_handle);
    }

private:
    sqlite3* m_handle;
};

} // namespace

Outcome ProgramTest::run(const Words& arguments, const std::string& input)
{
    return runWith({}, arguments, input);
}

Outcome ProgramTest::runWith(const Words& environment, const Words& arguments, const std::string& input)
{
    return start(RECIPE_FILE_PROGRAM, arguments, environment, input);
}

Outcome ProgramTest::runLimited(int kilobytes, const Words& arguments)
{
    const std::string script = "trap '' XFSZ; ulimit -f " + std::to_string(kilobytes) + "; exec \"$0\" \"$@\"";
    Words words = {"-c", script, RECIPE_FILE_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return start("bash", words, {}, {});
}

Outcome ProgramTest::runShell(const std::string& script)
{
    return start("bash", {"-c", script}, {}, {});
}

Outcome ProgramTest::start(const std::string& program, const Words& arguments, const Words& environment,
                           const std::string& input)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const std::string& assignment : environment) {
        const std::size_t sign = assignment.find('=');
        variables.insert(QString::fromStdString(assignment.substr(0, sign)),
                         QString::fromStdString(assignment.substr(sign + 1)));
    }
    QProcess process;
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(m_folder.path());
    QStringList list;
    for (const std::string& argument : arguments)
        list.append(QString::fromStdString(argument));
    process.start(QString::fromStdString(program), list);
    EXPECT_TRUE(process.waitForStarted(PATIENCE_MS));
    process.write(input.data(), static_cast<qint64>(input.size()));
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(PATIENCE_MS));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

QString ProgramTest::path(const std::string& name) const
{
    if (!name.empty() && name.front() == '/')
        return QString::fromStdString(name);
    return m_folder.filePath(QString::fromStdString(name));
}

void ProgramTest::write(const std::string& name, const std::string& text)
{
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(text.data(), static_cast<qint64>(text.size())), static_cast<qint64>(text.size()));
}

std::string ProgramTest::read(const std::string& name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll().toStdString();
}

bool ProgramTest::exists(const std::string& name) const
{
    return QFile::exists(path(name));
}

Words ProgramTest::files() const
{
    Words names;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(m_folder.path()).entryList(all, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}

std::vector<std::string> ProgramTest::query(const std::string& file, const std::string& sql)
{
    return Connection(path(file)).rows(sql);
}

void ProgramTest::sql(const std::string& file, const std::string& statements)
{
    Connection(path(file)).execute(statements);
}

std::string ProgramTest::dump(const std::string& file)
{
    Connection connection(path(file));
    std::string result;
    for (const std::string& table : connection.rows("SELECT name FROM sqlite_master ORDER BY name")) {
        result += connection.rows("SELECT sql FROM sqlite_master WHERE name = '" + table + "'").front() + '\n';
        for (const std::string& row : connection.rows("SELECT * FROM " + table + " ORDER BY rowid"))
            result += row + '\n';
    }
    return result;
}

QString ProgramTest::program()
{
    return QStringLiteral(RECIPE_FILE_PROGRAM);
}

std::string ProgramTest::bakery()
{
    return SOURCE_DIR "/examples/bakery.json";
}
