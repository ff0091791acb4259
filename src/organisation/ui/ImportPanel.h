#pragma once

#include "organisation/ImportSession.h"

#include <QPointer>
#include <QWidget>

namespace mosaro::importing {
class ImportSheet;
}
namespace mosaro::kit {
class Sheet;
}

namespace mosaro::organisation {

/// The windows of an import: the sheet with its progress, on the window of the sidebar, and the list of files
/// that failed. The end of the sheet is what makes the library be read again.
class ImportPanel : public QObject {
    Q_OBJECT

public:
    ImportPanel(ImportSession& session, QWidget& sidebar, base::ZNUtilities& utilities,
                platform::FileRevealer* revealer);

private:
    void begin();
    void end();
    void showMediaImportErr(const std::vector<importing::FailedPath>& paths);

    ImportSession& m_session;
    QWidget& m_sidebar;
    base::ZNUtilities& m_utilities;
    platform::FileRevealer* m_revealer;
    QPointer<kit::Sheet> m_sheet;
    QPointer<importing::ImportSheet> m_progress;
};

} // namespace mosaro::organisation
