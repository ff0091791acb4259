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

void moveTenThousand(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!openCopy(library, int(state.range(0)))) {
        state.SkipWithError("the library does not open");
        return;
    }
    store::StoreContext& context = *library.manager().context();
    double longest = 0;
    int moved = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto target = newCollection(context);
        bench::LongestTurn turns;
        state.ResumeTiming();
        moved = moveItems(context, target);
        longest = std::max(longest, turns.milliseconds());
    }
    state.counters["moved"] = moved;
    state.counters["longest_turn_ms"] = longest;
}

void deleteTenThousand(benchmark::State& state)
{
    bench::BenchLibrary library;
    if (!openCopy(library, int(state.range(0)))) {
        state.SkipWithError("the library does not open");
        return;
    }
    store::StoreContext& context = *library.manager().context();
    double longest = 0;
    qsizetype items = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto target = newCollection(context);
        items = moveItems(context, target);
        const QString id = target->collectionID();
        organisation::SlicedRun run;
        organisation::CollectionRemoval removal(run, context, library.manager().state(),
                                                library.manager().masterDirPath());
        QEventLoop loop;
        bench::LongestTurn turns;
        state.ResumeTiming();
        removal.start({id}, {}, [&loop](const QString&) { loop.quit(); });
        loop.exec();
        longest = std::max(longest, turns.milliseconds());
    }
    state.counters["items"] = double(items);
    state.counters["longest_turn_ms"] = longest;
}

BENCHMARK(moveTenThousand)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(deleteTenThousand)->Arg(100'000)->Iterations(2)->Unit(benchmark::kMillisecond);

} // namespace
