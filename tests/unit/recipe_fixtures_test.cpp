// The helpers that build recipe files for tests.
#include "recipe_fixtures.h"

#include <gtest/gtest.h>

namespace {

TEST(RecipeFixtures, WriteAFileThatReadsBackFromOutside)
{
    cleanProjectDirectory();
    writeRecipeFile(recipeGroup(3, 2), 7);
    EXPECT_EQ(outsideQuery(recipeFilePath(), "SELECT * FROM recipe_config;"), "7|3|2|0|");
    EXPECT_EQ(outsideQuery(recipeFilePath(), "SELECT * FROM data_7;"), "0|0.0|1.0|2.0\n1|10000.0|10001.0|10002.0");
    EXPECT_EQ(outsideQuery(recipeFilePath(), "SELECT L3 FROM lang_7;"),
              "Group L3\nItem 0 L3\nItem 1 L3\nItem 2 L3\nRecipe 0 L3\nRecipe 1 L3");
}

} // namespace
