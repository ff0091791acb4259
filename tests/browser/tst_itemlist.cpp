#include "base/Text.h"
#include "browser/BrowserCommands.h"
#include "browser/CountLine.h"
#include "browser/EmptyState.h"
#include "browser/ItemList.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;
using namespace mosaro::browser;
using Shape = store::SelectionElement::Shape;

namespace {

std::vector<store::RowId> rowsOf(const std::vector<std::shared_ptr<store::Media>>& items)
{
    std::vector<store::RowId> rows;
    for (const auto& media : items) {
        rows.push_back(media->rowId());
    }
    return rows;
}

store::SelectionElement element(Shape shape, int type)
{
    return {shape, QStringLiteral("7"), type, QStringLiteral("Web"), 1};
}

} // namespace

class TestItemList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void ordersByEveryKey_data();
    void ordersByEveryKey();
    void readsWhatIsAskedFor();
    void findsItems();
    void changesShowAfterRefresh();
    void imageVersionsOutliveTheirItems();
    void fileStates_data();
    void fileStates();
    void ratesItems();
    void countLines_data();
    void countLines();
    void emptyStates_data();
    void emptyStates();
    void factsOfSelections();
};

void TestItemList::ordersByEveryKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("ascending");
    QTest::newRow("title") << 0 << QStringLiteral("a2 A10 b");
    QTest::newRow("size") << 1 << QStringLiteral("b a2 A10");
    QTest::newRow("rating") << 2 << QStringLiteral("A10 a2 b");
    QTest::newRow("width") << 3 << QStringLiteral("a2 b A10");
    QTest::newRow("height") << 4 << QStringLiteral("A10 b a2");
    QTest::newRow("imported") << 7 << QStringLiteral("b A10 a2");
    QTest::newRow("no such key") << 9 << QStringLiteral("b A10 a2"); // as given
}

void TestItemList::ordersByEveryKey()
{
    QFETCH(int, key);
    QFETCH(QString, ascending);
    test::TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("C"));
    std::vector<std::shared_ptr<store::Media>> made;
    const auto add = [&](const QString& title, int size, int rating, int width, int height, int day) {
        made.push_back(library.addMedia(title, collection));
        made.back()->setMediaFileSize(size);
        made.back()->setMediaRating(rating);
        made.back()->setMediaWidth(width);
        made.back()->setMediaHeight(height);
        made.back()->setMediaDateImported(QDateTime(QDate(2024, 1, day), QTime(12, 0)));
    };
    add(QStringLiteral("b"), 1, 5, 20, 20, 1);
    add(QStringLiteral("A10"), 30, 1, 30, 10, 2);
    add(QStringLiteral("a2"), 20, 3, 10, 30, 3);
    QVERIFY(library.context().save());

    ItemList items(library.manager());
    const auto titles = [&items] {
        QStringList all;
        for (int index = 0; index < items.count(); ++index) {
            all.append(items.contentAt(index).title);
        }
        return all;
    };
    items.setIds(rowsOf(made));
    QVERIFY(items.order({key, true}));
    QCOMPARE(titles().join(QLatin1Char(' ')), ascending);
    QVERIFY(items.order({key, false}));
    QStringList reversed = ascending.split(QLatin1Char(' '));
    if (key <= 8) {
        std::reverse(reversed.begin(), reversed.end());
    }
    QCOMPARE(titles(), reversed);
}

void TestItemList::readsWhatIsAskedFor()
{
    test::TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("C"));
    std::vector<store::RowId> rows;
    for (int number = 0; number < 150; ++number) {
        rows.push_back(library.addMedia(QString::number(number), collection)->rowId());
    }
    const auto tagged = library.context().object<store::Media>(rows[5]);
    library.link(tagged, library.addTag(QStringLiteral("T")));
    rows.push_back(99999); // a row that is gone

    ItemList items(library.manager());
    items.setIds(rows);
    items.setSortKey(1);
    QVERIFY(!items.isRead(3));
    items.prepare(0, 10);
    QVERIFY(items.isRead(3));
    QVERIFY(!items.isRead(140));
    QVERIFY(items.contentAt(5).hasTags);
    QVERIFY(!items.contentAt(6).hasTags);
    QCOMPARE(items.contentAt(3).subtitle, items.itemAt(3)->fileSizeAsString());
    QCOMPARE(items.contentAt(149).title, QStringLiteral("149"));
    QCOMPARE(items.itemAt(150), nullptr);
    QVERIFY(items.contentAt(150).title.isEmpty());
    QCOMPARE(items.itemAt(-1), nullptr);
    QCOMPARE(items.itemAt(151), nullptr);
}

