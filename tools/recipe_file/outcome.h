// How a command ends: its exit code, and what went wrong in words that help.
#ifndef OUTCOME_H
#define OUTCOME_H

#include <stdexcept>
#include <string>
#include <vector>

/// The same for every command; documented in --help.
enum ExitCode
{
    EXIT_DONE = 0,      ///< done; nothing differs, nothing is wrong
    EXIT_DIFFERENT = 1, ///< the comparison found differences, the check found faults
    EXIT_FAILED = 2,    ///< not done: command line, file or input
    EXIT_UNTOLD = 3     ///< done, but standard output did not take the result
};

/// One fault of an input, with its place.
struct Problem
{
    std::string path;      ///< where in the input: "groups[0].items[3].min", or "row 4, column 2"
    std::string place;     ///< in the user's words: "group 0 "Bakery", item 3 "Salt""; may be empty
    std::string field;     ///< what is wrong: "min"
    std::string value;     ///< what stands there, as it is written; "missing" where nothing does
    std::string expected;  ///< what belongs there
    std::string file = {}; ///< the sheet; row and column of it count from 1, 0: none
    int row = 0;
    int column = 0;

    /// One sentence.
    std::string text() const;
};

/// A command cannot be carried out; nothing has been changed. `what()` is one sentence for the user.
class ToolError : public std::runtime_error
{
public:
    explicit ToolError(const std::string& sentence) : std::runtime_error(sentence) {}
    ToolError(const std::string& sentence, std::vector<Problem> list)
        : std::runtime_error(sentence), m_problems(std::move(list))
    {}

    /// All faults of the input, in its order; empty for a failure of another kind.
    const std::vector<Problem>& problems() const { return m_problems; }

private:
    std::vector<Problem> m_problems;
};

/// SQLite found the file damaged.
class DamagedFile : public ToolError
{
public:
    using ToolError::ToolError;
};

/// What stands in the file is no SQLite database.
class NotADatabase : public ToolError
{
public:
    using ToolError::ToolError;
};

/// The file cannot be read before somebody with write access has rolled an unfinished write back.
class InterruptedWrite : public ToolError
{
public:
    using ToolError::ToolError;
};

/// Another program holds the file's lock.
class LockedFile : public ToolError
{
public:
    using ToolError::ToolError;
};

/// A text in another encoding would be stored as question marks; a ToolError says so first.
void requireUtf8(const std::string& text, const std::string& fileName);

/// `text` between double quotes, shortened where it is long (never inside a UTF-8 character).
std::string quoted(const std::string& text);

/// "1 item", "2 items".
std::string counted(long long count, const char* one, const char* many);

#endif
