// completion: a script for bash, made from the commands and options that there are.
#include "commands.h"

#include "console.h"
#include "outcome.h"

#include <CLI/CLI.hpp>

namespace {

/// "--group --language ..." of one command.
std::string optionsOf(const CLI::App* command)
{
    std::string list;
    for (const CLI::Option* option : command->get_options()) {
        for (const std::string& name : option->get_lnames())
            list += (list.empty() ? "--" : " --") + name;
    }
    return list;
}

std::string cases(const CLI::App& app, const std::string& prefix)
{
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::string name = prefix + command->get_name();
        std::string words = optionsOf(command);
        for (const CLI::App* inner : command->get_subcommands({}))
            words = inner->get_name() + ' ' + words;
        text += "    \"" + name + "\") words=\"" + words + "\" ;;\n" + cases(*command, name + ' ');
    }
    return text;
}

std::string script(const CLI::App& app)
{
    std::string names;
    for (const CLI::App* command : app.get_subcommands({}))
        names += (names.empty() ? "" : " ") + command->get_name();
    return "# bash completion for recipe-file\n"
           "_recipe_file() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} words=\"\" command=${COMP_WORDS[1]}\n"
           "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \""
           + names
           + " --help --version\" -- \"$current\")\n"
             "        return\n"
             "    fi\n"
             "    if [ \"$command\" = titles ] && [ \"$COMP_CWORD\" -gt 2 ]; then\n"
             "        command=\"titles ${COMP_WORDS[2]}\"\n"
             "    fi\n"
             "    case $command in\n"
           + cases(app, "")
           + "    esac\n"
             "    case $current in\n"
             "    -*) mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\") ;;\n"
             "    *) mapfile -t COMPREPLY < <(compgen -f -- \"$current\"; compgen -W \"${words%%--*}\" -- "
             "\"$current\") ;;\n"
             "    esac\n"
             "}\n"
             "complete -o filenames -F _recipe_file recipe-file\n";
}

} // namespace

void addCompletion(CLI::App& app, Session& session)
{
    CLI::App* command = app.add_subcommand("completion", "Print a completion script for bash");
    command->footer("Example:\n  recipe-file completion > ~/.local/share/bash-completion/completions/recipe-file");
    command->callback([&app, &session] {
        session.action = [&app] {
            printData(script(app));
            return static_cast<int>(EXIT_DONE);
        };
    });
}
