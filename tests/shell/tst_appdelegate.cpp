#include "base/PreferenceKeys.h"
#include "platform/Ports.h"
#include "shell/AppDelegate.h"
#include "shell/ChooserWindow.h"
#include "shell/ShellFixture.h"
#include "store/LibraryPackage.h"
#include "store/ZNDBManager.h"
#include "support/TemporaryLibrary.h"

#include <QAction>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::shell;

/// The flows from start to end, with a home of its own for each.
class AppDelegateTest : public test::WindowTest {
    Q_OBJECT

    struct Home {
        QTemporaryDir folder;
        base::ZNUserDefaults defaults{folder.filePath(u"preferences.ini"_s)};
        test::FakePrompts prompts;
        store::ZNDBManager library;
        test::ShellFixture shell{library, defaults, prompts};
        std::unique_ptr<AppDelegate> delegate;

        ~Home()
        {
            delegate.reset();
            library.closeDatabase();
        }
    };
    std::unique_ptr<Home> m_home;

    [[nodiscard]] QString path(const char* name) const
    {
        return m_home->folder.filePath(QLatin1String(name));
    }
    [[nodiscard]] AppDelegate& delegate() const { return *m_home->delegate; }
    [[nodiscard]] Standing standing() const { return delegate().standing(); }
    [[nodiscard]] store::ZNDBManager& library() const { return m_home->library; }
    [[nodiscard]] test::FakePrompts& prompts() const { return m_home->prompts; }

