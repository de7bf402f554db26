// Parsing of scripts: the lines are held against a table of forms.
#include "script.h"

#include <optional>

namespace {

/// A form is a row of words and places: N a whole number, T a text in quotes, W a word of any kind. Touches and
/// expectations about an item may end with "in NAME".
struct Form
{
    ScriptAction action;
    const char* words;
    const char* help;
};

const Form FORMS[] = {
    {ScriptAction::TapPoint, "tap N N", "touch and let go at X Y, pixels of the panel"},
    {ScriptAction::TapCell, "tap cell N N", "ROW COLUMN; counted from 0 in the whole group"},
    {ScriptAction::TapTitle, "tap title N", "the title of COLUMN"},
    {ScriptAction::TapButton, "tap button W",
     "save, add, delete, left, right, up, down, horizontal-thumb or vertical-thumb"},
    {ScriptAction::PressPoint, "press N N", "touch, and stay; places as for tap"},
    {ScriptAction::PressCell, "press cell N N", ""},
    {ScriptAction::PressTitle, "press title N", ""},
    {ScriptAction::PressButton, "press button W", ""},
    {ScriptAction::MoveTo, "move N N", "move what is pressed to X Y"},
    {ScriptAction::MoveBy, "move by N N", "move on by DX DY"},
    {ScriptAction::Release, "release", "let go where the finger is"},
    {ScriptAction::ReleaseAt, "release N N", "move to X Y and let go"},
    {ScriptAction::KeyboardAccept, "keyboard accept T", "type TEXT and accept; the keyboard must not refuse it"},
    {ScriptAction::KeyboardRefuse, "keyboard refuse T T", "type TEXT and accept; the keyboard must say MESSAGE"},
    {ScriptAction::KeyboardCancel, "keyboard cancel", "close the keyboard"},
    {ScriptAction::Answer, "answer W", "yes or no to the confirmation"},
    {ScriptAction::SetRegister, "set W N N", "write VALUE to register TYPE ADDRESS, as a controller would"},
    {ScriptAction::SetRegister, "set T N N", "the same for \"DEVICE:TYPE\" of a controller"},
    {ScriptAction::Send, "send", "send the recipe that LW 60802 and 60803 select to its controllers"},
    {ScriptAction::Link, "link T W", "take the link to DEVICE down or up"},
    {ScriptAction::Use, "use W", "the item that commands mean without \"in NAME\"; at first the first one"},
    {ScriptAction::Language, "language N", "texts in language NUMBER from here on"},
    {ScriptAction::Pass, "pass N", "let MILLISECONDS of the panel's time pass"},
    {ScriptAction::WaitIdle, "wait idle", "until nothing is under way"},
    {ScriptAction::WaitWorker, "wait worker", "until no item's worker runs"},
    {ScriptAction::WaitMessage, "wait message T", "until that message came; earlier ones are passed over"},
    {ScriptAction::ExpectCell, "expect cell N N T", "ROW COLUMN on the page shows TEXT"},
    {ScriptAction::ExpectTitle, "expect title N T", "COLUMN on the page is titled TEXT"},
    {ScriptAction::ExpectName, "expect name N T", "ROW on the page is named TEXT"},
    {ScriptAction::ExpectSelectionNone, "expect selection none", ""},
    {ScriptAction::ExpectSelectionCell, "expect selection cell N N", "ROW COLUMN"},
    {ScriptAction::ExpectSelectionTitle, "expect selection title N", "COLUMN"},
    {ScriptAction::ExpectFirst, "expect first N N", "ROW COLUMN in the page's first corner"},
    {ScriptAction::ExpectSize, "expect size N N", "ROWS COLUMNS of the group"},
    {ScriptAction::ExpectPendingCount, "expect pending N", "COUNT of edits that are not saved"},
    {ScriptAction::ExpectPending, "expect pending N N T", "ROW COLUMN has the unsaved TEXT"},
    {ScriptAction::ExpectMessage, "expect message T", "the oldest message that nobody asked for yet"},
    {ScriptAction::ExpectNoMessage, "expect no message", ""},
    {ScriptAction::ExpectKeyboard, "expect keyboard T", "a keyboard is open with TEXT in it"},
    {ScriptAction::ExpectNoKeyboard, "expect no keyboard", ""},
    {ScriptAction::ExpectLimits, "expect limits T T", "MINIMUM MAXIMUM that the item gave to the keyboard"},
    {ScriptAction::ExpectConfirmation, "expect confirmation T", "a confirmation asks TEXT"},
    {ScriptAction::ExpectNoConfirmation, "expect no confirmation", ""},
    {ScriptAction::ExpectRegister, "expect register W N N", "TYPE ADDRESS holds VALUE"},
    {ScriptAction::ExpectRegister, "expect register T N N", "the same for \"DEVICE:TYPE\" of a controller"},
    {ScriptAction::ExpectRegisters, "expect register W N T", "\"VALUE VALUE ...\" in TYPE from ADDRESS on"},
    {ScriptAction::ExpectRegisters, "expect register T N T", "the same for \"DEVICE:TYPE\" of a controller"},
    {ScriptAction::ExpectLink, "expect link T W", "the link to DEVICE is down or up"},
    {ScriptAction::ExpectFile, "expect file T", "NAME lies in the project directory"},
    {ScriptAction::ExpectFileMissing, "expect no file T", ""},
    {ScriptAction::ExpectQuery, "expect query T T T",
     "in the database NAME of the project directory SQL gives RESULT, columns joined by | and rows by \\n"},
    {ScriptAction::Screenshot, "screenshot T", "write a picture to FILE, in the folder of --output"},
    {ScriptAction::ScreenshotWindow, "screenshot window T", "the same of the whole window; there is one with --window"},
    {ScriptAction::Dump, "dump T", "write what the panel shows to FILE as JSON"},
    {ScriptAction::Restart, "restart", "end the panel in good order and start it again on the same file"},
    {ScriptAction::PowerCut, "power-cut", "stop the panel at once, as by a power cut, and start it again"},
};

struct Token
{
    QString text;
    bool quoted;
};

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// Takes a text in quotes from `position` (behind the opening quote) on. Nothing: the closing quote is missing.
std::optional<QString> quotedText(const QString& line, int& position)
{
    QString result;
    while (position < line.size()) {
        const QChar c = line.at(position++);
        if (c == QLatin1Char('"'))
            return result;
        if (c != QLatin1Char('\\') || position >= line.size()) {
            result += c;
            continue;
        }
        const QChar escaped = line.at(position++);
        result += escaped == QLatin1Char('n') ? QChar(QLatin1Char('\n')) : escaped;
    }
    return std::nullopt;
}

/// Nothing: a quote is left open.
std::optional<QList<Token>> tokensOf(const QString& line)
{
    QList<Token> tokens;
    int position = 0;
    while (position < line.size()) {
        const QChar c = line.at(position);
        if (c.isSpace()) {
            ++position;
        } else if (c == QLatin1Char('#')) {
            break;
        } else if (c == QLatin1Char('"')) {
            const std::optional<QString> text = quotedText(line, ++position);
            if (!text)
                return std::nullopt;
            tokens.append({*text, true});
        } else {
            const int start = position;
            while (position < line.size() && !line.at(position).isSpace() && line.at(position) != QLatin1Char('"'))
                ++position;
            tokens.append({line.mid(start, position - start), false});
        }
    }
    return tokens;
}

/// The arguments where the tokens have the form.
std::optional<QList<QVariant>> match(const Form& form, const QList<Token>& tokens)
{
    const QStringList words = latin(form.words).split(QLatin1Char(' '));
    if (words.size() != tokens.size())
        return std::nullopt;
    QList<QVariant> arguments;
    for (int i = 0; i < words.size(); ++i) {
        const Token& token = tokens.at(i);
        const QString& word = words.at(i);
        bool isNumber = false;
        const int number = token.text.toInt(&isNumber);
        if (word == latin("N")) {
            if (token.quoted || !isNumber)
                return std::nullopt;
            arguments.append(number);
        } else if (word == latin("T") || word == latin("W")) {
            if (token.quoted != (word == latin("T")))
                return std::nullopt;
            arguments.append(token.text);
        } else if (token.quoted || token.text != word) {
            return std::nullopt;
        }
    }
    return arguments;
}

QString shown(const Form& form)
{
    return latin(form.words)
        .replace(latin(" N"), latin(" NUMBER"))
        .replace(latin(" T"), latin(" \"TEXT\""))
        .replace(latin(" W"), latin(" WORD"));
}

/// The forms whose first words are those of the line, as far as any form goes along.
QStringList nearestForms(const QList<Token>& tokens)
{
    for (int length = qMin(tokens.size(), 2); length > 0; --length) {
        QStringList result;
        for (const Form& form : FORMS) {
            const QStringList words = latin(form.words).split(QLatin1Char(' '));
            bool same = words.size() >= length;
            for (int i = 0; same && i < length; ++i)
                same = words.at(i) == tokens.at(i).text;
            if (same)
                result.append(shown(form));
        }
        if (!result.isEmpty())
            return result;
    }
    return {};
}

/// Words of a small choice are checked here as well. What is wrong with them; empty: nothing.
QString wrongWord(const ScriptStep& step)
{
    QStringList choice;
    if (step.action == ScriptAction::Answer)
        choice << latin("yes") << latin("no");
    else if (step.action == ScriptAction::Link || step.action == ScriptAction::ExpectLink)
        choice << latin("down") << latin("up");
    if (choice.isEmpty() || choice.contains(step.arguments.last().toString()))
        return QString();
    return latin("found %1, expected %2.").arg(step.arguments.last().toString(), choice.join(latin(" or ")));
}

} // namespace

