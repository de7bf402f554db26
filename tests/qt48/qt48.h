// What the plug-in and the runtime use of Qt, as it stood in Qt 4.8: declarations only, never linked. Panels have
// Qt 4.8, desks have not; a check compiles the sources against these to see that nothing newer slips in.
//
// To add something, look it up in the documentation of Qt 4.8 and copy the declaration as it is there, with its
// default arguments. What came later (QStringLiteral, connect() with functions, QJsonDocument, QVector::append of a
// vector, ...) has no place here, nor has what QT_NO_CAST_FROM_ASCII takes away.
#ifndef QT48_H
#define QT48_H

#include <cstddef>
#include <string>

// --- QtGlobal ------------------------------------------------------------------------------------------------------

#define QT_VERSION 0x040807
#define QT_VERSION_STR "4.8.7"
#define QT_VERSION_CHECK(major, minor, patch) ((major << 16) | (minor << 8) | (patch))
#define Q_DECL_EXPORT __attribute__((visibility("default")))
#define Q_DECL_IMPORT __attribute__((visibility("default")))
#define Q_UNUSED(x) (void)x;
#define Q_EMIT
#define Q_SIGNALS protected
#define Q_SLOTS
#define Q_FOREVER for (;;)
#define Q_DISABLE_COPY(Class)                                                                                          \
    Class(const Class&);                                                                                               \
    Class& operator=(const Class&);
#define Q_ASSERT(condition) static_cast<void>(0)
#define Q_DECLARE_METATYPE(Type)

typedef signed char qint8;
typedef unsigned char quint8;
typedef short qint16;
typedef unsigned short quint16;
typedef int qint32;
typedef unsigned int quint32;
typedef long long qint64;
typedef unsigned long long quint64;
typedef qint64 qlonglong;
typedef quint64 qulonglong;
typedef unsigned char uchar;
typedef unsigned short ushort;
typedef unsigned int uint;
typedef unsigned long ulong;
#ifdef QT48_FLOAT
typedef float qreal; // on ARM, unless Qt was configured otherwise
#else
typedef double qreal;
#endif
typedef std::size_t quintptr;
typedef std::ptrdiff_t qptrdiff;

template <typename T> const T& qMin(const T& a, const T& b);
template <typename T> const T& qMax(const T& a, const T& b);
template <typename T> const T& qBound(const T& least, const T& value, const T& most);
template <typename T> T qAbs(const T& value);
int qRound(qreal value);
bool qFuzzyCompare(double a, double b);
bool qFuzzyCompare(float a, float b);
void qDebug(const char* message, ...);
void qWarning(const char* message, ...);
int qstrcmp(const char* a, const char* b);

template <typename Iterator> void qDeleteAll(Iterator begin, Iterator end);
template <typename Container> void qDeleteAll(const Container& container);

namespace Qt {
enum AlignmentFlag
{
    AlignLeft = 0x0001,
    AlignRight = 0x0002,
    AlignHCenter = 0x0004,
    AlignTop = 0x0020,
    AlignBottom = 0x0040,
    AlignVCenter = 0x0080,
    AlignCenter = AlignVCenter | AlignHCenter
};
enum PenStyle
{
    NoPen,
    SolidLine,
    DashLine,
    DotLine,
    DashDotLine,
    DashDotDotLine,
    CustomDashLine
};
enum PenCapStyle
{
    FlatCap = 0x00,
    SquareCap = 0x10,
    RoundCap = 0x20
};
enum PenJoinStyle
{
    MiterJoin = 0x00,
    BevelJoin = 0x40,
    RoundJoin = 0x80
};
enum BrushStyle
{
    NoBrush,
    SolidPattern
};
enum FillRule
{
    OddEvenFill,
    WindingFill
};
enum GlobalColor
{
    color0,
    color1,
    black,
    white,
    darkGray,
    gray,
    lightGray,
    red,
    green,
    blue,
    transparent = 19
};
enum CaseSensitivity
{
    CaseInsensitive,
    CaseSensitive
};
enum ItemSelectionMode
{
    ContainsItemShape
};
} // namespace Qt

// --- texts ---------------------------------------------------------------------------------------------------------

