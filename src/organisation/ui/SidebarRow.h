#pragma once

#include <QRect>

class QAbstractItemView;
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

} // namespace mosaro::organisation
