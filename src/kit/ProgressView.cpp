#include "kit/ProgressView.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace mosaro::kit {

namespace {
constexpr int kPanelWidth = 380;
}

ProgressView::ProgressView(QWidget* parent)
    : QWidget(parent), m_text(new QLabel), m_bar(new QProgressBar), m_stopBtn(new QPushButton)
{
    setFixedWidth(kPanelWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(metric::wideGap, metric::wideGap, metric::wideGap, metric::wideGap);
    layout->setSpacing(metric::gap);
    m_text->setWordWrap(true);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(base::text("Accessible.Progress"));
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addWidget(m_stopBtn, 0, Qt::AlignRight);
    m_stopBtn->setObjectName(QStringLiteral("stopProgress"));
    connect(m_stopBtn, &QPushButton::clicked, this, &ProgressView::stop);
    setupProgressElements();
}

void ProgressView::setupProgressElements()
{
    m_text->clear();
    m_bar->setAccessibleDescription({});
    m_bar->setValue(0);
    offerStop(nullptr, {});
}

void ProgressView::updateProgress(const QString& text, double value)
{
    if (!text.isEmpty()) {
        m_text->setText(text);
        m_bar->setAccessibleDescription(text);
    }
    m_bar->setValue(qBound(0, int(value), 100));
}

void ProgressView::offerStop(std::function<void()> stop, const QString& toolTip)
{
    m_stop = std::move(stop);
    m_stopBtn->setText(base::text("Basic.Stop"));
    m_stopBtn->setShortcut(Qt::Key_Escape); // A new text takes the shortcut along.
    m_stopBtn->setToolTip(toolTip);
    m_stopBtn->setEnabled(true);
    m_stopBtn->setVisible(m_stop != nullptr);
    if (m_stop) {
        m_stopBtn->setFocus();
    }
}

void ProgressView::stop()
{
    m_stopBtn->setText(base::text("Basic.Stopping"));
    m_stopBtn->setEnabled(false);
    if (const auto stop = std::exchange(m_stop, nullptr)) {
        stop();
    }
}

QSize ProgressView::sizeHint() const
{
    return {kPanelWidth, heightForWidth(kPanelWidth)};
}

QString ProgressView::text() const
{
    return m_text->text();
}

int ProgressView::value() const
{
    return m_bar->value();
}

} // namespace mosaro::kit
