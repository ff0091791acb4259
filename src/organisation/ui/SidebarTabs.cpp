#include "organisation/ui/SidebarTabs.h"

#include "base/Text.h"
#include "kit/IconButton.h"
#include "kit/Look.h"

#include <QHBoxLayout>

namespace mosaro::organisation {

namespace {

struct Tab {
    const char* icon;
    const char* title;
    const char* toolTip;
};

constexpr std::array<Tab, kSidebarTabs> kTabs{{
    {"side_collection_s", "View.Collections", "Tooltip.Tab.Collections"},
    {"tag_symbol", "View.Tags", "Tooltip.Tab.Tags"},
    {"colors", "View.Colors", "Tooltip.Tab.Colors"},
}};

constexpr int kSideGap = 8;

} // namespace

SidebarTabs::SidebarTabs(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(kit::metric::tabRowHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kSideGap, 0, kSideGap, 0);
    row->setSpacing(2);
    for (int tab = 0; tab < kSidebarTabs; ++tab) {
        const Tab& look = kTabs.at(std::size_t(tab));
        auto* button = new kit::IconButton(QLatin1String(look.icon), base::text(look.toolTip), this);
        button->setText(base::text(look.title));
        button->setAccessibleName(button->text());
        button->setFont(kit::font(12));
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, [this, tab] { Q_EMIT chosen(tab); });
        row->addWidget(button);
        m_buttons.at(std::size_t(tab)) = button;
    }
    setCurrent(kCollectionsTab);
}

int SidebarTabs::current() const
{
    if (m_buttons[kCollectionsTab]->isChecked()) {
        return kCollectionsTab;
    }
    return m_buttons[kTagsTab]->isChecked() ? kTagsTab : kColorsTab;
}

void SidebarTabs::setCurrent(int tab)
{
    m_buttons.at(std::size_t(tab))->setChecked(true);
}

/// A narrow sidebar shows the icons alone.
void SidebarTabs::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const Qt::ToolButtonStyle style =
        width() >= widthWithTitles() ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly;
    for (QToolButton* button : m_buttons) {
        button->setToolButtonStyle(style);
    }
}

int SidebarTabs::widthWithTitles() const
{
    constexpr int kAroundTitle = 36; // Icon, gaps and the button's own margins.
    int widest = 0;
    for (const QToolButton* button : m_buttons) {
        widest = std::max(widest, button->fontMetrics().horizontalAdvance(button->text()));
    }
    return kSidebarTabs * (widest + kAroundTitle) + 2 * kSideGap;
}

} // namespace mosaro::organisation
