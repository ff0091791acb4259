#include "organisation/ImportSession.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"

#include <QFileInfo>

namespace mosaro::organisation {

using importing::ImportRun;

ImportSession::ImportSession(ImportSessionEnvironment environment, QObject* parent)
    : QObject(parent), m_environment(std::move(environment))
{
}

ImportSession::~ImportSession() = default;

bool ImportSession::addMediaItem(std::vector<importing::ImportItem> items,
                                 const std::shared_ptr<store::Collections>& withItem, bool fromInternalSource)
{
    if (isImporting() || items.empty() || !withItem || !m_environment.library.isOpenedDatabase()) {
        return false;
    }
    const bool copies = !m_environment.isCopyImageToLib || m_environment.isCopyImageToLib();
    m_environment.library.checkEssentialFolders();
    m_fromInternalSource = fromInternalSource;
    m_run = std::make_unique<ImportRun>(runEnvironment(), withItem, copies);
    connect(m_run.get(), &ImportRun::walkStarted, this, &ImportSession::walkStarted);
    connect(m_run.get(), &ImportRun::progressed, this, &ImportSession::showProgress);
    connect(m_run.get(), &ImportRun::finished, this, &ImportSession::finish);
    begin();
    m_run->start(std::move(items));
    return true;
}

void ImportSession::requestStop()
{
    if (m_run) {
        m_run->requestStop();
    }
}

void ImportSession::updateBadgeSetting()
{
    if (!m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK)) {
        clearBadge();
    }
}

importing::ImportEnvironment ImportSession::runEnvironment() const
{
    const platform::Platform& platform = m_environment.platform;
    return {.context = *m_environment.library.context(),
            .package = m_environment.library.package(),
            .classification = m_environment.classification,
            .aliases = *platform.aliases,
            .fileIndex = *platform.fileIndex,
            .bookmarks = *platform.bookmarks,
            .askForFolder = [this](const QString& folder) { return askForFolder(folder); },
            .parallel = 0,
            .analyse = m_environment.analyse};
}

QString ImportSession::askForFolder(const QString& folder) const
{
    base::OpenPanelRequest request;
    request.title = base::text("Message.Choose.Folder");
    request.message = base::text("Message.Choose.Accessible.Folders");
    request.prompt = base::text("Basic.Choose");
    request.directory = folder;
    request.files = false;
    request.directories = true;
    return m_environment.prompts.openPanel(request).value(0);
}

void ImportSession::begin()
{
    if (m_fromInternalSource) {
        activate();
        Q_EMIT sheetShouldBegin();
    } else {
        m_environment.utilities.postNotification(base::MOSARO_NOTI_SHOW_IMPORT_PROCESS, true);
    }
}

void ImportSession::showProgress(const importing::ImportProgress& progress)
{
    if (m_fromInternalSource) {
        Q_EMIT progressed(progress);
    } else {
        const QVariantMap payload{{QStringLiteral("file"), QFileInfo(progress.file).fileName()},
                                  {QStringLiteral("index"), progress.index},
                                  {QStringLiteral("totalCount"), progress.total}};
        m_environment.utilities.postNotification(base::MOSARO_NOTI_SHOW_IMPORT_PROCESS, payload);
    }
    const bool badge = m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK);
    if (badge && m_environment.platform.badge) {
        m_environment.platform.badge->setPercent(progress.percent());
    }
}

void ImportSession::finish(const importing::ImportReport& report)
{
    m_run.release()->deleteLater(); // It is the sender of what runs here.
    m_environment.library.clearDownloadDirectory();
    clearBadge();
    if (m_fromInternalSource) {
        Q_EMIT sheetShouldEnd();
    } else {
        m_environment.utilities.postNotification(base::MOSARO_NOTI_SHOW_IMPORT_PROCESS, false);
    }
    if (report.accessListWritten) {
        m_environment.utilities.postNotification(base::MOSARO_NOTE_UPDATED_USER_DEFINED_BOOKMARKS);
    }
    postImportStautsNotification(report.tried);
    activate();
    if (!report.failed.empty()) {
        Q_EMIT failed(report.failed);
    }
}

void ImportSession::postImportStautsNotification(int count)
{
    if (count < 1 || !m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_IMPORT_MEDIA_NOTI)) {
        return;
    }
    const QString number = QString::number(count);
    const QString content = count == 1 ? base::text("Message.Import.Completed.Item", number)
                                       : base::text("Message.Import.Completed.Items", number);
    m_environment.utilities.postUserNotification(base::text("Message.Import.Completed"), {}, content);
}

void ImportSession::clearBadge()
{
    if (m_environment.platform.badge) {
        m_environment.platform.badge->clear();
    }
}

void ImportSession::activate()
{
    if (m_environment.activateApplication) {
        m_environment.activateApplication();
    }
}

} // namespace mosaro::organisation
