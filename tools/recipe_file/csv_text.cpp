#include "csv_text.h"

#include "outcome.h"

#include <csv.h>

#include <utility>

namespace {

const char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

struct Reader
{
    std::vector<CsvRow> rows;
    CsvRow row;
};

void takeField(void* field, size_t size, void* data)
{
    Reader& reader = *static_cast<Reader*>(data);
    if (field)
        reader.row.emplace_back(std::string(static_cast<const char*>(field), size));
    else
        reader.row.emplace_back(std::nullopt);
}

void takeRow(int, void* data)
{
    Reader& reader = *static_cast<Reader*>(data);
    reader.rows.push_back(std::move(reader.row));
    reader.row.clear();
}

/// libcsv trims unquoted fields by default; nothing of a text may be lost.
int noSpace(unsigned char)
{
    return 0;
}

class Parser
{
public:
    explicit Parser(char delimiter)
    {
        if (csv_init(&m_parser, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL) != 0)
            throw ToolError("There is not enough memory to read CSV.");
        csv_set_delim(&m_parser, static_cast<unsigned char>(delimiter));
        csv_set_space_func(&m_parser, noSpace);
    }
    ~Parser() { csv_free(&m_parser); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    bool parse(const std::string& text, std::size_t start, Reader& reader)
    {
        const std::size_t size = text.size() - start;
        return csv_parse(&m_parser, text.data() + start, size, takeField, takeRow, &reader) == size
               && csv_fini(&m_parser, takeField, takeRow, &reader) == 0;
    }
    std::string message() { return csv_strerror(csv_error(&m_parser)); }

private:
    csv_parser m_parser;
};

} // namespace

void refuseOtherDelimiter(const std::string& text, char delimiter, const std::string& fileName,
                          const std::string& firstField)
{
    const std::size_t start = text.rfind(BYTE_ORDER_MARK, 0) == 0 ? 3 : 0;
    for (const auto& [mark, name] : {std::pair{',', ","}, std::pair{';', ";"}, std::pair{'\t', "tab"}}) {
        const bool found = text.compare(start, firstField.size() + 1, firstField + mark) == 0
                           || text.compare(start, firstField.size() + 3, '"' + firstField + '"' + mark) == 0;
        if (found && mark != delimiter)
            throw ToolError(fileName + " has " + (mark == '\t' ? "tabs" : quoted(name))
                            + " between its fields; give --delimiter " + (mark == ';' ? "\";\"" : name)
                            + (mark == ',' ? " or none." : ", and --decimal , where numbers have a comma."));
    }
}

std::vector<CsvRow> readCsv(const std::string& text, char delimiter, const std::string& fileName)
{
    requireUtf8(text, fileName);
    Reader reader;
    Parser parser(delimiter);
    const std::size_t start = text.rfind(BYTE_ORDER_MARK, 0) == 0 ? 3 : 0;
    if (!parser.parse(text, start, reader))
        throw ToolError(fileName + " is no CSV: row " + std::to_string(reader.rows.size() + 1)
                        + " has a quote that does not pair up (" + parser.message() + ").");
    return reader.rows;
}

void CsvLine::separate()
{
    if (!m_first)
        m_line += m_delimiter;
    m_first = false;
}

CsvLine& CsvLine::addText(const std::string& text)
{
    separate();
    std::string buffer(2 * text.size() + 2, '\0');
    buffer.resize(csv_write(&buffer[0], buffer.size(), text.data(), text.size()));
    m_line += buffer;
    return *this;
}

CsvLine& CsvLine::addPlain(const std::string& text)
{
    separate();
    m_line += text;
    return *this;
}

CsvLine& CsvLine::addEmpty()
{
    separate();
    return *this;
}

std::string CsvLine::finish()
{
    return m_line + "\r\n";
}
