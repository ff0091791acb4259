#include "organisation/ExpansionMemory.h"

namespace mosaro::organisation {

namespace {

void planRows(const CollectionTree::Nodes& nodes, const QStringList& expandedIDs,
              const QStringList& selectedIDs, RestorePlan& plan)
{
    for (const auto& node : nodes) {
        if (selectedIDs.contains(node->id)) {
            plan.selected.push_back(node.get());
        }
        if (node->hasNodes && expandedIDs.contains(node->id)) {
            plan.expanded.push_back(node.get());
            plan.pruned.removeAll(node->id);
            planRows(node->nodes, expandedIDs, selectedIDs, plan);
        }
    }
}

} // namespace

RestorePlan restorePlan(const CollectionTree& tree, const QStringList& expandedIDs,
                        const QStringList& selectedIDs)
{
    RestorePlan plan;
    plan.restores = !expandedIDs.isEmpty();
    if (plan.restores) {
        plan.pruned = expandedIDs;
        planRows(tree.library(), expandedIDs, selectedIDs, plan);
    }
    const CollectionNode* userGroup = tree.userGroup();
    plan.expandsFirstRow = userGroup && userGroup->nodes.empty();
    return plan;
}

void ExpansionMemory::willExpand(const CollectionNode& node)
{
    if (node.hasNodes) {
        m_state.addExpandedCollection(node.id);
    }
}

void ExpansionMemory::willCollapse(const CollectionNode& node)
{
    if (node.hasNodes) {
        m_state.removeExpandedCollection(node.id);
    }
}

void ExpansionMemory::rememberSelection(const NodeList& selected)
{
    m_state.removeAllLastSelectedCollections();
    for (const CollectionNode* node : selected) {
        m_state.addLastSelectedCollection(node->id);
    }
}

void ExpansionMemory::forgetExpanded(const QStringList& ids)
{
    for (const QString& id : ids) {
        m_state.removeExpandedCollection(id);
    }
}

RestorePlan ExpansionMemory::plan(const CollectionTree& tree)
{
    return restorePlan(tree, m_state.expandedCollections(), m_state.lastSelectedCollections());
}

const CollectionNode* selectionAfterCollapse(const NodeList& selected)
{
    if (selected.empty()) {
        return nullptr;
    }
    const CollectionNode* parent = selected.front()->parent;
    return parent && !parent->isGroup ? parent : nullptr;
}

} // namespace mosaro::organisation
