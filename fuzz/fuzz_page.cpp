// Load any page of the demo site, save it, load it again: the same properties, and nothing else
// changed. Where loading has no doubt, a page that was generated is up to date.

#include "fuzz/fuzz_tools.h"
#include "host/page/page_session.h"
#include "host/page/quiet_host.h"

using namespace headerdtc;

namespace {

const std::filesystem::path Page = HEADERDTC_FUZZ_SITE "/page.asp";

struct Generated {
    std::vector<ControlContent> contents;
    bool doubtful = false;
};

Generated throughTheControls(const PageMarkup& page) {
    static Sites sites;
    Generated generated;
    for (const ControlSpan& span : page.controls()) {
        QuietHost host;
        OpenControl control(sites.forPage(Page), Page, span, host.faces());
        MadeContent made = control.content();
        if (made.doubt) generated.doubtful = true;
        generated.contents.push_back(std::move(made.content));
    }
    return generated;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CodePage codePage("windows-1252");
    try {
        const PageMarkup page("page.asp", std::string(fuzz::textOf(data, size)), codePage);
        const Generated first = throughTheControls(page);
        const std::string saved = page.with(first.contents);

        const PageMarkup again("page.asp", saved, codePage);
        fuzz::require(again.controls().size() == first.contents.size(), "no control comes or goes");
        for (std::size_t i = 0; i < first.contents.size(); ++i) {
            fuzz::require(again.controls()[i].properties == first.contents[i].properties,
                          "properties are read as they were written");
        }
        if (first.doubtful) return 0;
        const Generated second = throughTheControls(again);
        fuzz::require(!second.doubtful, "a page that was generated can be generated again");
        fuzz::require(again.with(second.contents) == saved, "a second save changes nothing");
    } catch (const FileError&) {
    }
    return 0;
}
