// Import of a folder of pictures by the whole road, in copy mode, against vipsthumbnail over the same files
// with the same box and as many processes as there are cores. MOSARO_BENCH_PHOTOS, MOSARO_BENCH_SMALL
// and MOSARO_BENCH_SVG name the folders.
#include "bench/BenchLibrary.h"
#include "import/ImportRun.h"
#include "store/Collections.h"
#include "store/SelectionElement.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QThread>
#include <QUuid>
#include <benchmark/benchmark.h>
#include <optional>

namespace {

using namespace mosaro;

struct RunFigures {
    double seconds = 0;
    double longestTurn = 0;
    int imported = 0;
    int failed = 0;
};

QStringList filesIn(const char* variable)
{
    const QDir folder(qEnvironmentVariable(variable));
    QStringList files;
    if (!qEnvironmentVariableIsSet(variable))
        return files;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        files.append(folder.absoluteFilePath(name));
    return files;
}

RunFigures import(const QStringList& files)
{
    bench::BenchLibrary library;
    if (!library.create())
        return {};
    const importing::MediaClassification classification(*library.platform().types,
                                                        *library.platform().thumbnailers);
    store::StoreContext& context = *library.manager().context();
    auto collection = context.insert<store::Collections>();
    collection->setCollectionID(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    collection->setTitle(QStringLiteral("Bench"));
    collection->setType(store::kTypeCollection);
    if (!context.save())
        return {};

    importing::ImportEnvironment environment{context,
                                             library.manager().package(),
                                             classification,
                                             *library.platform().aliases,
                                             *library.platform().fileIndex,
                                             *library.platform().bookmarks,
                                             {},
                                             0,
                                             {}};
    importing::ImportRun run(std::move(environment), collection, true);
    RunFigures figures;
    QEventLoop loop;
    QObject::connect(&run, &importing::ImportRun::finished, &loop,
                     [&](const importing::ImportReport& report) {
                         figures.imported = int(report.imported.size());
                         figures.failed = int(report.failed.size());
                         loop.quit();
                     });
    QElapsedTimer clock;
    clock.start();
    {
        const bench::LongestTurn turns;
        run.start(importing::ImportItem::fromPaths(files));
        loop.exec();
        figures.longestTurn = turns.milliseconds();
    }
    figures.seconds = double(clock.nsecsElapsed()) / 1e9;
    return figures;
}

/// Files per second of the reference tool; 0 when it is not installed.
double vipsthumbnailRate(const QStringList& files, const char* size, const char* output)
{
    QTemporaryDir folder;
    QProcess process;
    process.setProgram(QStringLiteral("xargs"));
    process.setArguments({QStringLiteral("-0"), QStringLiteral("-P"),
                          QString::number(QThread::idealThreadCount()), QStringLiteral("-n"),
                          QStringLiteral("16"), QStringLiteral("vipsthumbnail"), QStringLiteral("--size"),
                          QLatin1String(size), QStringLiteral("-o"), folder.filePath(QLatin1String(output))});
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VIPS_CONCURRENCY"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    process.start();
    process.write(files.join(QChar(u'\0')).toUtf8());
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return process.exitCode() == 127 ? 0 : double(files.size()) / (double(clock.nsecsElapsed()) / 1e9);
}

struct Comparison {
    const char* size; ///< With ">" nothing is made larger.
    const char* output;
};

void importFolder(benchmark::State& state, const char* variable, std::optional<Comparison> comparison)
{
    const QStringList files = filesIn(variable);
    if (files.isEmpty()) {
        state.SkipWithError("name a folder of pictures in the environment");
        return;
    }
    importing::setUpImageLibrary("mosaro_bench");
    RunFigures figures;
    bench::resetPeakMemory();
    for (auto _ : state) {
        figures = import(files);
        state.SetIterationTime(figures.seconds);
    }
    const double rate = double(figures.imported) / figures.seconds;
    state.counters["files_per_second"] = rate;
    state.counters["imported"] = figures.imported;
    state.counters["failed"] = figures.failed;
    state.counters["peak_MB"] = bench::peakMemoryMegabytes();
    state.counters["longest_turn_ms"] = figures.longestTurn;
    if (comparison) {
        const double reference = vipsthumbnailRate(files, comparison->size, comparison->output);
        state.counters["vipsthumbnail_per_second"] = reference;
        state.counters["ratio"] = reference > 0 ? rate / reference : 0;
    }
}

void importPhotos(benchmark::State& state)
{
    importFolder(state, "MOSARO_BENCH_PHOTOS", Comparison{"460x360", "%s.jpg[Q=60,interlace]"});
}
void importSmall(benchmark::State& state)
{
    importFolder(state, "MOSARO_BENCH_SMALL", {});
}
void importSvg(benchmark::State& state)
{
    importFolder(state, "MOSARO_BENCH_SVG", Comparison{"460x360>", "%s.png[interlace]"});
}

BENCHMARK(importPhotos)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(importSmall)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(importSvg)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
