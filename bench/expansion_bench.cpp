// Expanding the template, against the price of copying the result and against the thirty passes
// that common libraries would need.

#include "bench/configured_control.h"
#include "runtime/expansion.h"
#include "runtime/runtime_text.h"

#include <benchmark/benchmark.h>
#include <boost/algorithm/string/replace.hpp>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <vector>
#ifdef HEADERDTC_BENCH_QT
#include <QString>
#endif

namespace headerdtc::bench {
namespace {

constexpr std::size_t Kilobytes = 1024;

// A template and the values of its steps; the values are made beforehand, so that only the
// replacing is compared.
struct Work {
    Work(std::size_t templateBytes, int fields) : text(templateOf(templateBytes)) {
        ConfiguredControl control(fields);
        RuntimeTextRequest request{control.dtc};
        for (const RuntimeTextStep& step : runtimeTextSteps()) {
            placeholders.push_back(step.placeholder);
            values.push_back(step.value(request));
        }
    }

    std::string expand(const ExpansionSteps& steps) const {
        Expansion expansion(text, steps);
        for (const std::string& value : values)
            expansion.replace(value);
        return expansion.text();
    }

    std::string text;
    std::vector<std::string_view> placeholders;
    std::vector<std::string> values;
};

const Work& workOf(const benchmark::State& state) {
    static std::vector<std::pair<std::pair<long, long>, Work>> made;
    const std::pair<long, long> key(state.range(0), state.range(1));
    for (const auto& [madeFor, work] : made) {
        if (madeFor == key) return work;
    }
    made.reserve(16);
    return made
        .emplace_back(key, Work(static_cast<std::size_t>(key.first) * Kilobytes,
                                static_cast<int>(key.second)))
        .second;
}

void report(benchmark::State& state, std::size_t resultBytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(resultBytes));
    state.counters["result_KB"] = static_cast<double>(resultBytes) / Kilobytes;
}

void sizes(benchmark::internal::Benchmark* each) {
    each->Args({64, 200})->Args({64, 5000})->Args({1024, 200})->Args({1024, 5000});
}

// Memory that a text is written into for the first time has to be fetched from the system, whoever
// writes it. A loop would get back the block that it has just freed, still in the cache.
const bool memoryIsFresh = mallopt(M_MMAP_THRESHOLD, 64 * Kilobytes) != 0;

void copyingTheResult(benchmark::State& state) {
    if (!memoryIsFresh) state.SkipWithError("the memory would not be fresh");
    const Work& work = workOf(state);
    const std::string result = work.expand(ExpansionSteps(work.placeholders));
    for (auto _ : state) {
        void* fresh = std::malloc(result.size());
        std::memcpy(fresh, result.data(), result.size());
        benchmark::DoNotOptimize(fresh);
        benchmark::ClobberMemory();
        std::free(fresh);
    }
    report(state, result.size());
}
BENCHMARK(copyingTheResult)->Apply(sizes);

void expansion(benchmark::State& state) {
    const Work& work = workOf(state);
    const ExpansionSteps steps(work.placeholders);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string result = work.expand(steps);
        bytes = result.size();
        benchmark::DoNotOptimize(result.data());
    }
    report(state, bytes);
}
BENCHMARK(expansion)->Apply(sizes);

// Everything: reading the lists, forming the fragments, expanding.
void wholeRuntimeText(benchmark::State& state) {
    ConfiguredControl control(static_cast<int>(state.range(1)));
    control.outside.textFiles.files["C:\\Orvane\\include\\DTC_TEMPLATE.ASP"] =
        templateOf(static_cast<std::size_t>(state.range(0)) * Kilobytes);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string result = GetRuntimeText(control.dtc);
        bytes = result.size();
        benchmark::DoNotOptimize(result.data());
    }
    if (!control.outside.messages.shown.empty())
        state.SkipWithError(control.outside.messages.shown.front().c_str());
    report(state, bytes);
}
BENCHMARK(wholeRuntimeText)->Apply(sizes);

void thirtyTimesBoostReplace(benchmark::State& state) {
    const Work& work = workOf(state);
    std::size_t bytes = 0;
    for (auto _ : state) {
        std::string text = work.text;
        for (std::size_t i = 0; i < work.placeholders.size(); ++i)
            boost::algorithm::ireplace_all(text, work.placeholders[i], work.values[i]);
        bytes = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    report(state, bytes);
}
BENCHMARK(thirtyTimesBoostReplace)->Args({64, 200})->Unit(benchmark::kMillisecond);

#ifdef HEADERDTC_BENCH_QT
void thirtyTimesQtReplace(benchmark::State& state) {
    const Work& work = workOf(state);
    const QString original = QString::fromStdString(work.text);
    std::vector<std::pair<QString, QString>> steps;
    for (std::size_t i = 0; i < work.placeholders.size(); ++i)
        steps.emplace_back(QString::fromStdString(std::string(work.placeholders[i])),
                           QString::fromStdString(work.values[i]));
    std::size_t bytes = 0;
    for (auto _ : state) {
        QString text = original;
        for (const auto& [placeholder, value] : steps)
            text.replace(placeholder, value, Qt::CaseInsensitive);
        bytes = static_cast<std::size_t>(text.size());
        benchmark::DoNotOptimize(text.data());
    }
    report(state, bytes);
}
BENCHMARK(thirtyTimesQtReplace)->Args({64, 200})->Unit(benchmark::kMillisecond);
#endif

}  // namespace
}  // namespace headerdtc::bench
