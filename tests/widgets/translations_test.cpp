// Every text that an operator reads exists in every language, fits its place, and can be changed while a program runs.
#include "translations.h"

#include "on_screen_keyboard.h"
#include "register_view.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const QString SOURCES = QStringLiteral(SOURCE_DIR);
const QStringList LANGUAGES{QStringLiteral("de"), QStringLiteral("fr"),    QStringLiteral("es"), QStringLiteral("it"),
                            QStringLiteral("ru"), QStringLiteral("zh_CN"), QStringLiteral("ja")};

struct Family
{
    QString name;
    QString folder;
    int fewest; ///< texts that are there at least
};

const Family FAMILIES[] = {{QStringLiteral("recipe_sheet"), QStringLiteral("extend_model/recipe_extend"), 14},
                           {QStringLiteral("panel"), QStringLiteral("panel"), 30}};

struct Message
{
    QString context;
    QString source;
    QString translation;
    QString state; ///< empty: finished
};

QList<Message> messagesOf(const QString& fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            messages.append({context, QString(), QString(), QString()});
        else if (xml.name() == QLatin1String("source"))
            messages.last().source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            messages.last().state = xml.attributes().value(QLatin1String("type")).toString();
            messages.last().translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    EXPECT_FALSE(xml.hasError()) << fileName.toStdString() << ": " << xml.errorString().toStdString();
    return messages;
}

QString shipped(const Family& family, const QString& language)
{
    return QStringLiteral("%1/translations/%2_%3.ts").arg(SOURCES, family.name, language);
}

/// Copies of a family's files with the texts of the sources taken over, as a translator would do it.
QStringList updatedCopies(const Family& family, const QString& directory)
{
    QStringList copies;
    for (const QString& language : LANGUAGES) {
        copies.append(QStringLiteral("%1/%2_%3.ts").arg(directory, family.name, language));
        EXPECT_TRUE(QFile::copy(shipped(family, language), copies.last())) << copies.last().toStdString();
        QFile(copies.last()).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(QStringLiteral(LUPDATE),
                  QStringList{QStringLiteral("-locations"), QStringLiteral("none"),
                              SOURCES + QLatin1Char('/') + family.folder, QStringLiteral("-ts")}
                      + copies);
    EXPECT_TRUE(lupdate.waitForFinished(-1));
    EXPECT_EQ(lupdate.exitCode(), 0) << lupdate.readAll().toStdString();
    return copies;
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%(?:\\d+|n)"));
    QStringList found;
    for (QRegularExpressionMatchIterator i = pattern.globalMatch(text); i.hasNext();)
        found.append(i.next().captured());
    std::sort(found.begin(), found.end());
    return found;
}

/// Width in DejaVu Sans; characters that it does not have, the ideographs, count as squares.
int widthOf(const QString& text, int pixels)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    EXPECT_TRUE(QFontInfo(font).family().startsWith(QStringLiteral("DejaVu Sans"))) << "is fonts-dejavu-core there?";
    int width = 0;
    for (const QChar c : text)
        width += c.unicode() >= 0x2e80 ? pixels : QFontMetrics(font).horizontalAdvance(c);
    return width;
}

std::string translated(const char* context, const char* source)
{
    return QCoreApplication::translate(context, source).toStdString();
}

class UsedTranslations : public testing::Test
{
protected:
    Translations translations;
};

} // namespace

TEST(Translations, ExistForEveryTextOfTheSourcesAndForNoOther)
{
    for (const Family& family : FAMILIES) {
        QTemporaryDir directory;
        for (const QString& copy : updatedCopies(family, directory.path())) {
            const QList<Message> messages = messagesOf(copy);
            EXPECT_GE(messages.size(), family.fewest) << copy.toStdString();
            for (const Message& message : messages) {
                EXPECT_TRUE(message.state.isEmpty() && !message.translation.isEmpty())
                    << QFileInfo(copy).fileName().toStdString() << ": " << message.context.toStdString() << " \""
                    << message.source.toStdString() << "\" is "
                    << (message.state.isEmpty() ? "empty" : message.state.toStdString())
                    << "; translations/README.md tells what to do";
            }
        }
    }
}

TEST(Translations, KeepThePlaceholdersOfTheirTexts)
{
    for (const Family& family : FAMILIES) {
        for (const QString& language : LANGUAGES) {
            for (const Message& message : messagesOf(shipped(family, language)))
                EXPECT_EQ(placeholders(message.translation), placeholders(message.source))
                    << language.toStdString() << ": " << message.source.toStdString();
        }
    }
}

TEST(Translations, FitTheButtonsAndTheNarrowHeading)
{
    const QHash<QString, int> room{{QStringLiteral("Save"), 80},
                                   {QStringLiteral("Add"), 80},
                                   {QStringLiteral("Delete"), 80},
                                   {QStringLiteral("Number"), 50}};
    int found = 0;
    for (const QString& language : LANGUAGES) {
        for (const Message& message : messagesOf(shipped(FAMILIES[0], language))) {
            if (!room.contains(message.source))
                continue;
            ++found;
            EXPECT_LE(widthOf(message.translation, 16), room.value(message.source) - 4)
                << language.toStdString() << ": " << message.translation.toStdString();
        }
    }
    EXPECT_EQ(found, 4 * LANGUAGES.size());
}

