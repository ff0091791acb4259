#include "base/Notifications.h"
#include "import/MediaDrag.h"
#include "kit/ColorPanel.h"
#include "kit/MarkMenu.h"
#include "organisation/SidebarWorld.h"
#include "organisation/ui/MRLibraryTableView.h"
#include "organisation/ui/MRTagController.h"
#include "organisation/ui/TagCheckList.h"
#include "organisation/ui/TagMenu.h"
#include "store/MediaTagList.h"

#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::MRLibraryTableView;
using organisation::MRTagController;
using organisation::TagMenu;

namespace {

/// A library whose sidebar shows its tags, and the panel that assigns them.
struct World : test::SidebarWorld {
    std::unique_ptr<MRTagController> panel;
    std::vector<store::RowId> items;

    /// Tags and items "title:1,2|…": the numbers of the items that bear the tag.
    explicit World(const QString& tags = {}, int count = 0)
    {
        library.defaults().updateUserDefaults(base::PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM, 1);
        const auto collection = add(u"Collection"_s);
        std::vector<std::shared_ptr<store::Media>> media;
        for (int number = 0; number < count; ++number) {
            media.push_back(library.addMedia(u"item"_s, collection));
            items.push_back(media.back()->rowId());
        }
        for (const QString& row : tags.split(u'|', Qt::SkipEmptyParts)) {
            const auto tag = library.addTag(row.section(u':', 0, 0));
            for (const QString& number : row.section(u':', 1).split(u',', Qt::SkipEmptyParts))
                library.link(media.at(number.toUInt() - 1), tag);
        }
        open();
    }

    void openPanel(std::vector<store::RowId> selected)
    {
        panel = std::make_unique<MRTagController>(
            organisation::TagPanelEnvironment{library.manager(), library.defaults(), utilities});
        panel->setSelectedItems(std::move(selected));
        panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel.get()));
    }

    MRLibraryTableView& list() const { return *view->findChild<MRLibraryTableView*>(); }
    TagMenu& menu() const { return *view->findChild<TagMenu*>(); }
    QLineEdit* editor() const { return list().viewport()->findChild<QLineEdit*>(); }
    QPoint middle(int row) const { return list().visualRect(list().model()->index(row, 0)).center(); }

    void click(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, middle(row));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&list(), key, modifiers);
    }

    /// "title|title" of all rows, those selected in brackets.
    QString rows() const
    {
        QStringList rows;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QString title = list().model()->index(row, 0).data().toString();
            rows.append(list().selectedRows().contains(row) ? u'[' + title + u']' : title);
        }
        return rows.join(u'|');
    }
    qsizetype shown() const { return qsizetype(view->selectedObjects().ids.size()); }

    organisation::TagCheckList& checkList() const { return *panel->findChild<organisation::TagCheckList*>(); }
    /// The boxes of the panel as "+": on, "~": mixed, "-": off.
    QString boxes() const
    {
        QString boxes;
        const QAbstractItemModel& model = *checkList().model();
        for (int row = 0; row < model.rowCount(); ++row)
            boxes += u"-~+"[model.index(row, 0).data(Qt::CheckStateRole).toInt()];
        return boxes;
    }
    void clickBox(int row) const
    {
        const QRect place = checkList().visualRect(checkList().model()->index(row, 0));
        QTest::mouseClick(checkList().viewport(), Qt::LeftButton, {},
                          {place.left() + 18, place.center().y()});
    }
};

} // namespace

