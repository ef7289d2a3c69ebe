#pragma once

#include <QListView>

namespace headerdtc::qt {

// A list view that tells what the person at it has done, one signal for each action, however many
// steps its selection went through on the way.
class SelectionList : public QListView {
    Q_OBJECT

  public:
    explicit SelectionList(QWidget* parent = nullptr);

    // Shown while there are no items: why there are none.
    void setEmptyText(const QString& text);
    const QString& emptyText() const { return emptyText_; }

    // Changes of selection, current item or items made within its life are the program's.
    class Showing {
      public:
        explicit Showing(SelectionList& list) : list_(list) { ++list_.showing_; }
        Showing(const Showing&) = delete;
        Showing& operator=(const Showing&) = delete;
        ~Showing() { --list_.showing_; }

      private:
        SelectionList& list_;
    };

  Q_SIGNALS:
    // The person is about to act on what is shown.
    void actionBegins();
    // An item was pressed, or selection or current item are other ones now.
    void selected();
    // The second press of a double click; the first one was signalled as selected(), or fell on the
    // empty area.
    void pressedTwice();

  protected:
    // An item's text that the list is too narrow for shows as a tool tip.
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& left) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    void changed();
    void endAction();

    QString emptyText_;
    int showing_ = 0;
    bool acting_ = false;    // keys and presses are followed by one signal when they are over
    bool changed_ = false;   // within the action
    bool dragging_ = false;  // the mouse was pressed on an item
};

}  // namespace headerdtc::qt
