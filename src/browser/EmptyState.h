#pragma once

#include "browser/SelectionFacts.h"

#include <optional>

namespace mosaro::browser {

/// What stands in the place of the pictures.
struct EmptyState {
    std::optional<bool> dropZone; ///< None: stays as it is.
    QString guide;                ///< Shown while the drop zone is hidden; empty: nothing.
    bool operator==(const EmptyState&) const = default;
};

/// `tab` is the sidebar's: 0 collections, 1 tags, 2 colours.
[[nodiscard]] EmptyState emptyState(const SelectedCollections& selected, bool listIsEmpty, int tab);

} // namespace mosaro::browser
