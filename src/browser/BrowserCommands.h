#pragma once

#include "store/Record.h"

#include <functional>
#include <vector>

namespace mosaro::store {
class Media;
class ZNDBManager;
} // namespace mosaro::store

namespace mosaro::browser {

/// What the browser's commands write. Main thread only.
class BrowserCommands {
public:
    explicit BrowserCommands(store::ZNDBManager& library) : m_library(library) {}

    /// Rates the items 0 to 5 and saves. Nothing for a negative rating, without items or without a library.
    /// A failed save is logged; false then and when nothing was to be done.
    bool ratingImages(const std::vector<store::RowId>& rows, int rating);
    /// The same with a colour label, 0 to 7.
    bool labelImages(const std::vector<store::RowId>& rows, int label);

private:
    using Change = std::function<void(store::Media& media)>;
    bool changeImages(const std::vector<store::RowId>& rows, const Change& change);

    store::ZNDBManager& m_library;
};

} // namespace mosaro::browser