void TestItemList::findsItems()
{
    test::TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("C"));
    const auto zebra = library.addMedia(QStringLiteral("Zebra"), collection);
    const auto ete = library.addMedia(QString::fromUtf8("\xC3\x89t\xC3\xA9 %"), collection);
    const auto etude = library.addMedia(QStringLiteral("etude"), collection);
    const auto elsewhere = library.addMedia(QStringLiteral("eternal"), collection);
    ItemList items(library.manager());
    items.setIds(rowsOf({zebra, ete, etude}));
    QCOMPARE(items.indexOfMediaID(etude->mediaID()), 2);
    QCOMPARE(items.indexOfMediaID(elsewhere->mediaID()), -1);
    QCOMPARE(items.indexOfMediaID(QString()), -1);
    QCOMPARE(items.mediaIDAt(1), ete->mediaID());
    QCOMPARE(items.mediaIDAt(-1), QString());
    QCOMPARE(items.indexOfTitle(QStringLiteral("ET"), 0), 1); // case and accents do not matter
    QCOMPARE(items.indexOfTitle(QStringLiteral("et"), 2), 2);
    QCOMPARE(items.indexOfTitle(QStringLiteral("z"), 2), 0);  // going round
    QCOMPARE(items.indexOfTitle(QStringLiteral("%"), 0), -1); // no pattern
    QCOMPARE(items.indexOfTitle(QString(), 0), -1);
}

void TestItemList::changesShowAfterRefresh()
{
    test::TemporaryLibrary library;
    const auto media = library.addMedia(QStringLiteral("Old"), library.addCollection(QStringLiteral("C")));
    ItemList items(library.manager());
    items.setIds({media->rowId()});
    QCOMPARE(items.contentAt(0).title, QStringLiteral("Old"));
    media->setMediaTitle(QStringLiteral("New"));
    media->setMediaLabel(3);
    QCOMPARE(items.contentAt(0).title, QStringLiteral("Old")); // a snapshot
    items.refresh();
    QCOMPARE(items.contentAt(0).title, QStringLiteral("New"));
    QCOMPARE(items.contentAt(0).label, 3);
}

void TestItemList::imageVersionsOutliveTheirItems()
{
    test::TemporaryLibrary library;
    const auto media = library.addMedia(QStringLiteral("A"), library.addCollection(QStringLiteral("C")));
    ItemList items(library.manager());
    items.setIds({media->rowId()});
    QCOMPARE(items.contentAt(0).imageVersion, 1);
    items.raiseImageVersion(0);
    items.raiseImageVersion(0);
    items.refresh();
    QCOMPARE(items.contentAt(0).imageVersion, 3);
    items.raiseImageVersion(1); // no such item
}

void TestItemList::fileStates_data()
{
    QTest::addColumn<int>("secondsOff");
    QTest::addColumn<int>("bytesOff");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("modified");
    QTest::newRow("as it was") << 0 << 0 << true << false;
    QTest::newRow("touched") << 60 << 0 << true << false;
    QTest::newRow("another size alone") << 0 << 5 << true << false;
    QTest::newRow("changed") << 60 << 5 << true << true;
    QTest::newRow("gone") << 60 << 5 << false << false;
}

void TestItemList::fileStates()
{
    QFETCH(int, secondsOff);
    QFETCH(int, bytesOff);
    QFETCH(bool, exists);
    QFETCH(bool, modified);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.png"));
    test::writeFile(path, "12345678");
    const FileFacts facts{path, QFileInfo(path).lastModified().addSecs(secondsOff), 8 + bytesOff};
    if (!exists) {
        QVERIFY(QFile::remove(path));
    }
    QCOMPARE(fileState(facts), (FileState{exists, modified}));
    QCOMPARE(fileState({}), (FileState{false, false}));
}

void TestItemList::ratesItems()
{
    test::TemporaryLibrary library;
    const auto collection = library.addCollection(QStringLiteral("C"));
    std::vector<store::RowId> rows;
    for (int number = 0; number < 3; ++number) {
        rows.push_back(library.addMedia(QString::number(number), collection)->rowId());
    }
    const auto ratingOf = [&library](store::RowId row) {
        return library.context().object<store::Media>(row)->mediaRating();
    };
    BrowserCommands commands(library.manager());
    QVERIFY(commands.ratingImages({rows[0], rows[2], 4711}, 4)); // a row that is gone is passed over
    QVERIFY(!commands.ratingImages(rows, -1));
    QVERIFY(!commands.ratingImages(rows, 6));
    QVERIFY(!commands.ratingImages({}, 3));
    QVERIFY(library.reopen());
    QCOMPARE(ratingOf(rows[0]), 4);
    QCOMPARE(ratingOf(rows[1]), 0);
    QCOMPARE(ratingOf(rows[2]), 4);
    QVERIFY(commands.ratingImages(rows, 0));
    QCOMPARE(ratingOf(rows[0]), 0);
    library.manager().closeDatabase();
    QVERIFY(!commands.ratingImages(rows, 1));
}

