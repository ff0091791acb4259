#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "organisation/SidebarWorld.h"
#include "organisation/ui/MRColorBrowserView.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::MRLibraryView;
using World = test::SidebarWorld;

class TestLibraryView : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void emptyLibraryShowsItsFirstGroup()
    {
        World world;
        world.open();
        QVERIFY(world.row(base::text("Lib.All")).isValid());
        QVERIFY(!world.row(base::text("Lib.Screen")).isValid());
        QCOMPARE(world.selected(), QString());
        QCOMPARE(world.library.state().expandedCollections(), QStringList(u"0"_s));
    }

    void colorsFollowADeletionOfItems()
    {
        World world;
        const auto collection = world.add(u"C"_s);
        const auto red = world.library.addColor(u"1+0+0+1"_s, 0);
        const auto blue = world.library.addColor(u"0+0+1+1"_s, 0);
        std::vector<std::shared_ptr<store::Media>> items;
        for (const auto& color : {red, red, blue}) {
            items.push_back(world.library.addMedia(u"m"_s, collection));
            world.library.link(items.back(), color);
        }
        world.library.defaults().updateUserDefaults(base::PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM, 2);
        world.open();
        auto& grid = *world.view->findChild<organisation::MRColorBrowserView*>();
        const auto uses = [&grid] {
            QStringList texts;
            for (int index = 0; index < grid.model()->count(); ++index)
                texts.append(grid.model()->accessibleText(index).section(u", "_s, 1));
            return texts.join(u'|');
        };
        QTRY_COMPARE(uses(), u"In 2 items|In 1 item"_s);
        grid.setSelectionIndexes(kit::GridSelection({0, 0}));
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(2));
        world.library.context().remove(*items[0]);
        world.library.context().remove(*items[2]);
        QVERIFY(world.library.context().save());
        world.post(base::MOSARO_NOTI_COMPLETED_MEDIA_DELETED);
        QTRY_COMPARE(uses(), u"In 1 item"_s);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(1));
    }

    void newCollectionOpensItsNameForEditing()
    {
        World world;
        world.open();
        QVERIFY(world.view->validateCommand(0));
        world.view->addCollectionItem(0);
        QLineEdit* field = world.editor();
        QVERIFY(field);
        QCOMPARE(field->text(), base::text("Basic.Untitled.Collection"));
        QCOMPARE(field->selectedText(), field->text());
        QTest::keyClicks(field, u"Clients"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(world.row(u"Clients"_s).isValid());
        QCOMPARE(world.selected(), u"Clients"_s);

        world.reopen();
        QCOMPARE(world.selected(), u"Clients"_s);
    }

    void renameByKeyboard()
    {
        const std::tuple<const char*, QString, Qt::Key, QString> rows[] = {
            {"taken over", u"B"_s, Qt::Key_Return, u"B"_s},
            {"escape", u"B"_s, Qt::Key_Escape, u"A"_s},
            {"one blank", u" "_s, Qt::Key_Return, u"A"_s},
            {"empty", QString(), Qt::Key_Return, u"A"_s},
            {"tab edits no other row", u"B"_s, Qt::Key_Tab, u"B"_s},
        };
        QTest::failOnWarning(QRegularExpression(u"[Ee]dit"_s));
        for (const auto& [name, typed, endKey, title] : rows) {
            World world;
            const auto record = world.add(u"A"_s);
            world.add(u"Z"_s);
            world.open({u"16"_s});
            world.click(u"A"_s);
            world.press(Qt::Key_F2);
            QLineEdit* field = world.editor();
            QVERIFY(field);
            field->clear();
            QTest::keyClicks(field, typed);
            QTest::keyClick(field, endKey);
            QVERIFY2(QTest::qWaitFor([&world] { return !world.editor(); }), name);
            QVERIFY2(record->title() == title, name);
            QVERIFY2(world.row(title).isValid() && world.selected() == title, name);
            QTRY_VERIFY(world.outline().hasFocus());
        }
    }

    void commandsFollowTheSelection()
    {
        World world;
        world.add(u"A"_s);
        world.add(u"B"_s);
        world.open({u"16"_s, u"0"_s});
        QVERIFY(world.view->validateCommand(0) && !world.view->validateCommand(2000));
        world.click(u"A"_s);
        QVERIFY(world.view->validateCommand(2) && world.view->validateCommand(2000));
        world.busy = true;
        QVERIFY(!world.view->validateCommand(0));
        world.busy = false;
        world.click(u"B"_s, Qt::ControlModifier);
        QCOMPARE(world.selected(), u"A|B"_s);
        QVERIFY(!world.view->validateCommand(0));
        world.press(Qt::Key_F2); // as the menu's command
        QVERIFY(!world.editor());
        world.click(base::text("Lib.All"), Qt::ControlModifier);
        QCOMPARE(world.selected(), u"A|B"_s);
        world.click(base::text("Lib.All"));
        QCOMPARE(world.selected(), base::text("Lib.All"));
        QVERIFY(!world.view->validateCommand(0));
        QTest::mouseClick(world.outline().viewport(), Qt::LeftButton, {},
                          QPoint(20, world.outline().viewport()->height() - 5));
        QCOMPARE(world.selected(), QString());
    }

    void keyboardPassesOverHeadings()
    {
        World world;
        world.add(u"A"_s);
        world.open({u"0"_s, u"16"_s});
        world.click(base::text("Lib.Recent"));
        world.press(Qt::Key_Down);
        QCOMPARE(world.selected(), u"A"_s);
        world.press(Qt::Key_Up);
        world.press(Qt::Key_Up);
        world.press(Qt::Key_Up);
        QCOMPARE(world.selected(), base::text("Lib.All"));
        world.outline().collapse(world.row(base::text("Lib.Your.Collections").toUpper()));
        world.press(Qt::Key_End);
        QCOMPARE(world.selected(), base::text("Lib.Recent"));
        world.press(Qt::Key_Home);
        QCOMPARE(world.selected(), base::text("Lib.All"));
    }

    void selectionReachesTheBrowserOnce()
    {
        World world;
        const auto folder = world.add(u"F"_s, {}, store::kTypeFolder);
        const auto inside = world.add(u"In"_s, folder);
        world.library.addMedia(u"one"_s, inside);
        world.library.addMedia(u"two"_s, inside);
        world.open({u"16"_s});
        QSignalSpy changes(world.view.get(), &MRLibraryView::selectionChanged);
        world.click(u"F"_s);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(2));
        QCOMPARE(world.view->selectedObjects().totalFileSize, 2000);

        world.view->findCollectionItem(inside->collectionID());
        QCOMPARE(changes.size(), 2);
        QCOMPARE(world.selected(), u"In"_s);
        QCOMPARE(world.view->selectedPath(), QStringList(u"F"_s));
        QVERIFY(world.library.state().expandedCollections().contains(folder->collectionID()));

        world.library.addMedia(u"three"_s, inside);
        world.post(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION);
        QCOMPARE(changes.size(), 3);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(3));
        world.view->readLibrary();
        QCOMPARE(changes.size(), 4);
        QCOMPARE(world.selected(), u"In"_s);
    }

    void collapsingSelectsTheParent()
    {
        World world;
        const auto outer = world.add(u"Outer"_s, {}, store::kTypeFolder);
        const auto inner = world.add(u"Inner"_s, outer, store::kTypeFolder);
        world.add(u"In"_s, inner);
        world.open({u"16"_s, outer->collectionID(), inner->collectionID()});
        world.click(u"In"_s);
        world.outline().collapse(world.row(u"Inner"_s));
        QCOMPARE(world.selected(), u"Inner"_s);
        QCOMPARE(world.library.state().expandedCollections(), (QStringList{u"16"_s, outer->collectionID()}));

        world.outline().expand(world.row(u"Inner"_s));
        world.click(u"In"_s);
        world.outline().collapse(world.row(u"Outer"_s)); // hides Inner, which would take the selection over
        QVERIFY(!world.row(u"Inner"_s).isValid());
        QCOMPARE(world.selected(), QString());
        QCOMPARE(world.outline().currentIndex(), world.row(u"Outer"_s));

        world.click(u"Outer"_s);
        world.outline().collapse(world.row(base::text("Lib.Your.Collections").toUpper()));
        QCOMPARE(world.selected(), QString());
        QCOMPARE(world.library.state().lastSelectedCollections(), QStringList());
    }

    void expansionAndSelectionSurvive()
    {
        World world;
        const auto folder = world.add(u"F"_s, {}, store::kTypeFolder);
        world.add(u"In"_s, folder);
        world.add(u"Top"_s);
        world.open({u"16"_s, u"gone"_s});
        QVERIFY(!world.library.state().expandedCollections().contains(u"gone"_s));
        world.outline().expand(world.row(u"F"_s));
        world.click(u"In"_s);
        world.click(u"Top"_s, Qt::ControlModifier);
        world.reopen();
        QCOMPARE(world.selected(), u"In|Top"_s);
        QVERIFY(!world.row(base::text("Lib.All")).isValid());

        for (const QString& id : world.library.state().expandedCollections())
            world.library.state().removeExpandedCollection(id);
        world.reopen();
        QCOMPARE(world.selected(), QString());
    }

    void recentDaysChange()
    {
        World world;
        world.open({u"0"_s});
        QSignalSpy changes(world.view.get(), &MRLibraryView::selectionChanged);
        world.post(base::MOSARO_NOTI_RECENT_DAYS_CHANGED, 3);
        QCOMPARE(changes.size(), 0);
        world.click(base::text("Lib.Recent"));
        world.post(base::MOSARO_NOTI_RECENT_DAYS_CHANGED, 3);
        QCOMPARE(changes.size(), 2);
        world.post(base::MOSARO_NOTI_RECENT_DAYS_CHANGED);
        QCOMPARE(changes.size(), 2);
    }

    void droppedFiles()
    {
        const std::pair<QString, QString> rows[] = {
            {u"C"_s, u"C"_s},      {u"F"_s, u"Holiday"_s},    {QString(), u"Holiday (2)"_s},
            {u"S"_s, QString()}, // refused, as what follows
            {u"All"_s, QString()}, {u"LIBRARY"_s, QString()},
        };
        for (const auto& [onto, selected] : rows) {
            World world;
            world.add(u"C"_s);
            world.add(u"F"_s, {}, store::kTypeFolder);
            world.add(u"S"_s, {}, store::kTypeSmartCollection);
            world.add(u"Holiday plans"_s);
            world.open({u"0"_s, u"16"_s});
            const QString folder = world.library.folder(u"Holiday"_s);
            test::writeFile(folder + u"/a.png"_s, "\x89PNG");
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(folder)});
            QVERIFY2(world.drop(data, onto) != selected.isEmpty(), qPrintable(onto));
            QCOMPARE(world.view->isBusy(), !selected.isEmpty());
            if (selected.isEmpty())
                continue;
            QVERIFY(kit::Sheet::isAttachedTo(*world.view));
            QVERIFY(!world.drop(data, onto));
            QTRY_VERIFY(!world.view->isBusy());
            QVERIFY(!kit::Sheet::isAttachedTo(*world.view));
            QCOMPARE(onto + world.selected(), onto + selected);
            QCOMPARE(world.view->selectedObjects().ids.size(), size_t(1));
        }
    }

    void requestsToImport()
    {
        World world;
        world.add(u"C"_s);
        world.add(u"D"_s);
        world.open({u"16"_s});
        const QString file = world.library.folder() + u"/a.png"_s;
        test::writeFile(file, "\x89PNG");

        world.post(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, QStringList(file));
        world.post(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QVERIFY(!world.view->isBusy());
        QVERIFY(world.library.prompts().openPanels.isEmpty());

        world.click(u"C"_s);
        world.post(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, file);
        QVERIFY(!world.view->isBusy());
        world.post(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, QStringList(file));
        QVERIFY(world.view->isBusy());
        QTRY_VERIFY(!world.view->isBusy());

        world.library.prompts().openAnswers.append(QStringList({file, file}));
        world.post(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
        QCOMPARE(world.library.prompts().openPanels.first().title, base::text("Message.Import", u"C"_s));
        QTRY_VERIFY(!world.view->isBusy());
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(2));

        world.click(u"D"_s, Qt::ControlModifier);
        world.post(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX);
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
    }
};

QTEST_MAIN(TestLibraryView)
#include "tst_libraryview_ui.moc"
