#include "shell/MenuTable.h"

#include <array>

namespace mosaro::shell {

namespace {

using enum MenuId;
using enum RowKind;
using C = Command;
using O = MenuOwner;

// clang-format off
constexpr std::array kRows{
    MenuRow{Mosaro, 0, Item, "Menu.About", C::ShowAbout},
    MenuRow{Mosaro, 1, Separator, nullptr},
    MenuRow{Mosaro, 2, Item, "Menu.Quit", C::Quit, O::Application, -1, "Ctrl+Q"},

    MenuRow{File, 0, Item, "File.New.Collection", C::AddCollectionItem, O::Library, 0, "Ctrl+N"},
    MenuRow{File, 1, Item, "File.New.SmartCollection", C::AddCollectionItem, O::SmartCollections, 1, "Ctrl+Alt+N"},
    MenuRow{File, 2, Item, "File.New.Folder", C::AddCollectionItem, O::Library, 2, "Ctrl+Shift+N"},
    MenuRow{File, 3, Item, "File.New.Tag", C::AddTag, O::Tags, 3, "Ctrl+Shift+T"},
    MenuRow{File, 4, Separator, nullptr},
    MenuRow{File, 5, Item, "File.Close.Window", C::CloseWindow, O::Window, -1, "Ctrl+W"},
    MenuRow{File, 6, Separator, nullptr},
    MenuRow{File, 7, Item, "File.Switch.To.Library", C::SwitchToLibrary, O::Application, -1, "Ctrl+O"},
    MenuRow{File, 8, Separator, nullptr},
    MenuRow{File, 9, Item, "File.Import", C::Import, O::Library, kImportTag, "Ctrl+I"},
    MenuRow{File, 10, Item, "File.Export", C::Export, O::Export, kExportTag, "Ctrl+E"},
    MenuRow{File, 11, Item, "Basic.No.Library", C::NoLibrary},

    MenuRow{Edit, 0, Item, "Menu.Undo", C::Undo, O::TextFields, -1, "Ctrl+Z"},
    MenuRow{Edit, 1, Item, "Menu.Redo", C::Redo, O::TextFields, -1, "Ctrl+Shift+Z"},
    MenuRow{Edit, 2, Separator, nullptr},
    MenuRow{Edit, 3, Item, "Menu.Cut", C::Cut, O::TextFields, -1, "Ctrl+X"},
    MenuRow{Edit, 4, Item, "Menu.Copy", C::Copy, O::TextFields, -1, "Ctrl+C"},
    MenuRow{Edit, 5, Item, "Menu.Paste", C::Paste, O::TextFields, -1, "Ctrl+V"},
    MenuRow{Edit, 6, Item, "Menu.Select.All", C::SelectAll, O::TextFields, -1, "Ctrl+A"},
    MenuRow{Edit, 7, Item, "Menu.Select.None", C::SelectNone, O::TextFields, -1, "Ctrl+Shift+A"},
    MenuRow{Edit, 8, Separator, nullptr},
    MenuRow{Edit, 9, Item, "Basic.Find", C::Find, O::Search, -1, "Ctrl+F"},

    MenuRow{View, 0, Check, "View.Collections", C::ChangeCollection, O::Tabs, 0, "Ctrl+1"},
    MenuRow{View, 1, Check, "View.Tags", C::ChangeCollection, O::Tabs, 1, "Ctrl+2"},
    MenuRow{View, 2, Check, "View.Colors", C::ChangeCollection, O::Tabs, 2, "Ctrl+3"},
    MenuRow{View, 3, Separator, nullptr},
    MenuRow{View, 4, Item, "Basic.Hide.Sidebar", C::ToggleSidebar, O::Browser, -1, "Ctrl+\\"},
    MenuRow{View, 5, Submenu, "View.BrowserView", C::None, O::Browser, -1, nullptr, BrowserView},
    MenuRow{View, 6, Submenu, "View.Inspector", C::None, O::TagInspector, -1, nullptr, Inspector},
    MenuRow{View, 7, Separator, nullptr},
    MenuRow{View, 8, Item, "View.Actual.Size", C::ActualSize, O::Viewer, -1, "Ctrl+0"},
    MenuRow{View, 9, Item, "View.Zoom.To.Fit", C::ZoomToFit, O::Viewer, -1, "Ctrl+9"},
    MenuRow{View, 10, Item, "View.Zoom.In", C::ZoomIn, O::Browser, -1, "Ctrl++; Ctrl+="},
    MenuRow{View, 11, Item, "View.Zoom.Out", C::ZoomOut, O::Browser, -1, "Ctrl+-"},
    MenuRow{View, 12, Separator, nullptr},
    MenuRow{View, 13, Item, "View.Enter.Full.Screen", C::FullScreen, O::Window, -1, "F11; Ctrl+Shift+F"},

    MenuRow{Window, 0, Item, "Window.Minimize", C::Minimize, O::Window, -1, "Ctrl+M"},
    MenuRow{Window, 1, Separator, nullptr},
    MenuRow{Window, 2, Item, "Window.Mosaro", C::ShowMosaro},
    MenuRow{Window, 3, Separator, nullptr},
    MenuRow{Window, 4, Item, "Window.Mosaro.Mini", C::ToggleMiniWindow, O::Mini, kMiniWindowTag, "Ctrl+Shift+M"},

    MenuRow{Help, 0, Item, "Help.Mosaro", C::ShowHelp, O::Application, -1, "F1"},
    MenuRow{Help, 1, Separator, nullptr},
    MenuRow{Help, 2, Item, "Help.ReleaseNotes", C::ReleaseNotes},
    MenuRow{Help, 3, Item, "Help.Feedback", C::Feedback},
    MenuRow{Help, 4, Item, "Help.Twitter", C::FollowTwitter},
    MenuRow{Help, 5, Item, "Help.WebSite", C::Website},

    MenuRow{BrowserView, 0, Header, "CX.Rating", C::None, O::Browser, 100},
    MenuRow{BrowserView, 1, Item, "Basic.None", C::RatingImages, O::Browser, 0},
    MenuRow{BrowserView, 2, Item, nullptr, C::RatingImages, O::Browser, 1},
    MenuRow{BrowserView, 3, Item, nullptr, C::RatingImages, O::Browser, 2},
    MenuRow{BrowserView, 4, Item, nullptr, C::RatingImages, O::Browser, 3},
    MenuRow{BrowserView, 5, Item, nullptr, C::RatingImages, O::Browser, 4},
    MenuRow{BrowserView, 6, Item, nullptr, C::RatingImages, O::Browser, 5},
    MenuRow{BrowserView, 7, Separator, nullptr},
    MenuRow{BrowserView, 8, Header, "CX.Sort.By", C::None, O::Browser, 8},
    MenuRow{BrowserView, 9, Check, "CX.Sort.Title", C::SortMedia, O::Browser, 23},
    MenuRow{BrowserView, 10, Check, "CX.Sort.FileSize", C::SortMedia, O::Browser, 24},
    MenuRow{BrowserView, 11, Check, "CX.Sort.Rating", C::SortMedia, O::Browser, 25},
    MenuRow{BrowserView, 12, Check, "CX.Sort.Width", C::SortMedia, O::Browser, 26},
    MenuRow{BrowserView, 13, Check, "CX.Sort.Height", C::SortMedia, O::Browser, 27},
    MenuRow{BrowserView, 14, Check, "CX.Sort.Date.Created", C::SortMedia, O::Browser, 28},
    MenuRow{BrowserView, 15, Check, "CX.Sort.Date.Modified", C::SortMedia, O::Browser, 29},
    MenuRow{BrowserView, 16, Check, "CX.Sort.Date.Imported", C::SortMedia, O::Browser, 30},
    MenuRow{BrowserView, 17, Check, "CX.Sort.Last.Opened", C::SortMedia, O::Browser, 31},
    MenuRow{BrowserView, 18, Separator, nullptr},
    MenuRow{BrowserView, 19, Check, "CX.Sort.Ascending", C::AscendOrDescendMedia, O::Browser, kAscendingTag},
    MenuRow{BrowserView, 20, Check, "CX.Sort.Descending", C::AscendOrDescendMedia, O::Browser, kDescendingTag},

    MenuRow{Inspector, 0, Item, "View.Show.Inspector", C::ToggleInspector, O::Inspector, -1, "Ctrl+Alt+I"},
    MenuRow{Inspector, 1, Separator, nullptr},
    MenuRow{Inspector, 2, Item, "View.Show.General.Inspector", C::SelectInspectorTab, O::Inspector, 0},
    MenuRow{Inspector, 3, Check, "View.Show.Tag.Inspector", C::SelectInspectorTab, O::TagInspector, kTagInspectorTag, "Ctrl+T"},
    MenuRow{Inspector, 4, Item, "View.Show.Filter.Inspector", C::SelectInspectorTab, O::Inspector, 2},
};
// clang-format on

} // namespace

std::span<const MenuRow> menuTable()
{
    return kRows;
}

const char* menuTitleKey(MenuId menu)
{
    switch (menu) {
    case Mosaro:
        return "Menu.Mosaro";
    case File:
        return "Menu.File";
    case Edit:
        return "Menu.Edit";
    case View:
        return "Menu.View";
    case Window:
        return "Menu.Window";
    case Help:
        return "Menu.Help";
    case BrowserView:
        return "View.BrowserView";
    case Inspector:
        return "View.Inspector";
    }
    return "";
}

} // namespace mosaro::shell
