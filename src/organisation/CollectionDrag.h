#pragma once

#include "organisation/CollectionTree.h"
#include "organisation/TreeWalk.h"

#include <QStringList>

class QMimeData;

namespace mosaro::organisation {

/// Pasteboard type of collections that are dragged out of the tree: a list of their IDs.
inline constexpr auto MR_DRAG_AND_DROP_COLLECTION = "MR_DRAG_AND_DROP_COLLECTION";

enum class DragOperation { None, Copy, Move };

/// The nodes that travel when `items` are dragged: collections, smart collections and folders, all at one
/// depth of the tree. Empty when the drag is refused.
[[nodiscard]] NodeList draggedCollections(const NodeList& items);

/// What is dragged, as far as the tree looks at it.
struct DragContent {
    NodeList collections;        ///< From this tree, when the pasteboard has their type.
    bool hasCollections = false; ///< The pasteboard has their type.
    bool hasMedia = false;       ///< A record of items is there, and their former collections below.
    QStringList oldCollections;
    bool hasFiles = false;
    bool hasAddress = false;
    bool fromBrowser = false; ///< The drag began in the grid of items.
};

/// What the data of a drag tell of it: all but the collections and where it began. To be read as the drag
/// comes in, and kept: each look into the data of another program waits for that program.
[[nodiscard]] DragContent dragContentOf(const QMimeData& data);

/// Where it is: on a node, or on none for the space outside of all rows; `index` is -1 for that, and the
/// position for a place between two rows.
struct DropPlace {
    const CollectionNode* target = nullptr;
    int index = -1;
};

/// What a drop would do, by the first rule that applies. `selected` is the selection of the tree: items move
/// only out of what the user made.
[[nodiscard]] DragOperation validateDrop(const DragContent& content, const DropPlace& place,
                                         const NodeList& selected);

} // namespace mosaro::organisation
