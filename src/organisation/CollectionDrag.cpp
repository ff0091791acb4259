#include "organisation/CollectionDrag.h"

#include "import/MediaDrag.h"
#include "import/Pasteboard.h"

#include <QMimeData>
#include <algorithm>

namespace mosaro::organisation {

namespace {

int levelOf(const CollectionNode& node)
{
    int level = 0;
    for (const CollectionNode* step = node.parent; step; step = step->parent) {
        ++level;
    }
    return level;
}

bool contains(const NodeList& nodes, const CollectionNode* node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

/// Whether collections may hang below: a folder, or the heading of the user's collections.
bool takesCollections(const CollectionNode& target)
{
    return target.isGroup ? target.id == QLatin1String(kYourCollectionsGroupID)
                          : target.type == store::kTypeFolder;
}

bool isInside(const CollectionNode& node, const CollectionNode& ancestor)
{
    const CollectionNode* step = &node;
    while (step && step != &ancestor) {
        step = step->parent;
    }
    return step != nullptr;
}

DragOperation validateCollections(const NodeList& dragged, const CollectionNode* target)
{
    if (dragged.empty() || !target || !takesCollections(*target)) {
        return DragOperation::None;
    }
    const bool isRefused = std::any_of(dragged.begin(), dragged.end(), [target](const CollectionNode* node) {
        return isInside(*target, *node) || target == node->parent;
    });
    return isRefused ? DragOperation::None : DragOperation::Move;
}

DragOperation validateMedia(const DragContent& content, const CollectionNode& target,
                            const NodeList& selected)
{
    const bool fromUserNodes =
        !selected.empty() && std::all_of(selected.begin(), selected.end(), [](const CollectionNode* node) {
            return node->type >= store::kTypeCollection && node->type <= store::kTypeFolder;
        });
    const bool isElsewhere =
        target.type == store::kTypeCollection && !content.oldCollections.contains(target.id);
    return fromUserNodes && isElsewhere ? DragOperation::Move : DragOperation::None;
}

} // namespace

NodeList draggedCollections(const NodeList& items)
{
    NodeList dragged;
    for (const CollectionNode* node : items) {
        if (!node->isUserNode() || node->object.isEmpty() || contains(dragged, node)) {
            continue;
        }
        if (!dragged.empty() && levelOf(*node) != levelOf(*dragged.front())) {
            return {};
        }
        dragged.push_back(node);
    }
    return dragged;
}

DragContent dragContentOf(const QMimeData& data)
{
    DragContent content;
    content.hasCollections = data.hasFormat(QLatin1String(MR_DRAG_AND_DROP_COLLECTION));
    if (const auto drag = importing::mediaDragOf(data)) {
        content.hasMedia = true;
        content.oldCollections = drag->oldCollections;
    }
    content.hasFiles = !importing::filesOf(data).isEmpty();
    content.hasAddress = importing::addressOf(data).isValid();
    return content;
}

DragOperation validateDrop(const DragContent& content, const DropPlace& place, const NodeList& selected)
{
    const bool isOnItem = place.index == -1;
    if (content.hasCollections && isOnItem) {
        return validateCollections(content.collections, place.target);
    }
    if (content.hasMedia && place.target && isOnItem) {
        return validateMedia(content, *place.target, selected);
    }
    if (content.fromBrowser || !isOnItem || !(content.hasFiles || content.hasAddress)) {
        return DragOperation::None;
    }
    const bool isTaken = !place.target || place.target->type == store::kTypeCollection ||
                         place.target->type == store::kTypeFolder;
    return isTaken ? DragOperation::Copy : DragOperation::None;
}

} // namespace mosaro::organisation
