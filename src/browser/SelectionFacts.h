#pragma once

#include "store/SelectionElement.h"

#include <QString>
#include <vector>

namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::browser {

using SelectedCollections = std::vector<store::SelectionElement>;

/// The key of the one selected entry in the library's records of selections. Empty when none or several are
/// selected, no library is open, or the system collection has no row.
[[nodiscard]] QString currentCollectionID(const SelectedCollections& selected, store::ZNDBManager& library);

/// Whether items can be brought into the selection: exactly one collection that the user made.
[[nodiscard]] bool isUserCollection(const SelectedCollections& selected);

/// The title of the selection: the record's own, as it may have been renamed; empty when the record is gone.
[[nodiscard]] QString selectedCollectionName(const SelectedCollections& selected,
                                             store::ZNDBManager& library);

} // namespace mosaro::browser
