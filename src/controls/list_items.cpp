#include "controls/list_items.h"

#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/utf8.h"

#include <utility>

namespace headerdtc {

void ListItems::refuse() {
    throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
}

void ListItems::refuseMore() {
    throw RuntimeError(ErrorNumber::Overflow);
}

void ListItems::insert(int index, std::string text) {
    requirePlace(index);
    items_.insert(index).text = std::move(text);
}

void ListItems::remove(int index) {
    require(index);
    items_.erase(index);
}

int ListItems::find(std::string_view text) const {
    for (int i = 0; i < count(); ++i) {
        if (items_[i].text == text) return i;
    }
    return -1;
}

int ListItems::findNext(int index, char32_t firstCharacter) const {
    for (int step = 1; step <= count(); ++step) {
        const int next = (index + step) % count();
        if (ascii::lower(utf8::first(items_[next].text)) == ascii::lower(firstCharacter))
            return next;
    }
    return -1;
}

}  // namespace headerdtc
