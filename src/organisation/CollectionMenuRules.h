#pragma once

#include "organisation/TreeWalk.h"

namespace mosaro::organisation {

/// Tags of the commands in menus.
enum class SidebarCommand {
    NewCollection = 0,
    NewSmartCollection = 1,
    NewFolder = 2,
    Edit = 7,
    Delete = 8,
    Import = 2000,
    Export = 2001
};

/// What looking at one command does to the label rows of its menu.
enum class LabelRows { Off, On, Unchanged };

struct MenuVerdict {
    bool isOn = false;
    LabelRows labelRows = LabelRows::Off;
};

/// Whether a command makes sense for a selection.
[[nodiscard]] MenuVerdict validateMenuItem(SidebarCommand command, const NodeList& selected);
/// Whether the label rows can be used after all commands of a menu were looked at.
[[nodiscard]] bool areLabelRowsOn(const NodeList& selected);

/// "Edit", or what that does with the one selected node, with its title.
[[nodiscard]] QString editTitle(const NodeList& selected);
/// The labels that occur in a selection as decimal texts, each once, the first node's first.
[[nodiscard]] QStringList labelsOf(const NodeList& selected);

} // namespace mosaro::organisation
