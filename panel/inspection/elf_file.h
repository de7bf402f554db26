// What an ELF file says of itself, read without loading it: no line of its code runs. Format: System V gABI, with the
// GNU symbol versions.
#ifndef ELF_FILE_H
#define ELF_FILE_H

#include <QByteArray>
#include <QByteArrayList>
#include <QSet>
#include <QString>
#include <QVector>

class ElfFile
{
public:
    enum class State
    {
        Unreadable, ///< there is no such file, or it may not be read
        NotElf,
        Damaged, ///< it begins as ELF, but what it promises is not there, or what is needed to look into it
        Whole
    };

    enum class Kind
    {
        SharedLibrary,
        Program,
        ObjectFile,
        Other
    };

    /// A name that the file wants from somewhere else.
    struct Wanted
    {
        QByteArray name;    ///< mangled
        QByteArray version; ///< empty where any version does
    };

    /// Reads the file; what cannot be read is told by `state` and `problem`.
    static ElfFile read(const QString& fileName);

    State state = State::Unreadable;
    QString problem; ///< half a sentence, in any state but Whole

    Kind kind = Kind::Other;
    int bits = 0; ///< 32 or 64
    bool bigEndian = false;
    int machine = 0;        ///< e_machine
    bool hardFloat = false; ///< ARM only: floating-point arguments in registers

    QByteArrayList needed;      ///< libraries, in order
    QByteArrayList searchPaths; ///< RUNPATH or RPATH, as written
    QSet<QByteArray> exported;  ///< names that others can use
    QVector<Wanted> wanted;     ///< names that must come from somewhere; weak ones may stay away and are left out

    /// "x86-64", "ARM with hardware floating point", ...
    QString processor() const;
    /// "64-bit, little-endian".
    QString layout() const;
    /// Whether code of both can run in one process.
    bool runsWith(const ElfFile& other) const;
    /// The Qt that the needed libraries belong to; 0: none.
    int qtMajor() const;
};

#endif
