#pragma once

#include <QStringList>
#include <optional>

class QMimeData;

namespace mosaro::importing {

/// What a drag of items out of the grid tells the places of this program that take them.
struct MediaDrag {
    QStringList dragItems;      ///< mediaID of each item.
    QStringList oldCollections; ///< The mediaPID that occur among them, each once.
};

/// Pasteboard type of the above.
inline constexpr auto MR_DRAG_AND_DROP_MEDIA = "MR_DRAG_AND_DROP_MEDIA";

void writeMediaDrag(QMimeData& data, const MediaDrag& drag);
/// Nothing when the data are of another type, are no record or name no item.
[[nodiscard]] std::optional<MediaDrag> mediaDragOf(const QMimeData& data);

} // namespace mosaro::importing
