#include "shell/AppDelegate.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "shell/About.h"
#include "shell/ChooserWindow.h"
#include "shell/HelpAddresses.h"
#include "shell/LoadingPanel.h"
#include "shell/MenuRules.h"
#include "shell/ZNMenuManager.h"
#include "store/ZNDBManager.h"

#include <QApplication>
#include <QDesktopServices>
#include <QTimer>

namespace mosaro::shell {

namespace {
constexpr int kOpenDelay = 250;
} // namespace

AppDelegate::AppDelegate(WindowEnvironment environment, LaunchOptions options, QObject* parent)
    : QObject(parent), m_environment(environment), m_options(std::move(options)),
      m_openAddress([](const QUrl& address) { return QDesktopServices::openUrl(address); }),
      m_namedLibrary(m_options.library)
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, &AppDelegate::applicationWillTerminate);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::start()
{
    initialize();
    awakeFromNib();
    applicationDidFinishLaunching();
}

void AppDelegate::initialize()
{
    m_environment.defaults.initialize();
}

void AppDelegate::awakeFromNib()
{
    m_chooserWindow = std::make_unique<ChooserWindow>();
    m_loadingPanel = std::make_unique<LoadingPanel>();
    connect(m_chooserWindow.get(), &ChooserWindow::chooseRequested, this, [this] { chooseLibAction(false); });
    connect(m_chooserWindow.get(), &ChooserWindow::createRequested, this, [this] { chooseLibAction(true); });
    connect(m_chooserWindow.get(), &ChooserWindow::quitRequested, this, &AppDelegate::quitMosaro);

    base::ZNUserDefaults& defaults = m_environment.defaults;
    if (!defaults.contains(base::PREFS_GLOBAL_APP_VERSION) || defaults.showReleaseNote()) {
        defaults.updateUserDefaults(base::PREFS_GLOBAL_APP_VERSION,
                                    base::ZNUserDefaults::applicationVersion());
    }
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_environment.menus.prepareBasicMenus();
    m_environment.menus.setupMenuItems(MenuOwner::Application,
                                       {[this](const MenuRow& row) { performMenuItem(row); },
                                        [this](const MenuRow& row) { return validate(row); }});
    m_environment.library.checkEssentialFolders();
    const bool modifierHeld = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
    if (startStep(m_options, modifierHeld) == StartStep::ShowChooser) {
        m_namedLibrary.clear();
        showChooseLibraryWindow();
        return;
    }
    openDatabaseAfterDelay();
}

void AppDelegate::openDatabaseAfterDelay()
{
    if (!m_environment.unattended) {
        m_loadingPanel->showLoadingView();
    }
    QTimer::singleShot(kOpenDelay, this, &AppDelegate::openDatabase);
}

bool AppDelegate::openLibrary()
{
    store::ZNDBManager& library = m_environment.library;
    const QString named = std::exchange(m_namedLibrary, QString());
    const bool opened = named.isEmpty() ? library.openDatabase() : library.openDatabaseAtPath(named);
    return opened && !library.libraryDirPath().isEmpty();
}

void AppDelegate::openDatabase()
{
    if (!openLibrary()) {
        showDatabaseError();
        return;
    }
    m_loadingPanel->closeLoadingView();
    Q_EMIT libraryOpened();
    startUserDefinedBookmarks();
    showMRWindowWithLibrary(m_environment.library.libraryDirPath());
}

MRController& AppDelegate::sharedController()
{
    if (!m_controller) {
        m_controller = std::make_unique<MRController>(m_environment);
        connect(m_controller.get(), &MRController::closed, this, &AppDelegate::controllerClosed);
    }
    return *m_controller;
}

void AppDelegate::controllerClosed()
{
    // It is still inside its window's close event.
    m_controller.release()->deleteLater();
}

void AppDelegate::showMRWindowWithLibrary(const QString& path)
{
    MRController& controller = sharedController();
    if (path.isEmpty() || controller.isWindowVisible()) {
        return;
    }
    controller.showWindow();
    controller.setLibraryPath(path);
    if (m_environment.defaults.boolean(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN)) {
        controller.toggleFullScreen();
    }
    Q_EMIT libraryShown();
}

void AppDelegate::closeMRWindow()
{
    if (m_controller && m_controller->isWindowVisible()) {
        m_controller->performClose();
    }
}

void AppDelegate::startUserDefinedBookmarks()
{
    if (m_environment.library.isOpenedDatabase()) {
        sharedController().startUserDefinedBookmarks(true);
    }
}

void AppDelegate::showChooseLibraryWindow()
{
    m_environment.utilities.postNotification(base::MOSARO_NOTI_CLOSE_PREFS_WINDOW);
    if (m_controller && m_controller->controllerDidLoad()) {
        m_controller->performClose();
    }
    m_chooserWindow->present();
}

