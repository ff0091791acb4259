#include "base/Text.h"
#include "organisation/CollectionCommands.h"
#include "organisation/CollectionNames.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;
using organisation::CollectionCommands;
using organisation::CollectionNode;
using organisation::CollectionTree;
using organisation::NodeList;
using organisation::SidebarCommand;

class TestCollectionCommands : public QObject {
    Q_OBJECT

private:
    /// A folder F with a collection and a smart collection in it, and one of each beside it.
    struct World {
        test::TemporaryLibrary library;
        CollectionTree tree;
        QHash<QString, QString> ids;

        World()
        {
            const auto add = [this](const char* name, qint64 type, const QString& parent = {}) {
                const QString title = QString::fromLatin1(name);
                ids.insert(title, library.addCollection(title, type, parent)->collectionID());
            };
            add("folder", store::kTypeFolder);
            add("inside", store::kTypeCollection, ids.value(QStringLiteral("folder")));
            add("smartInside", store::kTypeSmartCollection, ids.value(QStringLiteral("folder")));
            add("top", store::kTypeCollection);
            add("smartTop", store::kTypeSmartCollection);
            ids.insert(QStringLiteral("all"), QStringLiteral("1"));
            ids.insert(QStringLiteral("kind"), QStringLiteral("7"));
            if (!tree.makeLibrary(library.context())) {
                qFatal("no tree");
            }
        }

