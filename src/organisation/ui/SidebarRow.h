#pragma once

#include <QRect>

class QAbstractItemView;
class QHelpEvent;
class QPainter;

namespace mosaro::organisation {

/// How a row stands in its list.
struct SidebarRowState {
    bool isSelected = false;
    bool isCurrent = false;
    bool isDropTarget = false;
    bool isEditing = false; ///< A title of the list is being edited.
};

/// The ground of a row of the sidebar: the plate of a selected one, the ring of where the keyboard or a drop
/// is.
void paintRowGround(QPainter& painter, const QRect& row, const QAbstractItemView& list,
                    const SidebarRowState& state);

/// What stands in the middle of a list without rows, on a box; nothing for an empty text.
void paintGuide(QPainter& painter, const QAbstractItemView& list, const QString& text);

/// Shows the whole title as a tool tip where the row has no room for it; false where it has.
bool showCutTitle(const QHelpEvent& event, QAbstractItemView& list, const QRect& row, const QString& title,
                  int width);

/// The size of the titles in all lists.
inline constexpr double kTitleSize = 13;

} // namespace mosaro::organisation
