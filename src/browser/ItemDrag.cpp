#include "browser/ItemDrag.h"

#include "import/MRBrowserItem.h"
#include "store/ZNDBManager.h"

#include <QSet>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr size_t kBatch = 500;

bool isFixed(const SelectedCollections& selected)
{
    return selected.size() == 1 && selected.front().shape == store::SelectionElement::Shape::SystemNode;
}

} // namespace

ItemDrag itemDrag(store::ZNDBManager& library, std::span<const store::RowId> rows,
                  const SelectedCollections& selected)
{
    ItemDrag drag;
    if (!library.isOpenedDatabase()) {
        return drag;
    }
    const bool isMovable = !isFixed(selected);
    QSet<QString> collections;
    for (; !rows.empty(); rows = rows.subspan(std::min(kBatch, rows.size()))) {
        const auto batch = rows.first(std::min(kBatch, rows.size()));
        for (const auto& media : library.context()->objects<store::Media>(batch)) {
            const importing::MRBrowserItem item(media, library.masterDirPath());
            if (!item.isReadableMediaAtPath()) {
                continue;
            }
            drag.files.append(item.mediaPath());
            if (isMovable) {
                drag.record.dragItems.append(item.mediaID());
                collections.insert(item.mediaPID());
            }
        }
    }
    drag.record.oldCollections = collections.values();
    return drag;
}

} // namespace mosaro::browser
