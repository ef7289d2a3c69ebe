#pragma once

#include "qt/editor/window/message_model.h"

#include <QToolButton>
#include <QWidget>

class QDockWidget;
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

// How many messages there are; pressed, it shows or hides the panel that has them. That is there
// while it has something to show and somebody wants to see it.
class MessageCount : public QToolButton {
    Q_OBJECT

  public:
    // Both outlive it.
    MessageCount(MessageModel& messages, QDockWidget& panel, QWidget* parent = nullptr);

  private:
    void follow();

    MessageModel& messages_;
    QDockWidget& panel_;
};

}  // namespace headerdtc::qt
