#include "suggest.h"

#include <QString>

#include <algorithm>

namespace {

/// Insertions, removals, replacements and swaps of neighbours.
int distance(const QString& a, const QString& b)
{
    const int rows = static_cast<int>(a.size()) + 1;
    const int columns = static_cast<int>(b.size()) + 1;
    std::vector<int> cost(static_cast<std::size_t>(rows * columns));
    const auto at = [&](int i, int j) -> int& { return cost[static_cast<std::size_t>(i * columns + j)]; };
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j) {
            if (i == 0 || j == 0) {
                at(i, j) = i + j;
                continue;
            }
            const int replaced = at(i - 1, j - 1) + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, replaced});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
        }
    }
    return at(rows - 1, columns - 1);
}

} // namespace

std::string didYouMean(const std::string& given, const std::vector<std::string>& known)
{
    const QString word = QString::fromStdString(given).toLower().left(64);
    int best = std::max(1, static_cast<int>(word.size()) / 3) + 1;
    std::string found;
    for (const std::string& name : known) {
        const QString candidate = QString::fromStdString(name).toLower().left(64);
        const bool startsIt = word.size() >= 3 && candidate.startsWith(word);
        const int d = startsIt ? 1 : distance(word, candidate);
        if (d < best) {
            best = d;
            found = name;
        }
    }
    return found.empty() ? std::string() : ", did you mean \"" + found + "\"?";
}
