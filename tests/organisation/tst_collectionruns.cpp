#include "organisation/CollectionRemoval.h"
#include "organisation/MediaMove.h"
#include "organisation/TreeFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::RecordRun;
using organisation::SlicedRun;

/// Changes to many items: moves, and collections that go with their items.
class TestCollectionRuns : public QObject {
    Q_OBJECT

    static qint64 count(test::TemporaryLibrary& library, const store::EntityInfo& entity)
    {
        return library.context().count(entity, store::Predicate::all()).value();
    }

private Q_SLOTS:
    void movesItems()
    {
        test::TemporaryLibrary library;
        const auto from = library.addCollection(u"from"_s);
        const auto to = library.addCollection(u"to"_s);
        to->setDateModified(QDateTime::fromSecsSinceEpoch(0));
        QVERIFY(library.context().save());
        QStringList ids;
        for (int i = 0; i < 70; ++i) { // more than one save
            ids.append(library.addMedia(QString::number(i), from)->mediaID());
        }
        ids.insert(3, u"unknown"_s);
        SlicedRun run;
        RecordRun::End end{-1, {}};
        qsizetype done = 0;
        QVERIFY(startMediaMove(
            run, library.context(), ids, to, [&done](qsizetype number) { done = number; },
            [&end](const RecordRun::End& last) { end = last; }));
        QTRY_COMPARE(end.changed, 70);
        QCOMPARE(done, 71);
        QVERIFY(!library.context().hasChanges());
        QVERIFY(library.reopen());
        const auto moved = library.context().fetch<store::Media>({});
        for (const auto& media : moved.value()) {
            QCOMPARE(media->collections()->title(), u"to"_s);
            QCOMPARE(media->mediaPID(), media->collections()->collectionID());
            QVERIFY(media->collections()->dateModified().toSecsSinceEpoch() > 0);
        }
    }

    void failedSaveEndsARun()
    {
        test::TemporaryLibrary library;
        const auto tag = library.addTag(u"t"_s);
        SlicedRun run;
        RecordRun::End end;
        int last = 0;
        const auto change = [&](qsizetype position) {
            last = int(position);
            tag->setTitle(QString::number(position));
            if (position == 100) {
                // A second item of one mediaID, which the store refuses.
                for (int i = 0; i < 2; ++i)
                    library.context().insert<store::Media>()->setMediaID(u"x"_s);
            }
            return true;
        };
        const auto tell = [&end](const RecordRun::End& ended) { end = ended; };
        QVERIFY(startRecordRun(run, library.context(), {.count = 500, .change = change, .finished = tell}));
        QTRY_VERIFY(!end.failure.isEmpty());
        QVERIFY(end.changed > 0 && end.changed <= 100 && last < 499);
        QVERIFY(!library.context().hasChanges());
        QCOMPARE(tag->title(), QString::number(end.changed - 1));
    }

    void removesCollectionsWithTheirItems()
    {
        test::TreeFixture world(
            u"folder,Folder,10002|in,In,10000,folder|smart,Smart,10001,folder|keep,Keep,10000"_s);
        test::TemporaryLibrary& library = world.library;
        const QString masters = library.package().masterDirPath();
        QStringList packages;
        for (int i = 0; i < 40; ++i) {
            const auto media = library.addMedia(QString::number(i), world.record(u"in"_s), true);
            library.link(media, library.addTag(QString::number(i)));
            packages.append(QFileInfo(QFileInfo(masters + media->mediaThumbPath()).path()).path());
        }
        // Records that lie about their files.
        for (const QString& path :
             {u"/../../elsewhere.mritem/Preivew/p.png"_s, u"/2026/x/y/p.png"_s, QString()}) {
            library.addMedia(u"hostile"_s, world.record(u"in"_s))->setMediaThumbPath(path);
        }
        library.addMedia(u"kept"_s, world.record(u"keep"_s), true);
        QVERIFY(library.context().save());
        library.state().addLastSelectedMedia({"x"}, u"in+Collection"_s);
        library.state().addLastSelectedMedia({"x"}, u"keep+Collection"_s);

        SlicedRun run;
        organisation::CollectionRemoval removal(run, library.context(), library.state(), masters);
        QList<int> percents;
        bool isDone = false;
        QVERIFY(removal.start(
            {u"folder"_s, u"in"_s, u"smart"_s, u"gone"_s},
            [&percents](int percent) { percents.append(percent); },
            [&isDone](const RecordRun::End& end) { isDone = end.changed == 3 && end.failure.isEmpty(); }));
        QVERIFY(!removal.start({u"keep"_s}, {}, {}));
        QTRY_VERIFY(isDone);
        QCOMPARE(percents.last(), 100);
        QCOMPARE(QSet<QString>(removal.packages().begin(), removal.packages().end()),
                 QSet<QString>(packages.begin(), packages.end()));
        QVERIFY(library.reopen());
        QCOMPARE(count(library, store::Collections::info()), 1);
        QCOMPARE(count(library, store::Media::info()), 1);
        QCOMPARE(count(library, store::Tags::info()), 40);
        QCOMPARE(library.state().lastSelectedMedia().keys(), QStringList(u"keep+Collection"_s));
    }

    /// What is left is in its folder, and each item that is gone is named with its files.
    void aStoppedRemovalLeavesWholeCollections()
    {
        test::TreeFixture world(u"folder,Folder,10002|in,In,10000,folder|also,Also,10000,folder"_s);
        test::TemporaryLibrary& library = world.library;
        for (int i = 0; i < 120; ++i)
            library.addMedia(QString::number(i), world.record(i < 40 ? u"also"_s : u"in"_s), true);
        SlicedRun run;
        organisation::CollectionRemoval removal(run, library.context(), library.state(),
                                                library.package().masterDirPath());
        int gone = -1;
        QVERIFY(removal.start(
            {u"folder"_s, u"in"_s, u"also"_s}, [&run](int percent) { percent > 40 ? run.stop() : void(); },
            [&gone](const RecordRun::End& end) { gone = end.changed; }));
        QTRY_COMPARE(gone, 1);
        QVERIFY(library.reopen());
        QCOMPARE(count(library, store::Collections::info()), 2);
        const qint64 left = count(library, store::Media::info());
        QVERIFY(left > 0 && left + removal.packages().size() == 120);
    }
};

QTEST_GUILESS_MAIN(TestCollectionRuns)
#include "tst_collectionruns.moc"
