#include "outcome.h"

#include "text_table.h"

#include <QString>

namespace {

const std::size_t SHOWN_BYTES = 60;

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

std::string Problem::text() const
{
    std::string sentence = path.empty() ? std::string() : path + ": ";
    if (!place.empty())
        sentence += place + ": ";
    sentence += field + " is " + value + ", expected " + expected;
    return expected.empty() || expected.back() != '?' ? sentence + '.' : sentence;
}

void requireUtf8(const std::string& text, const std::string& fileName)
{
    // What is not UTF-8 is read as U+FFFD and does not come back as it was. Behind a letter Qt keeps a byte order mark.
    const std::string kept = 'x' + text;
    if (QString::fromUtf8(kept.data(), static_cast<int>(kept.size())).toStdString() != kept)
        throw ToolError(fileName + " is not in UTF-8; save it as UTF-8 first.");
}

std::string quoted(const std::string& text)
{
    if (text.size() <= SHOWN_BYTES)
        return '"' + oneLine(text) + '"';
    std::size_t end = SHOWN_BYTES;
    while (end > 0 && continuesCharacter(text[end]))
        --end;
    return '"' + oneLine(text.substr(0, end)) + "...\"";
}

std::string counted(long long count, const char* one, const char* many)
{
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}
