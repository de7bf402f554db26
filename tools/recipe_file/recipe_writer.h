// Writes new recipe files through the system's own storage layer, so that they are what a panel writes.
#ifndef RECIPE_WRITER_H
#define RECIPE_WRITER_H

#include "recipe_records.h"

#include <string>

class Generator;

/// Opens an existing (empty) file in the storage layer for its lifetime and creates the configuration table.
class RecipeWriter
{
public:
    /// `shownPath` is the name that failures give.
    RecipeWriter(const std::string& path, const std::string& shownPath);
    ~RecipeWriter();
    RecipeWriter(const RecipeWriter&) = delete;
    RecipeWriter& operator=(const RecipeWriter&) = delete;

    /// One group in one transaction.
    void writeGroup(const recipeTableInfo_t& group);

    /// One group of generated values in one transaction, a recipe at a time: memory does not grow with recipes.
    void writeGenerated(const Generator& generator, int groupIndex);

    /// Looks at the closed file with another connection: whatever is missing (a full disk, say) is a ToolError.
    static void verify(const std::string& path, const std::string& shownPath);

private:
    void require(int status, const std::string& step) const;
    std::string m_shownPath;
};

#endif
