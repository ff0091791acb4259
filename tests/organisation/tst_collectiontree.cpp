#include "organisation/CollectionTree.h"
#include "organisation/ExpansionMemory.h"
#include "organisation/NodeCounts.h"
#include "organisation/SelectionConstraint.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;
using organisation::CollectionNode;
using organisation::CollectionTree;
using organisation::NodeList;

namespace {

/// "A B(C D(E))": titles with their children in brackets.
QString asText(const CollectionTree::Nodes& nodes)
{
    QStringList parts;
    for (const auto& node : nodes) {
        const QString children = asText(node->nodes);
        parts.append(children.isEmpty() ? node->title : QStringLiteral("%1(%2)").arg(node->title, children));
    }
    return parts.join(QLatin1Char(' '));
}

QString userTree(const CollectionTree& tree)
{
    return tree.userGroup() ? asText(tree.userGroup()->nodes) : QStringLiteral("no group");
}

/// Rows as "id,title,type,parent id".
void addRecord(store::StoreContext& context, const QString& row)
{
    const QStringList parts = row.split(QLatin1Char(','));
    const auto record = context.insert<store::Collections>();
    record->setCollectionID(parts.value(0));
    record->setTitle(parts.value(1));
    record->setType(parts.value(2).toInt());
    record->setCollectionPID(parts.value(3));
    QVERIFY(context.save());
}

NodeList nodesNamed(const CollectionTree& tree, const QString& ids)
{
    NodeList nodes;
    for (const QString& id : ids.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        nodes.push_back(tree.node(id));
    }
    return nodes;
}

QString idsOf(const NodeList& nodes)
{
    QStringList ids;
    for (const CollectionNode* node : nodes) {
        ids.append(node->id);
    }
    return ids.join(QLatin1Char(' '));
}

} // namespace

