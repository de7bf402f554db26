// The binding to the runtime's registers.
#include "RecipeSheetItems.h"

#include "sheet_constants.h"

#include <QMutexLocker>
#include <QVariant>

namespace {

/// Where the runtime leaves an item's property object.
const int PROPERTY_OBJECT_KEY = 10;

} // namespace

QString RecipeSheetItems::getRequirement()
{
    return QString::fromLatin1("%1").arg(QString::fromLatin1("comm"));
}

void RecipeSheetItems::setInterfaceByRequirement(QList<void*> interfaces)
{
    if (interfaces.size() == 1)
        m_comm = static_cast<InterfaceComm*>(interfaces.first());
}

int RecipeSheetItems::getMonitorAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys)
{
    setFlag(QGraphicsItem::ItemIsSelectable, true);
    if (!m_object)
        m_object = static_cast<object*>(data(PROPERTY_OBJECT_KEY).value<void*>());
    if (!m_object)
        return 0;

    init();
    if (m_comm)
        m_comm->formatMonitorAddress(recipeIndexRegister.areaName, recipeIndexRegister.registerType,
                                     recipeIndexRegister.address, recipeIndexRegister.subAddress,
                                     recipeIndexRegister.wordCount, addresses);
    setUpdateAddr(addresses, keys);
    return 0;
}

void RecipeSheetItems::setUpdateAddr(QStringList& addresses, QList<KEY_ADDRESS>& keys)
{
    addresses.append(QString::fromLatin1("0,-1,LWF,%1").arg(RELOAD_REGISTER));
    KEY_ADDRESS key;
    key.registerType = QString::fromLatin1("LWF");
    key.address = RELOAD_REGISTER;
    key.count = 1;
    keys.append(key);
}

void RecipeSheetItems::updateTable()
{
    SendLWFRegMessage(RELOAD_REGISTER);
}

bool RecipeSheetItems::recipeIndexChanged()
{
    if (!m_comm)
        return false;
    int value = 0;
    m_comm->readWords(0, recipeIndexRegister.address, 1, &value);
    if (value == currentRecipe)
        return false;
    currentRecipe = value;
    return true;
}

void RecipeSheetItems::recipeGroupIndexChanged()
{
    if (!m_comm)
        return;
    int value = 0;
    m_comm->readWords(0, groupIndexRegister.address, 1, &value);
}

void RecipeSheetItems::updateRecipeGroupIndexAddr(int group, int recipe)
{
    if (!m_comm)
        return;
    m_comm->writeWords(groupIndexRegister.areaName, groupIndexRegister.registerType, groupIndexRegister.address,
                       groupIndexRegister.subAddress, groupIndexRegister.wordCount, &group);
    m_comm->writeWords(recipeIndexRegister.areaName, recipeIndexRegister.registerType, recipeIndexRegister.address,
                       recipeIndexRegister.subAddress, recipeIndexRegister.wordCount, &recipe);
}

int RecipeSheetItems::update_result(int mask)
{
    if ((mask & UPDATE_BIT) == 0)
        return 0;
    if (recipeIndexChanged())
        selectCol(currentRecipe);
    checkAndLoadRequiredBlocks();
    {
        QMutexLocker lock(&dataMutex);
        reloadCachedBlocks();
    }
    update();
    return 1;
}
