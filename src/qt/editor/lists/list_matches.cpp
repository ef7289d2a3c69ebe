#include "qt/editor/lists/list_matches.h"

#include "qt/surface/text.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

// What an entry is read as: "  7 - CITY", "ORDERS.CITY", or one text.
QStringList partsOf(const QString& entry) {
    for (const auto& separator : {QStringLiteral(" - "), QStringLiteral(".")}) {
        const qsizetype at = entry.indexOf(separator);
        if (at > 0) return {entry.left(at), entry.mid(at + separator.size())};
    }
    return {entry};
}

// Less is better; -1: not at all.
int rankOf(const QString& entry, const QString& sought) {
    if (!entry.contains(sought, Qt::CaseInsensitive)) return -1;
    int best = 2;
    for (const QString& part : partsOf(entry)) {
        if (part.compare(sought, Qt::CaseInsensitive) == 0) return 0;
        if (part.startsWith(sought, Qt::CaseInsensitive)) best = 1;
    }
    return entry.startsWith(sought, Qt::CaseInsensitive) ? std::min(best, 1) : best;
}

}  // namespace

std::vector<int> findInList(const ListBox& list, const std::string& sought) {
    const QString text = toQt(sought).trimmed();
    if (text.isEmpty()) return {};
    if (text.startsWith(QLatin1Char('#'))) {
        bool isNumber = false;
        const int position = text.mid(1).toInt(&isNumber);
        if (isNumber && position >= 1 && position <= list.ListCount()) return {position - 1};
    }
    std::vector<std::pair<int, int>> found;  // rank, item
    for (int i = 0; i < list.ListCount(); ++i) {
        const int rank = rankOf(toQt(list.List(i)).trimmed(), text);
        if (rank >= 0) found.emplace_back(rank, i);
    }
    std::sort(found.begin(), found.end());
    std::vector<int> items;
    items.reserve(found.size());
    for (const auto& [rank, item] : found)
        items.push_back(item);
    return items;
}

}  // namespace headerdtc::qt
