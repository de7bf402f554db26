// A stray Qt warning fails the test that caused it.
#ifndef FATAL_MESSAGES_H
#define FATAL_MESSAGES_H

#include <QRegularExpression>

/// Installs the handler. Called by main().
void installFatalMessages();

/// For its lifetime, warnings that match are expected; it is a failure when none comes.
class ExpectedMessage
{
public:
    explicit ExpectedMessage(const QString& pattern);
    ~ExpectedMessage();
    ExpectedMessage(const ExpectedMessage&) = delete;
    ExpectedMessage& operator=(const ExpectedMessage&) = delete;
};

#endif
