// completion: scripts for bash, zsh and fish, made from the commands and options that there are.
#include "commands.h"

#include "console.h"
#include "json_document.h"
#include "outcome.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace {

/// "csv json table" of an option that takes one of these words; else nothing. Marks like ";" are not for completion.
std::string choicesOf(const CLI::Option* option)
{
    const std::string type = option->get_type_name(); // "TEXT:{csv,json,table}"
    const std::size_t begin = type.find('{');
    const std::size_t end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos)
        return std::string();
    std::string choices = type.substr(begin + 1, end - begin - 1);
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    if (!std::all_of(choices.begin(), choices.end(), [&](char c) { return c == ',' || isLetter(c); })
        || !isLetter(choices.front()))
        return std::string();
    std::replace(choices.begin(), choices.end(), ',', ' ');
    return choices;
}

bool takesValue(const CLI::Option* option)
{
    return option->get_items_expected_max() > 0;
}

std::string escaped(const std::string& text, const std::string& special)
{
    std::string result;
    for (const char c : text)
        result += (special.find(c) == std::string::npos ? "" : "\\") + std::string(1, c);
    return result;
}

/// Between single quotes, which no text of ours may hold.
std::string literal(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '\''), text.end());
    return '\'' + text + '\'';
}

template <typename Visit> void forEachOption(const CLI::App* command, Visit visit)
{
    for (const CLI::Option* option : command->get_options()) {
        for (const std::string& name : option->get_lnames())
            visit(option, name);
    }
}

std::string namesOf(const CLI::App& app)
{
    std::string names;
    for (const CLI::App* command : app.get_subcommands({}))
        names += (names.empty() ? "" : " ") + command->get_name();
    return names;
}

// --- bash ----------------------------------------------------------------------------------------------------

std::string bashCases(const CLI::App& app, const std::string& prefix)
{
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        std::string words = namesOf(*command);
        forEachOption(command, [&](const CLI::Option*, const std::string& name) { words += " --" + name; });
        text += "    \"" + prefix + command->get_name() + "\") words=\"" + words + "\" ;;\n"
                + bashCases(*command, prefix + command->get_name() + ' ');
    }
    return text;
}

std::string bashScript(const CLI::App& app)
{
    return "# bash completion for recipe-file\n"
           "_recipe_file() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} words=\"\" command=${COMP_WORDS[1]}\n"
           "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \""
           + namesOf(app)
           + " --help --json --version\" -- \"$current\")\n"
             "        return\n"
             "    fi\n"
             "    if [ \"$command\" = titles ] && [ \"$COMP_CWORD\" -gt 2 ]; then\n"
             "        command=\"titles ${COMP_WORDS[2]}\"\n"
             "    fi\n"
             "    case $command in\n"
           + bashCases(app, "")
           + "    esac\n"
             "    case $current in\n"
             "    -*) mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\") ;;\n"
             "    *) mapfile -t COMPREPLY < <(compgen -f -- \"$current\"; compgen -W \"${words%%--*}\" -- "
             "\"$current\") ;;\n"
             "    esac\n"
             "}\n"
             "complete -o filenames -F _recipe_file recipe-file\n";
}

// --- zsh -----------------------------------------------------------------------------------------------------

std::string zshChoice(const CLI::App& app, const std::string& indent)
{
    std::string text = indent + "commands=(";
    for (const CLI::App* command : app.get_subcommands({}))
        text += '\n' + indent + "    " + literal(command->get_name() + ':' + command->get_description());
    return text + '\n' + indent + ")\n" + indent + "_describe command commands\n";
}

std::string zshOptions(const CLI::App* command)
{
    std::string text;
    forEachOption(command, [&](const CLI::Option* option, const std::string& name) {
        const std::string choices = choicesOf(option);
        const std::string value = !takesValue(option) ? "" : choices.empty() ? ":value:" : ":value:(" + choices + ')';
        text +=
            " \\\n            " + literal("--" + name + '[' + escaped(option->get_description(), "[]:") + ']' + value);
    });
    return text;
}

