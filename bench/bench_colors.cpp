// The colours of generated libraries: 20,000 in 100,000 items (200,000 in 1,000,000 with MOSARO_BENCH_MILLION
// set).
#include "bench/BenchLibrary.h"
#include "organisation/ColorReader.h"
#include "store/ColorRows.h"
#include "store/MediaSet.h"

#include <QEventLoop>
#include <benchmark/benchmark.h>

namespace {

using namespace mosaro;

/// The whole list of the colours tab with its counts, grouped and sorted; the event loop turns meanwhile.
void reloadColors(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    organisation::ColorGroups groups;
    QEventLoop loop;
    organisation::ColorReader reader(library.manager(), [&](organisation::ColorGroups read) {
        groups = std::move(read);
        loop.quit();
    });
    const bench::LongestTurn turn;
    for (auto _ : state) {
        reader.start({});
        loop.exec();
    }
    state.counters["colors"] = double(groups.colors().size());
    state.counters["longest_turn_ms"] = turn.milliseconds();
}

/// From selected swatches to the set of items; `most` is how many are selected.
void selectColors(benchmark::State& state, size_t most)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    const auto read = store::colorRows(*library.manager().context(), organisation::colorsOnShow({}));
    const organisation::ColorGroups groups(library.manager(), read.value());
    std::vector<store::RowId> rows;
    for (const organisation::MRColorTagItem& item : groups.colors()) {
        if (rows.size() < most)
            rows.push_back(item.row());
    }
    store::MediaSet items;
    for (auto _ : state)
        items = store::itemsOfColors(*library.manager().context(), rows);
    state.counters["items"] = double(items.ids.size());
}

BENCHMARK(reloadColors)->Apply(bench::librarySizes);
BENCHMARK_CAPTURE(selectColors, one, 1)->Apply(bench::librarySizes);
BENCHMARK_CAPTURE(selectColors, hundred, 100)->Apply(bench::librarySizes);
BENCHMARK_CAPTURE(selectColors, all, 1'000'000)->Apply(bench::librarySizes);

} // namespace