TEST(Translations, FollowTheLanguageNumbersOfTheProject)
{
    const char* const codes[] = {"", "en", "de", "fr", "es", "it", "ru", "zh_CN", "ja", ""};
    for (int language = 0; language <= 9; ++language)
        EXPECT_EQ(Translations::code(language).toStdString(), codes[language]) << language;
    EXPECT_EQ(Translations::code(-1), QString());
}

TEST_F(UsedTranslations, TakeTheTextsOfBothFamilies)
{
    const char* const save[] = {"Save", "Sichern", "Sauver", "Guardar", "Salva", "Сохр.", "保存", "保存"};
    const char* const cancel[] = {"Cancel", "Abbruch", "Annuler", "Cancelar", "Annulla", "Отмена", "取消", "取消"};
    for (int language = 1; language <= 8; ++language) {
        EXPECT_TRUE(translations.use(language)) << translations.problems().join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(translations.language(), language);
        EXPECT_EQ(translated("QObject", "Save"), save[language - 1]);
        EXPECT_EQ(translated("OnScreenKeyboard", "Cancel"), cancel[language - 1]);
    }
}

TEST_F(UsedTranslations, GoBackToEnglish)
{
    for (const int language : {1, 0, 9, -3}) {
        translations.use(2);
        EXPECT_EQ(translated("QObject", "Delete"), "Löschen");
        EXPECT_TRUE(translations.use(language));
        EXPECT_EQ(translated("QObject", "Delete"), "Delete") << language;
    }
}

TEST_F(UsedTranslations, AreGoneWithTheirLoader)
{
    {
        Translations others;
        others.use(2);
        EXPECT_EQ(translated("QObject", "Delete"), "Löschen");
    }
    EXPECT_EQ(translated("QObject", "Delete"), "Delete");
}

TEST_F(UsedTranslations, NameTheFileThatIsMissingAndUseTheOther)
{
    QTemporaryDir directory;
    ASSERT_TRUE(QFile::copy(Translations::folderBesideProgram() + QStringLiteral("/recipe_sheet_de.qm"),
                            directory.filePath(QStringLiteral("recipe_sheet_de.qm"))));
    Translations others(directory.path());
    EXPECT_FALSE(others.use(2));
    EXPECT_EQ(others.problems(), QStringList(directory.filePath(QStringLiteral("panel_de.qm"))));
    EXPECT_EQ(translated("QObject", "Delete"), "Löschen");
    EXPECT_EQ(translated("OnScreenKeyboard", "Cancel"), "Cancel");
    EXPECT_TRUE(others.use(1));
    EXPECT_TRUE(others.problems().isEmpty());
}

TEST_F(UsedTranslations, RefuseAFileThatIsNone)
{
    QTemporaryDir directory;
    for (const char* name : {"recipe_sheet_fr.qm", "panel_fr.qm"}) {
        QFile file(directory.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("no translations");
    }
    Translations others(directory.path());
    EXPECT_FALSE(others.use(3));
    EXPECT_EQ(others.problems().size(), 2);
    EXPECT_EQ(translated("QObject", "Delete"), "Delete");
}

TEST_F(UsedTranslations, ReachAKeyboardThatIsOpen)
{
    OnScreenKeyboard::Request request;
    request.area = QRect(0, 0, 800, 480);
    request.dpi = 133;
    QWidget parent;
    OnScreenKeyboard keyboard(request, &parent);
    EXPECT_FALSE(keyboard.acceptText(QStringLiteral("-1")));
    translations.use(2);
    EXPECT_EQ(keyboard.message().toStdString(), "Zu klein: der kleinste Wert ist 0.");
    translations.use(8);
    EXPECT_EQ(keyboard.message().toStdString(), "小さすぎます。最小値は 0 です。");
}

namespace {

class NoRegisters : public RegisterAccess
{
public:
    int word(const QString&, int) const override { return 0; }
    bool force(const QString&, int, int) override { return false; }
};

} // namespace

TEST_F(UsedTranslations, ReachARegisterViewThatIsOpen)
{
    NoRegisters registers;
    ManualClock clock;
    RegisterView view(registers, clock);
    QAbstractButton* add = view.findChild<QAbstractButton*>(QStringLiteral("add"));
    EXPECT_EQ(add->text().toStdString(), "Watch");
    translations.use(2);
    QCoreApplication::sendPostedEvents(); // LanguageChange
    EXPECT_EQ(add->text().toStdString(), "Beobachten");
    const QModelIndex name = view.model().index(1, RegisterModel::NAME);
    EXPECT_EQ(view.model().data(name, Qt::DisplayRole).toString().toStdString(), "Gewähltes Rezept");
    EXPECT_EQ(view.model().headerData(RegisterModel::VALUE, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(),
              "Wert");
}

TEST_F(UsedTranslations, ReachTheButtonsOfAConfirmation)
{
    translations.use(2);
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(box.button(QMessageBox::Yes)->text().toStdString(), "Ja");
    EXPECT_EQ(box.button(QMessageBox::No)->text().toStdString(), "Nein");
}