class TestCollectionTree : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void systemGroups()
    {
        test::TemporaryLibrary library;
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        QCOMPARE(tree.library().size(), size_t(3));
        QStringList ids;
        for (const auto& group : tree.library()) {
            QVERIFY(group->isGroup);
            QVERIFY(group->hasNodes);
            QCOMPARE(group->title, group->title.toUpper());
            ids.append(group->id);
        }
        QCOMPARE(ids, QStringList({QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("16")}));
        QCOMPARE(idsOf(organisation::childList(*tree.library()[0])), QStringLiteral("1 2"));
        QCOMPARE(idsOf(organisation::childList(*tree.library()[1])),
                 QStringLiteral("4 5 6 7 8 9 10 11 12 14"));
        for (const CollectionNode* node : organisation::allNodes(tree.library())) {
            QCOMPARE(organisation::sidebarImageName(node->type).isEmpty(), node->isGroup);
        }
    }

    void userCollections_data()
    {
        QTest::addColumn<QStringList>("records");
        QTest::addColumn<QString>("tree");

        QTest::newRow("none") << QStringList() << QString();
        QTest::newRow("numbers by value, kinds mixed")
            << QStringList({QStringLiteral("a,Set 10,10000"), QStringLiteral("b,set 9,10002"),
                            QStringLiteral("c,Set 2,10001")})
            << QStringLiteral("Set 2 set 9 Set 10");
        QTest::newRow("nested, each level sorted")
            << QStringList({QStringLiteral("z,Deep,10000,f2"), QStringLiteral("f2,B,10002,f1"),
                            QStringLiteral("x,A,10000,f1"), QStringLiteral("f1,Folder,10002")})
            << QStringLiteral("Folder(A B(Deep))");
        QTest::newRow("orphan and what hangs below it")
            << QStringList({QStringLiteral("a,Stays,10000"), QStringLiteral("b,Orphan,10002,gone"),
                            QStringLiteral("c,Child,10000,b")})
            << QStringLiteral("Stays");
        QTest::newRow("circle of parents, and its own parent")
            << QStringList({QStringLiteral("a,One,10002,b"), QStringLiteral("b,Two,10002,a"),
                            QStringLiteral("c,Self,10002,c"), QStringLiteral("d,Root,10000")})
            << QStringLiteral("Root");
    }

    void userCollections()
    {
        QFETCH(QStringList, records);
        test::TemporaryLibrary library;
        for (const QString& record : records) {
            addRecord(library.context(), record);
        }
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        QTEST(userTree(tree), "tree");
        for (const CollectionNode* node : organisation::allNodes(tree.userGroup()->nodes)) {
            QVERIFY(node->hasNodes);
            QVERIFY(!node->object.isEmpty());
            QCOMPARE(node->parent->nodes[size_t(node->row)].get(), node);
        }
    }

    void rebuildReplacesTheThirdGroupOnly()
    {
        test::TemporaryLibrary library;
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        const CollectionNode* first = tree.library().front().get();
        library.addCollection(QStringLiteral("New"))->setLabel(4);
        QVERIFY(library.context().save());
        QVERIFY(tree.makeUserCollections(library.context()));
        QVERIFY(tree.makeUserCollections(library.context()));
        QCOMPARE(tree.library().size(), size_t(3));
        QCOMPARE(tree.library().front().get(), first);
        QCOMPARE(userTree(tree), QStringLiteral("New"));
        QCOMPARE(tree.userGroup()->nodes.front()->label, 4);
        QCOMPARE(organisation::generatePathItem(*tree.userGroup()->nodes.front()).front(),
                 QStringLiteral("16"));
    }

    void legalSelection_data()
    {
        QTest::addColumn<QString>("proposed");
        QTest::addColumn<QString>("legal");

        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("group alone") << QStringLiteral("16") << QString();
        QTest::newRow("system node alone") << QStringLiteral("2") << QStringLiteral("2");
        QTest::newRow("two system nodes") << QStringLiteral("1 4") << QString();
        QTest::newRow("system and user") << QStringLiteral("1 a") << QStringLiteral("a");
        QTest::newRow("group and system") << QStringLiteral("0 1") << QString();
        QTest::newRow("group and users") << QStringLiteral("16 a f") << QStringLiteral("a f");
    }

    void legalSelection()
    {
        QFETCH(QString, proposed);
        test::TemporaryLibrary library;
        addRecord(library.context(), QStringLiteral("a,A,10000"));
        addRecord(library.context(), QStringLiteral("f,F,10002"));
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        QTEST(idsOf(organisation::legalSelection(nodesNamed(tree, proposed))), "legal");
    }

    void restorePlan_data()
    {
        QTest::addColumn<QStringList>("expanded");
        QTest::addColumn<QStringList>("selected");
        QTest::addColumn<QString>("opens");
        QTest::addColumn<QString>("selects");
        QTest::addColumn<QStringList>("prunes");

        const auto list = [](const char* ids) {
            return QString::fromLatin1(ids).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow("nothing expanded: no selection either")
            << list("") << list("1 a") << QString() << QString() << list("");
        QTest::newRow("visible ones")
            << list("16 0") << list("a 1") << QStringLiteral("0 16") << QStringLiteral("1 a") << list("");
        QTest::newRow("inside an open folder")
            << list("f 16") << list("c") << QStringLiteral("16 f") << QStringLiteral("c") << list("");
        QTest::newRow("below a closed group: forgotten")
            << list("0 f") << list("c") << QStringLiteral("0") << QString() << list("f");
        QTest::newRow("stale") << list("16 gone") << list("gone") << QStringLiteral("16") << QString()
                               << list("gone");
    }

    void restorePlan()
    {
        QFETCH(QStringList, expanded);
        QFETCH(QStringList, selected);
        test::TemporaryLibrary library;
        addRecord(library.context(), QStringLiteral("a,A,10000"));
        addRecord(library.context(), QStringLiteral("f,F,10002"));
        addRecord(library.context(), QStringLiteral("c,C,10000,f"));
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        const auto plan = organisation::restorePlan(tree, expanded, selected);
        QCOMPARE(plan.restores, !expanded.isEmpty());
        QTEST(idsOf(plan.expanded), "opens");
        QTEST(idsOf(plan.selected), "selects");
        QTEST(plan.pruned, "prunes");
        QVERIFY(!plan.expandsFirstRow);
    }

    void emptyLibraryExpandsItsFirstRow()
    {
        test::TemporaryLibrary library;
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        QVERIFY(organisation::restorePlan(tree, {}, {}).expandsFirstRow);
    }

    void collapseHandsTheSelectionToTheParent()
    {
        test::TemporaryLibrary library;
        addRecord(library.context(), QStringLiteral("a,A,10000"));
        addRecord(library.context(), QStringLiteral("f,F,10002"));
        addRecord(library.context(), QStringLiteral("c,C,10000,f"));
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        QCOMPARE(organisation::selectionAfterCollapse({}), nullptr);
        QCOMPARE(organisation::selectionAfterCollapse(nodesNamed(tree, QStringLiteral("a c"))), nullptr);
        QCOMPARE(organisation::selectionAfterCollapse(nodesNamed(tree, QStringLiteral("c"))),
                 tree.node(QStringLiteral("f")));
    }

    void counts()
    {
        test::TemporaryLibrary library;
        const auto collection = library.addCollection(QStringLiteral("C"));
        const auto folder = library.addCollection(QStringLiteral("F"), store::kTypeFolder);
        for (int i = 0; i < 3; ++i) {
            library.addMedia(QStringLiteral("m"), collection);
        }
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        organisation::NodeCounts counts(library.manager());
        const auto count = [&](const QString& id) { return counts.count(*tree.node(id)); };
        QCOMPARE(count(QStringLiteral("1")), 3);
        QCOMPARE(count(QStringLiteral("2")), 0);
        QCOMPARE(count(QStringLiteral("14")), 0);
        QCOMPARE(count(collection->collectionID()), 3);
        QCOMPARE(count(folder->collectionID()), 0);

        library.addMedia(QStringLiteral("m"), collection);
        QCOMPARE(count(collection->collectionID()), 3);
        counts.clear();
        QCOMPARE(count(collection->collectionID()), 4);
    }
};

QTEST_GUILESS_MAIN(TestCollectionTree)
#include "tst_collectiontree.moc"
