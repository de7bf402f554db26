// Playing scripts: what is expected.
#include "script_player.h"

#include "project_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include <sqlite3.h>

namespace {

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QString quoted(const QString& shown)
{
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString pair(int first, int second)
{
    return text("%1 %2").arg(first).arg(second);
}

QString projectFile(const QString& name)
{
    return QDir(text(PROJECT_FOLDER)).filePath(name);
}

QString rowOf(sqlite3_stmt* statement)
{
    QStringList columns;
    for (int i = 0; i < sqlite3_column_count(statement); ++i)
        columns.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i))));
    return columns.join(QLatin1Char('|'));
}

/// All rows of one statement; the reason where that fails.
QString query(const QString& fileName, const QString& sql)
{
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    QStringList rows;
    int code = sqlite3_open_v2(fileName.toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr);
    if (code == SQLITE_OK)
        code = sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr);
    while (code == SQLITE_OK || code == SQLITE_ROW) {
        code = sqlite3_step(statement);
        if (code == SQLITE_ROW)
            rows.append(rowOf(statement));
    }
    const QString reason = QString::fromUtf8(sqlite3_errmsg(database));
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return code == SQLITE_DONE ? rows.join(QLatin1Char('\n')) : text("error: ") + reason;
}

} // namespace

// --- of an item --------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::expectOfItem(const ScriptStep& step)
{
    const auto number = [&step](int index) { return step.arguments.at(index).toInt(); };
    const auto compare = [](const QString& what, const QString& wanted, const QString& found) {
        return found == wanted ? Outcome() : Mismatch{what + QLatin1Char(' ') + wanted, found};
    };
    const auto compareText = [&step](const QString& what, const std::optional<QString>& found, const QString& page) {
        const QString wanted = step.arguments.last().toString();
        if (!found)
            return Outcome(Mismatch{what + text(" on the page"), page});
        return *found == wanted ? Outcome() : Mismatch{what + text(" to show ") + quoted(wanted), quoted(*found)};
    };
    const auto textOf = [](const std::optional<ItemState::Part>& part) {
        return part ? std::optional<QString>(part->text) : std::nullopt;
    };

    const ItemState now = state(step);
    switch (step.action) {
    case ScriptAction::ExpectCell:
        return compareText(text("cell ") + pair(number(0), number(1)), textOf(now.cell(number(0), number(1))),
                           now.page());
    case ScriptAction::ExpectTitle:
        return compareText(text("title %1").arg(number(0)), textOf(now.title(number(0))), now.page());
    case ScriptAction::ExpectName:
        return compareText(text("name %1").arg(number(0)), now.name(number(0)), now.page());
    case ScriptAction::ExpectSelectionNone:
        return compare(text("selection"), text("none"), now.selection());
    case ScriptAction::ExpectSelectionCell:
        return compare(text("selection"), text("cell ") + pair(number(0), number(1)), now.selection());
    case ScriptAction::ExpectSelectionTitle:
        return compare(text("selection"), text("title %1").arg(number(0)), now.selection());
    case ScriptAction::ExpectFirst:
        return compare(text("first"), pair(number(0), number(1)),
                       pair(now.number("firstRow"), now.number("firstColumn")));
    case ScriptAction::ExpectSize:
        return compare(text("size"), pair(number(0), number(1)), pair(now.number("rows"), now.number("columns")));
    case ScriptAction::ExpectPendingCount:
        return compare(text("pending"), QString::number(number(0)),
                       QString::number(now.pendingCells().size() + now.pendingTitles().size()));
    default:
        return expectPending(step);
    }
}

ScriptPlayer::Outcome ScriptPlayer::expectPending(const ScriptStep& step)
{
    const int row = step.arguments.at(0).toInt();
    const int column = step.arguments.at(1).toInt();
    const QString wanted = step.arguments.at(2).toString();
    QString found = text("none");
    for (const QJsonValue& entry : state(step).pendingCells()) {
        const QJsonObject edit = entry.toObject();
        if (edit.value(text("row")).toInt() == row && edit.value(text("column")).toInt() == column)
            found = quoted(edit.value(text("text")).toString());
    }
    if (found == quoted(wanted))
        return std::nullopt;
    return Mismatch{text("pending ") + pair(row, column) + QLatin1Char(' ') + quoted(wanted), found};
}

