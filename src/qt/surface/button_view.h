#pragma once

#include "controls/button.h"
#include "qt/surface/control_view.h"

class QAbstractButton;
class QCheckBox;
class QPushButton;
class QRadioButton;

namespace headerdtc::qt {

// What the three kinds of button share: a caption with a mnemonic, and being clicked.
class AbstractButtonView : public ControlView {
  public:
    AbstractButtonView(Control& control, QAbstractButton& widget, FormFace face);

    void useMnemonic(QChar letter) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void show() override { showCaption(); }
    // The arrow keys too are the model's: options go round their group with them, and nothing else
    // moves the focus, which Qt would do.
    bool keyPressed(const QKeyEvent& event) override;
    // The person's click, as an operation of the model; show() follows it, since Qt has changed a
    // check mark by itself and the model has the last word.
    virtual void click() = 0;
    void showCaption();

  private:
    void clicked();

    QAbstractButton& button_;
    QChar mnemonic_;
};

class ButtonView : public AbstractButtonView {
  public:
    ButtonView(Button& model, QPushButton& widget, FormFace face);
    QString caption() const override;

  protected:
    void click() override { model_.press(); }

  private:
    Button& model_;
};

class CheckBoxView : public AbstractButtonView {
  public:
    CheckBoxView(CheckBox& model, QCheckBox& widget, FormFace face);
    QString caption() const override;

  protected:
    void show() override;
    void click() override { model_.toggle(); }

  private:
    CheckBox& model_;
    QCheckBox& checkBox_;
};

class OptionButtonView : public AbstractButtonView {
  public:
    OptionButtonView(OptionButton& model, QRadioButton& widget, FormFace face);
    QString caption() const override;

  protected:
    void show() override;
    void click() override { model_.pick(); }

  private:
    OptionButton& model_;
    QRadioButton& radio_;
};

}  // namespace headerdtc::qt
