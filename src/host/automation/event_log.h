#pragma once

#include "platform/surroundings.h"

#include <deque>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace headerdtc {

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

}  // namespace headerdtc
