#include "organisation/ui/CollectionMenu.h"

#include "base/Text.h"

namespace mosaro::organisation {

CollectionMenu::CollectionMenu(std::function<bool(SidebarCommand)> isPossible,
                               std::function<QString()> renamable, QWidget* parent)
    : QMenu(parent), m_isPossible(std::move(isPossible)), m_renamable(std::move(renamable))
{
    addCommand(SidebarCommand::NewCollection, base::text("File.New.Collection"));
    addCommand(SidebarCommand::NewFolder, base::text("File.New.Folder"));
    addSeparator();
    addCommand(SidebarCommand::Import, base::text("File.Import"));
    addSeparator();
    addCommand(SidebarCommand::Edit, base::text("CX.Edit"));
    connect(this, &QMenu::aboutToShow, this, &CollectionMenu::validate);
}

void CollectionMenu::addCommand(SidebarCommand command, const QString& title)
{
    QAction* action = addAction(title);
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT chosen(command); });
    m_commands.emplace_back(command, action);
}

void CollectionMenu::validate()
{
    Q_EMIT willOpen();
    for (const auto& [command, action] : m_commands) {
        action->setEnabled(m_isPossible(command));
        if (command == SidebarCommand::Edit) {
            const QString title = m_renamable();
            action->setText(title.isEmpty()
                                ? base::text("CX.Edit")
                                : base::text("CX.Rename",
                                             QString(title).replace(QLatin1Char('&'), QStringLiteral("&&"))));
        }
    }
}

} // namespace mosaro::organisation
