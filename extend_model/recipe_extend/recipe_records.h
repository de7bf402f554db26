// The records that carry one recipe group between the recipe file, the sheet, the worker and the runtime.
//
// A group is a table: rows are recipe items (one register address each), columns are recipes. All records are
// values; copies share nothing that can change. They have no lock: a record belongs to the thread that uses it.
#ifndef RECIPE_RECORDS_H
#define RECIPE_RECORDS_H

#include <QPair>
#include <QRectF>
#include <QString>
#include <QVector>
#include <QtGlobal>

/// Titles exist in eight languages, numbered 0 to 7.
enum
{
    LANGUAGE_COUNT = 8
};

/// Data type of an item that is text; every other type is numeric.
enum
{
    DATA_TYPE_TEXT = 7
};

/// What a title belongs to; the number is the "type" column of a language table.
enum DB_LANGUAGE_INDEX
{
    DB_LANGUAGE_GROUP = 0, ///< the group's own title, string index 0
    DB_LANGUAGE_ROW = 1,   ///< an item's title, string index = row index
    DB_LANGUAGE_COLUMN = 2 ///< a recipe's title, string index = column index
};

/// Eight empty titles, one per language.
QVector<QString> emptyTitles();

/// One register address as it is written in a recipe file: six fields joined with ",". The text fields must not
/// hold a comma; nothing is quoted.
struct RECIPE_ADDRESS
{
    QString devName; ///< device or storage area, e.g. "Internal storage area"
    qint32 addrPart1;
    qint32 addrPart2; ///< link number; the range loader replaces it by what the runtime knows
    QString regType;  ///< register area, e.g. "LW"
    QString addrPart4;
    qint32 addrPart5;

    RECIPE_ADDRESS();

    /// Reads the six-field form. A text of any other number of fields leaves the record as it was; an integer
    /// field that is no number becomes 0.
    void fromString(const QString& text);

    /// The six-field form.
    QString toString() const;
};

/// Where a register lies, without the texts of variable length: fields 1, 2, 3 and 5 of an address. Fixed size.
struct recipeRegAddr_t
{
    enum
    {
        REG_TYPE_SIZE = 32
    };

    qint32 addrPart1;
    qint32 addrPart2;
    qint32 addrPart5;
    qint32 reserved;             ///< always 0
    char regType[REG_TYPE_SIZE]; ///< UTF-8; a name of 32 bytes or more is cut and has no terminating zero
    quint8 flag;                 ///< always 0

    recipeRegAddr_t();
    explicit recipeRegAddr_t(const RECIPE_ADDRESS& address);
    /// Copies the name up to its first zero byte and fills the rest with zeros; `reserved` and the rest as it is.
    recipeRegAddr_t(const recipeRegAddr_t& other);
    recipeRegAddr_t& operator=(const recipeRegAddr_t& other) = default;

    /// The name up to its terminating zero, at most 32 bytes.
    QString regTypeText() const;
};

/// Puts an address together again from the parts that records keep.
RECIPE_ADDRESS makeAddress(const QString& devName, const recipeRegAddr_t& regAddr, const QString& addrPart4);

/// One recipe item: a row of the group table.
struct recipeItemInfo_t
{
    qint32 rowIndex;
    QVector<QString> rowName; ///< title per language, 8 entries
    QString devName;          ///< field 0 of the item's address
    recipeRegAddr_t regAddr;  ///< fields 1, 2, 3 and 5
    QString addrPart4;        ///< field 4
    qint32 wordOffset;        ///< in 16-bit words within one recipe's image; means something after range loading only
    qint32 dataType;          ///< 7: text, all others numeric
    qint32 wordCount;         ///< in 16-bit words; set by range loading
    qint32 totalDigits;       ///< digits shown; for text the length in words too
    qint32 decimalDigits;     ///< digits after the decimal point; below 1: shown as an integer
    QVector<QString> values;  ///< cell texts, one per loaded recipe, in column order
    double min;               ///< lower input limit
    double max;               ///< upper input limit

    recipeItemInfo_t();

    /// Resets index, titles, values, limits and word count; address, type and digits stay.
    void clear();

    /// Takes the address in (`devName`, `regAddr`, `addrPart4`) unless the text does not have six fields.
    void setAddress(const QString& text);
    QString addressText() const;
};

/// One recipe group: `items.size()` rows, `columnName.size()` columns.
struct recipeTableInfo_t
{
    qint32 groupIndex;                     ///< the N in the group's table names
    QVector<QString> groupName;            ///< title per language, 8 entries
    QVector<QVector<QString> > columnName; ///< per recipe its title per language, 8 entries each
    QVector<recipeItemInfo_t> items;       ///< in row order
    qint32 notify;                         ///< 0: the group has no notification address
    recipeRegAddr_t notifyRegAddr;         ///< fields 1, 2, 3 and 5 of the notification address
    QString notifyAddrPart4;               ///< field 4
    QString notifyDevName;                 ///< field 0

    recipeTableInfo_t();

    /// Resets for reuse. `notifyRegAddr` and `notifyAddrPart4` stay on purpose: whoever reloads a group
    /// overwrites them.
    void clear();

    void setNotifyAddress(const QString& text);
    /// The notification address, or the empty string when `notify` is 0.
    QString notifyAddressText() const;
};

/// Summary of one configuration row. Field 4 of the notification address is not kept, on purpose.
struct recipeGroupsInfo_t
{
    qint32 groupIndex;
    QVector<QString> groupName;
    qint32 row;    ///< number of items
    qint32 column; ///< number of recipes
    qint32 notify;
    recipeRegAddr_t notifyRegAddr;
    QString notifyDevName;

    recipeGroupsInfo_t();
};

/// Column first, row second; ordered by column, then by row. Key of cache blocks and of visible cells.
typedef QPair<int, int> idx_t;

/// One visible cell: its rectangle in item coordinates (pixels) and its text.
struct cell_info_t
{
    QRectF rect;
    QString text;
};

#endif
