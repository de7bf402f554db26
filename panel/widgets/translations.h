// The language of what operators read: of the plug-in's texts and of the panel's. GUI thread only.
#ifndef TRANSLATIONS_H
#define TRANSLATIONS_H

#include <QString>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

class Translations
{
public:
    /// Where the build and an installation put the compiled files, seen from the running program.
    static QString folderBesideProgram();

    /// "en", "de", "fr", "es", "it", "ru", "zh_CN", "ja" for the project's language numbers 1 to 8; empty for others.
    static QString code(int language);

    explicit Translations(const QString& folder = folderBesideProgram());
    ~Translations();
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

    /// Takes the texts of a language into use in place of those before; every widget hears of it by a LanguageChange
    /// event. 1, English, is what the sources say, and so is any number without a language. False: a file is missing
    /// or damaged (`problems` says which); what could be loaded is in use.
    bool use(int language);

    int language() const { return m_language; }
    /// The files that could not be loaded by the last `use`.
    const QStringList& problems() const { return m_problems; }

private:
    void install(const QString& name);
    void removeAll();

    const QString m_folder;
    int m_language = 1;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    QStringList m_problems;
};

#endif
