#include "kit/GridView.h"
#include "support/WindowTest.h"

#include <QAccessible>
#include <QScrollBar>

using namespace mosaro::kit;
using namespace Qt::StringLiterals;

namespace {

using Intervals = std::vector<GridInterval>;

GridSelection selectionOf(const Intervals& intervals)
{
    GridSelection selection;
    for (const GridInterval& interval : intervals)
        selection.add(interval);
    return selection;
}

class Names : public GridModel {
public:
    int items = 0;
    std::vector<GridSection> groups;

    int count() const override { return items; }
    std::vector<GridSection> sections() const override { return groups; }
    QString title(int index) const override { return u"Item %1"_s.arg(index); }
    QString toolTip(int index) const override { return title(index); }
    QString accessibleText(int index) const override { return u"number %1"_s.arg(index); }
    int findTitle(const QString& prefix, int from) const override
    {
        for (int step = 0; step < items; ++step) {
            const int index = (from + step) % items;
            if (title(index).startsWith(prefix, Qt::CaseInsensitive))
                return index;
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

const GridMetrics kMetrics{{100, 100}, {20, 20}, 18};

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
        view.setMetrics(kMetrics);
        view.setSource(&names, &painter);
        view.show();
        view.activateWindow();
        view.setFocus();
    }
    QPoint centre(int index) { return view.itemFrameAtIndex(index).center(); }
    void click(int index, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(view.viewport(), button, modifiers, index < 0 ? QPoint(3, 3) : centre(index));
    }
    /// With the left button down.
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* port = view.viewport();
        QTest::mousePress(port, Qt::LeftButton, modifiers, from);
        QMouseEvent move(QEvent::MouseMove, to, port->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         modifiers);
        QCoreApplication::sendEvent(port, &move);
        QTest::mouseRelease(port, Qt::LeftButton, modifiers, to);
    }
    Intervals selected() { return view.selectionIndexes().intervals(); }
};

/// A click on a cell, -1 for beside all, or a key, and what is selected after it.
template <class Input>
struct Step {
    Input input;
    Qt::KeyboardModifiers modifiers;
    Intervals selected;
};

} // namespace

