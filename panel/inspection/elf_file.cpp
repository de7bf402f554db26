// Reading ELF through libelf, which checks every offset against the file.
#include "elf_file.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <gelf.h>
#include <unistd.h>

#include <climits>
#include <memory>

namespace {

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

struct EndElf
{
    void operator()(Elf* elf) const { elf_end(elf); }
};

/// The tables of one open file.
class Reader
{
public:
    Reader(Elf* elf, qint64 size, ElfFile& file) : m_elf(elf), m_size(size), m_file(file) {}

    /// False: the file promises what it does not hold.
    bool read()
    {
        if (!readHeader() || !hasItsSegments())
            return false;
        readVersions();
        for (Elf_Scn* section = nullptr; (section = elf_nextscn(m_elf, section));) {
            GElf_Shdr header;
            if (!gelf_getshdr(section, &header))
                return false;
            if (header.sh_type != SHT_DYNAMIC && header.sh_type != SHT_DYNSYM)
                continue;
            Elf_Data* const data = elf_getdata(section, nullptr);
            if (!data)
                return false;
            if (header.sh_type == SHT_DYNAMIC)
                readDynamic(data, header);
            else
                readSymbols(data, header);
        }
        return true;
    }

    /// Whether there is a table of names for the loader, as every library has that can be linked with.
    bool hasNames() const { return m_hasNames; }

private:
    bool readHeader()
    {
        GElf_Ehdr header;
        if (!gelf_getehdr(m_elf, &header))
            return false;
        m_file.bits = header.e_ident[EI_CLASS] == ELFCLASS64 ? 64 : 32;
        m_file.bigEndian = header.e_ident[EI_DATA] == ELFDATA2MSB;
        m_file.machine = header.e_machine;
        m_file.hardFloat = header.e_machine == EM_ARM && (header.e_flags & EF_ARM_ABI_FLOAT_HARD);
        m_file.kind = header.e_type == ET_DYN    ? ElfFile::Kind::SharedLibrary
                      : header.e_type == ET_EXEC ? ElfFile::Kind::Program
                      : header.e_type == ET_REL  ? ElfFile::Kind::ObjectFile
                                                 : ElfFile::Kind::Other;
        return true;
    }

    /// A file that was cut on its way lacks its last segments, or the section table behind them.
    bool hasItsSegments() const
    {
        GElf_Ehdr header;
        size_t segments = 0;
        if (!gelf_getehdr(m_elf, &header) || elf_getphdrnum(m_elf, &segments) != 0)
            return false;
        for (size_t i = 0; i < segments; ++i) {
            GElf_Phdr segment;
            if (!gelf_getphdr(m_elf, static_cast<int>(i), &segment) || !fits(segment.p_offset, segment.p_filesz))
                return false;
        }
        size_t sections = 0;
        if (elf_getshdrnum(m_elf, &sections) != 0 || !fits(header.e_shoff, sections * header.e_shentsize))
            return false;
        return sections > 0 || header.e_shoff == 0; // of a table that was cut in its middle libelf counts none
    }

    bool fits(quint64 offset, quint64 length) const
    {
        const quint64 size = static_cast<quint64>(m_size);
        return offset <= size && length <= size - offset;
    }

    /// Which version each index of the version table stands for.
    void readVersions()
    {
        for (Elf_Scn* section = nullptr; (section = elf_nextscn(m_elf, section));) {
            GElf_Shdr header;
            if (!gelf_getshdr(section, &header))
                return;
            if (header.sh_type == SHT_GNU_versym)
                m_versionOf = elf_getdata(section, nullptr);
            else if (header.sh_type == SHT_GNU_verneed)
                readNeededVersions(elf_getdata(section, nullptr), header.sh_link);
        }
    }

    void readNeededVersions(Elf_Data* data, size_t strings)
    {
        GElf_Verneed need;
        for (int offset = 0; data && gelf_getverneed(data, offset, &need);) {
            GElf_Vernaux version;
            for (int at = offset + static_cast<int>(need.vn_aux); gelf_getvernaux(data, at, &version);) {
                m_versions.insert(version.vna_other & 0x7fff, string(strings, version.vna_name));
                if (version.vna_next == 0 || version.vna_next > INT_MAX / 2)
                    break;
                at += static_cast<int>(version.vna_next);
            }
            if (need.vn_next == 0 || need.vn_next > INT_MAX / 2)
                break;
            offset += static_cast<int>(need.vn_next);
        }
    }

    void readDynamic(Elf_Data* data, const GElf_Shdr& header)
    {
        GElf_Dyn entry;
        for (int i = 0; gelf_getdyn(data, i, &entry) && entry.d_tag != DT_NULL; ++i) {
            if (entry.d_tag == DT_NEEDED)
                m_file.needed.append(string(header.sh_link, entry.d_un.d_val));
            else if (entry.d_tag == DT_RPATH || entry.d_tag == DT_RUNPATH)
                m_file.searchPaths += string(header.sh_link, entry.d_un.d_val).split(':');
            else if (entry.d_tag == DT_FLAGS_1 && (entry.d_un.d_val & DF_1_PIE))
                m_file.kind = ElfFile::Kind::Program;
        }
    }

