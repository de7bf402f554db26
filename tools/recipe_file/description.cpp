#include "description.h"

#include "recipe_limits.h"

#include <QStringList>

#include <limits>
#include <set>

namespace {

const int INT_LOW = std::numeric_limits<int>::min();
const int INT_HIGH = std::numeric_limits<int>::max();
const int REG_TYPE_BYTES = recipeRegAddr_t::REG_TYPE_SIZE;

QString qstring(const std::string& text)
{
    return QString::fromStdString(text);
}

/// "item 3", or "item 3 "Salt"" once its first title is known.
std::string named(const std::string& what, const QVector<QString>& titles)
{
    return titles.at(0).isEmpty() ? what : what + ' ' + quoted(titles.at(0).toStdString());
}

// --- titles --------------------------------------------------------------------------------------------------

void checkTitleText(JsonObject& object, const QVector<QString>& titles, int group, int strIndex)
{
    for (const QString& title : titles) {
        if (title.contains(QChar(0)))
            object.problem("names", "a text with a zero character", "texts without one");
    }
    const int bytes = titleBytes(titles);
    const int room = titleRoom(group, strIndex);
    if (bytes > room)
        object.problem("names", std::to_string(bytes) + " bytes in all",
                       "at most " + std::to_string(room)
                           + " for the eight titles together (UTF-8, single quotes counted twice)");
}

QVector<QString> titlesFromList(JsonObject& object, const Json& list)
{
    QVector<QString> titles;
    for (std::size_t i = 0; i < list.size() && i < LANGUAGE_COUNT; ++i) {
        if (!list[i].is_string())
            object.problem("names[" + std::to_string(i) + ']', shown(list[i]), "a text in double quotes");
        titles.append(list[i].is_string() ? qstring(list[i].get<std::string>()) : QString());
    }
    if (list.empty() || list.size() > LANGUAGE_COUNT)
        object.problem("names", shown(list), "a list of 1 to 8 texts");
    while (titles.size() < LANGUAGE_COUNT)
        titles.append(titles.isEmpty() ? QString() : titles.at(0));
    return titles;
}

/// "names": one text for all languages, or a list; languages that the list leaves out get its first text.
QVector<QString> readTitles(JsonObject& object, const QString& fallback, int group, int strIndex)
{
    const Json* names = object.find("names");
    if (!names)
        return sameTitles(fallback);
    QVector<QString> titles = sameTitles(fallback);
    if (names->is_string())
        titles = sameTitles(qstring(names->get<std::string>()));
    else if (names->is_array())
        titles = titlesFromList(object, *names);
    else
        object.problem("names", shown(*names), "a text, or a list of 1 to 8 texts, one per language");
    checkTitleText(object, titles, group, strIndex);
    return titles;
}

// --- addresses -----------------------------------------------------------------------------------------------

/// Address texts stand between commas, and go into the statement as they are.
void checkAddressText(JsonObject& object, const std::string& key, const std::string& text)
{
    if (text.find_first_of(",'") != std::string::npos || text.find('\0') != std::string::npos)
        object.problem(key, quoted(text), "a text without commas, single quotes and zero characters");
}

RECIPE_ADDRESS addressFromObject(JsonObject& object)
{
    object.allowOnly({"device", "part1", "part2", "regType", "part4", "part5"});
    RECIPE_ADDRESS address;
    const std::string device = object.text("device", std::nullopt);
    const std::string regType = object.text("regType", std::nullopt);
    const std::string part4 = object.text("part4", std::string());
    checkAddressText(object, "device", device);
    checkAddressText(object, "regType", regType);
    checkAddressText(object, "part4", part4);
    if (regType.size() > static_cast<std::size_t>(REG_TYPE_BYTES))
        object.problem("regType", quoted(regType), "at most " + std::to_string(REG_TYPE_BYTES) + " bytes");
    address.devName = qstring(device);
    address.addrPart1 = object.integer("part1", INT_LOW, INT_HIGH, 0);
    address.addrPart2 = object.integer("part2", INT_LOW, INT_HIGH, 0);
    address.regType = qstring(regType);
    address.addrPart4 = qstring(part4);
    address.addrPart5 = object.integer("part5", INT_LOW, INT_HIGH, 0);
    return address;
}

/// The six-field form as it stands in a recipe file.
RECIPE_ADDRESS addressFromText(JsonObject& owner, const std::string& key, const std::string& text)
{
    const QStringList fields = qstring(text).split(QLatin1Char(','));
    bool good = fields.size() == 6;
    for (const int i : {1, 2, 5}) {
        bool isInt = false;
        if (good)
            fields.at(i).toInt(&isInt);
        good = good && isInt;
    }
    good = good && fields.at(3).toUtf8().size() <= REG_TYPE_BYTES && text.find('\'') == std::string::npos
           && text.find('\0') == std::string::npos;
    if (!good)
        owner.problem(key, quoted(text),
                      "six fields \"device,number,number,register type,text,number\" without quotes");
    RECIPE_ADDRESS address;
    address.fromString(qstring(text));
    return address;
}

RECIPE_ADDRESS readAddress(JsonObject& owner, const std::string& key, std::vector<Problem>& problems)
{
    const Json* value = owner.find(key);
    if (value && value->is_string())
        return addressFromText(owner, key, value->get<std::string>());
    if (!value) {
        if (owner.isObject())
            owner.problem(key, "missing", "an object with device, regType and part4");
        return RECIPE_ADDRESS();
    }
    JsonObject object(*value, owner.pathOf(key), owner.place(), problems);
    return object.isObject() ? addressFromObject(object) : RECIPE_ADDRESS();
}

// --- items ---------------------------------------------------------------------------------------------------

int readDataType(JsonObject& object)
{
    const Json* value = object.find("dataType");
    if (value && value->is_string()) {
        if (*value != "text")
            object.problem("dataType", shown(*value), "a whole number from 0 to 255, or \"text\"");
        return DATA_TYPE_TEXT;
    }
    return object.integer("dataType", 0, 255, 0);
}

void checkLimit(JsonObject& object, const char* key, double limit, int decimals)
{
    if (limitText(limit, decimals) != plainNumber(limit) && qstring(limitText(limit, decimals)).toDouble() != limit)
        object.problem(key, plainNumber(limit), "at most " + counted(decimals, "decimal", "decimals"));
}

void readTextItem(JsonObject& object, recipeItemInfo_t& item)
{
    item.totalDigits = object.integer("totalDigits", 1, MAX_TEXT_WORDS, 10);
    item.decimalDigits = object.integer("decimalDigits", INT_LOW, INT_HIGH, 0);
    if (item.decimalDigits != 0)
        object.problem("decimalDigits", std::to_string(item.decimalDigits),
                       "0 for a text (a sheet shows it as a number otherwise)");
    const int room = 2 * item.totalDigits;
    item.min = object.number("min", 0);
    item.max = object.number("max", room);
    if (item.max > room)
        object.problem("max", plainNumber(item.max),
                       "at most " + std::to_string(room) + ", the characters that fit into totalDigits words");
}

void readNumberItem(JsonObject& object, recipeItemInfo_t& item)
{
    item.totalDigits = object.integer("totalDigits", 1, MAX_NUMBER_DIGITS, 5);
    item.decimalDigits = object.integer("decimalDigits", 0, MAX_NUMBER_DIGITS, 0);
    if (item.decimalDigits > item.totalDigits)
        object.problem("decimalDigits", std::to_string(item.decimalDigits),
                       "at most totalDigits (" + std::to_string(item.totalDigits) + ")");
    item.min = object.number("min", 0.0);
    item.max = object.number("max", 65535.0);
}

recipeItemInfo_t readItem(const Json& value, const std::string& path, const std::string& groupPlace, int group, int row,
                          std::vector<Problem>& problems)
{
    const std::string number = std::to_string(row);
    JsonObject object(value, path, groupPlace + ", item " + number, problems);
    recipeItemInfo_t item;
    item.rowIndex = row;
    item.rowName = readTitles(object, qstring("Item " + std::to_string(row + 1)), group, row);
    object.setPlace(groupPlace + ", " + named("item " + number, item.rowName));
    object.allowOnly({"names", "address", "dataType", "totalDigits", "decimalDigits", "min", "max"});
    const RECIPE_ADDRESS address = readAddress(object, "address", problems);
    item.devName = address.devName;
    item.regAddr = recipeRegAddr_t(address);
    item.addrPart4 = address.addrPart4;
    item.dataType = readDataType(object);
    if (isText(item))
        readTextItem(object, item);
    else
        readNumberItem(object, item);
    checkLimit(object, "min", item.min, item.decimalDigits);
    checkLimit(object, "max", item.max, item.decimalDigits);
    if (item.min > item.max)
        object.problem("min", plainNumber(item.min), "at most max (" + plainNumber(item.max) + ")");
    const int bytes = itemStatementBytes(group, row, item);
    if (bytes > MAX_STATEMENT_BYTES)
        object.problem("address", std::to_string(bytes) + " bytes with the statement that writes it",
                       "at most " + std::to_string(static_cast<int>(MAX_STATEMENT_BYTES)));
    return item;
}

// --- recipes -------------------------------------------------------------------------------------------------

class GroupReader
{
public:
    GroupReader(const Json& value, int position, Description& result, std::vector<Problem>& problems)
        : m_object(value, "groups[" + std::to_string(position) + ']', "group " + std::to_string(position), problems),
          m_result(result), m_problems(problems)
    {
        m_info.groupIndex = m_object.integer("index", 0, INT_HIGH, position);
    }

