#pragma once

#include "qt/editor/base/message.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <QTimer>
#include <vector>

namespace headerdtc::qt {

// The messages of all pages. Each belongs to a source, an open page, say, which replaces its
// messages as a whole. What the site lacks stands in one row for all its pages.
class MessageModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { Text, Page, Where, ColumnCount };

    explicit MessageModel(QObject* parent = nullptr);

    // To be seen in the rows a moment later: a run over a site tells of thousands of pages.
    void setMessages(const QString& source, const std::vector<Message>& messages);
    // Of a row's first page.
    const Message& message(int row) const { return rows_[static_cast<std::size_t>(row)].message; }
    int count(Message::Severity severity) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    void changed();

  private:
    struct Source {
        QString name;
        std::vector<Message> messages;
    };
    struct Row {
        Message message;
        QStringList pages;
    };

    void layRows();

    std::vector<Source> sources_;
    std::vector<Row> rows_;
    QTimer soon_;
};

}  // namespace headerdtc::qt
