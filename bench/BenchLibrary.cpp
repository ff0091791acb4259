#include "bench/BenchLibrary.h"

#include "bench/LibraryGenerator.h"

#include <QFile>
#include <QMap>
#include <cstdio>

namespace mosaro::bench {

BenchLibrary::BenchLibrary() : m_platform(platform::makeLinuxPlatform(false))
{
    m_defaults = std::make_unique<base::ZNUserDefaults>(m_dir.filePath(QStringLiteral("preferences.ini")));
    m_defaults->initialize();
    m_manager.setUp(*m_defaults, *m_platform.bookmarks, m_dir.filePath(QStringLiteral("support")));
}

bool BenchLibrary::create()
{
    const bool created = m_manager.createLibaryAtPath(m_dir.filePath(QStringLiteral("Bench.mrlibrary")));
    if (!created)
        std::fprintf(stderr, "%s\n", qPrintable(m_manager.lastError()));
    return created;
}

bool BenchLibrary::open(const QString& packagePath)
{
    const bool opened = m_manager.validateDatabaseAtURL(packagePath);
    if (!opened)
        std::fprintf(stderr, "%s\n", qPrintable(m_manager.lastError()));
    return opened;
}

QString generatedLibrary(int items)
{
    static QTemporaryDir folder;
    static QMap<int, QString> made;
    if (!made.contains(items)) {
        const QString path = folder.filePath(QStringLiteral("Items%1.mrlibrary").arg(items));
        const auto outcome = generateLibrary(path, items, 1);
        if (!outcome)
            std::fprintf(stderr, "%s\n", qPrintable(outcome.reason()));
        made.insert(items, outcome ? path : QString());
    }
    return made.value(items);
}

void librarySizes(benchmark::internal::Benchmark* benchmark)
{
    for (const int items : {1'000, 10'000, 100'000})
        benchmark->Arg(items);
    if (qEnvironmentVariableIsSet("MOSARO_BENCH_MILLION"))
        benchmark->Arg(1'000'000);
    benchmark->Unit(benchmark::kMillisecond);
}

double peakMemoryMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toDouble() / 1024.0;
    }
    return 0;
}

void resetPeakMemory()
{
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
}

LongestTurn::LongestTurn()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_longest = std::max(m_longest, m_clock.nsecsElapsed());
        m_clock.start();
    });
    m_timer.start(1);
    m_clock.start();
}

} // namespace mosaro::bench
