#include "sheet_fixture.h"

#include "RecipeDB.h"
#include "outside_sqlite.h"
#include "recipe_tools.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QVector<QString> titles(const SheetGroup& group, QString (SheetGroup::*title)(int, int) const, int index)
{
    QVector<QString> result;
    for (int language = 0; language < LANGUAGE_COUNT; ++language)
        result.append((group.*title)(index, language));
    return result;
}

int entryOrLast(const QVector<int>& list, int index)
{
    return list.at(std::min(index, static_cast<int>(list.size()) - 1));
}

object* makeObject(const QString& name, const QMap<QString, QVariant>& properties)
{
    object* made = new object(name);
    for (auto property = properties.constBegin(); property != properties.constEnd(); ++property)
        made->properties.insert(property.key(), property.value());
    return made;
}

void sendMouse(RecipeSheetItems& sheet, QEvent::Type type, const QPointF& position)
{
    QGraphicsSceneMouseEvent event(type);
    event.setPos(position);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
    event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : Qt::LeftButton);
    if (type == QEvent::GraphicsSceneMousePress)
        sheet.mousePressEvent(&event);
    else if (type == QEvent::GraphicsSceneMouseMove)
        sheet.mouseMoveEvent(&event);
    else
        sheet.mouseReleaseEvent(&event);
}

} // namespace

// --- groups ------------------------------------------------------------------------------------------------------

SheetGroup SheetGroup::ofSize(int itemCount, int recipeCount)
{
    SheetGroup group;
    group.items = itemCount;
    group.recipes = recipeCount;
    return group;
}

int SheetGroup::dataType(int item) const
{
    return entryOrLast(dataTypes, item);
}

int SheetGroup::decimalDigits(int item) const
{
    return entryOrLast(decimals, item);
}

QString SheetGroup::storedValue(int item, int recipe) const
{
    if (value)
        return value(item, recipe);
    if (dataType(item) == DATA_TYPE_TEXT)
        return text("t%1_%2").arg(item).arg(recipe);
    return QString::number(item * 1000 + recipe);
}

QString SheetGroup::itemTitle(int item, int language) const
{
    const QString title = text("Item%1").arg(item);
    return language == 0 ? title : title + text(" L%1").arg(language);
}

QString SheetGroup::recipeTitle(int recipe, int language) const
{
    const QString title = text("Recipe%1").arg(recipe);
    return language == 0 ? title : title + text(" L%1").arg(language);
}

recipeTableInfo_t SheetGroup::record() const
{
    recipeTableInfo_t info;
    info.groupIndex = group;
    info.groupName = QVector<QString>(LANGUAGE_COUNT, text("Group%1").arg(group));
    for (int recipe = 0; recipe < recipes; ++recipe)
        info.columnName.append(titles(*this, &SheetGroup::recipeTitle, recipe));
    for (int i = 0; i < items; ++i) {
        recipeItemInfo_t item;
        item.rowIndex = i;
        item.rowName = titles(*this, &SheetGroup::itemTitle, i);
        item.setAddress(text("Internal storage area,0,-1,LW,,%1").arg(1000 + i));
        item.dataType = dataType(i);
        item.totalDigits = 8;
        item.decimalDigits = decimalDigits(i);
        item.min = min;
        item.max = max;
        for (int recipe = 0; recipe < recipes; ++recipe)
            item.values.append(storedValue(i, recipe));
        info.items.append(item);
    }
    return info;
}

// --- properties --------------------------------------------------------------------------------------------------

SheetProperties SheetProperties::usual()
{
    SheetProperties usual;
    usual.set("x", 0).set("y", 0).set("width", 800).set("height", 480);
    usual.set("Recipe_Group_idx", 0).set("rows_num_page", 10).set("column_num_page", 5);
    usual.set("title_hight", 40).set("name_width", 120).set("use_page", 0);
    usual.set("column_line_display", 1).set("row_line_display", 1);
    usual.set("frameLineWidth", 2).set("insideLineWidth", 1).set("frameLineShape", 1).set("insideLineShape", 1);
    usual.set("use_diff_color", 0).set("use_add_del", 1);
    usual.set("frame_background_color", QColor(250, 250, 245)).set("title_background_color", QColor(40, 60, 90));
    usual.set("frame_line_color", QColor(10, 20, 30)).set("inside_line_color", QColor(180, 185, 190));
    usual.set("selected_row_color", QColor(255, 240, 190)).set("selected_cell_color", QColor(255, 200, 80));
    usual.set("odd_color", QColor(235, 240, 245)).set("even_color", QColor(215, 220, 225));
    usual.setLanguage(1, "title_text_color", QColor(240, 241, 242));
    usual.setLanguage(1, "table_text_color", QColor(20, 21, 22));
    usual.setLanguage(1, "title_text_pixelSize", 16).setLanguage(1, "table_text_pixelSize", 16);
    usual.setLanguage(1, "title_font_family", text("DejaVu Sans"));
    usual.setLanguage(1, "table_font_family", text("DejaVu Sans"));
    return usual;
}

SheetProperties& SheetProperties::set(const char* key, const QVariant& value)
{
    item.insert(text(key), value);
    return *this;
}

SheetProperties& SheetProperties::remove(const char* key)
{
    item.remove(text(key));
    return *this;
}

SheetProperties& SheetProperties::setLanguage(int language, const char* key, const QVariant& value)
{
    languages[language].insert(text(key), value);
    return *this;
}

// --- requests ----------------------------------------------------------------------------------------------------

