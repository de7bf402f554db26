// Reading project files.
#include "project_file.h"

#include <QFile>
#include <QSet>

#include <nlohmann/json.hpp>

#include <exception>
#include <limits>
#include <string>

namespace {

typedef nlohmann::json Json;

const int MOST_PIXELS = 10000; // of a panel, an item or a coordinate
const int LOWEST_DPI = 20;
const int HIGHEST_DPI = 1000;
const int LONGEST_QUOTE = 60; // characters of the file that a sentence repeats
const qint64 BIGGEST_FILE = 16 * 1024 * 1024;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QString text(const std::string& utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}

QString quoted(const QString& name)
{
    return text("\"%1\"").arg(name);
}

/// What stands in the file, short enough for a sentence.
QString shown(const Json& value)
{
    if (value.is_object())
        return value.empty() ? text("an empty object") : text("an object");
    if (value.is_array())
        return value.empty() ? text("an empty list") : text("a list");
    const QString written = text(value.dump());
    return written.size() <= LONGEST_QUOTE ? written : written.left(LONGEST_QUOTE) + text("...");
}

bool parseColour(const QString& written, QColor& colour)
{
    if ((written.size() != 7 && written.size() != 9) || written.at(0) != QLatin1Char('#'))
        return false;
    bool isNumber = false;
    const uint value = written.mid(1).toUInt(&isNumber, 16);
    if (!isNumber || written.at(1) == QLatin1Char('+') || written.at(1) == QLatin1Char('-'))
        return false;
    colour = written.size() == 7 ? QColor::fromRgb(value) : QColor::fromRgba(value);
    return true;
}

QString wholeNumber(int minimum, int maximum)
{
    return text("a whole number from %1 to %2").arg(minimum).arg(maximum);
}

QString expectedOf(const PropertyRule& rule)
{
    if (rule.type == PropertyRule::NUMBER)
        return wholeNumber(rule.minimum, rule.maximum);
    return rule.type == PropertyRule::COLOUR ? text("a colour as \"#rrggbb\" or \"#aarrggbb\"") : text("a text");
}

bool isWholeNumber(const Json& value, int minimum, int maximum)
{
    if (value.is_number_unsigned())
        return maximum >= 0 && value.get<quint64>() <= static_cast<quint64>(maximum)
               && (minimum <= 0 || value.get<quint64>() >= static_cast<quint64>(minimum));
    return value.is_number_integer() && value.get<qint64>() >= minimum && value.get<qint64>() <= maximum;
}

/// How many letters must be changed to make one word of the other.
int distance(const QString& a, const QString& b)
{
    QList<int> above;
    for (int j = 0; j <= b.size(); ++j)
        above.append(j);
    for (int i = 1; i <= a.size(); ++i) {
        QList<int> row;
        row.append(i);
        for (int j = 1; j <= b.size(); ++j)
            row.append(qMin(qMin(above.at(j), row.at(j - 1)) + 1,
                            above.at(j - 1) + (a.at(i - 1).toLower() == b.at(j - 1).toLower() ? 0 : 1)));
        above = row;
    }
    return above.last();
}

/// ", perhaps "title_hight"" where a known key is written nearly the same.
QString suggestion(const QString& key, const QStringList& known)
{
    QString best;
    int bestDistance = qMax(2, key.size() / 3) + 1;
    for (int i = 0; i < known.size(); ++i) {
        const int d = distance(key, known.at(i));
        if (d < bestDistance) {
            bestDistance = d;
            best = known.at(i);
        }
    }
    return best.isEmpty() ? QString() : text(", perhaps %1").arg(quoted(best));
}

/// Line and column, from 1, of a byte position.
QString position(const QByteArray& bytes, std::size_t byte)
{
    const int end = static_cast<int>(qMin(byte > 0 ? byte - 1 : 0, static_cast<std::size_t>(bytes.size())));
    const int line = bytes.left(end).count('\n') + 1;
    const int column = end - (end > 0 ? bytes.lastIndexOf('\n', end - 1) : -1);
    return text("line %1, column %2").arg(line).arg(column);
}

/// The reason in the words of the JSON library, without its numbering.
QString parseReason(const Json::parse_error& error)
{
    const QString message = QString::fromUtf8(error.what());
    const int start = message.indexOf(text("syntax error "));
    return start < 0 ? message : message.mid(start + 13);
}

/// Collects the sentences about one file.
class Report
{
public:
    Report(const QString& fileName, QStringList& problems) : m_file(fileName), m_problems(problems) {}

