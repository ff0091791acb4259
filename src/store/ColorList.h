#pragma once

#include "store/Record.h"

namespace mosaro::store {

class Colors;
class Media;

/// Link of one item with one colour.
class ColorList final : public Record {
public:
    enum Attribute { k_colorID, k_colorType, k_mediaID, k_colors, k_media, kAttributeCount };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_colorID, QString, colorID, setColorID)
    MOSARO_ATTRIBUTE(k_colorType, qint64, colorType, setColorType)
    MOSARO_ATTRIBUTE(k_mediaID, QString, mediaID, setMediaID)

    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Colors> colors() const;
    void setColors(const std::shared_ptr<Colors>& record);
    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Media> media() const;
    void setMedia(const std::shared_ptr<Media>& record);

private:
    friend class StoreContext;
    ColorList(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
