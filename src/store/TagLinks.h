#pragma once

#include "store/StoreContext.h"

#include <QHash>
#include <span>

namespace mosaro::store {

/// How many items carry each tag, by the tag's row. Tags that none carries are left out.
[[nodiscard]] base::Result<QHash<RowId, qint64>> tagCounts(StoreContext& context);

/// The same for some items only, by their rows.
[[nodiscard]] base::Result<QHash<RowId, qint64>> tagCounts(StoreContext& context,
                                                           std::span<const RowId> media);

/// The link of each of these items with a tag, by the item's row; those without one are left out.
[[nodiscard]] base::Result<QHash<RowId, RowId>> linksOfTag(StoreContext& context, RowId tag,
                                                           std::span<const RowId> media);

/// The mediaID of each of these items that there is.
[[nodiscard]] base::Result<QHash<RowId, QString>> mediaIDs(StoreContext& context,
                                                           std::span<const RowId> media);

/// The items of a tag, or of any of several, by the rows of the tags.
[[nodiscard]] Predicate withAnyTag(std::span<const RowId> tags);

} // namespace mosaro::store
