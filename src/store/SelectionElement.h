#pragma once

#include "store/Record.h"

#include <QString>

namespace mosaro::store {

/// One selected entry of the sidebar, as the browser needs it.
struct SelectionElement {
    enum class Shape { CollectionNode, SystemNode, TagRow, Colour };

    Shape shape = Shape::SystemNode;
    QString id;   ///< collectionID, decimal number, tagID or colorID.
    int type = 0; ///< 10000 to 10002, the system number, or colorType; 0 for a tag.
    QString title;
    RowId record = kUnsavedRow; ///< Row of Collections, Tags or Colors.

    /// Key of the library state's per-selection records: the id plus "+Collection", "+Tag" or, by colour
    /// type,
    /// "+BackgroundColor", "+PrimaryColor", "+SecondaryColor", "+DetailColor".
    [[nodiscard]] QString selectionKey() const;
};

inline constexpr int kTypeCollection = 10000;
inline constexpr int kTypeSmartCollection = 10001;
inline constexpr int kTypeFolder = 10002;

} // namespace mosaro::store
