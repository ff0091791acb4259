#pragma once

#include "base/Ports.h"
#include "shell/AccessFolders.h"

#include <QObject>
#include <memory>

class QWidget;

namespace mosaro::base {
class ZNUserDefaults;
class ZNUtilities;
} // namespace mosaro::base
namespace mosaro::browser {
class MRBrowserView;
}
namespace mosaro::importing {
class MediaClassification;
}
namespace mosaro::kit {
class ModeOverlay;
class ProgressPanel;
class SpinnerOverlay;
} // namespace mosaro::kit
namespace mosaro::organisation {
class MRLibraryView;
}
namespace mosaro::platform {
struct Platform;
}
namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::shell {

class InspectorPane;
class MainWindow;
class SplitView;
class WindowMenus;
class ZNMenuManager;

/// What the main window works with; all outlive it.
struct WindowEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
    base::ZNUtilities& utilities;
    base::Prompts& prompts;
    platform::Platform& platform;
    const importing::MediaClassification& classification;
    ZNMenuManager& menus;
    /// No guide, no delays and nobody to come to the front for: the picture of the window is made.
    bool unattended = false;
};

/// The main window: sidebar and browser side by side, connected through the selection, and what blocks them
/// during long work. Lives as long as one opened library; closed() is its last word.
class MRController : public QObject, public base::BusyGate, public base::ProgressSink {
    Q_OBJECT

public:
    explicit MRController(WindowEnvironment environment, QObject* parent = nullptr);
    ~MRController() override;

    /// Makes the panes; the window becomes visible at the end of setLibraryPath().
    void showWindow();
    /// Starts the use of an opened library; an empty path ends it.
    void setLibraryPath(const QString& path);
    [[nodiscard]] const QString& libraryPath() const { return m_libraryPath; }

    [[nodiscard]] bool controllerDidLoad() const { return m_isLoadLibrary; }
    /// An overlay is up, an import runs, or a sheet is attached to the window.
    [[nodiscard]] bool isBusy() const override;
    [[nodiscard]] bool isOpenedImage() const;
    [[nodiscard]] bool isCopyImageToLib() const { return m_isImageCopyMode; }
    [[nodiscard]] int selectTabIndex() const;
    [[nodiscard]] bool isWindowVisible() const;
    [[nodiscard]] bool isFullScreen() const;
    [[nodiscard]] QWidget& window() const;
    /// Null before showWindow().
    [[nodiscard]] organisation::MRLibraryView* libraryView() const { return m_mrLibraryView; }
    [[nodiscard]] browser::MRBrowserView* browserView() const { return m_mrBrowerView; }

    void bringToFront();
    /// As the window's close button; refused with a beep while busy.
    void performClose();
    /// Closes window and library whatever goes on; an import ends at the item that it has saved last.
    void closeAtOnce();
    void toggleFullScreen();

    /// Pushes the sidebar's selection into the browser.
    void selectLibrary();
    /// Selects a collection and an item in it, on the collections tab only.
    void findMedia(const QString& mediaID, const QString& withCollection);

    [[nodiscard]] bool isHiddenSidebar() const;
    void toggleSplitView();

    // The progress panel, a sheet on the window.
    void begin(const QString& text) override;
    void update(const QString& text, int percent) override;
    void end() override;
    void offerStop(const std::function<void()>& stop) override;
    /// A spinner over the whole window, with a line of text when one is given.
    void showAlertView(bool show, const QString& withMessage);
    void updateAlertViewMessage(const QString& message);
    /// An overlay over the whole window that takes and hosts the view, or takes it away.
    void showAlertMode(bool show, QWidget* withView);

    /// Brings what an older version wrote up to date.
    void checkLibraryVersion();
    /// Starts or stops the access to the folders that the library's user gave access to.
    void startUserDefinedBookmarks(bool start);

Q_SIGNALS:
    /// The window is closed and the library with it; the object is to be destroyed.
    void closed();

private:
    void setupWindow();
    void connectPanes();
    void makeInspector();
    void hideSidebar(bool hidden, bool animated);
    void startFirstWork();
    void showGuidePage();
    void updatedUserDefinedBookmarks();
    void fullScreenChanged(bool fullScreen);
    [[nodiscard]] bool windowShouldClose();
    void closeLibrary();

    WindowEnvironment m_environment;
    std::unique_ptr<MainWindow> m_window;
    SplitView* m_splitView = nullptr;
    organisation::MRLibraryView* m_mrLibraryView = nullptr;
    browser::MRBrowserView* m_mrBrowerView = nullptr;
    InspectorPane* m_inspector = nullptr;
    std::unique_ptr<WindowMenus> m_menus;
    std::unique_ptr<kit::SpinnerOverlay> m_alertOverlay;
    std::unique_ptr<kit::ModeOverlay> m_modeOverlay;
    std::unique_ptr<kit::ProgressPanel> m_progress;
    AccessFolders m_accessFolders;
    QString m_libraryPath;
    bool m_isLoadLibrary = false;
    bool m_isWorking = false;
    bool m_isImageCopyMode = true;
};

} // namespace mosaro::shell