    void add(const QString& path, const QString& found, const QString& expected)
    {
        const QString where = path.isEmpty() ? QString() : path + text(": ");
        m_problems.append(text("%1: %2%3, expected %4.").arg(m_file, where, found, expected));
    }
    int count() const { return m_problems.size(); }

private:
    Report(const Report&);
    Report& operator=(const Report&);

    QString m_file;
    QStringList& m_problems;
};

/// Watches the parser for keys that an object holds twice; the library keeps the last one silently.
class DoubledKeys
{
public:
    explicit DoubledKeys(Report& report) : m_report(report) {}

    bool operator()(int, Json::parse_event_t event, Json& parsed)
    {
        if (event == Json::parse_event_t::object_start) {
            m_open.append(QSet<QString>());
        } else if (event == Json::parse_event_t::object_end) {
            m_open.removeLast();
        } else if (event == Json::parse_event_t::key) {
            const QString key = text(parsed.get<std::string>());
            if (m_open.last().contains(key))
                m_report.add(quoted(key), text("stands twice in one object"), text("it once"));
            m_open.last().insert(key);
        }
        return true;
    }

private:
    Report& m_report;
    QList<QSet<QString> > m_open;
};

bool readBytes(const QString& fileName, QByteArray& bytes, Report& report)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        report.add(QString(), text("the file cannot be read (%1)").arg(file.errorString()), text("a JSON file"));
        return false;
    }
    if (file.size() > BIGGEST_FILE) {
        report.add(QString(), text("the file has %1 bytes").arg(file.size()), text("at most %1").arg(BIGGEST_FILE));
        return false;
    }
    bytes = file.readAll();
    if (file.error() == QFile::NoError)
        return true;
    report.add(QString(), text("the file cannot be read (%1)").arg(file.errorString()), text("a JSON file"));
    return false;
}

/// The file's outermost object. False: told in the report.
bool readJson(const QString& fileName, Json& root, Report& report)
{
    QByteArray bytes;
    if (!readBytes(fileName, bytes, report))
        return false;
    try {
        root = Json::parse(bytes.constData(), bytes.constData() + bytes.size(), DoubledKeys(report));
    } catch (const Json::parse_error& error) {
        report.add(QString(), text("%1: not JSON (%2)").arg(position(bytes, error.byte), parseReason(error)),
                   text("a JSON text"));
        return false;
    }
    if (!root.is_object()) {
        report.add(QString(), text("found %1").arg(shown(root)), text("an object in braces"));
        return false;
    }
    return true;
}

/// Reads the keys of one JSON object and in the end names those that nobody asked for.
class ObjectReader
{
public:
    ObjectReader(const Json& json, const QString& path, Report& report) : m_json(json), m_path(path), m_report(report)
    {}

    QString at(const QString& key) const { return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key; }

    /// Null where the key is missing.
    const Json* value(const QString& key)
    {
        if (!m_known.contains(key))
            m_known.append(key);
        const Json::const_iterator it = m_json.find(key.toStdString());
        return it == m_json.end() ? nullptr : &it.value();
    }
    /// Null and told where the key is missing or holds something else.
    const Json* value(const char* key, Json::value_t type, const char* expected)
    {
        const Json* found = value(text(key));
        if (found && found->type() == type)
            return found;
        m_report.add(at(text(key)), found ? text("found %1").arg(shown(*found)) : text("the key is missing"),
                     text(expected));
        return nullptr;
    }
    int number(const char* key, int minimum, int maximum, int fallback)
    {
        const Json* found = value(text(key));
        if (!found)
            return fallback;
        return numberOf(key, found, minimum, maximum, fallback);
    }
    int requiredNumber(const char* key, int minimum, int maximum)
    {
        return numberOf(key, value(text(key)), minimum, maximum, minimum);
    }
    QString requiredText(const char* key)
    {
        const Json* found = value(key, Json::value_t::string, "a text");
        if (!found)
            return QString();
        const QString result = text(found->get<std::string>());
        if (result.isEmpty())
            m_report.add(at(text(key)), text("found an empty text"), text("a name"));
        return result;
    }
    void refuseUnknownKeys()
    {
        for (Json::const_iterator it = m_json.begin(); it != m_json.end(); ++it) {
            const QString key = text(it.key());
            if (!m_known.contains(key))
                m_report.add(at(key), text("the key is unknown"),
                             text("one of %1%2").arg(m_known.join(text(", ")), suggestion(key, m_known)));
        }
    }

private:
    ObjectReader(const ObjectReader&);
    ObjectReader& operator=(const ObjectReader&);

