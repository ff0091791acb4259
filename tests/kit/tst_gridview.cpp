#include "kit/GridView.h"

#include <QAccessible>
#include <QMimeData>
#include <QScrollBar>
#include <QtTest>

using namespace mosaro::kit;

namespace {

using Intervals = std::vector<GridInterval>;

GridSelection selectionOf(const Intervals& intervals)
{
    GridSelection selection;
    for (const GridInterval& interval : intervals) {
        selection.add(interval);
    }
    return selection;
}

class Names : public GridModel {
public:
    int items = 0;

    int count() const override { return items; }
    QString title(int index) const override { return QStringLiteral("Item %1").arg(index); }
    QString toolTip(int index) const override { return title(index); }
    QString accessibleText(int index) const override { return QStringLiteral("number %1").arg(index); }
    int findTitle(const QString& prefix, int from) const override
    {
        for (int step = 0; step < items; ++step) {
            const int index = (from + step) % items;
            if (title(index).startsWith(prefix, Qt::CaseInsensitive)) {
                return index;
            }
        }
        return -1;
    }
};

class Recorder : public GridCellPainter {
public:
    int painted = 0;
    GridInterval prepared;

    void prepare(int first, int last) override { prepared = {first, last}; }
    void paint(QPainter&, const QRect&, int, const GridCellState&) override { ++painted; }
};

/// 100 by 100 cells, four in a row of a viewport 480 wide, 120 from row to row.
struct Bench {
    Names names;
    Recorder painter;
    GridView view;

    explicit Bench(int items)
    {
        names.items = items;
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.resize(496, 400);
        view.setMetrics({{100, 100}, {20, 20}, 18});
        view.setSource(&names, &painter);
        view.show();
        view.activateWindow();
        view.setFocus();
    }
    QPoint centre(int index) { return view.itemFrameAtIndex(index).center(); }
    void click(int index, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, centre(index));
    }
};

} // namespace

class TestGridView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void selectionKeepsIntervals_data();
    void selectionKeepsIntervals();
    void selectionTogglesAndClips();
    void selectionOfMillionIsOneInterval();
    void layoutPlacesCells_data();
    void layoutPlacesCells();
    void layoutFindsCells();
    void keysMove_data();
    void keysMove();
    void clicksSelect();
    void bandSelects();
    void keyboardSelects();
    void lettersFindTitles();
    void reloadIsSilent();
    void onlyVisibleCellsArePainted();
    void scrollsToIndex();
    void dropsAreFiltered();
    void magnifies();
    void tellsAssistivePrograms();
};

void TestGridView::selectionKeepsIntervals_data()
{
    QTest::addColumn<Intervals>("added");
    QTest::addColumn<GridInterval>("removed");
    QTest::addColumn<Intervals>("expected");
    QTest::newRow("touching ones join") << Intervals{{0, 3}, {4, 5}} << GridInterval{} << Intervals{{0, 5}};
    QTest::newRow("a gap of one stays")
        << Intervals{{0, 3}, {5, 6}} << GridInterval{} << Intervals{{0, 3}, {5, 6}};
    QTest::newRow("the gap is filled")
        << Intervals{{0, 3}, {5, 6}, {4, 4}} << GridInterval{} << Intervals{{0, 6}};
    QTest::newRow("one swallows several")
        << Intervals{{2, 3}, {6, 7}, {0, 9}} << GridInterval{} << Intervals{{0, 9}};
    QTest::newRow("from unordered") << Intervals{{8, 9}, {0, 1}} << GridInterval{}
                                    << Intervals{{0, 1}, {8, 9}};
    QTest::newRow("empty adds nothing") << Intervals{{0, -1}} << GridInterval{} << Intervals{};
    QTest::newRow("hole in the middle")
        << Intervals{{0, 9}} << GridInterval{4, 5} << Intervals{{0, 3}, {6, 9}};
    QTest::newRow("hole over several")
        << Intervals{{0, 2}, {4, 6}, {8, 9}} << GridInterval{2, 8} << Intervals{{0, 1}, {9, 9}};
    QTest::newRow("all out") << Intervals{{0, 2}, {4, 6}} << GridInterval{0, 6} << Intervals{};
    QTest::newRow("outside") << Intervals{{3, 4}} << GridInterval{5, 9} << Intervals{{3, 4}};
}

void TestGridView::selectionKeepsIntervals()
{
    QFETCH(Intervals, added);
    QFETCH(GridInterval, removed);
    QFETCH(Intervals, expected);
    GridSelection selection = selectionOf(added);
    selection.remove(removed);
    QCOMPARE(selection.intervals(), expected);
    int count = 0;
    selection.forEach([&](int index) {
        ++count;
        QVERIFY(selection.contains(index));
    });
    QCOMPARE(selection.count(), count);
}

