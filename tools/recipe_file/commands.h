// One function per command. Each adds its options and leaves what it will do in `Session::action`.
#ifndef COMMANDS_H
#define COMMANDS_H

#include <functional>
#include <string>

namespace CLI {
class App;
}

/// What a command line asks for.
struct Session
{
    bool json = false;           ///< results and failures as JSON on standard output
    std::function<int()> action; ///< returns an exit code or throws a ToolError
};

void addCreate(CLI::App& app, Session& session);
void addGenerate(CLI::App& app, Session& session);
void addInfo(CLI::App& app, Session& session);
void addLookCommands(CLI::App& app, Session& session);     ///< list, show, get
void addTransferCommands(CLI::App& app, Session& session); ///< export, import, diff
void addEditCommands(CLI::App& app, Session& session);     ///< set, add, copy, rename, delete
void addKeepCommands(CLI::App& app, Session& session);     ///< backup, restore
void addTitleCommands(CLI::App& app, Session& session);    ///< titles export, titles import
void addCheck(CLI::App& app, Session& session);
void addCompletion(CLI::App& app, Session& session);

/// What most commands ask for: which file, which group, how long to wait for a lock.
struct FileOptions
{
    std::string file;
    std::string group;
    int language = 1;
    double wait = 0;
};
void addFileOptions(CLI::App* command, FileOptions& options, bool withGroup = true);

/// --delimiter: what stands between the fields of a CSV.
void addDelimiterOption(CLI::App* command, std::string& delimiter);

/// A command with its --json option and its example.
CLI::App* addCommand(CLI::App& app, Session& session, const std::string& name, const std::string& purpose,
                     const std::string& example);

#endif
