#include "recipe_writer.h"

#include "RecipeDB.h"
#include "console.h"
#include "generator.h"
#include "outcome.h"
#include "survey.h"

namespace {

RecipeDB& database()
{
    return *RecipeDB::getInstance();
}

} // namespace

RecipeWriter::RecipeWriter(const std::string& path, const std::string& shownPath) : m_shownPath(shownPath)
{
    require(database().OpenRecipeFile(QString::fromStdString(path)), "open it");
    require(database().createTable_RecipeConfig(), "create the configuration table");
}

RecipeWriter::~RecipeWriter()
{
    RecipeDB::release();
}

void RecipeWriter::require(int status, const std::string& step) const
{
    if (status != 0)
        throw ToolError("Cannot write " + m_shownPath + ": failed to " + step + '.');
}

void RecipeWriter::writeGroup(const recipeTableInfo_t& group)
{
    require(database().createTable_Group(group.groupIndex, group), "write group " + std::to_string(group.groupIndex));
}

void RecipeWriter::writeGenerated(const Generator& generator, int groupIndex)
{
    const recipeTableInfo_t info = generator.group(groupIndex);
    const int items = static_cast<int>(info.items.size());
    const int recipes = static_cast<int>(info.columnName.size());
    RecipeDB& db = database();
    require(db.execBegin(), "begin");
    require(db.insertTable_Config(groupIndex, info), "write the configuration");
    require(db.createTable_Addr(groupIndex) | db.createTable_Language(groupIndex)
                | db.createTable_Data(groupIndex, info.items),
            "create the tables");
    require(db.insertTable_Language(groupIndex, DB_LANGUAGE_GROUP, 0, info.groupName), "write the title");
    for (int i = 0; i < items; ++i) {
        require(db.insertTable_Addr(groupIndex, i, info.items.at(i)), "write item " + std::to_string(i));
        require(db.insertTable_Language(groupIndex, DB_LANGUAGE_ROW, i, info.items.at(i).rowName), "write titles");
    }
    Progress progress("recipes", recipes);
    for (int c = 0; c < recipes; ++c) {
        require(db.insertTable_Language(groupIndex, DB_LANGUAGE_COLUMN, c, info.columnName.at(c)), "write titles");
        QStringList values;
        values.reserve(items);
        for (int i = 0; i < items; ++i)
            values.append(generator.value(i, c));
        require(db.insertTable_Data_One(groupIndex, c, values), "write recipe " + std::to_string(c));
        progress.reach(c + 1);
    }
    require(db.execCommit(), "commit"); // its own result is not passed on: verify() looks
}

void RecipeWriter::verify(const std::string& path, const std::string& shownPath)
{
    Database written(path, Database::ReadOnly, 0);
    for (const GroupSurvey& group : surveyFile(written, 1)) {
        if (!group.faults.empty())
            throw ToolError("Cannot write " + shownPath + ": " + group.faults.front());
    }
}
