#include "organisation/ui/TagMenu.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "organisation/TagColors.h"

namespace mosaro::organisation {

namespace {

QIcon choiceIcon(int choice)
{
    const auto color = labelColorAtIndex(choice);
    if (color) {
        return kit::icon(QStringLiteral("dot"), color->toColor());
    }
    return kit::icon(choice == kNoTagColor ? QStringLiteral("dot_none") : QStringLiteral("colors"));
}

} // namespace

TagMenu::TagMenu(std::function<bool(TagCommand)> isPossible, std::function<std::set<int>()> choices,
                 QWidget* parent)
    : QMenu(parent), m_isPossible(std::move(isPossible)), m_choices(std::move(choices)),
      m_colors(new kit::MarkMenu(base::text("CX.Tag.Color"), this))
{
    addCommand(TagCommand::NewTag, base::text("CX.New.Tag"));
    addSeparator();
    m_commands.emplace_back(TagCommand::TagColor, addMenu(m_colors));
    addCommand(TagCommand::Edit, base::text("CX.Edit"));
    addCommand(TagCommand::Delete, base::text("CX.Delete"));
    addColors();
    connect(this, &QMenu::aboutToShow, this, &TagMenu::validate);
    connect(m_colors, &QMenu::aboutToShow, this, &TagMenu::markColors);
    connect(this, &QMenu::aboutToHide, this, &TagMenu::clearMarks);
}

void TagMenu::addCommand(TagCommand command, const QString& title)
{
    QAction* action = addAction(title);
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT chosen(command); });
    m_commands.emplace_back(command, action);
}

void TagMenu::addColors()
{
    const QStringList titles{base::text("Label.No.Color"),          base::text("Label.Color.Red"),
                             base::text("Label.Color.Orange"),      base::text("Label.Color.Yellow"),
                             base::text("Label.Color.Green"),       base::text("Label.Color.Blue"),
                             base::text("Label.Color.Purple"),      base::text("Label.Color.Gray"),
                             base::text("Label.Color.Custom.Color")};
    for (int choice = kNoTagColor; choice <= kCustomTagColor; ++choice) {
        QAction* item = m_colors->addMarkedItem(choiceIcon(choice), titles.at(choice));
        item->setData(choice);
        connect(item, &QAction::triggered, this, [this, choice] { Q_EMIT tagColorChosen(choice); });
    }
}

void TagMenu::validate()
{
    Q_EMIT willOpen();
    for (const auto& [command, action] : m_commands) {
        action->setEnabled(m_isPossible(command));
    }
}

void TagMenu::markColors()
{
    const std::set<int> choices = m_choices();
    const kit::Mark mark = choices.size() > 1 ? kit::Mark::Mixed : kit::Mark::Check;
    const QList<QAction*> items = m_colors->actions();
    for (QAction* item : items) {
        m_colors->setMark(*item, choices.contains(item->data().toInt()) ? mark : kit::Mark::None);
    }
}

void TagMenu::clearMarks()
{
    const QList<QAction*> items = m_colors->actions();
    for (QAction* item : items) {
        m_colors->setMark(*item, kit::Mark::None);
    }
}

} // namespace mosaro::organisation
