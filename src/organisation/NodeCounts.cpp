#include "organisation/NodeCounts.h"

#include "organisation/CollectionTree.h"
#include "store/Collections.h"
#include "store/Media.h"
#include "store/RecordReference.h"

namespace mosaro::organisation {

qint64 NodeCounts::count(const CollectionNode& node)
{
    auto known = m_counts.find(node.id);
    if (known == m_counts.end()) {
        known = m_counts.insert(node.id, countNow(node));
    }
    return *known;
}

qint64 NodeCounts::countNow(const CollectionNode& node) const
{
    store::StoreContext* context = m_library.context();
    if (!context || node.isGroup) {
        return 0;
    }
    if (node.type == kTypeAll) {
        const auto all = context->count(store::Media::info(), store::Predicate::all());
        return all ? all.value() : 0;
    }
    if (!node.isUserNode()) {
        return 0;
    }
    const auto record = store::unarchivedReference<store::Collections>(*context, node.object);
    return record ? record->mediaCount() : 0;
}

} // namespace mosaro::organisation
