#include "kit/ProgressView.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace mosaro::kit {

namespace {
constexpr int kPanelWidth = 380;
}

ProgressView::ProgressView(QWidget* parent) : QWidget(parent), m_text(new QLabel), m_bar(new QProgressBar)
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
    setupProgressElements();
}

void ProgressView::setupProgressElements()
{
    m_text->clear();
    m_bar->setAccessibleDescription({});
    m_bar->setValue(0);
}

void ProgressView::updateProgress(const QString& text, double value)
{
    if (!text.isEmpty()) {
        m_text->setText(text);
        m_bar->setAccessibleDescription(text);
    }
    m_bar->setValue(qBound(0, int(value), 100));
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
