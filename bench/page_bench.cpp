// Taking a page of 50 MB with a small control apart and putting it together again, against copying
// its bytes.

#include "bench/configured_control.h"
#include "host/page/page_session.h"

#include <benchmark/benchmark.h>

namespace headerdtc::bench {
namespace {

std::string largePage() {
    const std::string control =
        writeControl("page.asp", {"HeaderDTC1", storedPropertiesOf(20), "<% ' text %>\r\n"},
                     CodePage("windows-1252"));
    std::string page;
    const std::string line = "<tr><td class=\"cell\">Some text of a table</td></tr>\r\n";
    while (page.size() < 25'000'000)
        page += line;
    page += control;
    while (page.size() < 50'000'000)
        page += line;
    return page;
}

void copyingThePage(benchmark::State& state) {
    const std::string page = largePage();
    for (auto _ : state) {
        const std::string copy = page;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(copyingThePage)->Unit(benchmark::kMillisecond);

void takingThePageApart(benchmark::State& state) {
    const std::string page = largePage();
    const CodePage codePage("windows-1252");
    for (auto _ : state) {
        const PageMarkup markup("page.asp", page, codePage);
        benchmark::DoNotOptimize(markup.controls().size());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(takingThePageApart)->Unit(benchmark::kMillisecond);

// Each of these would take minutes if a broken piece were read to the end of the page again and
// again.
void takingApartWhatIsBroken(benchmark::State& state, const char* piece) {
    std::string page;
    while (page.size() < 1'000'000)
        page += piece;
    page += "\n<!--METADATA TYPE=\"DesignerControl\" endspan-->";
    const CodePage codePage("windows-1252");
    for (auto _ : state) {
        try {
            const PageMarkup markup("page.asp", page, codePage);
            benchmark::DoNotOptimize(markup.controls().size());
        } catch (const FileError&) {
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK_CAPTURE(takingApartWhatIsBroken, comments, "<!--METADATA ");
BENCHMARK_CAPTURE(takingApartWhatIsBroken, quotations, "<!--METADATA TYPE='DesignerControl' x=\"");
BENCHMARK_CAPTURE(takingApartWhatIsBroken, objects,
                  "<!--METADATA TYPE=DesignerControl startspan <OBJECT A=x\" B=\"");
BENCHMARK_CAPTURE(takingApartWhatIsBroken, params,
                  "<!--METADATA TYPE=DesignerControl startspan <OBJECT A=\"<PARAM");

void puttingThePageTogether(benchmark::State& state) {
    const PageMarkup markup("page.asp", largePage(), CodePage("windows-1252"));
    auto contents = contentsOf(markup);
    contents.front().runtimeText = "<% ' another text %>\r\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(markup.with(contents));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(markup.bytes().size()));
}
BENCHMARK(puttingThePageTogether)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace headerdtc::bench
