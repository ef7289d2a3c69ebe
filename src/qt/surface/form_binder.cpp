#include "qt/surface/form_binder.h"

#include "controls/form.h"
#include "controls/label.h"
#include "qt/surface/button_view.h"
#include "qt/surface/combo_box_view.h"
#include "qt/surface/grid_view.h"
#include "qt/surface/list_box_view.h"
#include "qt/surface/mnemonics.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/tab_strip_view.h"
#include "qt/surface/text.h"
#include "qt/surface/text_box_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <functional>
#include <map>
#include <set>

namespace headerdtc::qt {
namespace {

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

}  // namespace

// Finds each control's widget and makes the view of its kind.
class FormBinder::Matcher : public ControlVisitor {
  public:
    Matcher(QWidget& formWidget, FormFace face) : formWidget_(formWidget), face_(face) {}

    void visit(Button& control) override { match<ButtonView, QPushButton>(control); }
    void visit(CheckBox& control) override { match<CheckBoxView, QCheckBox>(control); }
    void visit(ComboBox& control) override { match<ComboBoxView, QComboBox>(control); }
    void visit(Grid& control) override { match<GridView, QTableView>(control); }
    void visit(Label& control) override { match<LabelView, QLabel>(control); }
    void visit(ListBox& control) override { match<ListBoxView, SelectionList>(control); }
    void visit(OptionButton& control) override { match<OptionButtonView, QRadioButton>(control); }
    void visit(TabStrip& control) override { match<TabStripView, QTabWidget>(control); }
    void visit(TextBox& control) override {
        if (control.isMultiLine()) {
            match<LinesView, QPlainTextEdit>(control);
        } else {
            match<LineView, QLineEdit>(control);
        }
    }

    std::vector<std::unique_ptr<ControlView>> views;
    QStringList faults;

  private:
    template <class View, class Widget, class Model>
    void match(Model& model) {
        const QString name = toQt(model.name());
        auto* found = formWidget_.findChild<QWidget*>(name);
        if (auto* widget = qobject_cast<Widget*>(found)) {
            views.push_back(std::make_unique<View>(model, *widget, face_));
        } else if (found) {
            faults += name + " is a " + found->metaObject()->className() + ", not a " +
                      Widget::staticMetaObject.className();
        } else {
            faults += name + " is missing";
        }
    }

    QWidget& formWidget_;
    FormFace face_;
};

FormBinder::FormBinder(Form& form, QWidget& formWidget, const QString& takenMnemonics)
    : focus(form, formWidget, actions) {
    Matcher matcher(formWidget, {actions, focus});
    for (Control* control : form.controls())
        control->accept(matcher);
    if (!matcher.faults.isEmpty()) {
        throw BindingError("The form '" + form.name() +
                           "' does not fit its models: " + fromQt(matcher.faults.join(", ")));
    }
    views_ = std::move(matcher.views);
    attachEditors();
    setTabOrder();
    for (const auto& view : views_)
        view->begin();
    assignMnemonics(findLabels(formWidget), takenMnemonics);
    // Otherwise Qt gives it to the first control, as it does in every window.
    if (form.ActiveControl()) focus.follow();
}

FormBinder::~FormBinder() = default;

void FormBinder::markChanged(const std::set<const Control*>& changed) {
    std::set<int> pages;
    for (const Control* control : changed)
        pages.insert(control->tabPage());
    for (const auto& view : views_) {
        view->markChanged(changed.contains(&view->control()));
        if (auto* tabs = dynamic_cast<TabStripView*>(view.get())) tabs->markPages(pages);
    }
}

// An editor's grid is the table beside it.
void FormBinder::attachEditors() {
    std::map<const QWidget*, GridView*> grids;
    for (const auto& view : views_) {
        if (auto* grid = dynamic_cast<GridView*>(view.get()))
            grids[view->widget().parentWidget()] = grid;
    }
    for (const auto& view : views_) {
        if (!InPlaceEditors::isEditor(view->widget())) continue;
        const auto grid = grids.find(view->widget().parentWidget());
        if (grid == grids.end())
            throw BindingError("No grid stands beside '" + view->control().name() + "'");
        grid->second->addEditor(view->control(), view->widget());
    }
}

void FormBinder::setTabOrder() {
    QWidget* previous = nullptr;
    for (const auto& view : views_) {
        if (!view->control().acceptsFocus()) continue;
        if (previous) QWidget::setTabOrder(previous, &view->widget());
        previous = &view->widget();
    }
}

FormBinder::Labels FormBinder::findLabels(QWidget& formWidget) const {
    std::map<const QWidget*, const Control*> controls;
    for (const auto& view : views_)
        controls[&view->widget()] = &view->control();
    Labels labels;  // in the order of the form file
    for (QLabel* label : formWidget.findChildren<QLabel*>()) {
        const auto control = controls.find(label->buddy());
        if (control != controls.end()) labels.emplace_back(control->second, label);
    }
    return labels;
}

// The tabs are there whatever page is shown, and leave the buttons of the pages their initials, and
// all letters of those that a page has twice; what stands on different pages may share a
// letter. Labels get their texts here too.
void FormBinder::assignMnemonics(const Labels& labels, const QString& taken) {
    std::set<std::pair<int, QString>> captions;
    QString wanted;
    for (const auto& view : views_) {
        const QString caption = view->caption();
        const bool isFirst = captions.emplace(view->control().tabPage(), caption).second;
        wanted += isFirst ? caption.left(1) : caption;
    }
    QString everywhere = taken;
    for (const auto& view : views_) {
        if (auto* tabs = dynamic_cast<TabStripView*>(view.get()))
            everywhere += tabs->takeMnemonics(taken + wanted);
    }
    struct Page {
        QStringList texts;
        std::vector<std::function<void(QChar)>> show;
    };
    std::map<int, Page> pages;
    for (const auto& view : views_) {
        Page& page = pages[view->control().tabPage()];
        page.texts += view->caption();
        page.show.emplace_back([&view](QChar letter) { view->useMnemonic(letter); });
    }
    for (const auto& [control, label] : labels) {
        const QString text = toQt(control->label());
        Page& page = pages[control->tabPage()];
        // A mnemonic would press the button that such a label stands beside, and does not say so.
        page.texts += dynamic_cast<const Button*>(control) ? QString() : text;
        page.show.emplace_back(
            [label = label, text](QChar letter) { label->setText(withMnemonic(text, letter)); });
        label->setVisible(!text.isEmpty());
    }
    for (const auto& [number, page] : pages) {
        const QString letters = mnemonicsOf(page.texts, everywhere);
        for (std::size_t i = 0; i < page.show.size(); ++i)
            page.show[i](letters.at(static_cast<qsizetype>(i)));
    }
}

}  // namespace headerdtc::qt
