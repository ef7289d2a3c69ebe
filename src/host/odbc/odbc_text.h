#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// UTF-8 as UTF-16, which is what ODBC's wide functions take, and back. What is not text becomes
// U+FFFD.
std::u16string utf16FromUtf8(std::string_view text);
std::string utf8FromUtf16(std::u16string_view text);

}  // namespace headerdtc
