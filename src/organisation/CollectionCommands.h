#pragma once

#include "base/Result.h"
#include "organisation/CollectionTree.h"
#include "organisation/TreeWalk.h"
#include "store/Collections.h"

#include <QVariantMap>
#include <optional>

namespace mosaro::organisation {

/// What a new collection or folder hangs below.
struct CollectionPlace {
    const CollectionNode* parent = nullptr; ///< Null: the top level.
};

/// Where a new collection, smart collection or folder goes: into a selected folder, beside a selected
/// collection (within its folder), else the top level. Nothing for a system node.
[[nodiscard]] std::optional<CollectionPlace> placeForNewItem(const NodeList& selected);
/// Among whose children a new smart collection gets its first name: beside the first selected node, whatever
/// that is, else at the top level.
[[nodiscard]] const CollectionNode* containerForSmartName(const NodeList& selected,
                                                          const CollectionTree& tree);

/// The kind and default name of a "New …" command by its tag; nothing for other tags.
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

/// What the editor of a smart collection gave back as a valid result, as a record to be made.
[[nodiscard]] NewCollection newSmartCollection(const QVariantMap& result);

/// Changes of the collections in the store; each saves at once. The tree is to be made anew after a success.
class CollectionCommands {
public:
    explicit CollectionCommands(store::StoreContext& context) : m_context(context) {}

    /// The new collectionID. The one place that makes collections. A parent whose record is gone counts as
    /// the top level.
    base::Result<QString> addItem(const NewCollection& item, const CollectionNode* parent);

    /// Sets the title. Duplicates are allowed.
    base::Result<void> rename(const CollectionNode& node, const QString& title);
    /// Whether a title may be set; one without a visible character may not.
    [[nodiscard]] static bool isAcceptableTitle(const QString& title);
    /// Title, match condition and rules from the editor's valid result.
    base::Result<void> editSmart(const CollectionNode& node, const QVariantMap& result);
    /// Hangs collections below a folder, or at the top level for an empty ID, in one save. Those whose record
    /// is gone are left out; gives the IDs of the others.
    base::Result<QStringList> reparent(const NodeList& nodes, const QString& parentID);
    /// One save for each; gives the IDs of those that were saved.
    QStringList setLabel(const NodeList& nodes, int label);

private:
    [[nodiscard]] std::shared_ptr<store::Collections> recordOf(const CollectionNode& node);
    base::Result<void> saveOrRollback();

    store::StoreContext& m_context;
};

} // namespace mosaro::organisation
