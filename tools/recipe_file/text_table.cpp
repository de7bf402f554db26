#include "text_table.h"

#include <QString>
#include <QVector>

#include <algorithm>

namespace {

/// The blocks of wide characters that titles use: Hangul, CJK, kana, full-width forms, CJK beyond the first plane.
bool isWide(uint ucs4)
{
    return (ucs4 >= 0x1100 && ucs4 <= 0x115F) || (ucs4 >= 0x2E80 && ucs4 <= 0xA4CF)
           || (ucs4 >= 0xAC00 && ucs4 <= 0xD7A3) || (ucs4 >= 0xF900 && ucs4 <= 0xFAFF)
           || (ucs4 >= 0xFE30 && ucs4 <= 0xFE6F) || (ucs4 >= 0xFF00 && ucs4 <= 0xFF60)
           || (ucs4 >= 0xFFE0 && ucs4 <= 0xFFE6) || (ucs4 >= 0x20000 && ucs4 <= 0x3FFFD);
}

bool takesNoPlace(uint ucs4)
{
    const QChar::Category category = QChar::category(ucs4);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || category == QChar::Other_Format;
}

std::string escaped(unsigned char byte)
{
    const char digits[] = "0123456789abcdef";
    return {'\\', 'x', digits[byte / 16], digits[byte % 16]};
}

} // namespace

std::string oneLine(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto byte = static_cast<unsigned char>(c);
        // U+0080 to U+009F, which some terminals obey as well
        const bool obeyed = byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else if (c == '\t')
            result += "\\t";
        else if (obeyed)
            result += escaped(static_cast<unsigned char>(text[++i]));
        else
            result += byte < 0x20 || byte == 0x7F ? escaped(byte) : std::string(1, c);
    }
    return result;
}

std::string aligned(const std::string& text, std::size_t width, bool right)
{
    const std::size_t own = displayWidth(text);
    const std::string padding(width > own ? width - own : 0, ' ');
    return right ? padding + text : text + padding;
}

std::size_t displayWidth(const std::string& text)
{
    std::size_t width = 0;
    for (const uint ucs4 : QString::fromStdString(text).toUcs4())
        width += isWide(ucs4) ? 2U : takesNoPlace(ucs4) ? 0U : 1U;
    return width;
}

TextTable::TextTable(std::vector<std::string> header, std::vector<bool> rightAligned) : m_right(std::move(rightAligned))
{
    addRow(std::move(header));
}

void TextTable::addRow(std::vector<std::string> cells)
{
    std::transform(cells.begin(), cells.end(), cells.begin(), oneLine);
    m_rows.push_back(std::move(cells));
}

std::string TextTable::text() const
{
    std::vector<std::size_t> widths(m_rows.front().size(), 0);
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(row[i]));
    }
    const auto addLine = [&](std::string& out, const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i) {
            line += (i > 0 ? "  " : "") + aligned(row[i], widths[i], i < m_right.size() && m_right[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out += line + '\n';
    };
    std::string out;
    addLine(out, m_rows.front());
    std::vector<std::string> rule;
    for (const std::size_t width : widths)
        rule.push_back(std::string(width, '-'));
    addLine(out, rule);
    for (std::size_t i = 1; i < m_rows.size(); ++i)
        addLine(out, m_rows[i]);
    return out;
}
