// Says of any file what stands in the way of loading it as a plug-in, before a line of its code runs. GUI thread, or
// any other while nothing is being loaded.
#ifndef PROBE_H
#define PROBE_H

#include "elf_file.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

/// The mangled names of a plug-in's entry points, with how people write them.
struct EntryPoint
{
    const char* name;
    const char* written;
};
const QVector<EntryPoint>& pluginEntryPoints();

class Probe
{
public:
    /// One reason why the file cannot be loaded; each text is a clause without a full stop.
    struct Fault
    {
        QString found;
        QString needed;
        QString cure;
        bool plain = false; ///< `found` repeats what the facts of the file say anyway
    };

    explicit Probe(const QString& fileName);

    /// Whether the panel can load it and would find its entry points.
    bool isPlugin() const { return m_faults.isEmpty(); }
    const QVector<Fault>& faults() const { return m_faults; }

    /// One paragraph: what was found, what is needed and what helps.
    QString paragraph() const;
    QJsonObject json() const;

private:
    void judge();
    bool judgeKind();
    void judgeMachine();
    void judgeQt();
    void judgeEntryPoints();
    void judgeNames();
    void addNameFaults(const QSet<QByteArray>& offered);
    QString foundSentence() const;
    QStringList entryPointsFound() const;

    QString m_fileName;
    ElfFile m_file;
    ElfFile m_self; ///< this program
    QVector<Fault> m_faults;
    QStringList m_missingLibraries;
    QStringList m_unresolved; ///< as people read them
    bool m_namesChecked = false;
};

#endif
