// That the thread sanitizer sees Qt's ordering, and that it still sees races. Sanitizer builds only.
#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QProcess>
#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>

namespace {

/// Runs a function on a thread.
class Worker : public QThread
{
public:
    explicit Worker(const std::function<void()>& job) : m_job(job) {}

protected:
    void run() override { m_job(); }

private:
    std::function<void()> m_job;
};

/// Counts in plain memory what events bring.
class Receiver : public QObject
{
public:
    struct Note : QEvent
    {
        explicit Note(int* counter) : QEvent(QEvent::User), plain(counter) {}
        int* plain;
    };

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User) {
            ++*static_cast<Note*>(event)->plain;
            ++delivered;
        }
        return QObject::event(event);
    }

    int delivered = 0;
};

/// Runs one of the disabled tests below in a process of its own and returns what the sanitizer said.
QString reportOf(const char* name)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromLatin1("--gtest_also_run_disabled_tests"),
                   QString::fromLatin1("--gtest_filter=ARaceIsSeen.DISABLED_%1").arg(QString::fromLatin1(name))});
    EXPECT_TRUE(process.waitForFinished(-1));
    EXPECT_NE(process.exitCode(), 0) << name;
    return QString::fromLocal8Bit(process.readAll());
}

} // namespace

TEST(NoRaceIsSeen, WhenAMutexGuards)
{
    QMutex mutex;
    int plain = 0;
    const auto count = [&] {
        for (int i = 0; i < 1000; ++i) {
            QMutexLocker lock(&mutex);
            ++plain;
        }
    };
    Worker first(count);
    Worker second(count);
    first.start();
    second.start();
    count();
    EXPECT_TRUE(first.wait());
    EXPECT_TRUE(second.wait());
    EXPECT_EQ(plain, 3000);
}

TEST(NoRaceIsSeen, WhenAThreadHasEnded)
{
    int plain = 1;
    Worker worker([&plain] { ++plain; });
    for (int round = 0; round < 100; ++round) {
        ++plain;
        worker.start();
        if (round % 3 == 0)
            EXPECT_TRUE(worker.wait());
        else if (round % 3 == 1)
            while (worker.isRunning())
                QThread::yieldCurrentThread();
        else
            while (!worker.isFinished())
                QThread::yieldCurrentThread();
    }
    EXPECT_EQ(plain, 201);
    worker.wait();
}

TEST(NoRaceIsSeen, WhenAnEventBringsTheData)
{
    Receiver receiver;
    int plain = 0;
    Worker worker([&] {
        for (int i = 0; i < 100; ++i)
            QCoreApplication::postEvent(&receiver, new Receiver::Note(&plain));
    });
    worker.start();
    while (plain < 100)
        QCoreApplication::processEvents();
    EXPECT_TRUE(worker.wait());
}

TEST(NoRaceIsSeen, WhenASemaphoreHandsOver)
{
    QSemaphore full(0);
    QSemaphore empty(1);
    int plain = 0;
    Worker worker([&] {
        for (int i = 0; i < 100; ++i) {
            empty.acquire();
            ++plain;
            full.release();
        }
    });
    worker.start();
    for (int i = 0; i < 100; ++i) {
        full.acquire();
        ++plain;
        empty.release();
    }
    EXPECT_TRUE(worker.wait());
    EXPECT_EQ(plain, 200);
}

// These race on purpose; each runs in a process of its own.

TEST(ARaceIsSeen, DISABLED_Unguarded)
{
    int plain = 0;
    Worker worker([&plain] { ++plain; });
    worker.start();
    ++plain;
    worker.wait();
}

TEST(ARaceIsSeen, DISABLED_TwoMutexes)
{
    QMutex one;
    QMutex other;
    int plain = 0;
    const auto count = [&plain](QMutex& mutex) {
        for (int i = 0; i < 1000; ++i) {
            QMutexLocker lock(&mutex);
            ++plain;
        }
    };
    Worker worker([&] { count(one); });
    worker.start();
    count(other);
    worker.wait();
}

TEST(ARaceIsSeen, DISABLED_AfterPosting)
{
    Receiver receiver;
    int plain = 0;
    Worker worker([&] {
        QCoreApplication::postEvent(&receiver, new Receiver::Note(&plain));
        ++plain;
    });
    worker.start();
    while (receiver.delivered < 1) // not `plain`: one of its two steps may be lost
        QCoreApplication::processEvents();
    worker.wait();
}

TEST(ARaceIsSeen, DISABLED_OrderOfLocks)
{
    QMutex one;
    QMutex other;
    {
        QMutexLocker first(&one);
        QMutexLocker second(&other);
    }
    QMutexLocker first(&other);
    QMutexLocker second(&one);
}

TEST(ARaceIsSeen, InData)
{
    for (const char* name : {"Unguarded", "TwoMutexes", "AfterPosting"})
        EXPECT_TRUE(reportOf(name).contains(QString::fromLatin1("ThreadSanitizer: data race"))) << name;
}

TEST(ARaceIsSeen, InTheOrderOfLocks)
{
    EXPECT_TRUE(reportOf("OrderOfLocks").contains(QString::fromLatin1("lock-order-inversion")));
}
