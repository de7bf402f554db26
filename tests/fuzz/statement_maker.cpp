#include "statement_maker.h"

namespace {

struct Table
{
    const char* name;
    const char* columns[8];
    const char* all; ///< all columns, without types and restrictions
};

const Table TABLES[] = {
    {"recipe_config",
     {"group_index", "row", "column", "notify", "notify_addr", "row", "column", "column"},
     "group_index, row, column, notify, notify_addr"},
    {"addr_0",
     {"row_index", "address", "datatype", "totalDigits", "decimalDigits", "min", "max", "decimalDigits"},
     "row_index, address, datatype, totalDigits, decimalDigits, min, max"},
    {"data_0", {"column", "D0", "D1", "D2", "D3", "D4", "D5", "column"}, "column, D0, D1, D2, D3, D4, D5"},
    {"lang_0",
     {"type", "strIndex", "L0", "L1", "L2", "L6", "L7", "L0"},
     "type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7"},
};

const char* const VALUES[] = {"NULL",
                              "0",
                              "1",
                              "-1",
                              "2",
                              "7",
                              "99",
                              "4096",
                              "4097",
                              "65536",
                              "2147483647",
                              "-2147483648",
                              "4294967296",
                              "9223372036854775807",
                              "0.5",
                              "-0.0",
                              "1e-300",
                              "1e300",
                              "9e999",
                              "-9e999",
                              "12345678901234567890.5",
                              "''",
                              "'0'",
                              "' 1'",
                              "'1x'",
                              "'nan'",
                              "'abc.def'",
                              "'1,5'",
                              "'a,1,2,LW,x'",
                              "'a,1,2,LW,x,3'",
                              "',,,,,'",
                              "char(0)",
                              "'a' || char(0) || 'b'",
                              "x'ff00fe'",
                              "x''",
                              "zeroblob(5000)",
                              "hex(zeroblob(700))",
                              "hex(zeroblob(60000))",
                              "char(55296)",
                              "char(1114111)",
                              "'''; --'",
                              "'%s%d%n%1%2'",
                              "random()",
                              "rowid",
                              "column"};

/// In place of a table: endless, huge, nested, other columns.
const char* const VIEWS[] = {
    "SELECT * FROM other",
    "SELECT * FROM other UNION ALL SELECT * FROM other",
    "SELECT a.* FROM other a, other b, other c, other d, other e, other f, other g, other h",
    "SELECT * FROM other ORDER BY random()",
    "SELECT 1",
    "SELECT * FROM other, other",
    "SELECT * FROM missing",
    "WITH r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) SELECT x, x, x, x, x, x, x, x, x, x FROM r",
    "WITH r(x) AS (SELECT 0 UNION ALL SELECT 0 FROM r) SELECT x, x, x, x, x, x, x FROM r",
    "WITH r(x) AS (SELECT 0 UNION ALL SELECT 0 FROM r WHERE x >= 0) SELECT count(*), x, x, x, x, x, x FROM r",
    "SELECT hex(zeroblob(40000000)), hex(zeroblob(40000000)), 1, 2, 3, 4, 5, 6, 7, 8",
    "WITH r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) SELECT x, hex(zeroblob(99999)), x, x, x, x FROM r",
    "SELECT a.* FROM addr_0 a, data_0, lang_0, recipe_config, sqlite_master",
    "VALUES (0, 0, 0, 0, 0, 0, 0), (0, 0, 0, 0, 0, 0, 0)",
    "SELECT * FROM pragma_table_info('data_0')",
    "SELECT value, value, value, value, value, value, value FROM json_each('[1,2,3]')",
    "SELECT (SELECT max(a.rowid + b.rowid) FROM other a, other b, other c, other d, other e), o.* FROM other o",
};

const char* const TRIGGERS[] = {
    "SELECT RAISE(ABORT, 'no')",
    "SELECT RAISE(ROLLBACK, 'no')",
    "SELECT RAISE(FAIL, 'no')",
    "SELECT RAISE(IGNORE)",
    "DELETE FROM recipe_config",
    "INSERT INTO lang_0 SELECT * FROM lang_0",
    "UPDATE data_0 SET D0 = D0 + 1",
    "INSERT INTO data_0(column) SELECT a.column FROM data_0 a, data_0 b, data_0 c",
    "INSERT INTO lang_0(type, strIndex) WITH r(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM r) SELECT x, x FROM r",
};

const char* const OTHERS[] = {
    "DROP TABLE recipe_config",
    "DROP TABLE addr_0",
    "DROP TABLE data_0",
    "DROP TABLE lang_0",
    "DELETE FROM recipe_config",
    "DELETE FROM addr_0",
    "DELETE FROM data_0",
    "DELETE FROM lang_0",
    "PRAGMA journal_mode=WAL",
    "PRAGMA recursive_triggers=ON",
    "PRAGMA auto_vacuum=FULL; VACUUM",
    "PRAGMA page_size=512; VACUUM",
    "PRAGMA page_size=65536; VACUUM",
    "PRAGMA user_version=-1",
    "PRAGMA encoding='UTF-16'; VACUUM",
    "PRAGMA writable_schema=ON",
    "UPDATE sqlite_master SET rootpage = 1 WHERE name = 'data_0'",
    "UPDATE sqlite_master SET rootpage = 2 WHERE name LIKE '%_0'",
    "UPDATE sqlite_master SET rootpage = 0 WHERE name = 'lang_0'",
    "UPDATE sqlite_master SET rootpage = 99999 WHERE name = 'addr_0'",
    "UPDATE sqlite_master SET sql = 'CREATE TABLE data_0 (column)' WHERE name = 'data_0'",
    "UPDATE sqlite_master SET sql = 'CREATE TABLE lang_0 (type, strIndex)' WHERE name = 'lang_0'",
    "UPDATE sqlite_master SET sql = 'nothing' WHERE name = 'addr_0'",
    "UPDATE sqlite_master SET sql = sql || ' WITHOUT ROWID' WHERE name = 'addr_0'",
    "CREATE VIRTUAL TABLE lang_0 USING fts5(type, strIndex, L0, L1, L2, L3, L4, L5, L6, L7)",
    "ANALYZE",
    "CREATE TABLE sub AS SELECT * FROM data_0",
};

template <std::size_t N> const char* oneOf(const char* const (&list)[N], std::mt19937& random)
{
    return list[random() % N];
}

std::string value(std::mt19937& random)
{
    return random() % 8 == 0 ? std::to_string(static_cast<int>(random())) : oneOf(VALUES, random);
}

std::string where(const Table& table, std::mt19937& random)
{
    switch (random() % 4) {
    case 0:
        return "";
    case 1:
        return std::string(" WHERE ") + oneOf(table.columns, random) + " = " + value(random);
    default:
        return " WHERE rowid = " + std::to_string(random() % 8);
    }
}

std::string update(const Table& table, std::mt19937& random)
{
    std::string statement = std::string("UPDATE ") + table.name + " SET ";
    for (unsigned i = random() % 3 + 1; i > 0; --i)
        statement += std::string(oneOf(table.columns, random)) + " = " + value(random) + (i > 1 ? ", " : "");
    return statement + where(table, random);
}

std::string insert(const Table& table, std::mt19937& random)
{
    const std::string into = std::string("INSERT INTO ") + table.name;
    if (random() % 2 == 0)
        return into + " SELECT * FROM " + table.name + where(table, random);
    const std::string first = table.columns[random() % 4];
    const std::string second = table.columns[4 + random() % 3];
    return into + "(" + first + ", " + second + ") VALUES (" + value(random) + ", " + value(random) + ")";
}

/// The table made anew without types and restrictions, with its rows.
std::string loosen(const Table& table, std::mt19937& random)
{
    const std::string name = table.name;
    std::string columns = table.all;
    if (random() % 4 == 0)
        columns += ", more GENERATED ALWAYS AS (hex(zeroblob(1000)))";
    else if (random() % 4 == 0)
        columns += ", PRIMARY KEY(" + std::string(table.columns[0]) + ")) WITHOUT ROWID --";
    return "CREATE TABLE old AS SELECT " + std::string(table.all) + " FROM " + name + "; DROP TABLE " + name
           + "; CREATE TABLE " + name + "(" + columns + "); INSERT INTO " + name + "(" + table.all
           + ") SELECT * FROM old; DROP TABLE old";
}

std::string view(const Table& table, std::mt19937& random)
{
    return std::string("DROP TABLE IF EXISTS other; ALTER TABLE ") + table.name + " RENAME TO other; CREATE VIEW "
           + table.name + " AS " + oneOf(VIEWS, random);
}

std::string trigger(const Table& table, std::mt19937& random)
{
    static const char* const EVENTS[] = {"AFTER INSERT", "BEFORE INSERT", "BEFORE UPDATE", "AFTER DELETE"};
    return "CREATE TRIGGER t" + std::to_string(random() % 4) + " " + oneOf(EVENTS, random) + " ON " + table.name
           + " BEGIN " + oneOf(TRIGGERS, random) + "; END";
}

std::string alter(const Table& table, std::mt19937& random)
{
    const std::string start = std::string("ALTER TABLE ") + table.name;
    const std::string column = oneOf(table.columns, random);
    switch (random() % 5) {
    case 0:
        return start + " ADD COLUMN n" + std::to_string(random() % 9) + " DEFAULT 'much'";
    case 1:
        return start + " DROP COLUMN " + column;
    case 2:
        return start + " RENAME COLUMN " + column + " TO " + oneOf(table.columns, random);
    case 3:
        return std::string("CREATE ") + (random() % 2 ? "UNIQUE " : "") + "INDEX i" + std::to_string(random() % 4)
               + " ON " + table.name + "(" + column + ")";
    default:
        return start + " RENAME TO " + oneOf({"ADDR_0", "Data_0", "lang_00", "recipe_config", "data_1"}, random);
    }
}

} // namespace

std::string makeStatement(std::mt19937& random)
{
    const Table& table = TABLES[random() % 4];
    switch (random() % 12) {
    case 0:
    case 1:
    case 2:
        return update(table, random);
    case 3:
    case 4:
        return insert(table, random);
    case 5:
        return loosen(table, random);
    case 6:
    case 7:
        return view(table, random);
    case 8:
        return trigger(table, random);
    case 9:
        return alter(table, random);
    default:
        return oneOf(OTHERS, random);
    }
}
