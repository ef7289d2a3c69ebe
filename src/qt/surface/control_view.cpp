#include "qt/surface/control_view.h"

#include "controls/control.h"
#include "qt/surface/action_runner.h"
#include "qt/surface/focus_keeper.h"
#include "qt/surface/shades.h"
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
        QPen pen(frameColor(palette()), Width);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.drawRect(rect().adjusted(Width / 2, Width / 2, -Width / 2, -Width / 2));
    }
};

// A bar in the margin beside a widget.
class ChangeBar : public QWidget {
  public:
    explicit ChangeBar(QWidget& marked) : QWidget(marked.parentWidget()), marked_(marked) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        marked.installEventFilter(this);
        follow();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto type = event->type();
        if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show ||
            type == QEvent::Hide)
            follow();
        return QWidget::eventFilter(watched, event);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), frameColor(palette()));
    }

  private:
    void follow() {
        constexpr int Width = 3;
        constexpr int Distance = 2;
        const QRect place = marked_.geometry();
        setGeometry(place.left() - Distance - Width, place.top(), Width, place.height());
        setVisible(!marked_.isHidden());
        raise();
    }

    QWidget& marked_;
};

}  // namespace

ControlView::ControlView(Control& control, QWidget& widget, FormFace face)
    : face_(face), control_(control), widget_(widget) {
    face_.focus.add(control, widget);
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

QString ControlView::spokenWords() const {
    QString words = spokenName(control_.name());
    if (words.isEmpty()) words = caption();
    return words.isEmpty() ? withoutColon(toQt(control_.label())) : words;
}

void ControlView::describe(const QString& count) {
    const QString name = spokenWords();
    widget_.setAccessibleName(count.isEmpty() ? name : name + QStringLiteral(", ") + count);
    explain();
}

void ControlView::explain() {
    QStringList words;
    if (!control_.toolTip().empty()) words += toQt(control_.toolTip());
    if (changeBar_) words += tr("Differs from the saved page");
    widget_.setToolTip(words.join('\n'));
    // Qt has a combo box called by its text.
    if (control_.toolTip().empty()) words.prepend(spokenWords());
    widget_.setAccessibleDescription(words.join(QStringLiteral(". ")));
}

void ControlView::markChanged(bool changed) {
    if (changed == !changeBar_.isNull()) return;
    if (changed) {
        changeBar_ = new ChangeBar(widget_);
    } else {
        delete changeBar_;
    }
    explain();
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
