// The real panel program as a child process, headless, in the test's own view of the project directory.
#ifndef PANEL_PROCESS_H
#define PANEL_PROCESS_H

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

inline QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

inline QString exampleProject(const char* name)
{
    return latin(SOURCE_DIR "/examples/") + latin(name);
}

struct PanelResult
{
    int exitCode;
    std::string output;
    std::string errors;
};

class PanelProcess : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        // Tests may run in one process, one after the other.
        QDir project(latin("/usr/tabrix/project"));
        for (const QString& left : project.entryList(QDir::Files))
            project.remove(left);
    }

    /// A file of the test's own.
    QString file(const char* name) const { return m_folder.filePath(latin(name)); }

    QString write(const char* name, const QByteArray& contents) const
    {
        QFile written(file(name));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly | QIODevice::Truncate));
        written.write(contents);
        return file(name);
    }

    QByteArray read(const char* name) const
    {
        QFile written(file(name));
        EXPECT_TRUE(written.open(QIODevice::ReadOnly)) << name;
        return written.readAll();
    }

    /// Runs the program to its end. A program that does not end fails the test.
    PanelResult run(const QStringList& arguments, const QByteArray& input = QByteArray())
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(latin("QT_QPA_PLATFORM"), latin("offscreen"));
        environment.insert(latin("XDG_RUNTIME_DIR"), m_folder.path());
        process.setProcessEnvironment(environment);
        process.start(latin(PANEL_PROGRAM), arguments);
        process.write(input);
        process.closeWriteChannel();
        const bool ended = process.waitForFinished(LONGEST_RUN) && process.exitStatus() == QProcess::NormalExit;
        EXPECT_TRUE(ended) << process.errorString().toStdString();
        if (!ended)
            process.kill();
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    /// Renders a project and expects that to succeed without a word.
    QImage picture(const QString& project)
    {
        const PanelResult result = run({project, latin("--screenshot"), file("panel.png")});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        return QImage(file("panel.png"));
    }

private:
    static constexpr int LONGEST_RUN = 30 * 60 * 1000; // milliseconds; only a hanging program needs it

    QTemporaryDir m_folder;
};

#endif
