#pragma once

#include "organisation/CollectionNode.h"

#include <QStringList>
#include <vector>

namespace mosaro::organisation {

using NodeList = std::vector<const CollectionNode*>;

/// Every node of a forest in row order, as if all were expanded.
[[nodiscard]] NodeList allNodes(const std::vector<std::unique_ptr<CollectionNode>>& nodes);

/// Adds the given nodes and all below them, skipping those that are in the list already.
void findChildrenInFolderItem(const std::vector<std::unique_ptr<CollectionNode>>& nodes,
                              NodeList& selectionArray);

/// The IDs on the way from the root to the node, the group's included.
[[nodiscard]] QStringList generatePathItem(const CollectionNode& node);

/// From the topmost ancestor that is no group down to the node.
[[nodiscard]] NodeList pathBelowGroup(const CollectionNode& node);

/// The children as a list.
[[nodiscard]] NodeList childList(const CollectionNode& node);

} // namespace mosaro::organisation
