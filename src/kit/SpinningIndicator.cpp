#include "kit/SpinningIndicator.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/StyleColors.h"

#include <QPainter>

namespace mosaro::kit {

namespace {
constexpr int kTurnMilliseconds = 1000;
constexpr int kSixteenths = 16;
} // namespace

SpinningIndicator::SpinningIndicator(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(base::text("Accessible.Working"));
    m_turn.setStartValue(0.0);
    m_turn.setEndValue(360.0);
    m_turn.setDuration(kTurnMilliseconds);
    m_turn.setLoopCount(-1);
    connect(&m_turn, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void SpinningIndicator::start()
{
    m_spinning = true;
    if (motion(kTurnMilliseconds) > 0) {
        m_turn.start();
    }
    update();
}

void SpinningIndicator::stop()
{
    m_spinning = false;
    m_turn.stop();
    update();
}

void SpinningIndicator::paintEvent(QPaintEvent*)
{
    if (!m_spinning) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal thickness = 3;
    const qreal side = qMin(width(), height()) - 2 * thickness;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter.setPen(QPen(look::groove, thickness));
    painter.drawEllipse(circle);
    painter.setPen(QPen(color::amber, thickness, Qt::SolidLine, Qt::RoundCap));
    const double angle =
        m_turn.state() == QAbstractAnimation::Running ? m_turn.currentValue().toDouble() : 0.0;
    painter.drawArc(circle, qRound((90 - angle) * kSixteenths), -100 * kSixteenths);
}

} // namespace mosaro::kit
