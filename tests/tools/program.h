// Runs the recipe-file program in a folder of its own and looks at files with a connection of its own.
#ifndef PROGRAM_H
#define PROGRAM_H

#include <gtest/gtest.h>

#include <QString>
#include <QTemporaryDir>

#include <string>
#include <vector>

using Words = std::vector<std::string>;

/// How a run ended.
struct Outcome
{
    int code;
    std::string out;
    std::string err;
};

/// Each test has an empty folder in which the program runs.
class ProgramTest : public testing::Test
{
protected:
    /// The program with these arguments; `input` is its standard input. Not a terminal, C.UTF-8.
    Outcome run(const Words& arguments, const std::string& input = std::string());
    /// The same under other environment variables ("LC_ALL=de_DE.UTF-8").
    Outcome runWith(const Words& environment, const Words& arguments, const std::string& input = std::string());

    /// The same where no file can grow beyond `kilobytes`.
    Outcome runLimited(int kilobytes, const Words& arguments);

    /// A piece of bash.
    Outcome runShell(const std::string& script);

    QString path(const std::string& name) const; ///< in the folder, unless it is absolute
    void write(const std::string& name, const std::string& text);
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    /// Names in the folder, sorted, hidden ones too.
    Words files() const;

    /// Rows of a query, "a|b|c" each, from a connection of its own.
    std::vector<std::string> query(const std::string& file, const std::string& sql);
    /// Runs statements on a file, which is created where it is missing.
    void sql(const std::string& file, const std::string& statements);
    /// Every statement that would make the file again, in the order of its tables and rows.
    std::string dump(const std::string& file);

    static QString program();    ///< the program's path
    static std::string bakery(); ///< the description that ships

private:
    Outcome start(const std::string& program, const Words& arguments, const Words& environment,
                  const std::string& input);

    QTemporaryDir m_folder;
};

#endif
