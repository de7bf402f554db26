#include "edit_session.h"

#include "new_file.h"
#include "outcome.h"

#include <QDateTime>

#include <filesystem>

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

void copyRecipeFile(const std::string& from, const std::string& to, int waitMs)
{
    NewFile file(to, false);
    {
        Database source(from, Database::ReadOnly, waitMs);
        Database target(file.path(), Database::EmptyFile, 0);
        source.copyInto(target, waitMs);
        const std::string damage = firstDamage(target);
        if (!damage.empty())
            throw ToolError("The backup of " + from + " would be damaged (" + damage
                            + "); nothing was changed. See recipe-file check.");
        if (contents(source) != contents(target))
            throw ToolError("The backup of " + from + " does not agree with it; nothing was changed.");
    }
    file.commit();
}

void replaceContents(const std::string& from, const std::string& to, int waitMs)
{
    Database source(from, Database::ReadOnly, waitMs);
    Database target(to, Database::ReadWrite, waitMs);
    source.copyInto(target, waitMs);
}

void requireWhole(const std::string& path, int waitMs)
{
    Database database(path, Database::ReadOnly, waitMs);
    const std::string damage = firstDamage(database);
    if (!damage.empty())
        throw ToolError(path + " is damaged itself (" + damage + ").");
}

std::string keepAside(const std::string& path, int waitMs)
{
    const std::string name = backupName(path);
    try {
        copyRecipeFile(path, name, waitMs);
    } catch (const LockedFile&) {
        throw;
    } catch (const ToolError&) {
        std::error_code error;
        std::filesystem::copy_file(path, name, error);
        if (error)
            throw ToolError("Cannot keep a copy of " + path + ": " + error.message() + '.');
    }
    return name;
}
