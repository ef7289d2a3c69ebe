#pragma once

#include "controls/event.h"
#include "controls/keys.h"

#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

class Button;
class Control;
class Form;
class TabStrip;
struct PersonAction;

// How the surroundings wait while a modal form is open: run() returns when the form is hidden.
// A failure that a handler of the form lets out leaves run() and so reaches whoever opened it.
class ModalLoop {
  public:
    virtual ~ModalLoop() = default;
    virtual void run(Form& form) = 0;
};

// The forms that one control instance has open: the surface itself and a stack of modal dialogs,
// of which only the top one can be reached.
class Desktop {
  public:
    explicit Desktop(ModalLoop& loop) : loop_(loop) {}

    const std::vector<Form*>& modalForms() const { return modalForms_; }
    // How often a modal form has been opened so far.
    int modalCount() const { return modalCount_; }

    // For the faces: a modal form was opened, was closed.
    Event<Form&> opened;
    Event<Form&> closed;
    // For whoever watches: a person begins to do something at a form, and it is over. The last
    // argument tells whether it was done or refused; a failure of a handler counts as done.
    Event<Form&, const PersonAction&> acting;
    Event<Form&, const PersonAction&, bool> acted;

  private:
    friend class Form;
    ModalLoop& loop_;
    std::vector<Form*> modalForms_;
    int modalCount_ = 0;
};

// A form: the control's surface or a dialog. It knows its controls by name, in tab order (the
// order in which they were made), and which of them has the focus.
class Form {
  public:
    enum class Kind { Surface, Dialog };

    Form(Desktop& desktop, std::string name, Kind kind, std::string caption = {});
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    Kind kind() const { return kind_; }
    Desktop& desktop() const { return desktop_; }
    // In tab order.
    const std::vector<Control*>& controls() const { return controls_; }
    // nullptr when the form has no control of that name (exact comparison).
    Control* find(std::string_view name) const;

    // ---- what a program does ---------------------------------------------------------------
    // Shows a dialog modally: raises Load the first time, then Paint, gives the first control
    // that can take it the focus, and returns when the form is hidden. Raises 5 when the form is
    // open already.
    void ShowModal();
    void Hide();
    bool Visible() const { return visible_; }
    // The control with the focus, nullptr for none.
    Control* ActiveControl() const { return active_; }

    // ---- what a person does ----------------------------------------------------------------
    // A key that reaches the form itself, outside its controls. Every key raises KeyPress here,
    // also those that raise none in a control.
    void press(const Key& key);
    // Closes a dialog by its window's own means: presses the cancel button.
    void dismiss();
    // Makes what was typed in a box, or chosen in an editor over a cell, reach the control, as
    // leaving the box would: the focus goes to the tab strip and back, unless the box has gone
    // meanwhile. Nothing in a form without tabs.
    void finishEditing();
    // The focus can be moved into this form: it is the top modal dialog, or the surface when none
    // is open.
    bool isReachable() const;

    // Buttons that Enter and Escape press in a dialog; nullptr for none.
    Button* defaultButton = nullptr;
    Button* cancelButton = nullptr;

    // ---- events ----------------------------------------------------------------------------
    Event<> Load;
    Event<> Paint;
    Event<int> KeyPress;
    // For views: another control has the focus.
    Event<> focusChanged;

    // ---- for the controls ------------------------------------------------------------------
    void add(Control& control);
    void remove(Control& control);
    void useTabStrip(TabStrip& strip) { tabStrip_ = &strip; }
    bool showsTabPage(int page) const;
    // Lost-focus of the control that has the focus, then got-focus of the other (nullptr: none),
    // unless a handler of the first has sent the focus elsewhere or made the other unusable. With
    // `again`, got-focus also when it has the focus already.
    void moveFocus(Control* control, bool again = false);
    // Focus to the next (1) or previous (-1) control in tab order that can take it.
    void focusNext(const Control& from, int direction);
    // Enter or Escape in a dialog. Tells whether a button took the key.
    bool pressDialogKey(const Key& key);
    // The shown tab page is another: a control left behind loses the focus.
    void tabPageChanged();

  private:
    bool canTakeFocus(const Control& control) const;

    Desktop& desktop_;
    std::string name_;
    std::string caption_;
    Kind kind_;
    std::vector<Control*> controls_;
    TabStrip* tabStrip_ = nullptr;
    Control* active_ = nullptr;
    bool visible_ = false;
    bool loaded_ = false;
};

}  // namespace headerdtc
