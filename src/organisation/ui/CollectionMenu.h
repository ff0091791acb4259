#pragma once

#include "organisation/CollectionMenuRules.h"

#include <QMenu>
#include <functional>

namespace mosaro::kit {
class ZNFlatUIKitLabelView;
}

namespace mosaro::organisation {

/// The menu of the collection tree, for the right click and the action button alike: the commands at their
/// positions, and a row of labels.
class CollectionMenu : public QMenu {
    Q_OBJECT

public:
    /// What the menu asks at the moment it opens.
    struct Questions {
        std::function<bool(SidebarCommand)> exists; ///< Commands that do not are not shown.
        std::function<bool(SidebarCommand)> isPossible;
        std::function<QString()> editTitle;
    };
    CollectionMenu(Questions questions, QWidget* parent);

    [[nodiscard]] kit::ZNFlatUIKitLabelView& labelRow() const { return *m_labelRow; }

Q_SIGNALS:
    /// Before the commands are looked at.
    void willOpen();
    void didClose();
    void chosen(mosaro::organisation::SidebarCommand command);

private:
    void addCommand(SidebarCommand command, const char* key);
    void validate();

    Questions m_questions;
    std::vector<std::pair<SidebarCommand, QAction*>> m_commands;
    kit::ZNFlatUIKitLabelView* m_labelRow;
};

} // namespace mosaro::organisation
