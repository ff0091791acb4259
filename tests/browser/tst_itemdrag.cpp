#include "browser/ItemDrag.h"
#include "support/TemporaryLibrary.h"

#include <QMimeData>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using Shape = store::SelectionElement::Shape;

class TestItemDrag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void handsOutFilesAndWhereItemsMayMove()
    {
        test::TemporaryLibrary library;
        const auto a = library.addCollection(u"A"_s);
        const auto b = library.addCollection(u"B"_s);
        const auto one = library.addMedia(u"one"_s, a, true);
        const auto two = library.addMedia(u"two"_s, b, true);
        const auto three = library.addMedia(u"three"_s, b, true);
        const auto lost = library.addMedia(u"lost"_s, a); // its file is not there
        const std::vector<store::RowId> rows{two->rowId(), one->rowId(), lost->rowId(), three->rowId()};
        const QStringList ids{two->mediaID(), one->mediaID(), three->mediaID()};
        const struct {
            std::vector<Shape> selected;
            bool isMovable;
        } cases[] = {
            {{Shape::SystemNode}, false},
            {{Shape::CollectionNode}, true},
            {{Shape::TagRow}, true},
            {{Shape::Colour}, true},
            {{Shape::CollectionNode, Shape::CollectionNode}, true},
        };
        for (const auto& row : cases) {
            browser::SelectedCollections selected(row.selected.size());
            std::transform(row.selected.begin(), row.selected.end(), selected.begin(), [](Shape shape) {
                return store::SelectionElement{.shape = shape, .id = {}, .type = 0, .title = {}};
            });
            const browser::ItemDrag drag = browser::itemDrag(library.manager(), rows, selected);
            QCOMPARE(drag.files.size(), 3);
            QVERIFY(QFileInfo(drag.files.first()).isReadable());
            QCOMPARE(drag.record.dragItems, row.isMovable ? ids : QStringList());
            QCOMPARE(drag.record.oldCollections.size(), row.isMovable ? 2 : 0);

            QMimeData data;
            importing::writeMediaDrag(data, drag.record);
            const auto read = importing::mediaDragOf(data);
            QCOMPARE(read.has_value(), row.isMovable);
            QVERIFY(!read || read->dragItems == ids);
        }
        QMimeData broken;
        broken.setData(QLatin1String(importing::MR_DRAG_AND_DROP_MEDIA), "bplist00 and then nothing");
        QVERIFY(!importing::mediaDragOf(broken));
    }
};

QTEST_GUILESS_MAIN(TestItemDrag)
#include "tst_itemdrag.moc"
