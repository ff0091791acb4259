#pragma once

#include "organisation/CollectionNode.h"
#include "store/ZNDBManager.h"

#include <QHash>

namespace mosaro::organisation {

/// The numbers beside the nodes: all items, and what each collection owns. Asked of the store by count
/// queries, once per node until clear(). Kinds, Recent, smart collections and folders have none.
class NodeCounts {
public:
    explicit NodeCounts(const store::ZNDBManager& library) : m_library(library) {}

    /// 0: no badge.
    [[nodiscard]] qint64 count(const CollectionNode& node);
    void clear() { m_counts.clear(); }

private:
    [[nodiscard]] qint64 countNow(const CollectionNode& node) const;

    const store::ZNDBManager& m_library;
    QHash<QString, qint64> m_counts;
};

} // namespace mosaro::organisation
