#pragma once

#include "base/Result.h"
#include "organisation/CollectionNode.h"
#include "store/StoreContext.h"

namespace mosaro::organisation {

inline constexpr auto kLibraryGroupID = "0";
inline constexpr auto kCollectionsGroupID = "3";
inline constexpr auto kYourCollectionsGroupID = "16";

inline constexpr int kTypeAll = 1;
inline constexpr int kTypeRecent = 2;

/// The forest of the sidebar: two fixed groups of system nodes, and one of the user's own collections that is
/// made anew on every structural change.
class CollectionTree {
public:
    using Nodes = std::vector<std::unique_ptr<CollectionNode>>;

    /// The groups. Two of them when the user's collections could not be read.
    [[nodiscard]] const Nodes& library() const { return m_library; }
    [[nodiscard]] bool isEmpty() const { return m_library.empty(); }

    /// All of it, from nothing.
    base::Result<void> makeLibrary(store::StoreContext& context);
    /// The third group alone. On failure the tree stays as it was. Collections whose parent is gone are left
    /// out.
    base::Result<void> makeUserCollections(store::StoreContext& context);

    [[nodiscard]] const CollectionNode* userGroup() const;
    /// The node with an ID, groups included; null when there is none.
    [[nodiscard]] const CollectionNode* node(const QString& id) const;

private:
    void makeRootItems();
    void makeCollections();

    Nodes m_library;
};

/// The name of a node's 18 by 18 image; empty for groups and unknown types.
[[nodiscard]] QString sidebarImageName(int type);

} // namespace mosaro::organisation
