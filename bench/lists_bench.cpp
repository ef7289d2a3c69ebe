// What an author does with lists as long as they can be.

#include "bench/configured_control.h"
#include "editor/editor.h"

#include <benchmark/benchmark.h>
#include <numeric>

namespace headerdtc::bench {
namespace {

// A control on its ZEKO tab with as many fields as a list holds.
class LongLists {
  public:
    LongLists() {
        FamilyControls& zeko = control.dtc.ZEKO;
        // First, because entering the tab takes the data provider over.
        control.dtc.SSTab1.Tab(zeko.traits.tabPage);
        for (int i = 0; i < MaxListCount; ++i)
            zeko.FieldsList.AddItem(std::to_string(i) + " - FIELD" + std::to_string(i));
    }

    std::vector<int> everyItem(int step) const {
        std::vector<int> items;
        for (int i = 0; i < MaxListCount; i += step)
            items.push_back(i);
        return items;
    }
    void addAll() {
        FamilyControls& zeko = control.dtc.ZEKO;
        zeko.AddField.Enabled(true);
        zeko.FieldsList.select(everyItem(1), 0);
        zeko.AddField.press();
    }

    ConfiguredControl control{0};
    Editor editor{control.dtc};
};

template <class Prepare, class Act>
void measure(benchmark::State& state, Prepare prepare, Act act) {
    for (auto _ : state) {
        state.PauseTiming();
        auto lists = std::make_unique<LongLists>();
        prepare(*lists);
        state.ResumeTiming();
        act(*lists);
        state.PauseTiming();
        lists.reset();
        state.ResumeTiming();
    }
}

void addAllFields(benchmark::State& state) {
    measure(
        state, [](LongLists&) {}, [](LongLists& lists) { lists.addAll(); });
}
BENCHMARK(addAllFields)->Unit(benchmark::kMillisecond);

void removeEverySecondField(benchmark::State& state) {
    measure(
        state,
        [](LongLists& lists) {
            lists.addAll();
            lists.control.dtc.ZEKO.SelectedFieldsList.select(lists.everyItem(2), 0);
        },
        [](LongLists& lists) { lists.control.dtc.ZEKO.RemoveField.press(); });
}
BENCHMARK(removeEverySecondField)->Unit(benchmark::kMillisecond);

void moveAFieldDown(benchmark::State& state) {
    measure(
        state,
        [](LongLists& lists) {
            lists.addAll();
            lists.control.dtc.ZEKO.SelectedFieldsList.select({0}, 0);
        },
        [](LongLists& lists) { lists.control.dtc.ZEKO.MoveDownCommand.press(); });
}
BENCHMARK(moveAFieldDown)->Unit(benchmark::kMillisecond);

void enterATabOfANewProvider(benchmark::State& state) {
    measure(
        state,
        [](LongLists& lists) {
            testing::FakeProvider provider{.name = "Orders"};
            for (int i = 0; i < MaxListCount; ++i)
                provider.zekoFields.emplace_back(std::to_string(i), "FIELD" + std::to_string(i));
            lists.control.outside.dataSources.providers = {provider};
            lists.control.dtc.SSTab1.Tab(0);
            lists.control.dtc.ZEKO.DataProviderText.Text("another");
        },
        [](LongLists& lists) { lists.control.dtc.SSTab1.clickTab(2); });
}
BENCHMARK(enterATabOfANewProvider)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace headerdtc::bench
