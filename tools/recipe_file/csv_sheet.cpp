#include "csv_sheet.h"

#include "csv_text.h"
#include "recipe_limits.h"
#include "suggest.h"

#include <algorithm>
#include <set>

namespace {

const int BLOCK_CELLS = 262144; ///< cells held at a time where rows of the sheet are columns of the file

/// A number goes in plain, a text quoted, a value that is not there as an empty field. A text in a numeric item (a
/// damaged file) is quoted too.
void addCell(CsvLine& line, const recipeItemInfo_t& item, const Cell& cell, const SheetFormat& format)
{
    if (!cell) {
        line.addEmpty();
        return;
    }
    bool number = false;
    if (!isText(item))
        QString::fromStdString(*cell).toDouble(&number);
    if (!number)
        line.addText(*cell);
    else if (format.decimalMark == format.delimiter)
        line.addText(withDecimalMark(*cell, format.decimalMark));
    else
        line.addPlain(withDecimalMark(*cell, format.decimalMark));
}

std::string titleHeader(const recipeTableInfo_t& group, const SheetFormat& format)
{
    CsvLine line(format.delimiter);
    line.addPlain("Item").addPlain("Name");
    for (const QVector<QString>& titles : group.columnName)
        line.addText(titleText(titles, format.language));
    return line.finish();
}

std::string numberHeader(const recipeTableInfo_t& group, const SheetFormat& format)
{
    CsvLine line(format.delimiter);
    line.addEmpty().addPlain("Recipe");
    for (int i = 0; i < group.columnName.size(); ++i)
        line.addPlain(std::to_string(i));
    return line.finish();
}

void writeUpright(Database& database, const recipeTableInfo_t& group, const SheetFormat& format,
                  const std::function<void(const std::string&)>& sink)
{
    sink(titleHeader(group, format));
    sink(numberHeader(group, format));
    const int items = static_cast<int>(group.items.size());
    const int recipes = static_cast<int>(group.columnName.size());
    const int rowsPerPass = std::max(1, BLOCK_CELLS / std::max(1, recipes));
    for (int first = 0; first < items; first += rowsPerPass) {
        const int count = std::min(rowsPerPass, items - first);
        std::vector<CsvLine> lines;
        for (int i = first; i < first + count; ++i) {
            lines.emplace_back(format.delimiter);
            lines.back().addPlain(std::to_string(i)).addText(titleText(group.items.at(i).rowName, format.language));
        }
        RecipeRows rows(database, group, first, count);
        while (rows.next()) {
            for (int i = first; i < first + count; ++i)
                addCell(lines[static_cast<std::size_t>(i - first)], group.items.at(i), rows.cell(i), format);
        }
        for (CsvLine& line : lines)
            sink(line.finish());
    }
}

void writeTransposed(Database& database, const recipeTableInfo_t& group, const SheetFormat& format,
                     const std::function<void(const std::string&)>& sink)
{
    const int items = static_cast<int>(group.items.size());
    CsvLine numbers(format.delimiter);
    CsvLine names(format.delimiter);
    numbers.addPlain("Item").addEmpty();
    names.addPlain("Name").addPlain("Recipe");
    for (int i = 0; i < items; ++i) {
        numbers.addPlain(std::to_string(i));
        names.addText(titleText(group.items.at(i).rowName, format.language));
    }
    sink(numbers.finish());
    sink(names.finish());
    RecipeRows rows(database, group, 0, items);
    for (int recipe = 0; rows.next(); ++recipe) {
        CsvLine line(format.delimiter);
        line.addText(titleText(group.columnName.at(recipe), format.language)).addPlain(std::to_string(recipe));
        for (int i = 0; i < items; ++i)
            addCell(line, group.items.at(i), rows.cell(i), format);
        sink(line.finish());
    }
}

// --- reading -------------------------------------------------------------------------------------------------

std::vector<CsvRow> exchanged(const std::vector<CsvRow>& rows)
{
    std::size_t width = 0;
    for (const CsvRow& row : rows)
        width = std::max(width, row.size());
    std::vector<CsvRow> result(width, CsvRow(rows.size()));
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            result[c][r] = rows[r][c];
    }
    return result;
}

std::string fieldText(const std::vector<CsvRow>& rows, std::size_t row, std::size_t column)
{
    if (row >= rows.size() || column >= rows[row].size() || !rows[row][column])
        return std::string();
    return *rows[row][column];
}

/// Up to the last field that holds something: spreadsheet programs save emptied rows and columns too.
std::size_t widthOf(const CsvRow& row)
{
    std::size_t width = row.size();
    while (width > 0 && (!row[width - 1] || row[width - 1]->empty()))
        --width;
    return width;
}

std::optional<int> wholeNumber(const std::string& text)
{
    bool good = false;
    const int number = QString::fromStdString(text).trimmed().toInt(&good);
    return good && number >= 0 ? std::optional<int>(number) : std::nullopt;
}

