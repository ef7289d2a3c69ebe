#pragma once

#include "controls/combo_box.h"
#include "qt/surface/control_view.h"
#include "qt/surface/items_model.h"

class QComboBox;

namespace headerdtc::qt {

class ComboBoxView : public ControlView {
  public:
    ComboBoxView(ComboBox& model, QComboBox& widget, FormFace face);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void show() override;
    bool keyPressed(const QKeyEvent& event) override;

  private:
    void beEditable();
    void applyChange(const ItemsChange& change);
    void choose(int item);
    void edited();

    ComboBox& model_;
    QComboBox& combo_;
    ItemsModel items_;
    bool showing_ = false;
};

}  // namespace headerdtc::qt
