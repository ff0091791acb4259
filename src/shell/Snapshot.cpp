#include "shell/Snapshot.h"

#include "base/Notifications.h"
#include "base/Text.h"
#include "base/ZNUtilities.h"
#include "browser/ui/MRBrowserView.h"
#include "import/ImportRun.h"
#include "organisation/CollectionCommands.h"
#include "organisation/ui/MRLibraryView.h"
#include "shell/AppDelegate.h"
#include "store/Media.h"
#include "store/ZNDBManager.h"

#include <QSet>
#include <QTextStream>
#include <QWidget>

namespace mosaro::shell {

namespace {

constexpr QSize kPictureSize{1280, 800};
constexpr int kLookTime = 100;
constexpr int kCalmLooks = 8;
constexpr int kMostLooks = 1200;

void tell(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl;
}

} // namespace

Snapshot::Snapshot(AppDelegate& delegate, QString picturePath, QStringList imports, QObject* parent)
    : QObject(parent), m_delegate(delegate), m_picturePath(std::move(picturePath)),
      m_imports(std::move(imports))
{
    m_timer.setInterval(kLookTime);
    connect(&m_timer, &QTimer::timeout, this, &Snapshot::lookAgain);
    if (!m_imports.isEmpty()) {
        connect(&m_delegate, &AppDelegate::libraryOpened, this, &Snapshot::makeCollection);
    }
    connect(&m_delegate, &AppDelegate::libraryShown, this, &Snapshot::libraryShown, Qt::QueuedConnection);
    base::ZNUtilities::sharedManager().bus().observe(base::MOSARO_NOTI_COMPLETED_MEDIA_IMPORTED, this,
                                                     [this](const QVariant&) { importCompleted(); });
}

/// Before the sidebar reads the library, so that it finds the collection there.
void Snapshot::makeCollection()
{
    organisation::NewCollection samples;
    samples.title = base::text("Lib.Samples");
    store::StoreContext& context = *store::ZNDBManager::sharedManager().context();
    const auto made = organisation::CollectionCommands(context).addItem(samples, nullptr);
    if (made) {
        m_collectionID = made.value();
    } else {
        QTextStream(stderr) << made.reason() << Qt::endl;
    }
}

void Snapshot::libraryShown()
{
    m_delegate.sharedController().window().resize(kPictureSize);
    if (!m_imports.isEmpty()) {
        if (m_collectionID.isEmpty()) {
            finish(1);
            return;
        }
        importFiles();
    }
    m_timer.start();
}

void Snapshot::importFiles()
{
    organisation::MRLibraryView* sidebar = m_delegate.sharedController().libraryView();
    sidebar->findCollectionItem(m_collectionID);
    connect(sidebar, &organisation::MRLibraryView::importFailed, this,
            [](const std::vector<importing::FailedPath>& paths) {
                for (const importing::FailedPath& failed : paths) {
                    tell(base::text("Message.Snapshot.Failed", failed.path, failed.reason));
                }
            });
    m_waitsForImport = true;
    base::ZNUtilities::sharedManager().postNotification(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE,
                                                        m_imports);
}

void Snapshot::importCompleted()
{
    if (std::exchange(m_waitsForImport, false)) {
        // The sidebar reads its library on the same occasion, perhaps after this.
        QTimer::singleShot(0, this, &Snapshot::report);
    }
}

void Snapshot::report()
{
    store::StoreContext* context = store::ZNDBManager::sharedManager().context();
    const auto items = context->fetch<store::Media>(
        {.predicate =
             store::Predicate::compare(QLatin1String("mediaPID"), store::Comparison::Equal, m_collectionID),
         .order = {{QLatin1String("mediaDateImported")}, {QLatin1String("mediaTitle")}}});
    if (!items) {
        QTextStream(stderr) << items.reason() << Qt::endl;
        return;
    }
    for (const auto& item : items.value()) {
        tell(base::text("Message.Snapshot.Imported", item->mediaOriginalPath(),
                        QString::number(item->mediaWidth()), QString::number(item->mediaHeight())));
    }
    tell(base::text("Message.Snapshot.Count", QString::number(items.value().size()),
                    QString::number(m_imports.size())));
}

/// The window is looked at until it has not changed for a while: previews come in one by one.
void Snapshot::lookAgain()
{
    MRController& controller = m_delegate.sharedController();
    if (m_waitsForImport || controller.isBusy()) {
        return;
    }
    QImage now = controller.window().grab().toImage();
    m_calmLooks = now == m_last ? m_calmLooks + 1 : 0;
    m_last = std::move(now);
    if (m_calmLooks >= kCalmLooks || ++m_looks >= kMostLooks) {
        save();
    }
}

void Snapshot::save()
{
    m_timer.stop();
    if (m_last.save(m_picturePath, "PNG")) {
        tell(base::text("Message.Snapshot.Saved", m_picturePath));
        finish(0);
        return;
    }
    QTextStream(stderr) << base::text("Failure.Snapshot.Save", m_picturePath) << Qt::endl;
    finish(1);
}

void Snapshot::finish(int status)
{
    m_timer.stop();
    m_status = status;
    m_delegate.quitMosaro();
}

int UnattendedPrompts::alert(const base::AlertRequest& request)
{
    QTextStream(stderr) << request.messageText << ": " << request.informativeText << Qt::endl;
    return 0;
}

QStringList UnattendedPrompts::openPanel(const base::OpenPanelRequest& request)
{
    QTextStream(stderr) << request.title << Qt::endl;
    return {};
}

std::optional<QString> UnattendedPrompts::savePanel(const base::SavePanelRequest& request)
{
    QTextStream(stderr) << request.title << Qt::endl;
    return std::nullopt;
}

} // namespace mosaro::shell
