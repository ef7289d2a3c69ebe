#include "qt/editor/window/message_model.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <algorithm>
#include <map>

namespace headerdtc::qt {
namespace {

struct MessageLook {
    const char* icon;
    const char* word;
};

// In the order of Message::Severity.
constexpr MessageLook MessageLooks[] = {
    {"dialog-information", QT_TRANSLATE_NOOP("MessageModel", "Note")},
    {"dialog-warning", QT_TRANSLATE_NOOP("MessageModel", "Warning")},
    {"dialog-error", QT_TRANSLATE_NOOP("MessageModel", "Error")},
};

constexpr int MostNamed = 20;  // pages in a tool tip

}  // namespace

MessageModel::MessageModel(QObject* parent) : QAbstractTableModel(parent) {
    soon_.setSingleShot(true);
    soon_.setInterval(0);
    connect(&soon_, &QTimer::timeout, this, &MessageModel::layRows);
}

void MessageModel::setMessages(const QString& source, const std::vector<Message>& messages) {
    // The source keeps its place in the list.
    auto found = std::find_if(sources_.begin(), sources_.end(),
                              [&](const Source& known) { return known.name == source; });
    if (found == sources_.end()) {
        if (messages.empty()) return;
        found = sources_.insert(found, {source, {}});
    }
    found->messages = messages;
    if (messages.empty()) sources_.erase(found);

    soon_.start();
}

void MessageModel::layRows() {
    beginResetModel();
    rows_.clear();
    std::map<QString, std::size_t> ofSite;  // rows, by text
    for (const Source& each : sources_) {
        for (const Message& message : each.messages) {
            const QString page = toName(message.page);
            if (message.isOfSite) {
                const auto [row, isNew] = ofSite.emplace(message.text, rows_.size());
                if (!isNew) {
                    QStringList& pages = rows_[row->second].pages;
                    if (!pages.contains(page)) pages += page;
                    continue;
                }
            }
            rows_.push_back({message, {page}});
        }
    }
    endResetModel();
    Q_EMIT changed();
}

int MessageModel::count(Message::Severity severity) const {
    return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [&](const Row& row) {
        return row.message.severity == severity;
    }));
}

int MessageModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MessageModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageModel::data(const QModelIndex& index, int role) const {
    const auto& [shown, pages] = rows_[static_cast<std::size_t>(index.row())];
    const MessageLook& look = MessageLooks[static_cast<std::size_t>(shown.severity)];
    switch (role) {
        case Qt::DecorationRole:
            return index.column() == Text ? editorIcon(look.icon) : QVariant();
        case Qt::ToolTipRole:
            return index.column() == Page ? pages.mid(0, MostNamed).join(QLatin1Char('\n'))
                                          : shown.text;
        case Qt::AccessibleTextRole:
            if (index.column() == Text) return tr(look.word) + QLatin1String(": ") + shown.text;
            [[fallthrough]];
        case Qt::DisplayRole:
            break;
        default:
            return {};
    }
    switch (index.column()) {
        case Text:
            return shown.text;
        case Page:
            return pages.size() == 1 ? toName(shown.page.filename())
                                     : tr("%1 pages").arg(pages.size());
        default:
            return pages.size() == 1 ? describe(shown.place) : QString();
    }
}

QVariant MessageModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const QString names[] = {tr("Message"), tr("Page"), tr("Place")};
    return names[section];
}

}  // namespace headerdtc::qt
