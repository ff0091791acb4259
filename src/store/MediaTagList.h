#pragma once

#include "store/Record.h"

namespace mosaro::store {

class Media;
class Tags;

/// Link of one item with one tag; carries copies of both keys.
class MediaTagList final : public Record {
public:
    enum Attribute { k_mediaID, k_tagID, k_media, k_tags, kAttributeCount };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_mediaID, QString, mediaID, setMediaID)
    MOSARO_ATTRIBUTE(k_tagID, QString, tagID, setTagID)

    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Media> media() const;
    void setMedia(const std::shared_ptr<Media>& record);
    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Tags> tags() const;
    void setTags(const std::shared_ptr<Tags>& record);

private:
    friend class StoreContext;
    MediaTagList(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
