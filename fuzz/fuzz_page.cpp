// Load any page, save it, load it again: the same properties, and nothing else changed.

#include "fuzz/fuzz_control.h"
#include "fuzz/fuzz_tools.h"
#include "host/page/page_session.h"
#include "host/page/text_property_bag.h"

using namespace headerdtc;

namespace {

// What a control stores and generates that has read some properties.
ControlContent throughTheControl(const ControlSpan& span) {
    testing::FakeSurroundings outside;
    fuzz::furnish(outside);
    ControlInstance control(outside.all(), outside.modalLoop, outside.site);
    StoredPropertyBag stored(span.properties);
    control.dtc.UserControl_ReadProperties(stored);
    CollectingPropertyBag written;
    control.dtc.UserControl_WriteProperties(written);
    return {span.id, written.asStored(), control.dtc.IProvideRuntimeText_GetRuntimeText()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CodePage codePage("windows-1252");
    const std::string bytes(fuzz::textOf(data, size));
    try {
        const PageMarkup page("page.asp", bytes, codePage);
        auto contents = contentsOf(page);
        for (std::size_t i = 0; i < contents.size(); ++i)
            contents[i] = throughTheControl(page.controls()[i]);
        const std::string saved = page.with(contents);

        const PageMarkup again("page.asp", saved, codePage);
        fuzz::require(again.controls().size() == contents.size(), "no control comes or goes");
        for (std::size_t i = 0; i < contents.size(); ++i) {
            fuzz::require(again.controls()[i].properties == contents[i].properties,
                          "properties are read as they were written");
        }
    } catch (const FileError&) {
    }
    return 0;
}
