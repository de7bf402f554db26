// A plain table for eyes: columns padded with blanks. Chinese and Japanese characters take two places.
#ifndef TEXT_TABLE_H
#define TEXT_TABLE_H

#include <string>
#include <vector>

/// Line breaks and tabs as "\n", "\r", "\t".
std::string oneLine(const std::string& text);

/// Filled up to `width` places.
std::string aligned(const std::string& text, std::size_t width, bool right);

class TextTable
{
public:
    /// `rightAligned` columns hold numbers.
    TextTable(std::vector<std::string> header, std::vector<bool> rightAligned);
    void addRow(std::vector<std::string> cells);
    /// Header, a rule, rows; no blanks at the ends of lines. Line breaks in cells show as "\n".
    std::string text() const;

private:
    std::vector<std::vector<std::string>> m_rows; ///< the header first
    std::vector<bool> m_right;
};

/// Places that a UTF-8 text takes on a terminal.
std::size_t displayWidth(const std::string& text);

#endif
