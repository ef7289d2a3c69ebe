#include "qt/surface/combo_box_view.h"

#include "qt/surface/edited_text.h"
#include "qt/surface/text.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QWheelEvent>
#include <limits>

namespace headerdtc::qt {
namespace {

// Some styles drop a combo's items down as a menu, for long lists one as high as the screen. A list
// with a scroll bar serves any length.
class ListPopupStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        if (hint == SH_ComboBox_Popup) return 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

constexpr int VisibleItems = 15;
constexpr int LeastLetters = 12;

}  // namespace

ComboBoxView::ComboBoxView(ComboBox& model, QComboBox& widget, FormFace face)
    : ControlView(model, widget, face), model_(model), combo_(widget), items_(model.items()) {
    combo_.setEditable(model_.isEditable());
    combo_.setInsertPolicy(QComboBox::NoInsert);
    auto* style = new ListPopupStyle;
    style->setParent(&combo_);
    combo_.setStyle(style);
    combo_.setMaxVisibleItems(VisibleItems);
    // An item may have a long name; the box has the width that its tab leaves it.
    combo_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (combo_.minimumContentsLength() == 0) combo_.setMinimumContentsLength(LeastLetters);
    combo_.setModel(&items_);
    if (auto* list = qobject_cast<QListView*>(combo_.view())) list->setUniformItemSizes(true);
    if (model_.isEditable()) beEditable();
    connect(&combo_, &QComboBox::activated, this, [this](int item) { choose(item); });
    subscriptions_ += model_.itemsChanging.subscribe([this](const ItemsChange& change) {
        const QScopedValueRollback showing(showing_, true);
        items_.begin(change);
    });
    subscriptions_ +=
        model_.itemsChanged.subscribe([this](const ItemsChange& change) { applyChange(change); });
    subscriptions_ += model_.contentChanged.subscribe([this] { show(); });
}

void ComboBoxView::beEditable() {
    QLineEdit& edit = *combo_.lineEdit();
    edit.setMaxLength(std::numeric_limits<int>::max());
    // What was typed stays as typed: it is neither completed nor, when the box is left, taken for a
    // choice of the item that it happens to equal.
    combo_.setCompleter(nullptr);
    QObject::disconnect(&edit, &QLineEdit::editingFinished, &combo_, nullptr);
    connect(&edit, &QLineEdit::textChanged, this, [this] { edited(); });
    connect(&edit, &QLineEdit::cursorPositionChanged, this, [this] { edited(); });
    connect(&edit, &QLineEdit::selectionChanged, this, [this] { edited(); });
}

void ComboBoxView::applyChange(const ItemsChange& change) {
    {
        const QScopedValueRollback showing(showing_, true);
        items_.apply(change);
    }
    show();
}

void ComboBoxView::show() {
    const QScopedValueRollback showing(showing_, true);
    if (combo_.currentIndex() != model_.ListIndex()) combo_.setCurrentIndex(model_.ListIndex());
    QLineEdit* edit = combo_.lineEdit();
    if (!edit) return;
    if (const QString text = toQt(model_.Text()); edit->text() != text) edit->setText(text);
    LineSelection{model_.SelStart(), model_.SelLength()}.applyTo(*edit);
}

void ComboBoxView::choose(int item) {
    act([&] { model_.choose(item); });
    show();
}

void ComboBoxView::edited() {
    if (showing_) return;
    // Qt has begun to show an item that the person chose, and tells of the choice in the end.
    if (combo_.currentIndex() != model_.ListIndex()) return;
    const QLineEdit& edit = *combo_.lineEdit();
    const std::string text = fromQt(edit.text());
    const bool changed = text != model_.Text();
    // Leaving the box takes the selection away in Qt; the model keeps it.
    if (!changed && !combo_.hasFocus()) return;
    const LineSelection selection = LineSelection::of(edit);
    act([&] {
        if (!model_.hasFocus()) model_.focus();
        model_.edited(text, selection.start, selection.length);
    });
}

bool ComboBoxView::eventFilter(QObject* watched, QEvent* event) {
    // Scrolling past a box is no choice.
    if (watched == &combo_ && event->type() == QEvent::Wheel && !combo_.hasFocus()) {
        event->ignore();
        return true;
    }
    return ControlView::eventFilter(watched, event);
}

bool ComboBoxView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || key->kind == Key::Kind::Tab) return false;
    if (isDialogKey(*key) || key->kind == Key::Kind::Up || key->kind == Key::Kind::Down) {
        act([&] { model_.press(*key); });
        return true;
    }
    bool goesOn = true;
    act([&] { goesOn = model_.keyPress(*key); });
    return !goesOn;
}

}  // namespace headerdtc::qt
