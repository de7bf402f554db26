// A way into RecipeDB for tests: instances of their own, and the connection that an instance holds.
#ifndef RECIPE_DB_PROBE_H
#define RECIPE_DB_PROBE_H

#include "RecipeDB.h"
#include "SqliteInter.h"

#include <QMutexLocker>

#include <sqlite3.h>

#include <memory>
#include <string>

/// Opens the protected members of any connection.
class SqliteInterProbe : public CSqliteInter
{
public:
    static sqlite3* handle(CSqliteInter& inter) { return inter.*(&SqliteInterProbe::m_pSqlite); }
    static sqlite3_stmt* statement(CSqliteInter& inter) { return inter.*(&SqliteInterProbe::m_pStmt); }
};

class RecipeDBProbe
{
public:
    struct Delete
    {
        void operator()(RecipeDB* db) const { delete db; }
    };
    using Owner = std::unique_ptr<RecipeDB, Delete>;

    /// An instance beside the process's one.
    static Owner make() { return Owner(new RecipeDB); }

    /// Null while no file is open.
    static CSqliteInter* connection(RecipeDB& db) { return db.m_sqlite; }
    static sqlite3* handle(RecipeDB& db) { return db.m_sqlite ? SqliteInterProbe::handle(*db.m_sqlite) : nullptr; }

    /// The text of a statement that was not finalized: it keeps the file locked, or open when it is to be closed.
    /// Empty: there is none.
    static std::string openStatement(RecipeDB& db)
    {
        sqlite3_stmt* const statement = handle(db) ? sqlite3_next_stmt(handle(db), nullptr) : nullptr;
        return statement ? sqlite3_sql(statement) : "";
    }

    /// Takes the place of the connection, which is closed. `db` owns it from now on.
    static void setConnection(RecipeDB& db, CSqliteInter* connection)
    {
        db.CloseRecipeFile();
        const QMutexLocker lock(&db.m_lock);
        db.m_sqlite = connection;
    }
};

#endif
