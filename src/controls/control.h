#pragma once

#include "controls/event.h"
#include "controls/keys.h"

#include <stdexcept>
#include <string>

namespace headerdtc {

class Button;
class CheckBox;
class ComboBox;
class Form;
class Grid;
class Label;
class ListBox;
class OptionButton;
class TabStrip;
class TextBox;

// Thrown by the person-side operations for what a person cannot do: act on a control that is
// disabled, hidden, on another tab or behind a modal dialog, or on an item that is not there.
// Nothing has happened then.
class ActionRefused : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// One function for each kind of control; the faces of the models (windows, automation) walk the
// controls of a form with it.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Button& control) = 0;
    virtual void visit(CheckBox& control) = 0;
    virtual void visit(ComboBox& control) = 0;
    virtual void visit(Grid& control) = 0;
    virtual void visit(Label& control) = 0;
    virtual void visit(ListBox& control) = 0;
    virtual void visit(OptionButton& control) = 0;
    virtual void visit(TabStrip& control) = 0;
    virtual void visit(TextBox& control) = 0;
};

// What every control model has. Two kinds of operation stand apart in each model: what a program
// does (names with a capital: Enabled, SetFocus, ListIndex) and what a person does (names with a
// small letter: focus, press, pick), which is refused where a person could not do it and moves
// the focus first.
//
// A control belongs to one form for life; the form outlives it. Positions and sizes are in twips
// (1440 to the inch), relative to the form.
class Control {
  public:
    Control(Form& form, std::string name);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    virtual void accept(ControlVisitor& visitor) = 0;

    // The control's full name, unique in its form.
    const std::string& name() const { return name_; }
    Form& form() const { return form_; }

    // ---- designed once, read by the views -------------------------------------------------
    // The page of the form's tab strip that the control stands on; -1 when it is on none.
    int tabPage() const { return tabPage_; }
    // The caption of the label beside the control, empty when there is none.
    const std::string& label() const { return label_; }
    const std::string& toolTip() const { return toolTip_; }
    Control& onTabPage(int page);
    Control& labelled(std::string label);
    Control& withToolTip(std::string toolTip);
    Control& placed(int left, int top, int width, int height);

    // ---- what a program does ---------------------------------------------------------------
    bool Enabled() const { return enabled_; }
    // Disabling or hiding the control that has the focus takes the focus from it (lost-focus).
    void Enabled(bool enabled);
    bool Visible() const { return visible_; }
    void Visible(bool visible);
    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    void Width(int width);
    int Height() const { return height_; }
    void Height(int height);
    void Move(int left, int top);
    // Gives the control the focus: lost-focus of the control that had it, then got-focus; nothing
    // when it has the focus already. Raises 5 when the control is disabled, does not show or
    // takes no focus.
    void SetFocus();

    bool hasFocus() const;
    // Whether the focus can ever be here.
    virtual bool acceptsFocus() const { return true; }
    // Visible, and on the tab page that is shown.
    bool isShowing() const;

    // ---- what a person does ----------------------------------------------------------------
    // Moves the focus here, as by Tab or a mouse press.
    void focus();
    // Presses a key with the focus here.
    virtual void press(const Key& key) = 0;
    // Throws ActionRefused when a person could not act on this control now.
    void requireReachable() const;

    // ---- events ----------------------------------------------------------------------------
    Event<> GotFocus;
    Event<> LostFocus;
    // For views: enabled, visible, place, size or caption is another.
    Event<> appearanceChanged;

  protected:
    // Reachable, the focus moved here, and still reachable afterwards.
    void takeFocus();
    // The Tab key, which every control treats alike. Tells whether the key was Tab.
    bool pressTab(const Key& key);
    // The first statement of a person-side operation that names an item or a cell.
    [[noreturn]] void refuse(const std::string& reason) const;

  private:
    void releaseFocusIfUnusable();

    Form& form_;
    std::string name_;
    std::string label_;
    std::string toolTip_;
    int tabPage_ = -1;
    int left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    bool enabled_ = true;
    bool visible_ = true;
};

}  // namespace headerdtc
