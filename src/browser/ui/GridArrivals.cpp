#include "browser/ui/GridArrivals.h"

#include "base/NotificationBus.h"
#include "base/Notifications.h"
#include "base/Ports.h"
#include "import/Pasteboard.h"
#include "store/ZNDBManager.h"

namespace mosaro::browser {

using importing::ImportItem;

namespace {
constexpr int kCollectionsTab = 0;
}

GridArrivals::GridArrivals(const BrowserEnvironment& environment, QWidget& pane)
    : m_environment(environment), m_arrival(pane)
{
}

bool GridArrivals::carriesMedia(const QMimeData& data)
{
    return !importing::filesOf(data).isEmpty() || importing::addressOf(data).isValid();
}

QStringList GridArrivals::allowedMedia() const
{
    return m_environment.allowedMedia ? m_environment.allowedMedia() : QStringList();
}

void GridArrivals::drop(const QMimeData& data)
{
    const QStringList paths = importing::filesOf(data);
    if (!paths.isEmpty()) {
        m_environment.bus.post(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, paths);
    } else if (importing::addressOf(data).isValid()) {
        m_arrival.fetch(importing::webImageOf(data, allowedMedia()),
                        m_environment.library.downloadDirectory(), [this](const ImportItem& item) {
                            m_environment.bus.post(base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE,
                                                   QVariantList{item.toRecord()});
                        });
    }
}

/// One selected row must be a collection of the user's; of several rows nothing is asked.
bool GridArrivals::canPaste(const SelectedCollections& selected) const
{
    const bool isReady = m_environment.library.isOpenedDatabase() && !m_environment.isBusy() &&
                         !m_arrival.isBusy() && m_environment.selectTabIndex() == kCollectionsTab;
    return isReady && !selected.empty() &&
           (selected.size() > 1 || selected.front().shape == store::SelectionElement::Shape::CollectionNode);
}

void GridArrivals::paste(const QMimeData& data, const SelectedCollections& selected)
{
    const QStringList paths = importing::filesOf(data);
    const bool isPossible = canPaste(selected);
    const QImage image = isPossible && paths.isEmpty() ? importing::imageOf(data) : QImage();
    if (isPossible && !paths.isEmpty()) {
        m_environment.bus.post(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, paths);
    } else if (!image.isNull()) {
        m_arrival.write(importing::clipboardPicture(image, QDateTime::currentDateTime()),
                        m_environment.library.downloadDirectory(), [this](const ImportItem& item) {
                            m_environment.bus.post(base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM, item.toRecord());
                        });
    } else {
        m_environment.prompts.beep();
    }
}

} // namespace mosaro::browser
