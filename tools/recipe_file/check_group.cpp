// A group's configuration row and its items.
#include "check_group.h"

#include "group_access.h"
#include "outcome.h"
#include "recipe_limits.h"

#include <QStringList>

#include <cmath>

namespace {

const char RESTORE[] = "Restore a backup (recipe-file restore).";
const char PROJECT[] = "Correct the item in the project and write the file again.";

const std::vector<std::string> ITEM_COLUMNS = {"row_index",     "address", "datatype", "totalDigits",
                                               "decimalDigits", "min",     "max"};
const std::vector<std::string> TITLE_COLUMNS = {"type", "strIndex", "L0", "L1", "L2", "L3", "L4", "L5", "L6", "L7"};

} // namespace

GroupChecker::GroupChecker(Checker& checker, const GroupConfig& config)
    : m_checker(checker), m_database(checker.m_database), m_config(config),
      m_place("group " + std::to_string(config.group))
{}

void GroupChecker::fault(const std::string& kind, const std::string& place, const std::string& what,
                         const std::string& cure)
{
    m_checker.add(Finding::Fault, kind, place, what, cure);
}

void GroupChecker::warn(const std::string& kind, const std::string& place, const std::string& what,
                        const std::string& cure)
{
    m_checker.add(Finding::Warning, kind, place, what, cure);
}

void GroupChecker::run()
{
    m_hasTitles = checkTable("lang_", TITLE_COLUMNS);
    if (m_hasTitles)
        readTitles();
    checkConfig();
    m_hasItems = checkTable("addr_", ITEM_COLUMNS);
    if (m_hasItems) {
        checkItems();
        checkRegisters();
    }
    if (checkTable("data_", {"column"}))
        checkRecipes();
    if (m_hasTitles)
        checkTitles();
}

/// The columns must start with these names: readers go by place. A view has columns too, but what it holds is computed
/// and may never end.
bool GroupChecker::checkTable(const char* kind, const std::vector<std::string>& columns)
{
    const std::vector<std::string> names = columnNames(m_database, table(kind));
    if (names.empty() || !m_database.hasTable(table(kind))) {
        fault("missing-table", m_place, "The table " + table(kind) + " is missing.", RESTORE);
        return false;
    }
    if (names.size() >= columns.size() && std::equal(columns.begin(), columns.end(), names.begin()))
        return true;
    fault("table-columns", m_place, "The table " + table(kind) + " does not have the columns of a recipe file.",
          RESTORE);
    return false;
}

void GroupChecker::checkConfig()
{
    const char count[] = "Restore a backup, or set the count to what the tables hold.";
    if (m_config.group < 0)
        fault("group-index", m_place, "The group's number is negative.", RESTORE);
    if (!m_config.countsAreIntegers || m_config.items < 1 || m_config.items > MAX_ITEMS)
        fault("item-count", m_place, "recipe_config gives " + std::to_string(m_config.items) + " items.", count);
    if (!m_config.countsAreIntegers || m_config.recipes < 1 || m_config.recipes > MAX_RECIPES)
        fault("recipe-count", m_place, "recipe_config gives " + std::to_string(m_config.recipes) + " recipes.", count);
    if (m_config.notify != 0)
        checkAddress(m_place, m_config.notifyAddress, "notification address");
    else if (!m_config.notifyAddress.empty())
        warn("notify-unused", m_place, "There is a notification address, but notify is 0.",
             "Set notify to 1 in the project if the controller is to be told.");
}

void GroupChecker::checkItems()
{
    Statement row(m_database, std::string("SELECT ") + ITEM_FIELDS
                                  + ", typeof(min), typeof(max), typeof(datatype) FROM " + table("addr_")
                                  + " ORDER BY row_index");
    std::int64_t expected = 0;
    while (row.step())
        checkItem(row, expected++);
    if (expected != m_config.items)
        fault("items-disagree", m_place,
              table("addr_") + " holds " + std::to_string(expected) + " items, recipe_config says "
                  + std::to_string(m_config.items) + '.',
              RESTORE);
}

void GroupChecker::checkItem(const Statement& row, std::int64_t expectedIndex)
{
    const recipeItemInfo_t item = itemFrom(row);
    m_items.push_back(item);
    const std::string place = itemPlace(row.integer(0));
    if (row.integer(0) != expectedIndex)
        fault("item-index", place,
              "Its number is " + row.text(0) + " in the place of " + std::to_string(expectedIndex) + '.',
              "Restore a backup; a sheet would show values in the wrong rows.");
    checkAddress(place, row.text(1), "address");
    if (row.text(9) != "integer" || row.integer(2) < 0)
        fault("data-type", place, "Its data type is " + quoted(row.text(2)) + '.', PROJECT);
    else if (row.integer(2) > DATA_TYPE_TEXT)
        warn("unknown-type", place,
             "Its data type is " + row.text(2) + ", not 0 to 7: it is shown as a number, but a recipe cannot be sent.",
             PROJECT);
    if (row.text(7) == "text" || row.text(8) == "text" || !std::isfinite(item.min) || !std::isfinite(item.max))
        fault("limit", place, "Its limits are no numbers.", PROJECT);
    else
        checkLimits(place, item);
}

void GroupChecker::checkLimits(const std::string& place, const recipeItemInfo_t& item)
{
    if (item.min > item.max)
        fault("limits-crossed", place,
              "Its min " + plainNumber(item.min) + " is above its max " + plainNumber(item.max)
                  + ", so no value can be entered.",
              PROJECT);
    if (item.totalDigits < 1 || item.totalDigits > (isText(item) ? int(MAX_TEXT_WORDS) : 64))
        fault("digits", place, "It has " + std::to_string(item.totalDigits) + " digits.", PROJECT);
    if (!isText(item) && (item.decimalDigits < 0 || item.decimalDigits > item.totalDigits))
        warn("decimals", place,
             "It has " + std::to_string(item.decimalDigits) + " decimals of " + std::to_string(item.totalDigits)
                 + " digits.",
             PROJECT);
    if (isText(item) && item.decimalDigits != 0)
        fault("text-decimals", place, "It is a text with decimals: a sheet shows it as a number.", PROJECT);
}

void GroupChecker::checkAddress(const std::string& place, const std::string& address, const std::string& what)
{
    const QStringList fields = QString::fromStdString(address).split(QLatin1Char(','));
    bool good = fields.size() == 6;
    for (const int i : {1, 2, 5}) {
        bool isInt = false;
        if (good)
            fields.at(i).toInt(&isInt);
        good = good && isInt;
    }
    if (!good)
        fault("address", place,
              "Its " + what + ' ' + quoted(address)
                  + " is not six fields with whole numbers in the "
                    "second, third and last.",
              PROJECT);
    else if (fields.at(3).toUtf8().size() > recipeRegAddr_t::REG_TYPE_SIZE)
        fault("register-type", place, "The register type in its " + what + " is longer than 32 bytes and would be cut.",
              PROJECT);
    else if (address.find('\'') != std::string::npos)
        fault("address-quote", place, "Its " + what + " holds a single quote: adding or deleting a recipe would fail.",
              PROJECT);
}
