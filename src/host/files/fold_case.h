#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// A UTF-8 text with every letter in its simple upper case, so that names which differ only in case
// become equal: letters of all alphabets, whatever the user's locale is.
std::string foldCase(std::string_view text);

}  // namespace headerdtc
