// The project file of the desk runtime: a JSON text that says how big the panel is and which items stand on it, read
// into plain records and from there into the tree of property objects that Runtime::setProject takes.
//
//   {
//     "panel": { "width": 800, "height": 480, "dpi": 110, "language": 1, "background": "#202428" },
//     "links": [ { "device": "Bakery controller", "number": 1, "up": true } ],
//     "items": [
//       { "type": "RecipeSheet", "name": "dough", "x": 0, "y": 0, "width": 800, "height": 480,
//         "properties": { "rows_num_page": 10 },
//         "children": { "Language1": { "title_text_color": "#202020" } } }
//     ]
//   }
//
// A plug-in states which keys its item type knows in a file beside the library, "<type>.properties.json"; values of
// such a type are held against it. The keys of a type without that file are taken as they come: whole numbers,
// texts, and texts of the form "#rrggbb" or "#aarrggbb" as colours.
//
// All problems of a file are collected, one sentence each. No exception leaves these functions. GUI thread only.
#ifndef PROJECT_FILE_H
#define PROJECT_FILE_H

#include "object_tree.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

/// One property that an item type knows.
struct PropertyRule
{
    enum Type
    {
        NUMBER,
        TEXT,
        COLOUR
    };
    enum Place
    {
        ITEM,    ///< read from the item itself
        LANGUAGE ///< read from the item's children "Language1" to "Language8"
    };

    QString key;
    Place place;
    Type type;
    int minimum; ///< of numbers
    int maximum;
    QVariant fallback; ///< what the item takes where the key is missing
    QString meaning;

    PropertyRule() : place(ITEM), type(NUMBER), minimum(0), maximum(0) {}
};

/// The properties of one item type, as its plug-in states them.
struct ItemTypeRules
{
    QString typeName;
    QList<PropertyRule> rules;

    /// Null where the type does not know the key.
    const PropertyRule* find(const QString& key) const;
    /// Reads "<type>.properties.json". False: nothing usable, and `problems` tells why.
    bool load(const QString& fileName, QStringList& problems);
};

struct ProjectPanel
{
    int width;  ///< in pixels
    int height; ///< in pixels
    int dpi;
    int language; ///< from 1
    QColor background;

    ProjectPanel();
};

/// The link to a controller, which the desk plays.
struct ProjectLink
{
    QString device; ///< as addresses in recipe files name it
    int number;     ///< the link number
    bool isUp;

    ProjectLink() : number(0), isUp(true) {}
};

struct ProjectChild
{
    QString name;
    QHash<QString, QVariant> properties; ///< int, QString or QColor
};

struct ProjectItem
{
    QString typeName;
    QString name;
    QHash<QString, QVariant> properties; ///< with "x", "y", "width" and "height"
    QList<ProjectChild> children;
};

/// Makes the property object of an item. On a panel the plug-in does it.
class ItemObjectFactory
{
public:
    virtual ~ItemObjectFactory() {}
    /// The caller owns the result.
    virtual object* createItemObject(const QString& typeName, const QString& name) = 0;
};

class ProjectFile
{
public:
    static const int LANGUAGES = 8;

    /// Items of this type are held against the rules. To be called before `load`.
    void addRules(const ItemTypeRules& rules);

    /// False: the file is not to be used, and `problems` tells everything that is wrong with it.
    bool load(const QString& fileName);

    const QStringList& problems() const { return m_problems; }
    const ProjectPanel& panel() const { return m_panel; }
    const QList<ProjectLink>& links() const { return m_links; }
    const QList<ProjectItem>& items() const { return m_items; }

    /// The root of the project with one child per item, in the order of `items`. The caller owns it. Without a
    /// factory the objects are made here.
    object* createTree(ItemObjectFactory* factory) const;

private:
    QHash<QString, ItemTypeRules> m_rules; // by type
    QStringList m_problems;
    ProjectPanel m_panel;
    QList<ProjectLink> m_links;
    QList<ProjectItem> m_items;
};

#endif