    void start(LaunchOptions options = {})
    {
        m_home->delegate = std::make_unique<AppDelegate>(m_home->shell.environment, std::move(options));
        delegate().start();
    }
    /// One whose store is none.
    [[nodiscard]] QString makeBadLibrary() const
    {
        test::writeFile(path("Bad.mrlibrary/Mosaro"), QByteArray(4096, 'x'));
        return path("Bad.mrlibrary");
    }
    void startAndLoad()
    {
        start();
        QVERIFY(!library().isOpenedDatabase());
        QTRY_VERIFY(standing().windowVisible);
        QVERIFY(standing().loaded);
    }
    static QPushButton* chooserButton(int button)
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<ChooserWindow*>(window); found != nullptr && found->isVisible())
                return found->findChildren<QPushButton*>().at(button);
        }
        return nullptr;
    }
    static void press(int button) { QTest::mouseClick(chooserButton(button), Qt::LeftButton); }

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init()
    {
        m_home = std::make_unique<Home>();
        library().setUp(m_home->defaults, *m_home->shell.platform.bookmarks, path("support"));
        library().setPrompts(&prompts());
    }
    void cleanup() { m_home.reset(); }

    void chooserOpensNothingByItself()
    {
        start({.chooseLibrary = true});
        QVERIFY(standing().chooserVisible);
        QVERIFY(!library().isOpenedDatabase() && !standing().loaded);
        QVERIFY(QDir(path("support/Mosaro")).entryList({u"*.mrlibrary"_s}, QDir::Dirs).isEmpty());
        press(0);
        QTest::keyClick(chooserButton(1), Qt::Key_Return);
        QCOMPARE(prompts().openPanels.size(), 1); // cancelled, as the save panel
        QCOMPARE(prompts().savePanels.size(), 1);
        QVERIFY(prompts().alerts.isEmpty() && standing().chooserVisible);
    }

    void chooserCreatesALibrary()
    {
        start({.chooseLibrary = true});
        prompts().saveAnswers = {path("New.mrlibrary")};
        press(1);
        QVERIFY(!standing().chooserVisible && standing().windowVisible && standing().loaded);
        QCOMPARE(library().libraryDirPath(), path("New.mrlibrary"));
    }

    void chooserTellsWhyALibraryDoesNotOpen()
    {
        start({.chooseLibrary = true});
        const QString bad = makeBadLibrary();
        for (int times = 1; times <= 2; ++times) {
            prompts().openAnswers = {{bad}};
            press(0);
            QCOMPARE(prompts().alerts.size(), times);
        }
        QVERIFY(!prompts().alerts.first().informativeText.isEmpty());
        QVERIFY(standing().chooserVisible && !library().isOpenedDatabase());
    }

    void damagedLibraryLeadsToTheChooser()
    {
        prompts().alertAnswers = {1};
        start({.library = makeBadLibrary()});
        QTRY_VERIFY(standing().chooserVisible);
        QCOMPARE(prompts().alerts.size(), 1);
        const base::AlertRequest alert = prompts().alerts.first();
        QCOMPARE(alert.defaultButton, base::text("Basic.Continue"));
        QCOMPARE(alert.alternateButton, base::text("Basic.Quit"));
        QVERIFY(alert.informativeText.startsWith(base::text("Error.Damaged.Library")));
        QVERIFY(alert.informativeText.size() > base::text("Error.Damaged.Library").size());
    }

    void firstStartMakesTheLibraryThatSwitchingCloses()
    {
        startAndLoad();
        QCOMPARE(library().libraryDirPath(), path("support/Mosaro/Mosaro.mrlibrary"));
        QCOMPARE(m_home->defaults.savedApplicationVersion(), base::ZNUserDefaults::applicationVersion());
        delegate().showChooseLibraryWindow();
        QVERIFY(standing().chooserVisible && !standing().windowVisible && !library().isOpenedDatabase());
        prompts().openAnswers = {{path("support/Mosaro/Mosaro.mrlibrary")}};
        press(0);
        QVERIFY(standing().loaded && !standing().chooserVisible);
    }

    void secondStartOpensAgainOrLeavesTheLibraryAlone()
    {
        startAndLoad();
        const QString path = library().libraryDirPath();
        delegate().sharedController().performClose();
        QVERIFY(!delegate().hasController() && !library().isOpenedDatabase());
        delegate().applicationShouldHandleReopen();
        QTRY_VERIFY(standing().loaded);
        QCOMPARE(library().libraryDirPath(), path);

        const MRController* before = &delegate().sharedController();
        delegate().applicationShouldHandleReopen();
        delegate().showMosaro();
        QCOMPARE(&delegate().sharedController(), before);
        QVERIFY(standing().windowVisible);
    }

    void quitIsRefusedWhileBusy()
    {
        startAndLoad();
        delegate().sharedController().begin(u"Working"_s);
        delegate().quitMosaro();
        QCOMPARE(prompts().beeps, 1);
        QVERIFY(standing().loaded && library().isOpenedDatabase());
        delegate().sharedController().end();
        QTRY_VERIFY(!delegate().sharedController().isBusy());
        delegate().quitMosaro();
        QVERIFY(!library().isOpenedDatabase());
    }

    void fullScreenIsEnteredAfterTheLibraryIsShown()
    {
        m_home->defaults.updateUserDefaults(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, true);
        start();
        QVERIFY(!delegate().hasController() || !delegate().sharedController().isFullScreen());
        QTRY_VERIFY(standing().loaded);
        QTRY_VERIFY(delegate().sharedController().isFullScreen());
        delegate().sharedController().performClose();
        QVERIFY(m_home->defaults.boolean(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN));
    }

    void helpOpensItsAddress()
    {
        start({.chooseLibrary = true});
        QUrl opened;
        bool opens = true;
        delegate().setOpenAddress([&](const QUrl& address) {
            opened = address;
            return opens;
        });
        m_home->shell.menus.item(MenuId::Help, 3)->trigger();
        QVERIFY(prompts().alerts.isEmpty());
        QCOMPARE(opened.scheme(), u"mailto"_s);
        QCOMPARE(opened.query(QUrl::FullyDecoded),
                 u"subject=Mosaro "_s + base::ZNUserDefaults::applicationVersion());
        QVERIFY(!opened.toEncoded().contains(' '));
        opens = false;
        m_home->shell.menus.item(MenuId::Help, 5)->trigger();
        QCOMPARE(prompts().alerts.size(), 1);
        QVERIFY(prompts().alerts.first().informativeText.contains(opened.toDisplayString()));
    }
};

QTEST_MAIN(AppDelegateTest)
#include "tst_appdelegate.moc"
