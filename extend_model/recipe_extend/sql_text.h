// Composes one SQL statement. Private to RecipeDB.
//
// Every templated piece is formatted into a buffer of 1024 bytes and cut at 1023 characters, wherever that falls. A
// cut statement must fail without a trace, and that is not left to chance: behind the cut nothing is added any more,
// and where the cut text happens to be complete SQL (say an UPDATE that lost its WHERE) an unclosed quote is added.
#ifndef SQL_TEXT_H
#define SQL_TEXT_H

#include <QByteArray>
#include <QString>

#include <cstdarg>
#include <cstdio>

class SqlText
{
public:
    enum
    {
        BUFFER_SIZE = 1024
    };

    SqlText() : m_cut(false) {}

    /// Adds one piece by a printf-style template.
    __attribute__((format(printf, 2, 3))) SqlText& add(const char* pattern, ...)
    {
        char buffer[BUFFER_SIZE] = {0};
        va_list arguments;
        va_start(arguments, pattern);
        const int length = std::vsnprintf(buffer, sizeof(buffer), pattern, arguments);
        va_end(arguments);
        return append(buffer, length < 0 || length >= BUFFER_SIZE);
    }

    /// Adds text of any length as it stands.
    SqlText& addText(const char* text) { return append(text, false); }

    /// Adds ",'<text>'". The text is ASCII and needs no escaping.
    SqlText& addPlainValue(const QString& value)
    {
        if (m_cut)
            return *this;
        const int start = static_cast<int>(m_text.size());
        const int length = static_cast<int>(value.size());
        m_text.resize(start + length + 3);
        char* out = m_text.data() + start;
        *out++ = ',';
        *out++ = '\'';
        for (int i = 0; i < length; ++i)
            *out++ = static_cast<char>(value.at(i).unicode());
        *out = '\'';
        return *this;
    }

    const char* text() const { return m_text.constData(); }

private:
    SqlText& append(const char* text, bool cut)
    {
        if (m_cut)
            return *this;
        m_text += text;
        m_cut = cut;
        if (m_cut && m_text.count('\'') % 2 == 0)
            m_text += " '";
        return *this;
    }

    QByteArray m_text;
    bool m_cut;
};

/// A statement that has no places to fill in.
inline SqlText sqlText(const char* text)
{
    SqlText sql;
    sql.add("%s", text);
    return sql;
}

/// A statement from one template.
template <typename... Arguments> SqlText sqlText(const char* pattern, Arguments... arguments)
{
    SqlText sql;
    sql.add(pattern, arguments...);
    return sql;
}

#endif
