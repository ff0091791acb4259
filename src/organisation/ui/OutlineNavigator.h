#pragma once

#include "organisation/ExpansionMemory.h"

#include <functional>

namespace mosaro::organisation {

class CollectionOutline;

/// Brings the tree view into a wanted state: what was expanded and selected before, a collection to reveal, a
/// selection to run again.
class OutlineNavigator {
public:
    /// `selectNothing` empties the set of selected items and tells the browser.
    OutlineNavigator(CollectionOutline& outline, const CollectionTree& tree, ExpansionMemory& memory,
                     std::function<void()> selectNothing);

    /// After every rebuild. With nothing remembered as expanded no selection is restored either.
    void restoreOutlineViewStatus();
    /// Expands the parent, selects the node and shows it.
    void findCollectionNode(const QString& id, const QString& withParentID);
    /// Expands the parent, when one is given, selects the nodes that there are and shows the first.
    void selectCollections(const QStringList& ids, const QString& withParentID);
    /// Opens the group of the user's collections and remembers it as open, also when it is empty.
    void reopenUserGroup();
    /// Reveals and selects the node; leaves open only what was open before and what leads there. An unknown
    /// ID changes nothing.
    void findCollectionItem(const QString& id) { reveal(id, m_memory.expanded()); }
    /// The same with all else closed.
    void findCollectionItemAlone(const QString& id) { reveal(id, {}); }
    /// Runs the selection again.
    void updateSelection();
    /// Shows and selects All.
    void selectAllItems();

private:
    void reveal(const QString& id, const QStringList& keptOpen);
    void applyExpansion(const NodeList& expanded);

    CollectionOutline& m_outline;
    const CollectionTree& m_tree;
    ExpansionMemory& m_memory;
    std::function<void()> m_selectNothing;
};

} // namespace mosaro::organisation
