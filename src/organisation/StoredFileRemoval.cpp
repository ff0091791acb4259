#include "organisation/StoredFileRemoval.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/Threads.h"
#include "store/ZNDBManager.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::organisation {

namespace {

constexpr int kDeleteSound = 1;

bool removeFromDisk(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink() ? QDir(path).removeRecursively() : QFile::remove(path);
}

} // namespace

StoredFileRemoval::StoredFileRemoval(base::ProgressSink& panel, base::ZNUtilities& utilities,
                                     base::ZNUserDefaults& defaults, QObject* parent)
    : QObject(parent), m_panel(panel), m_utilities(utilities), m_defaults(defaults)
{
    m_pool.setMaxThreadCount(1);
}

StoredFileRemoval::~StoredFileRemoval()
{
    m_pool.waitForDone();
}

void StoredFileRemoval::deleteMediaFiles(const QStringList& paths)
{
    if (paths.isEmpty()) {
        m_panel.end();
        return;
    }
    base::runOnWorker(m_pool, [this, paths] {
        const int total = static_cast<int>(paths.size());
        for (int count = 1; count <= total; ++count) {
            const QString& path = paths[count - 1];
            if (removeFromDisk(path)) {
                store::ZNDBManager::unusedFolderInPath(QFileInfo(path).path());
            }
            base::postToMain(*this, [this, count, total] { showProgress(count, total); });
        }
        base::postToMain(*this, [this, total] { finish(total); });
    });
}

void StoredFileRemoval::showProgress(int count, int total)
{
    constexpr double kWhole = 100.0;
    const int percent = static_cast<int>(count * kWhole / total);
    m_panel.update(base::text("Basic.Delete.Media", QString::number(percent)), percent);
}

void StoredFileRemoval::finish(int total)
{
    m_panel.end();
    if (m_defaults.boolean(base::PREFS_GENERAL_SHOW_REMOVE_MEDIA_NOTI)) {
        const QString number = QString::number(total);
        const QString content = total < 2 ? base::text("Message.Remove.Completed.Item", number)
                                          : base::text("Message.Remove.Completed.Items", number);
        m_utilities.postUserNotification(base::text("Message.Remove.Completed"), {}, content);
    }
    m_utilities.playSoundEffect(kDeleteSound, m_defaults);
}

} // namespace mosaro::organisation
