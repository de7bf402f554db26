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

/// A ToolError unless the file passes SQLite's integrity check.
void requireWhole(Database& database);

/// An existing file that a backup is to take the place of. Nobody else reads or writes it from construction to the
/// end, so what was shown, what is kept aside and what is replaced are the same.
class WholeFile
{
public:
    /// A NotADatabase where there is nothing that could be locked.
    WholeFile(const std::string& path, int waitMs);

    Database& database() { return m_database; }
    /// Copies the file, verified where that is possible: a damaged file is copied byte by byte. Returns the copy's
    /// path.
    std::string keepAside();
    /// In one transaction of SQLite's; killed at any point, the file is wholly old or wholly new.
    void replaceBy(Database& source);

private:
    Database m_database;
};

/// Makes a file of a whole recipe file's contents, under another name until it is complete and on the disk.
void placeCopy(Database& source, const std::string& target, bool replace);

/// Copies what is no database and cannot be locked. Returns the copy's path.
std::string keepBytesAside(const std::string& path);

int milliseconds(double seconds);

#endif
