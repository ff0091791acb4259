#include "organisation/ui/SidebarFoot.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

namespace mosaro::organisation {

SidebarFoot::SidebarFoot(QWidget* parent) : QWidget(parent), m_button(new QToolButton(this))
{
    setFixedHeight(kit::metric::statusRowHeight);
    m_button->setIcon(kit::icon(QStringLiteral("action")));
    m_button->setIconSize({16, 16});
    m_button->setAutoRaise(true);
    m_button->setPopupMode(QToolButton::InstantPopup);
    m_button->setToolTip(base::text("Tooltip.Sidebar.Action"));
    m_button->setAccessibleName(base::text("Tooltip.Sidebar.Action"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kit::metric::gap, 0, kit::metric::gap, 0);
    row->addWidget(m_button);
    row->addStretch();
}

void SidebarFoot::setMenu(QMenu& menu)
{
    m_button->setMenu(&menu);
}

void SidebarFoot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    kit::paint::horizontalHairline(painter, 0, width(), 0, kit::color::line);
}

} // namespace mosaro::organisation
