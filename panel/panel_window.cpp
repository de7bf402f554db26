// The window.
#include "panel_window.h"

#include "register_view.h"
#include "transfer_box.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

constexpr int NARROWEST_SIDE = 490; // pixels; names and registers of controllers can be read

} // namespace

PanelWindow::PanelWindow(PanelScreen& screen, PanelSession& session, PanelClock& clock, Translations& translations)
    : m_screen(screen), m_session(session), m_translations(translations)
{
    QWidget* side = new QWidget(this);
    side->setMinimumWidth(NARROWEST_SIDE);
    QVBoxLayout* column = new QVBoxLayout(side);
    column->addWidget(languageChoice());
    column->addWidget(new TransferBox(session, side));
    RegisterView* registers = new RegisterView(session, clock, side);
    const auto known = session.knownRegisters();
    for (auto it = known.constBegin(); it != known.constEnd(); ++it)
        registers->model().watch(it.key().first, it.key().second);
    connect(&session, &PanelSession::recipeRegister, registers,
            [registers](const QString& type, int address, const QString& name) {
                registers->model().watch(type, address, name);
            });
    column->addWidget(registers);

    QWidget* middle = new QWidget(this);
    QHBoxLayout* row = new QHBoxLayout(middle);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(&m_screen, 0, Qt::AlignTop);
    row->addWidget(side, 1);
    setCentralWidget(middle);
}

/// Languages are named in themselves, so that everybody finds the way back.
QComboBox* PanelWindow::languageChoice()
{
    static const char* const NAMES[] = {"English",
                                        "Deutsch",
                                        "Fran\xc3\xa7"
                                        "ais",
                                        "Espa\xc3\xb1ol",
                                        "Italiano",
                                        "\xd0\xa0\xd1\x83\xd1\x81\xd1\x81\xd0\xba\xd0\xb8\xd0\xb9",
                                        "\xe4\xb8\xad\xe6\x96\x87",
                                        "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e"};
    m_language = new QComboBox(this);
    for (const char* name : NAMES)
        m_language->addItem(QString::fromUtf8(name));
    showLanguage();
    connect(m_language, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index) { useLanguage(index + 1); });
    return m_language;
}

void PanelWindow::showLanguage()
{
    const QSignalBlocker quiet(m_language);
    m_language->setCurrentIndex(m_translations.language() - 1);
}

/// A script may have chosen another language.
void PanelWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        showLanguage();
    QMainWindow::changeEvent(event);
}

/// Texts change at once; fonts and colours of items are those of their start.
void PanelWindow::useLanguage(int language)
{
    m_translations.use(language);
    Runtime::instance().setLanguage(language);
    m_screen.view().viewport()->update();
}

PanelWindow::~PanelWindow()
{
    m_screen.setParent(nullptr);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    m_session.answer(false);
    m_session.waitForWorkers();
    event->accept();
}
