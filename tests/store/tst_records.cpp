#include "base/Text.h"
#include "store/CollectionTagList.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"
#include "store/RecordReference.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <csignal>
#include <sys/resource.h>

using namespace mosaro::store;
using namespace mosaro::test;

namespace {

/// A second connection, for what another program could do to the file.
SQLite::Database second(TemporaryLibrary& library)
{
    return SQLite::Database(library.package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000);
}

qint64 rows(TemporaryLibrary& library, const EntityInfo& entity)
{
    return library.context().count(entity, Predicate::all()).value();
}

template <class T>
bool holds(const std::vector<std::shared_ptr<T>>& records, const std::shared_ptr<T>& record)
{
    return std::find(records.begin(), records.end(), record) != records.end();
}

} // namespace

class TestRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosaro::base::installTexts(); }
    void keepsEveryKindOfValue();
    void oneRowIsOneObject();
    void relationsHoldUnsavedRecords();
    void movedItemsLeaveTheOldOwner();
    void removalTakesAlong_data();
    void removalTakesAlong();
    void itemMovedInTheSameSaveSurvivesItsOldOwner();
    void droppingUnsavedRecords();
    void newRecordsOfARemovedOwnerGoWithIt();
    void failedSaveKeepsEverythingPending();
    void fullDiskKeepsEverythingPending();
    void rollbackForgets();
    void closedContextLeavesEmptyShells();
    void references();
    void rowIdsAreNotUsedAgain();
};

void TestRecords::keepsEveryKindOfValue()
{
    TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("c"));
    const QString hostile =
        QStringLiteral("a'b\"c%_\\;--\n\u00e9\u4e2d\U0001F600") + QChar(0) + QStringLiteral("end");
    const QDateTime date(QDate(1903, 2, 28), QTime(23, 59, 59, 999), Qt::UTC);
    const QVariantMap info{{QStringLiteral("BackgroundColor"), hostile.left(8)},
                           {QStringLiteral("n"), qlonglong(7)}};
    {
        const auto media = library.addMedia(hostile, collection);
        media->setMediaFileSize(Q_INT64_C(9223372036854775807));
        media->setImageDPI(300.123456789);
        media->setImageHasAlpha(true);
        media->setMediaDateCreated(date);
        media->setMediaOtherInfo(info);
        QVERIFY(media->isEmptyAttribute(QLatin1String("mediaWeburl")));
        QVERIFY(!media->isEmptyAttribute(QLatin1String("mediaNotes")));
        QVERIFY(library.context().save().ok());
    }
    collection->setFilters({QVariantMap{{QStringLiteral("k"), 1.5}}, QStringLiteral("x")});
    QVERIFY(library.context().save().ok());
    QVERIFY(library.reopen());
    const auto media = library.context().first<Media>(Predicate::all());
    QCOMPARE(media->mediaTitle(), hostile);
    QCOMPARE(media->mediaFileSize(), Q_INT64_C(9223372036854775807));
    QCOMPARE(media->imageDPI(), 300.123456789);
    QVERIFY(media->imageHasAlpha());
    QCOMPARE(media->mediaDateCreated(), date);
    QCOMPARE(media->mediaOtherInfo(), info);
    QVERIFY(media->isEmptyAttribute(QLatin1String("mediaWeburl")));
    QVERIFY(media->isEmptyAttribute(QLatin1String("imageHasFrames")));
    QVERIFY(!media->isEmptyAttribute(QLatin1String("mediaNotes")));
    QCOMPARE(media->collections()->filters().size(), 2);
    media->setAttribute(Media::k_mediaOtherInfo, {});
    QVERIFY(library.context().save().ok());
    QVERIFY(library.reopen());
    QVERIFY(
        library.context().first<Media>(Predicate::all())->isEmptyAttribute(QLatin1String("mediaOtherInfo")));
}

