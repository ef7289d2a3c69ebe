#pragma once

#include "controls/form.h"
#include "host/page/page_session.h"
#include "platform/surroundings.h"

#include <string>
#include <vector>

namespace headerdtc {

// A host without a person in front of it: message boxes are collected and acknowledged, file
// dialogs cancelled, forms closed as soon as they open, notices ignored.
class QuietHost : private MessageBox,
                  private FileDialog,
                  private PropertyChangeSink,
                  private ModalLoop {
  public:
    HostFaces faces() { return {*this, *this, *this, *this}; }
    // The texts of all boxes so far, in order.
    std::vector<std::string> messages;

  private:
    void show(const std::string& text) override { messages.push_back(text); }
    std::string open(const FileDialogRequest&) override { return {}; }
    void propertyChanged(std::string_view) override {}
    void run(Form& form) override { form.Hide(); }
};

}  // namespace headerdtc