class TestGridView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void selectionKeepsIntervals()
    {
        const struct {
            const char* name;
            Intervals added;
            GridInterval removed;
            Intervals expected;
        } rows[] = {{"touching ones join", {{0, 3}, {4, 5}}, {}, {{0, 5}}},
                    {"a gap of one stays", {{0, 3}, {5, 6}}, {}, {{0, 3}, {5, 6}}},
                    {"the gap is filled", {{0, 3}, {5, 6}, {4, 4}}, {}, {{0, 6}}},
                    {"one swallows several", {{2, 3}, {6, 7}, {0, 9}}, {}, {{0, 9}}},
                    {"from unordered", {{8, 9}, {0, 1}}, {}, {{0, 1}, {8, 9}}},
                    {"empty adds nothing", {{0, -1}}, {}, {}},
                    {"hole in the middle", {{0, 9}}, {4, 5}, {{0, 3}, {6, 9}}},
                    {"hole over several", {{0, 2}, {4, 6}, {8, 9}}, {2, 8}, {{0, 1}, {9, 9}}},
                    {"all out", {{0, 2}, {4, 6}}, {0, 6}, {}},
                    {"outside", {{3, 4}}, {5, 9}, {{3, 4}}}};
        for (const auto& [name, added, removed, expected] : rows) {
            GridSelection selection = selectionOf(added);
            selection.remove(removed);
            QVERIFY2(selection.intervals() == expected, name);
            int count = 0;
            selection.forEach([&](int index) { count += selection.contains(index) ? 1 : 0; });
            QVERIFY2(count == selection.count(), name);
        }
    }

    void selectionTogglesAndClips()
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

    void selectionOfMillionIsOneInterval()
    {
        Bench bench(1'000'000);
        QTest::keyClick(&bench.view, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(bench.selected(), (Intervals{{0, 999'999}}));
        bench.click(5, Qt::ControlModifier);
        QCOMPARE(bench.view.selectionIndexes().count(), 999'999);
    }

    void layoutPlacesCells()
    {
        for (const auto& [width, count, columns, height] :
             {std::tuple(496, 9, 4, 36 + 3 * 100 + 2 * 20),
              {495, 9, 3, 36 + 3 * 100 + 2 * 20}, // a point less
              {30, 2, 1, 36 + 220},               // narrower than a cell
              {0, 2, 1, 36 + 220},                // no width yet
              {496, 0, 4, 0},
              {496, 1'000'000, 4, 36 + 250'000 * 120 - 20}}) {
            const GridLayout layout(kMetrics, width, count);
            QCOMPARE(layout.columns(), columns);
            QCOMPARE(layout.contentHeight(), height);
            if (count > 0 && width >= 136) {
                const int left = layout.cellRect(0).left();
                const int right = width - 1 - layout.cellRect(columns - 1).right();
                QVERIFY(left >= 18 && right > 16);
                QVERIFY(qAbs(left - right) <= 1); // the same air on both sides
            }
        }
    }

    void layoutFindsCells()
    {
        const GridLayout layout(kMetrics, 496, 10);
        for (int index = 0; index < 10; ++index) {
            const QRect cell = layout.cellRect(index);
            QCOMPARE(layout.indexAt(cell.topLeft()), index);
            QCOMPARE(layout.indexAt(cell.bottomRight()), index);
            QCOMPARE(layout.indexAt(cell.bottomRight() + QPoint(1, 0)), -1);
            QCOMPARE(layout.indexAt(cell.bottomLeft() + QPoint(0, 1)), -1);
        }
        QCOMPARE(layout.indexAt(layout.cellRect(11).center()), -1); // the row ends before it
        QCOMPARE(layout.indexAt({200, 5}), -1);
        QCOMPARE(layout.indexesBetween(0, 399).intervals(), (Intervals{{0, 9}}));
        QVERIFY(layout.indexesBetween(0, 17).isEmpty());
        QCOMPARE(layout.indexesBetween(138, 139).intervals(), (Intervals{{4, 7}}));
        const QPoint gap = layout.cellRect(0).bottomLeft() + QPoint(0, 2);
        QVERIFY(layout.indexesIn(QRect(gap, QSize(400, 15))).isEmpty());
    }

    // Ten cells, four in a row; a page is two rows.
    void keysMove()
    {
        using M = GridMove;
        const std::vector<std::tuple<int, GridMove, int>> rows{
            {3, M::Right, 4},    {9, M::Right, 9},  {-1, M::Right, 0}, {0, M::Left, 0}, {-1, M::Left, 9},
            {1, M::Down, 5},     {7, M::Down, 9},   {8, M::Down, 8},   {2, M::Up, 2},   {9, M::Up, 5},
            {1, M::PageDown, 9}, {6, M::PageUp, 2}, {9, M::PageUp, 1}, {9, M::Home, 0}, {0, M::End, 9}};
        for (const auto& [from, move, to] : rows) {
            const QString step = u"%1 by %2"_s.arg(from).arg(int(move));
            QVERIFY2(GridLayout(kMetrics, 496, 10).moved(from, move, 250) == to, qPrintable(step));
            QVERIFY2(GridLayout(kMetrics, 496, 0).moved(from, move, 250) == -1, qPrintable(step));
        }
    }

    void clicksSelect()
    {
        Bench bench(10);
        QSignalSpy changes(&bench.view, &GridView::selectionChanged);
        const std::vector<Step<int>> steps{
            {1, {}, {{1, 1}}},
            {6, Qt::ShiftModifier, {{1, 6}}},
            {3, Qt::ControlModifier, {{1, 2}, {4, 6}}},
            {8,
             Qt::ShiftModifier | Qt::ControlModifier,
             {{1, 8}}},        // from the last plain or Ctrl click, added
            {5, {}, {{5, 5}}}, // of several selected: that one alone, once the button is up
            {-1, {}, {}}};
        for (const auto& [index, modifiers, selected] : steps) {
            bench.click(index, modifiers);
            QCOMPARE(bench.selected(), selected);
        }
        QCOMPARE(changes.count(), 6);

        QSignalSpy activations(&bench.view, &GridView::activated);
        QTest::mouseDClick(bench.view.viewport(), Qt::LeftButton, {}, bench.centre(2));
        QCOMPARE(activations, QList<QVariantList>{{2}});
        bench.view.selectAll();
        bench.click(4, {}, Qt::RightButton);
        QCOMPARE(bench.selected(), (Intervals{{0, 9}})); // a menu for all of them
        bench.click(0);
        bench.click(4, {}, Qt::RightButton);
        QCOMPARE(bench.selected(), (Intervals{{4, 4}}));
    }

    void bandSelects()
    {
        Bench bench(10);
        bench.click(9);
        const std::vector<Step<int>> steps{{5, Qt::NoModifier, {{0, 1}, {4, 5}}},
                                           {1, Qt::ControlModifier, {{4, 5}}},
                                           {0, Qt::ShiftModifier, {{0, 0}, {4, 5}}}};
        for (const auto& [index, modifiers, selected] : steps) {
            bench.drag({2, 2}, bench.centre(index), modifiers);
            QCOMPARE(bench.selected(), selected);
        }
        // From a cell, too, where cells cannot be dragged.
        bench.drag(bench.centre(1), bench.centre(6));
        QCOMPARE(bench.selected(), (Intervals{{1, 2}, {5, 6}}));
    }

    void keyboardSelects()
    {
        Bench bench(40);
        const std::vector<Step<Qt::Key>> steps{
            {Qt::Key_Down, {}, {{0, 0}}},
            {Qt::Key_Right, Qt::ShiftModifier, {{0, 1}}},
            {Qt::Key_Down, Qt::ShiftModifier, {{0, 5}}},
            {Qt::Key_Up, Qt::ShiftModifier, {{0, 1}}}, // the range shrinks towards its start
            {Qt::Key_End, Qt::ControlModifier, {{0, 1}}},
            {Qt::Key_Space, Qt::ControlModifier, {{0, 1}, {39, 39}}}};
        for (const auto& [key, modifiers, selected] : steps) {
            QTest::keyClick(&bench.view, key, modifiers);
            QCOMPARE(bench.selected(), selected);
        }
        QVERIFY(bench.view.viewport()->rect().contains(bench.view.itemFrameAtIndex(39)));
        QSignalSpy activations(&bench.view, &GridView::activated);
        QTest::keyClick(&bench.view, Qt::Key_Return);
        QCOMPARE(activations, QList<QVariantList>{{39}});
        QTest::keyClick(&bench.view, Qt::Key_Home);
        QCOMPARE(bench.selected(), (Intervals{{0, 0}}));
        QCOMPARE(bench.view.verticalScrollBar()->value(), 0);
    }

    // Sections of 5, 9 and 2 cells, four in a row, the middle one closed.
    void sectionsPlaceCells()
    {
        using M = GridMove;
        const GridLayout layout(kMetrics, 496, {{5, false}, {9, true}, {2, false}});
        const int first = 16 + 36 + 2 * 100 + 20;
        QCOMPARE(layout.contentHeight(), first + 16 + 16 + 36 + 100);
        QCOMPARE(layout.headerRect(1).top(), first);
        QCOMPARE(layout.cellRect(8), layout.headerRect(1));
        QCOMPARE(layout.cellRect(14).top(), first + 16 + 16 + 18);
        QCOMPARE(layout.headerRect(0, 100).top(), 100); // stays in sight
        QCOMPARE(layout.headerRect(0, 1000).bottom() + 1, first);
        QCOMPARE(layout.indexAt(layout.cellRect(15).center()), 15);
        QCOMPARE(layout.indexAt(layout.headerRect(1).center()), -1);
        QCOMPARE(layout.indexesBetween(0, 10'000).intervals(), (Intervals{{0, 4}, {14, 15}}));
        QCOMPARE(layout.indexesIn({0, 0, 100, 10'000}).intervals(), (Intervals{{0, 0}, {4, 4}, {14, 14}}));
        for (const auto& [from, move, to] : {std::tuple(3, M::Down, 4),
                                             {4, M::Down, 5},
                                             {5, M::Down, 14},
                                             {7, M::Right, 14},
                                             {14, M::Left, 5},
                                             {5, M::Up, 4},
                                             {15, M::Up, 5},
                                             {1, M::PageDown, 5},
                                             {15, M::Down, 15}}) {
            QVERIFY2(layout.moved(from, move, 250) == to, qPrintable(u"%1 by %2"_s.arg(from).arg(int(move))));
        }
    }

    void sectionsOpenAndClose()
    {
        Bench bench(16);
        bench.names.groups = {{7, u"A"_s, 5}, {8, u"B"_s, 9}, {9, u"C"_s, 2}};
        bench.view.reloadData();
        bench.view.selectAll();
        QSignalSpy changes(&bench.view, &GridView::selectionChanged);
        QTest::mouseClick(bench.view.viewport(), Qt::LeftButton, {}, bench.view.headerFrame(1).center());
        QCOMPARE(bench.selected(), (Intervals{{0, 4}, {14, 15}})); // what cannot be seen is not selected
        bench.view.selectAll();
        QCOMPARE(bench.selected(), (Intervals{{0, 4}, {14, 15}}));
        QCOMPARE(changes.count(), 1);
        bench.click(3);
        bench.click(15, Qt::ShiftModifier);
        QCOMPARE(bench.selected(), (Intervals{{3, 4}, {14, 15}}));

        // The keyboard comes to the closed header, which opens.
        bench.click(4);
        const std::vector<Step<Qt::Key>> steps{{Qt::Key_Down, {}, {{4, 4}}},
                                               {Qt::Key_Space, {}, {{4, 4}}},
                                               {Qt::Key_Right, {}, {{6, 6}}},
                                               {Qt::Key_Minus, {}, {}}};
        for (const auto& [key, modifiers, selected] : steps) {
            QTest::keyClick(&bench.view, key, modifiers);
            QCOMPARE(bench.selected(), selected);
        }
        QVERIFY(bench.view.isSectionClosed(1));
        QCOMPARE(bench.view.currentIndex(), 5);
        const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&bench.view);
        QCOMPARE(list->child(5)->text(QAccessible::Name), u"B"_s);
        QVERIFY(list->child(5)->state().collapsed && list->child(6)->state().invisible);

        bench.names.groups.erase(bench.names.groups.begin()); // Another list; what is closed stays so.
        bench.names.items = 11;
        bench.view.resetData();
        QVERIFY(bench.view.isSectionClosed(0));
        bench.view.setSelectionIndexes(selectionOf({{2, 2}}));
        QVERIFY(!bench.view.isSectionClosed(0));
        QCOMPARE(bench.selected(), (Intervals{{2, 2}}));
    }

    void lettersFindTitles()
    {
        Bench bench(40);
        // The last is in no title: nothing moves.
        for (const auto& [letters, found] : {std::pair(u"item 2"_s, 2), {u"5"_s, 25}, {u"x"_s, 25}}) {
            QTest::keyClicks(&bench.view, letters);
            QCOMPARE(bench.selected(), (Intervals{{found, found}}));
            QCOMPARE(bench.view.currentIndex(), found);
        }
    }

    void reloadIsSilent()
    {
        Bench bench(10);
        bench.view.selectAll();
        QSignalSpy changes(&bench.view, &GridView::selectionChanged);
        bench.names.items = 4;
        bench.view.reloadData();
        QCOMPARE(bench.selected(), (Intervals{{0, 3}}));
        bench.view.resetData();
        QVERIFY(bench.view.selectionIndexes().isEmpty());
        QCOMPARE(bench.view.currentIndex(), -1);
        bench.names.items = 0;
        bench.view.resetData();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Return})
            QTest::keyClick(&bench.view, key);
        QVERIFY(bench.view.visibleItemIndexes().isEmpty());
        QCOMPARE(changes.count(), 0);
        bench.names.items = 3;
        bench.view.reloadData();
        bench.view.setSelectionIndexes(selectionOf({{1, 7}})); // what is not there cannot be selected
        QCOMPARE(bench.selected(), (Intervals{{1, 2}}));
        bench.view.setSelectionIndexes(selectionOf({{0, 0}}), true);
        QCOMPARE(bench.selected(), (Intervals{{0, 2}}));
    }

    void onlyVisibleCellsArePainted()
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

    void scrollsToIndex()
    {
        Bench bench(400);
        for (const int index : {399, 0, 200, 201, 180}) {
            bench.view.scrollIndexToVisible(index);
            QVERIFY(bench.view.viewport()->rect().contains(bench.view.itemFrameAtIndex(index)));
        }
        const int before = bench.view.verticalScrollBar()->value();
        bench.view.scrollIndexToVisible(181); // seen already
        bench.view.scrollIndexToVisible(400);
        bench.view.scrollIndexToVisible(-1);
        QCOMPARE(bench.view.verticalScrollBar()->value(), before);
    }

    // Narrower by a column, which puts cell 9 below the lower edge.
    void resizingKeepsWhatIsSeen()
    {
        Bench bench(400);
        bench.click(9);
        bench.view.resize(400, 400);
        QVERIFY(bench.view.viewport()->rect().contains(bench.view.itemFrameAtIndex(9)));
        bench.view.scrollIndexToVisible(200);
        bench.view.resize(496, 400); // The selection is out of sight, and stays there.
        QVERIFY(bench.view.viewport()->rect().intersects(bench.view.itemFrameAtIndex(200)));
    }

    void dropsAreFiltered()
    {
        Bench bench(3);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(u"/tmp/a.png"_s)});
        int drops = 0;
        connect(&bench.view, &GridView::dropped, this, [&drops](const QMimeData& mime) {
            QCOMPARE(mime.urls().size(), 1);
            ++drops;
        });
        for (const bool allowed : {false, true}) {
            bench.view.setDropFilter([allowed](const QMimeData&, const QObject*) { return allowed; });
            QCOMPARE(mosaro::test::drop(*bench.view.viewport(), data, {5, 5}), allowed);
        }
        QCOMPARE(drops, 1);
    }

    void magnifies()
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

    void tellsAssistivePrograms()
    {
        Bench bench(5);
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&bench.view);
        QVERIFY(list != nullptr);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->childCount(), 5);
        bench.click(3);
        QAccessibleInterface* item = list->child(3);
        QCOMPARE(item->text(QAccessible::Name), u"Item 3"_s);
        QCOMPARE(item->text(QAccessible::Description), u"number 3"_s);
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
};

QTEST_MAIN(TestGridView)
#include "tst_gridview.moc"
