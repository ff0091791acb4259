#include "import/MediaDrag.h"

#include "base/PropertyList.h"

#include <QMimeData>

namespace mosaro::importing {

namespace {
constexpr QLatin1String kItems{"dragItems"};
constexpr QLatin1String kCollections{"oldCollections"};
} // namespace

void writeMediaDrag(QMimeData& data, const MediaDrag& drag)
{
    const QVariantMap record{{kItems, QVariant(drag.dragItems).toList()},
                             {kCollections, QVariant(drag.oldCollections).toList()}};
    if (const auto bytes = base::writePropertyList(record, base::PropertyListFormat::Binary)) {
        data.setData(QLatin1String(MR_DRAG_AND_DROP_MEDIA), bytes.value());
    }
}

std::optional<MediaDrag> mediaDragOf(const QMimeData& data)
{
    const QByteArray bytes = data.data(QLatin1String(MR_DRAG_AND_DROP_MEDIA));
    const auto list = bytes.isEmpty() ? base::Result<QVariant>(QVariant()) : base::readPropertyList(bytes);
    const QVariantMap record = list ? list.value().toMap() : QVariantMap();
    MediaDrag drag{record.value(kItems).toStringList(), record.value(kCollections).toStringList()};
    return drag.dragItems.isEmpty() ? std::nullopt : std::optional(std::move(drag));
}

} // namespace mosaro::importing
