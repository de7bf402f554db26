// The register image of one recipe, and how a value becomes register words. This is the only place of the stand-in
// that knows it; a panel's own runtime has its own.
//
// | data type | holds                     | words     | written as                                                |
// |-----------|---------------------------|-----------|-----------------------------------------------------------|
// | 0         | 0 to 65535                | 1         | unsigned                                                  |
// | 1         | 0 to 4294967295           | 2         | unsigned                                                  |
// | 2         | -32768 to 32767           | 1         | two's complement                                          |
// | 3         | -2147483648 to 2147483647 | 2         | two's complement                                          |
// | 4         | 0 to 9999                 | 1         | BCD: one decimal digit in each four bits                  |
// | 5         | 0 to 99999999             | 2         | BCD                                                       |
// | 6         | single precision          | 2         | IEEE 754, the nearest to the text                         |
// | 7         | text                      | wordCount | UTF-8, two bytes per word, the first one low; then zeros  |
//
// Of two words the low one comes first. Types 0 to 5 hold the value without its decimal point: 3.75 of an item with
// two decimals is 375. Numbers are texts with a decimal point, whatever the locale; "1e5", "inf" and blanks are none.
//
// Values, no lock: an image belongs to the thread that uses it.
#ifndef REGISTER_IMAGE_H
#define REGISTER_IMAGE_H

#include <QString>
#include <QVector>

enum RegisterDataType
{
    REGISTER_UNSIGNED_16 = 0,
    REGISTER_UNSIGNED_32 = 1,
    REGISTER_SIGNED_16 = 2,
    REGISTER_SIGNED_32 = 3,
    REGISTER_BCD_16 = 4,
    REGISTER_BCD_32 = 5,
    REGISTER_FLOAT = 6,
    REGISTER_TEXT = 7
};

/// One value and its place in the image.
struct RegisterValue
{
    int dataType;
    int decimals;   ///< digits after the point; below 1: none
    int wordOffset; ///< in words from the start of the image
    int wordCount;  ///< in words; of numbers what their type takes
    QString text;

    RegisterValue() : dataType(REGISTER_UNSIGNED_16), decimals(0), wordOffset(0), wordCount(0) {}
};

class RegisterImage
{
public:
    static const int MOST_WORDS = 65536; ///< as many as there are registers of one kind

    enum Result
    {
        PLACED,
        UNKNOWN_TYPE,
        WRONG_WORD_COUNT, ///< not what the type takes; for a text below 1
        OUTSIDE,          ///< the place begins before the image or ends beyond `MOST_WORDS`
        NOT_A_NUMBER,
        TOO_MANY_DECIMALS, ///< digits would be lost
        OUT_OF_RANGE,
        TEXT_TOO_LONG ///< more bytes of UTF-8 than two per word
    };

    /// Encodes the value into its place; the image grows as far as it must, with zeros. Whatever is not `PLACED`
    /// leaves the image as it was.
    Result place(const RegisterValue& value);

    const QVector<quint16>& words() const { return m_words; }

private:
    QVector<quint16> m_words;
};

#endif
