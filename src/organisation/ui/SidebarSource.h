#pragma once

#include "store/MediaSet.h"
#include "store/SelectionElement.h"

#include <QWidget>
#include <vector>

class QMenu;

namespace mosaro::organisation {

/// One tab of the sidebar. The sidebar installs the view of one source at a time, and only that one's
/// selection reaches the browser.
class SidebarSource {
public:
    virtual ~SidebarSource() = default;

    virtual void reload() = 0;
    /// Runs the selection again.
    virtual void updateSelection() = 0;
    [[nodiscard]] const store::MediaSet& selectedObjects() const { return m_selectedMedia; }
    [[nodiscard]] virtual std::vector<store::SelectionElement> selectedCollection() const = 0;
    /// The menu of the action button.
    [[nodiscard]] virtual QMenu& contextualMenu() = 0;
    /// What the sidebar installs; it takes the keyboard.
    [[nodiscard]] virtual QWidget& contentView() = 0;

    /// This tab is the one on show.
    [[nodiscard]] bool isInstalled() { return !contentView().isHidden(); }

protected:
    store::MediaSet m_selectedMedia; ///< The items of what is selected.
};

} // namespace mosaro::organisation
