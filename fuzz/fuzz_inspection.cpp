// Any page of the demo site is inspected, and every finding says where it is and what is wrong.

#include "fuzz/fuzz_tools.h"
#include "host/inspection/rules/page_inspection.h"
#include "host/inspection/where_used.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

using namespace headerdtc;

namespace {

// The page's file, in a copy of the demo site.
std::filesystem::path makePage() {
    static const testing::TempFolder folder;
    std::filesystem::copy(HEADERDTC_FUZZ_SITE, folder.path(),
                          std::filesystem::copy_options::recursive);
    return folder / "page.asp";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::filesystem::path page = makePage();
    static Sites sites;
    static SiteFactsCache facts;
    static WhereUsed fields(sites, {WhereQuery::Kind::Field, "ORDERS.ORDNO", ""});
    const std::string_view bytes = fuzz::textOf(data, size);
    std::ofstream(page, std::ios::binary) << bytes;

    const auto lines = 1 + std::count(bytes.begin(), bytes.end(), '\n') +
                       std::count(bytes.begin(), bytes.end(), '\r');
    const auto isLine = [&](int line) { return line >= 1 && line <= lines; };
    const InspectedPage inspected = inspectPage(page, sites, facts);
    for (const Finding& finding : inspected.findings) {
        fuzz::require(isLine(finding.line), "a finding has its line");
        fuzz::require(!finding.remark.text.empty(), "a finding says what is wrong");
    }
    const PageUses found = fields.lookInto(page);
    for (const Use& use : found.uses)
        fuzz::require(isLine(use.line), "a use has its line");
    fuzz::require(inspected.failure.has_value() || !found.failure.has_value(),
                  "a page that can be checked can be looked into");
    return 0;
}