    recipeTableInfo_t read()
    {
        m_place = "group " + std::to_string(m_info.groupIndex);
        m_object.setPlace(m_place);
        m_object.allowOnly({"index", "names", "notifyAddress", "notify", "items", "recipes"});
        const QString fallback = qstring("Group " + std::to_string(m_info.groupIndex));
        m_info.groupName = readTitles(m_object, fallback, m_info.groupIndex, 0);
        m_place = named(m_place, m_info.groupName);
        m_object.setPlace(m_place);
        if (m_object.isObject()) {
            readNotify();
            readItems();
            readRecipes();
        }
        return m_info;
    }

    JsonObject& object() { return m_object; }

private:
    void readNotify()
    {
        if (!m_object.has("notifyAddress")) {
            if (m_object.has("notify"))
                m_object.problem("notify", shown(*m_object.find("notify")), "a notifyAddress beside it");
            return;
        }
        const RECIPE_ADDRESS address = readAddress(m_object, "notifyAddress", m_problems);
        m_info.notify = m_object.integer("notify", 1, INT_HIGH, 1);
        m_info.notifyDevName = address.devName;
        m_info.notifyRegAddr = recipeRegAddr_t(address);
        m_info.notifyAddrPart4 = address.addrPart4;
        const int bytes = configStatementBytes(m_info.groupIndex, MAX_ITEMS, MAX_RECIPES, m_info);
        if (bytes > MAX_STATEMENT_BYTES)
            m_object.problem("notifyAddress", std::to_string(bytes) + " bytes with the statement that writes it",
                             "at most " + std::to_string(static_cast<int>(MAX_STATEMENT_BYTES)));
    }

