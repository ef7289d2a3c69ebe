#pragma once

#include <string>

namespace headerdtc {

// Plain message boxes: one text, an OK button, the default title. Returns when acknowledged.
class MessageBox {
  public:
    virtual ~MessageBox() = default;
    virtual void show(const std::string& text) = 0;
    // The same box, for the report of a failure; lets the surroundings tell it from a remark.
    virtual void showError(const std::string& text) { show(text); }
};

}  // namespace headerdtc
