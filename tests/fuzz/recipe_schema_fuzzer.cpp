// Recipe files that SQLite takes and that no recipe tool would write. An input is a text: SQL statements that are run
// on a good file before a sheet opens it, one per line (what fails is passed over), and behind the last line feed and
// "--" the bytes that choose what is done with the sheet. So a finding can be read, and made into a test, as it stands.
//
// A first statement "--large" takes a group of several blocks in place of a small one.
#include "RecipeDB.h"
#include "fuzz_frame.h"
#include "sheet_life.h"
#include "statement_maker.h"

#include <sqlite3.h>

#include <QFile>

#include <algorithm>
#include <cstring>
#include <string_view>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

Reached statementsRun("statements_run");
Reached statementsTaken("statements_taken");

const char CHOICES[] = "\n--";
const char LARGE[] = "--large\n";
const std::size_t MOST_CHOICES = 64;

std::string smallFile;
std::string largeFile;

QVector<QString> titles(const char* kind, int number)
{
    return QVector<QString>(LANGUAGE_COUNT, QString::fromLatin1(kind) + QString::number(number));
}

std::string goodFile(int items, int recipes)
{
    recipeTableInfo_t group;
    group.groupName = titles("Group", 0);
    for (int r = 0; r < recipes; ++r)
        group.columnName.append(titles("Recipe", r));
    for (int i = 0; i < items; ++i) {
        recipeItemInfo_t item;
        item.rowIndex = i;
        item.rowName = titles("Item", i);
        item.setAddress(QStringLiteral("Controller,1,-1,D,%1,0").arg(i));
        item.dataType = i == 2 ? 7 : 0;
        item.totalDigits = 5;
        item.decimalDigits = i % 3;
        item.max = 65535;
        for (int r = 0; r < recipes; ++r)
            item.values.append(QString::number(r * 1000 + i));
        group.items.append(item);
    }
    writeProjectFile("recipeN.db3", "", 0);
    RecipeDB* const db = RecipeDB::getInstance();
    if (db->OpenRecipeFile(projectFile("recipeN.db3")) != 0 || db->createTable_RecipeConfig() != 0
        || db->createTable_Group(0, group) != 0)
        report("cannot make a good file");
    RecipeDB::release();
    return readProjectFile("recipeN.db3");
}

/// Bounds what the statements of an input may take while the file is made; what they leave in the file is not bounded.
int stop(void*)
{
    return 1;
}

/// Long texts in each of a page's cells are slow to draw, which is known; in a large group they would fill every run.
sqlite3* openForDamage(bool large)
{
    sqlite3* file = nullptr;
    sqlite3_open(projectFile("recipeN.db3").toUtf8().constData(), &file);
    sqlite3_limit(file, SQLITE_LIMIT_LENGTH, large ? 1 << 14 : 1 << 18);
    sqlite3_limit(file, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 8);
    sqlite3_limit(file, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_db_config(file, SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0, nullptr);
    sqlite3_exec(file, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    return file;
}

void damage(std::string_view statements, bool large)
{
    sqlite3* const file = openForDamage(large);
    int line = 0;
    while (!statements.empty() && ++line <= 40) {
        const std::size_t end = std::min(statements.find('\n'), statements.size());
        const std::string statement(statements.substr(0, end));
        statements.remove_prefix(std::min(end + 1, statements.size()));
        sqlite3_progress_handler(file, 1000000, stop, nullptr); // from here on anew
        ++statementsRun;
        if (sqlite3_exec(file, statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK)
            ++statementsTaken;
    }
    sqlite3_close_v2(file);
}

/// Where the choices begin, behind the statements.
std::size_t choicesAt(std::string_view text)
{
    const std::size_t found = text.rfind(CHOICES);
    return found == std::string_view::npos ? text.size() : found;
}

/// The beginning of a line, anywhere before the choices.
std::size_t someLine(const std::string& statements, std::mt19937& random)
{
    std::size_t at = statements.empty() ? 0 : random() % statements.size();
    while (at > 0 && statements[at - 1] != '\n')
        --at;
    return at;
}

std::string changedStatements(std::string statements, std::mt19937& random)
{
    const std::size_t at = someLine(statements, random);
    switch (random() % 4) {
    case 0: // one less
        statements.erase(at, statements.find('\n', at) - at + 1);
        break;
    case 1: // one more, in front
        statements.insert(at, makeStatement(random) + '\n');
        break;
    default: // one more, behind
        if (!statements.empty() && statements.back() != '\n')
            statements += '\n';
        statements += makeStatement(random);
    }
    return statements;
}

std::string changedChoices(std::string choices)
{
    const std::size_t size = std::min(choices.size(), MOST_CHOICES);
    choices.resize(MOST_CHOICES);
    choices.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(&choices[0]), size, MOST_CHOICES));
    return choices;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    prepareSheetLife();
    smallFile = goodFile(6, 4);
    largeFile = goodFile(104, 52);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const bool large = text.substr(0, sizeof(LARGE) - 1) == LARGE;
    const std::string& good = large ? largeFile : smallFile;
    writeProjectFile("recipeN.db3", good.data(), good.size());
    const std::size_t at = choicesAt(text);
    damage(text.substr(0, at), large);
    const std::size_t from = std::min(at + sizeof(CHOICES) - 1, size);
    liveThrough(data + from, std::min(size - from, MOST_CHOICES));
    return 0;
}

/// Whole statements come and go as often as bytes change: few changes of single bytes leave valid SQL.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    std::mt19937 random(seed);
    if (random() % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string text(reinterpret_cast<char*>(data), size);
    const std::size_t at = choicesAt(text);
    std::string statements = text.substr(0, at);
    std::string choices = text.substr(std::min(at + sizeof(CHOICES) - 1, size));
    if (random() % 4 == 0)
        choices = changedChoices(choices);
    else
        statements = changedStatements(statements, random);
    std::string result = statements + CHOICES + choices;
    result.resize(std::min(result.size(), maxSize));
    std::memcpy(data, result.data(), result.size());
    return result.size();
}
