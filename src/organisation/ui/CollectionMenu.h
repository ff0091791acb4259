#pragma once

#include "organisation/CollectionCommands.h"

#include <QHash>
#include <QMenu>
#include <functional>

namespace mosaro::organisation {

/// The menu of the collection tree, for the right click and the action button alike.
class CollectionMenu : public QMenu {
    Q_OBJECT

public:
    /// `isPossible` answers for a command at the moment the menu opens; `renamable` gives the title of the
    /// node that would be renamed, or nothing.
    CollectionMenu(std::function<bool(SidebarCommand)> isPossible, std::function<QString()> renamable,
                   QWidget* parent);

Q_SIGNALS:
    /// Before the commands are looked at.
    void willOpen();
    void chosen(mosaro::organisation::SidebarCommand command);

private:
    void addCommand(SidebarCommand command, const QString& title);
    void validate();

    std::function<bool(SidebarCommand)> m_isPossible;
    std::function<QString()> m_renamable;
    std::vector<std::pair<SidebarCommand, QAction*>> m_commands;
};

} // namespace mosaro::organisation