    int numberOf(const char* key, const Json* found, int minimum, int maximum, int fallback)
    {
        if (found && isWholeNumber(*found, minimum, maximum))
            return found->get<int>();
        m_report.add(at(text(key)), found ? text("found %1").arg(shown(*found)) : text("the key is missing"),
                     wholeNumber(minimum, maximum));
        return fallback;
    }

    const Json& m_json;
    QString m_path;
    Report& m_report;
    QStringList m_known;
};

// --- values ------------------------------------------------------------------------------------------------------

/// The value by its own looks; invalid where it is none of the three types.
QVariant freeValue(const Json& value)
{
    if (isWholeNumber(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()))
        return value.get<int>();
    if (!value.is_string())
        return QVariant();
    const QString written = text(value.get<std::string>());
    QColor colour;
    return parseColour(written, colour) ? QVariant(colour) : QVariant(written);
}

/// Invalid where the value breaks the rule.
QVariant ruledValue(const Json& value, const PropertyRule& rule)
{
    if (rule.type == PropertyRule::NUMBER)
        return isWholeNumber(value, rule.minimum, rule.maximum) ? QVariant(value.get<int>()) : QVariant();
    if (!value.is_string())
        return QVariant();
    const QString written = text(value.get<std::string>());
    if (rule.type == PropertyRule::TEXT)
        return written;
    QColor colour;
    return parseColour(written, colour) ? QVariant(colour) : QVariant();
}

QStringList keysAt(const ItemTypeRules& rules, PropertyRule::Place place)
{
    QStringList keys;
    for (int i = 0; i < rules.rules.size(); ++i) {
        if (rules.rules.at(i).place == place)
            keys.append(rules.rules.at(i).key);
    }
    return keys;
}

void addUnknownProperty(const QString& path, const QString& key, const ItemTypeRules& rules, PropertyRule::Place place,
                        Report& report)
{
    if (rules.find(key)) {
        report.add(path, text("the key stands at the wrong place"),
                   place == PropertyRule::ITEM ? text("it in the children \"Language1\" to \"Language8\"")
                                               : text("it in \"properties\" of the item"));
        return;
    }
    report.add(path, text("the key is unknown"),
               text("a property of %1%2").arg(rules.typeName, suggestion(key, keysAt(rules, place))));
}

/// One property of an item or a language child. Without rules anything of the three types is taken.
QVariant readProperty(const QString& path, const QString& key, const Json& value, const ItemTypeRules* rules,
                      PropertyRule::Place place, Report& report)
{
    if (!rules) {
        const QVariant result = freeValue(value);
        if (!result.isValid())
            report.add(path, text("found %1").arg(shown(value)), text("a whole number, a text or a colour"));
        return result;
    }
    const PropertyRule* rule = rules->find(key);
    if (!rule || rule->place != place) {
        addUnknownProperty(path, key, *rules, place, report);
        return QVariant();
    }
    const QVariant result = ruledValue(value, *rule);
    if (!result.isValid())
        report.add(path, text("found %1").arg(shown(value)), expectedOf(*rule));
    return result;
}

void readProperties(const Json& json, const QString& path, const ItemTypeRules* rules, PropertyRule::Place place,
                    QHash<QString, QVariant>& properties, Report& report)
{
    for (Json::const_iterator it = json.begin(); it != json.end(); ++it) {
        const QString key = text(it.key());
        const QString keyPath = path + QLatin1Char('.') + key;
        if (properties.contains(key)) {
            report.add(keyPath, text("the item's place and size are given twice"), text("them beside \"type\" only"));
            continue;
        }
        const QVariant value = readProperty(keyPath, key, it.value(), rules, place, report);
        if (value.isValid())
            properties.insert(key, value);
    }
}

