#include "scripts/specify_criterium_dialog.h"

#include "platform/text.h"
#include "scripts/scripts.h"

#include <functional>

namespace headerdtc {
namespace {

constexpr const char* NotApplicable = "(Not applicable)";

// The options in the order in which OK tests them.
struct KindOption {
    OptionButton SpecifyCriteriumDialog::*option;
    std::int32_t type;
};
constexpr KindOption KindOptions[] = {
    {&SpecifyCriteriumDialog::LocalScriptOption, USERSCRIPT},
    {&SpecifyCriteriumDialog::IncludedScriptOption, INCLUDEFUNCTION},
    {&SpecifyCriteriumDialog::ConstantOption, CONSTANT},
};

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view FunctionTemplate =
    "Function <NAME>()\r\n\r\n<BODY>\r\nEnd Function '<NAME>()";

// The dialog for one row of a criteria grid. tab: 1 = EAI, 2 = ZEKO; the row's value name, the
// script stored under it and its value type. Returns when the dialog is closed; OK has then stored
// the value. Traps nothing.
void ShowSpecifyCriteriumDialog(HeaderDTC& dtc, int tab, int row, const std::string& name,
                                const std::string& script, std::int32_t valueType) {
    SpecifyCriteriumDialog dialog(dtc);
    dialog.TabValue = tab;
    dialog.RowValue = row;
    dialog.ValueType(valueType);
    dialog.NameValue(name);
    dialog.TextValue(name.empty() ? std::string() : script);
    dialog.form.ShowModal();
}

}  // namespace

SpecifyCriteriumDialog::SpecifyCriteriumDialog(HeaderDTC& dtc)
    : form(dtc.desktop, "SpecifyCriteriumDialog", Form::Kind::Dialog, "Specify script"),
      NameText(form, "NameText"),
      ScriptBodyText(form, "ScriptBodyText", TextBox::Lines::Multiple),
      ScriptText(form, "ScriptText", TextBox::Lines::Multiple),
      IncludedScriptOption(form, "IncludedScriptOption", "Included script", kinds_),
      LocalScriptOption(form, "LocalScriptOption", "Local script", kinds_),
      ConstantOption(form, "ConstantOption", "Constant", kinds_),
      OKButton(form, "OKButton", "OK"),
      CancelButton(form, "CancelButton", "Cancel"),
      dtc_(dtc) {
    NameText.labelled("Name:");
    ScriptBodyText.labelled("Script body:");
    ScriptText.labelled("Overview:");
    // In the script itself Enter is a new line.
    form.defaultButton = &OKButton;
    form.cancelButton = &CancelButton;

    // What loading does has to precede the values that the launcher sets, which may enable the
    // body; showing the form would load it after them.
    ScriptBodyText.Enabled(false);
    ScriptText.Enabled(false);

    subscriptions_ += ConstantOption.Click.subscribe([this] { declareNotApplicable(); });
    subscriptions_ += IncludedScriptOption.Click.subscribe([this] { declareNotApplicable(); });
    subscriptions_ += LocalScriptOption.Click.subscribe([this] { LocalScriptOption_Click(); });
    subscriptions_ += ScriptBodyText.Change.subscribe([this] { ScriptBodyText_Change(); });
    subscriptions_ += OKButton.Click.subscribe([this] { OKButton_Click(); });
    subscriptions_ += CancelButton.Click.subscribe([this] { CancelButton_Click(); });
}

void SpecifyCriteriumDialog::ValueType(std::int32_t type) {
    valueType_ = type;
    for (const auto& [option, optionType] : KindOptions) {
        if (optionType == type) (this->*option).Value(true);
    }
}

void SpecifyCriteriumDialog::NameValue(const std::string& name) {
    NameText.Text(name);
    if (!name.empty()) NameText.Enabled(false);
}

// The boxes of a named constant or included function keep saying that there is no script.
void SpecifyCriteriumDialog::TextValue(const std::string& function) {
    const bool hasNoScript = ConstantOption.Value() || IncludedScriptOption.Value();
    if (hasNoScript && !NameText.Text().empty()) return;
    ScriptBodyText.Text(scriptBody(function));
}

// The body first: its change rebuilds the overview, which is then overwritten.
void SpecifyCriteriumDialog::declareNotApplicable() {
    for (TextBox* box : {&ScriptBodyText, &ScriptText}) {
        box->Text(NotApplicable);
        box->Enabled(false);
    }
}

void SpecifyCriteriumDialog::LocalScriptOption_Click() {
    if (ScriptBodyText.Text() == NotApplicable) ScriptBodyText.Text("");
    ScriptBodyText.Enabled(true);
}

// A change of the name alone rebuilds nothing: the function keeps the name that was there when its
// body last changed.
void SpecifyCriteriumDialog::ScriptBodyText_Change() {
    ScriptText.Text(scriptFunction(NameText.Text(), ScriptBodyText.Text()));
}

void SpecifyCriteriumDialog::OKButton_Click() {
    for (const auto& [option, type] : KindOptions) {
        if (!(this->*option).Value()) continue;
        valueType_ = type;
        break;
    }
    dtc_.SetCriteriumValue(TabValue, RowValue, NameText.Text(), ScriptText.Text(), valueType_);
    form.Hide();
}

void SpecifyCriteriumDialog::CancelButton_Click() {
    ScriptText.Text("");
    ScriptBodyText.Text("");
    form.Hide();
}

std::string scriptFunction(std::string_view name, std::string_view body) {
    return replaceAllIgnoringCase(replaceAllIgnoringCase(FunctionTemplate, "<NAME>", name),
                                  "<BODY>", body);
}

std::string scriptBody(std::string_view function) {
    const std::string text = replaceAll(replaceAll(function, LineEnd, "\r"), "\r", LineEnd);
    const auto lines = splitText(text, LineEnd);
    std::string body;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        if (!trimBlanks(lines[i]).empty()) body.append(lines[i]).append(LineEnd);
    }
    return body;
}

void provideScriptDialog(HeaderDTC& dtc) {
    dtc.procedures.ShowSpecifyCriteriumDialog =
        std::bind_front(ShowSpecifyCriteriumDialog, std::ref(dtc));
}

}  // namespace headerdtc
