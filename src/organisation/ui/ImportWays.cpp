#include "organisation/ui/ImportWays.h"

#include "base/Notifications.h"
#include "base/Text.h"
#include "base/ZNUtilities.h"
#include "organisation/CollectionNames.h"
#include "organisation/ui/MRLibraryCollectionSource.h"

#include <QFileInfo>

namespace mosaro::organisation {

using importing::ImportItem;

namespace {

std::vector<ImportItem> itemsOf(const QVariant& list)
{
    std::vector<ImportItem> items;
    const QVariantList entries = list.toList();
    for (const QVariant& entry : entries) {
        items.push_back(ImportItem::fromVariant(entry));
    }
    return items;
}

} // namespace

ImportWays::ImportWays(MRLibraryCollectionSource& source, const SidebarEnvironment& environment)
    : m_source(source), m_environment(environment)
{
}

bool ImportWays::isDropTarget(const CollectionNode* node)
{
    return !node || node->type == store::kTypeCollection || node->type == store::kTypeFolder;
}

const CollectionNode* ImportWays::onlySelected() const
{
    const NodeList selected = m_source.selectedNodes();
    return selected.size() == 1 ? selected.front() : nullptr;
}

void ImportWays::importMedia()
{
    const CollectionNode* target = onlySelected();
    if (!target || !isDropTarget(target) || m_source.isBusy()) {
        return;
    }
    base::OpenPanelRequest request;
    request.title = base::text("Message.Import", target->title);
    request.prompt = base::text("Basic.Choose");
    request.suffixes = m_environment.classification.allowedMedia();
    request.directories = true;
    request.multiple = true;
    QStringList paths = m_environment.prompts.openPanel(request);
    paths.removeDuplicates();
    // The panel ran an event loop of its own, in which the tree may have been made anew.
    target = onlySelected();
    if (!paths.isEmpty() && target) {
        importDropped(paths, target);
    }
}

void ImportWays::importDropped(const QStringList& paths, const CollectionNode* onto)
{
    if (!paths.isEmpty()) {
        importItems(ImportItem::fromPaths(paths), collectionNameFromPaths(paths), onto);
    }
}

void ImportWays::importReceived(const ImportItem& item, const QString& ontoID)
{
    const CollectionNode* onto = m_source.node(ontoID);
    const bool isGone = !onto && !ontoID.isEmpty();
    if (isGone || !importItems({item}, base::text("Basic.Untitled.Collection"), onto)) {
        discardReceived(item);
    }
}

bool ImportWays::importItems(std::vector<ImportItem> items, const QString& nameOfNew,
                             const CollectionNode* onto)
{
    if (!isDropTarget(onto) || m_source.isBusy()) {
        return false;
    }
    if (onto) {
        m_source.selectNode(*onto);
    }
    const CollectionNode* target = onto && onto->type == store::kTypeCollection
                                       ? onto
                                       : m_source.addCollectionWithName(nameOfNew, !onto);
    return target && m_source.addMediaItem(std::move(items), *target, true);
}

bool ImportWays::requestDraggedFileToImport(const QVariant& value)
{
    const CollectionNode* target = onlySelected();
    const bool isList = value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QVariantList;
    return target && target->type == store::kTypeCollection && isList &&
           m_source.addMediaItem(itemsOf(value), *target, true);
}

void ImportWays::requestURLImageToImport(const QVariant& value)
{
    if (!requestDraggedFileToImport(value)) {
        for (const ImportItem& item : itemsOf(value)) {
            discardReceived(item);
        }
    }
}

void ImportWays::didCapturedMedia(const QVariant& record)
{
    const ImportItem item = ImportItem::fromVariant(record);
    m_environment.utilities.postNotification(base::MOSARO_NOTI_REQUEST_IMPORT_MODE);
    const CollectionNode* target = item.path.isEmpty() || m_source.isBusy() ? nullptr : captureTarget();
    if (!target || !m_source.addMediaItem({item}, *target, true)) {
        discardReceived(item);
    }
}

const CollectionNode* ImportWays::captureTarget()
{
    const QString name = base::text("Basic.Untitled.Collection");
    const CollectionNode* selected = onlySelected();
    if (selected && selected->type == store::kTypeCollection) {
        return selected;
    }
    if (!selected || !selected->isUserNode()) {
        return m_source.addCollectionWithName(name, true);
    }
    if (selected->type != store::kTypeFolder) {
        if (!selected->parent) {
            return nullptr;
        }
        if (selected->parent->isGroup) {
            return m_source.addCollectionWithName(name, true);
        }
        m_source.selectNode(*selected->parent);
    }
    return m_source.addCollectionWithName(name, false);
}

void ImportWays::collectionSourceCreated(const QVariant& record)
{
    const QVariantMap map = record.toMap();
    const QVariant item = map.value(base::MOSARO_NOTI_KEY_COLLECTION_ITEM);
    const QString id = item.toMap().value(QStringLiteral("ID")).toString();
    if (m_source.isBusy() || !m_source.showCollectionAlone(id)) {
        return;
    }
    const QString name = map.value(base::MOSARO_NOTI_KEY_COLLECTION_NAME).toString();
    const CollectionNode* target = onlySelected();
    if (target && target->type == store::kTypeFolder && !name.isEmpty() &&
        (target = m_source.addCollectionWithName(name, false)) != nullptr) {
        m_environment.utilities.postNotification(base::MOSARO_NOTI_COLLECTION_SOURCE_CHANGED, target->id);
        target = onlySelected();
    }
    if (target && target->type == store::kTypeCollection) {
        m_source.addMediaItem(itemsOf(map.value(base::MOSARO_NOTI_KEY_COLLECTION_IMPORT_ITEMS)), *target,
                              false);
    }
}

/// Takes away what was written for an import that does not come. Other files are the user's.
void ImportWays::discardReceived(const ImportItem& item)
{
    if (QFileInfo(item.path).absolutePath() == m_environment.library.downloadDirectory()) {
        QFile::remove(item.path);
    }
}

} // namespace mosaro::organisation
