#include "controls/list_items.h"

#include "controls/utf8.h"
#include "platform/runtime_error.h"

#include <utility>

namespace headerdtc {
namespace {

char32_t lowerAscii(char32_t c) {
    return c >= U'A' && c <= U'Z' ? c + (U'a' - U'A') : c;
}

}  // namespace

void ListItems::refuse() {
    throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
}

void ListItems::requirePlace(int index) const {
    if (index != count()) require(index);
    if (count() >= MaxListCount) throw RuntimeError(ErrorNumber::Overflow);
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
        if (lowerAscii(utf8::first(items_[next].text)) == lowerAscii(firstCharacter)) return next;
    }
    return -1;
}

}  // namespace headerdtc
