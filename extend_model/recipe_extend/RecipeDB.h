// The gateway to the open recipe file, one per process.
//
// File format: one table recipe_config with a row per group, and per group g the tables addr_<g> (a row per item),
// data_<g> (a row per recipe, a column D<i> per item) and lang_<g> (titles in eight languages).
//
// Threads: every operation may be called from any thread and holds the instance's mutex for its own statements. A
// sequence of operations is not protected as a whole: between two of them another thread may run statements on the
// same connection, inside the same transaction.
//
// Status: 0 is success; 1 means that no file is open, that a precondition does not hold, that a step failed or that the
// disk, a lock or damage cut a read short; anything else comes from CSqliteInter. Counts are -1 on failure. Nothing
// throws, nothing is logged here.
#ifndef RECIPE_DB_H
#define RECIPE_DB_H

#include "recipe_records.h"

#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>

class CSqliteInter;
class SqlText;

class RecipeDB
{
public:
    /// The one instance, created on first use, owned by the class.
    static RecipeDB* getInstance();
    /// Destroys the instance and so closes its file. Only while nobody uses it.
    static void release();

    /// Opens an existing file in place of the one that is open. 1, with no file open, where the path is empty, names
    /// no file or cannot be opened; a file is never created.
    int OpenRecipeFile(const QString& path);
    /// Always 0.
    int CloseRecipeFile();

    bool isOpen();

    // For callers that group several writes. The results of the calls below are not passed on: 0, or 1 while no
    // file is open.
    int execBegin();
    int execCommit();
    int execRollBack();

    /// Begins a transaction of the caller's own; 1, with none begun, while another is open.
    int beginEdits();
    /// Ends it. 1: it could not be committed, or SQLite had ended it; nothing of it is in the file and none is open.
    int commitEdits();

    // --- the configuration table ---------------------------------------------------------------------------------
    int createTable_RecipeConfig();
    /// 1, with nothing written, for a group without recipes.
    int insertTable_Config(int group, const recipeTableInfo_t& info);
    int TruncateRecipeConfig();
    /// The largest group index; `maxId` is what SQLite makes of NULL (0) when there is no group.
    int findMaxID_Config(int& maxId);
    /// Counts, recipes' titles (empty, 8 each) and the notification address. Without a row `info` keeps what it had
    /// and the result is 0. Counts that make no sense are replaced by what the tables hold.
    int findRecipeConfig(int group, recipeTableInfo_t& info);
    /// Appends one summary per group.
    int findAllRecipeConfigs(QList<recipeGroupsInfo_t>& list);

    // --- items ---------------------------------------------------------------------------------------------------
    int createTable_Addr(int group);
    int insertTable_Addr(int group, int rowIndex, const recipeItemInfo_t& item);
    /// Number of items, -1 on failure.
    int getTable_Addr_Row(int group);
    /// All items into `info.items`, in row order, by order of arrival.
    int findTable_Addr_All(int group, recipeTableInfo_t& info);
    /// Rows [first, first + count) into `items`, which is resized to `count`.
    int findTable_Addr_Partial(int group, int first, int count, QVector<recipeItemInfo_t>& items);
    /// `item` is left as it is where there is no such row.
    int findTable_Addr_Index(int group, int rowIndex, recipeItemInfo_t& item);

    // --- recipes -------------------------------------------------------------------------------------------------
    int createTable_Data(int group, const QVector<recipeItemInfo_t>& items);
    /// One row per recipe of `info.columnName`; all are tried, the result is the OR of all results.
    int insertTable_Data(int group, const recipeTableInfo_t& info);
    int insertTable_Data_One(int group, int column, const QStringList& values);
    /// Number of recipes, -1 on failure.
    int getTable_Data_Column(int group);
    /// Sets one cell. The value goes in without escaping, wanted: a quote in it makes the call fail.
    int updateTable_Data_Column_One(int group, int column, int itemIndex, const QString& value);
    /// Sets the first `values.size()` cells of one recipe; 1 for an empty vector.
    int updateTable_Data_Column(int group, int column, const QVector<QString>& values);
    /// All values into the `values` of `info.items`.
    int findTable_Data_All(int group, recipeTableInfo_t& info);
    /// Appends the values of one recipe to `out`.
    int findTable_Data_Index(int group, int column, QList<QString>& out);
    /// Appends one list of values per recipe of [first, first + count).
    int findTable_Data_Start_Length(int group, int first, int count, QList<QList<QString> >& out);
    /// The same for the items [firstRow, firstRow + rowCount) only.
    int findTable_Data_Partial(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                               QList<QList<QString> >& out);

