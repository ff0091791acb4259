#include "base/Text.h"
#include "organisation/CollectionDrag.h"
#include "organisation/CollectionMenuRules.h"
#include "organisation/TreeFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::DragContent;
using organisation::DragOperation;
using organisation::SidebarCommand;

/// The pure rules of the tree: which commands and which drops are possible.
class TestCollectionRules : public QObject {
    Q_OBJECT

    /// "outer" holds "box" holds "deep"; "outer" holds "in" and "smart"; "top" and "other" are beside it.
    const std::unique_ptr<test::TreeFixture> m_world =
        std::make_unique<test::TreeFixture>(u"outer,Outer,10002|box,Box,10002,outer|deep,Deep,10000,box|in,"
                                            u"In,10000,outer|smart,Smart,10001,outer|"
                                            "top,Top,10000|other,Other,10000"_s);

    /// What is dragged, in words: "collections deep in", "items of top", "items", "files", "address";
    /// "browser" for a drag that begins in the grid.
    DragContent content(const QString& dragged) const
    {
        DragContent made;
        const QStringList words = test::words(dragged);
        made.hasCollections = words.contains(u"collections"_s);
        made.hasMedia = words.contains(u"items"_s);
        made.fromBrowser = made.hasMedia || words.contains(u"browser"_s);
        made.hasFiles = words.contains(u"files"_s) || made.hasMedia;
        made.hasAddress = words.contains(u"address"_s);
        for (const QString& word : words) {
            if (const auto* node = m_world->tree.node(word)) {
                (made.hasCollections ? made.collections.push_back(node)
                                     : made.oldCollections.push_back(word));
            }
        }
        return made;
    }

private Q_SLOTS:
    void drops()
    {
        constexpr auto none = DragOperation::None;
        constexpr auto copy = DragOperation::Copy;
        constexpr auto move = DragOperation::Move;
        const struct {
            QString dragged, target, selected;
            DragOperation answer;
            int index = -1;
        } rows[] = {
            // Collections go to folders and the heading of the user's collections, never between rows.
            {u"collections top"_s, u"outer"_s, u"top"_s, move},
            {u"collections top"_s, u"16"_s, u"top"_s, none}, // it is there already
            {u"collections in"_s, u"16"_s, u"in"_s, move},
            {u"collections in"_s, u"outer"_s, u"in"_s, none}, // its own parent
            {u"collections in"_s, u"box"_s, u"in"_s, move},
            {u"collections outer"_s, u"outer"_s, u"outer"_s, none},
            {u"collections outer"_s, u"box"_s, u"outer"_s, none},  // its own descendant
            {u"collections in deep"_s, u"outer"_s, u"in"_s, none}, // one of them hangs there
            {u"collections box"_s, u"16"_s, u"box"_s, move},
            {u"collections top"_s, u"other"_s, u"top"_s, none},
            {u"collections top"_s, u"smart"_s, u"top"_s, none},
            {u"collections top"_s, u"0"_s, u"top"_s, none},
            {u"collections top"_s, u"1"_s, u"top"_s, none},
            {u"collections top"_s, u""_s, u"top"_s, none},
            {u"collections top"_s, u"outer"_s, u"top"_s, none, 0},
            {u"collections"_s, u"outer"_s, u""_s, none}, // of another program
            // Items move between collections of the user's.
            {u"items top"_s, u"other"_s, u"top"_s, move},
            {u"items top"_s, u"deep"_s, u"outer smart"_s, move},
            {u"items top in"_s, u"in"_s, u"top in"_s, none}, // some are at home there
            {u"items top"_s, u"other"_s, u"1"_s, none},
            {u"items top"_s, u"other"_s, u"8"_s, none},
            {u"items top"_s, u"other"_s, u""_s, none},
            {u"items top"_s, u"smart"_s, u"top"_s, none},
            {u"items top"_s, u"outer"_s, u"top"_s, none},
            {u"items top"_s, u"16"_s, u"top"_s, none},
            {u"items top"_s, u""_s, u"top"_s, none},
            {u"items top"_s, u"other"_s, u"top"_s, none, 2},
            {u"browser files"_s, u"other"_s, u"1"_s, none},
            {u"browser files"_s, u""_s, u"1"_s, none},
            // Files and addresses from elsewhere come in.
            {u"files"_s, u"top"_s, u""_s, copy},
            {u"address"_s, u"top"_s, u"1"_s, copy},
            {u"files"_s, u"outer"_s, u""_s, copy},
            {u"address"_s, u"outer"_s, u""_s, copy},
            {u"files"_s, u""_s, u""_s, copy},
            {u"address"_s, u""_s, u""_s, copy},
            {u"files"_s, u"smart"_s, u""_s, none},
            {u"files"_s, u"16"_s, u""_s, none},
            {u"address"_s, u"1"_s, u""_s, none},
            {u"files"_s, u"top"_s, u""_s, none, 0},
            {u"files"_s, u""_s, u""_s, none, 3},
            {u""_s, u"top"_s, u""_s, none},
        };
        for (const auto& row : rows) {
            const organisation::DropPlace place{m_world->tree.node(row.target), row.index};
            const auto answer = validateDrop(content(row.dragged), place, m_world->nodes(row.selected));
            QVERIFY2(answer == row.answer, qPrintable(row.dragged + u" onto "_s + row.target));
        }
    }

