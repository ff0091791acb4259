#include "organisation/ui/PasteboardWays.h"

#include "base/Notifications.h"
#include "base/ZNUtilities.h"
#include "import/Pasteboard.h"
#include "organisation/ui/MRLibraryCollectionSource.h"

namespace mosaro::organisation {

using importing::ImportItem;

PasteboardWays::PasteboardWays(MRLibraryCollectionSource& source, ImportWays& ways,
                               const SidebarEnvironment& environment, QWidget& sidebar)
    : m_source(source), m_ways(ways), m_environment(environment), m_arrival(sidebar)
{
}

void PasteboardWays::accept(const QMimeData& data, const CollectionNode* onto)
{
    const QStringList paths = importing::filesOf(data);
    if (!paths.isEmpty()) {
        m_ways.importDropped(paths, onto);
        return;
    }
    if (!importing::addressOf(data).isValid() || !ImportWays::isDropTarget(onto)) {
        return;
    }
    // The tree may be made anew before the picture is there.
    const QString id = onto ? onto->id : QString();
    m_arrival.fetch(importing::webImageOf(data, m_environment.classification.allowedMedia()),
                    m_environment.library.downloadDirectory(),
                    [this, id](const ImportItem& item) { m_ways.importReceived(item, id); });
}

void PasteboardWays::pasteItemsToOutlineView(const QMimeData& data)
{
    const bool isWindowBusy = m_environment.isWindowBusy && m_environment.isWindowBusy();
    if (isWindowBusy || !m_source.isInstalled() || m_source.isBusy() || m_arrival.isBusy() ||
        !m_environment.library.isOpenedDatabase()) {
        m_environment.prompts.beep();
        return;
    }
    const QStringList paths = importing::filesOf(data);
    if (!paths.isEmpty()) {
        pasteFiles(paths);
        return;
    }
    const QImage image = importing::imageOf(data);
    if (image.isNull()) {
        m_environment.prompts.beep();
        return;
    }
    m_arrival.write(importing::clipboardPicture(image, QDateTime::currentDateTime()),
                    m_environment.library.downloadDirectory(), [this](const ImportItem& item) {
                        m_environment.utilities.postNotification(base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM,
                                                                 item.toRecord());
                    });
}

void PasteboardWays::pasteFiles(const QStringList& paths)
{
    const NodeList selected = m_source.selectedNodes();
    const CollectionNode* target = selected.size() == 1 ? selected.front() : nullptr;
    if (ImportWays::isDropTarget(target)) {
        m_ways.importDropped(paths, target);
    } else {
        m_environment.prompts.beep();
    }
}

} // namespace mosaro::organisation