class QByteArray
{
public:
    QByteArray();
    QByteArray(const char* text);
    QByteArray(const char* data, int size);
    QByteArray(int size, char c);
    int size() const;
    int length() const;
    bool isEmpty() const;
    void resize(int size);
    void reserve(int size);
    void clear();
    char* data();
    const char* data() const;
    const char* constData() const;
    operator const char*() const;
    char at(int i) const;
    QByteArray left(int length) const;
    QByteArray mid(int position, int length = -1) const;
    int indexOf(char c, int from = 0) const;
    int lastIndexOf(char c, int from = -1) const;
    int count(char c) const;
    bool startsWith(const char* text) const;
    bool startsWith(char c) const;
    bool endsWith(char c) const;
    void chop(int n);
    QByteArray& remove(int position, int length);
    QByteArray& append(char c);
    QByteArray& append(const char* text);
    QByteArray& append(const char* text, int length);
    QByteArray& append(const QByteArray& bytes);
    QByteArray& operator+=(char c);
    QByteArray& operator+=(const char* text);
    QByteArray& operator+=(const QByteArray& bytes);
    static QByteArray number(int value, int base = 10);
};
bool operator==(const QByteArray& a, const QByteArray& b);
bool operator!=(const QByteArray& a, const QByteArray& b);
const QByteArray operator+(const QByteArray& a, const QByteArray& b);

class QLatin1Char
{
public:
    explicit QLatin1Char(char c);
};

class QChar
{
public:
    QChar();
    QChar(QLatin1Char c);
    QChar(ushort code);
    ushort unicode() const;
    QChar toLower() const;
    QChar toUpper() const;
    bool isDigit() const;
    bool isSpace() const;
    bool isNull() const;
};
bool operator==(QChar a, QChar b);
bool operator!=(QChar a, QChar b);
bool operator<(QChar a, QChar b);

class QLatin1String
{
public:
    explicit QLatin1String(const char* text);
    const char* latin1() const;
};

class QStringList;

class QString
{
public:
    enum SplitBehavior
    {
        KeepEmptyParts,
        SkipEmptyParts
    };
    typedef QChar* iterator;
    typedef const QChar* const_iterator;

    QString();
    QString(const QChar* unicode, int size);
    QString(QChar c);
    QString(int size, QChar c);
    QString(const QLatin1String& latin1);
    QString(const QString& other);
    ~QString();
    QString& operator=(const QString& other);
    QString& operator=(const QLatin1String& latin1);
    QString& operator=(QChar c);

