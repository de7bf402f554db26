// RecipeDB from several threads: one instance, and single operations that do not disturb each other.
#include "storage_fixture.h"

#include <atomic>
#include <set>
#include <thread>

namespace {

class RecipeDBThreads : public StorageTest
{
protected:
    ~RecipeDBThreads() override { RecipeDB::release(); }

    /// Runs both until both are through.
    template <typename First, typename Second> static void together(First first, Second second)
    {
        std::thread other(second);
        first();
        other.join();
    }
};

TEST_F(RecipeDBThreads, GetTheSameInstanceWhenAllAskAtOnce)
{
    for (int round = 0; round < 50; ++round) {
        RecipeDB::release();
        const int count = 8;
        std::atomic<int> waiting(count);
        std::vector<RecipeDB*> got(count);
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i)
            threads.emplace_back([&waiting, &got, i] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                got[static_cast<std::size_t>(i)] = RecipeDB::getInstance();
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(std::set<RecipeDB*>(got.begin(), got.end()).size(), 1u);
        EXPECT_NE(got.front(), nullptr);
    }
}

TEST_F(RecipeDBThreads, DoNotDisturbEachOthersSingleOperations)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(3, 4)), 0);
    ASSERT_EQ(db->createTable_Group(1, recipeGroup(2, 2)), 0);
    const auto reader = [this] {
        for (int i = 0; i < 200; ++i) {
            recipeTableInfo_t info;
            ASSERT_EQ(db->loadTable_Group(1, info), 0);
            ASSERT_EQ(info.items.size(), 2);
            ASSERT_EQ(info.items.at(1).values.size(), 2);
            ASSERT_EQ(info.columnName.at(1), recipeGroup(2, 2).columnName.at(1));
            ASSERT_EQ(db->getTable_Data_Column(0), 4);
        }
    };
    const auto writer = [this] {
        for (int i = 0; i < 200; ++i) {
            ASSERT_EQ(db->updateTable_Data_Column_One(0, 2, 1, QString::number(i)), 0);
            QList<QString> values;
            ASSERT_EQ(db->findTable_Data_Index(0, 2, values), 0);
            ASSERT_EQ(values.at(1), QString::number(i) + text(".0"));
        }
    };
    together(reader, writer);
    EXPECT_EQ(outside("SELECT D1 FROM data_0 WHERE column = 2;"), "199.0");
}

TEST_F(RecipeDBThreads, RewriteOneGroupWhileAnotherIsEdited)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(3, 4)), 0);
    ASSERT_EQ(db->createTable_Group(1, recipeGroup(2, 2)), 0);
    const auto rewriter = [this] {
        for (int i = 1; i <= 30; ++i)
            ASSERT_EQ(db->createTable_Group(0, recipeGroup(3, i)), 0);
    };
    const auto editor = [this] {
        for (int i = 0; i < 100; ++i)
            ASSERT_EQ(db->updateTable_Data_Column_One(1, 1, 1, QString::number(i)), 0);
    };
    together(rewriter, editor);
    EXPECT_EQ(outside("SELECT count(*) FROM data_0;"), "30");
    EXPECT_EQ(outside("SELECT D1 FROM data_1 WHERE column = 1;"), "99.0");
    EXPECT_EQ(outside("PRAGMA integrity_check;"), "ok");
}

TEST_F(RecipeDBThreads, MayCloseAndOpenTheFileUnderEachOther)
{
    openEmpty();
    ASSERT_EQ(db->createTable_Group(0, recipeGroup(2, 2)), 0);
    SqliteErrors errors(SqliteErrors::Allowed); // a rewrite whose file was exchanged has nothing to commit
    const auto rewriter = [this] {
        for (int i = 0; i < 60; ++i)
            db->createTable_Group(0, recipeGroup(2, 2 + i % 3));
    };
    const auto opener = [this] {
        for (int i = 0; i < 200; ++i) {
            ASSERT_EQ(db->OpenRecipeFile(path), 0);
            db->getTable_Data_Column(0);
        }
    };
    together(rewriter, opener);
    EXPECT_EQ(outside("PRAGMA integrity_check;"), "ok");
    EXPECT_EQ(outside("SELECT column = (SELECT count(*) FROM data_0) FROM recipe_config WHERE group_index = 0;"), "1");
    EXPECT_EQ(outside("SELECT 1 + column + row FROM recipe_config;"),
              outside("SELECT count(*) FROM lang_0;")); // the group is whole
    EXPECT_EQ(db->createTable_Group(0, recipeGroup(2, 9)), 0);
}

} // namespace
