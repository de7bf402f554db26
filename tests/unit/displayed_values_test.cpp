// Range loads bring stored numbers to their digits without the way over SQLite's text where that changes nothing. The
// way over the text is the judge.
#include "storage_fixture.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>

namespace {

const int DECIMALS[] = {-1, 0, 1, 2, 3, 6, 7, 15, 200};
const int ITEMS = sizeof(DECIMALS) / sizeof(DECIMALS[0]);
const int RECIPES = 400;

/// What a cell shows: below one decimal the text before the first ".", otherwise the text's number.
QString judge(const QString& stored, int decimals)
{
    if (decimals < 1)
        return stored.split(QLatin1Char('.')).first();
    return QString::number(stored.toDouble(), 'f', qMin(decimals, 100));
}

std::string literal(double value)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%.17g", value);
    return std::strpbrk(text, ".en") ? text : std::string(text) + ".0";
}

/// Numbers as controllers have them, and the awkward ones: halves of the last digit and their neighbours, whole
/// numbers and theirs, huge, tiny, no numbers at all.
std::string anyValue(std::mt19937& random)
{
    const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const double sign = below(2) ? 1 : -1;
    const double step = std::pow(10.0, -below(8));
    const double whole = below(100000);
    switch (below(12)) {
    case 0:
    case 1:
    case 2:
        return literal(sign * whole * step);
    case 3:
        return literal(sign * (whole + 0.5) * step);
    case 4:
        return literal(std::nextafter(sign * (whole + 0.5) * step, below(2) ? 1e300 : -1e300));
    case 5:
        return literal(std::nextafter(sign * whole, below(2) ? 1e300 : -1e300));
    case 6:
        return literal(sign * std::uniform_real_distribution<double>(0, 1000)(random));
    case 7:
        return literal(sign * std::pow(10.0, below(40) - 20) * (1 + below(9999) / 1000.0));
    case 8:
        return literal(sign * (1e12 + whole) * step);
    case 9:
        return below(2) ? "0.0" : "-0.0";
    case 10:
        return std::to_string(below(100000) - 50000); // an integer
    default: {
        const char* const others[] = {"NULL",      "'abc'",     "'1.5x'", "'12,5'", "''",    "' 7.25'",
                                      "'007.125'", "x'332e35'", "'1e3'",  "9e999",  "-9e999"};
        return others[below(11)];
    }
    }
}

class DisplayedValues : public StorageTest
{
protected:
    /// The value columns are of the type, all kinds of values in them.
    void fill(const char* columnType, unsigned seed)
    {
        std::mt19937 random(seed);
        OutsideSqlite file(path);
        std::string create = "CREATE TABLE data_3 (column INTEGER NOT NULL";
        for (int i = 0; i < ITEMS; ++i)
            create += ", 'D" + std::to_string(i) + "' " + columnType;
        file.exec("BEGIN; " + create
                  + "); CREATE TABLE addr_3 (row_index INTEGER PRIMARY KEY, address, datatype, "
                    "totalDigits, decimalDigits, min, max);");
        for (int i = 0; i < ITEMS; ++i)
            file.exec("INSERT INTO addr_3 VALUES(" + std::to_string(i) + ", '', 0, 5, " + std::to_string(DECIMALS[i])
                      + ", 0, 1);");
        for (int c = 0; c < RECIPES; ++c) {
            std::string row = "INSERT INTO data_3 VALUES(" + std::to_string(c);
            for (int i = 0; i < ITEMS; ++i)
                row += ", " + anyValue(random);
            file.exec(row + ");");
        }
        file.exec("CREATE TABLE lang_3 (type INTEGER, strIndex INTEGER, L0, L1, L2, L3, L4, L5, L6, L7); COMMIT;");
    }

    void compareAll()
    {
        QList<QList<QString> > stored;
        ASSERT_EQ(db->findTable_Data_Partial(3, 0, RECIPES, 0, ITEMS, stored), 0);
        recipeTableInfo_t shown;
        ASSERT_EQ(db->loadTable_Group_Partial(3, 0, RECIPES, 0, ITEMS, shown), 0);
        ASSERT_EQ(stored.size(), RECIPES);
        for (int c = 0; c < RECIPES; ++c) {
            for (int i = 0; i < ITEMS; ++i)
                EXPECT_EQ(shown.items.at(i).values.at(c).toStdString(),
                          judge(stored.at(c).at(i), DECIMALS[i]).toStdString())
                    << stored.at(c).at(i).toStdString() << " with " << DECIMALS[i] << " decimals";
        }
    }
};

TEST_F(DisplayedValues, AreThoseOfTheStoredTextWhateverTheNumber)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        cleanProjectDirectory();
        openEmpty();
        fill("REAL", seed);
        compareAll();
        db->CloseRecipeFile();
    }
}

TEST_F(DisplayedValues, AreThoseOfTheStoredTextWhateverTheColumnsType)
{
    for (const char* type : {"TEXT", "", "INTEGER", "NUMERIC"}) {
        cleanProjectDirectory();
        openEmpty();
        fill(type, 7);
        compareAll();
        db->CloseRecipeFile();
    }
}

TEST_F(DisplayedValues, OfCellsThatTheFileLacksAreThoseOfAnEmptyText)
{
    openEmpty();
    fill("REAL", 3);
    recipeTableInfo_t shown;
    ASSERT_EQ(db->loadTable_Group_Partial(3, RECIPES - 1, 3, ITEMS - 2, 4, shown), 0);
    ASSERT_EQ(shown.items.size(), 4);
    EXPECT_EQ(shown.items.at(0).values.at(1).toStdString(), judge(QString(), DECIMALS[ITEMS - 2]).toStdString());
    EXPECT_EQ(shown.items.at(3).values.at(0).toStdString(), "");
    EXPECT_EQ(shown.columnName.size(), 3);
}

} // namespace
