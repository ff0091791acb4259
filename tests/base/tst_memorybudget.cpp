#include "base/MemoryBudget.h"

#include <QThreadPool>
#include <QtTest>
#include <atomic>

using mosaro::base::MemoryBudget;

namespace {

constexpr qint64 kMegabyte = 1 << 20;

class tst_MemoryBudget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void holdersNeverExceedIt()
    {
        // A third each, more than half, more than there is.
        for (const auto& [megabytes, atOnce] : {std::pair{3, 3}, {6, 1}, {1000, 1}}) {
            MemoryBudget budget(10 * kMegabyte);
            const qint64 share = megabytes * kMegabyte;
            std::atomic<int> holders = 0;
            std::atomic<int> most = 0;
            std::atomic<int> done = 0;
            QThreadPool pool;
            pool.setMaxThreadCount(8);
            for (int job = 0; job < 200; ++job) {
                pool.start([&] {
                    const QSemaphoreReleaser taken = budget.take(share);
                    const int now = ++holders;
                    int before = most;
                    while (before < now && !most.compare_exchange_weak(before, now)) {
                    }
                    QThread::yieldCurrentThread();
                    --holders;
                    ++done;
                });
            }
            pool.waitForDone();
            QCOMPARE(done.load(), 200);
            QVERIFY2(most <= atOnce, qPrintable(QString::number(most)));
        }
    }

    void nothingCostsNothing()
    {
        MemoryBudget budget(kMegabyte);
        const QSemaphoreReleaser all = budget.take(kMegabyte);
        const QSemaphoreReleaser none = budget.take(0); // does not wait
        Q_UNUSED(none)
    }
};

} // namespace

QTEST_GUILESS_MAIN(tst_MemoryBudget)
#include "tst_memorybudget.moc"