void TestGridView::selectionTogglesAndClips()
{
    GridSelection selection = selectionOf({{0, 4}, {8, 9}});
    selection.toggle(selectionOf({{3, 8}}));
    QCOMPARE(selection.intervals(), (Intervals{{0, 2}, {5, 7}, {9, 9}}));
    QVERIFY(!selection.contains(3));
    selection.clip(6);
    QCOMPARE(selection.intervals(), (Intervals{{0, 2}, {5, 5}}));
    selection.clip(0);
    QVERIFY(selection.isEmpty());
    QCOMPARE(selection.first(), -1);
}

void TestGridView::selectionOfMillionIsOneInterval()
{
    Bench bench(1'000'000);
    QTest::keyClick(&bench.view, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(bench.view.selectionIndexes().count(), 1'000'000);
    QCOMPARE(bench.view.selectionIndexes().intervals().size(), size_t(1));
    bench.click(5, Qt::ControlModifier);
    QCOMPARE(bench.view.selectionIndexes().count(), 999'999);
}

void TestGridView::layoutPlacesCells_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("height");
    QTest::newRow("just four") << 496 << 9 << 4 << 36 + 3 * 100 + 2 * 20;
    QTest::newRow("a point less") << 495 << 9 << 3 << 36 + 3 * 100 + 2 * 20;
    QTest::newRow("narrower than a cell") << 30 << 2 << 1 << 36 + 220;
    QTest::newRow("no width yet") << 0 << 2 << 1 << 36 + 220;
    QTest::newRow("nothing") << 496 << 0 << 4 << 0;
    QTest::newRow("a million") << 496 << 1'000'000 << 4 << 36 + 250'000 * 120 - 20;
}

void TestGridView::layoutPlacesCells()
{
    QFETCH(int, width);
    QFETCH(int, count);
    QFETCH(int, columns);
    QFETCH(int, height);
    const GridLayout layout({{100, 100}, {20, 20}, 18}, width, count);
    QCOMPARE(layout.columns(), columns);
    QCOMPARE(layout.contentHeight(), height);
    if (count > 0 && width >= 136) {
        const QRect first = layout.cellRect(0);
        const QRect lastInRow = layout.cellRect(columns - 1);
        QVERIFY(first.left() >= 18);
        QVERIFY(lastInRow.right() < width - 17);
        QVERIFY(qAbs(first.left() - (width - 1 - lastInRow.right())) <= 1); // the same air on both sides
    }
}

void TestGridView::layoutFindsCells()
{
    const GridLayout layout({{100, 100}, {20, 20}, 18}, 496, 10);
    for (int index = 0; index < 10; ++index) {
        const QRect cell = layout.cellRect(index);
        QCOMPARE(layout.indexAt(cell.topLeft()), index);
        QCOMPARE(layout.indexAt(cell.bottomRight()), index);
        QCOMPARE(layout.indexAt(cell.bottomRight() + QPoint(1, 0)), -1);
        QCOMPARE(layout.indexAt(cell.bottomLeft() + QPoint(0, 1)), -1);
    }
    QCOMPARE(layout.indexAt(layout.cellRect(11).center()), -1); // the row ends before it
    QCOMPARE(layout.indexAt({200, 5}), -1);
    QCOMPARE(layout.indexesBetween(0, 399), (GridInterval{0, 9}));
    QCOMPARE(layout.indexesBetween(0, 17), (GridInterval{}));
    QCOMPARE(layout.indexesBetween(138, 139), (GridInterval{4, 7}));
    QCOMPARE(layout.indexesIn(QRect(0, 0, 496, 130)).intervals(), (Intervals{{0, 3}}));
    const QRect middle(layout.cellRect(1).center(), layout.cellRect(6).center());
    QCOMPARE(layout.indexesIn(middle).intervals(), (Intervals{{1, 2}, {5, 6}}));
    QVERIFY(
        layout.indexesIn(QRect(layout.cellRect(0).bottomLeft() + QPoint(0, 2), QSize(400, 15))).isEmpty());
}

void TestGridView::keysMove_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<GridMove>("move");
    QTest::addColumn<int>("to");
    // Ten cells, four in a row; a page is two rows.
    QTest::newRow("right") << 3 << GridMove::Right << 4;
    QTest::newRow("right at the end") << 9 << GridMove::Right << 9;
    QTest::newRow("left at the start") << 0 << GridMove::Left << 0;
    QTest::newRow("down") << 1 << GridMove::Down << 5;
    QTest::newRow("down to a short row") << 7 << GridMove::Down << 9;
    QTest::newRow("down in the last row") << 8 << GridMove::Down << 8;
    QTest::newRow("up in the first row") << 2 << GridMove::Up << 2;
    QTest::newRow("up") << 9 << GridMove::Up << 5;
    QTest::newRow("page down") << 1 << GridMove::PageDown << 9;
    QTest::newRow("page up past the top") << 6 << GridMove::PageUp << 2;
    QTest::newRow("page up") << 9 << GridMove::PageUp << 1;
    QTest::newRow("home") << 9 << GridMove::Home << 0;
    QTest::newRow("end") << 0 << GridMove::End << 9;
    QTest::newRow("right from nowhere") << -1 << GridMove::Right << 0;
    QTest::newRow("left from nowhere") << -1 << GridMove::Left << 9;
}

