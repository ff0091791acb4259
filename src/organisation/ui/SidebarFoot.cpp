#include "organisation/ui/SidebarFoot.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

namespace mosaro::organisation {

SidebarFoot::SidebarFoot(QMenu& menu, QWidget* parent) : QWidget(parent)
{
    setFixedHeight(kit::metric::statusRowHeight);
    auto* button = new QToolButton(this);
    button->setIcon(kit::icon(QStringLiteral("action")));
    button->setIconSize({16, 16});
    button->setAutoRaise(true);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(&menu);
    button->setToolTip(base::text("Tooltip.Sidebar.Action"));
    button->setAccessibleName(base::text("Tooltip.Sidebar.Action"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kit::metric::gap, 0, kit::metric::gap, 0);
    row->addWidget(button);
    row->addStretch();
}

void SidebarFoot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    kit::paint::horizontalHairline(painter, 0, width(), 0, kit::color::line);
}

} // namespace mosaro::organisation
