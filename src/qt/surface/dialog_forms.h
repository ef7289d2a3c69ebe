#pragma once

#include <string>

class QDialog;

namespace headerdtc::qt {

// Fills an empty dialog window with the widgets of the dialog form of that name. Raises
// std::logic_error for a form that is not there.
void setUpDialogForm(const std::string& name, QDialog& dialog);

}  // namespace headerdtc::qt
