#pragma once

#include "store/Record.h"

namespace mosaro::store {

class CollectionTagList;
class MediaTagList;

/// A tag.
class Tags final : public Record {
public:
    enum Attribute { k_tagID, k_title, k_tagColor, k_isAscending, k_sortKey, k_zoomValue, kAttributeCount };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_tagID, QString, tagID, setTagID)
    MOSARO_ATTRIBUTE(k_title, QString, title, setTitle)
    MOSARO_ATTRIBUTE(k_tagColor, QString, tagColor, setTagColor)
    MOSARO_ATTRIBUTE(k_isAscending, bool, isAscending, setIsAscending)
    MOSARO_ATTRIBUTE(k_sortKey, qint64, sortKey, setSortKey)
    MOSARO_ATTRIBUTE(k_zoomValue, double, zoomValue, setZoomValue)

    /// To-many, the inverse of MediaTagList::tags: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<MediaTagList>> mediaTagList() const;
    /// To-many, the inverse of CollectionTagList::tags: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<CollectionTagList>> collectionTagList() const;

private:
    friend class StoreContext;
    Tags(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
