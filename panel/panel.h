// The desktop panel: loads plug-ins, opens a project and plays the runtime's part towards its items. One per process,
// because there is one Runtime. GUI thread only.
#ifndef PANEL_H
#define PANEL_H

#include "plugin_library.h"
#include "project_file.h"
#include "runtime.h"

#include <QGraphicsScene>
#include <QStringList>

#include <memory>
#include <vector>

class Panel : private ItemObjectFactory
{
public:
    Panel();
    ~Panel() override;
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    /// One item of the project that is shown.
    struct Item
    {
        QString name;
        const PluginLibrary* plugin;
        HMIBaseItem* item; ///< owned by the scene
    };

    /// False: the library is left out; `problems` has got one sentence more.
    bool loadPlugin(const QString& fileName);
    /// False: nothing is shown; `problems` has got a sentence for each fault. An item without a plug-in is left out
    /// with a sentence, but does no harm to the rest. `language` 0 takes the project's.
    bool open(const QString& fileName, int language);
    /// Destroys the items and the project.
    void close();

    const QStringList& problems() const { return m_problems; }
    const ProjectPanel& settings() const { return m_project.panel(); }
    QGraphicsScene& scene() { return m_scene; }
    const std::vector<Item>& items() const { return m_items; }
    /// The library that loads recipes, the first that can; null: none can.
    const PluginLibrary* recipeLoader() const;

    /// The links of the project as they are now.
    const QList<ProjectLink>& links() const { return m_links; }
    /// Takes a link down or up. False: the project has no such link.
    bool setLink(const QString& device, bool up);

    /// Lets events, notifications and what follows from them run until none is waiting.
    static void settle();

private:
    object* createItemObject(const QString& typeName, const QString& name) override;
    const PluginLibrary* pluginFor(const QString& typeName) const;
    void loadRules(const PluginLibrary& plugin);
    void openLinks();
    void closeLinks();
    void createItems(object* tree);
    bool createItem(const ProjectItem& described, object* properties, const PluginLibrary& plugin);

    std::vector<std::unique_ptr<PluginLibrary>> m_plugins;
    ProjectFile m_project;
    QGraphicsScene m_scene;
    std::vector<Item> m_items;
    QList<ProjectLink> m_links;
    QStringList m_problems;
};

#endif
