#pragma once

#include "controls/event.h"
#include "controls/person_action.h"

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace headerdtc {

class Grid;

// Writes down what a person does to a control, as the lines that make automation do the same. The
// control is as it was loaded when the recording begins, for that is how a replay finds it.
//
// What is written down is what comes of an action, not every step of it: the text of a box, not
// its letters. What automation has no command for is written as the command with the same effect.
class Recording {
  public:
    // Records until it is destroyed; the desktop outlives it.
    explicit Recording(Desktop& desktop);

    // To be told of each answer of a file dialog; empty for one that was cancelled.
    void fileChosen(const std::string& windowsPath);

    std::size_t size() const { return lines_.size(); }
    // The lines so far, without line ends.
    std::vector<std::string> lines() const;
    // A whole script: the lines, and one that saves.
    std::string script() const;

    // The lines are others.
    Event<> changed;

  private:
    using Json = nlohmann::ordered_json;
    using Kind = PersonAction::Kind;

    // An action that has begun and is not over; behind it those that wait for a dialog.
    // NOLINTNEXTLINE(bugprone-exception-escape): moving JSON does not throw.
    struct Running {
        const Form* form = nullptr;
        bool isPartOfAnother = false;    // of the same form: what it does belongs to that
        const Control* focus = nullptr;  // before it
        std::string text;                // of the control, before it
        std::size_t line = 0;            // its own one
        std::size_t linesBefore = 0;
        Json lastBefore;  // line
    };

    void begin(Form& form, const PersonAction& action);
    void end(Form& form, const PersonAction& action, bool done);
    void write(Form& form, const PersonAction& action);
    void writeKey(Form& form, const PersonAction& action);
    void writeText(const Control& control, const std::string& before, const std::string& text);
    void takeBack(const Running& running);
    void finish(Form& form, const PersonAction& action, const Running& running);
    void writeFocus(Form& form);
    void finishClickAgain(Form& form, const PersonAction& action, const Running& running);
    bool isSecondPress(const Grid& grid) const;
    bool lastIs(const char* command, const std::string& control) const;
    void add(Json line);
    void addFor(const Control& control, Json line);

    std::vector<Json> lines_;
    std::vector<Running> running_;
    std::string typedOver_;  // what the last text that was typed has replaced
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