void TestItemList::countLines_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("total");
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << 0 << 0 << QString();
    QTest::newRow("one") << 0 << 1 << QStringLiteral("1 item, 2 MB");
    QTest::newRow("many") << 0 << 1284 << QStringLiteral("1,284 items, 2 MB");
    QTest::newRow("selected") << 1 << 42 << QStringLiteral("1 of 42 selected");
    QTest::newRow("all selected") << 100000 << 100000 << QStringLiteral("100,000 of 100,000 selected");
}

void TestItemList::countLines()
{
    QFETCH(int, selected);
    QFETCH(int, total);
    QFETCH(QString, line);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(countLine(selected, total, 2'000'000), line);
}

void TestItemList::emptyStates_data()
{
    QTest::addColumn<SelectedCollections>("selected");
    QTest::addColumn<bool>("empty");
    QTest::addColumn<int>("tab");
    QTest::addColumn<EmptyState>("expected");
    const auto row = [](const char* name, const SelectedCollections& selected, bool empty, int tab,
                        const EmptyState& expected) {
        QTest::newRow(name) << selected << empty << tab << expected;
    };
    const QString noMedia = base::text("Basic.No.Media");
    const auto collection = element(Shape::CollectionNode, 10000);
    const auto smart = element(Shape::CollectionNode, 10001);
    const auto folder = element(Shape::CollectionNode, 10002);
    const auto system = element(Shape::SystemNode, 7);
    const auto tag = element(Shape::TagRow, 0);
    const auto colour = element(Shape::Colour, 2);
    row("nothing, collections", {}, true, 0, {false, base::text("Basic.No.Collection.Selected")});
    row("nothing, tags", {}, true, 1, {false, base::text("Basic.No.Tag.Selected")});
    row("nothing, colours", {}, false, 2, {false, base::text("Basic.No.Color.Selected")});
    row("several with items", {collection, folder}, false, 0, {std::nullopt, {}});
    row("several, empty", {collection, folder}, true, 0, {std::nullopt, noMedia});
    row("collection", {collection}, false, 0, {false, {}});
    row("empty collection", {collection}, true, 0, {true, {}});
    row("empty folder", {folder}, true, 0, {true, {}});
    row("smart", {smart}, false, 0, {false, {}});
    row("empty smart", {smart}, true, 0, {false, noMedia});
    row("a collection node of a system type", {element(Shape::CollectionNode, 4)}, true, 0,
        {std::nullopt, {}});
    row("a system node of a user type", {element(Shape::SystemNode, 10000)}, true, 0, {std::nullopt, {}});
    row("system", {system}, false, 0, {false, {}});
    row("empty system", {system}, true, 0, {false, noMedia});
    row("empty tag", {tag}, true, 1, {false, noMedia});
    row("empty colour", {colour}, true, 2, {false, noMedia});
}

void TestItemList::emptyStates()
{
    QFETCH(SelectedCollections, selected);
    QFETCH(bool, empty);
    QFETCH(int, tab);
    QFETCH(EmptyState, expected);
    QCOMPARE(emptyState(selected, empty, tab), expected);
}

void TestItemList::factsOfSelections()
{
    test::TemporaryLibrary library;
    auto& manager = library.manager();
    const auto shop = library.addCollection(QStringLiteral("Shop"));
    store::SelectionElement collection{Shape::CollectionNode, shop->collectionID(), 10000,
                                       QStringLiteral("Stale"), shop->rowId()};
    const auto system = element(Shape::SystemNode, 7);
    QVERIFY(isUserCollection({collection}));
    QVERIFY(!isUserCollection({collection, collection}));
    QVERIFY(!isUserCollection({system}));
    QVERIFY(!isUserCollection({element(Shape::CollectionNode, 10002)}));
    QCOMPARE(selectedCollectionName({collection}, manager), QStringLiteral("Shop"));
    QCOMPARE(selectedCollectionName({system}, manager), QStringLiteral("Web"));
    QCOMPARE(selectedCollectionName({element(Shape::Colour, 1)}, manager), base::text("Tooltip.Colors"));
    QCOMPARE(selectedCollectionName({}, manager), base::text("Basic.Back"));
    QCOMPARE(selectedCollectionName({system, collection}, manager), base::text("Basic.Back"));
    QCOMPARE(currentCollectionID({collection}, manager),
             shop->collectionID() + QStringLiteral("+Collection"));
    QCOMPARE(currentCollectionID({system}, manager), QStringLiteral("7+Collection"));
    QCOMPARE(currentCollectionID({collection, system}, manager), QString());
    store::SelectionElement unknown = system;
    unknown.id = QStringLiteral("99");
    QCOMPARE(currentCollectionID({unknown}, manager), QString());
    collection.record = 4711;
    QCOMPARE(selectedCollectionName({collection}, manager), QString());
    manager.closeDatabase();
    QCOMPARE(currentCollectionID({system}, manager), QString());
}

QTEST_GUILESS_MAIN(TestItemList)
#include "tst_itemlist.moc"
