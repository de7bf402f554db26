// Sending recipes.
#include "recipe_transfer.h"

#include <QHash>
#include <QJsonArray>
#include <QPair>

namespace {

constexpr int GROUP_REGISTER = 60802; // internal words, where sheets publish the selection
constexpr int RECIPE_REGISTER = 60803;
constexpr int NO_LINK = -1;
constexpr int LINK_UP = 0;
constexpr int LONGEST_TITLE = 60; // characters in a notice
constexpr int LONGEST_VALUE = 24;
constexpr quint16 NOTIFICATION = 1; // set when a recipe is there; the controller takes it back

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QJsonArray jsonOf(const QVector<quint16>& words)
{
    QJsonArray result;
    for (const quint16 word : words)
        result.append(word);
    return result;
}

QJsonObject jsonOf(const RecipeTransfer::Value& value)
{
    return {{text("item"), value.name},
            {text("value"), value.text},
            {text("device"), value.write.deviceName},
            {text("link"), value.linkNumber},
            {text("register"), value.write.registerType},
            {text("address"), value.write.address},
            {text("old"), jsonOf(value.before)},
            {text("new"), jsonOf(value.write.words)}};
}

/// A damaged file may hold texts of any length; the notice has more to say.
QString shown(const QString& value, int longest = LONGEST_VALUE)
{
    return value.size() <= longest ? value : value.left(longest) + text("...");
}

/// Titles are shown in the first language of the file, like those of a sheet.
QString titleOf(const QVector<QString>& titles, const QString& otherwise)
{
    return titles.value(0).isEmpty() ? otherwise : shown(titles.value(0), LONGEST_TITLE);
}

} // namespace

bool RecipeTransfer::fail(const char* reason, const QString& sentence)
{
    m_reason = text(reason);
    m_message = tr("%1 Nothing was sent.").arg(sentence);
    m_values.clear();
    return false;
}

void RecipeTransfer::refuseWhileBusy()
{
    fail("busy", tr("Recipes are being added or deleted; try again in a moment."));
}

bool RecipeTransfer::prepare(const PluginLibrary* library)
{
    if (!findSelection())
        return false;
    if (!library)
        return fail("no-loader", tr("No plug-in that is loaded can load recipes."));
    return load(*library) && encode() && fitsTogether();
}

bool RecipeTransfer::findSelection()
{
    const QString words = text("LW");
    if (!m_registers.isWritten(words, RECIPE_REGISTER))
        return fail("nothing-selected", tr("No recipe is selected."));
    if (!m_registers.isWritten(words, GROUP_REGISTER)) // others than a sheet may select, and a sheet marks it then
        return fail("no-group", tr("It is not known of which group the recipe is; tap the recipe."));
    m_group = m_registers.word(words, GROUP_REGISTER);
    m_recipe = m_registers.word(words, RECIPE_REGISTER);
    return true;
}

bool RecipeTransfer::load(const PluginLibrary& library)
{
    const QString group = QString::number(m_group);
    const QString recipe = QString::number(m_recipe);
    if (!library.loadRecipes(m_group, m_recipe, 1, m_info, &m_registers))
        return fail("not-loaded", tr("Group %1 cannot be read from the recipe file.").arg(group));
    if (m_info.items.isEmpty())
        return fail("no-items", tr("Group %1 has no items.").arg(group));
    if (m_info.columnName.isEmpty())
        return fail("no-recipe", tr("Group %1 has no recipe %2.").arg(group, recipe));
    m_title = titleOf(m_info.columnName.first(), tr("Recipe %1").arg(recipe));
    return true;
}

QString RecipeTransfer::nameOf(const recipeItemInfo_t& item) const
{
    return titleOf(item.rowName, tr("Item %1").arg(item.rowIndex));
}

// --- values ------------------------------------------------------------------------------------------------------

bool RecipeTransfer::encode()
{
    RegisterImage image;
    for (int row = 0; row < m_info.items.size(); ++row) {
        if (!encodeItem(row, image))
            return false;
    }
    return addWrites(image);
}

bool RecipeTransfer::encodeItem(int row, RegisterImage& image)
{
    const recipeItemInfo_t& item = m_info.items.at(row);
    if (item.values.isEmpty())
        return fail("no-value", tr("%1 has no value.").arg(nameOf(item)));
    if (item.values.size() > 1) // the file has the recipe's number twice
        return fail("several-recipes", tr("The recipe file holds \"%1\" more than once.").arg(m_title));
    RegisterValue value;
    value.dataType = item.dataType;
    value.decimals = item.decimalDigits;
    value.wordOffset = item.wordOffset;
    value.wordCount = item.wordCount;
    value.text = item.values.first();
    const RegisterImage::Result result = image.place(value);
    return result == RegisterImage::PLACED || failToEncode(result, nameOf(item), value);
}

