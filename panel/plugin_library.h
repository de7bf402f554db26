// One plug-in library, loaded the way a panel does it: with dlopen, all symbols resolved at once, its own symbols kept
// to itself. A library is never unloaded: its singletons live until the process ends. GUI thread only.
#ifndef PLUGIN_LIBRARY_H
#define PLUGIN_LIBRARY_H

#include <QByteArray>
#include <QString>

class HMIBaseItem;
class InterfaceComm;
class object;
struct recipeTableInfo_t;

class PluginLibrary
{
public:
    /// Null: not a plug-in, and `problem` says in one sentence which file it is, what was looked for and what helps.
    /// A loaded library stays for the rest of the process; the caller owns only this handle.
    static PluginLibrary* load(const QString& fileName, QString& problem);

    const QString& fileName() const { return m_fileName; }
    const QString& typeName() const { return m_typeName; }
    /// "<type>.properties.json" beside the library, where the plug-in states which properties its items know.
    QString propertiesFileName() const;

    /// A new item that the caller owns.
    HMIBaseItem* createItem() const { return m_createItem(); }
    /// A property object for an item; the runtime adopts it.
    object* createObject(const QString& objectName) const { return m_createObject(m_typeName, objectName); }
    /// Whether the library exports a loader for recipes; a plug-in need not.
    bool hasLoader() const { return m_loadRecipes != nullptr; }
    /// Calls the loader: recipes [start, start + count) of a group. The record is the caller's; its texts and lists are
    /// Qt's and may outlive the call. Library and program must be built with the same recipe_records.h. False: the
    /// loader could not, and the record is cleared.
    bool loadRecipes(int group, int start, int count, recipeTableInfo_t& info, InterfaceComm* links) const
    {
        return m_loadRecipes(group, start, count, info, links) != 0;
    }
    /// What an item shows, as JSON text. Empty where nobody tells: describeItem(const HMIBaseItem*) is an optional
    /// entry point of the plug-in or of the library "<type>.inspect.so" beside it.
    QByteArray describe(const HMIBaseItem* item) const;

private:
    PluginLibrary() = default;
    bool findEntryPoints(QString& problem);
    void findDescription();
    QString besideLibrary(const char* suffix) const;

    using GetItemName = QString (*)();
    using CreateItem = HMIBaseItem* (*)();
    using CreateObject = object* (*)(QString, QString);
    using LoadRecipes = int (*)(int, int, int, recipeTableInfo_t&, InterfaceComm*);
    using DescribeItem = QByteArray (*)(const HMIBaseItem*);

    QString m_fileName;
    QString m_typeName;
    void* m_handle = nullptr;
    CreateItem m_createItem = nullptr;
    CreateObject m_createObject = nullptr;
    LoadRecipes m_loadRecipes = nullptr;   // optional
    DescribeItem m_describeItem = nullptr; // optional
};

#endif
