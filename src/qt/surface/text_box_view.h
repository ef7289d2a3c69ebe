#pragma once

#include "controls/text_box.h"
#include "qt/surface/control_view.h"

#include <optional>
#include <string>

class QLineEdit;
class QPlainTextEdit;

namespace headerdtc::qt {

// A text box: the model is asked about each key first; the widget then edits and reports the
// result.
class TextBoxView : public ControlView {
  public:
    TextBoxView(TextBox& model, QWidget& widget, FormFace face);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    // Whether a person could edit the text; read-only text has the window's background.
    bool isEditable() const { return model_.Enabled() && !model_.Locked(); }
    void showGround();
    bool keyPressed(const QKeyEvent& event) override;
    // Keys that only the model acts upon.
    virtual bool isModelKey(const Key& key) const = 0;
    // The key passed the model; tells whether the view has done what it does to the text.
    virtual bool applyKey(const Key&) { return false; }
    // The widget's text, nothing when it is still the model's; the selection as the model counts.
    void edited(const std::optional<std::string>& text, int selStart, int selLength);

    TextBox& model_;
    bool showing_ = false;

  private:
    bool colouring_ = false;
};

class LineView : public TextBoxView {
  public:
    LineView(TextBox& model, QLineEdit& widget, FormFace face);

  protected:
    void show() override;
    bool isModelKey(const Key& key) const override;

  private:
    void report();

    QLineEdit& edit_;
};

class LinesView : public TextBoxView {
  public:
    LinesView(TextBox& model, QPlainTextEdit& widget, FormFace face);

  protected:
    void show() override;
    // A text that cannot be edited can still be scrolled through.
    void showEnabled(bool enabled) override;
    bool isModelKey(const Key& key) const override;
    bool applyKey(const Key& key) override;

  private:
    void report();

    QPlainTextEdit& edit_;
};

}  // namespace headerdtc::qt
