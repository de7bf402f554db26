#ifndef HELP_SQLITE_H
#define HELP_SQLITE_H

#include <QString>

class helpSQLite
{
public:
    /// `text` made safe inside a single-quoted SQL literal: every single quote doubled. Any thread.
    static QString toSQLiteString(const QString& text);
};

#endif
