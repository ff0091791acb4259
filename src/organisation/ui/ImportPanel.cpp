#include "organisation/ui/ImportPanel.h"

#include "base/Notifications.h"
#include "import/ui/ImportSheet.h"
#include "import/ui/MRFileErrorView.h"
#include "kit/Sheet.h"

namespace mosaro::organisation {

ImportPanel::ImportPanel(ImportSession& session, QWidget& sidebar, base::ZNUtilities& utilities,
                         platform::FileRevealer* revealer)
    : QObject(&sidebar), m_session(session), m_sidebar(sidebar), m_utilities(utilities), m_revealer(revealer)
{
    connect(&session, &ImportSession::sheetShouldBegin, this, &ImportPanel::begin);
    connect(&session, &ImportSession::sheetShouldEnd, this, &ImportPanel::end);
    connect(&session, &ImportSession::failed, this, &ImportPanel::showMediaImportErr);
}

void ImportPanel::begin()
{
    m_sheet = new kit::Sheet(*m_sidebar.window());
    m_progress = new importing::ImportSheet;
    m_sheet->setContent(m_progress);
    connect(&m_session, &ImportSession::walkStarted, m_progress, &importing::ImportSheet::resetProgress);
    connect(&m_session, &ImportSession::progressed, m_progress, &importing::ImportSheet::showProgress);
    connect(m_progress, &importing::ImportSheet::stopRequested, &m_session, &ImportSession::requestStop);
    connect(m_sheet, &kit::Sheet::ended, this,
            [this] { m_utilities.postNotification(base::MOSARO_NOTI_COMPLETED_MEDIA_IMPORTED); });
    m_sheet->showSheet();
}

void ImportPanel::end()
{
    if (m_sheet) {
        m_sheet->endSheet();
        m_sheet->deleteLater();
    }
}

void ImportPanel::showMediaImportErr(const std::vector<importing::FailedPath>& paths)
{
    const auto reveal = [revealer = m_revealer](const QString& path) {
        if (revealer) {
            revealer->reveal(path);
        }
    };
    importing::MRFileErrorView::showFailedPaths(paths, reveal, m_sidebar.window());
}

} // namespace mosaro::organisation
