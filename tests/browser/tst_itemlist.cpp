#include "base/Text.h"
#include "browser/BrowserCommands.h"
#include "browser/CountLine.h"
#include "browser/EmptyState.h"
#include "browser/ItemList.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;
using Shape = store::SelectionElement::Shape;

namespace {

/// A library with one collection, and the list of what a test puts there.
struct Shelf {
    test::TemporaryLibrary library;
    std::shared_ptr<store::Collections> collection = library.addCollection(u"C"_s);
    ItemList items{library.manager()};
    std::vector<store::RowId> rows;

    std::shared_ptr<store::Media> add(const QString& title)
    {
        const auto media = library.addMedia(title, collection);
        rows.push_back(media->rowId());
        items.setIds(rows);
        return media;
    }
    [[nodiscard]] QString titles()
    {
        QStringList all;
        for (int index = 0; index < items.count(); ++index)
            all.append(items.contentAt(index).title);
        return all.join(u' ');
    }
    [[nodiscard]] qint64 ratingAt(size_t index)
    {
        return library.context().object<store::Media>(rows[index])->mediaRating();
    }
};

store::SelectionElement element(Shape shape, int type)
{
    return {shape, u"7"_s, type, u"Web"_s, 1};
}

} // namespace

class TestItemList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void ordersByEveryKey()
    {
        Shelf shelf;
        const auto add = [&shelf](const QString& title, int size, int rating, int width, int height,
                                  int day) {
            const auto media = shelf.add(title);
            media->setMediaFileSize(size);
            media->setMediaRating(rating);
            media->setMediaWidth(width);
            media->setMediaHeight(height);
            media->setMediaDateImported(QDateTime(QDate(2024, 1, day), QTime(12, 0)));
        };
        add(u"b"_s, 1, 5, 20, 20, 1);
        add(u"A10"_s, 30, 1, 30, 10, 2);
        add(u"a2"_s, 20, 3, 10, 30, 3);
        QVERIFY(shelf.library.context().save());
        const struct {
            int key;
            QString ascending, descending;
        } rows[] = {{0, u"a2 A10 b"_s, u"b A10 a2"_s}, {1, u"b a2 A10"_s, u"A10 a2 b"_s},
                    {2, u"A10 a2 b"_s, u"b a2 A10"_s}, {3, u"a2 b A10"_s, u"A10 b a2"_s},
                    {4, u"A10 b a2"_s, u"a2 b A10"_s}, {7, u"b A10 a2"_s, u"a2 A10 b"_s},
                    {9, u"b A10 a2"_s, u"b A10 a2"_s}}; // no such key: as given
        for (const auto& row : rows) {
            shelf.items.setIds(shelf.rows);
            QVERIFY(shelf.items.order({row.key, true}));
            QCOMPARE(shelf.titles(), row.ascending);
            QVERIFY(shelf.items.order({row.key, false}));
            QCOMPARE(shelf.titles(), row.descending);
        }
    }

    void readsWhatIsAskedFor()
    {
        Shelf shelf;
        for (int number = 0; number < 150; ++number) {
            const auto media = shelf.add(QString::number(number));
            if (number == 5)
                shelf.library.link(media, shelf.library.addTag(u"T"_s));
        }
        shelf.rows.push_back(99999); // a row that is gone
        ItemList& items = shelf.items;
        items.setIds(shelf.rows);
        items.setSortKey(1);
        QVERIFY(!items.isRead(3));
        items.prepare(0, 10);
        QVERIFY(items.isRead(3));
        QVERIFY(!items.isRead(140));
        QVERIFY(items.contentAt(5).hasTags);
        QVERIFY(!items.contentAt(6).hasTags);
        QCOMPARE(items.contentAt(3).subtitle, items.itemAt(3)->fileSizeAsString());
        QCOMPARE(items.contentAt(149).title, u"149"_s);
        QVERIFY(items.contentAt(150).title.isEmpty());
        for (const int nowhere : {-1, 150, 151})
            QCOMPARE(items.itemAt(nowhere), nullptr);
    }

    void findsItems()
    {
        Shelf shelf;
        ItemList& items = shelf.items;
        shelf.add(u"Zebra"_s);
        const auto ete = shelf.add(u"\u00C9t\u00E9 %"_s);
        const auto etude = shelf.add(u"etude"_s);
        const auto elsewhere = shelf.library.addMedia(u"eternal"_s, shelf.collection);
        QCOMPARE(items.indexOfMediaID(etude->mediaID()), 2);
        QCOMPARE(items.indexOfMediaID(elsewhere->mediaID()), -1);
        QCOMPARE(items.indexOfMediaID(QString()), -1);
        QCOMPARE(items.mediaIDAt(1), ete->mediaID());
        QCOMPARE(items.mediaIDAt(-1), QString());
        QCOMPARE(items.indexOfTitle(u"ET"_s, 0), 1); // case and accents do not matter
        QCOMPARE(items.indexOfTitle(u"et"_s, 2), 2);
        QCOMPARE(items.indexOfTitle(u"z"_s, 2), 0);  // going round
        QCOMPARE(items.indexOfTitle(u"%"_s, 0), -1); // no pattern
        QCOMPARE(items.indexOfTitle(QString(), 0), -1);
    }

    void changesShowAfterRefresh()
    {
        Shelf shelf;
        const auto media = shelf.add(u"Old"_s);
        QCOMPARE(shelf.items.contentAt(0).title, u"Old"_s);
        QCOMPARE(shelf.items.contentAt(0).imageVersion, 1);
        media->setMediaTitle(u"New"_s);
        media->setMediaLabel(3);
        QCOMPARE(shelf.items.contentAt(0).title, u"Old"_s); // a snapshot
        shelf.items.raiseImageVersion(0);
        shelf.items.raiseImageVersion(0);
        shelf.items.raiseImageVersion(1); // no such item
        shelf.items.refresh();
        QCOMPARE(shelf.items.contentAt(0).title, u"New"_s);
        QCOMPARE(shelf.items.contentAt(0).label, 3);
        QCOMPARE(shelf.items.contentAt(0).imageVersion, 3); // outlives the item
    }

    void fileStates()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"a.png"_s);
        test::writeFile(path, "12345678");
        const QDateTime written = QFileInfo(path).lastModified();
        QCOMPARE(fileState({path, written, 8}), (FileState{true, false}));
        QCOMPARE(fileState({path, written.addSecs(60), 8}), (FileState{true, false}));
        QCOMPARE(fileState({path, written, 13}), (FileState{true, false})); // another size alone
        QCOMPARE(fileState({path, written.addSecs(60), 13}), (FileState{true, true}));
        QVERIFY(QFile::remove(path));
        QCOMPARE(fileState({path, written.addSecs(60), 13}), (FileState{false, false}));
        QCOMPARE(fileState({}), (FileState{false, false}));
    }

    void ratesItems()
    {
        Shelf shelf;
        for (const QString& title : {u"0"_s, u"1"_s, u"2"_s})
            shelf.add(title);
        BrowserCommands commands(shelf.library.manager());
        QVERIFY(commands.ratingImages({shelf.rows[0], shelf.rows[2], 4711}, 4)); // one that is gone
        QVERIFY(!commands.ratingImages(shelf.rows, -1));
        QVERIFY(!commands.ratingImages(shelf.rows, 6));
        QVERIFY(!commands.ratingImages({}, 3));
        QVERIFY(shelf.library.reopen());
        QCOMPARE(shelf.ratingAt(0), 4);
        QCOMPARE(shelf.ratingAt(1), 0);
        QCOMPARE(shelf.ratingAt(2), 4);
        QVERIFY(commands.ratingImages(shelf.rows, 0));
        QCOMPARE(shelf.ratingAt(0), 0);
        shelf.library.manager().closeDatabase();
        QVERIFY(!commands.ratingImages(shelf.rows, 1));
    }

    void countLines()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(countLine(0, 0, 0), QString());
        QCOMPARE(countLine(0, 1, 2'000'000), u"1 item, 2 MB"_s);
        QCOMPARE(countLine(0, 1284, 2'000'000), u"1,284 items, 2 MB"_s);
        QCOMPARE(countLine(1, 42, 2'000'000), u"1 of 42 selected"_s);
        QCOMPARE(countLine(100'000, 100'000, 2'000'000), u"100,000 of 100,000 selected"_s);
    }

    void emptyStates()
    {
        const QString noMedia = base::text("Basic.No.Media");
        const auto collection = element(Shape::CollectionNode, 10000);
        const auto smart = element(Shape::CollectionNode, 10001);
        const auto folder = element(Shape::CollectionNode, 10002);
        const auto system = element(Shape::SystemNode, 7);
        const EmptyState neither{std::nullopt, {}};
        QCOMPARE(emptyState({}, true, 0), (EmptyState{false, base::text("Basic.No.Collection.Selected")}));
        QCOMPARE(emptyState({}, true, 1), (EmptyState{false, base::text("Basic.No.Tag.Selected")}));
        QCOMPARE(emptyState({}, false, 2), (EmptyState{false, base::text("Basic.No.Color.Selected")}));
        QCOMPARE(emptyState({collection, folder}, false, 0), neither);
        QCOMPARE(emptyState({collection, folder}, true, 0), (EmptyState{std::nullopt, noMedia}));
        QCOMPARE(emptyState({collection}, false, 0), (EmptyState{false, {}}));
        QCOMPARE(emptyState({collection}, true, 0), (EmptyState{true, {}}));
        QCOMPARE(emptyState({folder}, true, 0), (EmptyState{true, {}}));
        QCOMPARE(emptyState({smart}, false, 0), (EmptyState{false, {}}));
        QCOMPARE(emptyState({smart}, true, 0), (EmptyState{false, noMedia}));
        QCOMPARE(emptyState({system}, true, 0), (EmptyState{false, noMedia}));
        QCOMPARE(emptyState({element(Shape::TagRow, 0)}, true, 1), (EmptyState{false, noMedia}));
        QCOMPARE(emptyState({element(Shape::Colour, 2)}, false, 2), (EmptyState{false, {}}));
        // The shape and the type contradict each other.
        QCOMPARE(emptyState({element(Shape::CollectionNode, 4)}, true, 0), neither);
        QCOMPARE(emptyState({element(Shape::SystemNode, 10000)}, true, 0), neither);
    }

    void factsOfSelections()
    {
        test::TemporaryLibrary library;
        auto& manager = library.manager();
        const auto shop = library.addCollection(u"Shop"_s);
        store::SelectionElement collection{Shape::CollectionNode, shop->collectionID(), 10000, u"Stale"_s,
                                           shop->rowId()};
        const auto system = element(Shape::SystemNode, 7);
        QVERIFY(isUserCollection({collection}));
        QVERIFY(!isUserCollection({collection, collection}));
        QVERIFY(!isUserCollection({system}));
        QVERIFY(!isUserCollection({element(Shape::CollectionNode, 10002)}));
        QCOMPARE(selectedCollectionName({collection}, manager), u"Shop"_s);
        QCOMPARE(selectedCollectionName({system}, manager), u"Web"_s);
        QCOMPARE(selectedCollectionName({element(Shape::Colour, 1)}, manager), base::text("Tooltip.Colors"));
        QCOMPARE(selectedCollectionName({}, manager), base::text("Basic.Back"));
        QCOMPARE(selectedCollectionName({system, collection}, manager), base::text("Basic.Back"));
        QCOMPARE(currentCollectionID({collection}, manager), shop->collectionID() + u"+Collection"_s);
        QCOMPARE(currentCollectionID({system}, manager), u"7+Collection"_s);
        QCOMPARE(currentCollectionID({collection, system}, manager), QString());
        store::SelectionElement unknown = system;
        unknown.id = u"99"_s;
        QCOMPARE(currentCollectionID({unknown}, manager), QString());
        collection.record = 4711;
        QCOMPARE(selectedCollectionName({collection}, manager), QString());
        manager.closeDatabase();
        QCOMPARE(currentCollectionID({system}, manager), QString());
    }
};

QTEST_GUILESS_MAIN(TestItemList)
#include "tst_itemlist.moc"
