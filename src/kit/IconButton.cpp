#include "kit/IconButton.h"

#include "kit/Look.h"

namespace mosaro::kit {

IconButton::IconButton(const QString& iconName, const QString& toolTip, QWidget* parent)
    : QToolButton(parent), m_iconName(iconName)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setIconSize(QSize(16, 16));
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    showIcon();
    connect(this, &QToolButton::toggled, this, &IconButton::showIcon);
}

QSize IconButton::sizeHint() const
{
    const int menuArrow = menu() != nullptr ? 14 : 0;
    return {iconSize().width() + 12 + menuArrow, iconSize().height() + 10};
}

void IconButton::showIcon()
{
    setIcon(kit::icon(m_iconName, isChecked() ? color::amber : color::text2));
}

} // namespace mosaro::kit
