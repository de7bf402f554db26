#include "fuzz_frame.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

const char PROJECT[] = "/usr/tabrix/project/";

Reached*& firstReached()
{
    static Reached* first = nullptr;
    return first;
}

void takeMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        report("Qt warns: " + text.toStdString());
}

} // namespace

void writeReached()
{
    const char* const fileName = std::getenv("RECIPE_FUZZ_REACHED");
    if (!fileName)
        return;
    std::ofstream out(fileName);
    for (const Reached* reached = firstReached(); reached; reached = reached->m_next)
        out << reached->m_name << ' ' << reached->m_count << '\n';
}

Reached::Reached(const char* name) : m_name(name), m_count(0), m_next(firstReached())
{
    firstReached() = this;
}

void startFuzzing()
{
    static int argumentCount = 1;
    static char program[] = "fuzzer";
    static char* arguments[] = {program, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* const application = new QApplication(argumentCount, arguments); // lives as long as the process
    Q_UNUSED(application)
    qInstallMessageHandler(takeMessage);
    if (!std::freopen("/dev/null", "w", stdout))
        report("no /dev/null");
    std::atexit(writeReached);
}

QString projectFile(const char* name)
{
    return QString::fromLatin1(PROJECT) + QString::fromLatin1(name);
}

void writeProjectFile(const char* name, const void* bytes, std::size_t size)
{
    QFile file(projectFile(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        report("cannot write " + file.fileName().toStdString() + "; run under tools/with-project-dir");
    file.write(static_cast<const char*>(bytes), static_cast<qint64>(size));
}

std::string readProjectFile(const char* name)
{
    std::ifstream in(projectFile(name).toStdString(), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void report(const std::string& sentence)
{
    std::fprintf(stderr, "FOUND: %s\n", sentence.c_str());
    std::abort();
}
