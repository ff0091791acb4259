#pragma once

#include "import/Analysis.h"
#include "store/Media.h"
#include "store/StoreContext.h"

#include <QStringList>
#include <memory>

namespace mosaro::importing {

/// Links an item with the first four colours, as types 0 to 3; makes the colours that the library lacks.
/// Leaves the save to the caller. The item has no colour links yet.
void linkColors(store::StoreContext& context, const std::shared_ptr<store::Media>& media,
                const std::vector<DominantColor>& colors);

/// Links an item with tags by their exact titles; makes those that the library lacks, in `newTagColor`.
/// Leaves the save to the caller. The item has no tags yet.
void linkTags(store::StoreContext& context, const std::shared_ptr<store::Media>& media,
              const QStringList& titles, const QString& newTagColor);

} // namespace mosaro::importing
