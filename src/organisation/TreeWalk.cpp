#include "organisation/TreeWalk.h"

#include <algorithm>
#include <unordered_set>

namespace mosaro::organisation {

namespace {

void appendAll(const std::vector<std::unique_ptr<CollectionNode>>& nodes, NodeList& list)
{
    for (const auto& node : nodes) {
        list.push_back(node.get());
        appendAll(node->nodes, list);
    }
}

} // namespace

NodeList allNodes(const std::vector<std::unique_ptr<CollectionNode>>& nodes)
{
    NodeList list;
    appendAll(nodes, list);
    return list;
}

void findChildrenInFolderItem(const std::vector<std::unique_ptr<CollectionNode>>& nodes,
                              NodeList& selectionArray)
{
    std::unordered_set<const CollectionNode*> present(selectionArray.begin(), selectionArray.end());
    for (const CollectionNode* node : allNodes(nodes)) {
        if (present.insert(node).second) {
            selectionArray.push_back(node);
        }
    }
}

QStringList generatePathItem(const CollectionNode& node)
{
    QStringList path;
    for (const CollectionNode* step = &node; step; step = step->parent) {
        path.prepend(step->id);
    }
    return path;
}

NodeList pathBelowGroup(const CollectionNode& node)
{
    NodeList path;
    for (const CollectionNode* step = &node; step && !step->isGroup; step = step->parent) {
        path.push_back(step);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

NodeList childList(const CollectionNode& node)
{
    NodeList list;
    for (const auto& child : node.nodes) {
        list.push_back(child.get());
    }
    return list;
}

} // namespace mosaro::organisation