void TestGridView::keysMove()
{
    QFETCH(int, from);
    QFETCH(GridMove, move);
    QFETCH(int, to);
    const GridMetrics metrics{{100, 100}, {20, 20}, 18};
    QCOMPARE(GridLayout(metrics, 496, 10).moved(from, move, 250), to);
    QCOMPARE(GridLayout(metrics, 496, 0).moved(from, move, 250), -1);
}

void TestGridView::clicksSelect()
{
    Bench bench(10);
    QSignalSpy changes(&bench.view, &GridView::selectionChanged);
    bench.click(1);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{1, 1}}));
    bench.click(6, Qt::ShiftModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{1, 6}}));
    bench.click(3, Qt::ControlModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{1, 2}, {4, 6}}));
    bench.click(8, Qt::ShiftModifier | Qt::ControlModifier); // from the last plain or Ctrl click, added
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{1, 8}}));
    bench.click(5); // of several selected: that one alone, once the button is up
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{5, 5}}));
    QTest::mouseClick(bench.view.viewport(), Qt::LeftButton, {}, QPoint(3, 3));
    QVERIFY(bench.view.selectionIndexes().isEmpty());
    QCOMPARE(changes.count(), 6);

    QSignalSpy activations(&bench.view, &GridView::activated);
    QTest::mouseDClick(bench.view.viewport(), Qt::LeftButton, {}, bench.centre(2));
    QCOMPARE(activations.count(), 1);
    QCOMPARE(activations.first().first().toInt(), 2);
    bench.view.selectAll();
    QTest::mouseClick(bench.view.viewport(), Qt::RightButton, {}, bench.centre(4));
    QCOMPARE(bench.view.selectionIndexes().count(), 10); // a menu for all of them
    bench.click(0);
    QTest::mouseClick(bench.view.viewport(), Qt::RightButton, {}, bench.centre(4));
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{4, 4}}));
}

void TestGridView::bandSelects()
{
    Bench bench(10);
    bench.click(9);
    const auto drag = [&bench](const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers) {
        QTest::mousePress(bench.view.viewport(), Qt::LeftButton, modifiers, from);
        QMouseEvent move(QEvent::MouseMove, to, bench.view.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(bench.view.viewport(), &move);
        QTest::mouseRelease(bench.view.viewport(), Qt::LeftButton, modifiers, to);
    };
    drag({2, 2}, bench.centre(5), Qt::NoModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 1}, {4, 5}}));
    drag({2, 2}, bench.centre(1), Qt::ControlModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{4, 5}}));
    drag({2, 2}, bench.centre(0), Qt::ShiftModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 0}, {4, 5}}));
}

void TestGridView::keyboardSelects()
{
    Bench bench(40);
    QTest::keyClick(&bench.view, Qt::Key_Down);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 0}}));
    QTest::keyClick(&bench.view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&bench.view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 5}}));
    QTest::keyClick(&bench.view, Qt::Key_Up, Qt::ShiftModifier); // the range shrinks towards its start
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 1}}));
    QTest::keyClick(&bench.view, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(bench.view.currentIndex(), 39);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 1}}));
    QVERIFY(bench.view.viewport()->rect().contains(bench.view.itemFrameAtIndex(39)));
    QTest::keyClick(&bench.view, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 1}, {39, 39}}));
    QSignalSpy activations(&bench.view, &GridView::activated);
    QTest::keyClick(&bench.view, Qt::Key_Return);
    QCOMPARE(activations.value(0).value(0).toInt(), 39);
    QTest::keyClick(&bench.view, Qt::Key_Home);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 0}}));
    QCOMPARE(bench.view.verticalScrollBar()->value(), 0);
}

void TestGridView::lettersFindTitles()
{
    Bench bench(40);
    QTest::keyClicks(&bench.view, QStringLiteral("item 2"));
    QCOMPARE(bench.view.currentIndex(), 2);
    QTest::keyClicks(&bench.view, QStringLiteral("5"));
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{25, 25}}));
    QTest::keyClicks(&bench.view, QStringLiteral("x")); // no such title: nothing moves
    QCOMPARE(bench.view.currentIndex(), 25);
}

