#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "kit/Look.h"
#include "platform/Ports.h"
#include "shell/AppDelegate.h"
#include "shell/ChooserWindow.h"
#include "shell/ShellFixture.h"
#include "store/LibraryPackage.h"
#include "store/ZNDBManager.h"
#include "support/TemporaryLibrary.h"

#include <QAction>
#include <QPushButton>
#include <QtTest>

using namespace mosaro;
using namespace mosaro::shell;

/// The flows from start to end, with a home of its own for each.
class AppDelegateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void firstStartMakesTheDefaultLibrary();
    void chooserOpensNothingByItself();
    void cancelledPanelsKeepTheChooser();
    void chooserCreatesALibrary();
    void chooserTellsWhyALibraryDoesNotOpen();
    void damagedLibraryLeadsToTheChooser();
    void switchingClosesTheLibraryFirst();
    void reopenAfterTheWindowClosed();
    void secondStartLeavesTheLibraryAlone();
    void quitIsRefusedWhileBusy();
    void fullScreenIsEnteredAfterTheLibraryIsShown();
    void helpOpensItsAddress();

private:
    void start(LaunchOptions options = {});
    [[nodiscard]] ChooserWindow* chooser() const;
    void press(int button);
    [[nodiscard]] QString path(const char* name) const
    {
        return m_home->path() + QLatin1Char('/') + QLatin1String(name);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<base::ZNUserDefaults> m_defaults;
    std::unique_ptr<test::FakePrompts> m_prompts;
    std::unique_ptr<store::ZNDBManager> m_library;
    std::unique_ptr<test::ShellFixture> m_shell;
    std::unique_ptr<AppDelegate> m_delegate;
};

void AppDelegateTest::initTestCase()
{
    base::installTexts();
    kit::installLook(*qApp);
    QApplication::setQuitOnLastWindowClosed(false);
}

void AppDelegateTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    m_defaults = std::make_unique<base::ZNUserDefaults>(path("preferences.ini"));
    m_prompts = std::make_unique<test::FakePrompts>();
    m_library = std::make_unique<store::ZNDBManager>();
    m_shell = std::make_unique<test::ShellFixture>(*m_library, *m_defaults, *m_prompts);
    m_library->setUp(*m_defaults, *m_shell->platform.bookmarks, path("support"));
    m_library->setPrompts(m_prompts.get());
}

void AppDelegateTest::cleanup()
{
    m_delegate.reset();
    m_library->closeDatabase();
    m_shell.reset();
    m_library.reset();
    m_prompts.reset();
    m_defaults.reset();
    m_home.reset();
}

void AppDelegateTest::start(LaunchOptions options)
{
    m_delegate = std::make_unique<AppDelegate>(m_shell->environment, std::move(options));
    m_delegate->start();
}

ChooserWindow* AppDelegateTest::chooser() const
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<ChooserWindow*>(window); found != nullptr && found->isVisible()) {
            return found;
        }
    }
    return nullptr;
}

void AppDelegateTest::press(int button)
{
    QTest::mouseClick(chooser()->findChildren<QPushButton*>().at(button), Qt::LeftButton);
}

void AppDelegateTest::firstStartMakesTheDefaultLibrary()
{
    start();
    QVERIFY(!m_library->isOpenedDatabase());
    QTRY_VERIFY(m_delegate->standing().windowVisible);
    QVERIFY(m_delegate->standing().loaded);
    QVERIFY(m_library->libraryDirPath().endsWith(QStringLiteral("/Mosaro/Mosaro.mrlibrary")));
    QCOMPARE(m_defaults->savedApplicationVersion(), base::ZNUserDefaults::applicationVersion());
}

void AppDelegateTest::chooserOpensNothingByItself()
{
    start({.chooseLibrary = true});
    QVERIFY(m_delegate->standing().chooserVisible);
    QVERIFY(!m_library->isOpenedDatabase() && !m_delegate->standing().loaded);
    QVERIFY(QDir(path("support/Mosaro")).entryList({QStringLiteral("*.mrlibrary")}, QDir::Dirs).isEmpty());
}

void AppDelegateTest::cancelledPanelsKeepTheChooser()
{
    start({.chooseLibrary = true});
    press(0);
    QTest::keyClick(chooser()->findChildren<QPushButton*>().at(1), Qt::Key_Return);
    QCOMPARE(m_prompts->openPanels.size(), 1);
    QCOMPARE(m_prompts->savePanels.size(), 1);
    QVERIFY(m_prompts->alerts.isEmpty());
    QVERIFY(m_delegate->standing().chooserVisible);
}

void AppDelegateTest::chooserCreatesALibrary()
{
    start({.chooseLibrary = true});
    m_prompts->saveAnswers = {path("New.mrlibrary")};
    press(1);
    QVERIFY(!m_delegate->standing().chooserVisible);
    QVERIFY(m_delegate->standing().windowVisible && m_delegate->standing().loaded);
    QCOMPARE(m_library->libraryDirPath(), path("New.mrlibrary"));
}