void AppDelegate::chooseLibAction(bool create)
{
    store::ZNDBManager& library = m_environment.library;
    const bool opened = create ? library.createDatabase() : library.chooseDatabase();
    if (opened) {
        m_chooserWindow->hide();
        closeMRWindow();
        showMRWindowWithLibrary(library.libraryDirPath());
        return;
    }
    // A failed creation has told of itself already, and a cancelled panel has no reason.
    if (!create && !library.lastError().isEmpty()) {
        library.closeDatabase();
        m_environment.utilities.alertWithMessageText(base::text("Basic.Alert"), base::text("Basic.OK"), {},
                                                     library.lastError());
    }
}

void AppDelegate::showDatabaseError()
{
    m_loadingPanel->closeLoadingView();
    const QString reason = m_environment.library.lastError();
    m_environment.library.closeDatabase();
    const int answer = m_environment.utilities.alertWithMessageText(
        base::text("Basic.Alert"), base::text("Basic.Continue"), base::text("Basic.Quit"),
        base::text("Error.Damaged.Library") +
            (reason.isEmpty() ? QString() : QStringLiteral("\n\n") + reason));
    if (answer == 1) {
        showChooseLibraryWindow();
    } else {
        quitMosaro();
    }
}

Standing AppDelegate::standing() const
{
    return {.chooserVisible = m_chooserWindow && m_chooserWindow->isVisible(),
            .windowVisible = m_controller && m_controller->isWindowVisible(),
            .miniVisible = false,
            .loaded = m_controller && m_controller->controllerDidLoad()};
}

void AppDelegate::applicationShouldHandleReopen()
{
    if (m_loadingPanel->isVisible()) {
        return;
    }
    if (QWidget* question = QApplication::activeModalWidget()) {
        activate(*question);
        return;
    }
    switch (reopenStep(standing())) {
    case ShowStep::Nothing:
        // The desktop brings an application that was started again to the front; here it is done by hand.
        activate(m_chooserWindow->isVisible() ? *m_chooserWindow : m_controller->window());
        break;
    case ShowStep::OpenLibrary:
        openDatabaseAfterDelay();
        break;
    case ShowStep::RaiseWindow:
        m_controller->bringToFront();
        break;
    case ShowStep::ShowChooser:
        showChooseLibraryWindow();
        break;
    }
}

void AppDelegate::activate(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

void AppDelegate::showMosaro()
{
    switch (showMosaroStep(standing())) {
    case ShowStep::OpenLibrary:
        openDatabaseAfterDelay();
        break;
    case ShowStep::RaiseWindow:
    case ShowStep::Nothing:
        m_controller->bringToFront();
        break;
    default:
        break;
    }
}

void AppDelegate::quitMosaro()
{
    if (m_controller && m_controller->isWindowVisible()) {
        if (m_controller->isBusy()) {
            m_environment.prompts.beep();
            return;
        }
        m_controller->performClose();
    }
    QCoreApplication::exit(0);
}

void AppDelegate::endSession()
{
    if (m_controller) {
        m_controller->closeAtOnce();
    }
    QCoreApplication::exit(0);
}

void AppDelegate::applicationWillTerminate()
{
    if (m_controller && m_controller->isWindowVisible() && m_controller->isFullScreen()) {
        m_environment.defaults.updateUserDefaults(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, true);
    }
}

void AppDelegate::showAbout()
{
    About::sharedController().showWindow();
}

void AppDelegate::showHelpAddress(HelpTopic topic)
{
    const QUrl address = helpAddress(topic, base::ZNUserDefaults::applicationVersion());
    if (!m_openAddress(address)) {
        m_environment.utilities.alertWithMessageText(
            base::text("Basic.Alert"), base::text("Basic.OK"), {},
            base::text("Error.Open.Address", address.toDisplayString()));
    }
}

bool AppDelegate::validate(const MenuRow& row) const
{
    return validateMenuItem(row.command, {.chooserVisible = m_chooserWindow->isVisible(),
                                          .windowVisible = m_controller && m_controller->isWindowVisible(),
                                          .busy = m_controller && m_controller->isBusy()});
}

void AppDelegate::performMenuItem(const MenuRow& row)
{
    switch (row.command) {
    case Command::ShowAbout:
        return showAbout();
    case Command::Quit:
        return quitMosaro();
    case Command::SwitchToLibrary:
        return showChooseLibraryWindow();
    case Command::ShowMosaro:
        return showMosaro();
    case Command::ShowHelp:
        return showHelpAddress(HelpTopic::Help);
    case Command::ReleaseNotes:
        return showHelpAddress(HelpTopic::ReleaseNotes);
    case Command::Feedback:
        return showHelpAddress(HelpTopic::Feedback);
    case Command::FollowTwitter:
        return showHelpAddress(HelpTopic::Social);
    case Command::Website:
        return showHelpAddress(HelpTopic::Website);
    default:
        break;
    }
}

} // namespace mosaro::shell
