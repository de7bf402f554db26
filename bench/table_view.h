// What a developer would take instead of the sheet: a table view on the recipe table.
#ifndef BENCH_TABLE_VIEW_H
#define BENCH_TABLE_VIEW_H

#include "sheet.h"

#include <QImage>
#include <QString>

#include <memory>

class QSqlTableModel;
class QTableView;

/// QTableView with its grid on QSqlTableModel over data_<group>, at the sheet's size, with cells of the sheet's size.
/// A connection of its own, closed with the view.
class TableView
{
public:
    TableView(const QString& path, const PageShape& page, int group);
    TableView(const TableView&) = delete;
    TableView& operator=(const TableView&) = delete;
    ~TableView();

    void paint(QImage& screen);

private:
    const QString m_connection;
    std::unique_ptr<QSqlTableModel> m_model;
    std::unique_ptr<QTableView> m_view;
};

#endif
