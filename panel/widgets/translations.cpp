#include "translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

// The words on the buttons of message boxes that items open. They are Qt's own; its translations are not on every
// panel, so ours carry them.
const char* const BOX_BUTTONS[] = {
    QT_TRANSLATE_NOOP("QPlatformTheme", "&Yes"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&No"),
};

} // namespace

QString Translations::folderBesideProgram()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString built = here.filePath(QStringLiteral("../translations"));
    return QFileInfo::exists(built) ? built : here.filePath(QStringLiteral(INSTALLED_TRANSLATION_FOLDER));
}

QString Translations::code(int language)
{
    static const QStringList codes{QStringLiteral("en"),    QStringLiteral("de"), QStringLiteral("fr"),
                                   QStringLiteral("es"),    QStringLiteral("it"), QStringLiteral("ru"),
                                   QStringLiteral("zh_CN"), QStringLiteral("ja")};
    return codes.value(language - 1);
}

Translations::Translations(const QString& folder) : m_folder(folder)
{
    Q_UNUSED(BOX_BUTTONS)
}

Translations::~Translations()
{
    removeAll();
}

bool Translations::use(int language)
{
    removeAll();
    m_problems.clear();
    m_language = language;
    const QString name = code(language);
    if (name.isEmpty() || language == 1)
        return true;
    install(QStringLiteral("recipe_sheet_") + name);
    install(QStringLiteral("panel_") + name);
    return m_problems.isEmpty();
}

void Translations::install(const QString& name)
{
    const QString path = m_folder + QLatin1Char('/') + name + QStringLiteral(".qm");
    std::unique_ptr<QTranslator> translator(new QTranslator);
    if (!translator->load(path)) {
        m_problems.append(path);
        return;
    }
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

void Translations::removeAll()
{
    for (const std::unique_ptr<QTranslator>& translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
    m_translators.clear();
}
