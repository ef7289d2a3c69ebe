#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "core/header_dtc.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace headerdtc {

// The dialog in which an author says what a criterion's value is: a constant, the name of a
// function from an include file, or a local script, whose body is written here. Made anew for
// every opening. Traps nothing: a failure leaves ShowModal.
//
// Set the row, then the value's type, name and script in this order, then show the form.
class SpecifyCriteriumDialog {
    OptionGroup kinds_;  // before its options, which leave it when they go

  public:
    explicit SpecifyCriteriumDialog(HeaderDTC& dtc);
    SpecifyCriteriumDialog(const SpecifyCriteriumDialog&) = delete;
    SpecifyCriteriumDialog& operator=(const SpecifyCriteriumDialog&) = delete;

    Form form;
    TextBox NameText;
    TextBox ScriptBodyText;
    TextBox ScriptText;  // the whole function as it will be stored; filled by the program only
    OptionButton IncludedScriptOption, LocalScriptOption, ConstantOption;
    Button OKButton, CancelButton;

    // ---- set by the launcher ---------------------------------------------------------------
    int TabValue = 0;  // 1 = EAI, 2 = ZEKO
    int RowValue = 0;  // of the criteria grid
    // 0, 1 or 2 selects an option; any other number leaves them as they are and is kept.
    void ValueType(std::int32_t type);
    // A name that is not empty cannot be changed here.
    void NameValue(const std::string& name);
    // The stored function of a local script.
    void TextValue(const std::string& function);

  private:
    void declareNotApplicable();
    void LocalScriptOption_Click();
    void ScriptBodyText_Change();
    void OKButton_Click();
    void CancelButton_Click();

    HeaderDTC& dtc_;
    std::int32_t valueType_ = 0;
    Subscriptions subscriptions_;
};

// ---- the text of a local script ----------------------------------------------------------------

// The stored text of a local script is a whole function; the author writes its body only.

// The function of that name around a body: a header line, an empty line, the body, and a closing
// line that repeats the name. A "<BODY>" in the name is replaced by the body too.
std::string scriptFunction(std::string_view name, std::string_view body);

// The body of a stored function: its lines without the first and the last one, whatever these
// are, and without the blank ones; each ends in CR LF. A lone CR ends a line like CR LF, a lone LF
// does not. Fewer than three lines have no body.
std::string scriptBody(std::string_view function);

}  // namespace headerdtc
