#include "qt/surface/control_view.h"

#include "controls/control.h"
#include "qt/surface/action_runner.h"
#include "qt/surface/focus_keeper.h"
#include "qt/surface/spoken_names.h"
#include "qt/surface/text.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

namespace headerdtc::qt {
namespace {

QString withoutColon(QString label) {
    if (label.endsWith(':')) label.chop(1);
    return label;
}

std::optional<Key::Kind> kindOf(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::Kind::Enter;
        case Qt::Key_Escape:
            return Key::Kind::Escape;
        case Qt::Key_Up:
            return Key::Kind::Up;
        case Qt::Key_Down:
            return Key::Kind::Down;
        case Qt::Key_Left:
            return Key::Kind::Left;
        case Qt::Key_Right:
            return Key::Kind::Right;
        case Qt::Key_Delete:
            return Key::Kind::Delete;
        case Qt::Key_Backspace:
            return Key::Kind::Backspace;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return Key::Kind::Tab;
        default:
            return std::nullopt;
    }
}

// Lies over the widget that it outlines and lets the mouse through.
class FocusOutline : public QWidget {
  public:
    explicit FocusOutline(QWidget& outlined) : QWidget(&outlined) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setVisible(outlined.hasFocus());
        outlined.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::FocusIn:
                resize(parentWidget()->size());
                raise();
                show();
                break;
            case QEvent::FocusOut:
                hide();
                break;
            case QEvent::Resize:
                resize(parentWidget()->size());
                break;
            default:
                break;
        }
        return QWidget::eventFilter(watched, event);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int Width = 2;
        QPainter painter(this);
        QPen pen(palette().color(QPalette::Highlight), Width);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.drawRect(rect().adjusted(Width / 2, Width / 2, -Width / 2, -Width / 2));
    }
};

}  // namespace

ControlView::ControlView(Control& control, QWidget& widget, FormFace face)
    : face_(face), control_(control), widget_(widget) {
    face_.focus.add(control, widget);
    widget_.setToolTip(toQt(control_.toolTip()));
    widget_.installEventFilter(this);
    subscriptions_ += control_.appearanceChanged.subscribe([this] { showAppearance(); });
}

void ControlView::begin() {
    showAppearance();
    describe();
    show();
}

void ControlView::act(const std::function<void()>& action) {
    face_.actions.run(action);
}

void ControlView::showAppearance() {
    const bool usable = control_.Enabled() && control_.Visible();
    if (!usable) face_.focus.park(widget_);
    showEnabled(control_.Enabled());
    widget_.setVisible(control_.Visible());
}

void ControlView::showEnabled(bool enabled) {
    widget_.setEnabled(enabled);
}

void ControlView::describe(const QString& count) {
    QString name = spokenName(control_.name());
    if (name.isEmpty()) name = caption();
    if (name.isEmpty()) name = withoutColon(toQt(control_.label()));
    const QString toolTip = toQt(control_.toolTip());
    // Qt has a combo box called by its text.
    widget_.setAccessibleDescription(toolTip.isEmpty() ? name : toolTip);
    widget_.setAccessibleName(count.isEmpty() ? name : name + QStringLiteral(", ") + count);
}

// Only with the focus: keys that an in-place editor does not use are passed on to its grid.
bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &widget_ && event->type() == QEvent::KeyPress && widget_.hasFocus())
        return keyPressed(static_cast<QKeyEvent&>(*event));
    return QObject::eventFilter(watched, event);
}

bool ControlView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || !isDialogKey(*key)) return false;
    act([&] { control_.press(*key); });
    return true;
}

std::optional<Key> keyOf(const QKeyEvent& event) {
    constexpr auto Commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.modifiers() & Commands) return std::nullopt;
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (const auto kind = kindOf(event.key())) return Key{*kind, 0, shift};
    const auto characters = event.text().toUcs4();
    if (characters.size() != 1 || !QChar::isPrint(characters.front())) return std::nullopt;
    return Key{Key::Kind::Character, static_cast<char32_t>(characters.front()), shift};
}

bool isDialogKey(const Key& key) {
    return key.kind == Key::Kind::Enter || key.kind == Key::Kind::Escape;
}

bool isArrowKey(const Key& key) {
    return key.kind == Key::Kind::Up || key.kind == Key::Kind::Down ||
           key.kind == Key::Kind::Left || key.kind == Key::Kind::Right;
}

void outlineFocus(QWidget& widget) {
    new FocusOutline(widget);
}

}  // namespace headerdtc::qt