/// All texts go into a sentence at once: a "%1" in a name or value is not a place to fill.
bool RecipeTransfer::failToEncode(RegisterImage::Result result, const QString& name, const RegisterValue& value)
{
    switch (result) {
    case RegisterImage::UNKNOWN_TYPE:
        return fail("unknown-type",
                    tr("%1 has the data type %2, which is not known.").arg(name, QString::number(value.dataType)));
    case RegisterImage::NOT_A_NUMBER:
        return fail("not-a-number", tr("%1: \"%2\" is not a number.").arg(name, shown(value.text)));
    case RegisterImage::TOO_MANY_DECIMALS:
        return fail("too-many-decimals", tr("%1: %2 has too many decimals.").arg(name, shown(value.text)));
    case RegisterImage::OUT_OF_RANGE:
        return fail("out-of-range", tr("%1: %2 does not fit into its register.").arg(name, shown(value.text)));
    case RegisterImage::TEXT_TOO_LONG:
        return fail("text-too-long", tr("%1: the text \"%2\" is longer than %3 bytes.")
                                         .arg(name, shown(value.text), QString::number(2 * value.wordCount)));
    default:
        return fail("no-room", tr("%1 has no room among the registers of the recipe.").arg(name));
    }
}

// --- places ------------------------------------------------------------------------------------------------------

bool RecipeTransfer::addWrites(const RegisterImage& image)
{
    for (const recipeItemInfo_t& item : m_info.items) {
        Value value;
        value.name = nameOf(item);
        value.text = item.values.first();
        value.write.words = image.words().mid(item.wordOffset, item.wordCount);
        if (!addWrite(value, item.devName, item.regAddr, item.addrPart4))
            return false;
    }
    if (m_info.notify == 0)
        return true;
    Value notification;
    notification.name = tr("Notification");
    notification.text = QString::number(NOTIFICATION);
    notification.write.words.append(NOTIFICATION);
    const LinkValue link = m_registers.linkValue(m_info.notifyDevName);
    if (link.linkId != NO_LINK && link.status == LINK_UP)
        m_info.notifyRegAddr.addrPart2 = link.linkNumber; // what the loader does for items
    return addWrite(notification, m_info.notifyDevName, m_info.notifyRegAddr, m_info.notifyAddrPart4);
}

bool RecipeTransfer::addWrite(Value value, const QString& device, const recipeRegAddr_t& place, const QString& number)
{
    bool isNumber = false;
    value.linkNumber = place.addrPart2;
    value.write.deviceName = device;
    value.write.registerType = place.regTypeText();
    value.write.address = number.toInt(&isNumber);
    if (device.isEmpty() || value.write.registerType.isEmpty() || !isNumber)
        return fail("no-address", tr("%1 has no register address.").arg(value.name));
    switch (m_registers.reach(value.write)) {
    case RegisterBank::NO_LINK:
        return fail("no-link", tr("%1: there is no link to \"%2\".").arg(value.name, shown(device)));
    case RegisterBank::LINK_DOWN:
        return fail("link-down", tr("The link to \"%1\" is down.").arg(shown(device)));
    case RegisterBank::NO_REGISTER:
        return fail("no-register", tr("%1: \"%2\" has no register %3 %4.")
                                       .arg(value.name, shown(device), value.write.registerType, shown(number)));
    case RegisterBank::REACHABLE:
        break;
    }
    const QString type = m_registers.typeOf(device, value.write.registerType);
    for (int i = 0; i < value.write.words.size(); ++i)
        value.before.append(static_cast<quint16>(m_registers.word(type, value.write.address + i)));
    m_values.append(value);
    return true;
}

/// A recipe is not whole where one value takes away what another has written. Equal words do no harm.
bool RecipeTransfer::fitsTogether()
{
    QHash<QPair<QString, int>, int> owners; // of each register the first value that writes it
    for (int i = 0; i < m_values.size(); ++i) {
        const RegisterWrite& write = m_values.at(i).write;
        const QString type = m_registers.typeOf(write.deviceName, write.registerType);
        for (int w = 0; w < write.words.size(); ++w) {
            const int address = write.address + w;
            const auto known = owners.constFind({type, address});
            if (known == owners.constEnd()) {
                owners.insert({type, address}, i);
                continue;
            }
            const Value& first = m_values.at(known.value());
            if (first.write.words.at(address - first.write.address) != write.words.at(w))
                return fail("shared-register",
                            tr("%1 and %2 share the register %3 %4.")
                                .arg(first.name, m_values.at(i).name, type, QString::number(address)));
        }
    }
    return true;
}

// --- sending -----------------------------------------------------------------------------------------------------

bool RecipeTransfer::send()
{
    QList<RegisterWrite> writes;
    for (const Value& value : m_values)
        writes.append(value.write);
    if (!m_registers.writeTogether(writes))
        return fail("refused", tr("The controller does not answer."));
    m_message = tr("Sent to the controller: %1").arg(m_title);
    return true;
}

QJsonObject RecipeTransfer::description() const
{
    QJsonObject result = {{text("result"), text(m_reason.isEmpty() ? "sent" : "refused")}};
    if (m_group >= 0) {
        result.insert(text("group"), m_group);
        result.insert(text("recipe"), m_recipe);
    }
    if (!m_title.isEmpty())
        result.insert(text("title"), m_title);
    if (!m_reason.isEmpty()) {
        result.insert(text("reason"), m_reason);
        return result;
    }
    const int items = m_info.items.size();
    QJsonArray values;
    for (int i = 0; i < items && i < m_values.size(); ++i)
        values.append(jsonOf(m_values.at(i)));
    result.insert(text("values"), values);
    if (m_values.size() > items)
        result.insert(text("notification"), jsonOf(m_values.last()));
    return result;
}
