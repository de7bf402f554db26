// What tests of the item stand on: a recipe file, a project opened in the runtime, a started item, events, cleaning up.
//
//     class Painting : public SheetFixture {};
//     TEST_F(Painting, ShowsTheFirstPage)
//     {
//         writeGroup(SheetGroup::ofSize(250, 120));
//         RecipeSheetItems& sheet = startSheet();
//         RecipeSheetProbe probe(sheet);
//         ...
//     }
//
// The recipe file is the real one, /usr/tabrix/project/recipeN.db3: run under tools/with-project-dir. What a test left
// there is removed after it, unless a file was there before.
#ifndef SHEET_FIXTURE_H
#define SHEET_FIXTURE_H

#include "RecipeSheetItems.h"
#include "qt_print.h"
#include "runtime.h"
#include "sheet_probe.h"

#include <QGraphicsSceneMouseEvent>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

/// A group to write. Titles are "Item<i>" and "Recipe<c>" with " L<n>" behind them from language 1 on; a numeric
/// value is item * 1000 + recipe, a text "t<item>_<recipe>".
struct SheetGroup
{
    int group = 0;
    int items = 12;
    int recipes = 8;
    QVector<int> dataTypes = {0}; ///< of item i: entry i, or the last one
    QVector<int> decimals = {0};  ///< likewise
    double min = 0.0;
    double max = 9999999.0;
    std::function<QString(int item, int recipe)> value; ///< in place of the usual values

    static SheetGroup ofSize(int itemCount, int recipeCount);

    int dataType(int item) const;
    int decimalDigits(int item) const;
    QString storedValue(int item, int recipe) const;
    QString itemTitle(int item, int language = 0) const;
    QString recipeTitle(int recipe, int language = 0) const;
    recipeTableInfo_t record() const;
};

/// What a sheet is configured with: keys and values of its property object, and of its children "Language<n>".
struct SheetProperties
{
    QMap<QString, QVariant> item;
    QMap<int, QMap<QString, QVariant> > languages;

    /// 800 x 480 at (0, 0), 10 rows and 5 columns a page, titles 40 high, names 120 wide, group 0, every colour
    /// different, lines and Add/Delete on, stripes off, a pinned font of 16 pixels.
    static SheetProperties usual();

    SheetProperties& set(const char* key, const QVariant& value);
    SheetProperties& remove(const char* key);
    SheetProperties& setLanguage(int language, const char* key, const QVariant& value);
};

/// What the item asked of the runtime, in order.
class RecordedRequests : public RuntimeListener
{
public:
    struct Message
    {
        QString text;
        int value1;
        int value2;
    };
    struct Call
    {
        QString function;
        quintptr argument;
    };

    void messageBox(const QString& text, int value1, int value2) override;
    void externalCall(const QString& function, quintptr argument) override;
    void touchSound(QGraphicsItem* item) override;
    void clear();
    QStringList messageTexts() const;
    QStringList functions() const;

    std::vector<Message> messages;
    std::vector<Call> calls;
    std::vector<QGraphicsItem*> sounds;
    QStringList log; ///< all of them: "message TEXT V1 V2", "call FUNCTION", "sound"
};

/// An item whose frame does not come from its properties, for frames that do not start at (0, 0).
class FramedSheet : public RecipeSheetItems
{
public:
    explicit FramedSheet(const QRectF& itemFrame) : frame(itemFrame) {}
    QRectF boundingRect() const override { return frame; }

    QRectF frame;
};

class SheetFixture : public testing::Test
{
protected:
    SheetFixture();
    ~SheetFixture() override;

    // --- the file --------------------------------------------------------------------------------------------
    static QString recipeFile();
    /// Writes the group into the recipe file, which is created when it is missing. Fails the test when it cannot.
    void writeGroup(const SheetGroup& group);
    /// Runs statements on a connection of its own.
    static void runSql(const QString& statements);
    /// All rows of a query on a connection of its own, fields joined with "|", NULL as "<null>".
    static QStringList querySql(const QString& statement);

    // --- the project and its items ---------------------------------------------------------------------------
    /// Opens a project without sheets, in place of the one before. Called by addSheet where none is open.
    void openProject();
    void closeProject();
    /// A property object in the open project.
    object* addSheet(const SheetProperties& properties = SheetProperties::usual());
    /// Constructs, places and starts an item; it lives until the end of the test or destroySheet.
    RecipeSheetItems& startSheet(const SheetProperties& properties = SheetProperties::usual());
    /// The same for an item with a frame of its own.
    FramedSheet& startFramedSheet(const QRectF& frame, const SheetProperties& properties = SheetProperties::usual());
    /// Takes an item that the test constructed, places and starts it.
    template <typename Item> Item& start(Item* item, object* properties)
    {
        static_assert(std::is_base_of<RecipeSheetItems, Item>::value, "an item");
        keep(item);
        Runtime::place(item, properties);
        EXPECT_TRUE(Runtime::instance().start(item));
        return *item;
    }
    /// Takes an item that is not started.
    RecipeSheetItems& keep(RecipeSheetItems* item);
    void destroySheet(RecipeSheetItems& sheet);

    // --- the event loop --------------------------------------------------------------------------------------
    /// Waits for the worker, then deals with events until none is waiting.
    void settle();

    // --- touch, in item coordinates --------------------------------------------------------------------------
    static void press(RecipeSheetItems& sheet, const QPointF& position);
    static void move(RecipeSheetItems& sheet, const QPointF& position);
    static void release(RecipeSheetItems& sheet, const QPointF& position);
    static void tap(RecipeSheetItems& sheet, const QPointF& position);

    static Runtime& runtime() { return Runtime::instance(); }
    static RegisterBank& registers() { return Runtime::instance().registers(); }

    RecordedRequests requests; ///< of all items, from the beginning of the test

private:
    static void removeRecipeFiles();

    bool m_hadFile;
    object* m_root; // the open project's; owned by the runtime
    std::vector<std::unique_ptr<RecipeSheetItems> > m_sheets;
};

#endif
