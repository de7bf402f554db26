// titles export, titles import: all titles of a group in all languages, as CSV.
#include "commands.h"

#include "console.h"
#include "csv_text.h"
#include "edit_session.h"
#include "group_access.h"
#include "json_document.h"
#include "new_file.h"
#include "outcome.h"
#include "recipe_limits.h"
#include "sheet_input.h"
#include "text_table.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fstream>
#include <memory>
#include <set>
#include <utility>

namespace {

const char* const KINDS[] = {"group", "item", "recipe"};

struct Options : FileOptions
{
    std::string sheet;
    std::string delimiter = ",";
    bool force = false;
    bool dryRun = false;

    char separator() const { return delimiter == "tab" ? '\t' : delimiter.front(); }
};

struct TitleRow
{
    int type;
    int index;
    QVector<QString> titles;
};

std::vector<TitleRow> titlesOf(const recipeTableInfo_t& group)
{
    std::vector<TitleRow> rows = {{DB_LANGUAGE_GROUP, 0, group.groupName}};
    for (int i = 0; i < group.items.size(); ++i)
        rows.push_back({DB_LANGUAGE_ROW, i, group.items.at(i).rowName});
    for (int i = 0; i < group.columnName.size(); ++i)
        rows.push_back({DB_LANGUAGE_COLUMN, i, group.columnName.at(i)});
    return rows;
}

std::string toCsv(const std::vector<TitleRow>& rows, char delimiter)
{
    CsvLine header(delimiter);
    header.addPlain("Kind").addPlain("Number");
    for (int i = 1; i <= LANGUAGE_COUNT; ++i)
        header.addPlain("Language " + std::to_string(i));
    std::string text = header.finish();
    for (const TitleRow& row : rows) {
        CsvLine line(delimiter);
        line.addPlain(KINDS[row.type]).addPlain(std::to_string(row.index));
        for (const QString& title : row.titles)
            line.addText(title.toStdString());
        text += line.finish();
    }
    return text;
}

Json toJson(const std::vector<TitleRow>& rows)
{
    Json list = Json::array();
    for (const TitleRow& row : rows) {
        Json titles = Json::array();
        for (const QString& title : row.titles)
            titles.push_back(title.toStdString());
        list.push_back({{"kind", KINDS[row.type]}, {"number", row.index}, {"titles", titles}});
    }
    return list;
}

int exportTitles(const Options& options, bool json)
{
    Database database(options.file, Database::Reading, milliseconds(options.wait));
    const recipeTableInfo_t group = loadGroup(database, chooseGroup(database, options.group));
    const std::vector<TitleRow> rows = titlesOf(group);
    const std::string text = toCsv(rows, options.separator());
    if (options.sheet.empty() || options.sheet == "-") {
        printData(json ? dumpJson({{"ok", true}, {"group", group.groupIndex}, {"titles", toJson(rows)}}) : text);
        return EXIT_DONE;
    }
    refuseOverRecipeFile(options.sheet);
    NewFile file(options.sheet, options.force);
    std::ofstream out(file.path(), std::ios::binary);
    out << text;
    out.close();
    if (out.fail())
        throw ToolError("Cannot write " + options.sheet + '.');
    file.commit();
    if (json)
        printData(dumpJson({{"ok", true}, {"file", options.sheet}}));
    else
        say("wrote the titles of " + groupLabel(group) + " to " + options.sheet);
    return EXIT_DONE;
}

std::vector<CsvRow> sheetRows(const Options& options)
{
    const std::string text = readWholeFile(options.sheet);
    refuseOtherDelimiter(text, options.separator(), options.sheet, "Kind");
    return readCsv(text, options.separator(), options.sheet);
}

struct TitleEdit
{
    TitleRow row; ///< with the new titles
    int language; ///< 1 to 8
    std::string before;
    std::string after;
};

/// Compares a sheet of titles with the group's.
class TitleReader
{
public:
    TitleReader(const recipeTableInfo_t& group, const Options& options) : m_options(options), m_known(titlesOf(group))
    {}

    std::vector<TitleEdit> read(int group)
    {
        const std::vector<CsvRow> rows = sheetRows(m_options);
        if (rows.empty() || rows[0].size() < 3 || rows[0][0] != "Kind" || rows[0][1] != "Number")
            throw ToolError(m_options.sheet
                            + " does not start with the fields Kind and Number, as titles export writes.");
        for (std::size_t i = 1; i < rows.size(); ++i)
            readRow(rows[i], static_cast<int>(i + 1), group);
        if (!m_problems.empty())
            throw ToolError(m_options.sheet + " has "
                                + counted(static_cast<long long>(m_problems.size()), "error", "errors")
                                + "; nothing was changed. Correct " + (m_problems.size() == 1 ? "it" : "them")
                                + ", then try again.",
                            m_problems);
        return m_edits;
    }

private:
    const TitleRow* find(const CsvRow& row) const
    {
        for (const TitleRow& known : m_known) {
            if (row.size() > 1 && row[0] == KINDS[known.type] && row[1] == std::to_string(known.index))
                return &known;
        }
        return nullptr;
    }