void RecordedRequests::messageBox(const QString& message, int value1, int value2)
{
    messages.push_back(Message{message, value1, value2});
    log.append(text("message %1 %2 %3").arg(message).arg(value1).arg(value2));
}

void RecordedRequests::externalCall(const QString& function, quintptr argument)
{
    calls.push_back(Call{function, argument});
    log.append(text("call %1").arg(function));
}

void RecordedRequests::touchSound(QGraphicsItem* item)
{
    sounds.push_back(item);
    log.append(text("sound"));
}

void RecordedRequests::clear()
{
    messages.clear();
    calls.clear();
    sounds.clear();
    log.clear();
}

QStringList RecordedRequests::messageTexts() const
{
    QStringList texts;
    for (const Message& message : messages)
        texts.append(message.text);
    return texts;
}

QStringList RecordedRequests::functions() const
{
    QStringList names;
    for (const Call& call : calls)
        names.append(call.function);
    return names;
}

// --- the fixture -------------------------------------------------------------------------------------------------

SheetFixture::SheetFixture() : m_hadFile(QFile::exists(recipeFile())), m_root(nullptr)
{
    runtime().setListener(&requests);
}

SheetFixture::~SheetFixture()
{
    settle();
    m_sheets.clear();
    RecipeSheetThread::release();
    RecipeDB::release();
    RecipeSheetItems::s_instance = nullptr; // the item that it points to is gone
    closeProject();
    runtime().setListener(nullptr);
    runtime().setLanguage(1);
    registers().setListener(nullptr);
    registers().clear();
    settle();
    if (!m_hadFile)
        removeRecipeFiles();
}

/// The file, its backup and its journal.
void SheetFixture::removeRecipeFiles()
{
    const QFileInfo file(recipeFile());
    const QStringList names = file.dir().entryList(QStringList(file.fileName() + QLatin1Char('*')), QDir::Files);
    for (const QString& name : names)
        file.dir().remove(name);
}

QString SheetFixture::recipeFile()
{
    return getRcpFilePath(nullptr);
}

void SheetFixture::writeGroup(const SheetGroup& group)
{
    QFile file(recipeFile());
    ASSERT_TRUE(file.open(QIODevice::Append)) << "run under tools/with-project-dir";
    file.close();
    RecipeDB* db = RecipeDB::getInstance();
    const bool wasOpen = db->isOpen();
    if (!wasOpen) {
        ASSERT_EQ(db->OpenRecipeFile(recipeFile()), 0);
    }
    EXPECT_EQ(db->createTable_RecipeConfig(), 0);
    EXPECT_EQ(db->createTable_Group(group.group, group.record()), 0);
    if (!wasOpen)
        db->CloseRecipeFile();
}

void SheetFixture::runSql(const QString& statements)
{
    OutsideSqlite(recipeFile()).exec(statements.toStdString());
}

QStringList SheetFixture::querySql(const QString& statement)
{
    const QString rows = QString::fromStdString(outsideQuery(recipeFile(), statement.toStdString()));
    return rows.isEmpty() ? QStringList() : rows.split(QLatin1Char('\n'));
}

void SheetFixture::openProject()
{
    m_root = new object(text("Project"));
    runtime().setProject(m_root);
}

void SheetFixture::closeProject()
{
    m_root = nullptr;
    runtime().setProject(nullptr);
}

object* SheetFixture::addSheet(const SheetProperties& properties)
{
    if (!m_root)
        openProject();
    object* sheet = m_root->addChild(makeObject(text("RecipeSheet%1").arg(m_root->children().size()), properties.item));
    for (auto language = properties.languages.constBegin(); language != properties.languages.constEnd(); ++language)
        sheet->addChild(makeObject(text("Language%1").arg(language.key()), language.value()));
    return sheet;
}

RecipeSheetItems& SheetFixture::startSheet(const SheetProperties& properties)
{
    object* configuration = addSheet(properties); // opens the project, which the construction wants
    return start(new RecipeSheetItems, configuration);
}

FramedSheet& SheetFixture::startFramedSheet(const QRectF& frame, const SheetProperties& properties)
{
    object* configuration = addSheet(properties);
    return start(new FramedSheet(frame), configuration);
}

RecipeSheetItems& SheetFixture::keep(RecipeSheetItems* item)
{
    m_sheets.emplace_back(item);
    return *item;
}

void SheetFixture::destroySheet(RecipeSheetItems& sheet)
{
    m_sheets.erase(
        std::remove_if(m_sheets.begin(), m_sheets.end(),
                       [&sheet](const std::unique_ptr<RecipeSheetItems>& held) { return held.get() == &sheet; }),
        m_sheets.end());
}

void SheetFixture::settle()
{
    do {
        for (const std::unique_ptr<RecipeSheetItems>& sheet : m_sheets) {
            if (RecipeSheetThread* worker = RecipeSheetProbe(*sheet).worker())
                worker->wait();
        }
        QCoreApplication::processEvents();
    } while (!runtime().isIdle());
}

void SheetFixture::press(RecipeSheetItems& sheet, const QPointF& position)
{
    sendMouse(sheet, QEvent::GraphicsSceneMousePress, position);
}

void SheetFixture::move(RecipeSheetItems& sheet, const QPointF& position)
{
    sendMouse(sheet, QEvent::GraphicsSceneMouseMove, position);
}

void SheetFixture::release(RecipeSheetItems& sheet, const QPointF& position)
{
    sendMouse(sheet, QEvent::GraphicsSceneMouseRelease, position);
}

void SheetFixture::tap(RecipeSheetItems& sheet, const QPointF& position)
{
    press(sheet, position);
    release(sheet, position);
}
