// Judging a file against this program.
#include "probe.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr int MOST_NAMES_TOLD = 5;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

/// "a, b and c".
QString listed(const QStringList& names)
{
    if (names.size() < 2)
        return names.join(QString());
    return names.mid(0, names.size() - 1).join(text(", ")) + text(" and ") + names.last();
}

QStringList firstOf(const QStringList& names)
{
    if (names.size() <= MOST_NAMES_TOLD)
        return names;
    return names.mid(0, MOST_NAMES_TOLD) << text("%1 more").arg(names.size() - MOST_NAMES_TOLD);
}

QString demangled(const QByteArray& name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> written(
        abi::__cxa_demangle(name.constData(), nullptr, nullptr, &status), &std::free);
    return QString::fromUtf8(status == 0 ? QByteArray(written.get()) : name);
}

/// What the loader would find in this process, libraries of the program included.
bool processHas(const ElfFile::Wanted& wanted)
{
    if (wanted.version.isEmpty())
        return dlsym(RTLD_DEFAULT, wanted.name.constData());
    return dlvsym(RTLD_DEFAULT, wanted.name.constData(), wanted.version.constData());
}

bool isLoaded(const QByteArray& library)
{
    void* const handle = dlopen(library.constData(), RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle;
}

/// The folders where the loader of this program looks.
QStringList loaderFolders()
{
    QStringList folders;
    void* const self = dlopen(nullptr, RTLD_NOW);
    Dl_serinfo size;
    if (self && dlinfo(self, RTLD_DI_SERINFOSIZE, &size) == 0) {
        std::vector<char> memory(size.dls_size);
        Dl_serinfo* const info = reinterpret_cast<Dl_serinfo*>(memory.data());
        if (dlinfo(self, RTLD_DI_SERINFOSIZE, info) == 0 && dlinfo(self, RTLD_DI_SERINFO, info) == 0) {
            for (unsigned i = 0; i < info->dls_cnt; ++i)
                folders.append(QString::fromLocal8Bit(info->dls_serpath[i].dls_name));
        }
    }
    if (self)
        dlclose(self);
    return folders;
}

/// Where the loader's cache has a library, for whatever processor.
QStringList cachedPaths(const QString& name)
{
    QStringList paths;
    const std::unique_ptr<FILE, int (*)(FILE*)> list(popen("/sbin/ldconfig -p 2>/dev/null", "r"), &pclose);
    char line[2 * PATH_MAX];
    while (list && std::fgets(line, sizeof(line), list.get())) {
        const QString entry = QString::fromLocal8Bit(line).trimmed(); // "libz.so.1 (libc6,x86-64) => /lib/libz.so.1"
        if (entry.startsWith(name + text(" (")))
            paths.append(entry.section(text(" => "), 1));
    }
    return paths;
}

/// The loader passes over what is for another processor.
bool couldBe(const QString& path, const ElfFile& asker)
{
    return QFileInfo(path).isFile() && ElfFile::read(path).runsWith(asker);
}

/// Where the loader would find what `asker` needs; empty: nowhere.
QString findLibrary(const QByteArray& library, const QString& askerFile, const ElfFile& asker)
{
    const QString name = QString::fromLocal8Bit(library);
    if (library.contains('/'))
        return QFileInfo::exists(name) ? name : QString();
    const QString origin = QFileInfo(askerFile).absolutePath();
    QStringList folders;
    for (const QByteArray& path : asker.searchPaths) {
        QString folder = QString::fromLocal8Bit(path);
        folder.replace(text("${ORIGIN}"), origin);
        folder.replace(text("$ORIGIN"), origin);
        folders.append(folder);
    }
    for (const QString& folder : folders + loaderFolders()) {
        const QString path = QDir(folder).filePath(name);
        if (!folder.isEmpty() && couldBe(path, asker))
            return path;
    }
    for (const QString& path : cachedPaths(name)) {
        if (couldBe(path, asker))
            return path;
    }
    return QString();
}

/// What the needed libraries that are not loaded yet would bring, with those that they need in turn.
class NeededLibraries
{
public:
    void add(const QString& askerFile, const ElfFile& asker)
    {
        for (const QByteArray& library : asker.needed) {
            if (m_seen.contains(library))
                continue;
            m_seen.insert(library);
            if (!isLoaded(library))
                addFile(library, findLibrary(library, askerFile, asker));
        }
    }

    const QSet<QByteArray>& exported() const { return m_exported; }
    const QStringList& missing() const { return m_missing; }

private:
    void addFile(const QByteArray& library, const QString& path)
    {
        const ElfFile file = path.isEmpty() ? ElfFile() : ElfFile::read(path);
        if (file.state != ElfFile::State::Whole) {
            m_missing.append(QString::fromLocal8Bit(library));
            return;
        }
        m_exported += file.exported;
        add(path, file);
    }

    QSet<QByteArray> m_seen;
    QSet<QByteArray> m_exported;
    QStringList m_missing;
};

QString qtName(int major)
{
    return major == 0 ? text("no Qt of its own") : text("Qt %1").arg(major);
}

} // namespace

