#include "kit/MarkMenu.h"

#include <QStyleOptionMenuItem>

namespace mosaro::kit {

QAction* MarkMenu::addMarkedItem(const QIcon& icon, const QString& title)
{
    QAction* item = addAction(icon, title);
    item->setCheckable(true);
    // A click turns a check mark over, which is not what it stands for here.
    connect(item, &QAction::triggered, this, [item](bool checked) { item->setChecked(!checked); });
    return item;
}

void MarkMenu::setMark(QAction& item, Mark mark)
{
    item.setChecked(mark != Mark::None);
    if (mark == Mark::Mixed) {
        m_mixed.insert(&item);
    } else {
        m_mixed.remove(&item);
    }
}

Mark MarkMenu::mark(const QAction& item) const
{
    if (!item.isChecked()) {
        return Mark::None;
    }
    return m_mixed.contains(&item) ? Mark::Mixed : Mark::Check;
}

void MarkMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    if (action && mark(*action) == Mark::Mixed) {
        option->state |= QStyle::State_NoChange;
    }
}

} // namespace mosaro::kit
