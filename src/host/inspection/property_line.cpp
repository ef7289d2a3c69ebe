#include "host/inspection/property_line.h"

#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

constexpr std::string_view Space = " \t\r\n";

void dropSpaceAtEnd(std::string_view& text) {
    text = text.substr(0, text.find_last_not_of(Space) + 1);
}

// Whether markup that ends here is in the middle of a NAME attribute, where its value begins.
bool opensName(std::string_view markup) {
    if (markup.ends_with('"') || markup.ends_with('\'')) markup.remove_suffix(1);
    dropSpaceAtEnd(markup);
    if (!markup.ends_with('=')) return false;
    markup.remove_suffix(1);
    dropSpaceAtEnd(markup);
    constexpr std::string_view Attribute = "name";
    if (markup.size() <= Attribute.size()) return false;
    const auto word = markup.substr(markup.size() - Attribute.size());
    const char before = markup[markup.size() - Attribute.size() - 1];
    return equalIgnoringCase(word, Attribute) && Space.find(before) != std::string_view::npos;
}

bool closesName(std::string_view markup) {
    return markup.empty() || markup.find_first_of("\"'> \t\r\n") == 0;
}

}  // namespace

int lineOfProperty(const PageMarkup& page, const ControlSpan& control, std::string_view property) {
    const std::string_view markup = page.textOf(control.markup);
    for (auto at = markup.find(property); !property.empty() && at != std::string_view::npos;
         at = markup.find(property, at + 1)) {
        if (!opensName(markup.substr(0, at)) || !closesName(markup.substr(at + property.size())))
            continue;
        const auto* begin = markup.data();
        return control.line + static_cast<int>(std::count(begin, begin + at, '\n'));
    }
    return control.line;
}

}  // namespace headerdtc
