#pragma once

#include "shell/EditCommands.h"
#include "shell/ZNMenuManager.h"

#include <QPointer>

namespace mosaro::browser {
class MRBrowserView;
}
namespace mosaro::organisation {
class MRLibraryView;
}

namespace mosaro::shell {

class MainWindow;
class MRController;

/// Wires the menu items of the main window's objects for as long as it lives, and keeps their ticks and
/// titles.
class WindowMenus : public QObject {
    Q_OBJECT

public:
    WindowMenus(ZNMenuManager& menus, MRController& controller, MainWindow& window,
                organisation::MRLibraryView& sidebar, browser::MRBrowserView& browser);
    ~WindowMenus() override;

    void updateSidebarTitle(bool hidden);
    void updateFullScreenTitle(bool fullScreen);

private:
    void setupMenuItems();
    void performInBrowser(const MenuRow& row);
    void performInWindow(const MenuRow& row);
    [[nodiscard]] bool validateInBrowser(const MenuRow& row) const;
    void updateSortTicks();

    ZNMenuManager& m_menus;
    MRController& m_controller;
    MainWindow& m_window;
    organisation::MRLibraryView& m_sidebar;
    browser::MRBrowserView& m_browser;
    EditCommands m_edit;
};

} // namespace mosaro::shell
