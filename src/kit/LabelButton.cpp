#include "kit/LabelButton.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QKeyEvent>
#include <QPainter>

namespace mosaro::kit {

namespace {

constexpr qreal kDot = 13;
constexpr qreal kRing = 19;
constexpr qreal kRingWidth = 1.5;
constexpr qreal kDisabled = 0.35;

QRectF inMiddle(const QRectF& of, qreal extent)
{
    return {of.center().x() - extent / 2, of.center().y() - extent / 2, extent, extent};
}

} // namespace

LabelButton::LabelButton(int label, QWidget* parent) : QAbstractButton(parent), m_label(label)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCheckable(true);
    setFixedSize(LabelButton::sizeHint());
}

void LabelButton::setMark(Mark mark)
{
    m_mark = mark;
    setChecked(mark == Mark::On);
    update();
}

void LabelButton::paintNone(QPainter& painter, const QRectF& dot) const
{
    painter.setPen(QPen(color::text2, kRingWidth));
    painter.setBrush(Qt::NoBrush);
    const QRectF circle = dot.adjusted(0.75, 0.75, -0.75, -0.75);
    painter.drawEllipse(circle);
    const QPointF reach(circle.width() * 0.35, -circle.height() * 0.35);
    painter.drawLine(circle.center() - reach, circle.center() + reach);
}

void LabelButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : kDisabled);
    const QRectF box(rect());
    if (isEnabled() && underMouse()) {
        paint::panel(painter, box.adjusted(1, 1, -1, -1), color::raisedStrong, {}, metric::radius);
    }
    const QRectF dot = inMiddle(box, kDot);
    if (m_label == 0) {
        paintNone(painter, dot);
    } else {
        paint::labelDot(painter, dot, m_label);
    }
    if (m_mark != Mark::Off) {
        QPen ring(color::text, kRingWidth);
        if (m_mark == Mark::Mixed) {
            ring.setColor(color::text2);
            ring.setDashPattern({2, 2});
        }
        painter.setPen(ring);
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(inMiddle(box, kRing));
    }
    if (hasFocus()) {
        paint::focusRing(painter, box, metric::radius);
    }
}

void LabelButton::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        Q_EMIT leftFor((event->key() == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight) ? 1 : -1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Space:
        QAbstractButton::keyPressEvent(event);
        break;
    default:
        event->ignore(); // The menu's: it goes on to the next row, or closes.
    }
}

void LabelButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    Q_EMIT pointedAt(true);
}

void LabelButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    Q_EMIT pointedAt(false);
}

void LabelButton::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    Q_EMIT pointedAt(true);
}

void LabelButton::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    Q_EMIT pointedAt(false);
}

} // namespace mosaro::kit
