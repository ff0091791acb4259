#include "browser/ui/StatusRow.h"

#include "base/Text.h"
#include "browser/SortMemory.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QToolButton>

namespace mosaro::browser {

namespace {

/// The slider counts in thousandths of the zoom.
constexpr double kSteps = 1000;
constexpr int kSliderWidth = 110;

int position(double zoom)
{
    return qRound(zoom * kSteps);
}

} // namespace

StatusRow::StatusRow(QWidget* parent)
    : QWidget(parent), m_count(new QLabel(this)), m_controls(new QWidget(this)),
      m_slider(new QSlider(Qt::Horizontal, m_controls))
{
    setFixedHeight(kit::metric::statusRowHeight);
    m_count->setAlignment(Qt::AlignCenter);
    m_count->setFont(kit::font(12));
    QPalette palette = m_count->palette();
    palette.setColor(QPalette::WindowText, kit::color::text3);
    m_count->setPalette(palette);

    m_slider->setRange(position(kSmallestZoom), position(kLargestZoom));
    m_slider->setSingleStep(10);
    m_slider->setPageStep(50);
    m_slider->setFixedWidth(kSliderWidth);
    m_slider->setToolTip(base::text("Tooltip.Zoom"));
    m_slider->setAccessibleName(base::text("Tooltip.Zoom"));
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) { Q_EMIT zoomChosen(value / kSteps); });

    QToolButton* small = makeButton(QStringLiteral("zoom-small"), base::text("Tooltip.Zoom.Small"));
    QToolButton* large = makeButton(QStringLiteral("zoom-large"), base::text("Tooltip.Zoom.Large"));
    connect(small, &QToolButton::clicked, this, [this] { m_slider->setValue(m_slider->minimum()); });
    connect(large, &QToolButton::clicked, this, [this] { m_slider->setValue(m_slider->maximum()); });

    setTabOrder(small, m_slider);
    setTabOrder(m_slider, large);

    auto* controls = new QHBoxLayout(m_controls);
    controls->setContentsMargins(0, 0, 0, 0);
    controls->setSpacing(kit::metric::gap);
    controls->addWidget(small);
    controls->addWidget(m_slider);
    controls->addWidget(large);
    QSizePolicy kept = m_controls->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_controls->setSizePolicy(kept);

    // Equal columns beside the count line keep it in the middle of the row.
    auto* row = new QGridLayout(this);
    row->setContentsMargins(14, 1, 14, 0);
    row->setColumnMinimumWidth(0, m_controls->sizeHint().width());
    row->setColumnStretch(0, 1);
    row->setColumnStretch(2, 1);
    row->addWidget(m_count, 0, 1);
    row->addWidget(m_controls, 0, 2, Qt::AlignRight | Qt::AlignVCenter);
}

QToolButton* StatusRow::makeButton(const QString& icon, const QString& hint)
{
    auto* button = new QToolButton(m_controls);
    button->setIcon(kit::icon(icon));
    button->setIconSize({16, 16});
    button->setAutoRaise(true);
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    return button;
}

void StatusRow::setCountLine(const QString& text)
{
    m_count->setText(text);
}

void StatusRow::setZoom(double zoom)
{
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(position(zoom));
}

void StatusRow::setControlsVisible(bool visible)
{
    m_controls->setVisible(visible);
}

void StatusRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::window);
    kit::paint::horizontalHairline(painter, 0, width(), 0, kit::color::line);
}

} // namespace mosaro::browser