class SheetReader
{
public:
    SheetReader(std::vector<CsvRow> rows, const std::string& fileName, const recipeTableInfo_t& group,
                const SheetFormat& format, bool turned)
        : m_rows(std::move(rows)), m_group(group), m_format(format), m_turned(turned)
    {
        m_input.name = fileName;
        m_input.itemPlaces.resize(static_cast<std::size_t>(group.items.size()));
    }

    Input read()
    {
        readHeader();
        for (std::size_t row = m_firstRow; row < m_rows.size(); ++row)
            readRow(row);
        return m_input;
    }

private:
    /// Rows and columns of the sheet as it lies, counted from 1.
    SheetPlace placeOf(std::size_t row, std::size_t column) const
    {
        return m_turned ? SheetPlace{static_cast<int>(column), static_cast<int>(row)}
                        : SheetPlace{static_cast<int>(row), static_cast<int>(column)};
    }
    SheetPlace rowPlace(std::size_t row) const { return placeOf(row + 1, 0); }
    SheetPlace columnPlace(std::size_t column) const { return placeOf(0, column + 1); }

    void problem(const SheetPlace& where, const std::string& field, const std::string& value,
                 const std::string& expected)
    {
        m_input.problems.push_back({m_input.name + ", " + where.text(), std::string(), field, value, expected,
                                    m_input.name, where.row, where.column});
    }

    void readHeader()
    {
        const bool numbered = fieldText(m_rows, 1, 1) == "Recipe";
        m_firstRow = numbered ? 2 : 1;
        const std::size_t width = std::max(widthOf(m_rows[0]), numbered ? widthOf(m_rows[1]) : 0);
        for (std::size_t column = 2; column < width; ++column) {
            InputRecipe recipe;
            recipe.place = columnPlace(column);
            recipe.titles.resize(LANGUAGE_COUNT);
            recipe.cells.resize(static_cast<std::size_t>(m_group.items.size()));
            const std::string name = fieldText(m_rows, 0, column);
            const std::string number = numbered ? fieldText(m_rows, 1, column) : std::string();
            if (numbered)
                numberRecipe(recipe, number);
            else
                findRecipe(recipe, name);
            takeTitle(recipe, name);
            m_input.recipes.push_back(std::move(recipe));
        }
    }

    void numberRecipe(InputRecipe& recipe, const std::string& number)
    {
        if (number.empty())
            return;
        const int count = static_cast<int>(m_group.columnName.size());
        recipe.number = wholeNumber(number);
        if (!recipe.number || *recipe.number >= count)
            problem(recipe.place, "the recipe's number", quoted(number),
                    "0 to " + std::to_string(count - 1) + ", or an empty field for a new recipe");
        else if (!m_seenRecipes.insert(*recipe.number).second)
            problem(recipe.place, "the recipe's number", quoted(number), "a number that no other recipe here has");
        else
            return;
        recipe.number = 0;
        recipe.cells.assign(recipe.cells.size(), InputCell());
    }

    /// Without numbers, names say which recipe is meant.
    void findRecipe(InputRecipe& recipe, const std::string& name)
    {
        int found = 0;
        for (int i = 0; i < m_group.columnName.size(); ++i) {
            if (titleText(m_group.columnName.at(i), m_format.language) != name)
                continue;
            recipe.number = i;
            ++found;
        }
        if (found > 1)
            problem(recipe.place, "the recipe", quoted(name),
                    "a name that one recipe has (a second row with numbers tells them apart)");
        else if (found == 0)
            remarkNearName(recipe, name);
        else if (recipe.number && !m_seenRecipes.insert(*recipe.number).second)
            problem(recipe.place, "the recipe", quoted(name), "each recipe once");
    }

    /// A slip of the pen would add a recipe.
    void remarkNearName(const InputRecipe& recipe, const std::string& name)
    {
        std::vector<std::string> names;
        for (const QVector<QString>& titles : m_group.columnName)
            names.push_back(titleText(titles, m_format.language));
        const std::string hint = didYouMean(name, names);
        if (!hint.empty())
            m_input.remarks.push_back(m_input.name + ", " + recipe.place.text() + ": " + quoted(name)
                                      + " is a new recipe" + hint);
    }

    void takeTitle(InputRecipe& recipe, const std::string& name)
    {
        if (recipe.number) {
            recipe.titles[static_cast<std::size_t>(m_format.language - 1)] = name;
            return;
        }
        if (name.empty())
            problem(recipe.place, "the name of the new recipe", "missing", "a name");
        recipe.titles.assign(LANGUAGE_COUNT, name);
    }

