#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "browser/ui/MRBrowserView.h"
#include "kit/Sheet.h"
#include "organisation/ui/MRLibraryView.h"
#include "shell/Guide.h"
#include "shell/ShellFixture.h"
#include "support/TemporaryLibrary.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::shell;

class MainControllerTest : public test::WindowTest {
    Q_OBJECT

    std::unique_ptr<test::TemporaryLibrary> m_library;
    std::unique_ptr<test::ShellFixture> m_shell;
    std::unique_ptr<MRController> m_controller;

    /// How often the name has been posted since.
    std::shared_ptr<int> countPosts(QLatin1String name)
    {
        auto count = std::make_shared<int>(0);
        m_shell->utilities.bus().observe(name, this, [count](const QVariant&) { ++*count; });
        return count;
    }

    void open()
    {
        m_controller = std::make_unique<MRController>(m_shell->environment);
        m_controller->showWindow();
        m_controller->setLibraryPath(m_library->packagePath());
        QVERIFY(QTest::qWaitForWindowExposed(&m_controller->window()));
    }

private Q_SLOTS:
    void init()
    {
        m_library = std::make_unique<test::TemporaryLibrary>();
        m_library->defaults().initialize();
        m_shell = std::make_unique<test::ShellFixture>(m_library->manager(), m_library->defaults(),
                                                       m_library->prompts());
    }

    void cleanup()
    {
        m_controller.reset();
        m_shell.reset();
        m_library.reset();
    }

    void showsALibrary()
    {
        MRController controller(m_shell->environment);
        QVERIFY(!controller.controllerDidLoad());
        controller.setLibraryPath({});
        QVERIFY(!controller.controllerDidLoad() && !controller.isWindowVisible());
        controller.showWindow();
        QVERIFY(!controller.isWindowVisible());
        controller.setLibraryPath(m_library->packagePath());
        QVERIFY(controller.controllerDidLoad() && controller.isWindowVisible() && !controller.isBusy());
    }

    void selectionReachesTheBrowser()
    {
        const auto first = m_library->addCollection(u"First"_s);
        const auto second = m_library->addCollection(u"Second"_s);
        for (const auto& collection : {first, second, second})
            m_library->addMedia(u"a"_s, collection);
        open();
        m_controller->libraryView()->findCollectionItem(second->collectionID());
        QTRY_COMPARE(m_controller->browserView()->itemCount(), 2);
        QCOMPARE(m_controller->browserView()->selectedCollectionName(), u"Second"_s);
        QVERIFY(m_controller->browserView()->isUserCollection());
        m_controller->libraryView()->findCollectionItem(first->collectionID());
        QTRY_COMPARE(m_controller->browserView()->itemCount(), 1);
    }

    void findsMediaInItsCollection()
    {
        const auto collection = m_library->addCollection(u"Found"_s);
        m_library->addMedia(u"a"_s, collection);
        const auto wanted = m_library->addMedia(u"b"_s, collection);
        open();
        m_controller->findMedia(wanted->mediaID(), collection->collectionID());
        QTRY_COMPARE(m_controller->browserView()->currentCollectionID(),
                     collection->collectionID() + u"+Collection"_s);
        QTRY_COMPARE(m_controller->browserView()->selectedCount(), 1);
    }

    void sheetMakesBusyAndKeepsTheWindow()
    {
        open();
        m_controller->begin(u"Working"_s);
        QVERIFY(m_controller->isBusy());
        m_controller->performClose();
        QVERIFY(m_controller->isWindowVisible() && m_library->isOpen());
        QCOMPARE(m_library->prompts().beeps, 1);
        m_controller->end();
        QTRY_VERIFY(!m_controller->isBusy());
        m_controller->performClose();
        QVERIFY(!m_controller->isWindowVisible());
    }

