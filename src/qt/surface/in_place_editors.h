#pragma once

#include "controls/event.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <memory>
#include <vector>

class QTableView;
class QWidget;

namespace headerdtc {
class Control;
}

namespace headerdtc::qt {

class GridModel;

// The in-place editors of one grid. A form marks them with the dynamic property "cellColumn", the
// column they are made for, and has them stand beside their table. There they stay, since to
// assistive technology a table has cells and nothing else, each in a frame over what is seen of its
// cell: an editor that shows covers its cell exactly, wherever scrolling, sizes or rows above take
// that cell. The place that the model gives an editor is in the model's own measure.
class InPlaceEditors : public QObject {
  public:
    InPlaceEditors(QTableView& table, const GridModel& cells);

    // Whether a form made this widget an in-place editor.
    static bool isEditor(const QWidget& widget);

    void add(Control& control, QWidget& widget);
    // Lays the editors that show over their cells.
    void place();
    // The control that such a widget is the view of.
    Control& controlOf(const QWidget& widget) const;
    // The widget that lies over a cell, nullptr for none.
    QWidget* over(const QModelIndex& cell) const;

    // What the editors need of a column and of every row, in pixels.
    int widthNeeded(int column) const;
    int heightNeeded() const;

  private:
    struct Editor {
        Control& control;
        QWidget& widget;
        QWidget& frame;
        // Where the program laid the editor; another place means another cell.
        int left = 0;
        int top = 0;
        bool shown = false;
        QPersistentModelIndex cell = {};
    };
    void follow(Editor& editor);
    void place(Editor& editor);

    QTableView& table_;
    const GridModel& cells_;
    std::vector<std::unique_ptr<Editor>> editors_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::qt
