#pragma once

#include "qt/editor/base/message.h"

#include <QAbstractTableModel>
#include <vector>

namespace headerdtc::qt {

// The messages of all pages. Each belongs to a source, the preview of a control, say, which
// replaces its messages as a whole.
class MessageModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { Text, Page, Where, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setMessages(const QString& source, std::vector<Message> messages);
    // The messages of all sources whose names begin so.
    void removeSources(const QString& prefix);
    const Message& message(int row) const {
        return entries_[static_cast<std::size_t>(row)].message;
    }
    int count(Message::Severity atLeast) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    void changed();

  private:
    struct Entry {
        QString source;
        Message message;
    };
    std::vector<Entry> entries_;
};

}  // namespace headerdtc::qt
