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

/// A command with its --json option and its example.
CLI::App* addCommand(CLI::App& app, Session& session, const std::string& name, const std::string& purpose,
                     const std::string& example);

#endif
