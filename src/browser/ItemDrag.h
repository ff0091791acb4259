#pragma once

#include "browser/SelectionFacts.h"
#include "import/MediaDrag.h"

#include <span>

namespace mosaro::browser {

/// What items hand out when they are dragged.
struct ItemDrag {
    importing::MediaDrag record; ///< Empty for items that cannot be moved to another collection.
    QStringList files;
};

/// Items whose file cannot be read are left out. What is shown of a system node hands out files only; from a
/// collection, a tag, a colour or several rows items can be moved.
[[nodiscard]] ItemDrag itemDrag(store::ZNDBManager& library, std::span<const store::RowId> rows,
                                const SelectedCollections& selected);

} // namespace mosaro::browser