        NodeList nodes(const QString& names) const
        {
            NodeList list;
            for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
                list.push_back(tree.node(ids.value(name)));
            }
            return list;
        }
    };

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void availableName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("siblings");
        QTest::addColumn<QString>("free");
        const auto list = [](const char* titles) {
            return QString::fromLatin1(titles).split(QLatin1Char('|'));
        };

        QTest::newRow("no sibling") << QStringLiteral("Photo") << QStringList() << QStringLiteral("Photo");
        QTest::newRow("others") << QStringLiteral("Photo") << list("Video|Sound") << QStringLiteral("Photo");
        QTest::newRow("contained is taken")
            << QStringLiteral("Photo") << list("Photo archive") << QStringLiteral("Photo (2)");
        QTest::newRow("other case is free")
            << QStringLiteral("Photo") << list("photo archive") << QStringLiteral("Photo");
        QTest::newRow("counts on") << QStringLiteral("Photo") << list("Photo|Photo (2)|Photo (4)")
                                   << QStringLiteral("Photo (3)");
        QTest::newRow("placeholder in the name")
            << QStringLiteral("50%2 %1") << list("50%2 %1") << QStringLiteral("50%2 %1 (2)");
    }

    void availableName()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, siblings);
        std::vector<CollectionNode> nodes(size_t(siblings.size()));
        NodeList list;
        for (qsizetype i = 0; i < siblings.size(); ++i) {
            nodes[size_t(i)].title = siblings.at(i);
            list.push_back(&nodes[size_t(i)]);
        }
        QTEST(organisation::availableCollectionName(name, list), "free");
    }

    void nameFromPaths()
    {
        QTemporaryDir root;
        QDir(root.path()).mkpath(QStringLiteral("Pictures of Spring"));
        QDir(root.path()).mkpath(QStringLiteral("Tool.app"));
        test::writeFile(root.filePath(QStringLiteral("a.png")), "x");
        const QString folder = root.filePath(QStringLiteral("Pictures of Spring"));
        const QString file = root.filePath(QStringLiteral("a.png"));
        const QString untitled = base::text("Basic.Untitled.Collection");

        using organisation::collectionNameFromPaths;
        QCOMPARE(collectionNameFromPaths({}), untitled);
        QCOMPARE(collectionNameFromPaths({file}), untitled);
        QCOMPARE(collectionNameFromPaths({file, file}), untitled);
        QCOMPARE(collectionNameFromPaths({folder + QLatin1Char('/')}), QStringLiteral("Pictures of Spring"));
        QCOMPARE(collectionNameFromPaths({file, folder}),
                 QStringLiteral("Pictures of Spring ") + base::text("Basic.More"));
        QCOMPARE(collectionNameFromPaths({root.filePath(QStringLiteral("Tool.app"))}),
                 QStringLiteral("Tool"));
    }

    void placeOfNewItem_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<bool>("possible");
        QTest::addColumn<QString>("parent");

        QTest::newRow("nothing") << QString() << true << QString();
        QTest::newRow("folder") << QStringLiteral("folder") << true << QStringLiteral("folder");
        QTest::newRow("in folder") << QStringLiteral("inside") << true << QStringLiteral("folder");
        QTest::newRow("smart in folder") << QStringLiteral("smartInside") << true << QStringLiteral("folder");
        QTest::newRow("top") << QStringLiteral("top") << true << QString();
        QTest::newRow("smart top") << QStringLiteral("smartTop") << true << QString();
        QTest::newRow("the first counts") << QStringLiteral("inside top") << true << QStringLiteral("folder");
        QTest::newRow("system node") << QStringLiteral("all") << false << QString();
    }

    void placeOfNewItem()
    {
        QFETCH(QString, selected);
        QFETCH(bool, possible);
        QFETCH(QString, parent);
        const World world;
        const auto place = organisation::placeForNewItem(world.nodes(selected));
        QCOMPARE(place.has_value(), possible);
        if (possible) {
            QCOMPARE(place->parent ? place->parent->title : QString(), parent);
        }
    }

    void possibleCommands_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<bool>("add");
        QTest::addColumn<bool>("import");
        QTest::addColumn<bool>("edit");

        QTest::newRow("nothing") << QString() << true << false << false;
        QTest::newRow("collection") << QStringLiteral("top") << true << true << true;
        QTest::newRow("folder") << QStringLiteral("folder") << true << true << true;
        QTest::newRow("smart") << QStringLiteral("smartTop") << true << false << true;
        QTest::newRow("all") << QStringLiteral("all") << false << false << false;
        QTest::newRow("kind") << QStringLiteral("kind") << false << false << false;
        QTest::newRow("two") << QStringLiteral("folder top") << false << false << false;
    }

    void possibleCommands()
    {
        QFETCH(QString, selected);
        const World world;
        const NodeList nodes = world.nodes(selected);
        QTEST(organisation::isCommandPossible(SidebarCommand::NewCollection, nodes), "add");
        QTEST(organisation::isCommandPossible(SidebarCommand::NewFolder, nodes), "add");
        QTEST(organisation::isCommandPossible(SidebarCommand::Import, nodes), "import");
        QTEST(organisation::isCommandPossible(SidebarCommand::Edit, nodes), "edit");
    }

    void addedItemHasItsDefaults()
    {
        World world;
        store::StoreContext& context = world.library.context();
        const NodeList folder = world.nodes(QStringLiteral("folder"));
        organisation::NewCollection item;
        item.title = QStringLiteral("Fresh");
        const auto id = CollectionCommands(context).addItem(item, folder.front());
        QVERIFY(id);

        const auto record = context.first<store::Collections>(
            store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, id.value()));
        QVERIFY(record);
        QCOMPARE(record->collectionPID(), folder.front()->id);
        QCOMPARE(record->title(), QStringLiteral("Fresh"));
        QCOMPARE(record->type(), store::kTypeCollection);
        QCOMPARE(record->sortKey(), 7);
        QCOMPARE(record->zoomValue(), 0.4);
        QCOMPARE(record->isAscending(), false);
        QCOMPARE(record->autoImport(), false);
        QCOMPARE(record->label(), 0);
        QCOMPARE(record->filterCondition(), false);
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
        World world;
        store::StoreContext& context = world.library.context();
        const CollectionNode* node = world.nodes(QStringLiteral("top")).front();
        const auto record = context.first<store::Collections>(
            store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, node->id));
        record->setDateModified(QDateTime::fromSecsSinceEpoch(0));
        QVERIFY(context.save());

        QVERIFY(CollectionCommands(context).rename(*node, QStringLiteral("folder")));
        QCOMPARE(record->title(), QStringLiteral("folder"));
        QVERIFY(record->dateModified().toSecsSinceEpoch() > 0);
        QVERIFY(!context.hasChanges());

        context.remove(*record);
        QVERIFY(context.save());
        const auto gone = CollectionCommands(context).rename(*node, QStringLiteral("x"));
        QVERIFY(!gone);
        QVERIFY(!gone.reason().isEmpty());

        QVERIFY(!CollectionCommands::isAcceptableTitle(QString()));
        QVERIFY(!CollectionCommands::isAcceptableTitle(QStringLiteral(" ")));
        QVERIFY(CollectionCommands::isAcceptableTitle(QStringLiteral("  ")));
    }
};

QTEST_GUILESS_MAIN(TestCollectionCommands)
#include "tst_collectioncommands.moc"
