#include "organisation/SlicedRun.h"

#include <QThread>
#include <QtTest>

using namespace mosaro;
using organisation::SlicedRun;

class TestSlicedRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void doesEveryItemOnceInOrderAndLetsTheEventLoopTurn()
    {
        SlicedRun run;
        QList<qsizetype> steps;
        QList<qsizetype> slices;
        qsizetype done = -1;
        int turns = 0;
        QTimer heartbeat;
        connect(&heartbeat, &QTimer::timeout, this, [&turns] { ++turns; });
        heartbeat.start(0);
        const auto step = [&](qsizetype position) {
            steps.append(position);
            QThread::msleep(1);
        };
        QVERIFY(run.start({.count = 60,
                           .step = step,
                           .sliceEnded = [&](qsizetype count) { slices.append(count); },
                           .finished = [&](qsizetype count) { done = count; }}));
        QVERIFY(steps.isEmpty());
        QVERIFY(!run.start({}));
        QTRY_COMPARE(done, 60);
        QCOMPARE(steps.size(), 60);
        QVERIFY(std::is_sorted(steps.begin(), steps.end()));
        QVERIFY(slices.size() >= 3);
        QCOMPARE(slices.last(), 60);
        QVERIFY(turns >= slices.size() - 1);
        QVERIFY(!run.isRunning());
    }

    void ends()
    {
        endsAfter(0, -1, 0);
        endsAfter(5, -2, 0); // before the first step
        endsAfter(5, 2, 3);
        endsAfter(5, 4, 5);
    }

private:
    static void endsAfter(int count, int stopAt, int expected)
    {
        SlicedRun run;
        int ends = 0;
        int done = -1;
        bool paused = true;
        const auto step = [&](qsizetype position) {
            QVERIFY(!paused);
            if (position == stopAt)
                run.stop();
        };
        const auto finished = [&](qsizetype number) {
            done = int(number);
            // The next run may begin here.
            if (++ends == 1)
                run.start({.finished = [&](qsizetype) { ++ends; }});
        };
        const auto pauses = [&] { return std::exchange(paused, false); };
        run.start({.count = count, .step = step, .finished = finished, .pauses = pauses});
        if (stopAt == -2)
            run.stop();
        QTRY_COMPARE(ends, 2);
        QCOMPARE(done, expected);
    }
};

QTEST_GUILESS_MAIN(TestSlicedRun)
#include "tst_slicedrun.moc"