void TestRecords::oneRowIsOneObject()
{
    TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto media = library.addMedia(QStringLiteral("m"), collection);
    QVERIFY(library.context().object<Media>(media->rowId()) == media);
    QVERIFY(library.context().first<Media>(Predicate::all()) == media);
    QVERIFY(media->collections() == collection);
    QVERIFY(library.context().object<Media>(media->rowId() + 99) == nullptr);
    QVERIFY(library.context().object<Media>(kUnsavedRow) == nullptr);

    const RowId row = media->rowId();
    const RowId other = library.addMedia(QStringLiteral("n"), collection)->rowId();
    const std::vector<RowId> asked{other, 12345, row};
    const auto found = library.context().objects<Media>(asked);
    QCOMPARE(found.size(), size_t(2));
    QCOMPARE(found[0]->rowId(), other);
    QVERIFY(found[1] == media);

    // Setting what is there already changes nothing.
    media->setMediaTitle(QStringLiteral("m"));
    QVERIFY(!media->isDirty());
    QVERIFY(!library.context().hasChanges());
    // A change is kept although nobody holds the record.
    library.context().object<Media>(other)->setMediaTitle(QStringLiteral("changed"));
    QCOMPARE(library.context().object<Media>(other)->mediaTitle(), QStringLiteral("changed"));
    QVERIFY(library.context().save().ok());
    QVERIFY(library.reopen());
    QCOMPARE(library.context().object<Media>(other)->mediaTitle(), QStringLiteral("changed"));
}

void TestRecords::relationsHoldUnsavedRecords()
{
    TemporaryLibrary library;
    auto& context = library.context();
    auto link = context.insert<MediaTagList>(); // Before what it leads to, on purpose.
    auto media = context.insert<Media>();
    auto tag = context.insert<Tags>();
    auto collection = context.insert<Collections>();
    media->setMediaID(freshID());
    media->setCollections(collection);
    link->setMedia(media);
    link->setTags(tag);
    QVERIFY(media->collections() == collection);
    QVERIFY(holds(collection->media(), media));
    QVERIFY(holds(media->mediaTagList(), link));
    QVERIFY(holds(tag->mediaTagList(), link));
    QVERIFY(!media->isSaved());
    QVERIFY(context.save().ok());
    QVERIFY(media->isSaved() && link->isSaved() && tag->isSaved() && collection->isSaved());
    QVERIFY(!context.hasChanges());
    QVERIFY(link->media() == media);
    QCOMPARE(tag->mediaTagList().size(), size_t(1));
    QCOMPARE(collection->mediaCount(), 1);
    QVERIFY(library.reopen());
    const auto again = library.context().first<MediaTagList>(Predicate::all());
    QVERIFY(again->media() != nullptr && again->tags() != nullptr);
    QVERIFY(again->media()->collections() != nullptr);
}

void TestRecords::movedItemsLeaveTheOldOwner()
{
    TemporaryLibrary library;
    const auto from = library.addCollection(QStringLiteral("from"));
    const auto to = library.addCollection(QStringLiteral("to"));
    const auto media = library.addMedia(QStringLiteral("m"), from);
    media->setCollections(to);
    QVERIFY(from->media().empty());
    QVERIFY(holds(to->media(), media));
    media->setMediaRating(5);
    QCOMPARE(to->media().size(), size_t(1));
    QVERIFY(library.context().save().ok());
    QVERIFY(from->media().empty());
    QCOMPARE(to->mediaCount(), 1);
}

void TestRecords::removalTakesAlong_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("media");
    QTest::addColumn<int>("tagLinks");
    QTest::addColumn<int>("colorLinks");
    QTest::addColumn<int>("collectionLinks");
    QTest::newRow("collection") << 0 << 1 << 1 << 1 << 0;
    QTest::newRow("item") << 1 << 1 << 1 << 1 << 1;
    QTest::newRow("tag") << 2 << 2 << 0 << 2 << 0;
    QTest::newRow("colour") << 3 << 2 << 2 << 0 << 1;
}

