#include "organisation/CollectionTree.h"
#include "organisation/ExpansionMemory.h"
#include "organisation/NodeCounts.h"
#include "organisation/SelectionConstraint.h"
#include "organisation/TreeFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::CollectionNode;
using organisation::CollectionTree;
using organisation::NodeList;
using test::words;
using World = test::TreeFixture;

namespace {

/// "A B(C D(E))": titles with their children in brackets.
QString asText(const CollectionTree::Nodes& nodes)
{
    QStringList parts;
    for (const auto& node : nodes) {
        const QString children = asText(node->nodes);
        parts.append(children.isEmpty() ? node->title : u"%1(%2)"_s.arg(node->title, children));
    }
    return parts.join(QLatin1Char(' '));
}

QString userTree(const CollectionTree& tree)
{
    return tree.userGroup() ? asText(tree.userGroup()->nodes) : u"no group"_s;
}

/// A collection, a folder, and a collection in it.
const QString kFolders = u"a,A,10000|f,F,10002|c,C,10000,f"_s;

QString idsOf(const NodeList& nodes)
{
    QStringList ids;
    for (const CollectionNode* node : nodes)
        ids.append(node->id);
    return ids.join(QLatin1Char(' '));
}

} // namespace

class TestCollectionTree : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void systemGroups()
    {
        const World world;
        const CollectionTree& tree = world.tree;
        QStringList ids;
        for (const auto& group : tree.library()) {
            QVERIFY(group->isGroup);
            QVERIFY(group->hasNodes);
            QCOMPARE(group->title, group->title.toUpper());
            ids.append(group->id);
        }
        QCOMPARE(ids, QStringList({u"0"_s, u"3"_s, u"16"_s}));
        QCOMPARE(idsOf(organisation::childList(*tree.library()[0])), u"1 2"_s);
        QCOMPARE(idsOf(organisation::childList(*tree.library()[1])), u"4 5 6 7 8 9 10 11 12 14"_s);
        for (const CollectionNode* node : organisation::allNodes(tree.library()))
            QCOMPARE(organisation::sidebarImageName(node->type).isEmpty(), node->isGroup);
    }

    void userCollections()
    {
        const std::tuple<const char*, QString, QString> rows[] = {
            {"none", u""_s, u""_s},
            {"numbers by value, kinds mixed", u"a,Set 10,10000|b,set 9,10002|c,Set 2,10001"_s,
             u"Set 2 set 9 Set 10"_s},
            {"nested, each level sorted", u"z,Deep,10000,f2|f2,B,10002,f1|x,A,10000,f1|f1,Folder,10002"_s,
             u"Folder(A B(Deep))"_s},
            {"orphan and what hangs below it", u"a,Stays,10000|b,Orphan,10002,gone|c,Child,10000,b"_s,
             u"Stays"_s},
            {"circle of parents, and its own parent",
             u"a,One,10002,b|b,Two,10002,a|c,Self,10002,c|d,Root,10000"_s, u"Root"_s},
        };
        for (const auto& [name, records, tree] : rows) {
            World world(records);
            QVERIFY2(userTree(world.tree) == tree, name);
            for (const CollectionNode* node : organisation::allNodes(world.tree.userGroup()->nodes)) {
                QVERIFY(node->hasNodes);
                QVERIFY(!node->object.isEmpty());
                QCOMPARE(node->parent->nodes[size_t(node->row)].get(), node);
            }
        }
    }

    void rebuildReplacesTheThirdGroupOnly()
    {
        World world;
        CollectionTree& tree = world.tree;
        const CollectionNode* first = tree.library().front().get();
        world.library.addCollection(u"New"_s)->setLabel(4);
        QVERIFY(world.library.context().save());
        QVERIFY(tree.makeUserCollections(world.library.context()));
        QVERIFY(tree.makeUserCollections(world.library.context()));
        QCOMPARE(tree.library().size(), size_t(3));
        QCOMPARE(tree.library().front().get(), first);
        QCOMPARE(userTree(tree), u"New"_s);
        QCOMPARE(tree.userGroup()->nodes.front()->label, 4);
        QCOMPARE(organisation::generatePathItem(*tree.userGroup()->nodes.front()).front(), u"16"_s);
    }

    void legalSelection()
    {
        const World world(kFolders);
        const std::pair<const char*, const char*> rows[] = {
            {"", ""}, {"16", ""}, {"2", "2"}, {"1 4", ""}, {"1 a", "a"}, {"0 1", ""}, {"16 a f", "a f"}};
        for (const auto& [proposed, legal] : rows) {
            QCOMPARE(idsOf(organisation::legalSelection(world.nodes(QString::fromLatin1(proposed)))),
                     QString::fromLatin1(legal));
        }
    }

    void restorePlan()
    {
        const struct {
            const char* name;
            QString expanded, selected, opens, selects, prunes;
        } rows[] = {
            {"nothing expanded: no selection either", u""_s, u"1 a"_s, u""_s, u""_s, u""_s},
            {"visible ones", u"16 0"_s, u"a 1"_s, u"0 16"_s, u"1 a"_s, u""_s},
            {"inside an open folder", u"f 16"_s, u"c"_s, u"16 f"_s, u"c"_s, u""_s},
            {"below a closed group: forgotten", u"0 f"_s, u"c"_s, u"0"_s, u""_s, u"f"_s},
            {"stale", u"16 gone"_s, u"gone"_s, u"16"_s, u""_s, u"gone"_s},
        };
        const World world(kFolders);
        for (const auto& row : rows) {
            const auto plan = organisation::restorePlan(world.tree, words(row.expanded), words(row.selected));
            QVERIFY2(plan.restores == !row.expanded.isEmpty() && !plan.expandsFirstRow, row.name);
            QVERIFY2(idsOf(plan.expanded) == row.opens, row.name);
            QVERIFY2(idsOf(plan.selected) == row.selects, row.name);
            QVERIFY2(plan.pruned.join(u' ') == row.prunes, row.name);
        }
    }

    void collapseHandsTheSelectionToTheParent()
    {
        const World world(kFolders);
        QCOMPARE(organisation::selectionAfterCollapse({}), nullptr);
        QCOMPARE(organisation::selectionAfterCollapse(world.nodes(u"a c"_s)), nullptr);
        QCOMPARE(organisation::selectionAfterCollapse(world.nodes(u"c"_s)), world.tree.node(u"f"_s));
    }

    void counts()
    {
        test::TemporaryLibrary library;
        const auto collection = library.addCollection(u"C"_s);
        const auto folder = library.addCollection(u"F"_s, store::kTypeFolder);
        for (int i = 0; i < 3; ++i)
            library.addMedia(u"m"_s, collection);
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        organisation::NodeCounts counts(library.manager());
        const auto count = [&](const QString& id) { return counts.count(*tree.node(id)); };
        QCOMPARE(count(u"1"_s), 3);
        QCOMPARE(count(u"2"_s), 0);
        QCOMPARE(count(u"14"_s), 0);
        QCOMPARE(count(collection->collectionID()), 3);
        QCOMPARE(count(folder->collectionID()), 0);

        library.addMedia(u"m"_s, collection);
        QCOMPARE(count(collection->collectionID()), 3);
        counts.clear();
        QCOMPARE(count(collection->collectionID()), 4);
    }
};

QTEST_GUILESS_MAIN(TestCollectionTree)
#include "tst_collectiontree.moc"
