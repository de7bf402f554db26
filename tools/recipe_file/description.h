// Recipe groups as JSON: what `create` reads and what a JSON export holds. The format is described in
// docs/recipe-file.md.
#ifndef DESCRIPTION_H
#define DESCRIPTION_H

#include "json_document.h"
#include "recipe_records.h"

#include <string>
#include <vector>

struct Description
{
    std::vector<recipeTableInfo_t> groups;
    std::vector<std::string> warnings; ///< a sentence each; the description is good nevertheless
};

/// Reads a whole description. A ToolError names every fault in it at once.
Description readDescription(const std::string& text, const std::string& fileName);

/// One group in the form that readDescription takes.
Json describeGroup(const recipeTableInfo_t& group);

/// One text where all languages have the same, else a list.
Json titlesToJson(const QVector<QString>& titles);

/// The same title in all eight languages.
QVector<QString> sameTitles(const QString& title);

#endif
