#include "shell/MRController.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "browser/ui/MRBrowserView.h"
#include "import/MediaClassification.h"
#include "kit/ModeOverlay.h"
#include "kit/ProgressPanel.h"
#include "kit/Sheet.h"
#include "kit/SpinnerOverlay.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/MRTagController.h"
#include "platform/Ports.h"
#include "shell/Guide.h"
#include "shell/InspectorPane.h"
#include "shell/LibraryVersion.h"
#include "shell/MainWindow.h"
#include "shell/SplitView.h"
#include "shell/WindowMenus.h"
#include "store/ZNDBManager.h"

#include <QMenuBar>
#include <QTimer>

namespace mosaro::shell {

namespace {
constexpr int kGuideDelay = 450;
constexpr int kVersionCheckDelay = 350;
constexpr int kCollectionsTab = 0;
} // namespace

MRController::MRController(WindowEnvironment environment, QObject* parent)
    : QObject(parent), m_environment(environment), m_window(std::make_unique<MainWindow>())
{
    m_environment.utilities.bus().observe(base::MOSARO_NOTE_UPDATED_USER_DEFINED_BOOKMARKS, this,
                                          [this](const QVariant&) { updatedUserDefinedBookmarks(); });
    setupWindow();
}

MRController::~MRController() = default;

void MRController::setupWindow()
{
    m_splitView = new SplitView;
    m_window->setCentralWidget(m_splitView);
    m_environment.menus.prepareBasicMenus();
    m_environment.menus.installIn(*m_window->menuBar());
    m_progress = std::make_unique<kit::ProgressPanel>(*m_window);
    m_alertOverlay = std::make_unique<kit::SpinnerOverlay>(*m_window);
    m_modeOverlay = std::make_unique<kit::ModeOverlay>(*m_window);
    m_window->setShouldClose([this] { return windowShouldClose(); });
    connect(m_window.get(), &MainWindow::fullScreenChanged, this, &MRController::fullScreenChanged);
    m_window->placeAt(m_environment.defaults.string(base::MR_WINDOW_FRAME));
}

void MRController::showWindow()
{
    m_window->hide();
    if (m_mrLibraryView == nullptr) {
        m_mrLibraryView =
            new organisation::MRLibraryView({.library = m_environment.library,
                                             .defaults = m_environment.defaults,
                                             .prompts = m_environment.prompts,
                                             .platform = m_environment.platform,
                                             .utilities = m_environment.utilities,
                                             .classification = m_environment.classification,
                                             .isWindowBusy = [this] { return isBusy(); },
                                             .isCopyImageToLib = [this] { return isCopyImageToLib(); },
                                             .activateApplication = [this] { bringToFront(); },
                                             .progress = this});
        m_mrBrowerView = new browser::MRBrowserView(
            {.library = m_environment.library,
             .defaults = m_environment.defaults,
             .prompts = m_environment.prompts,
             .isBusy = [this] { return isBusy(); },
             .selectTabIndex = [this] { return selectTabIndex(); },
             .bus = m_environment.utilities.bus(),
             .allowedMedia = [this] { return m_environment.classification.allowedMedia(); }});
        makeInspector();
        m_splitView->setPanes(m_mrLibraryView, m_inspector);
        m_menus = std::make_unique<WindowMenus>(m_environment.menus, *this, *m_window, *m_mrLibraryView,
                                                *m_mrBrowerView, *m_inspector);
        connectPanes();
    }
    if (m_environment.defaults.contains(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR)) {
        hideSidebar(m_environment.defaults.boolean(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR), false);
    }
}

void MRController::makeInspector()
{
    base::ZNUserDefaults& defaults = m_environment.defaults;
    m_inspector =
        new InspectorPane(m_mrBrowerView, {m_environment.library, defaults, m_environment.utilities, this});
    m_inspector->setInspectorOpen(!defaults.boolean(base::PREFS_GLOBAL_COLLAPSED_INSPECTOR_IN_BROWSER, true));
    connect(m_inspector, &InspectorPane::inspectorToggled, this, [this, &defaults](bool open) {
        defaults.updateUserDefaults(base::PREFS_GLOBAL_COLLAPSED_INSPECTOR_IN_BROWSER, !open);
        m_mrBrowerView->sizeToFit();
    });
}

void MRController::connectPanes()
{
    connect(m_mrLibraryView, &organisation::MRLibraryView::selectionChanged, this,
            &MRController::selectLibrary);
    connect(m_mrBrowerView, &browser::MRBrowserView::itemFound, this, &MRController::findMedia);
    connect(m_window.get(), &MainWindow::becameKey, m_mrBrowerView, [this] { m_mrBrowerView->reload(); });
    connect(m_window.get(), &MainWindow::headDoubleClicked, this,
            [this] { m_environment.utilities.postNotification(base::MOSARO_NOTI_SCROLL_TO_TOP); });
    connect(m_window.get(), &MainWindow::resized, m_mrBrowerView, [this] { m_mrBrowerView->sizeToFit(); });
    connect(m_splitView, &SplitView::panesAdjusted, m_mrBrowerView, [this] { m_mrBrowerView->sizeToFit(); });
}

void MRController::setLibraryPath(const QString& path)
{
    m_libraryPath = path;
    if (path.isEmpty() || m_mrLibraryView == nullptr) {
        m_isLoadLibrary = false;
        return;
    }
    m_mrLibraryView->readLibrary();
    m_isLoadLibrary = m_environment.library.isOpenedDatabase();
    if (m_isLoadLibrary) {
        bringToFront();
        startFirstWork();
    }
}

void MRController::startFirstWork()
{
    if (m_environment.unattended) {
        checkLibraryVersion();
    } else if (m_environment.defaults.showGuide()) {
        QTimer::singleShot(kGuideDelay, this, &MRController::showGuidePage);
    } else {
        QTimer::singleShot(kVersionCheckDelay, this, &MRController::checkLibraryVersion);
    }
}

bool MRController::isBusy() const
{
    return m_isWorking || (m_mrLibraryView != nullptr && m_mrLibraryView->isBusy()) ||
           kit::Sheet::isAttachedTo(*m_window);
}

bool MRController::isOpenedImage() const
{
    return m_mrBrowerView != nullptr && m_mrBrowerView->isOpenedImage();
}

int MRController::selectTabIndex() const
{
    return m_mrLibraryView != nullptr ? m_mrLibraryView->currentSelectedTabIndex() : kCollectionsTab;
}

bool MRController::isWindowVisible() const
{
    return m_window->isVisible();
}

bool MRController::isFullScreen() const
{
    return m_window->isFullScreen();
}

QWidget& MRController::window() const
{
    return *m_window;
}

void MRController::bringToFront()
{
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    if (!m_environment.unattended) {
        m_window->raise();
        m_window->activateWindow();
    }
}

void MRController::performClose()
{
    m_window->close();
}

void MRController::toggleFullScreen()
{
    m_window->toggleFullScreen();
}

void MRController::selectLibrary()
{
    m_mrBrowerView->setPath(m_mrLibraryView->selectedPath());
    m_mrBrowerView->setSelectedCollections(m_mrLibraryView->selectedCollections());
    const store::MediaSet& media = m_mrLibraryView->selectedObjects();
    m_mrBrowerView->setMedia(media);
    m_mrBrowerView->setTotalFileSize(media.totalFileSize);
    m_mrBrowerView->sort();
}

void MRController::findMedia(const QString& mediaID, const QString& withCollection)
{
    if (m_mrLibraryView == nullptr || selectTabIndex() != kCollectionsTab) {
        return;
    }
    m_mrLibraryView->findCollectionItem(withCollection);
    m_mrBrowerView->findMediaItem(mediaID);
}

bool MRController::isHiddenSidebar() const
{
    return m_splitView->isSidebarHidden();
}

void MRController::toggleSplitView()
{
    hideSidebar(!isHiddenSidebar(), true);
}

void MRController::hideSidebar(bool hidden, bool animated)
{
    m_splitView->setSidebarHidden(hidden, animated);
    m_menus->updateSidebarTitle(hidden);
    m_mrBrowerView->keepSelection();
    m_environment.defaults.updateUserDefaults(base::PREFS_GLOBAL_COLLAPSED_SIDEBAR, hidden);
}

void MRController::fullScreenChanged(bool fullScreen)
{
    if (m_mrBrowerView != nullptr) {
        m_menus->updateFullScreenTitle(fullScreen);
        m_mrBrowerView->adjustViewsInFullscreen(fullScreen);
    }
}

void MRController::begin(const QString& text)
{
    bringToFront();
    m_progress->begin(text);
}

void MRController::update(const QString& text, int percent)
{
    m_progress->update(text, percent);
}

void MRController::end()
{
    m_progress->end();
}

void MRController::offerStop(const std::function<void()>& stop)
{
    m_progress->offerStop(stop);
}

void MRController::showAlertView(bool show, const QString& withMessage)
{
    m_isWorking = show;
    m_alertOverlay->showAlertView(show, withMessage);
}

void MRController::updateAlertViewMessage(const QString& message)
{
    m_alertOverlay->updateAlertViewMessage(message);
}

void MRController::showAlertMode(bool show, QWidget* withView)
{
    m_isWorking = show;
    m_modeOverlay->showAlertMode(show, withView);
}

void MRController::showGuidePage()
{
    auto* guide = new Guide;
    connect(guide, &Guide::finished, this, [this] {
        m_environment.defaults.updateUserDefaults(base::PREFS_GLOBAL_SHOW_GUIDE, false);
        showAlertMode(false, nullptr);
        QTimer::singleShot(kVersionCheckDelay, this, &MRController::checkLibraryVersion);
    });
    showAlertMode(true, guide);
    guide->showGuidePage();
}

void MRController::checkLibraryVersion()
{
    store::ZNDBManager& library = m_environment.library;
    if (!library.isOpenedDatabase()) {
        return;
    }
    startUserDefinedBookmarks(true);
    markExportPresetsUsed(library.state());
    updateVersionRecord(library.package(), base::ZNUserDefaults::applicationVersion());
}

void MRController::startUserDefinedBookmarks(bool start)
{
    store::ZNDBManager& library = m_environment.library;
    if (!library.isOpenedDatabase()) {
        return;
    }
    m_isImageCopyMode = imageCopyMode(library.package(), base::ZNUserDefaults::applicationVersion());
    if (start) {
        m_accessFolders.start(library.package(), *m_environment.platform.bookmarks);
    } else {
        m_accessFolders.stop();
    }
    if (m_mrBrowerView != nullptr) {
        m_mrBrowerView->reload();
    }
}

void MRController::updatedUserDefinedBookmarks()
{
    startUserDefinedBookmarks(false);
    startUserDefinedBookmarks(true);
}

bool MRController::windowShouldClose()
{
    if (isBusy()) {
        m_environment.prompts.beep();
        return false;
    }
    closeAtOnce();
    return true;
}

void MRController::closeAtOnce()
{
    const bool wasFullScreen = m_window->isFullScreen();
    m_environment.defaults.updateUserDefaults(base::MR_WINDOW_FRAME, m_window->frameText());
    startUserDefinedBookmarks(false);
    m_window->hide();
    closeLibrary();
    Q_EMIT closed();
    m_environment.utilities.postNotification(base::MOSARO_NOTI_CLOSE_PREFS_WINDOW);
    m_environment.defaults.updateUserDefaults(base::PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, wasFullScreen);
}

void MRController::closeLibrary()
{
    // The panes hold records, which must be gone before their store is.
    m_menus.reset();
    delete m_window->takeCentralWidget();
    m_splitView = nullptr;
    m_mrLibraryView = nullptr;
    m_mrBrowerView = nullptr;
    m_inspector = nullptr;
    m_isLoadLibrary = false;
    m_isWorking = false;
    m_environment.library.closeDatabase();
}

} // namespace mosaro::shell
