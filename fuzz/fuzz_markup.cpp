// Any bytes are a page or an error; a page put together from its own contents is the same bytes;
// what is written for a control is read back as it was, and changes nothing around it.

#include "fuzz/fuzz_tools.h"
#include "host/page/page_session.h"

using namespace headerdtc;

namespace {

void checkAsPage(std::string_view bytes, const CodePage& codePage) {
    const PageMarkup page("page.asp", std::string(bytes), codePage);
    auto contents = contentsOf(page);
    try {
        fuzz::require(page.with(contents) == bytes, "an unchanged page keeps its bytes");
    } catch (const FileError&) {
        return;  // a runtime text that holds an end marker cannot be, or the page is refused
    }
    if (contents.empty()) return;
    contents.front().properties.emplace_back("Added by the test",
                                             codePage.decode(bytes.substr(0, 200)));
    for (const auto& [name, value] : page.controls().front().properties)
        if (name == "Added by the test") return;
    // Damage around a control may keep what is written from being read; that is refused.
    std::string changed;
    try {
        changed = page.readableWith(contents);
    } catch (const FileError&) {
        return;
    }
    const PageMarkup again("page.asp", changed, codePage);
    fuzz::require(again.controls().size() == page.controls().size(), "no control comes or goes");
    const ByteRange before = page.controls().front().whole;
    const ByteRange after = again.controls().front().whole;
    fuzz::require(changed.substr(0, after.begin) == bytes.substr(0, before.begin) &&
                      changed.substr(after.end) == bytes.substr(before.end),
                  "the bytes around a control stay");
    fuzz::require(
        again.controls().front().properties.size() == page.controls().front().properties.size() + 1,
        "every property is read back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CodePage windows("windows-1252");
    const std::string_view bytes = fuzz::textOf(data, size);
    for (const CodePage* codePage : {&windows, &CodePage::utf8()}) {
        try {
            checkAsPage(bytes, *codePage);
        } catch (const FileError&) {
        }
        fuzz::require(codePage->encode(codePage->decode(bytes)) == bytes,
                      "every byte survives the code page");
    }
    return 0;
}
