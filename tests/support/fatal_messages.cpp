#include "fatal_messages.h"

#include <QMutex>
#include <QMutexLocker>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

QMutex mutex; // messages come from any thread
QRegularExpression expected;
int matched = 0;

/// What the offscreen platform says about every window with a fixed size.
const char PLATFORM_NOISE[] = "This plugin does not support propagateSizeHints()";

void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (text == QLatin1String(PLATFORM_NOISE))
        return;
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    {
        QMutexLocker lock(&mutex);
        if (!expected.pattern().isEmpty() && expected.match(text).hasMatch()) {
            ++matched;
            return;
        }
    }
    ADD_FAILURE() << "stray Qt message: " << text.toStdString();
}

} // namespace

void installFatalMessages()
{
    qInstallMessageHandler(handle);
}

ExpectedMessage::ExpectedMessage(const QString& pattern)
{
    QMutexLocker lock(&mutex);
    expected.setPattern(pattern);
    matched = 0;
}

ExpectedMessage::~ExpectedMessage()
{
    QMutexLocker lock(&mutex);
    EXPECT_GT(matched, 0) << "no Qt message matched " << expected.pattern().toStdString();
    expected.setPattern(QString());
}
