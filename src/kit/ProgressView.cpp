#include "kit/ProgressView.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace mosaro::kit {

namespace {
constexpr int kPanelWidth = 380;
}

ProgressView::ProgressView(QWidget* parent)
    : QWidget(parent), m_text(new QLabel), m_bar(new QProgressBar),
      m_stop(new QPushButton(base::text("Basic.Stop")))
{
    setFixedWidth(kPanelWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(metric::wideGap, metric::wideGap, metric::wideGap, metric::wideGap);
    layout->setSpacing(metric::gap);
    m_text->setWordWrap(true);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(base::text("Accessible.Progress"));
    m_stop->setAutoDefault(false);
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addSpacing(metric::gap);
    layout->addWidget(m_stop, 0, Qt::AlignRight);
    connect(m_stop, &QPushButton::clicked, this, &ProgressView::stopRequested);
    setStoppable(false);
    setupProgressElements();
}

void ProgressView::setupProgressElements()
{
    m_text->clear();
    m_bar->setValue(0);
}

void ProgressView::updateProgress(const QString& text, double value)
{
    if (!text.isEmpty()) {
        m_text->setText(text);
    }
    m_bar->setValue(qBound(0, int(value), 100));
}

void ProgressView::setStoppable(bool stoppable)
{
    m_stop->setVisible(stoppable);
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
