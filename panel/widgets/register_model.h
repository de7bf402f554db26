// The rows of the register view: which registers are watched, and what they hold. GUI thread only.
#ifndef REGISTER_MODEL_H
#define REGISTER_MODEL_H

#include "panel_clock.h"
#include "register_access.h"

#include <QAbstractTableModel>
#include <QList>

const int LARGEST_WORD = 65535;
const int LARGEST_ADDRESS = 65535;

class RegisterModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        NAME,
        TYPE,
        ADDRESS,
        VALUE, ///< editable: forces the register
        COLUMN_COUNT
    };

    /// How long a value that changed stands out, in milliseconds of the clock.
    static const qint64 FLASH_DURATION = 800;

    /// Neither registers nor clock are owned; both must outlive this. Watches the two selection registers.
    RegisterModel(RegisterAccess& registers, PanelClock& clock, QObject* parent = nullptr);

    /// Adds a row and returns its index; that of the row that is there when the register is watched already; -1 when
    /// there is no such register. An empty type, one with a comma, or an address beyond 0 to 65535 is none.
    int watch(const QString& type, int address, const QString& name = QString());
    void unwatch(int row);
    /// -1: not watched.
    int rowOf(const QString& type, int address) const;
    bool isFlashing(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The language changed: names and headings are asked for again.
    void retranslate();

Q_SIGNALS:
    /// Forcing a register failed.
    void refused(const QString& type, int address);

private Q_SLOTS:
    void take(const QString& type, int address, int value);

private:
    struct Row
    {
        QString type;
        int address;
        QString name; // given by the user
        int value;
        qint64 flashUntil; // by the clock
    };

    QString nameOf(const Row& row) const;
    void valueChanged(int row);

    RegisterAccess& m_registers;
    PanelClock& m_clock;
    QList<Row> m_rows;
};

#endif