const QVector<EntryPoint>& pluginEntryPoints()
{
    static const QVector<EntryPoint> points{
        {"getItemName", "getItemName()"},
        {"createItem", "createItem()"},
        {"_Z18item_object_create7QStringS_", "item_object_create(QString, QString)"},
    };
    return points;
}

Probe::Probe(const QString& fileName)
    : m_fileName(fileName), m_file(ElfFile::read(fileName)), m_self(ElfFile::read(text("/proc/self/exe")))
{
    judge();
}

void Probe::judge()
{
    if (!judgeKind())
        return;
    judgeMachine();
    judgeQt();
    judgeEntryPoints();
    const bool otherQt = m_file.qtMajor() != 0 && m_file.qtMajor() != QT_VERSION_MAJOR;
    if (m_file.runsWith(m_self) && !otherQt)
        judgeNames();
}

bool Probe::judgeKind()
{
    const QString library = text("a shared library (ELF)");
    switch (m_file.state) {
    case ElfFile::State::Unreadable:
        m_faults.append({text("nothing that can be read (%1)").arg(m_file.problem), library,
                         text("name the file of a plug-in, and see to it that you may read it")});
        return false;
    case ElfFile::State::NotElf:
        m_faults.append({m_file.problem, library, text("name the file that the linker made, lib<Type>.so")});
        return false;
    case ElfFile::State::Damaged:
        m_faults.append({m_file.problem, text("a whole one"), text("copy or build it again, and compare the sizes")});
        return false;
    case ElfFile::State::Whole:
        break;
    }
    if (m_file.kind == ElfFile::Kind::SharedLibrary)
        return true;
    const QString kind = m_file.kind == ElfFile::Kind::Program      ? text("a program")
                         : m_file.kind == ElfFile::Kind::ObjectFile ? text("an object file")
                                                                    : text("an ELF file of another kind");
    m_faults.append({kind, library, text("link it with -shared -fPIC (CMake: add_library(... MODULE))")});
    return false;
}

void Probe::judgeMachine()
{
    if (m_file.runsWith(m_self))
        return;
    m_faults.append({text("code for %1 (%2)").arg(m_file.processor(), m_file.layout()),
                     text("code for %1 (%2)").arg(m_self.processor(), m_self.layout()),
                     text("build it with this machine's compiler; for a panel of its own kind it may be right"), true});
}

/// A library that is not linked with any Qt uses the panel's; whether that has all names is looked at elsewhere.
void Probe::judgeQt()
{
    const int qt = m_file.qtMajor();
    if (qt == 0 || qt == QT_VERSION_MAJOR)
        return;
    m_faults.append({text("use of %1").arg(qtName(qt)), qtName(QT_VERSION_MAJOR),
                     text("build it with Qt %1").arg(QT_VERSION_MAJOR), true});
}

void Probe::judgeEntryPoints()
{
    QStringList missing;
    for (const EntryPoint& point : pluginEntryPoints()) {
        if (!m_file.exported.contains(point.name))
            missing.append(text(point.written));
    }
    if (missing.isEmpty())
        return;
    m_faults.append(
        {text("no entry point %1").arg(listed(missing)), text("entry points that are exported"),
         text("define what is missing with default visibility (getItemName and createItem as extern \"C\")")});
}