    int size() const;
    int length() const;
    int count() const;
    int count(QChar c, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool isEmpty() const;
    bool isNull() const;
    void clear();
    void reserve(int size);
    void truncate(int position);
    void chop(int n);
    const QChar at(int i) const;
    const QChar operator[](int i) const;
    const QChar* constData() const;
    const QChar* unicode() const;
    const ushort* utf16() const;
    iterator begin();
    const_iterator begin() const;
    iterator end();
    const_iterator end() const;

    QString arg(qlonglong value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(qulonglong value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(long value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(ulong value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(int value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(uint value, int width = 0, int base = 10, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(double value, int width = 0, char format = 'g', int precision = -1,
                const QChar& fill = QLatin1Char(' ')) const;
    QString arg(QChar value, int width = 0, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(const QString& value, int width = 0, const QChar& fill = QLatin1Char(' ')) const;
    QString arg(const QString& a1, const QString& a2) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4, const QString& a5) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4, const QString& a5,
                const QString& a6) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4, const QString& a5,
                const QString& a6, const QString& a7) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4, const QString& a5,
                const QString& a6, const QString& a7, const QString& a8) const;
    QString arg(const QString& a1, const QString& a2, const QString& a3, const QString& a4, const QString& a5,
                const QString& a6, const QString& a7, const QString& a8, const QString& a9) const;

    int indexOf(QChar c, int from = 0, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    int indexOf(const QString& text, int from = 0, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    int indexOf(const QLatin1String& text, int from = 0, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    int lastIndexOf(QChar c, int from = -1, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool contains(QChar c, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool contains(const QString& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool startsWith(const QString& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool startsWith(const QLatin1String& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool startsWith(const QChar& c, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool endsWith(const QString& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool endsWith(const QLatin1String& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    bool endsWith(const QChar& c, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    QString section(QChar separator, int start, int end = -1) const;
    QString left(int length) const;
    QString right(int length) const;
    QString mid(int position, int length = -1) const;
    QString toLower() const;
    QString toUpper() const;
    QString trimmed() const;
    QString simplified() const;

    QString& insert(int i, QChar c);
    QString& insert(int i, const QString& text);
    QString& append(QChar c);
    QString& append(const QString& text);
    QString& append(const QLatin1String& text);
    QString& prepend(const QString& text);
    QString& operator+=(QChar c);
    QString& operator+=(const QString& text);
    QString& operator+=(const QLatin1String& text);
    QString& remove(int i, int length);
    QString& remove(const QString& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QString& remove(QChar c, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QString& replace(QChar before, QChar after, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QString& replace(QChar before, const QLatin1String& after, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QString& replace(QChar before, const QString& after, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QString& replace(const QString& before, const QString& after, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    QStringList split(const QString& separator, SplitBehavior behaviour = KeepEmptyParts,
                      Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    QStringList split(const QChar& separator, SplitBehavior behaviour = KeepEmptyParts,
                      Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;

    QByteArray toAscii() const;
    QByteArray toLatin1() const;
    QByteArray toUtf8() const;
    QByteArray toLocal8Bit() const;
    std::string toStdString() const;
    static QString fromAscii(const char* text, int size = -1);
    static QString fromLatin1(const char* text, int size = -1);
    static QString fromUtf8(const char* text, int size = -1);
    static QString fromLocal8Bit(const char* text, int size = -1);
    static QString fromStdString(const std::string& text);

    short toShort(bool* ok = nullptr, int base = 10) const;
    ushort toUShort(bool* ok = nullptr, int base = 10) const;
    int toInt(bool* ok = nullptr, int base = 10) const;
    uint toUInt(bool* ok = nullptr, int base = 10) const;
    long toLong(bool* ok = nullptr, int base = 10) const;
    qlonglong toLongLong(bool* ok = nullptr, int base = 10) const;
    float toFloat(bool* ok = nullptr) const;
    double toDouble(bool* ok = nullptr) const;
    static QString number(int value, int base = 10);
    static QString number(uint value, int base = 10);
    static QString number(long value, int base = 10);
    static QString number(ulong value, int base = 10);
    static QString number(qlonglong value, int base = 10);
    static QString number(qulonglong value, int base = 10);
    static QString number(double value, char format = 'g', int precision = 6);

    bool operator==(const QLatin1String& other) const;
    bool operator!=(const QLatin1String& other) const;
};
bool operator==(const QString& a, const QString& b);
bool operator!=(const QString& a, const QString& b);
bool operator<(const QString& a, const QString& b);
const QString operator+(const QString& a, const QString& b);
const QString operator+(const QString& a, QChar b);
const QString operator+(QChar a, const QString& b);

// --- containers ----------------------------------------------------------------------------------------------------

template <typename T1, typename T2> struct QPair
{
    T1 first;
    T2 second;

    QPair();
    QPair(const T1& t1, const T2& t2);
};
template <typename T1, typename T2> bool operator==(const QPair<T1, T2>& a, const QPair<T1, T2>& b);
template <typename T1, typename T2> bool operator!=(const QPair<T1, T2>& a, const QPair<T1, T2>& b);
template <typename T1, typename T2> bool operator<(const QPair<T1, T2>& a, const QPair<T1, T2>& b);
template <typename T1, typename T2> QPair<T1, T2> qMakePair(const T1& a, const T2& b);

template <typename T> class QSet;
template <typename T> class QList;

template <typename T> class QVector
{
public:
    typedef T* iterator;
    typedef const T* const_iterator;
    typedef T value_type;

    QVector();
    explicit QVector(int size);
    QVector(int size, const T& value);
    int size() const;
    int count() const;
    int count(const T& value) const;
    bool isEmpty() const;
    int capacity() const;
    void reserve(int size);
    void squeeze();
    void resize(int size);
    void clear();
    T* data();
    const T* data() const;
    const T* constData() const;
    const T& at(int i) const;
    T& operator[](int i);
    const T& operator[](int i) const;
    T value(int i) const;
    T value(int i, const T& fallback) const;
    void append(const T& value);
    void prepend(const T& value);
    void insert(int i, const T& value);
    void insert(int i, int count, const T& value);
    iterator insert(iterator before, const T& value);
    void replace(int i, const T& value);
    void remove(int i);
    void remove(int i, int count);
    iterator erase(iterator begin, iterator end);
    iterator erase(iterator position);
    QVector& fill(const T& value, int size = -1);
    int indexOf(const T& value, int from = 0) const;
    bool contains(const T& value) const;
    QVector mid(int position, int length = -1) const;
    T& first();
    const T& first() const;
    T& last();
    const T& last() const;
    void push_back(const T& value);
    void pop_back();
    iterator begin();
    const_iterator begin() const;
    const_iterator constBegin() const;
    iterator end();
    const_iterator end() const;
    const_iterator constEnd() const;
    void swap(QVector& other);
    QVector& operator+=(const QVector& other);
    QVector& operator+=(const T& value);
    QVector& operator<<(const T& value);
    bool operator==(const QVector& other) const;
    bool operator!=(const QVector& other) const;
    QList<T> toList() const;
    static QVector fromList(const QList<T>& list);
};

template <typename T> class QList
{
public:
    class iterator
    {
    public:
        T& operator*() const;
        T* operator->() const;
        iterator& operator++();
        iterator operator++(int);
        bool operator==(const iterator& other) const;
        bool operator!=(const iterator& other) const;
    };
    class const_iterator
    {
    public:
        const T& operator*() const;
        const T* operator->() const;
        const_iterator& operator++();
        const_iterator operator++(int);
        bool operator==(const const_iterator& other) const;
        bool operator!=(const const_iterator& other) const;
    };
    typedef T value_type;

    QList();
    int size() const;
    int count() const;
    int count(const T& value) const;
    int length() const;
    bool isEmpty() const;
    void reserve(int size);
    void clear();
    const T& at(int i) const;
    T& operator[](int i);
    const T& operator[](int i) const;
    T value(int i) const;
    T value(int i, const T& fallback) const;
    void append(const T& value);
    void append(const QList& other);
    void prepend(const T& value);
    void insert(int i, const T& value);
    void replace(int i, const T& value);
    void removeAt(int i);
    int removeAll(const T& value);
    bool removeOne(const T& value);
    void removeFirst();
    void removeLast();
    T takeAt(int i);
    T takeFirst();
    T takeLast();
    int indexOf(const T& value, int from = 0) const;
    int lastIndexOf(const T& value, int from = -1) const;
    bool contains(const T& value) const;
    QList mid(int position, int length = -1) const;
    T& first();
    const T& first() const;
    T& last();
    const T& last() const;
    void push_back(const T& value);
    iterator begin();
    const_iterator begin() const;
    const_iterator constBegin() const;
    iterator end();
    const_iterator end() const;
    const_iterator constEnd() const;
    void swap(QList& other);
    QList& operator+=(const QList& other);
    QList& operator+=(const T& value);
    QList& operator<<(const T& value);
    QList& operator<<(const QList& other);
    QList operator+(const QList& other) const;
    bool operator==(const QList& other) const;
    bool operator!=(const QList& other) const;
    QVector<T> toVector() const;
    QSet<T> toSet() const;
    static QList fromVector(const QVector<T>& vector);
};

class QStringList : public QList<QString>
{
public:
    QStringList();
    explicit QStringList(const QString& text);
    QStringList(const QStringList& other);
    QStringList(const QList<QString>& other);
    QStringList& operator=(const QStringList& other);
    QString join(const QString& separator) const; // a QChar separates since 5.0
    void sort();
    int removeDuplicates();
    bool contains(const QString& text, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    QStringList operator+(const QStringList& other) const;
    QStringList& operator<<(const QString& text);
    QStringList& operator<<(const QStringList& other);
};

template <typename Key, typename T> class QMap
{
public:
    class const_iterator;
    class iterator
    {
    public:
        const Key& key() const;
        T& value() const;
        T& operator*() const;
        T* operator->() const;
        iterator& operator++();
        iterator operator++(int);
        bool operator==(const iterator& other) const;
        bool operator!=(const iterator& other) const;
        friend class const_iterator;
    };
    class const_iterator
    {
    public:
        const_iterator();
        const_iterator(const iterator& other);
        const Key& key() const;
        const T& value() const;
        const T& operator*() const;
        const T* operator->() const;
        const_iterator& operator++();
        const_iterator operator++(int);
        bool operator==(const const_iterator& other) const;
        bool operator!=(const const_iterator& other) const;
    };

    QMap();
    int size() const;
    int count() const;
    int count(const Key& key) const;
    bool isEmpty() const;
    void clear();
    bool contains(const Key& key) const;
    int remove(const Key& key);
    T take(const Key& key);
    const Key key(const T& value) const;
    const T value(const Key& key) const;
    const T value(const Key& key, const T& fallback) const;
    T& operator[](const Key& key);
    const T operator[](const Key& key) const;
    QList<Key> keys() const;
    QList<T> values() const;
    iterator begin();
    const_iterator begin() const;
    const_iterator constBegin() const;
    iterator end();
    const_iterator end() const;
    const_iterator constEnd() const;
    iterator find(const Key& key);
    const_iterator find(const Key& key) const;
    const_iterator constFind(const Key& key) const; // since 4.1
    iterator lowerBound(const Key& key);
    const_iterator lowerBound(const Key& key) const;
    iterator upperBound(const Key& key);
    const_iterator upperBound(const Key& key) const;
    iterator erase(iterator position);
    iterator insert(const Key& key, const T& value);
    void swap(QMap& other);
    bool operator==(const QMap& other) const;
    bool operator!=(const QMap& other) const;
};

template <typename Key, typename T> class QHash
{
public:
    class iterator
    {
    public:
        const Key& key() const;
        T& value() const;
        T& operator*() const;
        T* operator->() const;
        iterator& operator++();
        bool operator==(const iterator& other) const;
        bool operator!=(const iterator& other) const;
    };
    class const_iterator
    {
    public:
        const_iterator();
        const_iterator(const iterator& other);
        const Key& key() const;
        const T& value() const;
        const T& operator*() const;
        const T* operator->() const;
        const_iterator& operator++();
        bool operator==(const const_iterator& other) const;
        bool operator!=(const const_iterator& other) const;
    };

    QHash();
    int size() const;
    int count() const;
    bool isEmpty() const;
    void clear();
    bool contains(const Key& key) const;
    int remove(const Key& key);
    T take(const Key& key);
    const T value(const Key& key) const;
    const T value(const Key& key, const T& fallback) const;
    T& operator[](const Key& key);
    const T operator[](const Key& key) const;
    QList<Key> keys() const;
    QList<T> values() const;
    iterator begin();
    const_iterator begin() const;
    const_iterator constBegin() const;
    iterator end();
    const_iterator end() const;
    const_iterator constEnd() const;
    iterator find(const Key& key);
    const_iterator find(const Key& key) const;
    const_iterator constFind(const Key& key) const;
    iterator erase(iterator position);
    iterator insert(const Key& key, const T& value);
};

template <typename T> class QSet
{
public:
    class const_iterator
    {
    public:
        const T& operator*() const;
        const_iterator& operator++();
        bool operator==(const const_iterator& other) const;
        bool operator!=(const const_iterator& other) const;
    };

    QSet();
    int size() const;
    int count() const;
    bool isEmpty() const;
    void clear();
    bool contains(const T& value) const;
    bool remove(const T& value);
    const_iterator insert(const T& value);
    const_iterator begin() const;
    const_iterator end() const;
    const_iterator constBegin() const;
    const_iterator constEnd() const;
    QList<T> toList() const;
    QSet& operator<<(const T& value);
};

// --- geometry and drawing ------------------------------------------------------------------------------------------

class QPoint
{
public:
    QPoint();
    QPoint(int x, int y);
    int x() const;
    int y() const;
};

class QPointF
{
public:
    QPointF();
    QPointF(const QPoint& point);
    QPointF(qreal x, qreal y);
    qreal x() const;
    qreal y() const;
    void setX(qreal x);
    void setY(qreal y);
    qreal& rx();
    qreal& ry();
    QPoint toPoint() const;
    bool isNull() const;
};
bool operator==(const QPointF& a, const QPointF& b);
bool operator!=(const QPointF& a, const QPointF& b);
const QPointF operator+(const QPointF& a, const QPointF& b);
const QPointF operator-(const QPointF& a, const QPointF& b);

class QSizeF
{
public:
    QSizeF();
    QSizeF(qreal width, qreal height);
    qreal width() const;
    qreal height() const;
};

class QLineF
{
public:
    QLineF();
    QLineF(const QPointF& p1, const QPointF& p2);
    QLineF(qreal x1, qreal y1, qreal x2, qreal y2);
};

class QRect
{
public:
    QRect();
    QRect(int x, int y, int width, int height);
};

class QRectF
{
public:
    QRectF();
    QRectF(const QPointF& topLeft, const QSizeF& size);
    QRectF(const QPointF& topLeft, const QPointF& bottomRight);
    QRectF(qreal x, qreal y, qreal width, qreal height);
    QRectF(const QRect& rect);
    bool isNull() const;
    bool isEmpty() const;
    bool isValid() const;
    qreal x() const;
    qreal y() const;
    qreal width() const;
    qreal height() const;
    qreal left() const;
    qreal top() const;
    qreal right() const;
    qreal bottom() const;
    QPointF topLeft() const;
    QPointF topRight() const;
    QPointF bottomLeft() const;
    QPointF bottomRight() const;
    QPointF center() const;
    QSizeF size() const;
    void setLeft(qreal left);
    void setTop(qreal top);
    void setRight(qreal right);
    void setBottom(qreal bottom);
    void setX(qreal x);
    void setY(qreal y);
    void setWidth(qreal width);
    void setHeight(qreal height);
    void setRect(qreal x, qreal y, qreal width, qreal height);
    void moveLeft(qreal left);
    void moveTop(qreal top);
    void moveTo(qreal x, qreal y);
    void translate(qreal dx, qreal dy);
    QRectF translated(qreal dx, qreal dy) const;
    void adjust(qreal x1, qreal y1, qreal x2, qreal y2);
    QRectF adjusted(qreal x1, qreal y1, qreal x2, qreal y2) const;
    bool contains(const QPointF& point) const;
    bool contains(qreal x, qreal y) const;
    bool contains(const QRectF& rect) const;
    bool intersects(const QRectF& rect) const;
    QRectF united(const QRectF& other) const;
    QRectF intersected(const QRectF& other) const;
};
bool operator==(const QRectF& a, const QRectF& b);
bool operator!=(const QRectF& a, const QRectF& b);

class QPolygonF : public QVector<QPointF>
{
public:
    QPolygonF();
    explicit QPolygonF(int size);
    QPolygonF(const QVector<QPointF>& points);
    QPolygonF(const QRectF& rect);
};

typedef unsigned int QRgb;

class QColor
{
public:
    QColor();
    QColor(Qt::GlobalColor color);
    QColor(QRgb rgb);
    QColor(int red, int green, int blue, int alpha = 255);
    bool isValid() const;
    QString name() const; // with a format since 5.2
    int red() const;
    int green() const;
    int blue() const;
    int alpha() const;
    void setAlpha(int alpha);
    QRgb rgb() const;
    QRgb rgba() const;
    static QColor fromRgb(QRgb rgb);
    static QColor fromRgba(QRgb rgba);
    static QColor fromRgb(int red, int green, int blue, int alpha = 255);
    bool operator==(const QColor& other) const;
    bool operator!=(const QColor& other) const;
};

class QBrush
{
public:
    QBrush();
    QBrush(Qt::BrushStyle style);
    QBrush(const QColor& color, Qt::BrushStyle style = Qt::SolidPattern);
    QBrush(Qt::GlobalColor color, Qt::BrushStyle style = Qt::SolidPattern);
    const QColor& color() const;
};

class QPen
{
public:
    QPen();
    QPen(Qt::PenStyle style);
    QPen(const QColor& color);
    QPen(const QBrush& brush, qreal width, Qt::PenStyle style = Qt::SolidLine, Qt::PenCapStyle cap = Qt::SquareCap,
         Qt::PenJoinStyle join = Qt::BevelJoin);
    void setStyle(Qt::PenStyle style);
    void setWidth(int width);
    void setWidthF(qreal width);
    void setColor(const QColor& color);
    void setBrush(const QBrush& brush);
    void setCapStyle(Qt::PenCapStyle style);
    void setJoinStyle(Qt::PenJoinStyle style);
};

class QFont
{
public:
    QFont();
    QFont(const QString& family, int pointSize = -1, int weight = -1, bool italic = false);
    void setFamily(const QString& family);
    void setPixelSize(int size);
    void setPointSize(int size);
    void setBold(bool bold);
};

class QPaintDevice
{
public:
    virtual ~QPaintDevice();
};

class QPainter
{
public:
    enum RenderHint
    {
        Antialiasing = 0x01,
        TextAntialiasing = 0x02
    };

    QPainter();
    explicit QPainter(QPaintDevice* device);
    ~QPainter();
    void save();
    void restore();
    void setRenderHint(RenderHint hint, bool on = true);
    void setFont(const QFont& font);
    void setPen(const QColor& color);
    void setPen(const QPen& pen);
    void setPen(Qt::PenStyle style);
    void setBrush(const QBrush& brush);
    void setBrush(Qt::BrushStyle style);
    void setClipRect(const QRectF& rect);
    void drawLine(const QLineF& line);
    void drawLine(const QPointF& p1, const QPointF& p2);
    void drawLines(const QLineF* lines, int count);
    void drawLines(const QVector<QLineF>& lines);
    void drawRect(const QRectF& rect);
    void drawRects(const QVector<QRectF>& rects);
    void drawPolygon(const QPointF* points, int count, Qt::FillRule rule = Qt::OddEvenFill);
    void drawPolygon(const QPolygonF& polygon, Qt::FillRule rule = Qt::OddEvenFill);
    void drawRoundedRect(const QRectF& rect, qreal xRadius, qreal yRadius);
    void drawText(const QPointF& point, const QString& text);
    void drawText(const QRectF& rect, int flags, const QString& text, QRectF* boundingRect = nullptr);
    void fillRect(const QRectF& rect, const QBrush& brush);
    void fillRect(const QRectF& rect, const QColor& color);
};

// --- objects, threads, files ---------------------------------------------------------------------------------------

class QThread;
class QEvent;
class QObject;

#define Q_OBJECT                                                                                                       \
public:                                                                                                                \
    static QString tr(const char* text, const char* comment = nullptr);                                                \
    static QString tr(const char* text, const char* comment, int n);                                                   \
                                                                                                                       \
private:

class QObject
{
public:
    explicit QObject(QObject* parent = nullptr);
    virtual ~QObject();
    virtual bool event(QEvent* event);
    virtual bool eventFilter(QObject* watched, QEvent* event);
    static QString tr(const char* text, const char* comment = nullptr);
    static QString tr(const char* text, const char* comment, int n);
    QThread* thread() const;
    void moveToThread(QThread* thread);
    QObject* parent() const;
    void setParent(QObject* parent);
    void deleteLater();
    static bool connect(const QObject* sender, const char* signal, const QObject* receiver, const char* member);
    static bool disconnect(const QObject* sender, const char* signal, const QObject* receiver, const char* member);

private:
    QObject(const QObject&);
    QObject& operator=(const QObject&);
};

class QEvent
{
public:
    enum Type
    {
        None = 0,
        User = 1000,
        MaxUser = 65535
    };
    explicit QEvent(Type type);
    virtual ~QEvent();
    Type type() const;
    void accept();
    void ignore();
};

class QCoreApplication : public QObject
{
public:
    static QCoreApplication* instance();
    static void postEvent(QObject* receiver, QEvent* event);
    static void processEvents();
};

class QMutex
{
public:
    enum RecursionMode
    {
        NonRecursive,
        Recursive
    };
    explicit QMutex(RecursionMode mode = NonRecursive);
    ~QMutex();
    void lock();
    bool tryLock();
    bool tryLock(int timeout);
    void unlock();

private:
    QMutex(const QMutex&);
    QMutex& operator=(const QMutex&);
};

class QMutexLocker
{
public:
    explicit QMutexLocker(QMutex* mutex);
    ~QMutexLocker();
    void unlock();
    void relock();
    QMutex* mutex() const;

private:
    QMutexLocker(const QMutexLocker&);
    QMutexLocker& operator=(const QMutexLocker&);
};

class QThread : public QObject
{
public:
    enum Priority
    {
        IdlePriority,
        LowestPriority,
        LowPriority,
        NormalPriority,
        HighPriority,
        HighestPriority,
        TimeCriticalPriority,
        InheritPriority
    };
    explicit QThread(QObject* parent = nullptr);
    ~QThread();
    static QThread* currentThread();
    bool isRunning() const;
    bool isFinished() const;
    bool wait(unsigned long milliseconds = ~0UL);
    void start(Priority priority = InheritPriority);

protected:
    virtual void run();
};

class QFlags_OpenMode
{
public:
    QFlags_OpenMode(int mode);
};

class QIODevice : public QObject
{
public:
    enum OpenModeFlag
    {
        NotOpen = 0x0000,
        ReadOnly = 0x0001,
        WriteOnly = 0x0002,
        ReadWrite = ReadOnly | WriteOnly,
        Append = 0x0004,
        Truncate = 0x0008
    };
    typedef QFlags_OpenMode OpenMode;
    virtual bool open(OpenMode mode);
    virtual void close();
    virtual qint64 size() const;
    QByteArray read(qint64 most);
    QByteArray readAll();
    qint64 write(const char* data, qint64 size);
    qint64 write(const QByteArray& bytes);
    QString errorString() const;
};

class QFile : public QIODevice
{
public:
    enum FileError
    {
        NoError = 0,
        ReadError = 1
    };
    QFile();
    explicit QFile(const QString& name);
    ~QFile();
    QString fileName() const;
    FileError error() const;
    bool exists() const;
    static bool exists(const QString& name);
    bool remove();
    static bool remove(const QString& name);
    bool rename(const QString& name);
    static bool rename(const QString& from, const QString& to);
    bool copy(const QString& name);
    static bool copy(const QString& from, const QString& to);
    bool flush();
    int handle() const;
    static QByteArray encodeName(const QString& name);
};

class QFileInfo
{
public:
    QFileInfo();
    QFileInfo(const QString& file);
    ~QFileInfo();
    bool isFile() const;
};

class QMetaType
{
public:
    enum Type
    {
        Void = 0,
        Bool = 1,
        Int = 2,
        Double = 6,
        QString = 10,
        QColor = 67
    };
};

class QVariant
{
public:
    enum Type
    {
        Invalid = 0,
        Bool = 1,
        Int = 2,
        Double = 6,
        String = 10,
        Color = 67
    };
    QVariant();
    QVariant(int value);
    QVariant(bool value);
    QVariant(double value);
    QVariant(const QString& value);
    QVariant(const QColor& value);
    Type type() const;
    int userType() const;
    bool isValid() const;
    bool isNull() const;
    int toInt(bool* ok = nullptr) const;
    bool toBool() const;
    double toDouble(bool* ok = nullptr) const;
    QString toString() const;
    template <typename T> T value() const;
    template <typename T> static QVariant fromValue(const T& value);
    bool operator==(const QVariant& other) const;
    bool operator!=(const QVariant& other) const;
};

// --- widgets and the scene -----------------------------------------------------------------------------------------

class QStyleOptionGraphicsItem;
class QPainterPath;

class QWidget : public QObject, public QPaintDevice
{
public:
    explicit QWidget(QWidget* parent = nullptr);
    void setWindowTitle(const QString& title);
};

class QDialog : public QWidget
{
public:
    explicit QDialog(QWidget* parent = nullptr);
    int exec();
};

class QMessageBox : public QDialog
{
public:
    enum StandardButton
    {
        NoButton = 0x00000000,
        Ok = 0x00000400,
        Yes = 0x00004000,
        No = 0x00010000,
        Cancel = 0x00400000
    };
    class StandardButtons
    {
    public:
        StandardButtons(StandardButton button);
        StandardButtons operator|(StandardButton button) const;
    };
    explicit QMessageBox(QWidget* parent = nullptr);
    void setText(const QString& text);
    void setInformativeText(const QString& text);
    void setStandardButtons(StandardButtons buttons);
    void setDefaultButton(StandardButton button);
    static StandardButton question(QWidget* parent, const QString& title, const QString& text,
                                   StandardButtons buttons = Ok, StandardButton defaultButton = NoButton);
    static StandardButton warning(QWidget* parent, const QString& title, const QString& text,
                                  StandardButtons buttons = Ok, StandardButton defaultButton = NoButton);
    static StandardButton information(QWidget* parent, const QString& title, const QString& text,
                                      StandardButtons buttons = Ok, StandardButton defaultButton = NoButton);
};
inline QMessageBox::StandardButtons operator|(QMessageBox::StandardButton a, QMessageBox::StandardButton b)
{
    return QMessageBox::StandardButtons(a) | b;
}

class QGraphicsSceneMouseEvent : public QEvent
{
public:
    explicit QGraphicsSceneMouseEvent(Type type = None);
    QPointF pos() const;
    QPointF scenePos() const;
};

class QGraphicsItem
{
public:
    enum GraphicsItemFlag
    {
        ItemIsMovable = 0x1,
        ItemIsSelectable = 0x2,
        ItemIsFocusable = 0x4
    };
    explicit QGraphicsItem(QGraphicsItem* parent = nullptr);
    void setFlag(GraphicsItemFlag flag, bool enabled = true);
    virtual ~QGraphicsItem();
    virtual void advance(int phase);
    virtual QRectF boundingRect() const = 0;
    virtual QPainterPath shape() const;
    virtual bool contains(const QPointF& point) const;
    virtual void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget = nullptr) = 0;
    virtual int type() const;
    QPointF pos() const;
    void setPos(const QPointF& position);
    void setPos(qreal x, qreal y);
    QVariant data(int key) const;
    void setData(int key, const QVariant& value);
    void update(const QRectF& rect = QRectF());
    void update(qreal x, qreal y, qreal width, qreal height);
    void setAcceptedMouseButtons(int buttons);

protected:
    virtual void mousePressEvent(QGraphicsSceneMouseEvent* event);
    virtual void mouseMoveEvent(QGraphicsSceneMouseEvent* event);
    virtual void mouseReleaseEvent(QGraphicsSceneMouseEvent* event);
    virtual void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event);
    void prepareGeometryChange();

private:
    QGraphicsItem(const QGraphicsItem&);
    QGraphicsItem& operator=(const QGraphicsItem&);
};

#endif