void TestRecords::removalTakesAlong()
{
    QFETCH(int, what);
    TemporaryLibrary library;
    auto& context = library.context();
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto media = library.addMedia(QStringLiteral("a"), collection);
    const auto other = library.addMedia(QStringLiteral("b"), library.addCollection(QStringLiteral("d")));
    const auto tag = library.addTag(QStringLiteral("t"));
    const auto color = library.addColor(QStringLiteral("0+0+0+1"), 0);
    for (const auto& item : {media, other}) {
        library.link(item, tag);
        library.link(item, color);
    }
    auto pair = context.insert<CollectionTagList>();
    pair->setCollections(collection);
    pair->setTags(tag);
    QVERIFY(context.save().ok());
    const auto tagLink = media->mediaTagList().front();
    const auto colorLink = media->colorList().front();
    const std::vector<std::shared_ptr<Record>> ends{collection, media, tag, color};
    Record& removed = *ends[static_cast<size_t>(what)];
    context.remove(removed);
    QVERIFY(!removed.isRemoved()); // Until the save.
    QVERIFY(context.save().ok());
    QVERIFY(removed.isRemoved());
    QTEST(static_cast<int>(rows(library, Media::info())), "media");
    QTEST(static_cast<int>(rows(library, MediaTagList::info())), "tagLinks");
    QTEST(static_cast<int>(rows(library, ColorList::info())), "colorLinks");
    QTEST(static_cast<int>(rows(library, CollectionTagList::info())), "collectionLinks");
    QCOMPARE(media->isRemoved(), what <= 1);
    QCOMPARE(tagLink->isRemoved(), what != 3);
    QCOMPARE(colorLink->isRemoved(), what != 2);
    QCOMPARE(pair->isRemoved(), what == 0 || what == 2);
    QVERIFY(!other->isRemoved());
    QVERIFY(removed.attribute(0).isNull());
    removed.setAttribute(0, 1); // Of no effect, and harmless.
    QVERIFY(!context.hasChanges());
}

void TestRecords::itemMovedInTheSameSaveSurvivesItsOldOwner()
{
    TemporaryLibrary library;
    const auto from = library.addCollection(QStringLiteral("from"));
    const auto to = library.addCollection(QStringLiteral("to"));
    const auto media = library.addMedia(QStringLiteral("m"), from);
    library.context().remove(*from);
    media->setCollections(to);
    QVERIFY(library.context().save().ok());
    QVERIFY(!media->isRemoved());
    QCOMPARE(to->mediaCount(), 1);
}

void TestRecords::droppingUnsavedRecords()
{
    TemporaryLibrary library;
    auto& context = library.context();
    const auto owner = library.addCollection(QStringLiteral("owner"));
    const auto saved = library.addMedia(QStringLiteral("saved"), owner);
    auto collection = context.insert<Collections>();
    auto media = context.insert<Media>();
    auto link = context.insert<MediaTagList>();
    media->setCollections(collection);
    link->setMedia(media);
    saved->setCollections(collection);
    saved->setMediaRating(3);
    context.remove(*collection);
    QVERIFY(collection->isRemoved() && media->isRemoved() && link->isRemoved());
    QVERIFY(saved->collections() == owner); // Not taken along with an owner that never was.
    QVERIFY(context.save().ok());
    QCOMPARE(rows(library, Media::info()), 1);
    QCOMPARE(saved->mediaRating(), 3);
    QCOMPARE(owner->mediaCount(), 1);
}

void TestRecords::newRecordsOfARemovedOwnerGoWithIt()
{
    TemporaryLibrary library;
    auto& context = library.context();
    const auto collection = library.addCollection(QStringLiteral("c"));
    auto media = context.insert<Media>();
    auto link = context.insert<ColorList>();
    media->setCollections(collection);
    link->setMedia(media);
    context.remove(*collection);
    QVERIFY(context.save().ok());
    QVERIFY(media->isRemoved() && link->isRemoved() && collection->isRemoved());
    QCOMPARE(rows(library, Media::info()) + rows(library, ColorList::info()), 0);
}

void TestRecords::failedSaveKeepsEverythingPending()
{
    TemporaryLibrary library;
    auto& context = library.context();
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto doomed = library.addCollection(QStringLiteral("doomed"));
    const auto inDoomed = library.addMedia(QStringLiteral("in doomed"), doomed);
    second(library).exec(
        "CREATE TRIGGER refuse BEFORE INSERT ON ColorList BEGIN SELECT RAISE(ABORT, 'no'); END");

    auto media = context.insert<Media>();
    media->setMediaID(freshID());
    media->setCollections(collection);
    auto link = context.insert<ColorList>();
    link->setMedia(media);
    collection->setTitle(QStringLiteral("renamed"));
    context.remove(*doomed);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const auto saved = context.save();
        QVERIFY(!saved.ok());
        QVERIFY(!saved.reason().isEmpty());
        QVERIFY(context.hasChanges());
        QVERIFY(!media->isSaved() && !link->isSaved() && collection->isDirty());
        QVERIFY(!doomed->isRemoved() && !inDoomed->isRemoved());
        QVERIFY(link->media() == media);
        QCOMPARE(rows(library, Collections::info()), 2);
        QCOMPARE(rows(library, Media::info()), 1);
    }
    second(library).exec("DROP TRIGGER refuse");
    QVERIFY(context.save().ok());
    QVERIFY(media->isSaved() && link->isSaved() && !collection->isDirty());
    QVERIFY(doomed->isRemoved() && inDoomed->isRemoved());
    QVERIFY(library.reopen());
    QCOMPARE(library.context().first<Collections>(Predicate::all())->title(), QStringLiteral("renamed"));
    QCOMPARE(library.context().first<ColorList>(Predicate::all())->media()->collections()->mediaCount(), 1);
}

