// A table to watch word registers and to force them; registers are added and taken away by hand. GUI thread only.
#ifndef REGISTER_VIEW_H
#define REGISTER_VIEW_H

#include "register_model.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableView;

class RegisterView : public QWidget
{
    Q_OBJECT
public:
    /// Neither registers nor clock are owned; both must outlive this.
    RegisterView(RegisterAccess& registers, PanelClock& clock, QWidget* parent = nullptr);

    RegisterModel& model() { return *m_model; }

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void editValue(const QModelIndex& index);
    void addRow();
    void removeRow();
    void showRefusal(const QString& type, int address);

private:
    void retranslate();

    RegisterModel* m_model;
    QTableView* m_table;
    QComboBox* m_type;
    QSpinBox* m_address;
    QPushButton* m_add;
    QPushButton* m_remove;
    QLabel* m_remark;
};

#endif
