// Opening and listing generated libraries of 1,000 to 100,000 items (1,000,000 with MOSARO_BENCH_MILLION
// set).
#include "bench/BenchLibrary.h"
#include "store/Media.h"
#include "store/MediaSet.h"

#include <benchmark/benchmark.h>

namespace {

using namespace mosaro;

void sizesByKey(benchmark::internal::Benchmark* benchmark)
{
    for (const int items : {1'000, 10'000, 100'000}) {
        for (int key = 0; key <= 8; ++key)
            benchmark->Args({items, key});
    }
    if (qEnvironmentVariableIsSet("MOSARO_BENCH_MILLION")) {
        benchmark->Args({1'000'000, 0});
        benchmark->Args({1'000'000, 7});
    }
    benchmark->ArgNames({"items", "key"})->Unit(benchmark::kMillisecond);
}

/// From a closed package to an open, probed library.
void openLibrary(benchmark::State& state)
{
    const QString path = bench::generatedLibrary(int(state.range(0)));
    for (auto _ : state) {
        bench::BenchLibrary library;
        if (!library.open(path)) {
            state.SkipWithError("the library does not open");
            return;
        }
        state.PauseTiming();
        library.close();
        state.ResumeTiming();
    }
}

/// All items of the library, in the order of a key: what a click on All comes to.
void selectAllSorted(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    bench::resetPeakMemory();
    store::StoreContext& context = *library.manager().context();
    std::size_t listed = 0;
    for (auto _ : state) {
        const auto set = store::mediaSet(context, {store::Predicate::all()});
        const auto ordered = store::orderMedia(context, set.ids, int(state.range(1)), false);
        listed = ordered ? ordered.value().size() : 0;
    }
    state.counters["listed"] = double(listed);
    state.counters["peak_MB"] = bench::peakMemoryMegabytes();
}

/// The items of one kind, sorted by title: a part of the library.
void selectKindSorted(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    store::StoreContext& context = *library.manager().context();
    const auto kind = store::Predicate::compare(QLatin1String("mediaKind"), store::Comparison::Equal, 12);
    for (auto _ : state) {
        const auto set = store::mediaSet(context, {kind});
        auto ordered = store::orderMedia(context, set.ids, 0, true);
        benchmark::DoNotOptimize(ordered);
    }
}

BENCHMARK(openLibrary)->Apply(bench::librarySizes);
BENCHMARK(selectAllSorted)->Apply(sizesByKey);
BENCHMARK(selectKindSorted)->Apply(bench::librarySizes);

} // namespace