    void readRow(const CsvRow& row, int number, int group)
    {
        if (std::all_of(row.begin(), row.end(), [](const CsvField& field) { return !field || field->empty(); }))
            return; // spreadsheet programs write such rows at the end
        const std::string place = "row " + std::to_string(number);
        const TitleRow* known = find(row);
        if (!known) {
            const std::string value = row.size() > 1 ? row[0].value_or("") + ' ' + row[1].value_or("") : "too short";
            m_problems.push_back({m_options.sheet + ", " + place, "", "the row's owner", quoted(value),
                                  "group, item or recipe with a number that the file has", m_options.sheet, number});
            return;
        }
        if (!m_seen.insert({known->type, known->index}).second)
            m_problems.push_back(
                {m_options.sheet + ", " + place, "", "the row's owner",
                 quoted(std::string(KINDS[known->type]) + ' ' + std::to_string(known->index)) + " a second time",
                 "each one once", m_options.sheet, number});
        TitleRow changed = *known;
        for (std::size_t i = 0; i < LANGUAGE_COUNT && i + 2 < row.size(); ++i) {
            if (row[i + 2])
                changed.titles[static_cast<int>(i)] = QString::fromStdString(*row[i + 2]);
        }
        const int room = titleRoom(group, changed.index);
        if (titleBytes(changed.titles) > room)
            m_problems.push_back({m_options.sheet + ", " + place, "", "the row",
                                  std::to_string(titleBytes(changed.titles)) + " bytes in all",
                                  "at most " + std::to_string(room) + " for all languages together", m_options.sheet,
                                  number});
        for (int i = 0; i < LANGUAGE_COUNT; ++i) {
            if (changed.titles.at(i) != known->titles.at(i))
                m_edits.push_back(
                    {changed, i + 1, known->titles.at(i).toStdString(), changed.titles.at(i).toStdString()});
        }
    }

    const Options& m_options;
    std::vector<TitleRow> m_known;
    std::set<std::pair<int, int>> m_seen;
    std::vector<Problem> m_problems;
    std::vector<TitleEdit> m_edits;
};

void writeTitle(Database& database, int group, const TitleEdit& edit)
{
    const std::string table = tableName("lang_", group);
    Statement update(database, "UPDATE " + table + " SET L" + std::to_string(edit.language - 1)
                                   + " = ? WHERE type = ? AND strIndex = ?");
    update.bind(1, edit.after).bind(2, edit.row.type).bind(3, edit.row.index).step();
}

void report(const std::vector<TitleEdit>& edits, const Options& options, bool json, const std::string& backup)
{
    Json list = Json::array();
    TextTable table({"Of", "Language", "Old", "New"}, {false, true, false, false});
    for (const TitleEdit& edit : edits) {
        const std::string owner = std::string(KINDS[edit.row.type]) + ' ' + std::to_string(edit.row.index);
        table.addRow({owner, std::to_string(edit.language), edit.before, edit.after});
        list.push_back({{"of", owner}, {"language", edit.language}, {"old", edit.before}, {"new", edit.after}});
    }
    if (json) {
        printData(dumpJson({{"ok", true},
                            {"file", options.file},
                            {"dryRun", options.dryRun},
                            {"backup", backup.empty() ? Json(nullptr) : Json(backup)},
                            {"titles", list}}));
        return;
    }
    if (options.dryRun && !edits.empty())
        printData(table.text());
    say(counted(static_cast<long long>(edits.size()), "title", "titles") + " changed."
        + (options.dryRun ? " Nothing was written." : ""));
    if (!backup.empty())
        say("The file as it was: " + backup);
}

int importTitles(const Options& options, bool json)
{
    EditSession session(options.file, options.wait);
    const recipeTableInfo_t group = loadGroup(session.database(), chooseGroup(session.database(), options.group));
    const std::vector<TitleEdit> edits = TitleReader(group, options).read(group.groupIndex);
    std::string backup;
    if (!options.dryRun && !edits.empty()) {
        backup = session.backUp();
        for (const TitleEdit& edit : edits)
            writeTitle(session.database(), group.groupIndex, edit);
        session.commit();
    }
    report(edits, options, json, backup);
    return EXIT_DONE;
}

} // namespace

void addTitleCommands(CLI::App& app, Session& session)
{
    CLI::App* titles = app.add_subcommand("titles", "All titles in all languages, as CSV");
    titles->require_subcommand(1);
    titles->footer("Example:\n  recipe-file titles export bakery.db3 titles.csv");
    const auto options = std::make_shared<Options>();
    CLI::App* out = addCommand(*titles, session, "export", "Write all titles of a group",
                               "recipe-file titles export bakery.db3 titles.csv");
    addFileOptions(out, *options);
    out->add_option("SHEET", options->sheet, "The file to write; standard output without it");
    addDelimiterOption(out, options->delimiter);
    out->add_flag("--force", options->force, "Replace an existing sheet");
    out->callback(
        [options, &session] { session.action = [options, &session] { return exportTitles(*options, session.json); }; });

    CLI::App* in = addCommand(*titles, session, "import", "Take changed titles",
                              "recipe-file titles import --dry-run bakery.db3 titles.csv");
    addFileOptions(in, *options);
    in->add_option("SHEET", options->sheet, "The sheet; - reads standard input")->required();
    addDelimiterOption(in, options->delimiter);
    in->add_flag("--dry-run", options->dryRun, "Show what would change, change nothing");
    in->callback(
        [options, &session] { session.action = [options, &session] { return importTitles(*options, session.json); }; });
}
