// Collections over generated libraries: moving 10,000 items into one, and deleting it with them.
#include "bench/BenchLibrary.h"
#include "organisation/CollectionCommands.h"
#include "organisation/CollectionRemoval.h"
#include "organisation/MediaMove.h"
#include "store/Media.h"

#include <QEventLoop>
#include <QProcess>
#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>

namespace {

using namespace mosaro;

/// A copy of a generated library that may be changed.
bool openCopy(bench::BenchLibrary& library, int items)
{
    const QString copy = library.folder() + QStringLiteral("/Copy.mrlibrary");
    QProcess::execute(QStringLiteral("cp"), {QStringLiteral("-r"), bench::generatedLibrary(items), copy});
    return library.open(copy);
}

std::shared_ptr<store::Collections> newCollection(store::StoreContext& context)
{
    const auto made = organisation::CollectionCommands(context).addItem(
        {store::kTypeCollection, QStringLiteral("Bench"), false, {}}, nullptr);
    return made ? context.first<store::Collections>(store::Predicate::compare(
                      QLatin1String("collectionID"), store::Comparison::Equal, made.value()))
                : nullptr;
}

int moveItems(store::StoreContext& context, const std::shared_ptr<store::Collections>& target)
{
    QStringList ids;
    (void)context.forEachRow(
        store::Media::info(), "mediaID", {store::Predicate::all(), {}, 10'000},
        [&ids](SQLite::Statement& row) { ids.append(QString::fromStdString(row.getColumn(0).getString())); });
    organisation::SlicedRun run;
    QEventLoop loop;
    int moved = 0;
    organisation::startMediaMove(run, context, ids, target, {}, [&](const organisation::RecordRun::End& end) {
        moved = end.changed;
        loop.quit();
    });
    loop.exec();
    return moved;
}

using Collection = std::shared_ptr<store::Collections>;

/// Times `work` on a new collection in a copy of a library; `prepare` comes before it, untimed. Each returns
/// how many items it changed.
template <class Prepare, class Work>
void timeOnCopy(benchmark::State& state, const Prepare& prepare, const Work& work)
{
    bench::BenchLibrary library;
    if (!openCopy(library, int(state.range(0)))) {
        state.SkipWithError("the library does not open");
        return;
    }
    double longest = 0;
    int items = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const Collection target = newCollection(*library.manager().context());
        items = prepare(library, target);
        bench::LongestTurn turns;
        state.ResumeTiming();
        items += work(library, target);
        longest = std::max(longest, turns.milliseconds());
    }
    state.counters["items"] = items;
    state.counters["longest_turn_ms"] = longest;
}

int moveInto(bench::BenchLibrary& library, const Collection& target)
{
    return moveItems(*library.manager().context(), target);
}

int deleteWithItems(bench::BenchLibrary& library, const Collection& target)
{
    store::ZNDBManager& manager = library.manager();
    organisation::SlicedRun run;
    organisation::CollectionRemoval removal(run, *manager.context(), manager.state(),
                                            manager.masterDirPath());
    QEventLoop loop;
    removal.start({target->collectionID()}, {},
                  [&loop](const organisation::RecordRun::End&) { loop.quit(); });
    loop.exec();
    return 0;
}

void moveTenThousand(benchmark::State& state)
{
    timeOnCopy(
        state, [](bench::BenchLibrary&, const Collection&) { return 0; }, moveInto);
}

void deleteTenThousand(benchmark::State& state)
{
    timeOnCopy(state, moveInto, deleteWithItems);
}

BENCHMARK(moveTenThousand)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(deleteTenThousand)->Arg(100'000)->Iterations(2)->Unit(benchmark::kMillisecond);

} // namespace
