#include "helpSQLite.h"

QString helpSQLite::toSQLiteString(const QString& text)
{
    QString safe = text;
    return safe.replace(QLatin1Char('\''), QLatin1String("''"));
}
