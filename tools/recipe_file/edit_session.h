// A change of a recipe file: all or nothing, behind a verified backup.
#ifndef EDIT_SESSION_H
#define EDIT_SESSION_H

#include "database.h"

#include <memory>
#include <string>

/// Holds the write lock from construction to the end; other programs go on reading. What is not committed never
/// happened, also when the process is killed.
class EditSession
{
public:
    EditSession(const std::string& path, double waitSeconds);
    ~EditSession();
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    Database& database() { return *m_database; }
    const std::string& path() const { return m_database->path(); }

    /// Copies the file as it was before this session and looks whether the copy is whole. Call before the first
    /// change. Returns the copy's path.
    std::string backUp();
    void commit();

private:
    std::unique_ptr<Database> m_database;
};

/// Copies a recipe file with SQLite's backup interface, whatever else uses it, and verifies the copy. An existing
/// target is refused.
void copyRecipeFile(const std::string& from, const std::string& to, int waitMs);

/// "recipeN.db3.20260131T235959.123Z.bak", with "-2" and so on behind the time where that exists.
std::string backupName(const std::string& path);

/// Replaces the contents of `to` by those of `from` in one transaction of SQLite's.
void replaceContents(const std::string& from, const std::string& to, int waitMs);

/// A ToolError unless the file is a recipe file that passes SQLite's integrity check.
void requireWhole(const std::string& path, int waitMs);

/// A copy of a file that is about to be replaced, verified where that is possible: a damaged file is copied byte by
/// byte. Returns the copy's path.
std::string keepAside(const std::string& path, int waitMs);

int milliseconds(double seconds);

#endif
