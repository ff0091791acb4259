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
    if (rating < 0 || rating > 5 || rows.empty() || !m_library.isOpenedDatabase()) {
        return false;
    }
    store::StoreContext& context = *m_library.context();
    bool saved = true;
    for (size_t begin = 0; begin < rows.size(); begin += kBatch) {
        const std::span batch(rows.data() + begin, std::min(kBatch, rows.size() - begin));
        const auto items = context.objects<store::Media>(batch);
        for (const auto& media : items) {
            media->setMediaRating(rating);
        }
        const base::Result<void> outcome = context.save();
        showDatabaseError(outcome);
        saved = saved && outcome.ok();
    }
    return saved;
}

} // namespace mosaro::browser
