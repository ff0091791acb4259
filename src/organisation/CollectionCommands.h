#pragma once

#include "base/Result.h"
#include "organisation/CollectionTree.h"
#include "organisation/TreeWalk.h"
#include "store/StoreContext.h"

#include <QVariantList>
#include <optional>

namespace mosaro::organisation {

/// Tags of the commands in menus.
enum class SidebarCommand { NewCollection = 0, NewFolder = 2, Edit = 7, Import = 2000 };

/// Whether a command makes sense for a selection.
[[nodiscard]] bool isCommandPossible(SidebarCommand command, const NodeList& selected);

/// What a new collection or folder hangs below.
struct CollectionPlace {
    const CollectionNode* parent = nullptr; ///< Null: the top level.
};

/// Where "New Collection" and "New Folder" put their item: into a selected folder, beside a selected
/// collection (within its folder), else the top level. Nothing for a system node.
[[nodiscard]] std::optional<CollectionPlace> placeForNewItem(const NodeList& selected);

/// The kind and default name of a "New …" command by its tag.
struct NewItemKind {
    int type;
    QString name;
};
[[nodiscard]] std::optional<NewItemKind> newItemKind(int tag);

/// What is stored of a new collection beside the defaults.
struct NewCollection {
    int type = store::kTypeCollection;
    QString title;
    bool filterCondition = false;
    QVariantList filters; ///< Stored only when not empty.
};

/// Changes of the collections in the store; each saves at once. The tree is to be made anew after a success.
class CollectionCommands {
public:
    explicit CollectionCommands(store::StoreContext& context) : m_context(context) {}

    /// The new collectionID. The one place that makes collections. A parent whose record is gone counts as
    /// the top level.
    base::Result<QString> addItem(const NewCollection& item, const CollectionNode* parent);

    /// Sets the title. Duplicates are allowed.
    base::Result<void> rename(const CollectionNode& node, const QString& title);
    /// Whether a title may be set; "" and " " may not.
    [[nodiscard]] static bool isAcceptableTitle(const QString& title);

private:
    store::StoreContext& m_context;
};

} // namespace mosaro::organisation
