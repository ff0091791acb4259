#include "organisation/TagAssignment.h"

#include "store/TagLinks.h"

namespace mosaro::organisation {

std::vector<AssignedTag> assignedTags(store::StoreContext& context, const TagList& list,
                                      std::span<const store::RowId> items)
{
    QHash<store::RowId, qint64> counts;
    if (!items.empty()) {
        if (auto counted = store::tagCounts(context, items)) {
            counts = std::move(counted).value();
        }
    }
    std::vector<AssignedTag> tags;
    tags.reserve(list.tags().size());
    for (const TagRecord& tag : list.tags()) {
        const qint64 count = counts.value(tag.object);
        const bool onAll = count > 0 && count >= qint64(items.size());
        tags.push_back({tag, onAll ? TagUse::All : count > 0 ? TagUse::Some : TagUse::None});
    }
    return tags;
}

} // namespace mosaro::organisation
