#include "base/Notifications.h"
#include "browser/BrowserBench.h"
#include "import/ImportItem.h"
#include "kit/Sheet.h"

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;
using Shape = store::SelectionElement::Shape;

namespace {

/// The browser alone, and what it says on the bus, as "name: value".
struct Bench : test::BrowserBench {
    QList<std::pair<QString, QVariant>> said;

    Bench()
    {
        for (const QLatin1String name :
             {base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE,
              base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM}) {
            bus.observe(name, view.get(), [this, name](const QVariant& value) {
                said.append({name, value});
            });
        }
    }
    bool drop(const QMimeData& data) const { return test::drop(*grid().viewport(), data, {100, 100}); }
};

} // namespace

class TestGridArrivals : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void droppedPictureOfAWebPage()
    {
        Bench bench;
        const QString address = u"data:image/gif;base64,R0lGODlh"_s;
        QMimeData data;
        data.setUrls({QUrl(address)});
        QVERIFY(bench.drop(data));
        QVERIFY(kit::Sheet::isAttachedTo(*bench.view));
        QTRY_COMPARE(bench.said.size(), 1);
        QVERIFY(!kit::Sheet::isAttachedTo(*bench.view));
        QCOMPARE(bench.said.first().first, base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE);
        const QVariantList records = bench.said.first().second.toList();
        QCOMPARE(records.size(), 1);
        const auto item = importing::ImportItem::fromVariant(records.first());
        QCOMPARE(QFileInfo(item.path).absolutePath(), bench.library.manager().downloadDirectory());
        QVERIFY(QFile::exists(item.path));
        QCOMPARE(item.url, address);
        QCOMPARE(item.kind, importing::MediaKind::Web);
    }

    void whatIsNoPictureEndsWithoutAWord()
    {
        Bench bench;
        QMimeData data;
        data.setUrls({QUrl(u"http://host/page"_s)});
        QVERIFY(bench.drop(data));
        QTRY_VERIFY(!kit::Sheet::isAttachedTo(*bench.view));
        QVERIFY(bench.said.isEmpty());
        QCOMPARE(bench.library.prompts().beeps, 0);
    }

    void dropsIntoUserCollectionsOnly()
    {
        Bench bench;
        QMimeData files, page, relative, text;
        files.setUrls({QUrl::fromLocalFile(u"/tmp/a b.png"_s), QUrl(u"https://x.org/y.png"_s)});
        page.setUrls({QUrl(u"http://host/page"_s)});
        relative.setUrls({QUrl(u"relative"_s)});
        text.setText(u"no files"_s);
        QVERIFY(bench.drop(files)); // an empty one takes them as well
        bench.select({bench.node()}, {{bench.library.addMedia(u"a"_s, bench.collection)->rowId()}, 1000});
        QVERIFY(bench.drop(files));
        QCOMPARE(bench.said.size(), 2);
        for (const auto& [name, value] : std::exchange(bench.said, {})) {
            QCOMPARE(name, base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE);
            QCOMPARE(value.toStringList(), QStringList{u"/tmp/a b.png"_s});
        }
        const auto takesNothing = [&] { return !bench.drop(files) && !bench.drop(page); };
        QVERIFY(!bench.drop(relative) && !bench.drop(text));
        bench.busy = true;
        QVERIFY(takesNothing());
        bench.busy = false;
        for (const int type : {store::kTypeFolder, store::kTypeSmartCollection}) {
            bench.select({bench.node(Shape::CollectionNode, type)});
            QVERIFY(takesNothing());
        }
        bench.selectShop();
        bench.library.manager().closeDatabase();
        QVERIFY(takesNothing());
        QVERIFY(bench.said.isEmpty());
    }

    void pasteNeedsACollection()
    {
        Bench bench;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(u"/a.png"_s)});
        const auto own = bench.node(Shape::CollectionNode);
        const auto system = bench.node(Shape::SystemNode, 1);
        struct Case {
            std::vector<store::SelectionElement> selected;
            bool busy;
            int tab;
            bool pastes;
        };
        const Case cases[] = {
            {{own}, false, 0, true},     {{own, system}, false, 0, true}, {{system, system}, false, 0, true},
            {{system}, false, 0, false}, {{}, false, 0, false},           {{own}, true, 0, false},
            {{own}, false, 1, false}};
        for (const Case& row : cases) {
            bench.select(row.selected);
            bench.busy = row.busy;
            bench.tab = row.tab;
            bench.said.clear();
            bench.library.prompts().beeps = 0;
            bench.view->paste(data);
            QCOMPARE(bench.said.size(), row.pastes ? 1 : 0);
            QCOMPARE(bench.library.prompts().beeps, row.pastes ? 0 : 1);
            QVERIFY(!row.pastes || bench.said.first().second.toStringList() == QStringList{u"/a.png"_s});
        }
    }

    void pastedPicture()
    {
        Bench bench;
        QImage image(3, 2, QImage::Format_ARGB32);
        image.fill(QColor(0, 255, 0, 128));
        QMimeData data;
        data.setImageData(image);
        bench.view->paste(data);
        QTRY_COMPARE(bench.said.size(), 1);
        QCOMPARE(bench.said.first().first, base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM);
        const auto item = importing::ImportItem::fromVariant(bench.said.first().second);
        QCOMPARE(item.kind, importing::MediaKind::Other);
        QVERIFY(QFileInfo(item.path).fileName().startsWith(u"Clipboard "_s));
        QCOMPARE(QImage(item.path).pixelColor(1, 1), QColor(0, 255, 0, 128));
        bench.view->paste(QMimeData());
        QCOMPARE(bench.library.prompts().beeps, 1);
    }
};

QTEST_MAIN(TestGridArrivals)
#include "tst_gridarrivals_ui.moc"
