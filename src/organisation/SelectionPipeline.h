#pragma once

#include "organisation/TreeWalk.h"
#include "store/Collections.h"
#include "store/MediaSet.h"
#include "store/StoreContext.h"

#include <QDateTime>
#include <optional>

namespace mosaro::base {
class ZNUserDefaults;
}

namespace mosaro::organisation {

/// Selected nodes and, below each folder, everything in it; each once.
[[nodiscard]] NodeList selectionArray(const NodeList& selected);

/// Turns a selection of the tree into the set of items to show: the union of what its nodes hold.
class SelectionPipeline {
public:
    SelectionPipeline(store::StoreContext& context, base::ZNUserDefaults& defaults)
        : m_context(context), m_defaults(defaults)
    {
    }

    [[nodiscard]] store::MediaSet selectedMedia(const NodeList& selected, const QDateTime& now) const;

private:
    [[nodiscard]] std::optional<store::Predicate> systemPredicate(int type, const QDateTime& now) const;
    [[nodiscard]] std::optional<store::Predicate> smartPredicate(const CollectionNode& node) const;

    store::StoreContext& m_context;
    base::ZNUserDefaults& m_defaults;
};

} // namespace mosaro::organisation
