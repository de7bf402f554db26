#include "other_process.h"

#include <gtest/gtest.h>

const char* OtherProcess::name(Lock lock)
{
    static const char* const NAMES[] = {"shared", "reserved", "exclusive"};
    return NAMES[lock];
}

OtherProcess::OtherProcess(const QString& path)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QString::fromLatin1(LOCK_HOLDER), {path});
    EXPECT_TRUE(m_process.waitForStarted(-1)) << LOCK_HOLDER;
}

OtherProcess::~OtherProcess()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished(-1);
}

bool OtherProcess::take(Lock lock)
{
    return ask(name(lock)) == "taken";
}

void OtherProcess::release()
{
    EXPECT_EQ(ask("release"), "released");
}

QByteArray OtherProcess::ask(const char* command)
{
    m_process.write(QByteArray(command) + '\n');
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(-1))
            return QByteArray(); // it is gone
    }
    return m_process.readLine().trimmed();
}