    void readSymbols(Elf_Data* data, const GElf_Shdr& header)
    {
        m_hasNames = true;
        GElf_Sym symbol;
        for (int i = 1; gelf_getsym(data, i, &symbol); ++i) { // the first stands for none
            const int binding = GELF_ST_BIND(symbol.st_info);
            const int visibility = GELF_ST_VISIBILITY(symbol.st_other);
            const QByteArray name = string(header.sh_link, symbol.st_name);
            if (name.isEmpty() || binding == STB_LOCAL)
                continue;
            if (symbol.st_shndx == SHN_UNDEF) {
                if (binding != STB_WEAK)
                    m_file.wanted.append({name, versionOf(i)});
            } else if (visibility == STV_DEFAULT || visibility == STV_PROTECTED) {
                m_file.exported.insert(name);
            }
        }
    }

    QByteArray versionOf(int symbol) const
    {
        GElf_Versym version = 0;
        if (!m_versionOf || !gelf_getversym(m_versionOf, symbol, &version))
            return QByteArray();
        return m_versions.value(version & 0x7fff);
    }

    QByteArray string(size_t section, quint64 offset) const
    {
        const size_t at = static_cast<size_t>(offset);
        const char* const found = at == offset ? elf_strptr(m_elf, section, at) : nullptr;
        return found ? QByteArray(found) : QByteArray();
    }

    Elf* m_elf;
    qint64 m_size;
    ElfFile& m_file;
    bool m_hasNames = false;
    Elf_Data* m_versionOf = nullptr;
    QHash<int, QByteArray> m_versions;
};

/// What a file is that is no ELF, as far as its first bytes tell.
QString lookOf(const QByteArray& start)
{
    if (start.isEmpty())
        return text("an empty file");
    for (const char byte : start) {
        if (static_cast<unsigned char>(byte) < 9)
            return text("data of some other kind");
    }
    return text("a text");
}

} // namespace

ElfFile ElfFile::read(const QString& fileName)
{
    ElfFile result;
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile()) { // a pipe would be waited for
        result.problem = text("it is no file");
        return result;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        result.problem = file.errorString();
        return result;
    }
    const QByteArray start = file.read(256);
    if (!start.startsWith("\x7f"
                          "ELF")) {
        result.state = State::NotElf;
        result.problem = lookOf(start);
        return result;
    }
    elf_version(EV_CURRENT);
    const std::unique_ptr<Elf, EndElf> elf(elf_begin(file.handle(), ELF_C_READ, nullptr));
    Reader reader(elf.get(), file.size(), result);
    result.state = State::Damaged;
    if (!elf || elf_kind(elf.get()) != ELF_K_ELF || !reader.read())
        result.problem = text("an ELF file of %1 bytes that is cut short or damaged").arg(file.size());
    else if (result.kind == Kind::SharedLibrary && !reader.hasNames())
        result.problem = text("a library whose sections were stripped, so that its names cannot be read");
    else
        result.state = State::Whole;
    return result;
}

QString ElfFile::processor() const
{
    switch (machine) {
    case EM_X86_64:
        return text("x86-64");
    case EM_386:
        return text("x86");
    case EM_ARM:
        return hardFloat ? text("ARM with hardware floating point") : text("ARM");
    case EM_AARCH64:
        return text("AArch64");
    case EM_MIPS:
        return text("MIPS");
    case EM_PPC:
    case EM_PPC64:
        return text("PowerPC");
    case EM_RISCV:
        return text("RISC-V");
    case EM_SH:
        return text("SuperH");
    default:
        return text("processor %1 (e_machine)").arg(machine);
    }
}

QString ElfFile::layout() const
{
    return text("%1-bit, %2-endian").arg(bits).arg(bigEndian ? text("big") : text("little"));
}

bool ElfFile::runsWith(const ElfFile& other) const
{
    return bits == other.bits && bigEndian == other.bigEndian && machine == other.machine
           && hardFloat == other.hardFloat;
}

/// libQt5Core.so.5, libQt6Gui.so.6; of Qt 4 libQtCore.so.4.
int ElfFile::qtMajor() const
{
    for (const QByteArray& library : needed) {
        const int version = library.lastIndexOf(".so.");
        if (!library.startsWith("libQt") || version < 0)
            continue;
        const QByteArray behind = library.mid(version + 4);
        const int major = behind.left(behind.indexOf('.') < 0 ? behind.size() : behind.indexOf('.')).toInt();
        if (library.mid(5, 1) == QByteArray::number(major) || (major == 4 && library.size() > 5 && library[5] > '9'))
            return major;
    }
    return 0;
}