void TestGridView::reloadIsSilent()
{
    Bench bench(10);
    bench.view.selectAll();
    QSignalSpy changes(&bench.view, &GridView::selectionChanged);
    bench.names.items = 4;
    bench.view.reloadData();
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 3}}));
    bench.view.resetData();
    QVERIFY(bench.view.selectionIndexes().isEmpty());
    QCOMPARE(bench.view.currentIndex(), -1);
    bench.names.items = 0;
    bench.view.resetData();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Return}) {
        QTest::keyClick(&bench.view, key);
    }
    QVERIFY(bench.view.visibleItemIndexes().isEmpty());
    QCOMPARE(changes.count(), 0);
    bench.names.items = 3;
    bench.view.reloadData();
    bench.view.setSelectionIndexes(selectionOf({{1, 7}})); // what is not there cannot be selected
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{1, 2}}));
    bench.view.setSelectionIndexes(selectionOf({{0, 0}}), true);
    QCOMPARE(bench.view.selectionIndexes().intervals(), (Intervals{{0, 2}}));
}

void TestGridView::onlyVisibleCellsArePainted()
{
    Bench bench(1'000'000);
    QVERIFY(QTest::qWaitForWindowExposed(&bench.view));
    bench.view.verticalScrollBar()->setValue(12'000'000);
    bench.painter.painted = 0;
    bench.view.viewport()->repaint();
    QCOMPARE(bench.painter.prepared, bench.view.visibleItemIndexes());
    QVERIFY(bench.painter.painted <= 5 * 4);
    QVERIFY(bench.view.visibleItemIndexes().first > 300'000);
}

void TestGridView::scrollsToIndex()
{
    Bench bench(400);
    for (const int index : {399, 0, 200, 201, 180}) {
        bench.view.scrollIndexToVisible(index);
        QVERIFY2(bench.view.viewport()->rect().contains(bench.view.itemFrameAtIndex(index)),
                 qPrintable(QString::number(index)));
    }
    const int before = bench.view.verticalScrollBar()->value();
    bench.view.scrollIndexToVisible(181); // seen already
    bench.view.scrollIndexToVisible(400);
    bench.view.scrollIndexToVisible(-1);
    QCOMPARE(bench.view.verticalScrollBar()->value(), before);
}

void TestGridView::dropsAreFiltered()
{
    Bench bench(3);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.png"))});
    int drops = 0;
    connect(&bench.view, &GridView::dropped, this, [&drops](const QMimeData& mime) {
        QCOMPARE(mime.urls().size(), 1);
        ++drops;
    });
    for (const bool allowed : {false, true}) {
        bench.view.setDropFilter([allowed](const QMimeData&, const QObject*) { return allowed; });
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(bench.view.viewport(), &enter);
        QCOMPARE(enter.isAccepted(), allowed);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(bench.view.viewport(), &drop);
    }
    QCOMPARE(drops, 1);
}

void TestGridView::magnifies()
{
    Bench bench(100);
    QSignalSpy asked(&bench.view, &GridView::magnified);
    const QPointF at(50, 50);
    for (const int turn : {120, -120}) {
        QWheelEvent wheel(at, bench.view.viewport()->mapToGlobal(at), {}, {0, turn}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(bench.view.viewport(), &wheel);
    }
    QCOMPARE(asked.count(), 2);
    QVERIFY(asked[0][0].toDouble() > 0);
    QVERIFY(asked[1][0].toDouble() < 0);
    QCOMPARE(bench.view.verticalScrollBar()->value(), 0);
}

void TestGridView::tellsAssistivePrograms()
{
    Bench bench(5);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&bench.view);
    QVERIFY(list != nullptr);
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->childCount(), 5);
    bench.click(3);
    QAccessibleInterface* item = list->child(3);
    QCOMPARE(item->text(QAccessible::Name), QStringLiteral("Item 3"));
    QCOMPARE(item->text(QAccessible::Description), QStringLiteral("number 3"));
    QVERIFY(item->state().selected);
    QVERIFY(!list->child(2)->state().selected);
    QCOMPARE(list->indexOfChild(item), 3);
    QCOMPARE(list->child(5), nullptr);
    QSignalSpy opened(&bench.view, &GridView::activated);
    list->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(opened.value(0).value(0).toInt(), 1);
    QVERIFY(list->child(1)->state().selected);
    bench.names.items = 2;
    bench.view.reloadData();
    QVERIFY(!item->isValid());
}

QTEST_MAIN(TestGridView)
#include "tst_gridview.moc"