    void readItems()
    {
        const Json* items = m_object.array("items", "a list of items");
        if (!items)
            return;
        if (items->empty() || items->size() > MAX_ITEMS)
            m_object.problem("items", shown(*items),
                             "1 to " + std::to_string(static_cast<int>(MAX_ITEMS))
                                 + " items (a table of the file has at most 2000 columns)");
        for (std::size_t i = 0; i < items->size(); ++i) {
            const std::string path = m_object.pathOf("items[" + std::to_string(i) + ']');
            m_info.items.append(
                readItem((*items)[i], path, m_place, m_info.groupIndex, static_cast<int>(i), m_problems));
        }
    }

    void readRecipes()
    {
        const Json* recipes = m_object.array("recipes", "a list of recipes");
        if (!recipes)
            return;
        if (recipes->empty() || recipes->size() > MAX_RECIPES)
            m_object.problem("recipes", shown(*recipes),
                             "1 to " + std::to_string(static_cast<int>(MAX_RECIPES))
                                 + " recipes (a group without recipes cannot be written)");
        for (std::size_t i = 0; i < recipes->size(); ++i)
            readRecipe((*recipes)[i], static_cast<int>(i));
    }

    void readRecipe(const Json& value, int column)
    {
        const std::string number = std::to_string(column);
        JsonObject object(value, m_object.pathOf("recipes[" + number + ']'), m_place + ", recipe " + number,
                          m_problems);
        const QString fallback = qstring("Recipe " + std::to_string(column + 1));
        const QVector<QString> titles = readTitles(object, fallback, m_info.groupIndex, column);
        m_info.columnName.append(titles);
        object.setPlace(m_place + ", " + named("recipe " + number, titles));
        object.allowOnly({"names", "values"});
        const std::string wanted = "a list of " + counted(m_info.items.size(), "value", "values") + ", one per item";
        const Json* values = object.isObject() ? object.array("values", wanted) : nullptr;
        if (values && static_cast<int>(values->size()) > m_info.items.size())
            object.problem("values", shown(*values), wanted);
        for (int i = 0; i < m_info.items.size(); ++i) {
            const bool given = values && static_cast<std::size_t>(i) < values->size();
            readValue(object, m_info.items[i], values != nullptr,
                      given ? (*values)[static_cast<std::size_t>(i)] : Json());
        }
    }