/// The branches of the commands, for words counted from the command's own.
std::string zshCases(const CLI::App& app)
{
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        text += "    " + command->get_name() + ")\n";
        if (command->get_subcommands({}).empty())
            text += "        _arguments" + zshOptions(command) + " \\\n            '*:file:_files'\n";
        else
            text += "        _recipe-file-" + command->get_name() + '\n';
        text += "        ;;\n";
    }
    return text;
}

std::string zshFunction(const CLI::App& app, const std::string& name)
{
    return name + "() {\n    local -a commands\n    if (( CURRENT == 2 )); then\n" + zshChoice(app, "        ")
           + "        return\n    fi\n    shift words\n    (( CURRENT-- ))\n    case $words[1] in\n" + zshCases(app)
           + "    esac\n}\n\n";
}

std::string zshScript(const CLI::App& app)
{
    std::string text = "#compdef recipe-file\n\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        if (!command->get_subcommands({}).empty())
            text += zshFunction(*command, "_recipe-file-" + command->get_name());
    }
    return text + zshFunction(app, "_recipe-file") + "if [ \"$funcstack[1]\" = _recipe-file ]; then\n"
           + "    _recipe-file \"$@\"\nelse\n    compdef _recipe-file recipe-file\nfi\n";
}

// --- fish ----------------------------------------------------------------------------------------------------

std::string fishLine(const std::string& condition, const std::string& what, const std::string& description)
{
    return "complete -c recipe-file -n '" + condition + "' " + what + " -d " + literal(escaped(description, "\\"))
           + '\n';
}

/// `seen` is the condition under which a command's name counts: "export" is one of its own and one of titles'.
std::string fishCommands(const CLI::App& app, const std::string& noneYet, const std::string& seen)
{
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        const bool outer = !command->get_subcommands({}).empty();
        const std::string chosen = (outer ? "" : seen) + "__fish_seen_subcommand_from " + command->get_name();
        text += fishLine(noneYet, "-f -a " + command->get_name(), command->get_description());
        forEachOption(command, [&](const CLI::Option* option, const std::string& name) {
            const std::string choices = choicesOf(option);
            const std::string value = !takesValue(option) ? "" : choices.empty() ? " -r" : " -x -a '" + choices + '\'';
            text += fishLine(chosen, "-l " + name + value, option->get_description());
        });
        if (outer)
            text += fishCommands(*command, chosen + "; and not __fish_seen_subcommand_from " + namesOf(*command),
                                 chosen + "; and ");
    }
    return text;
}

std::string fishScript(const CLI::App& app)
{
    return "# fish completion for recipe-file\n"
           + fishCommands(app, "__fish_use_subcommand", "not __fish_seen_subcommand_from titles; and ");
}

std::string script(const CLI::App& app, const std::string& shell)
{
    return shell == "zsh" ? zshScript(app) : shell == "fish" ? fishScript(app) : bashScript(app);
}

} // namespace

void addCompletion(CLI::App& app, Session& session)
{
    CLI::App* command =
        addCommand(app, session, "completion", "Print a completion script for a shell",
                   "recipe-file completion bash > ~/.local/share/bash-completion/completions/recipe-file\n"
                   "  recipe-file completion zsh > \"${fpath[1]}/_recipe-file\"\n"
                   "  recipe-file completion fish > ~/.config/fish/completions/recipe-file.fish");
    const auto shell = std::make_shared<std::string>("bash");
    command->add_option("SHELL", *shell, "bash, zsh or fish (default bash)")
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
    command->callback([&app, &session, shell] {
        session.action = [&app, &session, shell] {
            const std::string text = script(app, *shell);
            printData(session.json ? dumpJson({{"ok", true}, {"shell", *shell}, {"script", text}}) : text);
            return static_cast<int>(EXIT_DONE);
        };
    });
}