    void collectionsTravelTogetherAtOneDepth()
    {
        const auto dragged = [this](const QString& ids) {
            return draggedCollections(m_world->nodes(ids)).size();
        };
        QCOMPARE(dragged(u"deep"_s), size_t(1));
        QCOMPARE(dragged(u"in smart in box"_s), size_t(3));
        QCOMPARE(dragged(u"outer top"_s), size_t(2));
        QCOMPARE(dragged(u"top in"_s), size_t(0));
        QCOMPARE(dragged(u"in deep"_s), size_t(0));
        QCOMPARE(dragged(u"1 0"_s), size_t(0));
    }

    void menuCommands()
    {
        // In the order new collection, new smart collection, new folder, import, export, edit, delete.
        constexpr SidebarCommand commands[] = {
            SidebarCommand::NewCollection, SidebarCommand::NewSmartCollection,
            SidebarCommand::NewFolder,     SidebarCommand::Import,
            SidebarCommand::Export,        SidebarCommand::Edit,
            SidebarCommand::Delete};
        const struct {
            QString selected, on;
            bool labels;
            QString edit;
        } rows[] = {
            {u""_s, u"+++----"_s, false, u"CX.Edit"_s},
            {u"top"_s, u"+++++++"_s, true, u"CX.Rename"_s},
            {u"outer"_s, u"+++++++"_s, true, u"CX.Rename"_s},
            {u"smart"_s, u"+++-+++"_s, true, u"CX.Edit.Smart"_s},
            {u"1"_s, u"-------"_s, false, u"CX.Edit"_s},
            {u"2"_s, u"-------"_s, false, u"CX.Edit"_s},
            {u"4"_s, u"----+--"_s, false, u"CX.Edit"_s},
            {u"14"_s, u"----+--"_s, false, u"CX.Edit"_s},
            {u"16"_s, u"-------"_s, true, u"CX.Edit"_s},
            {u"top smart"_s, u"------+"_s, true, u"CX.Edit"_s},
        };
        for (const auto& row : rows) {
            const auto nodes = m_world->nodes(row.selected);
            QString on;
            for (const SidebarCommand command : commands)
                on += validateMenuItem(command, nodes).isOn ? u'+' : u'-';
            QCOMPARE(on, row.on);
            QCOMPARE(areLabelRowsOn(nodes), row.labels);
            const QString title = nodes.size() == 1 ? nodes.front()->title : QString();
            QCOMPARE(editTitle(nodes), base::text(qPrintable(row.edit)).replace(u"%1"_s, title));
        }
    }
};

QTEST_GUILESS_MAIN(TestCollectionRules)
#include "tst_collectionrules.moc"