    void readRow(std::size_t row)
    {
        const std::optional<int> item = findItem(row);
        if (!item)
            return;
        if (!m_seenItems.insert(*item).second) {
            problem(rowPlace(row), "the item", std::to_string(*item) + " a second time", "each item once");
            return;
        }
        m_input.itemPlaces[static_cast<std::size_t>(*item)] = rowPlace(row);
        const std::size_t width = widthOf(m_rows[row]);
        if (width > m_input.recipes.size() + 2)
            problem(rowPlace(row), "the number of fields", std::to_string(width),
                    "at most " + std::to_string(m_input.recipes.size() + 2) + " as in the first row");
        for (std::size_t i = 0; i < m_input.recipes.size(); ++i)
            readCell(row, i + 2, *item, m_input.recipes[i]);
    }

    /// By number, checked against the name; by name where there is no number.
    std::optional<int> findItem(std::size_t row)
    {
        const std::string number = fieldText(m_rows, row, 0);
        const std::string name = fieldText(m_rows, row, 1);
        if (widthOf(m_rows[row]) == 0)
            return std::nullopt;
        std::vector<std::string> names;
        for (const recipeItemInfo_t& item : m_group.items)
            names.push_back(titleText(item.rowName, m_format.language));
        if (number.empty()) {
            const auto found = std::find(names.begin(), names.end(), name);
            if (found != names.end() && std::count(names.begin(), names.end(), name) == 1)
                return static_cast<int>(found - names.begin());
            m_input.unknown.push_back(rowPlace(row).text() + ": " + quoted(name) + didYouMean(name, names));
            return std::nullopt;
        }
        const std::optional<int> item = wholeNumber(number);
        if (!item || *item >= m_group.items.size()) {
            m_input.unknown.push_back(rowPlace(row).text() + ": item " + number + ' ' + quoted(name));
            return std::nullopt;
        }
        const std::string& expected = names[static_cast<std::size_t>(*item)];
        if (!name.empty() && name != expected) {
            problem(rowPlace(row), "the name of item " + number, quoted(name),
                    quoted(expected) + " (rows may have slipped; titles are changed with titles import)");
            return std::nullopt;
        }
        return item;
    }

    void readCell(std::size_t row, std::size_t column, int item, InputRecipe& recipe)
    {
        InputCell& cell = recipe.cells[static_cast<std::size_t>(item)];
        if (column >= m_rows[row].size() || !m_rows[row][column]) {
            cell = InputCell::missing();
            return;
        }
        const std::string& text = *m_rows[row][column];
        if (isText(m_group.items.at(item))) {
            cell = InputCell::given(text);
            return;
        }
        if (text.empty()) { // a spreadsheet's empty field may come quoted
            cell = InputCell::missing();
            return;
        }
        const std::optional<std::string> number = withPoint(text, m_format.decimalMark);
        if (number)
            cell = InputCell::given(*number);
        else
            refuseMark(rowPlace(row).with(recipe.place), item, recipe, text);
    }

    void refuseMark(const SheetPlace& where, int item, const InputRecipe& recipe, const std::string& text)
    {
        problem(where, "the value", quoted(text),
                std::string("a number with \"") + m_format.decimalMark + "\" as its decimal mark (see --decimal)");
        m_input.problems.back().place =
            (recipe.number ? recipeLabel(m_group, *recipe.number) : "new recipe") + ", " + itemLabel(m_group, item);
    }

    std::vector<CsvRow> m_rows;
    const recipeTableInfo_t& m_group;
    const SheetFormat& m_format;
    bool m_turned;
    std::size_t m_firstRow = 1;
    std::set<int> m_seenRecipes;
    std::set<int> m_seenItems;
    Input m_input;
};

} // namespace

std::string withDecimalMark(const std::string& number, char mark)
{
    std::string result = number;
    std::replace(result.begin(), result.end(), '.', mark);
    return result;
}

std::optional<std::string> withPoint(const std::string& number, char mark)
{
    if (mark == '.')
        return number.find(',') == std::string::npos ? std::optional<std::string>(number) : std::nullopt;
    if (number.find('.') != std::string::npos)
        return std::nullopt;
    std::string result = number;
    std::replace(result.begin(), result.end(), mark, '.');
    return result;
}

void writeCsvSheet(Database& database, const recipeTableInfo_t& group, const SheetFormat& format,
                   const std::function<void(const std::string&)>& sink)
{
    if (format.transposed)
        writeTransposed(database, group, format, sink);
    else
        writeUpright(database, group, format, sink);
}

Input readCsvSheet(const std::string& text, const std::string& fileName, const recipeTableInfo_t& group,
                   const SheetFormat& format)
{
    refuseOtherDelimiter(text, format.delimiter, fileName, "Item");
    std::vector<CsvRow> rows = readCsv(text, format.delimiter, fileName);
    const bool turned = fieldText(rows, 0, 1) != "Name" && fieldText(rows, 1, 0) == "Name";
    if (turned)
        rows = exchanged(rows);
    if (fieldText(rows, 0, 0) != "Item" || fieldText(rows, 0, 1) != "Name")
        throw ToolError(fileName + " does not start with the fields Item and Name, as an export does.");
    return SheetReader(std::move(rows), fileName, group, format, turned).read();
}
