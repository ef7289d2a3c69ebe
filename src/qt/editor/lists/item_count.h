#pragma once

#include "controls/event.h"

#include <QLabel>
#include <QTimer>

namespace headerdtc {
class ListBox;
}

namespace headerdtc::qt {

// How many items a list has and how many of them are marked: "12 of 214".
class ItemCount : public QLabel {
    Q_OBJECT

  public:
    // The list outlives the label.
    explicit ItemCount(ListBox& list, QWidget* parent = nullptr);

  private:
    void follow();

    ListBox& list_;
    QTimer soon_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::qt