    void readValue(JsonObject& recipe, recipeItemInfo_t& item, bool haveValues, const Json& value)
    {
        const std::string key = "values[" + std::to_string(item.rowIndex) + ']';
        const std::string wanted = (isText(item) ? "a text in double quotes for " : "a number for ")
                                   + named("item " + std::to_string(item.rowIndex), item.rowName);
        const bool typeIsGood = value.is_string() || (value.is_number() && !isText(item));
        item.values.append(QString());
        if (!typeIsGood) {
            if (haveValues)
                recipe.problem(key, value.is_null() ? "missing" : shown(value), wanted);
            return;
        }
        const QString given = qstring(value.is_string() ? value.get<std::string>() : value.dump());
        const CheckedValue checked = checkValue(item, given);
        if (!checked.ok()) {
            recipe.problem(key, shown(value),
                           checked.expected + " for " + named("item " + std::to_string(item.rowIndex), item.rowName));
            return;
        }
        item.values.last() = checked.text;
        if (isText(item) && given.contains(QLatin1Char('.')))
            m_result.warnings.push_back(recipe.pathOf(key) + ": " + recipe.place() + ": a sheet shows the text "
                                        + shown(value) + " only up to its first \".\".");
    }

    JsonObject m_object;
    Description& m_result;
    std::vector<Problem>& m_problems;
    std::string m_place;
    recipeTableInfo_t m_info;
};

// --- back to JSON --------------------------------------------------------------------------------------------

Json addressToJson(const RECIPE_ADDRESS& address)
{
    Json object;
    object["device"] = address.devName.toStdString();
    object["part1"] = address.addrPart1;
    object["part2"] = address.addrPart2;
    object["regType"] = address.regType.toStdString();
    object["part4"] = address.addrPart4.toStdString();
    object["part5"] = address.addrPart5;
    return object;
}

Json valueToJson(const recipeItemInfo_t& item, const QString& text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (isText(item) || !isNumber)
        return text.toStdString();
    if (item.decimalDigits < 1 && value >= -1e15 && value <= 1e15)
        return static_cast<long long>(value);
    return value;
}

Json itemToJson(const recipeItemInfo_t& item)
{
    Json object;
    object["names"] = titlesToJson(item.rowName);
    object["address"] = addressToJson(makeAddress(item.devName, item.regAddr, item.addrPart4));
    object["dataType"] = item.dataType;
    object["totalDigits"] = item.totalDigits;
    object["decimalDigits"] = item.decimalDigits;
    recipeItemInfo_t limits = item;
    limits.dataType = 0;
    object["min"] = valueToJson(limits, QString::fromStdString(plainNumber(item.min)));
    object["max"] = valueToJson(limits, QString::fromStdString(plainNumber(item.max)));
    return object;
}

} // namespace

Json titlesToJson(const QVector<QString>& titles)
{
    const bool allSame = titles == sameTitles(titles.value(0));
    if (allSame)
        return titles.value(0).toStdString();
    Json list = Json::array();
    for (const QString& title : titles)
        list.push_back(title.toStdString());
    return list;
}

QVector<QString> sameTitles(const QString& title)
{
    return QVector<QString>(LANGUAGE_COUNT, title);
}

Description readDescription(const std::string& text, const std::string& fileName)
{
    std::vector<Problem> problems;
    const Json root = parseJson(text, fileName, problems);
    Description result;
    JsonObject object(root, "", "", problems);
    object.allowOnly({"groups"});
    const Json* groups = object.isObject() ? object.array("groups", "a list of groups") : nullptr;
    if (groups && groups->empty())
        object.problem("groups", "an empty list", "at least one group");
    std::set<int> indexes;
    for (std::size_t i = 0; groups && i < groups->size(); ++i) {
        GroupReader reader((*groups)[i], static_cast<int>(i), result, problems);
        result.groups.push_back(reader.read());
        const int index = result.groups.back().groupIndex;
        if (!indexes.insert(index).second)
            reader.object().problem("index", std::to_string(index), "an index that no other group has");
    }
    if (!problems.empty())
        throw ToolError(fileName + " has " + counted(static_cast<long long>(problems.size()), "error", "errors")
                            + "; nothing was written.",
                        problems);
    return result;
}

Json describeGroup(const recipeTableInfo_t& group)
{
    Json object;
    object["index"] = group.groupIndex;
    object["names"] = titlesToJson(group.groupName);
    if (group.notify != 0) {
        object["notifyAddress"] =
            addressToJson(makeAddress(group.notifyDevName, group.notifyRegAddr, group.notifyAddrPart4));
        if (group.notify != 1)
            object["notify"] = group.notify;
    }
    object["items"] = Json::array();
    for (const recipeItemInfo_t& item : group.items)
        object["items"].push_back(itemToJson(item));
    object["recipes"] = Json::array();
    for (int c = 0; c < group.columnName.size(); ++c) {
        Json recipe;
        recipe["names"] = titlesToJson(group.columnName.at(c));
        recipe["values"] = Json::array();
        for (const recipeItemInfo_t& item : group.items)
            recipe["values"].push_back(valueToJson(item, item.values.value(c)));
        object["recipes"].push_back(recipe);
    }
    return object;
}
