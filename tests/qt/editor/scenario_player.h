#pragma once

#include "host/automation/command.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"

#include <QTest>
#include <QtWidgets>
#include <deque>
#include <functional>

namespace headerdtc::qt {

inline constexpr int LongestLine = 60'000;  // milliseconds

[[noreturn]] inline void cannot(const std::string& what) {
    throw std::runtime_error(what);
}

inline QWindow* windowOf(QWidget& widget) {
    return widget.window()->windowHandle();
}

// A list that has dropped down is left as it is.
inline void closeList() {
    if (QWidget* list = QApplication::activePopupWidget()) list->close();
}

inline void clickAt(QWidget& widget, QPoint at, bool twice = false,
                    Qt::KeyboardModifiers held = {}) {
    if (!widget.rect().contains(at)) cannot("it lies outside of what is shown");
    const QPoint place = widget.mapTo(widget.window(), at);
    if (twice) return QTest::mouseDClick(windowOf(widget), Qt::LeftButton, held, place);
    QTest::mouseClick(windowOf(widget), Qt::LeftButton, held, place);
}

inline QPoint itemPlace(QAbstractItemView& view, const QModelIndex& index) {
    if (!index.isValid()) cannot("there is no such item");
    view.scrollTo(index);
    // An item may be wider than its list, a cell partly hidden.
    return view.visualRect(index).intersected(view.viewport()->rect()).center();
}

inline int itemOf(const SelectionList& list, const std::string& text) {
    const auto found = list.model()->match(list.model()->index(0, 0), Qt::EditRole, toQt(text), 1,
                                           Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty()) cannot("there is no item " + text);
    return found.front().row();
}

// What has no key on most keyboards comes from the clipboard.
inline void typeInto(QWidget& widget, const QString& text) {
    const QByteArray keys = text.toLatin1();
    if (QString::fromLatin1(keys) == text) {
        for (const char c : keys)
            QTest::keyClick(windowOf(widget), c);
    } else {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(windowOf(widget), Qt::Key_V, Qt::ControlModifier);
    }
}

// Plays the lines of an automation scenario the way a person does it: with mouse and keys, at the
// widgets that bear the names of the controls. A line is played once the one before has done all
// that it does, or waits for the dialog that it opened. Message boxes are acknowledged, file
// dialogs answered with what the scenario has picked.
class ScenarioPlayer : public QObject {
  public:
    // `toLocal` gives a picked file's local name.
    ScenarioPlayer(QWidget& window, std::function<QString(const std::string&)> toLocal)
        : window_(window), toLocal_(std::move(toLocal)) {}

    // Returns when all lines are played. Throws std::runtime_error, with the line, for one that a
    // person could not do, or when nothing goes on any more.
    void play(const std::vector<std::string>& lines) {
        lines_.assign(lines.begin(), lines.end());
        played_ = 0;
        failure_ = nullptr;
        // Lines that open a dialog return when it closes: what is played within is played by the
        // timer that goes on in the dialog's own loop. A timer whose call has not returned does
        // not, so each call sets off the next one.
        pump();
        const auto isOver = [this] { return failure_ || (lines_.empty() && underway_.empty()); };
        for (int before = -1; !isOver() && before != played_;) {
            before = played_;
            (void)QTest::qWaitFor([&] { return isOver() || before != played_; }, LongestLine);
        }
        if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
        if (!isOver())
            cannot("line " + std::to_string(played_) +
                   " does not come to an end, or a dialog is open");
    }

    // The texts of all message boxes, in order.
    const std::vector<std::string>& messages() const { return messages_; }

  private:
    using Command = Automation::Command;

    void pump() {
        if (failure_ || (lines_.empty() && underway_.empty())) return;
        QTimer::singleShot(1, this, [this] { pump(); });
        if (answerBox() || lines_.empty() || !mayGoOn() || !activateFront()) return;
        const std::string line = std::move(lines_.front());
        lines_.pop_front();
        ++played_;
        perform(line);
    }

    // The line before is done, or waits for a dialog that it has opened.
    bool mayGoOn() const {
        return underway_.empty() || QApplication::activeModalWidget() != underway_.back();
    }