/// A number whose default is out of its own range has no useful default: the project must say it.
void refuseMissingProperties(const QString& path, const ItemTypeRules& rules,
                             const QHash<QString, QVariant>& properties, Report& report)
{
    for (int i = 0; i < rules.rules.size(); ++i) {
        const PropertyRule& rule = rules.rules.at(i);
        if (rule.place != PropertyRule::ITEM || rule.type != PropertyRule::NUMBER || properties.contains(rule.key))
            continue;
        const int fallback = rule.fallback.toInt();
        if (fallback < rule.minimum || fallback > rule.maximum)
            report.add(path + QLatin1Char('.') + rule.key, text("the key is missing"), expectedOf(rule));
    }
}

// --- panel and items ---------------------------------------------------------------------------------------------

void readPanel(const Json& root, ObjectReader& reader, ProjectPanel& panel, Report& report)
{
    Q_UNUSED(root)
    const Json* json = reader.value("panel", Json::value_t::object, "an object with the panel's size");
    if (!json)
        return;
    ObjectReader keys(*json, text("panel"), report);
    panel.width = keys.requiredNumber("width", 1, MOST_PIXELS);
    panel.height = keys.requiredNumber("height", 1, MOST_PIXELS);
    panel.dpi = keys.number("dpi", LOWEST_DPI, HIGHEST_DPI, panel.dpi);
    panel.language = keys.number("language", 1, ProjectFile::LANGUAGES, panel.language);
    if (const Json* background = keys.value(text("background"))) {
        if (!background->is_string() || !parseColour(text(background->get<std::string>()), panel.background))
            report.add(keys.at(text("background")), text("found %1").arg(shown(*background)),
                       text("a colour as \"#rrggbb\" or \"#aarrggbb\""));
    }
    keys.refuseUnknownKeys();
}

const int HIGHEST_LINK_NUMBER = 65535;

/// A name that an address can hold; the panel's own registers need no link.
QString readDevice(ObjectReader& keys, Report& report)
{
    const QString device = keys.requiredText("device");
    if (device.contains(QLatin1Char(',')) || device == text("Internal storage area"))
        report.add(keys.at(text("device")), text("found %1").arg(quoted(device)),
                   text("the name of a controller, without a comma"));
    return device;
}

ProjectLink readLink(const Json& json, const QString& path, int number, Report& report)
{
    ProjectLink link;
    ObjectReader keys(json, path, report);
    link.device = readDevice(keys, report);
    link.number = keys.number("number", 0, HIGHEST_LINK_NUMBER, number);
    if (const Json* up = keys.value(text("up"))) {
        if (up->is_boolean())
            link.isUp = up->get<bool>();
        else
            report.add(keys.at(text("up")), text("found %1").arg(shown(*up)), text("true or false"));
    }
    keys.refuseUnknownKeys();
    return link;
}

void readLinks(ObjectReader& reader, QList<ProjectLink>& links, Report& report)
{
    if (!reader.value(text("links")))
        return;
    const Json* list = reader.value("links", Json::value_t::array, "a list of links");
    QSet<QString> devices;
    for (std::size_t i = 0; list && i < list->size(); ++i) {
        const QString path = text("links[%1]").arg(i);
        if (!list->at(i).is_object()) {
            report.add(path, text("found %1").arg(shown(list->at(i))), text("an object that describes a link"));
            continue;
        }
        const ProjectLink link = readLink(list->at(i), path, static_cast<int>(i) + 1, report);
        if (!link.device.isEmpty() && devices.contains(link.device))
            report.add(path + text(".device"), text("found %1 a second time").arg(quoted(link.device)),
                       text("one link for each device"));
        devices.insert(link.device);
        links.append(link);
    }
}

bool isLanguage(const QString& childName)
{
    for (int i = 1; i <= ProjectFile::LANGUAGES; ++i) {
        if (childName == text("Language%1").arg(i))
            return true;
    }
    return false;
}

void readChildren(const Json& json, const QString& path, const ItemTypeRules* rules, ProjectItem& item, Report& report)
{
    for (Json::const_iterator it = json.begin(); it != json.end(); ++it) {
        ProjectChild child;
        child.name = text(it.key());
        const QString childPath = path + QLatin1Char('.') + child.name;
        if (rules && !isLanguage(child.name)) {
            report.add(childPath, text("the child is unknown"), text("\"Language1\" to \"Language8\""));
        } else if (!it.value().is_object()) {
            report.add(childPath, text("found %1").arg(shown(it.value())), text("an object with properties"));
        } else {
            readProperties(it.value(), childPath, rules, PropertyRule::LANGUAGE, child.properties, report);
            item.children.append(child);
        }
    }
}

