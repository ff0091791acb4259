#include "kit/ProgressPanel.h"

#include "base/Text.h"
#include "kit/ProgressView.h"
#include "kit/Sheet.h"

namespace mosaro::kit {

ProgressPanel::ProgressPanel(QWidget& window) : m_sheet(new Sheet(window)), m_view(new ProgressView)
{
    m_sheet->setContent(m_view);
}

ProgressPanel::~ProgressPanel()
{
    delete m_sheet.data();
}

void ProgressPanel::begin(const QString& text)
{
    if (m_sheet == nullptr || m_view == nullptr) {
        return;
    }
    m_view->setupProgressElements();
    m_view->updateProgress(text, 0);
    m_sheet->window()->activateWindow();
    m_sheet->showSheet();
}

void ProgressPanel::update(const QString& text, int percent)
{
    if (m_view != nullptr) {
        m_view->updateProgress(text, percent);
    }
}

void ProgressPanel::end()
{
    if (m_sheet != nullptr) {
        m_sheet->endSheet();
    }
}

void ProgressPanel::offerStop(const std::function<void()>& stop)
{
    if (m_view != nullptr) {
        m_view->offerStop(stop, base::text("Tooltip.Stop.Run"));
    }
}

ProgressView* ProgressPanel::view() const
{
    return m_view;
}

} // namespace mosaro::kit
