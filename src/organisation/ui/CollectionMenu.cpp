#include "organisation/ui/CollectionMenu.h"

#include "base/Text.h"
#include "kit/ZNFlatUIKitLabelView.h"

namespace mosaro::organisation {

namespace {

constexpr int kWidestTitle = 300;

} // namespace

CollectionMenu::CollectionMenu(Questions questions, QWidget* parent)
    : QMenu(parent), m_questions(std::move(questions)),
      m_labelRow(new kit::ZNFlatUIKitLabelView(base::text("Label.Label")))
{
    addCommand(SidebarCommand::NewCollection, "File.New.Collection");
    addCommand(SidebarCommand::NewSmartCollection, "File.New.SmartCollection");
    addCommand(SidebarCommand::NewFolder, "File.New.Folder");
    addSeparator();
    addCommand(SidebarCommand::Import, "File.Import");
    addCommand(SidebarCommand::Export, "File.Export");
    addSeparator();
    addCommand(SidebarCommand::Edit, "CX.Edit");
    addCommand(SidebarCommand::Delete, "CX.Delete");
    addSeparator();
    kit::addLabelRow(*this, m_labelRow);
    connect(this, &QMenu::aboutToShow, this, &CollectionMenu::validate);
    // Once the command that was chosen has run.
    connect(this, &QMenu::aboutToHide, this, &CollectionMenu::didClose, Qt::QueuedConnection);
}

void CollectionMenu::addCommand(SidebarCommand command, const char* key)
{
    QAction* action = addAction(base::text(key));
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT chosen(command); });
    m_commands.emplace_back(command, action);
}

void CollectionMenu::validate()
{
    Q_EMIT willOpen();
    for (const auto& [command, action] : m_commands) {
        action->setVisible(m_questions.exists(command));
        action->setEnabled(m_questions.isPossible(command));
        if (command == SidebarCommand::Edit) {
            QString title = fontMetrics().elidedText(m_questions.editTitle(), Qt::ElideMiddle, kWidestTitle);
            action->setText(title.replace(QLatin1Char('&'), QStringLiteral("&&")));
        }
    }
}

} // namespace mosaro::organisation
