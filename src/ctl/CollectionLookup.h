#pragma once

#include "base/Result.h"
#include "organisation/CollectionTree.h"

#include <memory>

namespace mosaro::ctl {

[[nodiscard]] base::Result<std::unique_ptr<organisation::CollectionTree>>
collectionTree(store::StoreContext& context);

/// The collection, smart collection or folder of an ID or, when only one has it, a title.
[[nodiscard]] base::Result<const organisation::CollectionNode*>
collectionNode(const organisation::CollectionTree& tree, const QString& idOrTitle);

} // namespace mosaro::ctl