void TestRecords::fullDiskKeepsEverythingPending()
{
    TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto media = library.addMedia(QStringLiteral("m"), collection);
    media->setMediaNotes(QString(3000000, u'n'));
    // No file may grow beyond a megabyte: what a disk without room does to a write.
    rlimit before;
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{1024 * 1024, before.rlim_max};
    ::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto refused = library.context().save();
    const auto refusedAgain = library.context().save();
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
    QVERIFY(!refused.ok() && !refusedAgain.ok());
    QVERIFY(media->isDirty());
    QCOMPARE(media->mediaNotes().size(), 3000000);
    QVERIFY(library.context().save().ok());
    QVERIFY(library.reopen());
    QCOMPARE(library.context().first<Media>(Predicate::all())->mediaNotes().size(), 3000000);
}

void TestRecords::rollbackForgets()
{
    TemporaryLibrary library;
    auto& context = library.context();
    const auto collection = library.addCollection(QStringLiteral("before"));
    collection->setTitle(QStringLiteral("after"));
    auto media = context.insert<Media>();
    context.remove(*collection);
    context.rollback();
    QVERIFY(media->isRemoved());
    QVERIFY(!context.hasChanges());
    QCOMPARE(collection->title(), QStringLiteral("before"));
    QVERIFY(context.save().ok());
    QCOMPARE(rows(library, Collections::info()), 1);
}

void TestRecords::closedContextLeavesEmptyShells()
{
    TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("c"));
    auto unsaved = library.context().insert<Media>();
    library.manager().closeDatabase();
    QVERIFY(collection->isRemoved() && unsaved->isRemoved());
    QVERIFY(collection->title().isEmpty());
    collection->setTitle(QStringLiteral("x"));
    QVERIFY(collection->media().empty());
    QCOMPARE(collection->mediaCount(), 0);
    unsaved->setCollections(collection);
    QVERIFY(archivedReference(*collection).isEmpty());
}

void TestRecords::references()
{
    TemporaryLibrary library;
    TemporaryLibrary stranger;
    auto& context = library.context();
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto media = library.addMedia(QStringLiteral("m"), collection);
    const QByteArray bytes = archivedReference(*media);
    QVERIFY(unarchivedReference<Media>(context, bytes) == media);
    QVERIFY(unarchivedReference<Collections>(context, bytes) == nullptr);
    (void)stranger.addMedia(QStringLiteral("m"), stranger.addCollection(QStringLiteral("c")));
    QVERIFY(unarchivedReference<Media>(stranger.context(), bytes) == nullptr);
    QVERIFY(archivedReference(*context.insert<Media>()).isEmpty());
    for (const QByteArray& garbage : {QByteArray(), QByteArray("bplist00"), QByteArray("\0\1\2", 3),
                                      QByteArray("<plist><string>x-mosaro://</string></plist>")})
        QVERIFY(unarchivedReference<Media>(context, garbage) == nullptr);
    context.rollback();
    context.remove(*media);
    QVERIFY(context.save().ok());
    QVERIFY(unarchivedReference<Media>(context, bytes) == nullptr);
}

void TestRecords::rowIdsAreNotUsedAgain()
{
    TemporaryLibrary library;
    const auto tag = library.addTag(QStringLiteral("t"));
    const RowId row = tag->rowId();
    library.context().remove(*tag);
    QVERIFY(library.context().save().ok());
    QVERIFY(library.addTag(QStringLiteral("u"))->rowId() > row);
}

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
