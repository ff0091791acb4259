#pragma once

#include "shell/LaunchOptions.h"
#include "shell/Lifecycle.h"
#include "shell/MRController.h"
#include "shell/MenuTable.h"

#include <QObject>
#include <QUrl>
#include <functional>
#include <memory>

namespace mosaro::shell {

class ChooserWindow;
class LoadingPanel;
enum class HelpTopic;

/// Owner of what lives between libraries: the chooser, the loading panel, the order of start and end. The
/// main window comes and goes with each opened library.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    AppDelegate(WindowEnvironment environment, LaunchOptions options, QObject* parent = nullptr);
    ~AppDelegate() override;

    /// The start, up to where the event loop takes over.
    void start();

    /// The window's controller; made anew when there is none.
    [[nodiscard]] MRController& sharedController();
    [[nodiscard]] bool hasController() const { return m_controller != nullptr; }
    [[nodiscard]] Standing standing() const;

    void openDatabase();
    void showChooseLibraryWindow();
    void showMRWindowWithLibrary(const QString& path);
    void showMosaro();
    void quitMosaro();
    /// The desktop session ends: what stands is written down, and nobody is asked.
    void endSession();
    /// A second start of the program.
    void applicationShouldHandleReopen();
    void startUserDefinedBookmarks();

    /// Replaces what opens outside addresses; it answers whether it could.
    void setOpenAddress(std::function<bool(const QUrl&)> open) { m_openAddress = std::move(open); }

Q_SIGNALS:
    /// A library is open and about to be shown.
    void libraryOpened();
    /// A library is shown in the main window.
    void libraryShown();

private:
    void initialize();
    void awakeFromNib();
    void applicationDidFinishLaunching();
    void applicationWillTerminate();
    void openDatabaseAfterDelay();
    [[nodiscard]] bool openLibrary();
    void chooseLibAction(bool create);
    void closeMRWindow();
    void showDatabaseError();
    void showAbout();
    void showHelpAddress(HelpTopic topic);
    void performMenuItem(const MenuRow& row);
    [[nodiscard]] bool validate(const MenuRow& row) const;
    void controllerClosed();
    void activate(QWidget& window);

    WindowEnvironment m_environment;
    LaunchOptions m_options;
    std::unique_ptr<MRController> m_controller;
    std::unique_ptr<ChooserWindow> m_chooserWindow;
    std::unique_ptr<LoadingPanel> m_loadingPanel;
    std::function<bool(const QUrl&)> m_openAddress;
    QString m_namedLibrary; ///< To be opened instead of the remembered one, once.
};

} // namespace mosaro::shell
