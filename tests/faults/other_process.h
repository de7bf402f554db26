// Another process that takes SQLite's locks on a file: locks of one process do not keep that process itself out.
#ifndef OTHER_PROCESS_H
#define OTHER_PROCESS_H

#include <QProcess>
#include <QString>

class OtherProcess
{
public:
    enum Lock
    {
        Shared,   ///< reads: nobody can commit
        Reserved, ///< is about to write: nobody else can begin to
        Exclusive ///< writes: nobody else can read
    };

    static const char* name(Lock lock);

    explicit OtherProcess(const QString& path);
    ~OtherProcess();
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    /// True: it has the lock. False: the file is locked by somebody else, or there is no file.
    bool take(Lock lock);
    void release();

private:
    QByteArray ask(const char* command);

    QProcess m_process;
};

#endif
