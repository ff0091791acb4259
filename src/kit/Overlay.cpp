#include "kit/Overlay.h"

#include "kit/FocusChain.h"
#include "kit/Look.h"

#include <QKeyEvent>
#include <QPainter>

namespace mosaro::kit {

namespace {

constexpr int kFadeMilliseconds = 200;

} // namespace

Overlay::Overlay(QWidget& window, const QColor& fill, qreal shownAlpha)
    : QWidget(&window), m_window(window), m_fill(fill), m_shownAlpha(shownAlpha)
{
    hide();
    setFocusPolicy(Qt::StrongFocus);
    window.installEventFilter(this);
    m_fade.setStartValue(0.0);
    m_fade.setEndValue(0.0);
    m_fade.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] {
        if (!m_up) {
            takeAway();
        }
    });
}

void Overlay::showOverlay()
{
    if (m_up) {
        return;
    }
    m_up = true;
    if (isHidden()) {
        m_focusBefore = m_window.focusWidget();
    }
    setGeometry(m_window.rect());
    show();
    raise();
    QWidget* target = this;
    if (m_hosted != nullptr) {
        const QList<QWidget*> chain = focusChain(*m_hosted);
        target = m_hosted->focusPolicy() != Qt::NoFocus ? m_hosted.data() : chain.value(0, this);
    }
    target->setFocus(Qt::OtherFocusReason);
    fadeTo(m_shownAlpha);
}

void Overlay::hideOverlay()
{
    if (!m_up) {
        return;
    }
    m_up = false;
    fadeTo(0.0);
}

void Overlay::fadeTo(qreal alpha)
{
    const int duration = motion(kFadeMilliseconds);
    const QVariant now = m_fade.currentValue();
    m_fade.stop();
    m_fade.setStartValue(duration == 0 || !now.isValid() ? QVariant(alpha) : now);
    m_fade.setEndValue(alpha);
    m_fade.setDuration(duration);
    m_fade.start();
}

void Overlay::takeAway()
{
    hide();
    if (m_focusBefore != nullptr) {
        m_focusBefore->setFocus(Qt::OtherFocusReason);
    } else {
        m_window.setFocus(Qt::OtherFocusReason);
    }
    Q_EMIT gone();
}

void Overlay::setHosted(QWidget* hosted)
{
    if (m_hosted != nullptr && m_hosted != hosted) {
        delete m_hosted.data();
    }
    m_hosted = hosted;
    if (hosted != nullptr) {
        hosted->setParent(this);
        hosted->setGeometry(rect());
        hosted->show();
    }
}

bool Overlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Resize) {
        setGeometry(m_window.rect());
    }
    return QWidget::eventFilter(watched, event);
}

void Overlay::resizeEvent(QResizeEvent*)
{
    if (m_hosted != nullptr) {
        m_hosted->setGeometry(rect());
    }
}

void Overlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QColor fill = m_fill;
    fill.setAlphaF(float(m_fade.currentValue().toDouble()));
    painter.fillRect(rect(), fill);
}

void Overlay::keyPressEvent(QKeyEvent* event)
{
    event->accept();
}

bool Overlay::focusNextPrevChild(bool next)
{
    return m_hosted == nullptr || moveFocusWithin(*m_hosted, next);
}

} // namespace mosaro::kit
