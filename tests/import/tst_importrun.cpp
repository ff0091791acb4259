#include "import/ImportFixture.h"

#include <QRandomGenerator>
#include <QSemaphore>
#include <QThread>
#include <atomic>
#include <sqlite3.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;
using test::ImportFixture;
using test::sampleAnalysis;

namespace {

int numberOf(const AnalysisRequest& request)
{
    return QFileInfo(request.path).completeBaseName().toInt();
}

/// From now on the store refuses items of that title, as a disk that fails would.
void poisonStore(const QString& path, const char* title)
{
    sqlite3* store = nullptr;
    const QByteArray sql =
        QByteArray("CREATE TRIGGER poison BEFORE INSERT ON Media WHEN NEW.mediaTitle = '") + title +
        "' BEGIN SELECT RAISE(ABORT, 'no more room'); END";
    const bool isMade = sqlite3_open(path.toUtf8().constData(), &store) == SQLITE_OK &&
                        sqlite3_exec(store, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(store);
    QVERIFY(isMade);
}

QStringList namesOf(const std::vector<FailedPath>& failed)
{
    QStringList names;
    for (const FailedPath& path : failed)
        names.append(path.reason.isEmpty() ? u"(no reason)"_s : QFileInfo(path.path).fileName());
    return names;
}

} // namespace

class ImportRunTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commitsInListOrderWhateverComesFirst()
    {
        ImportFixture fixture;
        std::atomic<int> together{0};
        std::atomic<int> most{0};
        fixture.analyse = [&](const AnalysisRequest& request) {
            const int now = ++together;
            for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
            }
            // Each takes its own time, so that results come out of turn.
            QThread::usleep(QRandomGenerator(quint32(numberOf(request))).bounded(8000));
            --together;
            return sampleAnalysis(request);
        };
        const ImportReport report = fixture.import(fixture.makeFiles(40));
        QCOMPARE(report.imported.size(), 40);
        QCOMPARE(report.tried, 40);
        QVERIFY(report.failed.empty());
        for (int number = 1; number <= 40; ++number)
            QCOMPARE(fixture.media(report.imported[number - 1])->mediaTitle().toInt(), number);
        QVERIFY2(most > 1, "several files are analysed at once");
        QVERIFY(most <= fixture.parallel);
        fixture.expectItems(40);
    }

    void goesNoFurtherAheadThanItsWindow()
    {
        ImportFixture fixture;
        fixture.parallel = 2;
        QSemaphore gate;
        std::atomic<int> begun{0};
        int begunBehindTheFirst = 0;
        fixture.analyse = [&](const AnalysisRequest& request) {
            ++begun;
            if (numberOf(request) == 1) {
                gate.acquire();
                begunBehindTheFirst = begun;
            }
            return sampleAnalysis(request);
        };
        const auto run = fixture.makeRun();
        const auto letGo = [&] {
            QTRY_COMPARE(begun.load(), 6); // Two for each thread, and two more.
            gate.release();
        };
        const auto report = ImportFixture::finish(*run, ImportItem::fromPaths(fixture.makeFiles(30)), letGo);
        QCOMPARE(report.imported.size(), 30);
        QCOMPARE(begunBehindTheFirst, 6);
    }

    void stopsAtTheItemThatIsNext()
    {
        ImportFixture fixture;
        QSemaphore gate;
        fixture.analyse = [&gate](const AnalysisRequest& request) {
            if (numberOf(request) >= 3)
                gate.acquire();
            return sampleAnalysis(request);
        };
        const auto run = fixture.makeRun();
        connect(run.get(), &ImportRun::progressed, run.get(), [&](const ImportProgress& progress) {
            if (progress.index == 2) {
                run->requestStop();
                gate.release(100);
            }
        });
        const ImportReport report = ImportFixture::finish(*run, ImportItem::fromPaths(fixture.makeFiles(10)));
        QVERIFY(report.stopped && report.failed.empty());
        QCOMPARE(report.tried, 3);
        QCOMPARE(report.imported.size(), 2);
        fixture.expectItems(2);
        QVERIFY(!run->isRunning());
    }

    void honoursAStopBeforeTheFirstItem()
    {
        ImportFixture fixture;
        const auto run = fixture.makeRun();
        const auto report = ImportFixture::finish(*run, ImportItem::fromPaths(fixture.makeFiles(5)),
                                                  [&run] { run->requestStop(); });
        QVERIFY(report.stopped);
        QCOMPARE(report.tried, 1);
        fixture.expectItems(0);
    }

    void endsCleanlyWhenDestroyed()
    {
        for (const int committed : {0, 5}) { // While the first is analysed, and in the middle.
            ImportFixture fixture;
            QSemaphore gate;
            std::atomic<int> waiting{0};
            fixture.analyse = [&](const AnalysisRequest& request) {
                if (numberOf(request) > committed) {
                    ++waiting;
                    gate.acquire();
                }
                return sampleAnalysis(request);
            };
            auto run = fixture.makeRun();
            run->start(ImportItem::fromPaths(fixture.makeFiles(30)));
            QTRY_COMPARE(fixture.recordCount(), committed);
            QTRY_COMPARE(waiting.load(), fixture.parallel);
            gate.release(1000);
            run.reset();
            fixture.expectItems(committed);
        }
    }

    void putsFailuresOnTheListAndGoesOn()
    {
        ImportFixture fixture;
        QStringList files = fixture.makeFiles(6);
        QVERIFY(QDir().mkpath(fixture.library.folder() + u"/in/album.png"_s));
        QVERIFY(::mkfifo((fixture.library.folder() + u"/in/pipe.png"_s).toUtf8().constData(), 0600) == 0);
        files.append(fixture.library.folder() + u"/in"_s);
        // No text names this one.
        const QByteArray lost = files.last().toUtf8() + "/lost\xff.png";
        QVERIFY(::mknod(lost.constData(), S_IFREG | 0600, 0) == 0);
        fixture.analyse = [](const AnalysisRequest& request) {
            AnalysisResult result = sampleAnalysis(request);
            if (numberOf(request) == 2)
                result.outcome = base::Failure{u"It is torn."_s};
            if (numberOf(request) == 4)
                throw std::runtime_error("decoder in tears");
            if (numberOf(request) == 5)
                result.preview.clear();
            return result;
        };
        const ImportReport report = fixture.import(files);
        QCOMPARE(fixture.titles(report.imported), QStringList({u"01"_s, u"03"_s, u"06"_s}));
        QCOMPARE(report.tried, 9);
        QCOMPARE(namesOf(report.failed), QStringList({u"02.png"_s, u"04.png"_s, u"05.png"_s, u"album.png"_s,
                                                      u"lost\uFFFD.png"_s, u"pipe.png"_s}));
        QCOMPARE(report.failed[0].reason, u"It is torn."_s);
        QVERIFY(report.failed[1].reason.contains(u"decoder in tears"_s));
        ::unlink(lost.constData()); // What Qt cannot name it cannot remove.
        QCOMPARE(fixture.itemFolders().size(), 3);
    }

    void losesAndHalvesNothingWhenASaveFails()
    {
        ImportFixture fixture;
        const QStringList files = fixture.makeFiles(4);
        for (const QString& file : files)
            fixture.index.entries[file].tags = {u"shared"_s, QFileInfo(file).baseName()};
        poisonStore(fixture.library.package().dbPath(), "02");
        const ImportReport report = fixture.import(files);
        QCOMPARE(fixture.titles(report.imported), QStringList({u"01"_s, u"03"_s, u"04"_s}));
        QCOMPARE(namesOf(report.failed), QStringList{u"02.png"_s});
        QVERIFY(!fixture.library.context().hasChanges() && fixture.library.reopen());
        fixture.expectItems(3);
        // "shared", and one for each item that is there.
        QCOMPARE(fixture.recordCount(store::Tags::info()), 4);
        QVERIFY(QFileInfo::exists(files[1]));
    }

    void removesDateFoldersThatItEmptied()
    {
        ImportFixture fixture;
        poisonStore(fixture.library.package().dbPath(), "01");
        QCOMPARE(fixture.import(fixture.makeFiles(1)).failed.size(), size_t(1));
        QVERIFY(QDir(fixture.masters()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void passesOverFilesThatAreGone()
    {
        ImportFixture fixture;
        fixture.parallel = 1;
        const QStringList files = fixture.makeFiles(3);
        std::vector<ImportItem> items = ImportItem::fromPaths(files);
        items.push_back({files[0], {}, MediaKind::Unset, true}); // A record needs a kind.
        fixture.analyse = [&files](const AnalysisRequest& request) {
            QFile::remove(files[1]);
            return sampleAnalysis(request);
        };
        const auto run = fixture.makeRun();
        QList<int> indexes;
        connect(run.get(), &ImportRun::progressed, run.get(),
                [&indexes](const ImportProgress& progress) { indexes.append(progress.index); });
        const ImportReport report = ImportFixture::finish(*run, items);
        QCOMPARE(fixture.titles(report.imported), QStringList({u"01"_s, u"03"_s}));
        QVERIFY(report.failed.empty());
        QCOMPARE(report.tried, 3);
        QVERIFY(!indexes.contains(2));
        QCOMPARE(indexes.last(), 3);
    }

    void reportsProgressOfTheLastItemAndNotMoreThanFrames()
    {
        ImportFixture fixture;
        const auto run = fixture.makeRun();
        QList<ImportProgress> seen;
        QElapsedTimer time;
        connect(run.get(), &ImportRun::progressed, run.get(),
                [&seen](const ImportProgress& progress) { seen.append(progress); });
        time.start();
        ImportFixture::finish(*run, ImportItem::fromPaths(fixture.makeFiles(70)));
        QCOMPARE(seen.last().index, 70);
        QCOMPARE(seen.last().percent(), 100);
        QCOMPARE(seen.last().preview, QByteArray("preview of 70.png"));
        QCOMPARE(seen.last().colors.size(), size_t(1));
        QVERIFY(seen.size() <= time.elapsed() / 16 + 2);
        for (qsizetype i = 1; i < seen.size(); ++i)
            QVERIFY(seen[i - 1].index < seen[i].index);
    }

    void leavesNoStagingDirectory()
    {
        ImportFixture fixture;
        const ImportReport report = fixture.import(QStringList{fixture.makeFile(u"notes.txt"_s)});
        QCOMPARE(report.tried, 0);
        QCOMPARE(report.skipped.size(), size_t(1));
        QCOMPARE(fixture.import(QStringList()).tried, 0);
        QVERIFY(!fixture.hasStagingDirectory());
        // Nor what an interrupted run left.
        test::writeFile(fixture.library.package().stagingDirPath() + u"/OLD.mritem/Originals/x"_s, "x");
        QCOMPARE(fixture.import(fixture.makeFiles(2)).imported.size(), 2);
        fixture.expectItems(2);
    }

    void keepsTheEventLoopTurning()
    {
        ImportFixture fixture;
        fixture.parallel = 2;
        const auto run = fixture.makeRun();
        QElapsedTimer turn;
        qint64 longest = 0;
        QTimer pulse;
        connect(&pulse, &QTimer::timeout, this, [&] { longest = std::max(longest, turn.restart()); });
        turn.start();
        pulse.start(0);
        ImportFixture::finish(*run, ImportItem::fromPaths(fixture.makeFiles(99)));
        // Commits come in slices of some milliseconds; all of them in one turn would take far longer than
        // this.
        QVERIFY2(longest < 250, qPrintable(QString::number(longest)));
    }
};

QTEST_GUILESS_MAIN(ImportRunTest)
#include "tst_importrun.moc"
