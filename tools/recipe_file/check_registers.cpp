// The registers of a group in a controller. Where two values have one in common, the later takes away what the earlier
// wrote, and a recipe arrives that nobody has entered: the panel on the desk refuses to send it.
#include "check_group.h"

#include "outcome.h"
#include "recipe_limits.h"

#include <algorithm>
#include <tuple>

namespace {

const char ANOTHER_ADDRESS[] = "Give one of them another address in the project and write the file again.";

/// Registers that are numbered together. Field 2 of an address goes with the device, field 5 lies inside a register.
struct Bank
{
    QString device;
    qint32 station;
    QString area;
    QString name; ///< in the place of a number: a register of its own

    bool operator==(const Bank& other) const { return tie() == other.tie(); }
    bool operator<(const Bank& other) const { return tie() < other.tie(); }

private:
    std::tuple<const QString&, const qint32&, const QString&, const QString&> tie() const
    {
        return std::tie(device, station, area, name);
    }
};

/// The registers that one value takes.
struct Span
{
    Bank bank;
    std::int64_t first;
    std::int64_t end;
    std::size_t owner; ///< an item's place, or the number of items for the notification

    bool operator<(const Span& other) const
    {
        return std::tie(bank, first, owner) < std::tie(other.bank, other.first, other.owner);
    }
};

Span spanOf(const QString& device, const recipeRegAddr_t& address, const QString& number, int words, std::size_t owner)
{
    bool isNumber = false;
    const std::int64_t first = number.toInt(&isNumber);
    // "=" keeps an empty name apart from none
    return {{device, address.addrPart1, address.regTypeText(), isNumber ? QString() : QLatin1Char('=') + number},
            first,
            first + std::max(words, 1),
            owner};
}

std::string registerText(const Span& span)
{
    const QString number = span.bank.name.isEmpty() ? QString::number(span.first) : span.bank.name.mid(1);
    return quoted((span.bank.area + QLatin1Char(' ') + number).toStdString()) + " of "
           + quoted(span.bank.device.toStdString());
}

struct Meeting
{
    std::size_t earlier; ///< owners
    std::size_t later;
    std::string registerText;
};

/// For each value at most one other that it meets, in the order of the later of the two.
std::vector<Meeting> meetings(std::vector<Span> spans)
{
    std::sort(spans.begin(), spans.end());
    std::vector<Meeting> found;
    const Span* reaching = nullptr; // of what came before in this bank, the one that goes farthest
    for (const Span& span : spans) {
        if (reaching && !(reaching->bank == span.bank))
            reaching = nullptr;
        if (reaching && span.first < reaching->end) {
            const auto [earlier, later] = std::minmax(reaching->owner, span.owner);
            found.push_back({earlier, later, registerText(span)});
        }
        if (!reaching || span.end > reaching->end)
            reaching = &span;
    }
    std::sort(found.begin(), found.end(), [](const Meeting& a, const Meeting& b) {
        return std::tie(a.later, a.earlier) < std::tie(b.later, b.earlier);
    });
    return found;
}

} // namespace

/// Addresses that cannot be read have been told of before, and have no device here.
void GroupChecker::checkRegisters()
{
    std::vector<Span> spans;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const recipeItemInfo_t& item = m_items[i];
        if (!item.devName.isEmpty())
            spans.push_back(spanOf(item.devName, item.regAddr, item.addrPart4, wordCount(item), i));
    }
    RECIPE_ADDRESS notification;
    notification.fromString(QString::fromStdString(m_config.notifyAddress));
    if (m_config.notify != 0 && !notification.devName.isEmpty())
        spans.push_back(
            spanOf(notification.devName, recipeRegAddr_t(notification), notification.addrPart4, 1, m_items.size()));
    for (const Meeting& meeting : meetings(std::move(spans))) {
        const std::string with = itemPlace(m_items[meeting.earlier].rowIndex).substr(m_place.size() + 2);
        const bool isItem = meeting.later < m_items.size();
        warn("shared-register", isItem ? itemPlace(m_items[meeting.later].rowIndex) : m_place,
             (isItem ? "It shares the register " : "Its notification shares the register ") + meeting.registerText
                 + " with " + with + ", so where they differ a recipe cannot be sent whole.",
             ANOTHER_ADDRESS);
    }
}
