#include "base/Notifications.h"
#include "import/MediaDrag.h"
#include "kit/ZNFlatUIKitLabelView.h"
#include "organisation/SidebarWorld.h"

#include <QAbstractButton>
#include <QMenu>

using namespace Qt::StringLiterals;
using namespace mosaro;
using World = test::SidebarWorld;

/// Commands on the tree that change the store, as the sidebar carries them out.
class TestCollectionOperations : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void deletionAsksAndTakesItemsAndFilesAlong()
    {
        World world;
        const auto folder = world.add(u"F"_s, {}, store::kTypeFolder);
        const auto media = world.library.addMedia(u"one"_s, world.add(u"In"_s, folder), true);
        const QString package =
            QFileInfo(QFileInfo(world.library.package().masterDirPath() + media->mediaThumbPath()).path())
                .path();
        QVERIFY(QFileInfo::exists(package));
        world.open({u"16"_s, folder->collectionID()});
        int told = 0;
        world.utilities.bus().observe(base::MOSARO_NOTI_COMPLETED_COLLECTION_DELETED, &world.outline(),
                                      [&told](const QVariant&) { ++told; });
        world.press(Qt::Key_Delete); // nothing is selected
        QVERIFY(world.library.prompts().alerts.isEmpty());

        world.click(u"F"_s);
        world.press(Qt::Key_Delete);
        QCOMPARE(world.library.prompts().alerts.size(), 1);
        QVERIFY(!world.view->isBusy());

        world.library.prompts().alertAnswers = {1};
        world.press(Qt::Key_Delete);
        QVERIFY(world.view->isBusy());
        QVERIFY(!world.view->validateCommand(0));
        QTRY_COMPARE(world.notifier.notes.size(), 1);
        QTRY_VERIFY(!world.view->isBusy());
        QCOMPARE(world.notifier.notes.first().content, base::text("Message.Remove.Completed.Item", 1));
        QVERIFY(!QFileInfo::exists(package));
        QCOMPARE(told, 1);
        QCOMPARE(world.sounds.played.size(), 1);
        QCOMPARE(world.selected(), QString());
        QVERIFY(!world.row(u"F"_s).isValid());
        QVERIFY(world.library.state().expandedCollections().contains(u"16"_s));
    }

    /// Stopped before it began, and after the first of many items.
    void deletionCanBeStopped()
    {
        struct Panel : base::ProgressSink {
            std::function<void()> stop;
            bool isUp = false;
            bool stopsAtFirst = false;
            void begin(const QString&) override { isUp = true; }
            void update(const QString&, int percent) override
            {
                if (stopsAtFirst && percent > 0 && stop)
                    std::exchange(stop, nullptr)();
            }
            void end() override { isUp = false; }
            void offerStop(const std::function<void()>& offered) override { stop = offered; }
        } panel;
        World world;
        world.progress = &panel;
        const auto collection = world.add(u"C"_s);
        for (int i = 0; i < 100; ++i)
            world.library.addMedia(QString::number(i), collection, true);
        world.open({u"16"_s});
        world.click(u"C"_s);
        for (const bool atOnce : {true, false}) {
            world.library.prompts().alertAnswers = {1};
            panel.stopsAtFirst = !atOnce;
            world.press(Qt::Key_Delete);
            if (atOnce)
                panel.stop();
            QTRY_VERIFY(!world.view->isBusy() && !panel.isUp);
            QCOMPARE(world.selected(), u"C"_s);
            QCOMPARE(world.notifier.notes.size(), atOnce ? 0 : 1);
            QVERIFY(!panel.stop || atOnce);
        }
        const qsizetype left = qsizetype(world.view->selectedObjects().ids.size());
        QVERIFY(left > 0 && left < 100);
        QCOMPARE(world.notifier.notes.first().content,
                 base::text("Message.Remove.Completed.Items", QString::number(100 - left)));
    }

    void filesOfADeletionThatIsCutShortGoToo()
    {
        World world;
        const auto media = world.library.addMedia(u"one"_s, world.add(u"C"_s), true);
        const QString preview = world.library.package().masterDirPath() + media->mediaThumbPath();
        world.open({u"16"_s});
        world.click(u"C"_s);
        world.library.prompts().alertAnswers = {1};
        world.press(Qt::Key_Delete);
        QTRY_VERIFY(!world.row(u"C"_s).isValid());
        QVERIFY(QFileInfo::exists(preview));
        world.view.reset(); // the window closes
        QVERIFY(!QFileInfo::exists(preview));
    }

    void droppedItemsChangeTheirOwner()
    {
        World world;
        const auto from = world.add(u"A"_s);
        world.add(u"B"_s);
        world.add(u"F"_s, {}, store::kTypeFolder);
        const auto one = world.library.addMedia(u"one"_s, from);
        world.library.addMedia(u"two"_s, from);
        world.open({u"16"_s});
        QMimeData data;
        importing::writeMediaDrag(data, {{one->mediaID()}, {from->collectionID()}});
        QVERIFY(!world.drop(data, u"B"_s)); // nothing is selected
        world.click(u"A"_s);
        QVERIFY(!world.drop(data, u"A"_s) && !world.drop(data, u"F"_s));
        QVERIFY(world.drop(data, u"B"_s));
        QTRY_COMPARE(world.notifier.notes.size(), 1);
        QCOMPARE(world.notifier.notes.first().content, base::text("Message.Move.Completed.Item", 1));
        QCOMPARE(one->collections()->title(), u"B"_s);
        QCOMPARE(world.selected(), u"A"_s);
        QCOMPARE(world.view->selectedObjects().ids.size(), size_t(1));
    }

    void labelsOfTheSelection()
    {
        World world;
        const auto first = world.add(u"A"_s);
        const auto second = world.add(u"B"_s);
        first->setLabel(3);
        QVERIFY(world.library.context().save());
        world.open({u"0"_s, u"16"_s});
        const std::unique_ptr<kit::ZNFlatUIKitLabelView> row(world.view->makeFileLabelView());
        const auto buttons = row->findChildren<QAbstractButton*>();
        const auto marked = [&] {
            QString marks;
            for (const QAbstractButton* button : buttons) {
                const bool mixed = !button->accessibleDescription().isEmpty();
                marks += button->isChecked() ? u'x' : mixed ? u'-' : u'.';
            }
            return marks;
        };
        world.click(base::text("Lib.All"));
        world.view->menuWillOpen();
        QVERIFY(!row->isEnabled());
        QCOMPARE(marked(), u"........"_s);
        world.click(u"A"_s);
        world.view->menuWillOpen();
        QVERIFY(row->isEnabled());
        QCOMPARE(marked(), u"...x...."_s);
        world.click(u"B"_s, Qt::ControlModifier);
        world.view->menuWillOpen();
        QCOMPARE(marked(), u"-..-...."_s);
        buttons[7]->click();
        QCOMPARE(row->labelValue(), 7);
        QCOMPARE(first->label() + second->label(), 14);
        QCOMPARE(world.selected(), u"A|B"_s);
        world.view->menuDidClose();
        QCOMPARE(marked(), u"........"_s);
    }

    void labelRowInAMenuByKeyboard()
    {
        QMenu menu;
        menu.addAction(u"Above"_s);
        auto* row = new kit::ZNFlatUIKitLabelView(u"Label"_s);
        kit::addLabelRow(menu, row);
        row->activeSelection({u"2"_s});
        int chosen = -1;
        connect(row, &kit::ZNFlatUIKitLabelView::didChangeLabelValue, &menu,
                [&](int label) { chosen = menu.isVisible() ? -2 : label; });
        menu.popup({10, 10});
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        const auto press = [&menu](Qt::Key key) {
            QWidget* focus = menu.focusWidget();
            QTest::keyClick(focus ? focus : &menu, key);
        };
        press(Qt::Key_Up);
        press(Qt::Key_Right);
        press(Qt::Key_Return);
        QCOMPARE(chosen, 3);
    }
};

QTEST_MAIN(TestCollectionOperations)
#include "tst_collectionoperations_ui.moc"
