#pragma once

#include "controls/event.h"
#include "controls/form.h"
#include "host/page/page_document.h"
#include "platform/surroundings.h"

#include <deque>
#include <functional>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace headerdtc {

class Control;
class HeaderDTC;

// What happens around the control while commands run, in the order in which it happens. Message
// boxes are acknowledged at once; file dialogs are answered from a queue.
class EventLog : public MessageBox, public FileDialog, public PropertyChangeSink {
  public:
    void show(const std::string& text) override { add("message", text); }
    void propertyChanged(std::string_view property) override { add("changed", property); }
    std::string open(const FileDialogRequest& request) override;

    void formOpened(const std::string& form) { add("opened", form); }
    void formClosed(const std::string& form) { add("closed", form); }
    void wrote(const std::string& file) { add("wrote", file); }

    // The answer of the next file dialog that has none yet; with none queued it is cancelled.
    void queueFile(std::string windowsPath) { files_.push_back(std::move(windowsPath)); }

    // The events since the last call.
    nlohmann::ordered_json take();

  private:
    void add(const char* kind, std::string_view text);

    nlohmann::ordered_json events_ = nlohmann::ordered_json::array();
    std::deque<std::string> files_;
};

// What automation asks of the page that it drives; all of it may throw std::exception, whose text
// becomes the error of the reply.
struct AutomationPage {
    HeaderDTC& control;
    // The stored properties and the runtime text, as `show` and the host would get them.
    std::function<nlohmann::ordered_json()> properties;
    std::function<std::string()> runtimeText;
    // Saves the page; the file's name when it was written, empty when its bytes are the same.
    std::function<std::string(PageDocument::Guard)> save;
};

// Drives one control by the names of its controls: a JSON object a line in, a JSON object a line
// out. A command that opens a modal dialog is answered when the dialog stands open; the one that
// closes it when all that waited behind the dialog has run.
class Automation : public ModalLoop {
  public:
    // One line of a conversation, read.
    struct Command;

    Automation(std::istream& in, std::ostream& out, EventLog& events);
    ~Automation() override;

    // Answers the opening of the page, then commands until the end of input or "quit".
    void converse(AutomationPage& page);
    // Answers an opening that failed.
    void refuseOpening(const std::string& error);

    void run(Form& form) override;

  private:
    using Json = nlohmann::ordered_json;
    struct EndOfConversation {};

    void converseWhile(const std::function<bool()>& goOn, bool nested);
    void executeLine(const std::string& line, bool nested);
    void execute(const Command& command);
    bool actOnControl(const Command& command);
    bool actOnPage(const Command& command);
    void select(const Command& command);
    void save(const Command& command);
    void listControls();
    Control& findControl(const std::string& name) const;
    Form* findForm(const std::string& name) const;
    void pressKey(const Command& command);
    void getProperty(const Command& command);
    void setProperty(const Command& command);
    void succeed();
    void fail(const std::string& error);
    void answer();

    std::istream& in_;
    std::ostream& out_;
    EventLog& events_;
    AutomationPage* page_ = nullptr;
    Json reply_;
};

}  // namespace headerdtc
