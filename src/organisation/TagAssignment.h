#pragma once

#include "organisation/TagList.h"

#include <span>

namespace mosaro::organisation {

/// How a tag stands with a selection of items.
enum class TagUse { None, Some, All };

/// A tag of the library in the panel that assigns tags.
struct AssignedTag {
    TagRecord tag;
    TagUse use = TagUse::None;
    bool operator==(const AssignedTag&) const = default;
};

/// All tags in the order of the list, each with its use by the items. Reads no item. After a failed query no
/// tag counts as used.
[[nodiscard]] std::vector<AssignedTag> assignedTags(store::StoreContext& context, const TagList& list,
                                                    std::span<const store::RowId> items);

} // namespace mosaro::organisation
