#pragma once

#include "organisation/CollectionTree.h"
#include "organisation/TreeWalk.h"
#include "store/LibraryState.h"

namespace mosaro::organisation {

/// What the tree is to look like after it was built anew.
struct RestorePlan {
    bool restores = false; ///< Without a remembered expansion nothing is expanded and nothing selected.
    NodeList expanded;     ///< In row order; all others collapse.
    NodeList selected;     ///< Remembered nodes that are visible then.
    QStringList pruned;    ///< Remembered IDs that no visible node has; to be forgotten.
    bool expandsFirstRow = false;
};

/// From the remembered IDs. A node below a collapsed one is not visible, so its ID is forgotten, too.
[[nodiscard]] RestorePlan restorePlan(const CollectionTree& tree, const QStringList& expandedIDs,
                                      const QStringList& selectedIDs);

/// Expansion and selection of the tree in the library's state record, current at every moment.
class ExpansionMemory {
public:
    explicit ExpansionMemory(store::LibraryState& state) : m_state(state) {}

    void willExpand(const CollectionNode& node);
    void willCollapse(const CollectionNode& node);
    /// Replaces the remembered selection.
    void rememberSelection(const NodeList& selected);
    void addSelected(const QString& id) { m_state.addLastSelectedCollection(id); }
    void forgetExpanded(const QStringList& ids);

    [[nodiscard]] QStringList expanded() { return m_state.expandedCollections(); }
    [[nodiscard]] RestorePlan plan(const CollectionTree& tree);

private:
    store::LibraryState& m_state;
};

/// The node that takes the selection over when any node collapses: the first selected one's parent, unless
/// that is a group. Whether the selected one lies inside the collapsing node plays no part.
[[nodiscard]] const CollectionNode* selectionAfterCollapse(const NodeList& selected);

} // namespace mosaro::organisation
