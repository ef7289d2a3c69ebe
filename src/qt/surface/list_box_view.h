#pragma once

#include "controls/list_box.h"
#include "qt/surface/control_view.h"
#include "qt/surface/items_model.h"

#include <QTimer>
#include <vector>

namespace headerdtc::qt {

class SelectionList;

class ListBoxView : public ControlView {
  public:
    ListBoxView(ListBox& model, SelectionList& widget, FormFace face);

  protected:
    void show() override;
    // The arrow keys are the model's; Qt's list knows Shift, Ctrl, pages and searching by typing.
    bool keyPressed(const QKeyEvent& event) override;

  private:
    void beginChange(const ItemsChange& change);
    void applyChange(const ItemsChange& change);
    void showIfPending();
    void select();
    // Whether these items are others than the selected ones.
    bool isAnother(const std::vector<int>& items) const;

    ListBox& model_;
    SelectionList& list_;
    ItemsModel items_;
    // A program marks items one by one; the list shows the outcome once, when it is done.
    QTimer showSoon_;
};

}  // namespace headerdtc::qt
