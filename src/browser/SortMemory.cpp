#include "browser/SortMemory.h"

#include "browser/DatabaseError.h"
#include "store/Collections.h"
#include "store/Colors.h"
#include "store/MediaSet.h"
#include "store/Tags.h"
#include "store/ZNDBManager.h"

namespace mosaro::browser {

using Shape = store::SelectionElement::Shape;

namespace {

/// Calls `visit` with the entry's record, whichever of the three kinds it is. False when it has none.
template <class Visit>
bool withRecord(store::StoreContext& context, const store::SelectionElement& element, Visit visit)
{
    const auto visited = [&visit](const auto& record) {
        if (record != nullptr) {
            visit(*record);
        }
        return record != nullptr;
    };
    switch (element.shape) {
    case Shape::CollectionNode:
        return visited(context.object<store::Collections>(element.record));
    case Shape::TagRow:
        return visited(context.object<store::Tags>(element.record));
    case Shape::Colour:
        return visited(context.object<store::Colors>(element.record));
    case Shape::SystemNode:
        break;
    }
    return false;
}

} // namespace

bool SortMemory::isUsable(const SelectedCollections& selected) const
{
    return m_library.isOpenedDatabase() && !selected.empty();
}

std::optional<BrowserOrder> SortMemory::orderOf(const store::SelectionElement& element) const
{
    std::optional<BrowserOrder> order;
    if (element.shape == Shape::SystemNode) {
        const store::SystemCollectionSettings row = m_library.state().systemCollection(element.id);
        if (row.sortKey && row.isAscending) {
            order = BrowserOrder{*row.sortKey, *row.isAscending};
        }
        return order;
    }
    withRecord(*m_library.context(), element, [&order](const auto& record) {
        order = BrowserOrder{int(record.sortKey()), record.isAscending()};
    });
    return order;
}

void SortMemory::storeOrder(const store::SelectionElement& element, const BrowserOrder& order)
{
    if (element.shape == Shape::SystemNode) {
        m_library.state().setSystemCollectionSort(element.id, order.key, order.ascending);
        return;
    }
    withRecord(*m_library.context(), element, [&order](auto& record) {
        record.setSortKey(order.key);
        record.setIsAscending(order.ascending);
    });
    showDatabaseError(m_library.context()->save());
}

std::optional<BrowserOrder> SortMemory::startOrder(const SelectedCollections& selected)
{
    if (!isUsable(selected)) {
        return std::nullopt;
    }
    if (selected.size() > 1) {
        m_global = {int(store::SortKey::DateImported), false};
        return m_global;
    }
    return orderOf(selected.front());
}

std::optional<BrowserOrder> SortMemory::storedOrder(const SelectedCollections& selected) const
{
    if (!isUsable(selected)) {
        return std::nullopt;
    }
    return selected.size() > 1 ? m_global : orderOf(selected.front());
}

OrderChange SortMemory::chooseKey(const SelectedCollections& selected, int key)
{
    if (!isUsable(selected)) {
        return {};
    }
    if (selected.size() > 1) {
        const bool other = key != m_global.key;
        m_global.key = key;
        return {m_global, other};
    }
    const std::optional<BrowserOrder> stored = orderOf(selected.front());
    if (!stored) {
        return {BrowserOrder{key, true}, true};
    }
    const BrowserOrder order{key, stored->ascending};
    storeOrder(selected.front(), order);
    return {order, true};
}

OrderChange SortMemory::chooseDirection(const SelectedCollections& selected, bool ascending)
{
    if (!isUsable(selected)) {
        return {};
    }
    if (selected.size() > 1) {
        const bool other = ascending != m_global.ascending;
        m_global.ascending = ascending;
        return {m_global, other && m_global.key >= 0};
    }
    const std::optional<BrowserOrder> stored = orderOf(selected.front());
    if (!stored) {
        return {};
    }
    const BrowserOrder order{stored->key, ascending};
    storeOrder(selected.front(), order);
    return {order, order.key >= 0};
}

std::optional<double> SortMemory::zoomOf(const store::SelectionElement& element) const
{
    if (element.shape == Shape::SystemNode) {
        return m_library.state().systemCollection(element.id).zoom;
    }
    std::optional<double> zoom;
    withRecord(*m_library.context(), element, [&zoom](const auto& record) { zoom = record.zoomValue(); });
    return zoom;
}

/// Of one row its own; of several the first one's.
double SortMemory::zoom(const SelectedCollections& selected) const
{
    if (!isUsable(selected)) {
        return kSmallestZoom;
    }
    return zoomOf(selected.front()).value_or(kSmallestZoom);
}

void SortMemory::storeZoom(const SelectedCollections& selected, double zoom)
{
    if (!isUsable(selected)) {
        return;
    }
    bool changed = false;
    for (const store::SelectionElement& element : selected) {
        if (zoomOf(element) == zoom) {
            continue;
        }
        if (element.shape == Shape::SystemNode) {
            m_library.state().setSystemCollectionZoom(element.id, zoom);
        } else {
            changed |= withRecord(*m_library.context(), element,
                                  [zoom](auto& record) { record.setZoomValue(zoom); });
        }
    }
    if (changed) {
        showDatabaseError(m_library.context()->save());
    }
}

} // namespace mosaro::browser
