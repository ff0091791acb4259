#include "kit/Popover.h"

#include "kit/Look.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace mosaro::kit {

namespace {

constexpr int kShadow = 10;
constexpr int kArrowHeight = 8;
constexpr int kArrowWidth = 18;
constexpr int kRim = 1;
constexpr int kRadius = 6;
const QColor kBorder{0x3E, 0x3F, 0x44};

} // namespace

Popover::Popover(QWidget& anchor, QWidget& content)
    : QWidget(anchor.window()), m_anchor(&anchor), m_content(&content)
{
    hide();
    setFocusPolicy(Qt::NoFocus);
    content.setParent(this);
    content.show();
}

Popover::~Popover() = default;

void Popover::open()
{
    place();
    show();
    raise();
    qApp->installEventFilter(this);
}

QWidget* Popover::takeContent()
{
    if (m_content != nullptr) {
        m_content->setParent(nullptr);
    }
    return m_content;
}

/// Right edge under the anchor's, within the window, no taller than there is room for.
void Popover::place()
{
    if (m_anchor == nullptr || m_content == nullptr) {
        return;
    }
    const QWidget& window = *parentWidget();
    const QRect anchor(m_anchor->mapTo(&window, QPoint(0, 0)), m_anchor->size());
    const int top = anchor.bottom() - kShadow + kRim;
    const QSize around(2 * (kShadow + kRim), kArrowHeight + 2 * (kShadow + kRim));
    const QSize wanted =
        (m_content->sizeHint() + around)
            .boundedTo(QSize(window.width(), std::max(around.height(), window.height() - top)));
    const int left = std::clamp(anchor.right() + kShadow - wanted.width() + 1, 0,
                                std::max(0, window.width() - wanted.width()));
    setGeometry(QRect(QPoint(left, top), wanted));
    m_content->setGeometry(kShadow + kRim, kShadow + kRim + kArrowHeight, wanted.width() - around.width(),
                           wanted.height() - around.height());
    const int room = kShadow + kRadius + kArrowWidth / 2;
    m_arrowX = std::clamp(anchor.center().x() - left, room, std::max(room, wanted.width() - room));
}

bool Popover::isOutside(const QObject* pressed) const
{
    const auto* widget = qobject_cast<const QWidget*>(pressed);
    if (widget == nullptr || widget->window() != window()) {
        return false; // A menu of the anchor's, for one.
    }
    return widget != this && !isAncestorOf(widget) && widget != m_anchor &&
           (m_anchor == nullptr || !m_anchor->isAncestorOf(widget));
}

bool Popover::carriesAnchor(const QObject* moved) const
{
    const auto* widget = qobject_cast<const QWidget*>(moved);
    return widget != nullptr && m_anchor != nullptr && (widget == m_anchor || widget->isAncestorOf(m_anchor));
}

bool Popover::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (isVisible() && isOutside(watched)) {
            dismiss();
        }
        break;
    case QEvent::Hide:
        if (isVisible() && watched == m_anchor && !event->spontaneous()) {
            dismiss();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (carriesAnchor(watched)) {
            place();
        }
        break;
    case QEvent::LayoutRequest:
        if (watched == this) {
            place();
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void Popover::dismiss()
{
    hide();
    Q_EMIT closed();
}

void Popover::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(kShadow, kShadow + kArrowHeight, -kShadow, -kShadow);
    QPainterPath shape;
    shape.addRoundedRect(body, kRadius, kRadius);
    QPainterPath arrow;
    arrow.moveTo(m_arrowX - kArrowWidth / 2.0, body.top() + 1);
    arrow.lineTo(m_arrowX, body.top() - kArrowHeight);
    arrow.lineTo(m_arrowX + kArrowWidth / 2.0, body.top() + 1);
    arrow.closeSubpath();
    shape = shape.united(arrow);

    painter.setPen(Qt::NoPen);
    for (int step = kShadow; step > 0; --step) {
        painter.setBrush(QColor(0, 0, 0, 6));
        painter.drawRoundedRect(body.adjusted(-step, -step, step, step), kRadius + step, kRadius + step);
    }
    painter.setPen(QPen(kBorder, 1));
    painter.setBrush(color::sidebar);
    painter.drawPath(shape);
}

} // namespace mosaro::kit
