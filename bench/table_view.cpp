#include "table_view.h"

#include <QHeaderView>
#include <QSqlDatabase>
#include <QSqlTableModel>
#include <QTableView>

#include <cstdio>
#include <cstdlib>

namespace {

const int NUMBER_WIDTH = 50;
const int BAR = 30;

QSqlDatabase openDatabase(const QString& connection, const QString& path)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QString::fromLatin1("QSQLITE"), connection);
    database.setDatabaseName(path);
    if (!database.open()) {
        std::fprintf(stderr, "bench: the table view cannot open the recipe file\n");
        std::exit(1);
    }
    return database;
}

void setSections(QHeaderView* header, double size)
{
    header->setMinimumSectionSize(1);
    header->setDefaultSectionSize(static_cast<int>(size));
}

} // namespace

TableView::TableView(const QString& path, const PageShape& page, int group)
    : m_connection(QString::fromLatin1("bench view")),
      m_model(std::make_unique<QSqlTableModel>(nullptr, openDatabase(m_connection, path))),
      m_view(std::make_unique<QTableView>())
{
    m_model->setTable(QString::fromLatin1("data_%1").arg(group));
    m_model->select();
    QFont font(QString::fromLatin1("DejaVu Sans"));
    font.setPixelSize(page.fontPixels);
    m_view->setFont(font);
    m_view->resize(page.width, page.height);
    setSections(m_view->horizontalHeader(), double(page.width - BAR - NUMBER_WIDTH - page.nameWidth) / page.columns);
    setSections(m_view->verticalHeader(), double(page.height - page.titleHeight - 70) / page.rows);
    m_view->setModel(m_model.get());
}

TableView::~TableView()
{
    m_view.reset();
    m_model.reset();
    QSqlDatabase::removeDatabase(m_connection);
}

void TableView::paint(QImage& screen)
{
    m_view->render(&screen);
}
