#pragma once

#include "controls/label.h"
#include "qt/surface/control_view.h"
#include "qt/surface/text.h"

#include <QLabel>

namespace headerdtc::qt {

class LabelView : public ControlView {
  public:
    LabelView(Label& model, QLabel& widget, FormFace face)
        : ControlView(model, widget, face), model_(model), label_(widget) {
        // A field's name may look like markup.
        label_.setTextFormat(Qt::PlainText);
        subscriptions_ += model_.appearanceChanged.subscribe([this] { show(); });
    }

    QString caption() const override { return toQt(model_.Caption()); }

  protected:
    void show() override {
        label_.setText(caption());
        describe();
    }

  private:
    Label& model_;
    QLabel& label_;
};

}  // namespace headerdtc::qt
