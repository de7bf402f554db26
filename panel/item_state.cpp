// Reading descriptions of items.
#include "item_state.h"

#include <QJsonDocument>

namespace {

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QRectF rectOf(const QJsonValue& value)
{
    const QJsonArray numbers = value.toArray();
    return QRectF(numbers.at(0).toDouble(), numbers.at(1).toDouble(), numbers.at(2).toDouble(),
                  numbers.at(3).toDouble());
}

ItemState::Part partOf(const QJsonObject& object)
{
    return {object.value(text("text")).toString(), rectOf(object.value(text("rect")))};
}

} // namespace

ItemState::ItemState(const QByteArray& description) : m_json(QJsonDocument::fromJson(description).object()) {}

int ItemState::number(const char* key) const
{
    return m_json.value(text(key)).toInt();
}

bool ItemState::isBusy() const
{
    return m_json.value(text("busy")).toBool();
}

std::optional<ItemState::Part> ItemState::cell(int row, int column) const
{
    for (const QJsonValue& entry : m_json.value(text("cells")).toArray()) {
        const QJsonObject object = entry.toObject();
        if (object.value(text("row")).toInt() == row && object.value(text("column")).toInt() == column)
            return partOf(object);
    }
    return std::nullopt;
}

std::optional<ItemState::Part> ItemState::title(int column) const
{
    for (const QJsonValue& entry : m_json.value(text("titles")).toArray()) {
        if (entry.toObject().value(text("column")).toInt() == column)
            return partOf(entry.toObject());
    }
    return std::nullopt;
}

std::optional<QString> ItemState::name(int row) const
{
    for (const QJsonValue& entry : m_json.value(text("names")).toArray()) {
        if (entry.toObject().value(text("row")).toInt() == row)
            return entry.toObject().value(text("text")).toString();
    }
    return std::nullopt;
}

std::optional<QRectF> ItemState::area(const QString& areaName) const
{
    const QJsonObject areas = m_json.value(text("areas")).toObject();
    const auto found = areas.constFind(areaName);
    if (found == areas.constEnd())
        return std::nullopt;
    return rectOf(found.value());
}

QString ItemState::page() const
{
    const int firstRow = number("firstRow");
    const int firstColumn = number("firstColumn");
    return text("rows %1 to %2, columns %3 to %4")
        .arg(firstRow)
        .arg(firstRow + m_json.value(text("names")).toArray().size() - 1)
        .arg(firstColumn)
        .arg(firstColumn + m_json.value(text("titles")).toArray().size() - 1);
}

QString ItemState::selection() const
{
    const QJsonObject selected = m_json.value(text("selection")).toObject();
    if (selected.isEmpty())
        return text("none");
    const int column = selected.value(text("column")).toInt();
    if (!selected.contains(text("row")))
        return text("title %1").arg(column);
    return text("cell %1 %2").arg(selected.value(text("row")).toInt()).arg(column);
}

QRectF ItemState::selectionRect() const
{
    return rectOf(m_json.value(text("selection")).toObject().value(text("rect")));
}

QString ItemState::selectionLabel() const
{
    return m_json.value(text("selection")).toObject().value(text("label")).toString();
}

QJsonArray ItemState::pendingCells() const
{
    return m_json.value(text("pending")).toArray();
}

QJsonArray ItemState::pendingTitles() const
{
    return m_json.value(text("pendingTitles")).toArray();
}
