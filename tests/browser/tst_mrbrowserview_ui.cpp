#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "browser/BrowserBench.h"
#include "browser/ui/EmptyPlaces.h"

#include <QMenu>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;
using Shape = store::SelectionElement::Shape;

namespace {

struct Bench : test::BrowserBench {
    using BrowserBench::BrowserBench;

    EmptyPlaces& places() { return *view->findChild<EmptyPlaces*>(); }
    QString countLine() { return view->findChild<StatusRow*>()->findChild<QLabel*>()->text(); }
    QSlider& slider() { return *view->findChild<QSlider*>(); }
    QString titleAt(int index) { return grid().model()->title(index); }
    QString firstSelected() { return titleAt(grid().selectionIndexes().first()); }
    void selectRange(int first, int last) { grid().setSelectionIndexes(kit::GridSelection({first, last})); }
};

} // namespace

class TestBrowserView : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void showsASelection()
    {
        Bench bench(5);
        QSignalSpy changes(bench.view.get(), &MRBrowserView::selectionChanged);
        bench.selectShop();
        QVERIFY(changes.count() > 0);
        QCOMPARE(bench.view->itemCount(), 5);
        QCOMPARE(bench.titleAt(0), u"4"_s); // newest import first
        QCOMPARE(bench.countLine(), u"5 items, 5 KB"_s);
        bench.view->selectAll();
        QCOMPARE(bench.view->selectedCount(), 5);
        QCOMPARE(bench.countLine(), u"5 of 5 selected"_s);
        bench.view->selectNone();
        QCOMPARE(bench.countLine(), u"5 items, 5 KB"_s);
        bench.view->selectAll();
        bench.selectShop(); // a rebuilt list has no selection
        QCOMPARE(bench.view->selectedCount(), 0);
    }

    void sortsAndKeepsTheFirstSelected()
    {
        Bench bench(6);
        QSignalSpy sorted(bench.view.get(), &MRBrowserView::sortChanged);
        bench.selectRange(1, 3);
        bench.view->sortMedia(23);
        QCOMPARE(bench.view->currentSortKey(), 0);
        QVERIFY(!bench.view->currentAscending());
        bench.view->ascendOrDescendMedia(33);
        QVERIFY(bench.view->currentAscending());
        QCOMPARE(sorted.count(), 2);
        QCOMPARE(bench.titleAt(0), u"0"_s);
        QCOMPARE(bench.view->selectedCount(), 1); // of several only the first
        QCOMPARE(bench.firstSelected(), u"4"_s);
        bench.view->sortMedia(32); // no sort command
        bench.view->sortMedia(22);
        QCOMPARE(sorted.count(), 2);
        QVERIFY(bench.library.reopen());
        bench.selectShop();
        QCOMPARE(bench.view->currentSortKey(), 0);
        QVERIFY(bench.view->currentAscending());
    }

    void ratingKeepsOrResorts()
    {
        Bench bench(6);
        bench.selectRange(2, 4);
        bench.view->ratingImages(3);
        QCOMPARE(bench.grid().selectionIndexes(), kit::GridSelection({2, 4}));
        bench.view->sortMedia(25);
        QVERIFY(bench.titleAt(0).toInt() >= 1 && bench.titleAt(0).toInt() <= 3);
        bench.selectRange(5, 5);
        const QString last = bench.titleAt(5);
        bench.view->ratingImages(5); // goes to the top, and stays selected
        QCOMPARE(bench.titleAt(0), last);
        QCOMPARE(bench.grid().selectionIndexes(), kit::GridSelection({0, 0}));
    }

    void zoomFollowsTheSelection()
    {
        Bench bench(3);
        const store::SelectionElement system{Shape::SystemNode, u"1"_s, 1, u"All"_s, 0};
        bench.selectShop();
        QCOMPARE(bench.slider().value(), 400);
        bench.slider().setValue(600);
        QCOMPARE(bench.grid().zoomValue(), 0.6);
        QCOMPARE(bench.collection->zoomValue(), 0.6);
        bench.select({system}, bench.media);
        QCOMPARE(bench.slider().value(), 400);
        bench.selectShop();
        QCOMPARE(bench.slider().value(), 600);
        bench.view->zoomBy(10);
        QCOMPARE(bench.grid().zoomValue(), kLargestZoom);
        bench.view->zoomBy(0.1);
        QCOMPARE(bench.grid().zoomValue(), kSmallestZoom);
        Q_EMIT bench.grid().magnified(0.05);
        QCOMPARE(bench.slider().value(), 450);
        QCOMPARE(bench.collection->zoomValue(), 0.45);
    }

    void emptyPlaces()
    {
        Bench bench(1);
        int requests = 0;
        bench.bus.observe(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX, this,
                          [&requests](const QVariant&) { ++requests; });
        bench.select({bench.node()}, {});
        QVERIFY(bench.places().showsDropZone());
        QVERIFY(bench.countLine().isEmpty());
        QVERIFY(!bench.slider().isVisible());
        bench.grid().findChild<QPushButton*>()->click();
        QCOMPARE(requests, 1);
        bench.selectShop();
        QVERIFY(!bench.places().showsDropZone());
        QVERIFY(bench.slider().isVisible());
        bench.select({}, {});
        QVERIFY(!bench.places().showsDropZone());
        QCOMPARE(bench.places().guide(), base::text("Basic.No.Collection.Selected"));
        bench.bus.removeObserver(this);
    }

    void preferencesChangeTheCells()
    {
        Bench bench(3);
        const auto showTitles = [&bench](bool shown) {
            bench.library.defaults().updateUserDefaultsWithValue(
                base::PREFS_GENERAL_SHOW_TITLE_IN_BROWSER, shown,
                base::MOSARO_NOTI_SHOW_TITLE_OPTIONS_CHANGED, {}, bench.bus);
        };
        const QSize titled = bench.grid().metrics().cell;
        QCOMPARE(bench.grid().metrics().spacing, QSize(20, 20));
        showTitles(false);
        QCOMPARE(bench.grid().metrics().spacing, QSize(15, 10));
        QVERIFY(bench.grid().metrics().cell.height() < titled.height());
        showTitles(true);
        QCOMPARE(bench.grid().metrics().cell, titled);
    }

    void scrollsToTopWhenAsked()
    {
        Bench bench(60);
        QVERIFY(QTest::qWaitForWindowActive(bench.view.get()));
        bench.grid().setFocus();
        QScrollBar* bar = bench.grid().verticalScrollBar();
        bar->setValue(bar->maximum());
        QVERIFY(bar->value() > 0);
        bench.busy = true;
        bench.bus.post(base::MOSARO_NOTI_SCROLL_TO_TOP);
        QVERIFY(bar->value() > 0);
        bench.busy = false;
        bench.bus.post(base::MOSARO_NOTI_SCROLL_TO_TOP);
        QCOMPARE(bar->value(), 0);

        bar->setValue(200);
        bench.selectShop(); // the same again, as after an import
        QCOMPARE(bar->value(), 200);
        bench.select({{Shape::SystemNode, u"1"_s, 1, u"All"_s}}, bench.media);
        QCOMPARE(bar->value(), 0);
    }

    void findsAnItem()
    {
        Bench bench(40);
        bench.view->findMediaItem(
            bench.library.context().object<store::Media>(bench.media.ids[0])->mediaID());
        QCOMPARE(bench.firstSelected(), u"0"_s);
        bench.view->findMediaItem(u"none"_s);
        QCOMPARE(bench.view->selectedCount(), 1);
    }

    void contextMenuCommandsWork()
    {
        Bench bench(4);
        bench.selectRange(1, 1);
        Q_EMIT bench.grid().contextMenuRequested(1, bench.grid().mapToGlobal(QPoint(50, 50)));
        auto* menu = bench.view->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(menu != nullptr);
        QHash<QString, QAction*> entries;
        QStringList checked;
        for (QAction* top : menu->actions()) {
            for (QAction* entry : top->menu() != nullptr ? top->menu()->actions() : QList{top}) {
                entries.insert(entry->text(), entry);
                checked.append(entry->isChecked() ? QStringList{entry->text()} : QStringList());
            }
        }
        QCOMPARE(checked, (QStringList{base::text("Basic.None"), base::text("CX.Sort.Date.Imported"),
                                       base::text("CX.Sort.Descending")}));
        entries.value(u"★★★"_s)->trigger();
        QCOMPARE(bench.library.context().object<store::Media>(bench.media.ids[2])->mediaRating(), 3);
        entries.value(base::text("CX.Sort.Ascending"))->trigger();
        QCOMPARE(bench.titleAt(0), u"0"_s);
        entries.value(base::text("Basic.Select.All"))->trigger();
        QCOMPARE(bench.view->selectedCount(), 4);
        menu->close();
    }

    void worksWithoutLibrary()
    {
        Bench bench(3);
        bench.view->selectAll();
        bench.library.manager().closeDatabase();
        bench.view->ratingImages(2);
        bench.view->sortMedia(23);
        bench.view->ascendOrDescendMedia(34);
        bench.view->zoomBy(1.2);
        bench.view->reload();
        bench.view->keepSelection();
        QCOMPARE(bench.view->currentCollectionID(), QString());
        bench.select({}, {});
        QCOMPARE(bench.view->itemCount(), 0);
        bench.view->grab(); // paints
    }
};

QTEST_MAIN(TestBrowserView)
#include "tst_mrbrowserview_ui.moc"
