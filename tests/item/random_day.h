// An operator who touches everything in any order. After each event the sheet must show what the file holds together
// with what has not been saved, and its numbers must fit together.
#ifndef RANDOM_DAY_H
#define RANDOM_DAY_H

#include "edit_confirmation.h"
#include "sqlite_errors.h"
#include "touch_events.h"

#include <QImage>

#include <memory>
#include <ostream>
#include <random>

struct Day
{
    const char* name;
    unsigned seed;
    int items;
    int recipes;
    int events;
};

inline void PrintTo(const Day& day, std::ostream* out)
{
    *out << day.name;
}

/// What the file holds, read from outside, and what is pending on top of it.
struct Truth
{
    QList<QStringList> recipes; ///< cell texts as a sheet shows them
    QStringList titles;
    QMap<idx_t, QString> cells; ///< pending
    QMap<int, QString> names;   ///< pending

    QString cell(int column, int row) const
    {
        if (column < 0 || column >= recipes.size() || row < 0 || row >= recipes.at(column).size())
            return QString();
        return cells.value(idx_t(column, row), recipes.at(column).at(row));
    }

    QString title(int column) const
    {
        if (column < 0 || column >= titles.size())
            return latin1("Col%1").arg(column);
        return names.value(column, titles.at(column));
    }
};

/// The fixture of such a day. Derived classes begin() it and let event() and check() follow one another.
class RandomDay : public TouchFixture
{
protected:
    explicit RandomDay(const Day& of) : day(of), random(of.seed), errors(new SqliteErrors(SqliteErrors::Allowed)) {}

    void begin();
    /// One thing that the operator does, with what the runtime answers. Which one.
    const char* event();
    void check();
    /// The last events, for messages.
    std::string recently() const { return story.join(QLatin1Char(';')).toStdString(); }

    // what happens
    void tapCell();
    void tapTitle();
    void tapAgain();
    void select(bool second, int c, int r);
    void pressArrow();
    void dragThumb();
    void save();
    void forceRegister();
    void touchAnywhere();
    void addOrDelete();
    void answerKeyboard();
    void answerUnasked();
    void answer(const QString& text);

    // what must hold
    void checkSelection();
    void checkAxis(const ScrollAxis& axis, int first, int total, int page, const char* name);
    void checkCells();

    void tell(const QString& what);
    void readFile();
    void paint();
    int pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    RecipeSheetProbe probe() { return RecipeSheetProbe(*sheet); }

    const Day day;
    std::mt19937 random;
    std::unique_ptr<SqliteErrors> errors; // texts with quotes
    RecipeSheetItems* sheet = nullptr;
    Truth truth;
    int column = -32768; // of the selection, absolute
    int row = -32768;
    bool jumped = false; // a thumb at its smallest size has been dragged or stepped since it was last placed
    QImage image = QImage(8, 8, QImage::Format_ARGB32_Premultiplied);
    QStringList story; // of the last events
};

#endif
