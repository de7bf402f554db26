// Tells the thread sanitizer how Qt orders threads. Linked into test programs of sanitizer builds only.
//
// Qt is not built with the sanitizer, so it cannot see that a QMutex is a lock, that a posted event is handed over or
// that a finished QThread has been waited for; it would report races that are none. The functions here take the place
// of Qt's own (the program comes before the libraries), tell the sanitizer, and call Qt's.
//
// What is told, and nothing more:
//   QMutex         lock and unlock, as a mutex: order of locks and locks that are never released are checked too
//   QSemaphore     release happens before the acquire that takes from it
//   QThread        all that a thread did happens before wait(), isRunning() or isFinished() say that it has ended;
//                  its start needs no help, for pthread_create is seen
//   posted events  posting happens before the delivery; the queue itself, which Qt guards by a lock that cannot be
//   seen,
//                  is not looked at
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QVariant>

#include <dlfcn.h>
#include <sched.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" {
void __tsan_acquire(void* address);
void __tsan_release(void* address);
void __tsan_mutex_pre_lock(void* address, unsigned flags);
void __tsan_mutex_post_lock(void* address, unsigned flags, int recursion);
int __tsan_mutex_pre_unlock(void* address, unsigned flags);
void AnnotateIgnoreWritesBegin(const char* file, int line);
void AnnotateIgnoreWritesEnd(const char* file, int line);
void __tsan_mutex_post_unlock(void* address, unsigned flags);
}

namespace {

const unsigned REENTRANT = 1u << 1;
const unsigned TRY_LOCK = 1u << 4;
const unsigned TRY_LOCK_FAILED = 1u << 5;

/// Qt's own function of that name. Member functions and functions with a first argument are called alike here.
template <typename Function> Function next(const char* name)
{
    void* const symbol = dlsym(RTLD_NEXT, name);
    if (!symbol) {
        std::fprintf(stderr, "tsan_qt: no %s in the Qt that is used\n", name);
        std::abort();
    }
    Function function;
    static_assert(sizeof(function) == sizeof(symbol), "a plain function pointer");
    std::memcpy(&function, &symbol, sizeof(function));
    return function;
}

unsigned flagsOf(const QMutex* mutex)
{
    return mutex->isRecursive() ? REENTRANT : 0;
}

} // namespace

// --- QMutex ------------------------------------------------------------------------------------------------------

void QMutex::lock()
{
    static const auto real = next<void (*)(QMutex*)>("_ZN6QMutex4lockEv");
    const unsigned flags = flagsOf(this);
    __tsan_mutex_pre_lock(this, flags);
    real(this);
    __tsan_mutex_post_lock(this, flags, 1);
}

void QMutex::unlock() noexcept
{
    static const auto real = next<void (*)(QMutex*)>("_ZN6QMutex6unlockEv");
    const unsigned flags = flagsOf(this);
    __tsan_mutex_pre_unlock(this, flags);
    real(this);
    __tsan_mutex_post_unlock(this, flags);
}

bool QMutex::tryLock(int timeout)
{
    static const auto real = next<bool (*)(QMutex*, int)>("_ZN6QMutex7tryLockEi");
    const unsigned flags = flagsOf(this) | TRY_LOCK;
    __tsan_mutex_pre_lock(this, flags);
    const bool locked = real(this, timeout);
    __tsan_mutex_post_lock(this, locked ? flags : flags | TRY_LOCK_FAILED, 1);
    return locked;
}

// --- QSemaphore --------------------------------------------------------------------------------------------------

void QSemaphore::acquire(int n)
{
    static const auto real = next<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    real(this, n);
    __tsan_acquire(this);
}

void QSemaphore::release(int n)
{
    static const auto real = next<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    real(this, n);
}

bool QSemaphore::tryAcquire(int n)
{
    static const auto real = next<bool (*)(QSemaphore*, int)>("_ZN10QSemaphore10tryAcquireEi");
    const bool acquired = real(this, n);
    if (acquired)
        __tsan_acquire(this);
    return acquired;
}

bool QSemaphore::tryAcquire(int n, int timeout)
{
    static const auto real = next<bool (*)(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool acquired = real(this, n, timeout);
    if (acquired)
        __tsan_acquire(this);
    return acquired;
}

// --- QThread -----------------------------------------------------------------------------------------------------

namespace {

/// Counts the runs of one thread. Relaxed on purpose: this must not order anything by itself.
struct Runs
{
    std::atomic<const QThread*> thread{nullptr};
    std::atomic<int> begun{0};
    std::atomic<int> ended{0};

    static Runs& of(const QThread* thread)
    {
        static Runs table[256];
        for (Runs& runs : table) {
            const QThread* free = nullptr;
            if (runs.thread.compare_exchange_strong(free, thread, std::memory_order_relaxed) || free == thread)
                return runs;
        }
        std::fprintf(stderr, "tsan_qt: too many threads\n");
        std::abort();
    }

    /// Qt says that a thread has ended a moment before it emits `finished`; that is waited for.
    void waitForEnd() const
    {
        while (ended.load(std::memory_order_relaxed) != begun.load(std::memory_order_relaxed))
            sched_yield();
    }
};

/// After Qt has said that the thread does not run (any more).
void acquireEnd(const QThread* thread)
{
    Runs::of(thread).waitForEnd();
    __tsan_acquire(const_cast<QThread*>(thread));
}

} // namespace

/// `finished` is emitted on the thread itself, when run() is over. Being connected first, this is told first.
void QThread::start(Priority priority)
{
    static const auto real = next<void (*)(QThread*, Priority)>("_ZN7QThread5startENS_8PriorityE");
    static const char WATCHED[] = "tsan_qt watches the end";
    Runs& runs = Runs::of(this);
    if (!isRunning()) {
        runs.begun.store(runs.ended.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        if (!property(WATCHED).toBool()) {
            setProperty(WATCHED, true);
            const auto end = [this, &runs] {
                Runs& mine = runs; // nothing of the connection may be read after the release
                __tsan_release(this);
                mine.ended.fetch_add(1, std::memory_order_relaxed);
            };
            connect(this, &QThread::finished, this, end, Qt::DirectConnection);
        }
    }
    real(this, priority);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto real = next<bool (*)(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = real(this, deadline);
    if (ended)
        acquireEnd(this);
    return ended;
}

bool QThread::wait(unsigned long time)
{
    static const auto real = next<bool (*)(QThread*, unsigned long)>("_ZN7QThread4waitEm");
    const bool ended = real(this, time);
    if (ended)
        acquireEnd(this);
    return ended;
}

bool QThread::isRunning() const
{
    static const auto real = next<bool (*)(const QThread*)>("_ZNK7QThread9isRunningEv");
    const bool running = real(this);
    if (!running)
        acquireEnd(this);
    return running;
}

bool QThread::isFinished() const
{
    static const auto real = next<bool (*)(const QThread*)>("_ZNK7QThread10isFinishedEv");
    const bool finished = real(this);
    if (finished)
        acquireEnd(this);
    return finished;
}

// --- posted events -----------------------------------------------------------------------------------------------

void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static const auto real =
        next<void (*)(QObject*, QEvent*, int)>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(event);
    AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    real(receiver, event, priority);
    AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
}

namespace {

/// Qt asks before each delivery; the answer is that it is to go on.
bool beforeDelivery(void** receiverAndEvent)
{
    __tsan_acquire(receiverAndEvent[1]);
    return false;
}

const bool watchesDelivery = QInternal::registerCallback(QInternal::EventNotifyCallback, beforeDelivery);

} // namespace
