// Loading plug-ins.
#include "plugin_library.h"

#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

#include <memory>

namespace {

constexpr char GET_ITEM_NAME[] = "getItemName";
constexpr char CREATE_ITEM[] = "createItem";
constexpr char CREATE_OBJECT[] = "_Z18item_object_create7QStringS_"; // item_object_create(QString, QString)
// loadRecipe2Struct_start_end(int, int, int, recipeTableInfo_t&, InterfaceComm*)
constexpr char LOAD_RECIPES[] = "_Z27loadRecipe2Struct_start_endiiiR17recipeTableInfo_tP13InterfaceComm";
constexpr char DESCRIBE_ITEM[] = "describeItem";

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

template <typename Function> Function find(void* handle, const char* name)
{
    return reinterpret_cast<Function>(dlsym(handle, name));
}

/// dlerror() begins with the file's name where it has one.
QString lastError(const QString& fileName)
{
    QString reason = QString::fromLocal8Bit(dlerror());
    if (reason.startsWith(fileName + text(": ")))
        reason.remove(0, fileName.size() + 2);
    return reason;
}

} // namespace

PluginLibrary* PluginLibrary::load(const QString& fileName, QString& problem)
{
    if (!QFileInfo(fileName).isFile()) {
        problem = text("%1: there is no such library; name the file of a plug-in with --plugin.").arg(fileName);
        return nullptr;
    }
    std::unique_ptr<PluginLibrary> library(new PluginLibrary);
    library->m_fileName = fileName;
    // dlopen looks for names without a slash in the system's folders.
    const QString path = QFileInfo(fileName).absoluteFilePath();
    library->m_handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library->m_handle) {
        problem = text("%1: the library cannot be loaded (%2); build the plug-in for this machine and this runtime.")
                      .arg(fileName, lastError(path));
        return nullptr;
    }
    if (!library->findEntryPoints(problem))
        return nullptr;
    library->findDescription();
    return library.release();
}

void PluginLibrary::findDescription()
{
    m_describeItem = find<DescribeItem>(m_handle, DESCRIBE_ITEM);
    if (m_describeItem)
        return;
    const QByteArray beside = besideLibrary(".inspect.so").toLocal8Bit();
    if (void* inspector = dlopen(beside.constData(), RTLD_NOW | RTLD_LOCAL))
        m_describeItem = find<DescribeItem>(inspector, DESCRIBE_ITEM);
}

bool PluginLibrary::findEntryPoints(QString& problem)
{
    const auto getItemName = find<GetItemName>(m_handle, GET_ITEM_NAME);
    m_createItem = find<CreateItem>(m_handle, CREATE_ITEM);
    m_createObject = find<CreateObject>(m_handle, CREATE_OBJECT);
    m_loadRecipes = find<LoadRecipes>(m_handle, LOAD_RECIPES);

    QStringList missing;
    if (!getItemName)
        missing.append(text("getItemName()"));
    if (!m_createItem)
        missing.append(text("createItem()"));
    if (!m_createObject)
        missing.append(text("item_object_create(QString, QString)"));
    if (!missing.isEmpty()) {
        problem = text("%1: the library has no entry point %2; it is not a plug-in, or not a whole one: export the "
                       "function or name another file with --plugin.")
                      .arg(m_fileName, missing.join(text(", ")));
        return false;
    }
    m_typeName = getItemName();
    if (!m_typeName.isEmpty())
        return true;
    problem = text("%1: getItemName() names no item type; let it return the name that projects give as \"type\".")
                  .arg(m_fileName);
    return false;
}

QString PluginLibrary::propertiesFileName() const
{
    return besideLibrary(".properties.json");
}

QString PluginLibrary::besideLibrary(const char* suffix) const
{
    return QFileInfo(m_fileName).absoluteDir().filePath(m_typeName + text(suffix));
}

QByteArray PluginLibrary::describe(const HMIBaseItem* item) const
{
    return m_describeItem ? m_describeItem(item) : QByteArray();
}
