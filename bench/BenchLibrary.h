#pragma once

#include "base/ZNUserDefaults.h"
#include "platform/LinuxPlatform.h"
#include "store/ZNDBManager.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <memory>

namespace mosaro::bench {

/// A library in a temporary home with the real, desktop-less platform: what a benchmark works on.
class BenchLibrary {
public:
    BenchLibrary();

    /// Creates an empty library; false with a line on standard error.
    bool create();
    bool open(const QString& packagePath);
    void close() { m_manager.closeDatabase(); }

    [[nodiscard]] store::ZNDBManager& manager() { return m_manager; }
    [[nodiscard]] const platform::Platform& platform() const { return m_platform; }
    [[nodiscard]] QString folder() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    platform::Platform m_platform;
    std::unique_ptr<base::ZNUserDefaults> m_defaults;
    store::ZNDBManager m_manager;
};

/// A generated library of that many items, made once per process and kept in a temporary folder.
[[nodiscard]] QString generatedLibrary(int items);

/// The sizes of generated libraries that a benchmark runs on: 1,000 to 100,000 items, and 1,000,000 with
/// MOSARO_BENCH_MILLION set.
void librarySizes(benchmark::internal::Benchmark* benchmark);

/// Peak resident memory of this process since the last reset, in megabytes.
[[nodiscard]] double peakMemoryMegabytes();
void resetPeakMemory();

/// Longest time that the event loop of this thread let a timer of a millisecond wait, while this object
/// lives: what a window would be frozen for.
class LongestTurn : public QObject {
    Q_OBJECT

public:
    LongestTurn();
    [[nodiscard]] double milliseconds() const { return double(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

} // namespace mosaro::bench
