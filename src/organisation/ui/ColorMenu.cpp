#include "organisation/ui/ColorMenu.h"

#include "base/Text.h"
#include "kit/Look.h"

namespace mosaro::organisation {

namespace {

/// A menu item is on, off or mixed; the mixed mark is a dash.
void mark(QAction& action, Qt::CheckState state)
{
    action.setCheckable(state == Qt::Checked);
    action.setChecked(state == Qt::Checked);
    action.setIcon(state == Qt::PartiallyChecked ? kit::icon(QStringLiteral("minus"), kit::color::amber)
                                                 : QIcon());
}

} // namespace

ColorMenu::ColorMenu(Answers answers, QWidget* parent)
    : QMenu(parent), m_answers(std::move(answers)), m_marks(addMenu(base::text("Basic.Mark"))),
      m_like(addCommand(*m_marks, ColorCommand::LikeColor, base::text("Basic.Mark.As.Like"))),
      m_unlike(addCommand(*m_marks, ColorCommand::UnlikeColor, base::text("Basic.Mark.As.Unlike"))),
      m_showColor(addCommand(*this, ColorCommand::ShowColorInColorPicker, base::text("CX.Show.Color")))
{
    connect(this, &QMenu::aboutToShow, this, &ColorMenu::validate);
    connect(this, &QMenu::aboutToHide, this, [this] {
        mark(*m_like, Qt::Unchecked);
        mark(*m_unlike, Qt::Unchecked);
    });
}

QAction* ColorMenu::addCommand(QMenu& menu, ColorCommand command, const QString& title)
{
    QAction* action = menu.addAction(title);
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT chosen(command); });
    m_commands.emplace_back(command, action);
    return action;
}

void ColorMenu::validate()
{
    Q_EMIT willOpen();
    for (const auto& [command, action] : m_commands) {
        action->setEnabled(m_answers.isPossible(command));
    }
    m_marks->setEnabled(m_answers.isPossible(ColorCommand::LikeColor));
    const LikeMarks marks = m_answers.likeMarks();
    mark(*m_like, marks.like);
    mark(*m_unlike, marks.unlike);
    m_showColor->setIcon(m_answers.selectedColor());
}

} // namespace mosaro::organisation
