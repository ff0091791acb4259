#include "base/Notifications.h"
#include "kit/ColorPanel.h"
#include "organisation/SidebarWorld.h"
#include "organisation/ui/ColorMenu.h"
#include "organisation/ui/MRColorBrowserView.h"
#include "organisation/ui/MRLibraryColorTagsSource.h"

#include <QCheckBox>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::ColorCommand;
using organisation::MRColorBrowserView;
using organisation::MRLibraryColorTagsSource;

namespace {

/// Two red and one blue colour of role 0 and a blue one of role 3, with 1, 2, 3 and 4 items.
struct World : test::SidebarWorld {
    int announced = 0;
    std::unique_ptr<QWidget> sidebar;
    std::unique_ptr<MRLibraryColorTagsSource> source;

    World()
    {
        const auto collection = add(u"C"_s);
        int items = 0;
        for (const auto& [id, type] :
             {std::pair(u"0.5+0+0+1"_s, 0), {u"1+0+0+1"_s, 0}, {u"0+0+1+1"_s, 0}, {u"0+0+1+1"_s, 3}}) {
            const auto color = library.addColor(id, type);
            ++items;
            for (int i = 0; i < items; ++i)
                library.link(library.addMedia(u"m"_s, collection), color);
        }
        open();
    }

    void open()
    {
        source.reset();
        sidebar = std::make_unique<QWidget>();
        source = std::make_unique<MRLibraryColorTagsSource>(environment(), *sidebar, [this] { ++announced; });
        auto* column = new QVBoxLayout(sidebar.get());
        column->addWidget(&source->contentView());
        sidebar->resize(260, 600);
        sidebar->show();
        sidebar->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(sidebar.get()));
        const int before = announced;
        source->reload();
        QTRY_COMPARE(announced, before + 1);
        source->contentView().setFocus();
    }

    MRColorBrowserView& grid() const { return *sidebar->findChild<MRColorBrowserView*>(); }
    organisation::ColorMenu& menu() const { return *sidebar->findChild<organisation::ColorMenu*>(); }
    void click(int index, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, modifiers,
                          grid().itemFrameAtIndex(index).center());
    }
    size_t items() const { return source->selectedObjects().ids.size(); }
    std::vector<int> remembered() { return library.state().lastSelectedColorPositions(); }
    void choose(const char* key) const
    {
        for (QAction* action : menu().findChildren<QAction*>()) {
            if (action->text() == base::text(key))
                action->trigger();
        }
    }
    /// The colours of the menu's marks: "x" on, "-" mixed, "." off.
    QString marks() const
    {
        Q_EMIT menu().aboutToShow();
        QString shown;
        for (const QAction* action : menu().findChild<QMenu*>()->actions())
            shown += action->isChecked() ? u'x' : action->icon().isNull() ? u'.' : u'-';
        return shown;
    }
};

} // namespace

class TestColorTags : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void selectionGathersItems()
    {
        World world;
        QCOMPARE(world.announced, 1); // nothing was remembered
        world.click(2);
        QCOMPARE(world.items(), size_t(3));
        QCOMPARE(world.announced, 2);
        const auto elements = world.source->selectedCollection();
        QCOMPARE(elements.size(), size_t(1));
        QCOMPARE(elements[0].selectionKey(), u"0+0+1+1+BackgroundColor"_s);
        QVERIFY(world.library.context().object<store::Colors>(elements[0].record));
        world.click(0, Qt::ControlModifier);
        QCOMPARE(world.items(), size_t(4));
        QCOMPARE(world.remembered(), (std::vector<int>{0, 2}));
        QTest::keyClick(&world.grid(), Qt::Key_Minus); // closes the group with the selection
        QCOMPARE(world.items(), size_t(0));
        world.grid().selectAll();
        QCOMPARE(world.items(), size_t(4)); // the other group's
        world.post(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION);
        QCOMPARE(world.announced, 6);
    }

    void positionsAreRestored()
    {
        World world;
        world.click(1);
        world.click(3, Qt::ControlModifier);
        world.source.reset();
        QVERIFY(world.library.reopen());
        world.open();
        QCOMPARE(world.items(), size_t(6));
        QCOMPARE(world.remembered(), (std::vector<int>{1, 3}));

        // Without its group the last position lies beyond the list.
        for (QCheckBox* box : world.sidebar->findChildren<QCheckBox*>()) {
            if (box->text() == base::text("Basic.Show.Other.Colors"))
                box->click();
        }
        QTRY_COMPARE(world.grid().selectionIndexes().count(), 0);
        QCOMPARE(world.items(), size_t(0));
        QVERIFY(world.grid().guideString().isEmpty());
        world.library.defaults().updateUserDefaults(base::PREFS_SHOW_LIKE_COLORS_ONLY, true);
        world.post(base::MSARO_NOTI_RELOAD_ALL_COLORS);
        QTRY_COMPARE(world.grid().guideString(), base::text("Message.No.Colors"));
    }

    void marksFollowTheMenu()
    {
        World world;
        QVERIFY(!world.source->validate(ColorCommand::LikeColor));
        world.click(1);
        QCOMPARE(world.marks(), u".x"_s);
        world.choose("Basic.Mark.As.Like");
        QTRY_COMPARE(world.marks(), u"x."_s);
        QVERIFY(world.library.context()
                    .object<store::Colors>(world.source->selectedCollection()[0].record)
                    ->isLike());
        world.grid().selectAll();
        QCOMPARE(world.marks(), u"--"_s);
        QVERIFY(world.source->validate(ColorCommand::UnlikeColor));
        world.busy = true;
        QVERIFY(!world.source->validate(ColorCommand::UnlikeColor));
        world.busy = false;
        world.sidebar->findChild<QToolButton*>()->setFocus();
        QVERIFY(!world.source->validate(ColorCommand::UnlikeColor));
    }

    void doubleClickShowsTheColor()
    {
        World world;
        world.click(1);
        QTest::mouseDClick(world.grid().viewport(), Qt::LeftButton, {},
                           world.grid().itemFrameAtIndex(1).center());
        const kit::ColorPanel* panel = kit::ColorPanel::existing();
        QVERIFY(panel && panel->isVisible());
        QCOMPARE(panel->currentColor(), QColor(Qt::red));
        world.click(2);
        QCOMPARE(panel->currentColor(), QColor(Qt::blue));
        world.click(0, Qt::ControlModifier);
        QVERIFY(!panel->isVisible());
    }

    void viewOptionsGoAway()
    {
        qputenv("MOSARO_REDUCED_MOTION", "1");
        World world;
        auto* button = world.sidebar->findChild<QToolButton*>();
        const int height = world.grid().height();
        button->click();
        QCOMPARE(world.grid().height(), height + 114);
        QVERIFY(!world.sidebar->findChild<QCheckBox*>()->isVisible());
        QCOMPARE(button->toolTip(), base::text("Tooltip.Show.Color.View.Options"));
        world.open();
        QCOMPARE(world.grid().height(), height + 114);

        world.post(base::MOSARO_NOTI_TOGGLE_COLOR_SOURCE_VIEW, true);
        QVERIFY(!world.grid().isVisible());
        world.post(base::MOSARO_NOTI_TOGGLE_COLOR_SOURCE_VIEW, false);
        QVERIFY(world.grid().isVisible());
    }
};

QTEST_MAIN(TestColorTags)
#include "tst_colortags_ui.moc"