    // --- titles --------------------------------------------------------------------------------------------------
    int createTable_Language(int group);
    /// 1, with nothing written, for fewer than 8 texts.
    int insertTable_Language(int group, DB_LANGUAGE_INDEX type, int strIndex, const QVector<QString>& texts);
    int updateTable_Language_Index(int group, DB_LANGUAGE_INDEX type, int strIndex, const QVector<QString>& texts);
    /// One title in 8 languages; of several rows the last wins.
    int findTable_Language(int group, DB_LANGUAGE_INDEX type, int strIndex, QVector<QString>& texts);
    /// All titles of one type by order of arrival into the entries that `out` has.
    int findTable_Language_All(int group, DB_LANGUAGE_INDEX type, QVector<QVector<QString> >& out);
    /// All row titles into the `rowName` of the items that are there.
    int findTable_Language_AllRow(int group, QVector<recipeItemInfo_t>& items);
    /// Titles [first, first + count) by order of arrival; `out` is resized to `count`.
    int findTable_Language_Partial(int group, DB_LANGUAGE_INDEX type, int first, int count,
                                   QVector<QVector<QString> >& out);

    // --- whole groups --------------------------------------------------------------------------------------------
    /// Writes the whole group in one transaction: on any failure the group is as it was before.
    int createTable_Group(int group, const recipeTableInfo_t& info);
    int deleteTable_Group(int group);
    /// Loads the whole group; on failure `info` is cleared and the result is 1.
    int loadTable_Group(int group, recipeTableInfo_t& info);
    /// Loads a range of recipes and items, values brought to the item's decimal digits; on failure `info` is cleared
    /// and the result is 1. `columnName` and `items` have the asked size, whatever is there.
    int loadTable_Group_Partial(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                                recipeTableInfo_t& info);

private:
    RecipeDB();
    ~RecipeDB();
    RecipeDB(const RecipeDB&);
    RecipeDB& operator=(const RecipeDB&);

    // These take the mutex.
    int exec(const SqlText& sql);
    int execUnescaped(const SqlText& sql, const QString& text);
    int count(const SqlText& sql);
    template <typename Reader> int query(const SqlText& sql, Reader reader, bool* cutShort = nullptr);

    // These are called under the mutex, with a file open.
    int execLocked(const SqlText& sql);
    void syncFully();

    int beginGroup();
    int writeGroup(int group, const recipeTableInfo_t& info);
    int commitGroup();
    void rollBackGroup();

    int believedCount(int claimed, const SqlText& countSql);
    bool titlesHaveIndex(int group);
    int readConfig(int group, recipeTableInfo_t& info, int& itemCount, int& recipeCount, bool& found);
    int readDisplayedValues(int group, int firstColumn, int columnCount, int firstRow, int rowCount,
                            QVector<recipeItemInfo_t>& items);
    bool readTitles(int group, int firstRow, int firstColumn, recipeTableInfo_t& info);
    bool readTitlesOneByOne(int group, int firstRow, int firstColumn, recipeTableInfo_t& info);
    int readTitle(int group, DB_LANGUAGE_INDEX type, int strIndex, QVector<QString>& texts, bool* cutShort);

    friend class RecipeDBProbe; // tests

    static std::atomic<RecipeDB*> instance;
    static QMutex mutex; // guards creation and release of the instance

    QMutex m_lock;          // guards the rest
    CSqliteInter* m_sqlite; // owned; null while no file is open
    bool m_rewriting;       // a group is being written: nothing may be written outside its transaction
    bool m_syncsLess;       // the connection could not yet be told how writes are handed to the disk
};

#endif