    void closingEndsTheLibrary()
    {
        open();
        const auto preferencesClosed = countPosts(base::MOSARO_NOTI_CLOSE_PREFS_WINDOW);
        QSignalSpy closed(m_controller.get(), &MRController::closed);
        m_library->state().addExpandedCollection(u"kept"_s);
        m_controller->performClose();
        QCOMPARE(closed.count(), 1);
        QVERIFY(*preferencesClosed > 0 && !m_library->isOpen() && !m_controller->controllerDidLoad());
        QVERIFY(!m_library->defaults().boolean(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, true));
        QVERIFY(m_library->reopen());
        QVERIFY(m_library->state().expandedCollections().contains(u"kept"_s));
    }

    void frameAndHiddenSidebarAreRemembered()
    {
        open();
        QVERIFY(!m_controller->isHiddenSidebar());
        QVERIFY(!m_library->defaults().contains(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR));
        m_controller->toggleSplitView();
        QVERIFY(m_controller->isHiddenSidebar());
        QVERIFY(m_library->defaults().boolean(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR));
        m_controller->window().setGeometry(5, 6, 760, 540);
        m_controller->performClose();
        QVERIFY(m_library->reopen());
        open();
        QCOMPARE(m_controller->window().size(), QSize(760, 540));
        QVERIFY(m_controller->isHiddenSidebar());
        QCOMPARE(m_shell->menus.item(MenuId::View, 4)->text(), base::text("Basic.Show.Sidebar"));
        m_controller->toggleSplitView();
        QVERIFY(!m_library->defaults().boolean(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR, true));
        QCOMPARE(m_shell->menus.item(MenuId::View, 4)->text(), base::text("Basic.Hide.Sidebar"));
    }

    void doubleClickOnTheHeadScrollsToTheTop()
    {
        open();
        const auto requests = countPosts(base::MOSARO_NOTI_SCROLL_TO_TOP);
        auto* head = m_controller->window().findChild<QMenuBar*>();
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            QTest::mouseDClick(head, button, {}, QPoint(head->width() - 5, head->height() / 2));
            QCOMPARE(*requests, 1); // By the left button alone.
        }
    }

    void guideComesFirst()
    {
        m_shell->environment.unattended = false;
        const QVariantMap old{{u"Version"_s, u"0.1"_s}, {u"Copy items to library"_s, true}};
        QVERIFY(m_library->package().writeVersionRecord(old).ok());
        open();
        const auto version = [this] {
            return m_library->package().versionRecord().value(u"Version"_s).toString();
        };
        QTRY_VERIFY(m_controller->isBusy());
        auto* guide = m_controller->window().findChild<Guide*>();
        QCOMPARE(version(), u"0.1"_s);
        guide->showLastGuide();
        guide->closeGuidePage();
        QTRY_VERIFY(!m_controller->isBusy());
        QVERIFY(!m_library->defaults().showGuide());
        QTRY_COMPARE(version(), base::ZNUserDefaults::applicationVersion());
    }

    void copyModeFollowsTheRecord()
    {
        open();
        QVERIFY(m_controller->isCopyImageToLib());
        QVariantMap record = m_library->package().versionRecord();
        record.insert(u"Copy items to library"_s, false);
        QVERIFY(m_library->package().writeVersionRecord(record).ok());
        m_shell->utilities.postNotification(base::MOSARO_NOTE_UPDATED_USER_DEFINED_BOOKMARKS);
        QVERIFY(!m_controller->isCopyImageToLib());
    }

    void menusFollowTheWindow()
    {
        const auto collection = m_library->addCollection(u"Sorted"_s);
        open();
        m_controller->libraryView()->findCollectionItem(collection->collectionID());
        QAction* sort = m_shell->menus.item(MenuId::BrowserView, 9);
        QVERIFY(sort->isEnabled());
        for (const int tag : {23, 24}) {
            m_controller->browserView()->sortMedia(tag);
            QCOMPARE(sort->isChecked(), tag == 23);
        }
        m_controller->performClose();
        QVERIFY(!sort->isEnabled() && !m_shell->menus.item(MenuId::File, 5)->isEnabled());
    }
};

QTEST_MAIN(MainControllerTest)
#include "tst_maincontroller.moc"
