#include "qt/editor/window/message_model.h"

#include "qt/editor/base/icons.h"

#include <algorithm>
#include <utility>

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

}  // namespace

void MessageModel::setMessages(const QString& source, std::vector<Message> messages) {
    const auto isOfSource = [&](const Entry& entry) { return entry.source == source; };
    if (messages.empty() && std::none_of(entries_.begin(), entries_.end(), isOfSource)) return;
    beginResetModel();
    // The source keeps its place in the list.
    auto at = std::find_if(entries_.begin(), entries_.end(), isOfSource) - entries_.begin();
    std::erase_if(entries_, isOfSource);
    for (Message& message : messages)
        entries_.insert(entries_.begin() + at++, {source, std::move(message)});
    endResetModel();
    Q_EMIT changed();
}

void MessageModel::removeSources(const QString& prefix) {
    beginResetModel();
    std::erase_if(entries_, [&](const Entry& entry) { return entry.source.startsWith(prefix); });
    endResetModel();
    Q_EMIT changed();
}

int MessageModel::count(Message::Severity atLeast) const {
    return static_cast<int>(
        std::count_if(entries_.begin(), entries_.end(),
                      [&](const Entry& entry) { return entry.message.severity >= atLeast; }));
}

int MessageModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int MessageModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageModel::data(const QModelIndex& index, int role) const {
    const Message& shown = message(index.row());
    const MessageLook& look = MessageLooks[static_cast<std::size_t>(shown.severity)];
    switch (role) {
        case Qt::DecorationRole:
            return index.column() == Text ? editorIcon(look.icon) : QVariant();
        case Qt::ToolTipRole:
            return index.column() == Page ? QString::fromStdString(shown.page.string())
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
            return QString::fromStdString(shown.page.filename().string());
        default:
            return describe(shown.place);
    }
}

QVariant MessageModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const QString names[] = {tr("Message"), tr("Page"), tr("Place")};
    return names[section];
}

}  // namespace headerdtc::qt
