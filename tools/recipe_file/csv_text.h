// CSV as RFC 4180 has it, through libcsv. Reading tells an empty field (,,) from an empty text (,"",).
#ifndef CSV_TEXT_H
#define CSV_TEXT_H

#include <optional>
#include <string>
#include <vector>

/// Nothing: an empty field.
using CsvField = std::optional<std::string>;
using CsvRow = std::vector<CsvField>;

/// The rows of a text in UTF-8 (a byte-order mark is skipped). A ToolError for what is no CSV, with its row.
std::vector<CsvRow> readCsv(const std::string& text, char delimiter, const std::string& fileName);

/// A ToolError where the text begins with that field and then another mark that stands between fields elsewhere.
void refuseOtherDelimiter(const std::string& text, char delimiter, const std::string& fileName,
                          const std::string& firstField);

/// Puts one row together. Texts are quoted, so that a spreadsheet keeps 007 and a leading "="; numbers are not.
class CsvLine
{
public:
    explicit CsvLine(char delimiter) : m_delimiter(delimiter), m_first(true) {}
    CsvLine& addText(const std::string& text); ///< quoted where it must be, or where it could be taken for a number
    CsvLine& addPlain(const std::string& text);
    CsvLine& addEmpty();
    std::string finish(); ///< the line with its end

private:
    void separate();

    char m_delimiter;
    bool m_first;
    std::string m_line;
};

#endif
