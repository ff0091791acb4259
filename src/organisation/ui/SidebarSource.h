#pragma once

#include "store/MediaSet.h"
#include "store/SelectionElement.h"

#include <vector>

class QMenu;
class QWidget;

namespace mosaro::organisation {

/// One tab of the sidebar. The sidebar installs the view of one source at a time, and only that one's
/// selection reaches the browser.
class SidebarSource {
public:
    virtual ~SidebarSource() = default;

    virtual void reload() = 0;
    /// Runs the selection again.
    virtual void updateSelection() = 0;
    [[nodiscard]] virtual const store::MediaSet& selectedObjects() const = 0;
    [[nodiscard]] virtual std::vector<store::SelectionElement> selectedCollection() const = 0;
    /// The menu of the action button.
    [[nodiscard]] virtual QMenu& contextualMenu() = 0;
    /// What the sidebar installs; it takes the keyboard.
    [[nodiscard]] virtual QWidget& contentView() = 0;
};

} // namespace mosaro::organisation
