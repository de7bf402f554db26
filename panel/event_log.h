// What happened on the panel, one JSON object per line: touches, requests, registers, messages, edits, saves.
// Every line has "time" (milliseconds of the panel's clock) and "event". GUI thread only.
#ifndef EVENT_LOG_H
#define EVENT_LOG_H

#include "panel_clock.h"

#include <QFile>
#include <QJsonObject>
#include <QString>

class EventLog
{
public:
    /// The clock is not owned and must outlive this.
    explicit EventLog(PanelClock& clock) : m_clock(clock) {}

    /// Writes to the file from here on; "-" is standard output. `append` keeps what stands in it. False: it cannot be
    /// written; nothing is logged.
    bool open(const QString& fileName, bool append);
    /// Does nothing until a file is open.
    void write(const char* event, QJsonObject details = QJsonObject());

private:
    PanelClock& m_clock;
    QFile m_file;
};

#endif
