#pragma once

#include "store/Record.h"

namespace mosaro::store {

class Collections;
class Tags;

/// Link of one collection with one tag.
class CollectionTagList final : public Record {
public:
    enum Attribute { k_collectionID, k_tagID, k_collections, k_tags, kAttributeCount };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_collectionID, QString, collectionID, setCollectionID)
    MOSARO_ATTRIBUTE(k_tagID, QString, tagID, setTagID)

    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Collections> collections() const;
    void setCollections(const std::shared_ptr<Collections>& record);
    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Tags> tags() const;
    void setTags(const std::shared_ptr<Tags>& record);

private:
    friend class StoreContext;
    CollectionTagList(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
