#include "base/PreferenceKeys.h"
#include "browser/BrowserBench.h"
#include "browser/ui/MRSearchMedia.h"
#include "browser/ui/SearchField.h"
#include "kit/Popover.h"

#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::browser;

namespace {

struct Bench : test::BrowserBench {
    Bench() : BrowserBench(3)
    {
        // Titles by day of import, the newest last.
        const auto other = library.addCollection(u"Other"_s);
        const std::pair<QString, std::shared_ptr<store::Collections>> items[] = {
            {u"Café 100%"_s, collection}, {u"cafeteria"_s, other}, {u"Straße"_s, other}};
        int day = 1;
        for (const auto& [title, owner] : items) {
            const auto item = library.addMedia(title, owner);
            item->setMediaDateImported(QDateTime(QDate(2025, 1, day++), QTime(0, 0)));
            item->setMediaNotes(u"note of "_s + title);
        }
        (void)library.context().save();
        view->sort();
    }
    SearchField& field() const { return *view->findChild<SearchField*>(); }
    QLineEdit& edit() const { return *field().findChild<QLineEdit*>(); }
    QListView& table() const { return *view->window()->findChild<QListView*>(); }
    bool isOpen() const { return view->findChild<kit::Popover*>() != nullptr; }
    QAction& choice(int tag) const
    {
        for (QAction* action : field().findChild<QMenu*>()->actions()) {
            if (!action->isSeparator() && action->data().toInt() == tag)
                return *action;
        }
        qFatal("no such choice");
    }
    void press(Qt::Key key) const { QTest::keyClick(&edit(), key); }
    /// Types, presses Return and waits for the hits, as "a|b".
    QString search(const QString& text) const
    {
        QSignalSpy results(table().model(), &QAbstractItemModel::modelReset);
        edit().setText(text);
        press(Qt::Key_Return);
        if (results.isEmpty() && !results.wait())
            return u"no results"_s;
        return hits();
    }
    QString hits() const
    {
        const auto& model = static_cast<const SearchResultModel&>(*table().model());
        QStringList titles;
        for (int row = 0; row < model.rowCount(); ++row)
            titles.append(model.hit(row).title);
        return titles.join(u'|');
    }
    int selectedRow() const { return table().selectionModel()->selectedRows().value(0).row(); }
};

} // namespace

class TestSearch : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void finds()
    {
        const std::tuple<const char*, int, int, QString, QString> rows[] = {
            {"accents aside, newest first", 0, 100, u"CAFE"_s, u"cafeteria|Café 100%"_s},
            {"an accent finds none, too", 0, 100, u"càfé"_s, u"cafeteria|Café 100%"_s},
            {"no wildcards", 0, 100, u"%"_s, u"Café 100%"_s},
            {"a quote is only a quote", 0, 100, u"' OR 1=1 --"_s, QString()},
            {"this collection", 1, 100, u"cafe"_s, u"Café 100%"_s},
            {"notes", 0, 102, u"of stra"_s, u"Straße"_s},
            {"addresses", 0, 103, u"cafe"_s, QString()},
        };
        for (const auto& [name, where, what, keyword, hits] : rows) {
            Bench bench;
            bench.choice(where).trigger();
            bench.choice(what).trigger();
            QVERIFY2(bench.search(keyword) == hits, name);
            QVERIFY2(bench.isOpen(), name);
        }
    }

    void jumpsToAHit()
    {
        Bench bench;
        QSignalSpy found(bench.view.get(), &MRBrowserView::itemFound);
        QCOMPARE(bench.search(u"cafe"_s), u"cafeteria|Café 100%"_s);
        bench.press(Qt::Key_Up); // from no selection: the last
        QCOMPARE(bench.selectedRow(), 1);
        bench.press(Qt::Key_Down);
        QCOMPARE(bench.selectedRow(), 1);
        bench.press(Qt::Key_Up);
        bench.press(Qt::Key_Up);
        QCOMPARE(bench.selectedRow(), 0);
        QVERIFY(found.isEmpty()); // moving does not jump
        bench.press(Qt::Key_Return);
        QCOMPARE(found.size(), 1);
        QTRY_VERIFY(!bench.isOpen());
        QCOMPARE(bench.edit().text(), QString());
    }

    void returnSearchesAgainOnlyForAnotherText()
    {
        Bench bench;
        (void)bench.search(u"cafe"_s);
        QSignalSpy results(bench.table().model(), &QAbstractItemModel::modelReset);
        bench.press(Qt::Key_Return);
        QVERIFY(results.isEmpty());
        QCOMPARE(bench.search(u"stra"_s), u"Straße"_s);
    }

    void ends()
    {
        const std::pair<const char*, std::function<void(Bench&)>> ways[] = {
            {"Escape", [](Bench& bench) { bench.press(Qt::Key_Escape); }},
            {"emptied", [](Bench& bench) { bench.edit().clear(); }},
            {"a press elsewhere",
             [](Bench& bench) {
                 QTest::mouseClick(bench.grid().viewport(), Qt::LeftButton, {}, QPoint(5, 300));
             }},
            {"the field is hidden", [](Bench& bench) { bench.view->adjustViewsInFullscreen(true); }},
        };
        for (const auto& [name, end] : ways) {
            Bench bench;
            (void)bench.search(u"cafe"_s);
            end(bench);
            QVERIFY2(QTest::qWaitFor([&bench] { return !bench.isOpen(); }), name);
            QCOMPARE(bench.hits(), QString());
            QCOMPARE(bench.edit().text(), QString());
        }
    }

    void resultsStayBelowTheField()
    {
        Bench bench;
        (void)bench.search(u"cafe"_s);
        const auto fromTheRight = [&bench] {
            const auto& popover = *bench.view->findChild<kit::Popover*>();
            const SearchField& field = bench.field();
            return popover.geometry().right() - field.mapTo(bench.view.get(), field.rect().topRight()).x();
        };
        const int before = fromTheRight();
        bench.view->resize(1300, 600);
        QTRY_COMPARE(bench.view->width(), 1300);
        QTRY_COMPARE(fromTheRight(), before);
    }

    void fallsBackOnTheWholeLibrary()
    {
        Bench bench;
        bench.choice(1).trigger();
        bench.select({{store::SelectionElement::Shape::SystemNode, u"1"_s, 1, u"All"_s}}, bench.media);
        QVERIFY(!bench.choice(1).isEnabled());
        QVERIFY(bench.choice(0).isChecked());
        QCOMPARE(bench.library.defaults().integer(base::PREFS_GLOBAL_SEARCH_TYPE), 1); // kept for later
        QCOMPARE(bench.search(u"cafe"_s), u"cafeteria|Café 100%"_s);
    }
};

QTEST_MAIN(TestSearch)
#include "tst_search_ui.moc"