void readPlace(ObjectReader& keys, ProjectItem& item)
{
    item.properties.insert(text("x"), keys.number("x", -MOST_PIXELS, MOST_PIXELS, 0));
    item.properties.insert(text("y"), keys.number("y", -MOST_PIXELS, MOST_PIXELS, 0));
    item.properties.insert(text("width"), keys.requiredNumber("width", 1, MOST_PIXELS));
    item.properties.insert(text("height"), keys.requiredNumber("height", 1, MOST_PIXELS));
}

void readItemProperties(ObjectReader& keys, const ItemTypeRules* rules, ProjectItem& item, Report& report)
{
    const QString path = keys.at(text("properties"));
    const Json* given = keys.value(text("properties"));
    if (given && !given->is_object()) {
        report.add(path, text("found %1").arg(shown(*given)), text("an object with properties"));
        return;
    }
    const int before = report.count();
    if (given)
        readProperties(*given, path, rules, PropertyRule::ITEM, item.properties, report);
    if (rules && report.count() == before)
        refuseMissingProperties(path, *rules, item.properties, report);
}

ProjectItem readItem(const Json& json, const QString& path, const QHash<QString, ItemTypeRules>& allRules,
                     Report& report)
{
    ProjectItem item;
    ObjectReader keys(json, path, report);
    item.typeName = keys.requiredText("type");
    item.name = keys.requiredText("name");
    readPlace(keys, item);

    const QHash<QString, ItemTypeRules>::const_iterator known = allRules.constFind(item.typeName);
    const ItemTypeRules* rules = known == allRules.constEnd() ? nullptr : &known.value();
    readItemProperties(keys, rules, item, report);
    if (keys.value(text("children"))) {
        if (const Json* found = keys.value("children", Json::value_t::object, "an object with children"))
            readChildren(*found, keys.at(text("children")), rules, item, report);
    }
    keys.refuseUnknownKeys();
    return item;
}

void readItems(ObjectReader& reader, const QHash<QString, ItemTypeRules>& rules, QList<ProjectItem>& items,
               Report& report)
{
    const Json* list = reader.value("items", Json::value_t::array, "a list of items");
    if (!list)
        return;
    QSet<QString> names;
    for (std::size_t i = 0; i < list->size(); ++i) {
        const QString path = text("items[%1]").arg(i);
        if (!list->at(i).is_object()) {
            report.add(path, text("found %1").arg(shown(list->at(i))), text("an object that describes an item"));
            continue;
        }
        const ProjectItem item = readItem(list->at(i), path, rules, report);
        if (!item.name.isEmpty() && names.contains(item.name))
            report.add(path + text(".name"), text("found %1 a second time").arg(quoted(item.name)),
                       text("a name of its own"));
        names.insert(item.name);
        items.append(item);
    }
}

void copyProperties(const QHash<QString, QVariant>& from, object* to)
{
    for (QHash<QString, QVariant>::const_iterator it = from.constBegin(); it != from.constEnd(); ++it)
        to->properties.insert(it.key(), it.value());
}

// --- rules -------------------------------------------------------------------------------------------------------

bool readChoice(ObjectReader& keys, const char* key, const char* const* choices, int count, int& chosen, Report& report)
{
    const Json* found = keys.value(text(key));
    QStringList known;
    for (int i = 0; i < count; ++i) {
        known.append(quoted(text(choices[i])));
        if (found && *found == choices[i]) {
            chosen = i;
            return true;
        }
    }
    report.add(keys.at(text(key)), found ? text("found %1").arg(shown(*found)) : text("the key is missing"),
               text("one of %1").arg(known.join(text(", "))));
    return false;
}

void readDefault(ObjectReader& keys, PropertyRule& rule, Report& report)
{
    const Json* found = keys.value(text("default"));
    PropertyRule anyNumber = rule;
    // The default need not lie in the range: a project has to state such a property.
    anyNumber.minimum = std::numeric_limits<int>::min();
    anyNumber.maximum = std::numeric_limits<int>::max();
    rule.fallback = found ? ruledValue(*found, anyNumber) : QVariant();
    if (!rule.fallback.isValid())
        report.add(keys.at(text("default")), found ? text("found %1").arg(shown(*found)) : text("the key is missing"),
                   text("a value of the property's type"));
}

