#pragma once

#include "shell/EditCommands.h"
#include "shell/ZNMenuManager.h"

#include <QAction>
#include <QPointer>
#include <memory>
#include <vector>

namespace mosaro::browser {
class MRBrowserView;
}
namespace mosaro::organisation {
class MRLibraryView;
}

namespace mosaro::shell {

class MainWindow;
class InspectorPane;
class MRController;

/// Wires the menu items of the main window's objects for as long as it lives, and keeps their ticks and
/// titles.
class WindowMenus : public QObject {
    Q_OBJECT

public:
    WindowMenus(ZNMenuManager& menus, MRController& controller, MainWindow& window,
                organisation::MRLibraryView& sidebar, browser::MRBrowserView& browser,
                InspectorPane& inspector);
    ~WindowMenus() override;

    void updateSidebarTitle(bool hidden);
    void updateFullScreenTitle(bool fullScreen);

private:
    void setupMenuItems();
    void setupLabelRow();
    void setupTagItems();
    void performInBrowser(const MenuRow& row);
    void performInWindow(const MenuRow& row);
    [[nodiscard]] bool validateInBrowser(const MenuRow& row) const;
    void updateSortTicks();
    void updateViewMenuItems(int tab);

    ZNMenuManager& m_menus;
    MRController& m_controller;
    MainWindow& m_window;
    organisation::MRLibraryView& m_sidebar;
    browser::MRBrowserView& m_browser;
    InspectorPane& m_inspector;
    EditCommands m_edit;
    std::vector<std::unique_ptr<QAction>> m_labelRow; ///< A separator and the row.
};

} // namespace mosaro::shell
