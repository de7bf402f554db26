// What an item shows, out of the description that comes with its plug-in. Works for every item type that describes
// itself in the same words; for others everything is empty. GUI thread only.
#ifndef ITEM_STATE_H
#define ITEM_STATE_H

#include <QJsonArray>
#include <QJsonObject>
#include <QRectF>
#include <QString>

#include <optional>

class ItemState
{
public:
    ItemState() = default;
    /// An empty or broken description is that of an item that does not tell.
    explicit ItemState(const QByteArray& description);

    const QJsonObject& json() const { return m_json; }
    bool isEmpty() const { return m_json.isEmpty(); }
    int number(const char* key) const;
    bool isBusy() const;

    /// Part of what stands on the page; nothing where it does not.
    struct Part
    {
        QString text;
        QRectF rect; ///< item coordinates
    };
    std::optional<Part> cell(int row, int column) const;
    std::optional<Part> title(int column) const;
    std::optional<QString> name(int row) const;
    std::optional<QRectF> area(const QString& areaName) const;

    /// "rows 0 to 9, columns 0 to 4": what is on the page.
    QString page() const;
    /// "none", "cell 3 2" or "title 2".
    QString selection() const;
    QRectF selectionRect() const;
    QString selectionLabel() const;

    QJsonArray pendingCells() const;
    QJsonArray pendingTitles() const;

private:
    QJsonObject m_json;
};

#endif
