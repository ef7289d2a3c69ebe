// Reading and writing the stored properties of a page with some 32,000 of them.

#include "bench/configured_control.h"
#include "core/stored_comparison.h"
#include "host/page/text_property_bag.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace headerdtc::bench {
namespace {

constexpr int Fields = 1600;  // in each of twenty lists

void perProperty(benchmark::State& state, std::size_t properties) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(properties));
    state.counters["properties"] = static_cast<double>(properties);
}

// What reading a page's properties takes of memory beside the page itself, in sizes of that page:
// the stored texts and what the control keeps of them.
double memoryInPages() {
    const std::string page =
        writeControl("page.asp", {"HeaderDTC1", storedPropertiesOf(Fields), {}},
                     CodePage("windows-1252"))
            .append("\r\n");
    const auto taken = [] {
        const auto info = mallinfo2();
        return static_cast<double>(info.uordblks + info.hblkhd);
    };
    const double before = taken();
    const auto control = std::make_unique<ConfiguredControl>(0);
    const PageMarkup markup("page.asp", page, CodePage("windows-1252"));
    StoredPropertyBag bag(markup.controls().front().properties);
    control->dtc.UserControl_ReadProperties(bag);
    return (taken() - before) / static_cast<double>(page.size()) - 1;
}

void UserControl_ReadProperties(benchmark::State& state) {
    const StoredProperties stored = storedPropertiesOf(Fields);
    for (auto _ : state) {
        state.PauseTiming();
        auto control = std::make_unique<ConfiguredControl>(0);
        state.ResumeTiming();
        StoredPropertyBag bag(stored);
        control->dtc.UserControl_ReadProperties(bag);
        state.PauseTiming();
        control.reset();
        state.ResumeTiming();
    }
    perProperty(state, stored.size());
    state.counters["memory beside the page"] = memoryInPages();
}
BENCHMARK(UserControl_ReadProperties)->Unit(benchmark::kMicrosecond);

void UserControl_WriteProperties(benchmark::State& state) {
    ConfiguredControl control(Fields);
    std::size_t properties = 0;
    for (auto _ : state) {
        CollectingPropertyBag bag(properties);  // as a page is written that was read before
        control.dtc.UserControl_WriteProperties(bag);
        properties = bag.written().size();
    }
    perProperty(state, properties);
}
BENCHMARK(UserControl_WriteProperties)->Unit(benchmark::kMicrosecond);

void comparingStoredAndWritten(benchmark::State& state) {
    const StoredProperties stored = storedPropertiesOf(Fields);
    ConfiguredControl control(Fields);
    CollectingPropertyBag bag;
    control.dtc.UserControl_WriteProperties(bag);
    const StoredProperties written = bag.asStored();
    for (auto _ : state)
        benchmark::DoNotOptimize(findLosses(stored, written));
    perProperty(state, stored.size());
}
BENCHMARK(comparingStoredAndWritten)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace headerdtc::bench
