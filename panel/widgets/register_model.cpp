#include "register_model.h"

#include <QColor>
#include <QFont>

namespace {

const char INTERNAL_WORD[] = "LW";
const int GROUP_REGISTER = 60802;
const int RECIPE_REGISTER = 60803;

const QColor FLASH(255, 225, 90);

} // namespace

RegisterModel::RegisterModel(RegisterAccess& registers, PanelClock& clock, QObject* parent)
    : QAbstractTableModel(parent), m_registers(registers), m_clock(clock)
{
    connect(&registers, &RegisterAccess::changed, this, &RegisterModel::take);
    watch(QLatin1String(INTERNAL_WORD), GROUP_REGISTER);
    watch(QLatin1String(INTERNAL_WORD), RECIPE_REGISTER);
}

int RegisterModel::watch(const QString& type, int address, const QString& name)
{
    const QString trimmed = type.trimmed();
    if (trimmed.isEmpty() || trimmed.contains(QLatin1Char(',')) || address < 0 || address > LARGEST_ADDRESS)
        return -1;
    const int present = rowOf(trimmed, address);
    if (present >= 0)
        return present;
    const int row = m_rows.size();
    beginInsertRows(QModelIndex(), row, row);
    m_rows.append({trimmed, address, name, m_registers.word(trimmed, address), 0});
    endInsertRows();
    return row;
}

void RegisterModel::unwatch(int row)
{
    if (row < 0 || row >= m_rows.size())
        return;
    beginRemoveRows(QModelIndex(), row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

int RegisterModel::rowOf(const QString& type, int address) const
{
    for (int i = 0; i < m_rows.size(); ++i) {
        if (m_rows.at(i).address == address && m_rows.at(i).type == type)
            return i;
    }
    return -1;
}

bool RegisterModel::isFlashing(int row) const
{
    return m_clock.now() < m_rows.at(row).flashUntil;
}

void RegisterModel::take(const QString& type, int address, int value)
{
    const int row = rowOf(type, address);
    if (row < 0 || m_rows.at(row).value == value)
        return;
    m_rows[row].value = value;
    m_rows[row].flashUntil = m_clock.now() + FLASH_DURATION;
    valueChanged(row);
    // The row may be elsewhere by then, or gone.
    m_clock.callLater(FLASH_DURATION, this, [this, type, address]() { valueChanged(rowOf(type, address)); });
}

void RegisterModel::valueChanged(int row)
{
    if (row >= 0)
        Q_EMIT dataChanged(index(row, VALUE), index(row, VALUE));
}

int RegisterModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int RegisterModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QString RegisterModel::nameOf(const Row& row) const
{
    if (!row.name.isEmpty() || row.type != QLatin1String(INTERNAL_WORD))
        return row.name;
    if (row.address == GROUP_REGISTER)
        return tr("Selected group");
    if (row.address == RECIPE_REGISTER)
        return tr("Selected recipe");
    return QString();
}

QVariant RegisterModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return QVariant();
    const Row& row = m_rows.at(index.row());
    if (role == Qt::TextAlignmentRole && index.column() >= ADDRESS)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && index.column() == VALUE && isFlashing(index.row()))
        return FLASH;
    if (role == Qt::ForegroundRole && index.column() == VALUE && isFlashing(index.row()))
        return QColor(Qt::black);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    switch (index.column()) {
    case NAME:
        return nameOf(row);
    case TYPE:
        return row.type;
    case ADDRESS:
        return row.address;
    default:
        return row.value;
    }
}

bool RegisterModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    bool isNumber = false;
    const int word = value.toInt(&isNumber);
    if (!index.isValid() || role != Qt::EditRole || index.column() != VALUE || !isNumber || word < 0
        || word > LARGEST_WORD)
        return false;
    const Row row = m_rows.at(index.row()); // forcing calls back
    if (m_registers.force(row.type, row.address, word))
        return true;
    Q_EMIT refused(row.type, row.address);
    return false;
}

QVariant RegisterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case NAME:
        return tr("Name");
    case TYPE:
        return tr("Type");
    case ADDRESS:
        return tr("Address");
    default:
        return tr("Value");
    }
}

Qt::ItemFlags RegisterModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == VALUE ? plain | Qt::ItemIsEditable : plain;
}

void RegisterModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, NAME, VALUE);
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0, NAME), index(m_rows.size() - 1, NAME));
}
