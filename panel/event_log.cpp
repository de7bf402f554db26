// The event log.
#include "event_log.h"

#include <QJsonDocument>

#include <cstdio>

bool EventLog::open(const QString& fileName, bool append)
{
    if (fileName == QString::fromLatin1("-"))
        return m_file.open(stdout, QIODevice::WriteOnly);
    m_file.setFileName(fileName);
    return m_file.open(QIODevice::WriteOnly | (append ? QIODevice::Append : QIODevice::Truncate));
}

void EventLog::write(const char* event, QJsonObject details)
{
    if (!m_file.isOpen())
        return;
    details.insert(QString::fromLatin1("time"), m_clock.now());
    details.insert(QString::fromLatin1("event"), QString::fromLatin1(event));
    m_file.write(QJsonDocument(details).toJson(QJsonDocument::Compact) + '\n');
    m_file.flush(); // a panel that is stopped at once has told everything before
}
