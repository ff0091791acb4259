#include "kit/ProgressPanel.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/Sheet.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace mosaro::kit {

namespace {
constexpr int kPanelWidth = 380;
}

ProgressPanel::ProgressPanel(QWidget* parent)
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
    connect(m_stop, &QPushButton::clicked, this, &ProgressPanel::stopRequested);
    setStoppable(false);
    setupProgressElements();
}

void ProgressPanel::setupProgressElements()
{
    m_text->clear();
    m_bar->setValue(0);
}

void ProgressPanel::updateProgressPanel(const QString& text, double value)
{
    if (!text.isEmpty()) {
        m_text->setText(text);
    }
    m_bar->setValue(qBound(0, int(value), 100));
}

void ProgressPanel::setStoppable(bool stoppable)
{
    m_stop->setVisible(stoppable);
}

QString ProgressPanel::text() const
{
    return m_text->text();
}

int ProgressPanel::value() const
{
    return m_bar->value();
}

SheetProgress::SheetProgress(QWidget& window)
    : QObject(&window), m_sheet(new Sheet(window)), m_panel(new ProgressPanel)
{
    m_sheet->setContent(m_panel);
}

void SheetProgress::begin(const QString& text)
{
    m_panel->setupProgressElements();
    m_panel->updateProgressPanel(text, 0);
    m_sheet->window()->activateWindow();
    m_sheet->showSheet();
}

void SheetProgress::update(const QString& text, int percent)
{
    m_panel->updateProgressPanel(text, percent);
}

void SheetProgress::end()
{
    m_sheet->endSheet();
}

} // namespace mosaro::kit