bool Script::parse(const QString& name, const QString& text)
{
    m_name = name;
    m_steps.clear();
    m_problems.clear();
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
        parseLine(i + 1, lines.at(i));
    return m_problems.isEmpty();
}

void Script::parseLine(int line, const QString& text)
{
    std::optional<QList<Token>> tokens = tokensOf(text);
    if (!tokens) {
        addProblem(line, latin("a text is not closed by a quote."));
        return;
    }
    if (tokens->isEmpty())
        return;
    ScriptStep step;
    step.line = line;
    const int size = tokens->size();
    if (size > 2 && !tokens->at(size - 2).quoted && tokens->at(size - 2).text == latin("in")) {
        step.item = tokens->last().text;
        *tokens = tokens->mid(0, size - 2);
    }
    for (const Form& form : FORMS) {
        const std::optional<QList<QVariant>> arguments = match(form, *tokens);
        if (!arguments)
            continue;
        step.action = form.action;
        step.arguments = *arguments;
        if (!wrongWord(step).isEmpty())
            addProblem(line, wrongWord(step));
        m_steps.append(step);
        return;
    }
    const QStringList nearest = nearestForms(*tokens);
    addProblem(line,
               nearest.isEmpty()
                   ? latin("there is no command \"%1\"; --script-help lists the commands.").arg(tokens->first().text)
                   : latin("found \"%1\", expected %2.").arg(text.trimmed(), nearest.join(latin(" or "))));
}

void Script::addProblem(int line, const QString& problem)
{
    m_problems.append(latin("%1:%2: %3").arg(m_name).arg(line).arg(problem));
}

QString Script::help()
{
    QString result = latin("One command per line; # begins a comment; texts stand in double quotes.\n"
                           "Commands about an item may end with \"in NAME\".\n\n");
    for (const Form& form : FORMS)
        result += latin("  %1 %2\n").arg(shown(form), -40).arg(latin(form.help)).trimmed().prepend(latin("  "))
                  + QLatin1Char('\n');
    return result;
}
