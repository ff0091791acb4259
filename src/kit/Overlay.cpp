#include "kit/Overlay.h"

#include "kit/FocusChain.h"
#include "kit/Look.h"
#include "kit/SpinningIndicator.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace mosaro::kit {

namespace {

constexpr int kFadeMilliseconds = 200;
constexpr qreal kAlertAlpha = 0.75;
constexpr qreal kModeAlpha = 0.85;
constexpr qreal kModeWhite = 0.12;

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

SpinnerOverlay::SpinnerOverlay(QWidget& window) : Overlay(window, Qt::black, kAlertAlpha)
{
    auto* view = new QWidget;
    auto* layout = new QVBoxLayout(view);
    m_spinner = new SpinningIndicator;
    m_text = new QLabel;
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setWordWrap(true);
    m_text->setFont(kit::font(14));
    layout->addStretch();
    layout->addWidget(m_spinner, 0, Qt::AlignHCenter);
    layout->addSpacing(metric::gap);
    layout->addWidget(m_text);
    layout->addStretch();
    setHosted(view);
    connect(this, &Overlay::gone, m_spinner, &SpinningIndicator::stop);
}

void SpinnerOverlay::showAlertView(bool shown, const QString& message)
{
    if (!shown) {
        m_spinner->stop();
        hideOverlay();
        return;
    }
    if (!message.isEmpty()) {
        m_text->setText(message);
    }
    if (!isUp()) {
        m_spinner->start();
        showOverlay();
    }
}

void SpinnerOverlay::updateAlertViewMessage(const QString& message)
{
    if (isUp()) {
        m_text->setText(message);
    }
}

QString SpinnerOverlay::message() const
{
    return m_text->text();
}

ModeOverlay::ModeOverlay(QWidget& window)
    : Overlay(window, QColor::fromRgbF(float(kModeWhite), float(kModeWhite), float(kModeWhite)), kModeAlpha)
{
    connect(this, &Overlay::gone, this, [this] { setHosted(nullptr); });
}

void ModeOverlay::showAlertMode(bool shown, QWidget* view)
{
    if (shown) {
        if (view != nullptr) {
            setHosted(view);
        }
        showOverlay();
    } else {
        hideOverlay();
    }
}

} // namespace mosaro::kit
