#pragma once

#include <span>

namespace mosaro::shell {

/// The top-level menus, in order, then the submenus.
enum class MenuId { Mosaro, File, Edit, View, Window, Help, BrowserView, Inspector };
inline constexpr int kTopLevelMenus = 6;
inline constexpr int kMenus = 8;

/// Who answers for an item. An item shows once its owner has attached itself; it is disabled when the owner
/// goes.
enum class MenuOwner {
    Application,
    Library,
    SmartCollections,
    Tags,
    Search,
    Tabs,
    Browser,
    Inspector,
    TagInspector,
    Viewer,
    Export,
    Window,
    Mini,
    TextFields
};

enum class Command {
    None, ///< A separator, a header or the title of a submenu.
    ShowAbout,
    ShowPreferences,
    Quit,
    AddCollectionItem,
    AddTag,
    CloseWindow,
    SwitchToLibrary,
    Import,
    Export,
    NoLibrary,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    SelectNone,
    Find,
    ChangeCollection,
    ToggleSidebar,
    RatingImages,
    SortMedia,
    AscendOrDescendMedia,
    ToggleInspector,
    SelectInspectorTab,
    ActualSize,
    ZoomToFit,
    ZoomIn,
    ZoomOut,
    FullScreen,
    Minimize,
    ShowMosaro,
    ToggleMiniWindow,
    ShowHelp,
    ReleaseNotes,
    Feedback,
    FollowTwitter,
    Website
};

enum class RowKind { Item, Check, Separator, Header, Submenu };

/// One item at its fixed position. Tags are protocol: commands read their variant from them.
struct MenuRow {
    MenuId menu;
    int position;
    RowKind kind;
    const char* key; ///< Key of the title; null for a separator and for the star ratings.
    Command command = Command::None;
    MenuOwner owner = MenuOwner::Application;
    int tag = -1;
    const char* shortcut = nullptr;  ///< As QKeySequence writes it; several are separated by "; ".
    MenuId submenu = MenuId::Mosaro; ///< Only for RowKind::Submenu.
};

[[nodiscard]] std::span<const MenuRow> menuTable();
[[nodiscard]] const char* menuTitleKey(MenuId menu);

inline constexpr int kMiniWindowTag = 1000;
inline constexpr int kImportTag = 2000;
inline constexpr int kExportTag = 2001;
inline constexpr int kFirstSortTag = 23;
inline constexpr int kTagInspectorTag = 1;
inline constexpr int kAscendingTag = 33;
inline constexpr int kDescendingTag = 34;

} // namespace mosaro::shell
