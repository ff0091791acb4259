#include "browser/SortMemory.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;
using Shape = store::SelectionElement::Shape;

namespace {

/// One entry of each shape in a fresh library.
struct Entries {
    test::TemporaryLibrary library;
    std::shared_ptr<store::Collections> collection = library.addCollection(u"Shop"_s);
    std::shared_ptr<store::Tags> tag = library.addTag(u"Red"_s);
    std::shared_ptr<store::Colors> color = library.addColor(u"0.1+0.2+0.3+1"_s, 1);
    SortMemory memory{library.manager()};

    store::SelectionElement element(Shape shape) const
    {
        switch (shape) {
        case Shape::CollectionNode:
            return {shape, collection->collectionID(), store::kTypeCollection, collection->title(),
                    collection->rowId()};
        case Shape::TagRow:
            return {shape, tag->tagID(), 0, tag->title(), tag->rowId()};
        case Shape::Colour:
            return {shape, color->colorID(), int(color->colorType()), {}, color->rowId()};
        case Shape::SystemNode:
            break;
        }
        return {Shape::SystemNode, u"7"_s, 7, u"Web"_s, store::kUnsavedRow};
    }
    /// What stands in the library after it was closed and opened again.
    BrowserOrder reread(Shape shape)
    {
        const store::SelectionElement same = element(shape);
        collection.reset();
        tag.reset();
        color.reset();
        library.reopen();
        return memory.storedOrder({same}).value_or(BrowserOrder{});
    }
};

} // namespace

class TestSortMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void orderAndZoomAreKept()
    {
        for (const Shape shape : {Shape::CollectionNode, Shape::SystemNode, Shape::TagRow, Shape::Colour}) {
            Entries entries;
            const SelectedCollections selected{entries.element(shape)};
            QCOMPARE(float(entries.memory.zoom(selected)), 0.4F);
            entries.memory.storeZoom(selected, 0.65);
            QCOMPARE(float(entries.memory.zoom(selected)), 0.65F);
            QVERIFY(!entries.library.context().hasChanges());

            QCOMPARE(entries.memory.startOrder(selected), (BrowserOrder{7, false}));
            const OrderChange byTitle = entries.memory.chooseKey(selected, 0);
            QCOMPARE(byTitle.order, (BrowserOrder{0, false})); // the direction stays
            QVERIFY(byTitle.resort);
            const OrderChange upwards = entries.memory.chooseDirection(selected, true);
            QCOMPARE(upwards.order, (BrowserOrder{0, true})); // the key stays
            QVERIFY(upwards.resort);
            QCOMPARE(entries.memory.startOrder(selected), (BrowserOrder{0, true}));
            QCOMPARE(entries.reread(shape), (BrowserOrder{0, true}));
            QCOMPARE(float(entries.memory.zoom(selected)), 0.65F);
        }
    }

    void severalRowsShareOneOrder()
    {
        Entries entries;
        const SelectedCollections both{entries.element(Shape::CollectionNode),
                                       entries.element(Shape::TagRow)};
        QCOMPARE(entries.memory.startOrder(both), (BrowserOrder{7, false}));
        OrderChange change = entries.memory.chooseKey(both, 7);
        QVERIFY(change.order && !change.resort); // only the menus
        change = entries.memory.chooseKey(both, 2);
        QVERIFY(change.resort);
        QCOMPARE(change.order, (BrowserOrder{2, false}));
        change = entries.memory.chooseDirection(both, false);
        QVERIFY(change.order && !change.resort);
        change = entries.memory.chooseDirection(both, true);
        QCOMPARE(change.order, (BrowserOrder{2, true}));
        QVERIFY(change.resort);
        QCOMPARE(entries.memory.storedOrder(both), (BrowserOrder{2, true}));
        QCOMPARE(entries.collection->sortKey(), 7);                          // no row's own order changed
        QCOMPARE(entries.memory.startOrder(both), (BrowserOrder{7, false})); // starts anew each time
    }

    void severalRowsEachGetTheZoom()
    {
        Entries entries;
        const SelectedCollections all{entries.element(Shape::TagRow), entries.element(Shape::CollectionNode),
                                      entries.element(Shape::SystemNode)};
        entries.memory.storeZoom({entries.element(Shape::CollectionNode)}, 0.7);
        entries.memory.storeZoom({entries.element(Shape::TagRow)}, 0.5);
        QCOMPARE(entries.memory.zoom(all), 0.5); // the first one's
        entries.memory.storeZoom(all, 0.55);
        QCOMPARE(entries.collection->zoomValue(), 0.55);
        QCOMPARE(entries.tag->zoomValue(), 0.55);
        QCOMPARE(float(entries.memory.zoom({entries.element(Shape::SystemNode)})), 0.55F);
    }

    void missingPlaces()
    {
        Entries entries;
        store::SelectionElement gone = entries.element(Shape::TagRow);
        gone.record = 4711;
        const store::SelectionElement unknown{Shape::SystemNode, u"99"_s, 99, {}, store::kUnsavedRow};
        for (const auto& element : {gone, unknown}) {
            QVERIFY(!entries.memory.startOrder({element}));
            QCOMPARE(entries.memory.zoom({element}), kSmallestZoom);
            const OrderChange sorted = entries.memory.chooseKey({element}, 3);
            QCOMPARE(sorted.order, (BrowserOrder{3, true}));
            QVERIFY(sorted.resort);
            QVERIFY(!entries.memory.chooseDirection({element}, true).order);
            QVERIFY(!entries.memory.chooseDirection({element}, false).order);
        }
        QVERIFY(!entries.library.state().hasSystemCollection(u"99"_s));
    }

    void nothingWithoutLibraryOrSelection()
    {
        Entries entries;
        const SelectedCollections selected{entries.element(Shape::SystemNode)};
        QVERIFY(!entries.memory.startOrder({}));
        QVERIFY(!entries.memory.chooseKey({}, 0).order);
        entries.library.manager().closeDatabase();
        QVERIFY(!entries.memory.startOrder(selected));
        QVERIFY(!entries.memory.chooseDirection(selected, true).order);
        entries.memory.storeZoom(selected, 0.6);
        QCOMPARE(entries.memory.zoom(selected), kSmallestZoom);
    }
};

QTEST_GUILESS_MAIN(TestSortMemory)
#include "tst_sortmemory.moc"
