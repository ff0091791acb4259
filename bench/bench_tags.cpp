// Tags over generated libraries: putting one on 10,000 items and taking it off, each item saved by itself,
// and how all tags stand with a selection.
#include "bench/BenchLibrary.h"
#include "organisation/TagAssignment.h"
#include "organisation/TagCommands.h"
#include "organisation/TagRun.h"
#include "store/MediaSet.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <benchmark/benchmark.h>

namespace {

using namespace mosaro;
using organisation::TagDirection;

std::vector<store::RowId> firstItems(store::StoreContext& context, std::size_t count)
{
    auto ids = store::mediaSet(context, {store::Predicate::all()}).ids;
    ids.resize(std::min(count, ids.size()));
    return ids;
}

/// Runs to its end in the event loop; links that came or went.
qsizetype runTags(store::StoreContext& context, store::RowId tag, const std::vector<store::RowId>& items,
                  TagDirection direction)
{
    organisation::TagRun run(nullptr);
    QEventLoop loop;
    qsizetype changed = 0;
    run.start(context, organisation::TagLinker(context, tag, items, direction), {},
              [&](const organisation::TagLinker& linker) {
                  changed = linker.changed();
                  loop.quit();
              });
    loop.exec();
    return changed;
}

/// One tag on 10,000 items, or off them again.
void tagTenThousand(benchmark::State& state, TagDirection measured)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    store::StoreContext& context = *library.manager().context();
    organisation::TagCommands commands(context, library.manager().state());
    const auto items = firstItems(context, 10'000);
    double longest = 0;
    qsizetype changed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        organisation::TagList list;
        const auto made = commands.addTag(QStringLiteral("Bench"));
        if (!made || !list.reload(context)) {
            state.SkipWithError("no tag");
            return;
        }
        const organisation::TagRecord tag = list.at(list.indexOfObject(made.value()));
        if (measured == TagDirection::Remove)
            runTags(context, tag.object, items, TagDirection::Add);
        bench::LongestTurn turns;
        state.ResumeTiming();
        changed = runTags(context, tag.object, items, measured);
        state.PauseTiming();
        longest = std::max(longest, turns.milliseconds());
        (void)commands.remove(tag);
        state.ResumeTiming();
    }
    state.counters["changed"] = double(changed);
    state.counters["longest_turn_ms"] = longest;
}

/// All tags with their use by a part of the library, as the panel shows them.
void usesOfSelection(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!library.open(bench::generatedLibrary(int(state.range(0))))) {
        state.SkipWithError("the library does not open");
        return;
    }
    store::StoreContext& context = *library.manager().context();
    const auto items = firstItems(context, std::size_t(state.range(1)));
    std::size_t tags = 0;
    for (auto _ : state) {
        organisation::TagList list;
        (void)list.reload(context);
        tags = organisation::assignedTags(context, list, items).size();
    }
    state.counters["tags"] = double(tags);
}

BENCHMARK_CAPTURE(tagTenThousand, add, TagDirection::Add)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tagTenThousand, remove, TagDirection::Remove)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(usesOfSelection)
    ->Args({100'000, 1})
    ->Args({100'000, 10'000})
    ->Args({100'000, 19'000})
    ->Args({100'000, 21'000})
    ->Args({100'000, 100'000})
    ->Unit(benchmark::kMillisecond);

} // namespace
