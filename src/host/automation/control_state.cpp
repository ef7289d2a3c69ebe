#include "host/automation/control_state.h"

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"

#include <nlohmann/json.hpp>

namespace headerdtc {
namespace {

using Json = nlohmann::ordered_json;

template <class ListLike>
Json itemsOf(const ListLike& list) {
    Json items = Json::array();
    for (int i = 0; i < list.ListCount(); ++i)
        items.push_back(list.List(i));
    return items;
}

class StateReader : public ControlVisitor {
  public:
    Json state = Json::object();

    void visit(Button& button) override { state["caption"] = button.Caption(); }
    void visit(Label& label) override { state["caption"] = label.Caption(); }
    void visit(CheckBox& box) override { state["value"] = static_cast<int>(box.Value()); }
    void visit(OptionButton& option) override { state["value"] = option.Value(); }
    void visit(TabStrip& strip) override { state["tab"] = strip.Tab(); }

    void visit(ComboBox& combo) override {
        state["items"] = itemsOf(combo);
        state["listIndex"] = combo.ListIndex();
        state["text"] = combo.Text();
    }

    void visit(ListBox& list) override {
        state["items"] = itemsOf(list);
        Json selected = Json::array();
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.Selected(i)) selected.push_back(i);
        }
        state["selected"] = std::move(selected);
        state["listIndex"] = list.ListIndex();
    }

    void visit(TextBox& box) override {
        state["text"] = box.Text();
        state["selStart"] = box.SelStart();
        state["selLength"] = box.SelLength();
    }

    void visit(Grid& grid) override {
        state["rows"] = grid.Rows();
        state["columns"] = grid.Cols();
        Json cells = Json::array();
        for (int row = 0; row < grid.Rows(); ++row) {
            Json line = Json::array();
            for (int column = 0; column < grid.Cols(); ++column)
                line.push_back(grid.TextMatrix(row, column));
            cells.push_back(std::move(line));
        }
        state["cells"] = std::move(cells);
        state["row"] = grid.Row();
        state["column"] = grid.Col();
        Json widths = Json::array();
        for (int column = 0; column < grid.Cols(); ++column)
            widths.push_back(grid.ColWidth(column));
        state["colWidths"] = std::move(widths);
        state["height"] = grid.Height();
        state["rowHeightMin"] = grid.RowHeightMin();
    }
};

class KindReader : public ControlVisitor {
  public:
    const char* kind = "";

    void visit(Button&) override { kind = "button"; }
    void visit(CheckBox&) override { kind = "check box"; }
    void visit(ComboBox&) override { kind = "combo"; }
    void visit(Grid&) override { kind = "grid"; }
    void visit(Label&) override { kind = "label"; }
    void visit(ListBox&) override { kind = "list"; }
    void visit(OptionButton&) override { kind = "option"; }
    void visit(TabStrip&) override { kind = "tab strip"; }
    void visit(TextBox&) override { kind = "text box"; }
};

}  // namespace

std::string controlName(const Control& control) {
    const Form& form = control.form();
    return form.kind() == Form::Kind::Surface ? control.name() : form.name() + '.' + control.name();
}

Json controlEntry(Control& control) {
    KindReader reader;
    control.accept(reader);
    Json entry = {{"name", controlName(control)}, {"kind", reader.kind}};
    if (control.tabPage() >= 0) {
        entry["tab"] = control.tabPage();
    } else {
        entry["form"] = control.form().name();
    }
    return entry;
}

Json controlState(Control& control) {
    StateReader reader;
    control.accept(reader);
    reader.state["enabled"] = control.Enabled();
    reader.state["visible"] = control.Visible();
    return std::move(reader.state);
}

}  // namespace headerdtc