/// Only where this program could load the library at all; elsewhere nobody here knows what there is.
void Probe::judgeNames()
{
    m_namesChecked = true;
    NeededLibraries libraries;
    libraries.add(m_fileName, m_file);
    m_missingLibraries = libraries.missing();
    if (!m_missingLibraries.isEmpty())
        m_faults.append({text("need of %1").arg(listed(m_missingLibraries)), text("libraries that are on this machine"),
                         text("install the package that has it, or put the library where the loader looks")});
    addNameFaults(libraries.exported());
}

void Probe::addNameFaults(const QSet<QByteArray>& offered)
{
    for (const ElfFile::Wanted& wanted : m_file.wanted) {
        if (m_file.exported.contains(wanted.name) || offered.contains(wanted.name) || processHas(wanted))
            continue;
        const QString version = wanted.version.isEmpty() ? QString() : text("@") + QString::fromUtf8(wanted.version);
        m_unresolved.append(demangled(wanted.name) + version);
    }
    if (m_unresolved.isEmpty() || !m_missingLibraries.isEmpty()) // what is missing may have the names
        return;
    m_faults.append({text("use of %1, which nobody has").arg(listed(firstOf(m_unresolved))),
                     text("names of this runtime or of a library that it is linked with"),
                     text("link the library that has them, and build against this runtime's headers")});
}

QStringList Probe::entryPointsFound() const
{
    QStringList found;
    for (const EntryPoint& point : pluginEntryPoints()) {
        if (m_file.exported.contains(point.name))
            found.append(text(point.written));
    }
    return found;
}

QString Probe::foundSentence() const
{
    if (m_file.state != ElfFile::State::Whole || m_file.kind != ElfFile::Kind::SharedLibrary)
        return m_faults.first().found;
    QStringList parts{text("a shared library for %1 (%2) with %3")
                          .arg(m_file.processor(), m_file.layout(), qtName(m_file.qtMajor()))};
    const QStringList points = entryPointsFound();
    if (!points.isEmpty())
        parts.append(text("the entry points %1").arg(listed(points)));
    for (const Fault& fault : m_faults) {
        if (!fault.plain)
            parts.append(fault.found);
    }
    if (!m_namesChecked)
        parts.append(text("%1 names that must come from elsewhere, which only a panel of its kind can check")
                         .arg(m_file.wanted.size()));
    return parts.join(text("; "));
}

QString Probe::paragraph() const
{
    QString paragraph = text("%1: found %2.").arg(m_fileName, foundSentence());
    if (isPlugin())
        return paragraph + text(" That is what is needed. The panel can load it; \"validate\" tries it out.");
    QStringList needed;
    QStringList cures;
    for (const Fault& fault : m_faults) {
        needed.append(fault.needed);
        cures.append(fault.cure);
    }
    return paragraph + text(" Needed: %1. Cure: %2.").arg(needed.join(text("; ")), cures.join(text("; ")));
}

QJsonObject Probe::json() const
{
    QJsonObject object{{text("file"), m_fileName}, {text("plugin"), isPlugin()}};
    if (m_file.state == ElfFile::State::Whole) {
        object.insert(text("processor"), m_file.processor());
        object.insert(text("layout"), m_file.layout());
        object.insert(text("qt"), m_file.qtMajor());
        object.insert(text("entryPoints"), QJsonArray::fromStringList(entryPointsFound()));
        object.insert(text("missingLibraries"), QJsonArray::fromStringList(m_missingLibraries));
        object.insert(text("namesChecked"), m_namesChecked);
        object.insert(text("unresolvedNames"), QJsonArray::fromStringList(m_unresolved));
    }
    QJsonArray faults;
    for (const Fault& fault : m_faults)
        faults.append(
            QJsonObject{{text("found"), fault.found}, {text("needed"), fault.needed}, {text("cure"), fault.cure}});
    object.insert(text("faults"), faults);
    return object;
}
