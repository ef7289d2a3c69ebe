#pragma once

#include "qt/editor/window/message_model.h"

#include <QWidget>

class QLabel;
class QTreeView;

namespace headerdtc::qt {

// What generating the open pages, or the site, would complain about. A message leads to its place.
class MessagesPanel : public QWidget {
    Q_OBJECT

  public:
    explicit MessagesPanel(MessageModel& messages, QWidget* parent = nullptr);

  Q_SIGNALS:
    void activated(const headerdtc::qt::Message& message);

  private:
    void showCount();
    void copySelected();

    MessageModel& messages_;
    QTreeView* view_;
    QLabel* empty_;
};

}  // namespace headerdtc::qt
