#include "application.h"

#include "commands.h"
#include "console.h"
#include "json_document.h"
#include "new_file.h"
#include "outcome.h"
#include "recipe_records.h"
#include "suggest.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstring>

namespace {

const char EXIT_CODES[] = "Exit codes:\n"
                          "  0  done; no difference, no fault\n"
                          "  1  diff found differences, check found faults\n"
                          "  2  not done: command line, file or input; nothing was changed\n"
                          "  3  done, but the result could not be written to standard output\n"
                          "\n"
                          "Data goes to standard output, everything else to standard error.";

bool asksForJson(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0)
            return true;
    }
    return false;
}

Json problemToJson(const Problem& problem)
{
    Json object = {{"path", problem.path},   {"place", problem.place},       {"field", problem.field},
                   {"value", problem.value}, {"expected", problem.expected}, {"text", problem.text()}};
    if (!problem.file.empty())
        object["file"] = problem.file;
    if (problem.row > 0)
        object["row"] = problem.row;
    if (problem.column > 0)
        object["column"] = problem.column;
    return object;
}

int reportFailure(const ToolError& error, bool json)
{
    if (!json) {
        for (const Problem& problem : error.problems())
            say(problem.text());
        say(error.what());
        return EXIT_FAILED;
    }
    Json object = {{"ok", false}, {"error", error.what()}, {"problems", Json::array()}};
    for (const Problem& problem : error.problems())
        object["problems"].push_back(problemToJson(problem));
    printData(dumpJson(object));
    return EXIT_FAILED;
}

/// What is nearest to a command that does not exist. `path` is "titles " for the commands behind titles.
void refuseUnknownCommand(const CLI::App& app, char** word, char** end, const std::string& path)
{
    while (word != end && (*word)[0] == '-')
        ++word; // options in front of it have no value
    if (word == end)
        return;
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        if (command->get_name() == *word) {
            if (!command->get_subcommands({}).empty())
                refuseUnknownCommand(*command, word + 1, end, path + *word + ' ');
            return;
        }
        names.push_back(command->get_name());
    }
    const std::string hint = didYouMean(*word, names);
    throw ToolError("There is no command " + quoted(path + *word)
                    + (hint.empty() ? "; see recipe-file " + path + "--help." : hint));
}

/// The command that was chosen, the inner one of two.
const CLI::App* chosenCommand(const CLI::App& app, std::string& path)
{
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
        path += command->get_name() + ' ';
    }
    return command;
}

/// The option that is nearest to one that does not exist.
std::string optionHint(const CLI::App* command, int argc, char** argv)
{
    std::vector<std::string> known;
    for (const CLI::Option* option : command->get_options()) {
        for (const std::string& name : option->get_lnames())
            known.push_back("--" + name);
    }
    for (int i = 1; i < argc; ++i) {
        const std::string word = std::string(argv[i]).substr(0, std::string(argv[i]).find('='));
        if (word.compare(0, 2, "--") == 0 && word != "--" && std::find(known.begin(), known.end(), word) == known.end())
            return didYouMean(word, known);
    }
    return std::string();
}

/// A name that starts like an option was taken for one.
std::string dashHint(int argc, char** argv)
{
    for (int i = 1; i < argc && std::string(argv[i]) != "--"; ++i) {
        const std::string word = argv[i];
        if (word.size() > 2 && word[0] == '-' && word[1] != '-')
            return " A name that starts with - stands behind --, as in: -- "
                   + (word.find(' ') == std::string::npos ? word : quoted(word));
    }
    return std::string();
}

std::string refusal(const CLI::App& app, const CLI::ParseError& error, int argc, char** argv)
{
    std::string path;
    const CLI::App* command = chosenCommand(app, path);
    const std::string hint = optionHint(command, argc, argv);
    return error.what() + (!hint.empty() ? hint : "; see recipe-file " + path + "--help." + dashHint(argc, argv));
}

int parseAndRun(CLI::App& app, Session& session, int argc, char** argv)
{
    refuseUnknownCommand(app, argv + 1, argv + argc, std::string());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return app.exit(error); // --help, --version
        throw ToolError(refusal(app, error, argc, argv));
    }
    return session.action();
}

/// A result that nobody got is no success.
int told(int code)
{
    const int failure = finishData();
    if (failure == 0 || code == EXIT_FAILED)
        return code;
    say("Cannot write to standard output: " + systemMessage(failure) + '.');
    return EXIT_UNTOLD;
}

} // namespace

CLI::App* addCommand(CLI::App& app, Session& session, const std::string& name, const std::string& purpose,
                     const std::string& example)
{
    CLI::App* command = app.add_subcommand(name, purpose);
    command->add_flag("--json", session.json, "Result and failures as JSON on standard output");
    command->footer("Example:\n  " + example);
    return command;
}

void addFileOptions(CLI::App* command, FileOptions& options, bool withGroup)
{
    command->add_option("FILE", options.file, "The recipe file")->required();
    if (withGroup)
        command->add_option("--group", options.group, "Number or title; needed where the file has several groups");
    command->add_option("--language", options.language, "Language of the titles, 1 to 8 (default 1)")
        ->check(CLI::Range(1, static_cast<int>(LANGUAGE_COUNT)));
    command->add_option("--wait", options.wait, "Seconds to wait for a locked file (default 0)")
        ->check(CLI::Range(0.0, 3600.0));
}

void addDelimiterOption(CLI::App* command, std::string& delimiter)
{
    const auto check = [](const std::string& given) {
        return given == "," || given == ";" || given == "tab" ? std::string()
                                                              : quoted(given) + " is none of , ; and tab";
    };
    command->add_option("--delimiter", delimiter, "Between CSV fields: , ; or tab (default ,)")
        ->check(CLI::Validator(check, std::string(), "delimiter"));
}

int runApplication(int argc, char** argv)
{
    occupyStandardDescriptors();
    CLI::App app("Prepare, look at, move and check recipe files.", "recipe-file");
    app.set_version_flag("--version", "recipe-file " RECIPE_FILE_VERSION);
    app.require_subcommand(1);
    app.footer(EXIT_CODES);
    Session session;
    app.add_flag("--json", session.json, "The same as --json behind the command");
    addCreate(app, session);
    addGenerate(app, session);
    addInfo(app, session);
    addLookCommands(app, session);
    addTransferCommands(app, session);
    addEditCommands(app, session);
    addKeepCommands(app, session);
    addTitleCommands(app, session);
    addCheck(app, session);
    addCompletion(app, session);
    try {
        return told(parseAndRun(app, session, argc, argv));
    } catch (const ToolError& error) {
        return reportFailure(error, asksForJson(argc, argv));
    } catch (const std::exception& error) {
        return reportFailure(ToolError(std::string("Unexpected failure: ") + error.what() + '.'),
                             asksForJson(argc, argv));
    }
}