// --- of the panel ------------------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::expectOfPanel(const ScriptStep& step)
{
    const OnScreenKeyboard* keyboard = m_around.screen.keyboard();
    const QString typed = keyboard ? text("a keyboard with ") + quoted(keyboard->text()) : text("no keyboard");
    const QMessageBox* box = PanelScreen::confirmation();
    const QString asked = box ? text("the confirmation ") + quoted(box->text()) : text("no confirmation");
    QStringList& messages = m_around.session.messages();
    const QString oldest = messages.isEmpty() ? text("no message") : text("the message ") + quoted(messages.first());
    const auto compare = [](const QString& wanted, const QString& found) {
        return found == wanted ? Outcome() : Mismatch{wanted, found};
    };
    const auto given = [&step](int index) { return quoted(step.arguments.at(index).toString()); };

    switch (step.action) {
    case ScriptAction::ExpectMessage:
        if (!messages.isEmpty())
            messages.removeFirst();
        return compare(text("the message ") + given(0), oldest);
    case ScriptAction::ExpectNoMessage:
        return compare(text("no message"), oldest);
    case ScriptAction::ExpectKeyboard:
        return compare(text("a keyboard with ") + given(0), typed);
    case ScriptAction::ExpectNoKeyboard:
        return compare(text("no keyboard"), typed);
    case ScriptAction::ExpectConfirmation:
        return compare(text("the confirmation ") + given(0), asked);
    case ScriptAction::ExpectNoConfirmation:
        return compare(text("no confirmation"), asked);
    case ScriptAction::ExpectLimits:
        return compare(text("limits ") + given(0) + QLatin1Char(' ') + given(1),
                       text("limits ") + quoted(m_around.session.askedLast().minimum) + QLatin1Char(' ')
                           + quoted(m_around.session.askedLast().maximum));
    case ScriptAction::ExpectLink:
        return compare(text("link ") + given(0) + QLatin1Char(' ') + step.arguments.at(1).toString(),
                       text("link ") + given(0) + QLatin1Char(' ') + linkState(step.arguments.at(0).toString()));
    case ScriptAction::ExpectRegisters:
        return expectRegisters(step);
    default:
        break;
    }
    const QString type = step.arguments.at(0).toString();
    const int address = step.arguments.at(1).toInt();
    const int value = m_around.session.word(type, address);
    const QString name = text("register %1 %2 ").arg(type).arg(address);
    return compare(name + QString::number(step.arguments.at(2).toInt()), name + QString::number(value));
}

/// As many words as the step names.
ScriptPlayer::Outcome ScriptPlayer::expectRegisters(const ScriptStep& step) const
{
    const QString type = step.arguments.at(0).toString();
    const int address = step.arguments.at(1).toInt();
    const QString wanted = step.arguments.at(2).toString().simplified();
    QStringList words;
    for (int i = 0; i < wanted.count(QLatin1Char(' ')) + 1; ++i)
        words.append(QString::number(m_around.session.word(type, address + i)));
    const QString found = words.join(QLatin1Char(' '));
    if (found == wanted)
        return std::nullopt;
    return Mismatch{text("registers %1 %2 on ").arg(type, QString::number(address)) + quoted(wanted), quoted(found)};
}

// --- of the project's files --------------------------------------------------------------------------------------

ScriptPlayer::Outcome ScriptPlayer::expectOfFile(const ScriptStep& step)
{
    const QString name = step.arguments.first().toString();
    if (step.action == ScriptAction::ExpectQuery)
        return expectQuery(name, step.arguments.at(1).toString(), step.arguments.at(2).toString());
    const bool there = QFileInfo::exists(projectFile(name));
    const bool wanted = step.action == ScriptAction::ExpectFile;
    if (there == wanted)
        return std::nullopt;
    return Mismatch{text(wanted ? "the file " : "no file ") + quoted(name), text(there ? "one" : "none")};
}

ScriptPlayer::Outcome ScriptPlayer::expectQuery(const QString& file, const QString& sql, const QString& wanted) const
{
    const QString found = query(projectFile(file), sql);
    if (found == wanted)
        return std::nullopt;
    return Mismatch{quoted(wanted) + text(" from ") + quoted(sql), quoted(found)};
}
