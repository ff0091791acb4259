#pragma once

#include "browser/SelectionFacts.h"

#include <optional>

namespace mosaro::browser {

/// The zoom of the grid: smallest, largest, and what holds when none is stored.
inline constexpr double kSmallestZoom = 0.4;
inline constexpr double kLargestZoom = 0.7;

/// A key of store::SortKey, or any other number for "no order".
struct BrowserOrder {
    int key = -1;
    bool ascending = false;
    bool operator==(const BrowserOrder&) const = default;
};

/// What a sort command leads to.
struct OrderChange {
    std::optional<BrowserOrder> order; ///< None: the command ends without any effect.
    bool resort = false;               ///< Not set: only the menus follow `order`.
};

/// Remembers order and zoom where they belong: in the record of the one selected collection, tag or colour,
/// in the library's state for a system collection, and in one pair for all selections of several rows.
class SortMemory {
public:
    explicit SortMemory(store::ZNDBManager& library) : m_library(library) {}

    /// The order of a list that is shown anew. Several rows always start with the newest import first. None:
    /// the order cannot be found.
    [[nodiscard]] std::optional<BrowserOrder> startOrder(const SelectedCollections& selected);
    /// The order in force, for menus.
    [[nodiscard]] std::optional<BrowserOrder> storedOrder(const SelectedCollections& selected) const;

    OrderChange chooseKey(const SelectedCollections& selected, int key);
    OrderChange chooseDirection(const SelectedCollections& selected, bool ascending);

    [[nodiscard]] double zoom(const SelectedCollections& selected) const;
    /// Into every selected row alike.
    void storeZoom(const SelectedCollections& selected, double zoom);

private:
    [[nodiscard]] bool isUsable(const SelectedCollections& selected) const;
    [[nodiscard]] std::optional<BrowserOrder> orderOf(const store::SelectionElement& element) const;
    void storeOrder(const store::SelectionElement& element, const BrowserOrder& order);
    [[nodiscard]] std::optional<double> zoomOf(const store::SelectionElement& element) const;

    store::ZNDBManager& m_library;
    BrowserOrder m_global; ///< Of selections of several rows.
};

} // namespace mosaro::browser