PropertyRule readRule(const Json& json, const QString& path, Report& report)
{
    static const char* const PLACES[] = {"item", "language"};
    static const char* const TYPES[] = {"int", "string", "color"};
    PropertyRule rule;
    ObjectReader keys(json, path, report);
    rule.key = keys.requiredText("key");
    rule.meaning = keys.requiredText("meaning");
    int chosen = 0;
    if (readChoice(keys, "in", PLACES, 2, chosen, report))
        rule.place = static_cast<PropertyRule::Place>(chosen);
    if (readChoice(keys, "type", TYPES, 3, chosen, report))
        rule.type = static_cast<PropertyRule::Type>(chosen);
    if (rule.type == PropertyRule::NUMBER) {
        rule.minimum = keys.requiredNumber("minimum", std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        rule.maximum = keys.requiredNumber("maximum", rule.minimum, std::numeric_limits<int>::max());
    }
    readDefault(keys, rule, report);
    keys.refuseUnknownKeys();
    return rule;
}

void readRules(ObjectReader& reader, QList<PropertyRule>& rules, Report& report)
{
    const Json* list = reader.value("properties", Json::value_t::array, "a list of properties");
    if (!list)
        return;
    for (std::size_t i = 0; i < list->size(); ++i) {
        const QString path = text("properties[%1]").arg(i);
        if (list->at(i).is_object())
            rules.append(readRule(list->at(i), path, report));
        else
            report.add(path, text("found %1").arg(shown(list->at(i))), text("an object that describes a property"));
    }
}

} // namespace

// --- rules of an item type ---------------------------------------------------------------------------------------

const PropertyRule* ItemTypeRules::find(const QString& key) const
{
    for (int i = 0; i < rules.size(); ++i) {
        if (rules.at(i).key == key)
            return &rules.at(i);
    }
    return nullptr;
}

bool ItemTypeRules::load(const QString& fileName, QStringList& problems)
{
    Report report(fileName, problems);
    const int before = report.count();
    try {
        Json root;
        if (readJson(fileName, root, report)) {
            ObjectReader reader(root, QString(), report);
            typeName = reader.requiredText("item_type");
            readRules(reader, rules, report);
            reader.refuseUnknownKeys();
        }
    } catch (const std::exception& error) {
        report.add(QString(), text("reading failed (%1)").arg(QString::fromUtf8(error.what())), text("a JSON file"));
    }
    return report.count() == before;
}

// --- the project -------------------------------------------------------------------------------------------------

ProjectPanel::ProjectPanel() : width(1), height(1), dpi(96), language(1), background(0x20, 0x24, 0x28) {}

void ProjectFile::addRules(const ItemTypeRules& rules)
{
    m_rules.insert(rules.typeName, rules);
}

bool ProjectFile::load(const QString& fileName)
{
    m_problems.clear();
    m_items.clear();
    m_links.clear();
    m_panel = ProjectPanel();
    Report report(fileName, m_problems);
    try {
        Json root;
        if (readJson(fileName, root, report)) {
            ObjectReader reader(root, QString(), report);
            readPanel(root, reader, m_panel, report);
            readLinks(reader, m_links, report);
            readItems(reader, m_rules, m_items, report);
            reader.refuseUnknownKeys();
        }
    } catch (const std::exception& error) {
        report.add(QString(), text("reading failed (%1)").arg(QString::fromUtf8(error.what())), text("a JSON file"));
    }
    return m_problems.isEmpty();
}

object* ProjectFile::createTree(ItemObjectFactory* factory) const
{
    object* root = new object(text("project"));
    root->properties.insert(text("width"), m_panel.width);
    root->properties.insert(text("height"), m_panel.height);
    for (int i = 0; i < m_items.size(); ++i) {
        const ProjectItem& described = m_items.at(i);
        object* item = factory ? factory->createItemObject(described.typeName, described.name) : nullptr;
        if (!item) {
            item = new object(described.name);
            property_set_type(item, 1);
        }
        copyProperties(described.properties, root->addChild(item));
        for (int c = 0; c < described.children.size(); ++c)
            copyProperties(described.children.at(c).properties,
                           item->addChild(new object(described.children.at(c).name)));
    }
    return root;
}
