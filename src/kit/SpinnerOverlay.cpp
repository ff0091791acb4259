#include "kit/SpinnerOverlay.h"

#include "kit/Look.h"
#include "kit/SpinningIndicator.h"

#include <QLabel>
#include <QVBoxLayout>

namespace mosaro::kit {

namespace {
constexpr qreal kAlertAlpha = 0.75;
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
        setMessage(message);
    }
    if (!isUp()) {
        m_spinner->start();
        showOverlay();
    }
}

void SpinnerOverlay::updateAlertViewMessage(const QString& message)
{
    if (isUp()) {
        setMessage(message);
    }
}

void SpinnerOverlay::setMessage(const QString& message)
{
    m_text->setText(message);
    m_spinner->setAccessibleDescription(message);
}

QString SpinnerOverlay::message() const
{
    return m_text->text();
}

} // namespace mosaro::kit
