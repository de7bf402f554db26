// Plug-ins, project and items.
#include "panel.h"

#include <QCoreApplication>
#include <QFile>

namespace {

constexpr int LINK_UP = 0;
constexpr int LINK_DOWN = 1;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

} // namespace

Panel::Panel()
{
    // Items come and go together; an index would only cost.
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
}

Panel::~Panel()
{
    close();
}

// --- plug-ins ----------------------------------------------------------------------------------------------------

bool Panel::loadPlugin(const QString& fileName)
{
    QString problem;
    std::unique_ptr<PluginLibrary> library(PluginLibrary::load(fileName, problem));
    if (!library) {
        m_problems.append(problem);
        return false;
    }
    if (const PluginLibrary* other = pluginFor(library->typeName())) {
        m_problems.append(
            text("%1: the item type \"%2\" is provided by %3 already; name only one of them with --plugin.")
                .arg(fileName, library->typeName(), other->fileName()));
        return false;
    }
    loadRules(*library);
    m_plugins.push_back(std::move(library));
    return true;
}

/// Without the file the keys of the type are not checked; with a broken one neither, and that is told.
void Panel::loadRules(const PluginLibrary& plugin)
{
    if (!QFile::exists(plugin.propertiesFileName()))
        return;
    ItemTypeRules rules;
    if (!rules.load(plugin.propertiesFileName(), m_problems))
        return;
    m_project.addRules(rules);
}

const PluginLibrary* Panel::pluginFor(const QString& typeName) const
{
    for (const auto& plugin : m_plugins) {
        if (plugin->typeName() == typeName)
            return plugin.get();
    }
    return nullptr;
}

const PluginLibrary* Panel::recipeLoader() const
{
    for (const auto& plugin : m_plugins) {
        if (plugin->hasLoader())
            return plugin.get();
    }
    return nullptr;
}

// --- links -------------------------------------------------------------------------------------------------------

void Panel::openLinks()
{
    m_links = m_project.links();
    for (int i = 0; i < m_links.size(); ++i)
        setLink(m_links.at(i).device, m_links.at(i).isUp);
}

void Panel::closeLinks()
{
    for (const ProjectLink& link : m_links)
        Runtime::instance().registers().setLink(link.device, LinkValue());
    m_links.clear();
}

bool Panel::setLink(const QString& device, bool up)
{
    for (int i = 0; i < m_links.size(); ++i) {
        if (m_links.at(i).device != device)
            continue;
        m_links[i].isUp = up;
        LinkValue value;
        value.linkId = i;
        value.status = up ? LINK_UP : LINK_DOWN;
        value.linkNumber = m_links.at(i).number;
        Runtime::instance().registers().setLink(device, value);
        return true;
    }
    return false;
}

// --- the project -------------------------------------------------------------------------------------------------

bool Panel::open(const QString& fileName, int language)
{
    close();
    if (!m_project.load(fileName)) {
        m_problems += m_project.problems();
        return false;
    }
    Runtime& runtime = Runtime::instance();
    runtime.setLanguage(language > 0 ? language : settings().language);
    m_scene.setSceneRect(0, 0, settings().width, settings().height);
    m_scene.setBackgroundBrush(settings().background);
    // The project is there before its items: their constructors ask for it.
    object* tree = m_project.createTree(this);
    runtime.setProject(tree);
    openLinks();
    createItems(tree);
    return true;
}

void Panel::close()
{
    settle(); // what is on its way may still point to the items
    m_items.clear();
    m_scene.clear();
    closeLinks();
    Runtime::instance().setProject(nullptr);
}

/// The plug-in makes the property object of its items. Null: there is no such plug-in.
object* Panel::createItemObject(const QString& typeName, const QString& name)
{
    const PluginLibrary* plugin = pluginFor(typeName);
    return plugin ? Runtime::instance().release(plugin->createObject(name)) : nullptr;
}

void Panel::createItems(object* tree)
{
    for (int i = 0; i < m_project.items().size(); ++i) {
        const ProjectItem& described = m_project.items().at(i);
        const PluginLibrary* plugin = pluginFor(described.typeName);
        if (!plugin)
            m_problems.append(text("The item \"%1\" is left out: no loaded plug-in provides its type \"%2\".")
                                  .arg(described.name, described.typeName));
        else if (!createItem(described, tree->children().at(i), *plugin))
            m_problems.append(
                text("The item \"%1\" is left out: it requires something that this runtime does not have.")
                    .arg(described.name));
    }
}

bool Panel::createItem(const ProjectItem& described, object* properties, const PluginLibrary& plugin)
{
    std::unique_ptr<HMIBaseItem> item(plugin.createItem());
    Runtime::place(item.get(), properties);
    if (!Runtime::instance().start(item.get()))
        return false;
    m_items.push_back({described.name, &plugin, item.get()});
    m_scene.addItem(item.release());
    return true;
}

void Panel::settle()
{
    do {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    } while (!Runtime::instance().isIdle());
}
