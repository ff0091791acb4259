#include "organisation/ui/OutlineNavigator.h"

#include "organisation/ui/CollectionOutline.h"

#include <QSignalBlocker>

namespace mosaro::organisation {

OutlineNavigator::OutlineNavigator(CollectionOutline& outline, const CollectionTree& tree,
                                   ExpansionMemory& memory, std::function<void()> selectNothing)
    : m_outline(outline), m_tree(tree), m_memory(memory), m_selectNothing(std::move(selectNothing))
{
}

void OutlineNavigator::restoreOutlineViewStatus()
{
    m_outline.setFocus();
    const RestorePlan plan = m_memory.plan(m_tree);
    if (plan.restores) {
        applyExpansion(plan.expanded);
    }
    if (plan.selected.empty()) {
        m_selectNothing();
    } else {
        m_outline.selectNodes(plan.selected);
        m_outline.scrollToNode(*plan.selected.back());
    }
    m_memory.forgetExpanded(plan.pruned);
    if (plan.expandsFirstRow && !m_tree.isEmpty()) {
        m_outline.setNodeExpanded(*m_tree.library().front(), true);
    }
}

void OutlineNavigator::applyExpansion(const NodeList& expanded)
{
    const QSignalBlocker unheard(m_outline);
    m_outline.selectNodes({});
    m_outline.collapseAll();
    for (const CollectionNode* node : expanded) {
        m_outline.setNodeExpanded(*node, true);
    }
}

void OutlineNavigator::findCollectionNode(const QString& id, const QString& withParentID)
{
    selectCollections({id}, withParentID);
}

void OutlineNavigator::selectCollections(const QStringList& ids, const QString& withParentID)
{
    if (const CollectionNode* parent = m_tree.node(withParentID)) {
        m_outline.setNodeExpanded(*parent, true);
    }
    NodeList nodes;
    for (const CollectionNode* node : allNodes(m_tree.library())) {
        if (ids.contains(node->id)) {
            nodes.push_back(node);
        }
    }
    if (!nodes.empty()) {
        m_outline.selectNodes(nodes);
        m_outline.scrollToNode(*nodes.front());
    }
}

void OutlineNavigator::reopenUserGroup()
{
    if (const CollectionNode* group = m_tree.userGroup()) {
        m_memory.willExpand(*group); // The view tells nothing of a group that is empty.
        m_outline.setNodeExpanded(*group, true);
    }
}

void OutlineNavigator::reveal(const QString& id, const QStringList& keptOpen)
{
    const CollectionNode* wanted = m_tree.node(id);
    if (!wanted || wanted->isGroup) {
        return;
    }
    {
        const QSignalBlocker unheard(m_outline);
        m_outline.selectNodes({});
    }
    const QStringList open = generatePathItem(*wanted) + keptOpen;
    for (const CollectionNode* node : allNodes(m_tree.library())) {
        if (node->hasNodes && node != wanted) {
            m_outline.setNodeExpanded(*node, open.contains(node->id));
        }
    }
    m_outline.selectNodes({wanted});
    m_outline.scrollToNode(*wanted);
}

void OutlineNavigator::updateSelection()
{
    const NodeList selected = m_outline.selectedNodes();
    if (selected.empty()) {
        m_selectNothing();
        return;
    }
    {
        const QSignalBlocker unheard(m_outline);
        m_outline.selectNodes({});
    }
    m_outline.selectNodes(selected);
    m_outline.scrollToNode(*selected.front());
}

void OutlineNavigator::selectAllItems()
{
    if (m_tree.isEmpty()) {
        return;
    }
    const CollectionNode& group = *m_tree.library().front();
    m_outline.setNodeExpanded(group, true);
    if (!group.nodes.empty() && group.nodes.front()->type == kTypeAll) {
        m_outline.selectNodes({group.nodes.front().get()});
    }
}

} // namespace mosaro::organisation
