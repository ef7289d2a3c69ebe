#pragma once

#include <QWidget>

namespace headerdtc::qt {

// A frame in the highlight colour around a list or grid that has the focus. Some styles show the
// focus by the current item alone, which an empty list does not have and a grid shows always.
class FocusOutline : public QWidget {
  public:
    // A child of the widget, which it covers without being in the mouse's way.
    explicit FocusOutline(QWidget& outlined);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace headerdtc::qt
