#include "host/files/fold_case.h"

#include "controls/utf8.h"
#include "host/files/utf8_scan.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>

namespace headerdtc {
std::string foldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty()) {
        const auto ascii = text.substr(0, asciiLength(text));
        std::transform(ascii.begin(), ascii.end(), std::back_inserter(folded), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
        });
        text.remove_prefix(ascii.size());
        if (text.empty()) break;
        if (const auto length = characterLength(text); length > 0) {
            folded += utf8::encode(capitalOf(utf8::first(text)));
            text.remove_prefix(length);
        } else {
            folded += text.front();
            text.remove_prefix(1);
        }
    }
    return folded;
}

}  // namespace headerdtc
