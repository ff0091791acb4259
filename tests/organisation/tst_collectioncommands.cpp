#include "base/Text.h"
#include "organisation/CollectionCommands.h"
#include "organisation/CollectionNames.h"
#include "organisation/TreeFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::CollectionCommands;
using organisation::CollectionNode;
using organisation::NodeList;

namespace {

/// A folder with a collection and a smart collection in it, and one of each beside it.
const QString kRecords =
    u"folder,folder,10002|inside,inside,10000,folder|smartInside,smartInside,10001,folder|"
    "top,top,10000|smartTop,smartTop,10001"_s;

} // namespace

class TestCollectionCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameFromPaths()
    {
        test::TemporaryLibrary library;
        const QString folder = library.folder(u"Pictures of Spring"_s);
        const QString file = folder + u"/a.png"_s;
        test::writeFile(file);
        const QString untitled = base::text("Basic.Untitled.Collection");

        using organisation::collectionNameFromPaths;
        QCOMPARE(collectionNameFromPaths({}), untitled);
        QCOMPARE(collectionNameFromPaths({file}), untitled);
        QCOMPARE(collectionNameFromPaths({file, file}), untitled);
        QCOMPARE(collectionNameFromPaths({folder + QLatin1Char('/')}), u"Pictures of Spring"_s);
        QCOMPARE(collectionNameFromPaths({file, folder}),
                 u"Pictures of Spring "_s + base::text("Basic.More"));
        QCOMPARE(collectionNameFromPaths({library.folder(u"Tool.app"_s)}), u"Tool"_s);
    }

    void placeOfNewItem()
    {
        const test::TreeFixture world(kRecords);
        const auto parentFor = [&world](const QString& selected) {
            const auto place = organisation::placeForNewItem(world.nodes(selected));
            return !place ? u"impossible"_s : place->parent ? place->parent->title : u"top level"_s;
        };
        QCOMPARE(parentFor({}), u"top level"_s);
        QCOMPARE(parentFor(u"folder"_s), u"folder"_s);
        QCOMPARE(parentFor(u"inside"_s), u"folder"_s);
        QCOMPARE(parentFor(u"smartInside"_s), u"folder"_s);
        QCOMPARE(parentFor(u"smartTop"_s), u"top level"_s);
        QCOMPARE(parentFor(u"inside top"_s), u"folder"_s); // the first counts
        QCOMPARE(parentFor(u"top inside"_s), u"top level"_s);
        QCOMPARE(parentFor(u"1"_s), u"impossible"_s);
    }

    void addedItemHasItsDefaults()
    {
        test::TreeFixture world(kRecords);
        store::StoreContext& context = world.library.context();
        const NodeList folder = world.nodes(u"folder"_s);
        organisation::NewCollection item;
        item.title = u"Fresh"_s;
        const auto id = CollectionCommands(context).addItem(item, folder.front());
        QVERIFY(id);

        const auto record = world.record(id.value());
        QVERIFY(record);
        QCOMPARE(record->collectionPID(), folder.front()->id);
        QCOMPARE(record->title(), u"Fresh"_s);
        QCOMPARE(record->type(), store::kTypeCollection);
        QCOMPARE(record->sortKey(), 7);
        QCOMPARE(record->zoomValue(), 0.4);
        QCOMPARE(record->label(), 0);
        QVERIFY(!record->isAscending() && !record->autoImport() && !record->filterCondition());
        QCOMPARE(record->dateCreated(), record->dateModified());
        QVERIFY(record->isEmptyAttribute(QLatin1String("filters")));

        const auto top = CollectionCommands(context).addItem(item, nullptr);
        QVERIFY(top);
        QVERIFY(world.tree.makeUserCollections(context));
        QCOMPARE(world.tree.node(top.value())->parent, world.tree.userGroup());
        QVERIFY(world.tree.node(id.value())->parent != world.tree.userGroup());
    }

    void renameTouchesTitleAndDate()
    {
        test::TreeFixture world(kRecords);
        store::StoreContext& context = world.library.context();
        const CollectionNode* node = world.nodes(u"top"_s).front();
        const auto record = world.record(node->id);
        record->setDateModified(QDateTime::fromSecsSinceEpoch(0));
        QVERIFY(context.save());

        QVERIFY(CollectionCommands(context).rename(*node, u"folder"_s));
        QCOMPARE(record->title(), u"folder"_s);
        QVERIFY(record->dateModified().toSecsSinceEpoch() > 0);
        QVERIFY(!context.hasChanges());

        context.remove(*record);
        QVERIFY(context.save());
        const auto gone = CollectionCommands(context).rename(*node, u"x"_s);
        QVERIFY(!gone);
        QVERIFY(!gone.reason().isEmpty());

        QVERIFY(CollectionCommands::isAcceptableTitle(u" a"_s));
    }
};

QTEST_GUILESS_MAIN(TestCollectionCommands)
#include "tst_collectioncommands.moc"
