#include "browser/BrowserCommands.h"

#include "browser/DatabaseError.h"
#include "store/Media.h"
#include "store/ZNDBManager.h"

#include <algorithm>
#include <span>

namespace mosaro::browser {

namespace {

/// Records held at once; each batch is one transaction, so that memory does not follow the size of a
/// selection.
constexpr size_t kBatch = 5000;

} // namespace

bool BrowserCommands::ratingImages(const std::vector<store::RowId>& rows, int rating)
{
    return rating >= 0 && rating <= 5 &&
           changeImages(rows, [rating](store::Media& media) { media.setMediaRating(rating); });
}

bool BrowserCommands::labelImages(const std::vector<store::RowId>& rows, int label)
{
    return label >= 0 && label <= 7 &&
           changeImages(rows, [label](store::Media& media) { media.setMediaLabel(label); });
}

bool BrowserCommands::changeImages(const std::vector<store::RowId>& rows, const Change& change)
{
    if (rows.empty() || !m_library.isOpenedDatabase()) {
        return false;
    }
    store::StoreContext& context = *m_library.context();
    bool saved = true;
    for (size_t begin = 0; begin < rows.size(); begin += kBatch) {
        const std::span batch(rows.data() + begin, std::min(kBatch, rows.size() - begin));
        const auto items = context.objects<store::Media>(batch);
        for (const auto& media : items) {
            change(*media);
        }
        const base::Result<void> outcome = context.save();
        showDatabaseError(outcome);
        saved = saved && outcome.ok();
    }
    return saved;
}

} // namespace mosaro::browser
