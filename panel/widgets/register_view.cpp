#include "register_view.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableView>

namespace {

/// Edits a value within the range of a word.
class WordDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        QSpinBox* editor = new QSpinBox(parent);
        editor->setRange(0, LARGEST_WORD);
        return editor;
    }
};

} // namespace

RegisterView::RegisterView(RegisterAccess& registers, PanelClock& clock, QWidget* parent)
    : QWidget(parent), m_model(new RegisterModel(registers, clock, this)), m_table(new QTableView),
      m_type(new QComboBox), m_address(new QSpinBox), m_add(new QPushButton), m_remove(new QPushButton),
      m_remark(new QLabel)
{
    m_table->setModel(m_model);
    m_table->setItemDelegateForColumn(RegisterModel::VALUE, new WordDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(RegisterModel::NAME, QHeaderView::Stretch);

    m_type->setObjectName(QStringLiteral("type"));
    m_type->setEditable(true);
    m_type->addItems({QStringLiteral("LW"), QStringLiteral("LWF")});
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setRange(0, LARGEST_ADDRESS);
    m_add->setObjectName(QStringLiteral("add"));
    m_remove->setObjectName(QStringLiteral("remove"));
    m_remark->setObjectName(QStringLiteral("remark"));
    m_remark->setWordWrap(true);
    m_remark->hide();
    connect(m_table, &QTableView::clicked, this, &RegisterView::editValue);
    connect(m_add, &QPushButton::clicked, this, &RegisterView::addRow);
    connect(m_remove, &QPushButton::clicked, this, &RegisterView::removeRow);
    connect(m_model, &RegisterModel::refused, this, &RegisterView::showRefusal);

    QGridLayout* grid = new QGridLayout(this);
    grid->addWidget(m_table, 0, 0, 1, 4);
    grid->addWidget(m_remark, 1, 0, 1, 4);
    grid->addWidget(m_type, 2, 0);
    grid->addWidget(m_address, 2, 1);
    grid->addWidget(m_add, 2, 2);
    grid->addWidget(m_remove, 2, 3);
    retranslate();
}

/// One touch is enough to begin.
void RegisterView::editValue(const QModelIndex& index)
{
    if (index.flags() & Qt::ItemIsEditable)
        m_table->edit(index);
}

void RegisterView::addRow()
{
    const int row = m_model->watch(m_type->currentText(), m_address->value());
    m_remark->setText(tr("A register needs a type, such as LW."));
    m_remark->setVisible(row < 0);
    if (row >= 0)
        m_table->selectRow(row);
}

void RegisterView::removeRow()
{
    m_model->unwatch(m_table->currentIndex().row());
}

void RegisterView::showRefusal(const QString& type, int address)
{
    m_remark->setText(tr("%1 %2 cannot be written.").arg(type).arg(address));
    m_remark->show();
}

void RegisterView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void RegisterView::retranslate()
{
    m_add->setText(tr("Watch"));
    m_remove->setText(tr("Remove"));
    m_remark->hide();
    m_model->retranslate();
}