void AppDelegateTest::chooserTellsWhyALibraryDoesNotOpen()
{
    start({.chooseLibrary = true});
    test::writeFile(path("Bad.mrlibrary/Mosaro"), QByteArray(4096, 'x'));
    for (int times = 1; times <= 2; ++times) {
        m_prompts->openAnswers = {{path("Bad.mrlibrary")}};
        press(0);
        QCOMPARE(m_prompts->alerts.size(), times);
    }
    press(0); // Cancelled, with no answer left.
    QCOMPARE(m_prompts->alerts.size(), 2);
    QVERIFY(!m_prompts->alerts.first().informativeText.isEmpty());
    QVERIFY(m_delegate->standing().chooserVisible);
    QVERIFY(!m_library->isOpenedDatabase());
}

void AppDelegateTest::damagedLibraryLeadsToTheChooser()
{
    test::writeFile(path("Bad.mrlibrary/Mosaro"), QByteArray(4096, 'x'));
    m_prompts->alertAnswers = {1};
    start({.library = path("Bad.mrlibrary")});
    QTRY_VERIFY(m_delegate->standing().chooserVisible);
    QCOMPARE(m_prompts->alerts.size(), 1);
    const base::AlertRequest alert = m_prompts->alerts.first();
    QCOMPARE(alert.defaultButton, base::text("Basic.Continue"));
    QCOMPARE(alert.alternateButton, base::text("Basic.Quit"));
    QVERIFY(alert.informativeText.startsWith(base::text("Error.Damaged.Library")));
    QVERIFY(alert.informativeText.size() > base::text("Error.Damaged.Library").size());
    QFile untouched(path("Bad.mrlibrary/Mosaro"));
    QVERIFY(untouched.open(QIODevice::ReadOnly));
    QCOMPARE(untouched.readAll(), QByteArray(4096, 'x'));
}

void AppDelegateTest::switchingClosesTheLibraryFirst()
{
    start();
    QTRY_VERIFY(m_delegate->standing().loaded);
    m_delegate->showChooseLibraryWindow();
    QVERIFY(m_delegate->standing().chooserVisible);
    QVERIFY(!m_delegate->standing().windowVisible);
    QVERIFY(!m_library->isOpenedDatabase());
    m_prompts->openAnswers = {{path("support/Mosaro/Mosaro.mrlibrary")}};
    press(0);
    QVERIFY(m_delegate->standing().loaded);
    QVERIFY(!m_delegate->standing().chooserVisible);
}

void AppDelegateTest::reopenAfterTheWindowClosed()
{
    start();
    QTRY_VERIFY(m_delegate->standing().loaded);
    const QString library = m_library->libraryDirPath();
    m_delegate->sharedController().performClose();
    QVERIFY(!m_delegate->hasController());
    QVERIFY(!m_library->isOpenedDatabase());
    m_delegate->applicationShouldHandleReopen();
    QTRY_VERIFY(m_delegate->standing().loaded);
    QCOMPARE(m_library->libraryDirPath(), library);
}

void AppDelegateTest::secondStartLeavesTheLibraryAlone()
{
    start();
    QTRY_VERIFY(m_delegate->standing().loaded);
    const MRController* before = &m_delegate->sharedController();
    m_delegate->applicationShouldHandleReopen();
    m_delegate->showMosaro();
    QCOMPARE(&m_delegate->sharedController(), before);
    QVERIFY(m_delegate->standing().windowVisible);
}

void AppDelegateTest::quitIsRefusedWhileBusy()
{
    start();
    QTRY_VERIFY(m_delegate->standing().loaded);
    m_delegate->sharedController().begin(QStringLiteral("Working"));
    m_delegate->quitMosaro();
    QCOMPARE(m_prompts->beeps, 1);
    QVERIFY(m_delegate->standing().loaded);
    QVERIFY(m_library->isOpenedDatabase());
    m_delegate->sharedController().end();
    QTRY_VERIFY(!m_delegate->sharedController().isBusy());
    m_delegate->quitMosaro();
    QVERIFY(!m_library->isOpenedDatabase());
}

void AppDelegateTest::fullScreenIsEnteredAfterTheLibraryIsShown()
{
    m_defaults->updateUserDefaults(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, true);
    start();
    QVERIFY(!m_delegate->hasController() || !m_delegate->sharedController().isFullScreen());
    QTRY_VERIFY(m_delegate->standing().loaded);
    QTRY_VERIFY(m_delegate->sharedController().isFullScreen());
    m_delegate->sharedController().performClose();
    QVERIFY(m_defaults->boolean(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN));
}

void AppDelegateTest::helpOpensItsAddress()
{
    start({.chooseLibrary = true});
    QUrl opened;
    bool opens = true;
    m_delegate->setOpenAddress([&](const QUrl& address) {
        opened = address;
        return opens;
    });
    m_shell->menus.item(MenuId::Help, 3)->trigger();
    QVERIFY(m_prompts->alerts.isEmpty());
    QCOMPARE(opened.scheme(), QStringLiteral("mailto"));
    QVERIFY(opened.query(QUrl::FullyDecoded).contains(base::ZNUserDefaults::applicationVersion()));
    opens = false;
    m_shell->menus.item(MenuId::Help, 5)->trigger();
    QCOMPARE(m_prompts->alerts.size(), 1);
    QVERIFY(m_prompts->alerts.first().informativeText.contains(opened.toDisplayString()));
}

QTEST_MAIN(AppDelegateTest)
#include "tst_appdelegate.moc"
