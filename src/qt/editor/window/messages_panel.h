#pragma once

#include "qt/editor/window/message_model.h"

#include <QWidget>

class QTreeView;

namespace headerdtc::qt {

// What a check of the open pages, and of the site, has found. A message leads to its place.
class MessagesPanel : public QWidget {
    Q_OBJECT

  public:
    explicit MessagesPanel(MessageModel& messages, QWidget* parent = nullptr);

  Q_SIGNALS:
    void activated(const headerdtc::qt::Message& message);

  private:
    void copySelected();

    MessageModel& messages_;
    QTreeView* view_;
};

}  // namespace headerdtc::qt
