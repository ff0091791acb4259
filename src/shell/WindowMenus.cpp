#include "shell/WindowMenus.h"

#include "browser/ui/MRBrowserView.h"
#include "organisation/ui/MRLibraryView.h"
#include "shell/MRController.h"
#include "shell/MainWindow.h"
#include "store/MediaSet.h"

namespace mosaro::shell {

namespace {
constexpr double kZoomStep = 1.25;
constexpr MenuOwner kOwners[] = {MenuOwner::Library, MenuOwner::Browser, MenuOwner::Window,
                                 MenuOwner::TextFields};
constexpr int kLastSortKey = static_cast<int>(store::SortKey::DateLastOpened);
} // namespace

WindowMenus::WindowMenus(ZNMenuManager& menus, MRController& controller, MainWindow& window,
                         organisation::MRLibraryView& sidebar, browser::MRBrowserView& browser)
    : m_menus(menus), m_controller(controller), m_window(window), m_sidebar(sidebar), m_browser(browser),
      m_edit({[&browser] { browser.selectAll(); }, [&browser] { browser.selectNone(); }},
             {{&sidebar, [&sidebar](const QMimeData& data) { sidebar.paste(data); }},
              {&browser, [&browser](const QMimeData& data) { browser.paste(data); }}})
{
    setupMenuItems();
    connect(&browser, &browser::MRBrowserView::sortChanged, this, &WindowMenus::updateSortTicks);
    updateSortTicks();
}

WindowMenus::~WindowMenus()
{
    for (const MenuOwner owner : kOwners) {
        m_menus.removeMenuItems(owner);
    }
}

void WindowMenus::setupMenuItems()
{
    m_menus.setupMenuItems(MenuOwner::Library, {[this](const MenuRow& row) {
                                                    if (row.command == Command::Import) {
                                                        m_sidebar.importMedia();
                                                    } else {
                                                        m_sidebar.addCollectionItem(row.tag);
                                                    }
                                                },
                                                [this](const MenuRow& row) {
                                                    return !m_controller.isBusy() &&
                                                           m_sidebar.validateCommand(row.tag);
                                                }});
    m_menus.setupMenuItems(MenuOwner::Browser,
                           {[this](const MenuRow& row) { performInBrowser(row); },
                            [this](const MenuRow& row) { return validateInBrowser(row); }});
    m_menus.setupMenuItems(MenuOwner::Window, {[this](const MenuRow& row) { performInWindow(row); },
                                               [this](const MenuRow& row) {
                                                   return row.command != Command::CloseWindow ||
                                                          !m_controller.isBusy();
                                               }});
    m_menus.setupMenuItems(MenuOwner::TextFields,
                           {[this](const MenuRow& row) { m_edit.perform(row.command); },
                            [this](const MenuRow& row) { return m_edit.validate(row.command); }});
}

void WindowMenus::performInBrowser(const MenuRow& row)
{
    switch (row.command) {
    case Command::ToggleSidebar:
        return m_controller.toggleSplitView();
    case Command::RatingImages:
        return m_browser.ratingImages(row.tag);
    case Command::SortMedia:
        return m_browser.sortMedia(row.tag);
    case Command::AscendOrDescendMedia:
        return m_browser.ascendOrDescendMedia(row.tag);
    case Command::ZoomIn:
        return m_browser.zoomBy(kZoomStep);
    case Command::ZoomOut:
        return m_browser.zoomBy(1 / kZoomStep);
    default:
        break;
    }
}

bool WindowMenus::validateInBrowser(const MenuRow& row) const
{
    if (row.command == Command::RatingImages) {
        return !m_controller.isBusy() && m_browser.selectedCount() > 0;
    }
    return row.command == Command::None || !m_controller.isBusy();
}

void WindowMenus::performInWindow(const MenuRow& row)
{
    switch (row.command) {
    case Command::CloseWindow:
        m_window.close();
        break;
    case Command::FullScreen:
        m_window.toggleFullScreen();
        break;
    case Command::Minimize:
        m_window.showMinimized();
        break;
    default:
        break;
    }
}

void WindowMenus::updateSortTicks()
{
    for (int key = 0; key <= kLastSortKey; ++key) {
        m_menus.setChecked(Command::SortMedia, kFirstSortTag + key, m_browser.currentSortKey() == key);
    }
    m_menus.setChecked(Command::AscendOrDescendMedia, kAscendingTag, m_browser.currentAscending());
    m_menus.setChecked(Command::AscendOrDescendMedia, kDescendingTag, !m_browser.currentAscending());
}

void WindowMenus::updateSidebarTitle(bool hidden)
{
    m_menus.setMenuItemTitle(hidden ? "Basic.Show.Sidebar" : "Basic.Hide.Sidebar", Command::ToggleSidebar);
}

void WindowMenus::updateFullScreenTitle(bool fullScreen)
{
    m_menus.setMenuItemTitle(fullScreen ? "View.Exit.Full.Screen" : "View.Enter.Full.Screen",
                             Command::FullScreen);
}

} // namespace mosaro::shell
