#pragma once

#include "controls/control.h"
#include "controls/form.h"
#include "controls/keys.h"

#include <string>
#include <vector>

namespace headerdtc {

// What a person does to a control or a form, told by the person-side operations themselves to
// whoever watches the desktop (Desktop::acting, Desktop::acted). One operation may call another,
// which then tells of itself too; and while one waits for a dialog, those in the dialog tell of
// theirs.
struct PersonAction {
    enum class Kind {
        Focus,
        Press,  // a button, a check box, an option
        Select,
        DoubleClick,
        DoubleClickEmptyArea,
        Choose,
        Edit,  // the text becomes another
        ClickTab,
        ClickCell,
        DoubleClickCell,
        ClickAgain,  // the second press of a double click
        Scroll,
        Key,
        // A key-down or key-press alone: what the key does to the text comes as an Edit.
        KeyStep,
    };
    Kind kind;
    Control* control = nullptr;  // nullptr: the form itself
    int index = -1;              // item, page, row; of Select the item with the focus
    int column = -1;
    Key key = {};
    const std::vector<int>* items = nullptr;  // of Select
    const std::string* text = nullptr;        // of Edit
};

// Does the body of an action and tells of it before and after.
template <class Body>
void perform(Form& form, const PersonAction& action, Body body) {
    Desktop& desktop = form.desktop();
    desktop.acting.raise(form, action);
    try {
        body();
    } catch (const ActionRefused&) {
        desktop.acted.raise(form, action, false);
        throw;
    } catch (...) {
        desktop.acted.raise(form, action, true);
        throw;
    }
    desktop.acted.raise(form, action, true);
}

template <class Body>
void perform(const PersonAction& action, Body body) {
    perform(action.control->form(), action, body);
}

}  // namespace headerdtc