    // A window manager gives the keys to the window in front, also when one before it has closed.
    // Tells whether it has them.
    bool activateFront() {
        QWidget* modal = QApplication::activeModalWidget();
        QWidget& front = modal ? *modal : *window_.window();
        if (front.isActiveWindow()) return true;
        front.activateWindow();
        return false;
    }

    // Tells whether a box is open that is none of the control's dialogs.
    bool answerBox() {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal == answered_) return true;
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            answered_ = modal;
            messages_.push_back(fromQt(box->text()));
            QTest::keyClick(box, Qt::Key_Return);
            return true;
        }
        if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            answered_ = modal;
            if (picked_.empty()) {
                QTest::keyClick(dialog, Qt::Key_Escape);
                return true;
            }
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(toLocal_(picked_.front()));
            picked_.pop_front();
            QTest::keyClick(name, Qt::Key_Return);
            return true;
        }
        return false;
    }

    void perform(const std::string& line) {
        const int number = played_;
        underway_.push_back(QApplication::activeModalWidget());
        try {
            perform(Command(line));
        } catch (const std::exception& error) {
            failure_ = std::make_exception_ptr(std::runtime_error(
                "line " + std::to_string(number) + ", " + line + ": " + error.what()));
        }
        underway_.pop_back();
    }

    void perform(const Command& command) {
        const std::string& verb = command.verb;
        if (verb == "click") return click(command);
        if (verb == "tab") return chooseTab(command);
        if (verb == "choose") return choose(command);
        if (verb == "select") return select(command);
        if (verb == "dblclick") return doubleClick(command);
        if (verb == "cell") return clickCell(command, false);
        if (verb == "dblcell") return clickCell(command, true);
        if (verb == "type") return type(command);
        if (verb == "key") return press(command);
        if (verb == "focus") return focus(command);
        if (verb == "pick") return picked_.push_back(command.text("file"));
        // To look at something does nothing.
        if (verb != "read" && verb != "properties" && verb != "runtimeText")
            cannot("a person has no such command");
    }

    // "NameText" on the surface, "SpecifyCriteriumDialog.NameText" in the dialog that is open.
    QWidget& widgetOf(const Command& command) const {
        const QString name = toQt(command.text("control"));
        const qsizetype dot = name.indexOf(QLatin1Char('.'));
        QWidget* form = dot < 0 ? &window_ : QApplication::activeModalWidget();
        if (!form) cannot("no dialog is open");
        if (form != &window_ && form->objectName() != name.left(dot))
            cannot("the dialog in front is " + fromQt(form->objectName()));
        auto* widget = form->findChild<QWidget*>(name.mid(dot + 1));
        if (!widget && form->objectName() == name) widget = form;
        if (!widget) cannot("there is no widget of that name");
        if (!widget->isVisible() || !widget->isEnabled()) cannot("it cannot be reached");
        return *widget;
    }

    template <class Widget>
    Widget& widget(const Command& command) const {
        auto* found = qobject_cast<Widget*>(&widgetOf(command));
        if (!found) cannot(std::string("it is no ") + Widget::staticMetaObject.className());
        return *found;
    }

    void click(const Command& command) {
        auto& button = widget<QAbstractButton>(command);
        // Boxes and options are pressed where their mark is, whatever their layout makes of the
        // rest.
        const bool marked =
            qobject_cast<QCheckBox*>(&button) || qobject_cast<QRadioButton*>(&button);
        clickAt(button, marked ? QPoint(8, button.height() / 2) : button.rect().center());
    }

    void chooseTab(const Command& command) {
        auto* tabs = window_.findChild<QTabWidget*>(QStringLiteral("SSTab1"));
        clickAt(*tabs->tabBar(), tabs->tabBar()->tabRect(command.integer("index")).center());
    }

    // With the list dropped down.
    void choose(const Command& command) {
        auto& combo = widget<QComboBox>(command);
        const int item = command.has("item") ? command.integer("item")
                                             : combo.findText(toQt(command.text("text")));
        if (item < 0 || item >= combo.count()) cannot("there is no such item");
        QAbstractItemView& list = *combo.view();
        // The click on a cell has dropped its list already.
        if (!list.isVisible()) clickAt(combo, QPoint(combo.width() - 8, combo.height() / 2));
        if (!QTest::qWaitFor([&] { return list.isVisible(); }, LongestLine))
            cannot("no list drops down");
        QTest::keyClick(&list, Qt::Key_Home);
        for (int i = 0; i < item; ++i)
            QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_Return);
    }

    // One item alone, or with Ctrl what is to change.
    void select(const Command& command) {
        auto& list = widget<SelectionList>(command);
        std::vector<int> items;
        if (command.has("items")) {
            items = command.integers("items");
        } else {
            for (const std::string& text : command.texts("texts"))
                items.push_back(itemOf(list, text));
        }
        const int last = command.integerIfGiven("focus").value_or(items.back());
        const bool isToggled = list.selectionMode() == QAbstractItemView::MultiSelection;
        std::vector<int> pressed;
        for (int item = 0; item < list.model()->rowCount(); ++item) {
            const bool wanted = std::find(items.begin(), items.end(), item) != items.end();
            const bool was = isToggled && list.selectionModel()->isRowSelected(item);
            if (wanted != was && item != last) pressed.push_back(item);
            // What has the focus and is to stay as it is has to go first.
            if (wanted == was && item == last) pressed.push_back(item);
        }
        pressed.push_back(last);
        for (std::size_t i = 0; i < pressed.size(); ++i) {
            const QPoint place = itemPlace(list, list.model()->index(pressed[i], 0));
            clickAt(*list.viewport(), place, false,
                    isToggled || i == 0 ? Qt::NoModifier : Qt::ControlModifier);
        }
    }

    void doubleClick(const Command& command) {
        auto& list = widget<SelectionList>(command);
        const auto item = command.has("text") ? itemOf(list, command.text("text"))
                                              : command.integerIfGiven("item");
        const QPoint place = item ? itemPlace(list, list.model()->index(*item, 0))
                                  : list.viewport()->rect().bottomLeft() + QPoint(4, -4);
        if (!item && list.indexAt(place).isValid()) cannot("the list has no empty area");
        clickAt(*list.viewport(), place, true);
    }

    void clickCell(const Command& command, bool twice) {
        auto& table = widget<QTableView>(command);
        const QModelIndex cell =
            table.model()->index(command.integer("row") - 1, command.integer("column"));
        const QPoint place = itemPlace(table, cell);
        clickAt(*table.viewport(), place, twice);
    }

    void type(const Command& command) {
        QWidget& box = widgetOf(command);
        closeList();
        auto* combo = qobject_cast<QComboBox*>(&box);
        QWidget& edit = combo && combo->lineEdit() ? *combo->lineEdit() : box;
        if (!QApplication::focusWidget() || !edit.isAncestorOf(QApplication::focusWidget()))
            clickAt(edit, QPoint(8, std::min(edit.height() / 2, 12)));
        QTest::keyClick(windowOf(edit), Qt::Key_A, Qt::ControlModifier);
        QString text = toQt(command.text("text"));
        text.remove(QLatin1Char('\r'));
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0) QTest::keyClick(windowOf(edit), Qt::Key_Return);
            typeInto(edit, lines[i]);
        }
        if (text.isEmpty()) QTest::keyClick(windowOf(edit), Qt::Key_Delete);
    }

    void press(const Command& command) {
        QWidget& widget = widgetOf(command);
        const Key key = command.key();
        closeList();
        const QWidget* focused = QApplication::focusWidget();
        if (focused != &widget && !widget.isAncestorOf(focused))
            cannot("it does not have the focus");
        if (key.kind == Key::Kind::Character)
            return QTest::keyClick(windowOf(widget), static_cast<char>(key.character));
        const QString name =
            toQt(command.text("key")).replace(QStringLiteral("Enter"), QStringLiteral("Return"));
        QTest::keyClick(windowOf(widget), QKeySequence(name)[0].key());
    }

    void focus(const Command& command) { widgetOf(command).setFocus(Qt::TabFocusReason); }

    QWidget& window_;
    std::function<QString(const std::string&)> toLocal_;
    std::deque<std::string> lines_;
    std::deque<std::string> picked_;
    std::vector<std::string> messages_;
    // The dialogs in front when the lines that have not come to their end were begun.
    std::vector<QPointer<QWidget>> underway_;
    QPointer<QWidget> answered_;
    int played_ = 0;
    std::exception_ptr failure_;
};

}  // namespace headerdtc::qt
