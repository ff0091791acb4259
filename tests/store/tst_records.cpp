#include "store/CollectionTagList.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"
#include "store/RecordReference.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace mosaro::store;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

class TestRecords : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TemporaryLibrary> m_library;
    StoreContext* m_context = nullptr;
    std::shared_ptr<Collections> m_collection;
    std::shared_ptr<Media> m_media;

    void saveAndReopen()
    {
        QVERIFY(m_context->save().ok());
        QVERIFY(m_library->reopen());
        m_context = &m_library->context();
    }
    /// What another program could do to the file.
    void fromOutside(const char* sql)
    {
        SQLite::Database(m_library->package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000).exec(sql);
    }
    qint64 rows(const EntityInfo& entity) { return m_context->count(entity, Predicate::all()).value(); }

private Q_SLOTS:
    /// One saved item "m" in one collection "c".
    void init()
    {
        m_library = std::make_unique<TemporaryLibrary>();
        m_context = &m_library->context();
        m_collection = m_library->addCollection(u"c"_s);
        m_media = m_library->addMedia(u"m"_s, m_collection);
    }

    void keepsEveryKindOfValue()
    {
        const QString hostile = u"a'b\"c%_\\;--\n\u00e9\u4e2d\U0001F600"_s + QChar(0) + u"end"_s;
        const QDateTime date(QDate(1903, 2, 28), QTime(23, 59, 59, 999), Qt::UTC);
        const QVariantMap info{{u"BackgroundColor"_s, hostile.left(8)}, {u"n"_s, qlonglong(7)}};
        constexpr qint64 kLargest = std::numeric_limits<qint64>::max();
        m_media->setMediaTitle(hostile);
        m_media->setMediaFileSize(kLargest);
        m_media->setImageDPI(300.123456789);
        m_media->setImageHasAlpha(true);
        m_media->setMediaDateCreated(date);
        m_media->setMediaOtherInfo(info);
        m_collection->setFilters({QVariantMap{{u"k"_s, 1.5}}, u"x"_s});
        saveAndReopen();
        const auto media = m_context->first<Media>(Predicate::all());
        QCOMPARE(media->mediaTitle(), hostile);
        QCOMPARE(media->mediaFileSize(), kLargest);
        QCOMPARE(media->imageDPI(), 300.123456789);
        QVERIFY(media->imageHasAlpha());
        QCOMPARE(media->mediaDateCreated(), date);
        QCOMPARE(media->mediaOtherInfo(), info);
        QVERIFY(media->isEmptyAttribute("mediaWeburl"_L1) && media->isEmptyAttribute("imageHasFrames"_L1));
        QVERIFY(!media->isEmptyAttribute("mediaNotes"_L1));
        QCOMPARE(media->collections()->filters().size(), 2);
        media->setAttribute(Media::k_mediaOtherInfo, {});
        saveAndReopen();
        QVERIFY(m_context->first<Media>(Predicate::all())->isEmptyAttribute("mediaOtherInfo"_L1));
    }

    void oneRowIsOneObject()
    {
        const RowId row = m_media->rowId();
        QVERIFY(m_context->object<Media>(row) == m_media);
        QVERIFY(m_context->first<Media>(Predicate::all()) == m_media);
        QVERIFY(m_media->collections() == m_collection);
        QVERIFY(!m_context->object<Media>(row + 99) && !m_context->object<Media>(kUnsavedRow));

        const RowId other = m_library->addMedia(u"n"_s, m_collection)->rowId();
        const auto found = m_context->objects<Media>(std::vector<RowId>{other, 12345, row});
        QCOMPARE(found.size(), size_t(2));
        QCOMPARE(found[0]->rowId(), other);
        QVERIFY(found[1] == m_media);

        m_media->setMediaTitle(u"m"_s); // What is there already.
        QVERIFY(!m_media->isDirty() && !m_context->hasChanges());
        // A change is kept although nobody holds the record.
        m_context->object<Media>(other)->setMediaTitle(u"changed"_s);
        QCOMPARE(m_context->object<Media>(other)->mediaTitle(), u"changed"_s);
        saveAndReopen();
        QCOMPARE(m_context->object<Media>(other)->mediaTitle(), u"changed"_s);
    }

    void relationsHoldUnsavedRecords()
    {
        auto link = m_context->insert<MediaTagList>(); // Before what it leads to, on purpose.
        auto media = m_context->insert<Media>();
        auto tag = m_context->insert<Tags>();
        auto collection = m_context->insert<Collections>();
        media->setMediaID(freshID());
        media->setCollections(collection);
        link->setMedia(media);
        link->setTags(tag);
        const std::vector<std::shared_ptr<MediaTagList>> links{link};
        QVERIFY(media->collections() == collection && collection->media() == std::vector{media});
        QVERIFY(media->mediaTagList() == links && tag->mediaTagList() == links && !media->isSaved());
        QVERIFY(m_context->save().ok());
        QVERIFY(media->isSaved() && link->isSaved() && tag->isSaved() && collection->isSaved());
        QVERIFY(!m_context->hasChanges() && link->media() == media && tag->mediaTagList() == links);
        QCOMPARE(collection->mediaCount(), 1);
        saveAndReopen();
        const auto again = m_context->first<MediaTagList>(Predicate::all());
        QVERIFY(again->tags() && again->media() && again->media()->collections());
    }

    void movedItemsLeaveTheOldOwner()
    {
        const auto to = m_library->addCollection(u"to"_s);
        m_media->setCollections(to);
        m_media->setMediaRating(5);
        QVERIFY(m_collection->media().empty() && to->media() == std::vector{m_media});
        QVERIFY(m_context->save().ok());
        QVERIFY(m_collection->media().empty());
        QCOMPARE(to->mediaCount(), 1);
        // Back, in the same save as their owner goes.
        m_context->remove(*to);
        m_media->setCollections(m_collection);
        QVERIFY(m_context->save().ok());
        QVERIFY(to->isRemoved() && !m_media->isRemoved());
        QCOMPARE(m_collection->mediaCount(), 1);
    }

    void removalTakesAlong_data()
    {
        QTest::addColumn<QList<int>>("left"); // Items, links to tags, links to colours, tags of collections.
        QTest::newRow("collection") << QList<int>{1, 1, 1, 0};
        QTest::newRow("item") << QList<int>{1, 1, 1, 1};
        QTest::newRow("tag") << QList<int>{2, 0, 2, 0};
        QTest::newRow("colour") << QList<int>{2, 2, 0, 1};
    }
    void removalTakesAlong()
    {
        const auto other = m_library->addMedia(u"b"_s, m_library->addCollection(u"d"_s));
        const auto tag = m_library->addTag(u"t"_s);
        const auto color = m_library->addColor(u"0+0+0+1"_s, 0);
        for (const auto& item : {m_media, other}) {
            m_library->link(item, tag);
            m_library->link(item, color);
        }
        auto pair = m_context->insert<CollectionTagList>();
        pair->setCollections(m_collection);
        pair->setTags(tag);
        QVERIFY(m_context->save().ok());
        const auto tagLink = m_media->mediaTagList().front();
        const auto colorLink = m_media->colorList().front();
        const QHash<QByteArray, std::shared_ptr<Record>> ends{
            {"collection", m_collection}, {"item", m_media}, {"tag", tag}, {"colour", color}};
        Record& removed = *ends[QTest::currentDataTag()];
        m_context->remove(removed);
        QVERIFY(!removed.isRemoved()); // Until the save.
        QVERIFY(m_context->save().ok());
        QVERIFY(removed.isRemoved());
        QList<int> left;
        for (const auto* entity :
             {&Media::info(), &MediaTagList::info(), &ColorList::info(), &CollectionTagList::info()})
            left.append(static_cast<int>(rows(*entity)));
        QTEST(left, "left");
        QCOMPARE(m_media->isRemoved(), &removed == m_media.get() || &removed == m_collection.get());
        QCOMPARE(tagLink->isRemoved(), &removed != color.get());
        QCOMPARE(colorLink->isRemoved(), &removed != tag.get());
        QCOMPARE(pair->isRemoved(), &removed == m_collection.get() || &removed == tag.get());
        QVERIFY(!other->isRemoved() && removed.attribute(0).isNull());
        removed.setAttribute(0, 1); // Of no effect, and harmless.
        QVERIFY(!m_context->hasChanges());
    }

    void droppingUnsavedRecords()
    {
        auto collection = m_context->insert<Collections>();
        auto media = m_context->insert<Media>();
        auto link = m_context->insert<MediaTagList>();
        media->setCollections(collection);
        link->setMedia(media);
        m_media->setCollections(collection);
        m_media->setMediaRating(3);
        m_context->remove(*collection);
        QVERIFY(collection->isRemoved() && media->isRemoved() && link->isRemoved());
        QVERIFY(m_media->collections() == m_collection); // Not taken along with an owner that never was.
        QVERIFY(m_context->save().ok());
        QCOMPARE(rows(Media::info()), 1);
        QCOMPARE(m_media->mediaRating(), 3);
        QCOMPARE(m_collection->mediaCount(), 1);
    }

    void newRecordsOfARemovedOwnerGoWithIt()
    {
        auto media = m_context->insert<Media>();
        auto link = m_context->insert<ColorList>();
        media->setCollections(m_collection);
        link->setMedia(media);
        m_context->remove(*m_collection);
        QVERIFY(m_context->save().ok());
        QVERIFY(media->isRemoved() && link->isRemoved() && m_collection->isRemoved());
        QCOMPARE(rows(Media::info()) + rows(ColorList::info()), 0);
    }

    void failedSaveKeepsEverythingPending()
    {
        const auto doomed = m_library->addCollection(u"doomed"_s);
        const auto inDoomed = m_library->addMedia(u"in doomed"_s, doomed);
        fromOutside("CREATE TRIGGER refuse BEFORE INSERT ON ColorList BEGIN SELECT RAISE(ABORT, 'no'); END");
        auto media = m_context->insert<Media>();
        media->setMediaID(freshID());
        media->setCollections(m_collection);
        auto link = m_context->insert<ColorList>();
        link->setMedia(media);
        m_collection->setTitle(u"renamed"_s);
        m_context->remove(*doomed);
        for (int attempt = 0; attempt < 2; ++attempt) {
            const auto saved = m_context->save();
            QVERIFY(!saved.ok() && !saved.reason().isEmpty() && m_context->hasChanges());
            QVERIFY(!media->isSaved() && !link->isSaved() && m_collection->isDirty());
            QVERIFY(!doomed->isRemoved() && !inDoomed->isRemoved() && link->media() == media);
            QCOMPARE(rows(Collections::info()), 2);
            QCOMPARE(rows(Media::info()), 2);
        }
        fromOutside("DROP TRIGGER refuse");
        QVERIFY(m_context->save().ok());
        QVERIFY(media->isSaved() && link->isSaved() && !m_collection->isDirty());
        QVERIFY(doomed->isRemoved() && inDoomed->isRemoved());
        saveAndReopen();
        QCOMPARE(m_context->first<Collections>(Predicate::all())->title(), u"renamed"_s);
        QCOMPARE(m_context->first<ColorList>(Predicate::all())->media()->collections()->mediaCount(), 2);
    }

    void fullDiskKeepsEverythingPending()
    {
        m_media->setMediaNotes(QString(3000000, u'n'));
        {
            const FullDisk disk(1024 * 1024);
            QVERIFY(!m_context->save().ok() && !m_context->save().ok());
        }
        QVERIFY(m_media->isDirty());
        QCOMPARE(m_media->mediaNotes().size(), 3000000);
        saveAndReopen();
        QCOMPARE(m_context->first<Media>(Predicate::all())->mediaNotes().size(), 3000000);
    }

    void rollbackForgets()
    {
        m_collection->setTitle(u"after"_s);
        auto media = m_context->insert<Media>();
        m_context->remove(*m_collection);
        m_context->rollback();
        QVERIFY(media->isRemoved() && !m_context->hasChanges());
        QCOMPARE(m_collection->title(), u"c"_s);
        QVERIFY(m_context->save().ok());
        QCOMPARE(rows(Collections::info()), 1);
    }

    void closedContextLeavesEmptyShells()
    {
        auto unsaved = m_context->insert<Media>();
        m_library->manager().closeDatabase();
        QVERIFY(m_collection->isRemoved() && unsaved->isRemoved());
        m_collection->setTitle(u"x"_s);
        QVERIFY(m_collection->title().isEmpty() && m_collection->media().empty());
        QCOMPARE(m_collection->mediaCount(), 0);
        unsaved->setCollections(m_collection);
        QVERIFY(archivedReference(*m_collection).isEmpty());
    }

    void references()
    {
        TemporaryLibrary stranger;
        const QByteArray bytes = archivedReference(*m_media);
        QVERIFY(unarchivedReference<Media>(*m_context, bytes) == m_media);
        QVERIFY(unarchivedReference<Collections>(*m_context, bytes) == nullptr);
        (void)stranger.addMedia(u"m"_s, stranger.addCollection(u"c"_s));
        QVERIFY(unarchivedReference<Media>(stranger.context(), bytes) == nullptr);
        QVERIFY(archivedReference(*m_context->insert<Media>()).isEmpty());
        for (const QByteArray& garbage :
             {""_ba, "bplist00"_ba, "\0\1\2"_ba, "<plist><string>x-mosaro://</string></plist>"_ba})
            QVERIFY(unarchivedReference<Media>(*m_context, garbage) == nullptr);
        m_context->rollback();
        m_context->remove(*m_media);
        QVERIFY(m_context->save().ok());
        QVERIFY(unarchivedReference<Media>(*m_context, bytes) == nullptr);
    }

    void rowIdsAreNotUsedAgain()
    {
        const RowId row = m_media->rowId();
        m_context->remove(*m_media);
        QVERIFY(m_context->save().ok());
        QVERIFY(m_library->addMedia(u"u"_s, m_collection)->rowId() > row);
    }
};

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
