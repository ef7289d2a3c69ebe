#pragma once

#include "controls/grid.h"
#include "qt/surface/control_view.h"
#include "qt/surface/grid_model.h"
#include "qt/surface/in_place_editors.h"

#include <vector>

class QHelpEvent;
class QTableView;

namespace headerdtc::qt {

// A grid. Its form may give the table two dynamic properties, lists of column numbers with blanks
// between: "slackColumns" share the width that the other columns leave, "buttonColumns" hold cells
// that Enter and Space click, so that the keyboard reaches what a click on them does.
class GridView : public ControlView {
  public:
    GridView(Grid& model, QTableView& widget, FormFace face);

    void addEditor(Control& editor, QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void show() override;
    bool keyPressed(const QKeyEvent& event) override;

  private:
    void setUpTable();
    void applyChange(const GridChange& change);
    // Of a row and the columns, in twips.
    std::vector<int> sizes() const;
    void fitCells();
    int pixels(int twips) const;
    int cellMargin() const;
    void showCurrentCell();
    bool viewportEvent(const QEvent& event);
    bool showCutOffText(const QHelpEvent& event);
    void pressCell(const QModelIndex& cell);
    void pressKey(const Key& key);
    bool leaveEditor(QWidget& widget, const QKeyEvent& event);
    void scrolled(int firstRow);

    Grid& model_;
    QTableView& table_;
    GridModel cells_;
    InPlaceEditors editors_;
    std::vector<int> fitted_;
    bool personScrolls_ = false;
};

}  // namespace headerdtc::qt
