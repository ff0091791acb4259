#include "organisation/ui/ImportWays.h"

#include "base/Text.h"
#include "organisation/CollectionNames.h"
#include "organisation/ui/MRLibraryCollectionSource.h"

namespace mosaro::organisation {

using importing::ImportItem;

ImportWays::ImportWays(MRLibraryCollectionSource& source, base::Prompts& prompts,
                       const importing::MediaClassification& classification)
    : m_source(source), m_prompts(prompts), m_classification(classification)
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
    request.suffixes = m_classification.allowedMedia();
    request.directories = true;
    request.multiple = true;
    QStringList paths = m_prompts.openPanel(request);
    paths.removeDuplicates();
    // The panel ran an event loop of its own, in which the tree may have been made anew.
    target = onlySelected();
    if (!paths.isEmpty() && target) {
        importDropped(paths, target);
    }
}

void ImportWays::importDropped(const QStringList& paths, const CollectionNode* onto)
{
    if (paths.isEmpty() || !isDropTarget(onto) || m_source.isBusy()) {
        return;
    }
    if (!onto) {
        importIntoNewCollection(paths, true);
        return;
    }
    m_source.selectNode(*onto);
    if (onto->type == store::kTypeFolder) {
        importIntoNewCollection(paths, false);
    } else {
        importInto(*onto, paths);
    }
}

void ImportWays::importIntoNewCollection(const QStringList& paths, bool onRoot)
{
    const CollectionNode* made = m_source.addCollectionWithName(collectionNameFromPaths(paths), onRoot);
    if (made) {
        importInto(*made, paths);
    }
}

void ImportWays::importInto(const CollectionNode& node, const QStringList& paths)
{
    m_source.addMediaItem(ImportItem::fromPaths(paths), node, true);
}

void ImportWays::requestDraggedFileToImport(const QVariant& value)
{
    const CollectionNode* target = onlySelected();
    const bool isList = value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QVariantList;
    if (!target || target->type != store::kTypeCollection || !isList) {
        return;
    }
    std::vector<ImportItem> items;
    const QVariantList list = value.toList();
    for (const QVariant& entry : list) {
        items.push_back(ImportItem::fromVariant(entry));
    }
    m_source.addMediaItem(std::move(items), *target, true);
}

} // namespace mosaro::organisation
