#include "organisation/ui/ColorSourceView.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ColorGroups.h"

#include <QCheckBox>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <QVariantAnimation>

namespace mosaro::organisation {

namespace {

constexpr int kAreaHeight = 114;
constexpr int kButtonHeight = 30;
constexpr int kSlideTime = 200;

} // namespace

ColorSourceView::ColorSourceView(QWidget& grid, base::ZNUserDefaults& defaults, QWidget* parent)
    : QWidget(parent), m_grid(grid), m_defaults(defaults), m_button(new QToolButton(this)),
      m_area(new QWidget(this)), m_slide(new QVariantAnimation(this))
{
    m_grid.setParent(this);
    setFocusProxy(&m_grid);
    m_button->setText(base::text("Basic.Color.View.Options"));
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::TabFocus);
    connect(m_button, &QToolButton::clicked, this, &ColorSourceView::toggleViewOptions);
    connect(m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& raised) { slideTo(raised.toInt()); });
    addOptions();
    slideTo(showsViewOptions() ? kAreaHeight : 0);
    updateButton();
}

void ColorSourceView::addOptions()
{
    m_area->setAccessibleName(m_button->text());
    auto* column = new QVBoxLayout(m_area);
    column->setContentsMargins(kit::metric::gap + 6, 4, kit::metric::gap, 6);
    column->setSpacing(0);
    setTabOrder(&m_grid, m_button);
    QWidget* previous = m_button;
    for (const ColorOption& option : colorOptions()) {
        auto* box = new QCheckBox(base::text(option.titleKey), m_area);
        box->setToolTip(base::text(option.toolTipKey));
        box->setChecked(m_defaults.boolean(option.preference));
        connect(box, &QCheckBox::toggled, this, [this, key = option.preference](bool on) {
            m_defaults.updateUserDefaults(key, on);
            Q_EMIT optionsChanged();
        });
        column->addWidget(box);
        setTabOrder(std::exchange(previous, box), box);
    }
}

bool ColorSourceView::showsViewOptions() const
{
    return m_defaults.boolean(base::PREFS_SHOW_COLOR_VIEW_OPTIONS);
}

void ColorSourceView::toggleViewOptions()
{
    const bool shows = !showsViewOptions();
    m_defaults.updateUserDefaults(base::PREFS_SHOW_COLOR_VIEW_OPTIONS, shows);
    updateButton();
    const int goal = shows ? kAreaHeight : 0;
    m_slide->stop();
    if (kit::motion(kSlideTime) == 0 || !isVisible()) {
        slideTo(goal);
        return;
    }
    m_slide->setDuration(kit::motion(kSlideTime));
    m_slide->setEasingCurve(QEasingCurve::InOutQuad);
    m_slide->setStartValue(m_raised);
    m_slide->setEndValue(goal);
    m_slide->start();
}

void ColorSourceView::updateButton()
{
    const bool shows = showsViewOptions();
    m_button->setToolTip(shows ? base::text("Tooltip.Hide.Color.View.Options")
                               : base::text("Tooltip.Show.Color.View.Options"));
    m_button->setAccessibleDescription(m_button->toolTip());
    m_button->setIcon(kit::icon(shows ? QStringLiteral("down_btn") : QStringLiteral("up_btn")));
}

/// Out of sight the boxes are out of the keyboard's way, too.
void ColorSourceView::slideTo(int raised)
{
    m_raised = raised;
    const QWidget* focus = window()->focusWidget();
    if (raised == 0 && focus && m_area->isAncestorOf(focus)) {
        m_grid.setFocus();
    }
    m_area->setVisible(raised > 0);
    place();
}

void ColorSourceView::place()
{
    const int areaTop = height() - m_raised;
    const int buttonTop = areaTop - kButtonHeight;
    m_area->setGeometry(0, areaTop, width(), kAreaHeight);
    m_button->setGeometry(4, buttonTop + 1, width() - 8, kButtonHeight - 2);
    m_grid.setGeometry(0, 0, width(), std::max(0, buttonTop));
    update();
}

void ColorSourceView::resizeEvent(QResizeEvent*)
{
    place();
}

void ColorSourceView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::sidebar);
    kit::paint::horizontalHairline(painter, 0, width(), m_button->y() - 1, kit::color::line);
}

} // namespace mosaro::organisation
