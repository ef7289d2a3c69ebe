#pragma once

#include <string>

namespace headerdtc {

// Plain message boxes: one text, an OK button, the default title. Returns when acknowledged.
class MessageBox {
  public:
    virtual ~MessageBox() = default;
    virtual void show(const std::string& text) = 0;
};

}  // namespace headerdtc
