#pragma once

#include "store/Record.h"

namespace mosaro::store {

class ColorList;

/// One distinct colour in one role; the key is the pair of colorID and colorType.
class Colors final : public Record {
public:
    enum Attribute {
        k_colorID,
        k_colorType,
        k_isLike,
        k_isAscending,
        k_sortKey,
        k_zoomValue,
        kAttributeCount
    };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_colorID, QString, colorID, setColorID)
    MOSARO_ATTRIBUTE(k_colorType, qint64, colorType, setColorType)
    MOSARO_ATTRIBUTE(k_isLike, bool, isLike, setIsLike)
    MOSARO_ATTRIBUTE(k_isAscending, bool, isAscending, setIsAscending)
    MOSARO_ATTRIBUTE(k_sortKey, qint64, sortKey, setSortKey)
    MOSARO_ATTRIBUTE(k_zoomValue, double, zoomValue, setZoomValue)

    /// To-many, the inverse of ColorList::colors: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<ColorList>> colorList() const;

private:
    friend class StoreContext;
    Colors(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