class TestTagPanes : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void newTagOpensItsNameForEditing()
    {
        World world;
        world.view->addTag();
        QCOMPARE(world.rows(), u"[Untitled Tag]"_s);
        QVERIFY(world.editor());
        QTest::keyClick(world.editor(), Qt::Key_Return); // As it is: no second tag of the name is meant.
        QTRY_VERIFY(!world.editor());
        QVERIFY(world.library.prompts().alerts.isEmpty());
        world.view->addTag();
        QTest::keyClick(world.editor(), Qt::Key_Escape);
        QTRY_VERIFY(!world.editor());
        QCOMPARE(world.rows(), u"Untitled Tag|[Untitled Tag (2)]"_s);
        QVERIFY(world.list().hasFocus());
    }

    void renaming()
    {
        const std::tuple<QString, QString, bool> rows[] = {
            {u"Zoo"_s, u"b|[Zoo]"_s, false}, // sorted anew
            {u""_s, u"[a]|b"_s, false},      {u" \t "_s, u"[a]|b"_s, false}, {u"b"_s, u"[a]|b"_s, true},
            {u"B"_s, u"[a]|b"_s, true},      {u"A"_s, u"[a]|b"_s, true},
        };
        for (const auto& [title, tags, refused] : rows) {
            World world(u"a|b"_s);
            world.click(0);
            world.press(Qt::Key_Return);
            QVERIFY(world.editor());
            world.editor()->setText(title);
            QTest::keyClick(world.editor(), Qt::Key_Return);
            QTRY_COMPARE(world.library.prompts().alerts.size(), refused ? 1 : 0);
            QTRY_COMPARE(world.editor() != nullptr, refused); // The refused title can be put right at once.
            QCOMPARE(title + u": "_s + world.rows(), title + u": "_s + tags);
        }
    }

    void pressThatEndsARenamingSelectsWhatItMeant()
    {
        World world(u"a|b|c"_s);
        world.click(0);
        world.press(Qt::Key_F2);
        world.editor()->setText(u"z"_s);
        QCursor::setPos(world.list().viewport()->mapToGlobal(world.middle(1)));
        world.click(1);
        QCOMPARE(world.rows(), u"[b]|c|z"_s);
        world.click(1);
        QCOMPARE(world.rows(), u"b|[c]|z"_s);
    }

    void selectionIsTheUnionAndComesBack()
    {
        World world(u"a:1,2|b:2,3|c:4"_s, 4);
        world.click(0);
        QCOMPARE(world.shown(), 2);
        world.click(1, Qt::ControlModifier);
        QCOMPARE(world.shown(), 3);
        QCOMPARE(world.view->selectedCollections().size(), 2U);
        world.reopen();
        QCOMPARE(world.rows(), u"[a]|[b]|c"_s);
        world.view->changeCollection(0);
        world.view->changeCollection(1);
        QCOMPARE(world.shown(), 3);
        QTest::mouseClick(world.list().viewport(), Qt::LeftButton, {}, {100, 600});
        QCOMPARE(world.rows(), u"a|b|c"_s);
        QCOMPARE(world.shown(), 0);
    }

    void deleting()
    {
        const struct {
            const char* name;
            Qt::Key key;
            bool command, agrees, deletes;
        } rows[] = {
            {"agreed", Qt::Key_Backspace, true, true, true},
            {"delete key", Qt::Key_Delete, false, true, true},
            {"refused", Qt::Key_Backspace, true, false, false},
            {"backspace alone", Qt::Key_Backspace, false, true, false},
        };
        for (const auto& row : rows) {
            World world(u"a:1|b:1|c"_s, 1);
            world.click(0);
            world.click(2, Qt::ControlModifier);
            world.library.prompts().alertAnswers = {row.agrees ? 1 : 0};
            world.press(row.key, row.command ? Qt::ControlModifier : Qt::NoModifier);
            const QString left = row.deletes ? u"b"_s : u"[a]|b|[c]"_s;
            QVERIFY2(QTest::qWaitFor([&] { return world.rows() == left; }), row.name);
            QCOMPARE(world.shown(), row.deletes ? 0 : 1);
            const auto item = world.library.context().object<store::Media>(world.items[0]);
            QCOMPARE(item->mediaTagList().size(), row.deletes ? 1U : 2U);
        }
    }

    void colorsAndTheirMarks()
    {
        World world(u"a|b|c"_s);
        QSignalSpy told(&world.menu(), &TagMenu::tagColorChosen);
        auto& colors = *world.menu().findChild<kit::MarkMenu*>();
        const auto marks = [&] {
            Q_EMIT colors.aboutToShow();
            QString shown;
            for (const QAction* item : colors.actions())
                shown += u"-+~"[int(colors.mark(*item))];
            Q_EMIT world.menu().aboutToHide();
            return shown;
        };
        world.click(0);
        QCOMPARE(marks(), u"+--------"_s);
        colors.actions().at(1)->trigger();
        QCOMPARE(marks(), u"-+-------"_s);
        world.click(1, Qt::ControlModifier);
        QCOMPARE(marks(), u"~~-------"_s);
        colors.actions().at(8)->trigger();
        QVERIFY(kit::ColorPanel::existing());
        Q_EMIT kit::ColorPanel::existing()->colorDidChange(QColor(10, 20, 30));
        QCOMPARE(marks(), u"--------+"_s);
        QCOMPARE(colors.mark(*colors.actions().at(8)), kit::Mark::None);
        const auto record = world.library.context().first<store::Tags>(
            store::Predicate::compare("title"_L1, store::Comparison::Equal, u"b"_s));
        QCOMPARE(record->tagColor(), base::colorAsString(base::ColorValue::fromColor(QColor(10, 20, 30))));
        world.view->changeCollection(0);
        Q_EMIT kit::ColorPanel::existing()->colorDidChange(Qt::red);
        world.view->changeCollection(1);
        QCOMPARE(marks(), u"--------+"_s);
        kit::ColorPanel::closeShared();
    }

    void drops()
    {
        const struct {
            const char* name;
            QString selected;
            int row;
            bool busy, taken;
        } rows[] = {
            {"one selected, another row", u"0"_s, 1, false, true},
            {"nothing selected", u""_s, 1, false, false},
            {"two selected", u"01"_s, 1, false, false},
            {"outside of all rows", u"0"_s, -1, false, false},
            {"busy", u"0"_s, 1, true, false},
        };
        for (const auto& row : rows) {
            World world(u"a:1,2,3|b:2"_s, 3);
            for (const QChar number : row.selected)
                world.click(number.digitValue(), Qt::ControlModifier);
            QStringList ids;
            for (const store::RowId item : world.items)
                ids.append(world.library.context().object<store::Media>(item)->mediaID());
            QMimeData data;
            importing::writeMediaDrag(data, {ids, {u"anywhere"_s}});
            world.busy = row.busy;
            QSignalSpy told(world.view.get(), &organisation::MRLibraryView::selectionChanged);
            const QPoint place = row.row < 0 ? QPoint(100, 600) : world.middle(row.row);
            QVERIFY2(test::drop(*world.list().viewport(), data, place) == row.taken, row.name);
            QTRY_COMPARE(told.size(), row.taken ? 1 : 0);
            const auto links =
                world.library.context().count(store::MediaTagList::info(), store::Predicate::all());
            QCOMPARE(links.value(), row.taken ? 6 : 4);
        }
    }

    void menuFollowsTheSelection()
    {
        World world(u"a|b"_s);
        const auto enabled = [&world] {
            Q_EMIT world.menu().aboutToShow();
            QString bits;
            for (const QAction* action : world.menu().actions())
                bits += action->isSeparator() ? u'.' : action->isEnabled() ? u'1' : u'0';
            return bits;
        };
        QCOMPARE(enabled(), u"1.000"_s);
        world.click(0);
        QCOMPARE(enabled(), u"1.111"_s);
        world.click(1, Qt::ShiftModifier);
        QCOMPARE(enabled(), u"1.101"_s);
        world.busy = true;
        QCOMPARE(enabled(), u"0.000"_s);
    }

    void boxesActOnTheWholeSelection()
    {
        World world(u"a:1|b:1,2|c:2|d:3"_s, 3);
        world.click(1);
        world.openPanel({world.items[0], world.items[1]});
        QSignalSpy changed(world.panel.get(), &MRTagController::tagDidChanged);
        QCOMPARE(world.boxes(), u"~+~-"_s);
        world.clickBox(0);
        QTRY_COMPARE(world.boxes(), u"++~-"_s);
        world.clickBox(1);
        QTRY_COMPARE(world.boxes(), u"+-~-"_s);
        QCOMPARE(world.shown(), 0); // The list of tags runs its selection again.
        QCOMPARE(changed.size(), 2);
        QCOMPARE(world.sounds.played.size(), 1);
        QTest::keyClick(&world.checkList(), Qt::Key_Down);
        QTest::keyClick(&world.checkList(), Qt::Key_Space);
        QTRY_COMPARE(world.boxes(), u"+-+-"_s);
        world.panel->setSelectedItems({});
        QCOMPARE(world.boxes(), u"----"_s);
        world.clickBox(0);
        QVERIFY(!world.panel->isBusy());
        QVERIFY(!world.panel->findChild<QLineEdit*>()->isEnabled());
    }

    void newTagsFromThePanel()
    {
        World world(u"Icon"_s, 2);
        world.openPanel(world.items);
        auto& field = *world.panel->findChild<QLineEdit*>();
        auto& add = *world.panel->findChild<QPushButton*>();
        QVERIFY(!add.isEnabled());
        QTest::keyClicks(&field, u"ICON"_s);
        QVERIFY(add.isEnabled());
        QTest::keyClick(&field, Qt::Key_Return);
        QCOMPARE(world.library.prompts().alerts.size(), 1);
        QVERIFY(field.text().isEmpty() && !add.isEnabled());
        QTest::keyClicks(&field, u" "_s);
        add.click();
        QVERIFY(field.text().isEmpty() && !add.isEnabled() && !world.panel->isBusy());
        QTest::keyClicks(&field, u"Poster"_s);
        add.click();
        QTRY_COMPARE(world.boxes(), u"-+"_s);
        QCOMPARE(world.rows(), u"Icon|Poster"_s);
        world.view->addTag();
        QTRY_COMPARE(world.boxes(), u"-+-"_s);
    }
};

QTEST_MAIN(TestTagPanes)

#include "tst_tagpanes_ui.moc"
