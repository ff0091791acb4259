#include "shell/WindowMenus.h"

#include "browser/ui/MRBrowserView.h"
#include "kit/ZNFlatUIKitLabelView.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/SidebarTabs.h"
#include "shell/InspectorPane.h"
#include "shell/MRController.h"
#include "shell/MainWindow.h"
#include "store/MediaSet.h"

#include <QMenu>

namespace mosaro::shell {

namespace {
constexpr double kZoomStep = 1.25;
constexpr MenuOwner kOwners[] = {MenuOwner::Library,    MenuOwner::Browser,     MenuOwner::Window,
                                 MenuOwner::TextFields, MenuOwner::Tabs,        MenuOwner::Search,
                                 MenuOwner::Tags,       MenuOwner::TagInspector};
constexpr int kLastSortKey = static_cast<int>(store::SortKey::DateLastOpened);
} // namespace

WindowMenus::WindowMenus(ZNMenuManager& menus, MRController& controller, MainWindow& window,
                         organisation::MRLibraryView& sidebar, browser::MRBrowserView& browser,
                         InspectorPane& inspector)
    : m_menus(menus), m_controller(controller), m_window(window), m_sidebar(sidebar), m_browser(browser),
      m_inspector(inspector),
      m_edit({[&browser] { browser.selectAll(); }, [&browser] { browser.selectNone(); }},
             {{&sidebar, [&sidebar](const QMimeData& data) { sidebar.paste(data); }},
              {&browser, [&browser](const QMimeData& data) { browser.paste(data); }}})
{
    setupMenuItems();
    setupLabelRow();
    setupTagItems();
    connect(&sidebar, &organisation::MRLibraryView::tabChanged, this, &WindowMenus::updateViewMenuItems);
    updateViewMenuItems(sidebar.currentSelectedTabIndex());
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
    m_menus.setupMenuItems(
        MenuOwner::Library,
        {[this](const MenuRow& row) {
             if (row.command == Command::Import) {
                 m_sidebar.importMedia();
             } else {
                 m_sidebar.addCollectionItem(row.tag);
             }
         },
         [this](const MenuRow& row) { return !m_controller.isBusy() && m_sidebar.validateCommand(row.tag); },
         [this](MenuId menu) {
             if (menu == MenuId::File) {
                 m_sidebar.menuWillOpen();
             }
         }});
    if (m_sidebar.hasSmartCollectionSheet()) {
        m_menus.setupMenuItems(MenuOwner::SmartCollections,
                               {[this](const MenuRow& row) { m_sidebar.addCollectionItem(row.tag); },
                                [this](const MenuRow& row) {
                                    return !m_controller.isBusy() && m_sidebar.validateCommand(row.tag);
                                }});
    }
    m_menus.setupMenuItems(MenuOwner::Browser,
                           {[this](const MenuRow& row) { performInBrowser(row); },
                            [this](const MenuRow& row) { return validateInBrowser(row); }});
    m_menus.setupMenuItems(MenuOwner::Window, {[this](const MenuRow& row) { performInWindow(row); },
                                               [this](const MenuRow& row) {
                                                   return row.command != Command::CloseWindow ||
                                                          !m_controller.isBusy();
                                               }});
    m_menus.setupMenuItems(MenuOwner::Tabs,
                           {[this](const MenuRow& row) { m_sidebar.changeCollection(row.tag); },
                            [this](const MenuRow&) { return !m_controller.isBusy(); }});
    m_menus.setupMenuItems(MenuOwner::Search, {[this](const MenuRow&) { m_browser.findMedia(); },
                                               [this](const MenuRow&) {
                                                   return !m_controller.isBusy() &&
                                                          m_controller.selectTabIndex() ==
                                                              organisation::kCollectionsTab;
                                               }});
    m_menus.setupMenuItems(MenuOwner::TextFields,
                           {[this](const MenuRow& row) { m_edit.perform(row.command); },
                            [this](const MenuRow& row) { return m_edit.validate(row.command); }});
}

/// New tags, and the panel that assigns them.
void WindowMenus::setupTagItems()
{
    m_menus.setupMenuItems(MenuOwner::Tags, {[this](const MenuRow&) { m_sidebar.addTag(); },
                                             [this](const MenuRow&) {
                                                 return !m_controller.isBusy() && m_sidebar.validateAddTag();
                                             }});
    const auto toggle = [this](const MenuRow&) {
        if (m_inspector.isOpenedInspector()) {
            m_inspector.setInspectorOpen(false);
        } else {
            m_inspector.showTagView();
        }
    };
    m_menus.setupMenuItems(MenuOwner::TagInspector,
                           {toggle, [this](const MenuRow& row) {
                                return row.command == Command::None ||
                                       (!m_controller.isBusy() &&
                                        (m_inspector.isOpenedInspector() || m_browser.selectedCount() > 0));
                            }});
    const auto tick = [this](bool open) {
        m_menus.setChecked(Command::SelectInspectorTab, kTagInspectorTag, open);
    };
    connect(&m_inspector, &InspectorPane::inspectorToggled, this, tick);
    tick(m_inspector.isOpenedInspector());
}

/// The last row of the File menu, which stands there as long as the window has a library.
void WindowMenus::setupLabelRow()
{
    QMenu& menu = *m_menus.menu(MenuId::File);
    m_labelRow.emplace_back(menu.addSeparator());
    m_labelRow.emplace_back(kit::addLabelRow(menu, m_sidebar.makeFileLabelView()));
    connect(
        &menu, &QMenu::aboutToHide, this, [this] { m_sidebar.menuDidClose(); }, Qt::QueuedConnection);
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
    switch (row.command) {
    case Command::None:
        return true;
    case Command::RatingImages:
        return !m_controller.isBusy() && m_browser.selectedCount() > 0;
    case Command::SortMedia:
    case Command::AscendOrDescendMedia:
        return !m_controller.isBusy() && m_browser.itemCount() > 0;
    default:
        return !m_controller.isBusy();
    }
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

void WindowMenus::updateViewMenuItems(int tab)
{
    m_menus.uncheckAllMenuItems(MenuOwner::Tabs);
    m_menus.setChecked(Command::ChangeCollection, tab, true);
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
