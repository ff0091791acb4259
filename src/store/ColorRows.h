#pragma once

#include "base/Result.h"
#include "store/MediaSet.h"
#include "store/Query.h"
#include "store/RowReader.h"
#include "store/StoreContext.h"

#include <vector>

namespace mosaro::store {

/// What a list of colours shows of one.
struct ColorRow {
    RowId row = kUnsavedRow;
    QString colorID;
    qint64 colorType = 0;
    bool isLike = false;
    qint64 uses = 0; ///< Links with items.
};

/// The colours that fulfil a condition, by row; in one go, without their records.
[[nodiscard]] base::Result<std::vector<ColorRow>> colorRows(StoreContext& context,
                                                            const Predicate& predicate);
[[nodiscard]] base::Result<std::vector<ColorRow>> colorRows(RowReader& reader, const Predicate& predicate);

/// The items that have any of the colours of these rows.
[[nodiscard]] MediaSet itemsOfColors(StoreContext& context, std::span<const RowId> colors);

} // namespace mosaro::store
