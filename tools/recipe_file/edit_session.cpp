#include "edit_session.h"

#include "new_file.h"
#include "outcome.h"

#include <QDateTime>

#include <cerrno>
#include <filesystem>

#include <unistd.h>

namespace {

/// The integrity check's first complaint, or nothing.
std::string firstDamage(Database& database)
{
    Statement statement(database, "PRAGMA integrity_check(1)");
    const std::string answer = statement.step() ? statement.text(0) : "no answer";
    return answer == "ok" ? std::string() : answer;
}

std::string contents(Database& database)
{
    std::string text;
    Statement tables(database, "SELECT name, sql FROM sqlite_master WHERE type = 'table' ORDER BY name");
    while (tables.step()) {
        std::string name;
        for (const char c : tables.text(0))
            name += c == '"' ? std::string("\"\"") : std::string(1, c);
        text += tables.text(1) + '|' + std::to_string(database.value("SELECT count(*) FROM \"" + name + '"')) + '\n';
    }
    return text;
}

/// A ToolError unless the copy is whole and holds what the source holds.
void requireSame(Database& source, Database& copy)
{
    const std::string damage = firstDamage(copy);
    if (!damage.empty())
        throw ToolError("The backup of " + source.path() + " would be damaged (" + damage
                        + "); nothing was changed. See recipe-file check.");
    if (contents(source) != contents(copy))
        throw ToolError("The backup of " + source.path() + " does not agree with it; nothing was changed.");
}

} // namespace

EditSession::EditSession(const std::string& path, double waitSeconds)
    : m_database(std::make_unique<Database>(path, Database::ReadWrite, milliseconds(waitSeconds)))
{
    m_database->execute("BEGIN IMMEDIATE");
}

EditSession::~EditSession()
{
    m_database->rollBack();
}

std::string EditSession::backUp()
{
    if (access(m_database->path().c_str(), W_OK) != 0) // before there is a backup of nothing
        throw ToolError(m_database->path() + " cannot be written: " + systemMessage(errno) + '.');
    const std::string name = backupName(m_database->path());
    copyRecipeFile(m_database->path(), name, 0);
    return name;
}

void EditSession::commit()
{
    m_database->execute("COMMIT");
}

int milliseconds(double seconds)
{
    return static_cast<int>(seconds * 1000);
}

std::string backupName(const std::string& path)
{
    const std::string time =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss.zzz'Z'")).toStdString();
    std::string name = path + '.' + time + ".bak";
    std::error_code ignored;
    for (int number = 2; std::filesystem::exists(name, ignored); ++number)
        name = path + '.' + time + '-' + std::to_string(number) + ".bak";
    return name;
}

void requireWhole(Database& database)
{
    const std::string damage = firstDamage(database);
    if (!damage.empty())
        throw ToolError(database.path() + " is damaged itself (" + damage + ").");
}

void placeCopy(Database& source, const std::string& target, bool replace)
{
    NewFile file(target, replace);
    {
        Database copy(file.path(), Database::AnyContents, 0);
        source.copyInto(copy, 0);
        requireSame(source, copy);
    }
    file.commit();
}

void copyRecipeFile(const std::string& from, const std::string& to, int waitMs)
{
    NewFile file(to, false);
    {
        Database source(from, Database::Reading, waitMs);
        Database target(file.path(), Database::AnyContents, 0);
        source.copyInto(target, waitMs);
        requireSame(source, target);
    }
    file.commit();
}

std::string keepBytesAside(const std::string& path)
{
    const std::string name = backupName(path);
    std::error_code error;
    std::filesystem::copy_file(path, name, error);
    if (error)
        throw ToolError("Cannot keep a copy of " + path + ": " + error.message() + '.');
    return name;
}

WholeFile::WholeFile(const std::string& path, int waitMs) : m_database(path, Database::AnyContents, waitMs)
{
    m_database.lockForReplacement();
}

std::string WholeFile::keepAside()
{
    const std::string name = backupName(m_database.path());
    try {
        placeCopy(m_database, name, false);
    } catch (const ToolError&) {
        NewFile file(name, false);
        m_database.copyBytes(file.path());
        file.commit();
    }
    return name;
}

void WholeFile::replaceBy(Database& source)
{
    source.copyInto(m_database, 0);
}
