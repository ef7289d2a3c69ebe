#pragma once

#include "host/automation/command.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <exception>
#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QFileDialog;
class QMessageBox;
class QTableView;
class QWidget;

namespace headerdtc::qt {

class SelectionList;

// Plays the lines of an automation scenario the way a person does it: with mouse and keys, at the
// widgets that bear the names of the controls. A line is played once the one before has done all
// that it does, or waits for the dialog that it opened. Message boxes are acknowledged, file
// dialogs answered with what the scenario has picked.
class ScenarioPlayer : public QObject {
  public:
    // `toLocal` gives a picked file's local name.
    ScenarioPlayer(QWidget& window, std::function<QString(const std::string&)> toLocal);

    // Returns when all lines are played. Throws std::runtime_error, with the line, for one that a
    // person could not do, or when nothing goes on any more.
    void play(const std::vector<std::string>& lines);

    // The texts of all message boxes, in order.
    const std::vector<std::string>& messages() const { return messages_; }

  private:
    using Command = Automation::Command;

    void pump();
    bool mayGoOn() const;
    bool answerBox();
    bool activateFront();
    void perform(const std::string& line);
    void perform(const Command& command);

    void click(const Command& command);
    void chooseTab(const Command& command);
    void choose(const Command& command);
    void select(const Command& command);
    void doubleClick(const Command& command);
    void clickCell(const Command& command, bool twice);
    void type(const Command& command);
    void press(const Command& command);
    void focus(const Command& command);

    QWidget& widgetOf(const Command& command) const;
    template <class Widget>
    Widget& widget(const Command& command) const;

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
